#include "UnitsConverter.h"

#include "UnitDimensions.h"
#include "units/UnitsText.h"
#include "units/UnitSystem.h"
#include "UnitsError.h"
#include "world/World.h"

#include <fmt/format.h>

#include <optional>
#include <string>

namespace qen {
namespace {

[[noreturn]] void fail(const char* p_operation, const std::string& p_message)
{
    throw units::error("UnitsConverter", p_operation, p_message, ErrorTypeError);
}

const standalone::UnitSystem& installedUnits(const char* p_operation)
{
    const standalone::UnitSystem* system = standalone::currentWorld().units;
    if (!system)
        fail(p_operation, "No unit definitions are loaded.");
    return *system;
}

// Apart from the operation that throws, whose frame is then small for the exception.
[[gnu::noinline]] units::error notUnderstood(const standalone::UnitSystem& p_system,
                                             const std::string& p_units)
{
    std::string reason;
    p_system.parse(p_units, &reason);
    return {"UnitsConverter", "dimsFromUnits",
            "Units " + standalone::quoted(p_units) + " are not understood: " + reason + '.', ErrorTypeError};
}

}

UnitsConverter& UnitsConverter::instance()
{
    static UnitsConverter s_converter;
    return s_converter;
}

bool UnitsConverter::convertUnits(const std::string& p_from, const std::string& p_to, float p_value,
                                  float& p_result, bool /*p_flag*/) const
{
    const std::optional<double> converted =
        installedUnits("convertUnits").convert(p_from, p_to, static_cast<double>(p_value));
    if (converted)
        p_result = static_cast<float>(*converted);
    return converted.has_value();
}

UnitDimensions UnitsConverter::dimsFromUnits(const std::string& p_units) const
{
    const standalone::UnitSystem& system = installedUnits("dimsFromUnits");
    if (const std::optional<standalone::UnitValue> value = system.parse(p_units))
        return value->dims;

    throw notUnderstood(system, p_units);
}

std::string UnitsConverter::getBaseUnitName(const UnitDimensions& p_dims) const
{
    return installedUnits("getBaseUnitName").baseUnits(p_dims);
}

std::string UnitsConverter::getBaseUnitsFromQuant(const std::string& p_quantity) const
{
    if (const std::string* baseUnits = installedUnits("getBaseUnitsFromQuant").quantityUnits(p_quantity))
        return *baseUnits;
    fail("getBaseUnitsFromQuant", fmt::format("Quantity {} is not known.", standalone::quoted(p_quantity)));
}

}    // namespace qen
