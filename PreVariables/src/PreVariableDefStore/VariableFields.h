#pragma once

#include "PreVariableDefStore.h"

#include <array>
#include <cstddef>
#include <variant>

/// @file
/// The fields of a variable definition, described once: what the field is called in a query, under which key it stands
/// in a definition, and where a record keeps it. Reading and queries both go through this table.

namespace qen {

using ValueMember = PreVariableDefStore::ValueIndex PreVariableDefStore::VarDefData::*;
using SetMember = PreVariableDefStore::SharedValueSet PreVariableDefStore::VarDefData::*;
using ListMember = PreVariableDefStore::ValueList PreVariableDefStore::VarDefData::*;

struct FieldDescriptor {
    PreVariableDefStore::VarDefField field;
    const char* key;
    std::variant<ValueMember, SetMember, ListMember> member;
};

// clang-format off
inline constexpr std::array<FieldDescriptor, 19> k_fields {{    // in the order of VarDefField
    {PreVariableDefStore::SHORT_NAME,                "",    // the definition's own name
        &PreVariableDefStore::VarDefData::shortName},
    {PreVariableDefStore::LONG_NAME,                 "Long Name",
        &PreVariableDefStore::VarDefData::longName},
    {PreVariableDefStore::OLD_SHORT_NAME,            "Old Short Name",
        &PreVariableDefStore::VarDefData::oldShortName},
    {PreVariableDefStore::OLD_LONG_NAME,             "Old Long Name",
        &PreVariableDefStore::VarDefData::oldLongName},
    {PreVariableDefStore::QUANTITY,                  "Quantity",
        &PreVariableDefStore::VarDefData::quantity},
    {PreVariableDefStore::TENSOR_TYPE,               "Tensor Type",
        &PreVariableDefStore::VarDefData::tensorType},
    {PreVariableDefStore::COMPONENT_SHORT_NAMES,     "Component Short Names",
        &PreVariableDefStore::VarDefData::componentShortNames},
    {PreVariableDefStore::OLD_COMPONENT_SHORT_NAMES, "Old Component Short Names",
        &PreVariableDefStore::VarDefData::oldComponentShortNames},
    {PreVariableDefStore::COMPONENT_LONG_NAMES,      "Component Long Names",
        &PreVariableDefStore::VarDefData::componentLongNames},
    {PreVariableDefStore::OLD_COMPONENT_LONG_NAMES,  "Old Component Long Names",
        &PreVariableDefStore::VarDefData::oldComponentLongNames},
    {PreVariableDefStore::FIELD_VARIABLE,            "Field Variable",
        &PreVariableDefStore::VarDefData::fieldVariable},
    {PreVariableDefStore::GENERAL_AVAILABILITY,      "General Availability",
        &PreVariableDefStore::VarDefData::generalAvailability},
    {PreVariableDefStore::PHYSICAL_AVAILABILITY,     "Physical Availability",
        &PreVariableDefStore::VarDefData::physicalAvailability},
    {PreVariableDefStore::VARIABLE_CLASS,            "Variable Class",
        &PreVariableDefStore::VarDefData::variableClass},
    {PreVariableDefStore::VARIABLE_SCOPE,            "Variable Scope",
        &PreVariableDefStore::VarDefData::variableScope},
    {PreVariableDefStore::STATUS,                    "Status",
        &PreVariableDefStore::VarDefData::status},
    {PreVariableDefStore::UNDER_RELAXATION_FACTOR,   "Under Relaxation Factor",
        &PreVariableDefStore::VarDefData::underRelaxationFactor},
    {PreVariableDefStore::USER_LEVEL,                "User Level",
        &PreVariableDefStore::VarDefData::userLevel},
    {PreVariableDefStore::OUTPUT_TO_POSTPROCESSOR,   "Output to Postprocessor",
        &PreVariableDefStore::VarDefData::outputToPostprocessor},
}};
// clang-format on

constexpr bool fieldsStandAtTheirOwnNumber()
{
    for (std::size_t number = 0; number < k_fields.size(); ++number)
        if (static_cast<std::size_t>(k_fields[number].field) != number)
            return false;
    return true;
}

static_assert(fieldsStandAtTheirOwnNumber());

/// The row of a field; null for a number that is no field.
constexpr const FieldDescriptor* fieldDescriptor(PreVariableDefStore::VarDefField p_field)
{
    const auto number = static_cast<std::size_t>(p_field);    // a negative one becomes large
    return number < k_fields.size() ? &k_fields[number] : nullptr;
}

/// One call operator per alternative, for std::visit on `FieldDescriptor::member`.
template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}    // namespace qen
