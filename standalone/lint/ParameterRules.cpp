#include "lint/LintRules.h"

#include "definitions/Definitions.h"
#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"
#include "qcl/QclReader.h"
#include "rules/RuleText.h"
#include "rules/RuleTree.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <map>
#include <optional>

// Loading compares bounds with the quantity of a rule. These look at rules that have none, and at what only a look at
// all definitions together shows.

namespace qen::standalone {
namespace {

const std::vector<std::string> k_dependencyWords {"NONE", "ANY", "XYZ", "XYZT"};

/// A path as a case would have it, with a name where the object needs one.
std::string examplePath(const RuleBook& p_rules, std::string_view p_pattern)
{
    std::string path;
    PathLevel level;
    while (takeLevel(p_pattern, level))
    {
        path.append("/").append(level.type);
        if (!p_rules.isValidPath(path))
            path += ":A";
    }
    return path;
}

/// Why a case cannot hold a parameter of that name in an object at that path; empty when it can. The reader of cases
/// itself is asked.
std::string whyNotHeld(const std::string& p_path, const std::string& p_name)
{
    const std::string line = p_name.empty() ? std::string() : p_name + " = 1\n";
    const QclDocument document = readQclText("case.qcl", "[" + p_path + "]\n" + line);
    if (!document.problems.empty())
        return document.problems.front().message;

    if (p_name.empty() || document.objects.front().find(p_name))
        return {};
    return "There the line '" + p_name + " = 1' does not set a parameter of that name.";
}

/// What a dependency stands for, by every name of a variable: its short name.
std::map<std::string_view, std::string_view> shortNames(const LintInput& p_input)
{
    std::map<std::string_view, std::string_view> names;
    for (const LintDefinition& variable : p_input.variables())
    {
        for (const LintText& name : variable.names)
            names.try_emplace(name.text, variable.name);
        if (componentCount(variable) == 0)
            continue;
        const std::vector<LintText> components = listOf(variable.section, "Component Short Names");
        for (const LintText& component : components)
            names[component.text] = component.text;
        for (const char* key :
             {"Component Long Names", "Old Component Short Names", "Old Component Long Names"})
        {
            const std::vector<LintText> others = listOf(variable.section, key);
            for (std::size_t i = 0; i < others.size() && others.size() == components.size(); ++i)
                names[others[i].text] = components[i].text;
        }
    }
    return names;
}

/// The piece of a list where it stands.
LintText pieceOf(const LintParameter& p_parameter, const char* p_key, const std::string& p_piece)
{
    const LintSection& section = p_parameter.sectionWith(p_key);
    for (const LintText& piece : listOf(section, p_key))
        if (piece.text == p_piece)
            return piece;
    return valueOf(section, p_key);
}

}    // namespace

void findBoundUnits(const LintInput& p_input, LintReport& p_report)
{
    for (const LintParameter& parameter : p_input.parameters())
    {
        const ParameterRule& rule = *parameter.rule;
        if (!rule.quantity.empty())
            continue;
        const std::array<std::pair<const char*, const std::string*>, 2> bounds {
            {{"Lower Bound", &rule.lowerBound}, {"Upper Bound", &rule.upperBound}}};
        for (const auto& [key, text] : bounds)
        {
            const std::optional<Bound> bound = readBoundText(*text);
            if (!bound)
                continue;
            if (!rule.unitsFrom.empty())
                p_report.at(parameter.sectionWith(key), key,
                            fmt::format("The bound {} of parameter {} cannot be compared with values of "
                                        "other units, and its units are those that each case chooses. "
                                        "Expected no bound.",
                                        inQuotes(*text), inQuotes(rule.name)));
            else if (!bound->units.empty())
                p_report.at(parameter.sectionWith(key), key,
                            fmt::format("The bound {} of parameter {} has units, but no 'Quantity' asks for "
                                        "values of such units. Expected a 'Quantity', or a bound without "
                                        "units.",
                                        inQuotes(*text), inQuotes(rule.name)));
        }
    }
}

void findBoundsWithoutQuantity(const LintInput& p_input, LintReport& p_report)
{
    for (const LintParameter& parameter : p_input.parameters())
    {
        const ParameterRule& rule = *parameter.rule;
        const std::optional<Bound> lower = readBoundText(rule.lowerBound);
        const std::optional<Bound> upper = readBoundText(rule.upperBound);
        const bool isCrossed = lower && upper && lower->value > upper->value;
        const bool hasUnits = (lower && !lower->units.empty()) || (upper && !upper->units.empty());
        if (!rule.quantity.empty() || !rule.unitsFrom.empty() || (!lower && !upper) || hasUnits || isCrossed)
            continue;    // nothing is missing, or another rule of the lint says what is wrong
        const char* const key = lower ? "Lower Bound" : "Upper Bound";
        p_report.at(
            parameter.sectionWith(key), key,
            fmt::format("The parameter {} has a bound and no 'Quantity', so that a value with units is "
                        "told to be a fault of the bound. Expected 'Quantity = Dimensionless', or that "
                        "of its values.",
                        inQuotes(rule.name)));
    }
}

void findCrossedBounds(const LintInput& p_input, LintReport& p_report)
{
    for (const LintParameter& parameter : p_input.parameters())
    {
        const ParameterRule& rule = *parameter.rule;
        const std::optional<Bound> lower = readBoundText(rule.lowerBound);
        const std::optional<Bound> upper = readBoundText(rule.upperBound);
        if (!rule.quantity.empty() || !lower || !upper)
            continue;
        const std::optional<double> converted =
            p_input.definitions().units().convert(lower->units, upper->units, lower->value);
        if (converted && *converted > upper->value)
            p_report.at(parameter.sectionWith("Lower Bound"), "Lower Bound",
                        fmt::format("The lower bound {} of parameter {} is above its upper bound {}.",
                                    inQuotes(rule.lowerBound), inQuotes(rule.name),
                                    inQuotes(rule.upperBound)));
    }
}

void findUnknownDependencies(const LintInput& p_input, LintReport& p_report)
{
    const std::map<std::string_view, std::string_view> names = shortNames(p_input);
    std::vector<std::string> known = k_dependencyWords;
    for (const auto& [name, shortName] : names)
        if (name == shortName)
            known.emplace_back(name);

    const auto report = [&](const LintParameter& p_parameter, const std::string& p_word,
                            const std::string& p_what) {
        p_report.at(pieceOf(p_parameter, "Depends On", p_word),
                    fmt::format("The parameter {} is said to depend on {}, {}",
                                inQuotes(p_parameter.rule->name), inQuotes(p_word), p_what));
    };
    for (const LintParameter& parameter : p_input.parameters())
    {
        const std::vector<std::string>& dependencies = parameter.rule->dependencies;
        for (const std::string& word : dependencies)
        {
            const auto found = names.find(word);
            if (word == "NONE" || word == "ANY")
            {
                if (dependencies.size() > 1)
                    report(parameter, word, "which must stand alone.");
            }
            else if (std::ranges::find(k_dependencyWords, word) != k_dependencyWords.end())
                continue;
            else if (found == names.end())
            {
                const std::string nearest = hint(word, known);
                report(parameter, word,
                       "which is no variable." + (nearest.starts_with(" Did")
                                                      ? nearest
                                                      : " Expected the short name of a variable, or 'NONE', "
                                                        "'ANY', 'XYZ' or 'XYZT'."));
            }
            else if (found->second != word)
                report(parameter, word,
                       fmt::format("which is no short name. Expected {}.", inQuotes(found->second)));
        }
    }
}

void findUnknownUnitsSources(const LintInput& p_input, LintReport& p_report)
{
    constexpr std::string_view k_parameterLevel = "/PARAMETER:";
    const RuleBook& rules = p_input.definitions().rules();
    for (const LintParameter& parameter : p_input.parameters())
    {
        const std::string& source = parameter.rule->unitsFrom;
        const std::size_t level = source.rfind(k_parameterLevel);
        if (level == std::string::npos)
            continue;
        const std::string object = source.substr(0, level);
        const std::string name = source.substr(level + k_parameterLevel.size());
        if (rules.isValidPath(object) && rules.find(object, name))
            continue;
        const std::string nearest =
            rules.isValidPath(object) ? hint(name, rules.parameterNames(object)) : std::string();
        p_report.at(parameter.sectionWith("Units From"), "Units From",
                    fmt::format("The units of parameter {} are to be those of parameter {} in {}, which no "
                                "rule knows, so that they are never checked.{}",
                                inQuotes(parameter.rule->name), inQuotes(name), inQuotes(object),
                                nearest.starts_with(" Did") ? nearest : std::string()));
    }
}

void findUnholdableParameters(const LintInput& p_input, LintReport& p_report)
{
    for (const LintParameter& parameter : p_input.parameters())
    {
        const std::string path = examplePath(p_input.definitions().rules(), parameter.pattern);
        const std::string why = whyNotHeld(path, parameter.rule->name);
        if (!why.empty())
            p_report.at(parameter.sections.back(), {},
                        fmt::format("No case can hold the parameter {} of objects at {}. {}",
                                    inQuotes(parameter.rule->name), inQuotes(parameter.pattern), why));
    }
}

}    // namespace qen::standalone
