#include "physics/PhysicsNotifier.h"

#include "names/ShortNameFinder.h"
#include "qcl/QclReader.h"

#include "PreVariableDefStore.h"
#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_queries = R"([/QUERY:isSimTypetransient]
Object = {FLOW}/SIMULATION
Parameter = Type
Is = Transient
[/QUERY:anyInflow]
Object = {DOMAIN}/BOUNDARY:*
Parameter = Boundary Type
Is = Inflow
[/QUERY:isMixture]
Object = {FLUID DEFINITION}
Parameter = Material
Names = /LIBRARY/MATERIAL
)";

class Notified : public Observer {
public:
    void update(NotifyType p_type) override { types.push_back(static_cast<int>(p_type)); }

    std::vector<int> types;
};

class PhysicsNotifierOf : public testing::Test {
protected:
    PhysicsNotifierOf()
    {
        Diagnostics problems;
        book.addDefinitions(readQclText("PHYSICS.qcl", k_queries), problems);
        EXPECT_THAT(problems, IsEmpty());
        notifier.emplace(model, book);
        notifier->attach(observer);
    }

    PhysicsBook book;
    ModelTree model {readQclText("case.qcl", "[/FLOW:F/SIMULATION]\nType = Steady\n"
                                             "[/FLOW:F/DOMAIN:D/BOUNDARY:Inlet]\nBoundary Type = Inflow\n")};
    Notified observer;
    std::optional<PhysicsNotifier> notifier;
};

TEST_F(PhysicsNotifierOf, ASettingThatAQueryReadsTellsSo)
{
    model.setParameter("/FLOW:F/SIMULATION", "Type", "Transient");
    model.deleteParameter("/FLOW:F/SIMULATION", "Type");

    EXPECT_THAT(observer.types, ElementsAre(7, 7));
}

TEST_F(PhysicsNotifierOf, ASettingThatStaysTheSameTellsNothing)
{
    model.setParameter("/FLOW:F/SIMULATION", "Type", "Steady");
    model.deleteParameter("/FLOW:F/SIMULATION", "Duration");

    EXPECT_THAT(observer.types, IsEmpty());
}

TEST_F(PhysicsNotifierOf, ASettingThatNoQueryReadsTellsNothing)
{
    model.setParameter("/FLOW:F/SIMULATION", "Duration", "1 [s]");
    model.setParameter("/FLOW:F/DOMAIN:D/BOUNDARY:Inlet", "Type",
                       "Transient");    // of another type of object

    EXPECT_THAT(observer.types, IsEmpty());
}

TEST_F(PhysicsNotifierOf, AnObjectAtWhichAQueryLooksTellsSo)
{
    model.addObject("/FLOW:F/DOMAIN:D/BOUNDARY:Outlet");
    model.addObject("/LIBRARY/MATERIAL:Water");    // that a fluid may name
    model.deleteObject("/FLOW:F/DOMAIN:D");        // with two boundaries

    EXPECT_THAT(observer.types, ElementsAre(4, 4, 4, 4));
}

TEST_F(PhysicsNotifierOf, AnObjectAtWhichNoQueryLooksTellsNothing)
{
    model.addObject("/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P");
    model.deleteObject("/FLOW:F/OUTPUT CONTROL");
    model.deleteObject("/FLOW:F/NOWHERE");

    EXPECT_THAT(observer.types, IsEmpty());
}

TEST_F(PhysicsNotifierOf, TellsNobodyWhoIsDetached)
{
    notifier->detach(observer);
    model.setParameter("/FLOW:F/SIMULATION", "Type", "Transient");

    notifier->attach(observer);
    notifier.reset();
    model.setParameter("/FLOW:F/SIMULATION", "Type", "Steady");

    EXPECT_THAT(observer.types, IsEmpty());
}

TEST_F(PhysicsNotifierOf, AvailabilityHasItAskedAnewAfterAChangeOnly)
{
    // Given an answer that is kept
    const PreVariableDefStore variables;
    const ShortNameFinder shortNames(variables);
    VarAvailabilityChecker checker(&model, &shortNames, &book);
    notifier->attach(checker);
    const SplitVariableName name("", nullptr);
    EXPECT_FALSE(checker.isPhysicallyAvailable(name, {"TRANSIENT"}, "/FLOW:F/DOMAIN:D"));

    // When the physics changes, then the answer does
    model.setParameter("/FLOW:F/SIMULATION", "Type", "Transient");

    EXPECT_TRUE(checker.isPhysicallyAvailable(name, {"TRANSIENT"}, "/FLOW:F/DOMAIN:D"));
    notifier->detach(checker);
}

}    // namespace
}    // namespace qen::standalone
