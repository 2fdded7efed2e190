#include "SchedulerFixture.h"

#include "QCLUpdateHandler.h"

#include <stdexcept>
#include <string>

namespace qen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Handler>
concept CanBeNotified = requires(Handler& p_handler)
{
    p_handler.onObjectDeletion("");
};

/// The host reaches a scheduler through its base.
class Notifications : public SchedulerTest {
protected:
    QCLUpdateHandler& handler() { return m_scheduler; }

    void keep(const std::string& p_objectPath, const std::string& p_paramName)
    {
        ParamValue value;
        value.expressions = {"x"};
        m_host.object(p_objectPath);
        m_scheduler.addDeferredParam(p_objectPath, p_paramName, value);
    }
};

TEST_F(Notifications, AChangeWithTheFlagIsChecked)
{
    m_host.parameter(k_duct, "Width").hasStoredValue("4 [m]");

    handler().onParamChange(k_duct, "Width", "4 [m]", true);

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(Notifications, AChangeIsReadFromTheModel)
{
    m_host.parameter(k_duct, "Width").hasStoredValue("4 [m]");
    handler().onParamChange(k_duct, "Width", "1 [m]", true);
    ASSERT_TRUE(keptWidth());
    EXPECT_THAT(keptWidth()->numbers, ElementsAre(IsNumber(4.0F, "m")));

    m_host.parameter(k_duct, "Width").hasStoredValue("1 [m]");
    handler().onParamChange(k_duct, "Width", "4 [m]", true);
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(Notifications, AChangeWithoutTheFlagForgetsEvenABadValue)
{
    setWidth("4 [m]");
    m_host.forgetCalls();

    handler().onParamChange(k_duct, "Width", "4 [m]", false);

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(Notifications, AChangeWithoutTheFlagForgetsOnlyThatParameter)
{
    keep(k_duct, "Height");
    keep(k_duct, "Width");

    handler().onParamChange(k_duct, "Width", "", false);

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Height"));
}

TEST_F(Notifications, ADeletedParameterIsForgotten)
{
    keep(k_duct, "Height");
    keep(k_duct, "Width");

    handler().onParamDeletion(k_duct, "Width");

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Height"));
}

TEST_F(Notifications, ADeletedParameterLeavesItsObjectForTheNextRun)
{
    keep(k_duct, "Width");

    handler().onParamDeletion(k_duct, "Width");
    EXPECT_THAT(support::keptObjects(m_scheduler), ElementsAre(k_duct));
    EXPECT_THAT(kept(), IsEmpty());

    m_host.forgetCalls();
    m_scheduler.runDeferredChecks();
    EXPECT_THAT(m_host.calls(), ElementsAre("model.objectExists(/FLOW:F/DOMAIN:Duct)"));
    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(Notifications, ADeletedParameterThatIsNotKeptChangesNothing)
{
    handler().onParamDeletion(k_duct, "Width");
    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());

    keep(k_duct, "Width");
    handler().onParamDeletion(k_duct, "Height");
    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
}

TEST_F(Notifications, ADeletedObjectIsForgottenWithAllItsParameters)
{
    keep(k_duct, "Height");
    keep(k_duct, "Width");

    handler().onObjectDeletion(k_duct);

    EXPECT_THAT(support::keptObjects(m_scheduler), IsEmpty());
}

TEST_F(Notifications, ADeletedObjectIsExactlyThatPath)
{
    keep("/FLOW:F", "A");
    keep("/FLOW:F/DOMAIN:Duct", "A");
    keep("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "A");
    keep("/FLOW:F/DOMAIN:Duct2", "A");

    handler().onObjectDeletion(k_duct);
    handler().onObjectDeletion("/FLOW:G");

    EXPECT_THAT(kept(),
                ElementsAre("/FLOW:F|A", "/FLOW:F/DOMAIN:Duct/BOUNDARY:In|A", "/FLOW:F/DOMAIN:Duct2|A"));
}

TEST_F(Notifications, InternalChangesAndTheFramesOfChangesDoNothing)
{
    setWidth("4 [m]");
    m_host.forgetCalls();

    handler().onBeginObjectParamChanges(k_duct);
    handler().onInternalParamChange(k_duct, "Width", "1 [m]", false);
    handler().onInternalParamChange(k_duct, "Width", "1 [m]", true);
    handler().onInternalParamDeletion(k_duct, "Width");
    handler().onEndObjectParamChanges(k_duct);

    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Width"));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(Notifications, ArePrivateInTheScheduler)
{
    // A caller that has the scheduler itself uses checkParam and eraseDeferredParam.
    EXPECT_FALSE(CanBeNotified<DimExprCheckScheduler>);
    EXPECT_TRUE(CanBeNotified<QCLUpdateHandler>);
}

// Replaying.

TEST_F(Notifications, PendingChangesAreReplayedInOrder)
{
    m_host.parameter(k_duct, "Width").hasStoredValue("4 [m]");
    m_host.parameter(k_duct, "Height").hasQuantity("Length").hasStoredValue("x");
    m_host.pendingChange([](QCLUpdateHandler& h) { h.onParamChange(k_duct, "Width", "4 [m]", true); });
    m_host.pendingChange([](QCLUpdateHandler& h) { h.onParamChange(k_duct, "Height", "x", true); });
    m_host.pendingChange([](QCLUpdateHandler& h) { h.onParamDeletion(k_duct, "Width"); });

    m_scheduler.processChangedParameters();

    EXPECT_THAT(m_host.callsTo({"updateInfo."}), ElementsAre("updateInfo.replay()"));
    EXPECT_THAT(kept(), ElementsAre("/FLOW:F/DOMAIN:Duct|Height"));
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(Notifications, NothingIsReplayedWithoutAnUpdateRecord)
{
    DimExprCheckScheduler scheduler = m_host.makeSchedulerWithoutUpdateInfo(m_checker);

    scheduler.processChangedParameters();

    EXPECT_THAT(m_host.calls(), IsEmpty());
    EXPECT_THAT(support::keptObjects(scheduler), IsEmpty());
}

TEST_F(Notifications, ThrowWhatTheirCheckThrows)
{
    m_host.parameter(k_duct, "Width").hasStoredValue("4 [m]");
    m_host.onCall("modelRules.isValidPath", [] { throw std::out_of_range("beyond"); });
    m_host.pendingChange([](QCLUpdateHandler& h) { h.onParamChange(k_duct, "Width", "", true); });

    EXPECT_TRUE(support::thrownBy<std::out_of_range>([&] { m_scheduler.processChangedParameters(); }));
}

}    // namespace
}    // namespace qen
