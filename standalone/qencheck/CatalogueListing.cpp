#include "Listing.h"

#include "PreVariableDefStore.h"
#include "text/Blanks.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace qencheck {

using qen::standalone::CatalogueDefinition;
using qen::standalone::DefinitionKind;
using qen::standalone::Definitions;
using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

namespace {

std::string text(const CatalogueDefinition& p_definition, std::string_view p_key)
{
    return std::string(p_definition.text(p_key));
}

void append(Texts& p_names, const Texts& p_more)
{
    std::copy_if(p_more.begin(), p_more.end(), std::back_inserter(p_names),
                 [](const std::string& p_name) { return !p_name.empty(); });
}

/// The lists of component names that a definition has under several keys, as one object for each component.
Json componentObjects(const std::vector<std::pair<const char*, Texts>>& p_lists)
{
    Json components = Json::array();
    for (std::size_t i = 0; i < p_lists.front().second.size(); ++i)
    {
        Json component = Json::object();
        for (const auto& [key, names] : p_lists)
            component[key] = i < names.size() ? names[i] : std::string();
        components.push_back(std::move(component));
    }
    return components;
}

void addPlace(Json& p_data, const CatalogueDefinition& p_definition)
{
    const qen::standalone::SourcePlace& place = p_definition.section->place;
    p_data["file"] = p_definition.document->files[place.file].path;
    p_data["line"] = place.line;
}

/// Whether the store has taken the definition, and not left it out with a warning.
bool isVariable(const Definitions& p_definitions, const std::string& p_name)
{
    const qen::PreVariableDefStore& store = p_definitions.variables();
    return store.hasVariable(p_name) &&
           store.getVarDefData(p_name, qen::PreVariableDefStore::SHORT_NAME) == p_name;
}

ListedItem variableItem(const Definitions& p_definitions, const CatalogueDefinition& p_variable)
{
    const bool isScalar = p_variable.text("Tensor Type") == "SCALAR";
    const auto componentNames = [&](std::string_view p_key) {
        return isScalar ? Texts() : p_variable.list(p_key);
    };
    const Texts components = componentNames("Component Short Names");
    const Texts longComponents = componentNames("Component Long Names");
    const Texts oldComponents = componentNames("Old Component Short Names");
    const Texts oldLongComponents = componentNames("Old Component Long Names");

    const std::string longName = text(p_variable, "Long Name");
    const std::string tensorType = text(p_variable, "Tensor Type");
    const std::string quantity = text(p_variable, "Quantity");
    const std::string* const units =
        quantity.empty() ? nullptr : p_definitions.units().quantityUnits(quantity);
    const Texts general = p_variable.list("General Availability");
    Texts oldNames;
    append(oldNames, {text(p_variable, "Old Short Name"), text(p_variable, "Old Long Name")});

    ListedItem item;
    item.availability = p_variable.list("Physical Availability");
    item.scopes = p_variable.list("Variable Scope");
    item.cells = {p_variable.name,
                  longName,
                  units ? unitsCell(*units) : "",
                  quantity,
                  tensorType,
                  joined(item.scopes),
                  joined(general),
                  joined(item.availability),
                  joined(components),
                  joined(oldNames)};

    append(item.names, {p_variable.name, longName, quantity});
    for (const Texts& names : {oldNames, components, longComponents, oldComponents, oldLongComponents})
        append(item.names, names);

    using Store = qen::PreVariableDefStore;
    item.data = {
        {"name", p_variable.name},
        {"longName", longName},
        {"oldName", text(p_variable, "Old Short Name")},
        {"oldLongName", text(p_variable, "Old Long Name")},
        {"quantity", quantity},
        {"units", units ? Json(*units) : Json()},
        {"tensorType", tensorType},
        {"components", componentObjects({{"name", components},
                                         {"longName", longComponents},
                                         {"oldName", oldComponents},
                                         {"oldLongName", oldLongComponents}})},
        {"scopes", item.scopes},
        {"generalAvailability", general},
        {"physicalAvailability", item.availability},
        {"variableClasses", p_variable.list("Variable Class")},
        {"fieldVariable",
         p_definitions.variables().getVarDefData(p_variable.name, Store::FIELD_VARIABLE) == "T"},
        {"status", text(p_variable, "Status")},
        {"underRelaxationFactor", text(p_variable, "Under Relaxation Factor")},
        {"userLevel", text(p_variable, "User Level")},
        {"outputToPostprocessor", text(p_variable, "Output to Postprocessor")},
    };
    addPlace(item.data, p_variable);
    return item;
}

ListedItem operatorItem(const Definitions& p_definitions, const CatalogueDefinition& p_operator)
{
    const std::string tensorType = text(p_operator, "Tensor Type");
    const bool isVector = tensorType == "VECTOR";
    const Texts components = isVector ? p_operator.list("Component Short Names") : Texts();
    const Texts longComponents = isVector ? p_operator.list("Component Long Names") : Texts();
    const std::string longName = text(p_operator, "Long Name");
    const std::string modifier = p_definitions.variables().getOperatorDimensionModifier(p_operator.name);

    ListedItem item;
    item.availability = p_operator.section->find("QEL Availability") ? p_operator.list("QEL Availability")
                                                                     : Texts {"GENERAL"};
    item.cells = {p_operator.name,           longName,          tensorType, modifier,
                  joined(item.availability), joined(components)};
    append(item.names, {p_operator.name, longName});
    append(item.names, components);
    append(item.names, longComponents);
    item.data = {
        {"name", p_operator.name},
        {"longName", longName},
        {"tensorType", tensorType},
        {"dimensionModifier", modifier},
        {"availability", item.availability},
        {"components", componentObjects({{"name", components}, {"longName", longComponents}})},
    };
    addPlace(item.data, p_operator);
    return item;
}

/// What stands in the brackets; the store has seen that there are some.
std::string resultUnits(const CatalogueDefinition& p_function)
{
    const std::string_view text = p_function.text("Result Units");
    const std::size_t begin = text.find('[') + 1;
    return std::string(qen::standalone::trimmed(text.substr(begin, text.find(']') - begin)));
}

ListedItem callbackItem(const Definitions& p_definitions, const CatalogueDefinition& p_function)
{
    const qen::ExprCBFuncStore::CBDef& stored = p_definitions.callbacks().findCBDef(p_function.name);
    const std::string units = resultUnits(p_function);
    const Texts locators = p_function.list("Locator Dimension");

    ListedItem item;
    item.cells = {p_function.name,
                  std::to_string(stored.numArgs),
                  stored.fieldValued ? "Field" : "Single",
                  unitsCell(units),
                  stored.vectorComponentsAllowed ? "Yes" : "No",
                  joined(locators)};
    item.names = {p_function.name};
    item.data = {
        {"name", p_function.name},
        {"arguments", stored.numArgs},
        {"fieldValued", stored.fieldValued},
        {"resultUnits", units},
        {"vectorComponents", stored.vectorComponentsAllowed},
        {"locatorDimensions", locators},
    };
    addPlace(item.data, p_function);
    return item;
}

}    // namespace

