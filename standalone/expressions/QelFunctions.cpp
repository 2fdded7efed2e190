#include "expressions/QelFunctions.h"

#include "expressions/QelExpression.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace qen::standalone {
namespace qel {
namespace {

constexpr unsigned k_anyNumber = ~0U;

// Half at zero, so that step(x) + step(-x) is 1 everywhere.
double stepValue(double p_x)
{
    if (std::isnan(p_x))
        return p_x;
    return p_x < 0.0 ? 0.0 : p_x > 0.0 ? 1.0 : 0.5;
}

// The result has the sign of the divisor, so that mod(t, period) is a sawtooth also for negative t.
double modValue(double p_x, double p_divisor)
{
    const double rest = std::fmod(p_x, p_divisor);
    return rest != 0.0 && (rest < 0.0) != (p_divisor < 0.0) ? rest + p_divisor : rest;
}

// clang-format off
// NOLINTBEGIN(readability-identifier-naming): the letters of formulas
constexpr std::array k_functions {
    Function {"sin",   DimsRule::AngleToNumber,  1, 1, [](double x, double, double) { return std::sin(x); }},
    Function {"cos",   DimsRule::AngleToNumber,  1, 1, [](double x, double, double) { return std::cos(x); }},
    Function {"tan",   DimsRule::AngleToNumber,  1, 1, [](double x, double, double) { return std::tan(x); }},
    Function {"asin",  DimsRule::NumberToAngle,  1, 1, [](double x, double, double) { return std::asin(x); }},
    Function {"acos",  DimsRule::NumberToAngle,  1, 1, [](double x, double, double) { return std::acos(x); }},
    Function {"atan",  DimsRule::NumberToAngle,  1, 1, [](double x, double, double) { return std::atan(x); }},
    Function {"atan2", DimsRule::RatioToAngle,   2, 2, [](double y, double x, double) { return std::atan2(y, x); }},
    Function {"sinh",  DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::sinh(x); }},
    Function {"cosh",  DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::cosh(x); }},
    Function {"tanh",  DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::tanh(x); }},
    Function {"sqrt",  DimsRule::Root,           1, 1, [](double x, double, double) { return std::sqrt(x); }},
    Function {"exp",   DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::exp(x); }},
    Function {"ln",    DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::log(x); }},
    Function {"log10", DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::log10(x); }},
    Function {"abs",   DimsRule::Same,           1, 1, [](double x, double, double) { return std::fabs(x); }},
    Function {"min",   DimsRule::Equal,          2, k_anyNumber,
              [](double x, double y, double) { return y < x || std::isnan(y) ? y : x; }},
    Function {"max",   DimsRule::Equal,          2, k_anyNumber,
              [](double x, double y, double) { return y > x || std::isnan(y) ? y : x; }},
    Function {"mod",   DimsRule::Equal,          2, 2, [](double x, double y, double) { return modValue(x, y); }},
    Function {"floor", DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::floor(x); }},
    Function {"round", DimsRule::NumberToNumber, 1, 1, [](double x, double, double) { return std::round(x); }},
    Function {"step",  DimsRule::AnyToNumber,    1, 1, [](double x, double, double) { return stepValue(x); }},
    Function {"if",    DimsRule::Choice,         3, 3,
              [](double c, double x, double y) { return std::isnan(c) ? c : c != 0.0 ? x : y; }},
};
// NOLINTEND(readability-identifier-naming)

// Exact in the SI since 2019 (SI brochure, 9th edition): e, h, k_B, N_A, c, and R = N_A k_B and sigma, which follow.
// Standard gravity: 3rd General Conference on Weights and Measures, 1901. epsilon_0, mu_0: CODATA 2018.
//                                                                     kg  m  s   K  rad mol A  cd sr bit
constexpr std::array k_constants {
    Constant {"pi",                  std::numbers::pi,        {0, 0,  0,  0, 0,  0,  0, 0, 0, 0}},
    Constant {"e",                   std::numbers::e,         {0, 0,  0,  0, 0,  0,  0, 0, 0, 0}},
    Constant {"g",                   9.80665,                 {0, 1, -2,  0, 0,  0,  0, 0, 0, 0}},
    Constant {"R",                   8.31446261815324,        {1, 2, -2, -1, 0, -1,  0, 0, 0, 0}},
    Constant {"avogadro",            6.02214076e23,           {0, 0,  0,  0, 0, -1,  0, 0, 0, 0}},
    Constant {"boltzmann",           1.380649e-23,            {1, 2, -2, -1, 0,  0,  0, 0, 0, 0}},
    Constant {"planck",              6.62607015e-34,          {1, 2, -1,  0, 0,  0,  0, 0, 0, 0}},
    Constant {"speed of light",      299792458.0,             {0, 1, -1,  0, 0,  0,  0, 0, 0, 0}},
    Constant {"stefan boltzmann",    5.670374419e-8,          {1, 0, -3, -4, 0,  0,  0, 0, 0, 0}},
    Constant {"elementary charge",   1.602176634e-19,         {0, 0,  1,  0, 0,  0,  1, 0, 0, 0}},
    Constant {"vacuum permittivity", 8.8541878128e-12,        {-1, -3, 4, 0, 0,  0,  2, 0, 0, 0}},
    Constant {"vacuum permeability", 1.25663706212e-6,        {1, 1, -2,  0, 0,  0, -2, 0, 0, 0}},
};
// clang-format on

// Rows by first and last character and length, so that a look-up compares with hardly more than one name.
constexpr std::size_t k_slots = 64;

constexpr std::size_t slotOf(std::string_view p_name)
{
    const auto first = static_cast<unsigned char>(p_name.front());
    const auto last = static_cast<unsigned char>(p_name.back());
    return (first * 5U + last * 3U + p_name.size() * 7U) % k_slots;
}

template <std::size_t N>
struct SlotIndex {
    std::array<std::uint8_t, k_slots> first {};    // row + 1; 0 for none
    std::array<std::uint8_t, N> next {};
};

template <class Row, std::size_t N>
constexpr SlotIndex<N> indexed(const std::array<Row, N>& p_rows)
{
    SlotIndex<N> index;
    for (std::size_t i = N; i-- > 0;)
    {
        std::uint8_t& slot = index.first[slotOf(p_rows[i].name)];
        index.next[i] = slot;
        slot = static_cast<std::uint8_t>(i + 1);
    }
    return index;
}

template <class Row, std::size_t N>
const Row* findRow(const std::array<Row, N>& p_rows, const SlotIndex<N>& p_index, std::string_view p_name)
{
    if (p_name.empty())
        return nullptr;
    for (std::size_t row = p_index.first[slotOf(p_name)]; row != 0; row = p_index.next[row - 1])
        if (p_rows[row - 1].name == p_name)
            return &p_rows[row - 1];
    return nullptr;
}

constexpr auto k_functionIndex = indexed(k_functions);
constexpr auto k_constantIndex = indexed(k_constants);

}

std::span<const Function> functions() { return k_functions; }

std::span<const Constant> constants() { return k_constants; }

const Function* findFunction(std::string_view p_name)
{
    return findRow(k_functions, k_functionIndex, p_name);
}

const Constant* findConstant(std::string_view p_name)
{
    return findRow(k_constants, k_constantIndex, p_name);
}

}    // namespace qel

bool isQelConstant(std::string_view p_name) { return qel::findConstant(p_name) != nullptr; }

}    // namespace qen::standalone
