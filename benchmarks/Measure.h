#pragma once

#include "Formulas.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace qen::benchmarks {

inline double nanoseconds(std::chrono::steady_clock::duration p_time)
{
    return std::chrono::duration<double, std::nano>(p_time).count();
}

/// The upper one of the middle two, where there is no middle one. There must be at least one.
inline double median(std::vector<double> p_values)
{
    const auto middle = p_values.begin() + static_cast<std::ptrdiff_t>(p_values.size() / 2);
    std::nth_element(p_values.begin(), middle, p_values.end());
    return *middle;
}

/// Times both of two calls on texts that differ from call to call by one digit.
class FormulaTimer {
public:
    struct Times {
        double ours = 0.0;      ///< ns per call, median of the rounds
        double theirs = 0.0;    ///< likewise
        double ratio() const { return ours / theirs; }
    };

    /// The two take turns, so that a change of the machine's speed hits both.
    template <class Ours, class Theirs>
    static Times measure(const Formula& p_formula, const Ours& p_ours, const Theirs& p_theirs,
                         std::size_t p_callsPerRound = 200)
    {
        std::vector<double> ours;
        std::vector<double> theirs;
        for (std::size_t round = 0; round < k_rounds; ++round)
        {
            ours.push_back(perCall(p_formula.expression, p_ours, p_callsPerRound));
            theirs.push_back(perCall(p_formula.plain, p_theirs, p_callsPerRound));
        }
        return {median(ours), median(theirs)};
    }

private:
    static constexpr std::size_t k_rounds = 41;

    template <class Call>
    static double perCall(std::string p_text, const Call& p_call, std::size_t p_calls)
    {
        const std::size_t digit = changingDigit(p_text);
        const auto begin = std::chrono::steady_clock::now();
        for (std::size_t i = 0; i < p_calls; ++i)
        {
            p_text[digit] = static_cast<char>('1' + i % 9);
            p_call(p_text);
        }
        return nanoseconds(std::chrono::steady_clock::now() - begin) / static_cast<double>(p_calls);
    }
};

}    // namespace qen::benchmarks
