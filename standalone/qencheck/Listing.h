#pragma once

#include "Table.h"

#include "definitions/Definitions.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace qencheck {

/// One thing of the definitions: as a row for people, as data for programs, and by what it is found.
struct ListedItem {
    std::vector<std::string> cells;    ///< one for each column of its listing
    nlohmann::ordered_json data;       ///< everything, also what the row leaves out
    std::vector<std::string> names;    ///< what a user may look for
    std::vector<std::string> availability;
    std::vector<std::string> scopes;
};

/// Everything of one kind, in the order of the texts.
struct Listing {
    std::vector<std::string> columns;
    std::vector<ListedItem> items;
};

Listing listVariables(const qen::standalone::Definitions& p_definitions);
Listing listOperators(const qen::standalone::Definitions& p_definitions);
Listing listCallbacks(const qen::standalone::Definitions& p_definitions);

/// The rules of parameters, by the paths of their objects, where they are defined.
Listing listParameters(const qen::standalone::Definitions& p_definitions);

/// Units, then prefixes, then quantities.
Listing listUnits(const qen::standalone::Definitions& p_definitions);

// What the listings share.

/// A units text as a cell has it: "-" for dimensionless.
std::string unitsCell(const std::string& p_units);

/// Texts with ", " between them.
std::string joined(const std::vector<std::string>& p_texts);

}    // namespace qencheck
