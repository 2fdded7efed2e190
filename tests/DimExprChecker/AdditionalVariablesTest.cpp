#include "CallbackFixture.h"

#include "VariablePrefixInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using support::ErrorSaying;
using support::IsAbout;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Info = VariablePrefixInfo;

constexpr const char* k_solids = "SOLID MODELS";
constexpr const char* k_fluids = "FLUID MODELS";
constexpr const char* k_perFluid = "Fluid Dependent";
constexpr const char* k_shared = "Transport Equation";

/// "Smoke" is an additional variable of the library; where it is defined in the duct each test says. "Water" and "Iron"
/// are classified as phases.
class AVPrefix : public testing::Test {
protected:
    AVPrefix()
    {
        m_duct.host.object("/LIBRARY/ADDITIONAL VARIABLE:Smoke");
        for (const char* phase : {"Water", "Iron"})
            m_duct.host.prefixes(phase, "").areClassifiedAs({Info::PHASE, phase});
    }

    void domainIs(const std::string& p_type) { m_duct.set(Duct::k_path, "Domain Type", p_type); }

    /// Defines "Smoke" for all solids or fluids of the duct.
    void define(const std::string& p_models, const std::string& p_option)
    {
        m_duct.set(inDuct(p_models) + "/ADDITIONAL VARIABLE:Smoke", "Option", p_option);
    }

    /// Defines "Smoke" for one fluid.
    void defineForFluid(const std::string& p_fluid)
    {
        m_duct.host.object(inDuct("FLUID MODELS/FLUID:") + p_fluid + "/ADDITIONAL VARIABLE:Smoke");
    }

    static std::string inDuct(const std::string& p_path) { return std::string(Duct::k_path) + "/" + p_path; }

    bool passes(const std::string& p_name)
    {
        m_duct.checker.clearErrors();
        const bool answer = m_duct.checkVariable(p_name);
        EXPECT_EQ(m_duct.found().empty(), answer);
        return answer;
    }

    Duct m_duct;
};

std::string notInDomain(const std::string& p_name)
{
    return "The Additional Variable '" + p_name +
           "' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not exist in Domain "
           "'Duct'.";
}

std::string noPhase(const std::string& p_name, const std::string& p_prefix)
{
    return "The Additional Variable '" + p_name +
           "' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid prefix '" +
           p_prefix + "'. The prefix must be a valid phase name.";
}

constexpr const char* k_needsFluid =
    "The Additional Variable 'Smoke' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is "
    "fluid-dependent and therefore requires a fluid prefix.";

constexpr const char* k_needsSolid =
    "The Additional Variable 'Smoke' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is used "
    "in a "
    "porous solid domain for a solid model and therefore requires a solid prefix.";

// Before the domain is looked at.

TEST_F(AVPrefix, IsNotDoubleWhichIsToldBeforeTheHostIsAsked)
{
    m_duct.host.prefixes("Water", "CO2").failWith("not asked");
    define(k_fluids, k_shared);

    EXPECT_FALSE(passes("Water.CO2.Smoke"));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The Additional Variable 'Water.CO2.Smoke' referenced by parameter "
                                      "'Speed' in object '/FLOW:F/DOMAIN:Duct' is invalid because it has two "
                                      "prefixes.")));
    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}), IsEmpty());
}

TEST_F(AVPrefix, ThatCannotBeClassifiedIsToldInTheWordsOfTheHost)
{
    m_duct.host.prefixes("Oil", "").failWith("There is no Oil.");

    EXPECT_FALSE(passes("Oil.Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(
                                    "Prefix error in variable 'Oil.Smoke' referenced by parameter 'Speed' in "
                                    "object '/FLOW:F/DOMAIN:Duct'.\nThere is no Oil.")));
    EXPECT_THAT(m_duct.callsBehind("prefixes.classify"), IsEmpty());
}

TEST_F(AVPrefix, OfAParticleOrMusigFluidOrFluidPairIsRefusedBeforeAnyLookup)
{
    // Given a prefix that would be right, were it that of a fluid
    define(k_fluids, k_perFluid);
    defineForFluid("Sand");
    for (const Info::Prefix1 kind :
         {Info::PARTICLE, Info::MUSIG_FLUID, Info::FLUID_PAIR, static_cast<Info::Prefix1>(9)})
    {
        m_duct.host.prefixes("Sand", "").areClassifiedAs({kind, "Sand"});

        EXPECT_FALSE(passes("Sand.Smoke")) << kind;

        EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Sand.Smoke", "Sand"))));
        EXPECT_THAT(m_duct.callsBehind("prefixes.classify"), IsEmpty());
    }
    m_duct.host.prefixes("Sand", "").areClassifiedAs({Info::PHASE, "Sand"});
    EXPECT_TRUE(passes("Sand.Smoke"));
}

