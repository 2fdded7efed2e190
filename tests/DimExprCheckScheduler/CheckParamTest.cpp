#include "SchedulerFixture.h"

#include "DataError.h"

#include <stdexcept>
#include <string>

namespace qen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CheckParam : public SchedulerTest {};

// Plain numbers.

TEST_F(CheckParam, DoesNotKeepAGoodNumber)
{
    setWidth("2 [m]");

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(CheckParam, KeepsANumberBeyondItsBoundWithoutARecord)
{
    setWidth("4 [m]");

    EXPECT_THAT(records(), IsEmpty());
    ASSERT_TRUE(keptWidth());
    EXPECT_EQ(keptWidth()->mode, 0);
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(false));
    EXPECT_THAT(keptWidth()->expressions, IsEmpty());
}

TEST_F(CheckParam, KeepsANumberInWrongUnits)
{
    setWidth("2 [s]");

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
}

TEST_F(CheckParam, ForgetsWhatItKeptWhenTheNumberBecomesGood)
{
    setWidth("4 [m]");
    setWidth("2 [m]");

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(CheckParam, KeepsTheLatestValue)
{
    setWidth("4 [m]");
    setWidth("x");

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, IsEmpty());
    EXPECT_THAT(keptWidth()->expressions, ElementsAre("x"));
}

TEST_F(CheckParam, ChecksEveryNumberOfAListQuietly)
{
    setWidth("4 [m], 1 [m], 5 [m], 2 [m]");

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(false, true, false, true));
    EXPECT_THAT(m_host.callsTo({"modifier.quantityMode"}), SizeIs(4));
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(CheckParam, DoesNotKeepAListOfGoodNumbers)
{
    setWidth("1 [m], 2 [m], 20 [cm]");

    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(CheckParam, KeepsAListWhoseLastNumberIsBad)
{
    setWidth("1 [m], 4 [m]");

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true, false));
}

TEST_F(CheckParam, LeavesEarlierRecordsAlone)
{
    m_checker.checkParamNumeric(k_duct, "Width", 4.0F, "m", true);

    setWidth("5 [m]");
    setWidth("1 [m]");

    EXPECT_THAT(records(), SizeIs(1));
}

// Expressions.

TEST_F(CheckParam, KeepsAnExpressionUnchecked)
{
    setWidth("2 [m] * t");

    ASSERT_TRUE(keptWidth());
    EXPECT_EQ(keptWidth()->mode, 0);
    EXPECT_THAT(keptWidth()->expressions, ElementsAre("2 [m] * t"));
    EXPECT_THAT(m_host.callsTo({"evaluator."}), IsEmpty());
}

TEST_F(CheckParam, KeepsNumbersAndExpressionsOfAListApart)
{
    setWidth("1 [m], x, 2 [m]");

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(1.0F, "m"), IsNumber(2.0F, "m")));
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(true, true));
    EXPECT_THAT(keptWidth()->expressions, ElementsAre("x"));
}

// Nothing.

TEST_F(CheckParam, ForgetsAValueThatBecomesEmpty)
{
    setWidth("4 [m]");
    setWidth("");

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(CheckParam, ForgetsAnEmptyValueOfADynamicParameterToo)
{
    width().isDynamic("m");
    setWidth("4 [m]");
    setWidth("");

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

// Dynamic quantities.

TEST_F(CheckParam, KeepsAValueOfADynamicParameterUnchecked)
{
    width().isDynamic("m");

    setWidth("2 [m], x");

    ASSERT_TRUE(keptWidth());
    EXPECT_EQ(keptWidth()->mode, 1);
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(2.0F, "m")));
    EXPECT_THAT(flags(keptWidth()->numbers), ElementsAre(false));
    EXPECT_THAT(keptWidth()->expressions, ElementsAre("x"));
    EXPECT_THAT(m_host.callsTo({"units.", "rules.", "modifier.quantityMode"}), IsEmpty());
}

TEST_F(CheckParam, TakesAParameterForDynamicByTheModifiersFirstQuestionAndNotByItsMode)
{
    m_host.dynamicQuantity("Length", "m");
    width().hasQuantityMode(1);
    setWidth("2 [m]");
    EXPECT_THAT(kept(), IsEmpty());

    width().hasQuantityMode(0).isCalledDynamic();
    setWidth("2 [m]");
    ASSERT_TRUE(keptWidth());
    EXPECT_EQ(keptWidth()->mode, 1);
}

TEST_F(CheckParam, ForgetsADynamicParameterThatIsNoLongerDynamicAndClean)
{
    width().isDynamic("m");
    setWidth("2 [m]");
    width().hasQuantityMode(0).isCalledDynamic(false);

    setWidth("2 [m]");

    EXPECT_THAT(kept(), IsEmpty());
}

// Named expressions.

TEST_F(CheckParam, KeepsEveryItemOfANamedExpressionAsAnExpression)
{
    m_host.parameter(k_expressions, "Own").hasStoredValue("1 [m], x, 7");

    m_scheduler.checkParam(k_expressions, "Own");

    const ParamValue* const own = support::keptValue(m_scheduler, k_expressions, "Own");
    ASSERT_TRUE(own);
    EXPECT_EQ(own->mode, 2);
    EXPECT_THAT(own->numbers, IsEmpty());
    EXPECT_THAT(own->expressions, ElementsAre("1 [m]", "x", "7"));
}

