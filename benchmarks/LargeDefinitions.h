#pragma once

#include "definitions/CatalogueDefinitions.h"
#include "definitions/Finding.h"
#include "qcl/QclDocument.h"

#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace YAML {
class Node;
}

namespace qen::benchmarks {

/// The same definitions of variables in three files of a folder of their own, which is removed at the end.
class DefinitionFiles {
public:
    /// @param p_definitions  How many there are.
    /// @param p_oneVectorIn  Of so many one is a vector; the others are scalars.
    DefinitionFiles(std::size_t p_definitions, std::size_t p_oneVectorIn);
    ~DefinitionFiles();

    DefinitionFiles(const DefinitionFiles&) = delete;
    DefinitionFiles& operator=(const DefinitionFiles&) = delete;

    /// @param p_ending  "qcl", "yaml" or "json".
    std::string path(const char* p_ending) const;
    double megabytes(const char* p_ending) const;

    std::size_t definitions() const { return m_definitions; }
    std::size_t fields() const;    ///< of a definition, with its name
    std::size_t vectors() const { return m_vectors; }
    std::size_t records() const;    ///< with the components of the vectors

private:
    void write(const char* p_ending, const std::string& p_text) const;

    std::filesystem::path m_folder;
    std::size_t m_definitions;
    std::size_t m_vectors = 0;
};

/// What loading leaves behind.
struct LoadedDefinitions {
    standalone::QclDocument document;
    standalone::CatalogueDefinitions catalogue;
    PreVariableDefStore variables;
    ExprCBFuncStore callbacks;
    std::vector<standalone::Finding> problems;
};

std::unique_ptr<LoadedDefinitions> loadDefinitions(const std::string& p_path);
YAML::Node yamlTree(const std::string& p_path);
nlohmann::json jsonTree(const std::string& p_path);

// Whether all of the definitions are there.

bool holdsAll(const LoadedDefinitions& p_loaded, const DefinitionFiles& p_files);
bool holdsAll(const YAML::Node& p_tree, const DefinitionFiles& p_files);
bool holdsAll(const nlohmann::json& p_tree, const DefinitionFiles& p_files);

}    // namespace qen::benchmarks
