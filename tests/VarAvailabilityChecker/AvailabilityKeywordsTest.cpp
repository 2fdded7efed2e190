#include "VarAvailabilityChecker.h"

#include "support/AvailabilityPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* k_domain = "/FLOW:F/DOMAIN:D";
constexpr const char* k_fluid = "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water";
constexpr const char* k_pair = "/FLOW:F/DOMAIN:D/FLUID PAIR:Water | Air";
constexpr const char* k_inDomain = "/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW";
constexpr const char* k_inFluid = "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water/INFLOW";
constexpr const char* k_inPair = "/FLOW:F/DOMAIN:D/FLUID PAIR:Water | Air/MASS TRANSFER";
constexpr const char* k_outside = "/FLOW:F/SIMULATION";
constexpr const char* k_fluidOutside = "/FLOW:F/FLUID:Water";
constexpr const char* k_inFluidOutside = "/FLOW:F/FLUID:Water/INFLOW";

/// A text as part of a test's name.
std::string lettersOf(std::string p_text)
{
    std::erase_if(p_text, [](char c) { return c == ' '; });
    return p_text;
}

std::string asked(const std::string& p_query, const std::string& p_objectPath)
{
    return "physics.evalBool(" + p_query + ", " + p_objectPath + ")";
}

std::string askedForList(const std::string& p_query, const std::string& p_objectPath)
{
    return "physics.evalList(" + p_query + ", " + p_objectPath + ")";
}

class AvailabilityKeyword : public testing::Test {
protected:
    AvailabilityKeyword() { m_host.forgetCalls(); }

    bool holds(const std::string& p_keyword, const std::string& p_objectPath) const
    {
        return VarAvailabilityCheckerPeer::doCheck(m_checker, p_keyword, p_objectPath);
    }

    ScriptedHost m_host;
    VarAvailabilityChecker m_checker = m_host.makeAvailabilityChecker();
};

// Keywords with one query.

struct Bulk {
    const char* keyword;
    const char* query;
};

// clang-format off
constexpr std::array k_bulk {
    Bulk {"CAVITATION", "anyFPcavmodel fordomain"},
    Bulk {"CEM", "isDomEM active"},
    Bulk {"COMPRESSIBLE", "isCompressible"},
    Bulk {"ELECTRIC", "isDomEMEFM active"},
    Bulk {"EULERIANPHASECHANGE", "anyFPmasstransfer fordomain"},
    Bulk {"INHOMOMULTIPHASE", "isDomMulMhomogeneous"},
    Bulk {"MAGNETIC", "isDomEMMFM active"},
    Bulk {"MDEF", "anyMeshMotionInDomain"},
    Bulk {"JNTORRIGIDBDYCOUPLING", "anySolverCouplingOrRigidBdyCoupling"},
    Bulk {"MULTIPHASE", "isMultiPhase"},
    Bulk {"PHASEORPARTICLE", "domainParticlesOrMultiphase"},
    Bulk {"POROUS", "isdomaintype porous"},
    Bulk {"RADIATION", "anyDomIVRad allowed"},
    Bulk {"RFR", "isRFR"},
    Bulk {"ANYRFR", "anyDomainbyisrfr"},
    Bulk {"TRANSIENT", "isSimTypetransient"},
    Bulk {"TURBULENT", "isDomTurbMTurbForQEL"}};
// clang-format on

class BulkKeyword : public AvailabilityKeyword, public testing::WithParamInterface<Bulk> {};

TEST_P(BulkKeyword, AsksItsQueryAtThePlaceItself)
{
    EXPECT_FALSE(holds(GetParam().keyword, k_inFluid));

    EXPECT_THAT(m_host.calls(), ElementsAre(asked(GetParam().query, k_inFluid)));
}

TEST_P(BulkKeyword, HoldsWhenItsQueryIsTrueAtThePlaceItself)
{
    m_host.query(GetParam().query, k_inFluid).isTrue();

    EXPECT_TRUE(holds(GetParam().keyword, k_inFluid));
}

TEST_P(BulkKeyword, DoesNotHoldWhenItsQueryIsTrueElsewhere)
{
    m_host.query(GetParam().query, k_domain).isTrue();
    m_host.query(GetParam().query, k_fluid).isTrue();
    m_host.query(GetParam().query, "").isTrue();

    EXPECT_FALSE(holds(GetParam().keyword, k_inFluid));
}

