#include "lint/LintRules.h"

#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"

#include <array>
#include <fmt/format.h>
#include <set>

namespace qen::standalone {
namespace {

constexpr std::array k_componentKeys {"Component Short Names", "Component Long Names",
                                      "Old Component Short Names", "Old Component Long Names"};

constexpr std::array k_wordKeys {"General Availability", "Physical Availability", "Variable Class",
                                 "Variable Scope",       "QEL Availability",      "Locator Dimension"};

}    // namespace

void findScalarComponents(const LintInput& p_input, LintReport& p_report)
{
    for (const std::vector<LintDefinition>* definitions : {&p_input.variables(), &p_input.operators()})
        for (const LintDefinition& definition : *definitions)
            for (const char* key : k_componentKeys)
                if (definition.text("Tensor Type") == "SCALAR" && !definition.text(key).empty())
                    p_report.at(definition.section, key,
                                fmt::format("The '{}' of {} are not read, for it is a SCALAR. Expected none, "
                                            "or another 'Tensor Type'.",
                                            key, inQuotes(definition.name)));
}

// Of old names too few or too many are dropped without a word; of the others they are refused.
void findOldComponentCounts(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        for (const char* key : {"Old Component Short Names", "Old Component Long Names"})
        {
            const std::size_t count = listOf(variable.section, key).size();
            const std::size_t expected = componentCount(variable);
            if (expected != 0 && count != 0 && count != expected)
                p_report.at(variable.section, key,
                            fmt::format("The '{}' of variable {} are not read, for there are {} of them. "
                                        "Expected {}.",
                                        key, inQuotes(variable.name), count, expected));
        }
}

// A component's name that is there twice is refused, so only lists of words are left.
void findRepeatedPieces(const LintInput& p_input, LintReport& p_report)
{
    for (const std::vector<LintDefinition>* definitions :
         {&p_input.variables(), &p_input.operators(), &p_input.callbacks()})
        for (const LintDefinition& definition : *definitions)
            for (const char* key : k_wordKeys)
            {
                std::set<std::string_view> seen;
                for (const LintText& piece : listOf(definition.section, key))
                    if (!piece.text.empty() && !seen.insert(piece.text).second)
                        p_report.at(piece, fmt::format("The '{}' of {} have {} twice.", key,
                                                       inQuotes(definition.name), inQuotes(piece.text)));
            }
}

void findEmptyPieces(const LintInput& p_input, LintReport& p_report)
{
    const auto look = [&](const LintDefinition& p_definition, const char* p_key) {
        for (const LintText& piece : listOf(p_definition.section, p_key))
            if (piece.text.empty())
                p_report.at(piece, fmt::format("The '{}' of {} have an empty piece. Expected a word or name "
                                               "before and behind each comma.",
                                               p_key, inQuotes(p_definition.name)));
    };
    for (const std::vector<LintDefinition>* definitions :
         {&p_input.variables(), &p_input.operators(), &p_input.callbacks()})
        for (const LintDefinition& definition : *definitions)
        {
            for (const char* key : k_componentKeys)
                look(definition, key);
            for (const char* key : k_wordKeys)
                look(definition, key);
        }
}

}    // namespace qen::standalone
