#pragma once

#include <cstddef>
#include <string_view>

namespace qen::standalone {

/// What counts as blank around names, values and list pieces.
inline constexpr std::string_view k_blanks = " \t\r\n";

inline std::string_view trimmedLeft(std::string_view p_text)
{
    const std::size_t first = p_text.find_first_not_of(k_blanks);
    return first == std::string_view::npos ? std::string_view() : p_text.substr(first);
}

inline std::string_view trimmedRight(std::string_view p_text)
{
    return p_text.substr(0, p_text.find_last_not_of(k_blanks) + 1);
}

/// The text without blanks at both ends; a view into it.
inline std::string_view trimmed(std::string_view p_text) { return trimmedRight(trimmedLeft(p_text)); }

}    // namespace qen::standalone
