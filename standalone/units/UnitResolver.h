#pragma once

#include "qcl/Diagnostics.h"
#include "units/UnitDefinitions.h"
#include "units/UnitTable.h"

#include <vector>

namespace qen::standalone {

/// Works out what every unit is in base units, and fills the table of names. What cannot be worked out is reported
/// where it was defined, once; units made of it are left out in silence, and all of them are missing from the table.
void resolveUnits(const UnitDefinitions& p_definitions, std::vector<ResolvedUnit>& p_units,
                  UnitTable& p_table, Diagnostics& p_problems);

}    // namespace qen::standalone
