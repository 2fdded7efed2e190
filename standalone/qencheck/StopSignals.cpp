#include "StopSignals.h"

#include <cerrno>
#include <ctime>
#include <system_error>

namespace qencheck {
namespace {

bool isIgnored(int p_signal)
{
    struct sigaction action {};
    return sigaction(p_signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}    // namespace

StopSignals::StopSignals()
{
    sigemptyset(&m_signals);
    for (const int signal : {SIGINT, SIGTERM})
        if (!isIgnored(signal))    // a blocked signal is kept even when it is ignored
            sigaddset(&m_signals, signal);
    if (sigprocmask(SIG_BLOCK, &m_signals, nullptr) != 0)
        throw std::system_error(errno, std::generic_category(), "Ctrl-C cannot be waited for");
}

bool StopSignals::wait(std::chrono::milliseconds p_atMost)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(p_atMost);
    const timespec atMost {seconds.count(), std::chrono::nanoseconds(p_atMost - seconds).count()};
    // Being stopped and continued ends the wait early, which does no harm.
    m_came = m_came || sigtimedwait(&m_signals, nullptr, &atMost) > 0;
    return m_came;
}

}    // namespace qencheck
