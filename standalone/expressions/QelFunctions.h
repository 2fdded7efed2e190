#pragma once

#include "UnitDimensions.h"

#include <cstdint>
#include <span>
#include <string_view>

/// @file
/// The functions of mathematics and the constants of the expression language.

namespace qen::standalone::qel {

/// What a function asks of the dimensions of its arguments, and what it makes of them.
enum class DimsRule : std::uint8_t {
    AngleToNumber,     ///< an angle or a number; gives a number
    NumberToAngle,     ///< a number; gives an angle
    RatioToAngle,      ///< two of equal dimensions; gives an angle
    NumberToNumber,    ///< a number; gives a number
    AnyToNumber,       ///< any; gives a number
    Same,              ///< any; keeps them
    Root,              ///< any; halves them
    Equal,             ///< all equal; keeps those of the first
    Choice,            ///< a number, then two of equal dimensions; keeps those of the second
};

struct Function {
    std::string_view name;
    DimsRule rule;
    unsigned minArguments;
    unsigned maxArguments;
    double (*value)(double, double, double);    // of two or more: folds them from the left
};

std::span<const Function> functions();

/// The function of that name; null when there is none.
const Function* findFunction(std::string_view p_name);

struct Constant {
    std::string_view name;
    double value;
    float dims[UnitDimensions::k_count];
};

std::span<const Constant> constants();

/// The constant of that name; null when there is none.
const Constant* findConstant(std::string_view p_name);

}    // namespace qen::standalone::qel
