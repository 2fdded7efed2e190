#include "rules/RuleReader.h"

#include "rules/RuleText.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include "QCLParam.h"

#include <utility>

// What must hold beyond the form of a single key: keys that contradict each other, objects that no section declares,
// units that do not fit.

namespace qen::standalone {

// A rule far below a misspelt type would otherwise never be found and never be missed.
void RuleReader::checkAncestors(const Section& p_section)
{
    const std::string_view pattern = p_section.object->pattern;
    PathLevel level;
    for (std::string_view rest = pattern; takeLevel(rest, level);)
    {
        const std::string_view above = pattern.substr(0, pattern.size() - rest.size());
        if (m_tree.declared(above)->place.document != 0)
            continue;
        atSection(p_section, "undeclared-rule-object",
                  "No section declares the object " + quotedShort(above) +
                      ". Is it misspelt? Otherwise begin a section [" + std::string(above) + "].");
        return;
    }
}

void RuleReader::checkSameAs(const DeclaredObject& p_object)
{
    for (std::size_t i = 0; i < p_object.sameAs.size(); ++i)
    {
        const std::string& pattern = p_object.sameAs[i];
        const DeclaredObject* other = m_tree.declared(pattern);
        std::string message;
        if (other == &p_object)
            message = "The object " + quotedShort(pattern) + " cannot be the same as itself.";
        else if (!other || other->pattern.empty() || other->place.document == 0)
            message = "No section declares the object " + quotedShort(pattern) + ", with which " +
                      quotedShort(p_object.pattern) + " is to be the same.";
        if (!message.empty())
            m_problems.push_back({Severity::Error, "unknown-same-as", std::move(message),
                                  p_object.sameAsPlaces[i], static_cast<std::uint32_t>(pattern.size())});
    }
}

void RuleReader::checkRule(const Section& p_section, const DeclaredParameter& p_parameter)
{
    const ParameterRule& rule = p_parameter.rule;
    if (p_parameter.type == ParamType::Unknown)
    {
        if (!p_section.text->find("Type"))
            atSection(p_section, "missing-rule-key",
                      "The rule has no 'Type'. Expected " + paramTypeTexts() + ".");
        return;
    }

    const auto contradiction = [&](std::string_view p_key, const std::string& p_why) {
        atKey(p_section, p_key, "contradictory-rule", "'" + std::string(p_key) + "' " + p_why);
    };
    if (!QCLParam::isNumericType(p_parameter.type))
    {
        const std::string why = "has no meaning for a parameter of type '" + rule.type + "'.";
        if (!rule.quantity.empty())
            contradiction("Quantity", why);
        if (!rule.unitsFrom.empty())
            contradiction("Units From", why);
        if (!rule.lowerBound.empty())
            contradiction("Lower Bound", why);
        if (!rule.upperBound.empty())
            contradiction("Upper Bound", why);
        if (!rule.kind.empty())
            contradiction("Kind", why);
        if (rule.singleValued)
            contradiction("Single Valued", why);
        if (!rule.dependencies.empty())
            contradiction("Depends On", why);
        return;
    }
    if (!rule.allowedTexts.empty())
        contradiction("Allowed", "has no meaning for a parameter of type '" + rule.type + "'.");
    if (!rule.quantity.empty() && !rule.unitsFrom.empty())
        contradiction("Units From", "and 'Quantity' cannot both say what the units are.");
    if (!rule.unitsTimes.empty() && rule.unitsFrom.empty())
        contradiction("Units Times", "has no meaning without 'Units From'.");
    if (rule.kind == k_expressionKind && !(rule.quantity.empty() && rule.unitsFrom.empty()))
        contradiction("Kind", "is 'Expression', whose units are not checked, yet there is a quantity.");
    checkUnits(p_section, rule);
}

// Only where units are known: a set of rules may be read without them.
void RuleReader::checkUnits(const Section& p_section, const ParameterRule& p_rule)
{
    const UnitSystem* units = currentWorld().units;
    if (!units)
        return;

    const std::string* expected = nullptr;
    if (!p_rule.quantity.empty())
    {
        expected = units->quantityUnits(p_rule.quantity);
        if (!expected)
            atKey(p_section, "Quantity", "unknown-quantity",
                  "The quantity " + quotedShort(p_rule.quantity) + " is not among the definitions of units.");
    }
    std::string why;
    if (!p_rule.unitsTimes.empty() && !units->parse(p_rule.unitsTimes, &why))
        atKey(p_section, "Units Times", "bad-rule-value",
              "The units " + quotedShort(p_rule.unitsTimes) + " are not understood: " + why);
    if (p_rule.quantity.empty() || !expected)
        return;

    std::optional<double> inBaseUnits[2];
    const std::pair<const char*, const std::string*> bounds[2] {{"Lower Bound", &p_rule.lowerBound},
                                                                {"Upper Bound", &p_rule.upperBound}};
    for (std::size_t i = 0; i < 2; ++i)
    {
        const std::optional<Bound> bound = readBoundText(*bounds[i].second);
        if (!bound)
            continue;
        inBaseUnits[i] = units->convert(bound->units, *expected, bound->value);
        if (!inBaseUnits[i])
            atKey(p_section, bounds[i].first, "bad-rule-value",
                  "The bound " + quotedShort(*bounds[i].second) + " cannot be converted to the units " +
                      quotedShort(*expected) + " of the quantity " + quotedShort(p_rule.quantity) + ".");
    }
    if (inBaseUnits[0] && inBaseUnits[1] && *inBaseUnits[0] > *inBaseUnits[1])
        atKey(p_section, "Lower Bound", "contradictory-rule",
              "The lower bound " + quotedShort(p_rule.lowerBound) + " is above the upper bound " +
                  quotedShort(p_rule.upperBound) + ".");
}

}    // namespace qen::standalone
