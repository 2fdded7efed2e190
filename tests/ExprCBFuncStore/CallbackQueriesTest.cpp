#include "CallbackTest.h"

#include "DataError.h"
#include "UnitsError.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

class CallbackNames : public CallbackTest {};
class CallbackLocator : public CallbackTest {};
class CopyOfACallbackStore : public CallbackTest {};

LocatorDimension::Value dimension(int p_value) { return static_cast<LocatorDimension::Value>(p_value); }

// Names.

TEST_F(CallbackNames, OfAnEmptyStoreAreNone) { EXPECT_THAT(m_store.getCBNames(), IsEmpty()); }

TEST_F(CallbackNames, AreListedInByteOrderNotAsDefined)
{
    for (const char* name : {"volume", "area", "Volume", "areaAve", "_x", "\xC3\xA9tat", "2d"})
        m_store.addCBDefinition(name, average());

    EXPECT_THAT(m_store.getCBNames(),
                ElementsAre("2d", "Volume", "_x", "area", "areaAve", "volume", "\xC3\xA9tat"));
}

TEST_F(CallbackNames, HoldADefinitionThatCameAfterTheyWereListed)
{
    m_store.addCBDefinition("b", average());
    EXPECT_THAT(m_store.getCBNames(), ElementsAre("b"));
    m_store.addCBDefinition("a", average());
    EXPECT_THAT(m_store.getCBNames(), ElementsAre("a", "b"));
}

TEST_F(CallbackNames, AreListedOnceAndThenKept)
{
    m_store.addCBDefinition("b", average());

    const std::vector<std::string>& names = m_store.getCBNames();

    EXPECT_EQ(&m_store.getCBNames(), &names);
    EXPECT_EQ(m_store.getCBNames().data(), names.data());
}

TEST_F(CallbackNames, AreForgottenAlsoByADefinitionThatIsRefused)
{
    // Given a list that a caller looks at
    m_store.addCBDefinition("a", average());
    const std::vector<std::string>& names = m_store.getCBNames();
    ASSERT_THAT(names, ElementsAre("a"));

    // When a definition is refused for its very first key
    EXPECT_THROW(m_store.addCBDefinition("b", {}), data::error);

    // Then the list is empty, until it is asked for again
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(m_store.getCBNames(), ElementsAre("a"));
}

TEST_F(CallbackNames, AreForgottenByEveryDefinitionHoweverItEnds)
{
    m_store.addCBDefinition("a", average());
    const std::vector<std::string>& names = m_store.getCBNames();
    ASSERT_THAT(names, ElementsAre("a"));

    m_store.addCBDefinition("a", average());    // there already: discarded
    EXPECT_THAT(names, IsEmpty());

    ASSERT_THAT(m_store.getCBNames(), ElementsAre("a"));
    EXPECT_THROW(m_store.addCBDefinition("b", average({{"Result Units", "[smoot]"}})), units::error);
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(m_store.getCBNames(), ElementsAre("a"));
}

TEST_F(CallbackNames, AreComparedExactly)
{
    m_store.addCBDefinition("probe", average());

    for (const char* name : {"Probe", "probe ", " probe", "prob", "probes", ""})
        EXPECT_THROW(m_store.findCBDef(name), data::notFound) << name;
}

// Unknown names.

using Query = std::pair<const char*, std::function<void(const ExprCBFuncStore&)>>;

class CallbackQuery : public CallbackTest, public testing::WithParamInterface<Query> {};

TEST_P(CallbackQuery, OfAnUndefinedNameIsNotFound)
{
    m_store.addCBDefinition("probe", average());

    EXPECT_THAT(thrownBy<data::notFound>([&] { GetParam().second(m_store); }),
                Optional(IsThrownBy("findCBDef", "Function 'nowhere' is not defined.")));
}

