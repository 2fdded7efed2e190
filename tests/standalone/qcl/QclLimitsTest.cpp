#include "QclTestSupport.h"
#include "UserMsg.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

std::string times(std::size_t p_count, const std::string& p_text)
{
    std::string result;
    for (std::size_t count = 0; count < p_count; ++count)
        result += p_text;
    return result;
}

TEST(QclLimits, AdmitALineUpToTheLargestValueAndNoLonger)
{
    QclLimits limits;
    limits.valueBytes = 10;
    EXPECT_THAT(problemsOf(read("[/A]\np = 0123456789  \n", limits)), IsEmpty());
    EXPECT_THAT(
        problemsOf(read("[/A]\np = 0123456789x\nq = 1\n", limits)),
        ElementsAre("case.qcl:2:5: The value is too long. Expected at most 10 bytes. [limit-value-length]"));
}

TEST(QclLimits, CountAValueOverItsLines)
{
    QclLimits limits;
    limits.valueBytes = 10;
    EXPECT_THAT(problemsOf(read("[/A]\np = 01234\\\n  56789\n", limits)), IsEmpty());
    const QclDocument document = read("[/A]\np = 01234\\\n  56789\\\n x\\\n y\nq = 1\n", limits);
    EXPECT_THAT(
        problemsOf(document),
        ElementsAre("case.qcl:4:2: The value is too long. Expected at most 10 bytes. [limit-value-length]"));
    EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=", "/A|q=1"));
}

TEST(QclLimits, AdmitNamesAndTypesUpToTheLongest)
{
    const std::string longest(256, 'n');
    EXPECT_THAT(problemsOf(read("[/" + longest + ":" + longest + "]\n" + longest + " = 1\n")), IsEmpty());
    EXPECT_THAT(identifiersOf(read("[/" + longest + "n:x]\n")), ElementsAre("limit-name-length"));
}

TEST(QclLimits, AdmitNoLongerNamesThanAParameterHolds)
{
    QclLimits limits;
    limits.nameBytes = 1'000'000;
    const std::string longest(QclParameter::k_nameBytes, 'n');

    const QclDocument document = read("[/A]\n" + longest + " = 1\n", limits);
    EXPECT_THAT(problemsOf(document), IsEmpty());
    EXPECT_EQ(document.objects.at(0).parameters.at(0).name(), longest);
    EXPECT_EQ(document.objects.at(0).parameters.at(0).value(), "1");

    EXPECT_THAT(identifiersOf(read("[/A]\n" + longest + "n = 1\n", limits)),
                ElementsAre("limit-name-length"));
}

TEST(QclLimits, AdmitNoMoreFilesThanPlacesTell)
{
    const TemporaryFolder folder;
    folder.write("b.qcl", "");
    folder.write("c.qcl", "[/A]\np = 1\n");
    const std::string most = times(QclParameter::k_files - 2, "include \"b.qcl\"\n") + "include \"c.qcl\"\n";
    QclLimits limits;
    limits.includedFiles = 1'000'000;

    const QclDocument document = readQclFile(folder.write("main.qcl", most + "include \"b.qcl\"\n"), limits);

    EXPECT_THAT(identifiersOf(document), ElementsAre("limit-included-files"));
    EXPECT_EQ(document.objects.at(0).parameters.at(0).place(),
              (SourcePlace {QclParameter::k_files - 1, 2, 1}));
}

TEST(QclLimits, AdmitPathsUpToTheLongest)
{
    const std::string path = times(8, "/" + std::string(255, 't'));    // 2048 bytes
    EXPECT_THAT(problemsOf(read("[" + path + "]\n")), IsEmpty());
    EXPECT_THAT(
        problemsOf(read("[" + path + "t]\n")),
        ElementsAre("case.qcl:1:2: The path is 2049 bytes long. Expected at most 2048. [limit-path-length]"));
}

TEST(QclLimits, AdmitPathsUpToTheDeepest)
{
    EXPECT_THAT(problemsOf(read("[" + times(32, "/A") + "]\n")), IsEmpty());
    EXPECT_THAT(
        problemsOf(read("[" + times(33, "/A") + "]\n")),
        ElementsAre("case.qcl:1:2: The path has 33 levels. Expected at most 32. [limit-path-levels]"));
}

