#include "Qencheck.h"
#include "WatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

namespace qencheck_test {
namespace {

using testing::HasSubstr;

constexpr const char* k_watching = "Watching case.qcl and the definitions. Ctrl-C ends.\n";

/// A case of one parameter.
std::string speed(const std::string& p_value)
{
    return "[/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW]\nSpeed = " + p_value + "\n";
}

/// The message about a speed in metres.
const std::string k_inMetres =
    "error: Invalid units ('m') set for parameter 'Speed' in object "
    "'/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'. Expected units: 'm s^-1'. [wrong-units]\n";

/// The message about a speed in kelvins.
const std::string k_inKelvins =
    "error: Invalid units ('K') set for parameter 'Speed' in object "
    "'/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'. Expected units: 'm s^-1'. [wrong-units]\n";

const std::string k_cleanReport = "case.qcl: 1 parameter checked: no problems\n";

class Watch : public testing::Test {
protected:
    std::string path(const std::string& p_name) const { return m_folder.path() + "/" + p_name; }
    std::string write(const std::string& p_name, const std::string& p_text) const
    {
        return m_folder.write(p_name, p_text);
    }
    void save(const std::string& p_name, const std::string& p_text) const
    {
        saveByRenaming(path(p_name), p_text);
    }

    const TemporaryFolder m_folder;
    const std::string& m_path = m_folder.path();
};

#define EXPECT_NEXT(p_run, p_expected)                                                                       \
    do                                                                                                       \
    {                                                                                                        \
        const std::string expected = (p_expected);                                                           \
        EXPECT_EQ((p_run).next(expected), expected);                                                         \
    }                                                                                                        \
    while (false)

TEST_F(Watch, BeginsWithTheReportOfCheckAndEndsOnCtrlCWithItsStatus)
{
    for (const std::string example : {"pump.qcl", "pump-broken.qcl"})
    {
        // Given an example in the folder in which the command runs
        std::filesystem::copy(std::string(QENCHECK_PROJECT) + "/examples/" + example, path("case.qcl"),
                              std::filesystem::copy_options::overwrite_existing);
        const Outcome check = qencheck({"check", path("case.qcl")});

        WatchRun run(m_path, {path("case.qcl")});
        EXPECT_NEXT(run, check.out + "Watching " + path("case.qcl") + " and the definitions. Ctrl-C ends.\n");
        run.signal(SIGINT);

        EXPECT_EQ(run.status(), check.status) << example;
        EXPECT_EQ(run.rest(), "");
    }
}

TEST_F(Watch, MarksWhatIsNewAndTellsWhatIsGone)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, k_cleanReport + k_watching);

    // When the same parameter gets one mistake and then another
    save("case.qcl", speed("2 [m]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "new: case.qcl:2:9: " +
                         k_inMetres +
                         "    2 | Speed = 2 [m]\n"
                         "      |         ^~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 0 gone)\n");
    save("case.qcl", speed("2 [K]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "new: case.qcl:2:9: " +
                         k_inKelvins +
                         "    2 | Speed = 2 [K]\n"
                         "      |         ^~~~~\n"
                         "gone: case.qcl:2:9: " +
                         k_inMetres + "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 1 gone)\n");

    // Then the status is that of the last report
    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 1);
    EXPECT_EQ(run.rest(), "");
}

TEST_F(Watch, FollowsACaseThatIsWrittenOverInPlace)
{
    write("case.qcl", speed("2 [m]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, "case.qcl:2:9: " + k_inMetres +
                         "    2 | Speed = 2 [m]\n"
                         "      |         ^~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings\n" +
                         k_watching);

    saveInPlace(path("case.qcl"), speed("2 [m s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "gone: case.qcl:2:9: " +
                         k_inMetres + "case.qcl: 1 parameter checked: no problems (0 new, 1 gone)\n");

    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 0);
}

TEST_F(Watch, ShowsAFindingThatStandsOnAnotherLineWithoutAMark)
{
    write("case.qcl", speed("2 [m]"));
    WatchRun run(m_path, {"case.qcl"});
    run.next("case.qcl:2:9: " + k_inMetres +
             "    2 | Speed = 2 [m]\n"
             "      |         ^~~~~\n"
             "case.qcl: 1 parameter checked: 1 error, 0 warnings\n" +
             k_watching);

    save("case.qcl", "# inflow\n\n" + speed("30 [m]"));

    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl:4:9: " +
                         k_inMetres +
                         "    4 | Speed = 30 [m]\n"
                         "      |         ^~~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings (nothing new)\n");
}

TEST_F(Watch, SaysNothingWhenAFileIsSavedWithTheSameText)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, k_cleanReport + k_watching);

    // When the same text is saved, then nothing is said, and the next text is told of as any other
    save("case.qcl", speed("2 [m s^-1]"));
    EXPECT_EQ(run.heardFor(std::chrono::milliseconds(700)), "");
    save("case.qcl", speed("3 [m s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n");
}

