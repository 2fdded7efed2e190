#pragma once

#include <chrono>
#include <csignal>

namespace qencheck {

/// Waits for Ctrl-C, or another request to end (SIGINT, SIGTERM).
///
/// From its construction on these do not end the command by themselves, not even when the object is gone: a second
/// Ctrl-C must not take the exit status away that the first one earned. One that the caller has the command ignore stays
/// ignored.
class StopSignals {
public:
    StopSignals();

    /// Waits until a request has come, at most that long; not at all when one came before.
    ///
    /// @return Whether one has come, now or before.
    bool wait(std::chrono::milliseconds p_atMost);

private:
    sigset_t m_signals {};
    bool m_came = false;
};

}    // namespace qencheck
