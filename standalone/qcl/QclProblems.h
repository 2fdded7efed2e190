#pragma once

#include "StandaloneApi.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace qen::standalone {

/// What can be wrong with a text file of objects.
enum class QclProblem {
    FileUnreadable,
    FileBinary,
    Encoding,
    ControlCharacter,
    SectionHeader,
    ObjectPath,
    ObjectName,
    Parameter,
    ParameterName,
    ParameterOutsideSection,
    SectionAfterInclude,
    DuplicateParameter,
    UnfinishedValue,
    Include,
    IncludeCycle,
    FileSize,
    ValueLength,
    NameLength,
    PathLength,
    PathLevels,
    IncludeDepth,
    IncludedFiles,
    Placeholders,
    Problems,
    Count
};

/// A kind of problem: the identifier under which it is reported, which never changes, and what it means.
struct QEN_STANDALONE_API QclProblemKind {
    QclProblem problem;
    std::string_view identifier;
    std::string_view meaning;
};

// clang-format off
inline constexpr std::array<QclProblemKind, static_cast<std::size_t>(QclProblem::Count)> k_qclProblems {{
    {QclProblem::FileUnreadable,          "file-unreadable",                  "a file cannot be read"},
    {QclProblem::FileBinary,              "file-binary",                      "a file is no text"},
    {QclProblem::Encoding,                "syntax-encoding",                  "a line is not UTF-8"},
    {QclProblem::ControlCharacter,        "syntax-control-character",         "a line holds a control character other than a tab"},
    {QclProblem::SectionHeader,           "syntax-section-header",            "a section header is not '[', a path and ']' alone on the line"},
    {QclProblem::ObjectPath,              "syntax-object-path",               "a path is not made of levels '/TYPE:name' or '/TYPE'"},
    {QclProblem::ObjectName,              "syntax-object-name",               "a type or name in a path holds what it may not hold"},
    {QclProblem::Parameter,               "syntax-line",                      "a line is no header, parameter, include or comment"},
    {QclProblem::ParameterName,           "syntax-parameter-name",            "a parameter's name is empty or holds what it may not hold"},
    {QclProblem::ParameterOutsideSection, "syntax-parameter-outside-section", "a parameter stands before the first section header"},
    {QclProblem::SectionAfterInclude,     "syntax-section-after-include",     "a parameter stands behind an include, where a new section must begin"},
    {QclProblem::DuplicateParameter,      "syntax-duplicate-parameter",       "a parameter is given twice in one object"},
    {QclProblem::UnfinishedValue,         "syntax-unfinished-value",          "a file ends inside a value"},
    {QclProblem::Include,                 "syntax-include",                   "an include is not the word and a path in double quotes"},
    {QclProblem::IncludeCycle,            "include-cycle",                    "a file includes itself, directly or through others"},
    {QclProblem::FileSize,                "limit-file-size",                  "a file with what it includes is too large"},
    {QclProblem::ValueLength,             "limit-value-length",               "a value is too long"},
    {QclProblem::NameLength,              "limit-name-length",                "a name or type is too long"},
    {QclProblem::PathLength,              "limit-path-length",                "a path is too long"},
    {QclProblem::PathLevels,              "limit-path-levels",                "a path has too many levels"},
    {QclProblem::IncludeDepth,            "limit-include-depth",              "includes are nested too deeply"},
    {QclProblem::IncludedFiles,           "limit-included-files",             "too many files are included"},
    {QclProblem::Placeholders,            "limit-placeholders",               "a value holds too many texts like '%2', which messages would fill"},
    {QclProblem::Problems,                "limit-problems",                   "there are more problems than are reported"},
}};
// clang-format on

/// The row of a kind of problem.
QEN_STANDALONE_API const QclProblemKind& kindOf(QclProblem p_problem);

}    // namespace qen::standalone
