#include "text/NearestName.h"

#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::size_t k_longestName = 64;    // bytes; what is longer is not compared

/// Counts the insertions, deletions, replacements and swaps of neighbours that make one text of the other: the "optimal
/// string alignment" distance. A column of the table of distances is kept as the differences of its neighbours, a bit
/// each. Source: H. Hyyro, "A Bit-Vector Algorithm for Computing Levenshtein and Damerau Edit Distances", Nordic Journal
/// of Computing 10 (2003).
class EditDistance {
public:
    /// @param p_text  Of at most the longest size, and not empty.
    explicit EditDistance(std::string_view p_text) : m_size(p_text.size())
    {
        for (std::size_t i = 0; i < p_text.size(); ++i)
            m_places[static_cast<unsigned char>(p_text[i])] |= std::uint64_t {1} << i;
    }

    std::size_t to(std::string_view p_other) const
    {
        const std::uint64_t lastRow = std::uint64_t {1} << (m_size - 1);
        std::uint64_t up = ~std::uint64_t {0};    // where a row is one more than that above it
        std::uint64_t down = 0;                   // where it is one less
        std::uint64_t diagonal = 0;    // where it is the same as the one above in the column before
        std::uint64_t placesBefore = 0;
        std::size_t distance = m_size;
        for (const char letter : p_other)
        {
            const std::uint64_t places = m_places[static_cast<unsigned char>(letter)];
            const std::uint64_t swaps = ((~diagonal & places) << 1U) & placesBefore;
            diagonal = (((places & up) + up) ^ up) | places | down | swaps;
            std::uint64_t more = down | ~(diagonal | up);    // than in the column before
            std::uint64_t less = diagonal & up;
            distance += (more & lastRow) != 0 ? 1U : 0U;
            distance -= (less & lastRow) != 0 ? 1U : 0U;
            more = (more << 1U) | 1U;
            less <<= 1U;
            up = less | ~(diagonal | more);
            down = more & diagonal;
            placesBefore = places;
        }
        return distance;
    }

private:
    std::size_t m_size;
    std::array<std::uint64_t, 256> m_places {};    // of each letter in the text, a bit each
};

std::uint32_t lettersOf(std::string_view p_text)
{
    std::uint32_t letters = 0;
    for (const char c : p_text)
        letters |= std::uint32_t {1} << (static_cast<unsigned char>(c) % 32U);    // the same in both cases
    return letters;
}

/// Whether there are more bits than that. Few are, where it is asked.
bool hasMoreThan(std::size_t p_count, std::uint32_t p_bits)
{
    for (; p_bits != 0 && p_count != 0; --p_count)
        p_bits &= p_bits - 1;
    return p_bits != 0;
}

}    // namespace

KnownNames::KnownNames(std::vector<std::string> p_names) : m_names(std::move(p_names))
{
    m_entries.reserve(m_names.size());
    for (std::size_t i = 0; i < m_names.size(); ++i)
    {
        const std::string& name = m_names[i];
        if (name.size() > k_longestName)
            continue;
        m_entries.push_back({m_lowerCase.size(), name.size(), lettersOf(name), i});
        m_lowerCase += StringUtilities::toLowerCase(name);
    }
    std::ranges::stable_sort(m_entries, {}, &Entry::size);
}

std::string KnownNames::nearest(std::string_view p_name) const
{
    if (p_name.empty() || p_name.size() > k_longestName)
        return {};

    const std::string lower = StringUtilities::toLowerCase(std::string(p_name));
    const std::uint32_t letters = lettersOf(lower);
    const EditDistance edits(lower);
    // A third of the letters may be wrong, but not all.
    std::size_t most = std::min(std::max<std::size_t>(1, lower.size() / 3), lower.size() - 1);
    const Entry* nearest = nullptr;

    for (auto entry = std::ranges::lower_bound(m_entries, lower.size() - most, {}, &Entry::size);
         entry != m_entries.end() && entry->size <= lower.size() + most; ++entry)
    {
        // An edit takes one of the letters away and brings one in, at most.
        if (hasMoreThan(most, letters & ~entry->letters) || hasMoreThan(most, entry->letters & ~letters))
            continue;
        const std::size_t distance = edits.to(lowerCase(*entry));
        if (distance < most || (distance == most && (!nearest || entry->place < nearest->place)))
        {
            most = distance;
            nearest = &*entry;
        }
    }
    return nearest ? m_names[nearest->place] : std::string();
}

std::string nearestName(std::string_view p_name, std::vector<std::string> p_known)
{
    return KnownNames(std::move(p_known)).nearest(p_name);
}

}    // namespace qen::standalone
