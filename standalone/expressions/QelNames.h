#pragma once

#include "UnitDimensions.h"

#include "model/ModelTree.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// @file
/// What the world says about a name that an expression uses.

namespace qen::standalone {
struct World;
}

namespace qen::standalone::qel {

inline constexpr std::string_view k_expressionValue = "Expression Value";
inline constexpr std::string_view k_expressionsPath = "/LIBRARY/QEL/EXPRESSIONS";

/// Looks names up. Holds a buffer for them, so that most look-ups need no memory.
class Names {
public:
    explicit Names(const World& p_world) : m_world(p_world) {}

    enum class Root : std::uint8_t { None, Variable, AdditionalVariable, ExpressionValue };

    /// Whether a name is a variable, by any of its names, an additional variable or component of one, or the value of
    /// a monitor point.
    Root classify(std::string_view p_name);

    /// The dimensions of the variable or additional variable that the last call of `classify` found.
    ///
    /// @param p_problem  Set when there are none: why, as the end of a sentence that begins with the name.
    bool dims(UnitDimensions& p_dims, std::string& p_problem);

    /// The known name that a misspelt one most likely means, of those that may stand as a value or of functions; empty
    /// when none is close.
    std::string nearestValue(std::string_view p_name) const;
    std::string nearestFunction(std::string_view p_name) const;

    /// The parameter that holds a named expression; null when there is none of that name.
    const ModelTree::Parameter* namedExpression(std::string_view p_name) const;

    /// The dimensions by which an operator multiplies those of its variable; none where no catalogue has it.
    std::optional<UnitDimensions> operatorDims(std::string_view p_operator);

    /// The dimensions by which a callback function multiplies those of its argument; null where no catalogue has it.
    const UnitDimensions* callbackDims(std::string_view p_function);

private:
    const ModelTree::Object* additionalVariable(std::string_view p_name) const;
    bool variableDims(UnitDimensions& p_dims, std::string& p_problem) const;
    bool additionalVariableDims(UnitDimensions& p_dims, std::string& p_problem) const;

    const World& m_world;
    std::string m_name;
    const ModelTree::Object* m_additionalVariable = nullptr;
};

/// The root of a reference that consists of components, and the operator behind it.
struct RootPlace {
    Names::Root kind = Names::Root::None;
    std::string_view root;
    std::string_view suffix;    ///< the component right of the root; empty when there is none
};

/// Finds the root: the last component but one if that is a known root, else the last, else the first known one from
/// the right. Leaves @p p_names at the root.
RootPlace findRoot(Names& p_names, std::string_view p_reference);

}    // namespace qen::standalone::qel