INSTANTIATE_TEST_SUITE_P(Every, BulkKeyword, testing::ValuesIn(k_bulk),
                         [](const auto& p_info) { return lettersOf(p_info.param.keyword); });

// Keywords with a query for the fluid and one for the domain.

struct FluidDep {
    const char* keyword;
    const char* fluidQuery;
    const char* domainQuery;
};

// clang-format off
constexpr std::array k_fluidDep {
    FluidDep {"ASM",
        "anyDomFluFMCompasm", "anyDomFMCompasmParticleFix"},
    FluidDep {"AUTOIGN",
        "isDomFMFluCMAutoIgnitionModel active", "isDomFMCombModAutoIgnitionModelActive FluidIndepOrSingleEulerian"},
    FluidDep {"BVM",
        "isDomFMFluCombModBVM", "isDomFMCombModBVMActive FluidIndepOrSingleEulerian"},
    FluidDep {"COMBUSTION",
        "isDomFMFluCombMvalid", "isDomFMCombModActive FluidIndepOrSingleEulerian"},
    FluidDep {"DES",
        "isDomFluFMTurbMdessst", "isDomFMTurbMdessst"},
    FluidDep {"ECFM",
        "isDomFMFluCombModECFM", "isDomFMCombModECFMActive FluidIndepOrSingleEulerian"},
    FluidDep {"EDM",
        "isDomFMFluCombModEDM", "isDomFMCombModEDMActive FluidIndepOrSingleEulerian"},
    FluidDep {"EGR",
        "isDomFMFluCMResidualMaterialModel active", "isDomFMCombModResidualMaterialModelActive FluidIndepOrSingleEulerian"},
    FluidDep {"FRC",
        "isDomFMFluCombModFRC", "isDomFMCombModFRCActive FluidIndepOrSingleEulerian"},
    FluidDep {"GEQN",
        "isDomFMFluCombModGEqn", "isDomFMCombModGEqnActive FluidIndepOrSingleEulerian"},
    FluidDep {"KEPS",
        "isDomFluFMTurbMPLProductionClipFactorEpsilon", "isDomFMTurbMPLProductionClipFactorEpsilon"},
    FluidDep {"KINETIC THEORY",
        "isDomFluMorpKTMon", "anyDomFluMorpKTMon"},
    FluidDep {"KOPS",
        "isDomFluFMTurbMkomega", "isDomFMTurbMkomega"},
    FluidDep {"LES",
        "isDomFluFMTurbMles", "isDomFMTurbMles"},
    FluidDep {"MASFRC",
        "anyDomFluFMCompsForFluid", "anyComponentsForDomain"},
    FluidDep {"MULTIBAND",
        "isDomFluFMTRadMSpecMmultiband", "isDomGMTRadMSpecMmultiband"},
    FluidDep {"MULTICOMPONENT",
        "anyDomFluFMCompsForFluid", "anyComponentsForDomain"},
    FluidDep {"MUSIG",
        "isDomFluMorphPolyDispersed forfluidcast", "anyPolydispersedFluidsForDom"},
    FluidDep {"PARTICLE",
        "isDomFluMorphparticle forfluidcast", "anyDomainparticles"},
    FluidDep {"PREMIXED",
        "isDomFluFMCombModpremixed", "isDomFMCombModPremixedActive FluidIndepOrSingleEulerian"},
    FluidDep {"RSM",
        "isDomFluFMTurbMrsm", "isDomFMTurbMrsm"},
    FluidDep {"SOOT",
        "isDomFluFMSootModMagnussen", "isDomFMSootModMagnussenActive FluidIndepOrSingleEulerian"},
    FluidDep {"SST",
        "isDomFluFMTurbMsstTFCdef", "isDomFMTurbMsstTFCdef"},
    FluidDep {"THERMAL",
        "isDomFMFluHTMnotnone", "isDomGMHTMnotnone"},
    FluidDep {"ZETM",
        "isDomFluFMTurbMzeroeqn", "isDomFMTurbMzeroeqn"},
    FluidDep {"TRANSITIONAL",
        "isDomFluFMTurbMTransTurbActive", "isDomFMTurbMTransTurbActive"}};
// clang-format on

class FluidDependentKeyword : public AvailabilityKeyword, public testing::WithParamInterface<FluidDep> {};

