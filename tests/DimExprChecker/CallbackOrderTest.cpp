#include "CallbackFixture.h"

#include "DataError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using support::thrownBy;
using testing::ElementsAre;
using testing::IsEmpty;

// What the host is asked along one call, in order.

class CallbackQuestions : public testing::Test {
protected:
    Duct m_duct;
};

TEST_F(CallbackQuestions, OfACallAtABoundaryAreThese)
{
    EXPECT_TRUE(
        m_duct.checkCall({"average", "Inlet", m_duct.named("Water.Temperature.tave", "Temperature")}));

    EXPECT_THAT(
        m_duct.callbackCalls(),
        ElementsAre("evaluator.rootVariableName(Water.Temperature.tave)",
                    "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Temperature)",
                    "names.splitVariableName(Water.Temperature.tave)", "locators.isValidLocator(F, Inlet)",
                    "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Inlet)",
                    "locators.dimension(F, Inlet)",
                    "model.childNames(/FLOW:F/TRANSIENT BLADE ROW MODELS, TIME TRANSFORMATION)",
                    "names.splitCallbackName(average)", "locators.isModelObject(F, Inlet)",
                    "locators.objectPath(F, Inlet)", "prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, )"));
}

TEST_F(CallbackQuestions, OfACallAtAnOrdinaryMonitorPointAreThese)
{
    m_duct.host.object("/FLOW:F/DOMAIN:Pump");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P1", "Temperature"}));

    EXPECT_THAT(
        m_duct.callbackCalls(),
        ElementsAre("evaluator.rootVariableName(Temperature)",
                    "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Temperature)",
                    "names.splitVariableName(Temperature)", "locators.isValidLocator(F, P1)",
                    "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1)",
                    "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1, Option)",
                    "locators.dimension(F, P1)", "names.splitCallbackName(probe)",
                    "locators.isModelObject(F, P1)", "locators.objectPath(F, P1)",
                    "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1, Domain Name)",
                    "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1/MONITOR "
                    "LOCATION CONTROL, Domain Name)",
                    "model.childNames(/FLOW:F, DOMAIN)",
                    "model.paramValue(/PHYSICS OPTIONS CONTROL, Constant Physics Control)"));
}

TEST_F(CallbackQuestions, OfACallAtAnExpressionPointAreThese)
{
    m_duct.addExpressionPoint("P2", "tave");

    EXPECT_TRUE(m_duct.checkCall({"probe", "P2", m_duct.named("Expression Value.tave", "Expression Value")}));

    EXPECT_THAT(
        m_duct.callbackCalls(),
        ElementsAre(
            "evaluator.rootVariableName(Expression Value.tave)",
            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Expression Value)",
            "names.splitVariableName(Expression Value.tave)", "locators.isValidLocator(F, P2)",
            "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2)",
            "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2, Option)",
            "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2/MONITOR STATISTICS)",
            "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2/MONITOR STATISTICS, "
            "Statistics List)",
            "locators.dimension(F, P2)", "names.splitCallbackName(probe)", "locators.isModelObject(F, P2)",
            "locators.objectPath(F, P2)",
            "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2, Domain Name)",
            "model.paramValue(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2/MONITOR LOCATION "
            "CONTROL, Domain Name)",
            "model.childNames(/FLOW:F, DOMAIN)"));
}

