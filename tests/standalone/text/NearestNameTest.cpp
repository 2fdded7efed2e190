#include "text/NearestName.h"

#include <gtest/gtest.h>

#include <string>

namespace qen::standalone {
namespace {

TEST(NearestName, FindsANameWithALetterTooManyTooFewOrSwapped)
{
    EXPECT_EQ(nearestName("Presure", {"Pressure", "Speed"}), "Pressure");
    EXPECT_EQ(nearestName("Presssure", {"Pressure", "Speed"}), "Pressure");
    EXPECT_EQ(nearestName("Pressrue", {"Pressure", "Speed"}), "Pressure");
}

TEST(NearestName, TakesTheClosestOfSeveral)
{
    EXPECT_EQ(nearestName("Lower Bond", {"Lower Bounds", "Lower Bound", "Upper Bound"}), "Lower Bound");
}

TEST(NearestName, TakesNoNoticeOfCase)
{
    EXPECT_EQ(nearestName("BOUNDARY", {"Boundary", "BOUND"}), "Boundary");
}

TEST(NearestName, IsEmptyWhenNothingIsClose)
{
    EXPECT_EQ(nearestName("Viscosity", {"Speed", "Temperature"}), "");
    EXPECT_EQ(nearestName("Speed", {}), "");
}

TEST(NearestName, IsEmptyWhenNothingIsShared)
{
    EXPECT_EQ(nearestName("x", {"y", "xy"}), "");
    EXPECT_EQ(nearestName("x", {"y", "X"}), "X");
    EXPECT_EQ(nearestName("ab", {"cd", "ad"}), "ad");
    EXPECT_EQ(nearestName("", {"a", ""}), "");
}

TEST(NearestName, DoesNotCompareNamesOfUnusualLength)
{
    const std::string longName(100000, 'a');

    EXPECT_EQ(nearestName(longName, {longName}), "");
    EXPECT_EQ(nearestName("Speed", {longName, "Sped"}), "Sped");
}

}    // namespace
}    // namespace qen::standalone
