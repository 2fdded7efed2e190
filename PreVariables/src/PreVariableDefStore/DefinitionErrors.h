#pragma once

#include "DataError.h"
#include "ErrorReporter.h"
#include "UserMsg.h"

/// @file
/// The two ways in which the store speaks of a problem: it throws, or it tells the host and goes on.

namespace qen {

/// Throws one of the `data::error` family.
template <class Exception>
[[noreturn]] void raiseData(const char* p_function, const UserMsg& p_message)
{
    throw Exception("PreVariableDefStore", p_function, p_message.str(), ErrorTypeError);
}

inline void warn(const char* p_function, const UserMsg& p_message)
{
    ErrorReporter::instance().report(
        ErrorMsg("PreVariableDefStore", p_function, p_message.str(), ErrorTypeWarning));
}

}    // namespace qen
