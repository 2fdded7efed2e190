#include "definitions/Definitions.h"

#include "qcl/QclReader.h"
#include "world/World.h"

#include "VarAvailabilityChecker.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iterator>

namespace qen::standalone {
namespace {

namespace fs = std::filesystem;

constexpr const char* k_unitsFile = "UNITS.qcl";
constexpr const char* k_rulesFile = "RULES.qcl";
constexpr const char* k_physicsFile = "PHYSICS.qcl";
constexpr const char* k_variablesFile = "VARIABLES.qcl";

constexpr std::array<const char*, 4> k_files {k_unitsFile, k_rulesFile, k_physicsFile, k_variablesFile};

Finding withoutPlace(std::string p_identifier, std::string p_message)
{
    Finding finding;
    finding.identifier = std::move(p_identifier);
    finding.message = std::move(p_message);
    return finding;
}

std::string joined(const std::vector<std::string>& p_folders)
{
    std::string text;
    for (const std::string& folder : p_folders)
        text += (text.empty() ? "'" : ", '") + folder + "'";
    return text;
}

/// What is wrong with a folder of definitions; an empty text for nothing.
std::string problemOf(const std::string& p_folder)
{
    std::error_code error;
    fs::directory_iterator opened(p_folder, error);
    if (error)
        return fmt::format("The definition folder '{}' cannot be read: {}.", p_folder, error.message());
    const bool holdsAny = std::ranges::any_of(k_files, [&](const char* p_file) {
        std::error_code unused;
        return fs::exists(fs::path(p_folder) / p_file, unused);
    });
    if (!holdsAny)
        return fmt::format("The definition folder '{}' holds none of {}, {}, {} and {}.", p_folder,
                           k_unitsFile, k_rulesFile, k_physicsFile, k_variablesFile);
    return {};
}

/// Tells of folders that nothing can be read from; else of the files that none of them holds.
void checkFolders(const std::vector<std::string>& p_folders, std::vector<Finding>& p_problems)
{
    for (const std::string& folder : p_folders)
        if (std::string problem = problemOf(folder); !problem.empty())
            p_problems.push_back(withoutPlace("definition-folder", std::move(problem)));
    if (!p_problems.empty())
        return;

    for (const char* file : k_files)
        if (std::ranges::none_of(p_folders, [&](const std::string& p_folder) {
                std::error_code unused;
                return fs::exists(fs::path(p_folder) / file, unused);
            }))
            p_problems.push_back(
                withoutPlace("missing-definitions", fmt::format("There is no definition file '{}' in {}.",
                                                                file, joined(p_folders))));
    const std::string shipped = shippedDefinitionFolder("/proc/self/exe");
    if (p_problems.empty() || std::ranges::find(p_folders, shipped) != p_folders.end())
        return;
    Finding& last = p_problems.back();
    last.message +=
        fmt::format(" Folders that are given replace the one that is shipped; to add to that, name it "
                    "first: --definitions {} --definitions {}.",
                    shipped, p_folders.front());
}

/// Reads the files of one name, of all folders in order.
std::deque<QclDocument> readFiles(const char* p_name, const std::vector<std::string>& p_folders,
                                  std::vector<Finding>& p_problems)
{
    std::deque<QclDocument> documents;
    for (const std::string& folder : p_folders)
    {
        const fs::path path = fs::path(folder) / p_name;
        std::error_code error;
        if (!fs::exists(path, error))
            continue;
        const QclDocument& document = documents.emplace_back(readQclFile(path.string()));
        for (const Diagnostic& problem : document.problems)
            p_problems.push_back(toFinding(problem, document));
    }
    return documents;
}

/// Hands each document to an `addDefinitions` and gives its problems their places.
template <class Target>
void addAll(Target& p_target, const std::deque<QclDocument>& p_documents, std::vector<Finding>& p_problems)
{
    for (const QclDocument& document : p_documents)
    {
        Diagnostics problems;
        p_target.addDefinitions(document, problems);
        for (const Diagnostic& problem : problems)
            p_problems.push_back(toFinding(problem, document));
    }
}

/// Tells of each query that the checks of availability ask and no file defines.
void checkQueriesAreDefined(const PhysicsBook& p_physics, std::vector<Finding>& p_problems)
{
    const VarAvailabilityChecker declaresItsQueries(nullptr, nullptr, &p_physics);
    for (const std::string& query : p_physics.undefinedQueries())
        p_problems.push_back(
            withoutPlace("undefined-query",
                         fmt::format("The physics query '{0}' is asked and no file defines it. Expected a "
                                     "section '/QUERY:{0}' in {1}.",
                                     query, k_physicsFile)));
}

}    // namespace

Definitions::Definitions(const std::vector<std::string>& p_folders)
{
    checkFolders(p_folders, m_problems);
    m_unitDocuments = readFiles(k_unitsFile, p_folders, m_problems);
    addAll(m_units, m_unitDocuments, m_problems);

    World world;
    world.units = &m_units;
    const WorldScope scope(world);

    m_ruleDocuments = readFiles(k_rulesFile, p_folders, m_problems);
    addAll(m_rules, m_ruleDocuments, m_problems);

    m_physicsDocuments = readFiles(k_physicsFile, p_folders, m_problems);
    addAll(m_physics, m_physicsDocuments, m_problems);
    if (!m_physicsDocuments.empty())
        checkQueriesAreDefined(m_physics, m_problems);

    m_documents = readFiles(k_variablesFile, p_folders, m_problems);
    for (const QclDocument& document : m_documents)
        m_catalogue.add(document);
    m_catalogue.load(m_variables, m_callbacks, m_problems);
}

bool Definitions::hasErrors() const
{
    return std::any_of(m_problems.begin(), m_problems.end(),
                       [](const Finding& p_problem) { return p_problem.severity == Severity::Error; });
}

std::vector<const SourceFile*> Definitions::files() const
{
    std::vector<const SourceFile*> files;
    for (const auto* documents : {&m_unitDocuments, &m_ruleDocuments, &m_physicsDocuments, &m_documents})
        for (const QclDocument& document : *documents)
            for (const SourceFile& file : document.files)
                files.push_back(&file);
    return files;
}

std::vector<std::string> definitionFolders(const std::vector<std::string>& p_given,
                                           const std::string& p_executable)
{
    if (!p_given.empty())
        return p_given;

    const char* environment = std::getenv("QENCHECK_DEFINITIONS");
    if (environment && *environment)
        return {environment};

    return {shippedDefinitionFolder(p_executable)};
}

std::string shippedDefinitionFolder(const std::string& p_executable)
{
    std::error_code error;
    const fs::path executable = fs::canonical(p_executable, error);
    const fs::path installed = executable.parent_path().parent_path() / QEN_INSTALL_DEFINITIONS;
    if (!error && fs::is_directory(installed, error))
        return installed.string();

    return QEN_BUILD_DEFINITIONS;
}

std::vector<std::string> definitionFiles(const std::vector<std::string>& p_folders)
{
    std::vector<std::string> files;
    for (const char* name : {k_unitsFile, k_rulesFile, k_physicsFile, k_variablesFile})
        for (const std::string& folder : p_folders)
            files.push_back((fs::path(folder) / name).string());
    return files;
}

}    // namespace qen::standalone
