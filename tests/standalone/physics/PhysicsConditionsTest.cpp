#include "PhysicsText.h"

#include <gmock/gmock.h>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* k_case = R"(
[/FLOW:F/SIMULATION]
Type = Transient

[/FLOW:F/DOMAIN:Tank]
Domain Type = Fluid
Location = Body 1, Body 2
Heated = On
Stirred = False
Empty =
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Water]
Material = Brine
Morphology = Continuous Fluid
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Air]
Material = Air
Morphology = Dispersed Fluid
[/FLOW:F/DOMAIN:Tank/FLUID MODELS/FLUID:Water/TURBULENCE MODEL]
Option = SST
[/FLOW:F/DOMAIN:Tank/FLUID MODELS/FLUID:Air/TURBULENCE MODEL]
Option = Laminar
[/FLOW:F/DOMAIN:Tank/BOUNDARY:Top/FLUID:Air]

[/FLOW:F/DOMAIN:Duct]
Domain Type = Solid

[/FLOW:F/INTERFACE:I]
Sides = Nowhere, Duct
Gaps = , Tank
[/FLOW:G/INTERFACE:I]
Sides = Duct

[/LIBRARY/MATERIAL:Air]
State = Gas
[/LIBRARY/MATERIAL:Brine]
State = Liquid
)";

constexpr const char* k_tank = "/FLOW:F/DOMAIN:Tank";
constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";
constexpr const char* k_airAtTop = "/FLOW:F/DOMAIN:Tank/BOUNDARY:Top/FLUID:Air";
constexpr const char* k_waterModels = "/FLOW:F/DOMAIN:Tank/FLUID MODELS/FLUID:Water";

struct ConditionCase {
    const char* name;
    const char* keys;
    const char* path;
    bool holds;
};

class PhysicsCondition : public testing::TestWithParam<ConditionCase> {};