TEST_F(Watch, GoesOnWhenItWasStoppedAndContinued)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, k_cleanReport + k_watching);

    run.signal(SIGSTOP);
    save("case.qcl", speed("3 [m s^-1]"));
    run.signal(SIGCONT);

    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n");
    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 0);
    EXPECT_EQ(run.rest(), "");
}

TEST_F(Watch, ChecksAgainOnlyWhatASaveCanHaveChanged)
{
    const std::string simulation = "[/FLOW:F/SIMULATION]\nType = Transient\nDuration = 1 [s]\n";
    write("case.qcl", simulation + speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, std::string("case.qcl: 3 parameters checked: no problems\n") + k_watching);

    save("case.qcl", simulation + speed("3 [m s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 3 parameters checked again\n"
                     "case.qcl: 3 parameters checked: no problems (nothing new)\n");
    save("case.qcl", "# a comment\n" + simulation + speed("3 [m s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 0 of 3 parameters checked again\n"
                     "case.qcl: 3 parameters checked: no problems (nothing new)\n");
}

TEST_F(Watch, FollowsFilesThatAreIncludedFromTheirFirstInclusionOn)
{
    // Given a case that includes nothing yet
    write("case.qcl", "# nothing\n");
    write("parts/inflow.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, std::string("case.qcl: warning: The case holds no object. [empty-case]\n"
                                 "case.qcl: 0 parameters checked: 0 errors, 1 warning\n") +
                         k_watching);

    save("case.qcl", "include \"parts/inflow.qcl\"\n");
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "gone: case.qcl: warning: The case holds no object. [empty-case]\n"
                     "case.qcl: 1 parameter checked: no problems (0 new, 1 gone)\n");
    save("parts/inflow.qcl", speed("2 [m]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss parts/inflow.qcl saved: 1 of 1 parameter checked again\n"
                     "new: parts/inflow.qcl:2:9: " +
                         k_inMetres +
                         "    2 | Speed = 2 [m]\n"
                         "      |         ^~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 0 gone)\n");

    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 1);
}

TEST_F(Watch, WaitsForAnIncludedFileThatIsNotThereYet)
{
    write("case.qcl", "include \"inflow.qcl\"\n");
    WatchRun run(m_path, {"case.qcl"});
    EXPECT_NEXT(run, "case.qcl:1:10: error: The file 'inflow.qcl' cannot be read: No such file or directory. "
                     "[file-unreadable]\n"
                     "    1 | include \"inflow.qcl\"\n"
                     "      |          ^~~~~~~~~~\n"
                     "case.qcl: 0 parameters checked: 1 error, 0 warnings\n"
                     "Watching case.qcl, 1 included file and the definitions. Ctrl-C ends.\n");

    save("inflow.qcl", speed("2 [m s^-1]"));

    EXPECT_NEXT(run, "\n---- hh:mm:ss inflow.qcl saved: 1 of 1 parameter checked again\n"
                     "gone: case.qcl:1:10: error: The file 'inflow.qcl' cannot be read: No such file or "
                     "directory. [file-unreadable]\n"
                     "case.qcl: 1 parameter checked: no problems (0 new, 1 gone)\n");
    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 0);
}

