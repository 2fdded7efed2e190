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
constexpr const char* k_wrongSpeed = "Invalid units ('m') set for parameter 'Speed' in object "
                                     "'/FLOW:F/DOMAIN:Duct'. Expected units: 'm s^-1'.";

/// A duct whose speed is a velocity without bounds.
class CheckParam : public testing::Test {
protected:
    CheckParam() { m_host.parameter(k_duct, "Speed").hasQuantity("Velocity", "m s^-1"); }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
};

// Numbers and expressions.

TEST_F(CheckParam, PassesANumberOfTheRightDimension)
{
    EXPECT_TRUE(m_checker.checkParam(k_duct, "Speed", "2 [m s^-1]"));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParam, RecordsOneErrorWhenUnitsHaveTheWrongDimension)
{
    EXPECT_FALSE(m_checker.checkParam(k_duct, "Speed", "2 [m]"));

    EXPECT_THAT(records(m_checker), ElementsAre(AllOf(ErrorSaying(k_wrongSpeed), IsAbout(k_duct, "Speed"))));
}

TEST_F(CheckParam, TakesANumberAndItsUnitsForANumber)
{
    m_checker.checkParam(k_duct, "Speed", "2 [m s^-1]");

    EXPECT_THAT(m_host.callsTo({"evaluator."}), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"units.convertUnits"}),
                ElementsAre("units.convertUnits(m s^-1, m s^-1, 0, true)"));
}

TEST_F(CheckParam, TakesANumberWithoutUnitsForADimensionlessNumber)
{
    EXPECT_FALSE(m_checker.checkParam(k_duct, "Speed", "2"));

    EXPECT_THAT(m_host.callsTo({"evaluator."}), IsEmpty());
    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Invalid units ('dimensionless') set for parameter 'Speed' in object "
                                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'm s^-1'.")));
}

TEST_F(CheckParam, TakesAnyOtherTextForAnExpression)
{
    m_host.parameter(k_duct, "Speed").isKind("Expression");
    for (const char* value : {"2 [m s^-1] + 1 [m s^-1]", "two", "", "-", "1 2"})
    {
        m_host.expression(value);
        m_host.forgetCalls();

        EXPECT_TRUE(m_checker.checkParam(k_duct, "Speed", value)) << value;

        EXPECT_THAT(m_host.callsTo({"evaluator.getVariablesAndCallbacks"}),
                    ElementsAre("evaluator.getVariablesAndCallbacks(" + std::string(value) + ", Speed)"));
    }
}

TEST_F(CheckParam, ANumberGivenAsAnExpressionIsStillEvaluated)
{
    m_host.expression("2 [m s^-1]").isConstant(2.0F, "m s^-1");

    EXPECT_TRUE(m_checker.checkParamExpression(k_duct, "Speed", "2 [m s^-1]"));

    EXPECT_THAT(m_host.callsTo({"evaluator."}),
                ElementsAre("evaluator.getVariablesAndCallbacks(2 [m s^-1], Speed)",
                            "evaluator.evalSingleValue(2 [m s^-1], Speed)"));
}

// Records.

TEST_F(CheckParam, RecordsShowObjectAndParameterAsTheyWereGiven)
{
    m_host.parameter("FLOW:F//DOMAIN: Duct /", " Speed ").hasQuantity("Velocity");

    EXPECT_FALSE(m_checker.checkParam("FLOW:F//DOMAIN: Duct /", " Speed ", "2 [m]"));

    EXPECT_THAT(records(m_checker), ElementsAre(IsAbout("FLOW:F//DOMAIN: Duct /", " Speed ")));
}

TEST_F(CheckParam, RecordsAccumulateUntilTheyAreCleared)
{
    m_checker.checkParam(k_duct, "Speed", "2 [m]");
    m_checker.checkParam(k_duct, "Speed", "2 [m s^-1]");
    m_checker.checkParam(k_duct, "Speed", "2 [m]");
    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(k_wrongSpeed), ErrorSaying(k_wrongSpeed)));

    m_checker.clearErrors();
    EXPECT_TRUE(m_checker.beginExprError() == m_checker.endExprError());
}

TEST_F(CheckParam, RecordsStandInTheOrderOfTheChecks)
{
    m_host.parameter(k_duct, "Width").hasQuantity("Length", "m");

    m_checker.checkParam(k_duct, "Width", "1 [s]");
    m_checker.checkParam(k_duct, "Speed", "1 [s]");

    EXPECT_THAT(records(m_checker), ElementsAre(IsAbout(k_duct, "Width"), IsAbout(k_duct, "Speed")));
}

TEST_F(CheckParam, RecordsAreReadThroughTheInterface)
{
    m_checker.checkParam(k_duct, "Speed", "2 [m]");
    const ExpressionErrors& errors = m_checker;

    EXPECT_THAT(records(errors), ElementsAre(ErrorSaying(k_wrongSpeed)));
}

TEST_F(CheckParam, OnlyTheFirstProblemOfAParameterIsRecorded)
{
    m_host.parameter(k_duct, "Speed").hasUpperBound("1 [m]").hasStoredValue("2 [m]");

    m_checker.checkParam(k_duct, "Speed", "2 [m]");

    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(k_wrongSpeed)));
}

// Named expressions.

