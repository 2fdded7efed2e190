#include "units/ExactRatio.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qen::standalone {
namespace {

constexpr double k_wholeLimit = 9007199254740992.0;    // 2^53: whole numbers up to here are exact in double
constexpr int k_exactPowerOfTen = 22;                  // the largest power of ten that a double holds exactly

std::string_view trimmed(std::string_view p_text)
{
    const std::size_t first = p_text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return p_text.substr(first, p_text.find_last_not_of(" \t") - first + 1);
}

double powerOfTen(int p_exponent)
{
    double power = 1.0;
    for (int i = 0; i < p_exponent; ++i)
        power *= 10.0;    // exact up to k_exactPowerOfTen
    return power;
}

bool isDigit(char p_char) { return p_char >= '0' && p_char <= '9'; }

/// The text as digits and a power of ten, exact in two doubles. None where that needs more digits than a double has.
std::optional<Ratio> exactDecimal(std::string_view p_digits)
{
    std::uint64_t mantissa = 0;
    int powerOf10 = 0;
    bool behindPoint = false;
    std::size_t at = 0;
    for (; at < p_digits.size() && (isDigit(p_digits[at]) || p_digits[at] == '.'); ++at)
    {
        if (p_digits[at] == '.')
        {
            behindPoint = true;
            continue;
        }
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(p_digits[at] - '0');
        if (static_cast<double>(mantissa) > k_wholeLimit)
            return std::nullopt;
        powerOf10 -= behindPoint ? 1 : 0;
    }
    if (at < p_digits.size())
    {
        int written = 0;
        ++at;    // the 'e'
        if (at < p_digits.size() && p_digits[at] == '+')
            ++at;
        const auto [end, fault] =
            std::from_chars(p_digits.data() + at, p_digits.data() + p_digits.size(), written);
        if (fault != std::errc {} || end != p_digits.data() + p_digits.size() || std::abs(written) > 1000)
            return std::nullopt;
        powerOf10 += written;
    }
    if (std::abs(powerOf10) > k_exactPowerOfTen)
        return std::nullopt;

    const auto whole = static_cast<double>(mantissa);
    if (powerOf10 < 0)
        return reduced({whole, powerOfTen(-powerOf10)});
    const double scaled = whole * powerOfTen(powerOf10);
    if (scaled > k_wholeLimit && mantissa != 1)
        return std::nullopt;
    return Ratio {scaled, 1.0};
}

std::optional<Ratio> readNumber(std::string_view p_text)
{
    bool negative = false;
    if (!p_text.empty() && (p_text[0] == '-' || p_text[0] == '+'))
    {
        negative = p_text[0] == '-';
        p_text.remove_prefix(1);
    }
    if (p_text.empty() || !(isDigit(p_text[0]) || p_text[0] == '.'))
        return std::nullopt;    // from_chars would read "inf", "nan" and a second sign

    double value = 0.0;
    const auto [end, fault] = std::from_chars(p_text.data(), p_text.data() + p_text.size(), value);
    if (fault != std::errc {} || end != p_text.data() + p_text.size())
        return std::nullopt;

    Ratio ratio = exactDecimal(p_text).value_or(Ratio {value, 1.0});
    if (negative)
        ratio.numerator = -ratio.numerator;
    return ratio;
}

}

Ratio reduced(Ratio p_ratio)
{
    const auto isWhole = [](double p_value) {
        return std::isfinite(p_value) && p_value != 0.0 && std::trunc(p_value) == p_value;
    };
    if (!isWhole(p_ratio.numerator) || !isWhole(p_ratio.denominator))
        return p_ratio;

    double divisor = std::abs(p_ratio.numerator);
    double rest = std::abs(p_ratio.denominator);
    while (rest != 0.0)
    {
        const double next = std::fmod(divisor, rest);    // exact
        divisor = rest;
        rest = next;
    }
    return {p_ratio.numerator / divisor, p_ratio.denominator / divisor};
}

Ratio sum(Ratio p_one, Ratio p_other)
{
    return reduced({p_one.numerator * p_other.denominator + p_other.numerator * p_one.denominator,
                    p_one.denominator * p_other.denominator});
}

Ratio quotient(Ratio p_one, Ratio p_other)
{
    return reduced({p_one.numerator * p_other.denominator, p_one.denominator * p_other.numerator});
}

std::optional<Ratio> readRatio(std::string_view p_text)
{
    const std::size_t slash = p_text.find('/');
    const std::optional<Ratio> above = readNumber(trimmed(p_text.substr(0, slash)));
    if (!above || slash == std::string_view::npos)
        return above;

    const std::optional<Ratio> below = readNumber(trimmed(p_text.substr(slash + 1)));
    if (!below || below->numerator == 0.0)
        return std::nullopt;
    return quotient(*above, *below);
}

}    // namespace qen::standalone
