#include "StoreTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

class AddDefinition : public StoreTest {
protected:
    void expectNotThereYet(const std::string& p_name, std::size_t p_record) const
    {
        const std::string message = "Variable '" + p_name + "' does not exist.";

        EXPECT_TRUE(m_store.hasVariable(p_name));
        EXPECT_EQ(m_store.variableIndex(p_name), p_record);
        EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.variableData(p_name); }),
                    Optional(IsThrownBy("variableData", message)));
        EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.getVariableAliases(p_name); }),
                    Optional(IsThrownBy("variableData", message)));
    }
};

TEST_F(AddDefinition, FollowsAVectorByItsThreeComponents)
{
    m_store.addVariableDefinition("Velocity", velocity({{"Old Component Short Names", "U0,V0,W0"},
                                                        {"Old Component Long Names", "Old u,Old v,Old w"}}));

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("Velocity", "U", "V", "W"));
    EXPECT_EQ(text(m_store.variableData("Velocity").tensorType), "VECTOR");
    EXPECT_THAT(texts(m_store.variableData("Velocity").componentShortNames), ElementsAre("U", "V", "W"));
    EXPECT_THAT(texts(m_store.variableData("Velocity").componentLongNames),
                ElementsAre("Velocity u", "Velocity v", "Velocity w"));
    EXPECT_THAT(texts(m_store.variableData("Velocity").oldComponentShortNames),
                ElementsAre("U0", "V0", "W0"));
    EXPECT_THAT(texts(m_store.variableData("Velocity").oldComponentLongNames),
                ElementsAre("Old u", "Old v", "Old w"));

    EXPECT_THAT(m_store.getVariableAliases("U"), ElementsAre("U", "Velocity u", "U0", "Old u"));
    EXPECT_THAT(m_store.getVariableAliases("V"), ElementsAre("V", "Velocity v", "V0", "Old v"));
    EXPECT_THAT(m_store.getVariableAliases("W"), ElementsAre("W", "Velocity w", "W0", "Old w"));
    for (const char* name : {"U", "V", "W"})
    {
        const PreVariableDefStore::VarDefData& component = m_store.variableData(name);
        EXPECT_EQ(text(component.tensorType), "SCALAR") << name;
        EXPECT_THAT(component.componentShortNames, IsEmpty()) << name;
        EXPECT_THAT(component.oldComponentShortNames, IsEmpty()) << name;
        EXPECT_THAT(component.componentLongNames, IsEmpty()) << name;
        EXPECT_THAT(component.oldComponentLongNames, IsEmpty()) << name;
    }
}

TEST_F(AddDefinition, FollowsASymmetricTensorByItsSixComponents)
{
    m_store.addVariableDefinition("Stress", stress());

    EXPECT_THAT(m_store.getAllVariableShortNames(),
                ElementsAre("Stress", "Sxx", "Syy", "Szz", "Sxy", "Syz", "Sxz"));
    EXPECT_EQ(text(m_store.variableData("Stress").tensorType), "SYMTEN2");
    EXPECT_EQ(text(m_store.variableData("Sxz").tensorType), "SCALAR");
    EXPECT_EQ(m_store.variableIndex("Stress xz"), 6U);
}

TEST_F(AddDefinition, GivesComponentsEverythingElseOfTheirVariable)
{
    m_store.addVariableDefinition("VEL", velocity({{"Quantity", "Speed"},
                                                   {"General Availability", "QEL,RESULTS"},
                                                   {"Physical Availability", "FLUID"},
                                                   {"Variable Class", "SOLUTION"},
                                                   {"Variable Scope", "PHASE"},
                                                   {"Status", "P"},
                                                   {"Under Relaxation Factor", "0.75"},
                                                   {"User Level", "2"},
                                                   {"Output to Postprocessor", "Yes"},
                                                   {"Field Variable", "T"}}));

    for (const char* name : {"U", "V", "W"})
    {
        const PreVariableDefStore::VarDefData& component = m_store.variableData(name);
        EXPECT_EQ(text(component.quantity), "Speed") << name;
        EXPECT_THAT(texts(component.generalAvailability), ElementsAre("QEL", "RESULTS")) << name;
        EXPECT_THAT(texts(component.physicalAvailability), ElementsAre("FLUID")) << name;
        EXPECT_THAT(texts(component.variableClass), ElementsAre("SOLUTION")) << name;
        EXPECT_THAT(texts(component.variableScope), ElementsAre("PHASE")) << name;
        EXPECT_EQ(text(component.status), "P") << name;
        EXPECT_EQ(text(component.underRelaxationFactor), "0.75") << name;
        EXPECT_EQ(text(component.userLevel), "2") << name;
        EXPECT_EQ(text(component.outputToPostprocessor), "Yes") << name;
        EXPECT_EQ(text(component.fieldVariable), "T") << name;
    }
}

