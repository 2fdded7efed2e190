#pragma once

#include "PreVariablesApi.h"

namespace qen {

class PreVariableDefStore;

/// Where a host keeps the one variable store of its process for whoever needs it. The checks do not look here: they use
/// the store that they were given.
///
/// First asked for while the process has one thread.
class QEN_PREVARIABLES_API PreVarExprInfo {
public:
    /// The one object of the process, made when first asked for and never destroyed.
    static PreVarExprInfo& instance();

    PreVarExprInfo(const PreVarExprInfo&) = delete;
    PreVarExprInfo& operator=(const PreVarExprInfo&) = delete;

    /// Keeps a store, which the caller goes on to own. Called once it is loaded.
    void init(const PreVariableDefStore* p_varDefStore);

    /// The store; null before `init`.
    const PreVariableDefStore* getVarDefStore() const;

private:
    PreVarExprInfo() = default;
    ~PreVarExprInfo() = default;

    friend struct PreVarExprInfoPeer;    // tests look whether the object is there

    static PreVarExprInfo* m_instance;    // null until first asked for

    const PreVariableDefStore* m_varDefStore = nullptr;
};

}    // namespace qen
