#include "CheckCommand.h"
#include "ExitStatus.h"
#include "Options.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr const char* k_checkExample = R"(
Example:
  qencheck check pump.qcl

  pump.qcl:9:9: error: Invalid units ('m') set for parameter 'Speed' in object '/FLOW:Pump/...'.
  Expected units: 'm s^-1'. [wrong-units]
      9 | Speed = 2 [m]
        |         ^~~~~

Exit status: 0 nothing found, or warnings only; 1 errors found; 2 could not check.)";

void addCommonOptions(CLI::App& p_command, qencheck::Options& p_options)
{
    p_command
        .add_option("--definitions", p_options.definitionFolders,
                    "Folder with definition files; may be given again, later ones override earlier ones")
        ->type_name("DIR")
        ->allow_extra_args(false);
    p_command.add_option("--color", p_options.colour, "Colours in the report")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->type_name("WHEN")
        ->capture_default_str();
}

}    // namespace

int main(int p_argc, char** p_argv)
{
    CLI::App app("Checks the set-up of a simulation before it goes to the solver.", "qencheck");
    app.require_subcommand(1);
    app.failure_message(CLI::FailureMessage::help);

    qencheck::Options options;
    options.executable = "/proc/self/exe";

    std::vector<std::string> caseFiles;
    CLI::App* check = app.add_subcommand("check", "Check the parameters of cases");
    check->add_option("CASE", caseFiles, "Case files (.qcl)")->required();
    check->footer(k_checkExample);
    addCommonOptions(*check, options);

    try
    {
        app.parse(p_argc, p_argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? qencheck::k_clean : qencheck::k_couldNotCheck;
    }

    try
    {
        return qencheck::runCheck(caseFiles, options);
    }
    catch (const std::exception& error)
    {
        fmt::print(stderr, "qencheck: {}\n", error.what());
        return qencheck::k_couldNotCheck;
    }
}
