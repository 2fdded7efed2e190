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

/// At most 80 characters of a UTF-8 text between apostrophes, with "..." for what was left out.
std::string inQuotes(std::string_view p_text);

}    // namespace qen::standalone
