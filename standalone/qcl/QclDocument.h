#pragma once

#include "qcl/Diagnostics.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// One file that was read, kept whole so that reports can show its lines.
struct QEN_STANDALONE_API SourceFile {
    std::string path;    ///< as the user named it, or as it was found from there
    std::string text;    ///< without a byte order mark; empty when the file could not be read as a text
    std::vector<std::size_t>
        lineStarts;    ///< offset of each line; nothing behind the last line end is no line

    /// The text of a line without its line end; empty for a number that is no line of the file.
    std::string_view line(std::uint32_t p_number) const;
};

/// One `name = value`.
struct QEN_STANDALONE_API QclParameter {
    /// A value that continues on further lines is one text: the blanks at the beginning of each line and the
    /// backslash at its end are left out, blanks before that backslash are kept. A piece says where a stretch of the
    /// value stands in the file; it ends where the next one begins.
    struct Piece {
        std::size_t offset = 0;    ///< in the value
        SourcePlace place;
    };

    std::string name;
    std::string value;
    SourcePlace place;            ///< of the name
    std::vector<Piece> pieces;    ///< at least one, in order, the first at offset 0

    /// Where the byte of the value stands in the file; the place behind the last one for a larger offset.
    SourcePlace placeInValue(std::size_t p_offset) const;
};

/// One object, with all its sections taken together.
struct QEN_STANDALONE_API QclObject {
    std::string path;     ///< normalised: "/TYPE:name/TYPE"
    SourcePlace place;    ///< of the path in its first header
    std::vector<QclParameter> parameters;

    /// The parameter of that name; null when there is none. Looks at one after the other.
    const QclParameter* find(std::string_view p_name) const;
};

/// What a `.qcl` file and the files that it includes say, in the order of the text.
struct QEN_STANDALONE_API QclDocument {
    std::vector<SourceFile> files;     ///< the first is the one that was asked for
    std::vector<QclObject> objects;    ///< in order of their first headers
    Diagnostics problems;              ///< every syntax error of every file, in the order of the text
};

}    // namespace qen::standalone
