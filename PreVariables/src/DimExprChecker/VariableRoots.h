#pragma once

#include "SplitVariableName.h"

#include <string>

namespace qen {

class ModelQCL;

/// Finds roots by the host's rule for names and the model's library of additional variables.
class DimExprVarRootFinder final : public VariableRootNameFinder {
public:
    /// @param p_model  Not owned; outlives the finder.
    explicit DimExprVarRootFinder(const ModelQCL* p_model) : m_model(p_model) {}

    RootNameInfo findRoot(const std::string& p_fullName) const override;

private:
    const ModelQCL* m_model;
};

/// The additional variable that a root stands for: the one of that name, or the vector of which it is a component, as
/// in "Swirl X". Empty when there is none.
std::string additionalVariableName(const ModelQCL& p_model, const std::string& p_rootName);

}    // namespace qen
