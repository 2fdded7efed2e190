#include "PrefixTest.h"

#include <gmock/gmock.h>

#include <string>

namespace qen::standalone::test {
namespace {

using Classification = VariablePrefixInfo::Classification;

constexpr const char* k_tank = "/FLOW:F/DOMAIN:Tank";
constexpr const char* k_gasAtWall = "/FLOW:F/DOMAIN:Tank/BOUNDARY:Wall/FLUID:Gas/WALL";
constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";
constexpr const char* k_inlet = "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/INFLOW";
constexpr const char* k_block = "/FLOW:F/DOMAIN:Block";
constexpr const char* k_bed = "/FLOW:F/DOMAIN:Bed";
constexpr const char* k_burner = "/FLOW:F/DOMAIN:Burner";
constexpr const char* k_void = "/FLOW:F/DOMAIN:Void";

struct Prefixes {
    const char* title;
    const char* contextPath;
    const char* prefix1;
    const char* prefix2;
    Classification classification;
};

class PrefixKind : public PrefixTest, public testing::WithParamInterface<Prefixes> {};

TEST_P(PrefixKind, IsThis)
{
    EXPECT_EQ(classify(GetParam().contextPath, GetParam().prefix1, GetParam().prefix2),
              GetParam().classification);
    EXPECT_EQ(m_errorText, "");
}

std::string titleOf(const testing::TestParamInfo<Prefixes>& p_info) { return p_info.param.title; }

using P = VariablePrefixInfo;

// clang-format off
INSTANTIATE_TEST_SUITE_P(WithoutPrefix, PrefixKind, testing::Values(
    Prefixes {"IsGlobalAmongSeveralFluids", k_tank, "", "", {P::GLOBAL, ""}},
    Prefixes {"MayMeanTheFluidAroundThePlace", k_gasAtWall, "", "", {P::GLOBAL_OR_PHASE, ""}},
    Prefixes {"MayMeanTheOnlyFluid", k_duct, "", "", {P::GLOBAL_OR_PHASE, ""}},
    Prefixes {"MayMeanTheOnlyFluidAtABoundary", k_inlet, "", "", {P::GLOBAL_OR_PHASE, ""}},
    Prefixes {"MayMeanTheOnlySolid", k_block, "", "", {P::GLOBAL_OR_PHASE, ""}},
    Prefixes {"IsGlobalBesideAFluidAndASolid", k_bed, "", "", {P::GLOBAL, ""}},
    Prefixes {"MayMeanTheOnlyFluidBesideParticles", k_burner, "", "", {P::GLOBAL_OR_PHASE, ""}},
    Prefixes {"IsGlobalWithoutAnyFluid", k_void, "", "", {P::GLOBAL, ""}},
    Prefixes {"IsGlobalInAnUnknownDomain", "/FLOW:F/DOMAIN:Nowhere", "", "", {P::GLOBAL, ""}},
    Prefixes {"IsGlobalOutsideOfDomains", "/FLOW:F/SIMULATION", "", "", {P::GLOBAL, ""}},
    Prefixes {"IsGlobalNowhere", "", "", "", {P::GLOBAL, ""}}), titleOf);

INSTANTIATE_TEST_SUITE_P(FirstPrefix, PrefixKind, testing::Values(
    Prefixes {"IsAContinuousFluid", k_tank, "Water", "", {P::PHASE, "Water"}},
    Prefixes {"IsADispersedFluid", k_tank, "Gas", "", {P::PHASE, "Gas"}},
    Prefixes {"IsAFluidWithoutMorphology", k_duct, "Water", "", {P::PHASE, "Water"}},
    Prefixes {"IsASolid", k_block, "Steel", "", {P::PHASE, "Steel"}},
    Prefixes {"IsTheSolidOfAPorousDomain", k_bed, "Steel", "", {P::PHASE, "Steel"}},
    Prefixes {"IsAParticle", k_tank, "Grit", "", {P::PARTICLE, "Grit"}},
    Prefixes {"IsAPolydispersedFluid", k_tank, "Bubbles", "", {P::MUSIG_FLUID, "Bubbles"}},
    Prefixes {"IsAFluidPair", k_tank, "Water Gas", "", {P::FLUID_PAIR, "Water Gas"}},
    Prefixes {"IsAnotherFluidThanThatAroundThePlace", k_gasAtWall, "Water", "", {P::PHASE, "Water"}}), titleOf);

INSTANTIATE_TEST_SUITE_P(BothPrefixes, PrefixKind, testing::Values(
    Prefixes {"AreAFluidAndItsComponent", k_tank, "Water", "Salt", {P::PHASE, "Water", P::COMPONENT, "Salt"}},
    Prefixes {"AreAParticleAndItsComponent", k_tank, "Grit", "Ash", {P::PARTICLE, "Grit", P::PARTICLE_COMPONENT, "Ash"}},
    Prefixes {"AreAMusigFluidAndItsSizeGroup", k_tank, "Bubbles", "Large", {P::MUSIG_FLUID, "Bubbles", P::SIZE_GROUP, "Large"}},
    Prefixes {"AreAFluidAndItsSingleStepReaction", k_tank, "Gas", "Methane Burning", {P::PHASE, "Gas", P::REACSNGL, "Methane Burning"}},
    Prefixes {"AreAFluidAndItsFlameletReaction", k_tank, "Gas", "Flame Sheet", {P::PHASE, "Gas", P::REACFLMLET, "Flame Sheet"}},
    Prefixes {"AreAFluidAndItsMultipleStepReaction", k_tank, "Gas", "Ignition Steps", {P::PHASE, "Gas", P::REACTION, "Ignition Steps"}},
    Prefixes {"AreAFluidAndAStepOfItsReaction", k_tank, "Gas", "First Step", {P::PHASE, "Gas", P::REACSNGL, "First Step"}},
    Prefixes {"AreAFluidAndAReactionThatTheLibraryLacks", k_tank, "Gas", "Soot Burnout", {P::PHASE, "Gas", P::REACTION, "Soot Burnout"}}), titleOf);

INSTANTIATE_TEST_SUITE_P(OnlyPrefix, PrefixKind, testing::Values(
    Prefixes {"IsAComponentOfTheOnlyFluid", k_duct, "Salt", "", {P::GLOBAL_OR_PHASE, "", P::COMPONENT, "Salt"}},
    Prefixes {"IsAComponentOfOneOfTheFluids", k_tank, "CH4", "", {P::GLOBAL, "", P::COMPONENT, "CH4"}},
    Prefixes {"IsAComponentOfTheFluidAroundThePlace", k_gasAtWall, "CH4", "", {P::GLOBAL_OR_PHASE, "", P::COMPONENT, "CH4"}},
    Prefixes {"IsAComponentOfAnotherFluidThanThatAroundThePlace", k_gasAtWall, "Salt", "", {P::GLOBAL_OR_PHASE, "", P::COMPONENT, "Salt"}},
    Prefixes {"IsAParticleComponent", k_tank, "Char", "", {P::GLOBAL, "", P::PARTICLE_COMPONENT, "Char"}},
    Prefixes {"IsASizeGroup", k_tank, "Small", "", {P::GLOBAL, "", P::SIZE_GROUP, "Small"}},
    Prefixes {"IsASingleStepReaction", k_burner, "Methane Burning", "", {P::GLOBAL_OR_PHASE, "", P::REACSNGL, "Methane Burning"}},
    Prefixes {"IsAFlameletReaction", k_burner, "Flame Sheet", "", {P::GLOBAL_OR_PHASE, "", P::REACFLMLET, "Flame Sheet"}},
    Prefixes {"IsAMultipleStepReaction", k_tank, "Ignition Steps", "", {P::GLOBAL, "", P::REACTION, "Ignition Steps"}},
    Prefixes {"MayStandInTheSecondPlace", k_duct, "", "Salt", {P::GLOBAL_OR_PHASE, "", P::COMPONENT, "Salt"}}), titleOf);
// clang-format on

// Names that mean several things.

TEST_F(PrefixTest, APhaseWinsOverAComponentOfItsName)
{
    m_model.setParameter("/LIBRARY/MATERIAL:Brine", "Components", "Salt, Water");

    EXPECT_EQ(classify(k_duct, "Water"), Classification(P::PHASE, "Water"));
    EXPECT_EQ(classify(k_duct, "Water", "Water"), Classification(P::PHASE, "Water", P::COMPONENT, "Water"));
}

TEST_F(PrefixTest, AFluidWinsOverASolidAndBothOverAPair)
{
    m_model.setParameter("/FLOW:F/DOMAIN:Bed/SOLID DEFINITION:Grit", "Material", "Steel");
    m_model.addObject("/FLOW:F/DOMAIN:Bed/FLUID PAIR:Grit");
    EXPECT_EQ(classify(k_bed, "Grit"), Classification(P::PHASE, "Grit"));

    m_model.setParameter("/FLOW:F/DOMAIN:Bed/FLUID DEFINITION:Grit", "Morphology", "Particle Transport");
    EXPECT_EQ(classify(k_bed, "Grit"), Classification(P::PARTICLE, "Grit"));
}

TEST_F(PrefixTest, AComponentWinsOverASizeGroupAndThatOverAReaction)
{
    m_model.addObject("/FLOW:F/DOMAIN:Burner/FLUID DEFINITION:Gas/SIZE GROUP:CH4");
    m_model.addObject("/FLOW:F/DOMAIN:Burner/FLUID DEFINITION:Gas/SIZE GROUP:Flame Sheet");

    EXPECT_EQ(classify(k_burner, "Gas", "CH4"), Classification(P::PHASE, "Gas", P::COMPONENT, "CH4"));
    EXPECT_EQ(classify(k_burner, "Gas", "Flame Sheet"),
              Classification(P::PHASE, "Gas", P::SIZE_GROUP, "Flame Sheet"));

    EXPECT_EQ(classify(k_burner, "CH4"), Classification(P::GLOBAL_OR_PHASE, "", P::COMPONENT, "CH4"));
    EXPECT_EQ(classify(k_burner, "Flame Sheet"),
              Classification(P::GLOBAL_OR_PHASE, "", P::SIZE_GROUP, "Flame Sheet"));
}

TEST_F(PrefixTest, TheFirstFluidThatHasANameGivesItsMeaning)
{
    // Given grit that consists of what dissolves in the water too
    m_model.setParameter("/LIBRARY/MATERIAL:Coal", "Components", "Salt");

    EXPECT_EQ(classify(k_tank, "Salt"), Classification(P::GLOBAL, "", P::COMPONENT, "Salt"));
    EXPECT_EQ(classify("/FLOW:F/DOMAIN:Tank/BOUNDARY:Wall/FLUID:Grit", "Salt"),
              Classification(P::GLOBAL_OR_PHASE, "", P::PARTICLE_COMPONENT, "Salt"));
}

// The model may change.

TEST_F(PrefixTest, FollowsTheModel)
{
    EXPECT_EQ(classify(k_duct), Classification(P::GLOBAL_OR_PHASE, ""));

    m_model.setParameter("/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Oil", "Material", "Fuel and Air");
    EXPECT_EQ(classify(k_duct), Classification(P::GLOBAL, ""));
    EXPECT_EQ(classify(k_duct, "O2"), Classification(P::GLOBAL, "", P::COMPONENT, "O2"));

    m_model.setParameter("/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Oil", "Morphology", "Particle Transport");
    EXPECT_EQ(classify(k_duct, "O2"), Classification(P::GLOBAL_OR_PHASE, "", P::PARTICLE_COMPONENT, "O2"));

    m_model.deleteObject("/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Oil");
    EXPECT_EQ(classify(k_duct, "Water"), Classification(P::PHASE, "Water"));
    errorFor(k_duct, "O2");
}

TEST_F(PrefixTest, TakesTenThousandFluidsOfOneMaterialInItsStride)
{
    for (int i = 0; i < 10000; ++i)
        m_model.setParameter("/FLOW:F/DOMAIN:Void/FLUID DEFINITION:F" + std::to_string(i), "Material",
                             "Fuel and Air");

    for (int i = 0; i < 10000; ++i)
    {
        const std::string fluid = "F" + std::to_string(i);
        ASSERT_EQ(classify(k_void, fluid, "N2"), Classification(P::PHASE, fluid, P::COMPONENT, "N2"));
        ASSERT_EQ(classify(k_void, "Flame Sheet"),
                  Classification(P::GLOBAL, "", P::REACFLMLET, "Flame Sheet"));
        errorFor(k_void, "N3");
    }
}

}    // namespace
}    // namespace qen::standalone::test
