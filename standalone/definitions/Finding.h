#pragma once

#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <string>
#include <vector>

namespace qen::standalone {

/// A diagnostic that stands on its own: it carries the names and the line that a report shows, so that it outlives the
/// document.
struct QEN_STANDALONE_API Finding {
    Severity severity = Severity::Error;
    std::string identifier;
    std::string message;
    std::string file;             ///< as the user named it; empty when there is none
    std::size_t fileOrder = 0;    ///< of the file in its document
    std::uint32_t line = 0;       ///< from 1; 0 for the file as a whole
    std::uint32_t column = 0;     ///< from 1, in bytes
    std::uint32_t length = 0;     ///< bytes to point at, on that line
    std::string lineText;         ///< the line, without its end
};

/// The finding that a diagnostic of a document makes.
QEN_STANDALONE_API Finding toFinding(const Diagnostic& p_diagnostic, const QclDocument& p_document);

/// Sorts by file, line and column; findings of one place keep their order.
QEN_STANDALONE_API void sortByPlace(std::vector<Finding>& p_findings);

}    // namespace qen::standalone
