#include "VariablePrefixInfo.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace qen {
namespace {

using Classification = VariablePrefixInfo::Classification;

TEST(PrefixClassification, IsGlobalAndWithoutNamesUnlessMoreIsSaid)
{
    const Classification classification;

    EXPECT_EQ(static_cast<int>(classification.prefix1), 0);
    EXPECT_EQ(classification.prefix1Name, "");
    EXPECT_EQ(static_cast<int>(classification.prefix2), 0);
    EXPECT_EQ(classification.prefix2Name, "");
}

TEST(PrefixClassification, OfAFirstPrefixHasNoSecond)
{
    const Classification classification(VariablePrefixInfo::PHASE, "Water");

    EXPECT_EQ(classification.prefix1, VariablePrefixInfo::PHASE);
    EXPECT_EQ(classification.prefix1Name, "Water");
    EXPECT_EQ(static_cast<int>(classification.prefix2), 0);
    EXPECT_EQ(classification.prefix2Name, "");
}

TEST(PrefixClassification, HasBothPrefixes)
{
    const Classification classification(VariablePrefixInfo::MUSIG_FLUID, "Bubbles",
                                        VariablePrefixInfo::SIZE_GROUP, "Group 1");

    EXPECT_EQ(classification.prefix1, VariablePrefixInfo::MUSIG_FLUID);
    EXPECT_EQ(classification.prefix1Name, "Bubbles");
    EXPECT_EQ(classification.prefix2, VariablePrefixInfo::SIZE_GROUP);
    EXPECT_EQ(classification.prefix2Name, "Group 1");
}

TEST(PrefixClassification, EqualsOneThatAgreesInAllFour)
{
    const Classification one(VariablePrefixInfo::PHASE, "Water", VariablePrefixInfo::COMPONENT, "Salt");
    const Classification other = one;

    EXPECT_TRUE(one == other);
}

struct Difference {
    const char* title;
    Classification other;
};

class DifferentClassification : public testing::TestWithParam<Difference> {};

TEST_P(DifferentClassification, IsNotEqual)
{
    const Classification one(VariablePrefixInfo::PHASE, "Water", VariablePrefixInfo::COMPONENT, "Salt");

    EXPECT_FALSE(one == GetParam().other);
    EXPECT_FALSE(GetParam().other == one);
}

INSTANTIATE_TEST_SUITE_P(
    PrefixClassification, DifferentClassification,
    testing::Values(
        Difference {"InTheKindOfTheFirst",
                    {VariablePrefixInfo::PARTICLE, "Water", VariablePrefixInfo::COMPONENT, "Salt"}},
        Difference {"InTheNameOfTheFirst",
                    {VariablePrefixInfo::PHASE, "Oil", VariablePrefixInfo::COMPONENT, "Salt"}},
        Difference {"InTheKindOfTheSecond",
                    {VariablePrefixInfo::PHASE, "Water", VariablePrefixInfo::REACTION, "Salt"}},
        Difference {"InTheNameOfTheSecond",
                    {VariablePrefixInfo::PHASE, "Water", VariablePrefixInfo::COMPONENT, "Sugar"}}),
    [](const auto& p_info) { return p_info.param.title; });

TEST(PrefixClassification, KindsHaveTheValuesThatHostsRelyOn)
{
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::GLOBAL), 0);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::GLOBAL_OR_PHASE), 1);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::PHASE), 2);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::PARTICLE), 3);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::MUSIG_FLUID), 4);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::FLUID_PAIR), 5);

    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::NONE), 0);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::COMPONENT), 1);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::PARTICLE_COMPONENT), 2);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::REACSNGL), 3);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::REACFLMLET), 4);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::REACTION), 5);
    EXPECT_EQ(static_cast<int>(VariablePrefixInfo::SIZE_GROUP), 6);
}

TEST(PrefixClassification, KindsAreThirtyTwoBitsWideAndMayHoldForeignValues)
{
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<VariablePrefixInfo::Prefix1>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<VariablePrefixInfo::Prefix2>, int>));

    const Classification foreign(static_cast<VariablePrefixInfo::Prefix1>(99), "Water");
    EXPECT_EQ(static_cast<int>(foreign.prefix1), 99);
}

}    // namespace
}    // namespace qen