TEST_F(AddDefinition, GivesComponentsTheirOldNamesWhereTheListsFit)
{
    m_store.addVariableDefinition("VEL", velocity({{"Old Short Name", "VELO"},
                                                   {"Old Long Name", "Fluid Velocity"},
                                                   {"Old Component Short Names", "U0,V0,W0"},
                                                   {"Old Component Long Names", "Old u,Old v,Old w"}}));

    EXPECT_THAT(m_store.getVariableAliases("VEL"), ElementsAre("VEL", "VELO", "Fluid Velocity"));
    EXPECT_THAT(m_store.getVariableAliases("U"), ElementsAre("U", "Velocity u", "U0", "Old u"));
    EXPECT_THAT(m_store.getVariableAliases("V"), ElementsAre("V", "Velocity v", "V0", "Old v"));
    EXPECT_THAT(m_store.getVariableAliases("W"), ElementsAre("W", "Velocity w", "W0", "Old w"));
}

TEST_F(AddDefinition, JudgesTheTwoOldListsApart)
{
    m_store.addVariableDefinition("VEL", velocity({{"Old Component Short Names", "U0,V0"},
                                                   {"Old Component Long Names", "Old u,Old v,Old w"}}));
    EXPECT_THAT(m_store.getVariableAliases("V"), ElementsAre("V", "Velocity v", "Old v"));

    m_store.addVariableDefinition("STRESS", stress({{"Old Component Short Names", "1,2,3,4,5,6"},
                                                    {"Old Component Long Names", "a,b,c"}}));
    EXPECT_THAT(m_store.getVariableAliases("Sxz"), ElementsAre("Sxz", "Stress xz", "6"));
}

TEST_F(AddDefinition, TakesEmptyNamesFromOldListsThatFit)
{
    // Given a vector with an old name, and an old list that fits but has no text in the middle
    m_store.addVariableDefinition(
        "VEL", velocity({{"Old Short Name", "VELO"}, {"Old Component Short Names", "U0,,W0"}}));

    // Then that component has no old name, not its variable's and not its neighbour's
    EXPECT_THAT(m_store.getVariableAliases("V"), ElementsAre("V", "Velocity v"));
    EXPECT_THAT(m_store.getVariableAliases("W"), ElementsAre("W", "Velocity w", "W0"));
}

