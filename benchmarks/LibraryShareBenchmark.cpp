/// @file
/// The library's own share of a full passing check: its time over that of the calls that it makes of its host, and what
/// it takes from the heap itself. Prints one line per formula and the mean of the ratios.
///
/// The calls of each check are noted once and made again in turns with the check. One digit of the text changes from call
/// to call. Ends with status 1 only when a check does not pass: times depend on what else the machine does, so that the
/// instructions are judged, by count_checks, and the heap by a test.

#include "CheckSetting.h"
#include "Formulas.h"
#include "HostReplay.h"
#include "Measure.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace qen::benchmarks;

constexpr double k_limit = 1.5;

bool run()
{
    CheckSetting setting;
    if (!setting.allPass())
        return false;

    const auto world = setting.install();
    HostReplay replay(setting);
    std::size_t failures = 0;
    double sumOfRatios = 0.0;
    std::printf("%10s %10s %7s %6s %6s\n", "check [ns]", "host [ns]", "ratio", "calls", "blocks");
    for (const Formula& formula : k_formulas)
    {
        const HostReplay::Calls calls = replay.callsOf(formula);
        const auto check = [&](const std::string& p_text) {
            if (!setting.passes(formula, p_text))
                ++failures;
        };
        const auto host = [&](const std::string& p_text) { calls.repeat(p_text); };

        Formula sameText = formula;
        sameText.plain = formula.expression;
        const FormulaTimer::Times times = FormulaTimer::measure(sameText, check, host);
        sumOfRatios += times.ratio();
        std::printf("%10.0f %10.0f %7.3f %6zu %6zu  %s\n", times.ours, times.theirs, times.ratio(),
                    calls.count(), calls.blocksOfLibrary(), formula.expression);
    }
    std::printf("mean ratio %.3f, to be at most %.2f\n", sumOfRatios / static_cast<double>(k_formulas.size()),
                k_limit);
    if (failures != 0)
        std::fprintf(stderr, "%zu checks did not pass\n", failures);
    return failures == 0;
}

}    // namespace

int main()
{
    try
    {
        return run() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}
