#include "StoreTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

class VariableNames : public StoreTest {};
class VariableAliases : public StoreTest {};
class ShortNames : public StoreTest {};
class UnknownVariable : public StoreTest {};
class CopyOfAStore : public StoreTest {};

TEST_F(VariableNames, AllFourFindTheRecord)
{
    m_store.addVariableDefinition("PRES", scalar());
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"},
                                                  {"Old Short Name", "T0"},
                                                  {"Old Long Name", "Static Temperature"}}));

    for (const char* name : {"TEMP", "Temperature", "T0", "Static Temperature"})
    {
        EXPECT_TRUE(m_store.hasVariable(name)) << name;
        EXPECT_EQ(m_store.variableIndex(name), 1U) << name;
        EXPECT_EQ(text(m_store.variableData(name).shortName), "TEMP") << name;
    }
    EXPECT_EQ(&m_store.variableData("T0"), &m_store.variableData(std::size_t {1}));
    EXPECT_EQ(m_store.shortName(0), "PRES");
    EXPECT_EQ(m_store.shortName(1), "TEMP");
}

TEST_F(VariableNames, AreComparedExactly)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));

    EXPECT_FALSE(m_store.hasVariable("temp"));
    EXPECT_FALSE(m_store.hasVariable("TEMP "));
    EXPECT_FALSE(m_store.hasVariable("TEM"));
    EXPECT_FALSE(m_store.hasVariable("TEMPERATURE"));
}

TEST_F(VariableNames, AreNotTheTextsOfOtherFields)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Quantity", "Heat"}, {"General Availability", "QEL"}}));

    EXPECT_FALSE(m_store.hasVariable("Heat"));
    EXPECT_FALSE(m_store.hasVariable("QEL"));
    EXPECT_FALSE(m_store.hasVariable("SCALAR"));
    EXPECT_FALSE(m_store.hasVariable("T"));
}

TEST_F(VariableNames, OfAVariableWithoutOthersAreItsShortNameAlone)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_TRUE(m_store.hasVariable("TEMP"));
    EXPECT_FALSE(m_store.hasVariable(""));
    EXPECT_THAT(m_store.getVariableAliases("TEMP"), ElementsAre("TEMP"));
}

TEST_F(VariableNames, MayBeAllTheSame)
{
    m_store.addVariableDefinition(
        "TEMP", scalar({{"Long Name", "TEMP"}, {"Old Short Name", "TEMP"}, {"Old Long Name", "TEMP"}}));

    EXPECT_EQ(m_store.variableIndex("TEMP"), 0U);
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
}

TEST_F(VariableNames, OfAVariableWithoutShortNameAreTheOthers)
{
    m_store.addVariableDefinition("", scalar({{"Long Name", "Nameless"}}));

    EXPECT_FALSE(m_store.hasVariable(""));
    EXPECT_EQ(m_store.variableIndex("Nameless"), 0U);
    EXPECT_THAT(m_store.getVariableAliases("Nameless"), ElementsAre("", "Nameless"));
}

TEST_F(VariableNames, MayBeAddedToARecord)
{
    m_store.addVariableDefinition("PRES", scalar());
    m_store.addVariableDefinition("TEMP", scalar());

    m_store.addVariableAlias(m_store.addValue("Heat Level"), 1);
    m_store.addVariableAlias(m_store.addValue("Heat Level"), 1);    // again: nothing happens
    m_store.addVariableAlias(m_store.addValue(""), 0);              // no name: nothing happens
    m_store.addVariableAlias(m_store.addValue(""), 1);

    EXPECT_EQ(m_store.variableIndex("Heat Level"), 1U);
    EXPECT_FALSE(m_store.hasVariable(""));
    // Found by it, but only the record's own names are listed
    EXPECT_THAT(m_store.getVariableAliases("Heat Level"), ElementsAre("TEMP"));
}

TEST_F(VariableAliases, AreListedFromNewToOldWhicheverNameAsks)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"},
                                                  {"Old Short Name", "T0"},
                                                  {"Old Long Name", "Static Temperature"}}));

    for (const char* name : {"TEMP", "Temperature", "T0", "Static Temperature"})
        EXPECT_THAT(m_store.getVariableAliases(name),
                    ElementsAre("TEMP", "Temperature", "T0", "Static Temperature"))
            << name;
}

TEST_F(VariableAliases, ListALongNameThatIsTheShortNameOnce)
{
    m_store.addVariableDefinition("Density", scalar({{"Long Name", "Density"}}));

    EXPECT_THAT(m_store.getVariableAliases("Density"), ElementsAre("Density"));
}

TEST_F(VariableAliases, ListAnOldShortNameThatIsAlsoTheShortName)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}, {"Old Short Name", "TEMP"}}));

    EXPECT_THAT(m_store.getVariableAliases("TEMP"), ElementsAre("TEMP", "Temperature", "TEMP"));
}

TEST_F(VariableAliases, ListAnOldLongNameThatIsAlsoTheLongName)
{
    m_store.addVariableDefinition("TEMP",
                                  scalar({{"Long Name", "Temperature"}, {"Old Long Name", "Temperature"}}));

    EXPECT_THAT(m_store.getVariableAliases("TEMP"), ElementsAre("TEMP", "Temperature", "Temperature"));
}

TEST_F(VariableAliases, ListAnOldLongNameThatIsTheOldShortNameOnce)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Old Short Name", "T0"}, {"Old Long Name", "T0"}}));

    EXPECT_THAT(m_store.getVariableAliases("T0"), ElementsAre("TEMP", "T0"));
}

