#pragma once

#include "definitions/Finding.h"
#include "qcl/QclDocument.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qencheck {

/// A finding, and what it is about in words that stay when lines are inserted before it.
struct ReportedFinding {
    qen::standalone::Finding finding;
    /// The object and parameter on the finding's line, the object in the case of its header, else the line's text.
    std::string subject;
};

/// Findings of a document with what they are about.
std::vector<ReportedFinding> withSubjects(std::vector<qen::standalone::Finding> p_findings,
                                          const qen::standalone::QclDocument& p_document);

/// Findings about texts that are no longer there: they are about the text of their lines.
std::vector<ReportedFinding> withLinesAsSubjects(std::vector<qen::standalone::Finding> p_findings);

/// How a report differs from the one before.
struct ReportDifference {
    std::vector<bool> isNew;    ///< of each finding of the later report
    std::vector<std::size_t>
        gone;                    ///< numbers of the findings of the earlier report that are no longer there
    std::size_t appeared = 0;    ///< how many are new
};

/// Compares two reports. A finding stands when severity, identifier, message and subject are the same, wherever it is. Of
/// findings that are alike as many stand as both reports have; the others, the last ones, are new or gone.
ReportDifference difference(const std::vector<ReportedFinding>& p_before,
                            const std::vector<ReportedFinding>& p_now);

}    // namespace qencheck
