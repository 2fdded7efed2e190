#include "definitions/Definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

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

TEST(Definitions, NameEveryFileThatNoFolderHolds)
{
    const Definitions definitions({"/no/such/folder", "/nor/this"});

    std::vector<std::string> messages;
    for (const Finding& problem : definitions.problems())
        messages.push_back(problem.message);
    EXPECT_THAT(
        messages,
        ElementsAre("There is no definition file 'UNITS.qcl' in '/no/such/folder', '/nor/this'.",
                    "There is no definition file 'RULES.qcl' in '/no/such/folder', '/nor/this'.",
                    "There is no definition file 'PHYSICS.qcl' in '/no/such/folder', '/nor/this'.",
                    "There is no definition file 'VARIABLES.qcl' in '/no/such/folder', '/nor/this'."));
    EXPECT_TRUE(definitions.hasErrors());
}

}    // namespace
}    // namespace qen::standalone
