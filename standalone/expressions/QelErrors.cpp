#include "expressions/QelErrors.h"

#include "expressions/QelExpression.h"
#include "expressions/QelSyntax.h"

#include <algorithm>

namespace qen::standalone::qel {
namespace {

constexpr std::string_view k_cut = "...";

bool continuesCharacter(char p_char) { return (static_cast<unsigned char>(p_char) & 0xC0U) == 0x80U; }

// The offset of the character with that number, from 0; the size where there are fewer.
std::size_t offsetOfCharacter(std::string_view p_text, std::size_t p_number)
{
    std::size_t offset = 0;
    while (offset < p_text.size())
    {
        if (p_number == 0)
            return offset;
        --p_number;
        do
            ++offset;
        while (offset < p_text.size() && continuesCharacter(p_text[offset]));
    }
    return offset;
}

}

std::string quoted(std::string_view p_text)
{
    std::string text = "'";
    const std::size_t whole = offsetOfCharacter(p_text, QelLimits::k_quotedCharacters);
    if (whole == p_text.size())
        text += p_text;
    else
    {
        text += p_text.substr(0, offsetOfCharacter(p_text, QelLimits::k_quotedCharacters - k_cut.size()));
        text += k_cut;
    }
    // A line break or another control character would tear the report apart.
    std::ranges::replace_if(
        text, [](unsigned char p_char) { return p_char < 0x20 || p_char == 0x7F; }, ' ');
    return text += '\'';
}

std::size_t tokenBytes(std::string_view p_rest)
{
    if (p_rest.empty())
        return 0;
    const char* const begin = p_rest.data();
    const char* const end = begin + p_rest.size();
    if (hasClass(*begin, k_digit))
    {
        const char* at = begin;
        while (at != end && (hasClass(*at, k_nameChar) || *at == '.'))
            ++at;
        return static_cast<std::size_t>(at - begin);
    }
    if (const char* name = nameEnd(begin, end); name != begin)
        return static_cast<std::size_t>(name - begin);
    for (const std::string_view pair : {"||", "&&", "==", "!=", "<=", ">="})
        if (p_rest.starts_with(pair))
            return pair.size();
    return offsetOfCharacter(p_rest, 1);
}

std::string quotedToken(std::string_view p_rest)
{
    return p_rest.empty() ? "the end of the expression" : quoted(p_rest.substr(0, tokenBytes(p_rest)));
}

std::size_t characters(std::string_view p_text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < p_text.size(); ++i)
        count += i == 0 || !continuesCharacter(p_text[i]) ? 1U : 0U;
    return count;
}

}    // namespace qen::standalone::qel
