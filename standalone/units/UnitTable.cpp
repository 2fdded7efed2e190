#include "units/UnitTable.h"

#include <cfloat>
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

void UnitProduct::multiply(double p_numerator, double p_denominator, const ResolvedUnit& p_unit,
                           double p_exponent)
{
    for (std::size_t i = 0; i < dims.size(); ++i)
        dims[i] += p_exponent * p_unit.dims[i];
    standsAlone = !first && p_exponent == 1.0;
    first = first ? first : &p_unit;

    if (p_exponent == 1.0)
    {
        numerator *= p_numerator;
        denominator *= p_denominator;
        return;
    }
    if (p_exponent == -1.0)
    {
        numerator *= p_denominator;
        denominator *= p_numerator;
        return;
    }
    if (p_numerator == p_denominator)
        return;

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

UnitsFault UnitProduct::fault() const
{
    double largest = 0.0;
    for (const double exponent : dims)
        largest = std::abs(exponent) > largest ? std::abs(exponent) : largest;
    if (largest > k_maxExponent)
        return UnitsFault::DimensionTooLarge;

    const double factor = numerator / denominator;
    if (!(factor >= DBL_MIN && factor <= DBL_MAX))    // false for a NaN as well
        return UnitsFault::FactorOutOfRange;
    return UnitsFault::None;
}

}    // namespace qen::standalone
