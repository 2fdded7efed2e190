#pragma once

#include "AvailabilityCheck.h"
#include "AvailabilityKeywords.h"
#include "VarAvailabilityChecker.h"

#include <array>
#include <cstddef>
#include <memory>

namespace qen {

class PhysicsEvaluator;

/// The checks of all keywords, in the order of the keyword table. Shared by a checker and its copies.
class VarAvailabilityChecker::AvailabilityChecks {
public:
    /// Makes the checks, each of which declares its queries to the evaluator.
    explicit AvailabilityChecks(const PhysicsEvaluator* p_evaluator);

    const AvailabilityCheck& operator[](std::size_t p_row) const { return *m_checks[p_row]; }

private:
    std::array<std::unique_ptr<const AvailabilityCheck>, availability::k_keywords.size()> m_checks;
};

}    // namespace qen
