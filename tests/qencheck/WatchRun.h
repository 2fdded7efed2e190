#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace qencheck_test {

/// `qencheck watch` while it runs, in a folder of the test. Ended by force when the test does not end it.
class WatchRun {
public:
    enum class Output { Pipe, Terminal };

    struct Settings {
        Output output = Output::Pipe;
        std::vector<std::string> environment {};    ///< such as "NO_COLOR=1"
        bool ignoresInterrupt = false;              ///< as a command that a script runs in the background
    };

    /// @param p_arguments  Behind "watch".
    WatchRun(const std::string& p_folder, const std::vector<std::string>& p_arguments,
             const Settings& p_settings);
    WatchRun(const std::string& p_folder, const std::vector<std::string>& p_arguments)
        : WatchRun(p_folder, p_arguments, Settings())
    {}
    ~WatchRun();

    WatchRun(const WatchRun&) = delete;
    WatchRun& operator=(const WatchRun&) = delete;

    /// What it writes next, until that is what is expected, or differs from it, or it takes very long. Times of day are
    /// "hh:mm:ss", line ends as in files.
    std::string next(const std::string& p_expected);

    /// What it writes in some time; taken, as by `next`.
    std::string heardFor(std::chrono::milliseconds p_time);

    void signal(int p_signal) const;

    /// Types into its terminal.
    void type(std::string_view p_keys) const;

    /// Waits until it has ended.
    ///
    /// @return Its exit status; -1 when a signal ended it, or when it does not end.
    int status();

    /// What it wrote and `next` did not give; whole once it has ended.
    const std::string& rest() const { return m_output; }

private:
    bool readMore();
    void takeCompleteLines();

    int m_process = -1;
    int m_read = -1;             // where its output comes from; of a terminal the other side
    bool m_closed = false;       // nothing more will come
    std::string m_unfinished;    // the last line, before it is whole
    std::string m_output;
};

/// Writes a file beside and renames it over the path, as many editors do. No reader ever sees half of it.
void saveByRenaming(const std::string& p_path, const std::string& p_text);

/// Writes over a file in place, in one go. The text may not be shorter than that of the file.
void saveInPlace(const std::string& p_path, const std::string& p_text);

}    // namespace qencheck_test
