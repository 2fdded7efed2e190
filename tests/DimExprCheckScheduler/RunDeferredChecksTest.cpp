#include "SchedulerFixture.h"

#include "DataError.h"

#include <stdexcept>
#include <string>

namespace qen {
namespace {

using support::ErrorSaying;
using support::IsAbout;
using support::thrownBy;
using support::WarningSaying;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RunDeferredChecks : public SchedulerTest {
protected:
    /// A length of at most 3 m, with a value, examined.
    void give(const std::string& p_objectPath, const std::string& p_paramName, const std::string& p_value)
    {
        m_host.parameter(p_objectPath, p_paramName)
            .hasQuantity("Length", "m")
            .hasUpperBound("3 [m]")
            .hasStoredValue(p_value);
        m_scheduler.checkParam(p_objectPath, p_paramName);
    }
};

TEST_F(RunDeferredChecks, RecordsOneProblemOfABadNumberAndKeepsIt)
{
    setWidth("4 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(),
                ElementsAre(AllOf(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '4 [m]', "
                                              "violates its upper bound, '3 [m]'."),
                                  IsAbout(k_duct, "Width"))));
    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
}

TEST_F(RunDeferredChecks, RecordsTheSameAgainInTheNextRun)
{
    setWidth("4 [m]");

    m_scheduler.runDeferredChecks();
    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), SizeIs(1));
}

TEST_F(RunDeferredChecks, ForgetsANumberThatHasBecomeGood)
{
    setWidth("4 [m]");
    m_host.parameter(k_duct, "Width").hasUpperBound("5 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), IsEmpty());
    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(RunDeferredChecks, ClearsEarlierRecordsEvenWithNothingKept)
{
    m_checker.checkParamNumeric(k_duct, "Width", 4.0F, "m", true);

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(RunDeferredChecks, ChecksTheKeptValueAndNotThatOfTheModel)
{
    setWidth("4 [m]");
    m_host.parameter(k_duct, "Width").hasStoredValue("1 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(),
                ElementsAre(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '1 [m]', "
                                        "violates its upper bound, '3 [m]'.")));
}

// Lists.

TEST_F(RunDeferredChecks, StopsAtTheFirstFailingNumberAndLeavesLaterFlags)
{
    setWidth("1 [m], 4 [m], 5 [m], 2 [m]");
    ASSERT_TRUE(keptWidth());
    ASSERT_THAT(flags(keptWidth()->numbers), ElementsAre(true, false, false, true));
    m_host.parameter(k_duct, "Width").hasUpperBound("0.5 [m]");
    m_host.forgetCalls();

    m_scheduler.runDeferredChecks();

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(false, false, false, true));
    EXPECT_THAT(m_host.callsTo({"modifier.quantityMode"}), SizeIs(1));
    EXPECT_THAT(records(), SizeIs(1));
}

TEST_F(RunDeferredChecks, SetsTheFlagsUpToTheFirstFailingNumber)
{
    setWidth("4 [m], 5 [m], 6 [m]");
    m_host.parameter(k_duct, "Width").hasUpperBound("4.5 [m]");

    m_scheduler.runDeferredChecks();

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true, false, false));
    EXPECT_THAT(records(), SizeIs(1));
}

TEST_F(RunDeferredChecks, ChecksTheExpressionsOfAListThoughANumberFails)
{
    m_host.expression("x").failsWith("No x.");
    m_host.expression("y").failsWith("No y.");
    setWidth("4 [m], x, 5 [m], y");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(
        records(),
        ElementsAre(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '4 [m], x, 5 [m], y', "
                                "violates its upper bound, '3 [m]'."),
                    ErrorSaying("Bad expression value 'x' detected in parameter 'Width' in object "
                                "'/FLOW:F/DOMAIN:Duct'.\nQEL error:\nNo x."),
                    ErrorSaying("Bad expression value 'y' detected in parameter 'Width' in object "
                                "'/FLOW:F/DOMAIN:Duct'.\nQEL error:\nNo y.")));
}

TEST_F(RunDeferredChecks, ChecksNumbersBeforeExpressionsInTheirOrder)
{
    m_host.varDefStore().addVariableDefinition("x",
                                               {{"Tensor Type", "SCALAR"}, {"Variable Scope", "GLOBAL"}});
    m_host.expression("x").hasDimensions("m").references({"x"});
    setWidth("x, 1 [m], 2 [mm]");
    m_host.forgetCalls();

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(m_host.callsTo({"units.dimsFromUnits", "evaluator.getVariablesAndCallbacks"}),
                ElementsAre("units.dimsFromUnits(m)", "units.dimsFromUnits(mm)",
                            "evaluator.getVariablesAndCallbacks(x, Width)", "units.dimsFromUnits(m)"));
}

// What stays kept.

TEST_F(RunDeferredChecks, KeepsAGoodExpression)
{
    m_host.expression("(1 [m])").isConstant(1.0F, "m");
    setWidth("(1 [m])");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), IsEmpty());
    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
}

