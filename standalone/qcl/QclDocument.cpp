#include "qcl/QclDocument.h"

#include <algorithm>
#include <iterator>

namespace qen::standalone {

std::string_view SourceFile::line(std::uint32_t p_number) const
{
    if (p_number == 0 || p_number > lineStarts.size())
        return {};

    const std::size_t begin = lineStarts[p_number - 1];
    const std::size_t end = p_number < lineStarts.size() ? lineStarts[p_number] : text.size();
    std::string_view line = std::string_view(text).substr(begin, end - begin);
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

SourcePlace QclParameter::placeInValue(std::size_t p_offset) const
{
    const std::size_t offset = std::min(p_offset, value.size());
    const Piece* const behind = std::ranges::upper_bound(pieces, offset, {}, &Piece::offset);
    const Piece& piece = behind == pieces.begin() ? pieces.front() : *std::prev(behind);

    SourcePlace result = piece.place;
    result.column += static_cast<std::uint32_t>(offset - piece.offset);
    return result;
}

const QclParameter* QclObject::find(std::string_view p_name) const
{
    const auto found = std::ranges::find(parameters, p_name, &QclParameter::name);
    return found == parameters.end() ? nullptr : &*found;
}

}    // namespace qen::standalone
