#include "text/NumberText.h"

#include "text/Blanks.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace qen::standalone {

namespace {

bool isDigit(char p_char) { return p_char >= '0' && p_char <= '9'; }

/// Whether a number's text, which single precision cannot hold, is too small rather than too large: its first digit
/// other than 0 stands behind the decimal point, once the exponent has moved it.
bool isTiny(std::string_view p_number)
{
    constexpr long long k_beyondAnyExponent = 1'000'000'000'000;

    const std::size_t exponentMark = p_number.find_first_of("eE");
    const std::string_view digits = p_number.substr(0, exponentMark);

    long long exponent = 0;
    if (exponentMark != std::string_view::npos)
    {
        bool negative = false;
        for (const char c : p_number.substr(exponentMark + 1))
        {
            if (c == '-')
                negative = true;
            else if (isDigit(c) && exponent < k_beyondAnyExponent)
                exponent = exponent * 10 + (c - '0');
        }
        if (negative)
            exponent = -exponent;
    }

    const std::size_t point = digits.find('.') == std::string_view::npos ? digits.size() : digits.find('.');
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos)
        return true;
    const long long placesBeforePoint =
        first < point ? static_cast<long long>(point - first) : -static_cast<long long>(first - point - 1);
    return placesBeforePoint + exponent <= 0;
}

}    // namespace

std::optional<NumberText> readNumber(std::string_view p_text)
{
    const std::string_view text = trimmed(p_text);
    std::string_view digits = text;

    // std::from_chars takes no '+', and takes words for infinity and not-a-number.
    const bool hasPlus = digits.starts_with('+');
    if (hasPlus)
        digits.remove_prefix(1);
    const std::size_t afterSign = !hasPlus && digits.starts_with('-') ? 1 : 0;
    if (afterSign >= digits.size() || (!isDigit(digits[afterSign]) && digits[afterSign] != '.'))
        return std::nullopt;

    NumberText result;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), result.value);
    if (failure == std::errc::invalid_argument)
        return std::nullopt;

    const auto numberSize = static_cast<std::size_t>(end - text.data());
    result.number = text.substr(0, numberSize);
    if (failure == std::errc::result_out_of_range)
    {
        if (!isTiny(digits.substr(afterSign, static_cast<std::size_t>(end - digits.data()) - afterSign)))
            return std::nullopt;
        result.value = std::copysign(0.0F, afterSign == 1 ? -1.0F : 1.0F);
    }

    const std::string_view rest = trimmedLeft(text.substr(numberSize));
    if (rest.empty())
        return result;

    // Units: one pair of brackets, and nothing behind it.
    if (rest.front() != '[' || rest.find_first_of("[]", 1) != rest.size() - 1 || rest.back() != ']')
        return std::nullopt;
    result.units = trimmed(rest.substr(1, rest.size() - 2));
    return result;
}

}    // namespace qen::standalone
