#pragma once

#include "HostApi.h"

#include <string>

namespace qen {

/// Is told of changes of the model. Every operation may be called by the host through this base; the bodies here do
/// nothing, so that a handler overrides what it needs.
class QEN_HOST_API QCLUpdateHandler {
public:    // in slot order, which never changes
    /// 0: changes of several parameters of one object begin.
    virtual void onBeginObjectParamChanges(const std::string& p_objectPath);

    /// 1: a parameter has a new value. The flag's meaning is the host's.
    virtual void onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                               const std::string& p_value, bool p_flag);

    /// 2: a parameter that no user sees has a new value.
    virtual void onInternalParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                                       const std::string& p_value, bool p_flag);

    /// 3: the changes of that object's parameters end.
    virtual void onEndObjectParamChanges(const std::string& p_objectPath);

    /// 4: a parameter is no longer set.
    virtual void onParamDeletion(const std::string& p_objectPath, const std::string& p_paramName);

    /// 5: a parameter that no user sees is no longer set.
    virtual void onInternalParamDeletion(const std::string& p_objectPath, const std::string& p_paramName);

    /// 6: an object is gone.
    virtual void onObjectDeletion(const std::string& p_objectPath);

protected:
    ~QCLUpdateHandler() = default;    // not virtual: handlers are never destroyed through this base
};

inline void QCLUpdateHandler::onBeginObjectParamChanges(const std::string&) {}
inline void QCLUpdateHandler::onParamChange(const std::string&, const std::string&, const std::string&, bool)
{}
inline void QCLUpdateHandler::onInternalParamChange(const std::string&, const std::string&,
                                                    const std::string&, bool)
{}
inline void QCLUpdateHandler::onEndObjectParamChanges(const std::string&) {}
inline void QCLUpdateHandler::onParamDeletion(const std::string&, const std::string&) {}
inline void QCLUpdateHandler::onInternalParamDeletion(const std::string&, const std::string&) {}
inline void QCLUpdateHandler::onObjectDeletion(const std::string&) {}

}    // namespace qen
