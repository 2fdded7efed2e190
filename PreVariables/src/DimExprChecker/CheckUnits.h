#pragma once

#include "DimExprChecker.h"
#include "Gathered.h"
#include "MessageCatalogue.h"

#include <cstdint>
#include <string>

namespace qen {

/// What is wrong with the units of a value.
enum class DimExprChecker::UnitsFault : std::uint8_t {
    None,
    Unrecognised,
    WrongOfExpression,
    WrongDynamic,
    Wrong
};

/// The units check, for a function that catches what it raises. Within that function, so that the exception passes no
/// other.
[[gnu::always_inline]] inline void DimExprChecker::checkUnits(const std::string& p_objectPath,
                                                              const std::string& p_paramName,
                                                              const std::string& p_units,
                                                              bool p_fromExpression)
{
    using messages::Msg;
    using messages::raise;
    using messages::ShownUnits;

    const std::string& expected = m_gathered->expectedUnits;
    switch (unitsFault(p_objectPath, p_paramName, p_units, p_fromExpression))
    {
    case UnitsFault::None:
        return;
    case UnitsFault::Unrecognised:
        raise<Msg::UnrecognisedUnits>(ShownUnits {p_units}, p_paramName, p_objectPath);
    case UnitsFault::WrongOfExpression:
        raise<Msg::WrongExpressionUnits>(ShownUnits {p_units}, p_paramName, p_objectPath,
                                         ShownUnits {expected});
    case UnitsFault::WrongDynamic:
        raise<Msg::WrongDynamicUnits>(ShownUnits {p_units}, p_paramName, p_objectPath, ShownUnits {expected});
    case UnitsFault::Wrong:
        raise<Msg::WrongUnits>(ShownUnits {p_units}, p_paramName, p_objectPath, ShownUnits {expected});
    }
}

}    // namespace qen