TEST_F(AVPrefix, IsToldAsItIsWrittenAndNotAsTheHostNamesIt)
{
    m_duct.host.prefixes("Sand", "").areClassifiedAs({Info::PARTICLE, "Fine Sand"});

    EXPECT_FALSE(passes("Sand.Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Sand.Smoke", "Sand"))));
}

TEST_F(AVPrefix, OutsideADomainIsNotLookedAt)
{
    m_duct.objectPath = "/FLOW:F";
    EXPECT_TRUE(passes("Water.CO2.Smoke"));
    EXPECT_TRUE(passes("Smoke"));
}

TEST_F(AVPrefix, HasNothingToDoWithTheScopeOfAVariableOfTheSameName)
{
    m_duct.define("Smoke", {{"Variable Scope", "COMPONENT"}});
    define(k_fluids, k_shared);

    EXPECT_TRUE(passes("Smoke"));
}

// Where an additional variable is defined.

TEST_F(AVPrefix, OfWhatTheDomainDoesNotDefineIsRefused)
{
    for (const char* type : {"", "Fluid", "Solid", "Porous"})
    {
        domainIs(type);
        EXPECT_FALSE(passes("Smoke")) << type;
        EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Smoke"))));
        EXPECT_FALSE(passes("Water.Smoke")) << type;
        EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Water.Smoke"))));
    }
}

TEST_F(AVPrefix, OfAFluidDomainIsJudgedByTheFluidModelsAlone)
{
    for (const char* type : {"", "Fluid", "Immersed", "solid", "porous"})
    {
        domainIs(type);
        define(k_solids, k_shared);
        EXPECT_FALSE(passes("Smoke")) << type;
        EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Smoke"))));

        define(k_fluids, k_shared);
        EXPECT_TRUE(passes("Smoke")) << type;
        m_duct.host.removeObject(inDuct("FLUID MODELS/ADDITIONAL VARIABLE:Smoke"));
    }
}

TEST_F(AVPrefix, OfASolidDomainIsJudgedByTheSolidModelsAlone)
{
    domainIs("Solid");
    define(k_fluids, k_shared);
    EXPECT_FALSE(passes("Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Smoke"))));

    define(k_solids, k_shared);
    EXPECT_TRUE(passes("Smoke"));

    m_duct.host.removeObject(inDuct("FLUID MODELS/ADDITIONAL VARIABLE:Smoke"));
    EXPECT_TRUE(passes("Smoke"));
}

TEST_F(AVPrefix, OfAnotherDomainIsNoHelp)
{
    m_duct.set("/FLOW:F/DOMAIN:Pump/FLUID MODELS/ADDITIONAL VARIABLE:Smoke", "Option", k_shared);

    EXPECT_FALSE(passes("Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Smoke"))));
}

