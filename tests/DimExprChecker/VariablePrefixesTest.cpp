#include "CallbackFixture.h"

#include "SplitVariableName.h"
#include "VariablePrefixInfo.h"

#include "support/CheckerPeer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen {

namespace support {

inline void PrintTo(const FailedAssertion& p_assertion, std::ostream* p_stream)
{
    *p_stream << p_assertion.message << " at " << p_assertion.file << ':' << p_assertion.line;
}

}    // namespace support

namespace {

using support::Duct;
using support::DuctError;
using support::ErrorSaying;
using support::HostReports;
using support::IsAbout;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using Info = VariablePrefixInfo;
using Classification = VariablePrefixInfo::Classification;

MATCHER_P(IsAssertion, p_line, "is an unexpected prefix type at line " + std::to_string(p_line))
{
    return arg.message == "Unexpected variable prefix type" &&
           arg.file == "PreVariables/src/DimExprChecker" && arg.line == p_line;
}

class Prefixes : public testing::Test {
protected:
    /// Has the prefixes "Water" and "CO2" classified.
    void classify(Info::Prefix1 p_first, Info::Prefix2 p_second)
    {
        m_duct.host.prefixes("Water", "CO2").areClassifiedAs({p_first, "Water", p_second, "CO2"});
    }

    /// A variable of that scope.
    void define(const std::string& p_name, const std::string& p_scope)
    {
        m_duct.define(p_name, {{"Variable Scope", p_scope}});
    }

    Duct m_duct;
};

// Where prefixes mean something.

TEST_F(Prefixes, OutsideADomainAreNotLookedAt)
{
    m_duct.host.prefixes("Water", "").failWith("not asked");
    for (const char* path :
         {"/FLOW:F", "/FLOW:F/OUTPUT CONTROL", "/LIBRARY/MATERIAL:Water", "/FLOW:F/DOMAIN"})
    {
        m_duct.objectPath = path;
        EXPECT_TRUE(m_duct.checkVariable("Water.Temperature")) << path;
    }

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}), IsEmpty());
}

TEST_F(Prefixes, AreClassifiedEvenWhenThereAreNone)
{
    EXPECT_TRUE(m_duct.checkVariable("Temperature"));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
}

TEST_F(Prefixes, AreClassifiedAsTheyAreWritten)
{
    EXPECT_TRUE(m_duct.checkVariable("Water.CO2.Temperature"));
    EXPECT_TRUE(m_duct.checkVariable(m_duct.named("Water.Temperature.tave", "Temperature")));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, CO2)",
                            "prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, )"));
}

struct Place {
    const char* name;
    const char* objectPath;
    const char* context;
};

void PrintTo(const Place& p_place, std::ostream* p_stream) { *p_stream << p_place.objectPath; }

class PrefixesOfAnObject : public testing::TestWithParam<Place> {};

