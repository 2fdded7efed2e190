#pragma once

#include "DimExprChecker.h"
#include "ExpressionErrors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <typeinfo>
#include <vector>

namespace qen {

inline void PrintTo(const ExpressionErrors::ExprError& p_record, std::ostream* p_stream)
{
    *p_stream << (p_record.level == ExpressionErrors::Warning ? "warning" : "error") << " for '"
              << p_record.parameter << "' of '" << p_record.object << "': \"" << p_record.message << '"';
}

namespace support {

/// The records of a checker, or of any other reader of records, in order.
inline std::vector<ExpressionErrors::ExprError> records(const ExpressionErrors& p_errors)
{
    return {p_errors.beginExprError(), p_errors.endExprError()};
}

MATCHER_P(ErrorSaying, p_text,
          std::string(negation ? "is no error" : "is an error") + " saying \"" + p_text + '"')
{
    return arg.level == ExpressionErrors::Error && arg.message == p_text;
}

MATCHER_P(WarningSaying, p_text,
          std::string(negation ? "is no warning" : "is a warning") + " saying \"" + p_text + '"')
{
    return arg.level == ExpressionErrors::Warning && arg.message == p_text;
}

/// A record of a parameter, whatever it says.
MATCHER_P2(IsAbout, p_object, p_parameter,
           std::string(negation ? "is not" : "is") + " about '" + p_parameter + "' of '" + p_object + "'")
{
    return arg.object == p_object && arg.parameter == p_parameter;
}

/// What an action throws, when it is exactly of that class; otherwise nothing, and the test has failed.
template <class Exception, class Action>
std::optional<Exception> thrownBy(const Action& p_action)
{
    try
    {
        p_action();
    }
    catch (const Exception& thrown)
    {
        EXPECT_EQ(typeid(thrown), typeid(Exception)) << "a derived class was thrown";
        return thrown;
    }
    catch (...)
    {
        ADD_FAILURE() << "something else was thrown";
        return std::nullopt;
    }
    ADD_FAILURE() << "nothing was thrown";
    return std::nullopt;
}

/// What an action writes to the process's standard error stream.
template <class Action>
std::string standardErrorOf(const Action& p_action)
{
    testing::internal::CaptureStderr();
    p_action();
    return testing::internal::GetCapturedStderr();
}

}    // namespace support
}    // namespace qen
