#include "DimExprChecker.h"

#include "ExprParamRules.h"

namespace qen {

// The clashes of an expression's name with other names are not looked at yet.
void DimExprChecker::checkLibraryExpr(const std::string&, const std::string&) {}

const std::set<std::string>& DimExprChecker::getAllParamsInRules() const
{
    if (!m_ruleNamesCached)
    {
        m_rules->allParamNames().swap(m_ruleParamNames);
        m_ruleNamesCached = true;
    }
    return m_ruleParamNames;
}

}    // namespace qen
