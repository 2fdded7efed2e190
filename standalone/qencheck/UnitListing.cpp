#include "Listing.h"

#include "units/UnitSystem.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace qencheck {

using qen::standalone::Definitions;
using qen::standalone::PrefixEntry;
using qen::standalone::UnitEntry;
using qen::standalone::UnitSystem;
using qen::standalone::UnitValue;

namespace {

/// With fifteen digits, as the sixteenth may come from rounding.
std::string number(double p_value) { return fmt::format("{:.15g}", p_value); }

std::string definitionCell(const UnitEntry& p_unit)
{
    std::string text = p_unit.definition;
    if (p_unit.factor != 1.0)
        text = text.empty() ? number(p_unit.factor) : number(p_unit.factor) + " " + text;
    if (p_unit.offset != 0.0)
        text += ", zero at " + number(p_unit.offset);
    return text;
}

ListedItem unitItem(const UnitEntry& p_unit, const UnitValue& p_meaning, const std::string& p_baseUnits)
{
    const char* const kind = p_unit.isBase ? "base unit" : "unit";
    ListedItem item;
    item.cells = {kind,
                  p_unit.name,
                  number(p_meaning.factor),
                  unitsCell(p_baseUnits),
                  p_unit.takesPrefixes ? "Yes" : "",
                  definitionCell(p_unit)};
    item.names = {p_unit.name};
    item.data = {
        {"kind", kind},
        {"name", p_unit.name},
        {"baseUnits", p_baseUnits},
        {"factor", p_meaning.factor},
        {"offset", p_meaning.offset},
        {"takesPrefixes", p_unit.takesPrefixes},
        {"definition", {{"units", p_unit.definition}, {"factor", p_unit.factor}, {"offset", p_unit.offset}}},
    };
    return item;
}

ListedItem prefixItem(const PrefixEntry& p_prefix)
{
    ListedItem item;
    item.cells = {"prefix", p_prefix.name, number(p_prefix.factor), "", "", ""};
    item.names = {p_prefix.name};
    item.data = {{"kind", "prefix"}, {"name", p_prefix.name}, {"factor", p_prefix.factor}};
    return item;
}

ListedItem quantityItem(const std::string& p_name, const std::string& p_baseUnits,
                        const std::vector<std::string>& p_units)
{
    ListedItem item;
    item.cells = {"quantity", p_name, "", unitsCell(p_baseUnits), "", joined(p_units)};
    item.names = {p_name};
    item.data = {{"kind", "quantity"}, {"name", p_name}, {"baseUnits", p_baseUnits}, {"units", p_units}};
    return item;
}

}    // namespace

Listing listUnits(const Definitions& p_definitions)
{
    const UnitSystem& system = p_definitions.units();
    Listing listing;
    listing.columns = {"Kind", "Name", "Size", "Base Units", "Prefixes", "Made Of or Measured In"};

    std::unordered_map<std::string, std::vector<std::string>> unitsOfDimension;    // by its base units
    for (const UnitEntry& unit : system.allUnits())
        if (const std::optional<UnitValue> meaning = system.parse(unit.name))
        {
            const std::string baseUnits = system.baseUnits(meaning->dims);
            listing.items.push_back(unitItem(unit, *meaning, baseUnits));
            unitsOfDimension[baseUnits].push_back(unit.name);
        }
    for (const PrefixEntry& prefix : system.allPrefixes())
        listing.items.push_back(prefixItem(prefix));
    for (const std::string& quantity : system.allQuantities())
    {
        const std::string& baseUnits = *system.quantityUnits(quantity);
        listing.items.push_back(quantityItem(quantity, baseUnits, unitsOfDimension[baseUnits]));
    }
    return listing;
}

}    // namespace qencheck
