#pragma once

#include "HostApi.h"

namespace qen {

/// Takes failed internal assertions. Defined by the host.
class QEN_HOST_API QENAssertImpl {
public:
    /// May return or abort; the library goes on behind a call that returns.
    static void assertFail(const char* p_message, const char* p_file, int p_line);
};

}    // namespace qen