TEST_F(Watch, KeepsTheLastTextThatParsesUntilTheNextOne)
{
    write("case.qcl", speed("2 [m]"));
    WatchRun run(m_path, {"case.qcl"});
    run.next("case.qcl:2:9: " + k_inMetres +
             "    2 | Speed = 2 [m]\n"
             "      |         ^~~~~\n"
             "case.qcl: 1 parameter checked: 1 error, 0 warnings\n" +
             k_watching);

    // When a text is saved that does not parse
    save("case.qcl", speed("2 [K]") + "half a li\n");
    EXPECT_NEXT(
        run, "\n---- hh:mm:ss case.qcl saved\n"
             "case.qcl:3:1: error: 'half a li' is no line of a section. Expected 'name = value', a section "
             "header '[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins with '#'. "
             "[syntax-line]\n"
             "    3 | half a li\n"
             "      | ^~~~~~~~~\n"
             "case.qcl: the text holds 1 syntax error: nothing was checked, the last good text still "
             "stands: 1 error, 0 warnings\n");

    // Then the next one that does is compared with the last one that did
    save("case.qcl", speed("3 [m]") + "# half a line\n");
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: it parses again, 1 of 1 parameter checked again\n"
                     "case.qcl:2:9: " +
                         k_inMetres +
                         "    2 | Speed = 3 [m]\n"
                         "      |         ^~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings (nothing new)\n");
}

TEST_F(Watch, EndsWithTheStatusOfATextThatDoesNotParse)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    run.next(k_cleanReport + k_watching);

    save("case.qcl", "[FLOW]\n");
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved\n"
                     "case.qcl:1:2: error: 'FLOW' is no path of an object. Expected levels '/TYPE:name' or "
                     "'/TYPE'. [syntax-object-path]\n"
                     "    1 | [FLOW]\n"
                     "      |  ^~~~\n"
                     "case.qcl: the text holds 1 syntax error: nothing was checked, the last good text "
                     "still stands: no problems\n");
    run.signal(SIGINT);

    EXPECT_EQ(run.status(), 1);
}

TEST_F(Watch, ChecksATextThatDoesNotParseAsFarAsItGoesBeforeThereWasABetterOne)
{
    write("case.qcl", "stray = 1\n" + speed("2 [m]"));
    const Outcome check = qencheck({"check", path("case.qcl")});
    WatchRun run(m_path, {path("case.qcl")});
    EXPECT_NEXT(run, check.out + "Watching " + path("case.qcl") + " and the definitions. Ctrl-C ends.\n");

    save("case.qcl", "# stray = 1\n" + speed("3 [m]"));

    EXPECT_NEXT(run, "\n---- hh:mm:ss " + path("case.qcl") + " saved: 1 of 1 parameter checked again\n" +
                         path("case.qcl") + ":3:9: " + k_inMetres +
                         "    3 | Speed = 3 [m]\n"
                         "      |         ^~~~~\n"
                         "gone: " +
                         path("case.qcl") +
                         ":1:1: error: The parameter 'stray' belongs to no object. Expected a section header "
                         "'[/TYPE:name]' before it. [syntax-parameter-outside-section]\n" +
                         path("case.qcl") + ": 1 parameter checked: 1 error, 0 warnings (0 new, 1 gone)\n");
}

