#pragma once

#include "checking/CaseFinding.h"
#include "definitions/Definitions.h"
#include "world/World.h"

namespace qen::standalone {

/// Adds what the library does not look at in the expressions of a parameter: the number of arguments of callback
/// functions, components and coordinate frames that do not exist, values that are known and not finite.
void addExpressionFindings(const CaseParameter& p_parameter, const Definitions& p_definitions,
                           const World& p_world, ParameterFindings& p_findings);

/// The same for a named expression, and that it is bad, which nothing else tells as long as nothing refers to it.
void addNamedExpressionFindings(const CaseParameter& p_expression, const Definitions& p_definitions,
                                const World& p_world, ParameterFindings& p_findings);

}    // namespace qen::standalone
