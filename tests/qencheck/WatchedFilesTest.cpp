#include "WatchedFiles.h"

#include "Qencheck.h"

#include "definitions/Definitions.h"
#include "qcl/QclReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qencheck {
namespace {

using qen::standalone::definitionFiles;
using qen::standalone::Definitions;
using qen::standalone::QclDocument;
using qen::standalone::readQclFile;
using qen::standalone::readQclText;
using qencheck_test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

bool same(const QclDocument& p_a, const QclDocument& p_b)
{
    return sameReading(filesOf(p_a), problemsOf(p_a), filesOf(p_b), problemsOf(p_b));
}

TEST(WatchedFiles, AreThoseThatWereReadAndThoseThatWereToBeIncluded)
{
    const TemporaryFolder folder;
    const std::string main =
        folder.write("case.qcl", "include \"parts/a.qcl\"\ninclude \"parts/b.qcl\"\nno line\n");
    folder.write("parts/a.qcl", "include \"missing.qcl\"\n");

    const QclDocument document = readQclFile(main);

    EXPECT_THAT(pathsOf(filesOf(document), problemsOf(document)),
                ElementsAre(main, folder.path() + "/parts/a.qcl", folder.path() + "/parts/missing.qcl",
                            folder.path() + "/parts/b.qcl"));
}

TEST(WatchedFiles, OfDefinitionsAreThoseThatWereReadWithTheirTexts)
{
    const TemporaryFolder folder;
    const std::string units = folder.write("UNITS.qcl", "include \"more.qcl\"\n");
    const std::string rules = folder.write("RULES.qcl", "# rules\n");
    const std::string physics = folder.write("PHYSICS.qcl", "# physics\n");
    const std::string variables = folder.write("VARIABLES.qcl", "# variables\n");
    const std::string included = folder.write("more.qcl", "# units\n");

    const Definitions definitions({folder.path(), "no/such/folder"});

    EXPECT_THAT(pathsOf(definitions.files(), {}), ElementsAre(units, included, rules, physics, variables));
    EXPECT_EQ(definitions.files()[1]->line(1), "# units");
}

TEST(WatchedFiles, OfDefinitionsAreLookedForInEachFolder)
{
    EXPECT_THAT(definitionFiles({"a", "b/c"}),
                UnorderedElementsAre("a/UNITS.qcl", "b/c/UNITS.qcl", "a/RULES.qcl", "b/c/RULES.qcl",
                                     "a/PHYSICS.qcl", "b/c/PHYSICS.qcl", "a/VARIABLES.qcl",
                                     "b/c/VARIABLES.qcl"));
}

TEST(WatchedFiles, HoldACaseThatCannotBeReadOnce)
{
    const QclDocument document = readQclFile("no/such/case.qcl");

    EXPECT_THAT(pathsOf(filesOf(document), problemsOf(document)), ElementsAre("no/such/case.qcl"));
}

TEST(WatchedFiles, AreReadTheSameWhenTheirTextIs)
{
    EXPECT_TRUE(same(readQclText("a", "[/A]\nP = 1\n"), readQclText("a", "[/A]\nP = 1\n")));
    EXPECT_FALSE(same(readQclText("a", "[/A]\nP = 1\n"), readQclText("a", "[/A]\nP = 2\n")));
    EXPECT_FALSE(same(readQclText("a", "[/A]\nP = 1\n"), readQclText("a", "[/A]\nP = 1\n\n")));
}

TEST(WatchedFiles, AreReadDifferentlyWhenOneIsEmptyAndThenGone)
{
    const TemporaryFolder folder;
    const QclDocument empty = readQclFile(folder.write("case.qcl", ""));
    const TemporaryFolder other;

    QclDocument gone = readQclFile(other.path() + "/case.qcl");
    gone.files[0].path = empty.files[0].path;

    EXPECT_FALSE(same(empty, gone));
    EXPECT_TRUE(same(gone, gone));
}

TEST(WatchedFiles, ThatHaveAnotherTextAreToldFromThoseThatWereOnlySaved)
{
    const QclDocument before = readQclText("a", "[/A]\nP = 1\n");
    const QclDocument now = readQclText("a", "[/A]\nP = 2\n");
    const QclDocument other = readQclText("b", "[/A]\nP = 1\n");
    FileTexts filesBefore = filesOf(before);
    filesBefore.push_back(filesOf(other)[0]);
    FileTexts filesNow = filesOf(now);
    filesNow.push_back(filesOf(other)[0]);

    EXPECT_THAT(withOtherText({{"a"}, {"b"}}, filesBefore, filesNow), ElementsAre(SavedFile {"a"}));
    // A file that comes or goes has another text; where none has, all are named.
    EXPECT_THAT(withOtherText({{"a"}, {"b"}}, filesOf(before), filesNow),
                ElementsAre(SavedFile {"a"}, SavedFile {"b"}));
    EXPECT_THAT(withOtherText({{"a"}, {"b"}}, filesBefore, filesBefore),
                ElementsAre(SavedFile {"a"}, SavedFile {"b"}));
    EXPECT_THAT(withOtherText({}, filesBefore, filesNow), IsEmpty());
}

}    // namespace
}    // namespace qencheck