TEST_F(Watch, WaitsForACaseThatWasDeleted)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"case.qcl"});
    run.next(k_cleanReport + k_watching);
    const std::string gone =
        "\n---- hh:mm:ss case.qcl gone\n"
        "case.qcl: error: The file 'case.qcl' cannot be read: No such file or directory. [file-unreadable]\n"
        "case.qcl: a file cannot be read: nothing was checked, the last good text still stands: no "
        "problems\n";

    std::filesystem::remove(path("case.qcl"));
    EXPECT_NEXT(run, gone);
    save("case.qcl", speed("3 [m s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: it parses again, 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n");

    // And it could not be checked as long as it is gone
    std::filesystem::remove(path("case.qcl"));
    EXPECT_NEXT(run, gone);
    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 2);
}

TEST_F(Watch, EndsAtOnceWhenTheCaseCannotBeReadAtTheStart)
{
    WatchRun run(m_path, {"case.qcl"});

    EXPECT_EQ(run.status(), 2);
    EXPECT_EQ(run.rest(), "case.qcl: error: The file 'case.qcl' cannot be read: No such file or directory. "
                          "[file-unreadable]\n"
                          "case.qcl: 0 parameters checked: 1 error, 0 warnings\n");
}

class WatchWithDefinitions : public Watch {
protected:
    static constexpr const char* k_furlong = "[/UNIT:furlong]\nDefinition = m\nFactor = 201.168\n";

    /// Arguments that add the folder "more" to the shipped definitions.
    const std::vector<std::string> m_arguments {
        "--definitions", std::string(QENCHECK_PROJECT) + "/definitions", "--definitions", "more", "case.qcl"};
};

TEST_F(WatchWithDefinitions, ChecksEverythingWhenADefinitionFileIsSaved)
{
    // Given a case in a unit that no definition knows
    write("more/RULES.qcl", "# none yet\n");
    write("case.qcl", speed("2 [furlong s^-1]"));
    const std::string unknown =
        "error: Unrecognised units ('furlong s^-1') set for parameter 'Speed' in object "
        "'/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'. [unrecognised-units]\n";
    WatchRun run(m_path, m_arguments);
    EXPECT_NEXT(run, "case.qcl:2:9: " + unknown +
                         "    2 | Speed = 2 [furlong s^-1]\n"
                         "      |         ^~~~~~~~~~~~~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings\n" +
                         k_watching);

    // When a file with that unit comes, and goes
    save("more/UNITS.qcl", k_furlong);
    EXPECT_NEXT(run, "\n---- hh:mm:ss more/UNITS.qcl saved: 1 of 1 parameter checked again\n"
                     "gone: case.qcl:2:9: " +
                         unknown + "case.qcl: 1 parameter checked: no problems (0 new, 1 gone)\n");
    std::filesystem::remove(path("more/UNITS.qcl"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss more/UNITS.qcl gone: 1 of 1 parameter checked again\n"
                     "new: case.qcl:2:9: " +
                         unknown +
                         "    2 | Speed = 2 [furlong s^-1]\n"
                         "      |         ^~~~~~~~~~~~~~~~\n"
                         "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 0 gone)\n");
    run.signal(SIGINT);
    EXPECT_EQ(run.status(), 1);
}

TEST_F(WatchWithDefinitions, KeepsTheLastDefinitionsWithoutErrors)
{
    write("more/UNITS.qcl", k_furlong);
    write("case.qcl", speed("2 [furlong s^-1]"));
    WatchRun run(m_path, m_arguments);
    EXPECT_NEXT(run, k_cleanReport + k_watching);
    const std::string broken =
        "more/UNITS.qcl:3:1: error: 'Factor' is no line of a section. Expected 'name = value', "
        "a section header '[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins "
        "with '#'. [syntax-line]\n"
        "    3 | Factor\n"
        "      | ^~~~~~\n";

    // When they break, and the case is saved before they are mended
    save("more/UNITS.qcl", "[/UNIT:furlong]\nDefinition = m\nFactor\n");
    EXPECT_NEXT(run,
                "\n---- hh:mm:ss more/UNITS.qcl saved\n" + broken +
                    "The definitions hold errors: nothing was checked, the last good ones still stand.\n");
    save("case.qcl", speed("3 [furlong s^-1]"));
    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n"
                     "The definitions hold errors: the last good ones were used.\n");
    save("more/UNITS.qcl", k_furlong);
    EXPECT_NEXT(run, "\n---- hh:mm:ss more/UNITS.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n");
}

