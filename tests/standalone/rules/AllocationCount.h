#pragma once

#include <cstddef>

namespace qen::standalone::test {

/// How often this process has taken memory so far.
std::size_t allocationCount();

}    // namespace qen::standalone::test
