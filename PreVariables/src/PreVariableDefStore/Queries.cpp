#include "PreVariableDefStore.h"

#include "InternalErrors.h"
#include "VariableFields.h"

#include "StringUtilities.h"

#include <algorithm>

namespace qen {

namespace {

using Store = PreVariableDefStore;

bool holds(const Store::VarDefData& p_record, Store::VarDefField p_field, Store::ValueIndex p_value)
{
    const FieldDescriptor* field = fieldDescriptor(p_field);
    if (!field)
        return false;
    return std::visit(Overloaded {
                          [&](ValueMember p_member) { return p_record.*p_member == p_value; },
                          [&](SetMember p_member) { return (p_record.*p_member).contains(p_value); },
                          [&](ListMember p_member) {
                              const Store::ValueList& values = p_record.*p_member;
                              return std::find(values.begin(), values.end(), p_value) != values.end();
                          },
                      },
                      field->member);
}

const Store::ValueList& inOrder(const Store::ValueList& p_values) { return p_values; }

const Store::ValueList& inOrder(const Store::SharedValueSet& p_values) { return p_values.inOrder(); }

}    // namespace

std::string PreVariableDefStore::getVarDefData(const std::string& p_name, VarDefField p_field) const
{
    const VarDefData& record = variableData(p_name);    // first: an unknown name throws whatever the field
    const FieldDescriptor* field = fieldDescriptor(p_field);
    if (!field)
        return "";
    return std::visit(Overloaded {
                          [&](ValueMember p_member) { return fieldValue(record.*p_member); },
                          [&](auto p_several) {
                              return StringUtilities::vectorToString(valsToStrVec(inOrder(record.*p_several)),
                                                                     ',');
                          },
                      },
                      field->member);
}

std::vector<std::string> PreVariableDefStore::getVarDefDataVec(const std::string& p_name,
                                                               VarDefField p_field) const
{
    const VarDefData& record = variableData(p_name);
    const FieldDescriptor* field = fieldDescriptor(p_field);
    if (!field)
        return {};
    return std::visit(
        Overloaded {
            [&](ValueMember p_member) { return std::vector<std::string> {fieldValue(record.*p_member)}; },
            [&](auto p_several) { return valsToStrVec(inOrder(record.*p_several)); },
        },
        field->member);
}

std::vector<std::string> PreVariableDefStore::getVarDefDataMulti(const std::vector<std::string>& p_names,
                                                                 VarDefField p_field) const
{
    std::vector<std::string> texts;
    texts.reserve(p_names.size());
    for (const std::string& name : p_names)
        texts.push_back(getVarDefData(name, p_field));
    return texts;
}

std::vector<std::string> PreVariableDefStore::getVarDefDataAll(VarDefField p_field) const
{
    return getVarDefDataMulti(getAllVariableShortNames(), p_field);
}

PreVariableDefStore::TensType PreVariableDefStore::getTensorType(const std::string& p_name) const
{
    const ValueIndex type = variableData(p_name).tensorType;
    if (type == m_scalarIdx)
        return SCALAR;
    if (type == m_vectorIdx)
        return VECTOR;
    if (type == m_symten2Idx)
        return SYMTEN2;
    internalError(k_noTensorType);    // a definition cannot bring one; a finished record could
    return SCALAR;
}

bool PreVariableDefStore::valueMatches(std::size_t p_record, VarDefField p_field, ValueIndex p_value) const
{
    return holds(m_records[p_record], p_field, p_value);
}

bool PreVariableDefStore::valueMatchesAllOf(std::size_t p_record, VarDefField p_field,
                                            const std::vector<std::string>& p_texts) const
{
    return matchesAllOf(m_records[p_record], p_field, p_texts);
}

bool PreVariableDefStore::valueMatchesOneOf(std::size_t p_record, VarDefField p_field,
                                            const std::vector<std::string>& p_texts) const
{
    return matchesOneOf(m_records[p_record], p_field, p_texts);
}

// In each of the following the name is looked up before the texts: an unknown one throws whatever is asked of it.

bool PreVariableDefStore::varMatches(const std::string& p_name, VarDefField p_field,
                                     const std::string& p_text) const
{
    const VarDefData& record = variableData(p_name);
    const std::optional<ValueIndex> value = findValue(p_text);
    return value && holds(record, p_field, *value);
}

bool PreVariableDefStore::varMatchesTrue(const std::string& p_name, VarDefField p_field) const
{
    return holds(variableData(p_name), p_field, m_trueIdx);
}

bool PreVariableDefStore::varMatchesAllOf(const std::string& p_name, VarDefField p_field,
                                          const std::vector<std::string>& p_texts) const
{
    return matchesAllOf(variableData(p_name), p_field, p_texts);
}

bool PreVariableDefStore::varMatchesOneOf(const std::string& p_name, VarDefField p_field,
                                          const std::vector<std::string>& p_texts) const
{
    return matchesOneOf(variableData(p_name), p_field, p_texts);
}

std::vector<std::string> PreVariableDefStore::getVarsMatching(VarDefField p_field,
                                                              const std::string& p_text) const
{
    const std::optional<ValueIndex> value = findValue(p_text);
    if (!value)
        return {};
    return shortNamesOfRecordsThat(
        [&](const VarDefData& p_record) { return holds(p_record, p_field, *value); });
}

// Deliberate: no texts find no record, although no texts match each record.
// Held by VariablesMatching.AllOfNoTextsAreNone.
std::vector<std::string>
PreVariableDefStore::getVarsMatchingAllOf(VarDefField p_field, const std::vector<std::string>& p_texts) const
{
    if (p_texts.empty())
        return {};
    return shortNamesOfRecordsThat(
        [&](const VarDefData& p_record) { return matchesAllOf(p_record, p_field, p_texts); });
}

std::vector<std::string>
PreVariableDefStore::getVarsMatchingOneOf(VarDefField p_field, const std::vector<std::string>& p_texts) const
{
    return shortNamesOfRecordsThat(
        [&](const VarDefData& p_record) { return matchesOneOf(p_record, p_field, p_texts); });
}

std::vector<std::string> PreVariableDefStore::getVarsWithField(VarDefField p_field,
                                                               const std::vector<std::string>& p_names) const
{
    std::vector<std::string> names;
    for (const std::string& name : p_names)
        if (!getVarDefData(name, p_field).empty())
            names.push_back(name);
    return names;
}

bool PreVariableDefStore::matchesAllOf(const VarDefData& p_record, VarDefField p_field,
                                       const std::vector<std::string>& p_texts) const
{
    return std::all_of(p_texts.begin(), p_texts.end(), [&](const std::string& p_text) {
        const std::optional<ValueIndex> value = findValue(p_text);
        return value && holds(p_record, p_field, *value);
    });
}

bool PreVariableDefStore::matchesOneOf(const VarDefData& p_record, VarDefField p_field,
                                       const std::vector<std::string>& p_texts) const
{
    return std::any_of(p_texts.begin(), p_texts.end(), [&](const std::string& p_text) {
        const std::optional<ValueIndex> value = findValue(p_text);
        return value && holds(p_record, p_field, *value);
    });
}

template <class Matches>
std::vector<std::string> PreVariableDefStore::shortNamesOfRecordsThat(const Matches& p_matches) const
{
    std::vector<std::string> names;
    for (const VarDefData& record : m_records)
        if (p_matches(record))
            names.push_back(fieldValue(record.shortName));
    return names;
}

}    // namespace qen
