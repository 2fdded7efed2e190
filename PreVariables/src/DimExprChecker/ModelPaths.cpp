#include "ModelPaths.h"

#include "QCLPath.h"

#include <initializer_list>

namespace qen {

namespace {

const std::string& join(std::string& p_text, std::initializer_list<std::string_view> p_parts)
{
    p_text.clear();
    for (const std::string_view part : p_parts)
        p_text += part;
    return p_text;
}

}    // namespace

std::string modelpaths::levelName(const std::string& p_path, const std::string& p_type)
{
    return QCLPath(p_path).getSubPathByType(p_type).getLastName();
}

const std::string& ModelPaths::additionalVariable(std::string_view p_name) const
{
    return join(m_text, {"/LIBRARY/ADDITIONAL VARIABLE:", p_name});
}

const std::string& ModelPaths::flow(std::string_view p_flowName) const
{
    return join(m_text, {"/FLOW:", p_flowName});
}

const std::string& ModelPaths::bladeRowModels(std::string_view p_flowName) const
{
    return join(m_text, {"/FLOW:", p_flowName, "/TRANSIENT BLADE ROW MODELS"});
}

const std::string& ModelPaths::monitorPoint(std::string_view p_flowName, std::string_view p_name) const
{
    return join(m_text, {"/FLOW:", p_flowName, "/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:", p_name});
}

const std::string& ModelPaths::monitorStatistics(std::string_view p_flowName,
                                                 std::string_view p_monitorPoint) const
{
    return join(m_text, {"/FLOW:", p_flowName, "/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:",
                         p_monitorPoint, "/MONITOR STATISTICS"});
}

const std::string& ModelPaths::monitorLocation(std::string_view p_monitorPointPath) const
{
    return join(m_text, {p_monitorPointPath, "/MONITOR LOCATION CONTROL"});
}

const std::string& ModelPaths::domainMotion(std::string_view p_domainPath) const
{
    return join(m_text, {p_domainPath, "/DOMAIN MODELS/DOMAIN MOTION"});
}

const std::string& ModelPaths::fluidModels(std::string_view p_domainPath, std::string_view p_fluid) const
{
    return join(m_text, {p_domainPath, "/FLUID MODELS/FLUID:", p_fluid});
}

const std::string& ModelPaths::solidDefinition(std::string_view p_domainPath, std::string_view p_solid) const
{
    return join(m_text, {p_domainPath, "/SOLID DEFINITION:", p_solid});
}

const std::string& ModelPaths::domainAV(std::string_view p_domainPath, std::string_view p_models,
                                        std::string_view p_name) const
{
    return join(m_text, {p_domainPath, "/", p_models, "/ADDITIONAL VARIABLE:", p_name});
}

const std::string& ModelPaths::fluidAV(std::string_view p_domainPath, std::string_view p_fluid,
                                       std::string_view p_name) const
{
    return join(m_text, {p_domainPath, "/FLUID MODELS/FLUID:", p_fluid, "/ADDITIONAL VARIABLE:", p_name});
}

}    // namespace qen
