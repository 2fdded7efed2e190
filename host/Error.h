#pragma once

#include "HostApi.h"

#include <ostream>
#include <string>
#include <utility>

namespace qen {

/// How the host classes an error. Only the two values that the library passes have a name here; a host may use others.
enum errorType : int {
    ErrorTypeError = 4,      ///< thrown: the operation failed
    ErrorTypeWarning = 8,    ///< reported: the operation went on
};

/// Base of the host's exceptions: where the error arose, what it says and how grave it is.
///
/// Deliberate: not a std::exception. The order of the virtual operations is part of the contract, and that base
/// would put one of its own between the destructor and `getType`. Held by HostSlots.ErrorOperationsStandInOrder.
class QEN_HOST_API Error {
public:
    Error(std::string p_class, std::string p_method, std::string p_message, errorType p_type)
        : m_class(std::move(p_class)), m_method(std::move(p_method)), m_message(std::move(p_message)),
          m_type(p_type)
    {}

    Error(const Error&) = default;
    Error& operator=(const Error&) = default;

    // In slot order, which never changes.
    virtual ~Error() = default;

    virtual errorType getType() const { return m_type; }

    /// Writes the text of `errorMessage`.
    virtual void write(std::ostream& p_stream) const { p_stream << errorMessage(); }

    virtual std::string getClass() const { return m_class; }

    virtual std::string getMethod() const { return m_method; }

    /// The message with its origin: "class::method: message".
    virtual std::string errorMessage() const { return m_class + "::" + m_method + ": " + m_message; }

    /// The message alone, as a user reads it.
    virtual std::string getMessage() const { return m_message; }

private:
    std::string m_class;
    std::string m_method;
    std::string m_message;
    errorType m_type;
};

}    // namespace qen
