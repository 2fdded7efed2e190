/// @file
/// What a failing check costs beyond a passing one that is like it, for a program that counts instructions: callgrind.
/// Run by count_failures.sh.
///
/// Dumps for each failure, under the name and the failure's number, ten calls each:
/// - "pass": the check that passes;
/// - "fail": the check that fails;
/// - "throw": one message and one exception.

#include "CheckSetting.h"
#include "Counting.h"
#include "Failures.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace qen::benchmarks;

constexpr int k_calls = 10;

/// Counts calls, after one that is not counted. Whether all of them end as they should.
template <class Call>
bool count(const std::string& p_name, const Call& p_call)
{
    return p_call() && counted(p_name, [&] {
               bool asTheyShould = true;
               for (int i = 0; i < k_calls; ++i)
                   asTheyShould = p_call() && asTheyShould;
               return asTheyShould;
           });
}

bool run()
{
    CheckSetting setting;
    addTurbulentDomain(setting.model());
    const auto world = setting.install();
    bool asTheyShould = true;
    int number = 0;
    for (const Failure& failure : k_failures)
    {
        const std::string suffix = ' ' + std::to_string(++number);
        const FailureCalls calls(failure, setting.checker());
        const bool ends = calls.endAsTheyShould() && count("pass" + suffix, [&] { return calls.pass(); }) &&
                          count("fail" + suffix, [&] { return calls.fail(); }) &&
                          count("throw" + suffix, [&] { return calls.throwAndCatch() != 0; });
        if (!ends)
            calls.complain();
        asTheyShould = ends && asTheyShould;
        std::printf("%d %s\n", number, failure.what);
    }
    return asTheyShould;
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
