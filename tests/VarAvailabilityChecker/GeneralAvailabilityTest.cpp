#include "VarAvailabilityChecker.h"

#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

class GeneralAvailability : public testing::Test {
protected:
    GeneralAvailability() { m_host.forgetCalls(); }

    bool available(const std::string& p_name, const Texts& p_allowed) const
    {
        return m_checker.isGenerallyAvailable(p_name, p_allowed);
    }

    ScriptedHost m_host;
    VarAvailabilityChecker m_checker = m_host.makeAvailabilityChecker();
};

// One variable.

TEST_F(GeneralAvailability, IsNeverGivenByAnEmptyList)
{
    EXPECT_FALSE(available("T", {}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(GeneralAvailability, IsAlwaysGivenByAny)
{
    EXPECT_TRUE(available("T", {"ANY"}));
    EXPECT_TRUE(available("", {"ANY"}));
    EXPECT_TRUE(available("T", {"ANY", "p"}));
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(GeneralAvailability, TakesAnyForANameUnlessItComesFirst)
{
    EXPECT_FALSE(available("T", {"p", "ANY"}));
    EXPECT_TRUE(available("ANY", {"p", "ANY"}));
}

TEST_F(GeneralAvailability, TakesAnyExactly)
{
    EXPECT_FALSE(available("T", {"Any"}));
    EXPECT_FALSE(available("T", {"ANY "}));
    EXPECT_FALSE(available("T", {""}));
}

TEST_F(GeneralAvailability, IsGivenToListedNamesExactly)
{
    EXPECT_TRUE(available("T", {"p", "T"}));
    EXPECT_FALSE(available("t", {"p", "T"}));
    EXPECT_FALSE(available("Te", {"p", "T"}));
    EXPECT_FALSE(available("", {"p", "T"}));
}

TEST_F(GeneralAvailability, IsJudgedByTheShortName)
{
    m_host.variableName("Velocity").hasShortName("vel");
    m_host.variableName("Water.Velocity").hasShortName("vel");

    EXPECT_TRUE(available("Velocity", {"vel"}));
    EXPECT_TRUE(available("Water.Velocity", {"vel"}));
    EXPECT_FALSE(available("Velocity", {"Velocity"}));
    EXPECT_FALSE(available("Water.Velocity", {"Water.Velocity"}));
}

TEST_F(GeneralAvailability, AsksForTheShortNameOnce)
{
    available("Water.Velocity", {"p", "XYZ", "vel"});

    EXPECT_THAT(m_host.calls(), ElementsAre("shortNames.shortName(Water.Velocity)"));
}

TEST_F(GeneralAvailability, IsAskedForAgainEachTime)
{
    EXPECT_FALSE(available("Velocity", {"vel"}));

    m_host.variableName("Velocity").hasShortName("vel");

    EXPECT_TRUE(available("Velocity", {"vel"}));
}

// The shorthands.

constexpr std::array k_coordinates {"x",
                                    "y",
                                    "z",
                                    "r",
                                    "theta",
                                    "aaxis",
                                    "raxis",
                                    "taxis",
                                    "subdomain",
                                    "xGlobal",
                                    "yGlobal",
                                    "zGlobal",
                                    "initcartcrd",
                                    "initcartcrd x",
                                    "initcartcrd y",
                                    "initcartcrd z"};
static_assert(k_coordinates.size() == 16);

TEST_F(GeneralAvailability, IsGivenToEachCoordinateByXyz)
{
    for (const char* coordinate : k_coordinates)
        EXPECT_TRUE(available(coordinate, {"XYZ"})) << coordinate;
}

TEST_F(GeneralAvailability, IsGivenToEachCoordinateAndTimeByXyzt)
{
    for (const char* coordinate : k_coordinates)
        EXPECT_TRUE(available(coordinate, {"XYZT"})) << coordinate;
    EXPECT_TRUE(available("t", {"XYZT"}));
}

TEST_F(GeneralAvailability, IsNotGivenToTimeByXyz) { EXPECT_FALSE(available("t", {"XYZ"})); }

TEST_F(GeneralAvailability, IsNotGivenToOtherNamesByAShorthand)
{
    for (const char* name : {"T", "X", "xglobal", "initcartcrdx", "initcartcrd  x", "initcartcrd t", ""})
    {
        EXPECT_FALSE(available(name, {"XYZ"})) << name;
        EXPECT_FALSE(available(name, {"XYZT"})) << name;
    }
}

TEST_F(GeneralAvailability, IsNotGivenToTheShorthandItself)
{
    EXPECT_FALSE(available("XYZ", {"XYZ"}));
    EXPECT_FALSE(available("XYZT", {"XYZT"}));
    EXPECT_FALSE(available("XYZ", {"XYZT"}));
}

TEST_F(GeneralAvailability, TakesAShorthandAnywhereInTheList)
{
    EXPECT_TRUE(available("theta", {"p", "T", "XYZ"}));
    EXPECT_TRUE(available("T", {"p", "T", "XYZ"}));
    EXPECT_TRUE(available("t", {"p", "XYZT", "T"}));
}

TEST_F(GeneralAvailability, TakesAShorthandExactly)
{
    EXPECT_FALSE(available("x", {"xyz"}));
    EXPECT_FALSE(available("x", {"XYZ "}));
    EXPECT_TRUE(available("xyz", {"xyz"}));
}

TEST_F(GeneralAvailability, TakesXyzForANameBesideXyzt)
{
    for (const Texts& allowed : {Texts {"XYZ", "XYZT"}, Texts {"XYZT", "XYZ"}})
    {
        EXPECT_TRUE(available("x", allowed));
        EXPECT_TRUE(available("t", allowed));
        EXPECT_TRUE(available("XYZ", allowed));
        EXPECT_FALSE(available("XYZT", allowed));
    }
}

// Several variables.

TEST_F(GeneralAvailability, OfSeveralListsTheUnavailableOnesByTheirFullNamesInOrderWithRepeats)
{
    m_host.variableName("Water.Velocity").hasShortName("vel");
    m_host.variableName("Water.Temperature").hasShortName("T");
    m_host.variableName("Air.Temperature").hasShortName("T");
    Texts unavailable;

    EXPECT_FALSE(m_checker.areGenerallyAvailable(
        {"Water.Temperature", "Water.Velocity", "p", "Air.Temperature", "Water.Temperature"}, {"vel"},
        unavailable));

    EXPECT_THAT(unavailable, ElementsAre("Water.Temperature", "p", "Air.Temperature", "Water.Temperature"));
}

TEST_F(GeneralAvailability, OfSeveralAsksForTheirShortNamesInOrder)
{
    Texts unavailable;

    m_checker.areGenerallyAvailable({"b", "a", "b"}, {"a"}, unavailable);

    EXPECT_THAT(m_host.calls(),
                ElementsAre("shortNames.shortName(b)", "shortNames.shortName(a)", "shortNames.shortName(b)"));
}

TEST_F(GeneralAvailability, OfSeveralIsGivenWhenEachIsAllowed)
{
    Texts unavailable {"left over"};

    EXPECT_TRUE(m_checker.areGenerallyAvailable({"x", "t", "T"}, {"T", "XYZT"}, unavailable));

    EXPECT_THAT(unavailable, IsEmpty());
}

TEST_F(GeneralAvailability, OfNoneIsGivenEvenByAnEmptyList)
{
    Texts unavailable {"left over"};

    EXPECT_TRUE(m_checker.areGenerallyAvailable({}, {}, unavailable));
    EXPECT_THAT(unavailable, IsEmpty());
    EXPECT_TRUE(m_checker.areGenerallyAvailable({}, {"T"}, unavailable));
}

TEST_F(GeneralAvailability, OfSeveralIsNotGivenByAnEmptyListThoughNoneIsNamed)
{
    Texts unavailable {"left over"};

    EXPECT_FALSE(m_checker.areGenerallyAvailable({"x"}, {}, unavailable));

    EXPECT_THAT(unavailable, IsEmpty());
}

TEST_F(GeneralAvailability, OfSeveralIsGivenByAny)
{
    Texts unavailable {"left over"};

    EXPECT_TRUE(m_checker.areGenerallyAvailable({"x", "T"}, {"ANY", "p"}, unavailable));
    EXPECT_THAT(unavailable, IsEmpty());
    EXPECT_THAT(m_host.calls(), IsEmpty());

    EXPECT_FALSE(m_checker.areGenerallyAvailable({"x", "T"}, {"p", "ANY"}, unavailable));
    EXPECT_THAT(unavailable, ElementsAre("x", "T"));
}

TEST_F(GeneralAvailability, OfSeveralTakesXyzForANameBesideXyzt)
{
    Texts unavailable;

    EXPECT_FALSE(m_checker.areGenerallyAvailable({"x", "t", "XYZ", "XYZT"}, {"XYZ", "XYZT"}, unavailable));

    EXPECT_THAT(unavailable, ElementsAre("XYZT"));
}

}    // namespace
}    // namespace qen
