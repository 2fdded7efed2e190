#pragma once

#include "HostApi.h"

namespace qen {

/// A switch that an environment variable sets: unknown until first asked for, then kept for the process. Defined by
/// the host. Constructing one reads nothing and needs no dynamic initialisation.
class QEN_HOST_API BoolFromEnvironment {
public:
    /// @param p_variable  The variable's name; must outlive the object.
    constexpr explicit BoolFromEnvironment(const char* p_variable) : m_variable(p_variable) {}

    /// Whether the switch is on.
    bool isSet() const { return m_state == State::Unknown ? checkEnv() : m_state == State::On; }

    /// Reads the environment if that has not been done, and tells whether the switch is on: an unset variable is off,
    /// a set one says what `StringUtilities::stringToBool` makes of its text.
    bool checkEnv() const;

private:
    enum class State { Unknown, Off, On };

    const char* m_variable;
    mutable State m_state = State::Unknown;
};

}    // namespace qen
