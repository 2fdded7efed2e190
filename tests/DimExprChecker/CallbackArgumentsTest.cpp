#include "CallbackFixture.h"

#include "DataError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using support::IsAbout;
using support::thrownBy;
using testing::ElementsAre;
using testing::IsEmpty;

class CallbackArgument : public testing::Test {
protected:
    Duct m_duct;
};

// What it may be.

TEST_F(CallbackArgument, IsNoArithmetic)
{
    for (const char* argument : {"Temperature*2", "-Temperature", "Temperature/2", "Temperature^2",
                                 "(Temperature)", "abs(Temperature)", "Temperature[1]"})
    {
        m_duct.checker.clearErrors();
        EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", argument}));
        EXPECT_THAT(
            m_duct.found(),
            ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                                  "'/FLOW:F/DOMAIN:Duct' has an invalid argument, '" +
                                  std::string(argument) +
                                  "'. Only arguments that consist of a single recognised variable name are "
                                  "supported by the solver.")));
    }
}

TEST_F(CallbackArgument, IsNoNameWithoutARoot)
{
    m_duct.host.variableName("Nonsense").hasNoRoot();

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Nonsense"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Nonsense'. Only "
                                      "arguments that consist of a single recognised variable name are "
                                      "supported by the solver.")));
}

TEST_F(CallbackArgument, ThatCannotBeSplitIsRecordedInTheWordsOfTheSplitting)
{
    m_duct.host.isNotAVariableName("Temperature..x");
    m_duct.named("Temperature..x", "Temperature");

    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", "Temperature..x"}));

    EXPECT_THAT(m_duct.found(), ElementsAre(IsAbout(Duct::k_path, Duct::k_param)));
    EXPECT_THAT(m_duct.host.callsTo({"locators."}), IsEmpty());
}

TEST_F(CallbackArgument, IsNoInternalVariableByAnyOfItsNamesAndWithAnyPrefix)
{
    Duct duct(Duct::Coordinates::Undefined);
    for (const char* name : {"y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
        duct.define(name, {});
    duct.define("x", {{"Long Name", "X Coordinate"}, {"Old Long Name", "Old X"}});

    for (const char* argument : {"x", "X Coordinate", "Old X", "aaxis", "Water.raxis"})
    {
        duct.checker.clearErrors();
        EXPECT_FALSE(duct.checkCall({"average", "Inlet", argument}));
        EXPECT_THAT(duct.found(),
                    ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                                          "'/FLOW:F/DOMAIN:Duct' has a disallowed argument, '" +
                                          std::string(argument) +
                                          "'. The solver does not support the use of this variable in this "
                                          "context.")));
    }
}

TEST_F(CallbackArgument, LetsTheErrorOfAMissingCoordinatePass)
{
    Duct duct(Duct::Coordinates::Undefined);

    EXPECT_TRUE(thrownBy<data::notFound>([&] { duct.checkCall({"average", "Inlet", "Temperature"}); }));

    EXPECT_THAT(duct.found(), IsEmpty());
}

TEST_F(CallbackArgument, LetsTheErrorOfAMissingCoordinatePassAlsoWhenItIsEmpty)
{
    Duct duct(Duct::Coordinates::Undefined);

    EXPECT_TRUE(thrownBy<data::notFound>([&] { duct.checkCall({"average", "Nowhere", ""}); }));
}

TEST_F(CallbackArgument, ThatIsNoVariableIsToldBeforeTheCoordinatesAreNeeded)
{
    Duct duct(Duct::Coordinates::Undefined);

    EXPECT_FALSE(duct.checkCall({"average", "Inlet", "1 + 1"}));

    EXPECT_THAT(
        duct.found(),
        ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                              "'/FLOW:F/DOMAIN:Duct' has an invalid argument, '1 + 1'. Only arguments that "
                              "consist of a single recognised variable name are supported by the solver.")));
}

TEST_F(CallbackArgument, LetsTheErrorOfAVariableThatIsNotDefinedPass)
{
    EXPECT_TRUE(thrownBy<data::notFound>([&] { m_duct.checkCall({"average", "Plane", "Unheard"}); }));

    EXPECT_THAT(m_duct.found(), IsEmpty());
}

TEST_F(CallbackArgument, MayNameAnOperatorByItsLongName)
{
    EXPECT_TRUE(
        m_duct.checkCall({"average", "Inlet", m_duct.named("Temperature.Time Average", "Temperature")}));
}

