#pragma once

#include "checking/CaseChecker.h"
#include "definitions/Finding.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace qencheck {

/// Whether a report uses colours.
enum class Colour { Off, On };

/// @param p_choice  "always", "never", or "auto": on a terminal, unless the environment has NO_COLOR.
Colour colourOf(std::FILE* p_stream, const std::string& p_choice);

/// Writes findings for a person: place, severity, message and identifier, then the line with the place underlined.
class TextReport {
public:
    TextReport(std::FILE* p_stream, Colour p_colour) : m_stream(p_stream), m_colour(p_colour) {}

    /// @param p_colour  As for `colourOf`.
    TextReport(std::FILE* p_stream, const std::string& p_colour);

    void write(const std::vector<qen::standalone::Finding>& p_findings) const;

    /// One finding.
    ///
    /// @param p_mark  Stands before its place; as it shall show, colours and the blank behind it included.
    void write(const qen::standalone::Finding& p_finding, const std::string& p_mark = {}) const;

    /// A finding without its line of text, which may be gone.
    void writeMessage(const qen::standalone::Finding& p_finding, const std::string& p_mark = {}) const;

    /// The closing line of one case.
    ///
    /// @param p_remark  Stands behind it.
    void writeSummary(const std::string& p_caseFile, const qen::standalone::CaseReport& p_report,
                      const std::string& p_remark = {}) const;

    /// What was found, in words: "2 errors, 0 warnings", or "no problems".
    std::string found(const qen::standalone::CaseReport& p_report) const;

    /// A text in a colour of the terminal, if the report uses colours.
    ///
    /// @param p_code  As in "1;31" for a bold red.
    std::string coloured(const char* p_code, const std::string& p_text) const;

private:
    void writeExcerpt(const qen::standalone::Finding& p_finding) const;

    std::FILE* m_stream;
    Colour m_colour;
};

/// A number with its word: "1 error", "2 errors".
std::string counted(std::size_t p_count, const char* p_word);

}    // namespace qencheck
