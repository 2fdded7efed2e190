#include "qcl/QclDocument.h"

#include "qcl/SourceText.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>

namespace qen::standalone {

struct SourceFile::Text {
    explicit Text(FileBytes p_bytes) : bytes(std::move(p_bytes)) {}

    /// The offset of each line.
    const std::vector<std::size_t>& lineStarts() const
    {
        std::call_once(m_found, [this] {
            const std::string_view text = bytes.view();
            for (std::size_t begin = 0; begin < text.size();)
            {
                m_lineStarts.push_back(begin);
                const std::size_t end = text.find('\n', begin);
                begin = end == std::string_view::npos ? text.size() : end + 1;
            }
        });
        return m_lineStarts;
    }

    const FileBytes bytes;

private:
    mutable std::once_flag m_found;
    mutable std::vector<std::size_t> m_lineStarts;
};

SourceFile::SourceFile(std::string p_path) : SourceFile(std::move(p_path), FileBytes()) {}

SourceFile::SourceFile(std::string p_path, FileBytes p_text)
    : path(std::move(p_path)), m_text(std::make_shared<const Text>(std::move(p_text)))
{}

std::string_view SourceFile::text() const { return m_text->bytes.view(); }

std::size_t SourceFile::lineCount() const { return m_text->lineStarts().size(); }

std::string_view SourceFile::line(std::uint32_t p_number) const
{
    const std::vector<std::size_t>& starts = m_text->lineStarts();
    if (p_number == 0 || p_number > starts.size())
        return {};

    const std::size_t begin = starts[p_number - 1];
    const std::size_t end = p_number < starts.size() ? starts[p_number] : text().size();
    std::string_view line = text().substr(begin, end - begin);
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

SourcePlace QclParameter::placeInValue(std::size_t p_offset) const
{
    const std::size_t offset = std::min(p_offset, value().size());
    if (!joined())
        return {m_file, m_line, m_column + static_cast<std::uint32_t>(m_value.text + offset - m_name)};

    const auto behind =
        std::ranges::upper_bound(joined()->pieces, offset, {}, &QclJoinedValue::Piece::offset);
    const QclJoinedValue::Piece& piece = *std::prev(behind);
    return {m_file, m_line + piece.linesBehind,
            piece.column + static_cast<std::uint32_t>(offset - piece.offset)};
}

std::vector<QclParameter::Piece> QclParameter::pieces() const
{
    if (!joined())
        return {{0, placeInValue(0)}};

    std::vector<Piece> result;
    result.reserve(joined()->pieces.size());
    for (const QclJoinedValue::Piece& piece : joined()->pieces)
        result.push_back({piece.offset, {m_file, m_line + piece.linesBehind, piece.column}});
    return result;
}

std::size_t QclParameter::firstPieceLength() const
{
    return joined() && joined()->pieces.size() > 1 ? joined()->pieces[1].offset : value().size();
}

const QclParameter* QclObject::find(std::string_view p_name) const
{
    const auto found = std::ranges::find(parameters, p_name, &QclParameter::name);
    return found == parameters.end() ? nullptr : &*found;
}

}    // namespace qen::standalone
