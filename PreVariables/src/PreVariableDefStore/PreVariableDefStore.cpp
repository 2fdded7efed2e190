#include "PreVariableDefStore.h"

#include "DefinitionErrors.h"
#include "DefinitionTexts.h"

namespace qen {

// The order is fixed: these are the values 0 to 6 of every store.
PreVariableDefStore::PreVariableDefStore()
    : m_scalarIdx(addValue(k_scalar)), m_vectorIdx(addValue(k_vector)), m_symten2Idx(addValue(k_symten2)),
      m_trueIdx(addValue(k_true)), m_falseIdx(addValue(k_false)), m_qelIdx(addValue(k_qel)),
      m_emptyIdx(addValue(""))
{}

PreVariableDefStore::ValueIndex PreVariableDefStore::addValue(const std::string& p_text)
{
    const auto [entry, isNew] = m_valueIndex.try_emplace(p_text, m_values.size());
    if (isNew)
        m_values.push_back(p_text);
    return entry->second;
}

PreVariableDefStore::ValueSet PreVariableDefStore::addValues(const std::vector<std::string>& p_texts)
{
    ValueSet values;
    for (const std::string& text : p_texts)
        values.insert(addValue(text));
    return values;
}

PreVariableDefStore::ValueList PreVariableDefStore::addValuesVec(const std::vector<std::string>& p_texts)
{
    ValueList values;
    values.reserve(p_texts.size());
    for (const std::string& text : p_texts)
        values.push_back(addValue(text));
    return values;
}

const std::string& PreVariableDefStore::fieldValue(ValueIndex p_value) const { return m_values[p_value]; }

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

std::size_t PreVariableDefStore::variableIndex(const std::string& p_name) const
{
    const auto found = m_nameIndex.find(p_name);
    if (found == m_nameIndex.end())
        raiseNoSuchVariable(p_name);
    return found->second;
}

const PreVariableDefStore::VarDefData& PreVariableDefStore::variableData(const std::string& p_name) const
{
    const std::size_t record = variableIndex(p_name);
    if (record >= m_records.size())    // registered for a record that was refused
        raiseNoSuchVariable(p_name);
    return m_records[record];
}

const PreVariableDefStore::VarDefData& PreVariableDefStore::variableData(std::size_t p_record) const
{
    return m_records[p_record];
}

bool PreVariableDefStore::hasVariable(const std::string& p_name) const
{
    return m_nameIndex.find(p_name) != m_nameIndex.end();
}

void PreVariableDefStore::addVariableAlias(ValueIndex p_name, std::size_t p_record)
{
    if (p_name == m_emptyIdx)
        return;

    // A record may carry the same text in several of its names.
    const std::string& name = fieldValue(p_name);
    if (m_nameIndex.try_emplace(name, p_record).first->second == p_record)
        return;

    // Deliberate: names the function that appends records, whoever called this one.
    // Held by AddDefinition.RefusesAnAliasOfAnotherRecord.
    raiseData<data::duplicate>("doAddVariableDefinition",
                               UserMsg("Duplicate definition of variable '%1'.").arg(name));
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