TEST_P(FluidDependentKeyword, AsksTheDomainAndThenTheFluid)
{
    EXPECT_FALSE(holds(GetParam().keyword, k_inFluid));

    EXPECT_THAT(m_host.calls(),
                ElementsAre(asked(GetParam().domainQuery, k_domain), asked(GetParam().fluidQuery, k_fluid)));
}

TEST_P(FluidDependentKeyword, AsksTheFluidEvenWhenItHoldsInTheDomain)
{
    m_host.query(GetParam().domainQuery, k_domain).isTrue();

    EXPECT_TRUE(holds(GetParam().keyword, k_inFluid));

    EXPECT_THAT(m_host.calls(),
                ElementsAre(asked(GetParam().domainQuery, k_domain), asked(GetParam().fluidQuery, k_fluid)));
}

TEST_P(FluidDependentKeyword, HoldsWhenItDoesInTheFluidAlone)
{
    m_host.query(GetParam().fluidQuery, k_fluid).isTrue();

    EXPECT_TRUE(holds(GetParam().keyword, k_inFluid));
}

TEST_P(FluidDependentKeyword, AsksOnlyTheDomainOutsideOfFluids)
{
    m_host.query(GetParam().fluidQuery, "").isTrue();

    EXPECT_FALSE(holds(GetParam().keyword, k_inDomain));

    EXPECT_THAT(m_host.calls(), ElementsAre(asked(GetParam().domainQuery, k_domain)));
}

TEST_P(FluidDependentKeyword, AsksAtTheEmptyPathOutsideOfDomains)
{
    m_host.query(GetParam().domainQuery, "").isTrue();

    EXPECT_TRUE(holds(GetParam().keyword, k_outside));

    EXPECT_THAT(m_host.calls(), ElementsAre(asked(GetParam().domainQuery, "")));
}

TEST_P(FluidDependentKeyword, AsksOnlyTheDomainInAFluidPair)
{
    for (const char* path : {k_pair, k_inPair})
    {
        m_host.query(GetParam().fluidQuery, path).isTrue();
        m_host.forgetCalls();

        EXPECT_FALSE(holds(GetParam().keyword, path)) << path;

        EXPECT_THAT(m_host.calls(), ElementsAre(asked(GetParam().domainQuery, "/FLOW:F/DOMAIN:D"))) << path;
    }
}

TEST_P(FluidDependentKeyword, AsksAtTheEmptyPathAndThenInTheFluidOfNoDomain)
{
    m_host.query(GetParam().fluidQuery, k_fluidOutside).isTrue();

    EXPECT_TRUE(holds(GetParam().keyword, k_inFluidOutside));

    EXPECT_THAT(m_host.calls(), ElementsAre(asked(GetParam().domainQuery, ""),
                                            asked(GetParam().fluidQuery, "/FLOW:F/FLUID:Water")));
}

TEST_P(FluidDependentKeyword, DoesNotHoldForTheFluidsQueryInTheDomainOrTheDomainsInTheFluid)
{
    m_host.query(GetParam().fluidQuery, k_domain).isTrue();
    m_host.query(GetParam().domainQuery, k_fluid).isTrue();
    m_host.query(GetParam().domainQuery, k_inFluid).isTrue();

    EXPECT_FALSE(holds(GetParam().keyword, k_inFluid));
}

INSTANTIATE_TEST_SUITE_P(Every, FluidDependentKeyword, testing::ValuesIn(k_fluidDep),
                         [](const auto& p_info) { return lettersOf(p_info.param.keyword); });

// AV.

class AdditionalVariableKeyword : public AvailabilityKeyword {};

TEST_F(AdditionalVariableKeyword, AsksForThreeListsTwoOfTheDomainAndOneOfTheFluid)
{
    EXPECT_FALSE(holds("AV", k_inFluid));

    EXPECT_THAT(
        m_host.calls(),
        ElementsAre("physics.evalList(allDomFMAV, /FLOW:F/DOMAIN:D)",
                    "physics.evalList(allDomSMAV, /FLOW:F/DOMAIN:D)",
                    "physics.evalList(thisDomFMFluAVslist, /FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water)"));
}

TEST_F(AdditionalVariableKeyword, AsksForAllThreeEvenWhenTheFirstIsNotEmpty)
{
    m_host.query("allDomFMAV", k_domain).answers({"Dye"});

    EXPECT_TRUE(holds("AV", k_inFluid));

    EXPECT_THAT(m_host.calls(), SizeIs(3));
}

