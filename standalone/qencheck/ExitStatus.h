#pragma once

namespace qencheck {

/// What the command tells its caller. The worst of several cases counts.
enum ExitStatus : int {
    k_clean = 0,    ///< nothing, or warnings only
    k_errorsFound = 1,
    k_couldNotCheck = 2,    ///< usage, an unreadable file, broken definitions, an internal error
};

}    // namespace qencheck
