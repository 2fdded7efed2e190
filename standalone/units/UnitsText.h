#pragma once

/// @file
/// The grammar of units texts: names parted by blanks, each with an optional exponent behind '^'.

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qen::standalone {

constexpr std::size_t k_maxUnitsText = 4096;    // bytes
constexpr std::size_t k_maxExponentText =
    64;                                    // bytes: the longest text of a single-precision exponent has 51
constexpr double k_maxExponent = 100.0;    // of a factor, and of a dimension of the whole

/// Why a units text is not understood.
enum class UnitsFault : std::uint8_t {
    None,
    TooLong,
    UnexpectedCharacter,
    NumberAsFactor,
    MissingExponent,
    BadExponent,
    ExponentTooLarge,
    MissingBlank,
    UnknownUnit,
    DimensionTooLarge,
    FactorOutOfRange,
};

/// A fault and the bytes of the text that it is about.
struct UnitsTextFault {
    UnitsFault fault = UnitsFault::None;
    std::size_t offset = 0;
    std::size_t length = 0;

    explicit operator bool() const { return fault != UnitsFault::None; }
};

/// One factor of a units text.
struct UnitsFactor {
    std::string_view name;
    std::size_t offset = 0;    ///< of the name in the text
    double exponent = 1.0;
};

namespace units_text {

enum CharClass : std::uint8_t { Other = 0, Blank = 1, NameStart = 2, NameRest = 4, Digit = 8 };

constexpr std::array<std::uint8_t, 256> k_classes = [] {
    std::array<std::uint8_t, 256> classes {};
    for (std::size_t c = 'a'; c <= 'z'; ++c)
        classes[c] = NameStart | NameRest;
    for (std::size_t c = 'A'; c <= 'Z'; ++c)
        classes[c] = NameStart | NameRest;
    for (std::size_t c = 0x80; c <= 0xFF; ++c)    // a byte of a UTF-8 letter such as the micro sign
        classes[c] = NameStart | NameRest;
    for (std::size_t c = '0'; c <= '9'; ++c)
        classes[c] = NameRest | Digit;
    classes['_'] = NameStart | NameRest;
    classes['%'] = NameStart | NameRest;
    classes[' '] = Blank;
    classes['\t'] = Blank;
    return classes;
}();

inline bool is(char p_char, std::uint8_t p_classes)
{
    return (k_classes[static_cast<unsigned char>(p_char)] & p_classes) != 0;
}

/// Reads what stands behind '^'; moves p_at behind it.
inline UnitsTextFault scanExponent(std::string_view p_text, std::size_t& p_at, double& p_exponent)
{
    const std::size_t begin = p_at;
    bool negative = false;
    if (p_at < p_text.size() && (p_text[p_at] == '-' || p_text[p_at] == '+'))
        negative = p_text[p_at++] == '-';

    const std::size_t number = p_at;
    int whole = 0;
    while (p_at < p_text.size() && is(p_text[p_at], Digit) && p_at - number < 4)
        whole = whole * 10 + (p_text[p_at++] - '0');

    if (p_at < p_text.size() && (p_text[p_at] == '.' || is(p_text[p_at], Digit)))
    {
        while (p_at < p_text.size() && (p_text[p_at] == '.' || is(p_text[p_at], Digit)))
            ++p_at;
        const char* end = p_text.data() + p_at;
        if (p_at - begin > k_maxExponentText)
            return {UnitsFault::BadExponent, begin, p_at - begin};
        const auto [stop, fault] =
            std::from_chars(p_text.data() + number, end, p_exponent, std::chars_format::fixed);
        if (fault != std::errc {} || stop != end)
            return {UnitsFault::BadExponent, begin, p_at - begin};
    }
    else if (p_at == number)
        return {UnitsFault::MissingExponent, begin, p_at - begin};
    else
        p_exponent = whole;

    if (p_exponent > k_maxExponent)
        return {UnitsFault::ExponentTooLarge, begin, p_at - begin};
    if (negative)
        p_exponent = -p_exponent;
    return {};
}

}    // namespace units_text

/// Hands the factors of a units text to p_take in their order, which answers whether it knows the name. Stops at the
/// first fault and returns it. Linear, allocates nothing.
template <class Take>
inline UnitsTextFault scanUnits(std::string_view p_text, Take&& p_take)
{
    using namespace units_text;
    if (p_text.size() > k_maxUnitsText)
        return {UnitsFault::TooLong, 0, 0};

    const std::size_t size = p_text.size();
    std::size_t at = 0;
    for (;;)
    {
        while (at < size && is(p_text[at], Blank))
            ++at;
        if (at == size)
            return {};

        UnitsFactor factor;
        factor.offset = at;
        if (!is(p_text[at], NameStart))
            return {is(p_text[at], Digit) ? UnitsFault::NumberAsFactor : UnitsFault::UnexpectedCharacter, at,
                    1};
        while (at < size && is(p_text[at], NameRest))
            ++at;
        factor.name = p_text.substr(factor.offset, at - factor.offset);

        bool parted = at == size;
        while (at < size && is(p_text[at], Blank))
        {
            parted = true;
            ++at;
        }
        if (at < size && p_text[at] == '^')
        {
            ++at;
            while (at < size && is(p_text[at], Blank))
                ++at;
            if (const UnitsTextFault fault = scanExponent(p_text, at, factor.exponent))
                return fault;
            if (at < size && is(p_text[at], NameStart))
                return {UnitsFault::MissingBlank, at, 1};
            parted = at == size || is(p_text[at], Blank);
        }
        if (!parted)
            return {UnitsFault::UnexpectedCharacter, at, 1};

        if (!p_take(factor))
            return {UnitsFault::UnknownUnit, factor.offset, factor.name.size()};
    }
}

/// A text for people: in single quotes, at most 80 characters of it, without control characters.
std::string quoted(std::string_view p_text);

/// Says the fault in words, with its column: "column 3: unit 'mph' is not known".
std::string describe(const UnitsTextFault& p_fault, std::string_view p_text);

/// Whether the text can stand as the name of a unit.
bool isUnitName(std::string_view p_text);

}    // namespace qen::standalone
