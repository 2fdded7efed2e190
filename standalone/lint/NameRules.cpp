#include "lint/LintRules.h"

#include "expressions/QelExpression.h"
#include "expressions/QelFunctions.h"
#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"

#include "PreVariableDefStore.h"
#include "StringUtilities.h"

#include <fmt/format.h>
#include <map>
#include <unordered_map>

namespace qen::standalone {
namespace {

std::string placeText(const LintText& p_text)
{
    const std::vector<SourceFile>& files = p_text.section.document->files;
    return fmt::format("{}:{}", files[p_text.place.file].path, p_text.place.line);
}

/// Reports each name that differs only by case from a name of an earlier definition of the same kind.
void findCaseTwins(const std::vector<LintDefinition>& p_definitions, std::string_view p_kind,
                   LintReport& p_report)
{
    struct First {
        const LintDefinition* definition;
        LintText name;
    };
    std::unordered_map<std::string, First> firsts;
    for (const LintDefinition& definition : p_definitions)
        for (const LintText& name : definition.names)
        {
            const auto [entry, isNew] = firsts.try_emplace(
                StringUtilities::toLowerCase(std::string(name.text)), First {&definition, name});
            const First& first = entry->second;
            if (isNew || first.definition == &definition || first.name.text == name.text)
                continue;
            p_report.at(name,
                        fmt::format("The {} {} differs only by case from {} at {}.", p_kind,
                                    inQuotes(name.text), inQuotes(first.name.text), placeText(first.name)));
        }
}

void findUnwritable(const LintDefinition& p_definition, std::string_view p_kind, LintReport& p_report)
{
    for (const LintText& name : p_definition.names)
        if (!name.text.empty() && !isQelName(name.text))
            p_report.at(name, fmt::format("The {} name {} cannot be written in an expression. Expected words "
                                          "of letters, digits and '_', parted by single blanks, the first of "
                                          "which begins with a letter.",
                                          p_kind, inQuotes(name.text)));
}

}    // namespace

void findNamesOfConstants(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& name : variable.names)
            if (isQelConstant(name.text))
                p_report.at(name, fmt::format("The variable {} hides the constant of that name in every "
                                              "expression. Expected another name.",
                                              inQuotes(name.text)));
}

void findNamesOfFunctions(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& name : variable.names)
            if (qel::findFunction(name.text))
                p_report.at(name, fmt::format("The variable {} has the name of a function of mathematics. "
                                              "Expected another name.",
                                              inQuotes(name.text)));
}

void findReservedNames(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& name : variable.names)
            if (PreVariableDefStore::isSolverReservedName(std::string(name.text)))
                p_report.at(name,
                            fmt::format("The variable name {} is reserved: it stands for the value of a "
                                        "monitor point. Expected another name.",
                                        inQuotes(name.text)));
}

void findOperatorsNamedAsVariables(const LintInput& p_input, LintReport& p_report)
{
    std::map<std::string_view, LintText> variables;
    for (const LintDefinition& variable : p_input.variables())
        for (const LintText& name : variable.names)
            variables.try_emplace(name.text, name);

    for (const LintDefinition& oper : p_input.operators())
        for (const LintText& name : oper.names)
            if (const auto variable = variables.find(name.text); variable != variables.end())
                p_report.at(name, fmt::format("The operator {} has the name of the variable at {}, so that "
                                              "{} can be read in two ways. Expected another name.",
                                              inQuotes(name.text), placeText(variable->second),
                                              inQuotes("A." + std::string(name.text))));
}

void findCallbacksNamedAsFunctions(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
        if (qel::findFunction(callback.name))
            p_report.at(callback.shortName,
                        fmt::format("The callback function {} has the name of a function of mathematics, "
                                    "which '{}(' always means. Expected another name.",
                                    inQuotes(callback.name), callback.name));
}

void findNamesThatDifferByCase(const LintInput& p_input, LintReport& p_report)
{
    findCaseTwins(p_input.operators(), "operator", p_report);
    findCaseTwins(p_input.callbacks(), "callback function", p_report);
}

void findUnwritableNames(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& variable : p_input.variables())
        if (isForExpressions(variable))
            findUnwritable(variable, "variable", p_report);
    for (const LintDefinition& oper : p_input.operators())
        findUnwritable(oper, "operator", p_report);
    for (const LintDefinition& callback : p_input.callbacks())
        findUnwritable(callback, "callback function", p_report);
}

}    // namespace qen::standalone
