#include "qcl/QclProblems.h"
#include "QclTestSupport.h"

#include <gmock/gmock.h>
#include <set>
#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

struct ErrorCase {
    std::string name;
    std::string text;
    std::string problem;
};

class QclSyntaxError : public testing::TestWithParam<ErrorCase> {};

TEST_P(QclSyntaxError, IsReportedAloneAtItsPlaceAndTheNextLineIsRead)
{
    const QclDocument document = read(GetParam().text + "\n[/Next]\nafter = 1\n");

    EXPECT_THAT(problemsOf(document), ElementsAre(GetParam().problem));
    EXPECT_EQ(parametersOf(document).back(), "/Next|after=1");
}

const std::string k_longName(257, 'n');

INSTANTIATE_TEST_SUITE_P(
    Text, QclSyntaxError,
    testing::Values(
        ErrorCase {"ParameterBeforeAnySection", "stray = 1",
                   "case.qcl:1:1: The parameter 'stray' belongs to no object. Expected a section header "
                   "'[/TYPE:name]' before it. [syntax-parameter-outside-section]"},
        ErrorCase {"LineWithoutEqualsSign", "[/A]\n  nonsense here ",
                   "case.qcl:2:3: 'nonsense here' is no line of a section. Expected 'name = value', a "
                   "section header "
                   "'[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins with '#'. [syntax-line]"},
        ErrorCase {"EmptyName", "[/A]\n  = 1",
                   "case.qcl:2:3: There is no name before the '='. Expected 'name = value'. "
                   "[syntax-parameter-name]"},
        ErrorCase {
            "NameWithSlash", "[/A]\na/b = 1",
            "case.qcl:2:2: The parameter name 'a/b' holds the character '/'. Expected a name without '/', "
            "':', '[' and ']'. [syntax-parameter-name]"},
        ErrorCase {
            "NameWithColon", "[/A]\na:b = 1",
            "case.qcl:2:2: The parameter name 'a:b' holds the character ':'. Expected a name without '/', "
            "':', '[' and ']'. [syntax-parameter-name]"},
        ErrorCase {
            "NameWithBracket", "[/A]\nab[1] = 1",
            "case.qcl:2:3: The parameter name 'ab[1]' holds the character '['. Expected a name without '/', "
            "':', '[' and ']'. [syntax-parameter-name]"},
        ErrorCase {
            "NameWithPercentBeforeDigit", "[/A]\na%2b = 1",
            "case.qcl:2:2: The parameter name 'a%2b' holds '%2'. Expected a name without '%' before a digit. "
            "[syntax-parameter-name]"},
        ErrorCase {"NameTooLong", "[/A]\n" + k_longName + " = 1",
                   "case.qcl:2:1: The parameter name '" + std::string(80, 'n') +
                       "...' is 257 bytes long. Expected at most 256. [limit-name-length]"},
        ErrorCase {"HeaderNotClosed", "[/A",
                   "case.qcl:1:1: The section header '[/A' is not closed. Expected a ']' behind the path. "
                   "[syntax-section-header]"},
        ErrorCase {
            "TextBehindHeader", "[/A] # why",
            "case.qcl:1:6: '# why' stands behind the ']' of a section header. Expected the end of the line. "
            "[syntax-section-header]"},
        ErrorCase {"PathEmpty", "[ ]",
                   "case.qcl:1:2: '' is no path of an object. Expected levels '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"PathWithoutSlash", "[A:x]",
                   "case.qcl:1:2: 'A:x' is no path of an object. Expected levels '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"PathIsASlash", "[/]",
                   "case.qcl:1:3: A level of the path has no type. Expected '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"PathEndsWithASlash", "[/A:x/]",
                   "case.qcl:1:7: A level of the path has no type. Expected '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"LevelEmpty", "[/A//B]",
                   "case.qcl:1:5: A level of the path has no type. Expected '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"TypeEmpty", "[/A/:x]",
                   "case.qcl:1:5: A level of the path has no type. Expected '/TYPE:name' or '/TYPE'. "
                   "[syntax-object-path]"},
        ErrorCase {"NameEmptyBehindColon", "[/A:/B]",
                   "case.qcl:1:3: The level 'A:' has no name behind the ':'. Expected '/TYPE:name', or "
                   "'/TYPE' for an "
                   "object of which there is one. [syntax-object-path]"},
        ErrorCase {
            "ObjectNameWithColon", "[/A:x:y]",
            "case.qcl:1:6: The name 'x:y' holds the character ':'. Expected a name without '/', ':', '[' and "
            "']'. [syntax-object-name]"},
        ErrorCase {
            "ObjectNameWithBracket", "[/A:x[1]",
            "case.qcl:1:6: The name 'x[1' holds the character '['. Expected a name without '/', ':', '[' and "
            "']'. [syntax-object-name]"},
        ErrorCase {"ObjectNameWithPercentBeforeDigit", "[/A:x%1]",
                   "case.qcl:1:6: The name 'x%1' holds '%1'. Expected a name without '%' before a digit. "
                   "[syntax-object-name]"},
        ErrorCase {"ObjectTypeWithPercentBeforeDigit", "[/A%9:x]",
                   "case.qcl:1:4: The type 'A%9' holds '%9'. Expected a name without '%' before a digit. "
                   "[syntax-object-name]"},
        ErrorCase {"ObjectNameTooLong", "[/A:" + k_longName + "]",
                   "case.qcl:1:5: The name '" + std::string(80, 'n') +
                       "...' is 257 bytes long. Expected at most 256. [limit-name-length]"},
        ErrorCase {"ParameterGivenTwice", "[/A]\np = 1\nq = 2\n[/B]\n[/A]\n p = 3",
                   "case.qcl:6:2: The parameter 'p' is given twice in object '/A': in line 2 and in line 6. "
                   "[syntax-duplicate-parameter]"},
        ErrorCase {"IncludeWithoutQuotes", "include other.qcl",
                   "case.qcl:1:1: 'include other.qcl' names no file. Expected 'include \"file.qcl\"'. "
                   "[syntax-include]"},
        ErrorCase {
            "IncludeNotClosed", "include \"other.qcl",
            "case.qcl:1:1: 'include \"other.qcl' is not closed. Expected a '\"' behind the path of the file. "
            "[syntax-include]"},
        ErrorCase {"IncludeOfNoFile", "include \"\"",
                   "case.qcl:1:1: The include names no file. Expected its path between the quotes. "
                   "[syntax-include]"},
        ErrorCase {"TextBehindInclude", "include \"a.qcl\" \"b.qcl\"",
                   "case.qcl:1:17: '\"b.qcl\"' stands behind an include. Expected the end of the line. "
                   "[syntax-include]"},
        ErrorCase {
            "NotUtf8", "[/A]\np = caf\xE9",
            "case.qcl:2:8: The byte 0xE9 is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "NotUtf8InAComment", "# caf\xE9",
            "case.qcl:1:6: The byte 0xE9 is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "NotUtf8InAHeader", "[/A:\xFF]\np = 1\np = 2",
            "case.qcl:1:5: The byte 0xFF is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "NotUtf8OnAFurtherLine", "[/A]\np = 1 \\\n + \xC0\x80",
            "case.qcl:3:4: The byte 0xC0 is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "SurrogateInUtf8", "# \xED\xA0\x80",
            "case.qcl:1:3: The byte 0xED is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "SequenceCutOff", "# \xE2\x82",
            "case.qcl:1:3: The byte 0xE2 is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "BeyondUnicode", "# \xF4\x90\x80\x80",
            "case.qcl:1:3: The byte 0xF4 is not part of UTF-8 text. Expected UTF-8. [syntax-encoding]"},
        ErrorCase {
            "EscapeCharacter", "[/A]\np = \x1B[31m",
            "case.qcl:2:5: The control character 0x1B stands in the text. Expected no control characters but "
            "tabs and line ends. [syntax-control-character]"},
        ErrorCase {
            "ControlCharacterOfTwoBytes",
            "[/A]\np = \xC2\x9B"
            "31m",
            "case.qcl:2:5: The control character 0x9B stands in the text. Expected no control characters but "
            "tabs and line ends. [syntax-control-character]"},
        ErrorCase {
            "ReturnInsideALine", "[/A]\np = 1\rq = 2",
            "case.qcl:2:6: The control character 0x0D stands in the text. Expected no control characters but "
            "tabs and line ends. [syntax-control-character]"}),
    [](const auto& p_info) { return p_info.param.name; });

TEST(QclSyntaxErrors, AreAllReportedInOneGoInTheOrderOfTheText)
{
    const QclDocument document =
        read("stray = 1\n[/A\nignored = 1\n= 2\n[/B]\nnonsense\np = 1\np = 2\nq = 3 \\");
    EXPECT_THAT(
        problemsOf(document),
        ElementsAre("case.qcl:1:1: The parameter 'stray' belongs to no object. Expected a section header "
                    "'[/TYPE:name]' before it. [syntax-parameter-outside-section]",
                    "case.qcl:2:1: The section header '[/A' is not closed. Expected a ']' behind the path. "
                    "[syntax-section-header]",
                    "case.qcl:4:1: There is no name before the '='. Expected 'name = value'. "
                    "[syntax-parameter-name]",
                    "case.qcl:6:1: 'nonsense' is no line of a section. Expected 'name = value', a section "
                    "header '[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins with '#'. "
                    "[syntax-line]",
                    "case.qcl:8:1: The parameter 'p' is given twice in object '/B': in line 7 and in line 8. "
                    "[syntax-duplicate-parameter]",
                    "case.qcl:9:7: The file ends inside a value: a backslash continues the value on the next "
                    "line. Expected that line. [syntax-unfinished-value]"));
}

TEST(QclSyntaxErrors, IncludeABackslashOnTheLastLineWithOrWithoutALineEnd)
{
    for (const char* text : {"[/A]\np = 1\\", "[/A]\np = 1\\\n", "[/A]\np = 1\\\r\n", "[/A]\np = 1\\  "})
        EXPECT_THAT(
            problemsOf(read(text)),
            ElementsAre("case.qcl:2:6: The file ends inside a value: a backslash continues the value on the "
                        "next line. Expected that line. [syntax-unfinished-value]"));
}

TEST(QclSyntaxErrors, OfALineThatIsNoTextAreItsOnlyOnes)
{
    // Given a last line that both holds a control character and ends with a backslash
    for (const char* text : {"[/A]\np = 1 \\\r ", "[/A]\np = 1 + \\\n 2 \\\r "})
        EXPECT_THAT(identifiersOf(read(text)), ElementsAre("syntax-control-character"));
}

TEST(QclSyntaxErrors, LeaveTheFirstValueOfAParameterThatIsGivenTwice)
{
    EXPECT_THAT(parametersOf(read("[/A]\np = 1\np = 2\n")), ElementsAre("/A|p=1"));
}

TEST(QclSyntaxErrors, LeaveAParameterWithAFaultyValueWithoutValue)
{
    EXPECT_THAT(parametersOf(read("[/A]\np = 1 + \\\n\xFF\nq = 2 \\")), ElementsAre("/A|p=", "/A|q="));
}

TEST(QclSyntaxErrors, InAHeaderLeaveItsParametersOut)
{
    const QclDocument document = read("[/A]\np = 1\n[/B//]\np = 2\np = 3\n[/C]\np = 4\n");
    EXPECT_THAT(identifiersOf(document), ElementsAre("syntax-object-path"));
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1", "/C|p=4"));
}

TEST(QclSyntaxErrors, PointAtTheFaultyStretch)
{
    const QclDocument document = read("[/A:x%1]\n  nonsense\n");
    ASSERT_EQ(document.problems.size(), 2U);
    EXPECT_EQ(document.problems[0].length, 2U);
    EXPECT_EQ(document.problems[1].length, 8U);
    EXPECT_EQ(document.problems[1].severity, Severity::Error);
}

TEST(QclSyntaxErrors, QuoteNoMoreThanEightyCharacters)
{
    std::string line;
    for (int count = 0; count < 200; ++count)
        line += "\xC3\xA4";
    const QclDocument document = read("[/A]\n" + line + "\n");
    ASSERT_EQ(document.problems.size(), 1U);
    EXPECT_EQ(document.problems[0].message.substr(0, 168), "'" + line.substr(0, 160) + "...' is");
}

TEST(QclProblems, HaveIdentifiersThatAreDistinctReadableWords)
{
    std::set<std::string_view> identifiers;
    for (const QclProblemKind& kind : k_qclProblems)
    {
        EXPECT_TRUE(identifiers.insert(kind.identifier).second) << kind.identifier;
        EXPECT_EQ(kind.identifier.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string_view::npos);
        EXPECT_FALSE(kind.meaning.empty());
        EXPECT_EQ(kindOf(kind.problem).identifier, kind.identifier);
    }
}

}    // namespace
}    // namespace qen::standalone
