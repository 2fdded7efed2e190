#pragma once

#include "StandaloneApi.h"

#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// The known name that a misspelt one most likely means: the closest by edits, or the same but for case. Empty when
/// none is close; a name that shares no letter with it never is.
QEN_STANDALONE_API std::string nearestName(std::string_view p_name, const std::vector<std::string>& p_known);

}    // namespace qen::standalone
