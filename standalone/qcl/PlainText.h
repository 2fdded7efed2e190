#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qen::standalone {

/// What the first byte is that does not belong into a line of text, and where it stands.
struct TextFault {
    enum class Kind { None, NotUtf8, ControlCharacter };

    Kind kind = Kind::None;
    std::size_t offset = 0;
};

/// Looks for what is not UTF-8 (shortest form, no surrogates, at most U+10FFFF) and for control characters other than
/// tabs. Linear.
TextFault findTextFault(std::string_view p_line);

/// What kinds of characters a text holds.
struct TextContents {
    bool isPlain = true;        ///< ASCII, and no control characters but tabs and line feeds
    bool hasPercent = false;    ///< a '%' somewhere
};

/// Linear, and much faster than a look at each line.
TextContents contentsOf(std::string_view p_text);

/// At most 80 characters of a UTF-8 text between apostrophes, with "..." for what was left out.
std::string inQuotes(std::string_view p_text);

}    // namespace qen::standalone
