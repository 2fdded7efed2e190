/// @file
/// How long it takes until 10,000 definitions of variables that stand in a file are in the store, against the time in
/// which yaml-cpp and nlohmann-json build a tree of the same data from a file. Ours reads the file, checks each key and
/// fills the store; theirs is the tree alone. The three take turns, so that a change of the machine's speed hits all.
///
/// Ends with status 1 when one of them does not hold all of the data; times are for people.

#include "Measure.h"

#include "definitions/CatalogueDefinitions.h"
#include "definitions/Finding.h"
#include "qcl/QclReader.h"

#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"

#include <nlohmann/json.hpp>
#include <yaml-cpp/yaml.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using namespace qen::benchmarks;
using Clock = std::chrono::steady_clock;

namespace fs = std::filesystem;

constexpr std::size_t k_definitions = 10000;
constexpr std::size_t k_keys = 18;    // of a definition; its name is the 19th field
constexpr std::size_t k_components = 3;
constexpr std::size_t k_rounds = 7;

struct Definition {
    std::string name;
    std::array<std::pair<const char*, std::string>, k_keys> fields;
};

std::string threeOf(const std::string& p_text, const char* p_letters)
{
    std::string list;
    for (std::size_t i = 0; i < k_components; ++i)
        list.append(i == 0 ? "" : ", ").append(p_text).append(1, ' ').append(1, p_letters[i]);
    return list;
}

/// One of the definitions, with all that a definition may hold. A scalar has no component names: those keys have no
/// text.
Definition definition(std::size_t p_number, bool p_isVector)
{
    struct Kind {
        const char* quantity;
        const char* name;
        const char* general;
        const char* physical;
        const char* scope;
    };
    static constexpr std::array k_kinds {
        Kind {"Pressure", "Pressure of Sample", "QEL, RESULTS", "", "GLOBAL"},
        Kind {"Temperature", "Temperature of Sample", "QEL, RESULTS", "THERMAL", "GLOBAL, PHASE, PARTICLE"},
        Kind {"Density", "Density of Sample", "QEL", "COMPRESSIBLE, !LES", "GLOBAL, PHASE"},
        Kind {"Velocity", "Mean Velocity of Sample", "QEL, RESULTS", "TURBULENT",
              "GLOBAL, PHASE, MUSIG FLUID"},
        Kind {"Length", "Distance to Sample", "QEL, RESULTS", "TRANSIENT, MDEF", "GLOBAL"},
    };
    const Kind& kind = k_kinds[p_number % k_kinds.size()];
    const std::string number = std::to_string(p_number);
    const std::string shortName = "sample" + number;
    const std::string longName = kind.name + (" " + number);
    const std::string oldShort = "smp" + number;
    const std::string oldLong = "Old " + longName;
    const auto components = [&](const std::string& p_text, const char* p_letters) {
        return p_isVector ? threeOf(p_text, p_letters) : std::string();
    };
    return {shortName,
            {{{"Long Name", longName},
              {"Old Short Name", oldShort},
              {"Old Long Name", oldLong},
              {"Quantity", kind.quantity},
              {"Tensor Type", p_isVector ? "VECTOR" : "SCALAR"},
              {"Component Short Names", components(shortName, "uvw")},
              {"Component Long Names", components(longName, "uvw")},
              {"Old Component Short Names", components(oldShort, "xyz")},
              {"Old Component Long Names", components(oldLong, "xyz")},
              {"General Availability", kind.general},
              {"Physical Availability", kind.physical},
              {"Variable Class", "SOLUTION, BOUNDARY"},
              {"Variable Scope", kind.scope},
              {"Field Variable", "Yes"},
              {"Status", "Released"},
              {"Under Relaxation Factor", "0.75"},
              {"User Level", std::to_string(1 + p_number % 3)},
              {"Output to Postprocessor", p_number % 2 == 0 ? "Yes" : "No"}}}};
}

/// The same definitions in three files of a folder of their own, which is removed at the end.
class Files {
public:
    explicit Files(std::size_t p_oneVectorIn)
        : m_folder(fs::temp_directory_path() / ("qen-definitions-" + std::to_string(getpid())))
    {
        fs::create_directory(m_folder);
        std::string qcl;
        std::string yaml;
        std::string json = "{\n";
        for (std::size_t number = 0; number < k_definitions; ++number)
        {
            const bool isVector = number % p_oneVectorIn == 0;
            m_vectors += isVector ? 1 : 0;
            const Definition one = definition(number, isVector);
            qcl += "[/VARIABLE:" + one.name + "]\n";
            yaml += one.name + ":\n";
            json += (number == 0 ? "" : ",\n") + ("  \"" + one.name + "\": {");
            const char* separator = "\n";
            for (const auto& [key, text] : one.fields)
            {
                qcl.append(key).append(" = ").append(text).append("\n");
                yaml.append("  ").append(key).append(": ").append(text.empty() ? "\"\"" : text).append("\n");
                json.append(separator).append("    \"").append(key).append("\": \"").append(text).append(
                    "\"");
                separator = ",\n";
            }
            qcl += "\n";
            json += "\n  }";
        }
        json += "\n}\n";
        write("qcl", qcl);
        write("yaml", yaml);
        write("json", json);
    }

