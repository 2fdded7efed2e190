#include "PreVariableDefStore.h"

#include "DefinitionErrors.h"
#include "DefinitionTexts.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace qen {

namespace {

constexpr std::size_t k_fewestSlots = 64;
constexpr std::size_t k_mostValues = std::size_t {1} << 31;    // the slots count in 32 bits

std::size_t hashOf(std::string_view p_text) { return std::hash<std::string_view> {}(p_text); }

std::uint32_t hashPart(std::size_t p_hash) { return static_cast<std::uint32_t>(p_hash); }

}    // namespace

// The order is fixed: these are the values 0 to 6 of every store.
PreVariableDefStore::PreVariableDefStore()
    : m_scalarIdx(addValue(k_scalar)), m_vectorIdx(addValue(k_vector)), m_symten2Idx(addValue(k_symten2)),
      m_trueIdx(addValue(k_true)), m_falseIdx(addValue(k_false)), m_qelIdx(addValue(k_qel)),
      m_emptyIdx(addValue(""))
{}

/// The slot of a text; the free one in which it would go where the store does not have it.
std::size_t PreVariableDefStore::slotOf(std::string_view p_text, std::size_t p_hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t slot = p_hash & mask;; slot = (slot + 1) & mask)
    {
        const auto [hash, valuePlus1] = m_slots[slot];
        if (valuePlus1 == 0 || (hash == hashPart(p_hash) && m_values[valuePlus1 - 1].text == p_text))
            return slot;
    }
}

/// Has the processor fetch the slot of a text that is added soon, so that the fetches for several texts go on at the
/// same time: a new text's slot is hardly ever in its cache.
///
/// @return What addExpectedValue() takes.
std::uint64_t PreVariableDefStore::expectValue(std::string_view p_text) const
{
    const std::size_t hash = hashOf(p_text);
#ifdef __GNUC__
    if (!m_slots.empty())
        __builtin_prefetch(&m_slots[hash & (m_slots.size() - 1)]);
#endif
    return hash;
}

// Places by the parts of the hashes that the slots hold, so that no text is looked at.
void PreVariableDefStore::growSlots()
{
    std::vector<Slot> slots(std::max(k_fewestSlots, 2 * m_slots.size()));
    const std::size_t mask = slots.size() - 1;
    for (const Slot& taken : m_slots)
    {
        if (taken.valuePlus1 == 0)
            continue;
        std::size_t slot = taken.hash & mask;
        while (slots[slot].valuePlus1 != 0)
            slot = (slot + 1) & mask;
        slots[slot] = taken;
    }
    m_slots.swap(slots);
}

PreVariableDefStore::ValueIndex PreVariableDefStore::addValue(const std::string& p_text)
{
    return addExpectedValue(p_text, hashOf(p_text));
}

PreVariableDefStore::ValueIndex PreVariableDefStore::addExpectedValue(const std::string& p_text,
                                                                      std::uint64_t p_hash)
{
    if (2 * (m_values.size() + 1) > m_slots.size())
        growSlots();

    Slot& slot = m_slots[slotOf(p_text, p_hash)];
    if (slot.valuePlus1 == 0)
    {
        if (m_values.size() >= k_mostValues)
            throw std::length_error("PreVariableDefStore: too many different texts");
        m_values.emplace_back(p_text);
        slot = {hashPart(p_hash), static_cast<std::uint32_t>(m_values.size())};
    }
    return slot.valuePlus1 - 1;
}

std::optional<PreVariableDefStore::ValueIndex> PreVariableDefStore::findValue(std::string_view p_text) const
{
    if (m_slots.empty())    // what a move leaves behind
        return std::nullopt;
    const std::uint32_t valuePlus1 = m_slots[slotOf(p_text, hashOf(p_text))].valuePlus1;
    if (valuePlus1 == 0)
        return std::nullopt;
    return valuePlus1 - 1;
}

PreVariableDefStore::ValueSet PreVariableDefStore::addValues(const std::vector<std::string>& p_texts)
{
    ValueSet values;
    for (const std::string& text : p_texts)
        values.insert(addValue(text));
    return values;
}

const PreVariableDefStore::ValueList& PreVariableDefStore::SharedValueSet::noValues()
{
    static const ValueList k_none;
    return k_none;
}

