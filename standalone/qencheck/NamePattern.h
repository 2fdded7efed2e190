#pragma once

#include <string>
#include <string_view>

namespace qencheck {

/// What a user looks for among names. Letters A to Z and a to z are the same.
///
/// A text with '*' (any characters, also none) or '?' (one character) must fit a whole name; any other must stand
/// somewhere in it.
class NamePattern {
public:
    explicit NamePattern(std::string_view p_text);

    bool matches(std::string_view p_name) const;

    bool isGlob() const { return m_isGlob; }

private:
    std::string m_text;    // in lower case
    bool m_isGlob;
};

}    // namespace qencheck