TEST_F(VariableAliases, ListAnOldLongNameWithoutAnOldShortName)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Old Long Name", "Static Temperature"}}));

    EXPECT_THAT(m_store.getVariableAliases("TEMP"), ElementsAre("TEMP", "Static Temperature"));
}

TEST_F(ShortNames, OfAnEmptyStoreAreNone) { EXPECT_THAT(m_store.getAllVariableShortNames(), IsEmpty()); }

TEST_F(ShortNames, AreThoseOfAllRecordsInTheirOrder)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    m_store.addVariableDefinition("VEL", velocity());
    m_store.addVariableDefinition("PRES", scalar());
    m_store.addVariableDefinition("STRESS", stress());

    EXPECT_THAT(m_store.getAllVariableShortNames(),
                ElementsAre("TEMP", "VEL", "U", "V", "W", "PRES", "STRESS", "Sxx", "Syy", "Szz", "Sxy", "Syz",
                            "Sxz"));
}

TEST_F(ShortNames, HoldADefinitionThatCameAfterTheyWereListed)
{
    EXPECT_THAT(m_store.getAllVariableShortNames(), IsEmpty());
    m_store.addVariableDefinition("TEMP", scalar());
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    m_store.addVariableDefinition("PRES", scalar());
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP", "PRES"));
}

TEST_F(ShortNames, StayAsListedWhenARecordIsAppendedDirectly)
{
    // Given a list that was asked for
    m_store.addVariableDefinition("TEMP", scalar());
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));

    // When a finished record comes without a definition
    auto record = m_store.variableData("TEMP");
    record.shortName = m_store.addValue("PRES");
    m_store.doAddVariableDefinition(record);

    // Then the list does not know it, until a definition, even an ignored one, begins it anew
    EXPECT_TRUE(m_store.hasVariable("PRES"));
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    m_store.addVariableDefinition("BAD", {});
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP", "PRES"));
}

TEST_F(ShortNames, BeginAnewAlsoAfterARefusedDefinition)
{
    m_store.addVariableDefinition("TEMP", scalar());
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    auto record = m_store.variableData("TEMP");
    record.shortName = m_store.addValue("PRES");
    m_store.doAddVariableDefinition(record);

    EXPECT_THROW(m_store.addVariableDefinition("VEL", velocity({{"Component Short Names", "U"}})),
                 data::error);

    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP", "PRES"));
}

TEST_F(UnknownVariable, IsNotFound)
{
    EXPECT_FALSE(m_store.hasVariable("NoSuchVar"));
    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.variableData("NoSuchVar"); }),
                Optional(IsThrownBy("variableData", "Variable 'NoSuchVar' does not exist.")));
}

TEST_F(UnknownVariable, IsReportedByTheSameFunctionEverywhere)
{
    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.variableIndex("NoSuchVar"); }),
                Optional(IsThrownBy("variableData", "Variable 'NoSuchVar' does not exist.")));
    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.getVariableAliases("NoSuchVar"); }),
                Optional(IsThrownBy("variableData", "Variable 'NoSuchVar' does not exist.")));
}

TEST_F(UnknownVariable, MayBeTheEmptyText)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.variableIndex(""); }),
                Optional(IsThrownBy("variableData", "Variable '' does not exist.")));
}

TEST_F(CopyOfAStore, HasEverythingOfTheOriginal)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Long Name", "Temperature"}}));
    m_store.addVariableDefinition("VEL", velocity());

    const PreVariableDefStore copy = m_store;

    EXPECT_THAT(copy.getAllVariableShortNames(), ElementsAre("TEMP", "VEL", "U", "V", "W"));
    EXPECT_THAT(copy.getVariableAliases("Temperature"), ElementsAre("TEMP", "Temperature"));
    EXPECT_EQ(copy.variableIndex("Velocity w"), 4U);
    EXPECT_EQ(valuesOf(copy), valuesOf(m_store));
}

TEST_F(CopyOfAStore, LivesOnItsOwn)
{
    // Given a copy of a store
    m_store.addVariableDefinition("TEMP", scalar());
    PreVariableDefStore copy = m_store;

    // When each of the two goes its own way
    copy.addVariableDefinition("PRES", scalar());
    m_store.addVariableDefinition("VEL", velocity());

    // Then neither sees what the other got
    EXPECT_THAT(copy.getAllVariableShortNames(), ElementsAre("TEMP", "PRES"));
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP", "VEL", "U", "V", "W"));
    EXPECT_FALSE(copy.hasVariable("VEL"));
    EXPECT_FALSE(m_store.hasVariable("PRES"));
    EXPECT_THAT(valuesReadInto(copy), ElementsAre("TEMP", "PRES"));
}

TEST_F(CopyOfAStore, HasTheListOfNamesAsItStands)
{
    // Given a list that a finished record has left behind
    m_store.addVariableDefinition("TEMP", scalar());
    ASSERT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    PreVariableDefStore::VarDefData record;
    record.shortName = m_store.addValue("PRES");
    m_store.doAddVariableDefinition(record);

    const PreVariableDefStore copy = m_store;

    EXPECT_THAT(copy.getAllVariableShortNames(), ElementsAre("TEMP"));
    EXPECT_TRUE(copy.hasVariable("PRES"));
}

TEST_F(CopyOfAStore, OutlivesTheOriginal)
{
    PreVariableDefStore copy;
    {
        PreVariableDefStore original;
        original.addVariableDefinition("a name that is too long to be kept in place", scalar());
        copy.addVariableDefinition("PRES", scalar());

        copy = original;
    }

    EXPECT_FALSE(copy.hasVariable("PRES"));
    EXPECT_EQ(copy.variableIndex("a name that is too long to be kept in place"), 0U);
    EXPECT_EQ(copy.shortName(0), "a name that is too long to be kept in place");
}

}    // namespace
