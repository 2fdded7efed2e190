#include "SplitVariableName.h"

#include "DimExprChecker/MessageCatalogue.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

constexpr const char* k_operatorsAndBrackets = "()*/+-^[]";

/// Where the root stands among the components, of which there is at least one. The last but one is tried first: when
/// the last two are both the root's name, the last is the suffix.
std::size_t rootIndex(const std::vector<QELName::Component>& p_components, const std::string& p_rootName,
                      const std::string& p_fullName)
{
    const std::size_t count = p_components.size();
    if (count == 1)
        return 0;

    for (const std::size_t index : {count - 2, count - 1})
        if (p_components[index].name() == p_rootName)
            return index;

    raise<Msg::RootPosition>(p_rootName, p_fullName);
}

// Deliberate: a name of four components has two prefixes wherever its root stands, so that its third counts as nothing
// when the root is the last; a name of more has no prefixes. Held by PartsOfAName.AreThese.
std::size_t prefixCount(std::size_t p_components, bool p_hasSuffix)
{
    switch (p_components)
    {
    case 2:
    case 3:
        return p_components - (p_hasSuffix ? 2 : 1);
    case 4:
        return 2;
    default:
        return 0;
    }
}

SplitVariableName::Type typeOf(const VariableRootNameFinder::RootNameInfo& p_root)
{
    if (p_root.isAV)
        return SplitVariableName::AV;
    return p_root.isMPExprValue ? SplitVariableName::MPExprValue : SplitVariableName::Variable;
}

}    // namespace

SplitVariableName::SplitVariableName(const std::string& p_fullName,
                                     const VariableRootNameFinder* p_rootFinder)
    : m_fullName(p_fullName)
{
    if (p_fullName.empty())
    {
        m_type = Empty;
        return;
    }

    if (p_fullName.find_first_of(k_operatorsAndBrackets) != std::string::npos)
        return;

    const VariableRootNameFinder::RootNameInfo found = p_rootFinder->findRoot(p_fullName);
    if (found.rootName.empty())
        return;

    std::vector<QELName::Component> components;
    if (!QELName::splitVariableName(p_fullName, components))
        raise<Msg::VariableSyntax>(p_fullName);

    const std::size_t root = rootIndex(components, found.rootName, p_fullName);
    const bool hasSuffix = root + 2 == components.size();
    const std::size_t prefixes = prefixCount(components.size(), hasSuffix);

    m_type = typeOf(found);
    if (prefixes > 0)
        m_prefix1 = components[0].name();
    if (prefixes > 1)
        m_prefix2 = components[1].name();
    m_root = std::move(components[root]);
    if (hasSuffix)
        m_suffix = std::move(components.back());
}

SplitVariableName::SplitVariableName(const SplitVariableName&) = default;
SplitVariableName& SplitVariableName::operator=(const SplitVariableName&) = default;
SplitVariableName::SplitVariableName(SplitVariableName&&) noexcept = default;
SplitVariableName& SplitVariableName::operator=(SplitVariableName&&) noexcept = default;
SplitVariableName::~SplitVariableName() = default;

}    // namespace qen
