#pragma once

#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <string>

namespace qen::standalone {

/// What the reader admits. What goes beyond a limit is an error with its place.
///
/// Messages are filled argument by argument into the text so far, and a placeholder that an argument brings along is
/// filled by a later argument. Names and paths therefore hold no '%' before a digit, and values few of "%2" to "%5"
/// (those that can still be filled once a value stands in a message). With the limits as they stand by default no
/// message grows larger than 64 KiB plus four times the length of the value that it is about, as long as what is no
/// part of names, paths and the value is itself below 1 KiB (the template, and the error text of an expression).
struct QEN_STANDALONE_API QclLimits {
    std::size_t fileBytes = std::size_t {64} << 20;    ///< of a file with all that it includes
    std::size_t valueBytes = std::size_t {4} << 20;
    std::size_t nameBytes = 256;     ///< of a parameter's name; of an object's type or name; at most 65,535
    std::size_t pathBytes = 2048;    ///< of an object's path; of an included file's path as written
    std::size_t pathLevels = 32;
    std::size_t includeDepth = 32;       ///< 0: no file may be included
    std::size_t includedFiles = 1000;    ///< each time counts; at most 65,534
    std::size_t problems = 10000;        ///< reading ends at the next one
    std::size_t shortValueBytes =
        4096;    ///< up to here a value may hold shortValuePlaceholders, beyond longValue...
    std::size_t shortValuePlaceholders = 4;
    std::size_t longValuePlaceholders = 2;
};

/// Reads a file and what it includes. Never throws for what the file holds: problems are in the document.
///
/// What is at fault is left out, the rest is there: a section with a faulty header counts as none, its parameters are
/// read for their syntax alone; of a parameter that is given twice the first counts; one whose value is at fault has
/// an empty value. What is in the document is UTF-8 without control characters other than tabs; the texts of its files
/// need not be. A file that cannot be read has an empty text. A byte order mark is no part of the text.
QEN_STANDALONE_API QclDocument readQclFile(const std::string& p_path, const QclLimits& p_limits = {});

/// Reads a text that is in memory, under the name that reports shall show. Files that it includes are looked for
/// beside a file of that name.
QEN_STANDALONE_API QclDocument readQclText(const std::string& p_name, const std::string& p_text,
                                           const QclLimits& p_limits = {});

}    // namespace qen::standalone
