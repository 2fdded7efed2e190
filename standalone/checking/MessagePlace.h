#pragma once

#include "checking/MessageLog.h"
#include "expressions/QelExpression.h"
#include "world/World.h"

#include <string_view>

namespace qen::standalone {

/// The stretch of an expression that a message is about: where the expression is bad, or the variable, argument,
/// locator or function that the message names. The whole expression where it names none.
TextRange placeInExpression(const MessageLog::Raised& p_raised, std::string_view p_expression,
                            const World& p_world);

}    // namespace qen::standalone
