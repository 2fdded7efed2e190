#pragma once

#include "StandaloneApi.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Looks for the name that a misspelt one most likely means: the closest by edits, or the same but for case. A third of
/// its letters may be wrong, but not all. A name of more than 64 bytes is not looked for.
class QEN_STANDALONE_API NameSearch {
public:
    explicit NameSearch(std::string_view p_misspelt);

    /// Whether a name is worth comparing, by its length. One that is not changes nothing.
    bool mayBeNear(std::string_view p_known) const
    {
        return p_known.size() <= m_size + m_most && m_size <= p_known.size() + m_most;
    }

    /// Compares with one more name, which must stay where it is. Of two that are as near the one that was compared first
    /// counts.
    void compare(std::string_view p_known);

    /// The nearest so far; empty when none is close.
    std::string_view nearest() const { return m_nearest; }

private:
    friend class KnownNames;

    std::size_t edits(std::string_view p_known, std::size_t p_most) const;

    void take(std::string_view p_known, std::size_t p_edits)
    {
        m_most = p_edits;
        m_nearest = p_known;
    }

    std::size_t m_size;    // 0 for a name that is not looked for
    std::size_t m_most;    // edits of a name that is near enough
    std::string_view m_nearest;
    std::uint64_t m_letters;
    std::array<std::uint64_t, 256> m_places {};    // of each letter in the misspelt name, a bit each
};

/// Names that are asked often, made ready for comparison once.
class QEN_STANDALONE_API KnownNames {
public:
    KnownNames() = default;

    /// Of two names that are as near the one that stands first counts.
    explicit KnownNames(std::vector<std::string> p_names);

    bool empty() const { return m_names.empty(); }

    /// Compares with all of them, which must stay until the search is asked.
    void compareIn(NameSearch& p_search) const;

private:
    struct Entry {
        std::uint64_t letters;
        std::size_t place;    // among the names
    };

    std::vector<std::string> m_names;
    std::vector<Entry> m_entries;         // by the size of their names, then by place
    std::vector<std::size_t> m_bySize;    // the first entry of each size, and behind the last one
};

/// The nearest of names that are asked once. Of two that are as near the one that stands first counts.
QEN_STANDALONE_API std::string nearestName(std::string_view p_misspelt,
                                           const std::vector<std::string>& p_known);

}    // namespace qen::standalone