TEST_F(CallbackQuestions, OfRbstateEndWithTheRigidBodiesAndTheDomains)
{
    m_duct.host.object("/FLOW:F/DOMAIN:Hull");
    m_duct.set("/FLOW:F/DOMAIN:Hull/DOMAIN MODELS/DOMAIN MOTION", "Option", "Rigid Body Solution");
    m_duct.host.locator("F", "Hull");

    EXPECT_TRUE(m_duct.checkCall({"rbstate", "Hull", "Position X"}));

    EXPECT_THAT(m_duct.callbackCalls(),
                ElementsAre("evaluator.rootVariableName(Position X)",
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Position X)",
                            // a name that ends so could be that of a component
                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Position)",
                            "names.splitVariableName(Position X)", "locators.isValidLocator(F, Hull)",
                            "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Hull)",
                            "locators.dimension(F, Hull)",
                            "model.childNames(/FLOW:F/TRANSIENT BLADE ROW MODELS, TIME TRANSFORMATION)",
                            "names.splitCallbackName(rbstate)", "locators.isModelObject(F, Hull)",
                            "model.childNames(/FLOW:F, RIGID BODY)", "model.childPaths(/FLOW:F, DOMAIN)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct/DOMAIN MODELS/DOMAIN MOTION, Option)",
                            "model.paramValue(/FLOW:F/DOMAIN:Hull/DOMAIN MODELS/DOMAIN MOTION, Option)"));
}

TEST_F(CallbackQuestions, OfRbstateAskForTheDomainsAlsoWhereTheLocatorIsARigidBody)
{
    m_duct.host.object("/FLOW:F/RIGID BODY:Buoy");
    m_duct.host.locator("F", "Buoy");

    EXPECT_TRUE(m_duct.checkCall({"rbstate", "Buoy", "Position X"}));

    EXPECT_THAT(
        m_duct.host.callsTo({"model.childNames(/FLOW:F, RIGID", "model.childPaths", "model.paramValue"}),
        ElementsAre("model.childNames(/FLOW:F, RIGID BODY)", "model.childPaths(/FLOW:F, DOMAIN)",
                    "model.paramValue(/FLOW:F/DOMAIN:Duct/DOMAIN MODELS/DOMAIN MOTION, Option)"));
}

TEST_F(CallbackQuestions, OfACallWithoutAnArgumentEndWithTheFunction)
{
    EXPECT_TRUE(m_duct.checkCall({"average", "Inlet", ""}));

    EXPECT_THAT(m_duct.callbackCalls(),
                ElementsAre("locators.isValidLocator(F, Inlet)",
                            "model.objectExists(/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Inlet)",
                            "locators.dimension(F, Inlet)",
                            "model.childNames(/FLOW:F/TRANSIENT BLADE ROW MODELS, TIME TRANSFORMATION)",
                            "names.splitCallbackName(average)"));
}

TEST_F(CallbackQuestions, OfOneCallComeAllBeforeThoseOfTheNext)
{
    EXPECT_TRUE(m_duct.checkCalls({{"average", "Box", ""}, {"probe", "P1", ""}}));

    EXPECT_THAT(m_duct.host.callsTo({"locators.", "names."}),
                ElementsAre("locators.isValidLocator(F, Box)", "locators.dimension(F, Box)",
                            "names.splitCallbackName(average)", "locators.isValidLocator(F, P1)",
                            "locators.dimension(F, P1)", "names.splitCallbackName(probe)"));
}

TEST_F(CallbackQuestions, EndWhereTheArgumentIsAtFault)
{
    EXPECT_FALSE(m_duct.checkCall({"average", "Nowhere", "x"}));

    EXPECT_THAT(m_duct.callbackCalls(), ElementsAre("evaluator.rootVariableName(x)",
                                                    "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:x)",
                                                    "names.splitVariableName(x)"));
}

TEST_F(CallbackQuestions, AreNoneWhereTheArgumentIsArithmetic)
{
    EXPECT_FALSE(m_duct.checkCall({"average", "Nowhere", "x + y"}));

    EXPECT_THAT(m_duct.callbackCalls(), IsEmpty());
}

// Of two faults of one call the earlier is told, and the later as soon as that is mended.

struct TwoFaults {
    const char* name;
    CallbackInfo (*call)(Duct&);
    std::string told;
    void (*mend)(Duct&, CallbackInfo&);
    std::string toldThen;
};

void PrintTo(const TwoFaults& p_faults, std::ostream* p_stream) { *p_stream << p_faults.name; }

class CallbackTells : public testing::TestWithParam<TwoFaults> {};

