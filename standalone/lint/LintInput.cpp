#include "lint/LintInput.h"

#include "definitions/Definitions.h"
#include "text/Blanks.h"

#include <algorithm>
#include <map>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::string_view k_parameterLevel = "/PARAMETER";

LintText nameOf(const CatalogueDefinition& p_definition)
{
    const std::string_view path = p_definition.section->path;
    const std::size_t offset = path.size() - p_definition.name.size();
    SourcePlace place = p_definition.section->place;
    place.column += static_cast<std::uint32_t>(offset);
    return {path.substr(offset), {p_definition.document, p_definition.section}, place};
}

LintDefinition definitionFrom(const CatalogueDefinition& p_definition)
{
    LintDefinition definition {
        p_definition.name, {p_definition.document, p_definition.section}, nameOf(p_definition), {}};
    definition.names.push_back(definition.shortName);
    if (p_definition.kind == DefinitionKind::CallbackFunction)
        return definition;

    for (const char* key : {"Long Name", "Old Short Name", "Old Long Name"})
        if (const LintText name = valueOf(definition.section, key); !name.text.empty())
            definition.names.push_back(name);
    for (const char* key : {"Component Short Names", "Component Long Names", "Old Component Short Names",
                            "Old Component Long Names"})
    {
        // Old names count only where there is one for each component; without all the others nothing is loaded.
        const std::vector<LintText> names = listOf(definition.section, key);
        if (names.size() == componentCount(definition))
            definition.names.insert(definition.names.end(), names.begin(), names.end());
    }
    return definition;
}

/// The pattern of an object and the name of a parameter, from the path of a section of rules; false for another path.
bool splitParameterPath(std::string_view p_path, std::pair<std::string, std::string>& p_split)
{
    const std::size_t level = p_path.rfind(k_parameterLevel);
    if (level == std::string_view::npos)
        return false;
    const std::string_view name = p_path.substr(level + k_parameterLevel.size());
    if (!name.empty() && name.front() != ':')
        return false;
    p_split = {std::string(p_path.substr(0, level)), std::string(name.empty() ? name : name.substr(1))};
    return true;
}

}    // namespace

LintText valueOf(const LintSection& p_section, std::string_view p_key)
{
    const QclParameter* const parameter = p_section.object->find(p_key);
    if (!parameter)
        return {{}, p_section, p_section.object->place};
    return {parameter->value(), p_section, parameter->placeInValue(0)};
}

std::vector<LintText> listOf(const LintSection& p_section, std::string_view p_key)
{
    std::vector<LintText> pieces;
    const QclParameter* const parameter = p_section.object->find(p_key);
    if (!parameter || trimmed(parameter->value()).empty())
        return pieces;

    const std::string_view value = parameter->value();
    for (std::size_t begin = 0; begin <= value.size();)
    {
        const std::size_t end = std::min(value.find(',', begin), value.size());
        const std::string_view piece = trimmed(value.substr(begin, end - begin));
        const std::size_t offset =
            piece.empty() ? begin : static_cast<std::size_t>(piece.data() - value.data());
        pieces.push_back({piece, p_section, parameter->placeInValue(offset)});
        begin = end + 1;
    }
    return pieces;
}

const LintSection& LintParameter::sectionWith(std::string_view p_key) const
{
    const auto found = std::find_if(sections.rbegin(), sections.rend(), [&](const LintSection& p_section) {
        return p_section.object->find(p_key) != nullptr;
    });
    return found != sections.rend() ? *found : sections.back();
}

LintInput::LintInput(const Definitions& p_definitions) : m_definitions(p_definitions)
{
    for (const CatalogueDefinition& definition : p_definitions.catalogue().all())
        switch (definition.kind)
        {
        case DefinitionKind::Variable:
            m_variables.push_back(definitionFrom(definition));
            break;
        case DefinitionKind::Operator:
            m_operators.push_back(definitionFrom(definition));
            break;
        case DefinitionKind::CallbackFunction:
            m_callbacks.push_back(definitionFrom(definition));
            break;
        case DefinitionKind::Count:
            break;
        }
    addParameters();
}

void LintInput::addParameters()
{
    std::map<std::pair<std::string, std::string>, std::vector<LintSection>> sections;
    std::pair<std::string, std::string> key;
    for (const QclDocument& document : m_definitions.ruleDocuments())
        for (const QclObject& object : document.objects)
            if (splitParameterPath(object.path, key))
                sections[key].push_back({&document, &object});

    m_definitions.rules().visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        const auto found = sections.find({p_pattern, p_rule.name});
        if (found != sections.end())
            m_parameters.push_back({p_pattern, &p_rule, found->second});
    });
}

bool isForExpressions(const LintDefinition& p_variable)
{
    return std::ranges::any_of(listOf(p_variable.section, "General Availability"),
                               [](const LintText& p_word) { return p_word.text == "QEL"; });
}

std::size_t componentCount(const LintDefinition& p_definition)
{
    const std::string_view type = p_definition.text("Tensor Type");
    if (type == "VECTOR")
        return 3;
    return type == "SYMTEN2" ? 6 : 0;
}

}    // namespace qen::standalone
