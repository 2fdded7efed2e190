#include "LineExcerpt.h"

#include <algorithm>

namespace qencheck {
namespace {

constexpr std::string_view k_cut = "...";

bool continuesCharacter(char p_byte) { return (static_cast<unsigned char>(p_byte) & 0xC0U) == 0x80U; }

/// The start of the character that is so many characters before or after a byte.
std::size_t stepBack(std::string_view p_line, std::size_t p_at, std::size_t p_characters)
{
    while (p_at > 0 && p_characters > 0)
        if (!continuesCharacter(p_line[--p_at]))
            --p_characters;
    return p_at;
}

std::size_t stepForward(std::string_view p_line, std::size_t p_at, std::size_t p_characters)
{
    while (p_at < p_line.size() && p_characters > 0)
    {
        ++p_at;
        while (p_at < p_line.size() && continuesCharacter(p_line[p_at]))
            ++p_at;
        --p_characters;
    }
    return p_at;
}

std::size_t countCharacters(std::string_view p_text)
{
    return static_cast<std::size_t>(
        std::count_if(p_text.begin(), p_text.end(), [](char p_byte) { return !continuesCharacter(p_byte); }));
}

std::string printable(std::string_view p_text)
{
    std::string result(p_text);
    for (char& byte : result)
    {
        if (byte == '\t')
            byte = ' ';
        else if (static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F)
            byte = '?';
    }
    return result;
}

}    // namespace

std::size_t characterColumn(std::string_view p_line, std::size_t p_byteColumn)
{
    const std::size_t bytes = std::min(p_byteColumn == 0 ? 0 : p_byteColumn - 1, p_line.size());
    return countCharacters(p_line.substr(0, bytes)) + 1;
}

LineExcerpt excerpt(std::string_view p_line, std::size_t p_column, std::size_t p_length, std::size_t p_width)
{
    const std::size_t at = std::min(p_column == 0 ? 0 : p_column - 1, p_line.size());
    const std::size_t end = std::min(at + p_length, p_line.size());

    std::size_t from = 0;
    std::size_t to = stepForward(p_line, 0, p_width);
    if (to < std::max(end, std::min(at + 1, p_line.size())))
    {
        from = stepBack(p_line, at, p_width / 3);
        to = stepForward(p_line, from, p_width);
    }

    LineExcerpt result;
    if (from > 0)
        result.text += k_cut;
    result.underline.assign(result.text.size() + countCharacters(p_line.substr(from, at - from)), ' ');
    result.text += printable(p_line.substr(from, to - from));
    if (to < p_line.size())
        result.text += k_cut;

    const std::size_t marked = countCharacters(p_line.substr(at, std::min(end, to) - std::min(at, to)));
    result.underline += '^';
    result.underline.append(marked > 1 ? marked - 1 : 0, '~');
    return result;
}

}    // namespace qencheck
