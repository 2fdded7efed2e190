/// @file
/// How long it takes to understand a units text that was not seen before, against udunits2. Both take turns, text by
/// text, so that a change of the machine's speed hits both; each text must mean the same to both.

#include "Measure.h"

#include "qcl/QclReader.h"
#include "units/UnitSystem.h"

#include <udunits2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

using qen::benchmarks::median;
using qen::benchmarks::nanoseconds;
using qen::standalone::UnitSystem;
using qen::standalone::UnitValue;

constexpr int k_rounds = 41;
constexpr int k_passes = 100;    // of one library over one text within a round

/// Texts that both know, with the base units of their dimension in the spelling of both.
struct Text {
    const char* units;
    const char* baseUnits;
};

// clang-format off
constexpr std::array k_texts {
    Text {"kg m^-1 s^-2", "kg m^-1 s^-2"},    Text {"kJ kg^-1", "m^2 s^-2"},             Text {"rad s^-1", "rad s^-1"},
    Text {"lb ft^-3", "kg m^-3"},             Text {"W m^-2 K^-1", "kg s^-3 K^-1"},      Text {"m s^-1", "m s^-1"},
    Text {"Pa", "kg m^-1 s^-2"},              Text {"hPa", "kg m^-1 s^-2"},              Text {"psi", "kg m^-1 s^-2"},
    Text {"atm", "kg m^-1 s^-2"},             Text {"mbar", "kg m^-1 s^-2"},             Text {"kg m^-3", "kg m^-3"},
    Text {"g cm^-3", "kg m^-3"},              Text {"N m", "kg m^2 s^-2"},               Text {"J kg^-1 K^-1", "m^2 s^-2 K^-1"},
    Text {"kW m^-3", "kg m^-1 s^-3"},         Text {"mm", "m"},                          Text {"in", "m"},
    Text {"ft s^-1", "m s^-1"},               Text {"yd^3", "m^3"},                      Text {"mol m^-3", "mol m^-3"},
    Text {"kg mol^-1", "kg mol^-1"},          Text {"m^2 s^-3", "m^2 s^-3"},             Text {"Pa s", "kg m^-1 s^-1"},
    Text {"N m^-1", "kg s^-2"},               Text {"A m^-2", "A m^-2"},                 Text {"V m^-1", "kg m s^-3 A^-1"},
    Text {"ft^2 s^-1", "m^2 s^-1"},           Text {"lbf ft^-2", "kg m^-1 s^-2"},        Text {"W m^-2 sr^-1", "kg s^-3 sr^-1"}};
// clang-format on
static_assert(k_texts.size() == 30);

/// The factor to base units as udunits2 has it; not a number when the text is not known or of another dimension.
double udunitsFactor(ut_system* p_system, const Text& p_text)
{
    const std::unique_ptr<ut_unit, void (*)(ut_unit*)> from(ut_parse(p_system, p_text.units, UT_UTF8),
                                                            ut_free);
    const std::unique_ptr<ut_unit, void (*)(ut_unit*)> to(ut_parse(p_system, p_text.baseUnits, UT_UTF8),
                                                          ut_free);
    if (!from || !to)
        return std::nan("");
    const std::unique_ptr<cv_converter, void (*)(cv_converter*)> converter(
        ut_get_converter(from.get(), to.get()), cv_free);
    return converter ? cv_convert_double(converter.get(), 1.0) : std::nan("");
}

bool meansTheSame(const UnitSystem& p_units, ut_system* p_system, const Text& p_text)
{
    const std::optional<double> ours = p_units.convert(p_text.units, p_text.baseUnits, 1.0);
    const double theirs = udunitsFactor(p_system, p_text);
    if (ours && std::abs(*ours - theirs) <= 1e-9 * theirs)
        return true;
    std::fprintf(stderr, "'%s' means %.17g here and %.17g to udunits2\n", p_text.units,
                 ours.value_or(std::nan("")), theirs);
    return false;
}

double timeOurs(const UnitSystem& p_units, const std::string& p_text, double& p_sum)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int pass = 0; pass < k_passes; ++pass)
        p_sum += p_units.parse(p_text)->factor;
    return nanoseconds(std::chrono::steady_clock::now() - begin) / k_passes;
}

double timeTheirs(ut_system* p_system, const std::string& p_text, double& p_sum)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int pass = 0; pass < k_passes; ++pass)
    {
        ut_unit* unit = ut_parse(p_system, p_text.c_str(), UT_UTF8);
        p_sum += unit ? 1.0 : 0.0;
        ut_free(unit);
    }
    return nanoseconds(std::chrono::steady_clock::now() - begin) / k_passes;
}

}

int main()
{
    UnitSystem units;
    qen::standalone::Diagnostics problems;
    const qen::standalone::QclDocument document =
        qen::standalone::readQclFile(QEN_DEFINITIONS_DIR "/UNITS.qcl");
    units.addDefinitions(document, problems);
    if (!problems.empty() || !document.problems.empty())
    {
        std::fprintf(stderr, "the units file has problems\n");
        return 2;
    }
    ut_set_error_message_handler(ut_ignore);
    const std::unique_ptr<ut_system, void (*)(ut_system*)> system(ut_read_xml(nullptr), ut_free_system);
    if (!system)
    {
        std::fprintf(stderr, "udunits2 does not find its own units\n");
        return 2;
    }
    for (const Text& text : k_texts)
    {
        if (!meansTheSame(units, system.get(), text))
            return 2;
    }

    double sum = 0.0;
    double ourTotal = 0.0;
    double theirTotal = 0.0;
    double worst = 1e300;
    std::printf("%-16s %12s %12s %8s\n", "text", "here, ns", "udunits2, ns", "ratio");
    for (const Text& text : k_texts)
    {
        const std::string string = text.units;
        std::vector<double> ours;
        std::vector<double> theirs;
        for (int round = 0; round < k_rounds; ++round)
        {
            ours.push_back(timeOurs(units, string, sum));
            theirs.push_back(timeTheirs(system.get(), string, sum));
        }
        const double ourTime = median(ours);
        const double theirTime = median(theirs);
        ourTotal += ourTime;
        theirTotal += theirTime;
        worst = std::min(worst, theirTime / ourTime);
        std::printf("%-16s %12.1f %12.1f %8.1f\n", text.units, ourTime, theirTime, theirTime / ourTime);
    }
    const double count = static_cast<double>(k_texts.size());
    std::printf("mean of %zu texts: %.1f ns here, %.1f ns in udunits2, ratio %.1f, worst ratio %.1f\n",
                k_texts.size(), ourTotal / count, theirTotal / count, theirTotal / ourTotal, worst);
    return sum > 0.0 ? 0 : 2;
}
