#pragma once

#include "ModelPaths.h"
#include "SplitVariableName.h"

#include <string>
#include <string_view>

namespace qen {

class ModelQCL;

/// Finds roots by the host's rule for names and the model's library of additional variables.
class DimExprVarRootFinder final : public VariableRootNameFinder {
public:
    /// @param p_model  Not owned; outlives the finder.
    DimExprVarRootFinder(const ModelQCL* p_model, const ModelPaths& p_paths)
        : m_model(p_model), m_paths(p_paths)
    {}

    RootNameInfo findRoot(const std::string& p_fullName) const override;

private:
    const ModelQCL* m_model;
    ModelPaths m_paths;
};

/// The additional variable that a root stands for: the one of that name, or the vector of which it is a component, as
/// in "Swirl X". Part of the root; empty when there is none.
std::string_view additionalVariableName(const ModelQCL& p_model, std::string_view p_rootName,
                                        const ModelPaths& p_paths);

}    // namespace qen
