#include "names/PrefixClassifier.h"

#include "QCLPath.h"

#include "model/ModelTree.h"
#include "model/ReadGraph.h"
#include "names/DomainNames.h"
#include "names/MaterialNames.h"
#include "units/UnitsText.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

namespace {

/// The names that an error says are expected: of many only the first few.
class ExpectedNames {
public:
    /// Adds the names of all elements, in a time that does not depend on how many there are.
    template <class Elements, class NameOf>
    void addAll(const Elements& p_elements, const NameOf& p_nameOf)
    {
        std::size_t i = 0;
        for (; i < p_elements.size() && m_first.size() < k_shown; ++i)
            m_first.push_back(quoted(p_nameOf(p_elements[i])));
        m_more += p_elements.size() - i;
    }

    bool empty() const { return m_first.empty(); }

    /// "'Water', 'Air' or 'Oil'"; there must be one name at least.
    std::string text() const
    {
        std::string text = m_first.front();
        for (std::size_t i = 1; i < m_first.size(); ++i)
            text += (m_more == 0 && i + 1 == m_first.size() ? " or " : ", ") + m_first[i];
        return m_more == 0 ? text : fmt::format("{} or one of {} more", text, m_more);
    }

private:
    static constexpr std::size_t k_shown = 5;

    std::vector<std::string> m_first;
    std::size_t m_more = 0;
};

ExpectedNames phasesOf(const DomainNames& p_names)
{
    ExpectedNames expected;
    expected.addAll(p_names.phases(), [](const Phase& p_phase) { return p_phase.object->name; });
    return expected;
}

/// What is in a phase: components and reactions, then size groups.
ExpectedNames contentsOf(const Phase& p_phase, const DomainNames& p_names)
{
    ExpectedNames expected;
    if (const MaterialNames* const material = p_names.materialOf(p_phase))
        expected.addAll(material->all(), [](const std::string& p_name) { return p_name; });
    expected.addAll(DomainNames::sizeGroupsOf(p_phase),
                    [](const ModelTree::Object* p_group) { return p_group->name; });
    return expected;
}

std::string outsideOfDomains(const std::string& p_prefix, const QCLPath& p_contextPath)
{
    const QCLPath domain = p_contextPath.getSubPathByType("DOMAIN");
    if (domain.empty())
        return fmt::format("{} names nothing, since {} is in no domain; expected no prefix.",
                           quoted(p_prefix), quoted(p_contextPath.getFullPath()));
    return fmt::format("{} names nothing, since the model has no domain {}; expected a domain that it has.",
                       quoted(p_prefix), quoted(domain.getLastName()));
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
        quoted(p_prefix), quoted(p_domain), phasesOf(p_names).text());
}

std::string noPhase(const std::string& p_prefix, const std::string& p_domain, const DomainNames& p_names)
{
    if (p_names.phases().empty())
        return notInDomain(p_prefix, p_domain, p_names);
    return fmt::format(
        "{} is no fluid, solid or fluid pair of domain {}; expected {} as the first of two prefixes.",
        quoted(p_prefix), quoted(p_domain), phasesOf(p_names).text());
}

std::string notInPhase(const std::string& p_prefix, const Phase& p_phase, const DomainNames& p_names)
{
    const ExpectedNames expected = contentsOf(p_phase, p_names);
    return fmt::format("{} is no component, reaction or size group of {} {}; expected {}.", quoted(p_prefix),
                       p_phase.word(), quoted(p_phase.object->name),
                       expected.empty() ? "no second prefix" : expected.text());
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
    Known(const ModelTree& p_model, ReadGraph* p_reads)
        : version(p_model.version()), reads(p_reads), materials(p_model, p_reads)
    {}

    const DomainNames& namesIn(const ModelTree& p_model, const ModelTree::Object& p_domain)
    {
        const ReadGraph::Node node = reads ? reads->node(ReadGraph::Kind::Domain, p_domain.path) : 0;
        const auto found = domains.find(&p_domain);
        if (found != domains.end())
        {
            if (reads)
                reads->use(node);
            return found->second;
        }
        const ReadGraph::Scope scope(reads, node);
        return domains.try_emplace(&p_domain, p_model, p_domain, materials).first->second;
    }

    std::size_t version;
    ReadGraph* reads;
    Materials materials;
    std::unordered_map<const ModelTree::Object*, DomainNames> domains;
};

PrefixClassifier::PrefixClassifier(const ModelTree& p_model, ReadGraph* p_reads)
    : m_model(p_model), m_reads(p_reads)
{}

PrefixClassifier::~PrefixClassifier() = default;

PrefixClassifier::Known& PrefixClassifier::known() const
{
    if (!m_known || m_known->version != m_model.version())
        m_known = std::make_unique<Known>(m_model, m_reads);
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
            p_errorText = outsideOfDomains(p_prefix1.empty() ? p_prefix2 : p_prefix1, p_contextPath);
        return {};
    }

    const DomainNames& names = known().namesIn(m_model, *domain);
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