TEST_F(AVPrefix, OfAComponentIsJudgedByItsVectorAndToldByItsOwnName)
{
    m_duct.set("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type", "VECTOR");

    EXPECT_FALSE(passes("Swirl X"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Swirl X"))));

    m_duct.set(inDuct("FLUID MODELS/ADDITIONAL VARIABLE:Swirl"), "Option", k_shared);
    EXPECT_TRUE(passes("Swirl X"));

    m_duct.set(inDuct("FLUID MODELS/ADDITIONAL VARIABLE:Swirl"), "Option", k_perFluid);
    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Water/ADDITIONAL VARIABLE:Swirl"));
    EXPECT_TRUE(passes("Water.Swirl y"));
    EXPECT_FALSE(passes("Iron.Swirl y"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Iron.Swirl y"))));
}

// Without a prefix.

TEST_F(AVPrefix, IsNotNeededWhereAllFluidsShareTheVariable)
{
    define(k_fluids, k_shared);
    EXPECT_TRUE(passes("Smoke"));

    define(k_fluids, "fluid dependent");
    EXPECT_TRUE(passes("Smoke"));

    define(k_fluids, "");
    EXPECT_TRUE(passes("Smoke"));
}

TEST_F(AVPrefix, IsNeededWhereTheVariableDependsOnTheFluid)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");

    EXPECT_FALSE(passes("Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(k_needsFluid)));
}

TEST_F(AVPrefix, IsNotNeededInAnObjectOfAFluidThatDefinesTheVariable)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    m_duct.objectPath = inDuct("FLUID MODELS/FLUID:Water/INITIAL CONDITIONS");
    EXPECT_TRUE(passes("Smoke"));

    m_duct.objectPath = inDuct("FLUID MODELS/FLUID:Oil/INITIAL CONDITIONS");
    EXPECT_FALSE(passes("Smoke"));
    EXPECT_THAT(
        m_duct.found(),
        ElementsAre(AllOf(ErrorSaying("The Additional Variable 'Smoke' referenced by parameter 'Speed' "
                                      "in object '/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Oil/INITIAL "
                                      "CONDITIONS' is fluid-dependent and therefore requires a fluid "
                                      "prefix."),
                          IsAbout(m_duct.objectPath, "Speed"))));
}

TEST_F(AVPrefix, IsNotNeededUnderAFluidOfABoundaryEither)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    m_duct.objectPath = inDuct("BOUNDARY:Inlet/FLUID:Water");

    EXPECT_TRUE(passes("Smoke"));
}

TEST_F(AVPrefix, IsSuppliedByTheFluidOfTheObjectAlsoInTheDomainOfALocator)
{
    // Given an object of a fluid in one domain
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    m_duct.objectPath = "/FLOW:F/DOMAIN:Pump/FLUID MODELS/FLUID:Water";

    // When the variable is that of a locator in another
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    // Then the fluid of that name is looked for there
    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
    EXPECT_THAT(m_duct.host.calls(),
                Contains("model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water/ADDITIONAL "
                         "VARIABLE:Smoke)"));

    m_duct.objectPath = "/FLOW:F/DOMAIN:Pump/FLUID MODELS/FLUID:Oil";
    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Smoke"}));
}

TEST_F(AVPrefix, IsNeededWhereOnlyTheSolidsOfAPorousDomainDefineTheVariable)
{
    domainIs("Porous");
    define(k_solids, k_shared);

    EXPECT_FALSE(passes("Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(k_needsSolid)));
}

TEST_F(AVPrefix, IsNotNeededWhereTheFluidsOfAPorousDomainDefineTheVariable)
{
    domainIs("Porous");
    define(k_fluids, k_shared);
    EXPECT_TRUE(passes("Smoke"));

    define(k_solids, k_shared);
    EXPECT_TRUE(passes("Smoke"));
}

TEST_F(AVPrefix, IsNeededWhereASolidDomainDefinesTheVariableFluidDependently)
{
    domainIs("Solid");
    define(k_solids, k_perFluid);

    EXPECT_FALSE(passes("Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(k_needsFluid)));
}

// With a prefix.

TEST_F(AVPrefix, RefusedUnlessFluidAndSolidBothExist)
{
    define(k_fluids, k_shared);
    EXPECT_FALSE(passes("Iron.Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Iron.Smoke", "Iron"))));

    // the fluid alone
    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Iron"));
    EXPECT_FALSE(passes("Iron.Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Iron.Smoke", "Iron"))));

    // the solid alone
    m_duct.host.removeObject(inDuct("FLUID MODELS/FLUID:Iron"));
    m_duct.host.object(inDuct("SOLID DEFINITION:Iron"));
    EXPECT_FALSE(passes("Iron.Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Iron.Smoke", "Iron"))));

    // both
    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Iron"));
    EXPECT_TRUE(passes("Iron.Smoke"));
}

TEST_F(AVPrefix, IsNotMadeRightByADefinitionOfTheFluidWhereAllFluidsShareTheVariable)
{
    define(k_fluids, k_shared);
    defineForFluid("Water");
    m_duct.host.object(inDuct("FLUID DEFINITION:Water"));
    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Water"));

    EXPECT_FALSE(passes("Water.Smoke"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(noPhase("Water.Smoke", "Water"))));
}

TEST_F(AVPrefix, NamesAFluidThatDefinesAFluidDependentVariable)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    EXPECT_TRUE(passes("Water.Smoke"));

    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Iron"));
    EXPECT_FALSE(passes("Iron.Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Iron.Smoke"))));
}

TEST_F(AVPrefix, CountsMoreThanTheFluidOfTheObject)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    m_duct.objectPath = inDuct("FLUID MODELS/FLUID:Oil");
    EXPECT_TRUE(passes("Water.Smoke"));

    m_duct.objectPath = inDuct("FLUID MODELS/FLUID:Water");
    EXPECT_FALSE(passes("Iron.Smoke"));
}

