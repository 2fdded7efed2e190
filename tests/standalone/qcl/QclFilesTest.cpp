#include "QclTestSupport.h"

#include <gmock/gmock.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

TEST(QclFiles, AreReadWithWhatTheyIncludeInPlace)
{
    const TemporaryFolder folder;
    const std::string main =
        folder.write("main.qcl", "[/A]\np = 1\ninclude \"sub/other.qcl\"\n[/C]\np = 3\n");
    folder.write("sub/other.qcl", "include \"deep.qcl\"\n[/B]\np = 2\n");
    folder.write("sub/deep.qcl", "[/A]\nq = 4\n");

    const QclDocument document = readQclFile(main);

    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1", "/A|q=4", "/B|p=2", "/C|p=3"));
    ASSERT_EQ(document.files.size(), 3U);
    EXPECT_EQ(document.files[0].path, main);
    EXPECT_EQ(document.files[1].path, folder.path("sub/other.qcl"));
    EXPECT_EQ(document.files[2].path, folder.path("sub/deep.qcl"));
    EXPECT_EQ(document.objects[0].parameters[1].place().file, 2U);
    EXPECT_EQ(document.objects[2].place.file, 0U);
    EXPECT_EQ(document.objects[2].place.line, 4U);
}

TEST(QclFiles, MayBeIncludedByTheirAbsolutePath)
{
    const TemporaryFolder folder;
    const std::string other = folder.write("other.qcl", "[/B]\np = 2\n");
    EXPECT_THAT(parametersOf(readQclText("elsewhere.qcl", "include \"" + other + "\"\n")),
                ElementsAre("/B|p=2"));
}

TEST(QclFiles, NeedANewSectionBehindAnInclude)
{
    const TemporaryFolder folder;
    const std::string main = folder.write("main.qcl", "[/A]\ninclude \"other.qcl\"\np = 1\n");
    folder.write("other.qcl", "[/B]\n");

    EXPECT_THAT(
        problemsOf(readQclFile(main)),
        ElementsAre("main.qcl:3:1: The parameter 'p' stands behind an include. Expected a section header "
                    "'[/TYPE:name]' before it. [syntax-section-after-include]"));
}

TEST(QclFiles, DoNotContinueTheSectionOfTheIncludingFile)
{
    const TemporaryFolder folder;
    const std::string main = folder.write("main.qcl", "[/A]\ninclude \"other.qcl\"\n");
    folder.write("other.qcl", "p = 1\n");

    EXPECT_THAT(
        problemsOf(readQclFile(main)),
        ElementsAre("other.qcl:1:1: The parameter 'p' belongs to no object. Expected a section header "
                    "'[/TYPE:name]' before it. [syntax-parameter-outside-section]"));
}

TEST(QclFiles, WhoseValueIsNotFinishedDoNotTakeTheIncludingFilesNextLine)
{
    const TemporaryFolder folder;
    const std::string main = folder.write("main.qcl", "include \"other.qcl\"\n[/C]\np = 3\n");
    folder.write("other.qcl", "[/B]\np = 1 \\\n");

    const QclDocument document = readQclFile(main);
    EXPECT_THAT(
        problemsOf(document),
        ElementsAre(
            "other.qcl:2:7: The file ends inside a value: a backslash continues the value on the next "
            "line. Expected that line. [syntax-unfinished-value]"));
    EXPECT_THAT(parametersOf(document), ElementsAre("/B|p=", "/C|p=3"));
}

TEST(QclFiles, ThatGiveAParameterTwiceAreBothNamed)
{
    const TemporaryFolder folder;
    const std::string main = folder.write("main.qcl", "[/A]\np = 1\ninclude \"other.qcl\"\n");
    folder.write("other.qcl", "\n[/A]\np = 2\n");

    const QclDocument document = readQclFile(main);
    ASSERT_EQ(document.problems.size(), 1U);
    EXPECT_EQ(document.problems[0].message,
              "The parameter 'p' is given twice in object '/A': in line 2 of '" +
                  (main.size() > 80 ? main.substr(0, 80) + "..." : main) + "' and in line 3.");
    EXPECT_EQ(document.problems[0].place, (SourcePlace {1, 3, 1}));
}

TEST(QclFiles, ThatIncludeThemselvesAreAnErrorWithTheChain)
{
    const TemporaryFolder folder;
    const std::string a = folder.write("a.qcl", "include \"b.qcl\"\n[/A]\np = 1\n");
    const std::string b = folder.write("b.qcl", "include \"./c.qcl\"\n");
    folder.write("c.qcl", "\n  include \"b.qcl\"\n");

    const QclDocument document = readQclFile(a);

    ASSERT_EQ(document.problems.size(), 1U);
    EXPECT_EQ(document.problems[0].identifier, "include-cycle");
    EXPECT_EQ(document.problems[0].message, "The file includes itself: " + b + " -> " +
                                                folder.path("./c.qcl") + " -> " + folder.path("./b.qcl") +
                                                ".");
    EXPECT_EQ(document.files[document.problems[0].place.file].path, folder.path("./c.qcl"));
    EXPECT_EQ(document.problems[0].place.line, 2U);
    EXPECT_EQ(document.problems[0].place.column, 12U);
    EXPECT_EQ(document.problems[0].length, 5U);
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1"));
}

