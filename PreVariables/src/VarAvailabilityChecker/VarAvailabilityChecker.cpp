#include "VarAvailabilityChecker.h"

#include "AllowedNames.h"
#include "AvailabilityChecks.h"
#include "AvailabilityKeywords.h"
#include "PreVariableDefStore.h"
#include "ShortVarNameFinder.h"
#include "SplitVariableName.h"

#include <algorithm>
#include <string_view>

namespace qen {

namespace {

constexpr const char* k_any = "ANY";

}    // namespace

VarAvailabilityChecker::VarAvailabilityChecker(const ModelQCL* p_model,
                                               const ShortVarNameFinder* p_shortNames,
                                               const PhysicsEvaluator* p_evaluator)
    : m_model(p_model), m_checks(std::make_shared<const AvailabilityChecks>(p_evaluator)),
      m_shortNames(p_shortNames)
{}

VarAvailabilityChecker::VarAvailabilityChecker(const VarAvailabilityChecker&) = default;
VarAvailabilityChecker& VarAvailabilityChecker::operator=(const VarAvailabilityChecker&) = default;
VarAvailabilityChecker::~VarAvailabilityChecker() = default;

void VarAvailabilityChecker::update(NotifyType p_type)
{
    if (p_type == NotifyModelChanged || p_type == NotifyPhysicsChanged)
        clearCache();
}

bool VarAvailabilityChecker::isGenerallyAvailable(const std::string& p_name,
                                                  const std::vector<std::string>& p_allowed) const
{
    if (p_allowed.empty())
        return false;
    if (p_allowed.front() == k_any)
        return true;
    return AllowedNames(p_allowed).contains(m_shortNames->shortName(p_name));
}

bool VarAvailabilityChecker::areGenerallyAvailable(const std::vector<std::string>& p_names,
                                                   const std::vector<std::string>& p_allowed,
                                                   std::vector<std::string>& p_unavailable) const
{
    p_unavailable.clear();
    if (p_names.empty())
        return true;
    if (p_allowed.empty())
        return false;
    if (p_allowed.front() == k_any)
        return true;

    const AllowedNames allowed(p_allowed);
    for (const std::string& name : p_names)
        if (!allowed.contains(m_shortNames->shortName(name)))
            p_unavailable.push_back(name);
    return p_unavailable.empty();
}

bool VarAvailabilityChecker::isPhysicallyAvailable(const SplitVariableName&,
                                                   const std::vector<std::string>& p_keys,
                                                   const std::string& p_objectPath) const
{
    return std::ranges::all_of(p_keys,
                               [&](const std::string& p_key) { return doCheck(p_key, p_objectPath); });
}

bool VarAvailabilityChecker::isAvailableAsDefined(const SplitVariableName& p_name,
                                                  const PreVariableDefStore& p_definitions,
                                                  const std::string& p_objectPath) const
{
    const auto& keys = p_definitions.variableData(p_name.root().name()).physicalAvailability;
    return std::ranges::all_of(keys, [&](PreVariableDefStore::ValueIndex p_key) {
        return doCheck(p_definitions.fieldValue(p_key), p_objectPath);
    });
}

std::vector<std::string> VarAvailabilityChecker::supportedPhysAvailChecks() const
{
    std::vector<std::string> names;
    names.reserve(availability::k_keywords.size());
    for (const availability::Keyword& keyword : availability::k_keywords)
        names.emplace_back(keyword.name);
    std::ranges::sort(names);
    return names;
}

bool VarAvailabilityChecker::doCheck(const std::string& p_key, const std::string& p_objectPath) const
{
    // A keyword and its opposite share one kept answer.
    const std::size_t negations = std::min(p_key.find_first_not_of('!'), p_key.size());
    const bool positive = negations % 2 == 0;

    const auto row = availability::k_keywordIndex.find(std::string_view(p_key).substr(negations));
    if (!row)
        return positive;

    static_assert(availability::k_keywords.size() <= 64, "a bit of PlaceAnswers for each");
    const std::uint64_t bit = std::uint64_t {1} << *row;
    const auto kept = m_cache.find(p_objectPath);
    if (kept != m_cache.end() && (kept->second.known & bit) != 0)
        return ((kept->second.holds & bit) != 0) == positive;

    const bool holds = (*m_checks)[*row].check(p_objectPath, m_model);
    PlaceAnswers& answers = m_cache[p_objectPath];    // looked up again: the host may have notified meanwhile
    answers.known |= bit;
    if (holds)
        answers.holds |= bit;
    return holds == positive;
}

void VarAvailabilityChecker::clearCache() { m_cache.clear(); }

}    // namespace qen
