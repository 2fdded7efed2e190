#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace qen::benchmarks {

/// One expression as a user would give it for a boundary condition or a material, and the same for muParser.
struct Formula {
    const char* objectPath;    ///< of the object whose parameter takes the expression
    const char* paramName;
    const char* expression;
    const char* plain;    ///< names joined to one word, units replaced by variables
};

// With their ancestors these are the ten objects of the smallest model that is measured.
inline constexpr const char* k_inflow = "/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side/INFLOW";
inline constexpr const char* k_opening = "/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side/OPENING";
inline constexpr const char* k_wall = "/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side/WALL";
inline constexpr const char* k_heatTransfer = "/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side/HEAT TRANSFER";
inline constexpr const char* k_viscosity = "/LIBRARY/MATERIAL:Gas/DYNAMIC VISCOSITY";

// clang-format off
inline constexpr std::array k_formulas = std::to_array<Formula>({
    {k_inflow, "Speed",
     "2 [m s^-1] * min(1, t / 0.5 [s])",
     "2 * mps * min(1, t / (0.5 * s))"},
    {k_inflow, "Speed",
     "3 [m s^-1] * (1 - (r / 0.1 [m])^2)",
     "3 * mps * (1 - (r / (0.1 * m))^2)"},
    {k_opening, "Relative Pressure",
     "1325 [Pa] + Density * g * (1 [m] - y)",
     "1325 * Pa + Density * g * (1 * m - y)"},
    {k_heatTransfer, "Static Temperature",
     "3 [K] + 50 [K] * sin(2 * pi * t / 1 [s])",
     "3 * K + 50 * K * sin(2 * pi * t / (1 * s))"},
    {k_wall, "Slip Coefficient",
     "5 [m s^-1]",
     "5 * mps"},
    {k_inflow, "Speed",
     "2 [m s^-1] * (y / 0.2 [m])^(1/7)",
     "2 * mps * (y / (0.2 * m))^(1/7)"},
    {k_inflow, "Velocity W",
     "4 [m s^-1] * ln((y + 0.01 [m]) / 0.01 [m]) / ln(20)",
     "4 * mps * ln((y + 0.01 * m) / (0.01 * m)) / ln(20)"},
    {k_heatTransfer, "Outside Temperature",
     "2 [K] + (350 [K] - 293 [K]) * exp(-t / 2.5 [s])",
     "2 * K + (350 * K - 293 * K) * exp(-t / (2.5 * s))"},
    {k_inflow, "Relative Pressure",
     "if(t < 1 [s], 0 [Pa], 500 [Pa])",
     "t < 1 * s ? 0 * Pa : 500 * Pa"},
    {k_heatTransfer, "Heat Flux In",
     "6 [W m^-2] * max(0, cos(2 * pi * (t - 43200 [s]) / 86400 [s]))",
     "6 * Wm2 * max(0, cos(2 * pi * (t - 43200 * s) / (86400 * s)))"},
    {k_opening, "Velocity U",
     "1 [m s^-1] * sqrt(1 - (x^2 + y^2) / (0.05 [m])^2)",
     "1 * mps * sqrt(1 - (x^2 + y^2) / (0.05 * m)^2)"},
    {k_opening, "Relative Pressure",
     "0.5 * Density * Velocity u^2",
     "0.5 * Density * Velocityu^2"},
    {k_inflow, "Mass Flow Rate",
     "2 [kg s^-1] * (1 + 0.1 * sin(2 * pi * 50 [s^-1] * t))",
     "2 * kgps * (1 + 0.1 * sin(2 * pi * 50 * ps * t))"},
    {k_inflow, "Relative Pressure",
     "1 [bar] - 0.5 * Density * (15 [m s^-1])^2",
     "1 * bar - 0.5 * Density * (15 * mps)^2"},
    {k_wall, "Wall Angular Velocity",
     "-1200 [rev min^-1] * step(t - 0.1 [s])",
     "-1200 * rpm * abs(t - 0.1 * s)"},
    {k_viscosity, "Dynamic Viscosity",
     "1e-3 [kg m^-1 s^-1] * exp(1000 [K] * (1 / Temperature - 1 / 300 [K]))",
     "1e-3 * visc * exp(1000 * K * (1 / Temperature - 1 / (300 * K)))"},
    {k_heatTransfer, "Heat Flux In",
     "9 [W m^-2 K^-1] * (Temperature - 25 [C])",
     "9 * htc * (Temperature - 25 * C)"},
    {k_wall, "Wall Velocity U",
     "3 [m s^-1] * (t < 2 [s] && x > 0 [m]) + 1 [m s^-1] * (t >= 2 [s] || x <= 0 [m])",
     "3 * mps * (t < 2 * s && x > 0 * m) + 1 * mps * (t >= 2 * s || x <= 0 * m)"},
    {k_inflow, "Velocity V",
     "4 [m s^-1] * (1 - abs(y) / 0.25 [m]) * (1 - abs(z) / 0.25 [m])",
     "4 * mps * (1 - abs(y) / (0.25 * m)) * (1 - abs(z) / (0.25 * m))"},
    {k_opening, "Relative Pressure",
     "5 [Pa] * Total Pressure / (Density * 9.81 [m s^-2] * 10 [m])",
     "5 * Pa * TotalPressure / (Density * 9.81 * acc * 10 * m)"},
});
// clang-format on
static_assert(k_formulas.size() == 20);

/// The place of the digit that a benchmark changes from call to call, so that no text is one that was seen before.
constexpr std::size_t changingDigit(std::string_view p_text) { return p_text.find_first_of("123456789"); }

}    // namespace qen::benchmarks
