#include "QclTestSupport.h"

#include "qcl/QclFollower.h"

#include <gmock/gmock.h>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

std::string textOf(const SourcePlace& p_place)
{
    return std::to_string(p_place.file) + ":" + std::to_string(p_place.line) + ":" +
           std::to_string(p_place.column);
}

/// Everything that a document says, but for the numbers of contents.
std::string textOf(const QclDocument& p_document)
{
    std::string text;
    for (const SourceFile& file : p_document.files)
        text.append("file ").append(file.path).append("\n").append(file.text()).append("\n");
    for (const QclObject& object : p_document.objects)
    {
        text += "object " + object.path + " at " + textOf(object.place) + "\n";
        for (const QclParameter& parameter : object.parameters)
        {
            text.append(parameter.name()).append("=").append(parameter.value());
            text += " at " + textOf(parameter.place());
            for (const QclParameter::Piece& piece : parameter.pieces())
                text += " " + std::to_string(piece.offset) + "@" + textOf(piece.place);
            text += "\n";
        }
    }
    for (const Diagnostic& problem : p_document.problems)
        text += "problem " + textOf(problem.place) + "+" + std::to_string(problem.length) + " " +
                problem.identifier + " " + problem.message + "\n";
    return text;
}

std::vector<std::string> contentOf(const QclObject& p_object)
{
    std::vector<std::string> content;
    for (const QclParameter& parameter : p_object.parameters)
        content.push_back(std::string(parameter.name()).append("=").append(parameter.value()));
    return content;
}

constexpr const char* k_threeSections =
    "[/A]\np = 1\nq = 2\n\n[/B]\np = 1\n# why\nq = %2 \\\n  3\n[/C]\np = 1\n";

class AFollower : public testing::Test {
protected:
    /// Writes the file that is followed and reads it; what comes is what a fresh reading gives.
    QclDocument read(const std::string& p_text)
    {
        m_folder.write("main.qcl", p_text);
        return read();
    }

    QclDocument read()
    {
        QclDocument document = m_follower.read();
        EXPECT_EQ(textOf(document), textOf(readQclFile(m_folder.path("main.qcl"))));
        return document;
    }

    const TemporaryFolder m_folder;
    QclFollower m_follower {m_folder.path("main.qcl")};
};

TEST_F(AFollower, ReadsEverySectionTheFirstTimeAndNoneAgain)
{
    read(k_threeSections);
    EXPECT_EQ(m_follower.sectionsParsed(), 3U);
    read();
    EXPECT_EQ(m_follower.sectionsParsed(), 0U);
}