TEST_F(CallbackArgument, MayBeAWholeVector)
{
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", "Velocity"}));
}

TEST_F(CallbackArgument, MayNameACoordinateFrame)
{
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", m_duct.named("Velocity{x:Shaft}", "Velocity")}));
}

// When it is empty.

TEST_F(CallbackArgument, WhenEmptyNeedsNoFieldAndNoPrefixes)
{
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", ""}));

    EXPECT_THAT(m_duct.host.callsTo({"locators.isModelObject", "locators.objectPath", "prefixes.",
                                     "evaluator.rootVariableName"}),
                IsEmpty());
}

TEST_F(CallbackArgument, WhenEmptyIsFollowedByTheOthers)
{
    EXPECT_FALSE(m_duct.checkCalls(
        {{"average", "Inlet", ""}, {"rbstate", "Rotor", ""}, {"average", "Nowhere", "Temperature"}}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("An invalid or unrecognised locator 'Nowhere' is referenced by "
                                      "parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.")));
}

TEST_F(CallbackArgument, WhenEmptyNeedsALocatorAllTheSame)
{
    EXPECT_FALSE(m_duct.checkCall({"average", "Nowhere", ""}));
    EXPECT_FALSE(m_duct.checkCall({"average", "P1", ""}));
    m_duct.useTimeTransformation();
    EXPECT_FALSE(m_duct.checkCall({"average", "Inlet", ""}));

    EXPECT_THAT(
        m_duct.found(),
        ElementsAre(DuctError("An invalid or unrecognised locator 'Nowhere' is referenced by parameter "
                              "'Speed' in object '/FLOW:F/DOMAIN:Duct'."),
                    DuctError("The function 'average' referenced by parameter 'Speed' in object "
                              "'/FLOW:F/DOMAIN:Duct' is incompatible with the dimension of its associated "
                              "locator 'P1'."),
                    DuctError("The function 'average' referenced by parameter 'Speed' in object "
                              "'/FLOW:F/DOMAIN:Duct' and its associated locator 'Inlet' have a disallowed "
                              "dimensionality. Only point locators are supported when used with time "
                              "transformation disturbances.")));
}

TEST_F(CallbackArgument, WhenEmptyNeedsTheRightFunctionAllTheSame)
{
    EXPECT_FALSE(m_duct.checkCall({"average{x}", "Inlet", ""}));
    m_duct.host.parameter(Duct::k_path, Duct::k_param).isSingleValued();
    EXPECT_FALSE(m_duct.checkCall({"trace", "Inlet", ""}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("Parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references the "
                                      "function 'average{x}'. The function 'average' does not support axis "
                                      "components."),
                            DuctError("The function 'trace' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' is field valued, but the parameter is defined "
                                      "to be \"Single Valued\".")));
}

TEST_F(CallbackArgument, WhenEmptyIsNotForAnExpressionPoint)
{
    m_duct.addExpressionPoint("P2");

    EXPECT_FALSE(m_duct.checkCall({"probe", "P2", ""}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'probe' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid combination of argument and "
                                      "locator. If the locator is a monitor point with 'Option' set to "
                                      "'Expression', then the argument must use 'Expression Value'.")));
}

// "Expression Value".

TEST_F(CallbackArgument, ThatIsAnExpressionValueIsForProbeAlone)
{
    m_duct.addExpressionPoint("P2");
    for (const char* function : {"trace", "Probe", "PROBE"})
    {
        m_duct.defineFunction(function, {{"Locator Dimension", "Point"}});
        m_duct.checker.clearErrors();
        EXPECT_FALSE(m_duct.checkCall({function, "P2", "Expression Value"}));
        EXPECT_THAT(m_duct.found(),
                    ElementsAre(DuctError("The function '" + std::string(function) +
                                          "' referenced by parameter 'Speed' in object "
                                          "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Expression "
                                          "Value'. 'Expression Value' can only be used with the 'probe' "
                                          "function.")));
    }
    m_duct.checker.clearErrors();

    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", "Expression Value"}));
    EXPECT_THAT(m_duct.found(), IsEmpty());
}

TEST_F(CallbackArgument, ThatIsAnExpressionValueIsForProbeAlsoWithAnAxis)
{
    m_duct.addExpressionPoint("P2");

    EXPECT_TRUE(m_duct.checkCall({"probe{x}", "P2", "Expression Value"}));
}

