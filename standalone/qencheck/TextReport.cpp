#include "TextReport.h"

#include "LineExcerpt.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include <unistd.h>

namespace qencheck {

using qen::standalone::CaseReport;
using qen::standalone::Finding;
using qen::standalone::Severity;

namespace {

constexpr std::size_t k_excerptWidth = 160;    // characters

constexpr const char* k_bold = "1";
constexpr const char* k_green = "1;32";

struct SeverityStyle {
    const char* word;
    const char* colour;
};

SeverityStyle styleOf(Severity p_severity)
{
    switch (p_severity)
    {
    case Severity::Error:
        return {"error", "1;31"};
    case Severity::Warning:
        return {"warning", "1;35"};
    case Severity::Note:
        break;
    }
    return {"note", "1;36"};
}

std::string placeOf(const Finding& p_finding)
{
    if (p_finding.file.empty())
        return "qencheck";
    if (p_finding.line == 0)
        return p_finding.file;
    return fmt::format("{}:{}:{}", p_finding.file, p_finding.line,
                       characterColumn(p_finding.lineText, p_finding.column));
}

std::size_t countOf(const CaseReport& p_report, Severity p_severity)
{
    return static_cast<std::size_t>(
        std::count_if(p_report.findings.begin(), p_report.findings.end(),
                      [&](const Finding& p_finding) { return p_finding.severity == p_severity; }));
}

}    // namespace

Colour colourOf(std::FILE* p_stream, const std::string& p_choice)
{
    if (p_choice != "auto")
        return p_choice == "always" ? Colour::On : Colour::Off;

    const char* noColour = std::getenv("NO_COLOR");
    const bool forbidden = noColour && *noColour;
    return !forbidden && isatty(fileno(p_stream)) == 1 ? Colour::On : Colour::Off;
}

TextReport::TextReport(std::FILE* p_stream, const std::string& p_colour)
    : TextReport(p_stream, colourOf(p_stream, p_colour))
{}

void TextReport::write(const std::vector<Finding>& p_findings) const
{
    for (const Finding& finding : p_findings)
        write(finding);
}

void TextReport::write(const Finding& p_finding, const std::string& p_mark) const
{
    writeMessage(p_finding, p_mark);
    if (p_finding.line != 0)
        writeExcerpt(p_finding);
}

void TextReport::writeMessage(const Finding& p_finding, const std::string& p_mark) const
{
    const SeverityStyle style = styleOf(p_finding.severity);
    fmt::print(m_stream, "{}{} {} {} [{}]\n", p_mark, coloured(k_bold, placeOf(p_finding) + ":"),
               coloured(style.colour, std::string(style.word) + ":"), p_finding.message,
               p_finding.identifier);
}

void TextReport::writeExcerpt(const Finding& p_finding) const
{
    const LineExcerpt shown = excerpt(p_finding.lineText, p_finding.column, p_finding.length, k_excerptWidth);
    fmt::print(m_stream, "{:>5} | {}\n", p_finding.line, shown.text);
    fmt::print(m_stream, "      | {}\n", coloured(k_green, shown.underline));
}

void TextReport::writeSummary(const std::string& p_caseFile, const CaseReport& p_report,
                              const std::string& p_remark) const
{
    fmt::print(m_stream, "{}: {} checked: {}{}\n", p_caseFile, counted(p_report.parameters, "parameter"),
               found(p_report), p_remark);
}

std::string TextReport::found(const CaseReport& p_report) const
{
    const std::size_t errors = countOf(p_report, Severity::Error);
    const std::size_t warnings = countOf(p_report, Severity::Warning);
    return errors + warnings == 0 ? coloured(k_green, "no problems")
                                  : counted(errors, "error") + ", " + counted(warnings, "warning");
}

std::string TextReport::coloured(const char* p_code, const std::string& p_text) const
{
    return m_colour == Colour::On ? fmt::format("\x1b[{}m{}\x1b[0m", p_code, p_text) : p_text;
}

std::string counted(std::size_t p_count, const char* p_word)
{
    return fmt::format("{} {}{}", p_count, p_word, p_count == 1 ? "" : "s");
}

}    // namespace qencheck
