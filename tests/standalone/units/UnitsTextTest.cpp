#include "DefinitionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen::standalone::test {
namespace {

UnitSystem& metreAndSecond()
{
    static UnitSystem s_units = [] {
        UnitSystem units;
        DefinitionText()
            .mechanics()
            .section("/PREFIX:Y", {{"Factor", "1e24"}})
            .section("/UNIT:tiny", {{"Definition", "m"}, {"Factor", "1e-200"}})
            .unit("abcdefgh", "m")
            .unit("abcdefghi", "m^2")
            .unit("abcdefghij", "m^3")
            .unit("\u00b5_%1", "s")
            .addTo(units);
        return units;
    }();
    return s_units;
}

struct GoodText {
    std::string text;
    std::string baseUnits;
};

class UnitsText : public ::testing::TestWithParam<GoodText> {};

TEST_P(UnitsText, IsUnderstood)
{
    std::string reason = "untouched";
    const std::optional<UnitValue> value = metreAndSecond().parse(GetParam().text, &reason);

    ASSERT_TRUE(value.has_value()) << reason;
    EXPECT_EQ(metreAndSecond().baseUnits(value->dims), GetParam().baseUnits);
    EXPECT_EQ(reason, "untouched");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, UnitsText, ::testing::Values(
    GoodText {"",                   ""},
    GoodText {" \t ",               ""},
    GoodText {"m",                  "m"},
    GoodText {"  m  ",              "m"},
    GoodText {"m s",                "m s"},
    GoodText {"m\ts",               "m s"},
    GoodText {"m^2",                "m^2"},
    GoodText {"m^+2",               "m^2"},
    GoodText {"m ^2",               "m^2"},
    GoodText {"m^ 2",               "m^2"},
    GoodText {"m  ^  -2  s",        "m^-2 s"},
    GoodText {"m^0.5",              "m^0.5"},
    GoodText {"m^-.5",              "m^-0.5"},
    GoodText {"m^2.",               "m^2"},
    GoodText {"m^2.0",              "m^2"},
    GoodText {"m^0000000002",       "m^2"},
    GoodText {"m^0",                ""},
    GoodText {"m m m^-2",           ""},
    GoodText {"m^0.1 m^0.2",        "m^0.3"},
    GoodText {"m^100",              "m^100"},
    GoodText {"m^-100",             "m^-100"},
    GoodText {"m^100 m^-100",       ""},
    GoodText {"abcdefgh",           "m"},
    GoodText {"abcdefghi",          "m^2"},
    GoodText {"abcdefghij",         "m^3"},
    GoodText {"\u00b5_%1",          "s"}));
// clang-format on

struct BadText {
    std::string text;
    std::string reason;
};

class BadUnitsText : public ::testing::TestWithParam<BadText> {};

TEST_P(BadUnitsText, IsRefusedWithColumnAndReason)
{
    std::string reason;
    EXPECT_EQ(metreAndSecond().parse(GetParam().text, &reason), std::nullopt);
    EXPECT_EQ(reason, GetParam().reason);
    EXPECT_EQ(metreAndSecond().parse(GetParam().text), std::nullopt) << "also when nobody asks why";
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, BadUnitsText, ::testing::Values(
    BadText {"furlong",     "column 1: unit 'furlong' is not known"},
    BadText {"m s M",       "column 5: unit 'M' is not known"},
    BadText {"abcdefghijk", "column 1: unit 'abcdefghijk' is not known"},
    BadText {"m2",          "column 1: unit 'm2' is not known"},
    BadText {"m/s",         "column 2: '/' is not read; a divisor is written with a negative exponent, such as 's^-1'"},
    BadText {"m * s",       "column 3: '*' is not read; factors are separated by blanks"},
    BadText {"m.s",         "column 2: '.' is not read; factors are separated by blanks"},
    BadText {"(m)",         "column 1: '(' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"[m]",         "column 1: '[' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"m-s",         "column 2: '-' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"m\ns",        "column 2: '?' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"1",           "column 1: a number is not a unit; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"m 2",         "column 3: a number is not a unit; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"^2",          "column 1: '^' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"m^",          "column 3: an exponent is missing; expected a number behind '^', such as 's^-1'"},
    BadText {"m^-",         "column 3: an exponent is missing; expected a number behind '^', such as 's^-1'"},
    BadText {"m^- 2",       "column 3: an exponent is missing; expected a number behind '^', such as 's^-1'"},
    BadText {"m^s",         "column 3: an exponent is missing; expected a number behind '^', such as 's^-1'"},
    BadText {"m^inf",       "column 3: an exponent is missing; expected a number behind '^', such as 's^-1'"},
    BadText {"m^.",         "column 3: '.' is not an exponent; expected a number, such as '-1' or '0.5'"},
    BadText {"m^1.2.3",     "column 3: '1.2.3' is not an exponent; expected a number, such as '-1' or '0.5'"},
    BadText {"m^2s",        "column 4: a blank is missing before 's'"},
    BadText {"m^1e3",       "column 4: a blank is missing before 'e'"},
    BadText {"m^2^2",       "column 4: '^' is not read; expected the name of a unit, such as 'kg m^-3'"},
    BadText {"m^1/2",       "column 4: '/' is not read; a divisor is written with a negative exponent, such as 's^-1'"},
    BadText {"m^101",       "column 3: exponent '101' is too large; the limit is 100"},
    BadText {"m^-100.5",    "column 3: exponent '-100.5' is too large; the limit is 100"},
    BadText {"m^99999999999999999999", "column 3: exponent '99999999999999999999' is too large; the limit is 100"},
    BadText {"m^51 m^50",   "column 1: the units multiply to a dimension with an exponent beyond 100"},
    BadText {"Ym^20",       "column 1: the units multiply to a factor beyond double precision"},
    BadText {"tiny^2",      "column 1: the units multiply to a factor beyond double precision"},
    BadText {"m^0." + std::string(63, '1'), "column 3: '0." + std::string(63, '1') +
                            "' is not an exponent; expected a number, such as '-1' or '0.5'"},
    BadText {std::string(81, 'x'), "column 1: unit '" + std::string(80, 'x') + "...' is not known"},
    BadText {std::string(4097, ' '), "column 1: the text has 4097 bytes; at most 4096 are read"}));
// clang-format on

TEST(UnitsText, IsReadUpToItsGreatestLength)
{
    EXPECT_TRUE(metreAndSecond().parse(std::string(4095, ' ') + "m").has_value());
}

TEST(UnitsText, IsQuotedByCharactersNotBytes)
{
    std::string name;
    for (int i = 0; i < 81; ++i)
        name += "\u00b5";
    std::string shown;
    for (int i = 0; i < 80; ++i)
        shown += "\u00b5";

    EXPECT_EQ(reasonAgainst(metreAndSecond(), name), "column 1: unit '" + shown + "...' is not known");
}

TEST(UnitsText, IsDimensionlessOrUnknownWhereNothingIsDefined)
{
    const UnitSystem nothing;

    EXPECT_TRUE(nothing.parse("").has_value());
    EXPECT_EQ(reasonAgainst(nothing, "m"), "column 1: unit 'm' is not known");
    EXPECT_EQ(nothing.quantityUnits("Length"), nullptr);
}

}
}    // namespace qen::standalone::test