TEST_F(RunDeferredChecks, KeepsAGoodNumberOfADynamicParameter)
{
    width().isDynamic("m");
    setWidth("1 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), IsEmpty());
    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true));
}

TEST_F(RunDeferredChecks, RecordsWrongUnitsOfADynamicParameter)
{
    width().isDynamic("s");
    setWidth("1 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(),
                ElementsAre(ErrorSaying("Invalid dynamic units ('m') set for parameter 'Width' in object "
                                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 's'.")));
}

TEST_F(RunDeferredChecks, KeepsADynamicValueThoughTheParameterIsNoLongerDynamic)
{
    width().isDynamic("m");
    setWidth("1 [m]");
    width().hasQuantityMode(0).isCalledDynamic(false);

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
}

TEST_F(RunDeferredChecks, KeepsNamedExpressionsAndNeverParsesThem)
{
    m_host.parameter(k_expressions, "Own").hasStoredValue("((, 1");
    m_scheduler.checkParam(k_expressions, "Own");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), IsEmpty());
    EXPECT_THAT(kept(), ElementsAre("/LIBRARY/QEL/EXPRESSIONS|Own"));
    EXPECT_THAT(m_host.callsTo({"evaluator."}), IsEmpty());
}

TEST_F(RunDeferredChecks, RecordsANameThatClashesOnceForEachItemOfANamedExpression)
{
    m_host.rulesGovern({"Own"});
    m_host.parameter(k_expressions, "Own").hasStoredValue("x, 7");
    m_scheduler.checkParam(k_expressions, "Own");

    m_scheduler.runDeferredChecks();

    const auto clash =
        AllOf(WarningSaying("The expression name 'Own' is a QVN Command Language parameter name. This may "
                            "cause difficulties when the case is run."),
              IsAbout(k_expressions, "Own"));
    EXPECT_THAT(records(), ElementsAre(clash, clash));
}

TEST_F(RunDeferredChecks, ChecksNamedExpressionsThatStandOutsideTheLibraryLikeOtherExpressions)
{
    m_host.rulesGovern({"Own"});
    m_host.expression("7").isConstant(7.0F, "");
    m_host.expression("((").failsWith("Not closed.");
    m_host.parameter("/FLOW:F/EXPRESSIONS", "Own").hasStoredValue("7, ((");
    m_scheduler.checkParam("/FLOW:F/EXPRESSIONS", "Own");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(),
                ElementsAre(ErrorSaying("Bad expression value '((' detected in parameter 'Own' in object "
                                        "'/FLOW:F/EXPRESSIONS'.\nQEL error:\nNot closed.")));
    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/EXPRESSIONS|Own"));
}

TEST_F(RunDeferredChecks, ForgetsAPlainValueWithoutAnyItem)
{
    m_scheduler.addDeferredParam(k_duct, "Width", ParamValue());

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

// The order of the run.

TEST_F(RunDeferredChecks, GoesByPathThenByName)
{
    give("/FLOW:F/DOMAIN:b", "A", "4 [m]");
    give("/FLOW:F/DOMAIN:a", "Z", "4 [m]");
    give("/FLOW:F/DOMAIN:a", "B", "4 [m]");
    m_host.forgetCalls();

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(records(), ElementsAre(IsAbout("/FLOW:F/DOMAIN:a", "B"), IsAbout("/FLOW:F/DOMAIN:a", "Z"),
                                       IsAbout("/FLOW:F/DOMAIN:b", "A")));
    EXPECT_THAT(m_host.callsTo({"model.objectExists", "modifier.quantityMode"}),
                ElementsAre("model.objectExists(/FLOW:F/DOMAIN:a)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:a, B)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:a, Z)",
                            "model.objectExists(/FLOW:F/DOMAIN:b)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:b, A)"));
}

TEST_F(RunDeferredChecks, ForgetsTheGoodAndKeepsTheBadOfOneObject)
{
    give(k_duct, "A", "4 [m]");
    give(k_duct, "B", "4 [m]");
    give(k_duct, "C", "4 [m]");
    m_host.parameter(k_duct, "A").hasUpperBound("5 [m]");
    m_host.parameter(k_duct, "C").hasUpperBound("5 [m]");

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|B"));
}

// Objects that are gone.

TEST_F(RunDeferredChecks, DropsAnObjectThatTheModelNoLongerHoldsWithoutAnyCheck)
{
    give("/FLOW:F/DOMAIN:a", "A", "4 [m]");
    give("/FLOW:F/DOMAIN:a", "B", "x");
    give("/FLOW:F/DOMAIN:b", "A", "4 [m]");
    m_host.removeObject("/FLOW:F/DOMAIN:a");
    m_host.forgetCalls();

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:b|A"));
    EXPECT_THAT(records(), ElementsAre(IsAbout("/FLOW:F/DOMAIN:b", "A")));
    EXPECT_THAT(m_host.callsTo({"modifier."}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:b, A)"));
}

TEST_F(RunDeferredChecks, DropsNeighbouringObjectsThatAreGone)
{
    for (const char* path : {"/A:a", "/A:b", "/A:c"})
    {
        give(path, "P", "4 [m]");
        m_host.removeObject(path);
    }

    m_scheduler.runDeferredChecks();

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"model.objectExists"}), SizeIs(3));
}

