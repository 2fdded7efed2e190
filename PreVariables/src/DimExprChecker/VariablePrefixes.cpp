#include "DimExprChecker.h"

#include "InternalErrors.h"
#include "MessageCatalogue.h"
#include "ModelPaths.h"
#include "PreVariableDefStore.h"
#include "SplitVariableName.h"
#include "VariablePrefixInfo.h"

#include "QCLPath.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

using Classification = VariablePrefixInfo::Classification;

/// Where a prefix check is made, and of what.
struct Reference {
    const PreVariableDefStore& store;
    const SplitVariableName& name;
    const std::string& paramName;
    const std::string& objectPath;

    /// Whether the definition of the variable has that word in its scope.
    bool hasScope(std::string_view p_word) const
    {
        const PreVariableDefStore::SharedValueSet& scopes =
            store.variableData(name.root().name()).variableScope;
        return std::ranges::any_of(scopes, [&](PreVariableDefStore::ValueIndex p_scope) {
            return store.fieldValue(p_scope) == p_word;
        });
    }

    template <Msg Id>
    [[noreturn]] static void refuse(const Reference& p_reference)
    {
        raise<Id>(p_reference.name.fullName(), p_reference.paramName, p_reference.objectPath);
    }
};

[[noreturn]] void refuseReaction(const Reference& p_reference)
{
    const bool flamelet = p_reference.hasScope("REACFLMLET");
    const bool singleStep = p_reference.hasScope("REACSNGL");
    if (flamelet && singleStep)
        Reference::refuse<Msg::OnlyFlameletOrSingleStepReaction>(p_reference);
    if (flamelet)
        Reference::refuse<Msg::OnlyFlameletReaction>(p_reference);
    if (singleStep)
        Reference::refuse<Msg::OnlySingleStepReaction>(p_reference);
    Reference::refuse<Msg::ReactionPrefixNotAllowed>(p_reference);
}

/// A kind of prefix: the scope that allows it, and how it is refused where the variable does not have that scope.
template <class Kind>
struct PrefixKind {
    Kind kind;
    const char* scope;
    void (*refuse)(const Reference&);
};

// clang-format off
constexpr std::array<PrefixKind<VariablePrefixInfo::Prefix2>, 6> k_secondPrefixes {{
    {VariablePrefixInfo::COMPONENT,          "COMPONENT",          Reference::refuse<Msg::ComponentPrefixNotAllowed>},
    {VariablePrefixInfo::PARTICLE_COMPONENT, "PARTICLE COMPONENT", Reference::refuse<Msg::ParticleComponentPrefixNotAllowed>},
    {VariablePrefixInfo::REACSNGL,           "REACSNGL",           Reference::refuse<Msg::SingleStepReactionPrefixNotAllowed>},
    {VariablePrefixInfo::REACFLMLET,         "REACFLMLET",         Reference::refuse<Msg::FlameletReactionPrefixNotAllowed>},
    {VariablePrefixInfo::REACTION,           "REACTION",           refuseReaction},
    {VariablePrefixInfo::SIZE_GROUP,         "SIZE GROUP",         Reference::refuse<Msg::SizeGroupPrefixNotAllowed>},
}};

constexpr std::array<PrefixKind<VariablePrefixInfo::Prefix1>, 4> k_firstPrefixes {{
    {VariablePrefixInfo::PHASE,       "PHASE",       Reference::refuse<Msg::PhasePrefixNotAllowed>},
    {VariablePrefixInfo::PARTICLE,    "PARTICLE",    Reference::refuse<Msg::ParticlePrefixNotAllowed>},
    {VariablePrefixInfo::MUSIG_FLUID, "MUSIG FLUID", Reference::refuse<Msg::MusigFluidPrefixNotAllowed>},
    {VariablePrefixInfo::FLUID_PAIR,  "FLUID PAIR",  Reference::refuse<Msg::FluidPairPrefixNotAllowed>},
}};
// clang-format on

template <class Kind, std::size_t Count>
const PrefixKind<Kind>* find(const std::array<PrefixKind<Kind>, Count>& p_table, Kind p_kind)
{
    for (const PrefixKind<Kind>& row : p_table)
        if (row.kind == p_kind)
            return &row;
    return nullptr;
}

/// "a", "a or b", "a, b or c".
std::string alternatives(const std::vector<std::string>& p_words)
{
    std::string text = p_words.front();
    for (std::size_t i = 1; i < p_words.size(); ++i)
        text += (i + 1 == p_words.size() ? " or " : ", ") + p_words[i];
    return text;
}

