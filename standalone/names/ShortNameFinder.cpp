#include "names/ShortNameFinder.h"

#include "DataError.h"
#include "ExpressionEvaluator.h"
#include "PreVariableDefStore.h"
#include "QELName.h"

#include <vector>

namespace qen::standalone {

namespace {

/// A name that has no root without its prefixes.
std::string lastComponent(const std::string& p_fullName)
{
    std::vector<QELName::Component> components;
    return QELName::splitVariableName(p_fullName, components) ? components.back().name() : p_fullName;
}

}    // namespace

std::string ShortNameFinder::shortName(const std::string& p_fullName) const
{
    std::string root = ExpressionEvaluator::rootVariableName(p_fullName);
    if (root.empty())
        return lastComponent(p_fullName);
    if (!m_variables.hasVariable(root))
        return root;

    try
    {
        return m_variables.fieldValue(m_variables.variableData(root).shortName);
    }
    catch (const data::error&)
    {
        return root;    // a name whose definition was refused belongs to no variable
    }
}

}    // namespace qen::standalone
