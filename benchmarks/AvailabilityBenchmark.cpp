/// @file
/// What it costs to be told again whether a variable is available at a place, in multiples of one look-up in an
/// unordered map of the same 200 paths x 47 keywords. Prints one line for each order in which they are asked.
///
/// Ends with status 1 only when an answer is wrong: times depend on what else the machine does.

#include "Measure.h"

#include "PhysicsEvaluator.h"
#include "QCLPath.h"
#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using qen::benchmarks::median;
using qen::benchmarks::nanoseconds;

constexpr std::size_t k_paths = 200;
constexpr std::size_t k_rounds = 201;
constexpr double k_limit = 1.5;

/// Answers by chance, but always the same.
class AnyPhysics final : public qen::PhysicsEvaluator {
public:
    bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                  const qen::ModelQCL*) const override
    {
        return std::hash<std::string> {}(p_query + p_objectPath) % 2 == 0;
    }

    std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                      const qen::ModelQCL* p_model) const override
    {
        return evalBool(p_query, p_objectPath, p_model) ? std::vector<std::string> {"Dye"}
                                                        : std::vector<std::string> {};
    }

    void declareBool(const std::string&, bool) const override {}
    void declareList(const std::string&, bool) const override {}
};

/// The path of a wall of one of five vessels.
std::string wall(std::size_t p_number)
{
    qen::QCLPath path("/FLOW:Mixing Plant");
    path.push_back("DOMAIN", "Vessel " + std::to_string(p_number % 5));
    path.push_back("BOUNDARY", "Wall " + std::to_string(p_number));
    return path.getFullPath();
}

/// One question, and its key in the map.
struct Question {
    const std::string* path;
    const std::vector<std::string>* keywords;    // just one
    const std::string* key;
};

class AvailabilityBenchmark {
public:
    AvailabilityBenchmark()
    {
        for (const std::string& keyword : m_checker.supportedPhysAvailChecks())
            m_keywords.push_back({keyword});
        for (std::size_t i = 0; i < k_paths; ++i)
            m_paths.push_back(wall(i));

        m_keys.reserve(m_paths.size() * m_keywords.size());
        for (const std::string& path : m_paths)
            for (const std::vector<std::string>& keywords : m_keywords)
            {
                m_keys.push_back(path + '@' + keywords.front());
                m_map[m_keys.back()] = m_checker.isPhysicallyAvailable(m_name, keywords, path);
                m_questions.push_back({&path, &keywords, &m_keys.back()});
            }
    }

    bool agrees() const
    {
        return std::all_of(m_questions.begin(), m_questions.end(), [&](const Question& p_question) {
            return ours(p_question) == theirs(p_question);
        });
    }

    void shuffle() { std::shuffle(m_questions.begin(), m_questions.end(), std::mt19937(1)); }

    /// The two take turns, so that a change of the machine's speed hits both.
    void report(const char* p_order) const
    {
        std::vector<double> oursPerQuestion;
        std::vector<double> theirsPerQuestion;
        std::size_t available = 0;
        for (std::size_t round = 0; round < k_rounds; ++round)
        {
            oursPerQuestion.push_back(
                perQuestion([&](const Question& p_question) { return ours(p_question); }, available));
            theirsPerQuestion.push_back(
                perQuestion([&](const Question& p_question) { return theirs(p_question); }, available));
        }
        const double ours = median(oursPerQuestion);
        const double theirs = median(theirsPerQuestion);
        std::printf("%10.1f %10.1f %7.3f  %s (%zu available)\n", ours, theirs, ours / theirs, p_order,
                    available / (2 * k_rounds));
    }

private:
    bool ours(const Question& p_question) const
    {
        return m_checker.isPhysicallyAvailable(m_name, *p_question.keywords, *p_question.path);
    }

    bool theirs(const Question& p_question) const { return m_map.find(*p_question.key)->second; }

    template <class Ask>
    double perQuestion(const Ask& p_ask, std::size_t& p_available) const
    {
        const auto begin = std::chrono::steady_clock::now();
        for (const Question& question : m_questions)
            p_available += p_ask(question) ? 1U : 0U;
        return nanoseconds(std::chrono::steady_clock::now() - begin) /
               static_cast<double>(m_questions.size());
    }

    AnyPhysics m_physics;
    qen::VarAvailabilityChecker m_checker {nullptr, nullptr, &m_physics};
    qen::SplitVariableName m_name {"", nullptr};
    std::vector<std::string> m_paths;
    std::vector<std::vector<std::string>> m_keywords;
    std::vector<std::string> m_keys;
    std::unordered_map<std::string, bool> m_map;
    std::vector<Question> m_questions;
};

bool run()
{
    AvailabilityBenchmark benchmark;
    if (!benchmark.agrees())
    {
        std::fprintf(stderr, "a kept answer is not the first one\n");
        return false;
    }

    std::printf("%10s %10s %7s\n", "ours [ns]", "map [ns]", "ratio");
    benchmark.report("by path, then by keyword");
    benchmark.shuffle();
    benchmark.report("in no order");
    std::printf("ratio to be at most %.1f\n", k_limit);
    return true;
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
