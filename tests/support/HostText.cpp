/// @file
/// The host's texts, lists, numbers, paths and switches for tests, in their plainest form: short enough to be seen to
/// be right.

#include "BoolFromEnvironment.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include "support/HostTextScript.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>

namespace qen {

namespace {

constexpr const char* k_blanks = " \t\r\n";

bool isBlank(char p_character)
{
    return std::string_view(k_blanks).find(p_character) != std::string_view::npos;
}

bool isDigit(char p_character) { return p_character >= '0' && p_character <= '9'; }

std::string trimmed(const std::string& p_text)
{
    const std::size_t first = p_text.find_first_not_of(k_blanks);
    if (first == std::string::npos)
        return "";
    return p_text.substr(first, p_text.find_last_not_of(k_blanks) - first + 1);
}

std::size_t skipDigits(const std::string& p_text, std::size_t p_from)
{
    while (p_from < p_text.size() && isDigit(p_text[p_from]))
        ++p_from;
    return p_from;
}

/// The length of the decimal number that a text begins with; 0 when it begins with none.
std::size_t numberLength(const std::string& p_text)
{
    std::size_t at = 0;
    if (at < p_text.size() && (p_text[at] == '+' || p_text[at] == '-'))
        ++at;

    const std::size_t wholeEnd = skipDigits(p_text, at);
    std::size_t digits = wholeEnd - at;
    at = wholeEnd;
    if (at < p_text.size() && p_text[at] == '.')
    {
        const std::size_t fractionEnd = skipDigits(p_text, at + 1);
        digits += fractionEnd - (at + 1);
        at = fractionEnd;
    }
    if (digits == 0)
        return 0;

    if (at < p_text.size() && (p_text[at] == 'e' || p_text[at] == 'E'))
    {
        std::size_t exponent = at + 1;
        if (exponent < p_text.size() && (p_text[exponent] == '+' || p_text[exponent] == '-'))
            ++exponent;
        const std::size_t exponentEnd = skipDigits(p_text, exponent);
        if (exponentEnd > exponent)
            at = exponentEnd;
    }
    return at;
}

/// Splits at separators and leaves the pieces as they stand.
std::vector<std::string> splitAsItStands(const std::string& p_text, char p_separator)
{
    std::vector<std::string> pieces;
    std::istringstream text(p_text);
    for (std::string piece; std::getline(text, piece, p_separator);)
        pieces.push_back(piece);
    return pieces;
}

/// Splits at separators; with @p p_keepBracketed not at those inside round, square or curly brackets.
std::vector<std::string> split(const std::string& p_text, char p_separator, bool p_keepBracketed)
{
    std::vector<std::string> pieces;
    if (trimmed(p_text).empty())
        return pieces;

    int depth = 0;
    std::string piece;
    for (const char character : p_text)
    {
        if (character == '(' || character == '[' || character == '{')
            ++depth;
        else if (character == ')' || character == ']' || character == '}')
            --depth;

        if (character == p_separator && (depth == 0 || !p_keepBracketed))
        {
            pieces.push_back(trimmed(piece));
            piece.clear();
        }
        else
            piece += character;
    }
    pieces.push_back(trimmed(piece));
    return pieces;
}

template <class Texts>
std::string join(const Texts& p_texts, char p_separator)
{
    std::string joined;
    bool first = true;
    for (const std::string& text : p_texts)
    {
        if (!first)
            joined += p_separator;
        joined += text;
        first = false;
    }
    return joined;
}

struct Level {
    std::string type;
    std::string name;
};

/// The levels of a path text; none when it is malformed.
std::vector<Level> levelsOf(const std::string& p_text)
{
    std::vector<Level> levels;
    std::size_t at = 0;
    while (at < p_text.size())
    {
        if (p_text[at] != '/')
            return {};
        const std::size_t end = std::min(p_text.find('/', at + 1), p_text.size());
        const std::string text = p_text.substr(at + 1, end - at - 1);
        const std::size_t colon = text.find(':');
        const bool named = colon != std::string::npos;

        Level level {text.substr(0, colon), named ? text.substr(colon + 1) : ""};
        if (level.type.empty() || (named && level.name.empty()) || level.name.find(':') != std::string::npos)
            return {};
        levels.push_back(std::move(level));
        at = end;
    }
    return levels;
}

}    // namespace

float StringUtilities::valueAsFloat(const std::string& p_text, bool& p_isNumber, std::string& p_number,
                                    std::string& p_units)
{
    p_isNumber = false;
    p_number.clear();
    p_units.clear();

    const std::string text = trimmed(p_text);
    const std::size_t length = numberLength(text);
    if (length == 0)
        return 0.0F;

    const std::string number = text.substr(0, length);
    const float value = std::strtof(number.c_str(), nullptr);
    if (!std::isfinite(value))
        return 0.0F;

    const std::string rest = trimmed(text.substr(length));
    std::string units;
    if (!rest.empty())
    {
        if (rest.size() < 2 || rest.front() != '[' || rest.back() != ']')
            return 0.0F;
        units = rest.substr(1, rest.size() - 2);
        if (units.find_first_of("[]") != std::string::npos)
            return 0.0F;
    }

    p_isNumber = true;
    p_number = number;
    p_units = trimmed(units);
    return value;
}

std::vector<std::string> StringUtilities::splitValue(const std::string& p_text, char p_separator)
{
    return split(p_text, p_separator, true);
}

std::vector<std::string> StringUtilities::stringToVector(const std::string& p_text, char p_separator)
{
    support::HostTextScript::note("stringToVector", p_text);
    return support::HostTextScript::trims() ? split(p_text, p_separator, false)
                                            : splitAsItStands(p_text, p_separator);
}

std::set<std::string> StringUtilities::stringToSet(const std::string& p_text, char p_separator)
{
    support::HostTextScript::note("stringToSet", p_text);
    const std::vector<std::string> pieces = split(p_text, p_separator, false);
    return {pieces.begin(), pieces.end()};
}

std::string StringUtilities::setToString(const std::set<std::string>& p_texts, char p_separator)
{
    return join(p_texts, p_separator);
}

std::string StringUtilities::vectorToString(const std::vector<std::string>& p_texts, char p_separator)
{
    return join(p_texts, p_separator);
}

std::string StringUtilities::toString(double p_value, const std::string& p_format)
{
    std::array<char, 512> buffer {};
    std::snprintf(buffer.data(), buffer.size(), p_format.c_str(), p_value);
    return buffer.data();
}

std::string StringUtilities::toLowerCase(const std::string& p_text)
{
    std::string lower = p_text;
    for (char& character : lower)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return lower;
}

std::string StringUtilities::removeWhitespace(const std::string& p_text)
{
    std::string dense;
    std::copy_if(p_text.begin(), p_text.end(), std::back_inserter(dense),
                 [](char p_character) { return !isBlank(p_character); });
    return dense;
}

bool StringUtilities::stringToBool(const std::string& p_text)
{
    support::HostTextScript::note("stringToBool", p_text);
    if (const std::optional<bool> answer = support::HostTextScript::switchAnswer())
        return *answer;

    constexpr std::array<std::string_view, 11> k_true {"T",   "True", "TRUE", "true", "Yes", "YES",
                                                       "yes", "On",   "ON",   "on",   "1"};
    return std::find(k_true.begin(), k_true.end(), p_text) != k_true.end();
}

QCLPath::QCLPath(const std::string& p_text) : m_text(p_text), m_levels(levelsOf(p_text).size())
{
    if (m_levels == 0)
        m_text.clear();
}

std::string QCLPath::getType(std::size_t p_level) const
{
    return p_level < m_levels ? levelsOf(m_text)[p_level].type : "";
}

std::string QCLPath::getName(std::size_t p_level) const
{
    return p_level < m_levels ? levelsOf(m_text)[p_level].name : "";
}

std::string QCLPath::getLastType() const { return empty() ? "" : getType(m_levels - 1); }

std::string QCLPath::getLastName() const { return empty() ? "" : getName(m_levels - 1); }

QCLPath QCLPath::getSubPathByType(const std::string& p_type) const
{
    QCLPath leading;
    for (const Level& level : levelsOf(m_text))
    {
        leading.push_back(level.type, level.name);
        if (level.type == p_type)
            return leading;
    }
    return {};
}

void QCLPath::push_back(const std::string& p_type, const std::string& p_name)
{
    *this = QCLPath(m_text + "/" + p_type + (p_name.empty() ? "" : ":" + p_name));
}

bool QCLPath::isParent(const QCLPath& p_other) const
{
    return p_other.m_levels > m_levels && (p_other.m_text + "/").rfind(m_text + "/", 0) == 0;
}

bool BoolFromEnvironment::checkEnv() const
{
    if (m_state == State::Unknown)
    {
        const char* value = std::getenv(m_variable);
        m_state = value && StringUtilities::stringToBool(value) ? State::On : State::Off;
    }
    return m_state == State::On;
}

}    // namespace qen
