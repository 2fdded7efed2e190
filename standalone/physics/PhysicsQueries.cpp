#include "physics/PhysicsQueries.h"

#include "StringUtilities.h"

#include <algorithm>
#include <unordered_set>

namespace qen::standalone {
namespace {

/// Whether a value, or a piece of a value that is a list, is one of the texts.
bool isOneOf(const std::string& p_value, const std::vector<std::string>& p_texts)
{
    const auto isListed = [&](const std::string& p_text) {
        return std::ranges::find(p_texts, p_text) != p_texts.end();
    };
    if (p_value.find(',') == std::string::npos)
        return isListed(p_value);
    return std::ranges::any_of(StringUtilities::splitValue(p_value, ','), isListed);
}

}    // namespace

bool PhysicsEvaluation::holds(const PhysicsQuery& p_query, const std::string& p_objectPath)
{
    if (!takeStep() || p_query.conditions.empty())
        return false;
    const auto conditionHolds = [&](const PhysicsCondition& p_condition) {
        return holds(p_condition, p_objectPath);
    };
    if (p_query.answer == PhysicsAnswer::All)
        return std::ranges::all_of(p_query.conditions, conditionHolds);
    return std::ranges::any_of(p_query.conditions, conditionHolds);
}

std::vector<std::string> PhysicsEvaluation::list(const PhysicsQuery& p_query, const std::string& p_objectPath)
{
    std::vector<std::string> names;
    std::unordered_set<std::string> known;
    for (const PhysicsCondition& condition : p_query.conditions)
        if (condition.object && holds(condition.onlyIf, p_objectPath))
            condition.object->visit(p_objectPath, m_model, [&](const std::string& p_path) {
                if (!takeStep())
                    return false;
                if (holdsAt(condition, p_path) && known.emplace(lastNameOf(p_path)).second)
                    names.emplace_back(lastNameOf(p_path));
                return true;
            });
    if (isGivenUp())
        names.clear();
    return names;
}

bool PhysicsEvaluation::holds(const AskedQuery& p_asked, const std::string& p_objectPath)
{
    return p_asked.name.empty() || (p_asked.query && holds(*p_asked.query, p_objectPath));
}

bool PhysicsEvaluation::holds(const PhysicsCondition& p_condition, const std::string& p_objectPath)
{
    if (!holds(p_condition.onlyIf, p_objectPath))
        return false;

    std::size_t count = 0;
    const std::size_t least = p_condition.atLeast.value_or(p_condition.atMost ? 0 : 1);
    const std::size_t enough = p_condition.atMost ? *p_condition.atMost + 1 : least;
    if (!p_condition.object)
        count = holds(p_condition.query, p_objectPath) ? 1 : 0;
    else
        p_condition.object->visit(p_objectPath, m_model, [&](const std::string& p_path) {
            if (!takeStep())
                return false;
            if (holdsAt(p_condition, p_path))
                ++count;
            return count < enough;
        });
    const bool isWithin = count >= least && (!p_condition.atMost || count <= *p_condition.atMost);
    return isWithin != p_condition.negate;
}

bool PhysicsEvaluation::holdsAt(const PhysicsCondition& p_condition, const std::string& p_path)
{
    if (p_condition.parameter.empty())
    {
        if (!p_condition.object->isOnPath() && !m_model.objectExists(p_path))
            return false;
    }
    else
    {
        const std::string value = m_model.paramValue(p_path, p_condition.parameter);
        if (value.empty() || (!p_condition.is.empty() && !isOneOf(value, p_condition.is)) ||
            (!p_condition.isNot.empty() && isOneOf(value, p_condition.isNot)) ||
            (p_condition.logical && StringUtilities::stringToBool(value) != *p_condition.logical))
            return false;
        if (p_condition.names)
            return namesOneThatFits(p_condition, p_path, value);
    }
    return holds(p_condition.query, p_path);
}

bool PhysicsEvaluation::namesOneThatFits(const PhysicsCondition& p_condition, const std::string& p_path,
                                         const std::string& p_value)
{
    bool isFound = false;
    for (const std::string& name : StringUtilities::splitValue(p_value, ','))
        p_condition.names->visit(p_path, m_model, [&](const std::string& p_objects) {
            std::string named = p_objects;
            named.append(":").append(name);
            isFound = takeStep() && m_model.objectExists(named) && holds(p_condition.query, named);
            return !isFound;
        });
    return isFound;
}

}    // namespace qen::standalone
