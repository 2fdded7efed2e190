#pragma once

#include "qcl/QclReader.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace qen::standalone {

/// A document's problems, each as "file:line:column: message [identifier]".
inline std::vector<std::string> problemsOf(const QclDocument& p_document)
{
    std::vector<std::string> texts;
    for (const Diagnostic& problem : p_document.problems)
        texts.push_back(
            std::filesystem::path(p_document.files.at(problem.place.file).path).filename().string() + ":" +
            std::to_string(problem.place.line) + ":" + std::to_string(problem.place.column) + ": " +
            problem.message + " [" + problem.identifier + "]");
    return texts;
}

/// The identifiers of a document's problems.
inline std::vector<std::string> identifiersOf(const QclDocument& p_document)
{
    std::vector<std::string> texts;
    for (const Diagnostic& problem : p_document.problems)
        texts.push_back(problem.identifier);
    return texts;
}

/// A document's parameters, each as "path|name=value".
inline std::vector<std::string> parametersOf(const QclDocument& p_document)
{
    std::vector<std::string> texts;
    for (const QclObject& object : p_document.objects)
        for (const QclParameter& parameter : object.parameters)
            texts.push_back(
                (object.path + "|").append(parameter.name()).append("=").append(parameter.value()));
    return texts;
}

inline QclDocument read(const std::string& p_text, const QclLimits& p_limits = {})
{
    return readQclText("case.qcl", p_text, p_limits);
}

/// A folder that lasts as long as the test.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        static std::atomic<int> s_count {0};
        m_path = std::filesystem::temp_directory_path() /
                 ("qcl-test-" + std::to_string(getpid()) + "-" + std::to_string(++s_count));
        std::filesystem::create_directories(m_path);
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;    // what is left behind in a temporary folder harms nobody
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& p_name) const { return (m_path / p_name).string(); }

    /// Writes a file and gives its path.
    std::string write(const std::string& p_name, const std::string& p_text) const
    {
        std::filesystem::create_directories(std::filesystem::path(path(p_name)).parent_path());
        std::ofstream(path(p_name), std::ios::binary) << p_text;
        return path(p_name);
    }

private:
    std::filesystem::path m_path;
};

}    // namespace qen::standalone
