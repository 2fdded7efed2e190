#include "CallbackFixture.h"

#include "support/HostTextScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// Monitor points that are expressions.

class ExpressionPoint : public testing::Test {
protected:
    ExpressionPoint() { m_duct.named("Expression Value.tave", "Expression Value"); }

    bool hasStatistics(const std::string& p_argument)
    {
        m_duct.checker.clearErrors();
        const bool passes = m_duct.checkCall({"probe", "P2", m_duct.named(p_argument, "Expression Value")});
        if (!passes)
        {
            const std::string op = p_argument.substr(p_argument.rfind('.') + 1);
            EXPECT_THAT(m_duct.found(),
                        ElementsAre(DuctError(
                            "The function 'probe' referenced by parameter 'Speed' in object "
                            "'/FLOW:F/DOMAIN:Duct' has an invalid operator, '" +
                            op +
                            "'. For this operator to be valid in this context, the monitor point 'P2' must "
                            "have the relevant monitor statistics defined.")));
        }
        return passes;
    }

    Duct m_duct;
};

TEST_F(ExpressionPoint, IsAMonitorPointWhoseOptionIsExactlyExpression)
{
    for (const char* option : {"", "Cartesian Coordinates", "expression", "Expression Value", " Expression"})
    {
        m_duct.set(Duct::k_point, "Option", option);
        EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Temperature"})) << option;
        EXPECT_FALSE(m_duct.checkCall({"probe", "P1", "Expression Value"})) << option;
    }
    m_duct.set(Duct::k_point, "Option", "Expression");
    EXPECT_FALSE(m_duct.checkCall({"probe", "P1", "Temperature"}));
    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Expression Value"}));
}

TEST_F(ExpressionPoint, IsAnObjectOfTheModel)
{
    m_duct.set(Duct::k_point, "Option", "Expression");
    m_duct.host.removeObject(Duct::k_point);

    EXPECT_FALSE(m_duct.checkCall({"probe", "P1", "Expression Value"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'probe' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid combination of argument and "
                                      "locator. Arguments based on 'Expression Value' can only be used with "
                                      "a locator which is a monitor point with 'Option' set to "
                                      "'Expression'.")));
    EXPECT_THAT(m_duct.host.callsTo({"model.paramValue"}), IsEmpty());
}

TEST_F(ExpressionPoint, OfAnotherFlowIsNone)
{
    m_duct.host.removeObject(Duct::k_point);
    m_duct.set("/FLOW:G/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1", "Option", "Expression");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Temperature"}));
}

TEST_F(ExpressionPoint, RefusesAnOrdinaryVariableWhateverItIs)
{
    m_duct.addExpressionPoint("P2", "tave");
    m_duct.host.object("/LIBRARY/ADDITIONAL VARIABLE:Smoke");

    for (const std::string& argument :
         {std::string("Temperature"), std::string("Smoke"), m_duct.named("Temperature.tave", "Temperature")})
    {
        m_duct.checker.clearErrors();
        EXPECT_FALSE(m_duct.checkCall({"probe", "P2", argument})) << argument;
        EXPECT_THAT(m_duct.found(),
                    ElementsAre(DuctError("The function 'probe' referenced by parameter 'Speed' in object "
                                          "'/FLOW:F/DOMAIN:Duct' has an invalid combination of argument and "
                                          "locator. If the locator is a monitor point with 'Option' set to "
                                          "'Expression', then the argument must use 'Expression Value'.")));
    }
}

// Their statistics.

TEST_F(ExpressionPoint, HasTheStatisticsOfItsListByEitherNameOfTheOperator)
{
    m_duct.addExpressionPoint("P2", "tave");
    EXPECT_TRUE(hasStatistics("Expression Value.tave"));
    EXPECT_TRUE(hasStatistics("Expression Value.Time Average"));

    m_duct.addExpressionPoint("P2", "Time Average");
    EXPECT_TRUE(hasStatistics("Expression Value.tave"));
    EXPECT_TRUE(hasStatistics("Expression Value.Time Average"));
}

TEST_F(ExpressionPoint, HasTheStatisticsAtAnyPlaceOfItsList)
{
    for (const char* list : {"tave,evop", "evop,tave", "evop, tave ,genop", "evop,Time Average"})
    {
        m_duct.addExpressionPoint("P2", list);
        EXPECT_TRUE(hasStatistics("Expression Value.tave")) << list;
    }
}

TEST_F(ExpressionPoint, HasNoStatisticsThatItsListDoesNotHold)
{
    for (const char* list : {"evop", "Tave", "tave evop", "time average", "taves"})
    {
        m_duct.addExpressionPoint("P2", list);
        EXPECT_FALSE(hasStatistics("Expression Value.tave")) << list;
    }
}

TEST_F(ExpressionPoint, HasNoStatisticsWhenTheListIsEmpty)
{
    const std::string point = m_duct.addExpressionPoint("P2");
    m_duct.host.object(point + "/MONITOR STATISTICS");

    EXPECT_FALSE(hasStatistics("Expression Value.tave"));
}

