#include "definitions/Finding.h"

#include <algorithm>
#include <tuple>

namespace qen::standalone {

Finding toFinding(const Diagnostic& p_diagnostic, const QclDocument& p_document)
{
    Finding finding;
    finding.severity = p_diagnostic.severity;
    finding.identifier = p_diagnostic.identifier;
    finding.message = p_diagnostic.message;
    finding.fileOrder = p_diagnostic.place.file;
    finding.line = p_diagnostic.place.line;
    finding.column = p_diagnostic.place.column;
    finding.length = p_diagnostic.length;
    if (p_diagnostic.place.file < p_document.files.size())
    {
        const SourceFile& file = p_document.files[p_diagnostic.place.file];
        finding.file = file.path;
        finding.lineText = file.line(p_diagnostic.place.line);
    }
    return finding;
}

void sortByPlace(std::vector<Finding>& p_findings)
{
    const auto place = [](const Finding& p_finding) {
        return std::tuple(p_finding.fileOrder, p_finding.line, p_finding.column);
    };
    std::stable_sort(p_findings.begin(), p_findings.end(),
                     [&](const Finding& p_a, const Finding& p_b) { return place(p_a) < place(p_b); });
}

}    // namespace qen::standalone
