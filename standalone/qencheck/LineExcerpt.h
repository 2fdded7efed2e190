#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qencheck {

/// The part of a line that a report shows, with a line of carets below it.
struct LineExcerpt {
    std::string text;
    std::string underline;
};

/// Cuts a line to what fits, around the place that is pointed at. Characters count, not bytes; tabs become blanks and
/// what a terminal would act on is shown as '?'.
///
/// @param p_column  From 1, in bytes.
/// @param p_length  In bytes; 0 points at one character.
/// @param p_width   Characters to show at the most.
LineExcerpt excerpt(std::string_view p_line, std::size_t p_column, std::size_t p_length, std::size_t p_width);

/// The column in characters, from 1, of a column in bytes.
std::size_t characterColumn(std::string_view p_line, std::size_t p_byteColumn);

}    // namespace qencheck
