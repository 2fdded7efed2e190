#pragma once

#include "model/ModelTree.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qen::standalone::test {

/// A model that counts what it is asked.
class CountingModel final : public ModelQCL {
public:
    explicit CountingModel(const ModelTree& p_model) : m_model(p_model) {}

    bool objectExists(const std::string& p_path) const override
    {
        ++m_questions;
        return m_model.objectExists(p_path);
    }
    std::string paramValue(const std::string& p_path, const std::string& p_name) const override
    {
        ++m_questions;
        return m_model.paramValue(p_path, p_name);
    }
    std::vector<std::string> childNames(const std::string& p_path, const std::string& p_type) const override
    {
        ++m_questions;
        return m_model.childNames(p_path, p_type);
    }
    std::vector<std::string> childPaths(const std::string& p_path, const std::string& p_type) const override
    {
        ++m_questions;
        return m_model.childPaths(p_path, p_type);
    }

    std::size_t questions() const { return m_questions; }

private:
    const ModelTree& m_model;
    mutable std::size_t m_questions = 0;
};

/// A case of that many domains.
inline std::string manyDomains(int p_count)
{
    std::string text;
    for (int i = 0; i < p_count; ++i)
        text += "[/FLOW:F/DOMAIN:" + std::to_string(i) + "]\nType = Fluid\n";
    return text;
}

}    // namespace qen::standalone::test
