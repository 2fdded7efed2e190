#pragma once

#include "HostApi.h"

#include <string>
#include <vector>

namespace qen {

class Quantity;
class UnitDimensions;
struct CallbackInfo;

/// The expression language QEL. Defined by the host.
class QEN_HOST_API ExpressionEvaluator {
public:
    /// Parses an expression: fills the names of the variables that it references, the calls of callback functions
    /// and the dimensions of its result.
    ///
    /// @throws expressions::error  The expression is bad; the message says why.
    static void getVariablesAndCallbacks(const std::string& p_expression,
                                         std::vector<std::string>& p_variables,
                                         std::vector<CallbackInfo>& p_callbacks, UnitDimensions& p_dims,
                                         const std::string& p_paramName);

    /// The value of a constant expression.
    ///
    /// @throws expressions::error  The expression is bad or not constant.
    static Quantity evalSingleValue(const std::string& p_expression, const std::string& p_paramName);

    /// The root of a full variable name; empty when there is none.
    static std::string rootVariableName(const std::string& p_name);
};

}    // namespace qen