TEST_F(CheckParam, NeverParsesANamedExpression)
{
    EXPECT_TRUE(m_checker.checkParamExpression("/LIBRARY/QEL/EXPRESSIONS", "Own Name", "((("));

    EXPECT_THAT(m_host.callsTo({"evaluator.", "units.", "modifier.", "locators."}), IsEmpty());
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParam, ChecksANumberInTheExpressionLibraryAsANumber)
{
    m_host.parameter("/LIBRARY/QEL/EXPRESSIONS", "Own Name").hasQuantity("Velocity");

    EXPECT_FALSE(m_checker.checkParam("/LIBRARY/QEL/EXPRESSIONS", "Own Name", "1 [m]"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Invalid units ('m') set for parameter 'Own Name' in object "
                                        "'/LIBRARY/QEL/EXPRESSIONS'. Expected units: 'm s^-1'.")));
}

TEST_F(CheckParam, TakesOnlyTheExactPathForTheExpressionLibrary)
{
    m_host.expression("(((").failsWith("no end");

    for (const char* path : {"/LIBRARY/QEL/EXPRESSIONS/SUB:x", "/LIBRARY/QEL/EXPRESSIONS ",
                             "/LIBRARY/QEL/EXPRESSIONS/", "/LIBRARY/QEL/EXPRESSIONS:x", "/LIBRARY/QEL",
                             " /LIBRARY/QEL/EXPRESSIONS", "/library/qel/expressions", "/FLOW:F/EXPRESSIONS"})
    {
        m_checker.clearErrors();
        EXPECT_FALSE(m_checker.checkParamExpression(path, "Own Name", "(((")) << path;
        EXPECT_THAT(
            records(m_checker),
            ElementsAre(AllOf(ErrorSaying("Bad expression value '(((' detected in parameter 'Own Name' in "
                                          "object '" +
                                          std::string(path) + "'.\nQEL error:\nno end"),
                              IsAbout(path, "Own Name"))));
    }
}

// What the host throws.

TEST_F(CheckParam, LetsExceptionsOfOtherFamiliesPassWithoutARecord)
{
    m_host.onCall("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Data)",
                  [] { throw data::notFound("Store", "variableIndex", "Not there.", ErrorTypeError); });
    m_host.onCall("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Units)",
                  [] { throw units::error("Units", "dims", "No units.", ErrorTypeError); });
    m_host.onCall("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Range)",
                  [] { throw std::out_of_range("beyond"); });
    m_host.expression("a");

    for (const char* value : {"1 [m]", "a"})
    {
        const auto data = thrownBy<data::notFound>([&] { m_checker.checkParam(k_duct, "Data", value); });
        ASSERT_TRUE(data);
        EXPECT_EQ(data->getMessage(), "Not there.");
        EXPECT_TRUE(thrownBy<units::error>([&] { m_checker.checkParam(k_duct, "Units", value); }));
        EXPECT_TRUE(thrownBy<std::out_of_range>([&] { m_checker.checkParam(k_duct, "Range", value); }));
    }
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckParam, TurnsAnExpressionErrorOfTheHostIntoARecord)
{
    m_host.onCall("modifier.quantityMode",
                  [] { throw expressions::name("Names", "Names", "A bad name.", ErrorTypeError); });

    EXPECT_FALSE(m_checker.checkParam(k_duct, "Speed", "1 [m s^-1]"));
    EXPECT_FALSE(m_checker.checkParamNumeric(k_duct, "Speed", 1.0F, "m s^-1", false));

    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying("A bad name.")));
}

// Copies.

TEST_F(CheckParam, CopiesCarryRecordsOfTheirOwn)
{
    m_checker.checkParam(k_duct, "Speed", "2 [m]");

    DimExprChecker copy(m_checker);
    m_checker.clearErrors();
    EXPECT_THAT(records(copy), SizeIs(1));

    DimExprChecker assigned = m_host.makeChecker();
    assigned = copy;
    copy.clearErrors();
    EXPECT_THAT(records(assigned), ElementsAre(ErrorSaying(k_wrongSpeed)));
}

TEST_F(CheckParam, CopiesAskTheSameHost)
{
    const DimExprChecker original = m_host.makeChecker();
    DimExprChecker copy(original);

    EXPECT_FALSE(copy.checkParam(k_duct, "Speed", "2 [m]"));
    m_host.expression("1 [m]*x").hasDimensions("m").references({"x"});
    EXPECT_FALSE(copy.checkParam(k_duct, "Speed", "1 [m]*x"));

    EXPECT_THAT(records(copy), SizeIs(2));
}

// Dynamic quantities.

TEST_F(CheckParam, TellsWhichQuantitiesAreDynamic)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg");
    m_host.forgetCalls();

    EXPECT_TRUE(m_checker.isDynamicQuantityParam(k_duct, "Dye"));
    EXPECT_FALSE(m_checker.isDynamicQuantityParam(k_duct, "Speed"));

    EXPECT_THAT(m_host.calls(), ElementsAre("modifier.isDynamicQuantity(/FLOW:F/DOMAIN:Duct, Dye)",
                                            "modifier.isDynamicQuantity(/FLOW:F/DOMAIN:Duct, Speed)"));
}

}    // namespace
}    // namespace qen
