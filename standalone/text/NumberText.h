#pragma once

#include <optional>
#include <string_view>

namespace qen::standalone {

/// A text that is one number, optionally followed by units in square brackets.
struct NumberText {
    float value = 0.0F;
    std::string_view number;    ///< as written, a leading '+' included
    std::string_view units;     ///< without brackets and the blanks inside them; empty when there are none
};

/// Reads a text as one number, blanks aside; none when it is anything else. The same in every locale, linear, and
/// allocates nothing. What is nearer to 0 than single precision can say counts as its nearest number there; what is
/// beyond single precision, "inf", "nan" and hexadecimal digits are no numbers.
std::optional<NumberText> readNumber(std::string_view p_text);

}    // namespace qen::standalone
