#include "WatchedFiles.h"

#include "qcl/QclProblems.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <tuple>

namespace qencheck {

using qen::standalone::Diagnostic;
using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::QclProblem;
using qen::standalone::SourceFile;

namespace {

std::string_view textOf(const SourceFile& p_file) { return p_file.text(); }

/// The file that an include names and that could not be read; none when the problem is another one.
std::optional<std::string> missingInclude(const Finding& p_problem)
{
    if (p_problem.line == 0 || p_problem.column == 0 ||
        p_problem.identifier != kindOf(QclProblem::FileUnreadable).identifier)
        return std::nullopt;
    const std::string named = p_problem.lineText.substr(p_problem.column - 1, p_problem.length);
    return (std::filesystem::path(p_problem.file).parent_path() / named).string();
}

/// The text of a file; none when it was not read.
std::optional<std::string_view> textOf(const FileTexts& p_files, const std::string& p_path)
{
    for (const SourceFile* file : p_files)
        if (file->path == p_path)
            return textOf(*file);
    return std::nullopt;
}

}    // namespace

FileTexts filesOf(const QclDocument& p_document)
{
    FileTexts files;
    for (const SourceFile& file : p_document.files)
        files.push_back(&file);
    return files;
}

std::vector<Finding> problemsOf(const QclDocument& p_document)
{
    std::vector<Finding> problems;
    for (const Diagnostic& problem : p_document.problems)
        problems.push_back(toFinding(problem, p_document));
    return problems;
}

std::vector<std::string> pathsOf(const FileTexts& p_files, const std::vector<Finding>& p_problems)
{
    std::vector<std::string> paths;
    for (const SourceFile* file : p_files)
        paths.push_back(file->path);
    for (const Finding& problem : p_problems)
        if (std::optional<std::string> missing = missingInclude(problem))
            paths.push_back(*std::move(missing));
    return paths;
}

bool sameReading(const FileTexts& p_filesBefore, const std::vector<Finding>& p_problemsBefore,
                 const FileTexts& p_files, const std::vector<Finding>& p_problems)
{
    const auto sameFile = [](const SourceFile* p_a, const SourceFile* p_b) {
        return p_a->path == p_b->path && textOf(*p_a) == textOf(*p_b);
    };
    const auto sameProblem = [](const Finding& p_a, const Finding& p_b) {
        return std::tie(p_a.file, p_a.line, p_a.column, p_a.identifier, p_a.message) ==
               std::tie(p_b.file, p_b.line, p_b.column, p_b.identifier, p_b.message);
    };
    return std::ranges::equal(p_filesBefore, p_files, sameFile) &&
           std::ranges::equal(p_problemsBefore, p_problems, sameProblem);
}

std::vector<SavedFile> withOtherText(const std::vector<SavedFile>& p_saved, const FileTexts& p_before,
                                     const FileTexts& p_now)
{
    std::vector<SavedFile> changed;
    std::copy_if(p_saved.begin(), p_saved.end(), std::back_inserter(changed), [&](const SavedFile& p_file) {
        return textOf(p_before, p_file.path) != textOf(p_now, p_file.path);
    });
    return changed.empty() ? p_saved : changed;
}

}    // namespace qencheck
