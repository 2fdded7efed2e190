#include "text/NearestName.h"

#include "StringUtilities.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>

namespace qen::standalone {
namespace {

constexpr std::size_t k_longestName = 128;    // bytes; what is longer is not compared

/// The number of insertions, deletions, replacements and swaps of neighbours that make one text of the other.
std::size_t editDistance(std::string_view p_a, std::string_view p_b)
{
    std::vector<std::size_t> beforeLast(p_b.size() + 1);
    std::vector<std::size_t> last(p_b.size() + 1);
    std::vector<std::size_t> current(p_b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t {0});

    for (std::size_t i = 1; i <= p_a.size(); ++i)
    {
        current[0] = i;
        for (std::size_t j = 1; j <= p_b.size(); ++j)
        {
            const std::size_t replaced = last[j - 1] + (p_a[i - 1] == p_b[j - 1] ? 0 : 1);
            current[j] = std::min({last[j] + 1, current[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && p_a[i - 1] == p_b[j - 2] && p_a[i - 2] == p_b[j - 1])
                current[j] = std::min(current[j], beforeLast[j - 2] + 1);
        }
        beforeLast.swap(last);
        last.swap(current);
    }
    return last.back();
}

/// Which letters a text holds, as far as 32 bits tell. An edit changes two of them at most.
std::uint32_t lettersOf(std::string_view p_text)
{
    std::uint32_t letters = 0;
    for (const char c : p_text)
        letters |= std::uint32_t {1} << (static_cast<unsigned char>(c) % 32U);    // the same in both cases
    return letters;
}

}    // namespace

std::string nearestName(std::string_view p_name, const std::vector<std::string>& p_known)
{
    if (p_name.size() > k_longestName)
        return {};

    const std::string lower = StringUtilities::toLowerCase(std::string(p_name));
    // A third of the letters may be wrong, but not all.
    std::size_t closest = std::min(std::max<std::size_t>(1, p_name.size() / 3) + 1, p_name.size());
    const std::uint32_t letters = lettersOf(p_name);
    std::string result;
    for (const std::string& known : p_known)
    {
        const std::size_t difference =
            known.size() > p_name.size() ? known.size() - p_name.size() : p_name.size() - known.size();
        if (known.size() > k_longestName || difference >= closest ||
            static_cast<std::size_t>(std::popcount(letters ^ lettersOf(known))) > 2 * (closest - 1))
            continue;
        const std::size_t distance = editDistance(lower, StringUtilities::toLowerCase(known));
        if (distance < closest)
        {
            closest = distance;
            result = known;
        }
    }
    return result;
}

}    // namespace qen::standalone
