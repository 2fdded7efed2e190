#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// How errors of the expression language quote and count.

namespace qen::standalone::qel {

/// The text in single quotes, cut with dots where it is longer than errors quote.
std::string quoted(std::string_view p_text);

/// The token that begins a text, in quotes; "the end of the expression" for an empty one.
std::string quotedToken(std::string_view p_rest);

/// The number of bytes of the token that begins a text; 0 for an empty one.
std::size_t tokenBytes(std::string_view p_rest);

/// The number of characters of a text in UTF-8; a byte that is none counts as one.
std::size_t characters(std::string_view p_text);

}    // namespace qen::standalone::qel
