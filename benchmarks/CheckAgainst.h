#pragma once

#include "CheckSetting.h"
#include "Formulas.h"
#include "Measure.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace qen::benchmarks {

/// Times the full passing check of each formula in turns with what another program makes of it. Prints one line per
/// formula, and the mean of the ratios of the check's time to the other's.
///
/// @tparam Reference       Takes a text, and says with `textOf` how it writes a formula.
/// @param p_name           Of the other program.
/// @param p_limit          What the mean should be at most; for people, since times depend on what else the machine does.
/// @param p_callsPerRound  Of which there are 41.
/// @return EXIT_SUCCESS, unless a check does not pass or the other program refuses a text.
template <class Reference>
int checkAgainst(const char* p_name, double p_limit, std::size_t p_callsPerRound)
{
    try
    {
        CheckSetting setting;
        if (!setting.allPass())
            return EXIT_FAILURE;

        const auto world = setting.install();
        Reference reference;
        std::size_t failures = 0;
        double sumOfRatios = 0.0;
        std::printf("%10s %10s %7s\n", "check [ns]", p_name, "ratio");
        for (const Formula& formula : k_formulas)
        {
            const auto check = [&](const std::string& p_text) {
                if (!setting.passes(formula, p_text))
                    ++failures;
            };
            const auto refer = [&](const std::string& p_text) { reference(p_text); };
            const std::string theirText = Reference::textOf(formula);
            Formula texts = formula;
            texts.plain = theirText.c_str();
            const FormulaTimer::Times times = FormulaTimer::measure(texts, check, refer, p_callsPerRound);
            sumOfRatios += times.ratio();
            std::printf("%10.0f %10.0f %7.4f  %s\n", times.ours, times.theirs, times.ratio(),
                        theirText.c_str());
        }
        std::printf("mean ratio %.4f, to be at most %.2f\n",
                    sumOfRatios / static_cast<double>(k_formulas.size()), p_limit);
        if (failures != 0)
            std::fprintf(stderr, "%zu checks did not pass\n", failures);
        return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}

}    // namespace qen::benchmarks
