#include "LargeDefinitions.h"

#include "qcl/QclReader.h"

#include <nlohmann/json.hpp>
#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace qen::benchmarks {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t k_keys = 18;    // of a definition; its name is the 19th field
constexpr std::size_t k_components = 3;

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

}    // namespace

DefinitionFiles::DefinitionFiles(std::size_t p_definitions, std::size_t p_oneVectorIn)
    : m_folder(fs::temp_directory_path() / ("qen-definitions-" + std::to_string(getpid()))),
      m_definitions(p_definitions)
{
    fs::create_directory(m_folder);
    std::string qcl;
    std::string yaml;
    std::string json = "{\n";
    for (std::size_t number = 0; number < p_definitions; ++number)
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
            json.append(separator).append("    \"").append(key).append("\": \"").append(text).append("\"");
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

DefinitionFiles::~DefinitionFiles()
{
    std::error_code dropped;    // what stays in the folder for temporary files does no harm
    fs::remove_all(m_folder, dropped);
}

std::string DefinitionFiles::path(const char* p_ending) const
{
    return (m_folder / (std::string("VARIABLES.") + p_ending)).string();
}

double DefinitionFiles::megabytes(const char* p_ending) const
{
    return static_cast<double>(fs::file_size(path(p_ending))) / 1e6;
}

std::size_t DefinitionFiles::fields() const { return k_keys + 1; }

std::size_t DefinitionFiles::records() const { return m_definitions + k_components * m_vectors; }

void DefinitionFiles::write(const char* p_ending, const std::string& p_text) const
{
    std::ofstream file(path(p_ending), std::ios::binary);
    if (!(file << p_text).flush())
        throw std::runtime_error("cannot write " + path(p_ending));
}

std::unique_ptr<LoadedDefinitions> loadDefinitions(const std::string& p_path)
{
    auto loaded = std::make_unique<LoadedDefinitions>();
    loaded->document = standalone::readQclFile(p_path);
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

bool holdsAll(const LoadedDefinitions& p_loaded, const DefinitionFiles& p_files)
{
    return p_loaded.document.problems.empty() && p_loaded.problems.empty() &&
           p_loaded.variables.getAllVariableShortNames().size() == p_files.records();
}

bool holdsAll(const YAML::Node& p_tree, const DefinitionFiles& p_files)
{
    return p_tree.size() == p_files.definitions() &&
           std::all_of(p_tree.begin(), p_tree.end(),
                       [](const auto& p_entry) { return p_entry.second.size() == k_keys; });
}

bool holdsAll(const nlohmann::json& p_tree, const DefinitionFiles& p_files)
{
    return p_tree.size() == p_files.definitions() &&
           std::all_of(p_tree.begin(), p_tree.end(),
                       [](const nlohmann::json& p_entry) { return p_entry.size() == k_keys; });
}

}    // namespace qen::benchmarks
