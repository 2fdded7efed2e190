#pragma once

#include <cstddef>

namespace qen::support {

/// How often this process has taken memory so far.
std::size_t allocationCount();

}    // namespace qen::support
