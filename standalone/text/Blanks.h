#pragma once

#include <cstddef>
#include <string_view>

namespace qen::standalone {

/// What counts as blank around names, values and list pieces.
inline constexpr std::string_view k_blanks = " \t\r\n";

inline bool isBlank(char p_char)
{
    return p_char == ' ' || p_char == '\t' || p_char == '\r' || p_char == '\n';
}

inline std::string_view trimmedLeft(std::string_view p_text)
{
    std::size_t begin = 0;
    while (begin < p_text.size() && isBlank(p_text[begin]))
        ++begin;
    return begin == p_text.size() ? std::string_view() : p_text.substr(begin);
}

inline std::string_view trimmedRight(std::string_view p_text)
{
    std::size_t end = p_text.size();
    while (end > 0 && isBlank(p_text[end - 1]))
        --end;
    return p_text.substr(0, end);
}

/// The text without blanks at both ends; a view into it.
inline std::string_view trimmed(std::string_view p_text) { return trimmedRight(trimmedLeft(p_text)); }

}    // namespace qen::standalone
