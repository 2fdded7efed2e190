#pragma once

#include "CallbackInfo.h"
#include "StandaloneApi.h"
#include "UnitDimensions.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

struct World;

/// A stretch of an expression's text, in bytes.
struct QEN_STANDALONE_API TextRange {
    std::size_t offset = 0;
    std::size_t length = 0;
};

/// A variable, additional variable, named expression, callback call or locator as an expression mentions it.
struct QEN_STANDALONE_API QelReference {
    enum class Kind { Variable, NamedExpression, Callback, Locator, Argument };

    Kind kind = Kind::Variable;
    std::string name;
    TextRange range;    ///< in the text that was given; a named expression's own references have its range
};

/// Why an expression is bad.
struct QEN_STANDALONE_API QelError {
    std::string message;    ///< says what, where (column) and what was expected
    TextRange range;
};

/// A value in base units.
struct QEN_STANDALONE_API QelValue {
    double value = 0.0;
    UnitDimensions dims;
};

/// What an expression means in a world.
struct QEN_STANDALONE_API QelResult {
    std::vector<std::string> variables;      ///< each once, in order of first use
    std::vector<CallbackInfo> callbacks;     ///< in order
    UnitDimensions dims;                     ///< of the result
    std::optional<double> constantValue;     ///< in base units, when the expression is a constant
    std::vector<QelReference> references;    ///< in order, repeats kept; only where asked for
    std::optional<QelError> error;           ///< the rest says nothing when this is set
};

/// Parses and resolves an expression. Linear in the text; depth and number of references are limited.
QEN_STANDALONE_API QelResult analyseExpression(std::string_view p_expression, const World& p_world,
                                               bool p_wantReferences = false);

}    // namespace qen::standalone