TEST_P(PhysicsCondition, IsDecidedByTheModel)
{
    const PhysicsBook physics = physicsOf(std::string("[/QUERY:q]\n") + GetParam().keys + R"(
[/QUERY:isGas]
Object = {MATERIAL}
Parameter = State
Is = Gas
)");
    const ModelTree model = modelOf(k_case);

    EXPECT_EQ(physics.evalBool("q", GetParam().path, &model), GetParam().holds);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Physics, PhysicsCondition, testing::Values(
    // Where to look
    ConditionCase {"LooksAtTheNearestLevelOfAType", "Object = {DOMAIN}\nParameter = Domain Type\nIs = Fluid", k_airAtTop, true},
    ConditionCase {"LooksAtTheLevelOfTheAskedPathOnly", "Object = {DOMAIN}\nParameter = Domain Type\nIs = Fluid", k_duct, false},
    ConditionCase {"LooksBelowALevel", "Object = {FLOW}/SIMULATION\nParameter = Type\nIs = Transient", k_airAtTop, true},
    ConditionCase {"FailsWithoutTheLevelInThePath", "Object = {FLUID}\nParameter = Option\nIs = SST", k_tank, false},
    ConditionCase {"FailsAtTheEmptyPath", "Object = {DOMAIN}\nParameter = Domain Type\nIs = Fluid", "", false},
    ConditionCase {"BorrowsTheNameOfALevel", "Object = {DOMAIN}/FLUID DEFINITION:{FLUID}\nParameter = Material\nIs = Air", k_airAtTop, true},
    ConditionCase {"BorrowsNoOtherName", "Object = {DOMAIN}/FLUID DEFINITION:{FLUID}\nParameter = Material\nIs = Air", k_waterModels, false},
    ConditionCase {"FailsWithoutTheNameToBorrow", "Object = {DOMAIN}/FLUID DEFINITION:{FLUID}\nParameter = Material\nIs = Air", k_tank, false},
    ConditionCase {"LooksAtAFixedPath", "Object = /LIBRARY/MATERIAL:Air\nParameter = State\nIs = Gas", k_duct, true},
    ConditionCase {"LooksAtEveryObjectOfAType", "Object = {DOMAIN}/FLUID DEFINITION:*\nParameter = Morphology\nIs = Dispersed Fluid", k_tank, true},
    ConditionCase {"LooksBelowEveryObjectOfAType", "Object = {DOMAIN}/FLUID MODELS/FLUID:*/TURBULENCE MODEL\nParameter = Option\nIs = SST", k_tank, true},
    ConditionCase {"LooksAtNoObjectElsewhere", "Object = {DOMAIN}/FLUID DEFINITION:*\nParameter = Morphology\nIs = Dispersed Fluid", k_duct, false},
    ConditionCase {"LooksAtEveryObjectFromTheTop", "Object = /LIBRARY/MATERIAL:*\nParameter = State\nIs = Gas", "", true},
    ConditionCase {"LooksThroughEachOfEach", "Object = /FLOW:*/DOMAIN:*/BOUNDARY:*/FLUID:Air", "", true},
    // What must hold of a parameter
    ConditionCase {"IsThereWhenItsObjectExists", "Object = {DOMAIN}/FLUID MODELS", k_tank, true},
    ConditionCase {"IsNotThereWhenItsObjectDoesNotExist", "Object = {DOMAIN}/FLUID MODELS", k_duct, false},
    ConditionCase {"IsThereWhenItsObjectIsOnTheAskedPath", "Object = {FLUID}", "/FLOW:F/DOMAIN:Tank/BOUNDARY:New/FLUID:Oil", true},
    ConditionCase {"IsThereWhenAnObjectOfTheTypeExists", "Object = {DOMAIN}/BOUNDARY:*", k_tank, true},
    ConditionCase {"NeedsTheParameterSet", "Object = {DOMAIN}\nParameter = Location", k_tank, true},
    ConditionCase {"CountsAnUnsetParameterAsNotSet", "Object = {DOMAIN}\nParameter = Location", k_duct, false},
    ConditionCase {"CountsAnEmptyParameterAsNotSet", "Object = {DOMAIN}\nParameter = Empty", k_tank, false},
    ConditionCase {"MayBeOneOfSeveralTexts", "Object = {DOMAIN}\nParameter = Domain Type\nIs = Porous, Fluid", k_tank, true},
    ConditionCase {"ComparesTextsExactly", "Object = {DOMAIN}\nParameter = Domain Type\nIs = fluid", k_tank, false},
    ConditionCase {"FindsAPieceOfAList", "Object = {DOMAIN}\nParameter = Location\nIs = Body 2", k_tank, true},
    ConditionCase {"FindsNoPartOfAPiece", "Object = {DOMAIN}\nParameter = Location\nIs = Body", k_tank, false},
    ConditionCase {"MayBeNoneOfSeveralTexts", "Object = {DOMAIN}\nParameter = Domain Type\nIs Not = Porous, Solid", k_tank, true},
    ConditionCase {"IsNotWhatItMustNotBe", "Object = {DOMAIN}\nParameter = Domain Type\nIs Not = Porous, Solid", k_duct, false},
    ConditionCase {"MustBeSetToBeNoneOfSeveralTexts", "Object = {DOMAIN}\nParameter = Location\nIs Not = Body 3", k_duct, false},
    ConditionCase {"ReadsALogicalThatIsOn", "Object = {DOMAIN}\nParameter = Heated\nLogical = Yes", k_tank, true},
    ConditionCase {"ReadsALogicalThatIsOff", "Object = {DOMAIN}\nParameter = Stirred\nLogical = Yes", k_tank, false},
    ConditionCase {"AsksForALogicalThatIsOff", "Object = {DOMAIN}\nParameter = Stirred\nLogical = No", k_tank, true},
    ConditionCase {"MustBeSetToBeOff", "Object = {DOMAIN}\nParameter = Stirred\nLogical = No", k_duct, false},
    // How many
    ConditionCase {"CountsAsManyAsItNeeds", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Least = 2", k_tank, true},
    ConditionCase {"CountsFewerThanItNeeds", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Least = 3", k_tank, false},
    ConditionCase {"CountsOnlyWhereTheParameterFits", "Object = {DOMAIN}/FLUID DEFINITION:*\nParameter = Material\nIs = Air\nAt Least = 2", k_tank, false},
    ConditionCase {"CountsAsManyAsItAllows", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Most = 2", k_tank, true},
    ConditionCase {"CountsMoreThanItAllows", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Most = 1", k_tank, false},
    ConditionCase {"AllowsNoneWhenItAllowsAFew", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Most = 1", k_duct, true},
    ConditionCase {"CountsExactly", "Object = {DOMAIN}/FLUID DEFINITION:*\nAt Least = 1\nAt Most = 1", k_duct, false},
    // Turned round
    ConditionCase {"TurnsRoundWhatHolds", "Object = {DOMAIN}/BOUNDARY:*\nNegate = Yes", k_tank, false},
    ConditionCase {"TurnsRoundWhatDoesNotHold", "Object = {DOMAIN}/BOUNDARY:*\nNegate = Yes", k_duct, true},
    ConditionCase {"TurnsRoundAMissingLevel", "Object = {FLUID}\nNegate = Yes", k_duct, true},
    // What a value names, and what others say
    ConditionCase {"FollowsAName", "Object = {DOMAIN}/FLUID DEFINITION:{FLUID}\nParameter = Material\nNames = /LIBRARY/MATERIAL\nQuery = isGas", k_airAtTop, true},
    ConditionCase {"AsksAtTheNamedObject", "Object = {DOMAIN}/FLUID DEFINITION:{FLUID}\nParameter = Material\nNames = /LIBRARY/MATERIAL\nQuery = isGas", k_waterModels, false},
    ConditionCase {"FollowsTheNamesOfEachObject", "Object = {DOMAIN}/FLUID DEFINITION:*\nParameter = Material\nNames = /LIBRARY/MATERIAL\nQuery = isGas", k_tank, true},
    ConditionCase {"NeedsTheNamedObject", "Object = {DOMAIN}/FLUID DEFINITION:*\nParameter = Material\nNames = /LIBRARY/MATERIAL\nAt Least = 2", k_tank, true},
    ConditionCase {"MissesTheNamedObject", "Object = {DOMAIN}\nParameter = Location\nNames = /LIBRARY/MATERIAL", k_tank, false},
    ConditionCase {"FollowsANameSeenFromTheObject", "Object = {FLOW}/INTERFACE:I\nParameter = Sides\nNames = {FLOW}/DOMAIN", k_tank, true},
    ConditionCase {"FollowsANameInTheObjectsOwnFlow", "Object = /FLOW:G/INTERFACE:I\nParameter = Sides\nNames = {FLOW}/DOMAIN", k_tank, false},
    ConditionCase {"SkipsAnEmptyPieceOfAListOfNames", "Object = {FLOW}/INTERFACE:I\nParameter = Gaps\nNames = {FLOW}/DOMAIN", k_tank, true},
    ConditionCase {"AsksAnotherQueryAtTheSameObject", "Query = isGas", "/LIBRARY/MATERIAL:Air", true},
    ConditionCase {"TurnsRoundAnotherQuery", "Query = isGas\nNegate = Yes", "/LIBRARY/MATERIAL:Air", false},
    ConditionCase {"AsksAnotherQueryAtEachObject", "Object = /LIBRARY/MATERIAL:*\nQuery = isGas\nAt Most = 1\nAt Least = 1", "", true},
    ConditionCase {"AsksAtObjectsWhoseParameterFits", "Object = /LIBRARY/MATERIAL:*\nParameter = State\nIs = Liquid\nQuery = isGas", "", false},
    ConditionCase {"LooksIfAnotherQueryHolds", "If = isGas\nObject = /FLOW:F/SIMULATION", "/LIBRARY/MATERIAL:Air", true},
    ConditionCase {"DoesNotLookIfAnotherQueryFails", "If = isGas\nObject = /FLOW:F/SIMULATION", "/LIBRARY/MATERIAL:Brine", false},
    ConditionCase {"IsNotTurnedRoundIfAnotherQueryFails", "If = isGas\nObject = {FLUID}\nNegate = Yes", "/LIBRARY/MATERIAL:Brine", false},
    ConditionCase {"AsksOnlyAtObjectsThatExist", "Object = /LIBRARY/MATERIAL:Steam\nQuery = isGas", "", false}),
    [](const testing::TestParamInfo<ConditionCase>& p_info) { return std::string(p_info.param.name); });
// clang-format on

constexpr const char* k_twoConditions = R"(
[/QUERY:q/CONDITION:solid]
Object = {DOMAIN}
Parameter = Domain Type
Is = Solid
[/QUERY:q/CONDITION:located]
Object = {DOMAIN}
Parameter = Location
)";

TEST(PhysicsConditions, MustAllHoldWhereNothingElseIsSaid)
{
    const PhysicsBook physics = physicsOf(k_twoConditions);

    const ModelTree one = modelOf("[/FLOW:F/DOMAIN:D]\nDomain Type = Solid\n");
    const ModelTree both = modelOf("[/FLOW:F/DOMAIN:D]\nDomain Type = Solid\nLocation = Body\n");

    EXPECT_FALSE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &one));
    EXPECT_TRUE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &both));
}

