#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qencheck {

/// A line on standard error that tells how far a case is: only on a terminal, and only when it takes longer than a
/// second. The line is gone when the object is.
class ProgressLine {
public:
    explicit ProgressLine(std::string p_caseFile);
    ~ProgressLine();

    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void update(std::size_t p_done, std::size_t p_all);

private:
    using Clock = std::chrono::steady_clock;

    std::string m_caseFile;
    bool m_terminal;
    bool m_shown = false;
    Clock::time_point m_next;    // when to write again
};

}    // namespace qencheck