TEST_F(ExpressionPoint, HasNoStatisticsWithoutTheirObject)
{
    const std::string point = m_duct.addExpressionPoint("P2", "tave");
    m_duct.host.removeObject(point + "/MONITOR STATISTICS");

    EXPECT_FALSE(hasStatistics("Expression Value.tave"));

    EXPECT_THAT(m_duct.host.callsTo({"model.paramValue(" + point + "/MONITOR STATISTICS"}), IsEmpty());
}

TEST_F(ExpressionPoint, NeedsNoStatisticsWithoutAnOperator)
{
    m_duct.addExpressionPoint("P2");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", "Expression Value"}));

    EXPECT_THAT(m_duct.host.callsTo({"model.objectExists(" + std::string(Duct::k_point) + "/"}), IsEmpty());
}

TEST_F(ExpressionPoint, OrdinaryPointsNeedNoStatistics)
{
    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", m_duct.named("Temperature.tave", "Temperature")}));
}

// The domain of a monitor point: seen by where the prefixes of an argument are classified.

class MonitorPointDomain : public testing::Test {
protected:
    /// Where the prefixes are classified; empty when they are not.
    std::vector<std::string> places()
    {
        m_duct.host.forgetCalls();
        EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Temperature"}));
        return m_duct.host.callsTo({"prefixes."});
    }

    void addDomain(const std::string& p_name) { m_duct.host.object("/FLOW:F/DOMAIN:" + p_name); }

    static std::string location() { return std::string(Duct::k_point) + "/MONITOR LOCATION CONTROL"; }

    Duct m_duct;
};

TEST_F(MonitorPointDomain, IsWhatThePointSays)
{
    addDomain("Pump");
    m_duct.set(Duct::k_point, "Domain Name", "Pump");
    m_duct.set(location(), "Domain Name", "Duct");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Pump, , )"));
}

TEST_F(MonitorPointDomain, IsWhatTheLocationOfThePointSaysWhenThePointSaysNothing)
{
    addDomain("Pump");
    m_duct.set(Duct::k_point, "Domain Name", "");
    m_duct.set(location(), "Domain Name", "Pump");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Pump, , )"));
}

TEST_F(MonitorPointDomain, NeedNotBeInTheModelWhenItIsSaid)
{
    m_duct.set(Duct::k_point, "Domain Name", "Elsewhere");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Elsewhere, , )"));
}

TEST_F(MonitorPointDomain, IsTheOnlyDomainOfTheFlow)
{
    m_duct.host.object("/FLOW:G/DOMAIN:Pump");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
}

TEST_F(MonitorPointDomain, IsNoneInAFlowWithoutDomains)
{
    m_duct.host.removeObject(Duct::k_path);

    EXPECT_THAT(places(), IsEmpty());
}

TEST_F(MonitorPointDomain, IsNoneAmongSeveral)
{
    addDomain("Pump");

    EXPECT_THAT(places(), IsEmpty());
}

TEST_F(MonitorPointDomain, IsTheFirstOfSeveralInTheModelsOrderWherePhysicsIsTheSameEverywhere)
{
    addDomain("Annulus");    // before "Duct" by its name, behind it in the model
    addDomain("Pump");
    for (const char* value : {"true", "On", "1", "Yes"})
    {
        m_duct.set("/PHYSICS OPTIONS CONTROL", "Constant Physics Control", value);
        EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )")) << value;
    }
}

TEST_F(MonitorPointDomain, IsNoneAmongSeveralWherePhysicsDiffers)
{
    addDomain("Pump");
    for (const char* value : {"", "false", "Off", "0", "truly"})
    {
        m_duct.set("/PHYSICS OPTIONS CONTROL", "Constant Physics Control", value);
        EXPECT_THAT(places(), IsEmpty()) << value;
    }
}

TEST_F(MonitorPointDomain, IsNoneAmongSeveralWherePhysicsIsNotSaidHoweverTheHostReadsNothing)
{
    addDomain("Pump");
    support::HostTextScript texts;
    texts.readsSwitchesAs(true);

    EXPECT_THAT(places(), IsEmpty());

    EXPECT_THAT(texts.calls(), Not(Contains(StartsWith("stringToBool("))));
}

// A level of type "DOMAIN" that has no name says no domain, but it is one: the settings of the point are not read.
TEST_F(MonitorPointDomain, IsNoneWhereTheLevelOfTheLocatorsPathHasNoName)
{
    m_duct.host.locator("F", "P1").isObject("/FLOW:F/DOMAIN/MONITOR POINT:P1");
    m_duct.set("/FLOW:F/DOMAIN/MONITOR POINT:P1", "Domain Name", "Duct");

    EXPECT_THAT(places(), IsEmpty());

    EXPECT_THAT(m_duct.host.callsTo({"model.paramValue(/FLOW:F/DOMAIN/MONITOR POINT:P1, Domain Name)"}),
                IsEmpty());
}

