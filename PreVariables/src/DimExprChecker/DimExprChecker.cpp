#include "DimExprChecker.h"

#include "CheckUnits.h"
#include "DimExprErrors.h"
#include "ExprParamRules.h"
#include "Gathered.h"
#include "MessageCatalogue.h"

#include "ExpressionEvaluator.h"
#include "ExpressionsError.h"
#include "Quantity.h"
#include "QuantityModifier.h"
#include "StringUtilities.h"
#include "UnitDimensions.h"
#include "UnitsConverter.h"

// For a check, so that what it raises is thrown in the function that catches it. A lambda takes no other form of it.
#if defined(__GNUC__) || defined(__clang__)
#define QEN_INLINED __attribute__((always_inline))
#else
#define QEN_INLINED
#endif

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

constexpr const char* k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";
constexpr const char* k_expressionKind = "Expression";

}    // namespace

DimExprChecker::DimExprChecker(const ModelQCL* p_model, const ExprParamRules* p_rules,
                               const QuantityModifier* p_quantityModifier,
                               const PreVariableDefStore* p_varDefStore,
                               const VariablePrefixInfo* p_prefixInfo,
                               const VarAvailabilityChecker* p_availabilityChecker,
                               const LocatorInfo* p_locatorInfo, const ExprCBFuncStore* p_callbackStore)
    : m_model(p_model), m_rules(p_rules), m_quantityModifier(p_quantityModifier),
      m_varDefStore(p_varDefStore), m_prefixInfo(p_prefixInfo), m_availabilityChecker(p_availabilityChecker),
      m_locatorInfo(p_locatorInfo), m_callbackStore(p_callbackStore)
{}

DimExprChecker::GatheredMemory::GatheredMemory() : m_own(std::make_unique<Gathered>()) {}
DimExprChecker::GatheredMemory::GatheredMemory(const GatheredMemory&) : GatheredMemory() {}
DimExprChecker::GatheredMemory::~GatheredMemory() = default;

// What the other one gathered is nobody's.
DimExprChecker::GatheredMemory& DimExprChecker::GatheredMemory::operator=(const GatheredMemory&)
{
    return *this;
}

DimExprChecker::DimExprChecker(const DimExprChecker&) = default;
DimExprChecker& DimExprChecker::operator=(const DimExprChecker&) = default;
DimExprChecker::~DimExprChecker() = default;

bool DimExprChecker::checkParam(const std::string& p_objectPath, const std::string& p_paramName,
                                const std::string& p_value)
{
    bool isNumber = false;
    std::string numberText;
    std::string units;
    const float number = StringUtilities::valueAsFloat(p_value, isNumber, numberText, units);

    if (isNumber)
        return checkParamNumeric(p_objectPath, p_paramName, number, units, true);
    return checkParamExpression(p_objectPath, p_paramName, p_value);
}

bool DimExprChecker::checkParamExpression(const std::string& p_objectPath, const std::string& p_paramName,
                                          const std::string& p_value)
{
    return passes(p_objectPath, p_paramName, true, [&]() QEN_INLINED {
        if (p_objectPath == k_expressionLibrary)
            checkLibraryExpr(p_paramName, p_value);
        else
            checkParamExprImpl(p_objectPath, p_paramName, p_value);
    });
}

bool DimExprChecker::checkParamNumeric(const std::string& p_objectPath, const std::string& p_paramName,
                                       float p_value, const std::string& p_units, bool p_recordErrors)
{
    return passes(p_objectPath, p_paramName, p_recordErrors, [&] {
        checkUnits(p_objectPath, p_paramName, p_units, false);
        checkParamBounds(p_objectPath, p_paramName, p_value, p_units);
    });
}

bool DimExprChecker::isDynamicQuantityParam(const std::string& p_objectPath,
                                            const std::string& p_paramName) const
{
    return m_quantityModifier->isDynamicQuantity(p_objectPath, p_paramName);
}

void DimExprChecker::clearErrors() { m_errors.clear(); }

DimExprChecker::const_iterator DimExprChecker::beginExprError() const { return m_errors.begin(); }

DimExprChecker::const_iterator DimExprChecker::endExprError() const { return m_errors.end(); }

/// Runs a check. This is the only place that makes a record.
template <class Check>
bool DimExprChecker::passes(const std::string& p_objectPath, const std::string& p_paramName,
                            bool p_recordErrors, const Check& p_check)
{
    try
    {
        p_check();
        return true;
    }
    catch (const DimExprErrors::dxwarning& warning)
    {
        if (p_recordErrors)
            m_errors.emplace_back(p_objectPath, p_paramName, warning.getMessage(), Warning);
    }
    catch (const expressions::error& error)
    {
        if (p_recordErrors)
            m_errors.emplace_back(p_objectPath, p_paramName, error.getMessage(), Error);
    }
    return false;
}

/// What the expression refers to, and the dimensions of its result.
///
/// @return Whether the evaluator understands it; otherwise why not is gathered.
//
// Apart from the step that raises, whose frame is then small for exceptions.
[[gnu::noinline]] bool DimExprChecker::readExpression(const std::string& p_paramName,
                                                      const std::string& p_expression, UnitDimensions& p_dims)
{
    m_gathered->variables.clear();
    m_gathered->callbacks.clear();
    try
    {
        ExpressionEvaluator::getVariablesAndCallbacks(p_expression, m_gathered->variables,
                                                      m_gathered->callbacks, p_dims, p_paramName);
        return true;
    }
    catch (const expressions::error& error)
    {
        m_gathered->evaluatorError = error.getMessage();
    }
    return false;
}

[[gnu::always_inline]] inline void DimExprChecker::checkParamExprImpl(const std::string& p_objectPath,
                                                                      const std::string& p_paramName,
                                                                      const std::string& p_expression)
{
    UnitDimensions dims;
    if (!readExpression(p_paramName, p_expression, dims))
        raise<Msg::BadExpression>(p_expression, p_paramName, p_objectPath, m_gathered->evaluatorError);

    const bool expressionKind = m_rules->paramKind(p_objectPath, p_paramName, m_model) == k_expressionKind;
    if (!expressionKind)
    {
        m_gathered->units = UnitsConverter::instance().getBaseUnitName(dims);
        checkUnits(p_objectPath, p_paramName, m_gathered->units, true);
    }

    const bool singleValued = m_rules->isSingleValued(p_objectPath, p_paramName, m_model);
    checkCallbacksUsed(p_objectPath, p_paramName, !singleValued, m_gathered->callbacks);
    checkVariablesUsed(p_objectPath, p_paramName, p_expression, singleValued, expressionKind,
                       m_gathered->variables);

    if (!m_gathered->variables.empty() || !m_gathered->callbacks.empty())
        return;

    float value = 0.0F;
    try
    {
        const Quantity quantity = ExpressionEvaluator::evalSingleValue(p_expression, p_paramName);
        value = quantity.getValue();
        m_gathered->units = quantity.getUnits();
    }
    catch (const expressions::error&)
    {
        return;    // a constant that has no single value has no bounds to keep
    }
    checkParamBounds(p_objectPath, p_paramName, value, m_gathered->units);
}

}    // namespace qen
