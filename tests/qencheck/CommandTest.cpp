#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* k_cleanCase = "[/FLOW:F/SIMULATION]\nType = Steady\n";

TEST(Command, ShowsItsSubcommandsWithHelp)
{
    const Outcome run = qencheck({"--help"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, AllOf(HasSubstr("qencheck"), HasSubstr("check")));
}

TEST(Command, ShowsAnExampleWithTheHelpOfCheck)
{
    const Outcome run = qencheck({"check", "--help"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("Example:\n  qencheck check pump.qcl\n"), HasSubstr("Exit status: 0")));
}

TEST(Command, TellsItsVersion)
{
    const Outcome run = qencheck({"--version"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, testing::MatchesRegex("qencheck [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Command, EndsWithStatusTwoWithoutASubcommandAndNamesThem)
{
    const Outcome run = qencheck({});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.error, AllOf(StartsWith("qencheck: a command is missing; expected check, "),
                                 HasSubstr(" or "), testing::EndsWith("\nSee 'qencheck --help'.\n")));
}

TEST(Command, EndsWithStatusTwoForACommandThatIsNone)
{
    const Outcome run = qencheck({"lnit"});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.error, AllOf(StartsWith("qencheck: there is no command 'lnit'; expected check, "),
                                 testing::EndsWith(". Did you mean 'lint'?\nSee 'qencheck --help'.\n")));
    EXPECT_THAT(qencheck({"bogus", "--color", "never"}).error,
                AllOf(StartsWith("qencheck: there is no command 'bogus'; expected check, "),
                      Not(HasSubstr("Did you mean"))));
}

TEST(Command, EndsWithStatusTwoWithoutACase)
{
    const Outcome run = qencheck({"check"});

    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.error, "qencheck: check: CASE is required\nSee 'qencheck check --help'.\n");
}

TEST(Command, EndsWithStatusTwoForAnUnknownOption)
{
    const Outcome run = qencheck({"check", "--colour", "examples/pump.qcl"});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.error, HasSubstr("--colour"));
}

TEST(Command, ChecksSeveralCasesAndEndsWithTheWorstStatus)
{
    const Outcome run = qencheck({"check", "examples/pump-broken.qcl", "examples/pump.qcl"});

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, AllOf(StartsWith("examples/pump-broken.qcl:"), HasSubstr("examples/pump.qcl: "),
                               HasSubstr(" checked: no problems\n")));
}

TEST(Command, ChecksTheOtherCasesWhenOneCannotBeRead)
{
    const Outcome run = qencheck({"check", "examples/no-such-case.qcl", "examples/pump.qcl"});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, AllOf(HasSubstr("examples/no-such-case.qcl"), HasSubstr(" checked: no problems\n")));
}

TEST(Command, UsesColoursOnlyWhenAsked)
{
    EXPECT_THAT(qencheck({"check", "examples/pump-broken.qcl"}).out, Not(HasSubstr("\x1b[")));
    EXPECT_THAT(qencheck({"check", "--color", "always", "examples/pump-broken.qcl"}).out,
                HasSubstr("\x1b[1;31merror:"));
    EXPECT_THAT(qencheck({"check", "--color", "never", "examples/pump-broken.qcl"}).out,
                Not(HasSubstr("\x1b[")));
}

TEST(Command, ReadsDefinitionsFromTheFolderThatIsGiven)
{
    const TemporaryFolder folder;

    const Outcome run = qencheck({"check", "--definitions", folder.path(), "examples/pump.qcl"});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("The definition folder '" + folder.path() +
                                   "' holds none of UNITS.qcl, RULES.qcl, PHYSICS.qcl and VARIABLES.qcl."));
}

TEST(Command, ReadsDefinitionsFromTheFolderThatTheEnvironmentNames)
{
    const TemporaryFolder folder;

    const Outcome run = qencheck({"check", "examples/pump.qcl"}, {"QENCHECK_DEFINITIONS=" + folder.path()});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("The definition folder '" + folder.path() +
                                   "' holds none of UNITS.qcl, RULES.qcl, PHYSICS.qcl and VARIABLES.qcl."));
}

TEST(Command, LetsLaterDefinitionsOverrideEarlierOnes)
{
    // Given definitions that add a unit to the shipped ones
    const TemporaryFolder folder;
    folder.write("UNITS.qcl", "[/UNIT:furlong]\nDefinition = m\nFactor = 201.168\n");
    const std::string caseFile =
        folder.write("case.qcl", "[/FLOW:F/SIMULATION]\nType = Transient\nDuration = 1 [furlong]\n");

    const Outcome without = qencheck({"check", caseFile});
    const Outcome with =
        qencheck({"check", "--definitions", "definitions", "--definitions", folder.path(), caseFile});

    EXPECT_THAT(without.out, HasSubstr("[unrecognised-units]"));
    EXPECT_THAT(with.out, Not(HasSubstr("[unrecognised-units]")));
    EXPECT_THAT(with.out, Not(HasSubstr("UNITS.qcl")));
}

TEST(Command, EndsWithStatusTwoWhenADefinitionIsBrokenAndShowsAllOfThem)
{
    const TemporaryFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:A]\nTensor Type = VECTOR\nComponent Short Names = a, b\n"
                                  "[/VARIABLE:B]\nTensor Typ = SCALAR\n");
    const std::string caseFile = folder.write("case.qcl", k_cleanCase);

    const Outcome run =
        qencheck({"check", "--definitions", "definitions", "--definitions", folder.path(), caseFile});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out,
                HasSubstr(folder.path() + "/VARIABLES.qcl:3:25: error: Error in 'Component Short Names' "
                                          "definition for variable 'A'. There are 2 short component names "
                                          "instead of 3. [definition-error]\n"));
    EXPECT_THAT(run.out,
                HasSubstr(folder.path() + "/VARIABLES.qcl:5:1: error: Unknown key 'Tensor Typ' in the "
                                          "definition '/VARIABLE:B'. Did you mean 'Tensor Type'? "
                                          "[unknown-definition-key]\n"));
    EXPECT_THAT(run.out, HasSubstr("The definitions hold errors: nothing was checked.\n"));
}

TEST(Command, ShowsDefinitionWarningsAndChecksAllTheSame)
{
    const TemporaryFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:A]\nTensor Type = scalar\n");
    const std::string caseFile = folder.write("case.qcl", k_cleanCase);

    const Outcome run =
        qencheck({"check", "--definitions", "definitions", "--definitions", folder.path(), caseFile});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("/VARIABLES.qcl:2:15: warning: Error in definition of variable 'A'.\n"
                                   "This variable has an unknown tensor type 'scalar' and will be ignored. "
                                   "[definition-warning]\n"));
}

TEST(Command, SuggestsTheNearestKnownName)
{
    const TemporaryFolder folder;
    const std::string caseFile = folder.write("case.qcl", "[/FLOW:F/SIMULATOIN]\nA = 1\n");

    const Outcome run = qencheck({"check", caseFile});

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out,
                StartsWith(caseFile + ":1:9: error: Unknown object type 'SIMULATOIN' in '/FLOW:F'. Did you "
                                      "mean 'SIMULATION'? [unknown-object-type]\n"
                                      "    1 | [/FLOW:F/SIMULATOIN]\n"
                                      "      |         ^~~~~~~~~~~\n"));
}

}    // namespace
}    // namespace qencheck_test
