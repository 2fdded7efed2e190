#pragma once

#include "definitions/Definitions.h"
#include "definitions/Finding.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace qen::standalone {

/// What was found in a case.
struct QEN_STANDALONE_API CaseReport {
    std::vector<Finding> findings;    ///< ordered by file and line
    std::size_t parameters = 0;       ///< of the case
    bool internalError = false;       ///< an internal assertion failed; the findings may not be all
};

/// What a case may be, so that checking it takes time and memory linear in it.
struct QEN_STANDALONE_API CaseLimits {
    /// Every message about an item of a list may hold the whole list. The items of each list times the bytes of its
    /// value, added up over the lists of a case, stay below this; lists beyond it are not checked, with a finding each.
    static constexpr std::size_t k_listBytes = std::size_t {1} << 30;
};

/// Is told how many of how many parameters are done.
using Progress = std::function<void(std::size_t, std::size_t)>;

/// Checks every parameter of a case: has the library follow the case as one change of all its parameters, runs what it
/// deferred, and adds what the library does not look at. No exception costs another parameter its check.
QEN_STANDALONE_API CaseReport checkCase(const QclDocument& p_case, const Definitions& p_definitions,
                                        const Progress& p_progress = {});

}    // namespace qen::standalone
