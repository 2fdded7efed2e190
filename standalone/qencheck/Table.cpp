#include "Table.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace qencheck {
namespace {

constexpr std::size_t k_gap = 2;    // blanks between two columns
constexpr std::size_t k_leftOut = std::numeric_limits<std::size_t>::max();

/// @param p_starts  Where each column begins, or `k_leftOut`.
template <class CellText>
std::string line(const std::vector<std::size_t>& p_starts, CellText&& p_cell)
{
    std::string text;
    std::size_t width = 0;
    for (std::size_t i = 0; i < p_starts.size(); ++i)
    {
        const std::string& cell = p_cell(i);
        if (p_starts[i] == k_leftOut || cell.empty())
            continue;
        text.append(p_starts[i] - width, ' ').append(cell);
        width = p_starts[i] + characterCount(cell);
    }
    return text;
}

}    // namespace

void Table::addRow(std::vector<std::string> p_cells)
{
    assert(p_cells.size() == m_headings.size());
    for (std::string& cell : p_cells)
        std::replace(cell.begin(), cell.end(), '\t', ' ');
    m_rows.push_back(std::move(p_cells));
}

std::vector<std::size_t> Table::columnStarts() const
{
    std::vector<std::size_t> starts(m_headings.size(), k_leftOut);
    std::size_t start = 0;
    for (std::size_t i = 0; i < m_headings.size(); ++i)
    {
        std::size_t widestCell = 0;
        for (const std::vector<std::string>& row : m_rows)
            widestCell = std::max(widestCell, characterCount(row[i]));
        if (widestCell == 0)
            continue;
        starts[i] = start;
        start += std::max(widestCell, characterCount(m_headings[i])) + k_gap;
    }
    return starts;
}

std::string Table::text(Colour p_colour) const
{
    const std::vector<std::size_t> starts = columnStarts();
    const std::string headings =
        line(starts, [&](std::size_t p_column) -> const std::string& { return m_headings[p_column]; });

    std::string text = p_colour == Colour::On ? "\x1b[1m" + headings + "\x1b[0m\n" : headings + "\n";
    for (const std::vector<std::string>& row : m_rows)
    {
        text += line(starts, [&](std::size_t p_column) -> const std::string& { return row[p_column]; });
        text += '\n';
    }
    return text;
}

std::size_t characterCount(std::string_view p_text)
{
    return static_cast<std::size_t>(std::count_if(p_text.begin(), p_text.end(), [](char p_byte) {
        return (static_cast<unsigned char>(p_byte) & 0xC0U) != 0x80U;    // not a byte that continues one
    }));
}

}    // namespace qencheck
