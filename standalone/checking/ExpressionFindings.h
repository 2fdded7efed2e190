#pragma once

#include "definitions/Definitions.h"
#include "definitions/Finding.h"
#include "qcl/QclDocument.h"
#include "world/World.h"

#include <functional>
#include <string>
#include <vector>

namespace qen::standalone {

/// Adds what the library does not look at in expressions: the number of arguments of callback functions, components
/// and coordinate frames that do not exist, and named expressions that are bad, which nothing else tells as long as
/// nothing refers to them.
///
/// @param p_isAtFault  Whether a parameter has a record already. It is left alone: one fault at a time. Records of
///                     named expressions are about their names, and do not count.
void addExpressionFindings(
    const QclDocument& p_case, const Definitions& p_definitions, const World& p_world,
    const std::function<bool(const std::string& p_objectPath, const std::string& p_paramName)>& p_isAtFault,
    std::vector<Finding>& p_findings);

}    // namespace qen::standalone
