#include "FileWatch.h"

#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace qencheck {
namespace {

using qencheck_test::readFile;
using qencheck_test::TemporaryFolder;
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;

/// A watch of two files, on a clock of the test.
class FileWatchTest : public testing::Test {
protected:
    FileWatchTest()
    {
        m_folder.write("a", "first");
        m_folder.write("b", "first");
        m_watch.follow({m_a, m_b}, m_now);
        lookIn(FileWatch::k_standsStill);    // what is followed newly is told of
    }

    std::vector<SavedFile> lookIn(milliseconds p_time)
    {
        m_now += p_time;
        return m_watch.look(m_now);
    }

    /// Saves a text of another length than before, so that the watch needs no clock of the file system to notice.
    void save(const std::string& p_name)
    {
        m_text += "more";
        m_folder.write(p_name, m_text);
    }

    const TemporaryFolder m_folder;
    const std::string m_a = m_folder.path() + "/a";
    const std::string m_b = m_folder.path() + "/b";
    std::string m_text = "first";
    FileWatch::Clock::time_point m_now = FileWatch::Clock::time_point() + seconds(1000);
    FileWatch m_watch;
};

TEST_F(FileWatchTest, TellsNothingWhenNothingIsSaved)
{
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(seconds(100)), IsEmpty());
    EXPECT_FALSE(m_watch.isSettling());
    EXPECT_FALSE(m_watch.isOutdated());
}

TEST_F(FileWatchTest, TellsOfAFileOnceWhenItStandsStill)
{
    save("a");

    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_TRUE(m_watch.isSettling());
    EXPECT_THAT(lookIn(milliseconds(49)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(1)), ElementsAre(SavedFile {m_a, true}));
    EXPECT_FALSE(m_watch.isSettling());
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
}

TEST_F(FileWatchTest, MakesOnePieceOfNewsOfABurstOfSaves)
{
    save("a");
    EXPECT_THAT(lookIn(milliseconds(40)), IsEmpty());
    save("a");
    EXPECT_THAT(lookIn(milliseconds(40)), IsEmpty());
    save("b");
    EXPECT_THAT(lookIn(milliseconds(40)), IsEmpty());
    save("a");
    EXPECT_THAT(lookIn(milliseconds(40)), IsEmpty());

    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_a, true}, SavedFile {m_b, true}));
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
}

TEST_F(FileWatchTest, TellsInTheEndOfAFileThatNeverStandsStill)
{
    int toldOf = 0;
    for (int look = 0; look < 200; ++look)
    {
        save("a");
        toldOf += lookIn(milliseconds(40)).empty() ? 0 : 1;
    }
    EXPECT_EQ(toldOf, 2);    // in eight seconds

    // And again when it stands still at last
    EXPECT_TRUE(m_watch.isSettling());
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_a, true}));
}

TEST_F(FileWatchTest, NoticesAFileThatIsRenamedOverAnother)
{
    // Given a file of the same length, modified at the same time
    m_folder.write("beside", "other");
    std::filesystem::last_write_time(m_folder.path() + "/beside", std::filesystem::last_write_time(m_a));

    std::filesystem::rename(m_folder.path() + "/beside", m_a);

    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_a, true}));
}

TEST_F(FileWatchTest, NoticesALinkThatPointsToAnotherFile)
{
    const std::string link = m_folder.path() + "/link";
    std::filesystem::create_symlink("a", link);
    m_watch.follow({link}, m_now);
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {link, true}));

    std::filesystem::remove(link);
    std::filesystem::create_symlink("b", link);

    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {link, true}));
}

TEST_F(FileWatchTest, TellsOfAFileThatIsGoneOnlyAfterASecond)
{
    std::filesystem::remove(m_a);

    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(999)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(1)), ElementsAre(SavedFile {m_a, false}));
    EXPECT_THAT(lookIn(seconds(10)), IsEmpty());
}

TEST_F(FileWatchTest, DoesNotTellThatAFileWasGoneForAnInstant)
{
    std::filesystem::remove(m_a);
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(900)), IsEmpty());
    save("a");

    EXPECT_THAT(lookIn(milliseconds(50)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_a, true}));
}

TEST_F(FileWatchTest, TellsOfAFileThatIsCreated)
{
    const std::string created = m_folder.path() + "/created";
    m_watch.follow({created}, m_now);
    EXPECT_THAT(lookIn(milliseconds(0)), ElementsAre(SavedFile {created, false}));
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());

    m_folder.write("created", "text");

    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {created, true}));
}

TEST_F(FileWatchTest, TellsOfAFileThatIsFollowedNewlySinceItMayHaveBeenReadBefore)
{
    m_folder.write("c", "text");

    m_watch.follow({m_a, m_b, m_folder.path() + "/c"}, m_now);

    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_folder.path() + "/c", true}));
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());
}

TEST_F(FileWatchTest, ForgetsNothingOfAFileThatItFollowsAlready)
{
    save("a");
    EXPECT_THAT(lookIn(milliseconds(200)), IsEmpty());

    m_watch.follow({m_a, m_a, m_b}, m_now + milliseconds(40));

    EXPECT_THAT(lookIn(milliseconds(50)), ElementsAre(SavedFile {m_a, true}));
}

TEST_F(FileWatchTest, TellsNothingOfAFileThatItNoLongerFollows)
{
    save("a");
    m_watch.follow({m_b}, m_now);

    EXPECT_THAT(lookIn(seconds(10)), IsEmpty());
}

TEST_F(FileWatchTest, IsOutdatedWhenAFileIsSavedAfterTheLatestLook)
{
    save("a");
    EXPECT_TRUE(m_watch.isOutdated());

    lookIn(milliseconds(50));
    EXPECT_FALSE(m_watch.isOutdated());
}

// The clock of a file system stands still between its ticks, of some milliseconds: two saves of the same length within
// one tick leave no trace but the text itself.
TEST_F(FileWatchTest, MissesNoSaveThatFollowsWithinATickOfTheClock)
{
    m_watch.look();    // from here on with the real clock
    for (char letter = 'b'; letter < 'h'; ++letter)
    {
        m_folder.write("a", std::string(5, 'a'));
        m_watch.look();
        m_folder.write("a", std::string(5, letter));

        std::string read;
        const auto end = FileWatch::Clock::now() + seconds(60);
        while (read.empty() && FileWatch::Clock::now() < end)
        {
            if (!m_watch.look().empty())
                read = readFile(m_a);
            std::this_thread::sleep_for(milliseconds(5));
        }
        EXPECT_EQ(read, std::string(5, letter));
    }
}

TEST_F(FileWatchTest, NoticesASaveWhoseTimeOfModificationIsSetBack)
{
    const auto before = std::filesystem::last_write_time(m_a);

    // Until a tick of the clock has passed, which takes some milliseconds
    bool noticed = false;
    const auto end = std::chrono::steady_clock::now() + seconds(60);
    while (!noticed && std::chrono::steady_clock::now() < end)
    {
        m_folder.write("a", "FIRST");
        std::filesystem::last_write_time(m_a, before);
        lookIn(milliseconds(50));
        noticed = m_watch.isSettling();
    }
    EXPECT_TRUE(noticed);
}

}    // namespace
}    // namespace qencheck
