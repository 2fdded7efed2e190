#include "rules/RuleBook.h"

#include "rules/RuleReader.h"
#include "rules/RuleTree.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include "ModelQCL.h"

#include <algorithm>

namespace qen::standalone {

struct RuleBook::Impl {
    RuleTree tree;
    std::size_t documents = 0;

    // A check asks several times about one parameter.
    struct Latest {
        bool isKnown = false;
        std::string objectPath;
        std::string paramName;
        const DeclaredParameter* parameter = nullptr;
    };
    mutable Latest latest;

    const DeclaredParameter* find(std::string_view p_objectPath, std::string_view p_paramName) const
    {
        if (latest.isKnown && latest.paramName == p_paramName && latest.objectPath == p_objectPath)
            return latest.parameter;

        const RuleNode* node = tree.find(p_objectPath);
        latest.isKnown = false;
        latest.objectPath = p_objectPath;
        latest.paramName = p_paramName;
        latest.parameter = node ? node->find(p_paramName) : nullptr;
        latest.isKnown = true;
        return latest.parameter;
    }
};

RuleBook::RuleBook() : m_impl(std::make_unique<Impl>()) {}

RuleBook::~RuleBook() = default;
RuleBook::RuleBook(RuleBook&&) noexcept = default;
RuleBook& RuleBook::operator=(RuleBook&&) noexcept = default;

void RuleBook::addDefinitions(const QclDocument& p_document, Diagnostics& p_problems)
{
    m_impl->latest.isKnown = false;
    const std::size_t number = ++m_impl->documents;
    Diagnostics problems;
    RuleReader(p_document, number, m_impl->tree, problems).read();
    m_impl->tree.resolve(number, problems);

    std::ranges::stable_sort(problems, {}, &Diagnostic::place);
    p_problems.insert(p_problems.end(), problems.begin(), problems.end());
}

const ParameterRule* RuleBook::find(std::string_view p_objectPath, std::string_view p_paramName) const
{
    const DeclaredParameter* parameter = m_impl->find(p_objectPath, p_paramName);
    return parameter ? &parameter->rule : nullptr;
}

std::vector<std::string> RuleBook::parameterNames(std::string_view p_objectPath) const
{
    std::vector<std::string> names;
    if (const RuleNode* node = m_impl->tree.find(p_objectPath))
        for (const auto& parameter : node->parameters)
            names.emplace_back(parameter.first);
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> RuleBook::childTypes(std::string_view p_objectPath) const
{
    std::vector<std::string> types;
    const RuleNode* node = p_objectPath.empty() ? &m_impl->tree.rootNode() : m_impl->tree.find(p_objectPath);
    if (node)
        for (const auto& child : node->children)
            types.emplace_back(child.first);
    std::ranges::sort(types);
    return types;
}

void RuleBook::visitRules(
    const std::function<void(const std::string& p_pattern, const ParameterRule& p_rule)>& p_visit) const
{
    m_impl->tree.visit([&](const DeclaredObject& p_object, const DeclaredParameter& p_parameter) {
        p_visit(p_object.pattern, p_parameter.rule);
    });
}

bool RuleBook::isValidPath(const std::string& p_objectPath) const
{
    return m_impl->tree.isValid(p_objectPath);
}

bool RuleBook::isValidParamName(const std::string& p_paramName) const
{
    return m_impl->tree.parameterNames().contains(p_paramName);
}

ParamType RuleBook::getParamType(const std::string& p_lastType, const std::string& p_paramName) const
{
    return m_impl->tree.typeOf(p_lastType, p_paramName);
}

std::string RuleBook::lowerBound(const std::string& p_objectPath, const std::string& p_paramName,
                                 const ModelQCL*) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule ? rule->lowerBound : std::string();
}

std::string RuleBook::upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                                 const ModelQCL*) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule ? rule->upperBound : std::string();
}

std::string RuleBook::paramKind(const std::string& p_objectPath, const std::string& p_paramName,
                                const ModelQCL*) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule ? rule->kind : std::string();
}

bool RuleBook::isSingleValued(const std::string& p_objectPath, const std::string& p_paramName,
                              const ModelQCL*) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule && rule->singleValued;
}

std::vector<std::string> RuleBook::dependencies(const std::string& p_objectPath,
                                                const std::string& p_paramName, const ModelQCL*) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule ? rule->dependencies : std::vector<std::string>();
}

std::set<std::string> RuleBook::allParamNames() const
{
    const auto& names = m_impl->tree.parameterNames();
    return {names.begin(), names.end()};
}

bool RuleBook::isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const
{
    const ParameterRule* rule = find(p_objectPath, p_paramName);
    return rule && !rule->unitsFrom.empty();
}

// The name of a dynamic quantity is its units text: dynamicUnits is asked with the name alone, and this way needs to
// know neither which model was meant nor whether it has changed since.
int RuleBook::quantityMode(const ModelQCL* p_model, const std::string& p_objectPath,
                           const std::string& p_paramName, std::string& p_quantityName) const
{
    p_quantityName.clear();
    const DeclaredParameter* parameter = m_impl->find(p_objectPath, p_paramName);
    if (!parameter)
        return k_fixedQuantity;
    if (parameter->rule.unitsFrom.empty())
    {
        p_quantityName = parameter->rule.quantity;
        return k_fixedQuantity;
    }

    if (!p_model)
        return k_fixedQuantity;
    const std::string holder = parameter->unitsSource.resolve(p_objectPath);
    if (holder.empty())
        return k_fixedQuantity;
    std::string units = p_model->paramValue(holder, parameter->unitsSource.paramName);
    const UnitSystem* system = currentWorld().units;
    if (units.empty() || (system && !system->parse(units)))
        return k_fixedQuantity;
    if (!parameter->rule.unitsTimes.empty())
        units.append(" ").append(parameter->rule.unitsTimes);
    p_quantityName = std::move(units);
    return k_dynamicQuantity;
}

std::string RuleBook::dynamicUnits(const std::string& p_quantityName) const { return p_quantityName; }

}    // namespace qen::standalone
