#include "DimExprChecker.h"

#include "ExprParamRules.h"
#include "MessageCatalogue.h"
#include "PreVariableDefStore.h"

namespace qen {

using messages::Msg;
using messages::raise;

// Deliberate: the expression itself is not looked at; any text will do.
// Held by NamedExpression.MayBeAnyText.
void DimExprChecker::checkLibraryExpr(const std::string& p_exprName, const std::string&)
{
    if (m_varDefStore->hasVariable(p_exprName))
        raise<Msg::SolverNameClash>(p_exprName);

    if (m_varDefStore->isPostVariable(p_exprName))
        raise<Msg::PostprocessorNameClash>(p_exprName);

    if (getAllParamsInRules().contains(p_exprName))
        raise<Msg::ParameterNameClash>(p_exprName);
}

// Deliberate: the rules are asked once, even when they answer with nothing, and later changes of theirs are not seen.
// Held by NamedExpression.AsksTheRulesOnceAlsoWhenTheyGovernNothing.
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
