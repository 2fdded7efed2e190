#include "names/PrefixClassifier.h"

#include "QCLPath.h"

#include "model/ModelTree.h"
#include "names/DomainNames.h"
#include "names/MaterialNames.h"
#include "units/UnitsText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

namespace {

constexpr std::size_t k_shownNames = 5;

/// "'Water', 'Air' or 'Oil'"; of many names the first few. There must be one at least.
std::string oneOf(const std::vector<std::string>& p_names)
{
    const std::size_t shown = std::min(p_names.size(), k_shownNames);
    const std::size_t more = p_names.size() - shown;
    std::string text = quoted(p_names.front());
    for (std::size_t i = 1; i < shown; ++i)
        text += (more == 0 && i + 1 == shown ? " or " : ", ") + quoted(p_names[i]);
    return more == 0 ? text : fmt::format("{} or one of {} more", text, more);
}

std::vector<std::string> namesOf(const std::vector<Phase>& p_phases)
{
    std::vector<std::string> names;
    names.reserve(p_phases.size());
    for (const Phase& phase : p_phases)
        names.push_back(phase.object->name);
    return names;
}

std::string outsideOfDomains(const std::string& p_prefix, const std::string& p_contextPath)
{
    return fmt::format("{} names nothing, since {} is in no domain of the model; expected no prefix.",
                       quoted(p_prefix), quoted(p_contextPath));
}

std::string notInDomain(const std::string& p_prefix, const std::string& p_domain, const DomainNames& p_names)
{
    if (p_names.phases().empty())
        return fmt::format(
            "{} names nothing in domain {}, which has no fluid and no solid; expected no prefix.",
            quoted(p_prefix), quoted(p_domain));
    return fmt::format(
        "{} names nothing in domain {}; expected {}, or a component, reaction or size group of one "
        "of these.",
        quoted(p_prefix), quoted(p_domain), oneOf(namesOf(p_names.phases())));
}

std::string noPhase(const std::string& p_prefix, const std::string& p_domain, const DomainNames& p_names)
{
    if (p_names.phases().empty())
        return notInDomain(p_prefix, p_domain, p_names);
    return fmt::format(
        "{} is no fluid, solid or fluid pair of domain {}; expected {} as the first of two prefixes.",
        quoted(p_prefix), quoted(p_domain), oneOf(namesOf(p_names.phases())));
}

std::string notInPhase(const std::string& p_prefix, const Phase& p_phase, const DomainNames& p_names)
{
    const std::vector<std::string> expected = p_names.innerNames(p_phase);
    return fmt::format("{} is no component, reaction or size group of {} {}; expected {}.", quoted(p_prefix),
                       p_phase.word(), quoted(p_phase.object->name),
                       expected.empty() ? "no second prefix" : oneOf(expected));
}

/// The fluid within whose settings a place lies; none outside of such.
std::string fluidAround(const QCLPath& p_contextPath)
{
    return p_contextPath.getSubPathByType("FLUID").getLastName();
}

/// What the name of something inner means: in the fluid around the place, if that has it, else in the domain.
std::optional<VariablePrefixInfo::Prefix2> innerKind(const DomainNames& p_names, const QCLPath& p_contextPath,
                                                     const std::string& p_name)
{
    if (const std::optional<Phase> around = p_names.phase(fluidAround(p_contextPath)))
        if (const auto kind = p_names.innerKind(*around, p_name))
            return kind;
    return p_names.innerKind(p_name);
}

}    // namespace

struct PrefixClassifier::Known {
    explicit Known(const ModelTree& p_model) : version(p_model.version()), materials(p_model) {}

    std::size_t version;
    Materials materials;
    std::unordered_map<const ModelTree::Object*, DomainNames> domains;
};

PrefixClassifier::PrefixClassifier(const ModelTree& p_model) : m_model(p_model) {}

PrefixClassifier::~PrefixClassifier() = default;

PrefixClassifier::Known& PrefixClassifier::known() const
{
    if (!m_known || m_known->version != m_model.version())
        m_known = std::make_unique<Known>(m_model);
    return *m_known;
}

VariablePrefixInfo::Classification PrefixClassifier::classifyPrefixes(const QCLPath& p_contextPath,
                                                                      const std::string& p_prefix1,
                                                                      const std::string& p_prefix2,
                                                                      std::string& p_errorText) const
{
    p_errorText.clear();
    const ModelTree::Object* const domain =
        m_model.find(p_contextPath.getSubPathByType("DOMAIN").getFullPath());
    if (!domain)
    {
        if (!p_prefix1.empty() || !p_prefix2.empty())
            p_errorText =
                outsideOfDomains(p_prefix1.empty() ? p_prefix2 : p_prefix1, p_contextPath.getFullPath());
        return {};
    }

    Known& of = known();
    const DomainNames& names = of.domains.try_emplace(domain, m_model, *domain, of.materials).first->second;
    const Prefix1 withoutPhase =
        names.hasOnePhase() || !p_contextPath.getSubPathByType("FLUID").empty() ? GLOBAL_OR_PHASE : GLOBAL;
    if (p_prefix1.empty() && p_prefix2.empty())
        return {withoutPhase, ""};

    const std::optional<Phase> phase = names.phase(p_prefix1);
    if (p_prefix1.empty() || p_prefix2.empty())
    {
        if (phase)
            return {phase->kind, p_prefix1};
        const std::string& only = p_prefix1.empty() ? p_prefix2 : p_prefix1;
        if (const auto kind = innerKind(names, p_contextPath, only))
            return {withoutPhase, "", *kind, only};
        p_errorText = notInDomain(only, domain->name, names);
        return {};
    }

    if (!phase)
    {
        p_errorText = noPhase(p_prefix1, domain->name, names);
        return {};
    }
    if (const auto kind = names.innerKind(*phase, p_prefix2))
        return {phase->kind, p_prefix1, *kind, p_prefix2};
    p_errorText = notInPhase(p_prefix2, *phase, names);
    return {};
}

}    // namespace qen::standalone
