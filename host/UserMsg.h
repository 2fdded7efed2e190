#pragma once

#include "HostApi.h"

#include <iostream>
#include <string>
#include <utility>

namespace qen {

/// A user's message: a template whose placeholders %1, %2 ... are filled in order.
///
/// Substitution works on the current text: a placeholder that an argument brings along is filled by a later argument.
/// Filling takes time linear in the result.
class QEN_HOST_API UserMsg {
public:
    /// @param p_flag  Not used by the library, which passes none.
    explicit UserMsg(std::string p_text, const bool* p_flag = nullptr)
        : m_text(std::move(p_text)), m_untranslated(m_text), m_flag(p_flag)
    {}

    /// Fills the next placeholder, wherever it occurs; one that does not occur gives a line on standard error.
    UserMsg& arg(const std::string& p_argument)
    {
        ++m_count;
        const std::string token = "%" + std::to_string(m_count);

        if (!replaceAll(m_text, token, p_argument))
            std::cerr << "Warning: token " << token << " was not used in the message: \"" << p_argument
                      << "\"\n";
        replaceAll(m_untranslated, token, p_argument);
        return *this;
    }

    UserMsg& operator<<(const std::string& p_argument) { return arg(p_argument); }

    /// Not explicit: a message stands for its text.
    operator std::string() const { return m_text; }

    const std::string& str() const { return m_text; }

private:
    /// The search goes on behind the inserted text, so an argument that holds its own token ends. Tokens span two
    /// characters: templates use one digit.
    static bool replaceAll(std::string& p_text, const std::string& p_token, const std::string& p_argument)
    {
        std::string::size_type found = p_text.find(p_token);
        if (found == std::string::npos)
            return false;

        std::string result;
        std::string::size_type copied = 0;
        for (; found != std::string::npos; found = p_text.find(p_token, copied))
        {
            result.append(p_text, copied, found - copied).append(p_argument);
            copied = found + 2;
        }
        result.append(p_text, copied, std::string::npos);
        p_text.swap(result);
        return true;
    }

    std::string m_text;                     // what the user sees
    std::string m_untranslated;             // filled likewise; what else it is for is the host's
    int m_count = 0;                        // arguments so far
    [[maybe_unused]] const bool* m_flag;    // the host's
};

}    // namespace qen
