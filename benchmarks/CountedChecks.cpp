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
#include "LargeSettings.h"
#include "MuParserReference.h"

#include <valgrind/callgrind.h>

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

constexpr std::string_view k_countedDigits = "12345678";
constexpr char k_warmUpDigit = '9';

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
    const auto world = setting.install();

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
