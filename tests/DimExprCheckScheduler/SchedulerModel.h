#pragma once

#include "SchedulerWorld.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qen::proof {

using Record = ExpressionErrors::ExprError;

/// A check met a bound that it cannot use; the host gets an exception.
struct CheckFailed {};

// What one check says, in full. Nothing when all is well.

inline std::optional<Record> problem(const Place& p_place, std::string p_text,
                                     ExpressionErrors::ErrorLevel p_level = ExpressionErrors::Error)
{
    return Record(p_place.object, p_place.parameter, std::move(p_text), p_level);
}

inline std::optional<Record> boundProblem(const World& p_world, std::size_t p_place, float p_value,
                                          const std::string& p_units)
{
    const Place& place = places()[p_place];
    const Rules& rules = p_world.rules(p_place);
    if (rules.upperBound.empty())
        return std::nullopt;
    if (!rules.boundIsRight || p_units != rules.units)
        throw CheckFailed();
    if (p_value <= rules.limit)
        return std::nullopt;
    return problem(place, "Value of '" + place.parameter + "' in object '" + place.object + "', '" +
                              p_world.value(p_place).text + "', violates its upper bound, '" +
                              rules.upperBound + "'.");
}

inline std::optional<Record> numberProblem(const World& p_world, std::size_t p_place, float p_value,
                                           const std::string& p_units)
{
    const Place& place = places()[p_place];
    const Rules& rules = p_world.rules(p_place);
    if (!rules.quantity.empty() && p_units != rules.units)
        return problem(place, std::string(rules.dynamic ? "Invalid dynamic units ('" : "Invalid units ('") +
                                  p_units + "') set for parameter '" + place.parameter + "' in object '" +
                                  place.object + "'. Expected units: '" + rules.units + "'.");
    return boundProblem(p_world, p_place, p_value, p_units);
}

inline std::optional<Record> expressionProblem(const World& p_world, std::size_t p_place, const Item& p_item)
{
    const Place& place = places()[p_place];
    const Rules& rules = p_world.rules(p_place);
    if (place.inLibrary)
    {
        if (place.parameter != "Width")
            return std::nullopt;
        return problem(place,
                       "The expression name 'Width' is a QVN Command Language parameter name. This may cause "
                       "difficulties when the case is run.",
                       ExpressionErrors::Warning);
    }
    if (!p_item.parses)
        return problem(place, "Bad expression value '" + p_item.text + "' detected in parameter '" +
                                  place.parameter + "' in object '" + place.object +
                                  "'.\nQEL error:\nAn operand is missing.");
    if (!rules.quantity.empty() && p_item.units != rules.units)
        return problem(place, "Expression resolves to invalid units ('" + p_item.units +
                                  "') in value set for parameter '" + place.parameter + "' in object '" +
                                  place.object + "'. Expected units: '" + rules.units + "'.");
    return p_item.isConstant ? boundProblem(p_world, p_place, p_item.value, p_item.units) : std::nullopt;
}

/// What should be kept and recorded, said as plainly as possible: one flat list of kept values, in the order of path and
/// name, and the objects that a deleted parameter has left bare.
class SchedulerModel {
public:
    struct Number {
        float value;
        std::string units;
        bool ok;
    };

    struct Kept {
        std::size_t place = 0;
        std::int32_t mode = 0;
        std::vector<Number> numbers;
        std::vector<Item> expressions;

        /// A plain value, of numbers only, each of which passed its last check, is settled: nothing is left to do.
        bool isSettled() const
        {
            return mode == 0 && expressions.empty() && std::ranges::all_of(numbers, &Number::ok);
        }
    };

    std::map<std::pair<std::string, std::string>, Kept> kept;    // by path and name
    std::set<std::string> bareObjects;
    std::vector<Record> records;

    /// What a value is made of. Of a named expression, everything is an expression.
    static Kept split(std::size_t p_place, std::int32_t p_mode, const Value& p_value)
    {
        Kept result {p_place, p_mode, {}, {}};
        for (const Item& item : p_value.items)
            if (item.isNumber && p_mode != 2)
                result.numbers.push_back({item.value, item.units, false});
            else
                result.expressions.push_back(item);
        return result;
    }

    void examine(const World& p_world, std::size_t p_place)
    {
        const Place& place = places()[p_place];
        const Rules& rules = p_world.rules(p_place);
        if (!place.namedExpression && !(rules.pathKnown && rules.nameKnown && rules.numeric))
            return;

        Kept now = split(p_place, place.namedExpression ? 2 : rules.dynamic ? 1 : 0, p_world.value(p_place));
        if (now.mode == 0)
            for (Number& number : now.numbers)
                number.ok = !numberProblem(p_world, p_place, number.value, number.units);

        if (p_world.value(p_place).items.empty() || now.isSettled())
            forget(p_place);
        else
            keep(p_place, now);
    }

    void keep(std::size_t p_place, const Kept& p_value)
    {
        kept[key(p_place)] = p_value;
        bareObjects.erase(places()[p_place].object);
    }

    void forget(std::size_t p_place) { kept.erase(key(p_place)); }

    void paramDeleted(std::size_t p_place)
    {
        const std::string& object = places()[p_place].object;
        if (kept.erase(key(p_place)) != 0 && !hasKept(object))
            bareObjects.insert(object);
    }

    void objectDeleted(std::size_t p_place)
    {
        const std::string& object = places()[p_place].object;
        std::erase_if(kept, [&](const auto& p_entry) { return p_entry.first.first == object; });
        bareObjects.erase(object);
    }

    /// All that is kept is checked and recorded. What a check fails at stays kept, with the flags of the numbers before
    /// it; all behind it stays as it was.
    void run(const World& p_world)
    {
        records.clear();
        for (auto at = kept.begin(); at != kept.end();)
        {
            bareObjects.erase(bareObjects.begin(), bareObjects.lower_bound(at->first.first));
            Kept& now = at->second;
            bool goes = !p_world.exists(at->first.first);
            if (!goes)
            {
                checkNumbers(p_world, now);
                checkExpressions(p_world, now);
                goes = now.isSettled();
            }
            at = goes ? kept.erase(at) : std::next(at);
        }
        bareObjects.clear();
    }

    /// Up to the first that fails; the flags behind it stay.
    void checkNumbers(const World& p_world, Kept& p_value)
    {
        for (Number& number : p_value.numbers)
        {
            const auto found = numberProblem(p_world, p_value.place, number.value, number.units);
            number.ok = !found;
            if (found)
            {
                records.push_back(*found);
                return;
            }
        }
    }

    void checkExpressions(const World& p_world, const Kept& p_value)
    {
        for (const Item& expression : p_value.expressions)
            if (const auto found = expressionProblem(p_world, p_value.place, expression))
                records.push_back(*found);
    }

private:
    static std::pair<std::string, std::string> key(std::size_t p_place)
    {
        return {places()[p_place].object, places()[p_place].parameter};
    }

    bool hasKept(const std::string& p_object) const
    {
        return std::ranges::any_of(kept,
                                   [&](const auto& p_entry) { return p_entry.first.first == p_object; });
    }
};

}    // namespace qen::proof
