/// @file
/// What the full passing check of an expression costs, standalone host included, in multiples of what muParser needs to
/// parse and evaluate the same formula once. Prints one line per formula and the mean of the ratios.
///
/// One digit of the text changes with each call. Ends with status 1 only when a check does not pass: times depend on
/// what else the machine does, so that the instructions are judged, by count_checks.

#include "CheckSetting.h"
#include "Formulas.h"
#include "Measure.h"
#include "MuParserReference.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace qen::benchmarks;

constexpr double k_limit = 0.25;

bool run()
{
    CheckSetting setting;
    if (!setting.allPass())
        return false;

    const auto world = setting.install();
    MuParserReference reference;
    std::size_t failures = 0;
    const auto evaluate = [&](const std::string& p_text) {
        if (!std::isfinite(reference(p_text)))
            ++failures;
    };

    double sumOfRatios = 0.0;
    std::printf("%10s %10s %7s\n", "check [ns]", "mu [ns]", "ratio");
    for (const Formula& formula : k_formulas)
    {
        const auto check = [&](const std::string& p_text) {
            if (!setting.passes(formula, p_text))
                ++failures;
        };
        const FormulaTimer::Times times = FormulaTimer::measure(formula, check, evaluate);
        sumOfRatios += times.ratio();
        std::printf("%10.0f %10.0f %7.3f  %s\n", times.ours, times.theirs, times.ratio(), formula.expression);
    }
    std::printf("mean ratio %.3f, to be at most %.2f\n", sumOfRatios / static_cast<double>(k_formulas.size()),
                k_limit);
    if (failures != 0)
        std::fprintf(stderr, "%zu checks or evaluations went wrong\n", failures);
    return failures == 0;
}

}    // namespace

int main()
{
    try
    {
        return run() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const mu::Parser::exception_type& error)
    {
        std::fprintf(stderr, "muParser: %s in %s\n", error.GetMsg().c_str(), error.GetExpr().c_str());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}
