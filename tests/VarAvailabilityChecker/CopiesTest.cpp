#include "VarAvailabilityChecker.h"

#include "support/AvailabilityPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Peer = VarAvailabilityCheckerPeer;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

class CopyOfAChecker : public testing::Test {
protected:
    CopyOfAChecker() { m_host.forgetCalls(); }

    ScriptedHost m_host;
    VarAvailabilityChecker m_original = m_host.makeAvailabilityChecker();
};

TEST_F(CopyOfAChecker, DeclaresNoQueryAgain)
{
    const VarAvailabilityChecker copy(m_original);
    VarAvailabilityChecker assigned = m_host.makeAvailabilityChecker();
    m_host.forgetCalls();
    assigned = m_original;

    EXPECT_THAT(m_host.calls(), IsEmpty());
    EXPECT_THAT(copy.supportedPhysAvailChecks(), SizeIs(47));
    EXPECT_THAT(assigned.supportedPhysAvailChecks(), SizeIs(47));
}

TEST_F(CopyOfAChecker, HasTheAnswersOfItsOriginal)
{
    m_host.query("isRFR", k_duct).isTrue();
    Peer::doCheck(m_original, "RFR", k_duct);
    Peer::doCheck(m_original, "TRANSIENT", k_duct);
    m_host.forgetCalls();

    const VarAvailabilityChecker copy(m_original);

    EXPECT_TRUE(Peer::doCheck(copy, "RFR", k_duct));
    EXPECT_FALSE(Peer::doCheck(copy, "TRANSIENT", k_duct));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(CopyOfAChecker, KeepsItsAnswersWhenTheOriginalForgetsThem)
{
    Peer::doCheck(m_original, "RFR", k_duct);
    const VarAvailabilityChecker copy(m_original);

    m_original.update(NotifyPhysicsChanged);
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_FALSE(Peer::doCheck(copy, "RFR", k_duct));
    EXPECT_TRUE(Peer::doCheck(m_original, "RFR", k_duct));
}

TEST_F(CopyOfAChecker, TellsItsOriginalNothing)
{
    const VarAvailabilityChecker copy(m_original);
    Peer::doCheck(copy, "RFR", k_duct);
    m_host.forgetCalls();

    Peer::doCheck(m_original, "RFR", k_duct);

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(CopyOfAChecker, OutlivesItsOriginal)
{
    std::optional<VarAvailabilityChecker> original(m_original);
    const VarAvailabilityChecker copy(*original);
    m_host.query("isDomGMHTMnotnone", k_duct).isTrue();
    m_host.variableName("Water.Temperature").hasShortName("T");
    m_original = VarAvailabilityChecker(nullptr, nullptr, m_host.physicsEvaluator());
    original.reset();
    m_host.forgetCalls();

    EXPECT_TRUE(Peer::doCheck(copy, "THERMAL", k_duct));
    EXPECT_TRUE(copy.isGenerallyAvailable("Water.Temperature", {"T"}));
    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isDomGMHTMnotnone, /FLOW:F/DOMAIN:Duct)",
                                            "shortNames.shortName(Water.Temperature)"));
}

TEST_F(CopyOfAChecker, TakesModelShortNamesAndPhysicsByAssignmentToo)
{
    // Given a checker of another host
    ScriptedHost other;
    VarAvailabilityChecker assigned = other.makeAvailabilityChecker();
    Peer::doCheck(assigned, "RFR", k_duct);
    other.forgetCalls();

    // When it becomes a copy, then it asks the original's host, and has none of its own answers left
    assigned = m_original;
    Peer::doCheck(assigned, "RFR", k_duct);
    assigned.isGenerallyAvailable("T", {"p"});

    EXPECT_THAT(other.calls(), IsEmpty());
    EXPECT_THAT(m_host.calls(),
                ElementsAre("physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)", "shortNames.shortName(T)"));
}

TEST_F(CopyOfAChecker, MayBeOfItself)
{
    m_host.query("isRFR", k_duct).isTrue();
    Peer::doCheck(m_original, "RFR", k_duct);

    const VarAvailabilityChecker& same = m_original;
    m_original = same;

    EXPECT_TRUE(Peer::doCheck(m_original, "RFR", k_duct));
    EXPECT_TRUE(Peer::doCheck(m_original, "!CEM", k_duct));
}

}    // namespace
}    // namespace qen
