#pragma once

#include "UnitDimensions.h"

#include "expressions/QelExpression.h"

#include <cmath>
#include <cstddef>

/// @file
/// Arithmetic on the dimensions of operands. An angle counts as dimensionless wherever dimensions are compared.

namespace qen::standalone::qel {

inline constexpr float k_dimsTolerance = 1e-4F;    // roots such as ^(1/3) leave rounding behind

/// One operand. Most are plain: all exponents are zero, and nothing has to be done for them.
struct Operand {
    UnitDimensions dims;
    double value = 0.0;    // in base units; of a constant only
    bool constant = true;
    bool plain = true;
};

inline bool isPlain(const UnitDimensions& p_dims)
{
    bool plain = true;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        plain &= p_dims[i] == 0.0F;
    return plain;
}

inline bool isDimensionless(const Operand& p_operand)
{
    if (p_operand.plain)
        return true;
    bool none = true;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        none &= i == UnitDimensions::k_angle || std::fabs(p_operand.dims[i]) < k_dimsTolerance;
    return none;
}

inline bool agree(const Operand& p_left, const Operand& p_right)
{
    if (p_left.plain && p_right.plain)
        return true;
    bool same = true;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        same &= i == UnitDimensions::k_angle || std::fabs(p_left.dims[i] - p_right.dims[i]) < k_dimsTolerance;
    return same;
}

inline void setDims(Operand& p_operand, const UnitDimensions& p_dims)
{
    p_operand.dims = p_dims;
    p_operand.plain = isPlain(p_dims);
}

inline void clearDims(Operand& p_operand)
{
    if (p_operand.plain)
        return;
    p_operand.dims = UnitDimensions();
    p_operand.plain = true;
}

/// Adds the exponents of the right operand, times a sign. False when one goes beyond the limit.
inline bool multiplyDims(Operand& p_left, const Operand& p_right, float p_sign)
{
    if (p_right.plain)
        return true;
    bool plain = true;
    bool within = true;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
    {
        const float sum = p_left.dims[i] + p_sign * p_right.dims[i];
        p_left.dims[i] = sum;
        plain &= sum == 0.0F;
        within &= std::fabs(sum) <= QelLimits::k_dimensionExponent;
    }
    p_left.plain = plain;
    return within;
}

/// Multiplies all exponents. False when one goes beyond the limit, or is no number.
inline bool scaleDims(Operand& p_operand, double p_factor)
{
    if (p_operand.plain)
        return true;
    bool within = true;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
    {
        const double product = static_cast<double>(p_operand.dims[i]) * p_factor;
        within &= std::fabs(product) <= static_cast<double>(QelLimits::k_dimensionExponent);
        p_operand.dims[i] = within ? static_cast<float>(product) : 0.0F;
    }
    p_operand.plain = isPlain(p_operand.dims);
    return within;
}

}    // namespace qen::standalone::qel
