#pragma once

#include "definitions/Finding.h"
#include "model/ModelTree.h"
#include "qcl/QclDocument.h"
#include "rules/RuleBook.h"

#include <vector>

namespace qen::standalone {

/// What the library does not look at and a user expects of a checker: objects and parameters that the rules do not
/// know, texts that are not among the allowed ones, values and list items that are missing, units that the rules look
/// for in vain.
void addModelFindings(const QclDocument& p_case, const ModelTree& p_model, const RuleBook& p_rules,
                      std::vector<Finding>& p_findings);

}    // namespace qen::standalone
