#include "Listing.h"

#include "rules/RuleBook.h"

namespace qencheck {

using qen::standalone::Definitions;
using qen::standalone::ParameterRule;
using Json = nlohmann::ordered_json;

namespace {

std::string quantityCell(const ParameterRule& p_rule)
{
    if (p_rule.unitsFrom.empty())
        return p_rule.quantity;
    const std::string source = "units of " + p_rule.unitsFrom;
    return p_rule.unitsTimes.empty() ? source : source + " times " + p_rule.unitsTimes;
}

ListedItem parameterItem(const Definitions& p_definitions, const std::string& p_pattern,
                         const ParameterRule& p_rule)
{
    const std::string* const units =
        p_rule.quantity.empty() ? nullptr : p_definitions.units().quantityUnits(p_rule.quantity);

    ListedItem item;
    item.cells = {p_pattern,
                  p_rule.name.empty() ? "(any other)" : p_rule.name,
                  p_rule.type,
                  units ? unitsCell(*units) : "",
                  quantityCell(p_rule),
                  p_rule.lowerBound,
                  p_rule.upperBound,
                  joined(p_rule.dependencies),
                  joined(p_rule.allowedTexts)};
    for (const std::string& name : {p_pattern, p_rule.name, p_rule.quantity})
        if (!name.empty())
            item.names.push_back(name);
    item.data = {
        {"object", p_pattern},
        {"parameter", p_rule.name},
        {"type", p_rule.type},
        {"quantity", p_rule.quantity},
        {"units", units ? Json(*units) : Json()},
        {"unitsFrom", p_rule.unitsFrom},
        {"unitsTimes", p_rule.unitsTimes},
        {"lowerBound", p_rule.lowerBound},
        {"upperBound", p_rule.upperBound},
        {"dependsOn", p_rule.dependencies},
        {"allowedTexts", p_rule.allowedTexts},
        {"singleValued", p_rule.singleValued},
        {"kind", p_rule.kind},
    };
    return item;
}

}    // namespace

Listing listParameters(const Definitions& p_definitions)
{
    Listing listing;
    listing.columns = {"Object",   "Parameter", "Type",       "Units",  "Quantity",
                       "At Least", "At Most",   "Depends On", "Allowed"};
    p_definitions.rules().visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        listing.items.push_back(parameterItem(p_definitions, p_pattern, p_rule));
    });
    return listing;
}

}    // namespace qencheck
