#pragma once

#include "physics/PhysicsQueries.h"

#include <cstddef>

namespace qen::standalone {

/// Ties the conditions to the queries that they ask, and reports what keeps a question from coming to an end: queries
/// that ask each other in a circle or more than 32 levels deep. Only what the document of that number brought about is
/// reported. A condition that closes a circle asks nothing.
void resolvePhysicsQueries(PhysicsQueries& p_queries, std::size_t p_number, Diagnostics& p_problems);

}    // namespace qen::standalone
