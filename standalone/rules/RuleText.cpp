#include "rules/RuleText.h"

#include "StringUtilities.h"

namespace qen::standalone {

std::optional<Bound> readBoundText(const std::string& p_text)
{
    Bound bound;
    bool isNumber = false;
    std::string number;
    bound.value = static_cast<double>(StringUtilities::valueAsFloat(p_text, isNumber, number, bound.units));
    if (!isNumber)
        return std::nullopt;
    return bound;
}

std::string quotedShort(std::string_view p_text)
{
    constexpr std::size_t k_most = 80;
    if (p_text.size() > k_most)
        return "'" + std::string(p_text.substr(0, k_most)) + "...'";
    return "'" + std::string(p_text) + "'";
}

}    // namespace qen::standalone
