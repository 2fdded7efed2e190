#pragma once

#include "model/ModelTree.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Which parts of a model were read to work something out, so that a change of the model tells what it can alter.
///
/// A node stands for a part of the model, or for something that was worked out: an answer that is kept, or the check of
/// a parameter. While something is worked out, every part of the model that is looked at, and every kept answer that is
/// used, becomes one of its inputs. One thread at a time.
class QEN_STANDALONE_API ReadGraph final : public ModelReader, public ModelObserver {
public:
    using Node = std::uint32_t;

    /// What a node is about.
    enum class Kind : char {
        Object = 'o',        ///< whether an object exists; its path
        Parameter = 'p',     ///< a parameter's value; its object's path, its name
        Children = 'c',      ///< children of a type that an object has, or its parameters; path, type
        Locator = 'l',       ///< which objects of a flow have a name; the flow's, and that name
        Physics = 'q',       ///< the answer of a physics query; its name, the path
        Domain = 'd',        ///< what the names in a domain mean; its path
        Material = 'm',      ///< what is in a material; its path
        Expression = 'e',    ///< what a named expression means, or that of a monitor point; as a parameter
        ArgumentExpression = 'a',    ///< the same in the argument of a callback function
        Check = 'k',                 ///< the check of a parameter; its object's path, its name
    };

    /// The node of that kind and those names, made where it does not exist.
    Node node(Kind p_kind, std::string_view p_first, std::string_view p_second = {});

    /// The names of a node; they hold as long as the graph.
    std::string_view firstName(Node p_node) const;
    std::string_view secondName(Node p_node) const;

    /// Has what is read until the scope ends become the inputs of a node, in place of those that it had. Scopes nest: what
    /// the inner one works out is an input of the outer.
    class QEN_STANDALONE_API Scope {
    public:
        /// @param p_graph  Null for a scope that does nothing.
        Scope(ReadGraph* p_graph, Node p_node);
        ~Scope();

        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

        /// Leaves the node the inputs that it had: it was not worked out.
        void abandon();

    private:
        ReadGraph* m_graph;
    };

    /// Has what is read until it is destroyed become nobody's input: for looking at more of a model than counts.
    class QEN_STANDALONE_API Pause {
    public:
        /// @param p_graph  Null for a pause that does nothing.
        explicit Pause(ReadGraph* p_graph);
        ~Pause();

        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        ReadGraph* m_graph;
    };

    /// A node is used by what is being worked out.
    void use(Node p_node);

    /// What a node is about changed.
    void change(Node p_node);

    /// Forgets what a node was worked out from, for it stands for nothing any more.
    void forget(Node p_node);

    /// The nodes of a kind that were worked out, directly or not, from what changed since the last call; in no order.
    /// Takes time linear in the nodes that depend on it.
    std::vector<Node> takeAffected(Kind p_kind);

    void onObjectRead(std::string_view p_objectPath) override;
    void onParameterRead(std::string_view p_objectPath, std::string_view p_paramName) override;
    void onChildrenRead(std::string_view p_objectPath, std::string_view p_type) override;
    void onModelChange(const ModelChange& p_change) override;

private:
    /// That a node was used by another while that had a certain age. Older uses count no more.
    struct Use {
        Node user;
        std::uint32_t age;
    };

    struct NodeState {
        std::string_view key;           // its kind, its first name, a line end, its second name
        std::uint32_t age = 0;          // grows when its inputs are recorded anew
        std::size_t roomForUses = 8;    // where there are more, those that count no more are removed
        std::vector<Use> uses;
    };

    /// What is being worked out.
    struct Open {
        Node node;
        std::vector<Node> inputs;
    };

    void open(Node p_node);
    void close();
    void addUse(Node p_node, Use p_use);
    void changeAll(Kind p_kind, std::string_view p_first);

    std::unordered_map<std::string, Node> m_numbers;
    std::unordered_map<std::string, std::vector<Node>>
        m_groups;    // children and locators by their first names
    std::vector<NodeState> m_nodes;
    std::vector<Open> m_open;
    std::vector<Node> m_changed;
    std::string m_key;    // a buffer
};

}    // namespace qen::standalone
