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

/// What an expression may be. What goes beyond a limit is an error with its place.
struct QEN_STANDALONE_API QelLimits {
    /// Of each text, that of a named expression included.
    static constexpr std::size_t k_textBytes = std::size_t {4} << 20;

    /// Of parentheses, function and callback arguments, signs, powers and named expressions within each other.
    static constexpr unsigned k_depth = 200;

    /// To variables, named expressions and callback functions, those of the named expressions included.
    static constexpr std::size_t k_references = 10'000;

    /// Of one text that an error quotes; longer ones are cut.
    static constexpr std::size_t k_quotedCharacters = 80;

    /// An exponent of a dimension lies within plus and minus this number.
    static constexpr float k_dimensionExponent = 1000.0F;
};

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
    std::string message;    ///< says what, where (column, in characters from 1) and what was expected
    TextRange range;        ///< in the text that was given
};

/// A value in base units.
struct QEN_STANDALONE_API QelValue {
    double value = 0.0;
    UnitDimensions dims;
};

/// What an expression means in a world.
struct QEN_STANDALONE_API QelResult {
    std::vector<std::string> variables;      ///< each once, in order of first use
    std::vector<CallbackInfo> callbacks;     ///< in order; those of a named expression once
    UnitDimensions dims;                     ///< of the result
    std::optional<double> constantValue;     ///< in base units, when the expression is a constant
    std::vector<QelReference> references;    ///< in order, repeats kept; only where asked for

    /// When this is set, the lists hold what was read before the error, and the rest says nothing.
    std::optional<QelError> error;
};

/// Parses and resolves an expression. Linear in the texts that are read: its own, and that of each named expression
/// that it refers to, however often it does so. `QelLimits` says what is admitted.
///
/// The value of a constant may be infinite or no number, as that of `1 / 0` is.
QEN_STANDALONE_API QelResult analyseExpression(std::string_view p_expression, const World& p_world,
                                               bool p_wantReferences = false);

/// Whether a text can be written as a name in an expression: words of letters, digits and '_', parted by single
/// blanks, the first of which begins with a letter.
QEN_STANDALONE_API bool isQelName(std::string_view p_text);

/// Whether a text can be written in braces behind a variable as the name of a coordinate frame.
QEN_STANDALONE_API bool isQelFrameName(std::string_view p_text);

/// Whether a text can be written behind '@' as the name of a locator.
QEN_STANDALONE_API bool isQelLocatorName(std::string_view p_text);

/// Whether a name is a constant of the expression language, such as "pi"; it hides a named expression of that name.
QEN_STANDALONE_API bool isQelConstant(std::string_view p_name);

}    // namespace qen::standalone
