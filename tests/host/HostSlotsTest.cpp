#include "DataError.h"
#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"
#include "Error.h"
#include "ExpressionErrors.h"
#include "ExpressionsError.h"
#include "Observer.h"
#include "QCLPath.h"
#include "UnitsError.h"

#include "host/SlotCalls.h"
#include "support/Matchers.h"
#include "support/SchedulerPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace qen {
namespace {

using slots::operationIn;
using slots::slotOf;
using support::ScriptedHost;
using testing::ElementsAre;
using testing::SizeIs;

using Text = const std::string&;
using Texts = std::vector<std::string>;

/// The host of each test is scripted; each operation is both looked up and called through its number.
class HostSlots : public testing::Test {
protected:
    void SetUp() override
    {
        if (!slots::k_known)
            GTEST_SKIP() << "The numbers are those of 64-bit x86.";
    }

    ScriptedHost m_host;
};

TEST_F(HostSlots, ModelOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&ModelQCL::objectExists), 0);
    EXPECT_EQ(slotOf(&ModelQCL::reserved1), 1);
    EXPECT_EQ(slotOf(&ModelQCL::reserved5), 5);
    EXPECT_EQ(slotOf(&ModelQCL::paramValue), 6);
    EXPECT_EQ(slotOf(&ModelQCL::reserved7), 7);
    EXPECT_EQ(slotOf(&ModelQCL::reserved10), 10);
    EXPECT_EQ(slotOf(&ModelQCL::childNames), 11);
    EXPECT_EQ(slotOf(&ModelQCL::childPaths), 12);
}

TEST_F(HostSlots, ModelIsReachedByNumber)
{
    m_host.parameter("/A:a/B:b", "P").hasStoredValue("value");
    const ModelQCL& model = *m_host.model();

    EXPECT_TRUE((model.*operationIn<bool (ModelQCL::*)(Text) const>(0))("/A:a/B:b"));
    EXPECT_FALSE((model.*operationIn<bool (ModelQCL::*)(Text) const>(0))("/A:a/B:c"));
    EXPECT_EQ((model.*operationIn<std::string (ModelQCL::*)(Text, Text) const>(6))("/A:a/B:b", "P"), "value");
    EXPECT_THAT((model.*operationIn<Texts (ModelQCL::*)(Text, Text) const>(11))("/A:a", "B"),
                ElementsAre("b"));
    EXPECT_THAT((model.*operationIn<Texts (ModelQCL::*)(Text, Text) const>(12))("/A:a", "B"),
                ElementsAre("/A:a/B:b"));
}

TEST_F(HostSlots, ParameterRuleOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&ExprParamRules::lowerBound), 0);
    EXPECT_EQ(slotOf(&ExprParamRules::upperBound), 1);
    EXPECT_EQ(slotOf(&ExprParamRules::paramKind), 2);
    EXPECT_EQ(slotOf(&ExprParamRules::isSingleValued), 3);
    EXPECT_EQ(slotOf(&ExprParamRules::dependencies), 4);
    EXPECT_EQ(slotOf(&ExprParamRules::allParamNames), 5);
}

TEST_F(HostSlots, ParameterRulesAreReachedByNumber)
{
    m_host.parameter("/A:a", "P")
        .hasLowerBound("1")
        .hasUpperBound("2")
        .isKind("kind")
        .isSingleValued()
        .dependsOn({"XYZ", "T"});
    m_host.rulesGovern({"P", "Q"});
    const ExprParamRules& rules = *m_host.rules();
    const ModelQCL* const model = m_host.model();
    using TextOf = std::string (ExprParamRules::*)(Text, Text, const ModelQCL*) const;

    EXPECT_EQ((rules.*operationIn<TextOf>(0))("/A:a", "P", model), "1");
    EXPECT_EQ((rules.*operationIn<TextOf>(1))("/A:a", "P", model), "2");
    EXPECT_EQ((rules.*operationIn<TextOf>(2))("/A:a", "P", model), "kind");
    EXPECT_TRUE((rules.*operationIn<bool (ExprParamRules::*)(Text, Text, const ModelQCL*) const>(3))(
        "/A:a", "P", model));
    EXPECT_THAT((rules.*operationIn<Texts (ExprParamRules::*)(Text, Text, const ModelQCL*) const>(4))(
                    "/A:a", "P", model),
                ElementsAre("XYZ", "T"));
    EXPECT_THAT((rules.*operationIn<std::set<std::string> (ExprParamRules::*)() const>(5))(),
                ElementsAre("P", "Q"));
}

