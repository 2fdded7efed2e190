#include "DataError.h"
#include "DimExprChecker.h"
#include "UnitsError.h"

#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace qen {
namespace {

using support::ErrorSaying;
using support::IsAbout;
using support::records;
using support::ScriptedHost;
using support::thrownBy;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

/// A duct whose width is a length of at most 3 m. Defined are the coordinates and the function "f", which takes no
/// argument.
class CheckParamExpression : public testing::Test {
protected:
    CheckParamExpression()
    {
        for (const char* coordinate : {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
            m_host.varDefStore().addVariableDefinition(
                coordinate,
                {{"Tensor Type", "SCALAR"}, {"Field Variable", "True"}, {"Variable Scope", "GLOBAL"}});
        m_host.callbackStore().addCBDefinition("f", {{"Result Units", "[m]"},
                                                     {"Number of Arguments", "0"},
                                                     {"CallBack Type", "Scalar"},
                                                     {"Tensor Type", "SCALAR"},
                                                     {"Locator Dimension", "Point"}});
        m_host.locator("F", "P").hasDimension(LocatorDimension::Point);
        m_host.forgetCalls();
        m_host.parameter(k_duct, "Width")
            .hasQuantity("Length", "m")
            .hasUpperBound("3 [m]")
            .hasStoredValue("stored");
    }

    bool check(const std::string& p_value) { return m_checker.checkParam(k_duct, "Width", p_value); }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
};

constexpr const char* k_tooWide =
    "Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', 'stored', violates its upper bound, '3 [m]'.";

// A bad expression.

TEST_F(CheckParamExpression, ReportsABadExpressionWithTheEvaluatorsText)
{
    m_host.expression("2 [m] *").failsWith("Something is missing behind '*'.");

    EXPECT_FALSE(check("2 [m] *"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(AllOf(ErrorSaying("Bad expression value '2 [m] *' detected in parameter 'Width' in "
                                      "object '/FLOW:F/DOMAIN:Duct'.\nQEL error:\nSomething is missing "
                                      "behind '*'."),
                          IsAbout(k_duct, "Width"))));
}

TEST_F(CheckParamExpression, DoesNothingMoreAfterABadExpression)
{
    m_host.expression("(").failsWith("no end");

    check("(");

    EXPECT_THAT(m_host.calls(), ElementsAre("evaluator.getVariablesAndCallbacks((, Width)"));
}

TEST_F(CheckParamExpression, TakesEveryKindOfExpressionErrorForABadExpression)
{
    m_host.expression("x..y");
    m_host.onCall("evaluator.getVariablesAndCallbacks", [] {
        throw expressions::name("context", "context", "No name between the dots.", ErrorTypeError);
    });

    EXPECT_FALSE(check("x..y"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Bad expression value 'x..y' detected in parameter 'Width' in object "
                                        "'/FLOW:F/DOMAIN:Duct'.\nQEL error:\nNo name between the dots.")));
}

TEST_F(CheckParamExpression, FillsAPlaceholderInTheExpressionWithTheValuesThatFollow)
{
    m_host.expression("%2 %4").failsWith("bad");

    EXPECT_FALSE(check("%2 %4"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Bad expression value 'Width bad' detected in parameter "
                                        "'Width' in object '/FLOW:F/DOMAIN:Duct'.\nQEL error:\n"
                                        "bad")));
}

TEST_F(CheckParamExpression, LetsOtherExceptionsOfTheEvaluatorPass)
{
    m_host.expression("x");
    m_host.onCall("evaluator.getVariablesAndCallbacks",
                  [] { throw units::error("Units", "dims", "No units.", ErrorTypeError); });

    EXPECT_TRUE(thrownBy<units::error>([&] { check("x"); }));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParamExpression, DoesNotTakeALaterExpressionErrorForABadExpression)
{
    m_host.expression("x").references({"x"}).hasDimensions("m");
    m_host.onCall("rules.paramKind",
                  [] { throw expressions::error("Rules", "kind", "No kind.", ErrorTypeError); });

    EXPECT_FALSE(check("x"));

    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying("No kind.")));
}

// The order of the steps.

