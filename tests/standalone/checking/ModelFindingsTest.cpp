#include "checking/CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_rules = R"(
[/TEST]

[/TEST/PARAMETER:Count]
Type = Integer

[/TEST/PARAMETER:Length]
Type = Real
Quantity = Length

[/TEST/PARAMETER:Lengths]
Type = Real List
Quantity = Length

[/TEST/PARAMETER:Shape]
Type = String
Allowed = Round, Square

[/TEST/PARAMETER:Shapes]
Type = String List
Allowed = Round, Square

[/TEST/PARAMETER:Switch]
Type = Logical

[/TEST/PARAMETER:Tracer]
Type = Real
Units From = /LIBRARY/ADDITIONAL VARIABLE:Dye/PARAMETER:Units

[/TEST/PART]
Named = Yes
)";

CaseReport check(const std::string& p_case)
{
    static const RulesForTest rules(k_rules);
    EXPECT_THAT(rules.definitions().problems(), IsEmpty());
    return rules.check(p_case);
}

TEST(ModelFindings, NameAnUnknownObjectTypeOnceWithTheNearestKnownOne)
{
    const CaseReport report = check("[/TEST/PRAT:A]\nX = 1\n[/TEST/PRAT:A/DEEPER]\nX = 1\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(1, 7, "unknown-object-type",
                                    "Unknown object type 'PRAT' in '/TEST'. Did you mean 'PART'?")));
}

TEST(ModelFindings, NameAnUnknownObjectTypeOfTheFirstLevel)
{
    const CaseReport report = check("[/ZZZZZZ]\n");

    EXPECT_THAT(report.findings, ElementsAre(FoundAt(1, 2, "unknown-object-type",
                                                     "Unknown object type 'ZZZZZZ' at the top of a case.")));
}

TEST(ModelFindings, AskForANameWhereATypeNeedsOne)
{
    const CaseReport report = check("[/TEST/PART]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(1, 7, "object-name", "An object of type 'PART' needs a name: '/PART:name'.")));
}

TEST(ModelFindings, RefuseANameWhereThereIsOneObject)
{
    const CaseReport report = check("[/TEST:A]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(1, 2, "object-name",
                            "There is one object of type 'TEST' at the top of a case; it takes no name. "
                            "Expected '/TEST'.")));
}

TEST(ModelFindings, NameAnUnknownParameterWithTheNearestKnownOne)
{
    const CaseReport report = check("[/TEST]\nLenght = 1 [m]\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(2, 1, "unknown-parameter",
                                    "Unknown parameter 'Lenght' in object '/TEST'. Did you mean 'Length'?")));
}

TEST(ModelFindings, RefuseATextThatIsNotAmongTheAllowedOnes)
{
    const CaseReport report = check("[/TEST]\nShape = Rond\nShapes = Round, Oval\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(
            FoundAt(2, 9, "text-not-allowed",
                    "The text 'Rond' is not allowed as value of parameter 'Shape' in object '/TEST'. "
                    "Did you mean 'Round'? Allowed: 'Round', 'Square'."),
            FoundAt(3, 17, "text-not-allowed",
                    "The text 'Oval' is not allowed as value of parameter 'Shapes' in object '/TEST'. "
                    "Allowed: 'Round', 'Square'.")));
}

TEST(ModelFindings, TakeAPlainTextWithACommaAsOneText)
{
    const CaseReport report = check("[/TEST]\nShape = Round, Square\n");

    EXPECT_THAT(report.findings, ElementsAre(FoundAt(2, 9, "text-not-allowed", testing::_)));
}

