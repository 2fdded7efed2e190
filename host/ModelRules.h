#pragma once

#include "HostApi.h"

#include <string>

namespace qen {

/// The type that the rules give a parameter. What a value means is the host's; see QCLParam.
enum class ParamType : int;

/// What the rules say about paths and parameter types. Implemented by the host; outlives the scheduler.
class QEN_HOST_API ModelRules {
public:
    /// Whether the rules know an object at that path.
    virtual bool isValidPath(const std::string& p_objectPath) const = 0;

    /// Whether the rules know a parameter of that name anywhere.
    virtual bool isValidParamName(const std::string& p_paramName) const = 0;

    /// The type of the parameter under the last type of a path.
    virtual ParamType getParamType(const std::string& p_lastType, const std::string& p_paramName) const = 0;

protected:
    ~ModelRules() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
