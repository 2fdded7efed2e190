#pragma once

#include "HostApi.h"

namespace qen {

/// What a model tells its observers. Only the two values that the library looks at have a name here.
enum NotifyType : int {
    NotifyModelChanged = 4,      ///< objects or parameters changed in a way that can alter physics
    NotifyPhysicsChanged = 7,    ///< the physics changed
};

/// Is told of changes of what it observes.
class QEN_HOST_API Observer {
public:
    // In slot order, which never changes.
    virtual ~Observer() = default;
    virtual void update(NotifyType p_type) = 0;
};

}    // namespace qen
