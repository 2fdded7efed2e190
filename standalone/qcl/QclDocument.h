#pragma once

#include "qcl/Diagnostics.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
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

    /// At least one piece, in order, the first at offset 0. Only a value of several lines has memory of its own.
    class Pieces {
    public:
        Pieces() = default;
        Pieces(std::initializer_list<Piece> p_pieces) : Pieces(std::span(p_pieces)) {}

        explicit Pieces(std::span<const Piece> p_pieces)
        {
            if (p_pieces.size() == 1)
                m_only = p_pieces.front();
            else
                m_several.assign(p_pieces.begin(), p_pieces.end());
        }

        const Piece* begin() const { return m_several.empty() ? &m_only : m_several.data(); }
        const Piece* end() const { return begin() + size(); }
        std::size_t size() const { return m_several.empty() ? 1 : m_several.size(); }
        const Piece& operator[](std::size_t p_number) const { return begin()[p_number]; }
        bool empty() const { return false; }
        const Piece& front() const { return *begin(); }

    private:
        Piece m_only;
        std::vector<Piece> m_several;    // empty where there is only one
    };

    std::string name;
    std::string value;
    SourcePlace place;    ///< of the name
    Pieces pieces;

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