TEST_P(CallbackTells, TheEarlierFault)
{
    Duct duct;
    CallbackInfo call = GetParam().call(duct);
    EXPECT_FALSE(duct.checkCall(call));
    EXPECT_THAT(duct.found(), ElementsAre(DuctError(GetParam().told)));

    duct.checker.clearErrors();
    GetParam().mend(duct, call);
    EXPECT_FALSE(duct.checkCall(call));
    EXPECT_THAT(duct.found(), ElementsAre(DuctError(GetParam().toldThen)));
}

// The texts; what several have in common is spelt once.
std::string says(const std::string& p_function)
{
    return "The function '" + p_function +
           "' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' ";
}

const std::string k_notAVariable =
    says("average") + "has an invalid argument, 'x + y'. Only arguments that consist of a single recognised "
                      "variable name are supported by the solver.";
const std::string k_internal =
    says("average") + "has a disallowed argument, 'x.nope'. The solver does not support the use of this "
                      "variable in this context.";
const std::string k_unknownOperator = "Invalid operator 'nope' used in expression 'Temperature.nope', "
                                      "referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct'.";
const std::string k_wrongOperator =
    says("average") +
    "has an invalid argument, 'Temperature.genop'. The solver does not support the use of this "
    "operator for this variable when used as an argument for this function.";
const std::string k_nowhere =
    "An invalid or unrecognised locator 'Nowhere' is referenced by parameter 'Speed' in "
    "object '/FLOW:F/DOMAIN:Duct'.";
const std::string k_noStatistics =
    says("probe") +
    "has an invalid operator, 'tave'. For this operator to be valid in this context, the monitor "
    "point 'P2' must have the relevant monitor statistics defined.";

