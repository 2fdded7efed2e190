#include "support/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> s_allocations {0};

}

void* operator new(std::size_t p_bytes, const std::nothrow_t&) noexcept
{
    ++s_allocations;
    return std::malloc(p_bytes ? p_bytes : 1);
}

void* operator new(std::size_t p_bytes)
{
    if (void* memory = operator new(p_bytes, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* p_memory) noexcept { std::free(p_memory); }

void operator delete(void* p_memory, std::size_t) noexcept { std::free(p_memory); }

namespace qen::support {

std::size_t allocationCount() { return s_allocations; }

}    // namespace qen::support
