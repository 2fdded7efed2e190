#include "CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen::standalone {
namespace {

using testing::IsEmpty;

constexpr const char* k_rules = R"([/FLOW/DOMAIN/TEST]
[/FLOW/DOMAIN/TEST/PARAMETER:Any]
Type = Real List
Kind = Expression
Depends On = ANY
[/FLOW/DOMAIN/TEST/PARAMETER:Coordinates]
Type = Real
Quantity = Pressure
Depends On = XYZ
[/FLOW/DOMAIN/TEST/PARAMETER:Single]
Type = Real
Quantity = Pressure
Single Valued = Yes
Depends On = ANY
[/FLOW/DOMAIN/TEST/PARAMETER:Pressure]
Type = Real
Quantity = Pressure
Depends On = ANY
)";

constexpr const char* k_case = R"([/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]
Material = Water
[/FLOW:F/DOMAIN:D/BOUNDARY:Inlet]
[/LIBRARY/QEL/EXPRESSIONS]
Rise = 2 * Air.Pressure
[/FLOW:F/DOMAIN:D/TEST]
)";

struct PlaceCase {
    const char* name;
    const char* parameter;
    const char* identifier;
    const char* pointedAt;    // the part of the line
};

void PrintTo(const PlaceCase& p_case, std::ostream* p_stream) { *p_stream << p_case.parameter; }

class MessagePlace : public testing::TestWithParam<PlaceCase> {};

TEST_P(MessagePlace, IsWhatTheMessageIsAbout)
{
    static const RulesForTest rules(k_rules);
    ASSERT_THAT(rules.definitions().problems(), IsEmpty());

    const CaseReport report = rules.check(std::string(k_case) + GetParam().parameter + "\n");

    ASSERT_EQ(report.findings.size(), 1U);
    const Finding& finding = report.findings.front();
    EXPECT_EQ(finding.identifier, GetParam().identifier);
    EXPECT_EQ(finding.lineText.substr(finding.column - 1, finding.length), GetParam().pointedAt);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, MessagePlace, testing::Values(
    PlaceCase {"Variable",        "Pressure = 1 [Pa] + Air.Pressure",       "prefix-error",          "Air.Pressure"},
    PlaceCase {"NamedExpression", "Pressure = 1 [Pa] + Rise",               "prefix-error",          "Rise"},
    PlaceCase {"Operator",        "Any = 1, Pressure.Foo",                  "invalid-operator",      "Pressure.Foo"},
    PlaceCase {"OperatorInArgument", "Any = average@Inlet(Pressure.Foo)",   "invalid-operator",      "Pressure.Foo"},
    PlaceCase {"Locator",         "Any = average@Outlet(Pressure)",         "invalid-locator",       "Outlet"},
    PlaceCase {"Argument",        "Any = 3 * average@Inlet(2 * Pressure)",  "argument-not-a-variable", "2 * Pressure"},
    PlaceCase {"ArgumentOfTheSecondCall", "Any = average@Inlet(Pressure) - average@Inlet(x) * 1 [Pa m^-1]", "disallowed-argument", "x"},
    PlaceCase {"Function",        "Any = 1 + volume@Inlet() / 1 [m^3]",     "function-locator-dimension", "Inlet"},
    PlaceCase {"ListedVariable",  "Coordinates = x * 1 [Pa m^-1] + Total Pressure", "unavailable-variables", "Total Pressure"},
    PlaceCase {"ListedByFullName", "Single = 1 [Pa] + Pressure",            "field-valued-variables", "Pressure"},
    PlaceCase {"PartOfAnArgument", "Any = 2 * rbstate(Euler Angle{x:Rotor Frame})", "coordinate-frame-unsupported", "Euler Angle{x:Rotor Frame}"},
    PlaceCase {"WholeValue",      "Pressure = 1 [m] * x / x",               "wrong-expression-units", "1 [m] * x / x"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

}    // namespace
}    // namespace qen::standalone
