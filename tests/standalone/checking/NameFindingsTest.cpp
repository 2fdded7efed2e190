#include "CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CaseReport check(const std::string& p_case)
{
    static const RulesForTest rules("");
    return rules.check(p_case);
}

TEST(NameFindings, TellOfANameThatNoExpressionCanWrite)
{
    const CaseReport report = check("[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sea-Water]\n"
                                    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sea-Water]\n"
                                    "[/LIBRARY/ADDITIONAL VARIABLE:2nd Dye]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(
            FoundAt(1, 18, "name-not-writable",
                    "The name 'Sea-Water' of the object '/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sea-Water' "
                    "cannot be written in an expression. Expected words of letters, digits and '_', "
                    "parted by single blanks, the first of which begins with a letter."),
            FoundAt(3, 10, "name-not-writable",
                    "The name '2nd Dye' of the object '/LIBRARY/ADDITIONAL VARIABLE:2nd Dye' cannot be "
                    "written in an expression. Expected words of letters, digits and '_', parted by "
                    "single blanks, the first of which begins with a letter.")));
    for (const Finding& finding : report.findings)
        EXPECT_EQ(finding.severity, Severity::Warning);
}

TEST(NameFindings, LeaveNamesAloneThatExpressionsDoNotMention)
{
    EXPECT_THAT(check("[/FLOW:F-16 (old)/DOMAIN:Wing-left/BOUNDARY:Inlet-1]\n"
                      "[/FLOW:F-16 (old)/DOMAIN:Wing-left/FLUID MODELS/FLUID:Air (dry)]\n"
                      "[/LIBRARY/COORDINATE FRAME:Rotor 1.5, turned]\n")
                    .findings,
                IsEmpty());
}

TEST(NameFindings, TellOfACoordinateFrameThatNoExpressionCanWrite)
{
    EXPECT_THAT(check("[/LIBRARY/COORDINATE FRAME:Rotor-1]\n").findings,
                ElementsAre(FoundAt(1, 10, "name-not-writable",
                                    "The name 'Rotor-1' of the object '/LIBRARY/COORDINATE FRAME:Rotor-1' "
                                    "cannot be written in an expression. Expected a name without any of "
                                    "( ) * / + - ^ [ ] { }.")));
}

TEST(NameFindings, TellOfALocatorThatNoExpressionCanWrite)
{
    EXPECT_THAT(check("[/FLOW:F/DOMAIN:Wing/BOUNDARY:Skin (left)]\n").findings,
                ElementsAre(FoundAt(1, 21, "name-not-writable",
                                    "The name 'Skin (left)' of the object "
                                    "'/FLOW:F/DOMAIN:Wing/BOUNDARY:Skin (left)' cannot be written behind '@' "
                                    "in an expression. Expected a name without '('.")));
}

TEST(NameFindings, TellOfAnAdditionalVariableThatIsHiddenOrHidesAConstant)
{
    const CaseReport report = check("[/LIBRARY/ADDITIONAL VARIABLE:Pressure]\nUnits = kg m^-3\n"
                                    "[/LIBRARY/ADDITIONAL VARIABLE:pi]\nUnits = m\n");

    EXPECT_THAT(report.findings,
                ElementsAre(FoundAt(1, 2, "additional-variable-hidden",
                                    "The additional variable 'Pressure' is never reached: in an expression "
                                    "'Pressure' means the variable of that name."),
                            FoundAt(3, 2, "constant-hidden",
                                    "The additional variable 'pi' hides the constant of that name, which no "
                                    "expression reaches any more.")));
    for (const Finding& finding : report.findings)
        EXPECT_EQ(finding.severity, Severity::Warning);
}

TEST(NameFindings, TellOfANamedExpressionThatIsHidden)
{
    const CaseReport report = check("[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg m^-3\n"
                                    "[/LIBRARY/ADDITIONAL VARIABLE:Swirl]\nUnits = m\nTensor Type = VECTOR\n"
                                    "[/LIBRARY/QEL/EXPRESSIONS]\n"
                                    "Dye = 1\nSwirl X = 2\npi = 3\nSwirl W = 4\nMy Speed = 5 [m s^-1]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(7, 1, "named-expression-hidden",
                            "The named expression 'Dye' is never reached: in an expression 'Dye' means "
                            "the additional variable of that name."),
                    FoundAt(8, 1, "named-expression-hidden",
                            "The named expression 'Swirl X' is never reached: in an expression 'Swirl X' "
                            "means the additional variable of that name."),
                    FoundAt(9, 1, "named-expression-hidden",
                            "The named expression 'pi' is never reached: in an expression 'pi' means the "
                            "constant of that name.")));
}

TEST(NameFindings, TellOfANamedExpressionWhoseNameCannotBeWritten)
{
    EXPECT_THAT(check("[/LIBRARY/QEL/EXPRESSIONS]\nTip-Speed = 1 [m s^-1]\n").findings,
                ElementsAre(FoundAt(2, 1, "name-not-writable",
                                    "The name of the named expression 'Tip-Speed' cannot be written in an "
                                    "expression. Expected words of letters, digits and '_', parted by single "
                                    "blanks, the first of which begins with a letter.")));
}

TEST(NameFindings, TellOfALocatorWhoseNameComesTwiceInAFlow)
{
    const CaseReport report = check("[/FLOW:F/DOMAIN:D/BOUNDARY:Wall]\n"
                                    "[/FLOW:F/DOMAIN:E/BOUNDARY:Wall]\n"
                                    "[/FLOW:G/DOMAIN:E/BOUNDARY:Wall]\n");

    EXPECT_THAT(
        report.findings,
        ElementsAre(FoundAt(2, 2, "repeated-locator",
                            "The name 'Wall' of the object '/FLOW:F/DOMAIN:E/BOUNDARY:Wall' is that of "
                            "'/FLOW:F/DOMAIN:D/BOUNDARY:Wall' already, which is what '@Wall' means in an "
                            "expression.")));
}

}    // namespace
}    // namespace qen::standalone
