#pragma once

#include <cstdint>
#include <cstring>
#include <ostream>

/// Virtual operations by number. With the common C++ ABI of GCC and Clang on 64-bit x86 a pointer to a virtual member
/// function holds 1 + 8 x slot in its first word and an adjustment in its second.
namespace qen::slots {

#if defined(__x86_64__)
inline constexpr bool k_known = true;
#else
inline constexpr bool k_known = false;
#endif

/// The slot of a virtual operation; -1 for an operation that is not virtual.
template <class Operation>
std::intptr_t slotOf(Operation p_operation)
{
    static_assert(sizeof(Operation) == 2 * sizeof(std::intptr_t));
    std::intptr_t word = 0;
    std::memcpy(&word, &p_operation, sizeof word);
    return (word & 1) != 0 && word < 8 * 1024 ? (word - 1) / 8 : -1;
}

/// The operation in a slot, to be called as `(object.*operation)(arguments)`.
template <class Operation>
Operation operationIn(std::intptr_t p_slot)
{
    const std::intptr_t words[2] {1 + 8 * p_slot, 0};
    Operation result;
    static_assert(sizeof result == sizeof words);
    std::memcpy(&result, words, sizeof words);
    return result;
}

}    // namespace qen::slots
