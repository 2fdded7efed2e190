#pragma once

#include "checking/CheckedModel.h"
#include "definitions/Definitions.h"
#include "expressions/KeptExpressions.h"
#include "locators/ModelLocators.h"
#include "model/ModelTree.h"
#include "model/ReadGraph.h"
#include "names/PrefixClassifier.h"
#include "names/ShortNameFinder.h"
#include "physics/PhysicsAnswers.h"
#include "physics/PhysicsNotifier.h"
#include "world/World.h"

#include "DimExprChecker.h"
#include "VarAvailabilityChecker.h"

#include <string>
#include <vector>

namespace qen::standalone {

/// A case's model and all that answers the library's questions about it. Follows the changes of the model.
class CaseWorld {
public:
    /// @param p_definitions  Outlives this object.
    /// @param p_reads        Is told what is read of the model; null for nobody. Outlives this object.
    explicit CaseWorld(const Definitions& p_definitions, ReadGraph* p_reads = nullptr);
    ~CaseWorld();

    CaseWorld(const CaseWorld&) = delete;
    CaseWorld& operator=(const CaseWorld&) = delete;

    const Definitions& definitions() const { return m_definitions; }
    ModelTree& model() { return m_model; }
    const ModelTree& model() const { return m_model; }

    /// What is to be installed while something is checked.
    const World& world() const { return m_world; }

    /// A checker without records.
    DimExprChecker makeChecker() const;

    /// Where reads are recorded: has the library ask again what it knows of the physics, so that the asking is seen.
    void askAnew();

    /// Physics queries that looked at too much of this model to be answered.
    std::vector<std::string> endlessQueries() const;

private:
    const Definitions& m_definitions;
    ReadGraph* m_reads;
    ModelTree m_model;
    CheckedModel m_checkedModel;
    KeptExpressions m_expressions;
    World m_world;
    PrefixClassifier m_prefixes;
    ModelLocators m_locators;
    ShortNameFinder m_shortNames;
    PhysicsAnswers m_physics;
    VarAvailabilityChecker m_availability;
    PhysicsNotifier m_physicsChanges;
    const std::vector<std::string> m_endlessBefore;    // queries that were given up for other cases
};

}    // namespace qen::standalone
