#include "checking/CaseChecker.h"

#include "checking/CaseResults.h"
#include "checking/CaseWorld.h"
#include "checking/ListBudget.h"
#include "checking/ParameterChecks.h"
#include "model/CaseText.h"

#include <utility>
#include <vector>

namespace qen::standalone {

CaseReport checkCase(const QclDocument& p_case, const Definitions& p_definitions, const Progress& p_progress)
{
    CaseWorld world(p_definitions);
    bringUpTo(world.model(), nullptr, p_case);
    CaseResults results(world);

    ListBudget lists;
    std::size_t count = 0;
    for (const QclObject& object : p_case.objects)
    {
        lists.take(object);
        count += object.parameters.size();
    }
    const ListBudget::Names tooLong = lists.beyond(p_case);

    std::vector<ParameterToCheck> parameters;
    parameters.reserve(count);
    for (const QclObject& object : p_case.objects)
        for (const QclParameter& parameter : object.parameters)
            parameters.push_back(
                {{object.path, std::string(parameter.name()), std::string(parameter.value())},
                 results.isKnownPath(object.path),
                 !tooLong.empty() && tooLong.contains({object.path, std::string(parameter.name())})});

    std::size_t followed = 0;
    CheckedParameters checked = checkParameters(world, parameters, [&] {
        if (p_progress)
            p_progress(++followed, count);
    });
    for (std::size_t i = 0; i < parameters.size(); ++i)
        results.set(parameters[i].parameter, std::move(checked.findings[i]));
    results.addToCase(checked.ofCase, checked.internalError);
    return results.report(p_case);
}

}    // namespace qen::standalone
