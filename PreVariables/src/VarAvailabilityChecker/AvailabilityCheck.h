#pragma once

#include <string>

namespace qen {

class ModelQCL;

/// What an availability keyword asks the physics.
class AvailabilityCheck {
public:
    AvailabilityCheck() = default;
    AvailabilityCheck(const AvailabilityCheck&) = delete;
    AvailabilityCheck& operator=(const AvailabilityCheck&) = delete;

    virtual ~AvailabilityCheck() = default;

    /// Whether the keyword holds at a place of the model.
    virtual bool check(const std::string& p_objectPath, const ModelQCL* p_model) const = 0;
};

}    // namespace qen
