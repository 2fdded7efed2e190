#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qen::standalone {

/// A place in a text file. Lines and columns count from 1, columns in bytes; line 0 means the file as a whole.
struct SourcePlace {
    std::uint32_t file = 0;    ///< index into the files of the document that was read
    std::uint32_t line = 0;
    std::uint32_t column = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the zero of the generated comparison for a pointer
    friend auto operator<=>(const SourcePlace&, const SourcePlace&) = default;
};

enum class Severity { Error, Warning, Note };

/// A problem with a place. Text and identifier are kept apart: the identifier is stable, the text is for people.
struct Diagnostic {
    Severity severity = Severity::Error;
    std::string identifier;
    std::string message;
    SourcePlace place;
    std::uint32_t length = 0;    ///< bytes to point at, on the line of the place; 0 for the place alone
};

using Diagnostics = std::vector<Diagnostic>;

}    // namespace qen::standalone