TEST_F(AdditionalVariableKeyword, AsksForTheDomainsTwoOutsideOfFluids)
{
    m_host.query("thisDomFMFluAVslist", "").answers({"Dye"});

    EXPECT_FALSE(holds("AV", k_inDomain));

    EXPECT_THAT(m_host.calls(), ElementsAre(askedForList("allDomFMAV", "/FLOW:F/DOMAIN:D"),
                                            askedForList("allDomSMAV", "/FLOW:F/DOMAIN:D")));
}

TEST_F(AdditionalVariableKeyword, AsksForTheDomainsTwoInAFluidPair)
{
    for (const char* path : {k_pair, k_inPair})
    {
        m_host.query("thisDomFMFluAVslist", path).answers({"Dye"});
        m_host.forgetCalls();

        EXPECT_FALSE(holds("AV", path)) << path;

        EXPECT_THAT(m_host.calls(), ElementsAre(askedForList("allDomFMAV", "/FLOW:F/DOMAIN:D"),
                                                askedForList("allDomSMAV", "/FLOW:F/DOMAIN:D")))
            << path;
    }
}

TEST_F(AdditionalVariableKeyword, AsksAtTheEmptyPathAndThenInTheFluidOfNoDomain)
{
    m_host.query("thisDomFMFluAVslist", k_fluidOutside).answers({"Dye"});

    EXPECT_TRUE(holds("AV", k_inFluidOutside));

    EXPECT_THAT(m_host.calls(), ElementsAre(askedForList("allDomFMAV", ""), askedForList("allDomSMAV", ""),
                                            askedForList("thisDomFMFluAVslist", "/FLOW:F/FLUID:Water")));
}

TEST_F(AdditionalVariableKeyword, AsksAtTheEmptyPathOutsideOfDomains)
{
    m_host.query("allDomSMAV", "").answers({"Dye"});

    EXPECT_TRUE(holds("AV", k_outside));

    EXPECT_THAT(m_host.calls(), ElementsAre(askedForList("allDomFMAV", ""), askedForList("allDomSMAV", "")));
}

TEST_F(AdditionalVariableKeyword, HoldsWhenAFluidOfTheDomainHasOne)
{
    m_host.query("allDomFMAV", k_domain).answers({"Dye"});

    EXPECT_TRUE(holds("AV", k_inDomain));
}

TEST_F(AdditionalVariableKeyword, HoldsWhenASolidOfTheDomainHasOne)
{
    m_host.query("allDomSMAV", k_domain).answers({"Dye", "Smoke"});

    EXPECT_TRUE(holds("AV", k_inDomain));
}

TEST_F(AdditionalVariableKeyword, HoldsWhenTheFluidAroundThePlaceHasOne)
{
    m_host.query("thisDomFMFluAVslist", k_fluid).answers({"Dye"});

    EXPECT_TRUE(holds("AV", k_inFluid));
}

TEST_F(AdditionalVariableKeyword, DoesNotAskWhetherAListIsTrue)
{
    m_host.query("allDomFMAV", k_domain).isTrue();

    EXPECT_FALSE(holds("AV", k_inDomain));
}

// AVORMASFRC.

class AdditionalVariableOrMassFractionKeyword : public AvailabilityKeyword {};

TEST_F(AdditionalVariableOrMassFractionKeyword, AsksForAdditionalVariablesAndThenForMassFractions)
{
    EXPECT_FALSE(holds("AVORMASFRC", k_inFluid));

    EXPECT_THAT(m_host.calls(),
                ElementsAre("physics.evalList(allDomFMAV, /FLOW:F/DOMAIN:D)",
                            "physics.evalList(allDomSMAV, /FLOW:F/DOMAIN:D)",
                            "physics.evalList(thisDomFMFluAVslist, /FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water)",
                            "physics.evalBool(anyDomFMComps, /FLOW:F/DOMAIN:D)",
                            "physics.evalBool(anyDomFluFMCompsForFluid, "
                            "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water)"));
}

TEST_F(AdditionalVariableOrMassFractionKeyword, DoesNotAskForMassFractionsWhenThereIsAnAdditionalVariable)
{
    m_host.query("thisDomFMFluAVslist", k_fluid).answers({"Dye"});

    EXPECT_TRUE(holds("AVORMASFRC", k_inFluid));

    EXPECT_THAT(m_host.callsTo({"physics.evalBool"}), IsEmpty());
}

