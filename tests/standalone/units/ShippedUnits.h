#pragma once

#include "qcl/QclReader.h"
#include "units/UnitSystem.h"

namespace qen::standalone::test {

/// The units file that is shipped, as read.
inline const QclDocument& shippedUnitsFile()
{
    static const QclDocument s_document = readQclFile(QEN_DEFINITIONS_DIR "/UNITS.qcl");
    return s_document;
}

/// The units that are shipped.
inline const UnitSystem& shippedUnits()
{
    static const UnitSystem s_units = [] {
        UnitSystem units;
        Diagnostics problems;
        units.addDefinitions(shippedUnitsFile(), problems);
        return units;
    }();
    return s_units;
}

}    // namespace qen::standalone::test