TEST_F(CheckParamExpression, AsksTheHostInTheOrderOfTheSteps)
{
    m_host.expression("1 [m] + 1 [m]").isConstant(2.0F, "m");

    EXPECT_TRUE(check("1 [m] + 1 [m]"));

    EXPECT_THAT(m_host.callsTo({"evaluator.get", "evaluator.eval", "rules.paramKind", "rules.isSingle",
                                "rules.lower", "rules.upper", "units.getBaseUnitName", "modifier."}),
                ElementsAre("evaluator.getVariablesAndCallbacks(1 [m] + 1 [m], Width)",
                            "rules.paramKind(/FLOW:F/DOMAIN:Duct, Width, model)", "units.getBaseUnitName(m)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Width)",
                            "rules.isSingleValued(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "evaluator.evalSingleValue(1 [m] + 1 [m], Width)",
                            "rules.lowerBound(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.upperBound(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(CheckParamExpression, ChecksUnitsBeforeWhatTheExpressionReferences)
{
    m_host.expression("x + f@P(y)").references({"x"}).calls({{"f", "P", "y"}}).hasDimensions("s");

    EXPECT_FALSE(check("x + f@P(y)"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying("Expression resolves to invalid units ('s') in value set for parameter "
                                "'Width' in object '/FLOW:F/DOMAIN:Duct'. Expected units: 'm'.")));
    EXPECT_THAT(m_host.callsTo({"rules.isSingleValued", "locators.", "names.", "rules.dependencies"}),
                IsEmpty());
}

TEST_F(CheckParamExpression, ChecksUnitsBeforeBounds)
{
    m_host.expression("5 [s] * 1").isConstant(5.0F, "s");

    EXPECT_FALSE(check("5 [s] * 1"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying("Expression resolves to invalid units ('s') in value set for parameter "
                                "'Width' in object '/FLOW:F/DOMAIN:Duct'. Expected units: 'm'.")));
    EXPECT_THAT(m_host.callsTo({"evaluator.evalSingleValue", "rules.lowerBound"}), IsEmpty());
}

TEST_F(CheckParamExpression, ComparesTheBaseUnitsOfTheResult)
{
    m_host.expression("x / 1 [min]").references({"x"}).hasDimensions("km min^-1");

    EXPECT_FALSE(check("x / 1 [min]"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying("Expression resolves to invalid units ('m s^-1') in value set for parameter "
                                "'Width' in object '/FLOW:F/DOMAIN:Duct'. Expected units: 'm'.")));
}

// Parameters of kind "Expression".

TEST_F(CheckParamExpression, DoesNotCheckUnitsOfTheKindExpression)
{
    m_host.parameter(k_duct, "Width").isKind("Expression");
    m_host.expression("x").hasDimensions("s").references({"x"});

    EXPECT_TRUE(check("x"));

    EXPECT_THAT(m_host.callsTo({"units.", "modifier."}), IsEmpty());
}

TEST_F(CheckParamExpression, ChecksUnitsOfEveryOtherKind)
{
    m_host.expression("x").hasDimensions("s").references({"x"});
    for (const char* kind :
         {"", "expression", "EXPRESSION", "Expression ", " Expression", "Expressions", "Real"})
    {
        m_host.parameter(k_duct, "Width").isKind(kind);
        EXPECT_FALSE(check("x")) << kind;
    }
}

TEST_F(CheckParamExpression, ChecksBoundsOfTheKindExpression)
{
    m_host.parameter(k_duct, "Width").isKind("Expression");
    m_host.expression("2 [m] * 2").isConstant(4.0F, "m");

    EXPECT_FALSE(check("2 [m] * 2"));

    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(k_tooWide)));
}

// Constants and bounds.

TEST_F(CheckParamExpression, RecordsAConstantBeyondItsBound)
{
    m_host.expression("2 [m] * 2").isConstant(4.0F, "m");

    EXPECT_FALSE(check("2 [m] * 2"));

    EXPECT_THAT(records(m_checker), ElementsAre(AllOf(ErrorSaying(k_tooWide), IsAbout(k_duct, "Width"))));
}

TEST_F(CheckParamExpression, PassesAConstantInsideItsBounds)
{
    m_host.expression("2 [m] * 1").isConstant(2.0F, "m");

    EXPECT_TRUE(check("2 [m] * 1"));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParamExpression, ConvertsBoundsIntoTheUnitsOfTheConstant)
{
    m_host.expression("1500 [mm] * 2").isConstant(3001.0F, "mm");

    EXPECT_FALSE(check("1500 [mm] * 2"));

    EXPECT_THAT(m_host.callsTo({"units.convertUnits(m, mm"}),
                ElementsAre("units.convertUnits(m, mm, 3, true)"));
    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(k_tooWide)));
}

