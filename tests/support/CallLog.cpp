#include "support/CallLog.h"

#include <algorithm>

namespace qen::support {

void CallLog::note(const std::string& p_operation, const std::vector<std::string>& p_arguments)
{
    std::string call = p_operation + '(';
    for (const std::string& argument : p_arguments)
        call += (&argument == p_arguments.data() ? "" : ", ") + argument;
    call += ')';
    m_calls.push_back(call);

    for (const auto& [beginning, action] : m_actions)
        if (call.starts_with(beginning))
            action();
}

void CallLog::onCall(const std::string& p_call, Action p_action)
{
    m_actions.emplace_back(p_call, std::move(p_action));
}

std::vector<std::string> CallLog::beginningWith(const std::vector<std::string>& p_beginnings) const
{
    std::vector<std::string> result;
    for (const std::string& call : m_calls)
        if (std::ranges::any_of(p_beginnings,
                                [&](const std::string& p_text) { return call.starts_with(p_text); }))
            result.push_back(call);
    return result;
}

}    // namespace qen::support
