#pragma once

#include "UnitDimensions.h"
#include "units/ExactRatio.h"
#include "units/UnitsText.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// What one unit is in base units: v of it are (v + zero) * numerator / denominator.
struct ResolvedUnit {
    alignas(16) std::array<double, UnitDimensions::k_count> dims {};
    double numerator = 1.0;
    double denominator = 1.0;
    Ratio zero {0.0, 1.0};    ///< other than 0 for a temperature scale that does not begin at absolute zero
};

/// Finds a unit by its name, with or without prefix. Every name with a prefix is an entry of its own, so that a look-up
/// is one step. Names of up to eight bytes are compared as one number.
class UnitTable {
public:
    struct Entry {
        std::uint64_t key = 0;    ///< 0: free
        double numerator = 1.0;
        double denominator = 1.0;
        std::uint32_t unit = 0;    ///< index into the resolved units
        std::uint32_t longName =
            0;    ///< where the name stands in m_longNames, counted from 1; 0 for a short name
    };

    static constexpr std::uint32_t k_noUnit =
        0xFFFFFFFF;    ///< the unit of a name whose definition is broken

    /// Empties the table and makes it wide enough for so many names.
    void reset(std::size_t p_names);

    /// Adds a name, or hands back the entry that has it already.
    Entry& insert(std::string_view p_name, bool& p_isNew);

    /// The entry of a name; null when there is none.
    const Entry* find(std::string_view p_name) const
    {
        if (m_entries.empty())
            return nullptr;
        const std::uint64_t key = keyOf(p_name);
        for (std::size_t at = slotOf(key);; at = (at + 1) & m_mask)
        {
            const Entry& entry = m_entries[at];
            if (entry.key == key && (p_name.size() <= k_shortName || hasLongName(entry, p_name)))
                return &entry;
            if (entry.key == 0)
                return nullptr;
        }
    }

    std::vector<Entry>& entries() { return m_entries; }

private:
    static constexpr std::size_t k_shortName = 8;

    /// The bytes of a short name, which hold no zero. A long name has a zero as its first byte and its hash behind.
    static std::uint64_t keyOf(std::string_view p_name)
    {
        std::uint64_t key = 0;
        if (p_name.size() <= k_shortName)
        {
            for (const char c : p_name)
                key = key << 8 | static_cast<unsigned char>(c);
            return key << (k_shortName - p_name.size()) * 8;
        }
        for (const char c : p_name)
            key = (key ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
        return key >> 8 | 1U;
    }

    std::size_t slotOf(std::uint64_t p_key) const
    {
        return static_cast<std::size_t>((p_key * 0x9E3779B97F4A7C15U) >> m_shift);
    }

    bool hasLongName(const Entry& p_entry, std::string_view p_name) const
    {
        return p_entry.longName != 0 && m_longNames[p_entry.longName - 1] == p_name;
    }

    std::vector<Entry> m_entries;    ///< a power of two of them, at most half in use
    std::size_t m_mask = 0;
    int m_shift = 63;
    std::vector<std::string> m_longNames;
};

/// What a units text multiplies to, while it is read.
struct UnitProduct {
    alignas(16) std::array<double, UnitDimensions::k_count> dims {};
    double numerator = 1.0;
    double denominator = 1.0;
    const ResolvedUnit* first = nullptr;
    bool standsAlone = false;    ///< one factor with exponent 1: a unit as it is

    /// Where a scale that stands alone has its zero; 0 for all else, as a scale in a product measures differences.
    bool hasZero() const { return standsAlone && first->zero.numerator != 0.0; }

    Ratio zero() const { return standsAlone ? first->zero : Ratio {0.0, 1.0}; }

    void multiply(double p_numerator, double p_denominator, const ResolvedUnit& p_unit, double p_exponent)
    {
        for (std::size_t i = 0; i < dims.size(); ++i)
            dims[i] += p_exponent * p_unit.dims[i];
        standsAlone = !first && p_exponent == 1.0;
        first = first ? first : &p_unit;

        if (p_exponent == 1.0)
        {
            numerator *= p_numerator;
            denominator *= p_denominator;
        }
        else if (p_exponent == -1.0)
        {
            numerator *= p_denominator;
            denominator *= p_numerator;
        }
        else if (p_numerator != p_denominator)
            multiplyPower(p_numerator, p_denominator, p_exponent);
    }

    /// Whether factor and exponents lie within what is admitted.
    UnitsFault fault() const
    {
        bool isTooLarge = false;
        for (const double exponent : dims)
            isTooLarge |= std::abs(exponent) > k_maxExponent;
        if (isTooLarge)
            return UnitsFault::DimensionTooLarge;

        const double factor = numerator / denominator;
        if (!(factor >= DBL_MIN && factor <= DBL_MAX))    // false for a NaN as well
            return UnitsFault::FactorOutOfRange;
        return UnitsFault::None;
    }

private:
    void multiplyPower(double p_numerator, double p_denominator, double p_exponent);
};

}    // namespace qen::standalone