[[noreturn]] void raiseMissingPrefix(const Reference& p_reference)
{
    const std::string& fullName = p_reference.name.fullName();
    std::vector<std::string> scopes = p_reference.store.getVarDefDataVec(p_reference.name.root().name(),
                                                                         PreVariableDefStore::VARIABLE_SCOPE);
    for (std::string& scope : scopes)
        scope = StringUtilities::toLowerCase(scope);

    if (scopes.empty())
        raise<Msg::ScopeMissing>(fullName, p_reference.paramName, p_reference.objectPath, "Variable Scope");
    if (scopes.size() == 1)
        raise<Msg::PrefixMissing>(fullName, p_reference.paramName, p_reference.objectPath, scopes.front());
    raise<Msg::OneOfPrefixesMissing>(fullName, p_reference.paramName, p_reference.objectPath,
                                     alternatives(scopes));
}

/// The prefixes of an ordinary variable against the scope in its definition.
void checkScope(const Reference& p_reference, const Classification& p_classification)
{
    // Deliberate: an allowed second prefix is the whole check; the first is then not looked at.
    // Held by Prefixes.AnAllowedSecondPrefixEndsTheCheck.
    if (p_classification.prefix2 != VariablePrefixInfo::NONE)
    {
        if (const auto* second = find(k_secondPrefixes, p_classification.prefix2))
        {
            if (!p_reference.hasScope(second->scope))
                second->refuse(p_reference);
            return;
        }
        internalError(k_noSecondPrefixKind);
    }

    if (p_classification.prefix1 > VariablePrefixInfo::GLOBAL_OR_PHASE)
    {
        const auto* first = find(k_firstPrefixes, p_classification.prefix1);
        if (!first)
        {
            internalError(k_noFirstPrefixKind);
            first = &k_firstPrefixes.back();
        }
        if (!p_reference.hasScope(first->scope))
            first->refuse(p_reference);
        return;
    }

    if (p_reference.hasScope("GLOBAL"))
        return;
    if (p_reference.hasScope("PHASE") && p_classification.prefix1 == VariablePrefixInfo::GLOBAL_OR_PHASE)
        return;
    raiseMissingPrefix(p_reference);
}

/// The place by which the prefixes of a variable of the object are judged: the object itself, or else the domain of that
/// name in the object's flow.
QCLPath contextOf(QCLPath p_object, const std::string& p_domainName, bool p_useObjectContext)
{
    QCLPath context;
    context.push_back(modelpaths::k_flow, p_object.getName(0));
    context.push_back(modelpaths::k_domain, p_domainName);
    return p_useObjectContext && context.isParent(p_object) ? std::move(p_object) : std::move(context);
}

}    // namespace

/// Empty where the object is in no domain: there, prefixes are not checked.
QCLPath DimExprChecker::prefixContextOf(const std::string& p_objectPath)
{
    QCLPath object(p_objectPath);
    const std::string domainName = object.getSubPathByType(modelpaths::k_domain).getLastName();
    return domainName.empty() ? QCLPath() : contextOf(std::move(object), domainName, true);
}

// Deliberate: one of the checker's fixed operations, though no check calls it: that of an expression finds the place
// once for all of its variables. Held by Prefixes.AreCheckedWhereTheObjectIs.
void DimExprChecker::checkVariablePrefixes(const std::string& p_objectPath, const std::string& p_paramName,
                                           const SplitVariableName& p_name)
{
    if (const QCLPath context = prefixContextOf(p_objectPath); !context.empty())
        checkPrefixesAt(context, p_objectPath, p_paramName, p_name);
}

void DimExprChecker::checkVariablePrefixes(const std::string& p_objectPath, const std::string& p_paramName,
                                           const std::string& p_domainName, const SplitVariableName& p_name,
                                           bool p_useObjectContext)
{
    if (p_domainName.empty())
        internalError(k_noDomainName);

    checkPrefixesAt(contextOf(p_objectPath, p_domainName, p_useObjectContext), p_objectPath, p_paramName,
                    p_name);
}

void DimExprChecker::checkPrefixesAt(const QCLPath& p_contextPath, const std::string& p_objectPath,
                                     const std::string& p_paramName, const SplitVariableName& p_name)
{
    if (p_name.isAV() && !p_name.prefix2().empty())
        raise<Msg::AVTwoPrefixes>(p_name.fullName(), p_paramName, p_objectPath);

    std::string errorText;
    const Classification classification =
        m_prefixInfo->classifyPrefixes(p_contextPath, p_name.prefix1(), p_name.prefix2(), errorText);
    if (!errorText.empty())
        raise<Msg::PrefixError>(p_name.fullName(), p_paramName, p_objectPath, errorText);

    if (p_name.isAV())
        checkAVPrefix(p_objectPath, p_paramName, p_contextPath, p_name, classification);
    else
        checkScope({*m_varDefStore, p_name, p_paramName, p_objectPath}, classification);
}

}    // namespace qen