TEST_F(CallbackArgument, ThatIsAnExpressionValueNeedsNoDefinition)
{
    m_duct.addExpressionPoint("P2", "evop,tave");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", m_duct.named("Expression Value.evop", "Expression Value")}));
    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", m_duct.named("Expression Value.tave", "Expression Value")}));
}

TEST_F(CallbackArgument, ThatIsAnExpressionValueMayHaveAPrefixAtALocatorInADomain)
{
    // Given an expression point whose object lies in the domain
    m_duct.addExpressionPoint("P2");
    m_duct.host.locator("F", "P2").isObject("/FLOW:F/DOMAIN:Duct/MONITOR POINT:P2");
    m_duct.host.prefixes("Water", "").failWith("not asked");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", "Water.Expression Value"}));

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}), IsEmpty());
}

TEST_F(CallbackArgument, ThatIsAnExpressionValueMayHaveAPrefixAtALocatorThatIsNoMonitorPointObject)
{
    m_duct.addExpressionPoint("P2");
    for (const char* path : {"", "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS"})
    {
        m_duct.host.locator("F", "P2").isObject(path);
        EXPECT_TRUE(m_duct.checkCall({"probe", "P2", "Water.Expression Value"})) << path;
    }

    EXPECT_THAT(m_duct.host.callsTo({"prefixes."}), IsEmpty());
}

// Fields and states of rigid bodies.

TEST_F(CallbackArgument, ThatIsAnAdditionalVariableNeedsToBeNoField)
{
    m_duct.host.object("/LIBRARY/ADDITIONAL VARIABLE:Smoke");

    EXPECT_TRUE(m_duct.checkCall({"average", "Plane", "Smoke"}));
    EXPECT_THAT(m_duct.found(), IsEmpty());
}

TEST_F(CallbackArgument, OfRbstateNeedsToBeNoField)
{
    EXPECT_TRUE(m_duct.checkCall({"rbstate", "Rotor", "Position X"}));
    EXPECT_FALSE(m_duct.checkCall({"average", "Rotor", "Position X"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'average' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Position X'. The "
                                      "argument must be a field-valued variable.")));
}

TEST_F(CallbackArgument, OfRbstateIsAStateAlsoWithAnAxis)
{
    EXPECT_TRUE(m_duct.checkCall({"rbstate{x}", "Rotor", "Position X"}));
    EXPECT_FALSE(m_duct.checkCall({"rbstate{x}", "Rotor", "Temperature"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'rbstate{x}' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Temperature'. The "
                                      "argument must be a valid rigid body state variable.")));
}

TEST_F(CallbackArgument, OfRbstateIsTakenOnlyWhenThatIsWrittenExactlySo)
{
    m_duct.defineFunction("RBSTATE", {{"Locator Dimension", "Point"}});

    EXPECT_FALSE(m_duct.checkCall({"RBSTATE", "Rotor", "Position X"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'RBSTATE' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Position X'. The "
                                      "argument must be a field-valued variable.")));
}

TEST_F(CallbackArgument, OfRbstateIsAnEulerAngleByItsComponentOrItsOwnName)
{
    m_duct.defineEulerAngles();
    for (const char* selector : {"x", "y", "z"})
        EXPECT_TRUE(m_duct.checkCall(
            {"rbstate", "Rotor", m_duct.named("Euler Angle{" + std::string(selector) + "}", "Euler Angle")}));
    EXPECT_TRUE(m_duct.checkCall({"rbstate", "Rotor", "Euler Angle Z"}));
}

TEST_F(CallbackArgument, OfRbstateMayBeAnyOtherVectorAsAWhole)
{
    m_duct.define("Rotation", {{"Tensor Type", "VECTOR"},
                               {"Variable Class", "Solid,RBS"},
                               {"Component Short Names", "R1,R2,R3"},
                               {"Component Long Names", "Rotation 1,Rotation 2,Rotation 3"}});

    EXPECT_TRUE(m_duct.checkCall({"rbstate", "Rotor", "Rotation"}));
}

TEST_F(CallbackArgument, OfRbstateLetsTheErrorOfAnAdditionalVariablePass)
{
    m_duct.host.object("/LIBRARY/ADDITIONAL VARIABLE:Smoke");

    EXPECT_TRUE(thrownBy<data::notFound>([&] { m_duct.checkCall({"rbstate", "Rotor", "Smoke"}); }));

    EXPECT_THAT(m_duct.found(), IsEmpty());
}

}    // namespace
}    // namespace qen
