#include "FileWatch.h"

#include <algorithm>
#include <utility>

#include <sys/stat.h>

namespace qencheck {
namespace {

std::int64_t nanoseconds(const timespec& p_time)
{
    return std::int64_t {p_time.tv_sec} * 1'000'000'000 + p_time.tv_nsec;
}

}    // namespace

void FileWatch::follow(const std::vector<std::string>& p_paths, Clock::time_point p_now)
{
    std::map<std::string, Watched> files;
    for (const std::string& path : p_paths)
    {
        auto known = m_files.extract(path);
        if (known)
            files.insert(std::move(known));
        else if (!files.contains(path))
        {
            // Nobody saves a file that was never there: that needs no second to be told of.
            const Identity identity = identityOf(path);
            files.emplace(path, Watched {identity, identity.exists ? p_now : p_now - k_isGone, true, p_now});
        }
    }
    m_files = std::move(files);
}

std::vector<SavedFile> FileWatch::look(Clock::time_point p_now)
{
    bool allAtRest = true;
    bool waitedLongEnough = false;
    for (auto& [path, file] : m_files)
    {
        const Identity identity = identityOf(path);
        if (identity != file.identity)
        {
            file.identity = identity;
            file.since = p_now;
            if (!std::exchange(file.news, true))
                file.newsSince = p_now;
        }
        if (!file.news)
            continue;
        allAtRest = allAtRest && file.isAtRest(p_now);
        waitedLongEnough = waitedLongEnough || p_now - file.newsSince >= k_longestWait;
    }

    std::vector<SavedFile> saved;
    if (!allAtRest && !waitedLongEnough)
        return saved;

    for (auto& [path, file] : m_files)
    {
        if (!file.news)
            continue;
        saved.push_back({path, file.identity.exists});
        file.news = !file.isAtRest(p_now);    // what still moves is told of again
        file.newsSince = p_now;
    }
    return saved;
}

bool FileWatch::isSettling() const
{
    return std::any_of(m_files.begin(), m_files.end(), [](const auto& p_file) { return p_file.second.news; });
}

bool FileWatch::isOutdated() const
{
    return std::any_of(m_files.begin(), m_files.end(),
                       [](const auto& p_file) { return identityOf(p_file.first) != p_file.second.identity; });
}

bool FileWatch::Watched::isAtRest(Clock::time_point p_now) const
{
    return p_now - since >= (identity.exists ? k_standsStill : k_isGone);
}

FileWatch::Identity FileWatch::identityOf(const std::string& p_path)
{
    struct stat status {};
    if (stat(p_path.c_str(), &status) != 0)
        return {};
    return {true,
            status.st_dev,
            status.st_ino,
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

}    // namespace qencheck
