#include "definitions/CatalogueDefinitions.h"

#include "text/NearestName.h"
#include "world/World.h"

#include "Error.h"
#include "ErrorReporter.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <exception>

namespace qen::standalone {
namespace {

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

constexpr std::array<std::string_view, 6> k_operatorKeys {
    "Component Long Names", "Component Short Names", "Dimensions Modifier", "Long Name",
    "QEL Availability",     "Tensor Type",
};

constexpr std::array<std::string_view, 5> k_callbackKeys {
    "CallBack Type", "Locator Dimension", "Number of Arguments", "Result Units", "Tensor Type",
};

static_assert(std::ranges::is_sorted(k_variableKeys) && std::ranges::is_sorted(k_operatorKeys) &&
              std::ranges::is_sorted(k_callbackKeys));

constexpr std::array<DefinitionForm, static_cast<std::size_t>(DefinitionKind::Count)> k_forms {{
    {DefinitionKind::Variable, "VARIABLE", k_variableKeys},
    {DefinitionKind::Operator, "VARIABLE OPERATOR", k_operatorKeys},
    {DefinitionKind::CallbackFunction, "CALLBACK FUNCTION", k_callbackKeys},
}};

struct KindAndName {
    DefinitionKind kind;
    std::string_view name;
};

/// What a section defines; of kind `Count` where its path is that of no definition.
KindAndName definedBy(std::string_view p_path)
{
    constexpr KindAndName k_nothing {DefinitionKind::Count, {}};
    const std::size_t colon = p_path.find(':');
    if (!p_path.starts_with('/') || colon == std::string_view::npos)
        return k_nothing;
    const std::string_view type = p_path.substr(1, colon - 1);
    const std::string_view name = p_path.substr(colon + 1);
    if (name.empty() || name.find_first_of("/:") != std::string_view::npos)
        return k_nothing;
    const auto* const form = std::find_if(k_forms.begin(), k_forms.end(),
                                          [&](const DefinitionForm& p_form) { return p_form.type == type; });
    return form == k_forms.end() ? k_nothing : KindAndName {form->kind, name};
}

std::string expectedSections()
{
    std::string text;
    for (const DefinitionForm& form : k_forms)
    {
        if (!text.empty())
            text += form.kind == k_forms.back().kind ? " or " : ", ";
        text.append("'/").append(form.type).append(":name'");
    }
    return text;
}

bool quotes(const std::string& p_message, std::string_view p_text)
{
    for (std::size_t at = p_message.find(p_text); at != std::string::npos;
         at = p_message.find(p_text, at + 1))
    {
        const std::size_t end = at + p_text.size();
        if (at > 0 && end < p_message.size() && p_message[at - 1] == p_message[end] &&
            (p_message[end] == '\'' || p_message[end] == '"'))
            return true;
    }
    return false;
}

std::string_view withoutBrackets(std::string_view p_units)
{
    return p_units.starts_with('[') && p_units.ends_with(']') ? p_units.substr(1, p_units.size() - 2)
                                                              : p_units;
}

/// The key that a message about a definition is about: the one that it names, else the only one whose text it quotes;
/// an empty text where neither is known.
std::string_view keyOf(const std::string& p_message, const CatalogueDefinition& p_definition)
{
    for (const std::string_view key : formOf(p_definition.kind).keys)
        if (quotes(p_message, key))
            return key;

    std::string_view quoted;
    for (const QclParameter& parameter : p_definition.section->parameters)
    {
        if (parameter.value().empty() || parameter.value() == p_definition.name ||
            (!quotes(p_message, parameter.value()) && !quotes(p_message, withoutBrackets(parameter.value()))))
            continue;
        if (!quoted.empty())
            return {};
        quoted = parameter.name();
    }
    return quoted;
}

/// @return Whether all are known.
bool checkKeys(const CatalogueDefinition& p_definition, std::vector<Finding>& p_problems)
{
    bool allKnown = true;
    const std::span<const std::string_view> keys = formOf(p_definition.kind).keys;
    for (const QclParameter& parameter : p_definition.section->parameters)
    {
        if (std::binary_search(keys.begin(), keys.end(), parameter.name()))
            continue;
        allKnown = false;
        std::string message = "Unknown key '" + std::string(parameter.name()) + "' in the definition '" +
                              p_definition.section->path + "'.";
        const std::string nearest = nearestName(parameter.name(), {keys.begin(), keys.end()});
        if (!nearest.empty())
            message += " Did you mean '" + nearest + "'?";
        p_problems.push_back(
            toFinding({Severity::Error, "unknown-definition-key", std::move(message), parameter.place(),
                       static_cast<std::uint32_t>(parameter.name().size())},
                      *p_definition.document));
    }
    return allKnown;
}

/// A section's keys and texts as the stores take them. Most sections have the keys of the one before, in its order:
/// only the texts are exchanged then.
class Parameters {
public:
    /// @return Whether there are the same keys as before.
    bool take(const QclObject& p_section)
    {
        std::size_t taken = 0;
        for (; taken < std::min(p_section.parameters.size(), m_inOrderOfText.size()); ++taken)
        {
            const QclParameter& parameter = p_section.parameters[taken];
            if (parameter.name() != m_inOrderOfText[taken]->first)
                break;
            m_inOrderOfText[taken]->second = parameter.value();
        }
        if (taken == p_section.parameters.size() && taken == m_inOrderOfText.size())
            return true;

        m_texts.clear();
        m_inOrderOfText.clear();
        for (const QclParameter& parameter : p_section.parameters)
            m_inOrderOfText.push_back(m_texts.emplace(parameter.name(), parameter.value()).first);
        if (m_texts.size() != p_section.parameters.size())    // the first of two alike counts: exchange none
            m_inOrderOfText.clear();
        return false;
    }

