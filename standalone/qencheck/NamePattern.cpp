#include "NamePattern.h"

#include "StringUtilities.h"

#include <cstddef>

namespace qencheck {
namespace {

constexpr std::size_t k_none = std::string_view::npos;

/// The place behind the UTF-8 character that begins at a place.
std::size_t behindCharacter(std::string_view p_text, std::size_t p_at)
{
    do
        ++p_at;
    while (p_at < p_text.size() && (static_cast<unsigned char>(p_text[p_at]) & 0xC0U) == 0x80U);
    return p_at;
}

/// Costs the product of both lengths at the worst: where the text does not go on as the pattern does, the latest '*'
/// takes one character more.
bool fitsGlob(std::string_view p_text, std::string_view p_glob)
{
    std::size_t text = 0;
    std::size_t glob = 0;
    std::size_t star = k_none;     // the latest '*'
    std::size_t behindStar = 0;    // where what it takes ends
    while (text < p_text.size())
    {
        if (glob < p_glob.size() && p_glob[glob] == '*')
        {
            star = glob++;
            behindStar = text;
        }
        else if (glob < p_glob.size() && p_glob[glob] == '?')
        {
            text = behindCharacter(p_text, text);
            ++glob;
        }
        else if (glob < p_glob.size() && p_glob[glob] == p_text[text])
        {
            ++text;
            ++glob;
        }
        else if (star != k_none)
        {
            behindStar = behindCharacter(p_text, behindStar);
            text = behindStar;
            glob = star + 1;
        }
        else
            return false;
    }
    return p_glob.find_first_not_of('*', glob) == k_none;
}

}    // namespace

NamePattern::NamePattern(std::string_view p_text)
    : m_text(qen::StringUtilities::toLowerCase(std::string(p_text))),
      m_isGlob(p_text.find_first_of("*?") != k_none)
{}

bool NamePattern::matches(std::string_view p_name) const
{
    const std::string name = qen::StringUtilities::toLowerCase(std::string(p_name));
    return m_isGlob ? fitsGlob(name, m_text) : name.find(m_text) != k_none;
}

}    // namespace qencheck