TEST_F(AddDefinition, RefusesAnAliasOfAnotherRecord)
{
    m_store.addVariableDefinition("PRES", scalar());
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(thrownBy<data::duplicate>([&] { m_store.addVariableAlias(m_store.addValue("TEMP"), 0); }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'TEMP'.")));
    EXPECT_EQ(m_store.variableIndex("TEMP"), 1U);
}

struct Clash {
    const char* name;
    const char* shortName;
    Definition definition;
    const char* message;
};

class AddDefinitionWithAKnownName : public StoreTest, public testing::WithParamInterface<Clash> {};

TEST_P(AddDefinitionWithAKnownName, Throws)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"},
                                                  {"Old Short Name", "T0"},
                                                  {"Old Long Name", "Static Temperature"}}));

    EXPECT_THAT(thrownBy<data::duplicate>(
                    [&] { m_store.addVariableDefinition(GetParam().shortName, GetParam().definition); }),
                Optional(IsThrownBy("doAddVariableDefinition", GetParam().message)));

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    EXPECT_EQ(m_store.variableIndex("TEMP"), 0U);
    EXPECT_EQ(m_store.variableIndex("Temperature"), 0U);
    EXPECT_EQ(m_store.variableIndex("T0"), 0U);
    EXPECT_EQ(m_store.variableIndex("Static Temperature"), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Names, AddDefinitionWithAKnownName,
    testing::Values(
        Clash {"Again", "TEMP", scalar(), "Duplicate definition of variable 'TEMP'."},
        Clash {"LongName", "X", scalar({{"Long Name", "Temperature"}}),
               "Duplicate definition of variable 'Temperature'."},
        Clash {"OldShortName", "X", scalar({{"Old Short Name", "T0"}}),
               "Duplicate definition of variable 'T0'."},
        Clash {"OldLongName", "X", scalar({{"Old Long Name", "Static Temperature"}}),
               "Duplicate definition of variable 'Static Temperature'."},
        Clash {"ShortNameThatIsALongName", "Temperature", scalar(),
               "Duplicate definition of variable 'Temperature'."},
        Clash {"OldLongNameThatIsAShortName", "X", scalar({{"Old Long Name", "TEMP"}}),
               "Duplicate definition of variable 'TEMP'."},
        // several: the first in the order short, long, old short, old long
        Clash {"Several", "X",
               scalar({{"Long Name", "T0"}, {"Old Short Name", "TEMP"}, {"Old Long Name", "Temperature"}}),
               "Duplicate definition of variable 'T0'."}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(AddDefinition, LeavesEarlierNamesToTheNextRecord)
{
    // Given a variable, and another that is refused for its long name
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    EXPECT_THAT(
        thrownBy<data::duplicate>([&] {
            m_store.addVariableDefinition("TEMP2", scalar({{"Long Name", "Temperature"}}));
        }),
        Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'Temperature'.")));

    // Then its short name addresses a record that is not there
    expectNotThereYet("TEMP2", 1);
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));

    // And when a record comes, it inherits the name
    m_store.addVariableDefinition("PRES", scalar({{"Long Name", "Pressure"}}));
    EXPECT_EQ(m_store.variableIndex("TEMP2"), 1U);
    EXPECT_EQ(text(m_store.variableData("TEMP2").shortName), "PRES");
    EXPECT_THAT(m_store.getVariableAliases("TEMP2"), ElementsAre("PRES", "Pressure"));
}

TEST_F(AddDefinition, LetsTheNextDefinitionTakeTheNameItInherits)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    EXPECT_THROW(m_store.addVariableDefinition("TEMP2", scalar({{"Long Name", "Temperature"}})),
                 data::duplicate);

    // The same name for the same record is no duplicate
    m_store.addVariableDefinition("TEMP2", scalar({{"Long Name", "Temperature 2"}}));

    EXPECT_EQ(m_store.variableIndex("TEMP2"), 1U);
    EXPECT_EQ(m_store.variableIndex("Temperature 2"), 1U);
}

TEST_F(AddDefinition, RefusesAnInheritedNameOnceItsRecordIsThere)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    EXPECT_THROW(m_store.addVariableDefinition("TEMP2", scalar({{"Long Name", "Temperature"}})),
                 data::duplicate);
    m_store.addVariableDefinition("PRES", scalar());

    EXPECT_THAT(thrownBy<data::duplicate>([&] { m_store.addVariableDefinition("TEMP2", scalar()); }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'TEMP2'.")));
}

TEST_F(AddDefinition, KeepsVariableAndEarlierComponentsWhenAComponentIsRefused)
{
    m_store.addVariableDefinition("W", scalar());

    EXPECT_THAT(thrownBy<data::duplicate>([&] { m_store.addVariableDefinition("VEL", velocity()); }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'W'.")));

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("W", "VEL", "U", "V"));
    EXPECT_FALSE(m_store.hasVariable("Velocity w"));
}

TEST_F(AddDefinition, RefusesComponentsThatShareAName)
{
    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableDefinition("VEL", velocity({{"Component Short Names", "U,V,U"}}));
                }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'U'.")));

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("VEL", "U", "V"));
}

struct InheritedName {
    const char* name;
    Definition definition;
    const char* message;
    std::vector<std::string> namesLeft;    // registered for the component that was refused
};

class AddDefinitionWithInheritedOldName : public StoreTest,
                                          public testing::WithParamInterface<InheritedName> {};

TEST_P(AddDefinitionWithInheritedOldName, RefusesTheFirstComponent)
{
    EXPECT_THAT(thrownBy<data::duplicate>(
                    [&] { m_store.addVariableDefinition("VEL", velocity(GetParam().definition)); }),
                Optional(IsThrownBy("doAddVariableDefinition", GetParam().message)));

    // The variable is there, with its old name; the component's names wait for the next record
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("VEL"));
    for (const std::string& name : GetParam().namesLeft)
    {
        EXPECT_TRUE(m_store.hasVariable(name)) << name;
        EXPECT_EQ(m_store.variableIndex(name), 1U) << name;
        EXPECT_THROW(m_store.variableData(name), data::notFound) << name;
    }
    EXPECT_FALSE(m_store.hasVariable("V"));
}

