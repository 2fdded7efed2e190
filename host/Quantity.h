#pragma once

#include "ExpressionsError.h"
#include "HostApi.h"

#include <string>
#include <utility>

namespace qen {

/// A number with units. A default-constructed one stands for a result that has no single value.
class QEN_HOST_API Quantity {
public:
    Quantity() = default;

    Quantity(float p_value, std::string p_units)
        : m_value(p_value), m_units(std::move(p_units)), m_hasValue(true)
    {}

    /// @throws expressions::error  There is no single value.
    float getValue() const
    {
        if (!m_hasValue)
            throw expressions::error("Quantity", "getValue", "The quantity has no single value.",
                                     ErrorTypeError);
        return m_value;
    }

    /// The units text of the value; empty for dimensionless.
    std::string getUnits() const { return m_units; }

private:
    float m_value = 0.0F;
    std::string m_units;
    bool m_hasValue = false;
};

}    // namespace qen
