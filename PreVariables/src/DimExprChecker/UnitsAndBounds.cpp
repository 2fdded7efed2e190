#include "DimExprChecker.h"

#include "CheckUnits.h"
#include "ExprParamRules.h"
#include "Gathered.h"
#include "MessageCatalogue.h"
#include "UnitsTolerance.h"

#include "ModelQCL.h"
#include "QuantityModifier.h"
#include "StringUtilities.h"
#include "UnitDimensions.h"
#include "UnitsConverter.h"
#include "UnitsError.h"

#include <cmath>
#include <limits>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

constexpr int k_dynamicMode = 1;
constexpr float k_slack = 1e-7F;    // of the bound's magnitude; of a bound of zero, absolute

// Apart from the step that raises, whose frame is then small for exceptions.
[[gnu::noinline]] bool understands(const UnitsConverter& p_converter, const std::string& p_units)
{
    try
    {
        p_converter.dimsFromUnits(p_units);
        return true;
    }
    catch (const units::error&)
    {
        return false;
    }
}

bool satisfiesLowerBound(float p_value, float p_lower)
{
    if (p_value >= p_lower)
        return true;
    if (p_lower == 0.0F)
        return p_value > -k_slack;
    return (p_lower - p_value) / std::fabs(p_lower) < k_slack;
}

bool satisfiesUpperBound(float p_value, float p_upper)
{
    if (p_upper >= p_value)
        return true;
    if (p_upper == 0.0F)
        return p_value < k_slack;
    return (p_value - p_upper) / std::fabs(p_upper) < k_slack;
}

}    // namespace

// Deliberate: one of the checker's fixed operations, though no check calls it: `checkParamNumeric` takes the same two
// steps, and records. Held by Units.AndBoundsAreCheckedTogetherWithoutCatching.
void DimExprChecker::checkParamNumericImpl(const std::string& p_objectPath, const std::string& p_paramName,
                                           float p_value, const std::string& p_units)
{
    checkParamUnits(p_objectPath, p_paramName, p_units, false);
    checkParamBounds(p_objectPath, p_paramName, p_value, p_units);
}

// Deliberate: one of the checker's fixed operations, though no check calls it: that of expressions keeps the text.
// Held by Units.OfDimensionsAreTheirBaseUnits.
void DimExprChecker::checkParamUnits(const std::string& p_objectPath, const std::string& p_paramName,
                                     const UnitDimensions& p_dims, bool p_fromExpression)
{
    checkParamUnits(p_objectPath, p_paramName, UnitsConverter::instance().getBaseUnitName(p_dims),
                    p_fromExpression);
}

void DimExprChecker::checkParamUnits(const std::string& p_objectPath, const std::string& p_paramName,
                                     const std::string& p_units, bool p_fromExpression)
{
    checkUnits(p_objectPath, p_paramName, p_units, p_fromExpression);
}

DimExprChecker::UnitsFault DimExprChecker::unitsFault(const std::string& p_objectPath,
                                                      const std::string& p_paramName,
                                                      const std::string& p_units, bool p_fromExpression)
{
    std::string& quantity = m_gathered->quantity;
    quantity.clear();
    const int mode = m_quantityModifier->quantityMode(m_model, p_objectPath, p_paramName, quantity);
    if (quantity.empty())
        return UnitsFault::None;

    const bool dynamic = mode == k_dynamicMode;
    std::string& expected = m_gathered->expectedUnits;
    expected.clear();
    if (dynamic)
        expected = m_quantityModifier->dynamicUnits(quantity);

    const UnitsConverter& converter = UnitsConverter::instance();
    if (!dynamic)
    {
        try
        {
            expected = converter.getBaseUnitsFromQuant(quantity);
        }
        catch (const units::error&)
        {
            return UnitsFault::None;    // a quantity that the host does not know cannot be judged
        }
    }

    if (!understands(converter, p_units))
        return UnitsFault::Unrecognised;

    float converted = 0.0F;
    if (converter.convertUnits(p_units, expected, 0.0F, converted, true))
        return UnitsFault::None;

    const double tolerance = unitsTolerance();    // read even when the host throws at the units
    const UnitDimensions expectedDims = converter.dimsFromUnits(expected);
    if (agreeButForAngle(expectedDims, converter.dimsFromUnits(p_units), tolerance))
        return UnitsFault::None;

    if (p_fromExpression)
        return UnitsFault::WrongOfExpression;
    return dynamic ? UnitsFault::WrongDynamic : UnitsFault::Wrong;
}

void DimExprChecker::checkParamBounds(const std::string& p_objectPath, const std::string& p_paramName,
                                      float p_value, const std::string& p_units)
{
    const std::string lowerText = m_rules->lowerBound(p_objectPath, p_paramName, m_model);
    const std::string upperText = m_rules->upperBound(p_objectPath, p_paramName, m_model);
    if (lowerText.empty() && upperText.empty())
        return;

    // Deliberate: both bounds are read before either is tested, so a malformed upper bound hides a violated lower one.
    // Held by Bounds.AMalformedUpperBoundHidesAViolatedLowerOne.
    float lower = std::numeric_limits<float>::lowest();
    if (!lowerText.empty())
        lower = extractBoundValue(p_paramName, lowerText, p_units);
    float upper = std::numeric_limits<float>::max();
    if (!upperText.empty())
        upper = extractBoundValue(p_paramName, upperText, p_units);

    if (!satisfiesLowerBound(p_value, lower))
        raise<Msg::BelowLowerBound>(p_paramName, p_objectPath, m_model->paramValue(p_objectPath, p_paramName),
                                    lowerText);

    if (!satisfiesUpperBound(p_value, upper))
        raise<Msg::AboveUpperBound>(p_paramName, p_objectPath, m_model->paramValue(p_objectPath, p_paramName),
                                    upperText);
}

float DimExprChecker::extractBoundValue(const std::string& p_paramName, const std::string& p_boundText,
                                        const std::string& p_units)
{
    float number = 0.0F;
    std::string boundUnits;
    if (splitBoundString(p_boundText, number, boundUnits))
    {
        const UnitsConverter& converter = UnitsConverter::instance();
        float result = 0.0F;
        if (converter.convertUnits(boundUnits, p_units, number, result, true))
            return result;

        // Units that differ by an angle only are made alike by the angle that is missing.
        const double tolerance = unitsTolerance();
        const UnitDimensions dims = converter.dimsFromUnits(p_units);
        const UnitDimensions boundDims = converter.dimsFromUnits(boundUnits);
        const float missingAngle = boundDims[UnitDimensions::k_angle] - dims[UnitDimensions::k_angle];
        if (agreeButForAngle(dims, boundDims, tolerance))
        {
            const std::string angle = StringUtilities::toString(static_cast<double>(missingAngle), "%12g");
            if (converter.convertUnits(boundUnits, p_units + " rad^" + angle, number, result, true))
                return result;
        }
    }
    raise<Msg::InvalidBound>(p_paramName);
}

bool DimExprChecker::splitBoundString(const std::string& p_boundText, float& p_value, std::string& p_units)
{
    const auto cached = m_boundCache.find(p_boundText);
    if (cached != m_boundCache.end())
    {
        p_value = cached->second.first;
        p_units = cached->second.second;
        return true;
    }

    bool isNumber = false;
    std::string number;
    p_value = StringUtilities::valueAsFloat(p_boundText, isNumber, number, p_units);
    if (isNumber)
        m_boundCache.emplace(p_boundText, std::make_pair(p_value, p_units));
    return isNumber;
}

}    // namespace qen
