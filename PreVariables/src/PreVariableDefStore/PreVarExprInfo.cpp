#include "PreVarExprInfo.h"

namespace qen {

PreVarExprInfo* PreVarExprInfo::m_instance = nullptr;

PreVarExprInfo& PreVarExprInfo::instance()
{
    if (!m_instance)
        m_instance = new PreVarExprInfo;    // never destroyed: others may ask until the very end
    return *m_instance;
}

void PreVarExprInfo::init(const PreVariableDefStore* p_varDefStore) { m_varDefStore = p_varDefStore; }

const PreVariableDefStore* PreVarExprInfo::getVarDefStore() const { return m_varDefStore; }

}    // namespace qen