TEST_F(HostSlots, LocatorOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&LocatorInfo::reserved0), 0);
    EXPECT_EQ(slotOf(&LocatorInfo::isValidLocator), 1);
    EXPECT_EQ(slotOf(&LocatorInfo::reserved2), 2);
    EXPECT_EQ(slotOf(&LocatorInfo::isModelObject), 3);
    EXPECT_EQ(slotOf(&LocatorInfo::dimension), 4);
    EXPECT_EQ(slotOf(&LocatorInfo::objectPath), 5);
}

TEST_F(HostSlots, LocatorsAreReachedByNumber)
{
    m_host.locator("F", "In").isObject("/FLOW:F/BOUNDARY:In").hasDimension(LocatorDimension::Surface);
    const LocatorInfo& locators = *m_host.locatorInfo();
    using Asks = bool (LocatorInfo::*)(Text, Text) const;

    EXPECT_TRUE((locators.*operationIn<Asks>(1))("F", "In"));
    EXPECT_FALSE((locators.*operationIn<Asks>(1))("G", "In"));
    EXPECT_TRUE((locators.*operationIn<Asks>(3))("F", "In"));
    EXPECT_EQ(
        (locators.*operationIn<LocatorDimension::Value (LocatorInfo::*)(Text, Text) const>(4))("F", "In"), 3);
    EXPECT_EQ((locators.*operationIn<std::string (LocatorInfo::*)(Text, Text) const>(5))("F", "In"),
              "/FLOW:F/BOUNDARY:In");
}

TEST_F(HostSlots, PrefixOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&VariablePrefixInfo::reserved0), 0);
    EXPECT_EQ(slotOf(&VariablePrefixInfo::reserved1), 1);
    EXPECT_EQ(slotOf(&VariablePrefixInfo::classifyPrefixes), 2);
}

TEST_F(HostSlots, PrefixesAreReachedByNumber)
{
    m_host.prefixes("Water", "").areClassifiedAs({VariablePrefixInfo::PHASE, "Water"});
    m_host.prefixes("Wine", "").failWith("No wine.");
    const VariablePrefixInfo& prefixes = *m_host.prefixInfo();
    const auto classify = operationIn<VariablePrefixInfo::Classification (VariablePrefixInfo::*)(
        const QCLPath&, Text, Text, std::string&) const>(2);

    std::string error = "not touched";
    EXPECT_TRUE((prefixes.*classify)(QCLPath("/A:a"), "Water", "", error) ==
                VariablePrefixInfo::Classification(VariablePrefixInfo::PHASE, "Water"));
    EXPECT_EQ(error, "");
    (prefixes.*classify)(QCLPath("/A:a"), "Wine", "", error);
    EXPECT_EQ(error, "No wine.");
}

TEST_F(HostSlots, ThatAreReservedAreNotTheImplementersConcern)
{
    // Given hosts that implement only what is asked of them
    struct Locators final : LocatorInfo {
        bool isValidLocator(Text, Text) const override { return true; }
        bool isModelObject(Text, Text) const override { return true; }
        LocatorDimension::Value dimension(Text, Text) const override { return LocatorDimension::Point; }
        std::string objectPath(Text, Text) const override { return "/A:a"; }
    } const locators;
    struct Prefixes final : VariablePrefixInfo {
        Classification classifyPrefixes(const QCLPath&, Text, Text, std::string&) const override
        {
            return {PHASE, "Water"};
        }
    } const prefixes;

    // Then the other slots do nothing
    using InLocators = void (LocatorInfo::*)() const;
    using InPrefixes = void (VariablePrefixInfo::*)() const;
    for (const int slot : {0, 2})
        (static_cast<const LocatorInfo&>(locators).*operationIn<InLocators>(slot))();
    for (const int slot : {0, 1})
        (static_cast<const VariablePrefixInfo&>(prefixes).*operationIn<InPrefixes>(slot))();
}

