#include "text/NearestName.h"

#include <algorithm>
#include <utility>

namespace qen::standalone {
namespace {

constexpr std::size_t k_longestName = 64;    // bytes: a bit for each

unsigned byteOf(char p_letter) { return static_cast<unsigned char>(p_letter); }

bool isLowerCase(char p_letter) { return p_letter >= 'a' && p_letter <= 'z'; }
bool isUpperCase(char p_letter) { return p_letter >= 'A' && p_letter <= 'Z'; }

/// Which letters occur in a text, and which twice or more, as far as 64 bits tell. The same in both cases.
std::uint64_t lettersOf(std::string_view p_text)
{
    std::uint64_t once = 0;
    std::uint64_t twice = 0;
    for (const char letter : p_text)
    {
        const std::uint64_t bit = std::uint64_t {1} << (byteOf(letter) % 32U);
        twice |= once & bit;
        once |= bit;
    }
    return once | (twice << 32U);
}

/// Whether there are more bits than that. Mostly there are, where it is asked.
bool hasMoreThan(std::size_t p_count, std::uint64_t p_bits)
{
    for (; p_count != 0; --p_count)
        p_bits &= p_bits - 1;    // without the lowest one; of none, none
    return p_bits != 0;
}

}    // namespace

NameSearch::NameSearch(std::string_view p_misspelt)
    : m_size(p_misspelt.size() <= k_longestName ? p_misspelt.size() : 0),
      m_most(m_size == 0 ? 0 : std::min(std::max<std::size_t>(1, m_size / 3), m_size - 1)),
      m_letters(lettersOf(p_misspelt.substr(0, m_size)))
{
    for (std::size_t i = 0; i < m_size; ++i)
    {
        const char letter = p_misspelt[i];
        const std::uint64_t place = std::uint64_t {1} << i;
        m_places[byteOf(letter)] |= place;
        if (isLowerCase(letter) || isUpperCase(letter))
            m_places[byteOf(letter) ^ 0x20U] |= place;    // the other case
    }
}

/// Counts the insertions, deletions, replacements and swaps of neighbours that make one text of the other: the "optimal
/// string alignment" distance. A column of the table of distances is kept as the differences of its neighbours, a bit
/// each. Source: H. Hyyro, "A Bit-Vector Algorithm for Computing Levenshtein and Damerau Edit Distances", Nordic Journal
/// of Computing 10 (2003).
///
/// @return Something above the most where there are more.
std::size_t NameSearch::edits(std::string_view p_known, std::size_t p_most) const
{
    const std::uint64_t lastRow = std::uint64_t {1} << (m_size - 1);
    std::uint64_t up = ~std::uint64_t {0};    // where a row is one more than that above it
    std::uint64_t down = 0;                   // where it is one less
    std::uint64_t diagonal = 0;               // where it is the same as the one above in the column before
    std::uint64_t placesBefore = 0;
    std::size_t distance = m_size;
    std::size_t letters = p_known.size();    // not yet looked at: each takes one edit away at most
    for (const char letter : p_known)
    {
        if (distance > p_most + letters)
            break;
        --letters;
        const std::uint64_t places = m_places[byteOf(letter)];
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

void NameSearch::compare(std::string_view p_known)
{
    // With one that is as near already, one that is as near is too far.
    if (m_size == 0 || (m_most == 0 && !m_nearest.empty()))
        return;
    const std::size_t most = m_nearest.empty() ? m_most : m_most - 1;
    if (!mayBeNear(p_known))
        return;
    const std::size_t distance = edits(p_known, most);
    if (distance > most)
        return;
    take(p_known, distance);
}

KnownNames::KnownNames(std::vector<std::string> p_names) : m_names(std::move(p_names))
{
    m_entries.reserve(m_names.size());
    std::size_t longest = 0;
    for (std::size_t place = 0; place < m_names.size(); ++place)
    {
        m_entries.push_back({lettersOf(m_names[place]), place});
        longest = std::max(longest, m_names[place].size());
    }
    const auto sizeOf = [&](const Entry& p_entry) { return m_names[p_entry.place].size(); };
    std::ranges::stable_sort(m_entries, {}, sizeOf);
    for (std::size_t size = 0; size <= longest + 1; ++size)
        m_bySize.push_back(static_cast<std::size_t>(std::ranges::lower_bound(m_entries, size, {}, sizeOf) -
                                                    m_entries.begin()));
}

void KnownNames::compareIn(NameSearch& p_search) const
{
    if (p_search.m_size == 0)
        return;

    std::size_t place = m_names.size();    // of the nearest, where it is one of these
    const auto compareSize = [&](std::size_t p_size) {
        // What makes the text longer only brings letters in, what makes it shorter only takes some away.
        const std::size_t longer = p_size > p_search.m_size ? p_size - p_search.m_size : 0;
        const std::size_t shorter = p_size < p_search.m_size ? p_search.m_size - p_size : 0;
        if (p_size + 1 >= m_bySize.size() || longer > p_search.m_most || shorter > p_search.m_most)
            return;
        for (std::size_t i = m_bySize[p_size]; i < m_bySize[p_size + 1]; ++i)
        {
            const Entry& entry = m_entries[i];
            // Any other edit takes one letter away and brings one in, at most.
            if (hasMoreThan(p_search.m_most - longer, p_search.m_letters & ~entry.letters) ||
                hasMoreThan(p_search.m_most - shorter, entry.letters & ~p_search.m_letters))
                continue;
            const std::size_t distance = p_search.edits(m_names[entry.place], p_search.m_most);
            const bool isFirst =
                p_search.m_nearest.empty() || (place != m_names.size() && entry.place < place);
            if (distance > p_search.m_most || (distance == p_search.m_most && !isFirst))
                continue;
            p_search.take(m_names[entry.place], distance);
            place = entry.place;
        }
    };

    // The likeliest first: what is found makes the rest shorter.
    compareSize(p_search.m_size);
    for (std::size_t difference = 1; difference <= p_search.m_most; ++difference)
    {
        compareSize(p_search.m_size + difference);
        compareSize(p_search.m_size - difference);
    }
}

std::string nearestName(std::string_view p_misspelt, const std::vector<std::string>& p_known)
{
    NameSearch search(p_misspelt);
    for (const std::string& known : p_known)
        search.compare(known);
    return std::string(search.nearest());
}

}    // namespace qen::standalone
