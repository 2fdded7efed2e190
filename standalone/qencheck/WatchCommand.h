#pragma once

#include "Subcommand.h"

namespace qencheck {

/// `qencheck watch`: follows a case while its files are saved and reports on standard output.
Subcommand addWatchCommand(CLI::App& p_command);

}    // namespace qencheck
