#include "qcl/QclProblems.h"

namespace qen::standalone {

namespace {

constexpr bool rowsStandAtTheirOwnNumber()
{
    for (std::size_t number = 0; number < k_qclProblems.size(); ++number)
        if (static_cast<std::size_t>(k_qclProblems[number].problem) != number)
            return false;
    return true;
}

static_assert(rowsStandAtTheirOwnNumber());

}    // namespace

const QclProblemKind& kindOf(QclProblem p_problem)
{
    return k_qclProblems[static_cast<std::size_t>(p_problem)];
}

}    // namespace qen::standalone
