#include "model/ReadGraph.h"

#include <algorithm>
#include <utility>

namespace qen::standalone {
namespace {

constexpr ReadGraph::Node k_nobody = 0xFFFFFFFF;
constexpr std::string_view k_flow = "/FLOW:";

struct Level {
    std::string_view parent;
    std::string_view name;
};

Level lastLevel(std::string_view p_objectPath)
{
    const std::size_t slash = p_objectPath.rfind('/');
    const std::size_t colon = std::min(p_objectPath.find(':', slash), p_objectPath.size() - 1);
    return {p_objectPath.substr(0, slash), p_objectPath.substr(colon + 1)};
}

/// The name of the flow of which a path's object is a part; empty for what is in none.
std::string_view flowOf(std::string_view p_objectPath)
{
    if (!p_objectPath.starts_with(k_flow))
        return {};
    const std::string_view behind = p_objectPath.substr(k_flow.size());
    return behind.substr(0, behind.find('/'));
}

}    // namespace

ReadGraph::Node ReadGraph::node(Kind p_kind, std::string_view p_first, std::string_view p_second)
{
    // A line end stands in no name.
    m_key.assign(1, static_cast<char>(p_kind)).append(p_first).append("\n").append(p_second);
    const auto known = m_numbers.find(m_key);
    if (known != m_numbers.end())
        return known->second;

    const auto number = static_cast<Node>(m_nodes.size());
    m_nodes.emplace_back().key = m_numbers.emplace(m_key, number).first->first;
    if (p_kind == Kind::Children || p_kind == Kind::Locator)
    {
        m_key.resize(1 + p_first.size());
        m_groups[m_key].push_back(number);
    }
    return number;
}

std::string_view ReadGraph::firstName(Node p_node) const
{
    const std::string_view key = m_nodes[p_node].key;
    return key.substr(1, key.find('\n') - 1);
}

std::string_view ReadGraph::secondName(Node p_node) const
{
    const std::string_view key = m_nodes[p_node].key;
    return key.substr(key.find('\n') + 1);
}

ReadGraph::Scope::Scope(ReadGraph* p_graph, Node p_node) : m_graph(p_graph)
{
    if (m_graph)
        m_graph->open(p_node);
}

ReadGraph::Scope::~Scope()
{
    if (m_graph)
        m_graph->close();
}

void ReadGraph::Scope::abandon()
{
    if (m_graph)
        m_graph->m_open.back().node = k_nobody;
}

ReadGraph::Pause::Pause(ReadGraph* p_graph) : m_graph(p_graph)
{
    if (m_graph)
        m_graph->open(k_nobody);
}

ReadGraph::Pause::~Pause()
{
    if (m_graph)
        m_graph->close();
}

void ReadGraph::use(Node p_node)
{
    if (!m_open.empty() && m_open.back().node != k_nobody)
        m_open.back().inputs.push_back(p_node);
}

void ReadGraph::change(Node p_node) { m_changed.push_back(p_node); }

void ReadGraph::forget(Node p_node) { ++m_nodes[p_node].age; }

std::vector<ReadGraph::Node> ReadGraph::takeAffected(Kind p_kind)
{
    std::vector<Node> affected;
    std::vector<bool> seen(m_nodes.size(), false);
    for (std::vector<Node> waiting = std::exchange(m_changed, {}); !waiting.empty();)
    {
        const Node node = waiting.back();
        waiting.pop_back();
        if (seen[node])
            continue;
        seen[node] = true;
        if (m_nodes[node].key.front() == static_cast<char>(p_kind))
            affected.push_back(node);
        for (const Use& use : m_nodes[node].uses)
            if (use.age == m_nodes[use.user].age)
                waiting.push_back(use.user);
    }
    return affected;
}

void ReadGraph::onObjectRead(std::string_view p_objectPath)
{
    if (!m_open.empty())
        use(node(Kind::Object, p_objectPath));
}

void ReadGraph::onParameterRead(std::string_view p_objectPath, std::string_view p_paramName)
{
    if (!m_open.empty())
        use(node(Kind::Parameter, p_objectPath, p_paramName));
}

void ReadGraph::onChildrenRead(std::string_view p_objectPath, std::string_view p_type)
{
    if (!m_open.empty())
        use(node(Kind::Children, p_objectPath, p_type));
}

void ReadGraph::onModelChange(const ModelChange& p_change)
{
    switch (p_change.kind)
    {
    case ModelChange::Kind::ObjectAdded:
    case ModelChange::Kind::ObjectDeleted: {
        const Level level = lastLevel(p_change.objectPath);
        change(node(Kind::Object, p_change.objectPath));
        change(node(Kind::Children, level.parent, p_change.objectType));
        change(node(Kind::Locator, flowOf(p_change.objectPath), level.name));
        break;
    }
    case ModelChange::Kind::ChildrenReordered:
        changeAll(Kind::Children, p_change.objectPath);
        changeAll(Kind::Locator, flowOf(p_change.objectPath));
        break;
    case ModelChange::Kind::ParameterSet:
    case ModelChange::Kind::ParameterDeleted:
        change(node(Kind::Parameter, p_change.objectPath, p_change.paramName));
        if (p_change.isNewParameter || p_change.kind == ModelChange::Kind::ParameterDeleted)
            change(node(Kind::Children, p_change.objectPath));
        break;
    }
}

void ReadGraph::open(Node p_node) { m_open.push_back({p_node, {}}); }

void ReadGraph::close()
{
    const Open closed = std::move(m_open.back());
    m_open.pop_back();
    if (closed.node == k_nobody)
        return;

    std::vector<Node> inputs = closed.inputs;
    std::sort(inputs.begin(), inputs.end());
    inputs.erase(std::unique(inputs.begin(), inputs.end()), inputs.end());
    const std::uint32_t age = ++m_nodes[closed.node].age;
    for (const Node input : inputs)
        addUse(input, {closed.node, age});
    use(closed.node);
}

void ReadGraph::addUse(Node p_node, Use p_use)
{
    NodeState& state = m_nodes[p_node];
    if (state.uses.size() >= state.roomForUses)
    {
        std::erase_if(state.uses, [&](const Use& p_old) { return p_old.age != m_nodes[p_old.user].age; });
        state.roomForUses = 2 * state.uses.size() + 8;
    }
    state.uses.push_back(p_use);
}

void ReadGraph::changeAll(Kind p_kind, std::string_view p_first)
{
    const auto group = m_groups.find(std::string(1, static_cast<char>(p_kind)).append(p_first));
    if (group != m_groups.end())
        m_changed.insert(m_changed.end(), group->second.begin(), group->second.end());
}

}    // namespace qen::standalone
