#pragma once

#include "FileWatch.h"
#include "ReportDifference.h"
#include "TextReport.h"

#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace qencheck {

/// What `qencheck watch` writes, beside the report that `check` writes as well.
class WatchReport {
public:
    /// @param p_colour  As for `colourOf`.
    WatchReport(std::FILE* p_stream, const std::string& p_colour)
        : m_stream(p_stream), m_text(p_stream, p_colour)
    {}

    const TextReport& text() const { return m_text; }

    /// The line that heads what a save brought about: when, which files, and what came of it.
    ///
    /// @param p_outcome  As in "2 of 40 parameters checked again"; may be empty.
    void writeHead(std::time_t p_when, const std::vector<SavedFile>& p_saved,
                   const std::string& p_outcome) const;

    /// All findings, the new ones marked, and behind them those that are gone.
    ///
    /// @return What to say about it in the summary: " (1 new, 2 gone)".
    std::string writeFindings(const std::vector<ReportedFinding>& p_before,
                              const std::vector<ReportedFinding>& p_now) const;

    void writeLine(const std::string& p_line) const;

    /// Hands everything on to whoever reads it.
    ///
    /// @return False when it could not be written.
    bool flush() const { return std::fflush(m_stream) == 0; }

private:
    std::FILE* m_stream;
    TextReport m_text;
};

/// The files that were saved and those that are gone, in words. After the third their number must do.
std::string inWords(const std::vector<SavedFile>& p_saved);

}    // namespace qencheck
