/// @file
/// What it costs to analyse an expression, in multiples of what muParser needs to parse and evaluate the same formula
/// once. Prints one line per formula and the mean of the ratios; ends with status 1 when the mean is above the limit.
///
/// Twenty boundary-condition formulas of 8 to 110 characters. Both sides run in one process, in interleaved rounds; the
/// median of the rounds counts. One digit of the text changes with each call, so that nothing can be known beforehand.
/// On the side of muParser names are joined to one word and units are variables; one parser object serves all calls,
/// and its variables are defined once.

#include "PreVariableDefStore.h"

#include "expressions/QelExpression.h"
#include "model/ModelTree.h"
#include "qcl/QclReader.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <muParser.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace qen::standalone;

constexpr double k_limit = 0.12;
constexpr std::size_t k_rounds = 41;
constexpr std::size_t k_callsPerRound = 200;

struct Formula {
    std::string expression;
    std::string plain;    // for muParser; its first digit is the one that changes, as in the expression
};

// clang-format off
const std::vector<Formula> k_formulas {
    {"2 [m s^-1] * min(1, t / 0.5 [s])",                    "2 * mps * min(1, t / (0.5 * s))"},
    {"3 [m s^-1] * (1 - (r / 0.1 [m])^2)",                  "3 * mps * (1 - (r / (0.1 * m))^2)"},
    {"1325 [Pa] + Density * g * (1 [m] - y)",               "1325 * Pa + Density * g * (1 * m - y)"},
    {"3 [K] + 50 [K] * sin(2 * pi * t / 1 [s])",            "3 * K + 50 * K * sin(2 * pi * t / (1 * s))"},
    {"5 [m s^-1]",                                          "5 * mps"},
    {"2 [m s^-1] * (y / 0.2 [m])^(1/7)",                    "2 * mps * (y / (0.2 * m))^(1/7)"},
    {"4 [m s^-1] * ln((y + 0.01 [m]) / 0.01 [m]) / ln(20)", "4 * mps * ln((y + 0.01 * m) / (0.01 * m)) / ln(20)"},
    {"2 [K] + (350 [K] - 293 [K]) * exp(-t / 2.5 [s])",     "2 * K + (350 * K - 293 * K) * exp(-t / (2.5 * s))"},
    {"if(t < 1 [s], 0 [Pa], 500 [Pa])",                     "t < 1 * s ? 0 * Pa : 500 * Pa"},
    {"6 [W m^-2] * max(0, cos(2 * pi * (t - 43200 [s]) / 86400 [s]))",
     "6 * Wm2 * max(0, cos(2 * pi * (t - 43200 * s) / (86400 * s)))"},
    {"1 [m s^-1] * sqrt(1 - (x^2 + y^2) / (0.05 [m])^2)",   "1 * mps * sqrt(1 - (x^2 + y^2) / (0.05 * m)^2)"},
    {"0.5 * Density * Velocity u^2",                        "0.5 * Density * Velocityu^2"},
    {"2 [kg s^-1] * (1 + 0.1 * sin(2 * pi * 50 [s^-1] * t))",
     "2 * kgps * (1 + 0.1 * sin(2 * pi * 50 * ps * t))"},
    {"1 [bar] - 0.5 * Density * (15 [m s^-1])^2",           "1 * bar - 0.5 * Density * (15 * mps)^2"},
    {"-1200 [rev min^-1] * step(t - 0.1 [s])",              "-1200 * rpm * abs(t - 0.1 * s)"},
    {"1e-3 [kg m^-1 s^-1] * exp(1000 [K] * (1 / Temperature - 1 / 300 [K]))",
     "1e-3 * visc * exp(1000 * K * (1 / Temperature - 1 / (300 * K)))"},
    {"9 [W m^-2 K^-1] * (Temperature - 25 [C])",            "9 * htc * (Temperature - 25 * C)"},
    {"3 [m s^-1] * (t < 2 [s] && x > 0 [m]) + 1 [m s^-1] * (t >= 2 [s] || x <= 0 [m])",
     "3 * mps * (t < 2 * s && x > 0 * m) + 1 * mps * (t >= 2 * s || x <= 0 * m)"},
    {"4 [m s^-1] * (1 - abs(y) / 0.25 [m]) * (1 - abs(z) / 0.25 [m])",
     "4 * mps * (1 - abs(y) / (0.25 * m)) * (1 - abs(z) / (0.25 * m))"},
    {"5 * Total Pressure / (Density * 9.81 [m s^-2] * 10 [m])",
     "5 * TotalPressure / (Density * 9.81 * acc * 10 * m)"},
};
// clang-format on

