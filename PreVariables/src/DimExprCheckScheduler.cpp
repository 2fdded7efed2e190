#include "DimExprCheckScheduler.h"

#include "DimExprChecker.h"

#include "ModelQCL.h"
#include "ModelRules.h"
#include "QCLParam.h"
#include "QCLPath.h"
#include "QCLUpdateInfo.h"
#include "StringUtilities.h"

#include <algorithm>
#include <utility>

namespace qen {
namespace {

// The last type of the objects whose parameters are named expressions, wherever they stand.
constexpr const char* k_namedExpressionsType = "EXPRESSIONS";

}    // namespace

DimExprCheckScheduler::DimExprCheckScheduler(const ModelQCL* p_model, const ModelRules* p_modelRules,
                                             const QCLUpdateInfo* p_updateInfo, DimExprChecker* p_checker)
    : m_model(p_model), m_modelRules(p_modelRules), m_updateInfo(p_updateInfo), m_checker(p_checker)
{}

DimExprCheckScheduler::~DimExprCheckScheduler() = default;

void DimExprCheckScheduler::checkParam(const std::string& p_objectPath, const std::string& p_paramName)
{
    const std::string lastType = QCLPath(p_objectPath).getLastType();
    const bool namedExpression = lastType == k_namedExpressionsType;
    if (!namedExpression)
    {
        if (!m_modelRules->isValidPath(p_objectPath) || !m_modelRules->isValidParamName(p_paramName))
            return;
        if (!QCLParam::isNumericType(m_modelRules->getParamType(lastType, p_paramName)))
            return;
    }

    const std::string text = m_model->paramValue(p_objectPath, p_paramName);

    ParamValue value;
    if (namedExpression)
        value.mode = ParamValue::NamedExpression;
    else if (m_checker->isDynamicQuantityParam(p_objectPath, p_paramName))
        value.mode = ParamValue::DynamicQuantity;
    processValueString(text, value);

    if (value.numbers.empty() && value.expressions.empty())
    {
        eraseDeferredParam(p_objectPath, p_paramName);
        return;
    }

    if (value.mode != ParamValue::Plain)
    {
        addDeferredParam(p_objectPath, p_paramName, value);
        return;
    }

    // Deliberate: every number is checked here, while a run stops at the first that fails; do not make them alike.
    // Held by CheckParam.ChecksEveryNumberOfAListQuietly.
    for (NumericValue& number : value.numbers)
        number.ok =
            m_checker->checkParamNumeric(p_objectPath, p_paramName, number.value, number.units, false);

    if (canRemoveDeferredParam(value))
        eraseDeferredParam(p_objectPath, p_paramName);
    else
        addDeferredParam(p_objectPath, p_paramName, value);
}

void DimExprCheckScheduler::processValueString(const std::string& p_valueText, ParamValue& p_value) const
{
    for (std::string& item : StringUtilities::splitValue(p_valueText, ','))
    {
        if (p_value.mode != ParamValue::NamedExpression)
        {
            bool isNumber = false;
            std::string numberText;
            std::string units;
            const float number = StringUtilities::valueAsFloat(item, isNumber, numberText, units);
            if (isNumber)
            {
                p_value.numbers.push_back({number, std::move(units), false});
                continue;
            }
        }
        p_value.expressions.push_back(std::move(item));
    }
}

void DimExprCheckScheduler::addDeferredParam(const std::string& p_objectPath, const std::string& p_paramName,
                                             const ParamValue& p_value)
{
    m_deferred[p_objectPath][p_paramName] = p_value;
}

void DimExprCheckScheduler::eraseDeferredParam(const std::string& p_objectPath,
                                               const std::string& p_paramName)
{
    const auto object = m_deferred.find(p_objectPath);
    if (object == m_deferred.end() || object->second.erase(p_paramName) == 0)
        return;

    if (object->second.empty())
        m_deferred.erase(object);
}

bool DimExprCheckScheduler::canRemoveDeferredParam(const ParamValue& p_value) const
{
    return p_value.mode == ParamValue::Plain && p_value.expressions.empty() && areAllOK(p_value.numbers);
}

bool DimExprCheckScheduler::areAllOK(const std::vector<NumericValue>& p_numbers) const
{
    return std::all_of(p_numbers.begin(), p_numbers.end(),
                       [](const NumericValue& p_number) { return p_number.ok; });
}

void DimExprCheckScheduler::runDeferredChecks()
{
    m_checker->clearErrors();

    for (auto object = m_deferred.begin(); object != m_deferred.end();)
    {
        if (m_model->objectExists(object->first))
            runChecksOfObject(object->first, object->second);
        else
            object->second.clear();

        object = object->second.empty() ? m_deferred.erase(object) : std::next(object);
    }
}

void DimExprCheckScheduler::runChecksOfObject(const std::string& p_objectPath, ParamValues& p_params)
{
    for (auto param = p_params.begin(); param != p_params.end();)
    {
        ParamValue& kept = param->second;
        runDeferredNumChecks(p_objectPath, param->first, kept.numbers);
        runDeferredExprChecks(p_objectPath, param->first, kept.expressions);
        param = canRemoveDeferredParam(kept) ? p_params.erase(param) : std::next(param);
    }
}

void DimExprCheckScheduler::runDeferredExprChecks(const std::string& p_objectPath,
                                                  const std::string& p_paramName,
                                                  const std::vector<std::string>& p_expressions)
{
    for (const std::string& expression : p_expressions)
        m_checker->checkParamExpression(p_objectPath, p_paramName, expression);
}

void DimExprCheckScheduler::runDeferredNumChecks(const std::string& p_objectPath,
                                                 const std::string& p_paramName,
                                                 std::vector<NumericValue>& p_numbers)
{
    for (NumericValue& number : p_numbers)
    {
        number.ok = m_checker->checkParamNumeric(p_objectPath, p_paramName, number.value, number.units, true);
        if (!number.ok)
            return;
    }
}

void DimExprCheckScheduler::processChangedParameters()
{
    if (m_updateInfo)
        m_updateInfo->replay(*this);
}

void DimExprCheckScheduler::onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                                          const std::string&, bool p_flag)
{
    if (p_flag)
        checkParam(p_objectPath, p_paramName);
    else
        eraseDeferredParam(p_objectPath, p_paramName);
}

void DimExprCheckScheduler::onParamDeletion(const std::string& p_objectPath, const std::string& p_paramName)
{
    // Deliberate: the object's entry stays even when nothing is left in it; the next run removes it. Held by
    // Notifications.ADeletedParameterLeavesItsObjectForTheNextRun.
    const auto object = m_deferred.find(p_objectPath);
    if (object != m_deferred.end())
        object->second.erase(p_paramName);
}

void DimExprCheckScheduler::onObjectDeletion(const std::string& p_objectPath)
{
    m_deferred.erase(p_objectPath);
}

}    // namespace qen
