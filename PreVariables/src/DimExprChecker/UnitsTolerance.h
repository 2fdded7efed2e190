#pragma once

#include "UnitDimensions.h"

namespace qen {

/// By how much two exponents may differ and still count as equal: 0.001, or what the environment variable
/// QVN5_UNITS_TOL says. Read on first use, once per process.
double unitsTolerance();

/// Whether dimensions agree, each exponent within the tolerance, when the angle is left out, which counts as
/// dimensionless.
bool agreeButForAngle(const UnitDimensions& p_a, UnitDimensions p_b, double p_tolerance);

}    // namespace qen
