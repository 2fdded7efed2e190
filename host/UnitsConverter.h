#pragma once

#include "HostApi.h"

#include <string>

namespace qen {

class UnitDimensions;

/// Units arithmetic. Defined by the host; one object per process.
class QEN_HOST_API UnitsConverter {
public:
    static UnitsConverter& instance();

    /// Converts a value between two units texts. The arithmetic is double, rounded once.
    ///
    /// @param p_flag  Always true here; its meaning is the host's.
    /// @return True when the conversion is possible; only then is the result set.
    bool convertUnits(const std::string& p_from, const std::string& p_to, float p_value, float& p_result,
                      bool p_flag) const;

    /// @throws units::error  The text is not understood.
    UnitDimensions dimsFromUnits(const std::string& p_units) const;

    /// The base units text of the dimensions; empty for dimensionless.
    std::string getBaseUnitName(const UnitDimensions& p_dims) const;

    /// The base units text of a quantity.
    ///
    /// @throws units::error  The quantity is unknown.
    std::string getBaseUnitsFromQuant(const std::string& p_quantity) const;
};

}    // namespace qen
