#pragma once

#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"

#include "support/Matchers.h"
#include "support/SchedulerPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen {

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";
constexpr const char* k_expressions = "/LIBRARY/QEL/EXPRESSIONS";

/// A duct whose width is a length of at most 3 m.
class SchedulerTest : public testing::Test {
protected:
    using ParamValue = DimExprCheckScheduler::ParamValue;
    using NumericValue = DimExprCheckScheduler::NumericValue;

    SchedulerTest() { width(); }

    support::ScriptedParameter& width()
    {
        return m_host.parameter(k_duct, "Width").hasQuantity("Length", "m").hasUpperBound("3 [m]");
    }

    /// The user gives the width a value.
    void setWidth(const std::string& p_value)
    {
        m_host.parameter(k_duct, "Width").hasStoredValue(p_value);
        m_scheduler.checkParam(k_duct, "Width");
    }

    const ParamValue* keptWidth() const { return support::keptValue(m_scheduler, k_duct, "Width"); }
    std::vector<std::string> kept() const { return support::keptParams(m_scheduler); }
    std::vector<ExpressionErrors::ExprError> records() const { return support::records(m_checker); }

    support::ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
    DimExprCheckScheduler m_scheduler = m_host.makeScheduler(m_checker);
};

/// How many of the numbers passed their last check, number by number.
inline std::vector<bool> flags(const std::vector<DimExprCheckScheduler::NumericValue>& p_numbers)
{
    std::vector<bool> result;
    for (const auto& number : p_numbers)
        result.push_back(number.ok);
    return result;
}

MATCHER_P2(IsNumber, p_value, p_units,
           "is the number " + testing::PrintToString(p_value) + " in '" + p_units + "'")
{
    return arg.value == p_value && arg.units == p_units;
}

}    // namespace qen
