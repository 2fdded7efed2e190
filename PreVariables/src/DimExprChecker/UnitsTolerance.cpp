#include "UnitsTolerance.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <sstream>

namespace qen {
namespace {

constexpr double k_defaultTolerance = 0.001;

/// A number at the start of the text is enough; what follows it is not looked at.
double readTolerance()
{
    const char* text = std::getenv("QVN5_UNITS_TOL");
    if (!text)
        return k_defaultTolerance;

    std::istringstream stream(text);
    double tolerance = 0.0;
    return stream >> tolerance ? tolerance : k_defaultTolerance;
}

}    // namespace

double unitsTolerance()
{
    static const double tolerance = readTolerance();
    return tolerance;
}

bool agreeButForAngle(const UnitDimensions& p_a, UnitDimensions p_b, double p_tolerance)
{
    p_b[UnitDimensions::k_angle] = p_a[UnitDimensions::k_angle];

    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
    {
        // Deliberate: the difference is single, the comparison double, so a difference of 0.001f is above 0.001. Held
        // by UnitsTolerance.ComparesASinglePrecisionDifferenceInDouble.
        const float difference = std::fabs(p_a[i] - p_b[i]);
        if (!(static_cast<double>(difference) <= p_tolerance))
            return false;
    }
    return true;
}

}    // namespace qen