TEST(QclLimits, AdmitATextUpToTheLargest)
{
    QclLimits limits;
    limits.fileBytes = 5;
    EXPECT_THAT(problemsOf(read("[/A]\n", limits)), IsEmpty());
    EXPECT_THAT(
        problemsOf(read("[/A]\n\n", limits)),
        ElementsAre(
            "case.qcl:0:0: The file 'case.qcl' is too large. A file and all that it includes may have "
            "5 bytes. [limit-file-size]"));
}

TEST(QclLimits, CountAFileWithAllThatItIncludes)
{
    const TemporaryFolder folder;
    const std::string main =
        folder.write("main.qcl", "include \"b.qcl\"\ninclude \"b.qcl\"\n");    // 32 bytes
    folder.write("b.qcl", "# 4567890\n");
    QclLimits limits;
    limits.fileBytes = 52;
    EXPECT_THAT(problemsOf(readQclFile(main, limits)), IsEmpty());
    limits.fileBytes = 51;
    const QclDocument document = readQclFile(main, limits);
    EXPECT_THAT(identifiersOf(document), ElementsAre("limit-file-size"));
    EXPECT_EQ(document.problems[0].place, (SourcePlace {0, 2, 10}));
    limits.fileBytes = 31;
    EXPECT_THAT(identifiersOf(readQclFile(main, limits)), ElementsAre("limit-file-size"));
}

TEST(QclLimits, EndAChainOfIncludes)
{
    const TemporaryFolder folder;
    for (int number = 0; number < 40; ++number)
        folder.write(std::to_string(number) + ".qcl", "include \"" + std::to_string(number + 1) + ".qcl\"\n");

    folder.write("32.qcl", "[/A]\n");
    EXPECT_THAT(problemsOf(readQclFile(folder.path("0.qcl"))), IsEmpty());

    folder.write("32.qcl", "include \"33.qcl\"\n");
    folder.write("33.qcl", "[/A]\n");
    EXPECT_THAT(problemsOf(readQclFile(folder.path("0.qcl"))),
                ElementsAre("32.qcl:1:10: The file '33.qcl' is included at depth 33. Expected at most 32. "
                            "[limit-include-depth]"));
}

TEST(QclLimits, EndIncludesThatMultiply)
{
    // Given files each of which includes the next one twice, which makes 2^20 at the end
    const TemporaryFolder folder;
    for (int number = 0; number < 20; ++number)
        folder.write(std::to_string(number) + ".qcl",
                     times(2, "include \"" + std::to_string(number + 1) + ".qcl\"\n"));
    folder.write("20.qcl", "");
    QclLimits limits;
    limits.problems = 2;

    const QclDocument document = readQclFile(folder.path("0.qcl"), limits);

    EXPECT_EQ(document.files.size(), 1001U);
    EXPECT_THAT(identifiersOf(document),
                ElementsAre("limit-included-files", "limit-included-files", "limit-problems"));
}

TEST(QclLimits, EndReadingAfterTooManyProblems)
{
    QclLimits limits;
    limits.problems = 3;
    const QclDocument three = read("[/A]\n" + times(3, "nonsense\n"), limits);
    EXPECT_THAT(identifiersOf(three), ElementsAre("syntax-line", "syntax-line", "syntax-line"));

    const QclDocument more = read("[/A]\n" + times(1000, "nonsense\n"), limits);
    EXPECT_THAT(identifiersOf(more),
                ElementsAre("syntax-line", "syntax-line", "syntax-line", "limit-problems"));
    EXPECT_EQ(more.problems.back().message, "There are more than 3 problems. Reading ends here.");
    EXPECT_EQ(more.problems.back().place, (SourcePlace {0, 5, 1}));
}

TEST(QclLimits, AdmitFourPlaceholdersInAShortValueAndTwoInALongOne)
{
    EXPECT_THAT(problemsOf(read("[/A]\np = %2 %3 %4 %5\n")), IsEmpty());
    EXPECT_THAT(
        problemsOf(read("[/A]\np = %2 %3 %4 %5 %2\n")),
        ElementsAre("case.qcl:2:17: The value holds '%2', which messages would fill, and 4 such texts before "
                    "it. Expected at most 4 of '%2' to '%5' in a value of this length. "
                    "[limit-placeholders]"));

    const std::string fourKilobytes(4096 - 12, 'x');
    EXPECT_THAT(problemsOf(read("[/A]\np = %2%3%4%5    " + fourKilobytes + "\n")), IsEmpty());
    EXPECT_THAT(identifiersOf(read("[/A]\np = %2%3%4%5     " + fourKilobytes + "\n")),
                ElementsAre("limit-placeholders"));
    EXPECT_THAT(problemsOf(read("[/A]\np = %2%3         " + fourKilobytes + "\n")), IsEmpty());
}