TEST_F(HostSlots, TheShortNameFinderHasOneOperation)
{
    m_host.variableName("Water.Temperature").hasShortName("T");

    EXPECT_EQ(slotOf(&ShortVarNameFinder::shortName), 0);
    EXPECT_EQ((m_host.shortNameFinder()->*operationIn<std::string (ShortVarNameFinder::*)(Text) const>(0))(
                  "Water.Temperature"),
              "T");
}

TEST_F(HostSlots, QuantityOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&QuantityModifier::reserved0), 0);
    EXPECT_EQ(slotOf(&QuantityModifier::isDynamicQuantity), 1);
    EXPECT_EQ(slotOf(&QuantityModifier::quantityMode), 2);
    EXPECT_EQ(slotOf(&QuantityModifier::dynamicUnits), 3);
}

TEST_F(HostSlots, QuantitiesAreReachedByNumber)
{
    m_host.parameter("/A:a", "P").isDynamic("kg");
    const QuantityModifier& modifier = *m_host.quantityModifier();

    std::string name;
    EXPECT_TRUE((modifier.*operationIn<bool (QuantityModifier::*)(Text, Text) const>(1))("/A:a", "P"));
    EXPECT_EQ((modifier.*
               operationIn<int (QuantityModifier::*)(const ModelQCL*, Text, Text, std::string&) const>(2))(
                  m_host.model(), "/A:a", "P", name),
              1);
    EXPECT_EQ(name, "Dynamic Quantity");
    EXPECT_EQ((modifier.*operationIn<std::string (QuantityModifier::*)(Text) const>(3))(name), "kg");
}

TEST_F(HostSlots, PhysicsOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&PhysicsEvaluator::reserved0), 0);
    EXPECT_EQ(slotOf(&PhysicsEvaluator::evalBool), 1);
    EXPECT_EQ(slotOf(&PhysicsEvaluator::evalList), 2);
    EXPECT_EQ(slotOf(&PhysicsEvaluator::declareBool), 3);
    EXPECT_EQ(slotOf(&PhysicsEvaluator::declareList), 4);
}

TEST_F(HostSlots, PhysicsIsReachedByNumber)
{
    m_host.query("isHot", "/A:a").isTrue();
    m_host.query("fluids", "/A:a").answers({"Water", "Air"});
    const PhysicsEvaluator& physics = *m_host.physicsEvaluator();
    const ModelQCL* const model = m_host.model();
    using Asks = bool (PhysicsEvaluator::*)(Text, Text, const ModelQCL*) const;
    using Lists = Texts (PhysicsEvaluator::*)(Text, Text, const ModelQCL*) const;
    using Declares = void (PhysicsEvaluator::*)(Text, bool) const;

    EXPECT_TRUE((physics.*operationIn<Asks>(1))("isHot", "/A:a", model));
    EXPECT_THAT((physics.*operationIn<Lists>(2))("fluids", "/A:a", model), ElementsAre("Water", "Air"));
    m_host.forgetCalls();
    (physics.*operationIn<Declares>(3))("isHot", false);
    (physics.*operationIn<Declares>(4))("fluids", true);
    EXPECT_THAT(m_host.calls(),
                ElementsAre("physics.declareBool(isHot, false)", "physics.declareList(fluids, true)"));
}

