/// @file
/// Definitions that are loaded from a file, beside a tree that another library builds of the same data, for a program that
/// counts instructions: callgrind. Run by count_loading.sh.
///
/// usage: CountedLoading DEFINITIONS yaml|json
///
/// One in seven of the definitions is a vector, as of those that ship. What is counted is dumped under the names "ours 1"
/// and "theirs 1".

#include "Counting.h"
#include "LargeDefinitions.h"

#include <nlohmann/json.hpp>
#include <yaml-cpp/yaml.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace qen::benchmarks;

constexpr std::size_t k_oneVectorIn = 7;

/// Whether both hold all of the definitions.
bool run(std::size_t p_definitions, const std::string& p_peer)
{
    const DefinitionFiles files(p_definitions, k_oneVectorIn);
    const auto ours = counted("ours 1", [&] { return loadDefinitions(files.path("qcl")); });
    const auto theirs = [&](const auto& p_tree) {
        return holdsAll(counted("theirs 1", [&] { return p_tree(files.path(p_peer.c_str())); }), files);
    };
    const bool theyHoldAll = p_peer == "yaml" ? theirs(yamlTree) : theirs(jsonTree);
    const bool bothHoldAll = theyHoldAll && holdsAll(*ours, files);
    if (!bothHoldAll)
        std::fprintf(stderr, "One of them does not hold all of the definitions\n");
    return bothHoldAll;
}

}    // namespace

int main(int p_count, char** p_arguments)
{
    const std::size_t definitions = p_count == 3 ? std::strtoull(p_arguments[1], nullptr, 10) : 0;
    const std::string peer = p_count == 3 ? p_arguments[2] : "";
    if (definitions == 0 || (peer != "yaml" && peer != "json"))
    {
        std::fprintf(stderr, "usage: CountedLoading DEFINITIONS yaml|json\n");
        return 2;
    }
    try
    {
        return run(definitions, peer) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}