TEST(QclLimits, CountPlaceholdersThatABackslashParts)
{
    EXPECT_THAT(identifiersOf(read("[/A]\np = %2%2%2%2%\\\n2\n")), ElementsAre("limit-placeholders"));
}

TEST(QclLimits, LeavePercentSignsAloneThatNoLaterArgumentFills)
{
    EXPECT_THAT(problemsOf(read("[/A]\np = " + times(100, "%1 %6 %0 %g 5% 2") + "\n")), IsEmpty());
}

// What the limits are for: whatever stands in a value, a message about it stays small.

/// What an argument of a message is made from.
enum class Source { Value, PartOfValue, ParameterName, ObjectPath, ErrorText };

std::size_t filledSize(const std::vector<Source>& p_arguments, const std::string& p_value)
{
    const std::string name(QclLimits().nameBytes, 'n');
    const std::string path = "/" + std::string(QclLimits().pathBytes - 1, 'p');
    const std::size_t parts = static_cast<std::size_t>(std::ranges::count(p_arguments, Source::PartOfValue));

    std::string text(300, 't');    // the words around the placeholders
    for (std::size_t number = 1; number <= p_arguments.size(); ++number)
        text += "%" + std::to_string(number);

    UserMsg message(text);
    std::size_t part = 0;
    for (const Source source : p_arguments)
        switch (source)
        {
        case Source::Value:
            message << p_value;
            break;
        case Source::PartOfValue:    // those of one message stand beside each other in the value
            message << p_value.substr(part * p_value.size() / parts,
                                      (part + 1) * p_value.size() / parts - part * p_value.size() / parts);
            ++part;
            break;
        case Source::ParameterName:
            message << name;
            break;
        case Source::ObjectPath:
            message << path;
            break;
        case Source::ErrorText:    // may quote the beginning of the value
            message << std::string(300, 'e') + p_value.substr(0, 80);
            break;
        }
    return message.str().size();
}

TEST(QclLimits, KeepMessagesBelow64KibibytesPlusFourTimesTheValue)
{
    using enum Source;
    // The shapes of messages: function, argument and locator are parts of a value; an operator or a component and the
    // variable that has it are texts of which one lies in the other.
    const std::vector<std::vector<Source>> shapes {
        {Value, ParameterName, ObjectPath, ErrorText},
        {Value, ParameterName, ObjectPath, Value},
        {Value, Value, ParameterName, ObjectPath},
        {ParameterName, ObjectPath, Value, Value},
        {ParameterName, ObjectPath, Value, ErrorText},
        {PartOfValue, ParameterName, ObjectPath, PartOfValue, PartOfValue},
    };

    testing::internal::CaptureStderr();    // which placeholder was not used does not matter here
    std::size_t checked = 0;
    for (const std::size_t size :
         {std::size_t {8}, std::size_t {4096}, std::size_t {4097}, std::size_t {200'000}})
    {
        const std::size_t tokens = size <= QclLimits().shortValueBytes ? QclLimits().shortValuePlaceholders
                                                                       : QclLimits().longValuePlaceholders;
        // Every choice of tokens, at the beginning of the value and over its whole length
        std::size_t choices = 1;
        for (std::size_t token = 0; token < tokens; ++token)
            choices *= 4;
        for (std::size_t choice = 0; choice < choices; ++choice)
            for (const bool spread : {false, true})
            {
                std::string value(size, 'v');
                std::size_t left = choice;
                for (std::size_t token = 0; token < tokens; ++token, left /= 4)
                    value.replace(token * (spread ? size / tokens : 2), 2,
                                  "%" + std::to_string(2 + left % 4));

                ASSERT_THAT(problemsOf(read("[/A]\np = " + value + "\n")), IsEmpty());
                for (const std::vector<Source>& shape : shapes)
                {
                    const std::size_t filled = filledSize(shape, value);
                    EXPECT_LE(filled, 64U * 1024U + 4 * size) << "for a value of " << size << " bytes";
                    ++checked;
                }
            }
    }
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(checked, (256U + 256U + 16U + 16U) * 2 * 6);
}

}    // namespace
}    // namespace qen::standalone
