#include "units/UnitResolver.h"

#include "units/UnitsText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qen::standalone {
namespace {

constexpr std::size_t k_shownLinks = 8;    // of a cycle

/// One factor of a definition, looked up.
struct Link {
    std::uint32_t unit = 0;
    Ratio prefix;
    double exponent = 1.0;
    std::size_t offset = 0;    // in the definition's text
    std::size_t length = 0;
};

enum class State { Untouched, Open, Done, Broken };

struct Work {
    State state = State::Untouched;
    std::vector<Link> links;
    std::size_t nextLink = 0;
};

class Resolver {
public:
    Resolver(const UnitDefinitions& p_definitions, std::vector<ResolvedUnit>& p_units, UnitTable& p_table,
             Diagnostics& p_problems)
        : m_definitions(p_definitions), m_units(p_units), m_table(p_table), m_problems(p_problems),
          m_work(p_definitions.units.size())
    {}

    void run()
    {
        m_units.assign(m_definitions.units.size(), ResolvedUnit {});
        fillTable();
        for (std::size_t unit = 0; unit < m_work.size(); ++unit)
            link(unit);
        for (std::size_t unit = 0; unit < m_work.size(); ++unit)
            resolve(unit);
        finishTable();
    }

private:
    const UnitDefinition& definition(std::size_t p_unit) const { return m_definitions.units[p_unit]; }

    void breakUnit(std::size_t p_unit) { m_work[p_unit].state = State::Broken; }

    /// Enters every name with its prefix as the factor. A unit's own name goes before one made with a prefix.
    void fillTable()
    {
        const auto withPrefixes = std::ranges::count_if(m_definitions.units, &UnitDefinition::takesPrefixes);
        m_table.reset(m_definitions.units.size() +
                      static_cast<std::size_t>(withPrefixes) * m_definitions.prefixes.size());
        bool isNew = false;
        for (std::size_t unit = 0; unit < m_definitions.units.size(); ++unit)
            m_table.insert(definition(unit).name, isNew).unit = static_cast<std::uint32_t>(unit);

        std::string name;
        for (std::size_t unit = 0; unit < m_definitions.units.size(); ++unit)
        {
            if (!definition(unit).takesPrefixes)
                continue;
            for (const PrefixDefinition& prefix : m_definitions.prefixes)
            {
                name = prefix.name;
                name += definition(unit).name;
                UnitTable::Entry& entry = m_table.insert(name, isNew);
                if (isNew)
                {
                    entry.unit = static_cast<std::uint32_t>(unit);
                    entry.numerator = prefix.factor.numerator;
                    entry.denominator = prefix.factor.denominator;
                }
                else if (definition(entry.unit).name != name)
                    reportAmbiguity(name, definition(unit), definition(entry.unit), prefix);
            }
        }
    }

    void reportAmbiguity(const std::string& p_name, const UnitDefinition& p_unit,
                         const UnitDefinition& p_other, const PrefixDefinition& p_prefix)
    {
        const Definition* fresh = nullptr;
        for (const Definition* candidate :
             {static_cast<const Definition*>(&p_unit), static_cast<const Definition*>(&p_prefix),
              static_cast<const Definition*>(&p_other)})
        {
            if (!fresh && candidate->isFresh())
                fresh = candidate;
        }
        if (!fresh)
            return;    // reported when the later of them was read
        m_problems.push_back(
            problemIn(*fresh->object, "ambiguous-unit",
                      fmt::format("'{}' can be read with a prefix before '{}' and before '{}'; define "
                                  "it as a /UNIT of its own",
                                  p_name, p_unit.name, p_other.name)));
    }

    /// Looks up the names in a definition.
    void link(std::size_t p_unit)
    {
        const UnitDefinition& unit = definition(p_unit);
        if (unit.isBroken)
        {
            breakUnit(p_unit);
            return;
        }
        if (unit.isBase)
            return;

        const UnitsTextFault fault = scanUnits(unit.text, [&](const UnitsFactor& p_factor) {
            const UnitTable::Entry* entry = m_table.find(p_factor.name);
            if (entry)
                m_work[p_unit].links.push_back({entry->unit,
                                                {entry->numerator, entry->denominator},
                                                p_factor.exponent,
                                                p_factor.offset,
                                                p_factor.name.size()});
            return entry != nullptr;
        });
        if (fault)
            reportText(p_unit, fault);
    }

    void reportText(std::size_t p_unit, const UnitsTextFault& p_fault)
    {
        report(p_unit, p_fault.fault == UnitsFault::UnknownUnit ? "unknown-unit" : "bad-units",
               p_fault.offset, p_fault.length,
               fmt::format("definition {} of unit '{}' is not understood: {}",
                           quoted(definition(p_unit).text), definition(p_unit).name,
                           describe(p_fault, definition(p_unit).text)));
    }

