#include "CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen::standalone {
namespace {

using testing::_;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Ne;

// A parameter that may be anything, in a domain with one fluid.
constexpr const char* k_rules = R"([/FLOW/DOMAIN/TEST]
[/FLOW/DOMAIN/TEST/PARAMETER:Value]
Type = Real List
Kind = Expression
Depends On = ANY
[/FLOW/DOMAIN/TEST/PARAMETER:Pressure]
Type = Real
Quantity = Pressure
Depends On = ANY
)";

constexpr const char* k_case = R"([/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]
Material = Water
[/FLOW:F/DOMAIN:D/BOUNDARY:Inlet]
[/LIBRARY/COORDINATE FRAME:Rotor Frame]
[/FLOW:F/DOMAIN:D/TEST]
)";
constexpr int k_line = 6;

CaseReport check(const std::string& p_parameters)
{
    static const RulesForTest rules(k_rules);
    EXPECT_THAT(rules.definitions().problems(), IsEmpty());
    return rules.check(k_case + p_parameters);
}

TEST(ExpressionFindings, AreNoneWhereAllExists)
{
    EXPECT_THAT(
        check("Value = Velocity{x:Rotor Frame} * 1 [s] + average@Inlet(Velocity{y}) * 1 [s]\n").findings,
        IsEmpty());
}

TEST(ExpressionFindings, TellOfAWrongNumberOfArguments)
{
    EXPECT_THAT(check("Value = 2 * area@Inlet(Pressure)\n").findings,
                ElementsAre(FoundAt(k_line, 13, "argument-count",
                                    "The function 'area' is given 1 argument. Expected 0.")));
    EXPECT_THAT(check("Value = average@Inlet()\n").findings,
                ElementsAre(FoundAt(k_line, 9, "argument-count",
                                    "The function 'average' is given 0 arguments. Expected 1.")));
}

TEST(ExpressionFindings, TellOfAWrongNumberOfArgumentsWhereItMakesTheUnitsWrong)
{
    EXPECT_THAT(check("Pressure = 0.5 * average@Inlet()\n").findings,
                ElementsAre(FoundAt(k_line, 12, "wrong-expression-units", _),
                            FoundAt(k_line, 18, "argument-count",
                                    "The function 'average' is given 0 arguments. Expected 1.")));
}

TEST(ExpressionFindings, TellOfAComponentThatDoesNotExist)
{
    EXPECT_THAT(
        check("Value = 1, Velocity{q}\n").findings,
        ElementsAre(FoundAt(k_line, 12, "unknown-component",
                            "There is no component 'q', as in 'Velocity{q}'. Expected letters out of 'x', "
                            "'y' and 'z'.")));
}

TEST(ExpressionFindings, LookIntoArguments)
{
    EXPECT_THAT(
        check("Value = average@Inlet(Velocity{w})\n").findings,
        ElementsAre(FoundAt(k_line, 23, "unknown-component",
                            "There is no component 'w', as in 'Velocity{w}'. Expected letters out of 'x', "
                            "'y' and 'z'.")));
}

TEST(ExpressionFindings, TellOfAComponentThatTheVariableOfAnArgumentDoesNotHave)
{
    EXPECT_THAT(check("Value = average@Inlet(Pressure{x})\n").findings,
                ElementsAre(FoundAt(k_line, 23, "unknown-component",
                                    "The variable 'Pressure' is a scalar and has no component 'x', as in "
                                    "'Pressure{x}'. Expected no letters.")));
    EXPECT_THAT(check("Value = average@Inlet(Water.Velocity{xy})\n").findings,
                ElementsAre(FoundAt(k_line, 23, "unknown-component",
                                    "The variable 'Velocity' is a vector and has no component 'xy', as in "
                                    "'Water.Velocity{xy}'. Expected one letter at most.")));
    EXPECT_THAT(
        check("Value = average@Inlet(Reynolds Stress{xyz})\n").findings,
        ElementsAre(FoundAt(k_line, 23, "unknown-component",
                            "The variable 'Reynolds Stress' is a symmetric tensor and has no component "
                            "'xyz', as in 'Reynolds Stress{xyz}'. Expected two letters at most.")));
}

TEST(ExpressionFindings, LeaveAComponentAloneThatTheVariableOfAnArgumentHas)
{
    EXPECT_THAT(check("Value = average@Inlet(Velocity{z}), average@Inlet(Reynolds Stress{xy}), "
                      "average@Inlet(Velocity), average@Inlet(Velocity{z:Rotor Frame})\n")
                    .findings,
                IsEmpty());
}

TEST(ExpressionFindings, TellOfACoordinateFrameOfAFunctionThatDoesNotExist)
{
    EXPECT_THAT(check("Value = force{x:Rotor Frame}@Inlet()\n").findings, IsEmpty());
    EXPECT_THAT(
        check("Value = force{x:Rotor}@Inlet()\n").findings,
        ElementsAre(FoundAt(k_line, 9, "unknown-coordinate-frame",
                            "There is no coordinate frame 'Rotor', as in 'force{x:Rotor}'. Expected an "
                            "object '/LIBRARY/COORDINATE FRAME:Rotor'.")));
}

TEST(ExpressionFindings, TellOfACoordinateFrameThatDoesNotExist)
{
    EXPECT_THAT(
        check("Value = Velocity{x:Rotor Frme}\n").findings,
        ElementsAre(FoundAt(k_line, 9, "unknown-coordinate-frame",
                            "There is no coordinate frame 'Rotor Frme', as in 'Velocity{x:Rotor Frme}'. "
                            "Expected an object '/LIBRARY/COORDINATE FRAME:Rotor Frme'. Did you mean "
                            "'Rotor Frame'?")));
}

