#include "CallbackFixture.h"

#include "DataError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using support::ErrorSaying;
using support::IsAbout;
using support::thrownBy;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Callback : public testing::Test {
protected:
    Duct m_duct;
};

// What is looked at.

TEST_F(Callback, OutsideAFlowIsNotLookedAt)
{
    // Given an object that lies in no flow, and calls of which everything is wrong
    for (const char* path : {"/LIBRARY/MATERIAL:Water", "/PHYSICS OPTIONS CONTROL", "/FLOW", ""})
    {
        m_duct.objectPath = path;

        EXPECT_TRUE(m_duct.checkCall({"no such function", "Nowhere", "x + y"})) << path;

        EXPECT_THAT(m_duct.found(), IsEmpty()) << path;
        EXPECT_THAT(m_duct.callbackCalls(), IsEmpty()) << path;
    }
}

TEST_F(Callback, InAFlowIsLookedAtWhateverTheObject)
{
    for (const char* path :
         {"/FLOW:F", "/FLOW:F/OUTPUT CONTROL", "/CASE:A/FLOW:F", "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet"})
    {
        m_duct.objectPath = path;
        m_duct.checker.clearErrors();

        EXPECT_FALSE(m_duct.checkCall({"average", "Nowhere", "Temperature"})) << path;

        EXPECT_THAT(
            m_duct.found(),
            ElementsAre(AllOf(ErrorSaying("An invalid or unrecognised locator 'Nowhere' is referenced by "
                                          "parameter 'Speed' in object '" +
                                          std::string(path) + "'."),
                              IsAbout(path, "Speed"))));
        EXPECT_THAT(m_duct.callbackCalls(), Contains("locators.isValidLocator(F, Nowhere)")) << path;
    }
}

TEST_F(Callback, OfAnotherFlowFindsItsLocatorsThere)
{
    m_duct.objectPath = "/FLOW:G/DOMAIN:Duct";

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Temperature"}));

    EXPECT_THAT(m_duct.host.callsTo({"locators."}), ElementsAre("locators.isValidLocator(G, Inlet)"));
}

TEST_F(Callback, ThatIsNotThereAsksTheHostNothing)
{
    EXPECT_TRUE(m_duct.checkCalls({}));

    EXPECT_THAT(m_duct.host.callsTo({"locators.", "names.", "model.", "prefixes."}), IsEmpty());
}

TEST_F(Callback, IsJudgedInTheOrderOfTheExpressionUpToTheFirstFault)
{
    EXPECT_FALSE(m_duct.checkCalls({{"average", "Inlet", "Temperature"},
                                    {"average", "Inlet", "Time Step"},
                                    {"average", "Nowhere", "Temperature"},
                                    {"no such function", "Inlet", "Temperature"}}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Time Step'. The "
                                      "argument must be a field-valued variable.")));
    EXPECT_THAT(m_duct.host.callsTo({"locators.isValidLocator"}),
                ElementsAre("locators.isValidLocator(F, Inlet)", "locators.isValidLocator(F, Inlet)"));
}

TEST_F(Callback, IsJudgedBeforeTheVariablesOfTheExpression)
{
    m_duct.host.expression("both")
        .references({m_duct.named("Temperature.nope", "Temperature")})
        .calls({{"average", "Nowhere", "Temperature"}});

    EXPECT_FALSE(m_duct.checker.checkParamExpression(Duct::k_path, Duct::k_param, "both"));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("An invalid or unrecognised locator 'Nowhere' is referenced by "
                                      "parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.")));
}

TEST_F(Callback, IsJudgedAlsoForAParameterOfKindExpression)
{
    m_duct.host.parameter(Duct::k_path, Duct::k_param).isKind("Expression").dependsOn({"NONE"});

    EXPECT_FALSE(m_duct.checkCall({"average", "Nowhere", "Temperature"}));
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Temperature"}));
}

// The dimension of the locator.

TEST_F(Callback, AtALocatorOfUnknownDimensionIsRefusedUnderTimeTransformation)
{
    m_duct.useTimeTransformation();

    EXPECT_FALSE(m_duct.checkCall({"rbstate", "Rotor", "Position X"}));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(
                                    "The function 'rbstate' referenced by parameter 'Speed' in object "
                                    "'/FLOW:F/DOMAIN:Duct' and its associated locator 'Rotor' have a "
                                    "disallowed dimensionality. Only point locators are supported when used "
                                    "with time transformation disturbances.")));
}

TEST_F(Callback, AtALocatorOfUnknownDimensionIsOtherwiseForEveryFunction)
{
    EXPECT_TRUE(m_duct.checkCall({"average", "Rotor", "Temperature"}));
    EXPECT_TRUE(m_duct.checkCall({"probe", "Rotor", "Temperature"}));
    EXPECT_TRUE(m_duct.checkCall({"force", "Rotor", "Temperature"}));
}

TEST_F(Callback, AtADimensionOfTheHostsOwnIsForNoFunction)
{
    m_duct.host.locator("F", "Line").hasDimension(static_cast<LocatorDimension::Value>(2));

    EXPECT_FALSE(m_duct.checkCall({"trace", "Line", "Temperature"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'trace' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' is incompatible with the dimension of its "
                                      "associated locator 'Line'.")));
}

TEST_F(Callback, LetsTheErrorOfADimensionThatCannotBePass)
{
    m_duct.host.locator("F", "Odd").hasDimension(static_cast<LocatorDimension::Value>(5));

    EXPECT_THROW(m_duct.checkCall({"trace", "Odd", "Temperature"}), std::out_of_range);

    EXPECT_THAT(m_duct.found(), IsEmpty());
}

