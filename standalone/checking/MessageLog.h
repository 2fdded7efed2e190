#pragma once

#include "CheckMessages.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Remembers what the library raised, so that a record can be told what it is: the record's text is the key.
class MessageLog final : public CheckMessageListener {
public:
    void onMessage(const CheckMessage& p_message, const std::vector<std::string>&,
                   const std::string& p_text) override
    {
        m_raised.try_emplace(p_text, &p_message);
    }

    /// The identifier of the message with that text; null for a text that is in no catalogue.
    const char* identifier(const std::string& p_text) const
    {
        const auto found = m_raised.find(p_text);
        return found == m_raised.end() ? nullptr : found->second->identifier;
    }

private:
    std::unordered_map<std::string, const CheckMessage*> m_raised;
};

}    // namespace qen::standalone