TEST(ExpressionFindings, TellOfABadNamedExpressionThatNothingRefersTo)
{
    EXPECT_THAT(
        check("Value = 1\n[/LIBRARY/QEL/EXPRESSIONS]\nRamp = 2 * (1 + 3\n").findings,
        ElementsAre(FoundAt(k_line + 2, 18, "bad-named-expression",
                            "The named expression 'Ramp' is bad: Column 11: expected an operator or ')', "
                            "but found the end of the expression.")));
}

TEST(ExpressionFindings, OfANamedExpressionStandWhereItStands)
{
    EXPECT_THAT(
        check("Value = 2 * Part\n[/LIBRARY/QEL/EXPRESSIONS]\nPart = Velocity{q}\n").findings,
        ElementsAre(FoundAt(k_line + 2, 8, "unknown-component",
                            "There is no component 'q', as in 'Velocity{q}'. Expected letters out of 'x', "
                            "'y' and 'z'.")));
}

TEST(ExpressionFindings, StandBesideARecordOfAnotherPlace)
{
    EXPECT_THAT(check("Value = average@Outlet()\n").findings,
                ElementsAre(FoundAt(k_line, 9, "argument-count",
                                    "The function 'average' is given 0 arguments. Expected 1."),
                            FoundAt(k_line, 17, "invalid-locator",
                                    "An invalid or unrecognised locator 'Outlet' is referenced by parameter "
                                    "'Value' in object '/FLOW:F/DOMAIN:D/TEST'.")));
    EXPECT_THAT(
        check("Value = average@Outlet(Pressure), Velocity{q}\n").findings,
        ElementsAre(FoundAt(k_line, 17, "invalid-locator", _), FoundAt(k_line, 35, "unknown-component", _)));
}

TEST(ExpressionFindings, LeaveAPlaceAloneThatHasARecord)
{
    // Given a component letter that the library refuses itself
    EXPECT_THAT(
        check("Value = area@Inlet(Pressure) * (1 + 1 [m]), Pressure{q}\n").findings,
        ElementsAre(FoundAt(k_line, 33, "bad-expression", _), FoundAt(k_line, 45, "invalid-component", _)));
}

struct NotFinite {
    const char* name;
    const char* value;
    const char* is;    // as the message says it
};

constexpr const char* k_tooLarge = "not a finite number. Expected one of at most 3.4e38 in base units.";
constexpr const char* k_undefined =
    "undefined, as the root of a negative number is. Expected a finite number.";

class ValueThatIsNotFinite : public testing::TestWithParam<NotFinite> {};

TEST_P(ValueThatIsNotFinite, IsAnError)
{
    const CaseReport report = check("Value = 1, " + std::string(GetParam().value) + "\n");

    ASSERT_THAT(report.findings, ElementsAre(FoundAt(k_line, 12, "value-not-finite",
                                                     std::string("The value of parameter 'Value' in object "
                                                                 "'/FLOW:F/DOMAIN:D/TEST' is ") +
                                                         GetParam().is)));
    EXPECT_EQ(report.findings.front().severity, Severity::Error);
    EXPECT_EQ(report.findings.front().length, std::string(GetParam().value).size());
}

INSTANTIATE_TEST_SUITE_P(Values, ValueThatIsNotFinite,
                         testing::Values(NotFinite {"Quotient", "0.5 [s] / 0", k_tooLarge},
                                         NotFinite {"NoNumber", "0 / 0", k_undefined},
                                         NotFinite {"BeyondSinglePrecision", "1e39", k_tooLarge},
                                         NotFinite {"BelowSinglePrecision", "-1e39", k_tooLarge},
                                         NotFinite {"BeyondInBaseUnits", "1e37 [km]", k_tooLarge},
                                         NotFinite {"Logarithm", "ln(-1)", k_undefined},
                                         NotFinite {"Root", "sqrt(-1)", k_undefined}),
                         [](const auto& p_info) { return std::string(p_info.param.name); });

TEST(ExpressionFindings, TakeValuesAtTheEdgeOfSinglePrecision)
{
    EXPECT_THAT(check("Value = 3.4e38, -3.4e38, 1e-60, 1 / t * 1 [s] / 0\n").findings, IsEmpty());
}

TEST(ExpressionFindings, TellOfANamedExpressionThatIsNotFiniteWhereItStands)
{
    EXPECT_THAT(
        check("Value = 2 * Part\n[/LIBRARY/QEL/EXPRESSIONS]\nPart = 1 / 0\nWhole = Part + 1\n").findings,
        ElementsAre(FoundAt(k_line + 2, 8, "value-not-finite",
                            "The value of the named expression 'Part' is not a finite number. "
                            "Expected one of at most 3.4e38 in base units.")));
}

TEST(ExpressionFindings, SayNothingOfComponentsOfAVariableThatWasRefused)
{
    // Given a definition whose long name is another variable's: its short name belongs to no variable
    const RulesForTest rules(
        "[/VARIABLE:zzrefused]\nLong Name = Density\nQuantity = Density\nTensor Type = SCALAR\n"
        "Variable Scope = GLOBAL\nField Variable = Yes\n",
        "VARIABLES.qcl");
    ASSERT_EQ(rules.definitions().problems().size(), 1U);

    EXPECT_THAT(rules.check("[/LIBRARY/QEL/EXPRESSIONS]\nA = average@Inlet(zzrefused{x})\n").findings,
                Each(Field(&Finding::identifier, Ne("unknown-component"))));
}

}    // namespace
}    // namespace qen::standalone
