#pragma once

#include "VariablePrefixInfo.h"

#include "model/ModelTree.h"
#include "model/ReadGraph.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// What is in a material: its components, and the reactions by which it burns. A component wins over a reaction of the
/// same name.
class MaterialNames {
public:
    MaterialNames(const ModelTree& p_model, const ModelTree::Object& p_material);

    /// COMPONENT, or the kind of the reaction.
    std::optional<VariablePrefixInfo::Prefix2> find(const std::string& p_name) const;

    /// In the model's order, components first.
    const std::vector<std::string>& all() const { return m_names; }

private:
    void add(const std::string& p_name, VariablePrefixInfo::Prefix2 p_kind);
    void addReactions(const ModelTree& p_model, const ModelTree::Object& p_listedIn);

    std::vector<std::string> m_names;
    std::unordered_map<std::string, VariablePrefixInfo::Prefix2> m_kinds;
};

/// The materials of a library, each looked at once. Made for a model as it is: worthless after its next change.
class Materials {
public:
    /// @param p_reads  Is told from which materials something is worked out; null for nobody.
    Materials(const ModelTree& p_model, ReadGraph* p_reads) : m_model(p_model), m_reads(p_reads) {}

    /// Null for a name that the library does not have.
    const MaterialNames* find(std::string_view p_material);

private:
    const ModelTree& m_model;
    ReadGraph* m_reads;
    std::unordered_map<const ModelTree::Object*, MaterialNames> m_materials;
};

}    // namespace qen::standalone