TEST_F(AVPrefix, OfASolidIsRefusedInAPorousDomainWhoseSolidsDoNotDefineTheVariable)
{
    domainIs("Porous");
    define(k_fluids, k_shared);
    // the first of the names by the alphabet, the last, and one between; in no order
    for (const char* solid : {"Zinc", "Iron", "Brass", "Nickel", "Steel"})
        m_duct.host.object(inDuct("SOLID DEFINITION:") + solid);

    for (const std::string solid : {"Zinc", "Iron", "Brass", "Nickel", "Steel"})
    {
        m_duct.host.prefixes(solid, "").areClassifiedAs({Info::PHASE, solid});
        EXPECT_FALSE(passes(solid + ".Smoke"));
        EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain(solid + ".Smoke"))));
    }

    define(k_solids, k_shared);
    for (const std::string solid : {"Zinc", "Iron", "Brass", "Nickel", "Steel"})
        EXPECT_TRUE(passes(solid + ".Smoke")) << solid;
}

TEST_F(AVPrefix, ThatNamesNoSolidPassesInAPorousDomain)
{
    domainIs("Porous");
    define(k_fluids, k_shared);
    m_duct.host.object(inDuct("SOLID DEFINITION:Zinc"));
    m_duct.host.object(inDuct("FLUID DEFINITION:Water"));
    m_duct.host.object("/FLOW:F/DOMAIN:Pump/SOLID DEFINITION:Iron");

    EXPECT_TRUE(passes("Water.Smoke"));    // a fluid
    EXPECT_TRUE(passes("Iron.Smoke"));     // nothing in this domain

    define(k_solids, k_shared);
    EXPECT_TRUE(passes("Water.Smoke"));
    EXPECT_TRUE(passes("Iron.Smoke"));
}

// Two definitions in one domain, each with an option of its own.

TEST_F(AVPrefix, SolidPrefixIsRefusedWhereTheFluidsDefineItFluidDependently)
{
    // Given a porous domain whose solids define the variable, so that the prefix is right
    domainIs("Porous");
    m_duct.host.object(inDuct("SOLID DEFINITION:Iron"));
    define(k_solids, k_shared);
    EXPECT_TRUE(passes("Iron.Smoke"));

    // When its fluids define it too, each for itself
    define(k_fluids, k_perFluid);
    defineForFluid("Water");

    // Then the solid is taken for a fluid without the variable, and only the fluid's prefix passes
    EXPECT_FALSE(passes("Iron.Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(notInDomain("Iron.Smoke"))));
    EXPECT_TRUE(passes("Water.Smoke"));
}

TEST_F(AVPrefix, IsNeededInAPorousDomainWhereEitherDefinitionIsFluidDependent)
{
    domainIs("Porous");
    define(k_solids, k_shared);
    define(k_fluids, k_perFluid);
    EXPECT_FALSE(passes("Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(k_needsFluid)));

    define(k_solids, k_perFluid);
    define(k_fluids, k_shared);
    EXPECT_FALSE(passes("Smoke"));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(k_needsFluid)));
}

// What the host is asked, in order.

class AVPrefixQuestions : public AVPrefix {};

TEST_F(AVPrefixQuestions, InAFluidDomainAreThese)
{
    define(k_fluids, k_shared);

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    EXPECT_THAT(m_duct.callsFrom("prefixes.classify"),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )",
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke, "
                            "Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, FLUID DEFINITION)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, SOLID DEFINITION)"));
}

TEST_F(AVPrefixQuestions, InAPorousDomainAreThoseOfTheSolidsAndThenThoseOfTheFluids)
{
    domainIs("Porous");
    define(k_solids, k_shared);
    define(k_fluids, k_shared);

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Water.Smoke"}));

    EXPECT_THAT(m_duct.callsFrom("prefixes.classify"),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, )",
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.objectExists(/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Smoke)",
                            "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)",
                            // the solids
                            "model.paramValue(/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Smoke, "
                            "Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, FLUID DEFINITION)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, SOLID DEFINITION)",
                            // the fluids
                            "model.paramValue(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke, "
                            "Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, FLUID DEFINITION)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, SOLID DEFINITION)"));
}

TEST_F(AVPrefixQuestions, AreAskedInTheDomainOfAnObjectDeepInIt)
{
    define(k_fluids, k_perFluid);
    defineForFluid("Water");
    m_duct.objectPath = inDuct("FLUID MODELS/FLUID:Water");

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    EXPECT_THAT(m_duct.callsFrom("prefixes.classify"),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water, , )",
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke, "
                            "Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, FLUID DEFINITION)",
                            "model.childNames(/FLOW:F/DOMAIN:Duct, SOLID DEFINITION)",
                            "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water/ADDITIONAL "
                            "VARIABLE:Smoke)"));
}