    ~Files()
    {
        std::error_code dropped;    // what stays in the folder for temporary files does no harm
        fs::remove_all(m_folder, dropped);
    }

    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    std::string path(const char* p_ending) const
    {
        return (m_folder / (std::string("VARIABLES.") + p_ending)).string();
    }

    double megabytes(const char* p_ending) const
    {
        return static_cast<double>(fs::file_size(path(p_ending))) / 1e6;
    }

    std::size_t vectors() const { return m_vectors; }
    std::size_t records() const { return k_definitions + k_components * m_vectors; }

private:
    void write(const char* p_ending, const std::string& p_text) const
    {
        std::ofstream file(path(p_ending), std::ios::binary);
        if (!(file << p_text).flush())
            throw std::runtime_error("cannot write " + path(p_ending));
    }

    fs::path m_folder;
    std::size_t m_vectors = 0;
};

/// What loading leaves behind; it is taken down outside of the time.
struct Loaded {
    qen::standalone::QclDocument document;
    qen::standalone::CatalogueDefinitions catalogue;
    qen::PreVariableDefStore variables;
    qen::ExprCBFuncStore callbacks;
    std::vector<qen::standalone::Finding> problems;
};

std::unique_ptr<Loaded> load(const std::string& p_path)
{
    auto loaded = std::make_unique<Loaded>();
    loaded->document = qen::standalone::readQclFile(p_path);
    loaded->catalogue.add(loaded->document);
    loaded->catalogue.load(loaded->variables, loaded->callbacks, loaded->problems);
    return loaded;
}

YAML::Node yamlTree(const std::string& p_path) { return YAML::LoadFile(p_path); }

/// The text is read at once, since parsing from a stream takes longer.
nlohmann::json jsonTree(const std::string& p_path)
{
    std::ifstream file(p_path, std::ios::binary);
    std::string text(static_cast<std::size_t>(fs::file_size(p_path)), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    return nlohmann::json::parse(text);
}

bool holdsAll(const Loaded& p_loaded, const Files& p_files)
{
    return p_loaded.document.problems.empty() && p_loaded.problems.empty() &&
           p_loaded.variables.getAllVariableShortNames().size() == p_files.records();
}

template <class Tree>
bool holdsAll(const Tree& p_tree)
{
    return p_tree.size() == k_definitions && p_tree.begin()->size() == k_keys;
}

bool holdsAll(const YAML::Node& p_tree)
{
    return p_tree.size() == k_definitions && p_tree.begin()->second.size() == k_keys;
}

template <class Load>
auto timed(const Load& p_load, std::vector<double>& p_milliseconds)
{
    const auto begin = Clock::now();
    auto result = p_load();
    p_milliseconds.push_back(nanoseconds(Clock::now() - begin) / 1e6);
    return result;
}

/// @param p_oneVectorIn  Of so many definitions one is a vector; the others are scalars.
bool run(std::size_t p_oneVectorIn)
{
    const Files files(p_oneVectorIn);
    const std::string qcl = files.path("qcl");
    const std::string yaml = files.path("yaml");
    const std::string json = files.path("json");

    bool allThere = true;
    std::vector<double> ours;
    std::vector<double> yamls;
    std::vector<double> jsons;
    for (std::size_t round = 0; round < k_rounds; ++round)
    {
        allThere = holdsAll(*timed([&] { return load(qcl); }, ours), files) && allThere;
        allThere = holdsAll(timed([&] { return yamlTree(yaml); }, yamls)) && allThere;
        allThere = holdsAll(timed([&] { return jsonTree(json); }, jsons)) && allThere;
    }

    std::printf("%zu definitions of %zu fields, %zu of them vectors: %zu records\n", k_definitions,
                k_keys + 1, files.vectors(), files.records());
    std::printf("%-32s %10s %10s %8s\n", "", "file [MB]", "time [ms]", "to ours");
    const auto print = [&](const char* p_what, const char* p_ending, const std::vector<double>& p_times) {
        std::printf("%-32s %10.2f %10.1f %8.2f\n", p_what, files.megabytes(p_ending), median(p_times),
                    median(p_times) / median(ours));
    };
    print("file to filled store", "qcl", ours);
    print("file to tree of yaml-cpp", "yaml", yamls);
    print("file to tree of nlohmann-json", "json", jsons);
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
