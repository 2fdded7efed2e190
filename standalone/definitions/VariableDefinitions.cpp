#include "definitions/VariableDefinitions.h"

#include "text/NearestName.h"
#include "world/World.h"

#include "DataError.h"
#include "ErrorReporter.h"
#include "QCLPath.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_variableType = "VARIABLE";

constexpr std::array<std::string_view, 18> k_variableKeys {
    "Component Long Names",
    "Component Short Names",
    "Field Variable",
    "General Availability",
    "Long Name",
    "Old Component Long Names",
    "Old Component Short Names",
    "Old Long Name",
    "Old Short Name",
    "Output to Postprocessor",
    "Physical Availability",
    "Quantity",
    "Status",
    "Tensor Type",
    "Under Relaxation Factor",
    "User Level",
    "Variable Class",
    "Variable Scope",
};

Finding atSection(const QclDocument& p_document, const QclObject& p_section, Severity p_severity,
                  std::string p_identifier, std::string p_message)
{
    return toFinding({p_severity, std::move(p_identifier), std::move(p_message), p_section.place,
                      static_cast<std::uint32_t>(p_section.path.size())},
                     p_document);
}

Finding unknownKey(const QclDocument& p_document, const QclObject& p_section, const QclParameter& p_parameter)
{
    std::string message =
        "Unknown key '" + p_parameter.name + "' in the definition '" + p_section.path + "'.";
    const std::string nearest = nearestName(p_parameter.name, {k_variableKeys.begin(), k_variableKeys.end()});
    if (!nearest.empty())
        message += " Did you mean '" + nearest + "'?";
    return toFinding({Severity::Error, "unknown-definition-key", std::move(message), p_parameter.place,
                      static_cast<std::uint32_t>(p_parameter.name.size())},
                     p_document);
}

}    // namespace

void VariableDefinitions::add(const QclDocument& p_document, std::vector<Finding>& p_problems)
{
    for (const QclObject& section : p_document.objects)
    {
        const QCLPath path(section.path);
        if (path.size() != 1 || path.getLastType() != k_variableType || path.getLastName().empty())
        {
            p_problems.push_back(atSection(
                p_document, section, Severity::Error, "unknown-definition",
                "'" + section.path + "' defines nothing that is known here. Expected '/VARIABLE:name'."));
            continue;
        }

        for (const QclParameter& parameter : section.parameters)
            if (std::find(k_variableKeys.begin(), k_variableKeys.end(), parameter.name) ==
                k_variableKeys.end())
                p_problems.push_back(unknownKey(p_document, section, parameter));

        const std::string name = path.getLastName();
        const auto [known, isNew] = m_byName.emplace(name, m_definitions.size());
        if (isNew)
            m_definitions.push_back({name, &p_document, &section});
        else
            m_definitions[known->second] = {name, &p_document, &section};
    }
}

void VariableDefinitions::fill(PreVariableDefStore& p_store, std::vector<Finding>& p_problems) const
{
    for (const Definition& definition : m_definitions)
    {
        std::map<std::string, std::string> parameters;
        for (const QclParameter& parameter : definition.section->parameters)
            parameters.emplace(parameter.name, parameter.value);

        World world = currentWorld();
        world.onReport = [&](const ErrorMsg& p_message) {
            p_problems.push_back(atSection(*definition.document, *definition.section, Severity::Warning,
                                           "definition-warning", p_message.getMessage()));
        };
        const WorldScope scope(world);

        try
        {
            p_store.addVariableDefinition(definition.name, parameters);
        }
        catch (const data::error& error)
        {
            p_problems.push_back(atSection(*definition.document, *definition.section, Severity::Error,
                                           "definition-error", error.getMessage()));
        }
    }
}

}    // namespace qen::standalone
