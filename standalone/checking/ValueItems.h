#pragma once

#include "expressions/QelExpression.h"
#include "StandaloneApi.h"

#include <string>
#include <vector>

namespace qen::standalone {

/// One item of a value and where it stands in it.
struct ValueItem {
    std::string text;
    TextRange range;
};

/// The items of a value as the library splits it, with their places.
QEN_STANDALONE_API std::vector<ValueItem> valueItems(const std::string& p_value);

}    // namespace qen::standalone
