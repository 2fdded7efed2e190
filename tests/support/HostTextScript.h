#pragma once

#include "support/CallLog.h"

#include <optional>
#include <string>
#include <vector>

namespace qen::support {

/// Watches the host's texts while it lives: notes, in one order, which lists are split, which switches are read and
/// what is reported, and can say how lists are split and switches are read. One at a time; without one, nothing is noted.
class HostTextScript {
public:
    HostTextScript();
    ~HostTextScript();
    HostTextScript(const HostTextScript&) = delete;
    HostTextScript& operator=(const HostTextScript&) = delete;

    /// As "stringToVector(U,V,W)", "stringToSet(QEL)", "stringToBool(T)" and "report(8)", which has the type of what is
    /// reported.
    const std::vector<std::string>& calls() const { return m_log.all(); }
    void forgetCalls() { m_log.clear(); }

    /// Every switch is read so, whatever its text.
    void readsSwitchesAs(bool p_answer) { m_switchAnswer = p_answer; }

    /// The pieces of a list that is split into a vector keep their blanks.
    void splitsWithoutTrimming() { m_trims = false; }

    /// For the host: whether the pieces of a list are trimmed.
    static bool trims();

    /// For the host: notes a call, if anybody watches.
    static void note(const char* p_operation, const std::string& p_argument);

    /// For the host: how a switch is to be read, if anybody says.
    static std::optional<bool> switchAnswer();

private:
    CallLog m_log;
    std::optional<bool> m_switchAnswer;
    bool m_trims = true;
};

}    // namespace qen::support