    void report(std::size_t p_unit, std::string p_identifier, std::size_t p_offset, std::size_t p_length,
                std::string p_message)
    {
        breakUnit(p_unit);
        if (!definition(p_unit).isFresh())
            return;
        if (const QclParameter* text = definition(p_unit).object->find("Definition"))
            m_problems.push_back(
                problemInValue(*text, p_offset, p_length, std::move(p_identifier), std::move(p_message)));
    }

    /// Works out a unit after those that it is made of, however long the chain.
    void resolve(std::size_t p_first)
    {
        if (m_work[p_first].state != State::Untouched)
            return;
        std::vector<std::size_t> open {p_first};
        m_work[p_first].state = State::Open;
        while (!open.empty())
        {
            const std::size_t unit = open.back();
            Work& work = m_work[unit];
            if (work.state == State::Broken || work.nextLink == work.links.size())
            {
                if (work.state != State::Broken)
                    multiplyOut(unit);
                open.pop_back();
                continue;
            }
            const std::size_t next = work.links[work.nextLink].unit;
            switch (m_work[next].state)
            {
            case State::Untouched:
                m_work[next].state = State::Open;
                open.push_back(next);
                break;
            case State::Open:
                reportCycle(open, next);
                break;
            case State::Done:
                ++work.nextLink;
                break;
            case State::Broken:
                breakUnit(unit);
                break;
            }
        }
    }

    void reportCycle(const std::vector<std::size_t>& p_open, std::size_t p_begin)
    {
        const auto begin = std::ranges::find(p_open, p_begin);
        std::string chain;
        std::size_t shown = 0;
        for (auto at = begin; at != p_open.end() && shown < k_shownLinks; ++at, ++shown)
            chain += definition(*at).name + " -> ";
        chain += p_open.end() - begin > static_cast<std::ptrdiff_t>(k_shownLinks) ? "..."
                                                                                  : definition(p_begin).name;

        // A document closes a cycle with a definition of its own; it is the one to report.
        auto culprit = p_open.end() - 1;
        while (culprit != begin && !definition(*culprit).isFresh())
            --culprit;
        const Work& work = m_work[*culprit];
        const Link& link = work.links[work.nextLink];
        report(*culprit, "cyclic-unit", link.offset, link.length,
               fmt::format("unit '{}' is defined by itself: {}", definition(*culprit).name, chain));
        breakUnit(p_open.back());
    }

    void multiplyOut(std::size_t p_unit)
    {
        const UnitDefinition& unit = definition(p_unit);
        ResolvedUnit& resolved = m_units[p_unit];
        m_work[p_unit].state = State::Done;
        if (unit.isBase)
        {
            resolved.dims[unit.dimension] = 1.0;
            return;
        }

        UnitProduct product;
        for (const Link& link : m_work[p_unit].links)
        {
            const ResolvedUnit& part = m_units[link.unit];
            const Ratio factor =
                reduced({link.prefix.numerator * part.numerator, link.prefix.denominator * part.denominator});
            product.multiply(factor.numerator, factor.denominator, part, link.exponent);
        }
        const Ratio factor = reduced(
            {product.numerator * unit.factor.numerator, product.denominator * unit.factor.denominator});
        product.numerator = factor.numerator;
        product.denominator = factor.denominator;
        if (const UnitsFault fault = product.fault(); fault != UnitsFault::None)
        {
            reportText(p_unit, {fault, 0, unit.text.size()});
            return;
        }

        resolved.dims = product.dims;
        resolved.numerator = product.numerator;
        resolved.denominator = product.denominator;
        resolved.zero = quotient(sum(unit.offset, product.zero()), unit.factor);
        if (resolved.zero.numerator != 0.0 && unit.takesPrefixes)
            report(p_unit, "bad-value", 0, unit.text.size(),
                   fmt::format("unit '{}' is a scale with a zero of its own and cannot take prefixes",
                               unit.name));
    }

    /// Turns the prefixes in the table into whole factors and takes out what is broken.
    void finishTable()
    {
        for (UnitTable::Entry& entry : m_table.entries())
        {
            if (entry.key == 0)
                continue;
            if (m_work[entry.unit].state != State::Done)
            {
                entry.unit = UnitTable::k_noUnit;
                continue;
            }
            const ResolvedUnit& unit = m_units[entry.unit];
            const Ratio factor =
                reduced({entry.numerator * unit.numerator, entry.denominator * unit.denominator});
            entry.numerator = factor.numerator;
            entry.denominator = factor.denominator;
        }
    }

    const UnitDefinitions& m_definitions;
    std::vector<ResolvedUnit>& m_units;
    UnitTable& m_table;
    Diagnostics& m_problems;
    std::vector<Work> m_work;
};

}

void resolveUnits(const UnitDefinitions& p_definitions, std::vector<ResolvedUnit>& p_units,
                  UnitTable& p_table, Diagnostics& p_problems)
{
    Resolver(p_definitions, p_units, p_table, p_problems).run();
}

}    // namespace qen::standalone
