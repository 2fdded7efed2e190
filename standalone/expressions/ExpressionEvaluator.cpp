#include "ExpressionEvaluator.h"

#include "CallbackInfo.h"
#include "ExpressionsError.h"
#include "Quantity.h"
#include "UnitDimensions.h"

#include "expressions/QelExpression.h"
#include "expressions/QelNames.h"
#include "expressions/QelSyntax.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <cmath>
#include <utility>

namespace qen {
namespace {

using standalone::QelResult;

[[noreturn]] void raise(const char* p_method, std::string p_message)
{
    throw expressions::error("ExpressionEvaluator", p_method, std::move(p_message), ErrorTypeError);
}

// What is wrong with the expression that was read last, where something is. It stands here and not in the operation
// that throws, so that there is nothing to destroy in its frame, which would make the throw dear.
thread_local std::string t_problem;

// Whether the expression is good.
[[gnu::noinline]] bool read(const std::string& p_expression, std::vector<std::string>& p_variables,
                            std::vector<CallbackInfo>& p_callbacks, UnitDimensions& p_dims)
{
    QelResult result = standalone::analyseExpression(p_expression, standalone::currentWorld());
    if (result.error)
    {
        t_problem = std::move(result.error->message);
        return false;
    }
    p_variables = std::move(result.variables);
    p_callbacks = std::move(result.callbacks);
    p_dims = result.dims;
    return true;
}

[[gnu::noinline]] expressions::error notRead(const char* p_method)
{
    return {"ExpressionEvaluator", p_method, std::move(t_problem), ErrorTypeError};
}

}

// The name of the parameter adds nothing: whoever catches the error knows it.
void ExpressionEvaluator::getVariablesAndCallbacks(const std::string& p_expression,
                                                   std::vector<std::string>& p_variables,
                                                   std::vector<CallbackInfo>& p_callbacks,
                                                   UnitDimensions& p_dims, const std::string&)
{
    if (!read(p_expression, p_variables, p_callbacks, p_dims))
        throw notRead("getVariablesAndCallbacks");
}

Quantity ExpressionEvaluator::evalSingleValue(const std::string& p_expression, const std::string&)
{
    const standalone::World& world = standalone::currentWorld();
    QelResult result = standalone::analyseExpression(p_expression, world);
    if (result.error)
        raise("evalSingleValue", std::move(result.error->message));
    if (!result.constantValue)
        raise("evalSingleValue",
              "The expression has no single value: it refers to variables or callback functions; expected a "
              "constant.");
    const auto value = static_cast<float>(*result.constantValue);
    if (!std::isfinite(*result.constantValue))
        raise("evalSingleValue", "The value of the expression is not finite; expected a finite number.");
    if (!std::isfinite(value))
        raise(
            "evalSingleValue",
            "The value of the expression is beyond single precision; expected one of at most 3.4e38 in base "
            "units.");
    return Quantity(value, world.units ? world.units->baseUnits(result.dims) : std::string());
}

std::string ExpressionEvaluator::rootVariableName(const std::string& p_name)
{
    standalone::qel::ComponentReader reader {p_name.data(), p_name.data() + p_name.size()};
    if (!standalone::qel::readReference(reader) || reader.at != reader.end)
        return {};
    standalone::qel::Names names(standalone::currentWorld());
    return std::string(standalone::qel::findRoot(names, p_name).root);
}

}    // namespace qen
