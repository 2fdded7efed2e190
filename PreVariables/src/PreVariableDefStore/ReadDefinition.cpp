#include "PreVariableDefStore.h"

#include "DefinitionErrors.h"
#include "DefinitionTexts.h"
#include "VariableFields.h"

#include "BoolFromEnvironment.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace qen {

namespace {

using Store = PreVariableDefStore;
using Parameters = std::map<std::string, std::string>;

// Read when the first definition of unknown tensor type comes, and kept for the process.
constinit const BoolFromEnvironment k_ignoreInvalidDefinitions("QEN_IGNORE_INVALID_VAR_DEFINITIONS");

constexpr const char* k_function = "addVariableDefinition";

// Values are interned in the order in which fields are read, so these orders are part of what callers see.
constexpr std::array k_names {Store::SHORT_NAME, Store::LONG_NAME, Store::OLD_SHORT_NAME,
                              Store::OLD_LONG_NAME};
constexpr Store::VarDefField k_kind[] {Store::QUANTITY, Store::TENSOR_TYPE};
constexpr Store::VarDefField k_keywords[] {Store::GENERAL_AVAILABILITY, Store::PHYSICAL_AVAILABILITY,
                                           Store::VARIABLE_CLASS, Store::VARIABLE_SCOPE};
constexpr Store::VarDefField k_componentNames[] {
    Store::COMPONENT_SHORT_NAMES, Store::OLD_COMPONENT_SHORT_NAMES, Store::COMPONENT_LONG_NAMES,
    Store::OLD_COMPONENT_LONG_NAMES};
constexpr Store::VarDefField k_settings[] {Store::STATUS, Store::UNDER_RELAXATION_FACTOR, Store::USER_LEVEL,
                                           Store::OUTPUT_TO_POSTPROCESSOR};

const char* keyOf(Store::VarDefField p_field) { return fieldDescriptor(p_field)->key; }

constexpr std::size_t k_keys = k_fields.size() - 1;    // the definition's own name has none

struct KeyedField {
    std::string_view key;
    Store::VarDefField field;
};

/// The fields in the order of their keys, in which a definition holds them too.
constexpr std::array<KeyedField, k_keys> k_fieldsByKey = [] {
    std::array<KeyedField, k_keys> fields {};
    std::ranges::transform(k_fields.begin() + 1, k_fields.end(), fields.begin(),
                           [](const FieldDescriptor& p_row) {
                               return KeyedField {p_row.key, p_row.field};
                           });
    std::ranges::sort(fields, {}, &KeyedField::key);
    return fields;
}();

/// The texts of a definition's fields; empty where the definition does not have one. Points to the definition.
class FieldTexts {
public:
    explicit FieldTexts(const Parameters& p_parameters)
    {
        m_texts.fill(&k_none);
        const auto* field = k_fieldsByKey.begin();
        for (const auto& [key, text] : p_parameters)
        {
            for (; field != k_fieldsByKey.end(); ++field)
            {
                if (field->key == key)    // mostly, since definitions mostly have them all
                {
                    m_texts[static_cast<std::size_t>((field++)->field)] = &text;
                    break;
                }
                if (key < field->key)
                    break;
            }
        }
    }

    const std::string& operator[](Store::VarDefField p_field) const
    {
        return *m_texts[static_cast<std::size_t>(p_field)];
    }

private:
    static inline const std::string k_none;

    std::array<const std::string*, k_fields.size()> m_texts {};
};

/// Where a record keeps a field; each of the orders above is of fields that are kept alike.
template <class Member>
Member memberOf(Store::VarDefField p_field)
{
    return std::get<Member>(fieldDescriptor(p_field)->member);
}

}    // namespace

void PreVariableDefStore::addVariableDefinition(const std::string& p_name, const Parameters& p_parameters)
{
    // The caller's name may be one of this store's own texts, which move as the store grows.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is what keeps it
    const std::string name = p_name;
    m_shortNamesCache.clear();    // at once: a definition that is ignored or refused empties it too

    const FieldTexts texts(p_parameters);
    VarDefData record;
    const auto nameIn = [&](VarDefField p_field) -> const std::string& {
        return p_field == SHORT_NAME ? name : texts[p_field];
    };
    // Until a name is interned its place holds the hash.
    for (const VarDefField field : k_names)
        record.*memberOf<ValueMember>(field) = expectValue(nameIn(field));
    for (const VarDefField field : k_names)
    {
        ValueIndex& value = record.*memberOf<ValueMember>(field);
        value = addExpectedValue(nameIn(field), value);
    }
    for (const VarDefField field : k_kind)
        record.*memberOf<ValueMember>(field) = addLikeBefore(texts[field], memberOf<ValueMember>(field));

    if (!isTensorType(record.tensorType))
    {
        if (!k_ignoreInvalidDefinitions.isSet())
            warn(k_function, UserMsg("Error in definition of variable '%1'.\n"
                                     "This variable has an unknown tensor type '%2' and will be ignored.")
                                 .arg(name)
                                 .arg(fieldValue(record.tensorType)));
        return;
    }

    for (const VarDefField field : k_keywords)
        record.*memberOf<SetMember>(field) = addKeywords(texts[field]);

    if (record.tensorType != m_scalarIdx)    // a scalar's component keys are not even read
    {
        for (const VarDefField field : k_componentNames)
            record.*memberOf<ListMember>(field) =
                addValuesVec(StringUtilities::stringToVector(texts[field], ','));
        checkComponentCounts(name, record);
    }

    for (const VarDefField field : k_settings)
        record.*memberOf<ValueMember>(field) = addLikeBefore(texts[field], memberOf<ValueMember>(field));

    std::string fieldVariable = texts[FIELD_VARIABLE];
    if (fieldVariable.empty() && record.generalAvailability.contains(m_qelIdx))
    {
        // Deliberate: tells the user "True", which is a text they may write, and goes on with "T". Do not make them
        // alike. Held by ReadDefinition.AssumesAFieldWhereQelIsAvailableAndNothingIsSaid.
        warn(k_function, UserMsg("Error in definition of variable '%1'.\n"
                                 "This variable has QEL availability but does not have a \"%2\" parameter.\n"
                                 "A value of \"%3\" has been assumed but this may not be correct.")
                             .arg(name)
                             .arg(keyOf(FIELD_VARIABLE))
                             .arg("True"));
        fieldVariable = k_true;
    }
    record.fieldVariable = StringUtilities::stringToBool(fieldVariable) ? m_trueIdx : m_falseIdx;

    if (record.tensorType != m_scalarIdx)
    {
        doAddVariableDefinition(record);
        addComponentDefinitions(std::move(record));
        return;
    }
    registerNames(record);
    m_records.push_back(std::move(record));
}

