#pragma once

#include "TextReport.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qencheck {

/// Lays out rows for a person: columns as wide as what stands in them, parted by two blanks, nothing cut, no blanks at
/// the end of a line.
/// A column in which no row has anything is left out.
class Table {
public:
    explicit Table(std::vector<std::string> p_headings) : m_headings(std::move(p_headings)) {}

    /// @param p_cells  One for each column.
    void addRow(std::vector<std::string> p_cells);

    /// The headings and the rows, each on a line; the headings bold where there are colours.
    std::string text(Colour p_colour) const;

private:
    std::vector<std::size_t> columnStarts() const;

    std::vector<std::string> m_headings;
    std::vector<std::vector<std::string>> m_rows;
};

/// The number of characters of a UTF-8 text.
std::size_t characterCount(std::string_view p_text);

}    // namespace qencheck