TEST_F(CheckParamExpression, ChecksNoBoundsOfAnExpressionWithAVariable)
{
    m_host.expression("4 [m] + x").isConstant(4.0F, "m").references({"x"});

    EXPECT_TRUE(check("4 [m] + x"));

    EXPECT_THAT(m_host.callsTo({"evaluator.evalSingleValue", "rules.lowerBound", "rules.upperBound"}),
                IsEmpty());
}

TEST_F(CheckParamExpression, ChecksNoBoundsOfAnExpressionWithACallback)
{
    m_host.expression("4 [m] + f@P()").isConstant(4.0F, "m").calls({{"f", "P", ""}});

    EXPECT_TRUE(check("4 [m] + f@P()"));

    EXPECT_THAT(m_host.callsTo({"evaluator.evalSingleValue", "rules.lowerBound", "rules.upperBound"}),
                IsEmpty());
}

TEST_F(CheckParamExpression, PassesSilentlyWhenAConstantCannotBeEvaluated)
{
    m_host.expression("1 [m] / 0").hasDimensions("m").throwsOnEvaluation("Division by zero.");

    EXPECT_TRUE(check("1 [m] / 0"));

    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"evaluator.evalSingleValue"}), SizeIs(1));
    EXPECT_THAT(m_host.callsTo({"rules.lowerBound", "rules.upperBound"}), IsEmpty());
}

TEST_F(CheckParamExpression, PassesSilentlyWhenAConstantHasNoSingleValue)
{
    m_host.expression("(1 [m])").hasDimensions("m").hasNoSingleValue();

    EXPECT_TRUE(check("(1 [m])"));

    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"rules.lowerBound", "rules.upperBound"}), IsEmpty());
}

TEST_F(CheckParamExpression, LetsOtherExceptionsOfTheEvaluationPass)
{
    m_host.expression("(1 [m])").isConstant(1.0F, "m");
    m_host.onCall("evaluator.evalSingleValue", [] { throw std::out_of_range("beyond"); });

    EXPECT_TRUE(thrownBy<std::out_of_range>([&] { check("(1 [m])"); }));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParamExpression, RecordsAnExpressionErrorFromTheBoundsOfAConstant)
{
    m_host.expression("(1 [m])").isConstant(1.0F, "m");
    m_host.onCall("rules.lowerBound",
                  [] { throw expressions::error("Rules", "bound", "No bound.", ErrorTypeError); });

    EXPECT_FALSE(check("(1 [m])"));

    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying("No bound.")));
}

TEST_F(CheckParamExpression, LetsABoundThatIsNoNumberPassToTheHost)
{
    m_host.parameter(k_duct, "Width").hasUpperBound("wide");
    m_host.expression("(1 [m])").isConstant(1.0F, "m");

    const auto thrown = thrownBy<data::error>([&] { check("(1 [m])"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(),
              "The lower or upper bound value for parameter 'Width' has been specified with invalid units.");
    EXPECT_THAT(records(m_checker), IsEmpty());
}

// Dynamic quantities.

TEST_F(CheckParamExpression, SaysOfADynamicParameterThatTheExpressionHasWrongUnits)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg");
    m_host.expression("x").references({"x"}).hasDimensions("s");

    EXPECT_FALSE(m_checker.checkParam(k_duct, "Dye", "x"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying("Expression resolves to invalid units ('s') in value set for parameter "
                                "'Dye' in object '/FLOW:F/DOMAIN:Duct'. Expected units: 'kg'.")));
}

}    // namespace
}    // namespace qen
