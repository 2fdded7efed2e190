#include "units/UnitDefinitions.h"

#include "units/UnitsText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

namespace qen::standalone {
namespace {

struct Key {
    std::string_view name;
    bool isRequired;
};

constexpr std::array k_baseUnitKeys {Key {"Dimension", true}, Key {"Prefixes", false}};
constexpr std::array k_unitKeys {Key {"Definition", true}, Key {"Factor", false}, Key {"Offset", false},
                                 Key {"Prefixes", false}};
constexpr std::array k_prefixKeys {Key {"Factor", true}};
constexpr std::array k_quantityKeys {Key {"Units", true}};

constexpr std::array<std::string_view, UnitDimensions::k_count> k_dimensionNames {"Mass",
                                                                                  "Length",
                                                                                  "Time",
                                                                                  "Temperature",
                                                                                  "Angle",
                                                                                  "Amount of Substance",
                                                                                  "Electric Current",
                                                                                  "Luminous Intensity",
                                                                                  "Solid Angle",
                                                                                  "Information"};

/// "'Mass', 'Length' or 'Time'"
template <class Range, class Name>
std::string oneOf(const Range& p_items, Name&& p_name)
{
    std::string text;
    for (std::size_t i = 0; i < p_items.size(); ++i)
    {
        if (i != 0)
            text += i + 1 == p_items.size() ? " or " : ", ";
        text += fmt::format("'{}'", p_name(p_items[i]));
    }
    return text;
}

std::uint32_t lengthOf(std::size_t p_bytes)
{
    return static_cast<std::uint32_t>(std::min<std::size_t>(p_bytes, 0xFFFFFFFFU));
}

}

Diagnostic problemIn(const QclObject& p_object, std::string p_identifier, std::string p_message)
{
    return {Severity::Error, std::move(p_identifier), std::move(p_message), p_object.place,
            lengthOf(p_object.path.size())};
}

Diagnostic problemInName(const QclParameter& p_parameter, std::string p_identifier, std::string p_message)
{
    return {Severity::Error, std::move(p_identifier), std::move(p_message), p_parameter.place(),
            lengthOf(p_parameter.name().size())};
}

Diagnostic problemInValue(const QclParameter& p_parameter, std::size_t p_offset, std::size_t p_length,
                          std::string p_identifier, std::string p_message)
{
    // What is pointed at ends where the value goes on in another line.
    for (const QclParameter::Piece& piece : p_parameter.pieces())
    {
        if (piece.offset > p_offset)
        {
            p_length = std::min(p_length, piece.offset - p_offset);
            break;
        }
    }
    return {Severity::Error, std::move(p_identifier), std::move(p_message),
            p_parameter.placeInValue(p_offset), lengthOf(p_length)};
}

/// Reads one section after the other into the definitions.
class UnitDefinitions::SectionReader {
public:
    SectionReader(UnitDefinitions& p_definitions, Diagnostics& p_problems)
        : m_definitions(p_definitions), m_problems(p_problems)
    {}

    void read(const QclObject& p_object)
    {
        m_object = &p_object;
        m_isGood = true;

        const std::string_view path = p_object.path;
        const std::size_t colon = path.find(':');
        const std::string_view type = path.substr(0, colon);
        const std::string_view name = colon == std::string_view::npos ? "" : path.substr(colon + 1);
        const bool isOneLevel = path.find('/', 1) == std::string_view::npos;
        if (isOneLevel && type == "/BASE UNIT")
            readBaseUnit(name);
        else if (isOneLevel && type == "/UNIT")
            readUnit(name);
        else if (isOneLevel && type == "/PREFIX")
            readPrefix(name);
        else if (isOneLevel && type == "/QUANTITY")
            readQuantity(name);
        else
            problem(
                problemIn(p_object, "unknown-section",
                          fmt::format("{} is not a section of unit definitions; expected '/BASE UNIT:name', "
                                      "'/UNIT:name', '/PREFIX:name' or '/QUANTITY:name'",
                                      quoted(path))));
    }

private:
    void problem(Diagnostic p_problem)
    {
        m_isGood = false;
        m_problems.push_back(std::move(p_problem));
    }

