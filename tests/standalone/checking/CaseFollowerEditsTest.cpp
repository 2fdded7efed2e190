#include "checking/CaseFollower.h"

#include "checking/CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace qen::standalone {
namespace {

using Lines = std::vector<std::string>;

const Definitions& shipped()
{
    static const Definitions definitions({QENCHECK_PROJECT "/definitions"});
    return definitions;
}

Lines linesOf(const std::string& p_example)
{
    Lines lines;
    std::ifstream file(QENCHECK_PROJECT "/examples/" + p_example);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

std::string textOf(const Lines& p_lines)
{
    std::string text;
    for (const std::string& line : p_lines)
        text.append(line).append("\n");
    return text;
}

/// Edits a case as people do: they change values, take lines away and bring them back, move and rename.
class Editor {
public:
    Editor(Lines p_original, unsigned p_seed)
        : m_original(std::move(p_original)), m_lines(m_original), m_random(p_seed)
    {}

    const Lines& lines() const { return m_lines; }

    void edit()
    {
        if (below(12) == 0)    // so that the case does not fall apart
            m_lines = m_original;
        switch (below(10))
        {
        case 0:
        case 1:
            return swapValue();
        case 2:
            return eraseLine();
        case 3:
            return bringBack();
        case 4:
            return eraseSection();
        case 5:
            return moveSection();
        case 6:
            return renameInHeader();
        case 7:
            return renameEverywhere();
        case 8:
            return changeSetting();
        default:
            return spoilValue();
        }
    }

private:
    std::size_t below(std::size_t p_limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, p_limit - 1)(m_random);
    }

    static bool isParameter(const std::string& p_line) { return p_line.find(" = ") != std::string::npos; }
    static bool isHeader(const std::string& p_line) { return p_line.starts_with('['); }

    /// The number of a line of a kind; of any line when there is none.
    std::size_t anyLine(const Lines& p_lines, bool (*p_isKind)(const std::string&))
    {
        const std::size_t from = below(p_lines.size());
        for (std::size_t i = 0; i < p_lines.size(); ++i)
            if (const std::size_t at = (from + i) % p_lines.size(); p_isKind(p_lines[at]))
                return at;
        return from;
    }

    static std::string& setValue(std::string& p_line, const std::string& p_value)
    {
        return p_line.replace(p_line.find(" = ") + 3, std::string::npos, p_value);
    }

    static std::string valueOf(const std::string& p_line) { return p_line.substr(p_line.find(" = ") + 3); }

    void swapValue()
    {
        std::string& line = m_lines[anyLine(m_lines, isParameter)];
        const std::string& other = m_original[anyLine(m_original, isParameter)];
        if (isParameter(line) && isParameter(other))
            setValue(line, valueOf(other));
    }

    void eraseLine()
    {
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(anyLine(m_lines, isParameter)));
    }