TEST_F(AFollower, ReadsTheOneSectionInWhichAValueChanged)
{
    read(k_threeSections);
    read("[/A]\np = 1\nq = 2\n\n[/B]\np = 1\n# why\nq = %2 \\\n  4\n[/C]\np = 1\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 1U);
}

TEST_F(AFollower, ReadsNoSectionThatMoves)
{
    read(k_threeSections);

    // Given the last section in front, and the other two on other lines
    const QclDocument document =
        read("\n\n[/C]\np = 1\n[/A]\np = 1\nq = 2\n\n[/B]\np = 1\n# why\nq = %2 \\\n  3\n");

    EXPECT_EQ(m_follower.sectionsParsed(), 1U);    // the two empty lines
    EXPECT_THAT(parametersOf(document), ElementsAre("/C|p=1", "/A|p=1", "/A|q=2", "/B|p=1", "/B|q=%2 3"));
    EXPECT_EQ(document.objects.at(2).parameters.at(1).placeInValue(3), (SourcePlace {0, 13, 3}));
}

TEST_F(AFollower, ReadsOnlyANewSectionBetweenOthers)
{
    read(k_threeSections);
    read("[/A]\np = 1\nq = 2\n\n[/New]\np = 1\n[/B]\np = 1\n# why\nq = %2 \\\n  3\n[/C]\np = 1\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 1U);
    read("[/A]\np = 1\nq = 2\n\n[/C]\np = 1\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 0U);
}

TEST_F(AFollower, ReadsASectionAgainThatWasGoneForAReading)
{
    read(k_threeSections);
    read("[/A]\np = 1\nq = 2\n\n");
    read(k_threeSections);
    EXPECT_EQ(m_follower.sectionsParsed(), 2U);
}

TEST_F(AFollower, ReadsNoSectionOfAnIncludedFileThatStaysAsItIs)
{
    m_folder.write("other.qcl", "[/X]\nx = 1\n[/Y]\ny = 1\n");
    read("[/A]\np = 1\ninclude \"other.qcl\"\n[/B]\nq = 1\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 4U);

    read("[/A]\np = 2\ninclude \"other.qcl\"\n[/B]\nq = 1\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 1U);

    m_folder.write("other.qcl", "[/X]\nx = 1\n[/Y]\ny = 2\n");
    EXPECT_THAT(parametersOf(read()), ElementsAre("/A|p=2", "/X|x=1", "/Y|y=2", "/B|q=1"));
    EXPECT_EQ(m_follower.sectionsParsed(), 1U);
}

TEST_F(AFollower, TakesASectionOverThatMovesIntoAnotherFile)
{
    m_folder.write("other.qcl", "[/X]\nx = 1\n");
    read("[/A]\np = 1\n[/B]\nq = \\\n1\ninclude \"other.qcl\"\n");
    m_folder.write("other.qcl", "[/X]\nx = 1\n[/B]\nq = \\\n1\n");
    const QclDocument document = read("[/A]\np = 1\ninclude \"other.qcl\"\n");
    EXPECT_EQ(m_follower.sectionsParsed(), 0U);
    EXPECT_EQ(document.objects.at(2).parameters.at(0).placeInValue(0), (SourcePlace {1, 5, 1}));
}

TEST_F(AFollower, TellsOfParametersGivenTwiceWhereverTheirSectionsStandNow)
{
    read("[/A]\np = 1\n[/B]\nq = 1\n[/A]\np = 2\np = 3\n");
    EXPECT_THAT(
        problemsOf(read("# moved\n[/B]\nq = 1\n[/A]\np = 2\np = 3\n[/A]\np = 1\n")),
        ElementsAre("main.qcl:6:1: The parameter 'p' is given twice in object '/A': in line 5 and in line 6. "
                    "[syntax-duplicate-parameter]",
                    "main.qcl:8:1: The parameter 'p' is given twice in object '/A': in line 5 and in line 8. "
                    "[syntax-duplicate-parameter]"));
}

TEST_F(AFollower, KnowsASectionThatEndsWithItsFileFromOneThatGoesOn)
{
    read("[/A]\np = 1 \\\n");
    EXPECT_THAT(parametersOf(read("[/A]\np = 1 \\\n[/B]\n")), ElementsAre("/A|p=1 [/B]"));
    read("[/A]\np = 1");
    EXPECT_THAT(parametersOf(read("[/A]\np = 12")), ElementsAre("/A|p=12"));
    EXPECT_THAT(parametersOf(read("[/A]\np = 12\nq = 3\n")), ElementsAre("/A|p=12", "/A|q=3"));
}

TEST_F(AFollower, KnowsAParameterBehindAnIncludeFromOneAtTheBeginningOfAFile)
{
    m_folder.write("other.qcl", "");
    read("p = 1\n");
    EXPECT_THAT(identifiersOf(read("include \"other.qcl\"\np = 1\n")),
                ElementsAre("syntax-section-after-include"));
    EXPECT_THAT(identifiersOf(read("p = 1\n")), ElementsAre("syntax-parameter-outside-section"));
}

TEST_F(AFollower, GivesObjectsTheSameNumbersAsLongAsTheirContentsStayTheSame)
{
    const QclDocument first = read("[/A]\np = 1\n[/B]\nq = 1\n[/A]\nr = 1\n");
    const QclDocument moved = read("[/B]\nq = 1\n\n[/A]\np = 1\n[/A]\nr = 1\n");
    const QclDocument again = read("[/B]\nq = 1\n\n[/A]\np = 1\n[/A]\nr = 2\n");

    EXPECT_NE(first.objects.at(0).content, 0U);
    EXPECT_NE(first.objects.at(0).content, first.objects.at(1).content);
    EXPECT_EQ(moved.objects.at(1).content, first.objects.at(0).content);
    EXPECT_EQ(again.objects.at(0).content, moved.objects.at(0).content);
    EXPECT_NE(again.objects.at(1).content, moved.objects.at(1).content);
}

TEST_F(AFollower, GivesAnObjectNoNumberThatIsReadInPart)
{
    m_folder.write("main.qcl", "[/A]\np = 1\nnonsense\nq = 1\n");
    QclLimits limits;
    limits.problems = 0;
    QclFollower follower(m_folder.path("main.qcl"), limits);
    for (int reading = 0; reading < 2; ++reading)
    {
        const QclDocument document = follower.read();
        EXPECT_THAT(parametersOf(document), ElementsAre("/A|p=1"));
        EXPECT_EQ(document.objects.at(0).content, 0U);
    }
}

TEST_F(AFollower, HandsOutDocumentsThatOutliveIt)
{
    std::optional<QclFollower> follower(m_folder.path("main.qcl"));
    m_folder.write("main.qcl", k_threeSections);
    QclDocument first = follower->read();
    m_folder.write("main.qcl", "[/A]\np = 1\nq = 2\n\n");
    const QclDocument second = follower->read();
    follower.reset();

    const QclDocument copy = first;
    first = {};
    EXPECT_THAT(parametersOf(copy), ElementsAre("/A|p=1", "/A|q=2", "/B|p=1", "/B|q=%2 3", "/C|p=1"));
    EXPECT_THAT(parametersOf(second), ElementsAre("/A|p=1", "/A|q=2"));
}

TEST_F(AFollower, ReadsAgainWhenAFileThatWasMissingIsThere)
{
    EXPECT_THAT(identifiersOf(read()), ElementsAre("file-unreadable"));
    EXPECT_THAT(parametersOf(read("[/A]\np = 1\n")), ElementsAre("/A|p=1"));
    EXPECT_THAT(identifiersOf(read(std::string("\0", 1))), ElementsAre("file-binary"));
    EXPECT_THAT(parametersOf(read("[/A]\np = 1\n")), ElementsAre("/A|p=1"));
}

// Counted, not timed: with quadratic cost this would not come to an end while somebody waits.
TEST_F(AFollower, ReadsAHundredThousandEqualSections)
{
    std::string text;
    for (int number = 0; number < 100'000; ++number)
        text += "[/A]\n";
    m_folder.write("main.qcl", text + "p = 1\n");
    m_follower.read();
    m_folder.write("main.qcl", "p = 2\n" + text + "p = 2\n");
    m_follower.read();
    EXPECT_EQ(m_follower.sectionsParsed(), 2U);
}

/// A case of several files that somebody edits at random.
class EditedCase {
public:
    explicit EditedCase(std::uint32_t p_seed) : m_random(p_seed)
    {
        for (const char* name : {"main.qcl", "a.qcl", "b.qcl"})
            for (std::size_t line = 0; line < 12; ++line)
                m_files[name].push_back(anyLine());
    }

    /// Changes one of the files and writes those that are different.
    void edit()
    {
        std::vector<std::string>& lines = m_files[oneOf({"main.qcl", "main.qcl", "a.qcl", "b.qcl"})];
        const std::size_t at = below(lines.size() + 1);
        const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(at);
        const std::size_t count = std::min(below(6), lines.size() - at);
        const std::vector<std::string> stretch(begin, begin + static_cast<std::ptrdiff_t>(count));
        switch (below(6))
        {
        case 0:
            lines.insert(begin, anyLine());
            break;
        case 1:
            lines.erase(begin, begin + static_cast<std::ptrdiff_t>(lines.size() > 8 ? count : 0));
            break;
        case 2:
            for (std::size_t line = at; line < at + count; ++line)
                lines[line] = anyLine();
            break;
        case 3:    // moved, within its file or into another
            lines.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
            insert(m_files[oneOf({"main.qcl", "a.qcl", "b.qcl"})], stretch);
            break;
        case 4:    // given twice
            if (lines.size() < 40)
                insert(lines, stretch);
            break;
        case 5:
            m_lineEnd = oneOf({"\n", "\n", "\n", "\r\n"});
            m_begin = oneOf({"", "", "\xEF\xBB\xBF"});
            m_hasLastLineEnd = below(4) != 0;
            break;
        }
        write();
    }

    void write() const
    {
        for (const auto& [name, lines] : m_files)
        {
            std::string text = m_begin;
            for (const std::string& line : lines)
                text += line + m_lineEnd;
            if (!m_hasLastLineEnd && !lines.empty())
                text.resize(text.size() - m_lineEnd.size());
            m_folder.write(name, text);
        }
    }

    std::string path() const { return m_folder.path("main.qcl"); }

private:
    std::size_t below(std::size_t p_end)
    {
        return std::uniform_int_distribution<std::size_t>(0, p_end - 1)(m_random);
    }

    std::string oneOf(std::initializer_list<const char*> p_texts)
    {
        return p_texts.begin()[below(p_texts.size())];
    }

    void insert(std::vector<std::string>& p_lines, const std::vector<std::string>& p_stretch)
    {
        p_lines.insert(p_lines.begin() + static_cast<std::ptrdiff_t>(below(p_lines.size() + 1)),
                       p_stretch.begin(), p_stretch.end());
    }

    std::string anyLine()
    {
        switch (below(12))
        {
        case 0:
        case 1:
        case 2:
            return "[/" + oneOf({"A", "B", "C:x", "C:y", "D", "E"}) + "]";
        case 3:
            return oneOf({"[/A", "[/A] b", "[A]", "  [ /A ]  ", "[/A:]", "[]", "[/B]\x01"});
        case 4:
            return oneOf({"include \"a.qcl\"", "include \"b.qcl\"", "  include\"b.qcl\" ",
                          "include \"main.qcl\"", "include \"none.qcl\"", "include \"a.qcl", "include",
                          "include = 1", "# include"});
        case 5:
            return oneOf({"", "  ", "# a comment", "# no end \\", "nonsense", "nonsense \\", "\\", " 2 \\",
                          "= 4", "p/q = 1", "\xFF", "# \xFF", "p = \xFF \\", "p = %2 %3 %4 %5 %2"});
        case 6:
            return oneOf({"p", "q"}) + " = " + oneOf({"1", "", "x,"}) + " \\";
        default:
            return oneOf({"", " ", "\t"}) + oneOf({"p", "q", "r", "s", "t"}) + oneOf({" = ", "=", "  ="}) +
                   oneOf({"1", "2 [m]", "a = b", "", "\xC3\xA4", "%2"});
        }
    }

    const TemporaryFolder m_folder;
    std::mt19937 m_random;
    std::map<std::string, std::vector<std::string>> m_files;
    std::string m_lineEnd = "\n";
    std::string m_begin;
    bool m_hasLastLineEnd = true;
};

class AnEditedCase : public testing::TestWithParam<std::uint32_t> {};

TEST_P(AnEditedCase, IsReadByAFollowerAsItIsReadAnew)
{
    EditedCase edited(GetParam());
    edited.write();
    QclLimits limits;
    limits.problems = GetParam() % 2 == 0 ? 10000 : 12;
    limits.includedFiles = 20;
    limits.valueBytes = 10;
    QclFollower follower(edited.path(), limits);

    std::map<std::uint64_t, std::vector<std::string>> contents;    // of every reading, by number
    std::size_t parsed = 0;
    std::set<std::string> identifiers;
    for (int edit = 0; edit < 500; ++edit)
    {
        const QclDocument document = follower.read();
        ASSERT_EQ(textOf(document), textOf(readQclFile(edited.path(), limits))) << "after edit " << edit;
        parsed += follower.sectionsParsed();
        for (const QclObject& object : document.objects)
            if (object.content != 0)
            {
                const auto [known, isNew] = contents.try_emplace(object.content, contentOf(object));
                ASSERT_EQ(known->second, contentOf(object)) << object.path << " after edit " << edit;
            }
        for (const Diagnostic& problem : document.problems)
            identifiers.insert(problem.identifier);
        edited.edit();
    }
    EXPECT_LT(parsed, 500U * 6U);
    EXPECT_GE(identifiers.size(), 12U);    // the edits go through what can be wrong
}

INSTANTIATE_TEST_SUITE_P(AtRandom, AnEditedCase, testing::Range(1U, 5U));

}    // namespace
}    // namespace qen::standalone
