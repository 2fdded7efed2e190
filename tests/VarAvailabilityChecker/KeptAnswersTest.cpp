#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"

#include "host/SlotCalls.h"
#include "support/AllocationCount.h"
#include "support/AvailabilityPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Peer = VarAvailabilityCheckerPeer;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";
constexpr const char* k_pipe = "/FLOW:F/DOMAIN:Pipe";

class KeptAnswers : public testing::Test {
protected:
    KeptAnswers() { m_host.forgetCalls(); }

    bool holds(const std::string& p_keyword, const std::string& p_objectPath = k_duct) const
    {
        return Peer::doCheck(m_checker, p_keyword, p_objectPath);
    }

    ScriptedHost m_host;
    VarAvailabilityChecker m_checker = m_host.makeAvailabilityChecker();
};

TEST_F(KeptAnswers, AreGivenAgainWithoutAsking)
{
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_TRUE(holds("RFR"));
    EXPECT_FALSE(holds("TRANSIENT"));
    m_host.forgetCalls();

    EXPECT_TRUE(holds("RFR"));
    EXPECT_FALSE(holds("TRANSIENT"));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(KeptAnswers, AreGivenAgainWhateverThePhysicsSaysMeanwhile)
{
    EXPECT_FALSE(holds("RFR"));

    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_FALSE(holds("RFR"));
}

TEST_F(KeptAnswers, BelongToAPlace)
{
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_TRUE(holds("RFR", k_duct));
    EXPECT_FALSE(holds("RFR", k_pipe));
    EXPECT_TRUE(holds("RFR", k_duct));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)",
                                            "physics.evalBool(isRFR, /FLOW:F/DOMAIN:Pipe)"));
}