// The two steps on their own.

TEST_F(RunDeferredChecks, ChecksNumbersAloneAndStopsAtTheFirstThatFails)
{
    ParamValue value;
    m_scheduler.processValueString("1 [m], 4 [m], 2 [m]", value);
    value.numbers[2].ok = true;

    m_scheduler.runDeferredNumChecks(k_duct, "Width", value.numbers);

    EXPECT_THAT(flags(value.numbers), ElementsAre(true, false, true));
    EXPECT_THAT(records(), SizeIs(1));
    EXPECT_THAT(m_host.callsTo({"modifier.quantityMode"}), SizeIs(2));
}

TEST_F(RunDeferredChecks, ChecksAllExpressionsAloneAndClearsNoRecords)
{
    m_host.expression("x").failsWith("No x.");
    m_host.expression("y").failsWith("No y.");

    m_scheduler.runDeferredExprChecks(k_duct, "Width", {"x", "y", "x"});
    m_scheduler.runDeferredExprChecks(k_duct, "Width", {"y"});

    EXPECT_THAT(records(), SizeIs(4));
    EXPECT_THAT(kept(), IsEmpty());
}

// Exceptions.

TEST_F(RunDeferredChecks, LetsAnExceptionPassAndKeepsTheEntryAtHandAndThoseBehindIt)
{
    // Given one entry that has become good, one whose check throws, and one behind it
    give("/A:a", "P", "4 [m]");
    give("/A:b", "P", "4 [m]");
    give("/A:b", "Q", "4 [m], 5 [m]");
    give("/A:b", "R", "4 [m]");
    for (const char* good : {"P", "R"})
        m_host.parameter("/A:b", good).hasUpperBound("9 [m]");
    m_host.parameter("/A:a", "P").hasUpperBound("9 [m]");
    m_host.parameter("/A:b", "Q").hasUpperBound("wide");

    // When the run meets it
    const auto thrown = thrownBy<data::error>([&] { m_scheduler.runDeferredChecks(); });

    // Then what came before is done, and the rest is as it was
    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(),
              "The lower or upper bound value for parameter 'Q' has been specified with invalid units.");
    EXPECT_THAT(kept(), ElementsAre("/A:b|Q", "/A:b|R"));
    ASSERT_TRUE(support::keptValue(m_scheduler, "/A:b", "Q"));
    EXPECT_THAT(flags(support::keptValue(m_scheduler, "/A:b", "Q")->numbers), ElementsAre(false, false));
}

TEST_F(RunDeferredChecks, KeepsTheFlagOfANumberThatReturnedWhenALaterNumberThrows)
{
    setWidth("4 [m], 5 [m]");
    m_host.parameter(k_duct, "Width").hasUpperBound("9 [m]");
    int asked = 0;
    m_host.onCall("rules.lowerBound", [&] {
        if (++asked == 2)
            throw std::out_of_range("beyond");
    });

    EXPECT_TRUE(thrownBy<std::out_of_range>([&] { m_scheduler.runDeferredChecks(); }));

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true, false));
}

TEST_F(RunDeferredChecks, KeepsTheFlagsOfTheNumbersWhenAnExpressionThrows)
{
    m_host.expression("x").hasDimensions("m").references({"x"});
    setWidth("4 [m], x");
    m_host.parameter(k_duct, "Width").hasUpperBound("9 [m]");
    m_host.onCall("evaluator.", [] { throw std::out_of_range("beyond"); });

    EXPECT_TRUE(thrownBy<std::out_of_range>([&] { m_scheduler.runDeferredChecks(); }));

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true));
}

TEST_F(RunDeferredChecks, HaveANameOfTheirOwn)
{
    setWidth("4 [m]");
    const auto run = &DimExprCheckScheduler::runDeferredChecks;

    (m_scheduler.*run)();

    EXPECT_THAT(records(), SizeIs(1));
}

TEST_F(RunDeferredChecks, KeepsTheRecordsMadeBeforeAnException)
{
    give("/A:a", "P", "4 [m]");
    give("/A:b", "P", "4 [m]");
    m_host.parameter("/A:b", "P").hasUpperBound("wide");

    EXPECT_TRUE(thrownBy<data::error>([&] { m_scheduler.runDeferredChecks(); }));

    EXPECT_THAT(records(), ElementsAre(IsAbout("/A:a", "P")));
}

}    // namespace
}    // namespace qen
