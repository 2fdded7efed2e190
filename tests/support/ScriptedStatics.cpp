/// @file
/// The host's statics: they ask the scripted host of the running test.

#include "ExpressionEvaluator.h"
#include "QCLParam.h"
#include "QELName.h"
#include "Quantity.h"
#include "UnitsConverter.h"
#include "UnitsError.h"

#include "support/ConverterRequests.h"
#include "support/ScriptedHost.h"
#include "support/ScriptedHostAnswers.h"

#include <array>
#include <cstdio>
#include <optional>
#include <stdexcept>

namespace qen {

namespace {

using Answers = support::ScriptedHostAnswers;
using support::ScriptedExpression;
using support::ScriptedHost;
using support::UnitsMeaning;
using support::UnitsTable;

std::string text(float p_value)
{
    std::array<char, 32> result {};
    std::snprintf(result.data(), result.size(), "%g", static_cast<double>(p_value));
    return result.data();
}

/// An expression that a test checks without having said what it is would pass unnoticed.
const ScriptedExpression& scripted(const std::string& p_expression)
{
    const auto& expressions = Answers::expressions(ScriptedHost::current());
    const auto found = expressions.find(p_expression);
    if (found == expressions.end())
        throw std::logic_error("The test does not say what the expression '" + p_expression + "' is.");
    return found->second;
}

UnitsMeaning understood(const std::string& p_units)
{
    const std::optional<UnitsMeaning> meaning = Answers::units(ScriptedHost::current()).meaningOf(p_units);
    if (!meaning)
        throw units::error("UnitsConverter", "dimsFromUnits", "No such units: '" + p_units + "'.",
                           ErrorTypeError);
    return *meaning;
}

/// One part of a name, as in "Velocity{x:Rotor Frame}".
QELName::Component component(const std::string& p_text)
{
    const std::size_t brace = p_text.find('{');
    if (brace == std::string::npos || p_text.back() != '}')
        return {p_text, "", ""};
    const std::string inside = p_text.substr(brace + 1, p_text.size() - brace - 2);
    const std::size_t colon = inside.find(':');
    return {p_text.substr(0, brace), inside.substr(0, colon),
            colon == std::string::npos ? "" : inside.substr(colon + 1)};
}

}    // namespace

void ExpressionEvaluator::getVariablesAndCallbacks(const std::string& p_expression,
                                                   std::vector<std::string>& p_variables,
                                                   std::vector<CallbackInfo>& p_callbacks,
                                                   UnitDimensions& p_dims, const std::string& p_paramName)
{
    Answers::note(ScriptedHost::current(), "evaluator.getVariablesAndCallbacks", {p_expression, p_paramName});
    const ScriptedExpression& expression = scripted(p_expression);
    if (expression.parseError)
        throw expressions::error("ExpressionEvaluator", "getVariablesAndCallbacks", *expression.parseError,
                                 ErrorTypeError);
    p_variables = expression.variables;
    p_callbacks = expression.callbacks;
    p_dims = understood(expression.dimensions).dims;
}

Quantity ExpressionEvaluator::evalSingleValue(const std::string& p_expression, const std::string& p_paramName)
{
    Answers::note(ScriptedHost::current(), "evaluator.evalSingleValue", {p_expression, p_paramName});
    const ScriptedExpression& expression = scripted(p_expression);
    if (expression.evaluationError || !expression.value)
        throw expressions::error("ExpressionEvaluator", "evalSingleValue",
                                 expression.evaluationError.value_or("The expression is not constant."),
                                 ErrorTypeError);
    return *expression.value;
}

std::string ExpressionEvaluator::rootVariableName(const std::string& p_name)
{
    Answers::note(ScriptedHost::current(), "evaluator.rootVariableName", {p_name});
    return Answers::rootOf(ScriptedHost::current(), p_name);
}

bool QELName::splitVariableName(const std::string& p_text, std::vector<Component>& p_components)
{
    Answers::note(ScriptedHost::current(), "names.splitVariableName", {p_text});
    if (Answers::notVariableNames(ScriptedHost::current()).contains(p_text))
        return false;

    p_components.clear();
    std::size_t start = 0;
    for (std::size_t dot = p_text.find('.'); dot != std::string::npos; dot = p_text.find('.', start))
    {
        p_components.push_back(component(p_text.substr(start, dot - start)));
        start = dot + 1;
    }
    p_components.push_back(component(p_text.substr(start)));
    return true;
}

bool QELName::splitCallbackName(const std::string& p_name, std::string& p_text, Component& p_component)
{
    Answers::note(ScriptedHost::current(), "names.splitCallbackName", {p_name});
    p_text = p_name;
    p_component = component(p_name);
    return true;
}

bool QCLParam::isNumericType(ParamType p_type)
{
    Answers::note(ScriptedHost::current(), "param.isNumericType", {});
    return static_cast<int>(p_type) > 0;
}

UnitsConverter& UnitsConverter::instance()
{
    static UnitsConverter converter;
    if (support::ConverterRequests::areNoted())
        Answers::note(ScriptedHost::current(), "converter.instance", {});
    return converter;
}

bool UnitsConverter::convertUnits(const std::string& p_from, const std::string& p_to, float p_value,
                                  float& p_result, bool p_flag) const
{
    const ScriptedHost& host = ScriptedHost::current();
    Answers::note(host, "units.convertUnits", {p_from, p_to, text(p_value), p_flag ? "true" : "false"});
    if (Answers::refusedConversions(host).contains({p_from, p_to}))
        return false;

    const std::optional<UnitsMeaning> from = Answers::units(host).meaningOf(p_from);
    const std::optional<UnitsMeaning> to = Answers::units(host).meaningOf(p_to);
    if (!from || !to || !support::sameDimensions(from->dims, to->dims))
        return false;
    p_result = static_cast<float>(static_cast<double>(p_value) * from->factor / to->factor);
    return true;
}

UnitDimensions UnitsConverter::dimsFromUnits(const std::string& p_units) const
{
    Answers::note(ScriptedHost::current(), "units.dimsFromUnits", {p_units});
    return understood(p_units).dims;
}

std::string UnitsConverter::getBaseUnitName(const UnitDimensions& p_dims) const
{
    Answers::note(ScriptedHost::current(), "units.getBaseUnitName", {UnitsTable::baseUnits(p_dims)});
    return UnitsTable::baseUnits(p_dims);
}

std::string UnitsConverter::getBaseUnitsFromQuant(const std::string& p_quantity) const
{
    Answers::note(ScriptedHost::current(), "units.getBaseUnitsFromQuant", {p_quantity});
    const auto& quantities = Answers::quantities(ScriptedHost::current());
    const auto found = quantities.find(p_quantity);
    if (found == quantities.end())
        throw units::error("UnitsConverter", "getBaseUnitsFromQuant",
                           "No such quantity: '" + p_quantity + "'.", ErrorTypeError);
    return found->second;
}

}    // namespace qen