class Catalogue {
public:
    Catalogue()
    {
        Diagnostics problems;
        units.addDefinitions(readQclFile(QEN_DEFINITIONS_DIR "/UNITS.qcl"), problems);
        for (const QclObject& object : readQclFile(QEN_DEFINITIONS_DIR "/VARIABLES.qcl").objects)
        {
            constexpr std::string_view k_type = "/VARIABLE:";
            if (!object.path.starts_with(k_type))
                continue;
            std::map<std::string, std::string> parameters;
            for (const QclParameter& parameter : object.parameters)
                parameters.emplace(parameter.name, parameter.value);
            variables.addVariableDefinition(object.path.substr(k_type.size()), parameters);
        }
        world.units = &units;
        world.variables = &variables;
        world.model = &model;
    }

    UnitSystem units;
    qen::PreVariableDefStore variables;
    ModelTree model;
    World world;
};

class Reference {
public:
    Reference()
    {
        std::size_t next = 0;
        for (const char* name : {"mps",  "s",       "m",         "Pa",          "K",
                                 "Wm2",  "kgps",    "ps",        "bar",         "rpm",
                                 "visc", "htc",     "C",         "acc",         "t",
                                 "r",    "x",       "y",         "z",           "g",
                                 "pi",   "Density", "Velocityu", "Temperature", "TotalPressure"})
        {
            m_values.at(next) = 1.0 + 0.01 * static_cast<double>(next);
            m_parser.DefineVar(name, &m_values.at(next));
            ++next;
        }
    }

    double operator()(const std::string& p_text)
    {
        m_parser.SetExpr(p_text);
        return m_parser.Eval();
    }

private:
    mu::Parser m_parser;
    std::array<double, 32> m_values {};
};

std::size_t changingDigit(const std::string& p_text) { return p_text.find_first_of("123456789"); }

template <class Call>
double nanosecondsPerCall(std::string p_text, const Call& p_call)
{
    const std::size_t digit = changingDigit(p_text);
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < k_callsPerRound; ++i)
    {
        p_text[digit] = static_cast<char>('1' + i % 9);
        p_call(p_text);
    }
    const auto end = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::nano>(end - begin).count() /
           static_cast<double>(k_callsPerRound);
}

double median(std::vector<double> p_values)
{
    const auto middle = p_values.begin() + static_cast<std::ptrdiff_t>(p_values.size() / 2);
    std::nth_element(p_values.begin(), middle, p_values.end());
    return *middle;
}

}    // namespace

int main(int p_count, char** p_arguments)
{
    const Catalogue catalogue;
    Reference reference;
    double checksum = 0.0;
    const auto analyse = [&](const std::string& p_text) {
        const QelResult result = analyseExpression(p_text, catalogue.world);
        checksum += static_cast<double>(result.variables.size() + (result.constantValue ? 1U : 0U));
    };
    const auto evaluate = [&](const std::string& p_text) {
        checksum += std::isfinite(reference(p_text)) ? 1.0 : 0.0;
    };

    for (const Formula& formula : k_formulas)
    {
        const QelResult result = analyseExpression(formula.expression, catalogue.world);
        if (!result.error)
            continue;
        std::fprintf(stderr, "%s\n    %s\n", formula.expression.c_str(), result.error->message.c_str());
        return EXIT_FAILURE;
    }
    if (p_count > 1 && std::string_view(p_arguments[1]) == "--profile")    // our side alone, for a profiler
    {
        for (std::size_t round = 0; round < 20; ++round)
            for (const Formula& formula : k_formulas)
                nanosecondsPerCall(formula.expression, analyse);
        return EXIT_SUCCESS;
    }

    double sumOfRatios = 0.0;
    std::printf("%10s %10s %7s\n", "qel [ns]", "mu [ns]", "ratio");
    for (const Formula& formula : k_formulas)
    {
        std::vector<double> ours;
        std::vector<double> theirs;
        for (std::size_t round = 0; round < k_rounds; ++round)
        {
            ours.push_back(nanosecondsPerCall(formula.expression, analyse));
            theirs.push_back(nanosecondsPerCall(formula.plain, evaluate));
        }
        const double ratio = median(ours) / median(theirs);
        sumOfRatios += ratio;
        std::printf("%10.0f %10.0f %7.3f  %s\n", median(ours), median(theirs), ratio,
                    formula.expression.c_str());
    }
    const double mean = sumOfRatios / static_cast<double>(k_formulas.size());
    std::printf("mean ratio %.3f, limit %.3f (checksum %.0f)\n", mean, k_limit, checksum);
    return mean <= k_limit ? EXIT_SUCCESS : EXIT_FAILURE;
}
