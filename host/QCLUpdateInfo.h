#pragma once

#include "HostApi.h"

namespace qen {

class QCLUpdateHandler;

/// The host's record of pending changes. Implemented by the host; outlives the scheduler that was given it.
class QEN_HOST_API QCLUpdateInfo {
public:    // in slot order, which never changes
    virtual void reserved0() const {}
    virtual void reserved1() const {}

    /// 2: replays the pending changes into the handler's operations, in order.
    virtual void replay(QCLUpdateHandler& p_handler) const = 0;

protected:
    ~QCLUpdateInfo() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
