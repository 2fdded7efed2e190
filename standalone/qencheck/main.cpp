#include "CheckCommand.h"
#include "ExitStatus.h"
#include "LintCommand.h"
#include "ListCommand.h"
#include "Options.h"
#include "Subcommand.h"
#include "UsageErrors.h"
#include "WatchCommand.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

namespace {

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
    app.failure_message(qencheck::usageError);
    app.set_version_flag("--version", "qencheck " QENCHECK_VERSION);

    qencheck::Options options;
    options.executable = "/proc/self/exe";

    const std::vector<qencheck::Subcommand> subcommands {
        qencheck::addCheckCommand(app),
        qencheck::addWatchCommand(app),
        qencheck::addLintCommand(app),
        qencheck::addListCommand(app),
    };
    for (const qencheck::Subcommand& subcommand : subcommands)
        addCommonOptions(*subcommand.arguments, options);

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
        const auto chosen = std::find_if(
            subcommands.begin(), subcommands.end(),
            [](const qencheck::Subcommand& p_subcommand) { return p_subcommand.arguments->parsed(); });
        return chosen->run(options);
    }
    catch (const std::exception& error)
    {
        fmt::print(stderr, "qencheck: {}\n", error.what());
        return qencheck::k_couldNotCheck;
    }
}
