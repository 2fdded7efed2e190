#pragma once

#include "HostApi.h"
#include "ModelRules.h"

namespace qen {

/// Questions about parameter types. Defined by the host.
class QEN_HOST_API QCLParam {
public:
    /// Whether values of that type are numbers, or expressions that give numbers.
    static bool isNumericType(ParamType p_type);
};

}    // namespace qen
