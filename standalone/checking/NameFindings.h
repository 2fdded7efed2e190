#pragma once

#include "definitions/Finding.h"
#include "model/ModelTree.h"
#include "qcl/QclDocument.h"
#include "world/World.h"

#include <vector>

namespace qen::standalone {

/// Adds what is wrong with the names that a case gives: those that no expression can write, named expressions that are
/// hidden by something else of the same name, and locators of one flow that share a name.
void addNameFindings(const QclDocument& p_case, const World& p_world, std::vector<Finding>& p_findings);

}    // namespace qen::standalone
