/// @file
/// How long it takes until 10,000 definitions of variables that stand in a file are in the store, against the time in
/// which yaml-cpp and nlohmann-json build a tree of the same data from a file. Ours reads the file, checks each key and
/// fills the store; theirs is the tree alone. Ours takes turns with each of them, so that a change of the machine's speed
/// hits both. What counts is the median of the ratios of two that follow one another.
///
/// Ends with status 1 when one of them does not hold all of the data; times are for people.

#include "LargeDefinitions.h"
#include "Measure.h"

#include <nlohmann/json.hpp>
#include <yaml-cpp/yaml.h>

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace qen::benchmarks;
using Clock = std::chrono::steady_clock;

constexpr std::size_t k_definitions = 10000;
constexpr std::size_t k_roundsWithJson = 31;
constexpr std::size_t k_roundsWithYaml = 5;    // it takes long

/// Has the allocator put together what was freed before, which it otherwise leaves to the next who asks for much: each
/// pays for its own memory alone.
void settleHeap()
{
    static void* volatile s_block = nullptr;
    s_block = std::malloc(std::size_t {1} << 17);
    std::free(s_block);
}

template <class Load>
auto timed(const Load& p_load, std::vector<double>& p_milliseconds)
{
    settleHeap();
    const auto begin = Clock::now();
    auto result = p_load();
    p_milliseconds.push_back(nanoseconds(Clock::now() - begin) / 1e6);
    return result;
}

/// @param p_oneVectorIn  Of so many definitions one is a vector; the others are scalars.
bool run(std::size_t p_oneVectorIn)
{
    const DefinitionFiles files(k_definitions, p_oneVectorIn);
    const std::string qcl = files.path("qcl");
    const std::string yaml = files.path("yaml");
    const std::string json = files.path("json");

    bool allThere = true;
    const auto ours = [&](std::vector<double>& p_times) {
        allThere = holdsAll(*timed([&] { return loadDefinitions(qcl); }, p_times), files) && allThere;
    };
    const auto yamls = [&](std::vector<double>& p_times) {
        allThere = holdsAll(timed([&] { return yamlTree(yaml); }, p_times), files) && allThere;
    };
    const auto jsons = [&](std::vector<double>& p_times) {
        allThere = holdsAll(timed([&] { return jsonTree(json); }, p_times), files) && allThere;
    };

    std::printf("%zu definitions of %zu fields, %zu of them vectors: %zu records\n", k_definitions,
                files.fields(), files.vectors(), files.records());
    std::printf("%-32s %10s %10s %8s\n", "", "file [MB]", "time [ms]", "to ours");
    const auto pair = [&](const char* p_what, const char* p_ending, const auto& p_theirs,
                          std::size_t p_rounds) {
        std::vector<double> ourTimes;
        std::vector<double> theirTimes;
        std::vector<double> ratios;
        for (std::size_t round = 0; round < p_rounds; ++round)
        {
            ours(ourTimes);
            p_theirs(theirTimes);
            ratios.push_back(theirTimes.back() / ourTimes.back());
        }
        std::printf("%-32s %10.2f %10.1f\n", "file to filled store", files.megabytes("qcl"),
                    median(ourTimes));
        std::printf("%-32s %10.2f %10.1f %8.2f\n", p_what, files.megabytes(p_ending), median(theirTimes),
                    median(ratios));
    };
    pair("file to tree of nlohmann-json", "json", jsons, k_roundsWithJson);
    pair("file to tree of yaml-cpp", "yaml", yamls, k_roundsWithYaml);
    if (!allThere)
        std::fprintf(stderr, "One of them did not hold all of the definitions\n");
    return allThere;
}

}    // namespace

int main()
{
    try
    {
        const bool mixed = run(7);    // as many vectors as the definitions that ship
        const bool allVectors = run(1);
        return mixed && allVectors ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}