    void checkKeys(std::span<const Key> p_keys)
    {
        for (const QclParameter& parameter : m_object->parameters)
        {
            if (std::ranges::find(p_keys, std::string_view(parameter.name()), &Key::name) == p_keys.end())
                problem(
                    problemInName(parameter, "unknown-key",
                                  fmt::format("{} is not a key of {}; expected {}", quoted(parameter.name()),
                                              quoted(m_object->path),
                                              oneOf(p_keys, [](const Key& p_key) { return p_key.name; }))));
        }
        for (const Key& key : p_keys)
        {
            if (key.isRequired && !parameter(key.name))
                problem(problemIn(*m_object, "missing-key",
                                  fmt::format("{} has no '{}'", quoted(m_object->path), key.name)));
        }
    }

    const QclParameter* parameter(std::string_view p_name) const { return m_object->find(p_name); }

    void badValue(const QclParameter& p_parameter, const std::string& p_expected)
    {
        problem(problemInValue(p_parameter, 0, p_parameter.value().size(), "bad-value",
                               fmt::format("{} is not a value of '{}'; expected {}",
                                           quoted(p_parameter.value()), p_parameter.name(), p_expected)));
    }

    void checkName(std::string_view p_name, std::size_t p_limit)
    {
        if (!isUnitName(p_name))
            problem(problemIn(
                *m_object, "bad-name",
                fmt::format("{} cannot name a unit or prefix; expected a letter, '_' or '%', then letters, "
                            "digits, '_' or '%'",
                            quoted(p_name))));
        else if (p_name.size() > p_limit)
            problem(problemIn(*m_object, "bad-name",
                              fmt::format("the name {} has {} bytes; at most {} are admitted", quoted(p_name),
                                          p_name.size(), p_limit)));
    }

    bool flag(std::string_view p_key)
    {
        const QclParameter* found = parameter(p_key);
        if (!found || found->value() == "No")
            return false;
        if (found->value() != "Yes")
            badValue(*found, "'Yes' or 'No'");
        return true;
    }

    Ratio factor()
    {
        const QclParameter* found = parameter("Factor");
        if (!found)
            return {};
        const std::optional<Ratio> ratio = readRatio(found->value());
        if (ratio && ratio->value() > 0.0 && ratio->value() <= 1e300 && ratio->value() >= 1e-300)
            return *ratio;
        badValue(*found, "a number above zero, or a fraction such as '5/9'");
        return {};
    }

    Ratio offset()
    {
        const QclParameter* found = parameter("Offset");
        if (!found)
            return {0.0, 1.0};
        if (const std::optional<Ratio> ratio = readRatio(found->value()))
            return *ratio;
        badValue(*found, "a number, such as '273.15'");
        return {0.0, 1.0};
    }

    void readBaseUnit(std::string_view p_name)
    {
        checkName(p_name, k_maxUnitName);
        checkKeys(k_baseUnitKeys);
        UnitDefinition unit;
        unit.isBase = true;
        unit.takesPrefixes = flag("Prefixes");
        if (const QclParameter* found = parameter("Dimension"))
        {
            const auto dimension = std::ranges::find(k_dimensionNames, std::string_view(found->value()));
            unit.dimension = static_cast<std::size_t>(dimension - k_dimensionNames.begin());
            if (dimension == k_dimensionNames.end())
                badValue(*found, oneOf(k_dimensionNames, [](std::string_view p_text) { return p_text; }));
        }
        for (const UnitDefinition& other : m_definitions.units)
        {
            if (m_isGood && other.isBase && !other.isBroken && other.dimension == unit.dimension &&
                other.name != p_name)
                problem(problemIn(*m_object, "duplicate-base-unit",
                                  fmt::format("the base unit of '{}' is '{}' already; define '{}' as a /UNIT",
                                              k_dimensionNames[unit.dimension], other.name, p_name)));
        }
        add(std::move(unit), p_name);
    }