/// Splits a list and interns its pieces as a set. Definitions have the same few lists again and again: those that the
/// host splits as before are not interned piece by piece.
PreVariableDefStore::SharedValueSet PreVariableDefStore::addKeywords(const std::string& p_list)
{
    const std::vector<std::string> pieces = StringUtilities::stringToVector(p_list, ',');
    if (pieces.empty())
        return {};

    KeptKeywords& kept = m_keywords[p_list];
    const auto isText = [&](ValueIndex p_value, const std::string& p_text) {
        return fieldValue(p_value) == p_text;
    };
    if (!std::ranges::equal(kept.inOrderOfText, pieces, isText))
    {
        ValueList inOrderOfText = addValuesVec(pieces);
        const ValueSet values(inOrderOfText.begin(), inOrderOfText.end());
        kept = {std::move(inOrderOfText), values};
    }
    return kept.values;
}

/// Interns a text that mostly is the one which the record before has in the same field.
PreVariableDefStore::ValueIndex PreVariableDefStore::addLikeBefore(const std::string& p_text,
                                                                   ValueIndex VarDefData::*p_field)
{
    if (!m_records.empty())
        if (const ValueIndex before = m_records.back().*p_field; fieldValue(before) == p_text)
            return before;
    return addValue(p_text);
}

bool PreVariableDefStore::isTensorType(ValueIndex p_value) const
{
    return p_value == m_scalarIdx || p_value == m_vectorIdx || p_value == m_symten2Idx;
}

// The old component names are not counted: where they do not fit, they are not used.
void PreVariableDefStore::checkComponentCounts(const std::string& p_name, const VarDefData& p_record) const
{
    const std::size_t expected = p_record.tensorType == m_vectorIdx ? 3 : 6;

    if (p_record.componentShortNames.size() != expected)
        raiseData<data::error>(k_function, UserMsg("Error in '%1' definition for variable '%2'. "
                                                   "There are %3 short component names instead of %4.")
                                               .arg(keyOf(COMPONENT_SHORT_NAMES))
                                               .arg(p_name)
                                               .arg(std::to_string(p_record.componentShortNames.size()))
                                               .arg(std::to_string(expected)));

    // Deliberate: "components names" here, "component names" in the text above. Both are fixed; do not make them
    // alike. Held by ReadDefinition.CountsLongNamesInItsOwnWords.
    if (p_record.componentLongNames.size() != expected)
        raiseData<data::error>(k_function, UserMsg("Error in '%1' definition for variable '%2'. "
                                                   "There are %3 long components names instead of %4.")
                                               .arg(keyOf(COMPONENT_LONG_NAMES))
                                               .arg(p_name)
                                               .arg(std::to_string(p_record.componentLongNames.size()))
                                               .arg(std::to_string(expected)));
}

void PreVariableDefStore::addComponentDefinitions(VarDefData p_variable)
{
    const ValueList shortNames = std::exchange(p_variable.componentShortNames, {});
    const ValueList oldShortNames = std::exchange(p_variable.oldComponentShortNames, {});
    const ValueList longNames = std::exchange(p_variable.componentLongNames, {});
    const ValueList oldLongNames = std::exchange(p_variable.oldComponentLongNames, {});

    // Everything else a component has from its variable.
    VarDefData& component = p_variable;
    component.tensorType = m_scalarIdx;
    for (std::size_t i = 0; i < shortNames.size(); ++i)
    {
        component.shortName = shortNames[i];
        component.longName = longNames[i];

        // Deliberate: an old list that does not fit leaves the variable's own old name in place. Where it has one, the
        // first component is refused as a duplicate. Do not clear the name, do not use the part of the list that fits.
        // Held by AddDefinition.RefusesComponentsThatInheritAnOldName.
        if (oldLongNames.size() == shortNames.size())
            component.oldLongName = oldLongNames[i];
        if (oldShortNames.size() == shortNames.size())
            component.oldShortName = oldShortNames[i];

        doAddVariableDefinition(component);
    }
}

void PreVariableDefStore::doAddVariableDefinition(const VarDefData& p_record)
{
    registerNames(p_record);
    m_records.push_back(p_record);
}

// Deliberate: names are registered before the record is appended, so after a duplicate the names registered so far
// belong to the next record. Held by AddDefinition.LeavesEarlierNamesToTheNextRecord.
void PreVariableDefStore::registerNames(const VarDefData& p_record)
{
    const std::size_t index = m_records.size();
    addVariableAlias(p_record.shortName, index);
    addVariableAlias(p_record.longName, index);
    addVariableAlias(p_record.oldShortName, index);
    addVariableAlias(p_record.oldLongName, index);
}

}    // namespace qen
