#pragma once

#include "ExitStatus.h"
#include "Options.h"

#include <functional>

namespace CLI {
class App;
}

namespace qencheck {

/// One thing that the command does: its arguments, and what runs once they were read. Each has a file, and a line in
/// main.cpp.
struct Subcommand {
    CLI::App* arguments;    ///< owned by the command's own
    std::function<ExitStatus(const Options&)> run;
};

}    // namespace qencheck
