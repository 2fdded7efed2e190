#pragma once

#include "HostApi.h"

#include <string>

namespace qen {

class ModelQCL;

/// Which quantity a parameter has, and which parameters take theirs from elsewhere in the model.
/// Implemented by the host; outlives the checker.
class QEN_HOST_API QuantityModifier {
public:    // in slot order, which never changes
    virtual void reserved0() const {}

    /// 1: whether the parameter's quantity is set dynamically.
    virtual bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const = 0;

    /// 2: the quantity mode, 1 meaning dynamic; fills the quantity's name, empty when the parameter has none.
    virtual int quantityMode(const ModelQCL* p_model, const std::string& p_objectPath,
                             const std::string& p_paramName, std::string& p_quantityName) const = 0;

    /// 3: the expected units of a dynamic quantity.
    virtual std::string dynamicUnits(const std::string& p_quantityName) const = 0;

protected:
    ~QuantityModifier() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
