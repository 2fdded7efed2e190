#include "QclTestSupport.h"

#include <gmock/gmock.h>
#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

TEST(QclReader, ReadsObjectsAndTheirParameters)
{
    const QclDocument document = read("# a centrifugal pump\n"
                                      "[/FLOW:Pump/SIMULATION]\n"
                                      "Type = Transient\n"
                                      "\n"
                                      "[/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet/INFLOW]\n"
                                      "Speed = 2 [m s^-1] * min(1, t / 0.5 [s])\n"
                                      "Direction=x,y\n");

    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(
        parametersOf(document),
        ElementsAre("/FLOW:Pump/SIMULATION|Type=Transient",
                    "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet/INFLOW|Speed=2 [m s^-1] * min(1, t / 0.5 [s])",
                    "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet/INFLOW|Direction=x,y"));
}

TEST(QclReader, PartsAtTheFirstEqualsSignAndDropsBlanksAroundBoth)
{
    const QclDocument document = read("[/A]\n \t name of it \t= \t a == b = c  \t\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|name of it=a == b = c"));
}

TEST(QclReader, KeepsTypesAndNamesExactlyAsWritten)
{
    const QclDocument document = read("[/Type One:a  b/two]\n[/type one:a  b/two]\n[/Type One:a b/two]\n");
    ASSERT_EQ(document.objects.size(), 3U);
    EXPECT_EQ(document.objects[0].path, "/Type One:a  b/two");
    EXPECT_EQ(document.objects[1].path, "/type one:a  b/two");
    EXPECT_EQ(document.objects[2].path, "/Type One:a b/two");
}

TEST(QclReader, DropsBlanksAroundAPathAndAHeader)
{
    const QclDocument document = read("  [ /A:x ]  \np = 1\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A:x|p=1"));
}

TEST(QclReader, ContinuesAnObjectWhosePathIsGivenAgain)
{
    const QclDocument document = read("[/A]\np = 1\n[/B]\np = 2\n[/A]\nq = 3\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1", "/A|q=3", "/B|p=2"));
}

TEST(QclReader, TakesLinesThatBeginWithAHashAsComments)
{
    const QclDocument document = read("# p = 1\n#[/X]\n[/A]\n  # q = 2 \\\nr = 3 # not a comment\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|r=3 # not a comment"));
}

TEST(QclReader, ContinuesAValueBehindATrailingBackslash)
{
    // Given lines that are indented, one with blanks behind its backslash, and one that looks like a comment
    const QclDocument document = read("[/A]\np = 1 + \\\n      2 + \\  \n\t3\nq = Total Pres\\\n  sure\n"
                                      "r = \\\n  4\ns = a, \\\n# b\nt = 5 \\\n\nu = 6\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1 + 2 + 3", "/A|q=Total Pressure", "/A|r=4",
                                                    "/A|s=a, # b", "/A|t=5", "/A|u=6"));
}

TEST(QclReader, TakesAnEmptyValue)
{
    const QclDocument document = read("[/A]\np =\nq = \\\n\\\n\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=", "/A|q="));
}

TEST(QclReader, ReadsTheSameWithEitherLineEndAndWithoutTheLastOne)
{
    const std::string text = "[/A]\np = 1 \\\n + 2\nq = 3\n";
    std::string withReturns;
    for (const char c : text)
        withReturns += c == '\n' ? std::string("\r\n") : std::string(1, c);

    const std::vector<std::string> expected {"/A|p=1 + 2", "/A|q=3"};
    EXPECT_EQ(parametersOf(read(text)), expected);
    EXPECT_EQ(parametersOf(read(withReturns)), expected);
    EXPECT_EQ(parametersOf(read(text.substr(0, text.size() - 1))), expected);
    EXPECT_THAT(problemsOf(read(withReturns)), IsEmpty());
}

TEST(QclReader, PassesOverAByteOrderMark)
{
    const QclDocument document = read("\xEF\xBB\xBF[/A]\np = 1\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1"));
    EXPECT_EQ(document.files[0].line(1), "[/A]");
}

TEST(QclReader, ReadsNamesAndValuesInUtf8)
{
    const QclDocument document = read("[/DOMAIN:L\xC3\xBC"
                                      "fter]\n\xCE\x94p = \xE2\x82\xAC \xF0\x9F\x8C\x8A\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/DOMAIN:L\xC3\xBC"
                                                    "fter|\xCE\x94p=\xE2\x82\xAC \xF0\x9F\x8C\x8A"));
}

TEST(QclReader, FindsNoObjectsInTextsWithoutAny)
{
    for (const char* text : {"", "\n", "\r\n\r\n", "# nothing", "   \t", "\xEF\xBB\xBF"})
    {
        const QclDocument document = read(text);
        EXPECT_THAT(problemsOf(document), IsEmpty()) << "'" << text << "'";
        EXPECT_THAT(document.objects, IsEmpty()) << "'" << text << "'";
        EXPECT_EQ(document.files.size(), 1U);
    }
}

TEST(QclReader, TakesAParameterNamedIncludeForAParameter)
{
    const QclDocument document = read("[/A]\ninclude = \"x.qcl\"\ninclude files = 2\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|include=\"x.qcl\"", "/A|include files=2"));
}

TEST(QclReader, FindsParametersOfAnObjectByName)
{
    const QclDocument document = read("[/A]\np = 1\nq = 2\n");
    ASSERT_EQ(document.objects.size(), 1U);
    ASSERT_NE(document.objects[0].find("q"), nullptr);
    EXPECT_EQ(document.objects[0].find("q")->value(), "2");
    EXPECT_EQ(document.objects[0].find("Q"), nullptr);
}

// Counted, not timed: with quadratic cost these would not come to an end while somebody waits.

TEST(QclReader, ReadsALineOfAMegabyte)
{
    const std::string value(std::size_t {1} << 20, 'x');
    const QclDocument document = read("[/A]\np = " + value + "\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    ASSERT_EQ(document.objects.size(), 1U);
    EXPECT_EQ(document.objects[0].parameters.at(0).value(), value);
}

TEST(QclReader, ReadsAValueOnAHundredThousandLines)
{
    std::string text = "[/A]\np = ";
    for (int line = 0; line < 100'000; ++line)
        text += "x + \\\n";
    const QclDocument document = read(text + "x\n");
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_EQ(document.objects.at(0).parameters.at(0).value().size(), 400'001U);
    EXPECT_EQ(document.objects.at(0).parameters.at(0).pieces().size(), 100'001U);
}

TEST(QclReader, ReadsAHundredThousandSectionsAndParameters)
{
    std::string text;
    for (int number = 0; number < 100'000; ++number)
        text += "[/A:" + std::to_string(number) + "]\np = 1\n";
    text += "[/B]\n";
    for (int number = 0; number < 100'000; ++number)
        text += "p" + std::to_string(number) + " = 1\n";

    const QclDocument document = read(text);
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_EQ(document.objects.size(), 100'001U);
    EXPECT_EQ(document.objects.back().parameters.size(), 100'000U);
}

}    // namespace
}    // namespace qen::standalone
