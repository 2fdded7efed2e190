#include "checking/CheckedModel.h"

#include <algorithm>

namespace qen::standalone {

std::string CheckedModel::paramValue(const std::string& p_objectPath, const std::string& p_paramName) const
{
    std::string value = m_model.paramValue(p_objectPath, p_paramName);
    if (value.empty() || p_paramName != "Tensor Type" ||
        !p_objectPath.starts_with("/LIBRARY/ADDITIONAL VARIABLE:"))
        return value;

    const ParameterRule* const rule = m_rules.find(p_objectPath, p_paramName);
    if (!rule || rule->allowedTexts.empty() ||
        std::ranges::find(rule->allowedTexts, value) != rule->allowedTexts.end())
        return value;
    return {};
}

}    // namespace qen::standalone
