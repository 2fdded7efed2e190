#include "rules/RuleTree.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qen::standalone {
namespace {

// Places that are the same as several others could multiply; no real rules come near this number.
constexpr std::size_t k_maximumNodes = 65536;

Diagnostic conflict(std::string_view p_lastType, const DeclaredParameter& p_here,
                    const DeclaredParameter& p_there, const DeclarationPlace& p_place)
{
    Diagnostic problem;
    problem.identifier = "conflicting-parameter-type";
    problem.message = "The parameter '" + p_here.rule.name + "' of objects of type '" +
                      std::string(p_lastType) + "' is '" + p_here.rule.type + "' here but '" +
                      p_there.rule.type + "' at " + p_there.place.text +
                      ". It needs the same type wherever such an object stands.";
    problem.place = p_place.place;
    problem.length = p_place.length;
    return problem;
}

bool leadsTo(const DeclaredObject& p_object, const DeclaredObject& p_other)
{
    return p_other.pattern.starts_with(p_object.pattern) &&
           (p_other.pattern.size() == p_object.pattern.size() ||
            p_other.pattern[p_object.pattern.size()] == '/');
}

bool isDeclaredLater(const DeclaredParameter& p_one, const DeclaredParameter& p_other)
{
    return std::pair(p_one.place.document, p_one.place.place) >
           std::pair(p_other.place.document, p_other.place.place);
}

}    // namespace

bool takeLevel(std::string_view& p_rest, PathLevel& p_level)
{
    if (p_rest.size() < 2 || p_rest.front() != '/')
        return false;
    const std::size_t end = std::min(p_rest.find('/', 1), p_rest.size());
    const std::string_view text = p_rest.substr(1, end - 1);
    const std::size_t colon = text.find(':');

    p_level.type = text.substr(0, colon);
    p_level.hasName = colon != std::string_view::npos;
    p_level.name = p_level.hasName ? text.substr(colon + 1) : std::string_view();
    p_rest.remove_prefix(end);
    return !p_level.type.empty();
}

std::string UnitsSource::resolve(std::string_view p_objectPath) const
{
    std::string path;
    for (const Piece& piece : objectPath)
    {
        path += piece.text;
        if (piece.nameFrom.empty())
            continue;

        std::string_view name;
        PathLevel level;
        for (std::string_view rest = p_objectPath; takeLevel(rest, level);)
            if (level.type == piece.nameFrom)
                name = level.name;
        if (name.empty())
            return {};
        path += name;
    }
    return path;
}

const DeclaredParameter* RuleNode::find(std::string_view p_paramName) const
{
    const auto found = parameters.find(p_paramName);
    return found != parameters.end() ? found->second : anyParameter;
}

RuleTree::RuleTree() { m_nodes.emplace_back(); }

const DeclaredObject* RuleTree::declared(std::string_view p_pattern) const
{
    const DeclaredObject* object = &m_root;
    PathLevel level;
    while (!p_pattern.empty())
    {
        if (!takeLevel(p_pattern, level) || level.hasName)
            return nullptr;
        const auto child = object->children.find(level.type);
        if (child == object->children.end())
            return nullptr;
        object = child->second.get();
    }
    return object;
}

void RuleTree::addWithSameAs(const DeclaredObject& p_object, Sources& p_sources) const
{
    Sources waiting {&p_object};
    while (!waiting.empty())
    {
        const DeclaredObject* object = waiting.back();
        waiting.pop_back();
        if (std::ranges::find(p_sources, object) != p_sources.end())
            continue;
        p_sources.push_back(object);
        for (auto pattern = object->sameAs.rbegin(); pattern != object->sameAs.rend(); ++pattern)
            if (const DeclaredObject* other = declared(*pattern))
                waiting.push_back(other);
    }
}

// One node serves every place with the same sources: a place that is the same as another shares what is below it, and
// rules by which an object stands below itself come to an end.
const RuleNode* RuleTree::nodeFor(const Sources& p_sources)
{
    const auto [entry, isNew] = m_nodeOfSources.try_emplace(p_sources, nullptr);
    if (isNew)
    {
        entry->second = &m_nodes.emplace_back();
        m_sourcesOfNode.push_back(p_sources);
    }
    return entry->second;
}