TEST_F(HostSlots, UpdatesAreReplayedByTheThirdOperation)
{
    EXPECT_EQ(slotOf(&QCLUpdateInfo::reserved0), 0);
    EXPECT_EQ(slotOf(&QCLUpdateInfo::reserved1), 1);
    EXPECT_EQ(slotOf(&QCLUpdateInfo::replay), 2);

    int replayed = 0;
    m_host.pendingChange([&](QCLUpdateHandler&) { ++replayed; });
    struct Idle final : QCLUpdateHandler {
    } handler;
    (m_host.updateInfo()->*operationIn<void (QCLUpdateInfo::*)(QCLUpdateHandler&) const>(2))(handler);
    EXPECT_EQ(replayed, 1);
}

TEST_F(HostSlots, UpdateHandlerOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onBeginObjectParamChanges), 0);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onParamChange), 1);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onInternalParamChange), 2);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onEndObjectParamChanges), 3);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onParamDeletion), 4);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onInternalParamDeletion), 5);
    EXPECT_EQ(slotOf(&QCLUpdateHandler::onObjectDeletion), 6);
}

TEST_F(HostSlots, TheSchedulerIsNotifiedByNumber)
{
    m_host.parameter("/A:a", "P").hasStoredValue("x");
    DimExprChecker checker = m_host.makeChecker();
    DimExprCheckScheduler scheduler = m_host.makeScheduler(checker);
    QCLUpdateHandler& handler = scheduler;
    const auto change = operationIn<void (QCLUpdateHandler::*)(Text, Text, Text, bool)>(1);

    (handler.*change)("/A:a", "P", "x", true);
    EXPECT_THAT(support::keptParams(scheduler), ElementsAre("/A:a|P"));
    (handler.*operationIn<void (QCLUpdateHandler::*)(Text, Text)>(4))("/A:a", "P");
    EXPECT_THAT(support::keptParams(scheduler), SizeIs(0));
    EXPECT_THAT(support::keptObjects(scheduler), ElementsAre("/A:a"));
    (handler.*operationIn<void (QCLUpdateHandler::*)(Text)>(6))("/A:a");
    EXPECT_THAT(support::keptObjects(scheduler), SizeIs(0));
}

// The destructor takes the first two numbers of the classes that have a virtual one.

TEST_F(HostSlots, ErrorOperationsStandInOrder)
{
    EXPECT_EQ(slotOf(&Error::getType), 2);
    EXPECT_EQ(slotOf(&Error::write), 3);
    EXPECT_EQ(slotOf(&Error::getClass), 4);
    EXPECT_EQ(slotOf(&Error::getMethod), 5);
    EXPECT_EQ(slotOf(&Error::errorMessage), 6);
    EXPECT_EQ(slotOf(&Error::getMessage), 7);
}

template <class Exception>
void expectErrorIsReachedByNumber()
{
    const Exception thrown("Class", "method", "What is wrong.", ErrorTypeError);
    const Error& error = thrown;
    using TextOf = std::string (Error::*)() const;

    EXPECT_EQ((error.*operationIn<errorType (Error::*)() const>(2))(), 4);
    std::ostringstream stream;
    (error.*operationIn<void (Error::*)(std::ostream&) const>(3))(stream);
    EXPECT_FALSE(stream.str().empty());
    EXPECT_EQ((error.*operationIn<TextOf>(4))(), "Class");
    EXPECT_EQ((error.*operationIn<TextOf>(5))(), "method");
    EXPECT_EQ((error.*operationIn<TextOf>(6))(), stream.str());
    EXPECT_EQ((error.*operationIn<TextOf>(7))(), "What is wrong.");
}

TEST_F(HostSlots, EveryExceptionIsReachedByNumber)
{
    expectErrorIsReachedByNumber<Error>();
    expectErrorIsReachedByNumber<expressions::error>();
    expectErrorIsReachedByNumber<expressions::name>();
    expectErrorIsReachedByNumber<data::error>();
    expectErrorIsReachedByNumber<data::notFound>();
    expectErrorIsReachedByNumber<data::duplicate>();
    expectErrorIsReachedByNumber<units::error>();
}

