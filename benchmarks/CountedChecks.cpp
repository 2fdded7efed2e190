/// @file
/// The checks of the formulas for a program that counts instructions: callgrind. Run by count_checks.sh.
///
/// usage: CountedChecks VARIABLES OBJECTS
///
/// Checks each formula with a catalogue of that many variables and a model of that many objects, and has muParser parse
/// and evaluate the same formulas. What was counted is dumped for each formula and side under the name "check NUMBER"
/// or "muparser NUMBER". Building the catalogue and the model, and a first call of each, are not counted. No text is
/// the same as one before it.

#include "CheckSetting.h"
#include "Formulas.h"
#include "MuParserReference.h"

#include "qcl/QclReader.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using namespace qen::benchmarks;
using qen::PreVariableDefStore;
using Parameters = std::map<std::string, std::string>;

constexpr std::string_view k_countedDigits = "12345678";
constexpr char k_warmUpDigit = '9';

// The shipped variables that the formulas name; a vector is followed by its three components.
constexpr std::array<std::string_view, 9> k_needed {"x", "y", "z", "r", "t", "density", "vel", "T", "ptot"};
constexpr std::size_t k_smallestCatalogue = k_needed.size() + 3;
constexpr std::size_t k_smallestModel = 10;

void addNeededVariables(PreVariableDefStore& p_store)
{
    constexpr std::string_view k_section = "/VARIABLE:";
    std::size_t found = 0;
    for (const auto& object : qen::standalone::readQclFile(QEN_DEFINITIONS_DIR "/VARIABLES.qcl").objects)
    {
        if (!object.path.starts_with(k_section))
            continue;
        const std::string name = object.path.substr(k_section.size());
        if (std::find(k_needed.begin(), k_needed.end(), name) == k_needed.end())
            continue;
        Parameters parameters;
        for (const auto& parameter : object.parameters)
            parameters.emplace(parameter.name, parameter.value);
        p_store.addVariableDefinition(name, parameters);
        ++found;
    }
    if (found != k_needed.size())
        throw std::runtime_error("VARIABLES.qcl lacks variables that the formulas name");
}

/// Fills the catalogue up to a number of variables. The others begin like those that the formulas name.
void fillCatalogue(PreVariableDefStore& p_store, std::size_t p_variables)
{
    constexpr std::array k_beginnings {"Density", "Velocity", "Temperature", "Total Pressure"};
    addNeededVariables(p_store);
    for (std::size_t i = k_smallestCatalogue; i < p_variables; ++i)
    {
        const std::string number = std::to_string(i);
        p_store.addVariableDefinition(
            "sample" + number, Parameters {{"Long Name", k_beginnings[i % 4] + (" of Sample " + number)},
                                           {"Quantity", "Length"},
                                           {"Tensor Type", "SCALAR"},
                                           {"General Availability", "QEL"},
                                           {"Variable Scope", "GLOBAL"},
                                           {"Field Variable", "Yes"}});
    }
}

/// Fills the model up to a number of objects: boundaries of the domain whose boundary is checked, and materials, each
/// with one object in it.
void fillModel(qen::standalone::ModelTree& p_model, std::size_t p_objects)
{
    std::size_t number = 0;
    for (std::size_t objects = k_smallestModel; objects + 2 <= p_objects; objects += 2)
    {
        const std::string name = std::to_string(++number);
        if (number % 2 == 0)
            p_model.setParameter("/LIBRARY/MATERIAL:Gas " + name + "/DYNAMIC VISCOSITY", "Dynamic Viscosity",
                                 "2e-5 [Pa s]");
        else
            p_model.setParameter("/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side " + name + "/INFLOW", "Speed",
                                 "3 [m s^-1]");
    }
}

std::string withDigit(const char* p_text, char p_digit)
{
    std::string text = p_text;
    text.at(changingDigit(text)) = p_digit;
    return text;
}

/// Calls once uncounted, then counts one call for each digit, and dumps the count under a name.
template <class Call>
void count(const std::string& p_name, const char* p_text, const Call& p_call)
{
    p_call(withDigit(p_text, k_warmUpDigit));
    std::array<std::string, k_countedDigits.size()> texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = withDigit(p_text, k_countedDigits[i]);

    CALLGRIND_ZERO_STATS;
    CALLGRIND_START_INSTRUMENTATION;
    for (const std::string& text : texts)
        p_call(text);
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(p_name.c_str());
}

std::size_t numberFrom(const char* p_text, const char* p_what, std::size_t p_least)
{
    char* end = nullptr;
    const std::size_t number = std::strtoull(p_text, &end, 10);
    if (end == p_text || *end != '\0' || number < p_least)
        throw std::runtime_error(std::string("the number of ") + p_what + " must be at least " +
                                 std::to_string(p_least) + ", not '" + p_text + "'");
    return number;
}

bool run(std::size_t p_variables, std::size_t p_objects)
{
    PreVariableDefStore variables;
    fillCatalogue(variables, p_variables);
    CheckSetting setting(variables);
    fillModel(setting.model(), p_objects);
    MuParserReference reference;

    bool allRight = true;
    for (std::size_t i = 0; i < k_formulas.size(); ++i)
    {
        const Formula& formula = k_formulas[i];
        const std::string number = std::to_string(i + 1);
        count("check " + number, formula.expression,
              [&](const std::string& p_text) { allRight = setting.passes(formula, p_text) && allRight; });
        count("muparser " + number, formula.plain,
              [&](const std::string& p_text) { allRight = std::isfinite(reference(p_text)) && allRight; });
    }
    if (!allRight)
        std::fprintf(stderr, "A check did not pass, or an evaluation had no finite result\n");
    return setting.allPass() && allRight;
}

}    // namespace

int main(int p_count, char** p_arguments)
{
    if (p_count != 3)
    {
        std::fprintf(stderr, "usage: CountedChecks VARIABLES OBJECTS\n");
        return 2;
    }
    try
    {
        return run(numberFrom(p_arguments[1], "variables", k_smallestCatalogue),
                   numberFrom(p_arguments[2], "objects", k_smallestModel))
                   ? EXIT_SUCCESS
                   : EXIT_FAILURE;
    }
    catch (const mu::Parser::exception_type& error)
    {
        std::fprintf(stderr, "muParser: %s in %s\n", error.GetMsg().c_str(), error.GetExpr().c_str());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 2;
}
