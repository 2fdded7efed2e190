#include "DimExprChecker.h"

#include "ExprParamRules.h"
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
    const std::vector<std::string> dependencyList = m_rules->dependencies(p_objectPath, p_paramName, m_model);
    if (dependencyList.empty())
        internalError(k_noDependencies);

    std::vector<std::string> unavailable;

    // Deliberate: only the first entry counts as "ANY". Held by Availability.AnyCountsOnlyAsTheFirstEntry.
    if (dependencyList.empty() || dependencyList.front() != "ANY")
    {
        std::vector<std::string> roots;
        std::vector<std::string> additionalVariables;
        roots.reserve(p_splitNames.size());
        for (const SplitVariableName& name : p_splitNames)
        {
            roots.push_back(name.root().name());
            if (name.isAV())
                additionalVariables.push_back(name.root().name());
        }
        if (!additionalVariables.empty())
            raise<Msg::AVsNotAllowed>(p_paramName, p_objectPath, additionalVariables);

        if (!m_availabilityChecker->areGenerallyAvailable(roots, dependencyList, unavailable))
            raise<Msg::UnavailableVariables>(p_paramName, p_objectPath, unavailable);
    }

    if (!modelpaths::levelName(p_objectPath, modelpaths::k_domain).empty())
        for (const SplitVariableName& name : p_splitNames)
            if (!m_availabilityChecker->isAvailableAsDefined(name, *m_varDefStore, p_objectPath))
                unavailable.push_back(name.root().name());

    if (!unavailable.empty())
        raise<Msg::UnavailableVariables>(p_paramName, p_objectPath, unavailable);
}

}    // namespace qen
