#include "expressions/QelNames.h"

#include "DataError.h"
#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"

#include "expressions/KeptExpressions.h"
#include "expressions/QelErrors.h"
#include "expressions/QelFunctions.h"
#include "expressions/QelSyntax.h"
#include "text/NearestName.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace qen::standalone::qel {
namespace {

constexpr std::string_view k_additionalVariablePath = "/LIBRARY/ADDITIONAL VARIABLE:";

// Where there are more named expressions, none of them is suggested: that would take too long.
constexpr std::size_t k_suggestedNames = 1000;

// Names beyond this are taken care of as well, with memory of their own.
constexpr std::size_t k_pathBytes = 256;

bool endsLikeVectorComponent(std::string_view p_name)
{
    if (p_name.size() < 3 || p_name[p_name.size() - 2] != ' ')
        return false;
    switch (p_name.back())
    {
    case 'X':
    case 'Y':
    case 'Z':
    case 'x':
    case 'y':
    case 'z':
        return true;
    default:
        return false;
    }
}

const ModelTree::Object* additionalVariableObject(const ModelTree& p_model, std::string_view p_name)
{
    std::array<char, k_pathBytes> path;    // not initialised: only what is written is read
    const std::size_t length = k_additionalVariablePath.size() + p_name.size();
    if (length > path.size())
        return p_model.find(std::string(k_additionalVariablePath).append(p_name));
    std::memcpy(path.data(), k_additionalVariablePath.data(), k_additionalVariablePath.size());
    std::memcpy(path.data() + k_additionalVariablePath.size(), p_name.data(), p_name.size());
    return p_model.find(std::string_view(path.data(), length));
}

/// All names of variables and components, sorted.
KnownNames variableNames(const PreVariableDefStore& p_variables)
{
    using Store = PreVariableDefStore;
    std::vector<std::string> names;
    const auto add = [&](const std::vector<std::string>& p_names) {
        names.insert(names.end(), p_names.begin(), p_names.end());
    };
    for (const std::string& variable : p_variables.getAllVariableShortNames())
    {
        add(p_variables.getVariableAliases(variable));
        for (const Store::VarDefField field : {Store::COMPONENT_SHORT_NAMES, Store::COMPONENT_LONG_NAMES})
            add(p_variables.getVarDefDataVec(variable, field));
    }
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return KnownNames(std::move(names));
}

}

Names::Root Names::classify(std::string_view p_name)
{
    m_additionalVariable = nullptr;
    if (m_world.variables)
    {
        m_name.assign(p_name);
        if (m_world.variables->hasVariable(m_name))
            return Root::Variable;
    }
    if (m_world.model)
        m_additionalVariable = additionalVariable(p_name);
    if (m_additionalVariable)
        return Root::AdditionalVariable;
    return p_name == k_expressionValue ? Root::ExpressionValue : Root::None;
}

const ModelTree::Object* Names::additionalVariable(std::string_view p_name) const
{
    if (const ModelTree::Object* object = additionalVariableObject(*m_world.model, p_name))
        return object;
    if (!endsLikeVectorComponent(p_name))
        return nullptr;
    const ModelTree::Object* vector =
        additionalVariableObject(*m_world.model, p_name.substr(0, p_name.size() - 2));
    if (!vector)
        return nullptr;
    const ModelTree::Parameter* tensorType = vector->find("Tensor Type");
    return tensorType && tensorType->value == "VECTOR" ? vector : nullptr;
}

bool Names::dims(UnitDimensions& p_dims, std::string& p_problem)
{
    return m_additionalVariable ? additionalVariableDims(p_dims, p_problem) : variableDims(p_dims, p_problem);
}

bool Names::variableDims(UnitDimensions& p_dims, std::string& p_problem) const
{
    const std::string* quantity = nullptr;
    try
    {
        const PreVariableDefStore& store = *m_world.variables;
        quantity = &store.fieldValue(store.variableData(m_name).quantity);
    }
    catch (const data::error&)
    {
        p_problem =
            "is the name of a variable whose definition was refused; expected a variable that is defined";
        return false;
    }
    if (quantity->empty())
    {
        p_dims = UnitDimensions();
        return true;
    }
    const std::string* units = m_world.units ? m_world.units->quantityUnits(*quantity) : nullptr;
    if (!units)
    {
        p_problem = "is a variable of the quantity " + quoted(*quantity) +
                    ", of which the units are not defined; expected a quantity of the units definitions";
        return false;
    }
    const std::optional<UnitValue> value = m_world.units->parse(*units);
    if (!value)
    {
        p_problem = "is a variable of the quantity " + quoted(*quantity) + ", of which the units " +
                    quoted(*units) + " are not understood";
        return false;
    }
    p_dims = value->dims;
    return true;
}

