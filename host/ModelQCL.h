#pragma once

#include "HostApi.h"

#include <string>
#include <vector>

namespace qen {

/// The model: a tree of objects, each addressed by a path and holding named parameters whose values are texts.
/// Implemented by the host; outlives every object of the library that was given it.
class QEN_HOST_API ModelQCL {
public:    // in slot order, which never changes
    /// 0: whether an object exists at the path.
    virtual bool objectExists(const std::string& p_objectPath) const = 0;

    virtual void reserved1() const {}
    virtual void reserved2() const {}
    virtual void reserved3() const {}
    virtual void reserved4() const {}
    virtual void reserved5() const {}

    /// 6: the value text as stored; empty when the parameter is unset or the object is missing.
    virtual std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const = 0;

    virtual void reserved7() const {}
    virtual void reserved8() const {}
    virtual void reserved9() const {}
    virtual void reserved10() const {}

    /// 11: the names of the children of that type, in the model's order.
    virtual std::vector<std::string> childNames(const std::string& p_objectPath,
                                                const std::string& p_type) const = 0;

    /// 12: the paths of the same children, in the same order.
    virtual std::vector<std::string> childPaths(const std::string& p_objectPath,
                                                const std::string& p_type) const = 0;

protected:
    ~ModelQCL() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
