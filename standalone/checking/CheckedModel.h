#pragma once

#include "model/ModelTree.h"
#include "ModelQCL.h"
#include "rules/RuleBook.h"

#include <string>
#include <vector>

namespace qen::standalone {

/// The model as the library is to see it: without what the rules do not allow where the library takes for granted that
/// they are kept. That is told where it stands, and once.
class CheckedModel final : public ModelQCL {
public:
    /// Neither is owned or copied; both outlive this.
    CheckedModel(const ModelTree& p_model, const RuleBook& p_rules) : m_model(p_model), m_rules(p_rules) {}

    bool objectExists(const std::string& p_objectPath) const override
    {
        return m_model.objectExists(p_objectPath);
    }

    /// The value; empty for a tensor type of an additional variable that the rules do not allow, which makes it a scalar.
    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override;

    std::vector<std::string> childNames(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        return m_model.childNames(p_objectPath, p_type);
    }

    std::vector<std::string> childPaths(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        return m_model.childPaths(p_objectPath, p_type);
    }

private:
    const ModelTree& m_model;
    const RuleBook& m_rules;
};

}    // namespace qen::standalone
