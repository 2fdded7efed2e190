#pragma once

#include "checking/CaseFinding.h"
#include "model/ModelTree.h"
#include "world/World.h"

#include <optional>
#include <string>
#include <vector>

namespace qen::standalone {

// What is wrong with the names that a case gives: those that no expression can write, named expressions that are hidden
// by something else of the same name, and locators of one flow that share a name.

/// The levels of an object's path whose names cannot be written.
std::vector<ObjectFinding> findUnwritableNames(const std::string& p_objectPath);

/// That the name of an additional variable means something else in expressions, or keeps something else from being
/// reached; nothing for other objects.
std::optional<ObjectFinding> findHiddenName(const std::string& p_objectPath, const World& p_world);

/// What is wrong with the name of a named expression.
void addNameFindings(const std::string& p_expressionName, const World& p_world,
                     ParameterFindings& p_findings);

/// The objects of a model whose names as locators another object of their flow has already. The subject of each is the
/// object.
std::vector<ObjectFinding> findRepeatedLocators(const ModelTree& p_model);

}    // namespace qen::standalone
