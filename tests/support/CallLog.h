#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qen::support {

/// The calls made to a scripted host, in order, each as it would be written: "model.paramValue(/FLOW:F, Speed)".
/// A test can have something happen at a call, such as an exception.
class CallLog {
public:
    using Action = std::function<void()>;

    /// Notes a call, then does what the test has planned for it.
    void note(const std::string& p_operation, const std::vector<std::string>& p_arguments);

    /// Runs the action at each later call whose text begins with @p p_call.
    void onCall(const std::string& p_call, Action p_action);

    const std::vector<std::string>& all() const { return m_calls; }

    /// The calls whose text begins with any of the texts.
    std::vector<std::string> beginningWith(const std::vector<std::string>& p_beginnings) const;

    void clear() { m_calls.clear(); }

private:
    std::vector<std::string> m_calls;
    std::vector<std::pair<std::string, Action>> m_actions;
};

}    // namespace qen::support
