#include "units/UnitsText.h"

#include <fmt/format.h>

namespace qen::standalone {
namespace {

constexpr std::size_t k_quotedCharacters = 80;

bool isContinuationByte(char p_char) { return (static_cast<unsigned char>(p_char) & 0xC0U) == 0x80U; }

std::string words(const UnitsTextFault& p_fault, std::string_view p_text)
{
    const std::string_view piece = p_text.substr(p_fault.offset, p_fault.length);
    switch (p_fault.fault)
    {
    case UnitsFault::None:
        break;
    case UnitsFault::TooLong:
        return fmt::format("the text has {} bytes; at most {} are read", p_text.size(), k_maxUnitsText);
    case UnitsFault::UnexpectedCharacter:
        if (piece == "/")
            return "'/' is not read; a divisor is written with a negative exponent, such as 's^-1'";
        if (piece == "*" || piece == ".")
            return fmt::format("{} is not read; factors are separated by blanks", quoted(piece));
        return fmt::format("{} is not read; expected the name of a unit, such as 'kg m^-3'", quoted(piece));
    case UnitsFault::NumberAsFactor:
        return "a number is not a unit; expected the name of a unit, such as 'kg m^-3'";
    case UnitsFault::MissingExponent:
        return "an exponent is missing; expected a number behind '^', such as 's^-1'";
    case UnitsFault::BadExponent:
        return fmt::format("{} is not an exponent; expected a number, such as '-1' or '0.5'", quoted(piece));
    case UnitsFault::ExponentTooLarge:
        return fmt::format("exponent {} is too large; the limit is {}", quoted(piece), k_maxExponent);
    case UnitsFault::MissingBlank:
        return fmt::format("a blank is missing before {}", quoted(piece));
    case UnitsFault::UnknownUnit:
        return "unit " + quoted(piece) + " is not known";
    case UnitsFault::DimensionTooLarge:
        return fmt::format("the units multiply to a dimension with an exponent beyond {}", k_maxExponent);
    case UnitsFault::FactorOutOfRange:
        return "the units multiply to a factor beyond double precision";
    }
    return {};
}

}

std::string quoted(std::string_view p_text)
{
    std::string result = "'";
    std::size_t characters = 0;
    for (const char c : p_text)
    {
        if (!isContinuationByte(c) && characters++ == k_quotedCharacters)
        {
            result += "...";
            break;
        }
        // Stray continuation bytes could go on for ever; a character has at most three.
        if (result.size() > 4 * k_quotedCharacters + 1)
            break;
        result += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
    }
    return result + "'";
}

std::string describe(const UnitsTextFault& p_fault, std::string_view p_text)
{
    return "column " + std::to_string(p_fault.offset + 1) + ": " + words(p_fault, p_text);
}

bool isUnitName(std::string_view p_text)
{
    using namespace units_text;
    if (p_text.empty() || !is(p_text.front(), NameStart))
        return false;
    for (const char c : p_text)
    {
        if (!is(c, NameRest))
            return false;
    }
    return true;
}

}    // namespace qen::standalone
