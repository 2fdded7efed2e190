#pragma once

#include "Subcommand.h"

namespace qencheck {

/// `qencheck list`: shows what the definitions hold, as a table or as JSON on standard output.
Subcommand addListCommand(CLI::App& p_command);

}    // namespace qencheck
