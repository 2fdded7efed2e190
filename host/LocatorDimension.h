#pragma once

#include "HostApi.h"

namespace qen {

/// The dimension of a locator. A host may hold values that are not named here.
struct QEN_HOST_API LocatorDimension {
    enum Value : int {
        Unknown = 0,    ///< never checked against a function
        Point = 1,
        Surface = 3,
        Volume = 4,
    };
};

}    // namespace qen
