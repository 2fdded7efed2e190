#include "CheckCommand.h"

#include "ProgressLine.h"
#include "TextReport.h"

#include "checking/CaseChecker.h"
#include "definitions/Definitions.h"
#include "qcl/QclProblems.h"
#include "qcl/QclReader.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace qencheck {

using qen::standalone::CaseReport;
using qen::standalone::Definitions;
using qen::standalone::Diagnostic;
using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::QclProblem;
using qen::standalone::Severity;

namespace {

constexpr const char* k_checkExample = R"(
Example:
  qencheck check pump.qcl

  pump.qcl:9:9: error: Invalid units ('m') set for parameter 'Speed' in object '/FLOW:Pump/...'.
  Expected units: 'm s^-1'. [wrong-units]
      9 | Speed = 2 [m]
        |         ^~~~~

Exit status: 0 nothing found, or warnings only; 1 errors found; 2 could not check.)";

ExitStatus statusOf(const CaseReport& p_report)
{
    if (p_report.internalError)
        return k_couldNotCheck;
    const bool errors =
        std::any_of(p_report.findings.begin(), p_report.findings.end(),
                    [](const Finding& p_finding) { return p_finding.severity == Severity::Error; });
    return errors ? k_errorsFound : k_clean;
}

/// Whether a file of the case is missing, unreadable, too large or no text, or has so many problems that reading stopped,
/// so that the report cannot be whole.
bool couldNotBeRead(const QclDocument& p_case)
{
    constexpr std::array k_problems {QclProblem::FileUnreadable, QclProblem::FileBinary, QclProblem::FileSize,
                                     QclProblem::Problems};
    return std::any_of(p_case.problems.begin(), p_case.problems.end(), [&](const Diagnostic& p_problem) {
        return std::any_of(k_problems.begin(), k_problems.end(), [&](QclProblem p_kind) {
            return p_problem.identifier == kindOf(p_kind).identifier;
        });
    });
}

ExitStatus checkOne(const std::string& p_caseFile, const Definitions& p_definitions, const TextReport& p_text)
{
    const QclDocument document = qen::standalone::readQclFile(p_caseFile);

    CaseReport report;
    {
        ProgressLine progress(p_caseFile);
        report =
            qen::standalone::checkCase(document, p_definitions, [&](std::size_t p_done, std::size_t p_all) {
                progress.update(p_done, p_all);
            });
    }
    for (const Diagnostic& problem : document.problems)
        report.findings.push_back(qen::standalone::toFinding(problem, document));
    qen::standalone::sortByPlace(report.findings);

    p_text.write(report.findings);
    p_text.writeSummary(p_caseFile, report);
    return couldNotBeRead(document) ? k_couldNotCheck : statusOf(report);
}

ExitStatus runCheck(const std::vector<std::string>& p_caseFiles, const Options& p_options)
{
    const TextReport text(stdout, p_options.colour);

    const Definitions definitions(
        qen::standalone::definitionFolders(p_options.definitionFolders, p_options.executable));
    text.write(definitions.problems());
    if (definitions.hasErrors())
    {
        fmt::print("The definitions hold errors: nothing was checked.\n");
        return k_couldNotCheck;
    }

    ExitStatus worst = k_clean;
    for (const std::string& caseFile : p_caseFiles)
        worst = std::max(worst, checkOne(caseFile, definitions, text));

    if (std::fflush(stdout) != 0)
    {
        fmt::print(stderr, "qencheck: the report could not be written\n");
        return k_couldNotCheck;
    }
    return worst;
}

}    // namespace

Subcommand addCheckCommand(CLI::App& p_command)
{
    CLI::App* const arguments = p_command.add_subcommand("check", "Check the parameters of cases");
    const auto caseFiles = std::make_shared<std::vector<std::string>>();
    arguments->add_option("CASE", *caseFiles, "Case files (.qcl)")->required();
    arguments->footer(k_checkExample);
    return {arguments, [caseFiles](const Options& p_options) { return runCheck(*caseFiles, p_options); }};
}

}    // namespace qencheck
