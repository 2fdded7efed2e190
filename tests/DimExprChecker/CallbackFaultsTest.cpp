#include "CallbackFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen {
namespace {

using support::Duct;
using support::DuctError;
using testing::ElementsAre;
using testing::IsEmpty;

// What is wrong with a call: each fault, and how the call reads without it.

struct Fault {
    const char* name;
    CallbackInfo (*call)(Duct&);
    const char* text;
    CallbackInfo (*mended)(Duct&);
};

void PrintTo(const Fault& p_fault, std::ostream* p_stream) { *p_stream << p_fault.name; }

class CallbackWith : public testing::TestWithParam<Fault> {};

TEST_P(CallbackWith, Fault)
{
    Duct duct;
    const CallbackInfo call = GetParam().call(duct);
    EXPECT_FALSE(duct.checkCall(call));
    EXPECT_THAT(duct.found(), ElementsAre(DuctError(GetParam().text)));

    Duct other;
    const CallbackInfo mended = GetParam().mended(other);
    EXPECT_TRUE(other.checkCall(mended));
    EXPECT_THAT(other.found(), IsEmpty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, CallbackWith, testing::Values(
    Fault {"ArgumentThatIsNoVariable",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "Temperature + 1"}; },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Temperature + 1'. Only arguments that consist of a single recognised variable name are supported "
        "by the solver.",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "Temperature"}; }},

    Fault {"ArgumentThatIsInternalToTheSolver",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "theta"}; },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has a disallowed "
        "argument, 'theta'. The solver does not support the use of this variable in this context.",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "Temperature"}; }},

    Fault {"UnknownOperator",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Water.Temperature.nope", "Temperature")};
        },
        "Invalid operator 'nope' used in expression 'Water.Temperature.nope', referenced by parameter 'Speed' in "
        "object '/FLOW:F/DOMAIN:Duct'.",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Water.Temperature.tave", "Temperature")};
        }},

    Fault {"OperatorThatIsNotForArguments",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Temperature.genop", "Temperature")};
        },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Temperature.genop'. The solver does not support the use of this operator for this variable when "
        "used as an argument for this function.",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Temperature.cbop", "Temperature")};
        }},

    Fault {"OperatorThatIsOnlyForTheValueOfAnExpression",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Temperature.evop", "Temperature")};
        },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Temperature.evop'. The solver does not support the use of this operator for this variable when "
        "used as an argument for this function.",
        [](Duct& p_duct) {
            return CallbackInfo {"average", "Inlet", p_duct.named("Temperature.tave", "Temperature")};
        }},

    Fault {"OperatorThatIsNotForTheValueOfAnExpression",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2", "cbop");
            return CallbackInfo {"probe", "P2", p_duct.named("Expression Value.cbop", "Expression Value")};
        },
        "The function 'probe' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Expression Value.cbop'. The solver does not support the use of this operator for this variable "
        "when used as an argument for this function.",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2", "evop");
            return CallbackInfo {"probe", "P2", p_duct.named("Expression Value.evop", "Expression Value")};
        }},

    Fault {"UnknownLocator",
        [](Duct&) { return CallbackInfo {"average", "Nowhere", "Temperature"}; },
        "An invalid or unrecognised locator 'Nowhere' is referenced by parameter 'Speed' in object "
        "'/FLOW:F/DOMAIN:Duct'.",
        [](Duct&) { return CallbackInfo {"average", "Box", "Temperature"}; }},

    Fault {"OrdinaryVariableAtAnExpressionPoint",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"probe", "P2", "Temperature"};
        },
        "The function 'probe' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "combination of argument and locator. If the locator is a monitor point with 'Option' set to 'Expression', "
        "then the argument must use 'Expression Value'.",
        [](Duct&) { return CallbackInfo {"probe", "P1", "Temperature"}; }},

    Fault {"OperatorOfWhichTheMonitorPointHasNoStatistics",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2", "evop");
            return CallbackInfo {"probe", "P2", p_duct.named("Expression Value.tave", "Expression Value")};
        },
        "The function 'probe' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "operator, 'tave'. For this operator to be valid in this context, the monitor point 'P2' must have the "
        "relevant monitor statistics defined.",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2", "evop, tave");
            return CallbackInfo {"probe", "P2", p_duct.named("Expression Value.tave", "Expression Value")};
        }},

    Fault {"ExpressionValueAtAnyOtherLocator",
        [](Duct&) { return CallbackInfo {"probe", "P1", "Expression Value"}; },
        "The function 'probe' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "combination of argument and locator. Arguments based on 'Expression Value' can only be used with a locator "
        "which is a monitor point with 'Option' set to 'Expression'.",
        [](Duct& p_duct) {
            p_duct.set(Duct::k_point, "Option", "Expression");
            return CallbackInfo {"probe", "P1", "Expression Value"};
        }},

    Fault {"SurfaceUnderTimeTransformation",
        [](Duct& p_duct) {
            p_duct.useTimeTransformation();
            return CallbackInfo {"average", "Inlet", "Temperature"};
        },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' and its associated "
        "locator 'Inlet' have a disallowed dimensionality. Only point locators are supported when used with time "
        "transformation disturbances.",
        [](Duct& p_duct) {
            p_duct.useTimeTransformation();
            return CallbackInfo {"probe", "P1", "Temperature"};
        }},

    Fault {"LocatorOfADimensionThatTheFunctionDoesNotAccept",
        [](Duct&) { return CallbackInfo {"average", "P1", "Temperature"}; },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is incompatible with "
        "the dimension of its associated locator 'P1'.",
        [](Duct&) { return CallbackInfo {"probe", "P1", "Temperature"}; }},

    Fault {"FieldValuedFunctionInASingleValuedParameter",
        [](Duct& p_duct) {
            p_duct.host.parameter(Duct::k_path, Duct::k_param).isSingleValued();
            return CallbackInfo {"trace", "Inlet", "Temperature"};
        },
        "The function 'trace' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' is field valued, but "
        "the parameter is defined to be \"Single Valued\".",
        [](Duct& p_duct) {
            p_duct.host.parameter(Duct::k_path, Duct::k_param).isSingleValued();
            return CallbackInfo {"average", "Inlet", "Temperature"};
        }},

    Fault {"AxisOfAFunctionThatHasNone",
        [](Duct&) { return CallbackInfo {"average{x}", "Inlet", "Temperature"}; },
        "Parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references the function 'average{x}'. The function "
        "'average' does not support axis components.",
        [](Duct&) { return CallbackInfo {"force{x}", "Inlet", "Temperature"}; }},

    Fault {"PrefixedExpressionValueAtAMonitorPoint",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"probe", "P2", "Water.Expression Value"};
        },
        "The function 'probe' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Water.Expression Value'. The prefixed variable is not valid in the context of the locator 'P2'.",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"probe", "P2", "Expression Value"};
        }},

    Fault {"ArgumentThatIsNoField",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "Time Step"}; },
        "The function 'average' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Time Step'. The argument must be a field-valued variable.",
        [](Duct&) { return CallbackInfo {"average", "Inlet", "Velocity"}; }},

    Fault {"LocatorThatIsNoRigidBody",
        [](Duct&) { return CallbackInfo {"rbstate", "P1", "Position X"}; },
        "The function 'rbstate' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "locator, 'P1'. The locator must only be the name of a rigid body.",
        [](Duct&) { return CallbackInfo {"rbstate", "Rotor", "Position X"}; }},

    Fault {"CoordinateFrameOfARigidBodysState",
        [](Duct& p_duct) {
            return CallbackInfo {"rbstate", "Rotor", p_duct.named("Position X{:Shaft}", "Position X")};
        },
        "The function 'rbstate' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' references a "
        "coordinate frame, 'Shaft'.  This is not supported in QVN-Pre.",
        [](Duct&) { return CallbackInfo {"rbstate", "Rotor", "Position X"}; }},

    Fault {"VariableThatIsNoStateOfARigidBody",
        [](Duct&) { return CallbackInfo {"rbstate", "Rotor", "Temperature"}; },
        "The function 'rbstate' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Temperature'. The argument must be a valid rigid body state variable.",
        [](Duct&) { return CallbackInfo {"rbstate", "Rotor", "Position X"}; }},

    Fault {"AllEulerAnglesAtOnce",
        [](Duct& p_duct) {
            p_duct.defineEulerAngles();
            return CallbackInfo {"rbstate", "Rotor", "Euler Angle"};
        },
        "The function 'rbstate' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Euler Angle'. Only individual angles (`Euler Angle X', `Euler Angle Y' and `Euler Angle Z') can "
        "be used as arguments .",
        [](Duct& p_duct) {
            p_duct.defineEulerAngles();
            return CallbackInfo {"rbstate", "Rotor", p_duct.named("Euler Angle{x}", "Euler Angle")};
        }},

    Fault {"ExpressionValueInAnotherFunctionThanProbe",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"trace", "P2", "Expression Value"};
        },
        "The function 'trace' referenced by parameter 'Speed' in object '/FLOW:F/DOMAIN:Duct' has an invalid "
        "argument, 'Expression Value'. 'Expression Value' can only be used with the 'probe' function.",
        [](Duct& p_duct) {
            p_duct.addExpressionPoint("P2");
            return CallbackInfo {"probe", "P2", "Expression Value"};
        }}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

}    // namespace
}    // namespace qen
