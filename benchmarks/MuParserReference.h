#pragma once

#include <muParser.h>

#include <array>
#include <cstddef>
#include <string>

namespace qen::benchmarks {

/// muParser with everything that the formulas name, defined once.
class MuParserReference {
public:
    MuParserReference()
    {
        for (std::size_t i = 0; i < k_variables.size(); ++i)
        {
            m_values[i] = k_variables[i].value;
            m_parser.DefineVar(k_variables[i].name, &m_values[i]);
        }
    }

    MuParserReference(const MuParserReference&) = delete;
    MuParserReference& operator=(const MuParserReference&) = delete;

    /// Parses a formula and evaluates it for the first time.
    ///
    /// @throws mu::Parser::exception_type  The formula is bad.
    double operator()(const std::string& p_text)
    {
        m_parser.SetExpr(p_text);
        return m_parser.Eval();
    }

private:
    struct Variable {
        const char* name;
        double value;    // in SI units
    };

    // clang-format off
    static constexpr std::array k_variables = std::to_array<Variable>({
        {"mps",  1.0}, {"s",    1.0},  {"m",   1.0}, {"Pa",  1.0},   {"K",   1.0},        {"Wm2", 1.0},
        {"kgps", 1.0}, {"ps",   1.0},  {"bar", 1e5}, {"rpm", 0.105}, {"visc", 1.0},       {"htc", 1.0},
        {"C",    1.0}, {"acc",  1.0},  {"t",   0.5}, {"r",   0.02},  {"x",    0.01},      {"y",   0.01},
        {"z",    0.02}, {"g",   9.81}, {"pi",  3.14159265358979},    {"Density", 1.2},
        {"Velocityu", 3.0}, {"Temperature", 350.0}, {"TotalPressure", 2e5},
    });
    // clang-format on

    mu::Parser m_parser;
    std::array<double, k_variables.size()> m_values {};
};

}    // namespace qen::benchmarks
