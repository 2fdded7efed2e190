/// @file
/// What a failing check costs beyond a passing one that is like it, in multiples of what one message and one exception
/// cost. The three take turns. Ends with status 1 only when a check does not end as it should or with another message:
/// times depend on what else the machine does.

#include "CheckSetting.h"
#include "Failures.h"
#include "Measure.h"

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <vector>

namespace {

using namespace qen::benchmarks;

constexpr double k_limit = 2.0;
constexpr std::size_t k_rounds = 101;
constexpr std::size_t k_callsPerRound = 100;

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
    const FailureCalls calls(p_failure, p_checker);
    if (!calls.endAsTheyShould())
    {
        calls.complain();
        return false;
    }

    std::vector<double> passes;
    std::vector<double> failures;
    std::vector<double> exceptions;
    bool asTheyShould = true;
    for (std::size_t round = 0; round < k_rounds; ++round)
    {
        passes.push_back(perCall([&] { asTheyShould = calls.pass() && asTheyShould; }));
        failures.push_back(perCall([&] { asTheyShould = calls.fail() && asTheyShould; }));
        exceptions.push_back(perCall([&] { asTheyShould = calls.throwAndCatch() != 0 && asTheyShould; }));
    }

    const double pass = median(passes);
    const double failure = median(failures);
    const double exception = median(exceptions);
    std::printf("%10.0f %10.0f %10.0f %7.2f  %s\n", pass, failure, exception, (failure - pass) / exception,
                p_failure.what);
    if (!asTheyShould)
        calls.complain();
    return asTheyShould;
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
