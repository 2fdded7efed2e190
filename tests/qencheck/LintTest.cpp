#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

const std::string k_clean = "tests/standalone/lint/data/clean";

/// Runs the lint on the clean definitions and those of a folder.
Outcome lintWith(const TemporaryFolder& p_folder)
{
    return qencheck({"lint", "--definitions", k_clean, "--definitions", p_folder.path()});
}

TEST(LintCommand, FindsNothingInTheDefinitionsThatAreShipped)
{
    const Outcome run = qencheck({"lint"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, MatchesRegex("definitions: [0-9]+ variables, [0-9]+ operators, [0-9]+ callback "
                                      "functions, [0-9]+ parameters: no problems\n"));
    EXPECT_EQ(run.error, "");
}

TEST(LintCommand, CountsWhatItHasLookedAt)
{
    const Outcome run = qencheck({"lint", "--definitions", k_clean});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "definitions: 12 variables, 2 operators, 2 callback functions, 7 parameters: no "
                       "problems\n");
}

TEST(LintCommand, ShowsAFindingAtItsPlaceAndEndsWithStatusOneForAnError)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("VARIABLES.qcl", "[/VARIABLE:Dye]\nTensor Type = SCALAR\n"
                                                           "Variable Scope = GLOBLA\n");

    const Outcome run = lintWith(folder);

    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, file + ":3:18: error: No check knows the scope 'GLOBLA' of variable 'Dye'. Did you "
                              "mean 'GLOBAL'? [lint-unknown-scope]\n"
                              "    3 | Variable Scope = GLOBLA\n"
                              "      |                  ^~~~~~\n"
                              "definitions: 13 variables, 2 operators, 2 callback functions, 7 parameters: 1 "
                              "error, 0 warnings\n");
}

TEST(LintCommand, EndsWithStatusZeroForWarnings)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("VARIABLES.qcl", "[/VARIABLE:step]\nTensor Type = SCALAR\n");

    const Outcome run = lintWith(folder);

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, file +
                           ":1:12: warning: The variable 'step' has the name of a function of mathematics. "
                           "Expected another name. [lint-name-of-function]\n"
                           "    1 | [/VARIABLE:step]\n"
                           "      |            ^~~~\n"
                           "definitions: 13 variables, 2 operators, 2 callback functions, 7 parameters: 0 "
                           "errors, 1 warning\n");
}

TEST(LintCommand, ShowsWhatLoadingAndTheLintFindInOrderAndEachOnce)
{
    // Given a file in which loading finds the second and fourth mistake and the lint the others, and one in which
    // each finds one
    const TemporaryFolder folder;
    const std::string variables = folder.write("VARIABLES.qcl", "[/VARIABLE:A]\n"
                                                                "Tensor Type = SCALAR\n"
                                                                "Field Variable = Treu\n"
                                                                "[/VARIABLE:B]\n"
                                                                "Tensor Type = SCALAR\n"
                                                                "General Availability = QEL\n"
                                                                "Variable Scope = GLOBAL\n"
                                                                "Quantity = Presure\n"
                                                                "[/VARIABLE:C]\n"
                                                                "Tensor Type = TENSOR\n");
    const std::string rules = folder.write("RULES.qcl", "[/FLOW/DOMAIN/PARAMETER:Gap]\n"
                                                        "Type = Real\n"
                                                        "Upper Bound = 1 [m]\n"
                                                        "[/FLOW/DOMAIN/PARAMETER:Reference Pressure]\n"
                                                        "Quantity = Presure\n");

    const Outcome run = lintWith(folder);

    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(
        run.out,
        rules +
            ":3:15: error: The bound '1 [m]' of parameter 'Gap' has units, but no 'Quantity' asks for values "
            "of such units. Expected a 'Quantity', or a bound without units. [lint-bound-units]\n"
            "    3 | Upper Bound = 1 [m]\n"
            "      |               ^~~~~\n" +
            rules +
            ":5:12: error: The quantity 'Presure' is not among the definitions of units. "
            "[unknown-quantity]\n"
            "    5 | Quantity = Presure\n"
            "      |            ^~~~~~~\n" +
            variables +
            ":3:18: error: The 'Field Variable' 'Treu' of variable 'A' counts as 'No'. Did you mean "
            "'True'? [lint-field-variable-text]\n"
            "    3 | Field Variable = Treu\n"
            "      |                  ^~~~\n" +
            variables +
            ":4:2: warning: Error in definition of variable 'B'.\n"
            "This variable has QEL availability but does not have a \"Field Variable\" parameter.\n"
            "A value of \"True\" has been assumed but this may not be correct. "
            "[definition-warning]\n"
            "    4 | [/VARIABLE:B]\n"
            "      |  ^~~~~~~~~~~\n" +
            variables +
            ":8:12: error: The quantity 'Presure' of variable 'B' is not among the definitions of "
            "units. Did you mean 'Pressure'? [lint-unknown-quantity]\n"
            "    8 | Quantity = Presure\n"
            "      |            ^~~~~~~\n" +
            variables +
            ":10:15: warning: Error in definition of variable 'C'.\n"
            "This variable has an unknown tensor type 'TENSOR' and will be ignored. "
            "[definition-warning]\n"
            "   10 | Tensor Type = TENSOR\n"
            "      |               ^~~~~~\n"
            "definitions: 15 variables, 2 operators, 2 callback functions, 8 parameters: 4 errors, "
            "2 warnings\n");
}

TEST(LintCommand, EndsWithStatusTwoWhereAFileIsMissing)
{
    const TemporaryFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:step]\nTensor Type = SCALAR\n");

    const Outcome run = qencheck({"lint", "--definitions", folder.path()});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("There is no definition file 'RULES.qcl' in '" + folder.path() + "'."),
                      HasSubstr("\nThe definitions are not whole: nothing more was looked for.\n"),
                      Not(HasSubstr("lint-"))));
}

TEST(LintCommand, EndsWithStatusTwoWhereAFileIsNoText)
{
    const TemporaryFolder folder;
    folder.write("RULES.qcl", std::string("PK\3\4\0\0", 6));

    const Outcome run = lintWith(folder);

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("[file-binary]\n"));
}

TEST(LintCommand, ShowsExamplesAndItsRulesWithItsHelp)
{
    const Outcome run = qencheck({"lint", "--help"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("Examples:\n  qencheck lint\n"), HasSubstr("Exit status: 0"),
                      HasSubstr("  lint-unknown-scope                  a variable's scope that no check "
                                "looks at\n")));
}

TEST(LintCommand, ColoursItsClosingLineOnlyWhenAsked)
{
    EXPECT_THAT(qencheck({"lint", "--definitions", k_clean, "--color", "always"}).out,
                HasSubstr(": \x1b[1;32mno problems\x1b[0m\n"));
    EXPECT_THAT(qencheck({"lint", "--definitions", k_clean}).out, Not(HasSubstr("\x1b[")));
}

}    // namespace
}    // namespace qencheck_test
