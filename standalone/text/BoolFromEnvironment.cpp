#include "BoolFromEnvironment.h"

#include "StringUtilities.h"

#include <cstdlib>

namespace qen {

bool BoolFromEnvironment::checkEnv() const
{
    if (m_state == State::Unknown)
    {
        const char* text = std::getenv(m_variable);
        m_state = text && StringUtilities::stringToBool(text) ? State::On : State::Off;
    }
    return m_state == State::On;
}

}    // namespace qen
