#pragma once

#include "HostApi.h"

#include <array>
#include <cstddef>

namespace qen {

/// Ten single-precision exponents, one per base dimension: mass, length, time, temperature, angle, amount of
/// substance, electric current, luminous intensity, solid angle, information. All zero when default constructed.
class QEN_HOST_API UnitDimensions {
public:
    static constexpr std::size_t k_count = 10;
    static constexpr std::size_t k_angle = 4;    ///< index of the angle exponent

    float& operator[](std::size_t p_index) { return m_exponents[p_index]; }

    const float& operator[](std::size_t p_index) const { return m_exponents[p_index]; }

private:
    std::array<float, k_count> m_exponents {};
};

}    // namespace qen
