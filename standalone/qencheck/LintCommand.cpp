#include "LintCommand.h"

#include "TextReport.h"

#include "definitions/Definitions.h"
#include "lint/Lint.h"
#include "qcl/QclProblems.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

namespace qencheck {

using qen::standalone::CatalogueDefinition;
using qen::standalone::DefinitionKind;
using qen::standalone::Definitions;
using qen::standalone::Finding;
using qen::standalone::LintRule;
using qen::standalone::QclProblem;
using qen::standalone::Severity;

namespace {

constexpr const char* k_lintExample = R"(
Examples:
  qencheck lint
  qencheck lint --definitions definitions --definitions my-additions

  my-additions/VARIABLES.qcl:6:18: error: No check knows the scope 'GLOBLA' of variable 'Dye'.
  Did you mean 'GLOBAL'? [lint-unknown-scope]
      6 | Variable Scope = GLOBLA
        |                  ^~~~~~

Exit status: 0 nothing found, or warnings only; 1 errors found; 2 a file is missing or cannot
be read.)";

/// What the lint looks for, beside what loading the definitions finds.
std::string footer()
{
    std::string text = "Reports what is wrong with the definitions when they are loaded, and looks for:\n";
    for (const LintRule& rule : qen::standalone::lintRules())
        text += fmt::format("  {:<34}  {}\n", rule.identifier, rule.looksFor);
    return text + k_lintExample;
}

/// Whether a file is missing, unreadable or no text, so that the report cannot be whole.
bool couldNotBeRead(const Finding& p_problem)
{
    return p_problem.identifier == "missing-definitions" || p_problem.identifier == "definition-folder" ||
           p_problem.identifier == kindOf(QclProblem::FileUnreadable).identifier ||
           p_problem.identifier == kindOf(QclProblem::FileBinary).identifier;
}

std::size_t countOf(const std::vector<Finding>& p_findings, Severity p_severity)
{
    return static_cast<std::size_t>(
        std::count_if(p_findings.begin(), p_findings.end(),
                      [&](const Finding& p_finding) { return p_finding.severity == p_severity; }));
}

/// "definitions: 2 variables, 1 operator, 3 callback functions, 4 parameters: ".
std::string contents(const Definitions& p_definitions)
{
    std::size_t variables = 0;
    std::size_t operators = 0;
    std::size_t callbacks = 0;
    for (const CatalogueDefinition& definition : p_definitions.catalogue().all())
    {
        variables += definition.kind == DefinitionKind::Variable;
        operators += definition.kind == DefinitionKind::Operator;
        callbacks += definition.kind == DefinitionKind::CallbackFunction;
    }
    std::size_t parameters = 0;
    p_definitions.rules().visitRules([&](const auto&, const auto&) { ++parameters; });

    return fmt::format("definitions: {}, {}, {}, {}: ", counted(variables, "variable"),
                       counted(operators, "operator"), counted(callbacks, "callback function"),
                       counted(parameters, "parameter"));
}

std::string found(std::size_t p_errors, std::size_t p_warnings, Colour p_colour)
{
    if (p_errors + p_warnings > 0)
        return counted(p_errors, "error") + ", " + counted(p_warnings, "warning");
    return p_colour == Colour::On ? "\x1b[1;32mno problems\x1b[0m" : "no problems";
}

/// Writes what there is to say about the definitions.
ExitStatus report(const Definitions& p_definitions, Colour p_colour)
{
    std::vector<Finding> findings = p_definitions.problems();
    const bool isWhole = std::none_of(findings.begin(), findings.end(), couldNotBeRead);
    if (isWhole)
        std::ranges::copy(qen::standalone::lintDefinitions(p_definitions), std::back_inserter(findings));
    std::ranges::stable_sort(findings, {}, [](const Finding& p_finding) {
        return std::tie(p_finding.file, p_finding.line, p_finding.column);
    });
    TextReport(stdout, p_colour).write(findings);

    // Where a file is missing, most of what the others say would be at fault.
    if (!isWhole)
    {
        fmt::print("The definitions are not whole: nothing more was looked for.\n");
        return k_couldNotCheck;
    }
    const std::size_t errors = countOf(findings, Severity::Error);
    fmt::print("{}{}\n", contents(p_definitions),
               found(errors, countOf(findings, Severity::Warning), p_colour));
    return errors > 0 ? k_errorsFound : k_clean;
}

ExitStatus runLint(const Options& p_options)
{
    const Definitions definitions(
        qen::standalone::definitionFolders(p_options.definitionFolders, p_options.executable));
    const ExitStatus status = report(definitions, colourOf(stdout, p_options.colour));
    if (std::fflush(stdout) != 0)
    {
        fmt::print(stderr, "qencheck: the report could not be written\n");
        return k_couldNotCheck;
    }
    return status;
}

}    // namespace

Subcommand addLintCommand(CLI::App& p_command)
{
    CLI::App* const arguments = p_command.add_subcommand("lint", "Look for mistakes in the definition files");
    arguments->footer(footer());
    return {arguments, runLint};
}

}    // namespace qencheck
