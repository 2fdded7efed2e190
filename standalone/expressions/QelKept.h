#pragma once

#include "expressions/QelDims.h"
#include "model/ModelTree.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What is kept of an expression that others refer to.

namespace qen::standalone::qel {

/// What reading an expression of the model leaves behind in an analysis that refers to it.
struct KeptExpression {
    /// What the text itself mentions. The texts are those of the model.
    struct Mention {
        enum class Kind : std::uint8_t {
            Variable,
            Callback,
            Expression,
        };

        Kind kind;
        std::string_view text;    ///< of the variable or function
        std::string_view locator;
        std::string_view argument;

        // Of an expression: its parameter; what is kept of it, null where it was mentioned before; and whether it was
        // mentioned in the argument of a callback function.
        const ModelTree::Parameter* parameter = nullptr;
        const KeptExpression* kept = nullptr;
        bool inArgument = false;
    };

    std::vector<Mention> mentions;    ///< in order
    std::size_t ownReferences = 0;    ///< that count towards the limit
    std::size_t references = 0;       ///< with those of the expressions that it refers to
    unsigned depth = 0;               ///< of all that is nested in it
    bool dimsAreUnknown = false;      ///< it uses an operator that no catalogue has
    bool hasWrongDims = false;        ///< which would not count behind such an operator

    bool failed = false;
    std::string error;    ///< why it failed; empty in an argument
    Operand operand;
};

}    // namespace qen::standalone::qel
