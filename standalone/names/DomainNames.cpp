#include "names/DomainNames.h"

#include <set>
#include <utility>

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

VariablePrefixInfo::Prefix2 componentKind(bool p_ofParticle)
{
    return p_ofParticle ? VariablePrefixInfo::PARTICLE_COMPONENT : VariablePrefixInfo::COMPONENT;
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
    for (const ModelTree::Object* child : p_domain.childrenOf({k_fluid, k_solid, k_pair}))
    {
        if (child->type == k_pair)
            pairs.push_back({VariablePrefixInfo::FLUID_PAIR, child});
        else
            m_phases.push_back({kindOf(*child), child});
    }

    std::set<std::pair<const MaterialNames*, bool>> seen;
    for (const Phase& phase : m_phases)
    {
        const bool isParticle = phase.kind == VariablePrefixInfo::PARTICLE;
        m_phasesProper += isParticle ? 0U : 1U;
        const MaterialNames* const material = materialOf(phase);
        if (material && seen.emplace(material, isParticle).second)
            m_contents.push_back({material, isParticle});
        for (const ModelTree::Object* group : sizeGroupsOf(phase))
            m_sizeGroups.insert(group->name);
    }
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
    if (inMaterial == VariablePrefixInfo::COMPONENT)
        return componentKind(p_phase.kind == VariablePrefixInfo::PARTICLE);
    if (childOf(m_model, *p_phase.object, k_sizeGroup, p_name))
        return VariablePrefixInfo::SIZE_GROUP;
    return inMaterial;
}

std::optional<VariablePrefixInfo::Prefix2> DomainNames::innerKind(const std::string& p_name) const
{
    std::optional<VariablePrefixInfo::Prefix2> reaction;
    for (const Contents& contents : m_contents)
    {
        const auto inMaterial = contents.material->find(p_name);
        if (inMaterial == VariablePrefixInfo::COMPONENT)
            return componentKind(contents.ofParticle);
        if (inMaterial && !reaction)
            reaction = inMaterial;
    }
    if (m_sizeGroups.contains(p_name))
        return VariablePrefixInfo::SIZE_GROUP;
    return reaction;
}

const MaterialNames* DomainNames::materialOf(const Phase& p_phase) const
{
    if (p_phase.kind == VariablePrefixInfo::FLUID_PAIR)
        return nullptr;
    const ModelTree::Parameter* const material = p_phase.object->find("Material");
    return material ? m_materials.find(material->value) : nullptr;
}

std::vector<const ModelTree::Object*> DomainNames::sizeGroupsOf(const Phase& p_phase)
{
    return p_phase.object->childrenOf({k_sizeGroup});
}

}    // namespace qen::standalone
