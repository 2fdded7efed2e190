#pragma once

#include "UnitDimensions.h"

#include <map>
#include <optional>
#include <string>

namespace qen::support {

/// What a units text means: its dimensions, and how many of their base units it is.
struct UnitsMeaning {
    UnitDimensions dims;
    double factor = 1.0;
};

/// A small real table of units for tests: products of names with optional exponents, as "kg m^-1 s^-2" or
/// "m rad^          -1". No offsets: a degree Celsius is not in it.
class UnitsTable {
public:
    UnitsTable();

    /// Adds a unit, or gives one another meaning. The name may not hold a blank or '^'.
    void set(const std::string& p_name, const UnitsMeaning& p_meaning) { m_units[p_name] = p_meaning; }

    /// Nothing for a text that is not understood; the empty text is dimensionless.
    std::optional<UnitsMeaning> meaningOf(const std::string& p_units) const;

    /// The product of base units, in the order of the exponents; empty for dimensionless.
    static std::string baseUnits(const UnitDimensions& p_dims);

private:
    std::map<std::string, UnitsMeaning> m_units;
};

bool sameDimensions(const UnitDimensions& p_left, const UnitDimensions& p_right);

}    // namespace qen::support
