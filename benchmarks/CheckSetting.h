#pragma once

#include "Formulas.h"

#include "definitions/Definitions.h"
#include "expressions/KeptExpressions.h"
#include "locators/ModelLocators.h"
#include "model/ModelTree.h"
#include "names/PrefixClassifier.h"
#include "names/ShortNameFinder.h"
#include "physics/PhysicsAnswers.h"
#include "world/World.h"

#include "support/HostBorder.h"

#include "DimExprChecker.h"
#include "PreVariableDefStore.h"
#include "VarAvailabilityChecker.h"

#include <string>

namespace qen::benchmarks {

/// Everything that a check of a formula needs, put together as for the check of a case: the standalone host with the
/// shipped definitions, and a model that holds the objects and parameters of the formulas.
class CheckSetting {
public:
    /// With the shipped catalogue of variables.
    ///
    /// @throws std::runtime_error  The shipped definitions have errors.
    CheckSetting() : CheckSetting(nullptr) {}

    /// With another one, which must outlive this.
    ///
    /// @throws std::runtime_error  As above.
    explicit CheckSetting(const PreVariableDefStore& p_variables) : CheckSetting(&p_variables) {}

    CheckSetting(const CheckSetting&) = delete;
    CheckSetting& operator=(const CheckSetting&) = delete;

    standalone::ModelTree& model() { return m_model; }

    support::HostInterfaces interfaces() const;
    const PreVariableDefStore& variables() const { return *m_world.variables; }
    const ExprCBFuncStore& callbacks() const { return *m_world.callbacks; }

    /// Has the host answer from this setting until what is returned goes. Checks need it.
    [[nodiscard]] standalone::WorldScope install() const { return standalone::WorldScope(m_world); }

    DimExprChecker& checker() { return m_checker; }

    /// The full check of a formula's parameter with a text for its value.
    ///
    /// @return Whether nothing is wrong with it.
    bool passes(const Formula& p_formula, const std::string& p_text)
    {
        return m_checker.checkParamExpression(p_formula.objectPath, p_formula.paramName, p_text);
    }

    /// Whether every formula passes; what is wrong with one that does not is written to standard error. Installs the
    /// setting itself.
    bool allPass();

private:
    explicit CheckSetting(const PreVariableDefStore* p_variables);

    standalone::World makeWorld(const PreVariableDefStore& p_variables);
    DimExprChecker makeChecker(const PreVariableDefStore& p_variables) const;

    standalone::Definitions m_definitions;
    standalone::ModelTree m_model;
    standalone::KeptExpressions m_expressions;
    standalone::World m_world;
    standalone::PrefixClassifier m_prefixes;
    standalone::ModelLocators m_locators;
    standalone::ShortNameFinder m_shortNames;
    standalone::PhysicsAnswers m_physics;
    VarAvailabilityChecker m_availability;
    DimExprChecker m_checker;
};

}    // namespace qen::benchmarks
