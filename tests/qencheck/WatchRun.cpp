#include "WatchRun.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qencheck_test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds k_veryLong {100};    // a loaded machine, and sanitizers

std::system_error failure(const char* p_what) { return {errno, std::generic_category(), p_what}; }

/// In the new process: turns into the command. Never returns.
[[noreturn]] void become(const std::string& p_folder, const std::vector<std::string>& p_arguments,
                         const WatchRun::Settings& p_settings)
{
    std::signal(SIGINT, p_settings.ignoresInterrupt ? SIG_IGN : SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    unsetenv("NO_COLOR");
    unsetenv("QENCHECK_DEFINITIONS");
    for (const std::string& setting : p_settings.environment)
        setenv(setting.substr(0, setting.find('=')).c_str(), setting.c_str() + setting.find('=') + 1, 1);

    std::vector<std::string> texts {QENCHECK_COMMAND, "watch"};
    texts.insert(texts.end(), p_arguments.begin(), p_arguments.end());
    std::vector<char*> arguments;
    for (std::string& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    if (chdir(p_folder.c_str()) == 0)
        execv(QENCHECK_COMMAND, arguments.data());
    _exit(127);
}

std::string withoutTimes(const std::string& p_line)
{
    static const std::regex time("^((?:\x1b\\[1m)?---- )[0-9]{2}:[0-9]{2}:[0-9]{2} ");
    return std::regex_replace(p_line, time, "$1hh:mm:ss ");
}

}    // namespace

WatchRun::WatchRun(const std::string& p_folder, const std::vector<std::string>& p_arguments,
                   const Settings& p_settings)
{
    std::array<int, 2> ends {-1, -1};
    if (p_settings.output == Output::Pipe && pipe2(ends.data(), O_CLOEXEC) != 0)
        throw failure("no pipe");

    const bool onTerminal = p_settings.output == Output::Terminal;
    m_process = onTerminal ? forkpty(&m_read, nullptr, nullptr, nullptr) : fork();
    if (m_process < 0)
        throw failure("no process");
    if (m_process == 0)
    {
        if (!onTerminal)
            dup2(ends[1], STDOUT_FILENO);
        become(p_folder, p_arguments, p_settings);
    }
    if (!onTerminal)
    {
        m_read = ends[0];
        close(ends[1]);
    }
}

WatchRun::~WatchRun()
{
    if (m_process > 0)
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    close(m_read);
}

std::string WatchRun::next(const std::string& p_expected)
{
    const Clock::time_point end = Clock::now() + k_veryLong;
    while (p_expected.starts_with(m_output) && m_output.size() < p_expected.size() && Clock::now() < end)
        if (!readMore())
            break;

    const std::size_t size = m_output.starts_with(p_expected) ? p_expected.size() : m_output.size();
    const std::string text = m_output.substr(0, size);
    m_output.erase(0, size);
    return text;
}

std::string WatchRun::heardFor(std::chrono::milliseconds p_time)
{
    const Clock::time_point end = Clock::now() + p_time;
    while (Clock::now() < end && readMore())
        ;
    return std::exchange(m_output, {});
}

void WatchRun::signal(int p_signal) const
{
    if (kill(m_process, p_signal) != 0)
        throw failure("no signal");
}

void WatchRun::type(std::string_view p_keys) const
{
    if (write(m_read, p_keys.data(), p_keys.size()) != static_cast<ssize_t>(p_keys.size()))
        throw failure("no typing");
}

int WatchRun::status()
{
    const Clock::time_point end = Clock::now() + k_veryLong;
    while (readMore() && Clock::now() < end)
        ;
    int status = -1;
    while (waitpid(m_process, &status, WNOHANG) == 0)
    {
        if (Clock::now() >= end)
            return -1;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Waits a moment for output.
///
/// @return False when no more will come.
bool WatchRun::readMore()
{
    if (m_closed)
        return false;
    pollfd wanted {m_read, POLLIN, 0};
    if (poll(&wanted, 1, 100) <= 0)
        return true;

    std::array<char, 4096> bytes {};
    const ssize_t count = read(m_read, bytes.data(), bytes.size());
    m_closed = count <= 0;    // the end of a terminal is an error
    if (count > 0)
        m_unfinished.append(bytes.data(), static_cast<std::size_t>(count));
    takeCompleteLines();
    if (m_closed)
        m_output += std::exchange(m_unfinished, {});
    return !m_closed;
}

void WatchRun::takeCompleteLines()
{
    for (std::size_t end = m_unfinished.find('\n'); end != std::string::npos; end = m_unfinished.find('\n'))
    {
        std::string line = m_unfinished.substr(0, end);
        m_unfinished.erase(0, end + 1);
        if (line.ends_with('\r'))
            line.pop_back();
        m_output += withoutTimes(line) + "\n";
    }
}

void saveByRenaming(const std::string& p_path, const std::string& p_text)
{
    const std::string beside = p_path + ".saved";
    std::ofstream(beside, std::ios::binary) << p_text;
    if (rename(beside.c_str(), p_path.c_str()) != 0)
        throw failure("no renaming");
}

void saveInPlace(const std::string& p_path, const std::string& p_text)
{
    const int file = open(p_path.c_str(), O_WRONLY | O_CLOEXEC);
    const ssize_t written = file < 0 ? -1 : pwrite(file, p_text.data(), p_text.size(), 0);
    close(file);
    if (written != static_cast<ssize_t>(p_text.size()))
        throw failure("no saving");
}

}    // namespace qencheck_test
