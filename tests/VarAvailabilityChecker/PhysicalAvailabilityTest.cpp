#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"

#include "support/AvailabilityPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

class PhysicalAvailability : public testing::Test {
protected:
    PhysicalAvailability() { m_host.forgetCalls(); }

    bool available(const std::vector<std::string>& p_keys, const std::string& p_objectPath = k_duct) const
    {
        return m_checker.isPhysicallyAvailable(m_name, p_keys, p_objectPath);
    }

    ScriptedHost m_host;
    VarAvailabilityChecker m_checker = m_host.makeAvailabilityChecker();
    SplitVariableName m_name {"", nullptr};
};

TEST_F(PhysicalAvailability, IsGivenWithoutAnyKeyword)
{
    EXPECT_TRUE(available({}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(PhysicalAvailability, IsGivenWhenTheKeywordHolds)
{
    EXPECT_FALSE(available({"TRANSIENT"}));

    m_host.query("isSimTypetransient", "/FLOW:F/DOMAIN:Pipe").isTrue();

    EXPECT_TRUE(available({"TRANSIENT"}, "/FLOW:F/DOMAIN:Pipe"));
}

TEST_F(PhysicalAvailability, IsGivenWhenEveryKeywordHolds)
{
    m_host.query("isSimTypetransient", k_duct).isTrue();
    m_host.query("isDomTurbMTurbForQEL", k_duct).isTrue();

    EXPECT_TRUE(available({"TRANSIENT", "TURBULENT"}));
    EXPECT_FALSE(available({"TRANSIENT", "TURBULENT", "RFR"}));
}

TEST_F(PhysicalAvailability, IsJudgedInTheOrderOfTheKeywordsUpToTheFirstThatFails)
{
    m_host.query("isDomTurbMTurbForQEL", k_duct).isTrue();

    EXPECT_FALSE(available({"TURBULENT", "RFR", "TRANSIENT"}));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isDomTurbMTurbForQEL, /FLOW:F/DOMAIN:Duct)",
                                            "physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(PhysicalAvailability, DoesNotDependOnTheVariable)
{
    m_host.query("isRFR", k_duct).isTrue();
    m_host.variableName("Water.Dye").isAV();
    const SplitVariableName dye("Water.Dye", m_host.rootNameFinder());
    m_host.forgetCalls();

    EXPECT_TRUE(m_checker.isPhysicallyAvailable(dye, {"RFR"}, k_duct));
    EXPECT_FALSE(m_checker.isPhysicallyAvailable(dye, {"CEM"}, k_duct));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)",
                                            "physics.evalBool(isDomEM active, /FLOW:F/DOMAIN:Duct)"));
}

// Negation.

TEST_F(PhysicalAvailability, IsTheOppositeForANegatedKeyword)
{
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_FALSE(available({"!RFR"}));
    EXPECT_TRUE(available({"!TRANSIENT"}));
}

TEST_F(PhysicalAvailability, CancelsDoubledNegations)
{
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_TRUE(available({"!!RFR"}));
    EXPECT_FALSE(available({"!!!RFR"}));
    EXPECT_FALSE(available({"!!TRANSIENT"}));
    EXPECT_TRUE(available({"!!!TRANSIENT"}));
}

// Keywords that nobody knows.

struct Unknown {
    const char* title;
    const char* keyword;
};

class UnknownKeyword : public PhysicalAvailability, public testing::WithParamInterface<Unknown> {};

TEST_P(UnknownKeyword, HoldsWithoutAnybodyBeingAsked)
{
    EXPECT_TRUE(available({GetParam().keyword}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_P(UnknownKeyword, DoesNotHoldWhenItIsNegated)
{
    EXPECT_FALSE(available({"!" + std::string(GetParam().keyword)}));
    EXPECT_TRUE(available({"!!" + std::string(GetParam().keyword)}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    PhysicalAvailability, UnknownKeyword,
    testing::Values(Unknown {"Word", "SUNSHINE"}, Unknown {"Empty", ""}, Unknown {"OtherCase", "Transient"},
                    Unknown {"BlankBefore", " TRANSIENT"}, Unknown {"BlankBehind", "TRANSIENT "},
                    Unknown {"Part", "TRANS"}, Unknown {"TwoBlanks", "KINETIC  THEORY"},
                    Unknown {"WithoutItsBlank", "KINETICTHEORY"}, Unknown {"LaterNegation", "TRANSIENT!"},
                    Unknown {"NegationBehindABlank", " !TRANSIENT"}, Unknown {"OneByte", "A"},
                    Unknown {"NotUtf8", "\xFF\xC3"}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(PhysicalAvailability, TakesANullCharacterForPartOfTheKeyword)
{
    EXPECT_TRUE(available({std::string("RFR\0", 4)}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(PhysicalAvailability, TakesAMillionNegations)
{
    EXPECT_FALSE(available({std::string(1000000, '!') + "RFR"}));
    EXPECT_TRUE(available({std::string(1000001, '!') + "RFR"}));
}

// Places.

TEST_F(PhysicalAvailability, IsJudgedAtAMalformedPathToo)
{
    m_host.query("isRFR", "no path").isTrue();
    m_host.query("isDomGMHTMnotnone", "").isTrue();

    EXPECT_TRUE(available({"RFR", "THERMAL"}, "no path"));
}

// What the evaluator throws.

TEST_F(PhysicalAvailability, LetsTheEvaluatorsExceptionsPassAndKeepsNoAnswerThen)
{
    bool throws = true;
    m_host.onCall("physics.evalBool(isRFR", [&] {
        if (throws)
            throw std::runtime_error("no such query");
    });
    m_host.query("isRFR", k_duct).isTrue();

    EXPECT_THROW(available({"RFR"}), std::runtime_error);
    throws = false;
    EXPECT_TRUE(available({"RFR"}));
}

}    // namespace
}    // namespace qen
