#include "VariablesFixture.h"

#include "DataError.h"

#include "DimExprChecker/DimExprErrors.h"
#include "support/CheckerPeer.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ErrorSaying;
using support::HostReports;
using support::IsAbout;
using support::records;
using support::thrownBy;
using testing::AllOf;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;

class Availability : public support::VariablesTest {
protected:
    Availability()
    {
        define("wind", "SCALAR", "True", {{"Physical Availability", "TRANSIENT"}});
        define("spin", "SCALAR", "True", {{"Physical Availability", "RFR"}});
        define("eddy", "SCALAR", "True", {{"Physical Availability", "TURBULENT,!RFR"}});
    }

    /// The step alone, which additional variables do not reach by way of an expression.
    void checkStep(std::initializer_list<const char*> p_names)
    {
        std::vector<SplitVariableName> names;
        for (const char* name : p_names)
            names.emplace_back(name, m_host.rootNameFinder());
        m_host.forgetCalls();
        DimExprCheckerPeer::checkVariableAvailability(m_checker, k_duct, "Width", names);
    }

    /// What the step raises.
    std::string raisedFor(std::initializer_list<const char*> p_names)
    {
        const auto thrown = thrownBy<DimExprErrors::dxerror>([&] { checkStep(p_names); });
        return thrown ? thrown->getMessage() : "";
    }
};

// What the rules of the parameter list.

TEST_F(Availability, IsGivenToTheVariablesThatTheRulesList)
{
    width().dependsOn({"p", "T"});

    EXPECT_TRUE(check({"T", "p"}));
    EXPECT_TRUE(check({"Water.T", {"T.ave", "T"}}));
}

TEST_F(Availability, IsNotGivenToAVariableThatTheRulesDoNotList)
{
    width().dependsOn({"p"});

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   T"));
}