/// The questions behind those that each definition begins with.
class AVPrefixLastQuestions : public AVPrefix {
protected:
    std::vector<std::string> asked() const
    {
        return m_duct.callsBehind("model.childNames(/FLOW:F/DOMAIN:Duct, SOLID DEFINITION)");
    }
};

TEST_F(AVPrefixLastQuestions, WithoutAPrefixInAPorousDomainAreWhetherSolidsAndFluidsDefineIt)
{
    domainIs("Porous");
    define(k_solids, k_shared);

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    EXPECT_THAT(
        asked(),
        ElementsAre("model.objectExists(/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Smoke)",
                    "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)"));
}

TEST_F(AVPrefixLastQuestions, WithAPrefixOnASharedVariableAreWhetherItNamesAFluidAndASolid)
{
    define(k_fluids, k_shared);
    m_duct.host.object(inDuct("FLUID MODELS/FLUID:Water"));

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Water.Smoke"}));

    EXPECT_THAT(asked(), ElementsAre("model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water)",
                                     "model.objectExists(/FLOW:F/DOMAIN:Duct/SOLID DEFINITION:Water)"));
}

TEST_F(AVPrefixLastQuestions, WithAPrefixThatNamesASolidOfAPorousDomainIsWhetherTheSolidsDefineIt)
{
    domainIs("Porous");
    define(k_fluids, k_shared);
    m_duct.host.object(inDuct("SOLID DEFINITION:Iron"));

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Iron.Smoke"}));

    EXPECT_THAT(
        asked(),
        ElementsAre("model.objectExists(/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Smoke)"));
}

TEST_F(AVPrefixLastQuestions, WithAPrefixThatNamesNoSolidOfAPorousDomainAreNone)
{
    domainIs("Porous");
    define(k_fluids, k_shared);

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Iron.Smoke"}));

    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(AVPrefixLastQuestions, WithAPrefixOnAFluidDependentVariableIsWhetherThatFluidDefinesIt)
{
    define(k_fluids, k_perFluid);

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Water.Smoke"}));

    EXPECT_THAT(asked(),
                ElementsAre("model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water/ADDITIONAL "
                            "VARIABLE:Smoke)"));
}

TEST_F(AVPrefixLastQuestions, WithoutAPrefixOnAFluidDependentVariableAreNoneOutsideAFluid)
{
    define(k_fluids, k_perFluid);

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(AVPrefixQuestions, AtAMonitorPointAreAskedInTheDomainThatThePointNames)
{
    m_duct.set("/FLOW:F/DOMAIN:Pump/FLUID MODELS/ADDITIONAL VARIABLE:Smoke", "Option", k_shared);
    m_duct.set(Duct::k_point, "Domain Name", "Pump");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Smoke"}));

    EXPECT_THAT(m_duct.callsFrom("prefixes.classify"),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Pump, , )",
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Pump, Domain Type)",
                            "model.objectExists(/FLOW:F/DOMAIN:Pump/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)",
                            "model.paramValue(/FLOW:F/DOMAIN:Pump/FLUID MODELS/ADDITIONAL VARIABLE:Smoke, "
                            "Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Pump, Domain Type)",
                            "model.childNames(/FLOW:F/DOMAIN:Pump, FLUID DEFINITION)",
                            "model.childNames(/FLOW:F/DOMAIN:Pump, SOLID DEFINITION)"));
}

TEST_F(AVPrefix, AtAMonitorPointIsJudgedInTheDomainThatThePointNames)
{
    define(k_fluids, k_shared);
    m_duct.host.object("/FLOW:F/DOMAIN:Pump");
    m_duct.set(Duct::k_point, "Domain Name", "Pump");

    EXPECT_FALSE(m_duct.checkCall({"probe", "P1", "Smoke"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The Additional Variable 'Smoke' referenced by parameter 'Speed' in "
                                      "object '/FLOW:F/DOMAIN:Duct' does not "
                                      "exist in Domain 'Pump'.")));
}

TEST_F(AVPrefixQuestions, EndWhereTheDomainDoesNotDefineTheVariable)
{
    domainIs("Porous");

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Smoke"}));

    EXPECT_THAT(
        m_duct.callsFrom("prefixes.classify"),
        ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )",
                    "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Smoke)",
                    "model.paramValue(/FLOW:F/DOMAIN:Duct, Domain Type)",
                    "model.objectExists(/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Smoke)",
                    "model.objectExists(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke)"));
}

}    // namespace
}    // namespace qen
