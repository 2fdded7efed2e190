#include "CaseStatus.h"

#include "qcl/QclProblems.h"

#include <algorithm>
#include <array>

namespace qencheck {

using qen::standalone::CaseReport;
using qen::standalone::Diagnostic;
using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::QclProblem;
using qen::standalone::Severity;

bool couldNotBeRead(const QclDocument& p_case)
{
    constexpr std::array k_problems {QclProblem::FileUnreadable, QclProblem::FileBinary, QclProblem::FileSize,
                                     QclProblem::Problems};
    return std::any_of(p_case.problems.begin(), p_case.problems.end(), [&](const Diagnostic& p_problem) {
        return std::any_of(k_problems.begin(), k_problems.end(), [&](QclProblem p_kind) {
            return p_problem.identifier == kindOf(p_kind).identifier;
        });
    });
}

ExitStatus statusOf(const QclDocument& p_case, const CaseReport& p_report)
{
    if (p_report.internalError || couldNotBeRead(p_case))
        return k_couldNotCheck;
    const bool errors =
        std::any_of(p_report.findings.begin(), p_report.findings.end(),
                    [](const Finding& p_finding) { return p_finding.severity == Severity::Error; });
    return errors ? k_errorsFound : k_clean;
}

}    // namespace qencheck
