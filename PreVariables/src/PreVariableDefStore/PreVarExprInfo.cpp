#include "PreVarExprInfo.h"

namespace qen {

PreVarExprInfo& PreVarExprInfo::instance()
{
    static auto* const info = new PreVarExprInfo;    // never destroyed: others may ask until the very end
    return *info;
}

void PreVarExprInfo::init(const PreVariableDefStore* p_varDefStore) { m_varDefStore = p_varDefStore; }

const PreVariableDefStore* PreVarExprInfo::getVarDefStore() const { return m_varDefStore; }

}    // namespace qen