    void readUnit(std::string_view p_name)
    {
        checkName(p_name, k_maxUnitName);
        checkKeys(k_unitKeys);
        UnitDefinition unit;
        unit.factor = factor();
        unit.offset = offset();
        unit.takesPrefixes = flag("Prefixes");
        if (const QclParameter* found = parameter("Definition"))
            unit.text = found->value();
        add(std::move(unit), p_name);
    }

    void add(UnitDefinition p_unit, std::string_view p_name)
    {
        p_unit.isBroken = !m_isGood;
        if (!isUnitName(p_name) || p_name.size() > k_maxUnitName)
            return;
        const auto known = m_definitions.m_unitIndex.find(p_name);
        if (known != m_definitions.m_unitIndex.end())
        {
            const UnitDefinition& before = m_definitions.units[known->second];
            const bool staysAsItIs = before.isBase == p_unit.isBase && before.dimension == p_unit.dimension;
            if (before.isBase && !before.isBroken && m_isGood && !staysAsItIs)
            {
                problem(problemIn(*m_object, "duplicate-base-unit",
                                  fmt::format("'{}' is the base unit of '{}' and cannot be defined anew",
                                              p_name, k_dimensionNames[before.dimension])));
                return;
            }
        }
        else if (m_definitions.units.size() == k_maxUnits)
        {
            problem(problemIn(*m_object, "too-many-units",
                              fmt::format("more than {} units are defined", k_maxUnits)));
            return;
        }
        store(m_definitions.units, m_definitions.m_unitIndex, std::move(p_unit), p_name);
    }

    void readPrefix(std::string_view p_name)
    {
        checkName(p_name, k_maxPrefixName);
        checkKeys(k_prefixKeys);
        PrefixDefinition prefix;
        prefix.factor = factor();
        if (!m_isGood)
            return;
        if (m_definitions.prefixes.size() == k_maxPrefixes && !m_definitions.m_prefixIndex.contains(p_name))
        {
            problem(problemIn(*m_object, "too-many-prefixes",
                              fmt::format("more than {} prefixes are defined", k_maxPrefixes)));
            return;
        }
        store(m_definitions.prefixes, m_definitions.m_prefixIndex, std::move(prefix), p_name);
    }

    void readQuantity(std::string_view p_name)
    {
        if (p_name.empty())
            problem(problemIn(*m_object, "bad-name", "a quantity has no name; expected '/QUANTITY:name'"));
        checkKeys(k_quantityKeys);
        if (!m_isGood)
            return;
        QuantityDefinition quantity;
        quantity.text = parameter("Units")->value();
        store(m_definitions.quantities, m_definitions.m_quantityIndex, std::move(quantity), p_name);
    }

    template <class Item>
    void store(std::vector<Item>& p_items, Index& p_index, Item p_item, std::string_view p_name)
    {
        p_item.name = std::string(p_name);
        p_item.object = m_object;
        const auto [at, isNew] = p_index.try_emplace(p_item.name, p_items.size());
        if (isNew)
            p_items.push_back(std::move(p_item));
        else
            p_items[at->second] = std::move(p_item);
    }

    UnitDefinitions& m_definitions;
    Diagnostics& m_problems;
    const QclObject* m_object = nullptr;
    bool m_isGood = true;
};

void UnitDefinitions::read(const QclDocument& p_document, Diagnostics& p_problems)
{
    SectionReader reader(*this, p_problems);
    for (const QclObject& object : p_document.objects)
        reader.read(object);
}

void UnitDefinitions::forgetDocument()
{
    for (PrefixDefinition& prefix : prefixes)
        prefix.object = nullptr;
    for (UnitDefinition& unit : units)
        unit.object = nullptr;
    for (QuantityDefinition& quantity : quantities)
        quantity.object = nullptr;
}

}    // namespace qen::standalone
