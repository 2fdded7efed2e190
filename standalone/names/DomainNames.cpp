#include "names/DomainNames.h"

namespace qen::standalone {

namespace {

constexpr std::string_view k_fluid = "FLUID DEFINITION";
constexpr std::string_view k_solid = "SOLID DEFINITION";
constexpr std::string_view k_pair = "FLUID PAIR";
constexpr std::string_view k_sizeGroup = "SIZE GROUP";

VariablePrefixInfo::Prefix1 kindOf(const ModelTree::Object& p_object)
{
    if (p_object.type == k_pair)
        return VariablePrefixInfo::FLUID_PAIR;
    const ModelTree::Parameter* const morphology = p_object.find("Morphology");
    if (p_object.type == k_fluid && morphology && morphology->value == "Particle Transport")
        return VariablePrefixInfo::PARTICLE;
    if (p_object.type == k_fluid && morphology && morphology->value == "Polydispersed Fluid")
        return VariablePrefixInfo::MUSIG_FLUID;
    return VariablePrefixInfo::PHASE;
}

const ModelTree::Object* childOf(const ModelTree& p_model, const ModelTree::Object& p_parent,
                                 std::string_view p_type, std::string_view p_name)
{
    std::string path = p_parent.path;
    path.append("/").append(p_type).append(":").append(p_name);
    return p_model.find(path);
}

}    // namespace

const char* Phase::word() const
{
    switch (kind)
    {
    case VariablePrefixInfo::PARTICLE:
        return "particle";
    case VariablePrefixInfo::MUSIG_FLUID:
        return "polydispersed fluid";
    case VariablePrefixInfo::FLUID_PAIR:
        return "fluid pair";
    default:
        return object->type == k_solid ? "solid" : "fluid";
    }
}

DomainNames::DomainNames(const ModelTree& p_model, const ModelTree::Object& p_domain, Materials& p_materials)
    : m_model(p_model), m_domain(p_domain), m_materials(p_materials)
{
    std::vector<Phase> pairs;
    for (const ModelTree::Object* child : p_domain.children)
    {
        if (child->type == k_fluid || child->type == k_solid)
            m_phases.push_back({kindOf(*child), child});
        else if (child->type == k_pair)
            pairs.push_back({VariablePrefixInfo::FLUID_PAIR, child});
    }
    for (const Phase& phase : m_phases)
        m_phasesProper += phase.kind == VariablePrefixInfo::PARTICLE ? 0U : 1U;
    m_phases.insert(m_phases.end(), pairs.begin(), pairs.end());
}

std::optional<Phase> DomainNames::phase(std::string_view p_name) const
{
    for (const std::string_view type : {k_fluid, k_solid, k_pair})
        if (const ModelTree::Object* const object = childOf(m_model, m_domain, type, p_name))
            return Phase {kindOf(*object), object};
    return std::nullopt;
}

std::optional<VariablePrefixInfo::Prefix2> DomainNames::innerKind(const Phase& p_phase,
                                                                  const std::string& p_name) const
{
    const MaterialNames* const material = materialOf(p_phase);
    const auto inMaterial = material ? material->find(p_name) : std::nullopt;
    if (inMaterial == VariablePrefixInfo::COMPONENT && p_phase.kind == VariablePrefixInfo::PARTICLE)
        return VariablePrefixInfo::PARTICLE_COMPONENT;
    if (inMaterial == VariablePrefixInfo::COMPONENT)
        return inMaterial;
    if (childOf(m_model, *p_phase.object, k_sizeGroup, p_name))
        return VariablePrefixInfo::SIZE_GROUP;
    return inMaterial;
}

std::optional<VariablePrefixInfo::Prefix2> DomainNames::innerKind(const std::string& p_name) const
{
    for (const Phase& phase : m_phases)
        if (const auto kind = innerKind(phase, p_name))
            return kind;
    return std::nullopt;
}

std::vector<std::string> DomainNames::innerNames(const Phase& p_phase) const
{
    const MaterialNames* const material = materialOf(p_phase);
    std::vector<std::string> names = material ? material->all() : std::vector<std::string> {};
    for (const ModelTree::Object* child : p_phase.object->children)
        if (child->type == k_sizeGroup)
            names.push_back(child->name);
    return names;
}

/// The material of a fluid or solid; null for a pair, and where none is set or the library does not have it.
const MaterialNames* DomainNames::materialOf(const Phase& p_phase) const
{
    if (p_phase.kind == VariablePrefixInfo::FLUID_PAIR)
        return nullptr;
    const ModelTree::Parameter* const material = p_phase.object->find("Material");
    return material ? m_materials.find(material->value) : nullptr;
}

}    // namespace qen::standalone
