#include "StoreTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

using namespace qen;
using namespace qen::support;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

namespace {

class ReadDefinition : public StoreTest {};

TEST_F(ReadDefinition, PutsEveryKeyIntoItsField)
{
    m_store.addVariableDefinition("VEL", {
                                             {"Long Name", "Velocity"},
                                             {"Old Short Name", "VELO"},
                                             {"Old Long Name", "Fluid Velocity"},
                                             {"Quantity", "Speed"},
                                             {"Tensor Type", "VECTOR"},
                                             {"General Availability", "QEL,RESULTS"},
                                             {"Physical Availability", "FLUID,SOLID MOTION"},
                                             {"Variable Class", "SOLUTION"},
                                             {"Variable Scope", "PHASE"},
                                             {"Component Short Names", "U,V,W"},
                                             {"Old Component Short Names", "U0,V0,W0"},
                                             {"Component Long Names", "Velocity u,Velocity v,Velocity w"},
                                             {"Old Component Long Names", "Old u,Old v,Old w"},
                                             {"Status", "P"},
                                             {"Under Relaxation Factor", "0.75"},
                                             {"User Level", "2"},
                                             {"Output to Postprocessor", "Yes"},
                                             {"Field Variable", "on"},
                                         });

    const PreVariableDefStore::VarDefData& record = m_store.variableData("VEL");
    EXPECT_EQ(text(record.shortName), "VEL");
    EXPECT_EQ(text(record.longName), "Velocity");
    EXPECT_EQ(text(record.oldShortName), "VELO");
    EXPECT_EQ(text(record.oldLongName), "Fluid Velocity");
    EXPECT_EQ(text(record.quantity), "Speed");
    EXPECT_EQ(text(record.tensorType), "VECTOR");
    EXPECT_EQ(text(record.status), "P");
    EXPECT_EQ(text(record.outputToPostprocessor), "Yes");
    EXPECT_EQ(text(record.underRelaxationFactor), "0.75");
    EXPECT_EQ(text(record.userLevel), "2");
    EXPECT_EQ(text(record.fieldVariable), "T");
    EXPECT_THAT(texts(record.generalAvailability), ElementsAre("QEL", "RESULTS"));
    EXPECT_THAT(texts(record.physicalAvailability), ElementsAre("FLUID", "SOLID MOTION"));
    EXPECT_THAT(texts(record.variableClass), ElementsAre("SOLUTION"));
    EXPECT_THAT(texts(record.variableScope), ElementsAre("PHASE"));
    EXPECT_THAT(texts(record.componentShortNames), ElementsAre("U", "V", "W"));
    EXPECT_THAT(texts(record.oldComponentShortNames), ElementsAre("U0", "V0", "W0"));
    EXPECT_THAT(texts(record.componentLongNames), ElementsAre("Velocity u", "Velocity v", "Velocity w"));
    EXPECT_THAT(texts(record.oldComponentLongNames), ElementsAre("Old u", "Old v", "Old w"));
    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

TEST_F(ReadDefinition, LeavesFieldsWithoutKeyEmpty)
{
    m_store.addVariableDefinition("TEMP", scalar());

    const PreVariableDefStore::VarDefData& record = m_store.variableData("TEMP");
    for (const auto value :
         {record.longName, record.oldShortName, record.oldLongName, record.quantity, record.status,
          record.outputToPostprocessor, record.underRelaxationFactor, record.userLevel})
        EXPECT_EQ(value, 6U);    // the empty text
    EXPECT_EQ(text(record.fieldVariable), "F");
    EXPECT_THAT(record.generalAvailability, IsEmpty());
    EXPECT_THAT(record.physicalAvailability, IsEmpty());
    EXPECT_THAT(record.variableClass, IsEmpty());
    EXPECT_THAT(record.variableScope, IsEmpty());
    EXPECT_THAT(record.componentShortNames, IsEmpty());
    EXPECT_THAT(record.oldComponentShortNames, IsEmpty());
    EXPECT_THAT(record.componentLongNames, IsEmpty());
    EXPECT_THAT(record.oldComponentLongNames, IsEmpty());
}

TEST_F(ReadDefinition, InternsTheFieldsOfAScalarInAFixedOrder)
{
    // Given a definition whose texts all differ; the map hands them over by key
    m_store.addVariableDefinition("short", {
                                               {"Tensor Type", "SCALAR"},
                                               {"Long Name", "long"},
                                               {"Old Short Name", "old short"},
                                               {"Old Long Name", "old long"},
                                               {"Quantity", "quantity"},
                                               {"General Availability", "general z,general a"},
                                               {"Physical Availability", "physical z,physical a"},
                                               {"Variable Class", "class z,class a"},
                                               {"Variable Scope", "scope z,scope a"},
                                               {"Status", "status"},
                                               {"Under Relaxation Factor", "factor"},
                                               {"User Level", "level"},
                                               {"Output to Postprocessor", "output"},
                                               {"Field Variable", "field"},
                                               {"Unknown Key", "unknown"},
                                           });

    // Then they come in the order of reading, and the field variable is no text of its own
    EXPECT_THAT(valuesReadInto(m_store),
                ElementsAre("short", "long", "old short", "old long", "quantity", "general z", "general a",
                            "physical z", "physical a", "class z", "class a", "scope z", "scope a", "status",
                            "factor", "level", "output"));
}

TEST_F(ReadDefinition, InternsComponentNamesBetweenKeywordsAndSettings)
{
    m_store.addVariableDefinition("short", {
                                               {"Tensor Type", "VECTOR"},
                                               {"Variable Scope", "scope"},
                                               {"Component Short Names", "s3,s2,s1"},
                                               {"Old Component Short Names", "os3,os2,os1"},
                                               {"Component Long Names", "l3,l2,l1"},
                                               {"Old Component Long Names", "ol3,ol2,ol1"},
                                               {"Status", "status"},
                                           });

    EXPECT_THAT(valuesReadInto(m_store), ElementsAre("short", "scope", "s3", "s2", "s1", "os3", "os2", "os1",
                                                     "l3", "l2", "l1", "ol3", "ol2", "ol1", "status"));
}

TEST_F(ReadDefinition, DoesNotReadTheComponentKeysOfAScalar)
{
    m_store.addVariableDefinition("TEMP", scalar({
                                              {"Component Short Names", "a,b"},
                                              {"Old Component Short Names", "c"},
                                              {"Component Long Names", "d"},
                                              {"Old Component Long Names", "e"},
                                          }));

    EXPECT_THAT(valuesReadInto(m_store), ElementsAre("TEMP"));
    EXPECT_THAT(m_store.variableData("TEMP").componentShortNames, IsEmpty());
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
}

TEST_F(ReadDefinition, KeepsTextsAsTheyAre)
{
    m_store.addVariableDefinition(" TEMP ", scalar({{"Long Name", " Temperature  of\tgas "}}));

    EXPECT_THAT(m_store.getVariableAliases(" TEMP "), ElementsAre(" TEMP ", " Temperature  of\tgas "));
    EXPECT_FALSE(m_store.hasVariable("TEMP"));
}

TEST_F(ReadDefinition, KeepsEachKeywordOnceAndEachComponentNameAsOftenAsGiven)
{
    m_store.addVariableDefinition(
        "VEL", velocity({{"General Availability", "B,A,B,A"}, {"Old Component Long Names", "x,x,y,x"}}));

    EXPECT_THAT(texts(m_store.variableData("VEL").generalAvailability), ElementsAre("B", "A"));
    EXPECT_THAT(texts(m_store.variableData("VEL").oldComponentLongNames), ElementsAre("x", "x", "y", "x"));
}

// Unknown tensor types

struct UnknownType {
    const char* name;
    const char* text;
};

class ReadDefinitionOfUnknownType : public StoreTest, public testing::WithParamInterface<UnknownType> {};

TEST_P(ReadDefinitionOfUnknownType, WarnsAndIgnoresIt)
{
    const std::string type = GetParam().text;

    m_store.addVariableDefinition("TEMP", {{"Tensor Type", type}, {"Long Name", "Temperature"}});

    EXPECT_THAT(HostReports::reported(), ElementsAre(IsWarning("Error in definition of variable 'TEMP'.\n"
                                                               "This variable has an unknown tensor type '" +
                                                               type + "' and will be ignored.")));
    EXPECT_FALSE(m_store.hasVariable("TEMP"));
    EXPECT_FALSE(m_store.hasVariable("Temperature"));
    EXPECT_THAT(m_store.getAllVariableShortNames(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, ReadDefinitionOfUnknownType,
                         testing::Values(UnknownType {"LowerCase", "scalar"}, UnknownType {"Empty", ""},
                                         UnknownType {"BlankBefore", " SCALAR"},
                                         UnknownType {"BlankBehind", "VECTOR "},
                                         UnknownType {"Tensor", "TENSOR"},
                                         UnknownType {"List", "SCALAR,VECTOR"},
                                         // in every store's value table, but no tensor types
                                         UnknownType {"True", "T"}, UnknownType {"Qel", "QEL"}),
                         [](const auto& p_case) { return p_case.param.name; });

TEST_F(ReadDefinition, IgnoresAVariableWithoutTensorType)
{
    m_store.addVariableDefinition("TEMP", {{"Long Name", "Temperature"}});

    EXPECT_THAT(HostReports::reported(),
                ElementsAre(IsWarning("Error in definition of variable 'TEMP'.\n"
                                      "This variable has an unknown tensor type '' and will be ignored.")));
    EXPECT_FALSE(m_store.hasVariable("TEMP"));
}

TEST_F(ReadDefinition, LeavesOnlyNamesQuantityAndTypeOfAnIgnoredVariableInTheTable)
{
    m_store.addVariableDefinition("short", {
                                               {"Long Name", "long"},
                                               {"Old Short Name", "old short"},
                                               {"Old Long Name", "old long"},
                                               {"Quantity", "quantity"},
                                               {"Tensor Type", "type"},
                                               {"General Availability", "general"},
                                               {"Component Short Names", "component"},
                                               {"Status", "status"},
                                           });

    EXPECT_THAT(valuesReadInto(m_store),
                ElementsAre("short", "long", "old short", "old long", "quantity", "type"));
}

TEST_F(ReadDefinition, GoesOnBehindAnIgnoredVariable)
{
    m_store.addVariableDefinition("TEMP", {{"Long Name", "Temperature"}});
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));

    EXPECT_EQ(m_store.variableIndex("Temperature"), 0U);
}

TEST_F(ReadDefinition, TakesANameThatIsOneOfTheStoresOwnTexts)
{
    m_store.addVariableDefinition("a name that is too long to be kept in place", scalar());
    Definition unknown {{"Tensor Type", "none of the known tensor types"}};

    // When names come by reference to the store's own list of short names, which is then emptied
    m_store.addVariableDefinition(m_store.getAllVariableShortNames().front(), unknown);

    // And to its values, among which there are then many new ones
    for (int i = 0; i < 100; ++i)
    {
        unknown["Long Name"] = "long " + std::to_string(i);
        unknown["Quantity"] = "quantity " + std::to_string(i);
        m_store.addVariableDefinition(m_store.shortName(0), unknown);
    }

    // Then every warning says the name
    const auto warning =
        IsWarning("Error in definition of variable 'a name that is too long to be kept in place'.\n"
                  "This variable has an unknown tensor type 'none of the known tensor types' and "
                  "will be ignored.");
    EXPECT_THAT(HostReports::reported(), AllOf(SizeIs(101), Each(warning)));
}

TEST_F(ReadDefinition, ReadsTheEnvironmentOncePerProcess)
{
    // Given a process in which an invalid definition came before the switch was set
    m_store.addVariableDefinition("FIRST", {});
    ASSERT_EQ(HostReports::reported().size(), 1U);

    // When the switch comes
    setenv("QEN_IGNORE_INVALID_VAR_DEFINITIONS", "1", 1);
    m_store.addVariableDefinition("SECOND", {});
    unsetenv("QEN_IGNORE_INVALID_VAR_DEFINITIONS");

    // Then it is too late
    EXPECT_EQ(HostReports::reported().size(), 2U);
}

// Numbers of components

struct WrongCount {
    const char* name;
    Definition definition;
    const char* message;
};

class ReadDefinitionWithWrongCount : public StoreTest, public testing::WithParamInterface<WrongCount> {};

TEST_P(ReadDefinitionWithWrongCount, ThrowsAndAddsNothing)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(thrownBy<data::error>([&] { m_store.addVariableDefinition("VEL", GetParam().definition); }),
                Optional(IsThrownBy("addVariableDefinition", GetParam().message)));

    EXPECT_FALSE(m_store.hasVariable("VEL"));
    EXPECT_FALSE(m_store.hasVariable("Velocity"));
    EXPECT_FALSE(m_store.hasVariable("U"));
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ReadDefinitionWithWrongCount,
    testing::Values(
        WrongCount {"VectorWithoutNames",
                    {{"Tensor Type", "VECTOR"}, {"Long Name", "Velocity"}},
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 0 short component names instead of 3."},
        WrongCount {"VectorWithTwoShortNames", velocity({{"Component Short Names", "U,V"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 2 short component names instead of 3."},
        WrongCount {"VectorWithFourShortNames", velocity({{"Component Short Names", "U,V,W,X"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 4 short component names instead of 3."},
        WrongCount {"VectorWithSixShortNames", velocity({{"Component Short Names", "U,V,W,X,Y,Z"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 6 short component names instead of 3."},
        WrongCount {"VectorWithTwoLongNames", velocity({{"Component Long Names", "Velocity u,Velocity v"}}),
                    "Error in 'Component Long Names' definition for variable 'VEL'. "
                    "There are 2 long components names instead of 3."},
        WrongCount {"VectorWithFourLongNames", velocity({{"Component Long Names", "a,b,c,d"}}),
                    "Error in 'Component Long Names' definition for variable 'VEL'. "
                    "There are 4 long components names instead of 3."},
        // both lists wrong: the short names are named
        WrongCount {"VectorWithBothWrong",
                    velocity({{"Component Short Names", "U"}, {"Component Long Names", "a,b"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 1 short component names instead of 3."},
        WrongCount {"SymmetricTensorWithFiveShortNames",
                    stress({{"Component Short Names", "Sxx,Syy,Szz,Sxy,Syz"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 5 short component names instead of 6."},
        WrongCount {"SymmetricTensorWithSevenShortNames",
                    stress({{"Component Short Names", "a,b,c,d,e,f,g"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 7 short component names instead of 6."},
        WrongCount {"SymmetricTensorWithThreeLongNames", stress({{"Component Long Names", "a,b,c"}}),
                    "Error in 'Component Long Names' definition for variable 'VEL'. "
                    "There are 3 long components names instead of 6."},
        // the wrong count is seen before the field variable that is missing
        WrongCount {"VectorWithQelAndNoField",
                    velocity({{"Component Short Names", "U"}, {"General Availability", "QEL"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 1 short component names instead of 3."},
        // a wrong count is seen before a name that is there already
        WrongCount {"VectorWithADuplicate", velocity({{"Component Short Names", "U"}, {"Long Name", "TEMP"}}),
                    "Error in 'Component Short Names' definition for variable 'VEL'. "
                    "There are 1 short component names instead of 3."}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(ReadDefinition, CountsLongNamesInItsOwnWords)
{
    EXPECT_THAT(thrownBy<data::error>([&] {
                    m_store.addVariableDefinition("VEL", velocity({{"Component Long Names", "a,b"}}));
                }),
                Optional(IsThrownBy("addVariableDefinition",
                                    "Error in 'Component Long Names' definition for variable 'VEL'. "
                                    "There are 2 long components names instead of 3.")));
}

TEST_F(ReadDefinition, LeavesComponentNamesButNoSettingsInTheTableWhenTheCountIsWrong)
{
    EXPECT_THROW(m_store.addVariableDefinition("VEL", {{"Tensor Type", "VECTOR"},
                                                       {"Variable Class", "class"},
                                                       {"Component Short Names", "s"},
                                                       {"Old Component Short Names", "os"},
                                                       {"Component Long Names", "l"},
                                                       {"Old Component Long Names", "ol"},
                                                       {"Status", "status"}}),
                 data::error);

    EXPECT_THAT(valuesReadInto(m_store), ElementsAre("VEL", "class", "s", "os", "l", "ol"));
}

TEST_F(ReadDefinition, DoesNotCountOldComponentNames)
{
    m_store.addVariableDefinition(
        "VEL", velocity({{"Old Component Short Names", "a"}, {"Old Component Long Names", "a,b,c,d"}}));

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("VEL", "U", "V", "W"));
    EXPECT_THAT(m_store.getVariableAliases("U"), ElementsAre("U", "Velocity u"));
}

// Field variables

struct FieldText {
    const char* name;
    const char* text;
    const char* read;
};

class ReadDefinitionOfFieldVariable : public StoreTest, public testing::WithParamInterface<FieldText> {};

TEST_P(ReadDefinitionOfFieldVariable, ReadsItAsASwitch)
{
    m_store.addVariableDefinition(
        "TEMP", scalar({{"Field Variable", GetParam().text}, {"General Availability", "RESULTS,QEL"}}));

    EXPECT_EQ(text(m_store.variableData("TEMP").fieldVariable), GetParam().read);
    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, ReadDefinitionOfFieldVariable,
                         testing::Values(FieldText {"T", "T", "T"}, FieldText {"True", "True", "T"},
                                         FieldText {"Yes", "yes", "T"}, FieldText {"One", "1", "T"},
                                         FieldText {"F", "F", "F"}, FieldText {"False", "False", "F"},
                                         FieldText {"No", "No", "F"}, FieldText {"Nonsense", "maybe", "F"},
                                         FieldText {"Blank", " ", "F"}),
                         [](const auto& p_case) { return p_case.param.name; });

TEST_F(ReadDefinition, AssumesAFieldWhereQelIsAvailableAndNothingIsSaid)
{
    m_store.addVariableDefinition("TEMP", scalar({{"General Availability", "RESULTS,QEL"}}));

    EXPECT_EQ(text(m_store.variableData("TEMP").fieldVariable), "T");
    EXPECT_THAT(
        HostReports::reported(),
        ElementsAre(IsWarning("Error in definition of variable 'TEMP'.\n"
                              "This variable has QEL availability but does not have a \"Field Variable\" "
                              "parameter.\n"
                              "A value of \"True\" has been assumed but this may not be correct.")));
    // What is told to the user is not what is kept
    EXPECT_THAT(valuesReadInto(m_store), ElementsAre("TEMP", "RESULTS"));
}

TEST_F(ReadDefinition, AssumesAFieldWhereTheKeyIsThereButEmpty)
{
    m_store.addVariableDefinition("TEMP", scalar({{"General Availability", "QEL"}, {"Field Variable", ""}}));

    EXPECT_EQ(text(m_store.variableData("TEMP").fieldVariable), "T");
    EXPECT_EQ(HostReports::reported().size(), 1U);
}

TEST_F(ReadDefinition, AssumesNoFieldWithoutQel)
{
    // "QEL" must be a whole keyword of the general availability
    m_store.addVariableDefinition("A", scalar());
    m_store.addVariableDefinition("B", scalar({{"General Availability", "RESULTS"}}));
    m_store.addVariableDefinition("C", scalar({{"General Availability", "QELX,qel,!QEL"}}));
    m_store.addVariableDefinition("D", scalar({{"Physical Availability", "QEL"}, {"Variable Class", "QEL"}}));

    for (const char* name : {"A", "B", "C", "D"})
        EXPECT_EQ(text(m_store.variableData(name).fieldVariable), "F") << name;
    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

TEST_F(ReadDefinition, WarnsOfAMissingFieldVariableOnceForAVectorAndItsComponents)
{
    m_store.addVariableDefinition("VEL", velocity({{"General Availability", "QEL"}}));

    EXPECT_EQ(HostReports::reported().size(), 1U);
    for (const char* name : {"VEL", "U", "V", "W"})
        EXPECT_EQ(text(m_store.variableData(name).fieldVariable), "T") << name;
}

TEST_F(ReadDefinition, WarnsOfAMissingFieldVariableBeforeADuplicateIsRefused)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THROW(m_store.addVariableDefinition("TEMP", scalar({{"General Availability", "QEL"}})),
                 data::duplicate);

    EXPECT_EQ(HostReports::reported().size(), 1U);
}

}    // namespace