// clang-format off
INSTANTIATE_TEST_SUITE_P(, CallbackTells, testing::Values(
    TwoFaults {"NoVariableBeforeUnknownLocator",
        [](Duct&) { return CallbackInfo {"average", "Nowhere", "x + y"}; },
        k_notAVariable,
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Temperature"; },
        k_nowhere},

    TwoFaults {"InternalVariableBeforeUnknownOperator",
        [](Duct& p_duct) { return CallbackInfo {"average", "Inlet", p_duct.named("x.nope", "x")}; },
        k_internal,
        [](Duct& p_duct, CallbackInfo& p_call) {
            p_call.argument = p_duct.named("Temperature.nope", "Temperature");
        },
        k_unknownOperator},

    TwoFaults {"UnknownOperatorBeforeUnknownLocator",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Nowhere", p_duct.named("Temperature.nope", "Temperature")};
        },
        k_unknownOperator,
        [](Duct& p_duct, CallbackInfo&) { p_duct.defineOperator("nope", "Nope", "CALLBACK"); },
        k_nowhere},

    TwoFaults {"WrongOperatorBeforeUnknownLocator",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Nowhere", p_duct.named("Temperature.genop", "Temperature")};
        },
        k_wrongOperator,
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Temperature"; },
        k_nowhere},

    TwoFaults {"UnknownLocatorBeforeOrdinaryVariableAtAnExpressionPoint",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("Nowhere");
            p_duct.host.locator("F", "Nowhere").isUnknown();
            return CallbackInfo {"probe", "Nowhere", "Temperature"};
        },
        k_nowhere,
        [](Duct& p_duct, CallbackInfo&) { p_duct.host.locator("F", "Nowhere").valid = true; },
        says("probe") + "has an invalid combination of argument and locator. If the locator is a monitor point with "
        "'Option' set to 'Expression', then the argument must use 'Expression Value'."},

    TwoFaults {"UnknownLocatorBeforeMisplacedExpressionValue",
        [](Duct&) { return CallbackInfo {"probe", "Nowhere", "Expression Value"}; },
        k_nowhere,
        [](Duct& p_duct, CallbackInfo&) { p_duct.host.locator("F", "Nowhere").valid = true; },
        says("probe") + "has an invalid combination of argument and locator. Arguments based on 'Expression Value' "
        "can only be used with a locator which is a monitor point with 'Option' set to 'Expression'."},

    TwoFaults {"OrdinaryVariableAtAnExpressionPointBeforeItsMissingStatistics",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"probe", "P2", p_duct.named("Temperature.tave", "Temperature")};
        },
        says("probe") + "has an invalid combination of argument and locator. If the locator is a monitor point with "
        "'Option' set to 'Expression', then the argument must use 'Expression Value'.",
        [](Duct& p_duct, CallbackInfo& p_call) {
            p_call.argument = p_duct.named("Expression Value.tave", "Expression Value");
        },
        k_noStatistics},

    TwoFaults {"OrdinaryVariableAtAnExpressionPointBeforeTimeTransformation",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            p_duct.host.locator("F", "P2").hasDimension(LocatorDimension::Unknown);
            p_duct.useTimeTransformation();
            return CallbackInfo {"probe", "P2", "Temperature"};
        },
        says("probe") + "has an invalid combination of argument and locator. If the locator is a monitor point with "
        "'Option' set to 'Expression', then the argument must use 'Expression Value'.",
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Expression Value"; },
        says("probe") + "and its associated locator 'P2' have a disallowed dimensionality. Only point locators are "
        "supported when used with time transformation disturbances."},

    TwoFaults {"MissingStatisticsBeforeTimeTransformation",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            p_duct.host.locator("F", "P2").hasDimension(LocatorDimension::Surface);
            p_duct.useTimeTransformation();
            return CallbackInfo {"probe", "P2", p_duct.named("Expression Value.tave", "Expression Value")};
        },
        k_noStatistics,
        [](Duct& p_duct, CallbackInfo&) {
            p_duct.set("/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P2/MONITOR STATISTICS",
                       "Statistics List", "tave");
        },
        says("probe") + "and its associated locator 'P2' have a disallowed dimensionality. Only point locators are "
        "supported when used with time transformation disturbances."},

    TwoFaults {"MisplacedExpressionValueBeforeTimeTransformation",
        [](Duct& p_duct) {
            p_duct.useTimeTransformation();
            return CallbackInfo {"average", "Inlet", "Expression Value"};
        },
        says("average") + "has an invalid combination of argument and locator. Arguments based on 'Expression "
        "Value' can only be used with a locator which is a monitor point with 'Option' set to 'Expression'.",
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Temperature"; },
        says("average") + "and its associated locator 'Inlet' have a disallowed dimensionality. Only point locators "
        "are supported when used with time transformation disturbances."},

    TwoFaults {"TimeTransformationBeforeTheDimensionOfTheFunction",
        [](Duct& p_duct) {
            p_duct.useTimeTransformation();
            return CallbackInfo {"force", "Box", "Temperature"};
        },
        says("force") + "and its associated locator 'Box' have a disallowed dimensionality. Only point locators are "
        "supported when used with time transformation disturbances.",
        [](Duct& p_duct, CallbackInfo&) {
            p_duct.host.removeObject("/FLOW:F/TRANSIENT BLADE ROW MODELS/TIME TRANSFORMATION:Wake");
        },
        says("force") + "is incompatible with the dimension of its associated locator 'Box'."},

    TwoFaults {"TheDimensionOfTheFunctionBeforeItsField",
        [](Duct& p_duct) {
            p_duct.host.parameter(Duct::k_path, Duct::k_param).isSingleValued();
            p_duct.defineFunction("map", {{"CallBack Type", "Field"}, {"Locator Dimension", "Volume"}});
            return CallbackInfo {"map", "Inlet", "Temperature"};
        },
        says("map") + "is incompatible with the dimension of its associated locator 'Inlet'.",
        [](Duct&, CallbackInfo& p_call) { p_call.locator = "Box"; },
        says("map") + "is field valued, but the parameter is defined to be \"Single Valued\"."},

    TwoFaults {"TheFieldOfTheFunctionBeforeItsAxis",
        [](Duct& p_duct) {
            p_duct.host.parameter(Duct::k_path, Duct::k_param).isSingleValued();
            return CallbackInfo {"trace{y}", "Inlet", "Temperature"};
        },
        says("trace{y}") + "is field valued, but the parameter is defined to be \"Single Valued\".",
        [](Duct& p_duct, CallbackInfo&) { p_duct.host.parameter(Duct::k_path, Duct::k_param).singleValued = false; },
        "Parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references the function 'trace{y}'. The function 'trace' "
        "does not support axis components."},

    TwoFaults {"TheAxisBeforeThePrefixOfAnExpressionValue",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"trace{y}", "P2", "Water.Expression Value"};
        },
        "Parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references the function 'trace{y}'. The function 'trace' "
        "does not support axis components.",
        [](Duct&, CallbackInfo& p_call) { p_call.callbackName = "trace"; },
        says("trace") + "has an invalid argument, 'Water.Expression Value'. The prefixed variable is not valid in "
        "the context of the locator 'P2'."},

    TwoFaults {"TheAxisBeforeThePrefixes",
        [](Duct& p_duct) {
            p_duct.host.prefixes("Oil", "").failWith("There is no Oil.");
            return CallbackInfo {"average{y}", "Inlet", "Oil.Temperature"};
        },
        "Parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references the function 'average{y}'. The function "
        "'average' does not support axis components.",
        [](Duct&, CallbackInfo& p_call) { p_call.callbackName = "average"; },
        "Prefix error in variable 'Oil.Temperature' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.\n"
        "There is no Oil."},

    TwoFaults {"ThePrefixOfAnExpressionValueBeforeItsFunction",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"trace", "P2", "Water.Expression Value"};
        },
        says("trace") + "has an invalid argument, 'Water.Expression Value'. The prefixed variable is not valid in "
        "the context of the locator 'P2'.",
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Expression Value"; },
        says("trace") + "has an invalid argument, 'Expression Value'. 'Expression Value' can only be used with the "
        "'probe' function."},

    TwoFaults {"ThePrefixesBeforeTheArgumentThatIsNoField",
        [](Duct& p_duct) {
            p_duct.host.prefixes("Oil", "").failWith("There is no Oil.");
            return CallbackInfo {"average", "Inlet", "Oil.Time Step"};
        },
        "Prefix error in variable 'Oil.Time Step' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.\n"
        "There is no Oil.",
        [](Duct& p_duct, CallbackInfo&) { p_duct.host.prefixes("Oil", "").failWith(""); },
        says("average") + "has an invalid argument, 'Oil.Time Step'. The argument must be a field-valued variable."},

    TwoFaults {"ThePrefixesBeforeTheLocatorThatIsNoRigidBody",
        [](Duct& p_duct) {
            p_duct.host.prefixes("Oil", "").failWith("There is no Oil.");
            return CallbackInfo {"rbstate", "P1", "Oil.Position X"};
        },
        "Prefix error in variable 'Oil.Position X' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.\n"
        "There is no Oil.",
        [](Duct& p_duct, CallbackInfo&) { p_duct.host.prefixes("Oil", "").failWith(""); },
        says("rbstate") + "has an invalid locator, 'P1'. The locator must only be the name of a rigid body."},

    TwoFaults {"TheLocatorThatIsNoRigidBodyBeforeTheCoordinateFrame",
        [](Duct& p_duct) {
            return CallbackInfo {"rbstate", "P1", p_duct.named("Position X{:Shaft}", "Position X")};
        },
        says("rbstate") + "has an invalid locator, 'P1'. The locator must only be the name of a rigid body.",
        [](Duct&, CallbackInfo& p_call) { p_call.locator = "Rotor"; },
        says("rbstate") + "references a coordinate frame, 'Shaft'.  This is not supported in QVN-Pre."},

    TwoFaults {"TheCoordinateFrameBeforeTheVariableThatIsNoState",
        [](Duct& p_duct) {
            return CallbackInfo {"rbstate", "Rotor", p_duct.named("Temperature{:Shaft}", "Temperature")};
        },
        says("rbstate") + "references a coordinate frame, 'Shaft'.  This is not supported in QVN-Pre.",
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Temperature"; },
        says("rbstate") + "has an invalid argument, 'Temperature'. The argument must be a valid rigid body state "
        "variable."},

    TwoFaults {"TheCoordinateFrameBeforeAllEulerAnglesAtOnce",
        [](Duct& p_duct) {
            p_duct.defineEulerAngles();
            return CallbackInfo {"rbstate", "Rotor", p_duct.named("Euler Angle{:Shaft}", "Euler Angle")};
        },
        says("rbstate") + "references a coordinate frame, 'Shaft'.  This is not supported in QVN-Pre.",
        [](Duct&, CallbackInfo& p_call) { p_call.argument = "Euler Angle"; },
        says("rbstate") + "has an invalid argument, 'Euler Angle'. Only individual angles (`Euler Angle X', `Euler "
        "Angle Y' and `Euler Angle Z') can be used as arguments ."},

    TwoFaults {"TheVariableThatIsNoStateBeforeTheMisuseOfAnExpressionValue",
        [](Duct& p_duct) {
            p_duct.define("Expression Value", {});
            p_duct.addExpressionPoint("Rotor");
            return CallbackInfo {"rbstate", "Rotor", "Expression Value"};
        },
        says("rbstate") + "has an invalid argument, 'Expression Value'. The argument must be a valid rigid body "
        "state variable.",
        [](Duct& p_duct, CallbackInfo& p_call) {
            p_duct.defineFunction("surface", {{"Locator Dimension", "Point"}});
            p_call.callbackName = "surface";
        },
        says("surface") + "has an invalid argument, 'Expression Value'. 'Expression Value' can only be used with "
        "the 'probe' function."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(CallbackTellsAtLast, ThatOnlyOneEulerAngleMayBeNamedOfThoseThatAreAState)
{
    Duct duct;
    duct.defineEulerAngles("Solid");
    EXPECT_FALSE(duct.checkCall({"rbstate", "Rotor", "Euler Angle"}));
    EXPECT_THAT(duct.found(),
                ElementsAre(DuctError("The function 'rbstate' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Euler Angle'. The "
                                      "argument must be a valid rigid body state variable.")));

    Duct other;
    other.defineEulerAngles("RBS");
    EXPECT_FALSE(other.checkCall({"rbstate", "Rotor", "Euler Angle"}));
    EXPECT_THAT(other.found(),
                ElementsAre(DuctError("The function 'rbstate' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Euler Angle'. Only "
                                      "individual angles (`Euler Angle X', `Euler Angle Y' and `Euler Angle "
                                      "Z') can be used as arguments .")));
}

TEST(CallbackTellsAtLast, ThatAnExpressionValueIsForProbeAlsoInAStateOfARigidBody)
{
    // Given a monitor point and a rigid body of one name, and a state that is called as the value of an expression
    Duct duct;
    duct.define("Expression Value", {{"Variable Class", "RBS"}});
    duct.addExpressionPoint("Rotor");

    EXPECT_FALSE(duct.checkCall({"rbstate", "Rotor", "Expression Value"}));

    EXPECT_THAT(duct.found(),
                ElementsAre(DuctError("The function 'rbstate' referenced by parameter 'Speed' in object "
                                      "'/FLOW:F/DOMAIN:Duct' has an invalid argument, 'Expression Value'. "
                                      "'Expression Value' can only be used with the 'probe' function.")));
}

TEST(CallbackTellsAtLast, AnUnknownFunctionOnlyWhenItsLocatorIsValid)
{
    Duct duct;

    EXPECT_FALSE(duct.checkCall({"no such function", "Nowhere", "Temperature"}));
    EXPECT_TRUE(thrownBy<data::notFound>([&] {
        duct.checkCall({"no such function", "Inlet", "Time Step"});
    }));

    EXPECT_THAT(duct.found(),
                ElementsAre(DuctError("An invalid or unrecognised locator 'Nowhere' is referenced by "
                                      "parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct'.")));
}

}    // namespace
}    // namespace qen
