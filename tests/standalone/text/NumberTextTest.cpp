#include "StringUtilities.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <string>

using qen::StringUtilities;

namespace {

struct NumberCase {
    std::string name;
    std::string text;
    float value;
    std::string number;
    std::string units;
};

class NumberIsRead : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberIsRead, WithItsTextAndUnits)
{
    bool isNumber = false;
    std::string number = "left over";
    std::string units = "left over";
    const float value = StringUtilities::valueAsFloat(GetParam().text, isNumber, number, units);

    EXPECT_TRUE(isNumber);
    EXPECT_EQ(value, GetParam().value);
    EXPECT_EQ(std::signbit(value), std::signbit(GetParam().value));
    EXPECT_EQ(number, GetParam().number);
    EXPECT_EQ(units, GetParam().units);
}

constexpr float k_smallest = std::numeric_limits<float>::denorm_min();
constexpr float k_largest = std::numeric_limits<float>::max();

INSTANTIATE_TEST_SUITE_P(
    Number, NumberIsRead,
    testing::Values(
        NumberCase {"Integer", "12", 12.0F, "12", ""}, NumberCase {"Negative", "-1.5", -1.5F, "-1.5", ""},
        NumberCase {"LeadingPlus", "+2.5", 2.5F, "+2.5", ""},
        NumberCase {"NoDigitBeforePoint", ".5", 0.5F, ".5", ""},
        NumberCase {"NoDigitBehindPoint", "5.", 5.0F, "5.", ""},
        NumberCase {"NegativeWithoutDigitBeforePoint", "-.5", -0.5F, "-.5", ""},
        NumberCase {"Exponent", "1e3", 1000.0F, "1e3", ""},
        NumberCase {"CapitalExponentWithSign", "1.5E-3", 1.5e-3F, "1.5E-3", ""},
        NumberCase {"LeadingZeros", "007", 7.0F, "007", ""},
        NumberCase {"NegativeZero", "-0", -0.0F, "-0", ""},
        NumberCase {"BlanksAround", " \t3 \r\n", 3.0F, "3", ""},
        NumberCase {"Units", "2 [m s^-1]", 2.0F, "2", "m s^-1"},
        NumberCase {"UnitsWithoutBlankBefore", "2[m]", 2.0F, "2", "m"},
        NumberCase {"BlanksInsideAndBehindUnits", " 2  [ m ]  ", 2.0F, "2", "m"},
        NumberCase {"EmptyUnits", "2 []", 2.0F, "2", ""}, NumberCase {"BlankUnits", "2 [ ]", 2.0F, "2", ""},
        NumberCase {"UnitsThatNobodyKnows", "2 [no such unit!]", 2.0F, "2", "no such unit!"},
        NumberCase {"LargestSinglePrecision", "3.4028234e38", k_largest, "3.4028234e38", ""},
        NumberCase {"SmallestSinglePrecision", "1.4e-45", k_smallest, "1.4e-45", ""},
        NumberCase {"TooSmallIsZero", "1e-60", 0.0F, "1e-60", ""},
        NumberCase {"TooSmallWithUnits", "1e-60 [m]", 0.0F, "1e-60", "m"},
        NumberCase {"TooSmallForDoubleIsZero", "1e-4000", 0.0F, "1e-4000", ""},
        NumberCase {"TooSmallAndNegativeIsNegativeZero", "-1e-60", -0.0F, "-1e-60", ""},
        NumberCase {"ExponentBeyondIntegersIsZero", "1e-99999999999999999999", 0.0F,
                    "1e-99999999999999999999", ""},
        NumberCase {"ManyDigitsAndTooSmall", "1234567890e-100", 0.0F, "1234567890e-100", ""},
        NumberCase {"ZerosBehindPointAndTooSmall", "0.000000001e-40", 0.0F, "0.000000001e-40", ""},
        NumberCase {"ZeroWithLargeExponent", "0e999999", 0.0F, "0e999999", ""},
        NumberCase {"TinyMantissaAndLargeExponentFit", "0.0000000001e40", 1e30F, "0.0000000001e40", ""}),
    [](const auto& p_info) { return p_info.param.name; });

struct TextCase {
    std::string name;
    std::string text;
};

class TextIsNoNumber : public testing::TestWithParam<TextCase> {};

TEST_P(TextIsNoNumber, AndNothingIsHandedBack)
{
    bool isNumber = true;
    std::string number = "left over";
    std::string units = "left over";
    EXPECT_EQ(StringUtilities::valueAsFloat(GetParam().text, isNumber, number, units), 0.0F);

    EXPECT_FALSE(isNumber);
    EXPECT_EQ(number, "");
    EXPECT_EQ(units, "");
}