    const std::map<std::string, std::string>& texts() const { return m_texts; }

private:
    std::map<std::string, std::string> m_texts;
    std::vector<std::map<std::string, std::string>::iterator> m_inOrderOfText;
};

void addTo(PreVariableDefStore& p_variables, ExprCBFuncStore& p_callbacks,
           const CatalogueDefinition& p_definition, const std::map<std::string, std::string>& p_parameters)
{
    switch (p_definition.kind)
    {
    case DefinitionKind::Variable:
        p_variables.addVariableDefinition(p_definition.name, p_parameters);
        break;
    case DefinitionKind::Operator:
        p_variables.addVariableOperatorDefinition(p_definition.name, p_parameters);
        break;
    case DefinitionKind::CallbackFunction:
        p_callbacks.addCBDefinition(p_definition.name, p_parameters);
        break;
    case DefinitionKind::Count:
        break;
    }
}

}    // namespace

const DefinitionForm& formOf(DefinitionKind p_kind) { return k_forms[static_cast<std::size_t>(p_kind)]; }

std::string_view CatalogueDefinition::text(std::string_view p_key) const
{
    const QclParameter* const parameter = section->find(p_key);
    return parameter ? parameter->value() : std::string_view();
}

std::vector<std::string> CatalogueDefinition::list(std::string_view p_key) const
{
    return StringUtilities::stringToVector(std::string(text(p_key)), ',');
}

Finding CatalogueDefinition::finding(Severity p_severity, std::string p_identifier,
                                     std::string p_message) const
{
    return toFinding({p_severity, std::move(p_identifier), std::move(p_message), section->place,
                      static_cast<std::uint32_t>(section->path.size())},
                     *document);
}

Finding CatalogueDefinition::findingAt(std::string_view p_key, Severity p_severity, std::string p_identifier,
                                       std::string p_message) const
{
    const QclParameter* const parameter = section->find(p_key);
    if (!parameter)
        return finding(p_severity, std::move(p_identifier), std::move(p_message));
    return toFinding({p_severity, std::move(p_identifier), std::move(p_message), parameter->placeInValue(0),
                      static_cast<std::uint32_t>(parameter->value().size())},
                     *document);
}

void CatalogueDefinitions::add(const QclDocument& p_document)
{
    // A document has each path once, so that of the first nothing needs to be found.
    const bool isFirst = m_sections.empty();
    if (!isFirst && m_byPath.empty())
        for (std::size_t number = 0; number < m_sections.size(); ++number)
            if (m_sections[number].definition.kind != DefinitionKind::Count)
                m_byPath.emplace(m_sections[number].definition.section->path, number);

    m_sections.reserve(m_sections.size() + p_document.objects.size());
    for (const QclObject& section : p_document.objects)
    {
        const auto [kind, name] = definedBy(section.path);
        m_sections.push_back({{kind, std::string(name), &p_document, &section}});
        if (isFirst || kind == DefinitionKind::Count)
            continue;

        const std::size_t latest = m_sections.size() - 1;
        const auto [known, isNew] = m_byPath.try_emplace(section.path, latest);
        if (!isNew)
            m_sections[std::exchange(known->second, latest)].isReplaced = true;
    }
}

void CatalogueDefinitions::load(PreVariableDefStore& p_variables, ExprCBFuncStore& p_callbacks,
                                std::vector<Finding>& p_problems) const
{
    const CatalogueDefinition* reported = nullptr;
    World world = currentWorld();
    world.onReport = [&](const ErrorMsg& p_message) {
        const std::string& message = p_message.getMessage();
        p_problems.push_back(
            reported->findingAt(keyOf(message, *reported), Severity::Warning, "definition-warning", message));
    };
    const WorldScope scope(world);

    Parameters parameters;
    DefinitionKind checkedKind = DefinitionKind::Count;    // to which the keys at hand are known
    for (const auto& [definition, isReplaced] : m_sections)
    {
        if (definition.kind == DefinitionKind::Count)
        {
            p_problems.push_back(definition.finding(Severity::Error, "unknown-definition",
                                                    "'" + definition.section->path +
                                                        "' defines nothing that is known here. Expected " +
                                                        expectedSections() + "."));
            continue;
        }
        const bool sameKeys = parameters.take(*definition.section);
        if (!sameKeys || definition.kind != checkedKind)
            checkedKind = checkKeys(definition, p_problems) ? definition.kind : DefinitionKind::Count;
        if (isReplaced)
            continue;

        reported = &definition;
        try
        {
            addTo(p_variables, p_callbacks, definition, parameters.texts());
        }
        catch (const Error& error)
        {
            const std::string message = error.getMessage();
            p_problems.push_back(definition.findingAt(keyOf(message, definition), Severity::Error,
                                                      "definition-error", message));
        }
    }
}

std::vector<CatalogueDefinition> CatalogueDefinitions::all() const
{
    std::vector<CatalogueDefinition> definitions;
    for (const auto& [definition, isReplaced] : m_sections)
        if (definition.kind != DefinitionKind::Count && !isReplaced)
            definitions.push_back(definition);
    return definitions;
}

}    // namespace qen::standalone
