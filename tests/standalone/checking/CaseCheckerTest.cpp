#include "checking/CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_rules = R"(
[/FLOW/TEST]

[/FLOW/TEST/PARAMETER:Length]
Type = Real
Quantity = Length
Lower Bound = 0 [m]

[/FLOW/TEST/PARAMETER:Lengths]
Type = Real List
Quantity = Length
Lower Bound = 0 [m]
Depends On = ANY

[/FLOW/TEST/PARAMETER:Odd]
Type = Real List
Lower Bound = 0 [m]
)";

CaseReport check(const std::string& p_parameters)
{
    static const RulesForTest rules(k_rules);
    EXPECT_THAT(rules.definitions().problems(), IsEmpty());
    return rules.check("[/FLOW:F/TEST]\n" + p_parameters);
}

TEST(CaseChecker, FindsNothingInACleanCase)
{
    const CaseReport report = check("Length = 1 [m]\nLengths = 1 [m], 2 [mm], 3 [m] * 4\n");

    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_EQ(report.parameters, 2U);
    EXPECT_FALSE(report.internalError);
}

TEST(CaseChecker, OrdersItsFindingsByLine)
{
    const CaseReport report = check("Lengths = 1 [K]\nLength = -1 [m]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(2, 11, "wrong-units",
                            "Invalid units ('K') set for parameter 'Lengths' in object '/FLOW:F/TEST'. "
                            "Expected units: 'm'."),
                    FoundAt(3, 10, "below-lower-bound",
                            "Value of 'Length' in object '/FLOW:F/TEST', '-1 [m]', violates its lower bound, "
                            "'0 [m]'.")));
}

TEST(CaseChecker, PointsAtTheItemOfAListThatIsWrong)
{
    const CaseReport report = check("Lengths = 1 [m], 2 [m] + 1 [s], 3 [m], -4 [m]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(2, 18, "bad-expression", testing::_),
                    FoundAt(2, 40, "below-lower-bound",
                            "Value of 'Lengths' in object '/FLOW:F/TEST', '1 [m], 2 [m] + 1 [s], 3 [m], -4 "
                            "[m]', violates its lower bound, '0 [m]'.")));
}

TEST(CaseChecker, TellsAnExceptionAtTheParameterThatCausesItAndChecksTheRest)
{
    // Given a bound that cannot be compared with the number: its parameter has no quantity to refuse the units first
    const CaseReport report = check("Length = 1 [K]\nOdd = 1 [s]\nLengths = 1 [K] * 2\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(2, 10, "wrong-units", testing::_),
                            FoundAt(3, 7, "invalid-bound",
                                    "Parameter 'Odd' in object '/FLOW:F/TEST' could not be checked: The "
                                    "lower or upper bound value "
                                    "for parameter 'Odd' has been specified with invalid units."),
                            FoundAt(4, 11, "wrong-expression-units", testing::_)));
}

TEST(CaseChecker, TellsAnExceptionOfADeferredCheckAtItsParameterToo)
{
    // Given an expression whose bound cannot be compared: only the run of what was deferred finds out
    const CaseReport report = check("Odd = 1 [s] * 2\nLengths = 1 [K] * 2\n");

    EXPECT_THAT(report.findings, ElementsAre(FoundAt(2, 7, "invalid-bound", testing::_),
                                             FoundAt(3, 11, "wrong-expression-units", testing::_)));
}

TEST(CaseChecker, TellsATensorTypeThatIsNotAllowedWhereItStandsAndNotWhereTheVariableIsUsed)
{
    const CaseReport report = check("Lengths = Dye * 1 [m], average@Inlet(Dye) * 1 [m]\n"
                                    "[/FLOW:F/DOMAIN:D/BOUNDARY:Inlet]\n"
                                    "[/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Dye]\n"
                                    "Option = Transport Equation\n"
                                    "[/LIBRARY/ADDITIONAL VARIABLE:Dye]\n"
                                    "Units = m m^-1\n"
                                    "Tensor Type = SCALR\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(8, 15, "text-not-allowed",
                                    "The text 'SCALR' is not allowed as value of parameter 'Tensor Type' in "
                                    "object '/LIBRARY/ADDITIONAL VARIABLE:Dye'. Did you mean 'SCALAR'? "
                                    "Allowed: 'SCALAR', 'VECTOR'.")));
    EXPECT_FALSE(report.internalError);
}

