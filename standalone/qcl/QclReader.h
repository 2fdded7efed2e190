#pragma once

#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <string>

namespace qen::standalone {

/// What the reader admits. What goes beyond a limit is an error with its place.
struct QEN_STANDALONE_API QclLimits {
    std::size_t fileBytes = std::size_t {256} << 20;
    std::size_t valueBytes = std::size_t {4} << 20;
    std::size_t nameBytes = 256;
    std::size_t pathBytes = 4096;
    std::size_t pathLevels = 64;
    std::size_t includeDepth = 32;
};

/// Reads a file and what it includes. Never throws for what the file holds: problems are in the document.
QEN_STANDALONE_API QclDocument readQclFile(const std::string& p_path, const QclLimits& p_limits = {});

/// Reads a text that is in memory, under the name that reports shall show.
QEN_STANDALONE_API QclDocument readQclText(const std::string& p_name, const std::string& p_text,
                                           const QclLimits& p_limits = {});

}    // namespace qen::standalone
