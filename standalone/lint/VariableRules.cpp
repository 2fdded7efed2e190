#include "lint/LintRules.h"

#include "definitions/Definitions.h"
#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"

#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <set>

namespace qen::standalone {
namespace {

const std::vector<std::string> k_scopes {
    "GLOBAL",     "PHASE",     "PARTICLE",   "MUSIG FLUID",
    "FLUID PAIR", "COMPONENT", "REACTION",   "PARTICLE COMPONENT",
    "REACFLMLET", "REACSNGL",  "SIZE GROUP",
};

// Every other text that is not true reads as false as well, but was hardly meant to.
constexpr std::array<std::string_view, 11> k_falseTexts {"F",  "False", "FALSE", "false", "No", "NO",
                                                         "no", "Off",   "OFF",   "off",   "0"};

const std::vector<std::string> k_fieldVariableTexts {"Yes", "No", "True", "False", "On", "Off"};

// Callbacks are checked against these, whatever else there is.
constexpr std::array k_coordinates {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"};

}    // namespace

void findUnknownScopes(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& scope : listOf(variable.section, "Variable Scope"))
            if (!scope.text.empty() && std::ranges::find(k_scopes, scope.text) == k_scopes.end())
                p_report.at(scope,
                            fmt::format("No check knows the scope {} of variable {}.{}", inQuotes(scope.text),
                                        inQuotes(variable.name), hint(scope.text, k_scopes)));
}

void findMissingScopes(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        if (isForExpressions(variable) && listOf(variable.section, "Variable Scope").empty())
            p_report.at(variable.shortName,
                        fmt::format("The variable {} may be used in expressions but has no 'Variable Scope', "
                                    "so that every use is refused.{}",
                                    inQuotes(variable.name), hint({}, k_scopes)));
}

void findMissingQuantities(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        if (isForExpressions(variable) && variable.text("Quantity").empty())
            p_report.at(variable.shortName,
                        fmt::format("The variable {} may be used in expressions but has no 'Quantity', so "
                                    "that it counts as dimensionless. Expected a quantity of the units, one "
                                    "without units if that is meant.",
                                    inQuotes(variable.name)));
}

void findUnknownQuantities(const LintInput& p_input, LintReport& p_report)
{
    const UnitSystem& units = p_input.definitions().units();
    const std::vector<std::string> known = units.allQuantities();
    for (const LintDefinition& variable : p_input.variables())
    {
        const LintText quantity = valueOf(variable.section, "Quantity");
        if (quantity.text.empty() || units.quantityUnits(quantity.text))
            continue;
        const std::string nearest = hint(quantity.text, known);
        p_report.at(quantity, fmt::format("The quantity {} of variable {} is not among the definitions of "
                                          "units.{}",
                                          inQuotes(quantity.text), inQuotes(variable.name),
                                          nearest.starts_with(" Did") ? nearest : std::string()));
    }
}

void findFieldVariableTexts(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
    {
        const LintText field = valueOf(variable.section, "Field Variable");
        if (field.text.empty() || StringUtilities::stringToBool(std::string(field.text)) ||
            std::ranges::find(k_falseTexts, field.text) != k_falseTexts.end())
            continue;
        p_report.at(field, fmt::format("The 'Field Variable' {} of variable {} counts as 'No'.{}",
                                       inQuotes(field.text), inQuotes(variable.name),
                                       hint(field.text, k_fieldVariableTexts)));
    }
}

void findMissingCoordinates(const LintInput& p_input, LintReport& p_report)
{
    const std::vector<LintDefinition>& variables = p_input.variables();
    std::set<std::string_view> names;
    for (const LintDefinition& variable : variables)
        for (const LintText& name : variable.names)
            names.insert(name.text);

    const QclDocument* const document = variables.empty() ? nullptr : variables.front().section.document;
    for (const char* coordinate : k_coordinates)
        if (!names.contains(coordinate))
            p_report.atFile(document, fmt::format("No variable is named '{}'. The checks of callback "
                                                  "functions need this coordinate.",
                                                  coordinate));
}

}    // namespace qen::standalone
