#include "CallbackLocators.h"

#include "ModelPaths.h"
#include "PreVariableDefStore.h"

#include "ModelQCL.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include <set>
#include <utility>
#include <vector>

namespace qen {

bool CallbackLocators::isExpressionPoint(const std::string& p_locator) const
{
    const std::string& path = m_paths.monitorPoint(m_flowName, p_locator);
    return m_model.objectExists(path) && m_model.paramValue(path, modelpaths::k_option) == "Expression";
}

bool CallbackLocators::hasStatistics(const std::string& p_monitorPoint, const std::string& p_operator,
                                     const PreVariableDefStore& p_operators) const
{
    const std::string& path = m_paths.monitorStatistics(m_flowName, p_monitorPoint);
    if (!m_model.objectExists(path))
        return false;

    const std::set<std::string> statistics =
        StringUtilities::stringToSet(m_model.paramValue(path, modelpaths::k_statisticsList), ',');
    return statistics.contains(p_operator) || statistics.contains(p_operators.getOperatorAlias(p_operator));
}

bool CallbackLocators::hasTimeTransformation() const
{
    return !m_model.childNames(m_paths.bladeRowModels(m_flowName), modelpaths::k_timeTransformation).empty();
}

bool CallbackLocators::isRigidBody(const std::string& p_locator) const
{
    const std::vector<std::string> bodies =
        m_model.childNames(m_paths.flow(m_flowName), modelpaths::k_rigidBody);
    std::set<std::string> rigid(bodies.begin(), bodies.end());
    for (const std::string& domain : m_model.childPaths(m_paths.flow(m_flowName), modelpaths::k_domain))
        if (m_model.paramValue(m_paths.domainMotion(domain), modelpaths::k_option) == "Rigid Body Solution")
            rigid.insert(QCLPath(domain).getLastName());
    return rigid.contains(p_locator);
}

std::string CallbackLocators::domainOfMonitorPoint(const QCLPath& p_monitorPoint) const
{
    const std::string& path = p_monitorPoint.getFullPath();
    std::string name = m_model.paramValue(path, modelpaths::k_domainName);
    if (name.empty())
        name = m_model.paramValue(m_paths.monitorLocation(path), modelpaths::k_domainName);
    if (!name.empty())
        return name;

    std::vector<std::string> domains = m_model.childNames(m_paths.flow(m_flowName), modelpaths::k_domain);
    if (domains.empty())
        return {};
    if (domains.size() == 1)
        return std::move(domains.front());

    // The same physics everywhere: the first domain, in the model's order, stands for all.
    const std::string constantPhysics =
        m_model.paramValue(modelpaths::k_physicsOptions, modelpaths::k_constantPhysicsControl);
    const bool isConstant = !constantPhysics.empty() && StringUtilities::stringToBool(constantPhysics);
    return isConstant ? std::move(domains.front()) : std::string();
}

}    // namespace qen
