#pragma once

#include "CheckMessages.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Remembers what the library raised, so that a record can be told what it is: the record's text is the key.
class MessageLog final : public CheckMessageListener {
public:
    struct Raised {
        const CheckMessage* message;
        std::vector<std::string> arguments;    ///< one for each of the message's placeholders
    };

    void onMessage(const CheckMessage& p_message, const std::vector<std::string>& p_arguments,
                   const std::string& p_text) override
    {
        m_raised.try_emplace(p_text, Raised {&p_message, p_arguments});
    }

    /// The message with that text; null for a text that is in no catalogue.
    const Raised* find(const std::string& p_text) const
    {
        const auto found = m_raised.find(p_text);
        return found == m_raised.end() ? nullptr : &found->second;
    }

private:
    std::unordered_map<std::string, Raised> m_raised;
};

}    // namespace qen::standalone
