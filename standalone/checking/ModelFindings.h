#pragma once

#include "checking/CaseFinding.h"
#include "model/ModelTree.h"
#include "rules/RuleBook.h"
#include "units/UnitSystem.h"

#include <optional>
#include <string>

namespace qen::standalone {

// What the library does not look at and a user expects of a checker: objects and parameters that the rules do not know,
// texts that are not among the allowed ones, values and list items that are missing, units that the rules look for in
// vain.

/// The first level of an object's path that the rules do not know; none when they know the path.
std::optional<ObjectFinding> findUnknownLevel(const std::string& p_objectPath, const RuleBook& p_rules);

/// What is wrong with a parameter of an object that the rules know.
void addRuleFindings(const CaseParameter& p_parameter, const ModelTree& p_model, const RuleBook& p_rules,
                     const UnitSystem& p_units, ParameterFindings& p_findings);

}    // namespace qen::standalone