TEST_F(AdditionalVariableOrMassFractionKeyword, HoldsForComponentsInTheDomain)
{
    m_host.query("anyDomFMComps", k_domain).isTrue();

    EXPECT_TRUE(holds("AVORMASFRC", k_inDomain));
}

TEST_F(AdditionalVariableOrMassFractionKeyword, HoldsForComponentsInTheFluid)
{
    m_host.query("anyDomFluFMCompsForFluid", k_fluid).isTrue();

    EXPECT_TRUE(holds("AVORMASFRC", k_inFluid));
}

TEST_F(AdditionalVariableOrMassFractionKeyword, DoesNotAskWhatMassFractionsAloneAskOfTheDomain)
{
    m_host.query("anyComponentsForDomain", k_domain).isTrue();

    EXPECT_FALSE(holds("AVORMASFRC", k_inDomain));
    EXPECT_TRUE(holds("MASFRC", k_inDomain));
}

// EFFICIENCY.

class EfficiencyKeyword : public AvailabilityKeyword {};

TEST_F(EfficiencyKeyword, AsksForHeatTransferAndThenForInflowAtThePlaceItself)
{
    m_host.query("isDomFMFluHTMnotnone", k_fluid).isTrue();

    EXPECT_TRUE(holds("EFFICIENCY", k_inFluid));

    EXPECT_THAT(m_host.calls(),
                ElementsAre("physics.evalBool(isDomGMHTMnotnone, /FLOW:F/DOMAIN:D)",
                            "physics.evalBool(isDomFMFluHTMnotnone, /FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water)",
                            "physics.evalBool(anyInflowBdyForDomain, "
                            "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water/INFLOW)"));
}

TEST_F(EfficiencyKeyword, DoesNotAskForInflowWithoutHeatTransfer)
{
    EXPECT_FALSE(holds("EFFICIENCY", k_inDomain));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isDomGMHTMnotnone, /FLOW:F/DOMAIN:D)"));
}

TEST_F(EfficiencyKeyword, DoesNotHoldWithInflow)
{
    m_host.query("isDomGMHTMnotnone", k_domain).isTrue();
    m_host.query("anyInflowBdyForDomain", k_inDomain).isTrue();

    EXPECT_FALSE(holds("EFFICIENCY", k_inDomain));
}

TEST_F(EfficiencyKeyword, HoldsWithHeatTransferInTheDomainAndInflowElsewhere)
{
    m_host.query("isDomGMHTMnotnone", k_domain).isTrue();
    m_host.query("anyInflowBdyForDomain", k_domain).isTrue();

    EXPECT_TRUE(holds("EFFICIENCY", k_inDomain));
}

// THERMALPHASECHANGE.

class ThermalPhaseChangeKeyword : public AvailabilityKeyword {};

TEST_F(ThermalPhaseChangeKeyword, AsksTheFluidPairAroundThePlace)
{
    m_host.query("isDomFPMassTranphasechange", k_pair).isTrue();

    EXPECT_TRUE(holds("THERMALPHASECHANGE", k_inPair));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isDomFPMassTranphasechange, "
                                            "/FLOW:F/DOMAIN:D/FLUID PAIR:Water | Air)"));
}

TEST_F(ThermalPhaseChangeKeyword, DoesNotAskForAMixtureInAFluidPair)
{
    m_host.query("isLibMatHomBinMixforfluidslist", k_inPair).isTrue();

    EXPECT_FALSE(holds("THERMALPHASECHANGE", k_inPair));

    EXPECT_THAT(m_host.calls(), SizeIs(1));
}

TEST_F(ThermalPhaseChangeKeyword, AsksForAMixtureAtThePlaceItselfOutsideOfFluidPairs)
{
    m_host.query("isLibMatHomBinMixforfluidslist", k_inFluid).isTrue();

    EXPECT_TRUE(holds("THERMALPHASECHANGE", k_inFluid));

    EXPECT_THAT(m_host.calls(), ElementsAre("physics.evalBool(isLibMatHomBinMixforfluidslist, "
                                            "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water/INFLOW)"));
}

// All of them.

