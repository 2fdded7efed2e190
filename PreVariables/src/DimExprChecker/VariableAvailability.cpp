#include "DimExprChecker.h"

#include "ExprParamRules.h"
#include "Gathered.h"
#include "InternalErrors.h"
#include "MessageCatalogue.h"
#include "ModelPaths.h"
#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"

#include <string>
#include <vector>

namespace qen {

using messages::Msg;
using messages::raise;

void DimExprChecker::checkVariableAvailability(const std::string& p_objectPath,
                                               const std::string& p_paramName,
                                               const std::vector<SplitVariableName>& p_splitNames)
{
    m_gathered->dependencies = m_rules->dependencies(p_objectPath, p_paramName, m_model);
    const std::vector<std::string>& dependencyList = m_gathered->dependencies;
    if (dependencyList.empty())
        internalError(k_noDependencies);

    std::vector<std::string>& refused = m_gathered->refusedNames;
    refused.clear();

    // Deliberate: only the first entry counts as "ANY". Held by Availability.AnyCountsOnlyAsTheFirstEntry.
    if (dependencyList.empty() || dependencyList.front() != "ANY")
    {
        m_gathered->rootNames.clear();
        for (const SplitVariableName& name : p_splitNames)
        {
            m_gathered->rootNames.push_back(name.root().name());
            if (name.isAV())
                refused.push_back(name.root().name());
        }
        if (!refused.empty())
            raise<Msg::AVsNotAllowed>(p_paramName, p_objectPath, refused);

        if (!m_availabilityChecker->areGenerallyAvailable(m_gathered->rootNames, dependencyList, refused))
            raise<Msg::UnavailableVariables>(p_paramName, p_objectPath, refused);
    }

    if (!modelpaths::levelName(p_objectPath, modelpaths::k_domain).empty())
        for (const SplitVariableName& name : p_splitNames)
            if (!m_availabilityChecker->isAvailableAsDefined(name, *m_varDefStore, p_objectPath))
                refused.push_back(name.root().name());

    if (!refused.empty())
        raise<Msg::UnavailableVariables>(p_paramName, p_objectPath, refused);
}

}    // namespace qen
