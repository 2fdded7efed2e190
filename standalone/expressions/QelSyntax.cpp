#include "expressions/QelSyntax.h"

#include "expressions/QelExpression.h"

#include <algorithm>

namespace qen::standalone {
namespace qel {
namespace {

struct CodeRange {
    char32_t first;
    char32_t last;
};

// What is no letter, digit or mark of a script: signs of arithmetic, punctuation, blanks, arrows, shapes, controls.
// Sorted. The blocks are those of the Unicode standard, version 15.
constexpr std::array k_noLetters {
    CodeRange {0x0080, 0x00A9},       // controls, Latin-1 punctuation up to the copyright sign
    CodeRange {0x00AB, 0x00B4},       // Latin-1 punctuation, degree sign, superscripts
    CodeRange {0x00B6, 0x00B9},       // pilcrow, middle dot
    CodeRange {0x00BB, 0x00BF},       // fractions
    CodeRange {0x00D7, 0x00D7},       // multiplication sign
    CodeRange {0x00F7, 0x00F7},       // division sign
    CodeRange {0x02C2, 0x02DF},       // spacing modifiers
    CodeRange {0x037E, 0x037E},       // Greek question mark
    CodeRange {0x0387, 0x0387},       // Greek ano teleia
    CodeRange {0x1680, 0x1680},       // Ogham blank
    CodeRange {0x2000, 0x20CF},       // blanks, punctuation, super- and subscripts, currencies
    CodeRange {0x2190, 0x2BFF},       // arrows, operators, technical signs, shapes
    CodeRange {0x2E00, 0x2E7F},       // supplemental punctuation
    CodeRange {0x3000, 0x3004},       // ideographic blank and punctuation
    CodeRange {0x3008, 0x3020},       // brackets
    CodeRange {0xD800, 0xF8FF},       // surrogates, private use
    CodeRange {0xFE00, 0xFE6F},       // variation selectors, vertical and small forms
    CodeRange {0xFEFF, 0xFF20},       // byte order mark, full-width punctuation and digits
    CodeRange {0xFF3B, 0xFF40},       // full-width brackets
    CodeRange {0xFF5B, 0xFF65},       // full-width brackets
    CodeRange {0xFFE0, 0xFFFF},       // full-width signs, specials
    CodeRange {0x1F000, 0x1FAFF},     // pictures
    CodeRange {0xE0000, 0x10FFFF},    // tags, private use
};

bool isForeignLetter(char32_t p_code)
{
    const auto range = std::ranges::lower_bound(k_noLetters, p_code, {}, &CodeRange::last);
    return range == k_noLetters.end() || p_code < range->first;
}

}

bool isFrameDelimiter(char p_char)
{
    return std::string_view("()*/+-^[]").find(p_char) != std::string_view::npos;
}

std::size_t foreignLetterAt(const char* p_at, const char* p_end)
{
    if (p_at == p_end)
        return 0;
    const auto lead = static_cast<unsigned char>(*p_at);
    std::size_t bytes = 0;
    char32_t code = 0;
    char32_t smallest = 0;
    if (lead >= 0xC0 && lead < 0xE0)
        bytes = 2, code = lead & 0x1FU, smallest = 0x80;
    else if (lead >= 0xE0 && lead < 0xF0)
        bytes = 3, code = lead & 0x0FU, smallest = 0x800;
    else if (lead >= 0xF0 && lead < 0xF8)
        bytes = 4, code = lead & 0x07U, smallest = 0x10000;
    else
        return 0;
    if (static_cast<std::size_t>(p_end - p_at) < bytes)
        return 0;
    for (std::size_t i = 1; i < bytes; ++i)
    {
        const auto next = static_cast<unsigned char>(p_at[i]);
        if ((next & 0xC0U) != 0x80U)
            return 0;
        code = (code << 6U) | (next & 0x3FU);
    }
    return code >= smallest && code <= 0x10FFFF && isForeignLetter(code) ? bytes : 0;
}

// {selector}, {selector:frame} or {:frame}
bool ComponentReader::readBraces(Component& p_component)
{
    p_component.hasBraces = true;
    ++at;
    const char* begin = at;
    while (at != end && hasClass(*at, k_letter | k_digit))
        ++at;
    p_component.selector = std::string_view(begin, static_cast<std::size_t>(at - begin));
    if (at != end && *at == ':')
    {
        begin = ++at;
        while (at != end && *at != '{' && *at != '}' && !isFrameDelimiter(*at))
            ++at;
        std::string_view frame(begin, static_cast<std::size_t>(at - begin));
        while (!frame.empty() && hasClass(frame.front(), k_blank))
            frame.remove_prefix(1);
        while (!frame.empty() && hasClass(frame.back(), k_blank))
            frame.remove_suffix(1);
        p_component.frame = frame;
        if (frame.empty())
        {
            expected = "the name of a coordinate frame";
            return false;
        }
        if (at == end || *at != '}')
        {
            expected =
                at == end || !isFrameDelimiter(*at)
                    ? "'}'"
                    : "'}' or more of the name of a coordinate frame, which holds none of ( ) * / + - ^ [ ]";
            return false;
        }
    }
    else if (p_component.selector.empty())
    {
        expected = "component letters or ':' and a coordinate frame";
        return false;
    }
    else if (at == end || *at != '}')
    {
        expected = "'}' or ':' and a coordinate frame";
        return false;
    }
    ++at;
    return true;
}

std::optional<std::string_view> ComponentsFromTheRight::next()
{
    if (m_done)
        return std::nullopt;
    // A coordinate frame may hold a dot, but no brace.
    if (m_left.ends_with('}'))
        m_left = m_left.substr(0, m_left.rfind('{'));
    const std::size_t dot = m_left.rfind('.');
    if (dot == std::string_view::npos)
    {
        m_done = true;
        return m_left;
    }
    const std::string_view name = m_left.substr(dot + 1);
    m_left = m_left.substr(0, dot);
    return name;
}

}    // namespace qel

bool isQelName(std::string_view p_text)
{
    const char* const end = p_text.data() + p_text.size();
    return !p_text.empty() && qel::nameEnd(p_text.data(), end) == end;
}

bool isQelFrameName(std::string_view p_text)
{
    return !p_text.empty() && std::ranges::none_of(p_text, [](char p_char) {
        return p_char == '{' || p_char == '}' || qel::isFrameDelimiter(p_char);
    });
}

bool isQelLocatorName(std::string_view p_text)
{
    return !p_text.empty() && p_text.find('(') == std::string_view::npos;
}

}    // namespace qen::standalone
