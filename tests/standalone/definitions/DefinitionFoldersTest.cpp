#include "definitions/Definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class DefinitionFolders : public testing::Test {
protected:
    void SetUp() override { unsetenv("QENCHECK_DEFINITIONS"); }
    void TearDown() override { unsetenv("QENCHECK_DEFINITIONS"); }
};

TEST_F(DefinitionFolders, AreThoseThatWereGiven)
{
    setenv("QENCHECK_DEFINITIONS", "/elsewhere", 1);

    EXPECT_THAT(definitionFolders({"a", "b"}, "/usr/bin/qencheck"), ElementsAre("a", "b"));
}

TEST_F(DefinitionFolders, AreWhatTheEnvironmentSaysWhenNoneIsGiven)
{
    setenv("QENCHECK_DEFINITIONS", "/elsewhere", 1);

    EXPECT_THAT(definitionFolders({}, "/usr/bin/qencheck"), ElementsAre("/elsewhere"));
}

TEST_F(DefinitionFolders, StandBesideAnInstalledExecutable)
{
    // Given a prefix with an executable and definitions
    namespace fs = std::filesystem;
    const fs::path prefix = fs::path(testing::TempDir()) / "qen-prefix";
    fs::create_directories(prefix / "bin");
    fs::create_directories(prefix / "share/QENPreVariables/definitions");
    std::FILE* executable = std::fopen((prefix / "bin/qencheck").c_str(), "w");
    ASSERT_NE(executable, nullptr);
    std::fclose(executable);

    EXPECT_THAT(definitionFolders({}, (prefix / "bin/qencheck").string()),
                ElementsAre(EndsWith("qen-prefix/share/QENPreVariables/definitions")));

    fs::remove_all(prefix);
}

TEST_F(DefinitionFolders, AreThoseOfTheBuildOtherwise)
{
    EXPECT_THAT(definitionFolders({}, "/no/such/executable"), ElementsAre(EndsWith("/definitions")));
}

/// A folder of the test; gone with the object.
class Folder {
public:
    Folder()
    {
        m_path = testing::TempDir() + "/definitions-XXXXXX";
        EXPECT_NE(mkdtemp(m_path.data()), nullptr);
    }

    ~Folder() { std::filesystem::remove_all(m_path); }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return m_path; }

    void write(const std::string& p_file) const { std::ofstream(m_path + "/" + p_file) << "# nothing\n"; }

private:
    std::string m_path;
};

std::vector<std::string> problemsOf(const std::vector<std::string>& p_folders)
{
    const Definitions definitions(p_folders);
    std::vector<std::string> messages;
    for (const Finding& problem : definitions.problems())
        messages.push_back(problem.message);
    EXPECT_EQ(definitions.hasErrors(), !messages.empty());
    return messages;
}

TEST(Definitions, NameEveryFileThatNoFolderHoldsAndHowToAddToTheShippedOnes)
{
    const Folder one;
    const Folder other;
    std::filesystem::copy(QENCHECK_PROJECT "/definitions/PHYSICS.qcl", one.path());
    other.write("UNITS.qcl");

    EXPECT_THAT(
        problemsOf({one.path(), other.path()}),
        ElementsAre("There is no definition file 'RULES.qcl' in '" + one.path() + "', '" + other.path() +
                        "'.",
                    "There is no definition file 'VARIABLES.qcl' in '" + one.path() + "', '" + other.path() +
                        "'. Folders that are given replace the one that is shipped; to add to that, "
                        "name it first: --definitions " QENCHECK_PROJECT "/definitions --definitions " +
                        one.path() + "."));
}

TEST(Definitions, NameAFolderThatIsNotThere)
{
    EXPECT_THAT(problemsOf({QENCHECK_PROJECT "/definitions", "typo"}),
                ElementsAre("The definition folder 'typo' cannot be read: No such file or directory."));
}

TEST(Definitions, NameAFolderThatIsAFile)
{
    EXPECT_THAT(problemsOf({QENCHECK_PROJECT "/definitions", QENCHECK_PROJECT "/definitions/UNITS.qcl"}),
                ElementsAre("The definition folder '" QENCHECK_PROJECT
                            "/definitions/UNITS.qcl' cannot be read: Not a directory."));
}

TEST(Definitions, NameAFolderThatHoldsNoDefinitions)
{
    const Folder folder;
    folder.write("units.qcl");

    EXPECT_THAT(problemsOf({QENCHECK_PROJECT "/definitions", folder.path()}),
                ElementsAre("The definition folder '" + folder.path() +
                            "' holds none of UNITS.qcl, RULES.qcl, PHYSICS.qcl and VARIABLES.qcl."));
}

}    // namespace
}    // namespace qen::standalone
