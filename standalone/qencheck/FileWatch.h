#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qencheck {

/// A file that was saved, or that is gone.
struct SavedFile {
    std::string path;
    bool exists = true;

    friend bool operator==(const SavedFile&, const SavedFile&) = default;
};

/// Notices that files are saved, by looking at them again and again: in place or by renaming another over them, created,
/// deleted, or reached through a link that now points elsewhere.
///
/// A save is told of once the file has stood still for a moment, and when nothing else is on the move: a burst of saves
/// is one piece of news, and a save that follows so quickly that the clock of the file system does not tell it from the
/// one before is part of the same news. A file that is gone is told of later, since many programs save by removing a file
/// and putting another in its place.
///
/// Who reads each file when `look` tells of it ends up with its latest text. A file that is followed newly is told of once
/// soon after, since it may have been saved after it was read and before it was followed.
class FileWatch {
public:
    using Clock = std::chrono::steady_clock;

    /// How long a file stands still before it counts as saved. More than a tick of the clock of any file system that
    /// keeps fractions of a second.
    static constexpr std::chrono::milliseconds k_standsStill {50};
    /// How long a file is away before it counts as gone.
    static constexpr std::chrono::milliseconds k_isGone {1000};
    /// What does not come to rest is told of after that time.
    static constexpr std::chrono::milliseconds k_longestWait {3000};

    /// Watches these files and no others. Of those that it watches already nothing is forgotten.
    void follow(const std::vector<std::string>& p_paths, Clock::time_point p_now = Clock::now());

    /// Looks at every file.
    ///
    /// @return Those to be read anew, in alphabetical order; mostly none.
    std::vector<SavedFile> look(Clock::time_point p_now = Clock::now());

    /// Whether something has changed that `look` has not told of yet, so that it should be asked again soon.
    bool isSettling() const;

    /// Whether a file is no longer what the latest `look` saw, so that what was read since may be half a save.
    bool isOutdated() const;

private:
    /// What differs when a file has been saved.
    struct Identity {
        bool exists = false;
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t size = 0;
        std::int64_t modified = 0;         // nanoseconds
        std::int64_t statusChanged = 0;    // nanoseconds; tells when the time of modification was set back

        friend bool operator==(const Identity&, const Identity&) = default;
    };

    struct Watched {
        Identity identity;
        Clock::time_point since;        // that identity has been there
        bool news = true;               // to be told of
        Clock::time_point newsSince;    // of the first change that was not told of

        bool isAtRest(Clock::time_point p_now) const;
    };

    static Identity identityOf(const std::string& p_path);

    std::map<std::string, Watched> m_files;
};

}    // namespace qencheck