TEST(PhysicsConditions, NeedHoldOnlyOnceWhenAnyWillDo)
{
    const PhysicsBook physics = physicsOf(std::string("[/QUERY:q]\nAnswer = Any\n") + k_twoConditions);

    const ModelTree none = modelOf("[/FLOW:F/DOMAIN:D]\nDomain Type = Fluid\n");
    const ModelTree one = modelOf("[/FLOW:F/DOMAIN:D]\nDomain Type = Fluid\nLocation = Body\n");

    EXPECT_FALSE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &none));
    EXPECT_TRUE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &one));
}

TEST(PhysicsConditions, OfTheQuerysOwnSectionAreOneBesideTheOthers)
{
    const PhysicsBook physics = physicsOf(R"(
[/QUERY:q]
Object = {DOMAIN}
Parameter = Heated
[/QUERY:q/CONDITION:solid]
Object = {DOMAIN}
Parameter = Domain Type
Is = Solid
)");
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nDomain Type = Solid\n");

    EXPECT_FALSE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &model));
}

constexpr const char* k_dyes = R"(
[/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Zinc]
Option = Transport Equation
[/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Dye]
[/FLOW:F/DOMAIN:D/SOLID MODELS/ADDITIONAL VARIABLE:Heat]
[/FLOW:F/DOMAIN:D/SOLID MODELS/ADDITIONAL VARIABLE:Dye]
[/FLOW:F/DOMAIN:E]
)";

