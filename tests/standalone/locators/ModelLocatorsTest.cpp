#include "locators/ModelLocators.h"

#include "qcl/QclReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen::standalone {
namespace {

constexpr const char* k_case = R"([/FLOW:Pump]
[/FLOW:Pump/DOMAIN:Rotor]
[/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet]
[/FLOW:Pump/DOMAIN:Rotor/SUBDOMAIN:Hub]
[/FLOW:Pump/DOMAIN:Casing/BOUNDARY:Inlet]
[/FLOW:Pump/DOMAIN:Casing/FLUID DEFINITION:Water]
[/FLOW:Pump/INTERFACE:Gap]
[/FLOW:Pump/RIGID BODY:Float]
[/FLOW:Pump/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Point 1]
[/FLOW:Other/DOMAIN:Tank]
)";

struct LocatorCase {
    const char* name;
    const char* locator;
    int dimension;
    const char* path;
};

void PrintTo(const LocatorCase& p_case, std::ostream* p_stream) { *p_stream << p_case.locator; }

class Locator : public testing::TestWithParam<LocatorCase> {
protected:
    const ModelTree model {readQclText("case.qcl", k_case)};
    const ModelLocators locators {model};
};

TEST_P(Locator, IsAnObjectOfItsDimension)
{
    EXPECT_TRUE(locators.isValidLocator("Pump", GetParam().locator));
    EXPECT_TRUE(locators.isModelObject("Pump", GetParam().locator));
    EXPECT_EQ(locators.dimension("Pump", GetParam().locator), GetParam().dimension);
    EXPECT_EQ(locators.objectPath("Pump", GetParam().locator), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Locator,
    testing::Values(LocatorCase {"Domain", "Rotor", 4, "/FLOW:Pump/DOMAIN:Rotor"},
                    LocatorCase {"Subdomain", "Hub", 4, "/FLOW:Pump/DOMAIN:Rotor/SUBDOMAIN:Hub"},
                    LocatorCase {"Boundary", "Inlet", 3,
                                 "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet"},    // the first of two
                    LocatorCase {"Interface", "Gap", 3, "/FLOW:Pump/INTERFACE:Gap"},
                    LocatorCase {"MonitorPoint", "Point 1", 1,
                                 "/FLOW:Pump/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Point 1"},
                    LocatorCase {"RigidBody", "Float", 0, "/FLOW:Pump/RIGID BODY:Float"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

struct NoLocatorCase {
    const char* name;
    const char* flow;
    const char* locator;
};

class NoLocator : public testing::TestWithParam<NoLocatorCase> {};

TEST_P(NoLocator, IsNotValidAndHasNoDimension)
{
    const ModelTree model(readQclText("case.qcl", k_case));
    const ModelLocators locators(model);
    const auto& [name, flow, locator] = GetParam();

    EXPECT_FALSE(locators.isValidLocator(flow, locator));
    EXPECT_FALSE(locators.isModelObject(flow, locator));
    EXPECT_EQ(locators.dimension(flow, locator), 0);
    EXPECT_EQ(locators.objectPath(flow, locator), "");
}

INSTANTIATE_TEST_SUITE_P(Table, NoLocator,
                         testing::Values(NoLocatorCase {"UnknownName", "Pump", "Outlet"},
                                         NoLocatorCase {"OtherLetterCase", "Pump", "inlet"},
                                         NoLocatorCase {"OfAnotherFlow", "Pump", "Tank"},
                                         NoLocatorCase {"OfNoFlow", "Fan", "Rotor"},
                                         NoLocatorCase {"ObjectOfAnotherKind", "Pump", "Water"}),
                         [](const auto& p_info) { return std::string(p_info.param.name); });

TEST(EmptyLocator, IsValidAndNoObject)
{
    const ModelTree model(readQclText("case.qcl", k_case));
    const ModelLocators locators(model);

    EXPECT_TRUE(locators.isValidLocator("Pump", ""));
    EXPECT_FALSE(locators.isModelObject("Pump", ""));
    EXPECT_EQ(locators.dimension("Pump", ""), 0);
    EXPECT_EQ(locators.objectPath("Pump", ""), "");
}

TEST(ModelLocators, FollowTheModel)
{
    ModelTree model(readQclText("case.qcl", k_case));
    const ModelLocators locators(model);
    EXPECT_EQ(locators.objectPath("Pump", "Inlet"), "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet");

    model.deleteObject("/FLOW:Pump/DOMAIN:Rotor");
    EXPECT_EQ(locators.objectPath("Pump", "Inlet"), "/FLOW:Pump/DOMAIN:Casing/BOUNDARY:Inlet");

    model.addObject("/FLOW:Pump/RIGID BODY:Buoy");
    EXPECT_TRUE(locators.isValidLocator("Pump", "Buoy"));
}

TEST(LocatorIndex, TellsOfNamesThatComeTwice)
{
    const ModelTree model(readQclText("case.qcl", k_case));

    const LocatorIndex index(*model.find("/FLOW:Pump"));

    ASSERT_EQ(index.repetitions().size(), 1U);
    EXPECT_EQ(index.repetitions()[0].first->path, "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet");
    EXPECT_EQ(index.repetitions()[0].object->path, "/FLOW:Pump/DOMAIN:Casing/BOUNDARY:Inlet");
}

}    // namespace
}    // namespace qen::standalone
