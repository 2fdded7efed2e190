#include "units/UnitSystem.h"

#include "units/UnitDefinitions.h"
#include "units/UnitResolver.h"
#include "units/UnitsText.h"
#include "units/UnitTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace qen::standalone {
namespace {

constexpr double k_exponentTolerance = 1e-6;    // two exponents this close are equal

/// The base units in canonical order, until a definition names them.
constexpr std::array<std::string_view, UnitDimensions::k_count> k_customaryNames {
    "kg", "m", "s", "K", "rad", "mol", "A", "cd", "sr", "byte"};

struct Quantity {
    UnitDimensions dims;
    std::string baseUnits;
};

UnitDimensions singlePrecision(const std::array<double, UnitDimensions::k_count>& p_exponents)
{
    UnitDimensions dims;
    for (std::size_t i = 0; i < p_exponents.size(); ++i)
        dims[i] = static_cast<float>(p_exponents[i]);
    return dims;
}

bool haveSameDimension(const UnitProduct& p_one, const UnitProduct& p_other)
{
    for (std::size_t i = 0; i < p_one.dims.size(); ++i)
    {
        if (std::abs(p_one.dims[i] - p_other.dims[i]) > k_exponentTolerance)
            return false;
    }
    return true;
}

}

struct UnitSystem::Impl {
    UnitDefinitions definitions;
    std::vector<ResolvedUnit> units;
    UnitTable table;
    std::array<std::string, UnitDimensions::k_count> baseNames;
    std::unordered_map<std::string, Quantity, NameHash, std::equal_to<>> quantities;

    Impl() { nameBaseUnits(); }

    UnitsTextFault product(std::string_view p_text, UnitProduct& p_product) const
    {
        const UnitsTextFault fault = scanUnits(p_text, [&](const UnitsFactor& p_factor) {
            const UnitTable::Entry* entry = table.find(p_factor.name);
            if (!entry || entry->unit == UnitTable::k_noUnit)
                return false;
            p_product.multiply(entry->numerator, entry->denominator, units[entry->unit], p_factor.exponent);
            return true;
        });
        if (fault)
            return fault;
        return {p_product.fault(), 0, p_text.size()};
    }

    void nameBaseUnits()
    {
        for (std::size_t i = 0; i < baseNames.size(); ++i)
            baseNames[i] = k_customaryNames[i];
        for (const UnitDefinition& unit : definitions.units)
        {
            if (unit.isBase && !unit.isBroken)
                baseNames[unit.dimension] = unit.name;
        }
    }

    /// The quantities of the document at hand; a quantity that is wrong stays as it was, if it was.
    void readQuantities(const UnitSystem& p_system, Diagnostics& p_problems)
    {
        for (const QuantityDefinition& definition : definitions.quantities)
        {
            if (!definition.isFresh())
                continue;
            UnitProduct meaning;
            const UnitsTextFault fault = product(definition.text, meaning);
            const QclParameter& text = *definition.object->find("Units");
            if (fault)
                p_problems.push_back(problemInValue(
                    text, fault.offset, fault.length,
                    fault.fault == UnitsFault::UnknownUnit ? "unknown-unit" : "bad-units",
                    fmt::format("units {} of quantity {} are not understood: {}", quoted(definition.text),
                                quoted(definition.name), describe(fault, definition.text))));
            else if (meaning.numerator != meaning.denominator || meaning.hasZero())
                p_problems.push_back(problemInValue(
                    text, 0, definition.text.size(), "bad-units",
                    fmt::format(
                        "units {} of quantity {} are not base units; expected units of size one, such as {}",
                        quoted(definition.text), quoted(definition.name),
                        quoted(p_system.baseUnits(singlePrecision(meaning.dims))))));
            else
                quantities[definition.name].dims = singlePrecision(meaning.dims);
        }
        for (auto& [name, quantity] : quantities)
            quantity.baseUnits = p_system.baseUnits(quantity.dims);
    }
};

UnitSystem::UnitSystem() : m_impl(std::make_unique<Impl>()) {}

UnitSystem::~UnitSystem() = default;
UnitSystem::UnitSystem(UnitSystem&&) noexcept = default;
UnitSystem& UnitSystem::operator=(UnitSystem&&) noexcept = default;