TEST(PhysicsLists, HoldTheNamesOfTheObjectsInTheModelsOrderEachOnce)
{
    const PhysicsBook physics = physicsOf(R"(
[/QUERY:all]
Answer = List
Object = {DOMAIN}/FLUID MODELS/ADDITIONAL VARIABLE:*
[/QUERY:all/CONDITION:of solids]
Object = {DOMAIN}/SOLID MODELS/ADDITIONAL VARIABLE:*
)");
    const ModelTree model = modelOf(k_dyes);

    EXPECT_THAT(physics.evalList("all", "/FLOW:F/DOMAIN:D/BOUNDARY:B", &model),
                ElementsAre("Zinc", "Dye", "Heat"));
    EXPECT_THAT(physics.evalList("all", "/FLOW:F/DOMAIN:E", &model), IsEmpty());
    EXPECT_THAT(physics.evalList("all", "", &model), IsEmpty());
}

TEST(PhysicsLists, HoldOnlyObjectsThatFit)
{
    const PhysicsBook physics = physicsOf(R"(
[/QUERY:transported]
Answer = List
Object = {DOMAIN}/FLUID MODELS/ADDITIONAL VARIABLE:*
Parameter = Option
Is = Transport Equation
)");
    const ModelTree model = modelOf(k_dyes);

    EXPECT_THAT(physics.evalList("transported", "/FLOW:F/DOMAIN:D", &model), ElementsAre("Zinc"));
}

TEST(PhysicsLists, HoldNothingWhereTheConditionsQueryFails)
{
    const PhysicsBook physics = physicsOf(R"(
[/QUERY:hasSolids]
Object = {DOMAIN}/SOLID MODELS
[/QUERY:all]
Answer = List
If = hasSolids
Object = {DOMAIN}/FLUID MODELS/ADDITIONAL VARIABLE:*
)");
    const ModelTree model = modelOf(k_dyes);
    const ModelTree withoutSolids = modelOf("[/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Dye]\n");

    EXPECT_THAT(physics.evalList("all", "/FLOW:F/DOMAIN:D", &model), ElementsAre("Zinc", "Dye"));
    EXPECT_THAT(physics.evalList("all", "/FLOW:F/DOMAIN:D", &withoutSolids), IsEmpty());
}

TEST(PhysicsLists, CountAsTrueWhenTheyAreNotEmpty)
{
    const PhysicsBook physics = physicsOf(R"(
[/QUERY:all]
Answer = List
Object = {DOMAIN}/FLUID MODELS/ADDITIONAL VARIABLE:*
[/QUERY:any]
Query = all
)");
    const ModelTree model = modelOf(k_dyes);

    EXPECT_TRUE(physics.evalBool("all", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_TRUE(physics.evalBool("any", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_FALSE(physics.evalBool("any", "/FLOW:F/DOMAIN:E", &model));
}

}    // namespace
}    // namespace qen::standalone::test
