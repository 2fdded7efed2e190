#include "StoreTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ValueTable : public StoreTest {};

TEST_F(ValueTable, BeginsWithTheSevenTextsOfEveryStore)
{
    EXPECT_THAT(valuesOf(m_store), ElementsAre("SCALAR", "VECTOR", "SYMTEN2", "T", "F", "QEL", ""));
}

TEST_F(ValueTable, FindsTheSevenTextsInsteadOfAddingThem)
{
    EXPECT_EQ(m_store.addValue("SCALAR"), 0U);
    EXPECT_EQ(m_store.addValue("VECTOR"), 1U);
    EXPECT_EQ(m_store.addValue("SYMTEN2"), 2U);
    EXPECT_EQ(m_store.addValue("T"), 3U);
    EXPECT_EQ(m_store.addValue("F"), 4U);
    EXPECT_EQ(m_store.addValue("QEL"), 5U);
    EXPECT_EQ(m_store.addValue(""), 6U);
    EXPECT_THAT(valuesReadInto(m_store), IsEmpty());
}

TEST_F(ValueTable, GivesTheSameTextTheSameIndex)
{
    const auto first = m_store.addValue("Temperature");
    m_store.addValue("Pressure");

    EXPECT_EQ(first, 7U);
    EXPECT_EQ(m_store.addValue("Temperature"), first);
    EXPECT_EQ(m_store.fieldValue(first), "Temperature");
}

TEST_F(ValueTable, KeepsTextsApartThatDifferInCaseOrBlanks)
{
    EXPECT_EQ(m_store.addValue("Temperature"), 7U);
    EXPECT_EQ(m_store.addValue("temperature"), 8U);
    EXPECT_EQ(m_store.addValue(" Temperature"), 9U);
    EXPECT_EQ(m_store.addValue("Temperature "), 10U);
    EXPECT_EQ(m_store.addValue("True"), 11U);    // not the "T" of every store
    EXPECT_EQ(m_store.addValue(std::string("T\0", 2)), 12U);
}

TEST_F(ValueTable, HoldsASetByIndexAndEachValueOnce)
{
    const auto values = m_store.addValues({"TRANSIENT", "QEL", "ASM", "TRANSIENT", "QEL"});

    // "QEL" is the fifth value of every store, so it comes first
    EXPECT_THAT(values, ElementsAre(5U, 7U, 8U));
    EXPECT_THAT(texts(values), ElementsAre("QEL", "TRANSIENT", "ASM"));
}

TEST_F(ValueTable, HoldsAListInItsOrderWithRepeats)
{
    const auto values = m_store.addValuesVec({"w", "u", "w", "", "QEL"});

    EXPECT_THAT(values, ElementsAre(7U, 8U, 7U, 6U, 5U));
    EXPECT_THAT(texts(values), ElementsAre("w", "u", "w", "", "QEL"));
}

TEST_F(ValueTable, MakesNothingOfNothing)
{
    EXPECT_THAT(m_store.addValues({}), IsEmpty());
    EXPECT_THAT(m_store.addValuesVec({}), IsEmpty());
    EXPECT_THAT(m_store.valsToStrVec(PreVariableDefStore::ValueSet {}), IsEmpty());
    EXPECT_THAT(m_store.valsToStrVec(PreVariableDefStore::ValueList {}), IsEmpty());
    EXPECT_THAT(valuesReadInto(m_store), IsEmpty());
}

TEST_F(ValueTable, InternsATextOfItsOwn)
{
    // Given a text that is in the table, read by reference
    const auto value = m_store.addValue("a text that is too long to be kept in place");

    // When it comes back as often as makes the table grow
    for (int i = 0; i < 100; ++i)
    {
        m_store.addValue("filler " + std::to_string(i));
        EXPECT_EQ(m_store.addValue(m_store.fieldValue(value)), value);
    }

    // Then it is still the one
    EXPECT_EQ(m_store.fieldValue(value), "a text that is too long to be kept in place");
}

}    // namespace
