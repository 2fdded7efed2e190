#include "Qencheck.h"
#include "WatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qencheck_test {
namespace {

constexpr const char* k_ctrlC = "\x03";

const std::string k_case = "[/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW]\nSpeed = ";

const std::string k_message =
    "Invalid units ('m') set for parameter 'Speed' in object "
    "'/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'. Expected units: 'm s^-1'. [wrong-units]\n";

/// The command on a pseudo-terminal.
class WatchOnATerminal : public testing::Test {
protected:
    void save(const std::string& p_value) const
    {
        saveByRenaming(m_folder.path() + "/case.qcl", k_case + p_value + "\n");
    }

    static WatchRun::Settings terminal(const std::vector<std::string>& p_environment = {})
    {
        WatchRun::Settings settings;
        settings.output = WatchRun::Output::Terminal;
        settings.environment = p_environment;
        return settings;
    }

    /// Expects a session in which a mistake is made, without colours.
    void expectPlainText(const std::vector<std::string>& p_arguments,
                         const std::vector<std::string>& p_environment) const
    {
        save("2 [m s^-1]");
        WatchRun run(m_folder.path(), p_arguments, terminal(p_environment));
        const std::string clean = "case.qcl: 1 parameter checked: no problems\n"
                                  "Watching case.qcl and the definitions. Ctrl-C ends.\n";
        EXPECT_EQ(run.next(clean), clean);

        save("2 [m]");

        const std::string wrong = "\n---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\n"
                                  "new: case.qcl:2:9: error: " +
                                  k_message +
                                  "    2 | Speed = 2 [m]\n"
                                  "      |         ^~~~~\n"
                                  "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 0 gone)\n";
        EXPECT_EQ(run.next(wrong), wrong);
    }

    const TemporaryFolder m_folder;
};

TEST_F(WatchOnATerminal, UsesColoursAndEndsOnCtrlCWithTheStatusOfTheLastReport)
{
    save("2 [m s^-1]");
    WatchRun run(m_folder.path(), {"case.qcl"}, terminal());
    const std::string clean = "case.qcl: 1 parameter checked: \x1b[1;32mno problems\x1b[0m\n"
                              "Watching case.qcl and the definitions. Ctrl-C ends.\n";
    EXPECT_EQ(run.next(clean), clean);

    save("2 [m]");
    const std::string wrong = "\n\x1b[1m---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\x1b[0m\n"
                              "\x1b[1;31mnew:\x1b[0m \x1b[1mcase.qcl:2:9:\x1b[0m \x1b[1;31merror:\x1b[0m " +
                              k_message +
                              "    2 | Speed = 2 [m]\n"
                              "      | \x1b[1;32m        ^~~~~\x1b[0m\n"
                              "case.qcl: 1 parameter checked: 1 error, 0 warnings (1 new, 0 gone)\n";
    EXPECT_EQ(run.next(wrong), wrong);
    run.type(k_ctrlC);

    EXPECT_EQ(run.status(), 1);
}

TEST_F(WatchOnATerminal, ShowsWhatIsGoneInTheColourOfWhatIsGood)
{
    save("2 [m]");
    WatchRun run(m_folder.path(), {"case.qcl"}, terminal());
    run.next("\x1b[1mcase.qcl:2:9:\x1b[0m \x1b[1;31merror:\x1b[0m " + k_message +
             "    2 | Speed = 2 [m]\n"
             "      | \x1b[1;32m        ^~~~~\x1b[0m\n"
             "case.qcl: 1 parameter checked: 1 error, 0 warnings\n"
             "Watching case.qcl and the definitions. Ctrl-C ends.\n");

    save("2 [m s^-1]");
    const std::string clean = "\n\x1b[1m---- hh:mm:ss case.qcl saved: 1 of 1 parameter checked again\x1b[0m\n"
                              "\x1b[1;32mgone:\x1b[0m \x1b[1mcase.qcl:2:9:\x1b[0m \x1b[1;31merror:\x1b[0m " +
                              k_message +
                              "case.qcl: 1 parameter checked: \x1b[1;32mno problems\x1b[0m (0 new, 1 gone)\n";
    EXPECT_EQ(run.next(clean), clean);
    run.type(k_ctrlC);

    EXPECT_EQ(run.status(), 0);
}

TEST_F(WatchOnATerminal, UsesNoColoursWhereTheEnvironmentForbidsThem)
{
    expectPlainText({"case.qcl"}, {"NO_COLOR=1"});
}

TEST_F(WatchOnATerminal, UsesNoColoursWhenToldSo) { expectPlainText({"--color", "never", "case.qcl"}, {}); }

}    // namespace
}    // namespace qencheck_test
