#pragma once

#include "VariablePrefixInfo.h"

#include "model/ModelTree.h"
#include "names/MaterialNames.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// @file
/// What the prefixes of a variable can name in a domain. All here is made for a model as it is, and worthless after the
/// model's next change.

namespace qen::standalone {

/// What a first prefix names: a fluid or solid of the domain, or a pair of its fluids.
struct Phase {
    VariablePrefixInfo::Prefix1 kind;
    const ModelTree::Object* object;    ///< the definition, or the pair

    /// What people call it: "fluid", "particle" and so on.
    const char* word() const;
};

/// The names of one domain.
class DomainNames {
public:
    /// @param p_materials  Must outlive this object.
    DomainNames(const ModelTree& p_model, const ModelTree::Object& p_domain, Materials& p_materials);

    /// The fluid of that name, else the solid, else the pair.
    std::optional<Phase> phase(std::string_view p_name) const;

    /// Fluids and solids in the model's order, then the pairs.
    const std::vector<Phase>& phases() const { return m_phases; }

    /// Whether a variable without a prefix can be meant for one phase only. Particles that are tracked are no phase.
    bool hasOnePhase() const { return m_phasesProper == 1; }

    /// What a name means in one phase: a component, else a size group, else a reaction.
    std::optional<VariablePrefixInfo::Prefix2> innerKind(const Phase& p_phase,
                                                         const std::string& p_name) const;

    /// What it means in any phase: a component in the first phase that has it so, else a size group, else a reaction.
    std::optional<VariablePrefixInfo::Prefix2> innerKind(const std::string& p_name) const;

    /// The material of a fluid or solid; null for a pair, and where none is set or the library does not have it.
    const MaterialNames* materialOf(const Phase& p_phase) const;

    static std::vector<const ModelTree::Object*> sizeGroupsOf(const Phase& p_phase);

private:
    const ModelTree& m_model;
    const ModelTree::Object& m_domain;
    Materials& m_materials;
    std::vector<Phase> m_phases;
    std::size_t m_phasesProper = 0;

    // What is in the domain, each once, however many fluids have it.
    struct Contents {
        const MaterialNames* material;
        bool ofParticle;
    };
    std::vector<Contents> m_contents;
    std::unordered_set<std::string_view> m_sizeGroups;    // of objects of the model
};

}    // namespace qen::standalone