TEST_P(PrefixesOfAnObject, AreClassifiedAt)
{
    Duct duct;
    duct.objectPath = GetParam().objectPath;

    EXPECT_TRUE(duct.checkVariable("Temperature"));

    EXPECT_THAT(duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(" + std::string(GetParam().context) + ", , )"));
}

INSTANTIATE_TEST_SUITE_P(
    , PrefixesOfAnObject,
    testing::Values(Place {"TheDomainForTheDomain", "/FLOW:F/DOMAIN:Duct", "/FLOW:F/DOMAIN:Duct"},
                    Place {"TheObjectInTheDomain", "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/BOUNDARY CONDITIONS",
                           "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/BOUNDARY CONDITIONS"},
                    // the name of the first level, whatever its type, is taken for that of the flow
                    Place {"TheDomainWhenTheFirstLevelIsNoFlow", "/CASE:A/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet",
                           "/FLOW:A/DOMAIN:Duct"},
                    Place {"TheDomainWhenThereIsNoFlow", "/CASE:A/DOMAIN:Duct/BOUNDARY:Inlet",
                           "/FLOW:A/DOMAIN:Duct"},
                    Place {"TheDomainOfANamelessFlow", "/CASES/FLOW:F/DOMAIN:Duct", "/FLOW/DOMAIN:Duct"},
                    Place {"TheDomainWhenOthersStandBetween", "/FLOW:F/GROUP:G/DOMAIN:Duct/BOUNDARY:Inlet",
                           "/FLOW:F/DOMAIN:Duct"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

TEST_F(Prefixes, InADomainWithoutANameFailAnAssertionAndAreCheckedAllTheSame)
{
    const SplitVariableName name("Water.Temperature", m_duct.host.rootNameFinder());
    m_duct.host.forgetCalls();

    DimExprCheckerPeer::checkVariablePrefixes(m_duct.checker, Duct::k_path, Duct::k_param, "", name, true);

    ASSERT_EQ(HostReports::failedAssertions().size(), 1U);
    EXPECT_EQ(HostReports::failedAssertions()[0].message, "!p_domainName.empty()");
    EXPECT_EQ(HostReports::failedAssertions()[0].file, "PreVariables/src/DimExprChecker");
    EXPECT_EQ(HostReports::failedAssertions()[0].line, 847);
    EXPECT_THAT(m_duct.host.calls(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN, Water, )"));
}

TEST_F(Prefixes, OfAnObjectInAnotherDomainAreClassifiedInTheDomainThatIsAskedFor)
{
    const SplitVariableName name("Water.Temperature", m_duct.host.rootNameFinder());
    m_duct.host.forgetCalls();
    const std::string inlet = "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet";

    DimExprCheckerPeer::checkVariablePrefixes(m_duct.checker, inlet, Duct::k_param, "Pump", name, true);
    DimExprCheckerPeer::checkVariablePrefixes(m_duct.checker, inlet, Duct::k_param, "Duct", name, false);
    DimExprCheckerPeer::checkVariablePrefixes(m_duct.checker, inlet, Duct::k_param, "Duct", name, true);

    EXPECT_THAT(m_duct.host.calls(),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Pump, Water, )",
                            "prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, )",
                            "prefixes.classify(/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet, Water, )"));
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(Prefixes, AreCheckedWhereTheObjectIs)
{
    const SplitVariableName name("Water.Temperature", m_duct.host.rootNameFinder());
    m_duct.host.forgetCalls();

    for (const char* path : {"/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "/FLOW:F", "/FLOW:F/DOMAIN"})
        DimExprCheckerPeer::checkVariablePrefixes(m_duct.checker, path, Duct::k_param, name);

    EXPECT_THAT(m_duct.host.calls(),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet, Water, )"));
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(Prefixes, ThatCannotBeClassifiedAreToldInTheWordsOfTheHost)
{
    m_duct.host.prefixes("Oil", "CO2").failWith("'Oil' is no fluid of 'Duct'.");
    // what is said beside an error does not count
    m_duct.host.prefixes("Oil", "CO2").areClassifiedAs({Info::PARTICLE, "Oil", Info::COMPONENT, "CO2"});

    EXPECT_FALSE(m_duct.checkVariable("Oil.CO2.Temperature"));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(
                                    "Prefix error in variable 'Oil.CO2.Temperature' referenced by parameter "
                                    "'Speed' in object '/FLOW:F/DOMAIN:Duct'.\n'Oil' is no fluid of "
                                    "'Duct'.")));
}

TEST_F(Prefixes, OfAParameterOfKindExpressionAreNotLookedAt)
{
    m_duct.host.parameter(Duct::k_path, Duct::k_param).isKind("Expression");
    m_duct.host.prefixes("Water", "").failWith("not asked");

    EXPECT_TRUE(m_duct.checkVariable("Water.Temperature"));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}), IsEmpty());
}

// Prefixes that the scope of the variable does not allow.

struct Refusal {
    const char* name;
    Info::Prefix1 first;
    Info::Prefix2 second;
    const char* scope;
    const char* text;
};

void PrintTo(const Refusal& p_refusal, std::ostream* p_stream) { *p_stream << p_refusal.name; }

class PrefixRefused : public testing::TestWithParam<Refusal> {};

TEST_P(PrefixRefused, With)
{
    Duct duct;
    duct.define("Share", {{"Variable Scope", GetParam().scope}});
    duct.host.prefixes("Water", "CO2").areClassifiedAs({GetParam().first, "Water", GetParam().second, "CO2"});

    EXPECT_FALSE(duct.checkVariable("Water.CO2.Share"));

    EXPECT_THAT(duct.found(), ElementsAre(DuctError(GetParam().text)));
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, PrefixRefused, testing::Values(
    Refusal {"Phase", Info::PHASE, Info::NONE,
        "GLOBAL,PARTICLE,MUSIG FLUID,FLUID PAIR,COMPONENT,REACTION,SIZE GROUP,Phase,PHASES",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a phase prefix."},
    Refusal {"FluidPair", Info::FLUID_PAIR, Info::NONE, "GLOBAL,PHASE,PARTICLE,MUSIG FLUID",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a fluid pair prefix."},
    Refusal {"Particle", Info::PARTICLE, Info::NONE, "GLOBAL,PHASE,FLUID PAIR,MUSIG FLUID,PARTICLE COMPONENT",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a particle prefix."},
    Refusal {"MusigFluid", Info::MUSIG_FLUID, Info::NONE, "GLOBAL,PHASE,FLUID PAIR,PARTICLE",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a musig fluid prefix."},

    Refusal {"Component", Info::PHASE, Info::COMPONENT, "GLOBAL,PHASE,PARTICLE COMPONENT,SIZE GROUP",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a component name prefix."},
    Refusal {"ParticleComponent", Info::PARTICLE, Info::PARTICLE_COMPONENT, "PARTICLE,COMPONENT",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a 'particle.component' prefix."},
    Refusal {"SizeGroup", Info::MUSIG_FLUID, Info::SIZE_GROUP, "MUSIG FLUID,COMPONENT",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a size group prefix."},

    Refusal {"FlameletReaction", Info::PHASE, Info::REACFLMLET, "PHASE,REACTION,REACSNGL",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a flamelet reaction prefix."},
    Refusal {"SingleStepReaction", Info::PHASE, Info::REACSNGL, "PHASE,REACTION,REACFLMLET",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a single step reaction prefix."},
    Refusal {"Reaction", Info::PHASE, Info::REACTION, "PHASE,COMPONENT",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a reaction prefix."},
    Refusal {"ReactionOfAVariableOfFlameletAndSingleStepReactions", Info::PHASE, Info::REACTION,
        "REACSNGL,PHASE,REACFLMLET",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a reaction prefix unless it is a flamelet or single step reaction."},
    Refusal {"ReactionOfAVariableOfFlameletReactions", Info::PHASE, Info::REACTION, "REACFLMLET",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a reaction prefix unless it is a flamelet reaction."},
    Refusal {"ReactionOfAVariableOfSingleStepReactions", Info::PHASE, Info::REACTION, "REACSNGL",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a reaction prefix unless it is a single step reaction."},

    // the second prefix is told, also where the first is wrong too
    Refusal {"SecondPrefixBeforeTheFirst", Info::FLUID_PAIR, Info::COMPONENT, "GLOBAL",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a component name prefix."},
    Refusal {"SecondPrefixWithoutAFirst", Info::GLOBAL, Info::COMPONENT, "GLOBAL,PHASE",
        "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not allowed "
        "to have a component name prefix."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

// Prefixes that it allows.

struct Allowance {
    const char* name;
    Info::Prefix1 first;
    Info::Prefix2 second;
    const char* scope;
};

void PrintTo(const Allowance& p_allowance, std::ostream* p_stream) { *p_stream << p_allowance.name; }

class PrefixAllowed : public testing::TestWithParam<Allowance> {};

TEST_P(PrefixAllowed, With)
{
    Duct duct;
    duct.define("Share", {{"Variable Scope", GetParam().scope}});
    duct.host.prefixes("Water", "CO2").areClassifiedAs(
        {GetParam().first, "Water", GetParam().second, "CO2"});

    EXPECT_TRUE(duct.checkVariable("Water.CO2.Share"));

    EXPECT_THAT(duct.found(), IsEmpty());
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, PrefixAllowed, testing::Values(
    Allowance {"Phase", Info::PHASE, Info::NONE, "COMPONENT,PHASE"},
    Allowance {"Particle", Info::PARTICLE, Info::NONE, "PARTICLE"},
    Allowance {"MusigFluid", Info::MUSIG_FLUID, Info::NONE, "GLOBAL,MUSIG FLUID"},
    Allowance {"FluidPair", Info::FLUID_PAIR, Info::NONE, "FLUID PAIR"},
    Allowance {"Component", Info::PHASE, Info::COMPONENT, "COMPONENT"},
    Allowance {"ParticleComponent", Info::PARTICLE, Info::PARTICLE_COMPONENT, "PARTICLE COMPONENT"},
    Allowance {"SingleStepReaction", Info::PHASE, Info::REACSNGL, "REACSNGL"},
    Allowance {"FlameletReaction", Info::PHASE, Info::REACFLMLET, "REACFLMLET"},
    Allowance {"Reaction", Info::PHASE, Info::REACTION, "REACTION"},
    Allowance {"SizeGroup", Info::MUSIG_FLUID, Info::SIZE_GROUP, "SIZE GROUP"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST_F(Prefixes, AnAllowedSecondPrefixEndsTheCheck)
{
    // Given a variable of components alone, and first prefixes of every kind, none of which it may have
    define("Share", "COMPONENT");
    for (const Info::Prefix1 first : {Info::GLOBAL, Info::GLOBAL_OR_PHASE, Info::PHASE, Info::PARTICLE,
                                      Info::MUSIG_FLUID, Info::FLUID_PAIR, static_cast<Info::Prefix1>(9)})
    {
        classify(first, Info::NONE);
        EXPECT_FALSE(m_duct.checkVariable("Water.CO2.Share")) << first;
        HostReports::reset();

        // Then the component is enough
        classify(first, Info::COMPONENT);
        EXPECT_TRUE(m_duct.checkVariable("Water.CO2.Share")) << first;
        EXPECT_THAT(HostReports::failedAssertions(), IsEmpty()) << first;
    }
}

// Without a prefix.

struct NoPrefix {
    const char* name;
    Info::Prefix1 kind;
    const char* scope;
    const char* text;    // empty when it passes
};

void PrintTo(const NoPrefix& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

class VariableWithoutPrefix : public testing::TestWithParam<NoPrefix> {};

TEST_P(VariableWithoutPrefix, Of)
{
    Duct duct;
    duct.define("Share", {{"Variable Scope", GetParam().scope}});
    duct.host.prefixes("", "").areClassifiedAs({GetParam().kind, ""});
    const std::string text = GetParam().text;

    EXPECT_EQ(duct.checkVariable("Share"), text.empty());

    if (text.empty())
        EXPECT_THAT(duct.found(), IsEmpty());
    else
        EXPECT_THAT(duct.found(), ElementsAre(DuctError(text)));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, VariableWithoutPrefix, testing::Values(
    NoPrefix {"GlobalScopePasses", Info::GLOBAL, "GLOBAL", ""},
    NoPrefix {"GlobalScopePassesWhereOnePhaseIsMeant", Info::GLOBAL_OR_PHASE, "GLOBAL", ""},
    NoPrefix {"GlobalScopeAmongOthersPasses", Info::GLOBAL, "COMPONENT,GLOBAL,PHASE", ""},
    NoPrefix {"PhaseScopePassesWhereOnePhaseIsMeant", Info::GLOBAL_OR_PHASE, "PHASE", ""},
    NoPrefix {"PhaseScopeAmongOthersPassesWhereOnePhaseIsMeant", Info::GLOBAL_OR_PHASE, "COMPONENT,PHASE", ""},
    NoPrefix {"PhaseScopeNeedsAPhase", Info::GLOBAL, "PHASE",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have a required "
        "phase prefix."},
    NoPrefix {"ComponentScopeNeedsAComponentAlsoWhereOnePhaseIsMeant", Info::GLOBAL_OR_PHASE, "COMPONENT",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have a required "
        "component prefix."},
    NoPrefix {"UnknownScopeIsToldAsAnyOther", Info::GLOBAL, "ELSEWHERE",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have a required "
        "elsewhere prefix."},
    NoPrefix {"GlobalInLowerCaseIsAnUnknownScope", Info::GLOBAL, "global",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have a required "
        "global prefix."},
    NoPrefix {"TwoScopesNeedOneOfThem", Info::GLOBAL, "PHASE,COMPONENT",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have one of the "
        "required prefixes: phase or component."},
    NoPrefix {"ThreeScopesNeedOneOfThem", Info::GLOBAL_OR_PHASE, "SIZE GROUP,MUSIG FLUID,COMPONENT",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have one of the "
        "required prefixes: size group, musig fluid or component."},
    NoPrefix {"FourScopesNeedOneOfThem", Info::GLOBAL, "REACSNGL,REACFLMLET,PHASE,FLUID PAIR",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have one of the "
        "required prefixes: reacsngl, reacflmlet, phase or fluid pair."},
    NoPrefix {"ScopesThatDifferInCaseAloneAreBothTold", Info::GLOBAL, "PHASE,Phase",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have one of the "
        "required prefixes: phase or phase."},
    NoPrefix {"AScopeWrittenTwiceIsToldOnce", Info::GLOBAL, "COMPONENT,COMPONENT",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' does not have a required "
        "component prefix."},
    NoPrefix {"NoScopeIsAFaultOfTheDefinition", Info::GLOBAL, "",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not properly "
        "specified in the VARIABLES file.  It is missing a \"Variable Scope\" parameter.  Therefore its  use in this "
        "expression cannot be properly validated."},
    NoPrefix {"NoScopeIsAFaultAlsoWhereOnePhaseIsMeant", Info::GLOBAL_OR_PHASE, "",
        "The variable 'Share' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is not properly "
        "specified in the VARIABLES file.  It is missing a \"Variable Scope\" parameter.  Therefore its  use in this "
        "expression cannot be properly validated."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST_F(Prefixes, ThatAreMissingAreListedInTheOrderInWhichTheDefinitionsFirstNamedThem)
{
    define("Earlier", "SIZE GROUP,FLUID PAIR");
    define("Share", "COMPONENT,FLUID PAIR,SIZE GROUP");

    EXPECT_FALSE(m_duct.checkVariable("Share"));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The variable 'Share' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' does not have one of the required prefixes: "
                                      "size group, fluid pair or component.")));
}

TEST_F(Prefixes, ThatAreMissingAreToldWithTheWholeName)
{
    define("Share", "COMPONENT");
    m_duct.objectPath = "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet";

    EXPECT_FALSE(m_duct.checkVariable(m_duct.named("Share.tave", "Share")));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(AllOf(ErrorSaying("The variable 'Share.tave' referenced by parameter 'Speed' in "
                                              "object '/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet' does not have a "
                                              "required component prefix."),
                                  IsAbout("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed"))));
}

TEST_F(Prefixes, OfAVariableAreJudgedByTheKindTheHostTellsAndNotByHowTheyAreWritten)
{
    // Given a host that takes a prefix for none
    m_duct.host.prefixes("Water", "").areClassifiedAs({Info::GLOBAL_OR_PHASE, ""});
    define("Share", "PHASE");

    EXPECT_TRUE(m_duct.checkVariable("Water.Share"));
}

// Kinds of prefix that do not exist.

TEST_F(Prefixes, OfAnUnknownSecondKindFailAnAssertionAndAreJudgedByTheFirst)
{
    define("Share", "PHASE");
    for (const int kind : {7, 100, -1})
    {
        HostReports::reset();
        m_duct.checker.clearErrors();
        classify(Info::PHASE, static_cast<Info::Prefix2>(kind));
        EXPECT_TRUE(m_duct.checkVariable("Water.CO2.Share")) << kind;
        EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1690)));

        HostReports::reset();
        classify(Info::PARTICLE, static_cast<Info::Prefix2>(kind));
        EXPECT_FALSE(m_duct.checkVariable("Water.CO2.Share")) << kind;
        EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1690)));
        EXPECT_THAT(m_duct.found(),
                    ElementsAre(DuctError("The variable 'Water.CO2.Share' referenced by parameter 'Speed' in "
                                          "object '/FLOW:F/DOMAIN:Duct' is not allowed to have a particle "
                                          "prefix.")));
    }
}

TEST_F(Prefixes, OfAnUnknownSecondKindWithoutAFirstAreJudgedAsNone)
{
    define("Share", "PHASE");
    classify(Info::GLOBAL, static_cast<Info::Prefix2>(7));

    EXPECT_FALSE(m_duct.checkVariable("Water.CO2.Share"));

    EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1690)));
    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(
                                    "The variable 'Water.CO2.Share' referenced by parameter 'Speed' in "
                                    "object '/FLOW:F/DOMAIN:Duct' does not have a required phase prefix.")));
}

TEST_F(Prefixes, OfAnUnknownFirstKindFailAnAssertionAndAreJudgedAsAFluidPair)
{
    define("Share", "GLOBAL,PHASE,PARTICLE,MUSIG FLUID");
    define("Drag", "FLUID PAIR");
    for (const int kind : {6, 100})
    {
        HostReports::reset();
        m_duct.checker.clearErrors();
        classify(static_cast<Info::Prefix1>(kind), Info::NONE);
        EXPECT_TRUE(m_duct.checkVariable("Water.CO2.Drag")) << kind;
        EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1775)));

        HostReports::reset();
        EXPECT_FALSE(m_duct.checkVariable("Water.CO2.Share")) << kind;
        EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1775)));
        EXPECT_THAT(m_duct.found(),
                    ElementsAre(DuctError("The variable 'Water.CO2.Share' referenced by parameter 'Speed' in "
                                          "object '/FLOW:F/DOMAIN:Duct' is not allowed to have a fluid pair "
                                          "prefix.")));
    }
}

TEST_F(Prefixes, OfTwoUnknownKindsFailBothAssertionsInOrder)
{
    define("Drag", "FLUID PAIR");
    classify(static_cast<Info::Prefix1>(8), static_cast<Info::Prefix2>(8));

    EXPECT_TRUE(m_duct.checkVariable("Water.CO2.Drag"));

    EXPECT_THAT(HostReports::failedAssertions(), ElementsAre(IsAssertion(1690), IsAssertion(1775)));
}

}    // namespace
}    // namespace qen
