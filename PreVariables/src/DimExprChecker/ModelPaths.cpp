#include "ModelPaths.h"

#include "QCLPath.h"

namespace qen::modelpaths {

std::string levelName(const std::string& p_path, const char* p_type)
{
    return QCLPath(p_path).getSubPathByType(p_type).getLastName();
}

std::string additionalVariable(const std::string& p_name) { return "/LIBRARY/ADDITIONAL VARIABLE:" + p_name; }

std::string flow(const std::string& p_flowName) { return "/FLOW:" + p_flowName; }

std::string bladeRowModels(const std::string& p_flowName)
{
    return flow(p_flowName) + "/TRANSIENT BLADE ROW MODELS";
}

std::string monitorPoint(const std::string& p_flowName, const std::string& p_name)
{
    return flow(p_flowName) + "/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:" + p_name;
}

std::string monitorStatistics(const std::string& p_flowName, const std::string& p_monitorPoint)
{
    return monitorPoint(p_flowName, p_monitorPoint) + "/MONITOR STATISTICS";
}

std::string child(const std::string& p_path, const char* p_type, const std::string& p_name)
{
    return p_path + '/' + p_type + ':' + p_name;
}

std::string domainAV(const std::string& p_domainPath, const char* p_models, const std::string& p_name)
{
    return child(p_domainPath + '/' + p_models, k_additionalVariable, p_name);
}

std::string fluidAV(const std::string& p_domainPath, const std::string& p_fluid, const std::string& p_name)
{
    return child(child(p_domainPath + '/' + k_fluidModels, k_fluid, p_fluid), k_additionalVariable, p_name);
}

}    // namespace qen::modelpaths