TEST_F(MonitorPointDomain, IsTheOnlyOneWhateverThePhysics)
{
    m_duct.set("/PHYSICS OPTIONS CONTROL", "Constant Physics Control", "false");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )"));
    EXPECT_THAT(m_duct.host.callsTo({"model.paramValue(/PHYSICS OPTIONS CONTROL"}), IsEmpty());
}

TEST_F(MonitorPointDomain, IsThatOfTheLocatorsPathWhenItHasOne)
{
    addDomain("Pump");
    m_duct.host.locator("F", "P1").isObject("/FLOW:F/DOMAIN:Pump/MONITOR POINT:P1");
    m_duct.set("/FLOW:F/DOMAIN:Pump/MONITOR POINT:P1", "Domain Name", "Duct");

    EXPECT_THAT(places(), ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Pump, , )"));
}

// Rigid bodies.

class RigidBody : public testing::Test {
protected:
    /// Whether the function that asks for a rigid body takes the locator.
    bool takes(const std::string& p_locator)
    {
        m_duct.checker.clearErrors();
        m_duct.host.locator("F", p_locator);    // the host knows it
        const bool passes = m_duct.checkCall({"rbstate", p_locator, "Position X"});
        if (!passes)
        {
            EXPECT_THAT(
                m_duct.found(),
                ElementsAre(DuctError("The function 'rbstate' referenced by parameter 'Speed' in "
                                      "object '/FLOW:F/DOMAIN:Duct' has an invalid locator, '" +
                                      p_locator + "'. The locator must only be the name of a rigid body.")));
        }
        return passes;
    }

    Duct m_duct;
};

TEST_F(RigidBody, IsOneOfTheFlow)
{
    m_duct.host.object("/FLOW:F/RIGID BODY:Keel");
    m_duct.host.object("/FLOW:G/RIGID BODY:Rudder");

    EXPECT_TRUE(takes("Rotor"));
    EXPECT_TRUE(takes("Keel"));
    EXPECT_FALSE(takes("Rudder"));
}

TEST_F(RigidBody, IsComparedExactly)
{
    EXPECT_FALSE(takes("rotor"));
    EXPECT_FALSE(takes("Roto"));
    EXPECT_FALSE(takes("Rotor "));
}

TEST_F(RigidBody, IsADomainThatMovesAsOne)
{
    m_duct.set("/FLOW:F/DOMAIN:Hull/DOMAIN MODELS/DOMAIN MOTION", "Option", "Rigid Body Solution");
    m_duct.host.object("/FLOW:F/DOMAIN:Hull");
    m_duct.set("/FLOW:F/DOMAIN:Wheel/DOMAIN MODELS/DOMAIN MOTION", "Option", "Rotating");
    m_duct.host.object("/FLOW:F/DOMAIN:Wheel");

    EXPECT_TRUE(takes("Hull"));
    EXPECT_FALSE(takes("Wheel"));
    EXPECT_FALSE(takes("Duct"));
}

TEST_F(RigidBody, IsNoDomainWhoseMotionIsWrittenOtherwise)
{
    m_duct.host.object("/FLOW:F/DOMAIN:Hull");
    for (const char* motion : {"rigid body solution", "Rigid Body", "", "Rigid Body Solution "})
    {
        m_duct.set("/FLOW:F/DOMAIN:Hull/DOMAIN MODELS/DOMAIN MOTION", "Option", motion);
        EXPECT_FALSE(takes("Hull")) << motion;
    }
}

TEST_F(RigidBody, IsNoDomainBecauseAnotherMoves)
{
    m_duct.host.object("/FLOW:F/DOMAIN:Hull");
    m_duct.set("/FLOW:F/DOMAIN:Hull/DOMAIN MODELS/DOMAIN MOTION", "Option", "Rigid Body Solution");

    EXPECT_FALSE(takes("Duct"));
}

TEST_F(RigidBody, NeedNotBeNamed)
{
    m_duct.host.removeObject("/FLOW:F/RIGID BODY:Rotor");

    EXPECT_TRUE(takes(""));

    EXPECT_THAT(m_duct.host.callsTo({"model.childNames(/FLOW:F, RIGID BODY)", "model.childPaths"}),
                IsEmpty());
}

TEST_F(RigidBody, IsAskedOfTheHostAsALocatorAlsoWhenItIsNotNamed)
{
    EXPECT_FALSE(m_duct.checkCall({"rbstate", "", "Position X"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("An invalid or unrecognised locator '' is referenced by parameter "
                                      "'Speed' in object '/FLOW:F/DOMAIN:Duct'.")));
}

TEST_F(RigidBody, WithoutANameIsStillAskedForAStateOfOne)
{
    m_duct.host.locator("F", "");

    EXPECT_FALSE(m_duct.checkCall({"rbstate", "", "Temperature"}));

    EXPECT_THAT(m_duct.found(),
                ElementsAre(DuctError("The function 'rbstate' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Temperature'. The "
                                      "argument must be a valid rigid body state variable.")));
}

}    // namespace
}    // namespace qen