TEST(ModelFindings, RefuseALogicalValueThatIsNone)
{
    for (const char* text : {"T", "True",  "TRUE",  "true",  "Yes", "YES", "yes", "On",  "ON",  "on",  "1",
                             "F", "False", "FALSE", "false", "No",  "NO",  "no",  "Off", "OFF", "off", "0"})
        EXPECT_THAT(check(std::string("[/TEST]\nSwitch = ") + text + "\n").findings, IsEmpty()) << text;
    EXPECT_THAT(
        check("[/TEST]\nSwitch = Perhaps\n").findings,
        ElementsAre(FoundAt(2, 10, "not-a-logical",
                            "The text 'Perhaps' is no logical value of parameter 'Switch' in object '/TEST'. "
                            "Expected On, Off, True, False, Yes or No.")));
}

TEST(ModelFindings, RefuseANumberThatIsNoInteger)
{
    for (const char* whole : {"-3", "+3", "1e4", "1000.0", "20e-1"})
        EXPECT_THAT(check(std::string("[/TEST]\nCount = ") + whole + "\n").findings, IsEmpty()) << whole;
    EXPECT_THAT(
        check("[/TEST]\nCount = 2.5\n").findings,
        ElementsAre(FoundAt(2, 9, "not-an-integer",
                            "The number '2.5' of parameter 'Count' in object '/TEST' is not an integer.")));
}

TEST(ModelFindings, RefuseAListWhereASingleValueBelongs)
{
    const CaseReport report = check("[/TEST]\nLength = 1 [m], 2 [m], 3 [m]\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(
                    2, 17, "not-a-list",
                    "The value of parameter 'Length' in object '/TEST' is a list of 3 items. Expected "
                    "a single value.")));
}

TEST(ModelFindings, TellOfAnEmptyItemOfAList)
{
    const CaseReport report = check("[/TEST]\nShapes = Round, , Square\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(
                    2, testing::_, "empty-list-item",
                    "An item of the list of parameter 'Shapes' in object '/TEST' is empty. Expected a "
                    "value between two commas.")));
}

TEST(ModelFindings, WarnOfAMissingValue)
{
    const CaseReport report = check("[/TEST]\nLength =\n");

    ASSERT_THAT(report.findings,
                ElementsAre(FoundAt(2, 1, "missing-value",
                                    "The value of parameter 'Length' in object '/TEST' is missing.")));
    EXPECT_EQ(report.findings[0].severity, Severity::Warning);
}

TEST(ModelFindings, TellOfUnitsThatAreNotWhereTheRulesLookForThem)
{
    EXPECT_THAT(check("[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg\n[/TEST]\nTracer = 1 [kg]\n").findings,
                IsEmpty());
    EXPECT_THAT(check("[/TEST]\nTracer = 1 [kg]\n").findings,
                ElementsAre(FoundAt(
                    2, 1, "units-not-found",
                    "The units of parameter 'Tracer' in object '/TEST' are not known, so that its value "
                    "cannot be checked. Expected units that are understood in parameter 'Units' in object "
                    "'/LIBRARY/ADDITIONAL VARIABLE:Dye'.")));
}

TEST(ModelFindings, TellOfUnitsThatAreNotUnderstoodWhereTheyStandAndNotWhereTheyAreUsed)
{
    const CaseReport report =
        check("[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg/m^3\n[/TEST]\nTracer = 1 [kg]\n");

    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_EQ(report.findings[0].identifier, "units-not-understood");
}

TEST(ModelFindings, TellOfUnitsOfAnAdditionalVariableThatAreNotUnderstood)
{
    const CaseReport report = check("[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg zork^-1\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(2, 9, "units-not-understood",
                            testing::StartsWith("The units 'kg zork^-1' of parameter 'Units' in object "
                                                "'/LIBRARY/ADDITIONAL VARIABLE:Dye' are not "
                                                "understood: "))));
    EXPECT_THAT(check("[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg m^-3\n").findings, IsEmpty());
}

TEST(ModelFindings, LetNamedExpressionsHaveAnyName)
{
    EXPECT_THAT(check("[/LIBRARY/QEL/EXPRESSIONS]\nMy Own Name = 1 [m]\n").findings, IsEmpty());
}

}    // namespace
}    // namespace qen::standalone
