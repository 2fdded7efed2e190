#pragma once

#include "PreVariableDefStore.h"

#include "DataError.h"
#include "ErrorReporter.h"

#include "support/HostReports.h"
#include "support/Matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <concepts>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace qen {

inline void PrintTo(const ErrorMsg& p_report, std::ostream* p_stream)
{
    *p_stream << p_report.getClass() << "::" << p_report.getFunction() << ", type " << p_report.getType()
              << ": \"" << p_report.getMessage() << '"';
}

/// A template, so that it is preferred for the derived classes as well.
template <std::derived_from<Error> Exception>
void PrintTo(const Exception& p_error, std::ostream* p_stream)
{
    *p_stream << p_error.errorMessage() << ", type " << p_error.getType();
}

namespace support {

using Definition = std::map<std::string, std::string>;

/// A definition of a scalar, with these keys more.
inline Definition scalar(Definition p_more = {})
{
    p_more.insert({"Tensor Type", "SCALAR"});
    return p_more;
}

/// A definition of a vector with the components U, V and W, with these keys more or instead.
inline Definition velocity(Definition p_more = {})
{
    p_more.insert({{"Tensor Type", "VECTOR"},
                   {"Component Short Names", "U,V,W"},
                   {"Component Long Names", "Velocity u,Velocity v,Velocity w"}});
    return p_more;
}

/// A definition of a symmetric tensor with six components, with these keys more or instead.
inline Definition stress(Definition p_more = {})
{
    p_more.insert({{"Tensor Type", "SYMTEN2"},
                   {"Component Short Names", "Sxx,Syy,Szz,Sxy,Syz,Sxz"},
                   {"Component Long Names", "Stress xx,Stress yy,Stress zz,Stress xy,Stress yz,Stress xz"}});
    return p_more;
}

/// Every text of a store's value table, in order.
inline std::vector<std::string>
valuesOf(PreVariableDefStore p_store)    // a copy: a further value tells the size
{
    const auto size = static_cast<std::size_t>(p_store.addValue("a text that no definition has"));
    std::vector<std::string> texts;
    for (std::size_t value = 0; value < size; ++value)
        texts.push_back(p_store.fieldValue(value));
    return texts;
}

/// The texts that came to a store's value table behind the seven of every store.
inline std::vector<std::string> valuesReadInto(const PreVariableDefStore& p_store)
{
    const std::vector<std::string> texts = valuesOf(p_store);
    return {texts.begin() + 7, texts.end()};
}

/// What the store throws: class, function, text and type.
MATCHER_P2(IsThrownBy, p_function, p_message,
           std::string("is thrown by '") + p_function + "' and says \"" + p_message + '"')
{
    return arg.getClass() == "PreVariableDefStore" && arg.getMethod() == p_function &&
           arg.getMessage() == p_message && arg.getType() == 4;
}

/// What the store reports while it reads a definition.
MATCHER_P(IsWarning, p_message, std::string("is a warning that says \"") + p_message + '"')
{
    return arg.getClass() == "PreVariableDefStore" && arg.getFunction() == "addVariableDefinition" &&
           arg.getMessage() == p_message && arg.getType() == 8;
}

/// A store, and a host that has heard of nothing yet.
class StoreTest : public testing::Test {
protected:
    StoreTest()
    {
        unsetenv("QEN_IGNORE_INVALID_VAR_DEFINITIONS");    // the caller's setting is not ours
        HostReports::reset();
    }

    ~StoreTest() override { HostReports::reset(); }

    /// The texts of one list or set field.
    template <class Values>
    std::vector<std::string> texts(const Values& p_values) const
    {
        return m_store.valsToStrVec(p_values);
    }

    const std::string& text(PreVariableDefStore::ValueIndex p_value) const
    {
        return m_store.fieldValue(p_value);
    }

    PreVariableDefStore m_store;
};

}    // namespace support
}    // namespace qen