Listing listVariables(const Definitions& p_definitions)
{
    Listing listing;
    listing.columns = {"Name",  "Long Name", "Units", "Quantity",   "Type",
                       "Scope", "Used In",   "Needs", "Components", "Old Names"};
    for (const CatalogueDefinition& definition : p_definitions.catalogue().all())
        if (definition.kind == DefinitionKind::Variable && isVariable(p_definitions, definition.name))
            listing.items.push_back(variableItem(p_definitions, definition));
    return listing;
}

Listing listOperators(const Definitions& p_definitions)
{
    Listing listing;
    listing.columns = {"Name", "Long Name", "Type", "Dimension Modifier", "Availability", "Components"};
    for (const CatalogueDefinition& definition : p_definitions.catalogue().all())
        if (definition.kind == DefinitionKind::Operator)
            listing.items.push_back(operatorItem(p_definitions, definition));
    return listing;
}

Listing listCallbacks(const Definitions& p_definitions)
{
    Listing listing;
    listing.columns = {"Name", "Arguments", "Result", "Result Units", "Components", "Locators"};
    for (const CatalogueDefinition& definition : p_definitions.catalogue().all())
        if (definition.kind == DefinitionKind::CallbackFunction)
            listing.items.push_back(callbackItem(p_definitions, definition));
    return listing;
}

std::string unitsCell(const std::string& p_units) { return p_units.empty() ? "-" : p_units; }

std::string joined(const std::vector<std::string>& p_texts)
{
    std::string text;
    for (const std::string& piece : p_texts)
        text.append(text.empty() ? "" : ", ").append(piece);
    return text;
}

}    // namespace qencheck
