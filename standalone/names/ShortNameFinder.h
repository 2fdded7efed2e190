#pragma once

#include "ShortVarNameFinder.h"
#include "StandaloneApi.h"

#include <string>

namespace qen {
class PreVariableDefStore;
}

namespace qen::standalone {

/// Finds short names in the catalogue of variables. What the root of a name is, the evaluator says: the installed world
/// must hold the same catalogue.
class QEN_STANDALONE_API ShortNameFinder final : public ShortVarNameFinder {
public:
    /// @param p_variables  Must outlive this object.
    explicit ShortNameFinder(const PreVariableDefStore& p_variables) : m_variables(p_variables) {}

    /// The short name of the variable or vector component that is the root of a name. A root that is no catalogued
    /// variable is its own short name; without any root it is the last component, and a text that is no name stays as
    /// it is.
    std::string shortName(const std::string& p_fullName) const override;

private:
    const PreVariableDefStore& m_variables;
};

}    // namespace qen::standalone
