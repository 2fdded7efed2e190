#include "SchedulerFixture.h"

#include "QCLUpdateHandler.h"

#include <string>

namespace qen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeptValues : public SchedulerTest {
protected:
    static ParamValue value(const std::string& p_expression)
    {
        ParamValue result;
        result.expressions = {p_expression};
        return result;
    }

    static NumericValue number(bool p_ok)
    {
        NumericValue result;
        result.ok = p_ok;
        return result;
    }
};

// Splitting.

TEST_F(KeptValues, AreSplitAtCommasInOrder)
{
    ParamValue result;

    m_scheduler.processValueString("1 [m], x, 2,y * 3 [s]", result);

    EXPECT_THAT(result.numbers, ElementsAre(IsNumber(1.0F, "m"), IsNumber(2.0F, "")));
    EXPECT_THAT(flags(result.numbers), ElementsAre(false, false));
    EXPECT_THAT(result.expressions, ElementsAre("x", "y * 3 [s]"));
    EXPECT_EQ(result.mode, 0);
}

TEST_F(KeptValues, HaveNoItemsWhenTheTextIsEmpty)
{
    ParamValue result;

    m_scheduler.processValueString("", result);

    EXPECT_THAT(result.numbers, IsEmpty());
    EXPECT_THAT(result.expressions, IsEmpty());
}

TEST_F(KeptValues, AreAppendedToWhatIsThere)
{
    ParamValue result = value("x");

    m_scheduler.processValueString("1, y", result);

    EXPECT_THAT(result.numbers, ElementsAre(IsNumber(1.0F, "")));
    EXPECT_THAT(result.expressions, ElementsAre("x", "y"));
}

TEST_F(KeptValues, HoldNumbersInEveryModeButThatOfNamedExpressions)
{
    for (const int mode : {0, 1})
    {
        ParamValue result;
        result.mode = mode;
        m_scheduler.processValueString("1 [m], x", result);
        EXPECT_THAT(result.numbers, ElementsAre(IsNumber(1.0F, "m"))) << mode;
        EXPECT_THAT(result.expressions, ElementsAre("x")) << mode;
    }
    ParamValue named;
    named.mode = 2;
    m_scheduler.processValueString("1 [m], x", named);
    EXPECT_THAT(named.numbers, IsEmpty());
    EXPECT_THAT(named.expressions, ElementsAre("1 [m]", "x"));
}

// Keeping.

TEST_F(KeptValues, AreCopiesInPlaceOfEarlierOnes)
{
    ParamValue first = value("x");
    m_scheduler.addDeferredParam("/A:a", "P", first);
    first.expressions = {"changed"};
    ASSERT_TRUE(support::keptValue(m_scheduler, "/A:a", "P"));
    EXPECT_THAT(support::keptValue(m_scheduler, "/A:a", "P")->expressions, ElementsAre("x"));

    m_scheduler.addDeferredParam("/A:a", "P", value("y"));
    ASSERT_TRUE(support::keptValue(m_scheduler, "/A:a", "P"));
    EXPECT_THAT(support::keptValue(m_scheduler, "/A:a", "P")->expressions, ElementsAre("y"));
    EXPECT_THAT(kept(), ElementsAre("/A:a|P"));
}

TEST_F(KeptValues, StandByObjectAndParameter)
{
    m_scheduler.addDeferredParam("/B:b", "Q", value("x"));
    m_scheduler.addDeferredParam("/B:b", "P", value("x"));
    m_scheduler.addDeferredParam("/A:a", "Q", value("x"));

    EXPECT_THAT(kept(), ElementsAre("/A:a|Q", "/B:b|P", "/B:b|Q"));
}

TEST_F(KeptValues, AreErasedAndTheirObjectWithTheLast)
{
    m_scheduler.addDeferredParam("/A:a", "P", value("x"));
    m_scheduler.addDeferredParam("/A:a", "Q", value("x"));

    m_scheduler.eraseDeferredParam("/A:a", "P");
    EXPECT_THAT(kept(), ElementsAre("/A:a|Q"));

    m_scheduler.eraseDeferredParam("/A:a", "Q");
    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(KeptValues, AreNotMadeByErasing)
{
    m_scheduler.eraseDeferredParam("/A:a", "P");
    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());

    m_scheduler.addDeferredParam("/A:a", "P", value("x"));
    m_scheduler.eraseDeferredParam("/A:a", "Q");
    m_scheduler.eraseDeferredParam("/B:b", "P");
    EXPECT_THAT(support::keptObjects(m_scheduler), ElementsAre("/A:a"));
    EXPECT_THAT(kept(), ElementsAre("/A:a|P"));
}

TEST_F(KeptValues, AreErasedOnlyWithTheirObjectWhenTheyWereThere)
{
    // Given an object that a deletion has left without parameters
    m_scheduler.addDeferredParam("/A:a", "P", value("x"));
    static_cast<QCLUpdateHandler&>(m_scheduler).onParamDeletion("/A:a", "P");

    m_scheduler.eraseDeferredParam("/A:a", "P");

    EXPECT_THAT(support::keptObjects(m_scheduler), ElementsAre("/A:a"));
}

// Judging.

TEST_F(KeptValues, AreAllRightWhenEveryNumberIs)
{
    EXPECT_TRUE(m_scheduler.areAllOK({}));
    EXPECT_TRUE(m_scheduler.areAllOK({number(true), number(true)}));
    EXPECT_FALSE(m_scheduler.areAllOK({number(true), number(false)}));
    EXPECT_FALSE(m_scheduler.areAllOK({number(false), number(true)}));
}

TEST_F(KeptValues, CanGoWhenPlainWithoutExpressionsAndAllRight)
{
    ParamValue clean;
    EXPECT_TRUE(m_scheduler.canRemoveDeferredParam(clean));
    clean.numbers = {number(true)};
    EXPECT_TRUE(m_scheduler.canRemoveDeferredParam(clean));

    ParamValue bad = clean;
    bad.numbers.push_back(number(false));
    EXPECT_FALSE(m_scheduler.canRemoveDeferredParam(bad));
    EXPECT_FALSE(m_scheduler.canRemoveDeferredParam(value("x")));
    for (const int mode : {1, 2})
    {
        ParamValue other = clean;
        other.mode = mode;
        EXPECT_FALSE(m_scheduler.canRemoveDeferredParam(other)) << mode;
    }
}

TEST_F(KeptValues, AreCopiedWithTheirScheduler)
{
    m_scheduler.addDeferredParam("/A:a", "P", value("x"));

    DimExprCheckScheduler copy(m_scheduler);
    m_scheduler.eraseDeferredParam("/A:a", "P");

    EXPECT_THAT(support::keptParams(copy), ElementsAre("/A:a|P"));
}

TEST_F(KeptValues, AreThoseOfTheOtherSchedulerAfterAnAssignment)
{
    DimExprCheckScheduler other(m_scheduler);
    other.addDeferredParam("/A:a", "P", value("x"));
    m_scheduler.addDeferredParam("/B:b", "Q", value("y"));

    m_scheduler = other;
    other.eraseDeferredParam("/A:a", "P");

    EXPECT_THAT(support::keptParams(m_scheduler), ElementsAre("/A:a|P"));
}

}    // namespace
}    // namespace qen