void RuleTree::fill(RuleNode& p_node, const Sources& p_sources)
{
    p_node.type = p_sources.front()->type;

    // The first source wins: an object's own sections come before those of the objects that it is the same as.
    std::set<std::string_view> childTypes;
    bool isNamedSettled = false;
    for (const DeclaredObject* source : p_sources)
    {
        if (source->named && !isNamedSettled)
        {
            p_node.named = *source->named;
            isNamedSettled = true;
        }
        for (const auto& [name, parameter] : source->parameters)
        {
            if (!name.empty())
                p_node.parameters.try_emplace(name, &parameter);
            else if (!p_node.anyParameter)
                p_node.anyParameter = &parameter;
        }
        for (const auto& [type, child] : source->children)
            childTypes.insert(type);
    }

    // An object that is the same as the one it stands in does not stand in itself again.
    const auto isWithinItself = [&](const DeclaredObject& p_child) {
        return std::ranges::any_of(
            p_sources, [&](const DeclaredObject* p_source) { return leadsTo(p_child, *p_source); });
    };
    for (const std::string_view type : childTypes)
    {
        Sources childSources;
        for (const DeclaredObject* source : p_sources)
        {
            const auto child = source->children.find(type);
            if (child != source->children.end() && !isWithinItself(*child->second))
                addWithSameAs(*child->second, childSources);
        }
        if (!childSources.empty())
            p_node.children.emplace(type, nodeFor(childSources));
    }
}

void RuleTree::recordTypes(const RuleNode& p_node, const DeclaredObject& p_object, std::size_t p_document,
                           Diagnostics& p_problems)
{
    const std::map<std::string_view, const DeclaredParameter*> sorted(p_node.parameters.begin(),
                                                                      p_node.parameters.end());
    for (const auto& [name, parameter] : sorted)
    {
        if (parameter->type == ParamType::Unknown)
            continue;
        const auto [entry, isNew] = m_types[p_node.type].try_emplace(name, parameter);
        if (isNew || entry->second->type == parameter->type)
            continue;

        const DeclaredParameter* here = parameter;
        const DeclaredParameter* there = entry->second;
        if (isDeclaredLater(*there, *here))
            std::swap(here, there);
        if (!m_inConflict.insert(here).second)
            continue;

        // A conflict among earlier documents alone was reported with them, unless an object of this document brought
        // the two together.
        if (here->place.document == p_document)
            p_problems.push_back(conflict(p_node.type, *here, *there, here->place));
        else if (p_object.place.document == p_document)
            p_problems.push_back(conflict(p_node.type, *here, *there, p_object.place));
    }
}

void RuleTree::resolve(std::size_t p_document, Diagnostics& p_problems)
{
    m_nodes.clear();
    m_nodeOfSources.clear();
    m_sourcesOfNode.clear();
    m_types.clear();
    m_parameterNames.clear();
    m_inConflict.clear();

    nodeFor({&m_root});
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
    {
        if (i == k_maximumNodes)
        {
            Diagnostic problem;
            problem.identifier = "rules-too-large";
            problem.message = "The rules describe more than " + std::to_string(k_maximumNodes) +
                              " different objects. Are there several 'Same As' that multiply each other?";
            p_problems.push_back(problem);
            break;
        }
        const Sources sources = m_sourcesOfNode[i];
        fill(m_nodes[i], sources);
        for (const auto& parameter : m_nodes[i].parameters)
            m_parameterNames.insert(parameter.first);
        recordTypes(m_nodes[i], *sources.front(), p_document, p_problems);
    }
}

const RuleNode* RuleTree::find(std::string_view p_objectPath) const
{
    if (p_objectPath.empty())
        return nullptr;
    const RuleNode* node = &m_nodes.front();
    PathLevel level;
    while (!p_objectPath.empty())
    {
        if (!takeLevel(p_objectPath, level))
            return nullptr;
        const auto child = node->children.find(level.type);
        if (child == node->children.end())
            return nullptr;
        node = child->second;
    }
    return node;
}

bool RuleTree::isValid(std::string_view p_objectPath) const
{
    if (p_objectPath.empty())
        return false;
    const RuleNode* node = &m_nodes.front();
    PathLevel level;
    while (!p_objectPath.empty())
    {
        if (!takeLevel(p_objectPath, level))
            return false;
        const auto child = node->children.find(level.type);
        if (child == node->children.end())
            return false;
        node = child->second;
        if (node->named ? level.name.empty() : level.hasName)
            return false;
    }
    return true;
}

void RuleTree::visit(
    const std::function<void(const DeclaredObject&, const DeclaredParameter&)>& p_visit) const
{
    std::vector<const DeclaredObject*> waiting {&m_root};
    while (!waiting.empty())
    {
        const DeclaredObject* object = waiting.back();
        waiting.pop_back();
        for (const auto& parameter : object->parameters)
            p_visit(*object, parameter.second);
        for (auto child = object->children.rbegin(); child != object->children.rend(); ++child)
            waiting.push_back(child->second.get());
    }
}

ParamType RuleTree::typeOf(std::string_view p_lastType, std::string_view p_paramName) const
{
    const auto names = m_types.find(p_lastType);
    if (names == m_types.end())
        return ParamType::Unknown;
    const auto parameter = names->second.find(p_paramName);
    return parameter != names->second.end() ? parameter->second->type : ParamType::Unknown;
}

}    // namespace qen::standalone
