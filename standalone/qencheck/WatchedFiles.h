#pragma once

#include "FileWatch.h"

#include "definitions/Finding.h"
#include "qcl/QclDocument.h"

#include <optional>
#include <string>
#include <vector>

namespace qencheck {

/// The files as they were read.
using FileTexts = std::vector<const qen::standalone::SourceFile*>;

FileTexts filesOf(const qen::standalone::QclDocument& p_document);

/// The problems of a document's text.
std::vector<qen::standalone::Finding> problemsOf(const qen::standalone::QclDocument& p_document);

/// The path of each file that was read, and of each that was to be included and could not be read: it may come.
std::vector<std::string> pathsOf(const FileTexts& p_files,
                                 const std::vector<qen::standalone::Finding>& p_problems);

/// Whether two readings gave the same text and the same problems with it.
bool sameReading(const FileTexts& p_filesBefore,
                 const std::vector<qen::standalone::Finding>& p_problemsBefore, const FileTexts& p_files,
                 const std::vector<qen::standalone::Finding>& p_problems);

/// Of the files that were saved those that have another text than before; all, when that is none.
std::vector<SavedFile> withOtherText(const std::vector<SavedFile>& p_saved, const FileTexts& p_before,
                                     const FileTexts& p_now);

}    // namespace qencheck
