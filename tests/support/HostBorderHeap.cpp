#include "support/HostBorder.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t s_blocksOutsideOfHost = 0;

}    // namespace

void* operator new(std::size_t p_bytes, const std::nothrow_t&) noexcept
{
    if (!qen::support::isInHost())
        ++s_blocksOutsideOfHost;
    return std::malloc(p_bytes != 0 ? p_bytes : 1);
}

void* operator new(std::size_t p_bytes)
{
    if (void* const memory = operator new(p_bytes, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* p_memory) noexcept { std::free(p_memory); }

void operator delete(void* p_memory, std::size_t) noexcept { std::free(p_memory); }

namespace qen::support {

std::size_t blocksOutsideOfHost() { return s_blocksOutsideOfHost; }

}    // namespace qen::support
