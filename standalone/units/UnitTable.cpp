#include "units/UnitTable.h"

#include <cmath>

namespace qen::standalone {
namespace {

double wholePower(double p_base, int p_exponent)
{
    double power = 1.0;
    for (; p_exponent > 0; p_exponent >>= 1)
    {
        if ((p_exponent & 1) != 0)
            power *= p_base;
        p_base *= p_base;
    }
    return power;
}

}

void UnitTable::reset(std::size_t p_names)
{
    int bits = 4;
    while ((std::size_t {1} << bits) < 2 * p_names)
        ++bits;
    m_entries.assign(std::size_t {1} << bits, Entry {});
    m_mask = m_entries.size() - 1;
    m_shift = 64 - bits;
    m_longNames.clear();
}

UnitTable::Entry& UnitTable::insert(std::string_view p_name, bool& p_isNew)
{
    const std::uint64_t key = keyOf(p_name);
    for (std::size_t at = slotOf(key);; at = (at + 1) & m_mask)
    {
        Entry& entry = m_entries[at];
        p_isNew = entry.key == 0;
        if (p_isNew)
        {
            entry.key = key;
            if (p_name.size() > k_shortName)
            {
                m_longNames.emplace_back(p_name);
                entry.longName = static_cast<std::uint32_t>(m_longNames.size());
            }
            return entry;
        }
        if (entry.key == key && (p_name.size() <= k_shortName || hasLongName(entry, p_name)))
            return entry;
    }
}

void UnitProduct::multiplyPower(double p_numerator, double p_denominator, double p_exponent)
{
    const double above = p_exponent < 0.0 ? p_denominator : p_numerator;
    const double below = p_exponent < 0.0 ? p_numerator : p_denominator;
    const double size = std::abs(p_exponent);
    const int whole = static_cast<int>(size);
    if (static_cast<double>(whole) == size)
    {
        numerator *= wholePower(above, whole);
        denominator *= wholePower(below, whole);
    }
    else
        numerator *= std::pow(above / below, size);
}

}    // namespace qen::standalone