INSTANTIATE_TEST_SUITE_P(
    All, CallbackQuery,
    testing::Values(
        Query {"findCBDef", [](const auto& p_store) { p_store.findCBDef("nowhere"); }},
        Query {"getNumArgs", [](const auto& p_store) { p_store.getNumArgs("nowhere"); }},
        Query {"getResultDim", [](const auto& p_store) { p_store.getResultDim("nowhere"); }},
        Query {"isFieldValued", [](const auto& p_store) { p_store.isFieldValued("nowhere"); }},
        Query {"allowsVectorComponents",
               [](const auto& p_store) { p_store.allowsVectorComponents("nowhere"); }},
        Query {"isAllowedLocatorDimension",
               [](const auto& p_store) { p_store.isAllowedLocatorDimension("nowhere", dimension(1)); }},
        Query {"isAllowedLocatorDimensionOfAForeignDimension",
               [](const auto& p_store) { p_store.isAllowedLocatorDimension("nowhere", dimension(5)); }}),
    [](const auto& p_case) { return p_case.param.first; });

// Locators.

TEST_F(CallbackLocator, IsAcceptedWhenTheDefinitionNamesItsDimension)
{
    m_store.addCBDefinition("probe", average({{"Locator Dimension", "Point,Volume"}}));

    EXPECT_TRUE(m_store.isAllowedLocatorDimension("probe", LocatorDimension::Point));
    EXPECT_TRUE(m_store.isAllowedLocatorDimension("probe", LocatorDimension::Volume));
    EXPECT_FALSE(m_store.isAllowedLocatorDimension("probe", LocatorDimension::Surface));
    EXPECT_TRUE(m_store.isAllowedLocatorDimension("probe", dimension(1)));
    EXPECT_TRUE(m_store.isAllowedLocatorDimension("probe", dimension(4)));
    EXPECT_FALSE(m_store.isAllowedLocatorDimension("probe", dimension(3)));
}

TEST_F(CallbackLocator, IsNeverAcceptedWhenUnknownOrALine)
{
    m_store.addCBDefinition("probe", average({{"Locator Dimension", "Point,Surface,Volume,Line,Unknown"}}));

    EXPECT_FALSE(m_store.isAllowedLocatorDimension("probe", LocatorDimension::Unknown));
    EXPECT_FALSE(m_store.isAllowedLocatorDimension("probe", dimension(2)));
}

TEST_F(CallbackLocator, RefusesADimensionThatHasNoPosition)
{
    m_store.addCBDefinition("probe", average());

    for (const int value : {-1, 5, 6, 64, 2147483647, -2147483647 - 1})
    {
        const auto thrown = thrownBy<std::out_of_range>(
            [&] { m_store.isAllowedLocatorDimension("probe", dimension(value)); });
        ASSERT_TRUE(thrown) << value;
        EXPECT_STREQ(thrown->what(), "invalid bitset<N> position") << value;
    }
    EXPECT_FALSE(m_store.isAllowedLocatorDimension("probe", dimension(0)));
    EXPECT_TRUE(m_store.isAllowedLocatorDimension("probe", dimension(4)));
}

// Copies.

TEST_F(CopyOfACallbackStore, HasEverythingAndLivesOnItsOwn)
{
    auto original = std::make_unique<ExprCBFuncStore>();
    original->addCBDefinition("a", average({{"Result Units", "[m]"}}));
    ASSERT_THAT(original->getCBNames(), ElementsAre("a"));

    ExprCBFuncStore copy(*original);
    ExprCBFuncStore assigned;
    assigned.addCBDefinition("z", average());
    assigned = copy;
    copy.addCBDefinition("b", average());
    original->addCBDefinition("c", average());
    EXPECT_THAT(original->getCBNames(), ElementsAre("a", "c"));
    original.reset();

    EXPECT_THAT(copy.getCBNames(), ElementsAre("a", "b"));
    EXPECT_THAT(assigned.getCBNames(), ElementsAre("a"));
    EXPECT_EQ(UnitsTable::baseUnits(assigned.getResultDim("a")), "m");
    EXPECT_THROW(assigned.findCBDef("z"), data::notFound);
}

}    // namespace
