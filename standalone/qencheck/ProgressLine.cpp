#include "ProgressLine.h"

#include <fmt/format.h>

#include <cstdio>
#include <utility>

#include <unistd.h>

namespace qencheck {
namespace {

constexpr std::chrono::milliseconds k_firstAfter {1000};
constexpr std::chrono::milliseconds k_thenEvery {200};
constexpr std::size_t k_lookAtClockEvery = 64;    // parameters

}    // namespace

ProgressLine::ProgressLine(std::string p_caseFile)
    : m_caseFile(std::move(p_caseFile)), m_terminal(isatty(STDERR_FILENO) == 1),
      m_next(Clock::now() + k_firstAfter)
{}

ProgressLine::~ProgressLine()
{
    if (m_shown)
        fmt::print(stderr, "\r\x1b[K");
}

void ProgressLine::update(std::size_t p_done, std::size_t p_all)
{
    if (!m_terminal || p_done % k_lookAtClockEvery != 0)
        return;

    const Clock::time_point now = Clock::now();
    if (now < m_next)
        return;
    m_next = now + k_thenEvery;
    m_shown = true;
    fmt::print(stderr, "\r\x1b[K{}: {} of {} parameters", m_caseFile, p_done, p_all);
    static_cast<void>(std::fflush(stderr));    // a line that cannot be shown is no error of the check
}

}    // namespace qencheck
