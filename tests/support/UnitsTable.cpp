#include "support/UnitsTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>

namespace qen::support {

namespace {

constexpr const char* k_blanks = " \t";

constexpr std::array<const char*, UnitDimensions::k_count> k_baseUnits {"kg",  "m", "s",  "K",  "rad",
                                                                        "mol", "A", "cd", "sr", "bit"};

UnitsMeaning meaning(double p_factor, float p_mass, float p_length, float p_time)
{
    UnitsMeaning result;
    result.factor = p_factor;
    result.dims[0] = p_mass;
    result.dims[1] = p_length;
    result.dims[2] = p_time;
    return result;
}

/// One factor of a product, such as "s^-2".
struct Power {
    std::string name;
    double exponent = 1.0;
};

/// Reads the factor at a place of the text and goes on behind it.
std::optional<Power> readPower(const std::string& p_text, std::size_t& p_at)
{
    const std::size_t nameEnd = std::min(p_text.find_first_of(" \t^", p_at), p_text.size());
    Power power;
    power.name = p_text.substr(p_at, nameEnd - p_at);
    p_at = nameEnd;
    if (p_at == p_text.size() || p_text[p_at] != '^')
        return power;

    const char* const start = p_text.c_str() + p_at + 1;
    char* end = nullptr;
    power.exponent = std::strtod(start, &end);
    if (end == start)
        return std::nullopt;
    p_at += 1 + static_cast<std::size_t>(end - start);
    return power;
}

std::string exponentText(float p_exponent)
{
    if (p_exponent == 1.0F)
        return "";
    std::array<char, 32> text {};
    std::snprintf(text.data(), text.size(), "^%g", static_cast<double>(p_exponent));
    return text.data();
}

}    // namespace

UnitsTable::UnitsTable()
{
    for (std::size_t i = 0; i < k_baseUnits.size(); ++i)
    {
        UnitsMeaning base;
        base.dims[i] = 1.0F;
        m_units[k_baseUnits[i]] = base;
    }
    UnitsMeaning degree = m_units["rad"];
    degree.factor = std::numbers::pi / 180.0;
    m_units["degree"] = degree;

    m_units["mm"] = meaning(1e-3, 0, 1, 0);
    m_units["cm"] = meaning(1e-2, 0, 1, 0);
    m_units["km"] = meaning(1e3, 0, 1, 0);
    m_units["g"] = meaning(1e-3, 1, 0, 0);
    m_units["min"] = meaning(60.0, 0, 0, 1);
    m_units["N"] = meaning(1.0, 1, 1, -2);
    m_units["Pa"] = meaning(1.0, 1, -1, -2);
    m_units["kPa"] = meaning(1e3, 1, -1, -2);
    m_units["bar"] = meaning(1e5, 1, -1, -2);
    m_units["J"] = meaning(1.0, 1, 2, -2);
    m_units["W"] = meaning(1.0, 1, 2, -3);
}

std::optional<UnitsMeaning> UnitsTable::meaningOf(const std::string& p_units) const
{
    UnitsMeaning product;
    std::size_t at = 0;
    while ((at = p_units.find_first_not_of(k_blanks, at)) != std::string::npos)
    {
        const std::optional<Power> power = readPower(p_units, at);
        if (!power)
            return std::nullopt;
        const auto unit = m_units.find(power->name);
        if (unit == m_units.end())
            return std::nullopt;

        product.factor *= std::pow(unit->second.factor, power->exponent);
        for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
            product.dims[i] +=
                static_cast<float>(power->exponent * static_cast<double>(unit->second.dims[i]));
    }
    return product;
}

std::string UnitsTable::baseUnits(const UnitDimensions& p_dims)
{
    std::string result;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
    {
        if (p_dims[i] == 0.0F)
            continue;
        if (!result.empty())
            result += ' ';
        result += k_baseUnits[i] + exponentText(p_dims[i]);
    }
    return result;
}

bool sameDimensions(const UnitDimensions& p_left, const UnitDimensions& p_right)
{
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        if (p_left[i] != p_right[i])
            return false;
    return true;
}

}    // namespace qen::support
