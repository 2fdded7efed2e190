/// @file
/// What a failing check costs beyond a passing one that is like it, in multiples of what one message and one exception
/// cost: filling the message's template, throwing the host's exception with it and catching it at once.
///
/// The three take turns. Ends with status 1 only when a check does not end as it should or with another message: times
/// depend on what else the machine does.

#include "CheckSetting.h"
#include "Formulas.h"
#include "Measure.h"

#include "ExpressionsError.h"
#include "UserMsg.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace qen::benchmarks;

constexpr double k_limit = 2.0;
constexpr std::size_t k_rounds = 101;
constexpr std::size_t k_callsPerRound = 100;

/// As the opening of the formulas, in a domain whose flow is turbulent.
constexpr const char* k_turbulentOpening = "/FLOW:Duct/DOMAIN:Nozzle/BOUNDARY:Side/OPENING";

struct Failure {
    const char* what;
    const char* objectPath;
    const char* paramName;
    const char* passingPath;
    const char* passing;
    const char* failing;
    const char* message;                  // with %1, %2 ...
    std::array<const char*, 4> values;    // for these; null behind the last
};

// clang-format off
constexpr auto k_failures = std::to_array<Failure>({
    {"wrong units of a number", k_wall, "Slip Coefficient", k_wall, "5 [m s^-1]", "5 [m]",
     "Invalid units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"m", "Slip Coefficient", k_wall, "m s^-1"}},
    {"unknown units of a number", k_wall, "Slip Coefficient", k_wall, "5 [m s^-1]", "5 [smoot s^-1]",
     "Unrecognised units ('%1') set for parameter '%2' in object '%3'.",
     {"smoot s^-1", "Slip Coefficient", k_wall, nullptr}},
    {"wrong dimension", k_inflow, "Speed", k_inflow, "2 [m s^-1] * min(1, t / 0.5 [s])",
     "2 [m s^-2] * min(1, t / 0.5 [s])",
     "Expression resolves to invalid units ('%1') in value set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"m s^-2", "Speed", k_inflow, "m s^-1"}},
    {"unknown variable", k_opening, "Relative Pressure", k_opening, "0.5 * Density * Velocity u^2",
     "0.5 * Densities * Velocity u^2",
     "Bad expression value '%1' detected in parameter '%2' in object '%3'.\nQEL error:\n%4",
     {"0.5 * Densities * Velocity u^2", "Relative Pressure", k_opening,
      "Column 7: 'Densities' is not known; expected a variable, an additional variable, a constant or a named "
      "expression. Did you mean 'Density'?"}},
    {"unavailable variable", k_opening, "Relative Pressure", k_turbulentOpening,
     "0.5 * Density * Turbulence Kinetic Energy", "0.5 * Density * Turbulence Kinetic Energy",
     "Parameter '%1' in object '%2' has been assigned an expression that references the following unavailable "
     "variables:   %3",
     {"Relative Pressure", k_opening, "Turbulence Kinetic Energy", nullptr}},
});
// clang-format on

/// The message of a failure, filled anew.
std::string messageOf(const Failure& p_failure, const std::vector<std::string>& p_values)
{
    qen::UserMsg message(p_failure.message);
    for (const std::string& value : p_values)
        message.arg(value);
    return message;
}

/// Throws and catches what a check raises. Keeps the message's size, so that nothing of it can be left out.
std::size_t throwAndCatch(const Failure& p_failure, const std::vector<std::string>& p_values)
{
    try
    {
        throw qen::expressions::error("DimExprChecker", "checkParam", messageOf(p_failure, p_values),
                                      qen::ErrorTypeError);
    }
    catch (const qen::expressions::error& error)
    {
        return error.getMessage().size();
    }
}

template <class Call>
double perCall(const Call& p_call)
{
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < k_callsPerRound; ++i)
        p_call();
    return nanoseconds(std::chrono::steady_clock::now() - begin) / static_cast<double>(k_callsPerRound);
}

/// Whether the checks end as they should.
bool measure(const Failure& p_failure, qen::DimExprChecker& p_checker)
{
    const std::string objectPath = p_failure.objectPath;
    const std::string paramName = p_failure.paramName;
    const std::string passingPath = p_failure.passingPath;
    const std::string passing = p_failure.passing;
    const std::string failing = p_failure.failing;
    std::vector<std::string> values;
    for (const char* const value : p_failure.values)
        if (value)
            values.emplace_back(value);

    p_checker.clearErrors();
    if (!p_checker.checkParam(passingPath, paramName, passing) ||
        p_checker.checkParam(objectPath, paramName, failing) ||
        p_checker.beginExprError()->message != messageOf(p_failure, values))
    {
        std::fprintf(stderr, "The check of %s or of %s does not end as it should\n", p_failure.passing,
                     p_failure.failing);
        return false;
    }

    std::vector<double> passes;
    std::vector<double> failures;
    std::vector<double> exceptions;
    std::size_t bytes = 0;
    for (std::size_t round = 0; round < k_rounds; ++round)
    {
        passes.push_back(perCall([&] { p_checker.checkParam(passingPath, paramName, passing); }));
        failures.push_back(perCall([&] {
            p_checker.checkParam(objectPath, paramName, failing);
            p_checker.clearErrors();
        }));
        exceptions.push_back(perCall([&] { bytes += throwAndCatch(p_failure, values); }));
    }

    const double pass = median(passes);
    const double failure = median(failures);
    const double exception = median(exceptions);
    std::printf("%10.0f %10.0f %10.0f %7.2f  %s\n", pass, failure, exception, (failure - pass) / exception,
                p_failure.what);
    return bytes != 0;
}

void addTurbulentDomain(qen::standalone::ModelTree& p_model)
{
    const std::string domain = "/FLOW:Duct/DOMAIN:Nozzle";
    p_model.setParameter(domain, "Domain Type", "Fluid");
    p_model.setParameter(domain + "/FLUID DEFINITION:Gas", "Material", "Gas");
    p_model.setParameter(domain + "/FLUID MODELS/HEAT TRANSFER MODEL", "Option", "Thermal Energy");
    p_model.setParameter(domain + "/FLUID MODELS/TURBULENCE MODEL", "Option", "k epsilon");
    p_model.setParameter(k_turbulentOpening, "Relative Pressure", "1 [Pa]");
}

bool run()
{
    CheckSetting setting;
    addTurbulentDomain(setting.model());
    const auto world = setting.install();
    bool allRight = true;
    std::printf("%10s %10s %10s %7s\n", "pass [ns]", "fail [ns]", "throw [ns]", "ratio");
    for (const Failure& failure : k_failures)
        allRight = measure(failure, setting.checker()) && allRight;
    std::printf("the ratio is (fail - pass) / throw, to be at most %.1f\n", k_limit);
    return allRight;
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
