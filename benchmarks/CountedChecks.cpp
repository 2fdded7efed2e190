/// @file
/// The checks of the formulas for a program that counts instructions: callgrind. Run by count_checks.sh.
///
/// usage: CountedChecks VARIABLES OBJECTS
///
/// Checks each formula with a catalogue of that many variables and a model of that many objects, and has muParser parse
/// and evaluate the same formulas. What was counted is dumped for each formula and side under the name "check NUMBER"
/// or "muparser NUMBER". Building the catalogue and the model, and a first call of each, are not counted. No text is
/// the same as one before it. Under "lookup NUMBER" it dumps what the catalogue takes to find a variable by its name, in
/// each way in which it can be asked; the names are the same whatever the size of the catalogue.

#include "CheckSetting.h"
#include "Counting.h"
#include "Formulas.h"
#include "LargeSettings.h"
#include "MuParserReference.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using namespace qen::benchmarks;
using qen::PreVariableDefStore;

/// Short names and long ones of 20 variables that stand in each catalogue, whatever its size.
constexpr std::array k_names {
    "density",
    "vel u",
    "ptot",
    "Temperature",
    "Total Pressure",
    "sample12",
    "sample27",
    "sample38",
    "sample45",
    "sample56",
    "sample61",
    "sample79",
    "sample83",
    "sample99",
    "Density of Sample 16",
    "Velocity of Sample 33",
    "Temperature of Sample 50",
    "Total Pressure of Sample 67",
    "Density of Sample 84",
    "Velocity of Sample 97",
};
static_assert(k_names.size() == 20);

/// Counts each way to ask for a variable once for each name, which was asked for before.
bool countLookUps(const PreVariableDefStore& p_variables)
{
    bool allThere = true;
    std::size_t number = 0;
    for (const std::string name : k_names)
    {
        const auto lookUp = [&] {
            return p_variables.hasVariable(name) &&
                   &p_variables.variableData(name) ==
                       &p_variables.variableData(p_variables.variableIndex(name));
        };
        allThere = lookUp() && allThere;

        allThere = counted("lookup " + std::to_string(++number), lookUp) && allThere;
    }
    return allThere;
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
    const auto world = setting.install();

    bool allRight = countLookUps(variables);
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
        std::fprintf(stderr,
                     "A check did not pass, an evaluation had no finite result or a name was not found\n");
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
