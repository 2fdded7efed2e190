#include "WatchReport.h"
#include "ReportDifference.h"

#include "qcl/QclReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qencheck {
namespace {

using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::readQclText;
using qen::standalone::Severity;
using testing::ElementsAre;
using testing::IsEmpty;

/// A finding on a line of a text.
struct OnLine {
    std::uint32_t line = 1;
    std::string message = "wrong";
    std::string identifier = "some-identifier";
    Severity severity = Severity::Error;
};

std::vector<ReportedFinding> report(const std::string& p_text, const std::vector<OnLine>& p_findings)
{
    const QclDocument document = readQclText("case.qcl", p_text);
    std::vector<Finding> findings;
    for (const OnLine& finding : p_findings)
        findings.push_back(toFinding(
            {finding.severity, finding.identifier, finding.message, {0, finding.line, 1}, 1}, document));
    return withSubjects(findings, document);
}

constexpr const char* k_text = "[/A:a]\n"
                               "P = 1\n"
                               "Q = 2 + \\\n"
                               "    3 + \\\n"
                               "    4\n"
                               "# comment\n"
                               "[/A:b]\n"
                               "P = 1\n";

TEST(FindingSubject, IsTheParameterOnAnyOfItsLines)
{
    const std::vector<ReportedFinding> reported = report(k_text, {{2}, {3}, {5}, {8}});

    EXPECT_EQ(reported[0].subject, "/A:a\nP");
    EXPECT_EQ(reported[1].subject, "/A:a\nQ");
    EXPECT_EQ(reported[2].subject, "/A:a\nQ");
    EXPECT_EQ(reported[3].subject, "/A:b\nP");
}

TEST(FindingSubject, IsTheObjectOnItsHeader) { EXPECT_EQ(report(k_text, {{7}})[0].subject, "/A:b"); }

TEST(FindingSubject, IsTheTextOfALineThatIsNeither)
{
    EXPECT_EQ(report(k_text, {{6}})[0].subject, "# comment");
    EXPECT_EQ(report(k_text, {{0}})[0].subject, "");    // the file as a whole
}

TEST(FindingSubject, KeepsTheOrderOfFindingsThatAreNotInTheOrderOfLines)
{
    const std::vector<ReportedFinding> reported = report(k_text, {{8}, {2}, {8}});

    EXPECT_EQ(reported[0].subject, "/A:b\nP");
    EXPECT_EQ(reported[1].subject, "/A:a\nP");
    EXPECT_EQ(reported[2].subject, "/A:b\nP");
}

TEST(ReportDifference, IsNothingBetweenAReportAndItself)
{
    const ReportDifference changes = difference(report(k_text, {{2}, {8}}), report(k_text, {{2}, {8}}));

    EXPECT_THAT(changes.isNew, ElementsAre(false, false));
    EXPECT_THAT(changes.gone, IsEmpty());
    EXPECT_EQ(changes.appeared, 0U);
}

TEST(ReportDifference, TellsWhatIsNewAndWhatIsGone)
{
    const ReportDifference changes =
        difference(report(k_text, {{2}, {3}, {8}}), report(k_text, {{1}, {3}, {7}}));

    EXPECT_THAT(changes.isNew, ElementsAre(true, false, true));
    EXPECT_THAT(changes.gone, ElementsAre(0U, 2U));
    EXPECT_EQ(changes.appeared, 2U);
}

TEST(ReportDifference, DoesNotMindWhereAFindingStands)
{
    const ReportDifference changes =
        difference(report(k_text, {{2}, {8}}),
                   report(std::string("# one line\n[/A:c]\n# more\n") + k_text, {{5}, {11}}));

    EXPECT_THAT(changes.isNew, ElementsAre(false, false));
    EXPECT_THAT(changes.gone, IsEmpty());
}

TEST(ReportDifference, DoesNotMindWhatElseIsWrittenOnTheLineOfAParameter)
{
    const ReportDifference changes =
        difference(report("[/A]\nP = 1\n", {{2}}), report("[/A]\nP   = 2 \n", {{2}}));

    EXPECT_THAT(changes.isNew, ElementsAre(false));
    EXPECT_THAT(changes.gone, IsEmpty());
}

struct Difference {
    const char* name;
    OnLine other;
};

class ReportDifferenceOf : public testing::TestWithParam<Difference> {};

TEST_P(ReportDifferenceOf, MakesTwoFindings)
{
    const ReportDifference changes =
        difference(report(k_text, {OnLine {2}}), report(k_text, {GetParam().other}));

    EXPECT_THAT(changes.isNew, ElementsAre(true));
    EXPECT_THAT(changes.gone, ElementsAre(0U));
}

INSTANTIATE_TEST_SUITE_P(All, ReportDifferenceOf,
                         testing::Values(Difference {"Severity",
                                                     {2, "wrong", "some-identifier", Severity::Warning}},
                                         Difference {"Identifier", {2, "wrong", "other-identifier"}},
                                         Difference {"Message", {2, "otherwise"}},
                                         Difference {"Parameter", {3}}, Difference {"Object", {8}}),
                         [](const auto& p_info) { return std::string(p_info.param.name); });

TEST(ReportDifference, CountsFindingsThatAreAlike)
{
    const ReportDifference more = difference(report(k_text, {{2}}), report(k_text, {{2}, {2}, {2}}));
    EXPECT_THAT(more.isNew, ElementsAre(false, true, true));
    EXPECT_THAT(more.gone, IsEmpty());

    const ReportDifference fewer = difference(report(k_text, {{2}, {2}, {2}}), report(k_text, {{2}}));
    EXPECT_THAT(fewer.isNew, ElementsAre(false));
    EXPECT_THAT(fewer.gone, ElementsAre(1U, 2U));
}

TEST(ReportDifference, OfFindingsWithoutADocumentGoesByTheTextOfTheirLines)
{
    Finding finding;
    finding.message = "wrong";
    finding.line = 3;
    finding.lineText = "Status = ?";
    Finding moved = finding;
    moved.line = 4;
    Finding other = finding;
    other.lineText = "Status = !";

    const ReportDifference changes =
        difference(withLinesAsSubjects({finding}), withLinesAsSubjects({moved, other}));

    EXPECT_THAT(changes.isNew, ElementsAre(false, true));
}

struct Words {
    const char* name;
    std::vector<SavedFile> files;
    const char* text;
};

class SavedFilesInWords : public testing::TestWithParam<Words> {};

TEST_P(SavedFilesInWords, AreNamedUpToThree) { EXPECT_EQ(inWords(GetParam().files), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    All, SavedFilesInWords,
    testing::Values(Words {"One", {{"a"}}, "a saved"}, Words {"Two", {{"a"}, {"b"}}, "a and b saved"},
                    Words {"Three", {{"a"}, {"b"}, {"c"}}, "a, b and c saved"},
                    Words {"Five", {{"a"}, {"b"}, {"c"}, {"d"}, {"e"}}, "a, b, c and 2 more saved"},
                    Words {"Gone", {{"a", false}}, "a gone"},
                    Words {
                        "Both", {{"a"}, {"b", false}, {"c"}, {"d", false}}, "a and c saved, b and d gone"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

}    // namespace
}    // namespace qencheck
