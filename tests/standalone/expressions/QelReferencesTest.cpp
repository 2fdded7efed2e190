#include "QelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct GoodCase {
    const char* name;
    std::string text;
    std::vector<std::string> variables;
    std::string units;
};

void PrintTo(const GoodCase& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

std::string caseName(const ::testing::TestParamInfo<GoodCase>& p_info) { return p_info.param.name; }

class GoodExpression : public ::testing::TestWithParam<GoodCase> {};

TEST_P(GoodExpression, HasVariablesInOrderOfFirstUseAndDimensions)
{
    QelWorld world;
    world.additionalVariable("Dye", "kg m^-3");
    world.additionalVariable("Field", "A m^-1", "VECTOR");
    world.additionalVariable("Plain", "K", "SCALAR");
    world.namedExpression("Ramp", "min(1, t / 2 [s])");
    world.namedExpression("Profile", "Ramp * (1 - (r / 1 [m])^2)");
    world.namedExpression("Pressure", "1 [s]");
    world.namedExpression("Dye", "1 [s]");
    world.namedExpression("pi", "1 [s]");
    world.namedExpression("sin", "3 [m]");

    const QelResult result = world.analyse(GetParam().text);

    ASSERT_FALSE(result.error) << result.error->message;
    EXPECT_EQ(result.variables, GetParam().variables);
    EXPECT_EQ(world.units.baseUnits(result.dims), GetParam().units);
    EXPECT_EQ(result.constantValue.has_value(), GetParam().variables.empty());
    EXPECT_THAT(result.callbacks, IsEmpty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Variable, GoodExpression, ::testing::Values(
    GoodCase {"OneWord",           "Pressure",                     {"Pressure"},                "kg m^-1 s^-2"},
    GoodCase {"TwoWords",          "Total Pressure",               {"Total Pressure"},          "kg m^-1 s^-2"},
    GoodCase {"LongName",          "Static Pressure",              {"Static Pressure"},         "kg m^-1 s^-2"},
    GoodCase {"WordsThenOperator", "Total Pressure - Pressure",    {"Total Pressure", "Pressure"}, "kg m^-1 s^-2"},
    GoodCase {"Foreign",           "Höhe über Grund",              {"Höhe über Grund"},         "m"},
    GoodCase {"WithoutQuantity",   "Normal X",                     {"Normal X"},                ""},
    GoodCase {"Component",         "Velocity{x}",                  {"Velocity{x}"},             "m s^-1"},
    GoodCase {"ComponentName",     "Velocity u",                   {"Velocity u"},              "m s^-1"},
    GoodCase {"Frame",             "Velocity{:Rotor Frame}",       {"Velocity{:Rotor Frame}"},  "m s^-1"},
    GoodCase {"ComponentAndFrame", "Velocity{x:Rotor.1 Frame}",    {"Velocity{x:Rotor.1 Frame}"}, "m s^-1"},
    GoodCase {"Prefix",            "Water.Velocity{x}",            {"Water.Velocity{x}"},       "m s^-1"},
    GoodCase {"TwoPrefixes",       "Air Mix.Oxygen.Density",       {"Air Mix.Oxygen.Density"},  "kg m^-3"},
    GoodCase {"ManyPrefixes",      "A.B.C.D.E.F.Density",          {"A.B.C.D.E.F.Density"},     "kg m^-3"},
    GoodCase {"EachOnce",          "r * t / r + t - t",            {"r", "t"},                  "s"},
    GoodCase {"AsWritten",         "Water.Pressure / Pressure",    {"Water.Pressure", "Pressure"}, ""}), caseName);

INSTANTIATE_TEST_SUITE_P(AdditionalVariable, GoodExpression, ::testing::Values(
    GoodCase {"Scalar",            "Dye",             {"Dye"},             "kg m^-3"},
    GoodCase {"Prefixed",          "Water.Dye",       {"Water.Dye"},       "kg m^-3"},
    GoodCase {"Vector",            "Field{x}",        {"Field{x}"},        "m^-1 A"},
    GoodCase {"ComponentX",        "Field X",         {"Field X"},         "m^-1 A"},
    GoodCase {"ComponentY",        "Field Y",         {"Field Y"},         "m^-1 A"},
    GoodCase {"ComponentZ",        "Field Z",         {"Field Z"},         "m^-1 A"},
    GoodCase {"SmallComponentX",   "Field x",         {"Field x"},         "m^-1 A"},
    GoodCase {"SmallComponentY",   "Field y",         {"Field y"},         "m^-1 A"},
    GoodCase {"SmallComponentZ",   "Field z",         {"Field z"},         "m^-1 A"}), caseName);

INSTANTIATE_TEST_SUITE_P(NamedExpression, GoodExpression, ::testing::Values(
    GoodCase {"CountsItsVariables",   "Ramp",                 {"t"},            ""},
    GoodCase {"WithinAnother",        "x * Profile",          {"x", "t", "r"},  "m"},
    GoodCase {"HasPrecedenceOfAName", "2 [m] * Ramp^2",       {"t"},            "m"},
    GoodCase {"HiddenByVariable",     "Pressure",             {"Pressure"},     "kg m^-1 s^-2"},
    GoodCase {"HiddenByAdditionalVariable", "Dye",            {"Dye"},          "kg m^-3"},
    GoodCase {"HiddenByConstant",     "2 [m] * pi",           {},               "m"},
    GoodCase {"NamedLikeAFunction",   "sin * sin(1)",         {},               "m"}), caseName);

INSTANTIATE_TEST_SUITE_P(Dimensions, GoodExpression, ::testing::Values(
    GoodCase {"Product",           "r * t",                    {"r", "t"},      "m s"},
    GoodCase {"Quotient",          "r / t",                    {"r", "t"},      "m s^-1"},
    GoodCase {"Sum",               "r + x",                    {"r", "x"},      "m"},
    GoodCase {"Power",             "r^2",                      {"r"},           "m^2"},
    GoodCase {"Root",              "(r^3)^(1/3)",              {"r"},           "m"},
    GoodCase {"HalfRoot",          "sqrt(r)",                  {"r"},           "m^0.5"},
    GoodCase {"VariableExponent",  "2^(t / 1 [s])",            {"t"},           ""},
    GoodCase {"ExponentOfPlainVariable", "(r / x)^(t / 1 [s])", {"r", "x", "t"}, ""},
    GoodCase {"Comparison",        "r < x",                    {"r", "x"},      ""},
    GoodCase {"AngleIsANumber",    "theta + 1",                {"theta"},       "rad"},
    GoodCase {"SumKeepsTheLeft",   "1 + theta",                {"theta"},       ""},
    GoodCase {"AngleInProduct",    "r * theta + 1 [m]",        {"r", "theta"},  "m rad"},
    GoodCase {"AngleOfSin",        "sin(omega * t)",           {"omega", "t"},  ""},
    GoodCase {"AngleAsExponent",   "2^theta",                  {"theta"},       ""},
    GoodCase {"AngleToAVariable",  "theta^(t / 1 [s])",        {"theta", "t"},  ""},
    GoodCase {"AngleInLogic",      "theta && 1",               {"theta"},       ""},
    GoodCase {"ExpOfAngle",        "exp(theta)",               {"theta"},       ""},
    GoodCase {"Abs",               "abs(r)",                   {"r"},           "m"},
    GoodCase {"Step",              "step(r)",                  {"r"},           ""},
    GoodCase {"Min",               "min(r, x, 1 [m])",         {"r", "x"},      "m"},
    GoodCase {"Mod",               "mod(t, 2 [s])",            {"t"},           "s"},
    GoodCase {"If",                "if(t > 1 [s], r, 2 [m])",  {"t", "r"},      "m"},
    GoodCase {"Atan2",             "atan2(y, x)",              {"y", "x"},      "rad"},
    GoodCase {"Asin",              "asin(r / x)",              {"r", "x"},      "rad"},
    GoodCase {"UnitsOfParenthesis", "(r / x) [K]",             {"r", "x"},      "K"}), caseName);
// clang-format on

TEST(Root, OfAScalarAdditionalVariableHasNoComponents)
{
    QelWorld world;
    world.additionalVariable("Dye", "kg m^-3");

    EXPECT_EQ(world.errorOf("Dye X"),
              "Column 1: 'Dye X' is not known; expected a variable, an additional variable, a "
              "constant or a named expression.");
}

TEST(ManyVariables, AreListedOnceEach)
{
    // Given more variables than are compared one by one
    QelWorld world;
    std::string text = "Variable 0";
    std::vector<std::string> names {"Variable 0"};
    world.variable("Variable 0", "Length");
    for (int i = 1; i < 40; ++i)
    {
        names.push_back("Variable " + std::to_string(i));
        world.variable(names.back(), "Length");
        text += " + " + names.back();
    }

    const QelResult result = world.analyse(text + " + " + text);

    ASSERT_FALSE(result.error) << result.error->message;
    EXPECT_EQ(result.variables, names);
}

struct CallCase {
    const char* name;
    std::string text;
    std::string function;
    std::string locator;
    std::string argument;
};

void PrintTo(const CallCase& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

class CallbackCall : public ::testing::TestWithParam<CallCase> {};

TEST_P(CallbackCall, IsReadWhole)
{
    const QelWorld world;

    const QelResult result = world.analyse(GetParam().text);

    ASSERT_EQ(result.callbacks.size(), 1U);
    EXPECT_EQ(result.callbacks[0].callbackName, GetParam().function);
    EXPECT_EQ(result.callbacks[0].locator, GetParam().locator);
    EXPECT_EQ(result.callbacks[0].argument, GetParam().argument);
    EXPECT_THAT(result.variables, IsEmpty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, CallbackCall, ::testing::Values(
    CallCase {"Plain",           "average@Inlet(Pressure)",               "average",  "Inlet",   "Pressure"},
    CallCase {"BlanksInLocator", "probe@Point 1(Water.Velocity{x})",      "probe",    "Point 1", "Water.Velocity{x}"},
    CallCase {"AxisComponent",   "force{x}@Wall()",                       "force{x}", "Wall",    ""},
    CallCase {"NoLocator",       "count()",                               "count",    "",        ""},
    CallCase {"EmptyLocator",    "rbstate@(Euler Angle X)",               "rbstate",  "",        "Euler Angle X"},
    CallCase {"AxisNoLocator",   "force{x}(Pressure)",                    "force{x}", "",        "Pressure"},
    CallCase {"Trimmed",         "average @ Inlet 2 ( Pressure )",        "average",  "Inlet 2", "Pressure"},
    CallCase {"SignsInLocator",  "average@Inlet-2 [a](Pressure)",         "average",  "Inlet-2 [a]", "Pressure"},
    CallCase {"NestedBrackets",  "average@Inlet(max(Pressure, (1 [Pa])))", "average", "Inlet",   "max(Pressure, (1 [Pa]))"},
    CallCase {"NestedCallback",  "average@Inlet(sum@Wall(Pressure))",     "average",  "Inlet",   "sum@Wall(Pressure)"},
    CallCase {"UnknownName",     "average@Inlet(Foo + 1 [m])",            "average",  "Inlet",   "Foo + 1 [m]"},
    CallCase {"NoExpression",    "average@Inlet(a b? 1 2)",               "average",  "Inlet",   "a b? 1 2"},
    CallCase {"ExpressionValue", "probe@Point 1(Expression Value)",       "probe",    "Point 1", "Expression Value"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(References, HaveTheirRangesAndKeepRepeats)
{
    // Given a named expression that refers to a variable
    QelWorld world;
    world.namedExpression("Ramp", "t / 1 [s]");

    const QelResult result = world.analyse("r * Ramp + r * average@Wall 1(x)", true);

    // Then each is listed at its place, and the variable of the named expression at that of its name
    std::vector<std::string> found;
    for (const QelReference& reference : result.references)
        found.push_back(std::to_string(static_cast<int>(reference.kind)) + ' ' + reference.name + ' ' +
                        std::to_string(reference.range.offset) + '+' +
                        std::to_string(reference.range.length));
    EXPECT_THAT(found, ElementsAre("0 r 0+1", "1 Ramp 4+4", "0 t 4+4", "0 r 11+1", "2 average 15+7",
                                   "3 Wall 1 23+6", "4 x 30+1"));
}

TEST(References, AreNotListedUnlessAskedFor)
{
    const QelWorld world;

    EXPECT_THAT(world.analyse("r + x").references, IsEmpty());
}

TEST(NamedExpression, CountsItsCallbacksOnce)
{
    QelWorld world;
    world.namedExpression("Mean", "average@Inlet(Pressure)");

    EXPECT_EQ(world.analyse("Mean + Mean").callbacks.size(), 1U);
}

TEST(NamedExpression, FirstSeenInAnArgumentStillCountsItsVariablesLater)
{
    QelWorld world;
    world.namedExpression("Twice", "2 * r");

    EXPECT_THAT(world.analyse("average@Inlet(Twice) * Twice").variables, ElementsAre("r"));
}

TEST(NamedExpression, IsReadAnewAfterAChange)
{
    QelWorld world;
    world.namedExpression("Size", "1 [m]");
    EXPECT_EQ(world.units.baseUnits(world.analyse("Size").dims), "m");

    world.namedExpression("Size", "1 [s]");

    EXPECT_EQ(world.units.baseUnits(world.analyse("Size").dims), "s");
}

}
}    // namespace qen::standalone::test
