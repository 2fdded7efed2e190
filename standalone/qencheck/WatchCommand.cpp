#include "WatchCommand.h"

#include "StopSignals.h"
#include "WatchReport.h"
#include "WatchSession.h"

#include "definitions/Definitions.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace qencheck {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds k_lookEvery {200};
constexpr milliseconds k_lookSoonAgain {50};    // when something is on the move

constexpr const char* k_watchExample = R"(
Reports as 'check' does, waits, and reports anew each time that the case, a file that it includes
or a definition file is saved with another text. Findings that were not in the report before
begin with 'new:'; those that went away follow behind 'gone:', at their old places.

A text that does not parse, or cannot be read, is not checked: its errors are shown, and the last
good text stands until the next good one. The same holds for definitions. A case or a definition
file that cannot be read at the start ends the command at once.

Example:
  qencheck watch pump.qcl

  pump.qcl: 195 parameters checked: no problems
  Watching pump.qcl and the definitions. Ctrl-C ends.

  ---- 14:03:12 pump.qcl saved: 1 of 195 parameters checked again
  new: pump.qcl:9:9: error: Invalid units ('m') set for parameter 'Speed' in object
  '/FLOW:Pump/...'. Expected units: 'm s^-1'. [wrong-units]
      9 | Speed = 2 [m]
        |         ^~~~~
  pump.qcl: 195 parameters checked: 1 error, 0 warnings (1 new, 0 gone)

Ends on Ctrl-C with the exit status that 'check' would have: 0 nothing found, or warnings only;
1 errors found; 2 could not check.)";

/// Leaves a check that Ctrl-C interrupts.
struct Stopped {};

ExitStatus runWatch(const std::string& p_caseFile, const Options& p_options)
{
    StopSignals stop;
    const WatchReport report(stdout, p_options.colour);
    WatchSession session(
        p_caseFile, qen::standalone::definitionFolders(p_options.definitionFolders, p_options.executable),
        report, [&stop] {
            if (stop.wait(milliseconds {0}))
                throw Stopped {};
        });

    ExitStatus status = k_couldNotCheck;
    try
    {
        bool goesOn = session.begin();
        for (;;)
        {
            status = session.status();
            if (!report.flush())
            {
                fmt::print(stderr, "qencheck: the report could not be written\n");
                return k_couldNotCheck;
            }
            if (!goesOn || stop.wait(session.isSettling() ? k_lookSoonAgain : k_lookEvery))
                return status;
            session.look();
        }
    }
    catch (const Stopped&)
    {
        return status;    // of the last report
    }
}

}    // namespace

Subcommand addWatchCommand(CLI::App& p_command)
{
    CLI::App* const arguments =
        p_command.add_subcommand("watch", "Check a case each time that one of its files is saved");
    const auto caseFile = std::make_shared<std::string>();
    arguments->add_option("CASE", *caseFile, "Case file (.qcl)")->required();
    arguments->footer(k_watchExample);
    return {arguments, [caseFile](const Options& p_options) { return runWatch(*caseFile, p_options); }};
}

}    // namespace qencheck
