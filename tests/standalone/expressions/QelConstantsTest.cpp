#include "QelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

namespace qen::standalone::test {
namespace {

/// The value in base units, worked out by hand.
struct ConstantCase {
    const char* name;
    std::string text;
    double value;
    std::string units;
};

void PrintTo(const ConstantCase& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

std::string caseName(const ::testing::TestParamInfo<ConstantCase>& p_info) { return p_info.param.name; }

class ConstantExpression : public ::testing::TestWithParam<ConstantCase> {};

TEST_P(ConstantExpression, HasItsValueAndUnits)
{
    const QelWorld world;

    const QelResult result = world.analyse(GetParam().text);

    ASSERT_FALSE(result.error) << result.error->message;
    ASSERT_TRUE(result.constantValue);
    EXPECT_NEAR(*result.constantValue, GetParam().value, 1e-12 * std::fabs(GetParam().value));
    EXPECT_EQ(world.units.baseUnits(result.dims), GetParam().units);
    EXPECT_TRUE(result.variables.empty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Number, ConstantExpression, ::testing::Values(
    ConstantCase {"Whole",                 "42",             42.0,      ""},
    ConstantCase {"Fraction",              "1.25",           1.25,      ""},
    ConstantCase {"EndsInPoint",           "2.",             2.0,       ""},
    ConstantCase {"BeginsWithPoint",       ".5",             0.5,       ""},
    ConstantCase {"Exponent",              "1e3",            1000.0,    ""},
    ConstantCase {"SignedExponent",        "2.5E-3",         0.0025,    ""},
    ConstantCase {"PositiveExponent",      "2.5e+3",         2500.0,    ""},
    ConstantCase {"ManyDigits",            "3.141592653589793238462643383", 3.141592653589793, ""},
    ConstantCase {"LongInteger",           "12345678901234567890", 1.2345678901234567e19, ""},
    ConstantCase {"BlanksAround",          " \t7 \n",        7.0,       ""},
    ConstantCase {"Units",                 "2 [m]",          2.0,       "m"},
    ConstantCase {"UnitsWithoutBlank",     "2[m s^-1]",      2.0,       "m s^-1"},
    ConstantCase {"UnitsWithBlanksInside", "2 [ m s^-1 ]",   2.0,       "m s^-1"},
    ConstantCase {"EmptyUnits",            "2 []",           2.0,       ""},
    ConstantCase {"ScaledUnits",           "250 [cm]",       2.5,       "m"},
    ConstantCase {"OffsetTemperature",     "20 [C]",         293.15,    "K"},
    ConstantCase {"TemperatureDifference", "20 [C s^-1]",    20.0,      "s^-1 K"},
    ConstantCase {"NegativeTemperature",   "-5 [C]",         268.15,    "K"},
    ConstantCase {"TwiceNegated",          "--5 [C]",        278.15,    "K"},
    ConstantCase {"NegatedParenthesis",    "-(5 [C])",      -278.15,    "K"},
    ConstantCase {"NegatedSquare",         "-5 [C]^2",      -278.15 * 278.15, "K^2"},
    ConstantCase {"TemperatureMinus",      "10 [C] - 5 [C]", 5.0,       "K"},
    ConstantCase {"ParenthesisWithUnits",  "(1 + 2) [cm]",   0.03,      "m"},
    ConstantCase {"OffsetParenthesis",     "(10 + 10) [C]",  293.15,    "K"}), caseName);

INSTANTIATE_TEST_SUITE_P(Precedence, ConstantExpression, ::testing::Values(
    ConstantCase {"SumOfProducts",          "1 + 2 * 3",          7.0,     ""},
    ConstantCase {"DifferencesFromTheLeft", "10 - 4 - 3",         3.0,     ""},
    ConstantCase {"QuotientsFromTheLeft",   "24 / 4 / 2",         3.0,     ""},
    ConstantCase {"ProductAndQuotient",     "24 / 4 * 2",         12.0,    ""},
    ConstantCase {"SignLooserThanPower",    "-2^2",               -4.0,    ""},
    ConstantCase {"SignTighterThanProduct", "2 * -3 * 4",         -24.0,   ""},
    ConstantCase {"SignBehindSign",         "1 - -2",             3.0,     ""},
    ConstantCase {"PlusSign",               "+3 + +4",            7.0,     ""},
    ConstantCase {"NegativeExponent",       "2^-1",               0.5,     ""},
    ConstantCase {"PositiveExponent",       "2^+3",               8.0,     ""},
    ConstantCase {"SignedExponentOfPower",  "2^-2^2",             0.0625,  ""},
    ConstantCase {"PowersFromTheRight",     "2^3^2",              512.0,   ""},
    ConstantCase {"PowerTighterThanProduct","3 * 2^2",            12.0,    ""},
    ConstantCase {"Parentheses",            "(1 + 2) * (3 + 4)",  21.0,    ""},
    ConstantCase {"BlanksBeforePower",      "2 ^ 3",              8.0,     ""},
    ConstantCase {"UnitsBeforePower",       "3 [m]^2",            9.0,     "m^2"},
    ConstantCase {"SumBeforeComparison",    "1 + 1 < 3",          1.0,     ""},
    ConstantCase {"ComparisonBeforeEquality","1 == 2 > 1",        1.0,     ""},
    ConstantCase {"EqualityBeforeAnd",      "0 && 1 == 0",        0.0,     ""},
    ConstantCase {"AndBeforeOr",            "1 || 0 && 0",        1.0,     ""},
    ConstantCase {"ComparisonBeforeAnd",    "1 < 2 && 3",         1.0,     ""},
    ConstantCase {"NotTighterThanEquality", "!1 == 0",            1.0,     ""},
    ConstantCase {"NotTighterThanAnd",      "!0 && 0",            0.0,     ""},
    ConstantCase {"NotBeforeSign",          "!-1",                0.0,     ""},
    ConstantCase {"SignBeforeNot",          "-!0",                -1.0,    ""},
    ConstantCase {"NotOfPower",             "!0^2",               1.0,     ""}), caseName);

INSTANTIATE_TEST_SUITE_P(Logic, ConstantExpression, ::testing::Values(
    ConstantCase {"Less",            "1 < 2",                1.0, ""},
    ConstantCase {"LessNot",         "2 < 2",                0.0, ""},
    ConstantCase {"LessEqual",       "2 <= 2",               1.0, ""},
    ConstantCase {"Greater",         "2 > 1",                1.0, ""},
    ConstantCase {"GreaterNot",      "2 > 2",                0.0, ""},
    ConstantCase {"GreaterEqual",    "2 >= 2",               1.0, ""},
    ConstantCase {"Equal",           "2 == 2",               1.0, ""},
    ConstantCase {"EqualNot",        "2 == 3",               0.0, ""},
    ConstantCase {"Unequal",         "2 != 3",               1.0, ""},
    ConstantCase {"UnequalNot",      "2 != 2",               0.0, ""},
    ConstantCase {"And",             "2 && 3",               1.0, ""},
    ConstantCase {"AndNot",          "2 && 0",               0.0, ""},
    ConstantCase {"Or",              "0 || 3",               1.0, ""},
    ConstantCase {"OrNot",           "0 || 0",               0.0, ""},
    ConstantCase {"ComparesInBaseUnits", "100 [cm] == 1 [m]", 1.0, ""},
    ConstantCase {"TemperaturesCompare", "0 [C] < 274 [K]",   1.0, ""}), caseName);

INSTANTIATE_TEST_SUITE_P(Function, ConstantExpression, ::testing::Values(
    ConstantCase {"Sin",          "sin(0.5)",              0.479425538604203,  ""},
    ConstantCase {"SinOfAngle",   "sin(90 [deg])",         1.0,                ""},
    ConstantCase {"Cos",          "cos(0.5)",              0.8775825618903728, ""},
    ConstantCase {"Tan",          "tan(0.5)",              0.5463024898437905, ""},
    ConstantCase {"Asin",         "asin(0.5)",             0.5235987755982989, "rad"},
    ConstantCase {"Acos",         "acos(0.5)",             1.0471975511965979, "rad"},
    ConstantCase {"Atan",         "atan(0.5)",             0.4636476090008061, "rad"},
    ConstantCase {"Atan2",        "atan2(1, -1)",          2.356194490192345,  "rad"},
    ConstantCase {"Atan2Lengths", "atan2(1 [m], 100 [cm])", 0.7853981633974483, "rad"},
    ConstantCase {"Sinh",         "sinh(0.5)",             0.5210953054937474, ""},
    ConstantCase {"Cosh",         "cosh(0.5)",             1.1276259652063807, ""},
    ConstantCase {"Tanh",         "tanh(0.5)",             0.46211715726000973, ""},
    ConstantCase {"Sqrt",         "sqrt(9 [m^2])",         3.0,                "m"},
    ConstantCase {"SqrtOfOdd",    "sqrt(4 [m])^2",         4.0,                "m"},
    ConstantCase {"CubeOfCubeRoot", "(8 [m])^(1/3)^1 * (8 [m])^(2/3)", 8.0,    "m"},
    ConstantCase {"Exp",          "exp(1)",                2.718281828459045,  ""},
    ConstantCase {"Ln",           "ln(2)",                 0.6931471805599453, ""},
    ConstantCase {"Log10",        "log10(1000)",           3.0,                ""},
    ConstantCase {"Abs",          "abs(-2 [m])",           2.0,                "m"},
    ConstantCase {"Min",          "min(3 [m], 250 [cm])",  2.5,                "m"},
    ConstantCase {"MinOfMany",    "min(5, 4, 3, 2, 6)",    2.0,                ""},
    ConstantCase {"Max",          "max(3 [m], 250 [cm])",  3.0,                "m"},
    ConstantCase {"MaxOfMany",    "max(1, 4, 3, 9, 6)",    9.0,                ""},
    ConstantCase {"Mod",          "mod(7 [s], 4 [s])",     3.0,                "s"},
    ConstantCase {"ModOfNegative", "mod(-1, 4)",           3.0,                ""},
    ConstantCase {"ModByNegative", "mod(1, -4)",           -3.0,               ""},
    ConstantCase {"Floor",        "floor(-1.5)",           -2.0,               ""},
    ConstantCase {"Round",        "round(2.5)",            3.0,                ""},
    ConstantCase {"StepBelow",    "step(-0.1 [s])",        0.0,                ""},
    ConstantCase {"StepAtZero",   "step(0)",               0.5,                ""},
    ConstantCase {"StepAbove",    "step(0.1)",             1.0,                ""},
    ConstantCase {"IfTrue",       "if(1 < 2, 3 [m], 4 [m])", 3.0,              "m"},
    ConstantCase {"IfFalse",      "if(1 > 2, 3 [m], 4 [m])", 4.0,              "m"},
    ConstantCase {"BlankBeforeParenthesis", "min (1, 2)",  1.0,                ""},
    ConstantCase {"Nested",       "max(min(1, 2), sqrt(abs(-16)))", 4.0,       ""}), caseName);

INSTANTIATE_TEST_SUITE_P(Named, ConstantExpression, ::testing::Values(
    ConstantCase {"Pi",                 "pi",                  3.141592653589793,  ""},
    ConstantCase {"E",                  "e",                   2.718281828459045,  ""},
    ConstantCase {"Gravity",            "g",                   9.80665,            "m s^-2"},
    ConstantCase {"GasConstant",        "R",                   8.31446261815324,   "kg m^2 s^-2 K^-1 mol^-1"},
    ConstantCase {"Avogadro",           "avogadro",            6.02214076e23,      "mol^-1"},
    ConstantCase {"Boltzmann",          "boltzmann",           1.380649e-23,       "kg m^2 s^-2 K^-1"},
    ConstantCase {"Planck",             "planck",              6.62607015e-34,     "kg m^2 s^-1"},
    ConstantCase {"SpeedOfLight",       "speed of light",      299792458.0,        "m s^-1"},
    ConstantCase {"StefanBoltzmann",    "stefan boltzmann",    5.670374419e-8,     "kg s^-3 K^-4"},
    ConstantCase {"ElementaryCharge",   "elementary charge",   1.602176634e-19,    "s A"},
    ConstantCase {"VacuumPermittivity", "vacuum permittivity", 8.8541878128e-12,   "kg^-1 m^-3 s^4 A^2"},
    ConstantCase {"VacuumPermeability", "vacuum permeability", 1.25663706212e-6,   "kg m s^-2 A^-2"}), caseName);
// clang-format on

TEST(ConstantExpressionValue, GasConstantIsAvogadroTimesBoltzmann)
{
    const QelWorld world;

    const QelResult ratio = world.analyse("R / (avogadro * boltzmann)");

    ASSERT_TRUE(ratio.constantValue);
    EXPECT_NEAR(*ratio.constantValue, 1.0, 1e-14);
    EXPECT_EQ(world.units.baseUnits(ratio.dims), "");
}

TEST(ConstantExpressionValue, LightFollowsFromPermittivityAndPermeability)
{
    const QelWorld world;

    const QelResult ratio = world.analyse("speed of light^2 * vacuum permittivity * vacuum permeability");

    ASSERT_TRUE(ratio.constantValue);
    EXPECT_NEAR(*ratio.constantValue, 1.0, 1e-9);
    EXPECT_EQ(world.units.baseUnits(ratio.dims), "");
}

TEST(ConstantExpressionValue, StefanBoltzmannFollowsFromTheOthers)
{
    const QelWorld world;

    const QelResult ratio =
        world.analyse("2 * pi^5 * boltzmann^4 / (15 * planck^3 * speed of light^2) / stefan boltzmann");

    ASSERT_TRUE(ratio.constantValue);
    EXPECT_NEAR(*ratio.constantValue, 1.0, 1e-9);
    EXPECT_EQ(world.units.baseUnits(ratio.dims), "");
}

TEST(ConstantExpressionValue, MayBeInfiniteOrNoNumber)
{
    const QelWorld world;

    EXPECT_TRUE(std::isinf(*world.analyse("1 / 0").constantValue));
    EXPECT_TRUE(std::isnan(*world.analyse("sqrt(-1)").constantValue));
    EXPECT_TRUE(std::isnan(*world.analyse("if(sqrt(-1), 1, 2)").constantValue));
    EXPECT_TRUE(std::isnan(*world.analyse("min(sqrt(-1), 1)").constantValue));
    EXPECT_TRUE(std::isnan(*world.analyse("max(1, sqrt(-1))").constantValue));
    EXPECT_TRUE(std::isnan(*world.analyse("step(sqrt(-1))").constantValue));
}

}
}    // namespace qen::standalone::test
