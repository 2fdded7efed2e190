#pragma once

#include "HostApi.h"

#include <string>

namespace qen {

/// One call of a callback function in an expression, each part as written.
struct QEN_HOST_API CallbackInfo {
    std::string callbackName;    ///< the function, possibly with an axis component
    std::string locator;         ///< may be empty
    std::string argument;        ///< may be empty
};

}    // namespace qen