TEST_F(AvailabilityKeyword, AsksAboutTheModelThatTheCheckerWasGiven)
{
    const VarAvailabilityChecker withoutModel(nullptr, m_host.shortNameFinder(), m_host.physicsEvaluator());
    m_host.forgetCalls();

    VarAvailabilityCheckerPeer::doCheck(withoutModel, "CEM", k_inDomain);
    VarAvailabilityCheckerPeer::doCheck(withoutModel, "AV", k_outside);

    EXPECT_THAT(
        m_host.calls(),
        ElementsAre("physics.evalBool(isDomEM active, /FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW, another model)",
                    "physics.evalList(allDomFMAV, , another model)",
                    "physics.evalList(allDomSMAV, , another model)"));
}

TEST_F(AvailabilityKeyword, IsOneOfFortySevenInAscendingOrder)
{
    const std::vector<std::string> keywords = m_checker.supportedPhysAvailChecks();

    EXPECT_THAT(keywords,
                ElementsAre("ANYRFR", "ASM", "AUTOIGN", "AV", "AVORMASFRC", "BVM", "CAVITATION", "CEM",
                            "COMBUSTION", "COMPRESSIBLE", "DES", "ECFM", "EDM", "EFFICIENCY", "EGR",
                            "ELECTRIC", "EULERIANPHASECHANGE", "FRC", "GEQN", "INHOMOMULTIPHASE",
                            "JNTORRIGIDBDYCOUPLING", "KEPS", "KINETIC THEORY", "KOPS", "LES", "MAGNETIC",
                            "MASFRC", "MDEF", "MULTIBAND", "MULTICOMPONENT", "MULTIPHASE", "MUSIG",
                            "PARTICLE", "PHASEORPARTICLE", "POROUS", "PREMIXED", "RADIATION", "RFR", "RSM",
                            "SOOT", "SST", "THERMAL", "THERMALPHASECHANGE", "TRANSIENT", "TRANSITIONAL",
                            "TURBULENT", "ZETM"));
    EXPECT_THAT(keywords, SizeIs(47));
}

TEST(DeclaredQueries, AreDeclaredOnceInTheOrderOfTheKeywordsWithoutAnythingBeingAsked)
{
    // Given what each keyword asks, composed ones as the checks that they consist of
    std::vector<std::string> expected;
    for (const Bulk& bulk : k_bulk)
        expected.push_back("physics.declareBool(" + std::string(bulk.query) + ", false)");
    for (const FluidDep& fluidDep : k_fluidDep)
    {
        expected.push_back("physics.declareBool(" + std::string(fluidDep.domainQuery) + ", true)");
        expected.push_back("physics.declareBool(" + std::string(fluidDep.fluidQuery) + ", true)");
    }
    for (const char* call :
         {// AV
          "physics.declareList(allDomFMAV, true)", "physics.declareList(allDomSMAV, true)",
          "physics.declareList(thisDomFMFluAVslist, true)",
          // AVORMASFRC
          "physics.declareBool(anyDomFMComps, true)", "physics.declareBool(anyDomFluFMCompsForFluid, true)",
          "physics.declareList(allDomFMAV, true)", "physics.declareList(allDomSMAV, true)",
          "physics.declareList(thisDomFMFluAVslist, true)",
          // EFFICIENCY
          "physics.declareBool(isDomGMHTMnotnone, true)", "physics.declareBool(isDomFMFluHTMnotnone, true)",
          "physics.declareBool(anyInflowBdyForDomain, true)",
          // THERMALPHASECHANGE
          "physics.declareBool(isDomFPMassTranphasechange, true)",
          "physics.declareBool(isLibMatHomBinMixforfluidslist, true)"})
        expected.emplace_back(call);

    ScriptedHost host;
    const VarAvailabilityChecker checker = host.makeAvailabilityChecker();

    EXPECT_EQ(host.calls(), expected);
}

TEST(DeclaredQueries, AreNotDeclaredAgainWhenChecking)
{
    ScriptedHost host;
    const VarAvailabilityChecker checker = host.makeAvailabilityChecker();
    host.forgetCalls();

    for (const std::string& keyword : checker.supportedPhysAvailChecks())
        VarAvailabilityCheckerPeer::doCheck(checker, keyword, k_inPair);

    EXPECT_THAT(host.callsTo({"physics.declare"}), IsEmpty());
}

}    // namespace
}    // namespace qen