TEST_F(WatchWithDefinitions, WaitsForDefinitionsThatAreBrokenAtTheStart)
{
    write("more/UNITS.qcl", "[/UNIT:furlong]\nDefinition = m\nFaktor = 201.168\n");
    write("case.qcl", speed("2 [m s^-1]"));
    const std::string problems = "more/UNITS.qcl:3:1: error: 'Faktor' is not a key of '/UNIT:furlong'; "
                                 "expected 'Definition', 'Factor', "
                                 "'Offset' or 'Prefixes' [unknown-key]\n"
                                 "    3 | Faktor = 201.168\n"
                                 "      | ^~~~~~\n";

    {
        WatchRun run(m_path, m_arguments);
        EXPECT_NEXT(run, problems + "The definitions hold errors: nothing was checked.\n" + k_watching);
        run.signal(SIGINT);
        EXPECT_EQ(run.status(), 2);
    }
    {
        WatchRun run(m_path, m_arguments);
        run.next(problems + "The definitions hold errors: nothing was checked.\n" + k_watching);
        save("more/UNITS.qcl", k_furlong);
        EXPECT_NEXT(run, "\n---- hh:mm:ss more/UNITS.qcl saved\n" + k_cleanReport);
        run.signal(SIGINT);
        EXPECT_EQ(run.status(), 0);
    }
}

TEST_F(Watch, EndsAtOnceWhenADefinitionFileIsNotThereAtTheStart)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun run(m_path, {"--definitions", "no/such/folder", "case.qcl"});

    EXPECT_EQ(run.status(), 2);
    EXPECT_THAT(
        run.rest(),
        HasSubstr("The definition folder 'no/such/folder' cannot be read: No such file or directory."));
}

TEST_F(Watch, EndsOnARequestToTerminateAsOnCtrlC)
{
    write("case.qcl", speed("2 [m]"));
    WatchRun run(m_path, {"--color", "never", "case.qcl"});
    run.next("case.qcl:2:9: " + k_inMetres +
             "    2 | Speed = 2 [m]\n"
             "      |         ^~~~~\n"
             "case.qcl: 1 parameter checked: 1 error, 0 warnings\n" +
             k_watching);

    run.signal(SIGTERM);

    EXPECT_EQ(run.status(), 1);
}

TEST_F(Watch, LeavesCtrlCAloneWhereItsCallerHasItIgnored)
{
    write("case.qcl", speed("2 [m s^-1]"));
    WatchRun::Settings settings;
    settings.ignoresInterrupt = true;
    WatchRun run(m_path, {"case.qcl"}, settings);
    run.next(k_cleanReport + k_watching);

    run.signal(SIGINT);
    save("case.qcl", speed("3 [m s^-1]"));

    EXPECT_NEXT(run, "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                     "case.qcl: 1 parameter checked: no problems (nothing new)\n");
    run.signal(SIGTERM);
    EXPECT_EQ(run.status(), 0);
}

TEST(WatchHelp, ShowsAnExampleAndTheStatus)
{
    const Outcome run = qencheck({"watch", "--help"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("Example:\n  qencheck watch pump.qcl\n"));
    EXPECT_THAT(run.out, HasSubstr("Ends on Ctrl-C with the exit status that 'check' would have: 0"));
}

TEST(WatchHelp, TakesOneCase)
{
    EXPECT_EQ(qencheck({"watch"}).status, 2);
    EXPECT_EQ(qencheck({"watch", "examples/pump.qcl", "examples/materials.qcl"}).status, 2);
}

}    // namespace
}    // namespace qencheck_test
