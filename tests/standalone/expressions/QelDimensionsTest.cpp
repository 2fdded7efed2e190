#include "QelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen::standalone::test {
namespace {

constexpr const char* k_pointP = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P";
constexpr const char* k_pointQ = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Q";
constexpr const char* k_pointPOfG = "/FLOW:G/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P";

struct DimsCase {
    const char* name;
    const char* text;
    const char* units;
};

void PrintTo(const DimsCase& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

class ResultDimensions : public ::testing::TestWithParam<DimsCase> {
protected:
    ResultDimensions()
    {
        world.additionalVariable("Dye", "kg m^-3");
        world.namedExpression("Mean Pressure", "average@Inlet(Pressure)");
        world.model.setParameter(k_pointP, "Expression Value", "Pressure / Density");
        world.model.setParameter(k_pointQ, "Option", "Cartesian Coordinates");
    }

    QelWorld world;
};

TEST_P(ResultDimensions, AreThoseOfWhatItRefersTo)
{
    const QelResult result = world.analyse(GetParam().text);

    ASSERT_FALSE(result.error) << result.error->message;
    EXPECT_EQ(world.units.baseUnits(result.dims), GetParam().units);
    EXPECT_FALSE(result.constantValue);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Operators, ResultDimensions, ::testing::Values(
    DimsCase {"Multiply",              "Pressure.Gradient{x}",              "kg m^-2 s^-2"},
    DimsCase {"ByTheirLongNames",      "Pressure.grad{x}",                  "kg m^-2 s^-2"},
    DimsCase {"ByTheirComponents",     "Pressure.gx",                       "kg m^-2 s^-2"},
    DimsCase {"BehindPrefixes",        "Water.Oil.Velocity{x}.Rate",        "m s^-2"},
    DimsCase {"WithoutAModifier",      "Pressure.Mean",                     "kg m^-1 s^-2"},
    DimsCase {"OnAdditionalVariables", "Dye.Rate",                          "kg m^-3 s^-1"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(UnknownOperators, ResultDimensions, ::testing::Values(
    DimsCase {"LeaveThoseOfTheVariable", "Pressure.Foo",                    "kg m^-1 s^-2"},
    DimsCase {"AreNoReasonForErrors",    "1 [m] + sin(Pressure.Foo) * 1 [s]", "m"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(CallbackFunctions, ResultDimensions, ::testing::Values(
    DimsCase {"WithoutUnitsKeepThoseOfTheArgument", "average@Inlet(Pressure)",          "kg m^-1 s^-2"},
    DimsCase {"MultiplyThoseOfTheArgument",         "areaIntegral@Inlet(Pressure)",     "kg m s^-2"},
    DimsCase {"WithoutAnArgument",                  "area@Inlet()",                     "m^2"},
    DimsCase {"WithAnAxis",                         "force{x}@Wall()",                  "kg m s^-2"},
    DimsCase {"OfAnExpression",                     "average@Inlet(Pressure / Density)", "m^2 s^-2"},
    DimsCase {"OfAnOperator",                       "average@Inlet(Pressure.Gradient{y})", "kg m^-2 s^-2"},
    DimsCase {"OfAnUnknownName",                    "area@Inlet(Foo)",                  "m^2"},
    DimsCase {"OfAnUnknownNameAmongOthers",         "area@Inlet(Foo * Pressure)",       "kg m s^-2"},
    DimsCase {"OfWhatIsNoExpression",               "area@Inlet(Pressure +)",           "m^2"},
    DimsCase {"OfAnUnknownFunction",                "area@Inlet(mean@Wall(Pressure))",  "m^2"},
    DimsCase {"InANamedExpression",                 "Mean Pressure",                    "kg m^-1 s^-2"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(ExpressionValue, ResultDimensions, ::testing::Values(
    DimsCase {"IsThatOfTheMonitorPoint",        "probe@P(Expression Value)",      "m^2 s^-2"},
    DimsCase {"WithAnOperator",                 "probe@P(Expression Value.Rate)", "m^2 s^-3"},
    DimsCase {"OfAMonitorPointWithoutOne",      "probe@Q(Expression Value)",      ""},
    DimsCase {"OfNoMonitorPoint",               "probe@R(Expression Value)",      ""},
    DimsCase {"WithoutALocator",                "probe(Expression Value)",        ""}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(ExpressionValue, OfMonitorPointsThatReferToOneAnotherIsFollowed)
{
    QelWorld world;
    world.model.setParameter(k_pointP, "Expression Value", "probe@Q(Expression Value) * 1 [s]");
    world.model.setParameter(k_pointQ, "Expression Value", "r");

    EXPECT_EQ(world.units.baseUnits(world.analyse("probe@P(Expression Value)").dims), "m s");
}

TEST(ExpressionValue, ThatLeadsBackToItselfIsAnErrorThatShowsTheChain)
{
    QelWorld world;
    world.model.setParameter(k_pointP, "Expression Value", "probe@Q(Expression Value)");
    world.model.setParameter(k_pointQ, "Expression Value", "probe@P(Expression Value)");

    EXPECT_EQ(world.errorOf("probe@P(Expression Value)"),
              "In the expression of the monitor point 'Q', column 9: the expressions of monitor points form "
              "a cycle: "
              "'P -> Q -> P'; expected an expression that does not refer to itself.");
}

TEST(ExpressionValue, OfTheSameMonitorPointInSeveralFlowsMustAgree)
{
    QelWorld world;
    world.model.setParameter(k_pointP, "Expression Value", "r");
    world.model.setParameter(k_pointPOfG, "Expression Value", "2 * x");
    EXPECT_EQ(world.units.baseUnits(world.analyse("probe@P(Expression Value)").dims), "m");

    world.model.setParameter(k_pointPOfG, "Expression Value", "t");

    EXPECT_EQ(world.errorOf("probe@P(Expression Value)"),
              "Column 9: the monitor points 'P' of different flows have the dimensions 'm' and 's'; expected "
              "equal ones.");
}

TEST(ExpressionValue, WhoseExpressionIsBadCountsAsDimensionless)
{
    QelWorld world;
    world.model.setParameter(k_pointP, "Expression Value", "r +");

    const QelResult result = world.analyse("area@P(Expression Value)");

    ASSERT_FALSE(result.error) << result.error->message;
    EXPECT_EQ(world.units.baseUnits(result.dims), "m^2");
}

}
}    // namespace qen::standalone::test
