#pragma once

#include "Formulas.h"

#include <valgrind/callgrind.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qen::benchmarks {

inline constexpr std::string_view k_countedDigits = "12345678";
inline constexpr char k_warmUpDigit = '9';

inline std::string withDigit(std::string_view p_text, char p_digit)
{
    std::string text(p_text);
    text.at(changingDigit(text)) = p_digit;
    return text;
}

/// For a program that runs under callgrind: counts what a call takes, and dumps the count under a name.
///
/// @return What the call returned.
template <class Call>
auto counted(const std::string& p_name, const Call& p_call)
{
    CALLGRIND_ZERO_STATS;
    CALLGRIND_START_INSTRUMENTATION;
    auto result = p_call();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(p_name.c_str());
    return result;
}

/// Calls once uncounted, and then counts one call for each digit, together.
template <class Call>
void count(const std::string& p_name, std::string_view p_text, const Call& p_call)
{
    p_call(withDigit(p_text, k_warmUpDigit));
    std::array<std::string, k_countedDigits.size()> texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = withDigit(p_text, k_countedDigits[i]);

    counted(p_name, [&] {
        for (const std::string& text : texts)
            p_call(text);
        return true;
    });
}

}    // namespace qen::benchmarks