void UnitSystem::addDefinitions(const QclDocument& p_document, Diagnostics& p_problems)
{
    m_impl->definitions.read(p_document, p_problems);
    resolveUnits(m_impl->definitions, m_impl->units, m_impl->table, p_problems);
    m_impl->nameBaseUnits();
    m_impl->readQuantities(*this, p_problems);
    m_impl->definitions.forgetDocument();
}

std::optional<UnitValue> UnitSystem::parse(std::string_view p_units, std::string* p_error) const
{
    std::optional<UnitValue> result;
    UnitProduct product;
    if (const UnitsTextFault fault = m_impl->product(p_units, product))
    {
        if (p_error)
            *p_error = describe(fault, p_units);
        return result;
    }
    result.emplace();
    result->dims = singlePrecision(product.dims);
    result->factor = product.numerator / product.denominator;
    result->offset = product.zero().value() * result->factor;
    return result;
}

std::optional<double> UnitSystem::convert(std::string_view p_from, std::string_view p_to,
                                          double p_value) const
{
    UnitProduct from;
    UnitProduct to;
    if (m_impl->product(p_from, from) || m_impl->product(p_to, to) || !haveSameDimension(from, to))
        return std::nullopt;

    // One fraction for both units, so that what is made of whole numbers is rounded but once.
    Ratio scale {from.numerator * to.denominator, from.denominator * to.numerator};
    if (scale.numerator == scale.denominator || !std::isnormal(scale.numerator) ||
        !std::isnormal(scale.denominator))
        scale = {from.numerator / from.denominator / (to.numerator / to.denominator), 1.0};
    if (!from.hasZero() && !to.hasZero())
        return p_value * scale.numerator / scale.denominator;

    // Both zeros as one fraction, put together before they are rounded: 32 F is 0 C and not some 1e-14.
    const Ratio zero = to.zero();
    const Ratio shift =
        sum({from.zero().numerator * scale.numerator, from.zero().denominator * scale.denominator},
            {-zero.numerator, zero.denominator});
    return (p_value * scale.numerator * shift.denominator + shift.numerator * scale.denominator) /
           (scale.denominator * shift.denominator);
}

std::string UnitSystem::baseUnits(const UnitDimensions& p_dims) const
{
    constexpr std::size_t k_factorBytes = k_maxUnitName + 2 + k_maxExponentText;
    std::array<char, UnitDimensions::k_count * k_factorBytes> buffer;
    char* at = buffer.data();
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
    {
        const float exponent = p_dims[i];
        if (exponent == 0.0F)
            continue;
        if (at != buffer.data())
            *at++ = ' ';
        const std::string& name = m_impl->baseNames[i];
        at = std::copy(name.begin(), name.end(), at);
        if (exponent == 1.0F)
            continue;
        *at++ = '^';
        const int whole = std::abs(exponent) < 1000.0F ? static_cast<int>(exponent) : 0;
        char* const end = at + k_maxExponentText;
        at = static_cast<float>(whole) == exponent
                 ? std::to_chars(at, end, whole).ptr
                 : std::to_chars(at, end, exponent, std::chars_format::fixed).ptr;
    }
    return {buffer.data(), at};
}

const std::string* UnitSystem::quantityUnits(std::string_view p_quantity) const
{
    const auto found = m_impl->quantities.find(p_quantity);
    return found == m_impl->quantities.end() ? nullptr : &found->second.baseUnits;
}

std::vector<UnitEntry> UnitSystem::allUnits() const
{
    std::vector<UnitEntry> entries;
    for (const UnitDefinition& unit : m_impl->definitions.units)
    {
        const UnitTable::Entry* resolved = m_impl->table.find(unit.name);
        if (resolved && resolved->unit != UnitTable::k_noUnit)
            entries.push_back({unit.name, unit.isBase, unit.text, unit.factor.value(), unit.offset.value(),
                               unit.takesPrefixes});
    }
    return entries;
}

std::vector<PrefixEntry> UnitSystem::allPrefixes() const
{
    std::vector<PrefixEntry> entries;
    for (const PrefixDefinition& prefix : m_impl->definitions.prefixes)
        entries.push_back({prefix.name, prefix.factor.value()});
    return entries;
}

std::vector<std::string> UnitSystem::allQuantities() const
{
    std::vector<std::string> names;
    for (const QuantityDefinition& quantity : m_impl->definitions.quantities)
        if (m_impl->quantities.contains(quantity.name))
            names.push_back(quantity.name);
    return names;
}

}    // namespace qen::standalone
