/// @file
/// The checks of the formulas beside three things that they are compared with, for a program that counts instructions:
/// callgrind. Run by count_checks.sh.
///
/// Dumps for each formula, each for texts that were not seen before, under the name and the formula's number:
/// - "check": the full passing check;
/// - "host": the calls that this check makes of its host, made again;
/// - "fparser": the same formula parsed;
/// - "libsbml": its units derived.

#include "CheckSetting.h"
#include "Counting.h"
#include "Formulas.h"
#include "FparserReference.h"
#include "HostReplay.h"
#include "LibSbmlReference.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace qen::benchmarks;

bool run()
{
    CheckSetting setting;
    const auto world = setting.install();
    HostReplay replay(setting);
    FparserReference fparser;
    LibSbmlReference libSbml;

    bool allPass = setting.allPass();
    for (std::size_t i = 0; i < k_formulas.size(); ++i)
    {
        const Formula& formula = k_formulas[i];
        const std::string number = std::to_string(i + 1);
        const HostReplay::Calls calls = replay.callsOf(formula);
        count("check " + number, formula.expression,
              [&](const std::string& p_text) { allPass = setting.passes(formula, p_text) && allPass; });
        count("host " + number, formula.expression, [&](const std::string& p_text) { calls.repeat(p_text); });
        count("fparser " + number, FparserReference::textOf(formula),
              [&](const std::string& p_text) { fparser(p_text); });
        count("libsbml " + number, LibSbmlReference::textOf(formula),
              [&](const std::string& p_text) { libSbml(p_text); });
    }
    return allPass;
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
    return 2;
}