TEST_F(Availability, NamesTheRootsThatTheRulesDoNotListSortedAndOnce)
{
    width().dependsOn({"p"});

    EXPECT_FALSE(check({{"vel{x}", "vel"}, "p", "Water.T", {"Air.T.ave", "T"}, "spin"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   T,spin,vel"));
}

TEST_F(Availability, IsAskedForByTheRoots)
{
    width().dependsOn({"vel", "T"});

    EXPECT_TRUE(check({{"vel{x:Rotor}", "vel"}, {"Water.T.ave", "T"}}));

    EXPECT_THAT(m_host.callsTo({"shortNames."}),
                ElementsAre("shortNames.shortName(vel)", "shortNames.shortName(T)"));
}

TEST_F(Availability, IsJudgedByTheShortNameOfTheRoot)
{
    define("temp", "SCALAR", "True", {{"Long Name", "Temperature"}});
    m_host.variableName("Temperature").hasShortName("temp");
    width().dependsOn({"temp"});

    EXPECT_TRUE(check({"Water.Temperature"}));
}

TEST_F(Availability, OfEverythingIsGivenByAny)
{
    width().dependsOn({"ANY"});

    EXPECT_TRUE(check({"T", "tstep"}));

    EXPECT_THAT(m_host.callsTo({"shortNames."}), IsEmpty());
}

TEST_F(Availability, IsNotRestrictedByWhatFollowsAny)
{
    width().dependsOn({"ANY", "p", "XYZ"});

    EXPECT_TRUE(check({"T", "tstep"}));

    EXPECT_THAT(m_host.callsTo({"shortNames."}), IsEmpty());
}

TEST_F(Availability, AnyCountsOnlyAsTheFirstEntry)
{
    width().dependsOn({"p", "ANY"});

    EXPECT_FALSE(check({"T", "p"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   T"));
}

TEST_F(Availability, TakesAnyExactly)
{
    for (const char* word : {"Any", "any", "ANY ", " ANY", ""})
    {
        width().dependsOn({word});
        EXPECT_FALSE(check({"T"})) << '"' << word << '"';
    }
}

// What the physics of the domain provides.

TEST_F(Availability, DependsOnThePhysicsOfTheDomain)
{
    EXPECT_FALSE(check({"wind"}));
    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   wind"));

    m_host.query("isSimTypetransient", "/FLOW:F/DOMAIN:Pipe").isTrue();

    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Pipe", "Width", {"wind"}));
}

TEST_F(Availability, IsJudgedAtTheObjectNotAtItsDomain)
{
    m_host.query("isSimTypetransient", "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet").isTrue();

    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed", {"wind"}));
    EXPECT_FALSE(checkAt("/FLOW:F/DOMAIN:Duct/BOUNDARY:Outlet", "Speed", {"wind"}));

    EXPECT_THAT(m_host.callsTo({"physics."}),
                ElementsAre("physics.evalBool(isSimTypetransient, /FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet)",
                            "physics.evalBool(isSimTypetransient, /FLOW:F/DOMAIN:Duct/BOUNDARY:Outlet)"));
    EXPECT_THAT(records(m_checker),
                ElementsAre(AllOf(ErrorSaying("Parameter 'Speed' in object "
                                              "'/FLOW:F/DOMAIN:Duct/BOUNDARY:Outlet' has been assigned an "
                                              "expression that references the following unavailable "
                                              "variables:   wind"),
                                  IsAbout("/FLOW:F/DOMAIN:Duct/BOUNDARY:Outlet", "Speed"))));
}

TEST_F(Availability, IsJudgedByTheKeywordsOfTheRoot)
{
    m_host.query("isDomTurbMTurbForQEL", k_duct).isTrue();
    EXPECT_TRUE(check({{"Water.eddy.ave", "eddy"}}));

    m_host.query("isRFR", "/FLOW:F/DOMAIN:Pipe").isTrue();
    m_host.query("isDomTurbMTurbForQEL", "/FLOW:F/DOMAIN:Pipe").isTrue();
    EXPECT_FALSE(checkAt("/FLOW:F/DOMAIN:Pipe", "Width", {"eddy"}));
}

TEST_F(Availability, DependsOnThePhysicsAlsoWhereTheRulesSayAny)
{
    width().dependsOn({"ANY", "p"});

    EXPECT_FALSE(check({"T", "wind"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   wind"));
}

TEST_F(Availability, DoesNotDependOnPhysicsOutsideADomain)
{
    for (const char* place : {"/FLOW:F", "/FLOW:F/OUTPUT CONTROL", "/FLOW:F/DOMAIN", "/FLOW:F/DOMAIN/SUB:S"})
        EXPECT_TRUE(checkAt(place, "Width", {"wind", "spin"})) << place;

    EXPECT_THAT(m_host.callsTo({"physics."}), IsEmpty());
}

TEST_F(Availability, DependsOnTheRulesOutsideADomainToo)
{
    m_host.parameter("/FLOW:F", "Width").dependsOn({"p"});

    EXPECT_FALSE(checkAt("/FLOW:F", "Width", {"T"}));

    EXPECT_THAT(records(m_checker),
                ElementsAre(AllOf(ErrorSaying("Parameter 'Width' in object '/FLOW:F' has been assigned an "
                                              "expression that references the following unavailable "
                                              "variables:   T"),
                                  IsAbout("/FLOW:F", "Width"))));
}

TEST_F(Availability, NamesAllThatThePhysicsDoNotProvideSortedAndOnce)
{
    EXPECT_FALSE(check({"wind", "Water.spin", "T", {"Air.spin.ave", "spin"}, "eddy"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   eddy,spin,wind"));
}

TEST_F(Availability, AsksThePhysicsOfAllVariablesInTheirOrder)
{
    EXPECT_FALSE(check({"wind", "spin", "eddy"}));

    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "shortNames.", "physics."}),
                ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "physics.evalBool(isSimTypetransient, /FLOW:F/DOMAIN:Duct)",
                            "physics.evalBool(isRFR, /FLOW:F/DOMAIN:Duct)",
                            "physics.evalBool(isDomTurbMTurbForQEL, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(Availability, IsNotAskedOfThePhysicsWhenTheRulesRefuse)
{
    width().dependsOn({"wind"});

    EXPECT_FALSE(check({"wind", "T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   T"));
    EXPECT_THAT(m_host.callsTo({"physics."}), IsEmpty());
}

// Additional variables.

TEST_F(Availability, OfAnAdditionalVariableIsNotAskedForByAnExpression)
{
    additionalVariable("Dye", "SCALAR");
    width().dependsOn({"p"});

    EXPECT_TRUE(check({"Dye", "p"}));

    EXPECT_THAT(m_host.callsTo({"shortNames.", "physics."}), ElementsAre("shortNames.shortName(p)"));
}

TEST_F(Availability, IsGivenWhenThereAreNoNamesAtAll)
{
    additionalVariable("Dye", "SCALAR");
    width().dependsOn({"p"});

    EXPECT_TRUE(check({"Dye"}));

    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "shortNames.", "physics."}),
                ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(Availability, IsNeverGivenToAdditionalVariablesWhereTheRulesRestrict)
{
    m_host.variableName("Water.Smoke").isAV();
    m_host.variableName("Air.Smoke").isAV();
    m_host.variableName("Dye").isAV();
    width().dependsOn({"Dye", "Smoke"});

    EXPECT_EQ(raisedFor({"Water.Smoke", "T", "Dye", "Air.Smoke"}),
              "Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression that "
              "references additional variables. This is not allowed for this parameter. The additional "
              "variables referenced are:  Dye,Smoke.");
    EXPECT_THAT(m_host.calls(), ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(Availability, IsGivenToAdditionalVariablesByAny)
{
    m_host.variableName("T").isAV();
    width().dependsOn({"ANY", "p"});

    checkStep({"T"});    // raises nothing

    EXPECT_THAT(m_host.calls(), ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(Availability, OfAdditionalVariablesDependsOnThePhysicsAsThatOfOthers)
{
    m_host.variableName("wind").isAV();

    EXPECT_EQ(raisedFor({"wind"}),
              "Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression that "
              "references the following unavailable variables:   wind");
}

TEST_F(Availability, LetsTheCataloguesErrorPassForANameThatIsInNone)
{
    m_host.variableName("Dye").isAV();

    const auto thrown = thrownBy<data::notFound>([&] { checkStep({"Dye"}); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable 'Dye' does not exist.");
}

// Rules that list nothing when they are asked again.

TEST_F(Availability, IsNotGivenByAnEmptyListWhichFailsAnAssertion)
{
    width().dependsOn({"T"});
    int asked = 0;
    m_host.onCall("rules.dependencies", [&] {
        if (++asked == 2)
            width().dependsOn({});
    });

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(HostReports::failedAssertions(),
                ElementsAre(FieldsAre("!dependencyList.empty()", "PreVariables/src/DimExprChecker", 696)));
    EXPECT_THAT(records(m_checker),
                onlyError("Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression "
                          "that references the following unavailable variables:   "));
}

TEST_F(Availability, IsGivenToNoNamesByAnEmptyListToo)
{
    width().dependsOn({});

    checkStep({});    // raises nothing

    EXPECT_THAT(HostReports::failedAssertions(),
                ElementsAre(FieldsAre("!dependencyList.empty()", "PreVariables/src/DimExprChecker", 696)));
}

TEST_F(Availability, IsNeverGivenToAdditionalVariablesByAnEmptyList)
{
    m_host.variableName("Dye").isAV();
    width().dependsOn({});

    EXPECT_EQ(raisedFor({"Dye"}),
              "Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' has been assigned an expression that "
              "references additional variables. This is not allowed for this parameter. The additional "
              "variables referenced are:  Dye.");
    EXPECT_THAT(HostReports::failedAssertions(),
                ElementsAre(FieldsAre("!dependencyList.empty()", "PreVariables/src/DimExprChecker", 696)));
}

}    // namespace
}    // namespace qen
