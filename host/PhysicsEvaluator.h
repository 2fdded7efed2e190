#pragma once

#include "HostApi.h"

#include <string>
#include <vector>

namespace qen {

class ModelQCL;

/// Answers named questions about the physics at a place of the model.
/// Implemented by the host; outlives the availability checker.
class QEN_HOST_API PhysicsEvaluator {
public:    // in slot order, which never changes
    virtual void reserved0() const {}

    /// 1: the truth of the named query at the object.
    virtual bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                          const ModelQCL* p_model) const = 0;

    /// 2: the list of the named query at the object.
    virtual std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                              const ModelQCL* p_model) const = 0;

    /// 3: a boolean query will be asked. The flag's meaning is the host's.
    virtual void declareBool(const std::string& p_query, bool p_flag) const = 0;

    /// 4: a list query will be asked. The flag's meaning is the host's.
    virtual void declareList(const std::string& p_query, bool p_flag) const = 0;

protected:
    ~PhysicsEvaluator() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
