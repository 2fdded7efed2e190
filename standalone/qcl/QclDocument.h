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
    std::string text;
    std::vector<std::size_t> lineStarts;    ///< offset of each line

    /// The text of a line without its line end; empty for a number that is no line of the file.
    std::string_view line(std::uint32_t p_number) const;
};

/// One `name = value`.
struct QEN_STANDALONE_API QclParameter {
    /// A value that continues on further lines is one text; a piece says where a stretch of it stands in the file.
    struct Piece {
        std::size_t offset = 0;    ///< in the value
        SourcePlace place;
    };

    std::string name;
    std::string value;
    SourcePlace place;            ///< of the name
    std::vector<Piece> pieces;    ///< at least one, in order

    /// Where the byte of the value stands in the file.
    SourcePlace placeInValue(std::size_t p_offset) const;
};

/// One object, with all its sections taken together.
struct QEN_STANDALONE_API QclObject {
    std::string path;     ///< normalised: "/TYPE:name/TYPE"
    SourcePlace place;    ///< of the path in its first header
    std::vector<QclParameter> parameters;

    const QclParameter* find(std::string_view p_name) const;
};

/// What a `.qcl` file and the files that it includes say, in the order of the text.
struct QEN_STANDALONE_API QclDocument {
    std::vector<SourceFile> files;     ///< the first is the one that was asked for
    std::vector<QclObject> objects;    ///< in order of their first headers
    Diagnostics problems;              ///< every syntax error of every file, in the order of the text
};

}    // namespace qen::standalone