TEST_F(HostSlots, RecordsAreReadByNumber)
{
    EXPECT_EQ(slotOf(&ExpressionErrors::beginExprError), 2);
    EXPECT_EQ(slotOf(&ExpressionErrors::endExprError), 3);

    m_host.parameter("/A:a", "P").hasUpperBound("1");
    DimExprChecker checker = m_host.makeChecker();
    checker.checkParam("/A:a", "P", "2");
    const ExpressionErrors& errors = checker;
    using Reads = ExpressionErrors::const_iterator (ExpressionErrors::*)() const;
    EXPECT_EQ((errors.*operationIn<Reads>(3))() - (errors.*operationIn<Reads>(2))(), 1);
}

TEST_F(HostSlots, AnObserverIsUpdatedBehindItsDestructor)
{
    struct Counting final : Observer {
        void update(NotifyType p_type) override { last = p_type; }
        int last = 0;
    } observer;

    EXPECT_EQ(slotOf(&Observer::update), 2);
    (static_cast<Observer&>(observer).*operationIn<void (Observer::*)(NotifyType)>(2))(NotifyPhysicsChanged);
    EXPECT_EQ(observer.last, 7);
}

// How objects are owned.

TEST(HostOwnership, HostObjectsAreNotDestroyedThroughTheirInterfaces)
{
    EXPECT_FALSE(std::is_destructible_v<ModelQCL>);
    EXPECT_FALSE(std::is_destructible_v<ExprParamRules>);
    EXPECT_FALSE(std::is_destructible_v<QuantityModifier>);
    EXPECT_FALSE(std::is_destructible_v<LocatorInfo>);
    EXPECT_FALSE(std::is_destructible_v<VariablePrefixInfo>);
    EXPECT_FALSE(std::is_destructible_v<ShortVarNameFinder>);
    EXPECT_FALSE(std::is_destructible_v<PhysicsEvaluator>);
    EXPECT_FALSE(std::is_destructible_v<QCLUpdateInfo>);
    EXPECT_FALSE(std::is_destructible_v<ModelRules>);
    EXPECT_FALSE(std::has_virtual_destructor_v<ModelQCL>);
    EXPECT_FALSE(std::has_virtual_destructor_v<ExprParamRules>);
    EXPECT_FALSE(std::has_virtual_destructor_v<LocatorInfo>);
    EXPECT_FALSE(std::has_virtual_destructor_v<DimExprCheckScheduler>);
}

TEST(HostOwnership, ErrorsObserversAndReadersAreDestroyedThroughTheirBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Error>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Observer>);
    EXPECT_TRUE(std::has_virtual_destructor_v<ExpressionErrors>);

    const ScriptedHost host;
    const std::unique_ptr<ExpressionErrors> errors = std::make_unique<DimExprChecker>(host.makeChecker());
    EXPECT_TRUE(errors->beginExprError() == errors->endExprError());
}

TEST(HostOwnership, ReadersAssignedThroughTheirBaseKeepTheirRecords)
{
    EXPECT_TRUE(std::is_copy_assignable_v<ExpressionErrors>);

    ScriptedHost host;
    host.parameter("/A:a", "P").hasUpperBound("1");
    DimExprChecker one = host.makeChecker();
    DimExprChecker other = host.makeChecker();
    one.checkParam("/A:a", "P", "2");
    ExpressionErrors& reader = one;
    ExpressionErrors& otherReader = other;

    otherReader = reader;

    EXPECT_EQ(reader.endExprError() - reader.beginExprError(), 1);
    EXPECT_EQ(otherReader.endExprError() - otherReader.beginExprError(), 0);
}

TEST(HostOwnership, ForeignEnumerationValuesFitInto32Bits)
{
    EXPECT_EQ(sizeof(LocatorDimension::Value), 4U);
    EXPECT_EQ(sizeof(VariablePrefixInfo::Prefix1), 4U);
    EXPECT_EQ(sizeof(VariablePrefixInfo::Prefix2), 4U);
    EXPECT_EQ(sizeof(NotifyType), 4U);
}

}    // namespace
}    // namespace qen
