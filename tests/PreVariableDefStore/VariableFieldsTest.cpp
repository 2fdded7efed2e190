#include "PreVariableDefStore/VariableFields.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace qen;

namespace {

using Store = PreVariableDefStore;
using Data = PreVariableDefStore::VarDefData;

struct FieldCase {
    int number;
    Store::VarDefField field;
    const char* key;
    std::variant<ValueMember, SetMember, ListMember> member;
};

class VariableFields : public testing::TestWithParam<FieldCase> {};

TEST_P(VariableFields, StandAtTheirNumberWithTheirKeyAndPlace)
{
    EXPECT_EQ(static_cast<int>(GetParam().field), GetParam().number);

    const FieldDescriptor* descriptor = fieldDescriptor(static_cast<Store::VarDefField>(GetParam().number));

    ASSERT_NE(descriptor, nullptr);
    EXPECT_EQ(descriptor->field, GetParam().field);
    EXPECT_STREQ(descriptor->key, GetParam().key);
    EXPECT_EQ(descriptor->member, GetParam().member);
}

INSTANTIATE_TEST_SUITE_P(
    All, VariableFields,
    testing::Values(
        FieldCase {0, Store::SHORT_NAME, "", &Data::shortName},
        FieldCase {1, Store::LONG_NAME, "Long Name", &Data::longName},
        FieldCase {2, Store::OLD_SHORT_NAME, "Old Short Name", &Data::oldShortName},
        FieldCase {3, Store::OLD_LONG_NAME, "Old Long Name", &Data::oldLongName},
        FieldCase {4, Store::QUANTITY, "Quantity", &Data::quantity},
        FieldCase {5, Store::TENSOR_TYPE, "Tensor Type", &Data::tensorType},
        FieldCase {6, Store::COMPONENT_SHORT_NAMES, "Component Short Names", &Data::componentShortNames},
        FieldCase {7, Store::OLD_COMPONENT_SHORT_NAMES, "Old Component Short Names",
                   &Data::oldComponentShortNames},
        FieldCase {8, Store::COMPONENT_LONG_NAMES, "Component Long Names", &Data::componentLongNames},
        FieldCase {9, Store::OLD_COMPONENT_LONG_NAMES, "Old Component Long Names",
                   &Data::oldComponentLongNames},
        FieldCase {10, Store::FIELD_VARIABLE, "Field Variable", &Data::fieldVariable},
        FieldCase {11, Store::GENERAL_AVAILABILITY, "General Availability", &Data::generalAvailability},
        FieldCase {12, Store::PHYSICAL_AVAILABILITY, "Physical Availability", &Data::physicalAvailability},
        FieldCase {13, Store::VARIABLE_CLASS, "Variable Class", &Data::variableClass},
        FieldCase {14, Store::VARIABLE_SCOPE, "Variable Scope", &Data::variableScope},
        FieldCase {15, Store::STATUS, "Status", &Data::status},
        FieldCase {16, Store::UNDER_RELAXATION_FACTOR, "Under Relaxation Factor",
                   &Data::underRelaxationFactor},
        FieldCase {17, Store::USER_LEVEL, "User Level", &Data::userLevel},
        FieldCase {18, Store::OUTPUT_TO_POSTPROCESSOR, "Output to Postprocessor",
                   &Data::outputToPostprocessor}),
    [](const auto& p_case) { return "Number" + std::to_string(p_case.param.number); });

TEST(VariableFieldTable, HasNoKeyTwice)
{
    std::set<std::string> keys;
    for (const FieldDescriptor& descriptor : k_fields)
        EXPECT_TRUE(keys.insert(descriptor.key).second) << descriptor.key;
    EXPECT_EQ(keys.size(), 19U);
}

TEST(VariableFieldTable, HasNoRowForAForeignNumber)
{
    EXPECT_EQ(fieldDescriptor(static_cast<Store::VarDefField>(19)), nullptr);
    EXPECT_EQ(fieldDescriptor(static_cast<Store::VarDefField>(-1)), nullptr);
}

TEST(VariableFieldTable, GivesTensorTypesTheirNumbers)
{
    EXPECT_EQ(static_cast<int>(Store::SCALAR), 0);
    EXPECT_EQ(static_cast<int>(Store::VECTOR), 1);
    EXPECT_EQ(static_cast<int>(Store::SYMTEN2), 2);
}

}    // namespace
