#include "names/MaterialNames.h"

#include "StringUtilities.h"

#include <cstddef>

namespace qen::standalone {

namespace {

std::vector<std::string> listOf(const ModelTree::Object& p_object, std::string_view p_parameter)
{
    const ModelTree::Parameter* const list = p_object.find(p_parameter);
    return list ? StringUtilities::stringToVector(list->value, ',') : std::vector<std::string> {};
}

/// A reaction that nobody describes is a reaction all the same: whoever looks at the library says that it is missing.
VariablePrefixInfo::Prefix2 kindOf(const ModelTree::Object* p_reaction)
{
    const ModelTree::Parameter* const option = p_reaction ? p_reaction->find("Option") : nullptr;
    if (option && option->value == "Single Step")
        return VariablePrefixInfo::REACSNGL;
    if (option && option->value == "Flamelet")
        return VariablePrefixInfo::REACFLMLET;
    return VariablePrefixInfo::REACTION;
}

}    // namespace

MaterialNames::MaterialNames(const ModelTree& p_model, const ModelTree::Object& p_material)
{
    for (const std::string& name : listOf(p_material, "Components"))
        add(name, VariablePrefixInfo::COMPONENT);
    for (const ModelTree::Object* component : p_material.childrenOf({"COMPONENT"}))
        add(component->name, VariablePrefixInfo::COMPONENT);
    addReactions(p_model, p_material);
}

void MaterialNames::add(const std::string& p_name, VariablePrefixInfo::Prefix2 p_kind)
{
    if (!p_name.empty() && m_kinds.try_emplace(p_name, p_kind).second)
        m_names.push_back(p_name);
}

/// Adds the reactions of a material, and the steps of which those consist. Each is looked at once, so that a circle of
/// reactions ends.
void MaterialNames::addReactions(const ModelTree& p_model, const ModelTree::Object& p_listedIn)
{
    std::vector<const ModelTree::Object*> listing {&p_listedIn};
    for (std::size_t i = 0; i < listing.size(); ++i)
        for (const std::string& name : listOf(*listing[i], "Reactions"))
        {
            const bool isNew = m_kinds.find(name) == m_kinds.end();
            const ModelTree::Object* const reaction = p_model.find("/LIBRARY/REACTION:" + name);
            add(name, kindOf(reaction));
            if (isNew && reaction)
                listing.push_back(reaction);
        }
}

std::optional<VariablePrefixInfo::Prefix2> MaterialNames::find(const std::string& p_name) const
{
    const auto found = m_kinds.find(p_name);
    return found == m_kinds.end() ? std::nullopt : std::optional(found->second);
}

const MaterialNames* Materials::find(std::string_view p_material)
{
    const ModelTree::Object* const material =
        m_model.find(std::string("/LIBRARY/MATERIAL:").append(p_material));
    if (!material)
        return nullptr;
    const ReadGraph::Node node = m_reads ? m_reads->node(ReadGraph::Kind::Material, material->path) : 0;
    const auto known = m_materials.find(material);
    if (known != m_materials.end())
    {
        if (m_reads)
            m_reads->use(node);
        return &known->second;
    }
    const ReadGraph::Scope scope(m_reads, node);
    return &m_materials.try_emplace(material, m_model, *material).first->second;
}

}    // namespace qen::standalone
