#pragma once

#include "checking/CaseChecker.h"
#include "definitions/Finding.h"

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

    /// The closing line of one case.
    void writeSummary(const std::string& p_caseFile, const qen::standalone::CaseReport& p_report) const;

private:
    void write(const qen::standalone::Finding& p_finding) const;
    void writeExcerpt(const qen::standalone::Finding& p_finding) const;
    std::string coloured(const char* p_code, const std::string& p_text) const;

    std::FILE* m_stream;
    Colour m_colour;
};

}    // namespace qencheck
