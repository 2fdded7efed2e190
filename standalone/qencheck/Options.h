#pragma once

#include <string>
#include <vector>

namespace qencheck {

/// What every subcommand takes.
struct Options {
    std::string executable;    ///< path of this command, from which its definitions are found
    std::vector<std::string> definitionFolders;    ///< as given; empty for the default ones
    std::string colour = "auto";                   ///< "auto", "always" or "never"
};

}    // namespace qencheck