INSTANTIATE_TEST_SUITE_P(
    Text, TextIsNoNumber,
    testing::Values(
        TextCase {"Empty", ""}, TextCase {"Blank", "  \t"}, TextCase {"Word", "Pressure"},
        TextCase {"Expression", "2 [m] * t"}, TextCase {"Sum", "1 + 2"}, TextCase {"TwoNumbers", "1 2"},
        TextCase {"List", "1, 2"}, TextCase {"DecimalComma", "1,5"}, TextCase {"TwoUnits", "1 [m] [s]"},
        TextCase {"NestedUnits", "1 [[m]]"}, TextCase {"UnitsNotClosed", "1 [m"},
        TextCase {"UnitsNotOpened", "1 m]"}, TextCase {"TextBehindUnits", "1 [m] x"},
        TextCase {"UnitsAlone", "[m]"}, TextCase {"UnitsWithoutBrackets", "1 m"},
        TextCase {"Infinity", "inf"}, TextCase {"NegativeInfinity", "-infinity"},
        TextCase {"NotANumber", "nan"}, TextCase {"PlusNotANumber", "+nan"}, TextCase {"Hexadecimal", "0x10"},
        TextCase {"HexadecimalWithoutPrefix", "ff"}, TextCase {"TooLarge", "1e39"},
        TextCase {"JustTooLarge", "3.4028236e38"}, TextCase {"TooLargeAndNegative", "-1e39"},
        TextCase {"TooLargeForDouble", "1e4000"}, TextCase {"TooLargeWithUnits", "1e39 [m]"},
        TextCase {"TooLargeWithoutExponent", "1" + std::string(60, '0')},
        TextCase {"ExponentBeyondIntegers", "1e99999999999999999999"},
        TextCase {"TinyMantissaAndTooLarge", "0.0000000001e99"}, TextCase {"TwoSigns", "+-1"},
        TextCase {"TwoPluses", "++1"}, TextCase {"MinusPlus", "-+1"}, TextCase {"SignAlone", "-"},
        TextCase {"PlusAlone", "+"}, TextCase {"BlankBehindSign", "- 1"}, TextCase {"PointAlone", "."},
        TextCase {"ExponentWithoutDigits", "1e"}, TextCase {"ExponentWithoutDigitsBehindSign", "1e+"},
        TextCase {"ExponentAlone", "e5"}, TextCase {"FortranExponent", "1d5"},
        TextCase {"TwoPoints", "1.2.3"}, TextCase {"FloatSuffix", "1f"}),
    [](const auto& p_info) { return p_info.param.name; });

TEST(ValueAsFloat, RoundsOnceToSinglePrecision)
{
    // Given a number just above the middle between two single-precision numbers, by less than double precision shows
    bool isNumber = false;
    std::string number;
    std::string units;
    const float value =
        StringUtilities::valueAsFloat("1.000000059604644775390625000000000001", isNumber, number, units);

    EXPECT_EQ(value, std::nextafter(1.0F, 2.0F));
}

TEST(ValueAsFloat, ReadsItsOwnResultTexts)
{
    bool isNumber = false;
    std::string text = "2 [m]";
    std::string units;
    EXPECT_EQ(StringUtilities::valueAsFloat(text, isNumber, text, units), 2.0F);
    EXPECT_EQ(text, "2");
    EXPECT_EQ(units, "m");
}

class DecimalComma final : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST(ValueAsFloat, IsTheSameWhereStreamsHaveADecimalComma)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));

    bool isNumber = false;
    std::string number;
    std::string units;
    const float value = StringUtilities::valueAsFloat("1.5 [m]", isNumber, number, units);
    const std::string text = StringUtilities::toString(1.5, "%g");
    std::locale::global(before);

    EXPECT_EQ(value, 1.5F);
    EXPECT_TRUE(isNumber);
    EXPECT_EQ(text, "1.5");
}

TEST(ValueAsFloat, IsTheSameWhereTheLocaleHasADecimalComma)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8") && !std::setlocale(LC_ALL, "fr_FR.UTF-8"))
        GTEST_SKIP() << "No locale with a decimal comma is installed.";

    bool isNumber = false;
    std::string number;
    std::string units;
    EXPECT_EQ(StringUtilities::valueAsFloat("1.5", isNumber, number, units), 1.5F);
    EXPECT_TRUE(isNumber);
    EXPECT_EQ(StringUtilities::toString(1.5, "%g"), "1.5");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ValueAsFloat, ReadsAMillionDigits)
{
    const std::string text = "0." + std::string(1'000'000, '3') + " [m]";
    bool isNumber = false;
    std::string number;
    std::string units;
    EXPECT_EQ(StringUtilities::valueAsFloat(text, isNumber, number, units), 1.0F / 3.0F);
    EXPECT_EQ(units, "m");
}

}    // namespace