TEST_F(KeptAnswers, BelongToAKeywordEvenWhenTwoAskTheSame)
{
    holds("MASFRC");
    m_host.forgetCalls();

    holds("MULTICOMPONENT");

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(anyComponentsForDomain, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(KeptAnswers, AreSharedByAKeywordAndItsNegation)
{
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_FALSE(holds("!RFR"));
    EXPECT_TRUE(holds("RFR"));
    EXPECT_TRUE(holds("!!RFR"));
    EXPECT_FALSE(holds("!RFR"));
    EXPECT_TRUE(holds("!TRANSIENT"));
    EXPECT_FALSE(holds("TRANSIENT"));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)",
                                            "physics.evalBool(isSimTypetransient, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(KeptAnswers, DifferForPlacesThatDifferByWhatFollowsAnAtSign)
{
    m_host.query("isRFR", "/FLOW:a@RFR").isTrue();

    EXPECT_TRUE(holds("RFR", "/FLOW:a@RFR"));
    EXPECT_FALSE(holds("RFR", "/FLOW:a"));
    EXPECT_FALSE(holds("RFR", "/FLOW:a@"));
}

TEST_F(KeptAnswers, OfAllKeywordsAtManyPlacesStayApart)
{
    // Given each keyword with one query true at every other place, where the query is its own
    const std::vector<std::string> bulk {"CEM", "RFR", "TRANSIENT", "TURBULENT", "CAVITATION"};
    const std::vector<std::string> query {"isDomEM active", "isRFR", "isSimTypetransient",
                                          "isDomTurbMTurbForQEL", "anyFPcavmodel fordomain"};
    const auto place = [](std::size_t p_number) { return "/FLOW:F/DOMAIN:D" + std::to_string(p_number); };
    for (std::size_t i = 0; i < 200; ++i)
        for (std::size_t k = 0; k < bulk.size(); ++k)
            if ((i + k) % 2 == 0)
                m_host.query(query[k], place(i)).isTrue();

    // When all is asked twice, the second answers are kept ones
    for (int round = 0; round < 2; ++round)
    {
        for (std::size_t i = 0; i < 200; ++i)
            for (std::size_t k = 0; k < bulk.size(); ++k)
                EXPECT_EQ(holds(bulk[k], place(i)), (i + k) % 2 == 0) << bulk[k] << " at " << place(i);
        EXPECT_THAT(m_host.calls(), SizeIs(200 * bulk.size()));
    }
}

TEST_F(KeptAnswers, AreForgottenOnRequest)
{
    EXPECT_FALSE(holds("RFR"));
    m_host.query("isRFR", k_duct).isTrue();

    Peer::clearCache(m_checker);

    EXPECT_TRUE(holds("RFR"));
}

// Notifications.

class Notification : public KeptAnswers, public testing::WithParamInterface<int> {};

TEST_P(Notification, DropsAllAnswersOnlyWhenPhysicsCanHaveChanged)
{
    EXPECT_FALSE(holds("RFR", k_duct));
    EXPECT_FALSE(holds("THERMAL", k_pipe));
    m_host.query("isRFR", k_duct).isTrue();
    m_host.query("isDomGMHTMnotnone", k_pipe).isTrue();

    m_checker.update(static_cast<NotifyType>(GetParam()));

    const bool forgotten = GetParam() == 4 || GetParam() == 7;
    EXPECT_EQ(holds("RFR", k_duct), forgotten);
    EXPECT_EQ(holds("THERMAL", k_pipe), forgotten);
}

TEST_P(Notification, AsksAndDeclaresNothing)
{
    m_checker.update(static_cast<NotifyType>(GetParam()));

    EXPECT_THAT(m_host.calls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfType, Notification, testing::Range(0, 11),
                         [](const auto& p_info) { return std::to_string(p_info.param); });

TEST_F(KeptAnswers, AreDroppedByEachOfSeveralNotifications)
{
    for (const int type : {4, 7, 4})
    {
        holds("RFR");
        m_host.forgetCalls();
        m_checker.update(static_cast<NotifyType>(type));
        holds("RFR");
        EXPECT_THAT(m_host.calls(), SizeIs(1)) << type;
    }
}

TEST_F(KeptAnswers, AreDroppedThroughTheObserver)
{
    Observer& observer = m_checker;
    EXPECT_FALSE(holds("RFR"));
    m_host.query("isRFR", k_duct).isTrue();

    observer.update(NotifyPhysicsChanged);

    EXPECT_TRUE(holds("RFR"));
}

TEST_F(KeptAnswers, MayBeDroppedWhileThePhysicsIsAsked)
{
    m_host.query("isRFR", k_duct).isTrue();
    holds("CEM");
    m_host.onCall("physics.evalBool(isRFR", [&] { m_checker.update(NotifyModelChanged); });

    EXPECT_TRUE(holds("RFR"));
    EXPECT_TRUE(holds("RFR"));
}

TEST(VarAvailabilityCheckerSlots, AreTheDestructorAndUpdate)
{
    if (!slots::k_known)
        GTEST_SKIP() << "The numbers are those of 64-bit x86.";

    // the destructor takes the first two numbers
    EXPECT_EQ(slots::slotOf(&VarAvailabilityChecker::update), 2);
    EXPECT_TRUE(std::has_virtual_destructor_v<VarAvailabilityChecker>);
    EXPECT_TRUE((std::is_base_of_v<Observer, VarAvailabilityChecker>));

    ScriptedHost host;
    VarAvailabilityChecker checker = host.makeAvailabilityChecker();
    EXPECT_FALSE(Peer::doCheck(checker, "RFR", k_duct));
    host.query("isRFR", k_duct).isTrue();
    Observer& observer = checker;
    (observer.*slots::operationIn<void (Observer::*)(NotifyType)>(2))(NotifyModelChanged);
    EXPECT_TRUE(Peer::doCheck(checker, "RFR", k_duct));
}

// What a kept answer costs.

TEST_F(KeptAnswers, AreFoundWithoutTakingMemory)
{
    // Given every keyword, negated ones and unknown ones too, answered at a few places
    std::vector<std::string> keywords = m_checker.supportedPhysAvailChecks();
    for (const char* keyword : {"!TRANSIENT", "!!KINETIC THEORY", "NOBODY KNOWS THIS LONG KEYWORD",
                                "!NOBODY KNOWS THIS LONG KEYWORD", ""})
        keywords.emplace_back(keyword);
    std::vector<std::vector<std::string>> lists;
    for (const std::string& keyword : keywords)
        lists.push_back({keyword});
    lists.push_back({"!TRANSIENT", "!TURBULENT", "!RFR"});
    const std::vector<std::string> places {"", k_duct,
                                           "/FLOW:F/DOMAIN:Duct/BOUNDARY:A long name of it/FLUID:Water"};
    const SplitVariableName name("", nullptr);
    const auto askAll = [&] {
        std::size_t available = 0;
        for (const std::string& place : places)
            for (const auto& list : lists)
                available += m_checker.isPhysicallyAvailable(name, list, place) ? 1U : 0U;
        return available;
    };
    const std::size_t first = askAll();
    ASSERT_GT(first, 0U);

    // When they are asked again
    const std::size_t before = support::allocationCount();
    const std::size_t second = askAll();
    const std::size_t taken = support::allocationCount() - before;

    // Then nothing is taken from the heap
    EXPECT_EQ(taken, 0U);
    EXPECT_EQ(second, first);
}

}    // namespace
}    // namespace qen
