#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* k_cleanCase = "[/FLOW:F/SIMULATION]\nType = Steady\n";

/// Checks a clean case with the shipped definitions and a folder of further ones.
struct CheckedWith {
    Outcome run;
    std::string folder;
};

CheckedWith checkWith(const TemporaryFolder& p_folder)
{
    return {qencheck({"check", "--definitions", "definitions", "--definitions", p_folder.path(),
                      p_folder.write("case.qcl", k_cleanCase)}),
            p_folder.path()};
}

TEST(BrokenDefinitions, AreAllShownWithFileAndLineBeforeTheStatusTellsThatNothingWasChecked)
{
    // Given a mistake in a unit, a rule, a variable, an operator and a function
    const TemporaryFolder folder;
    folder.write("UNITS.qcl", "[/UNIT:furlong]\nDefinition = rods\nFactor = 40\n");
    folder.write("RULES.qcl", "[/FLOW/SIMULATION/PARAMETER:Damping]\nType = Reel\n");
    folder.write("VARIABLES.qcl",
                 "[/VARIABLE:swirl]\nTensor Type = VECTOR\nComponent Short Names = a, b\n\n"
                 "[/VARIABLE OPERATOR:Lap]\nTensor Type = SCALAR\n\n"
                 "[/CALLBACK FUNCTION:girth]\nResult Units = [m]\nNumber of Arguments = one\n");

    const auto [run, path] = checkWith(folder);

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(
        run.out,
        AllOf(HasSubstr(path + "/UNITS.qcl:2:"), HasSubstr(path + "/RULES.qcl:2:"),
              HasSubstr(path + "/VARIABLES.qcl:3:25: error: Error in 'Component Short Names' definition for "
                               "variable 'swirl'. There are 2 short component names instead of 3. "
                               "[definition-error]\n"
                               "    3 | Component Short Names = a, b\n"
                               "      |                         ^~~~\n"),
              HasSubstr(path + "/VARIABLES.qcl:5:2: error: The Variable Operator named 'Lap' does not "
                               "have a 'Long Name' parameter [definition-error]\n"),
              HasSubstr(path + "/VARIABLES.qcl:10:23: error: Invalid value ('one') of 'Number of "
                               "Arguments' read in definition of callback function 'girth'. "
                               "[definition-error]\n"),
              HasSubstr("The definitions hold errors: nothing was checked.\n"),
              Not(HasSubstr("parameters checked"))));
}

TEST(BrokenDefinitions, ThatOnlyEarnAWarningDoNotKeepACaseFromBeingChecked)
{
    const TemporaryFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:swirl]\nTensor Type = Scalar\n");

    const auto [run, path] = checkWith(folder);

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr(path + "/VARIABLES.qcl:2:15: warning: Error in definition of variable "
                                       "'swirl'.\nThis variable has an unknown tensor type 'Scalar' "
                                       "and will be ignored. [definition-warning]\n"),
                      HasSubstr("1 parameter checked: no problems\n")));
}

TEST(BrokenDefinitions, ThatEndInTheMiddleOfASectionNameTheLineAndWhatIsMissing)
{
    const TemporaryFolder folder;
    folder.write("VARIABLES.qcl", "[/CALLBACK FUNCTION:girth]\nResult Units = [m]\nNumber of Argu");

    const auto [run, path] = checkWith(folder);

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, AllOf(HasSubstr(path + "/VARIABLES.qcl:3:1: error: 'Number of Argu' is no line of a "
                                                "section."),
                               HasSubstr(path + "/VARIABLES.qcl:1:2: error: Missing parameter 'Number of "
                                                "Arguments' in definition of callback function 'girth'.")));
}

TEST(BrokenDefinitions, OfAFolderThatIsNotThereAreNamed)
{
    const TemporaryFolder folder;
    const Outcome run =
        qencheck({"check", "--definitions", "no/such/folder", folder.write("case.qcl", k_cleanCase)});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, testing::StartsWith(
                             "qencheck: error: The definition folder 'no/such/folder' cannot be read: No "
                             "such file or directory. [definition-folder]\n"));
}

}    // namespace
}    // namespace qencheck_test
