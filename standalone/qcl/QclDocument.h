#pragma once

#include "qcl/Diagnostics.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

class FileBytes;

/// One file that was read, kept whole so that reports can show its lines. Copies share the text, which stays where it
/// is: views into it hold for as long as one of the copies lives.
class QEN_STANDALONE_API SourceFile {
public:
    explicit SourceFile(std::string p_path = {});    ///< an empty one
    SourceFile(std::string p_path, FileBytes p_text);

    std::string path;    ///< as the user named it, or as it was found from there

    /// Without a byte order mark; empty when the file could not be read as a text.
    std::string_view text() const;

    /// The text of a line without its line end; empty for a number that is no line of the file. The first call looks
    /// through the whole text; threads may call at the same time.
    std::string_view line(std::uint32_t p_number) const;

    /// Nothing behind the last line end is no line. Costs what line() does.
    std::size_t lineCount() const;

private:
    struct Text;

    std::shared_ptr<const Text> m_text;    // never null
};

/// The value of a parameter that continues on further lines. It is one text: the blanks at the beginning of each line
/// and the backslash at its end are left out, blanks before that backslash are kept.
struct QclJoinedValue {
    /// Where a stretch of the value stands; it ends where the next one begins.
    struct Piece {
        std::size_t offset = 0;           ///< in the value
        std::uint32_t linesBehind = 0;    ///< the line on which the name stands
        std::uint32_t column = 0;
    };

    std::string text;
    std::vector<Piece> pieces;    ///< at least one, in order, the first at offset 0
};

/// One `name = value`. Its texts are views into what the document holds.
//
// Packed into 32 bytes: a document holds many of them.
class QEN_STANDALONE_API QclParameter {
public:
    /// Where a stretch of the value stands in the file; it ends where the next one begins.
    struct Piece {
        std::size_t offset = 0;    ///< in the value
        SourcePlace place;
    };

    // What a parameter holds at most; the reader sees to it.
    static constexpr std::size_t k_nameBytes = std::numeric_limits<std::uint16_t>::max();
    static constexpr std::size_t k_files = std::numeric_limits<std::uint16_t>::max();

    /// Of an empty name, value and place.
    QclParameter() : QclParameter({}, std::string_view(), {}) {}

    /// With a value that does not continue.
    ///
    /// @param p_name   Of k_nameBytes bytes at most.
    /// @param p_value  In the text that holds the name, on the same line and behind it, also when it is empty. That text
    ///                 has less than 4 GiB.
    /// @param p_place  Of the name; in one of the first k_files files.
    QclParameter(std::string_view p_name, std::string_view p_value, SourcePlace p_place)
        : m_name(p_name.data()), m_value {.text = p_value.data()},
          m_valueLength(static_cast<std::uint32_t>(p_value.size())),
          m_nameLength(static_cast<std::uint16_t>(p_name.size())),
          m_file(static_cast<std::uint16_t>(p_place.file)), m_line(p_place.line), m_column(p_place.column)
    {}

    /// With a value that continues, and goes on to belong to the document.
    QclParameter(std::string_view p_name, const QclJoinedValue& p_value, SourcePlace p_place)
        : QclParameter(p_name, std::string_view(), p_place)
    {
        m_value.joined = &p_value;
        m_valueLength = k_isJoined;
    }

    std::string_view name() const { return {m_name, m_nameLength}; }

    std::string_view value() const
    {
        return joined() ? std::string_view(m_value.joined->text)
                        : std::string_view(m_value.text, m_valueLength);
    }

    /// Of the name.
    SourcePlace place() const { return {m_file, m_line, m_column}; }

    /// Where the byte of the value stands in the file; the place behind the last one for a larger offset.
    SourcePlace placeInValue(std::size_t p_offset) const;

    /// The stretches of the value that stand on one line each: at least one, in order, the first at offset 0.
    std::vector<Piece> pieces() const;

    /// The length of the first of the pieces: how much of the value stands on the line of its first byte.
    std::size_t firstPieceLength() const;

private:
    static constexpr std::uint32_t k_isJoined = std::numeric_limits<std::uint32_t>::max();

    const QclJoinedValue* joined() const { return m_valueLength == k_isJoined ? m_value.joined : nullptr; }

    const char* m_name;
    union {
        const char* text;
        const QclJoinedValue* joined;
    } m_value;
    std::uint32_t m_valueLength;    // of a text
    std::uint16_t m_nameLength;
    std::uint16_t m_file;
    std::uint32_t m_line;
    std::uint32_t m_column;
};
static_assert(sizeof(void*) != 8 || sizeof(QclParameter) == 32);

/// One object, with all its sections taken together.
struct QEN_STANDALONE_API QclObject {
    std::string path;     ///< normalised: "/TYPE:name/TYPE"
    SourcePlace place;    ///< of the path in its first header
    std::vector<QclParameter> parameters;

    /// Of a document that a QclFollower read: where an object of an earlier reading has the same number, it had the
    /// same names and values in the same order. 0 for a document that something else read.
    std::uint64_t content = 0;

    /// The parameter of that name; null when there is none. Looks at one after the other.
    const QclParameter* find(std::string_view p_name) const;
};

/// What a `.qcl` file and the files that it includes say, in the order of the text. Its objects point into its files
/// and joined values, which stay where they are when the document is moved, and which copies of it share.
struct QEN_STANDALONE_API QclDocument {
    std::vector<SourceFile> files;     ///< the first is the one that was asked for
    std::vector<QclObject> objects;    ///< in order of their first headers
    Diagnostics problems;              ///< every syntax error of every file, in the order of the text
    std::vector<std::shared_ptr<const QclJoinedValue>> joinedValues;    ///< of the objects' parameters
};

}    // namespace qen::standalone