PreVariableDefStore::ValueList PreVariableDefStore::addValuesVec(const std::vector<std::string>& p_texts)
{
    ValueList values;
    values.reserve(p_texts.size());
    for (const std::string& text : p_texts)
        values.push_back(expectValue(text));    // the hash, until the text is interned
    for (std::size_t i = 0; i < p_texts.size(); ++i)
        values[i] = addExpectedValue(p_texts[i], values[i]);
    return values;
}

const std::string& PreVariableDefStore::fieldValue(ValueIndex p_value) const
{
    return m_values[p_value].text;
}

std::vector<std::string> PreVariableDefStore::valsToStrVec(const ValueSet& p_values) const
{
    std::vector<std::string> texts;
    texts.reserve(p_values.size());
    for (const ValueIndex value : p_values)
        texts.push_back(fieldValue(value));
    return texts;
}

std::vector<std::string> PreVariableDefStore::valsToStrVec(const ValueList& p_values) const
{
    std::vector<std::string> texts;
    texts.reserve(p_values.size());
    for (const ValueIndex value : p_values)
        texts.push_back(fieldValue(value));
    return texts;
}

const std::string& PreVariableDefStore::shortName(std::size_t p_record) const
{
    return fieldValue(m_records[p_record].shortName);
}

/// The record that a name addresses, be it there yet or not; k_noRecord for none.
std::size_t PreVariableDefStore::recordNamed(std::string_view p_name) const
{
    const std::optional<ValueIndex> value = findValue(p_name);
    return value ? m_values[*value].record : k_noRecord;
}

std::size_t PreVariableDefStore::variableIndex(const std::string& p_name) const
{
    const std::size_t record = recordNamed(p_name);
    if (record == k_noRecord)
        raiseNoSuchVariable(p_name);
    return record;
}

const PreVariableDefStore::VarDefData& PreVariableDefStore::variableData(const std::string& p_name) const
{
    const std::size_t record = recordNamed(p_name);
    if (record >= m_records.size())    // no name, or registered for a record that was refused
        raiseNoSuchVariable(p_name);
    return m_records[record];
}

const PreVariableDefStore::VarDefData& PreVariableDefStore::variableData(std::size_t p_record) const
{
    return m_records[p_record];
}

bool PreVariableDefStore::hasVariable(const std::string& p_name) const
{
    return recordNamed(p_name) != k_noRecord;
}

void PreVariableDefStore::addVariableAlias(ValueIndex p_name, std::size_t p_record)
{
    if (p_name == m_emptyIdx)
        return;

    // A record may carry the same text in several of its names.
    Value& name = m_values[p_name];
    if (name.record == k_noRecord)
        name.record = p_record;
    if (name.record == p_record)
        return;

    // Deliberate: names the function that appends records, whoever called this one.
    // Held by AddDefinition.RefusesAnAliasOfAnotherRecord.
    raiseData<data::duplicate>("doAddVariableDefinition",
                               UserMsg("Duplicate definition of variable '%1'.").arg(name.text));
}

std::vector<std::string> PreVariableDefStore::getVariableAliases(const std::string& p_name) const
{
    const VarDefData& record = variableData(p_name);
    std::vector<std::string> aliases {fieldValue(record.shortName)};

    if (record.longName != m_emptyIdx && record.longName != record.shortName)
        aliases.push_back(fieldValue(record.longName));

    // Deliberate: listed even when it equals the short or the long name; do not remove repeats.
    // Held by VariableAliases.ListAnOldShortNameThatIsAlsoTheShortName.
    if (record.oldShortName != m_emptyIdx)
        aliases.push_back(fieldValue(record.oldShortName));

    if (record.oldLongName != m_emptyIdx && record.oldLongName != record.oldShortName)
        aliases.push_back(fieldValue(record.oldLongName));

    return aliases;
}

const std::vector<std::string>& PreVariableDefStore::getAllVariableShortNames() const
{
    if (m_shortNamesCache.empty())
    {
        m_shortNamesCache.reserve(m_records.size());
        for (const VarDefData& record : m_records)
            m_shortNamesCache.push_back(fieldValue(record.shortName));
    }
    return m_shortNamesCache;
}

// Deliberate: names "variableData" also when only the index was asked for; the host shows both alike.
// Held by UnknownVariable.IsReportedByTheSameFunctionEverywhere.
void PreVariableDefStore::raiseNoSuchVariable(const std::string& p_name)
{
    raiseData<data::notFound>("variableData", UserMsg("%1 '%2' does not exist.").arg("Variable").arg(p_name));
}

}    // namespace qen