TEST(CaseChecker, LeavesOutAListWhoseMessagesWouldFillTheMemory)
{
    // Given a list each of whose items would be refused with a message that holds the whole list
    std::string list = "-(1 [m])";
    for (int i = 0; i < 100000; ++i)
        list += ", -(1 [m])";

    const CaseReport report = check("Lengths = " + list + "\nLength = -1 [m]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(2, 1, "limit-list-length",
                            "The list of parameter 'Lengths' in object '/FLOW:F/TEST' is too long to be "
                            "checked: 1000008 bytes with 100000 commas."),
                    FoundAt(3, 10, "below-lower-bound", testing::_)));
}

TEST(CaseChecker, ChecksListsOfThousandsOfItems)
{
    std::string list = "1 [m]";
    for (int i = 0; i < 5000; ++i)
        list += ", 1 [m]";

    EXPECT_THAT(check("Lengths = " + list + ", -1 [m]\n").findings,
                ElementsAre(FoundAt(2, 35018, "below-lower-bound", testing::_)));
}

TEST(CaseChecker, WarnsOfACaseWithoutObjects)
{
    static const RulesForTest rules(k_rules);
    for (const char* text : {"", "# nothing but a comment\n\n"})
    {
        const CaseReport report = rules.check(text);

        ASSERT_THAT(report.findings, ElementsAre(FoundAt(0, 0, "empty-case", "The case holds no object.")));
        EXPECT_EQ(report.findings.front().severity, Severity::Warning);
        EXPECT_EQ(report.findings.front().file, "case.qcl");
    }
}

TEST(CaseChecker, LeavesItToTheReaderToSayWhyACaseHasNoObjects)
{
    EXPECT_THAT(RulesForTest(k_rules).check("stray = 1\n").findings, IsEmpty());
}

TEST(CaseChecker, LeavesItToTheReaderToSayWhyAValueIsMissing)
{
    // Given values that the reader refuses, on their first line or on a later one
    EXPECT_THAT(check("Length = \x01 1 [m]\n").findings, IsEmpty());
    EXPECT_THAT(check("Length = 1 [m] + \\\n  2 [m] + \\\n").findings, IsEmpty());
    EXPECT_THAT(check("Lengths = 1 [m], \\  \n  \x01, \\\n 2 [m]\n").findings, IsEmpty());
    EXPECT_THAT(check("Length = 1 [m]\n[/LIBRARY/QEL/EXPRESSIONS]\nPart = 2 * \\\n").findings, IsEmpty());

    // Then a value that is missing is told all the same, though there is a problem behind it
    EXPECT_THAT(check("Length =\nno parameter\n").findings,
                ElementsAre(FoundAt(2, 1, "missing-value",
                                    "The value of parameter 'Length' in object '/FLOW:F/TEST' is missing.")));
}

TEST(CaseChecker, FollowsProgressOverAllParameters)
{
    static const RulesForTest rules(k_rules);
    std::vector<std::pair<std::size_t, std::size_t>> steps;

    checkCase(readQclText("case.qcl", "[/FLOW:F/TEST]\nLength = 1 [m]\nLengths = 1 [m]\n"),
              rules.definitions(),
              [&](std::size_t p_done, std::size_t p_all) { steps.emplace_back(p_done, p_all); });

    EXPECT_THAT(steps, ElementsAre(std::pair(std::size_t {1}, std::size_t {2}),
                                   std::pair(std::size_t {2}, std::size_t {2})));
}

}    // namespace
}    // namespace qen::standalone
