#pragma once

#include "ExprCBFuncStore.h"

#include "Error.h"

#include "support/Matchers.h"
#include "support/ScriptedHost.h"
#include "support/UnitsTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <concepts>
#include <map>
#include <ostream>
#include <string>

namespace qen {

/// A template, so that it is preferred for the derived classes as well.
template <std::derived_from<Error> Exception>
void PrintTo(const Exception& p_error, std::ostream* p_stream)
{
    *p_stream << p_error.errorMessage() << ", type " << p_error.getType();
}

namespace support {

using Definition = std::map<std::string, std::string>;

/// A definition of an average over a surface or a volume, with these keys instead.
inline Definition average(Definition p_instead = {})
{
    p_instead.insert({{"Result Units", "[]"},
                      {"Number of Arguments", "1"},
                      {"CallBack Type", "Scalar"},
                      {"Tensor Type", "SCALAR"},
                      {"Locator Dimension", "Surface,Volume"}});
    return p_instead;
}

/// The same without one of its keys.
inline Definition averageWithout(const std::string& p_key, Definition p_instead = {})
{
    Definition definition = average(std::move(p_instead));
    definition.erase(p_key);
    return definition;
}

/// What the store throws: class, function, text and type.
MATCHER_P2(IsThrownBy, p_function, p_message,
           std::string("is thrown by '") + p_function + "' and says \"" + p_message + '"')
{
    return arg.getClass() == "ExprCBFuncStore" && arg.getMethod() == p_function &&
           arg.getMessage() == p_message && arg.getType() == 4;
}

/// A store in a host that knows units.
class CallbackTest : public testing::Test {
protected:
    /// The dimensions of a function's result, written as a product of base units.
    std::string resultUnits(const std::string& p_name) const
    {
        return UnitsTable::baseUnits(m_store.getResultDim(p_name));
    }

    ScriptedHost m_host;
    ExprCBFuncStore m_store;
};

}    // namespace support
}    // namespace qen