bool Names::additionalVariableDims(UnitDimensions& p_dims, std::string& p_problem) const
{
    const ModelTree::Parameter* units = m_additionalVariable->find("Units");
    if (!units || units->value.empty())
    {
        p_problem = "is an additional variable without units; expected the parameter 'Units' in object " +
                    quoted(m_additionalVariable->path);
        return false;
    }
    std::string reason;
    const std::optional<UnitValue> value =
        m_world.units ? m_world.units->parse(units->value, &reason) : std::nullopt;
    if (!value)
    {
        p_problem = "is an additional variable whose units " + quoted(units->value) +
                    " are not understood; expected units in the parameter 'Units' of object " +
                    quoted(m_additionalVariable->path);
        return false;
    }
    p_dims = value->dims;
    return true;
}

std::string Names::nearestValue(std::string_view p_name) const
{
    NameSearch search(p_name);
    KnownNames fresh;
    if (m_world.variables)
    {
        KnownNames& kept = m_world.expressions ? m_world.expressions->m_variableNames : fresh;
        if (kept.empty())
            kept = variableNames(*m_world.variables);
        kept.compareIn(search);
    }

    std::vector<std::string_view> others;
    const auto add = [&](std::string_view p_other) {
        if (search.mayBeNear(p_other))
            others.push_back(p_other);
    };
    std::ranges::for_each(constants(), add, &Constant::name);
    std::vector<std::string> additional;
    if (m_world.model)
    {
        additional = m_world.model->childNames("/LIBRARY", "ADDITIONAL VARIABLE");
        std::ranges::for_each(additional, add);
        if (const ModelTree::Object* const expressions = m_world.model->find(k_expressionsPath))
        {
            const std::vector<ModelTree::Parameter>& all = expressions->allParameters();
            if (all.size() <= k_suggestedNames)
                std::ranges::for_each(all, add, &ModelTree::Parameter::name);
        }
    }
    // Of two that are as near the first counts: not that of the model's order, which tells nothing.
    std::ranges::sort(others);
    for (const std::string_view other : others)
        search.compare(other);
    return std::string(search.nearest());
}

std::string Names::nearestFunction(std::string_view p_name) const
{
    NameSearch search(p_name);
    for (const Function& function : functions())
        search.compare(function.name);
    if (m_world.callbacks)
        for (const std::string& callback : m_world.callbacks->getCBNames())
            search.compare(callback);
    return std::string(search.nearest());
}

const ModelTree::Parameter* Names::namedExpression(std::string_view p_name) const
{
    if (!m_world.model)
        return nullptr;
    const ModelTree::Object* expressions = m_world.model->find(k_expressionsPath);
    return expressions ? expressions->find(p_name) : nullptr;
}

std::optional<UnitDimensions> Names::operatorDims(std::string_view p_operator)
{
    m_name.assign(p_operator);
    if (!m_world.variables || !m_world.units || !m_world.variables->hasOperator(m_name))
        return std::nullopt;
    const std::string modifier = m_world.variables->getOperatorDimensionModifier(m_name);
    const std::string_view units = std::string_view(modifier).substr(1, modifier.size() - 2);
    const std::optional<UnitValue> value = m_world.units->parse(units);
    return value ? std::optional(value->dims) : std::nullopt;
}

const UnitDimensions* Names::callbackDims(std::string_view p_function)
{
    if (!m_world.callbacks)
        return nullptr;
    m_name.assign(p_function);
    try
    {
        return &m_world.callbacks->getResultDim(m_name);
    }
    catch (const data::notFound&)    // the answer to a name that is none
    {
        return nullptr;
    }
}

RootPlace findRoot(Names& p_names, std::string_view p_reference)
{
    ComponentsFromTheRight components(p_reference);
    const std::string_view last = *components.next();
    std::optional<std::string_view> right = components.next();
    if (right)
        if (const Names::Root kind = p_names.classify(*right); kind != Names::Root::None)
            return {kind, *right, last};
    if (const Names::Root kind = p_names.classify(last); kind != Names::Root::None)
        return {kind, last, {}};
    while (right)
    {
        const std::optional<std::string_view> name = components.next();
        if (!name)
            break;
        if (const Names::Root kind = p_names.classify(*name); kind != Names::Root::None)
            return {kind, *name, *right};
        right = name;
    }
    return {};
}

}    // namespace qen::standalone::qel