TEST_F(Callback, AtASurfaceUnderTimeTransformationIsRefusedWhateverTheFunction)
{
    m_duct.useTimeTransformation();

    // The dimension suits none of these, or there is no such function at all.
    for (const char* function : {"probe", "no such function"})
    {
        m_duct.checker.clearErrors();
        EXPECT_FALSE(m_duct.checkCall({function, "Inlet", "Temperature"}));
        EXPECT_THAT(m_duct.found(),
                    ElementsAre(DuctError("The function '" + std::string(function) +
                                          "' referenced by parameter 'Speed' in object "
                                          "'/FLOW:F/DOMAIN:Duct' and its associated locator 'Inlet' have a "
                                          "disallowed dimensionality. Only point locators are supported when "
                                          "used with time transformation disturbances.")));
    }
}

TEST_F(Callback, IsNotHinderedByBladeRowModelsWithoutATimeTransformation)
{
    m_duct.host.object("/FLOW:F/TRANSIENT BLADE ROW MODELS");
    m_duct.host.object("/FLOW:F/TRANSIENT BLADE ROW MODELS/FOURIER TRANSFORMATION:Wake");
    m_duct.host.object("/FLOW:G/TRANSIENT BLADE ROW MODELS/TIME TRANSFORMATION:Wake");

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Temperature"}));
}

// The function.

TEST_F(Callback, LetsTheErrorOfAnUnknownFunctionPass)
{
    for (const char* locator : {"Inlet", "Rotor"})    // of known and of unknown dimension
        EXPECT_TRUE(thrownBy<data::notFound>([&] {
            m_duct.checkCall({"no such function", locator, "Temperature"});
        })) << locator;

    EXPECT_THAT(m_duct.found(), IsEmpty());
}

TEST_F(Callback, IsKnownByTheNameWithoutItsAxis)
{
    EXPECT_TRUE(m_duct.checkCall({"force{y}", "Inlet", "Temperature"}));
    EXPECT_FALSE(m_duct.checkCall({"force{y}", "Box", "Temperature"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'force{y}' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' is incompatible with the dimension of its "
                                      "associated locator 'Box'.")));
}

TEST_F(Callback, MayBeFieldValuedWhereTheParameterIsNotSingleValued)
{
    EXPECT_TRUE(m_duct.checkCall({"trace", "Inlet", "Temperature"}));
}

// Prefixes.

TEST_F(Callback, ChecksTheScopeOfItsArgumentInTheDomainOfItsLocator)
{
    m_duct.host.prefixes("Water", "").areClassifiedAs({VariablePrefixInfo::PHASE, "Water"});

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Water.Temperature"}));

    EXPECT_THAT(m_duct.found(), ElementsAre(DuctError(
                                    "The variable 'Water.Temperature' referenced by parameter 'Speed' in "
                                    "object '/FLOW:F/DOMAIN:Duct' is not allowed to have a phase prefix.")));
}

TEST_F(Callback, AtALocatorThatIsNoObjectHasItsPrefixesUnchecked)
{
    m_duct.host.prefixes("Water", "").failWith("not asked");
    m_duct.host.locator("F", "Plane").path = "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet";    // but no object

    EXPECT_TRUE(m_duct.checkCall({"average", "Plane", "Water.Temperature"}));

    EXPECT_THAT(m_duct.host.callsTo({"locators.objectPath", "prefixes."}), IsEmpty());
}

TEST_F(Callback, AtAnObjectOutsideADomainHasItsPrefixesUnchecked)
{
    m_duct.host.prefixes("Water", "").failWith("not asked");
    for (const char* path : {"", "/FLOW:F", "/FLOW:F/INTERFACE:Gap", "/FLOW:F/MONITOR POINT:P1/PART:A"})
    {
        m_duct.host.locator("F", "Plane").isObject(path);
        EXPECT_TRUE(m_duct.checkCall({"average", "Plane", "Water.Temperature"})) << path;
    }

    EXPECT_THAT(m_duct.host.callsTo({"prefixes.", "model.paramValue"}), IsEmpty());
}

TEST_F(Callback, MeansTheObjectsOwnPhasesInTheDomainOfItsLocator)
{
    // Given an object deep in the duct
    m_duct.objectPath = "/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water";

    // When the locator's path says the domain
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Temperature"}));

    // Then the prefixes are classified where the object is
    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water, , )"));
}

TEST_F(Callback, MeansThePhasesOfTheWholeDomainOfAMonitorPoint)
{
    m_duct.objectPath = "/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water";
    m_duct.set(Duct::k_point, "Domain Name", "Duct");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Temperature"}));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
}

TEST_F(Callback, IsAllowedWhereVariablesAreNot)
{
    for (const char* none : {"NONE", ""})
    {
        m_duct.host.parameter(Duct::k_path, Duct::k_param)
            .dependsOn(*none ? std::vector<std::string> {none} : std::vector<std::string>());

        EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Temperature"}));
    }
    EXPECT_THAT(m_duct.host.callsTo({"rules.dependencies"}), IsEmpty());
}

TEST_F(Callback, InAnotherDomainThanItsLocatorMeansThePhasesOfTheLocatorsDomain)
{
    m_duct.objectPath = "/FLOW:F/DOMAIN:Pump/BOUNDARY:Wall";

    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Temperature"}));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
}

}    // namespace
}    // namespace qen
