#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace qencheck_test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string k_museum = "examples/messages";
const std::string k_project = QENCHECK_PROJECT;

std::string inMuseum(const std::string& p_name) { return k_project + "/" + k_museum + "/" + p_name; }

std::set<std::string> folders()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(inMuseum("")))
        if (entry.is_directory())
            names.insert(entry.path().filename().string());
    return names;
}

std::set<std::string> namesIn(const std::string& p_folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(inMuseum(p_folder)))
        names.insert(entry.path().filename().string());
    return names;
}

std::vector<std::string> linesOf(const std::string& p_text)
{
    std::vector<std::string> lines;
    std::istringstream text(p_text);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

/// A message as the documentation of messages has it.
struct Message {
    bool isWarning = false;
    std::string text;    // with placeholders
};

/// By their identifiers. Each has a headline "## identifier", a line that begins with its level, and a block of text.
const std::map<std::string, Message>& messages()
{
    static const std::map<std::string, Message> k_messages = [] {
        std::map<std::string, Message> found;
        Message* message = nullptr;
        bool isInText = false;
        for (const std::string& line : linesOf(readFile(k_project + "/docs/messages.md")))
        {
            if (line.starts_with("## "))
                message = &found[line.substr(3)];
            else if (line == "```")
                isInText = !isInText;
            else if (isInText)
                message->text += (message->text.empty() ? "" : "\n") + line;
            else if (message && line.starts_with("Warning."))
                message->isWarning = true;
        }
        return found;
    }();
    return k_messages;
}

/// The reasons why messages have no case: rows "| `identifier` | reason |" of the museum's table.
std::map<std::string, std::string> reasons()
{
    std::map<std::string, std::string> found;
    const std::regex row("\\| `([a-z-]+)` \\| (.*) \\|");
    for (const std::string& line : linesOf(readFile(inMuseum("README.md"))))
    {
        std::smatch match;
        if (std::regex_match(line, match, row))
            found[match[1]] = match[2];
    }
    return found;
}

Outcome checkCase(const std::string& p_identifier, const std::string& p_case)
{
    const std::string folder = k_museum + "/" + p_identifier;
    std::vector<std::string> arguments {"check"};
    if (std::filesystem::exists(inMuseum(p_identifier + "/definitions")))
        arguments.insert(arguments.end(),
                         {"--definitions", "definitions", "--definitions", folder + "/definitions"});
    arguments.push_back(folder + "/" + p_case);
    return qencheck(arguments);
}

/// The identifiers of a report's findings, each as often as it is found.
std::vector<std::string> findings(const std::string& p_report)
{
    // A finding begins with its place and ends with its identifier; its message may have several lines.
    static const std::regex k_begin("[^:]+:[0-9]+:[0-9]+: (error|warning): .*");
    static const std::regex k_end(".* \\[([a-z-]+)\\]");
    std::vector<std::string> identifiers;
    bool isInside = false;
    for (const std::string& line : linesOf(p_report))
    {
        isInside = isInside || std::regex_match(line, k_begin);
        std::smatch match;
        if (isInside && std::regex_match(line, match, k_end))
        {
            identifiers.push_back(match[1]);
            isInside = false;
        }
    }
    return identifiers;
}

/// Whether a report says what a message says, with any values in place of its placeholders.
bool saysTextOf(const std::string& p_report, const std::string& p_template)
{
    static const std::regex k_placeholder("%[1-9]");
    std::size_t at = 0;
    std::sregex_token_iterator fixedText(p_template.begin(), p_template.end(), k_placeholder, -1);
    for (; fixedText != std::sregex_token_iterator(); ++fixedText)
    {
        at = p_report.find(*fixedText, at);
        if (at == std::string::npos)
            return false;
        at += static_cast<std::size_t>(fixedText->length());
    }
    return true;
}

/// What is left of two texts without the lines that they have in common at the beginning and at the end.
struct Difference {
    std::vector<std::string> left;
    std::vector<std::string> right;
};

Difference difference(const std::string& p_left, const std::string& p_right)
{
    Difference lines {linesOf(p_left), linesOf(p_right)};
    auto& [left, right] = lines;
    const auto first = std::ranges::mismatch(left, right);
    left.erase(left.begin(), first.in1);
    right.erase(right.begin(), first.in2);
    while (!left.empty() && !right.empty() && left.back() == right.back())
    {
        left.pop_back();
        right.pop_back();
    }
    return lines;
}

std::string testName(const testing::TestParamInfo<std::string>& p_info)
{
    std::string name;
    bool isFirstOfWord = true;
    for (const char letter : p_info.param)
    {
        if (letter != '-')
            name += isFirstOfWord ? static_cast<char>(letter - 'a' + 'A') : letter;
        isFirstOfWord = letter == '-';
    }
    return name;
}

TEST(MessageMuseum, HasAFolderOrAReasonForEveryMessageAndForNothingElse)
{
    const std::set<std::string> named = folders();
    std::multiset<std::string> shown(named.begin(), named.end());
    for (const auto& [identifier, reason] : reasons())
    {
        shown.insert(identifier);
        EXPECT_THAT(reason, Not(IsEmpty())) << identifier;
    }

    std::multiset<std::string> all;
    for (const auto& [identifier, message] : messages())
        all.insert(identifier);
    EXPECT_THAT(all, Not(IsEmpty()));
    EXPECT_EQ(shown, all);
}

class MuseumPiece : public testing::TestWithParam<std::string> {};

TEST_P(MuseumPiece, ConsistsOfACaseItsReportItsCorrectionAndAtMostDefinitions)
{
    std::set<std::string> names = namesIn(GetParam());
    EXPECT_TRUE(names.erase("definitions") == 0 || !namesIn(GetParam() + "/definitions").empty());

    EXPECT_EQ(names, (std::set<std::string> {"report.txt", "right.qcl", "wrong.qcl"}));
}

TEST_P(MuseumPiece, RaisesItsMessageAloneAndGivesItsReport)
{
    // Given the level and the text of the message
    const auto& [isWarning, text] = messages().at(GetParam());

    // When the wrong case is checked
    const Outcome run = checkCase(GetParam(), "wrong.qcl");

    // Then there is this one finding
    EXPECT_EQ(run.status, isWarning ? 0 : 1);
    EXPECT_EQ(run.out, readFile(inMuseum(GetParam() + "/report.txt")));
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(findings(run.out), std::vector {GetParam()});
    EXPECT_THAT(run.out,
                HasSubstr(isWarning ? " checked: 0 errors, 1 warning\n" : " checked: 1 error, 0 warnings\n"));
    EXPECT_TRUE(saysTextOf(run.out, text)) << text;
}

TEST_P(MuseumPiece, IsCleanOnceCorrected)
{
    const Outcome run = checkCase(GetParam(), "right.qcl");

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(findings(run.out), IsEmpty());
    EXPECT_THAT(run.out, HasSubstr(" checked: no problems\n"));
    EXPECT_EQ(run.error, "");
}

TEST_P(MuseumPiece, IsCorrectedInOneLine)
{
    const Difference lines = difference(readFile(inMuseum(GetParam() + "/wrong.qcl")),
                                        readFile(inMuseum(GetParam() + "/right.qcl")));

    EXPECT_EQ(std::max(lines.left.size(), lines.right.size()), 1U)
        << testing::PrintToString(lines.left) << "\nagainst\n"
        << testing::PrintToString(lines.right);
}

TEST_P(MuseumPiece, BeginsByExplainingTheMistakeInOneOrTwoLines)
{
    const std::vector<std::string> lines = linesOf(readFile(inMuseum(GetParam() + "/wrong.qcl")));

    const auto end =
        std::ranges::find_if_not(lines, [](const std::string& p_line) { return p_line.starts_with("# "); });

    EXPECT_THAT(end - lines.begin(), testing::AllOf(testing::Ge(1), testing::Le(2)));
    EXPECT_TRUE(end != lines.end() && end->empty()) << "expected an empty line below the comment";
}

TEST_P(MuseumPiece, SaysWhyItNeedsDefinitionsOfItsOwn)
{
    if (!namesIn(GetParam()).contains("definitions"))
        return;

    for (const std::string& name : namesIn(GetParam() + "/definitions"))
        EXPECT_THAT(readFile(inMuseum(GetParam() + "/definitions/" + name)), testing::StartsWith("# "))
            << name;
}

INSTANTIATE_TEST_SUITE_P(Of, MuseumPiece, testing::ValuesIn(folders()), testName);

}    // namespace
}    // namespace qencheck_test
