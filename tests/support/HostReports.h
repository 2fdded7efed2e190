#pragma once

#include "ErrorReporter.h"

#include <string>
#include <vector>

namespace qen::support {

/// An internal assertion that failed.
struct FailedAssertion {
    std::string message;
    std::string file;
    int line = 0;
};

/// What the host was told during a test: reports through `ErrorReporter` and failed assertions through
/// `QENAssertImpl`, both of which return here. One log per process; begin and end a test with `reset`.
class HostReports {
public:
    /// In the order in which they came.
    static const std::vector<ErrorMsg>& reported();

    static const std::vector<FailedAssertion>& failedAssertions();

    /// Forgets both.
    static void reset();
};

}    // namespace qen::support
