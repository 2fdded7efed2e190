#pragma once

#include "TextReport.h"

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace qencheck {

/// One column of a table.
struct Column {
    std::string heading;

    /// Characters that the column takes up at the most. The rest of a row moves to the right behind a longer cell,
    /// until there is room again.
    std::size_t widest = std::numeric_limits<std::size_t>::max();
};

/// Lays out rows for a person: columns parted by two blanks at the least, nothing cut, no blanks at the end of a line.
/// A column in which no row has anything is left out.
class Table {
public:
    explicit Table(std::vector<Column> p_columns) : m_columns(std::move(p_columns)) {}

    /// @param p_cells  One for each column.
    void addRow(std::vector<std::string> p_cells);

    /// The headings and the rows, each on a line; the headings bold where there are colours.
    std::string text(Colour p_colour) const;

private:
    std::vector<std::size_t> columnStarts() const;

    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

/// The number of characters of a UTF-8 text.
std::size_t characterCount(std::string_view p_text);

}    // namespace qencheck
