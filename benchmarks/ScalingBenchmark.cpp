/// @file
/// How the time of full checks grows with the catalogue of variables and with the model. The settings take turns, so
/// that a change of the machine's speed hits all.
///
/// Ends with status 1 only when a check does not pass; growth is judged by instructions, see count_checks.

#include "CheckSetting.h"
#include "Formulas.h"
#include "LargeSettings.h"
#include "Measure.h"

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

constexpr std::size_t k_rounds = 201;
constexpr std::size_t k_passes = 9;    // over all formulas within a round, each with another digit

class Contender {
public:
    Contender(std::size_t p_variables, std::size_t p_objects)
        : m_variables(filledCatalogue(p_variables)), m_setting(m_variables)
    {
        fillModel(m_setting.model(), p_objects);
    }

    bool allPass() { return m_setting.allPass(); }

    /// One round, in ns per check.
    void run(std::size_t& p_failures)
    {
        const auto world = m_setting.install();
        const auto begin = std::chrono::steady_clock::now();
        for (std::size_t pass = 0; pass < k_passes; ++pass)
        {
            for (const Formula& formula : k_formulas)
            {
                m_text = formula.expression;
                m_text[changingDigit(m_text)] = static_cast<char>('1' + pass);
                if (!m_setting.passes(formula, m_text))
                    ++p_failures;
            }
        }
        m_rounds.push_back(nanoseconds(std::chrono::steady_clock::now() - begin) /
                           static_cast<double>(k_passes * k_formulas.size()));
    }

    double time() const { return median(m_rounds); }

private:
    static qen::PreVariableDefStore filledCatalogue(std::size_t p_variables)
    {
        qen::PreVariableDefStore variables;
        fillCatalogue(variables, p_variables);
        return variables;
    }

    qen::PreVariableDefStore m_variables;
    CheckSetting m_setting;
    std::string m_text;
    std::vector<double> m_rounds;
};

bool run()
{
    Contender small(100, 10);
    Contender manyVariables(100000, 10);
    Contender manyObjects(100, 100000);
    const std::array contenders {&small, &manyVariables, &manyObjects};
    for (Contender* contender : contenders)
        if (!contender->allPass())
            return false;

    std::size_t failures = 0;
    for (std::size_t round = 0; round < k_rounds; ++round)
        for (Contender* contender : contenders)
            contender->run(failures);

    std::printf("%-32s %10s %7s\n", "", "check [ns]", "ratio");
    std::printf("%-32s %10.0f\n", "100 variables, 10 objects", small.time());
    std::printf("%-32s %10.0f %7.3f\n", "100,000 variables, 10 objects", manyVariables.time(),
                manyVariables.time() / small.time());
    std::printf("%-32s %10.0f %7.3f\n", "100 variables, 100,000 objects", manyObjects.time(),
                manyObjects.time() / small.time());
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
