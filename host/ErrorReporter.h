#pragma once

#include "Error.h"

#include <string>
#include <utility>

namespace qen {

/// A problem that is reported and not thrown.
class QEN_HOST_API ErrorMsg {
public:
    ErrorMsg(std::string p_class, std::string p_function, std::string p_message, errorType p_type)
        : m_class(std::move(p_class)), m_function(std::move(p_function)), m_message(std::move(p_message)),
          m_type(p_type)
    {}

    const std::string& getClass() const { return m_class; }
    const std::string& getFunction() const { return m_function; }
    const std::string& getMessage() const { return m_message; }
    errorType getType() const { return m_type; }

private:
    std::string m_class;
    std::string m_function;
    std::string m_message;
    errorType m_type;
};

/// Takes reports. Defined by the host; one object per process.
class QEN_HOST_API ErrorReporter {
public:
    static ErrorReporter& instance();

    /// Must return: what is reported here does not end the operation that reports it.
    void report(const ErrorMsg& p_message);
};

}    // namespace qen
