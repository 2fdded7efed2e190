#include "CallbackLocators.h"

#include "ModelPaths.h"
#include "PreVariableDefStore.h"

#include "ModelQCL.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include <algorithm>
#include <set>
#include <vector>

namespace qen {
namespace {

constexpr const char* k_domainName = "Domain Name";

}    // namespace

bool CallbackLocators::isExpressionPoint(const std::string& p_locator) const
{
    const std::string path = modelpaths::monitorPoint(m_flowName, p_locator);
    return m_model.objectExists(path) && m_model.paramValue(path, modelpaths::k_option) == "Expression";
}

bool CallbackLocators::hasStatistics(const std::string& p_monitorPoint, const std::string& p_operator,
                                     const PreVariableDefStore& p_operators) const
{
    const std::string path = modelpaths::monitorStatistics(m_flowName, p_monitorPoint);
    if (!m_model.objectExists(path))
        return false;

    const std::set<std::string> statistics =
        StringUtilities::stringToSet(m_model.paramValue(path, "Statistics List"), ',');
    return statistics.contains(p_operator) || statistics.contains(p_operators.getOperatorAlias(p_operator));
}

bool CallbackLocators::hasTimeTransformation() const
{
    return !m_model.childNames(modelpaths::bladeRowModels(m_flowName), modelpaths::k_timeTransformation)
                .empty();
}

bool CallbackLocators::isRigidBody(const std::string& p_locator) const
{
    const std::string flow = modelpaths::flow(m_flowName);
    const std::vector<std::string> bodies = m_model.childNames(flow, modelpaths::k_rigidBody);
    if (std::find(bodies.begin(), bodies.end(), p_locator) != bodies.end())
        return true;

    const std::vector<std::string> domains = m_model.childPaths(flow, modelpaths::k_domain);
    return std::any_of(domains.begin(), domains.end(), [&](const std::string& p_domain) {
        return QCLPath(p_domain).getLastName() == p_locator &&
               m_model.paramValue(p_domain + "/DOMAIN MODELS/DOMAIN MOTION", modelpaths::k_option) ==
                   "Rigid Body Solution";
    });
}

std::string CallbackLocators::domainOfMonitorPoint(const QCLPath& p_monitorPoint) const
{
    const std::string& path = p_monitorPoint.getFullPath();
    std::string name = m_model.paramValue(path, k_domainName);
    if (name.empty())
        name = m_model.paramValue(path + "/MONITOR LOCATION CONTROL", k_domainName);
    if (!name.empty())
        return name;

    const std::vector<std::string> domains =
        m_model.childNames(modelpaths::flow(m_flowName), modelpaths::k_domain);
    if (domains.empty())
        return {};
    if (domains.size() == 1)
        return domains.front();

    // The same physics everywhere: the first domain, in the model's order, stands for all.
    const std::string constantPhysics =
        m_model.paramValue(modelpaths::k_physicsOptions, "Constant Physics Control");
    return StringUtilities::stringToBool(constantPhysics) ? domains.front() : std::string();
}

}    // namespace qen