TEST(QclFiles, ThatIncludeThemselvesThroughALinkAreACycle)
{
    const TemporaryFolder folder;
    const std::string a = folder.write("a.qcl", "include \"link.qcl\"\n");
    ASSERT_EQ(symlink(a.c_str(), folder.path("link.qcl").c_str()), 0);
    EXPECT_THAT(identifiersOf(readQclFile(a)), ElementsAre("include-cycle"));
}

TEST(QclFiles, MayBeIncludedTwiceOneBehindTheOther)
{
    const TemporaryFolder folder;
    const std::string main = folder.write("main.qcl", "include \"b.qcl\"\ninclude \"b.qcl\"\n");
    folder.write("b.qcl", "[/B]\n");
    EXPECT_THAT(problemsOf(readQclFile(main)), IsEmpty());
}

TEST(QclFiles, ThatAreMissingAreNamed)
{
    const QclDocument document = readQclFile("no/such/file.qcl");
    EXPECT_THAT(
        problemsOf(document),
        ElementsAre("file.qcl:0:0: The file 'no/such/file.qcl' cannot be read: No such file or directory. "
                    "[file-unreadable]"));
    ASSERT_EQ(document.files.size(), 1U);
    EXPECT_EQ(document.files[0].text(), "");
}

TEST(QclFiles, ThatAreFoldersAreNamed)
{
    EXPECT_THAT(problemsOf(readQclFile("/tmp")),
                ElementsAre("tmp:0:0: The file '/tmp' cannot be read: Is a directory. [file-unreadable]"));
}

TEST(QclFiles, ThatMayNotBeReadAreNamed)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("secret.qcl", "[/A]\n");
    ASSERT_EQ(chmod(file.c_str(), 0), 0);

    // The superuser may read everything, so it steps down for the reading.
    constexpr uid_t k_nobody = 65534;
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || seteuid(k_nobody) == 0);
    const QclDocument document = readQclFile(file);
    ASSERT_TRUE(user != 0 || seteuid(user) == 0);

    EXPECT_THAT(document.problems,
                ElementsAre(testing::Field(&Diagnostic::message,
                                           "The file '" + file + "' cannot be read: Permission denied.")));
}

TEST(QclFiles, ThatAreIncludedAndCannotBeReadAreReportedWhereTheyAreIncluded)
{
    const TemporaryFolder folder;
    const std::string main =
        folder.write("main.qcl", "[/A]\ninclude \"gone.qcl\"\ninclude \".\"\n[/B]\np = 1\n");

    const QclDocument document = readQclFile(main);

    EXPECT_THAT(identifiersOf(document), ElementsAre("file-unreadable", "file-unreadable"));
    EXPECT_EQ(document.problems[0].place, (SourcePlace {0, 2, 10}));
    EXPECT_EQ(document.problems[0].length, 8U);
    EXPECT_EQ(document.problems[1].place, (SourcePlace {0, 3, 10}));
    EXPECT_THAT(parametersOf(document), ElementsAre("/B|p=1"));
}

TEST(QclFiles, ThatAreNoPlainFilesAreNotIncluded)
{
    // Given a pipe into which nobody writes: reading it would wait for ever
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe.qcl").c_str(), 0600), 0);
    const std::string main = folder.write("main.qcl", "include \"pipe.qcl\"\n");

    const QclDocument document = readQclFile(main);
    ASSERT_EQ(document.problems.size(), 1U);
    EXPECT_THAT(document.problems[0].message, testing::EndsWith("cannot be read: Not a plain file."));
}

TEST(QclFiles, ThatHoldZeroBytesAreOneErrorEach)
{
    const TemporaryFolder folder;
    folder.write("other.qcl", std::string("\x7F"
                                          "ELF\0\0\xFF\nx\ny\n",
                                          12));
    const std::string main = folder.write("main.qcl", "include \"other.qcl\"\n[/A]\np = 1\n");

    const QclDocument document = readQclFile(main);

    EXPECT_THAT(identifiersOf(document), ElementsAre("file-binary"));
    EXPECT_EQ(document.problems[0].place, (SourcePlace {1, 0, 0}));
    EXPECT_EQ(document.files[1].text(), "");
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1"));
}

TEST(QclFiles, MayBeEmpty)
{
    const TemporaryFolder folder;
    const QclDocument document = readQclFile(folder.write("empty.qcl", ""));
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(document.objects, IsEmpty());
}

}    // namespace
}    // namespace qen::standalone
