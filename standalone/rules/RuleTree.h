#pragma once

#include "qcl/Diagnostics.h"
#include "rules/ParamTypes.h"
#include "rules/RuleBook.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace qen::standalone {

/// One level of a path text, `/TYPE:name` or `/TYPE`.
struct PathLevel {
    std::string_view type;
    std::string_view name;
    bool hasName = false;    ///< whether there is a colon
};

/// Takes the first level off a path text.
///
/// @return False when there is none, or the text does not begin with a level.
bool takeLevel(std::string_view& p_rest, PathLevel& p_level);

/// Where a definition stands: place for a diagnostic of its own document, text for one of a later document.
struct DeclarationPlace {
    std::size_t document = 0;    ///< counted from 1 in the order of loading; 0: nowhere
    SourcePlace place;
    std::uint32_t length = 0;    ///< of the path in the section's header
    std::string text;            ///< "RULES.qcl:12"
};

/// Where the units of a dynamic quantity come from: a parameter of an object whose path borrows names from the path
/// of the object that is asked about.
struct UnitsSource {
    struct Piece {
        std::string text;        ///< stands as it is
        std::string nameFrom;    ///< then the name of the last level of this type; empty for nothing
    };

    std::vector<Piece> objectPath;
    std::string paramName;

    /// The path of the object that holds the units, for a parameter of the object at @p p_objectPath; empty when a
    /// level whose name it borrows is missing or has no name.
    std::string resolve(std::string_view p_objectPath) const;
};

/// A parameter as the documents declare it.
struct DeclaredParameter {
    ParameterRule rule;
    ParamType type = ParamType::Unknown;
    UnitsSource unitsSource;    ///< of a dynamic quantity
    DeclarationPlace place;     ///< of its latest section
};

/// An object type at its place, as the documents declare it. The root stands above the first level.
struct DeclaredObject {
    std::string type;
    std::string pattern;       ///< the path of types
    DeclarationPlace place;    ///< of its latest section; document 0 when only objects below it are declared
    std::optional<bool> named;
    std::vector<std::string> sameAs;          ///< patterns whose contents stand here too
    std::vector<SourcePlace> sameAsPlaces;    ///< one for each
    std::map<std::string, std::unique_ptr<DeclaredObject>, std::less<>> children;
    std::map<std::string, DeclaredParameter, std::less<>>
        parameters;    ///< the empty name: any other parameter
};

/// What holds at a place, with everything that stands there because it is the same as elsewhere. Look-ups cost one
/// hash of a type per level and one of the name, and allocate nothing.
struct RuleNode {
    std::string_view type;
    bool named = false;
    std::unordered_map<std::string_view, const RuleNode*> children;
    std::unordered_map<std::string_view, const DeclaredParameter*> parameters;
    const DeclaredParameter* anyParameter = nullptr;

    const DeclaredParameter* find(std::string_view p_paramName) const;
};

/// The declared objects and what follows from them.
class RuleTree {
public:
    RuleTree();

    DeclaredObject& root() { return m_root; }

    /// The declared object of a pattern; null when there is none.
    const DeclaredObject* declared(std::string_view p_pattern) const;

    /// Works out anew what holds at each place. Problems are appended; those of earlier documents are not repeated.
    void resolve(std::size_t p_document, Diagnostics& p_problems);

    /// The node of a path, judged by its types alone; null when the rules know no such object.
    const RuleNode* find(std::string_view p_objectPath) const;

    /// Whether each level of a path is known, and has a name exactly where it needs one.
    bool isValid(std::string_view p_objectPath) const;

    /// The type of a parameter under a last type.
    ParamType typeOf(std::string_view p_lastType, std::string_view p_paramName) const;

    /// The node above the first level.
    const RuleNode& rootNode() const { return m_nodes.front(); }

    /// Visits every declared parameter with its object.
    void visit(const std::function<void(const DeclaredObject&, const DeclaredParameter&)>& p_visit) const;

    /// The names of the parameters of all objects.
    const std::unordered_set<std::string_view>& parameterNames() const { return m_parameterNames; }

private:
    using Sources = std::vector<const DeclaredObject*>;

    void addWithSameAs(const DeclaredObject& p_object, Sources& p_sources) const;
    const RuleNode* nodeFor(const Sources& p_sources);
    void fill(RuleNode& p_node, const Sources& p_sources);
    void recordTypes(const RuleNode& p_node, const DeclaredObject& p_object, std::size_t p_document,
                     Diagnostics& p_problems);

    DeclaredObject m_root;
    std::deque<RuleNode> m_nodes;    // the first is the root's
    std::map<Sources, RuleNode*> m_nodeOfSources;
    std::vector<Sources> m_sourcesOfNode;
    std::unordered_map<std::string_view, std::unordered_map<std::string_view, const DeclaredParameter*>>
        m_types;
    std::unordered_set<std::string_view> m_parameterNames;
    std::unordered_set<const DeclaredParameter*> m_inConflict;    // that have been reported
};

}    // namespace qen::standalone
