#pragma once

#include "Subcommand.h"

namespace qencheck {

/// `qencheck check`: checks each case and reports on standard output.
Subcommand addCheckCommand(CLI::App& p_command);

}    // namespace qencheck
