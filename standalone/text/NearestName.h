#pragma once

#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Names that a misspelt one is compared with. Made once where the same names are asked often. Names of more than 64 bytes
/// are not compared: they are neither found nor looked for.
class QEN_STANDALONE_API KnownNames {
public:
    KnownNames() = default;

    /// Of two names that are as near the one that stands first counts.
    explicit KnownNames(std::vector<std::string> p_names);

    bool empty() const { return m_names.empty(); }

    /// The name that a misspelt one most likely means: the closest by edits, or the same but for case. Empty when none is
    /// close; a name that shares no letter with it never is.
    std::string nearest(std::string_view p_name) const;

private:
    /// A name as it is compared.
    struct Entry {
        std::size_t offset;    ///< in the lower-case text of all
        std::size_t size;
        std::uint32_t letters;    ///< that occur in it, as far as 32 bits tell
        std::size_t place;        ///< among the names
    };

    std::string_view lowerCase(const Entry& p_entry) const
    {
        return std::string_view(m_lowerCase).substr(p_entry.offset, p_entry.size);
    }

    std::vector<std::string> m_names;
    std::string m_lowerCase;         // of all, one behind the other
    std::vector<Entry> m_entries;    // by size
};

/// The nearest of names that are asked once.
QEN_STANDALONE_API std::string nearestName(std::string_view p_name, std::vector<std::string> p_known);

}    // namespace qen::standalone
