#include "StringUtilities.h"

#include "text/Blanks.h"
#include "text/NumberText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <fmt/printf.h>
#include <optional>
#include <string_view>
#include <utility>

namespace qen {

namespace {

using standalone::trimmed;

constexpr std::size_t k_usualPieces = 4;    // at most, so that a list takes memory once

/// Hands over each piece between separators, trimmed. A blank text has none.
template <typename TakePiece>
void forEachPiece(std::string_view p_text, char p_separator, TakePiece p_take)
{
    if (trimmed(p_text).empty())
        return;

    std::size_t begin = 0;
    for (std::size_t end = p_text.find(p_separator); end != std::string_view::npos;
         end = p_text.find(p_separator, begin))
    {
        p_take(trimmed(p_text.substr(begin, end - begin)));
        begin = end + 1;
    }
    p_take(trimmed(p_text.substr(begin)));
}

template <typename Texts>
std::string joined(const Texts& p_texts, char p_separator)
{
    std::string result;
    bool first = true;
    for (const std::string& text : p_texts)
    {
        if (!first)
            result += p_separator;
        result += text;
        first = false;
    }
    return result;
}

}    // namespace

float StringUtilities::valueAsFloat(const std::string& p_text, bool& p_isNumber, std::string& p_number,
                                    std::string& p_units)
{
    const std::optional<standalone::NumberText> read = standalone::readNumber(p_text);
    p_isNumber = read.has_value();
    if (!read)
    {
        p_number.clear();
        p_units.clear();
        return 0.0F;
    }

    // One of the results may be the text that was read: keep the views whole until both copies are made.
    std::string number(read->number);
    std::string units(read->units);
    const float value = read->value;
    p_number = std::move(number);
    p_units = std::move(units);
    return value;
}

std::vector<std::string> StringUtilities::splitValue(const std::string& p_text, char p_separator)
{
    std::vector<std::string> items;
    if (trimmed(p_text).empty())
        return items;

    const std::string_view text = p_text;
    std::size_t begin = 0;
    std::size_t depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        const char c = text[at];
        if (c == '(' || c == '[' || c == '{')
            ++depth;
        else if ((c == ')' || c == ']' || c == '}') && depth > 0)
            --depth;
        else if (c == p_separator && depth == 0)
        {
            items.emplace_back(trimmed(text.substr(begin, at - begin)));
            begin = at + 1;
        }
    }
    items.emplace_back(trimmed(text.substr(begin)));
    return items;
}

std::vector<std::string> StringUtilities::stringToVector(const std::string& p_text, char p_separator)
{
    std::vector<std::string> pieces;
    if (!p_text.empty())
        pieces.reserve(k_usualPieces);
    forEachPiece(p_text, p_separator, [&](std::string_view p_piece) { pieces.emplace_back(p_piece); });
    return pieces;
}

std::set<std::string> StringUtilities::stringToSet(const std::string& p_text, char p_separator)
{
    std::set<std::string> pieces;
    forEachPiece(p_text, p_separator, [&](std::string_view p_piece) { pieces.emplace(p_piece); });
    return pieces;
}

std::string StringUtilities::setToString(const std::set<std::string>& p_texts, char p_separator)
{
    return joined(p_texts, p_separator);
}

std::string StringUtilities::vectorToString(const std::vector<std::string>& p_texts, char p_separator)
{
    return joined(p_texts, p_separator);
}

std::string StringUtilities::toString(double p_value, const std::string& p_format)
{
    return fmt::sprintf(p_format, p_value);    // unlike the C function, the same in every locale
}

std::string StringUtilities::toLowerCase(const std::string& p_text)
{
    std::string result = p_text;
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string StringUtilities::removeWhitespace(const std::string& p_text)
{
    std::string result = p_text;
    std::erase_if(result, [](char p_char) {
        return std::string_view(" \t\n\r\v\f").find(p_char) != std::string_view::npos;
    });
    return result;
}

bool StringUtilities::stringToBool(const std::string& p_text)
{
    static constexpr std::array<std::string_view, 11> k_true {"T",   "True", "TRUE", "true", "Yes", "YES",
                                                              "yes", "On",   "ON",   "on",   "1"};
    return std::ranges::find(k_true, p_text) != k_true.end();
}

}    // namespace qen
