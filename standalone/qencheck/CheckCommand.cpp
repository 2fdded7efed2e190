#include "CheckCommand.h"

#include "CaseStatus.h"
#include "ProgressLine.h"
#include "TextReport.h"

#include "checking/CaseChecker.h"
#include "definitions/Definitions.h"
#include "qcl/QclReader.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace qencheck {

using qen::standalone::CaseReport;
using qen::standalone::Definitions;
using qen::standalone::Diagnostic;
using qen::standalone::QclDocument;

namespace {

constexpr const char* k_checkExample = R"(
Example:
  qencheck check pump.qcl

  pump.qcl:9:9: error: Invalid units ('m') set for parameter 'Speed' in object '/FLOW:Pump/...'.
  Expected units: 'm s^-1'. [wrong-units]
      9 | Speed = 2 [m]
        |         ^~~~~

Exit status: 0 nothing found, or warnings only; 1 errors found; 2 could not check.)";

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
    return statusOf(document, report);
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