TEST_F(CheckParam, AsksOnlyTheModelAboutANamedExpression)
{
    m_host.parameter(k_expressions, "Own").hasStoredValue("1 [m]").isText().isCalledDynamic();
    m_host.rulesDoNotKnowPath(k_expressions);
    m_host.rulesDoNotKnowParameter("Own");

    m_scheduler.checkParam(k_expressions, "Own");

    EXPECT_THAT(m_host.calls(), ElementsAre("model.paramValue(/LIBRARY/QEL/EXPRESSIONS, Own)"));
    ASSERT_TRUE(support::keptValue(m_scheduler, k_expressions, "Own"));
    EXPECT_EQ(support::keptValue(m_scheduler, k_expressions, "Own")->mode, 2);
}

TEST_F(CheckParam, TakesANamedExpressionByTheLastTypeOfItsPath)
{
    for (const char* path : {"/FLOW:F/EXPRESSIONS", "/EXPRESSIONS:Mine", "/FLOW:F/DOMAIN:Duct/EXPRESSIONS:b"})
    {
        m_host.parameter(path, "Own").hasStoredValue("1");
        m_scheduler.checkParam(path, "Own");
        ASSERT_TRUE(support::keptValue(m_scheduler, path, "Own")) << path;
        EXPECT_EQ(support::keptValue(m_scheduler, path, "Own")->mode, 2) << path;
    }
    for (const char* path :
         {"/LIBRARY/QEL/EXPRESSIONS/SUB:x", "/FLOW:EXPRESSIONS", "/FLOW:F/EXPRESSION", "/FLOW:F/expressions"})
    {
        m_host.parameter(path, "Own").hasStoredValue("1");
        m_scheduler.checkParam(path, "Own");
        EXPECT_FALSE(support::keptValue(m_scheduler, path, "Own")) << path;
    }
}

TEST_F(CheckParam, ForgetsANamedExpressionThatBecomesEmpty)
{
    m_host.parameter(k_expressions, "Own").hasStoredValue("x");
    m_scheduler.checkParam(k_expressions, "Own");
    m_host.parameter(k_expressions, "Own").hasStoredValue("");
    m_scheduler.checkParam(k_expressions, "Own");

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

// What is left alone.

TEST_F(CheckParam, LeavesAloneWhatTheRulesDoNotKnowAndForgetsNothing)
{
    setWidth("4 [m]");

    m_host.rulesDoNotKnowParameter("Width");
    setWidth("2 [m]");
    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));

    m_host.rulesDoNotKnowPath(k_duct);
    setWidth("2 [m]");
    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));
}

TEST_F(CheckParam, LeavesAloneWhatIsNotNumericAndForgetsNothing)
{
    setWidth("4 [m]");
    width().isText();

    setWidth("");

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));
}

TEST_F(CheckParam, AsksNothingMoreAboutAPathThatTheRulesDoNotKnow)
{
    m_host.rulesDoNotKnowPath(k_duct);

    setWidth("4 [m]");

    EXPECT_THAT(m_host.calls(), ElementsAre("modelRules.isValidPath(/FLOW:F/DOMAIN:Duct)"));
}

TEST_F(CheckParam, AsksNothingMoreAboutAParameterThatTheRulesDoNotKnow)
{
    m_host.rulesDoNotKnowParameter("Width");

    setWidth("4 [m]");

    EXPECT_THAT(m_host.calls(), ElementsAre("modelRules.isValidPath(/FLOW:F/DOMAIN:Duct)",
                                            "modelRules.isValidParamName(Width)"));
}

TEST_F(CheckParam, AsksTheHostInTheOrderOfTheSteps)
{
    setWidth("2 [m]");

    EXPECT_THAT(m_host.callsTo({"modelRules.", "param.", "model.", "modifier.", "rules."}),
                ElementsAre("modelRules.isValidPath(/FLOW:F/DOMAIN:Duct)",
                            "modelRules.isValidParamName(Width)", "modelRules.getParamType(DOMAIN, Width)",
                            "param.isNumericType()", "model.paramValue(/FLOW:F/DOMAIN:Duct, Width)",
                            "modifier.isDynamicQuantity(/FLOW:F/DOMAIN:Duct, Width)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Width)",
                            "rules.lowerBound(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.upperBound(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(CheckParam, StopsAtAParameterThatIsNotNumericBeforeReadingIt)
{
    width().isText();

    setWidth("4 [m]");

    EXPECT_THAT(m_host.callsTo({"model.", "modifier."}), IsEmpty());
    EXPECT_THAT(kept(), IsEmpty());
}

// Exceptions.

TEST_F(CheckParam, LetsAnExceptionPassAndKeepsWhatItKept)
{
    setWidth("4 [m]");
    width().hasUpperBound("wide");

    EXPECT_TRUE(support::thrownBy<data::error>([&] { setWidth("1 [m]"); }));

    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));
}

TEST_F(CheckParam, KeepsNothingNewWhenAnExceptionPasses)
{
    width().hasUpperBound("wide");

    EXPECT_TRUE(support::thrownBy<data::error>([&] { setWidth("4 [m]"); }));

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

}    // namespace
}    // namespace qen
