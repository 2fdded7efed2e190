#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qen::standalone {

/// The kind of a parameter whose value is an expression of any dimension.
inline constexpr std::string_view k_expressionKind = "Expression";

/// A bound as the rules write it.
struct Bound {
    double value = 0.0;
    std::string units;    ///< empty for dimensionless
};

/// Reads a number with or without units, such as "0 [m]"; none when the text is another.
std::optional<Bound> readBoundText(const std::string& p_text);

/// A text in quotes for a message, cut where it is long.
std::string quotedShort(std::string_view p_text);

}    // namespace qen::standalone
