#pragma once

#include "Subcommand.h"

namespace qencheck {

/// `qencheck lint`: looks at the definitions and reports on standard output.
Subcommand addLintCommand(CLI::App& p_command);

}    // namespace qencheck