INSTANTIATE_TEST_SUITE_P(
    OldLists, AddDefinitionWithInheritedOldName,
    testing::Values(InheritedName {"NoOldShortList",
                                   {{"Old Short Name", "VELO"}},
                                   "Duplicate definition of variable 'VELO'.",
                                   {"U", "Velocity u"}},
                    InheritedName {"NoOldLongList",
                                   {{"Old Long Name", "Fluid Velocity"}},
                                   "Duplicate definition of variable 'Fluid Velocity'.",
                                   {"U", "Velocity u"}},
                    InheritedName {"ShortOldShortList",
                                   {{"Old Short Name", "VELO"}, {"Old Component Short Names", "U0,V0"}},
                                   "Duplicate definition of variable 'VELO'.",
                                   {"U", "Velocity u"}},
                    InheritedName {
                        "LongOldLongList",
                        {{"Old Long Name", "Fluid Velocity"}, {"Old Component Long Names", "a,b,c,d"}},
                        "Duplicate definition of variable 'Fluid Velocity'.",
                        {"U", "Velocity u"}},
                    // the old short list fits, so that name is registered before the old long name clashes
                    InheritedName {"OnlyTheShortListFits",
                                   {{"Old Short Name", "VELO"},
                                    {"Old Long Name", "Fluid Velocity"},
                                    {"Old Component Short Names", "U0,V0,W0"}},
                                   "Duplicate definition of variable 'Fluid Velocity'.",
                                   {"U", "Velocity u", "U0"}}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(AddDefinition, RefusesComponentsOfATensorWhoseOldListIsThatOfAVector)
{
    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableDefinition("S", stress({{"Old Short Name", "SIGMA"},
                                                               {"Old Component Short Names", "S1,S2,S3"}}));
                }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'SIGMA'.")));
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("S"));
}

TEST_F(AddDefinition, OfAFinishedRecordIsRefusedForANameOfAnother)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    PreVariableDefStore::VarDefData record;
    record.shortName = m_store.addValue("T");
    record.longName = m_store.addValue("Temperature");

    EXPECT_THAT(
        thrownBy<data::duplicate>([&] { m_store.doAddVariableDefinition(record); }),
        Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'Temperature'.")));

    // Its short name waits for the next record
    EXPECT_EQ(m_store.variableIndex("T"), 1U);
    EXPECT_THROW(m_store.variableData("T"), data::notFound);
}

TEST_F(AddDefinition, OfARecordWithSetsOfItsOwnKeepsThem)
{
    PreVariableDefStore::VarDefData record;
    record.shortName = m_store.addValue("T");
    record.generalAvailability = m_store.addValues({"RESULTS", "QEL", "RESULTS"});

    m_store.doAddVariableDefinition(record);

    EXPECT_EQ(m_store.getVarDefData("T", PreVariableDefStore::GENERAL_AVAILABILITY), "QEL,RESULTS");
    const PreVariableDefStore::ValueSet kept = m_store.variableData("T").generalAvailability;
    EXPECT_EQ(kept, m_store.addValues({"QEL", "RESULTS"}));
}

TEST_F(AddDefinition, RefusesComponentsThatInheritAnOldName)
{
    // Given a vector with an old short name and no old component names
    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableDefinition("VEL", velocity({{"Old Short Name", "VELO"}}));
                }),
                Optional(IsThrownBy("doAddVariableDefinition", "Duplicate definition of variable 'VELO'.")));

    // Then the vector stays, and the first component's names go to the next record
    EXPECT_EQ(m_store.variableIndex("VELO"), 0U);
    expectNotThereYet("U", 1);
    expectNotThereYet("Velocity u", 1);
    m_store.addVariableDefinition("PRES", scalar());
    EXPECT_EQ(text(m_store.variableData("Velocity u").shortName), "PRES");
}

TEST_F(AddDefinition, TakesAFinishedRecordThatIsOneOfItsOwn)
{
    // Given a record without a name, so that it may come again
    m_store.addVariableDefinition("", scalar({{"General Availability", "QEL"}, {"Field Variable", "T"}}));

    // When it does, by reference, as often as makes the records grow
    for (std::size_t i = 0; i < 100; ++i)
        m_store.doAddVariableDefinition(m_store.variableData(i));

    // Then all have the same fields
    EXPECT_THAT(texts(m_store.variableData(std::size_t {100}).generalAvailability), ElementsAre("QEL"));
    EXPECT_THAT(texts(m_store.variableData(std::size_t {0}).generalAvailability), ElementsAre("QEL"));
}

TEST_F(AddDefinition, NeverAsksTheHostToAssert)
{
    m_store.addVariableDefinition("VEL", velocity());
    m_store.addVariableDefinition("BAD", {});
    EXPECT_THROW(m_store.addVariableDefinition("U", scalar()), data::duplicate);

    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

}    // namespace