    void bringBack()
    {
        const std::size_t at = std::min(below(m_original.size()), m_lines.size());
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at),
                       m_original[below(m_original.size())]);
    }

    std::pair<std::size_t, std::size_t> anySection()
    {
        const std::size_t begin = anyLine(m_lines, isHeader);
        std::size_t end = begin + 1;
        while (end < m_lines.size() && !isHeader(m_lines[end]))
            ++end;
        return {begin, end};
    }

    void eraseSection()
    {
        const auto [begin, end] = anySection();
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(begin),
                      m_lines.begin() + static_cast<std::ptrdiff_t>(end));
        if (m_lines.size() < 20)
            m_lines = m_original;
    }

    void moveSection()
    {
        const auto [begin, end] = anySection();
        const Lines section(m_lines.begin() + static_cast<std::ptrdiff_t>(begin),
                            m_lines.begin() + static_cast<std::ptrdiff_t>(end));
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(begin),
                      m_lines.begin() + static_cast<std::ptrdiff_t>(end));
        if (m_lines.empty())
            m_lines = m_original;
        const std::size_t to = anyLine(m_lines, isHeader);
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(to), section.begin(), section.end());
    }

    /// A name behind a ':' of some header; empty when that has none.
    std::string anyName()
    {
        const std::string& header = m_lines[anyLine(m_lines, isHeader)];
        const std::size_t colon = header.rfind(':');
        if (colon == std::string::npos)
            return {};
        return header.substr(colon + 1, header.find_first_of("/]", colon) - colon - 1);
    }

    void renameInHeader()
    {
        const std::string other = anyName();
        std::string& header = m_lines[anyLine(m_lines, isHeader)];
        const std::size_t colon = header.find(':');
        if (colon != std::string::npos && !other.empty())
            header.replace(colon + 1, header.find_first_of("/]", colon) - colon - 1, other);
    }

    void renameEverywhere()
    {
        const std::string name = anyName();
        if (name.empty())
            return;
        for (std::string& line : m_lines)
            for (std::size_t at = line.find(name); at != std::string::npos;
                 at = line.find(name, at + name.size() + 1))
                line.insert(at, "q");
    }

    void changeSetting()
    {
        const auto isOption = [](const std::string& p_line) { return p_line.starts_with("Option = "); };
        std::string& line = m_lines[anyLine(m_lines, isOption)];
        const std::string& other = m_original[anyLine(m_original, isOption)];
        if (isOption(line) && isOption(other))
            line = other;
    }

    void spoilValue()
    {
        std::string& line = m_lines[anyLine(m_lines, isParameter)];
        const char* const spoilers[] {" + 1", " [K]", "x", " * (", ", 3", "@Nowhere"};
        line += spoilers[below(std::size(spoilers))];
    }

    Lines m_original;
    Lines m_lines;
    std::mt19937 m_random;
};

auto asTuple(const Finding& p_finding)
{
    return std::tuple(p_finding.severity, p_finding.identifier, p_finding.message, p_finding.file,
                      p_finding.line, p_finding.column, p_finding.length, p_finding.lineText);
}

std::string described(const CaseReport& p_report)
{
    std::string text;
    for (const Finding& finding : p_report.findings)
        text += std::to_string(finding.line) + ":" + std::to_string(finding.column) + " [" +
                finding.identifier + "] " + finding.message + "\n";
    return text;
}

bool areEqual(const CaseReport& p_a, const CaseReport& p_b)
{
    return p_a.parameters == p_b.parameters && p_a.internalError == p_b.internalError &&
           std::ranges::equal(p_a.findings, p_b.findings, {}, asTuple, asTuple);
}

class EditedExample : public testing::TestWithParam<const char*> {};

// 250 edits of each of four cases.
TEST_P(EditedExample, IsReportedAsByAFreshCheckAfterEachEdit)
{
    Editor editor(linesOf(GetParam()), 1);
    CaseFollower follower(shipped());
    follower.update(readQclText("case.qcl", textOf(editor.lines())));

    std::size_t withFindings = 0;
    std::size_t checkedAgain = 0;
    std::size_t parameters = 0;
    for (int i = 0; i < 250; ++i)
    {
        const Lines before = editor.lines();
        editor.edit();
        const std::string text = textOf(editor.lines());
        const CaseReport followed = follower.update(readQclText("case.qcl", text));
        const CaseReport fresh = checkCase(readQclText("case.qcl", text), shipped());

        withFindings += fresh.findings.empty() ? 0U : 1U;
        checkedAgain += follower.checked().size();
        parameters += fresh.parameters;
        if (areEqual(followed, fresh))
            continue;
        std::ofstream(testing::TempDir() + "/before.qcl") << textOf(before);
        std::ofstream(testing::TempDir() + "/after.qcl") << text;
        FAIL() << "edit " << i << " of " << GetParam() << ", see " << testing::TempDir() << "\nfollowed:\n"
               << described(followed) << "fresh:\n"
               << described(fresh);
    }
    EXPECT_GT(withFindings, 200U);
    EXPECT_LT(checkedAgain, parameters / 3);
}

INSTANTIATE_TEST_SUITE_P(Shipped, EditedExample,
                         testing::Values("pump.qcl", "mixing-vessel.qcl", "burner.qcl", "bubble-column.qcl"),
                         [](const testing::TestParamInfo<const char*>& p_info) {
                             std::string name(p_info.param);
                             std::erase_if(name, [](char p_character) {
                                 return p_character == '-' || p_character == '.';
                             });
                             return name;
                         });

}    // namespace
}    // namespace qen::standalone
