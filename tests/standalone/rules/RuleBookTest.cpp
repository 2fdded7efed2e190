#include "rules/RuleBook.h"

#include "RulesText.h"
#include "support/AllocationCount.h"

#include "model/ModelTree.h"
#include "rules/ParamTypes.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include "QCLParam.h"

#include <gmock/gmock.h>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::IsNull;
using ::testing::NotNull;
using ::testing::Pointee;

constexpr const char* k_ductRules = R"(
[/FLOW]
Named = Yes
[/FLOW/DOMAIN]
Named = Yes
[/FLOW/DOMAIN/PARAMETER:Domain Type]
Type = String
Allowed = Fluid, Solid, Porous
[/FLOW/DOMAIN/WALL]
[/FLOW/DOMAIN/WALL/PARAMETER:Contact Angle]
Type = Real
Quantity = Angle
Lower Bound = 0 [deg]
Upper Bound = 180 [deg]
Single Valued = Yes
Depends On = XYZ, t
[/FLOW/DOMAIN/WALL/PARAMETER:Heights]
Type = Real List
Quantity = Length
[/FLOW/SIMULATION]
[/FLOW/SIMULATION/PARAMETER:Steps]
Type = Integer
Lower Bound = 1
)";

// ---- What a parameter may be

TEST(RuleBook, AnswersWhatTheRulesSayAboutAParameter)
{
    const RuleBook rules = rulesOf(k_ductRules);

    const ParameterRule* angle = rules.find("/FLOW:F/DOMAIN:Duct/WALL", "Contact Angle");

    ASSERT_THAT(angle, NotNull());
    EXPECT_EQ(angle->name, "Contact Angle");
    EXPECT_EQ(angle->type, "Real");
    EXPECT_EQ(angle->quantity, "Angle");
    EXPECT_EQ(angle->lowerBound, "0 [deg]");
    EXPECT_EQ(angle->upperBound, "180 [deg]");
    EXPECT_TRUE(angle->singleValued);
    EXPECT_THAT(angle->dependencies, ElementsAre("XYZ", "t"));
    EXPECT_THAT(angle->allowedTexts, IsEmpty());
    EXPECT_EQ(angle->kind, "");
}

TEST(RuleBook, AnswersTheCheckersQuestionsFromTheSameRule)
{
    const RuleBook rules = rulesOf(k_ductRules);
    const std::string wall = "/FLOW:F/DOMAIN:Duct/WALL";

    EXPECT_EQ(rules.lowerBound(wall, "Contact Angle", nullptr), "0 [deg]");
    EXPECT_EQ(rules.upperBound(wall, "Contact Angle", nullptr), "180 [deg]");
    EXPECT_EQ(rules.paramKind(wall, "Contact Angle", nullptr), "");
    EXPECT_TRUE(rules.isSingleValued(wall, "Contact Angle", nullptr));
    EXPECT_FALSE(rules.isSingleValued(wall, "Heights", nullptr));
    EXPECT_THAT(rules.dependencies(wall, "Contact Angle", nullptr), ElementsAre("XYZ", "t"));
}

TEST(RuleBook, SaysNothingAboutWhatItDoesNotKnow)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:Duct/WALL", "Contact Angel"), IsNull());
    EXPECT_THAT(rules.find("/FLOW:F/WALL", "Contact Angle"), IsNull());
    EXPECT_EQ(rules.lowerBound("/FLOW:F/WALL", "Contact Angle", nullptr), "");
    EXPECT_EQ(rules.upperBound("/FLOW:F/WALL", "Contact Angle", nullptr), "");
    EXPECT_FALSE(rules.isSingleValued("/FLOW:F/WALL", "Contact Angle", nullptr));
    EXPECT_THAT(rules.dependencies("/FLOW:F/WALL", "Contact Angle", nullptr), IsEmpty());
}

TEST(RuleBook, ReadsTheTextsThatAStringMayBe)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:Duct", "Domain Type")->allowedTexts,
                ElementsAre("Fluid", "Solid", "Porous"));
}

TEST(RuleBook, FindsAParameterWhateverTheSectionsOrder)
{
    const RuleBook rules = rulesOf("[/FLOW/DOMAIN/PARAMETER:Depth]\nType = Real\n[/FLOW/DOMAIN]\n[/FLOW]\n");

    EXPECT_THAT(rules.find("/FLOW/DOMAIN", "Depth"), NotNull());
}

TEST(RuleBook, FindsEachOfTwoParametersThatAreAskedInTurns)
{
    const RuleBook rules = rulesOf(k_ductRules);

    for (int turn = 0; turn < 2; ++turn)
    {
        EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D/WALL", "Contact Angle"),
                    Pointee(Field(&ParameterRule::name, "Contact Angle")));
        EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D/WALL", "Domain Type"), IsNull());
        EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D", "Domain Type"),
                    Pointee(Field(&ParameterRule::name, "Domain Type")));
        EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D", "Contact Angle"), IsNull());
    }
}

TEST(RuleBook, FindsWithoutAllocatingBehindAPathThatIsAsLong)
{
    const RuleBook rules = rulesOf(k_ductRules);
    const std::string path = "/FLOW:A flow with a long name/DOMAIN:A domain with an even longer name/WALL";
    const std::string name = "Contact Angle";
    const std::string lastType = "WALL";
    EXPECT_THAT(rules.find("/FLOW:A flow with a long name/DOMAIN:A domain with an even longer name/WALLS",
                           "Width of It"),
                IsNull());

    const std::size_t before = support::allocationCount();
    const ParameterRule* rule = rules.find(path, name);
    const bool valid = rules.isValidPath(path);
    const ParamType type = rules.getParamType(lastType, name);
    const std::size_t after = support::allocationCount();

    EXPECT_THAT(rule, NotNull());
    EXPECT_TRUE(valid);
    EXPECT_EQ(type, ParamType::Real);
    EXPECT_EQ(after, before);
}

// ---- Paths

struct PathCase {
    const char* name;
    const char* path;
    bool isValid;
};

class RuleBookPath : public testing::TestWithParam<PathCase> {};

TEST_P(RuleBookPath, IsValidWhenItsTypesAreKnownAndItsNamesStandWhereTheyShould)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_EQ(rules.isValidPath(GetParam().path), GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(
    RuleBook, RuleBookPath,
    testing::Values(PathCase {"FirstLevel", "/FLOW:F", true},
                    PathCase {"NamedLevels", "/FLOW:F/DOMAIN:D", true},
                    PathCase {"LevelWithoutName", "/FLOW:F/DOMAIN:D/WALL", true},
                    PathCase {"NameMissing", "/FLOW:F/DOMAIN", false},
                    PathCase {"NameMissingHigherUp", "/FLOW/DOMAIN:D/WALL", false},
                    PathCase {"EmptyName", "/FLOW:F/DOMAIN:", false},
                    PathCase {"NameNotWanted", "/FLOW:F/DOMAIN:D/WALL:W", false},
                    PathCase {"EmptyNameNotWanted", "/FLOW:F/SIMULATION:", false},
                    PathCase {"UnknownType", "/FLOW:F/DOMIAN:D", false},
                    PathCase {"TypeInAnotherPlace", "/FLOW:F/WALL", false},
                    PathCase {"OtherCase", "/Flow:F", false}, PathCase {"Empty", "", false},
                    PathCase {"SlashAlone", "/", false}, PathCase {"DoubleSlash", "/FLOW:F//DOMAIN:D", false},
                    PathCase {"SlashAtTheEnd", "/FLOW:F/", false}, PathCase {"NoSlash", "FLOW:F", false},
                    PathCase {"TheLevelOfRulesAlone", "/FLOW:F/DOMAIN:D/PARAMETER:Domain Type", false}),
    [](const testing::TestParamInfo<PathCase>& p_info) { return std::string(p_info.param.name); });

TEST(RuleBook, FindsAParameterByTheTypesOfThePathAlone)
{
    const RuleBook rules = rulesOf(k_ductRules);

    // So that a missing name is one problem and not one for each parameter.
    EXPECT_THAT(rules.find("/FLOW/DOMAIN", "Domain Type"), NotNull());
}

// ---- Names for suggestions

TEST(RuleBook, NamesTheParametersOfAnObjectInOrder)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_THAT(rules.parameterNames("/FLOW:F/DOMAIN:D/WALL"), ElementsAre("Contact Angle", "Heights"));
    EXPECT_THAT(rules.parameterNames("/FLOW:F/NOTHING"), IsEmpty());
}

TEST(RuleBook, NamesTheTypesThatMayStandUnderAPath)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_THAT(rules.childTypes(""), ElementsAre("FLOW"));
    EXPECT_THAT(rules.childTypes("/FLOW:F"), ElementsAre("DOMAIN", "SIMULATION"));
    EXPECT_THAT(rules.childTypes("/FLOW:F/SIMULATION"), IsEmpty());
}

TEST(RuleBook, KnowsEveryParameterNameOfAnyObject)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_THAT(rules.allParamNames(), ElementsAre("Contact Angle", "Domain Type", "Heights", "Steps"));
    EXPECT_TRUE(rules.isValidParamName("Steps"));
    EXPECT_FALSE(rules.isValidParamName("steps"));
    EXPECT_FALSE(rules.isValidParamName("Quantity"));
    EXPECT_FALSE(rules.isValidParamName(""));
}

TEST(RuleBook, VisitsEveryRuleWhereItIsDefined)
{
    const RuleBook rules = rulesOf(k_ductRules);

    std::vector<std::string> visited;
    rules.visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        visited.push_back(p_pattern + " " + p_rule.name);
    });

    EXPECT_THAT(visited, ElementsAre("/FLOW/DOMAIN Domain Type", "/FLOW/DOMAIN/WALL Contact Angle",
                                     "/FLOW/DOMAIN/WALL Heights", "/FLOW/SIMULATION Steps"));
}

// ---- Types

struct TypeCase {
    const char* text;
    ParamType type;
    bool isNumeric;
    bool isList;
};

class RuleBookType : public testing::TestWithParam<TypeCase> {};

TEST_P(RuleBookType, IsAskedForByTheLastTypeOfAPath)
{
    const TypeCase& expected = GetParam();
    const RuleBook rules =
        rulesOf("[/THING]\n[/THING/PARAMETER:P]\nType = " + std::string(expected.text) + "\n");

    const qen::ParamType type = rules.getParamType("THING", "P");

    EXPECT_EQ(type, expected.type);
    EXPECT_EQ(QCLParam::isNumericType(type), expected.isNumeric);
    EXPECT_EQ(isListType(type), expected.isList);
}

INSTANTIATE_TEST_SUITE_P(RuleBook, RuleBookType,
                         testing::Values(TypeCase {"Real", ParamType::Real, true, false},
                                         TypeCase {"Real List", ParamType::RealList, true, true},
                                         TypeCase {"Integer", ParamType::Integer, true, false},
                                         TypeCase {"Integer List", ParamType::IntegerList, true, true},
                                         TypeCase {"String", ParamType::String, false, false},
                                         TypeCase {"String List", ParamType::StringList, false, true},
                                         TypeCase {"Logical", ParamType::Logical, false, false}));

TEST(RuleBook, HasNoTypeForAParameterThatItDoesNotKnow)
{
    const RuleBook rules = rulesOf(k_ductRules);

    EXPECT_EQ(rules.getParamType("WALL", "Steps"), ParamType::Unknown);
    EXPECT_EQ(rules.getParamType("FLOOR", "Contact Angle"), ParamType::Unknown);
    EXPECT_FALSE(QCLParam::isNumericType(ParamType::Unknown));
    EXPECT_FALSE(QCLParam::isNumericType(static_cast<ParamType>(99)));
}

// ---- Subtrees that stand in several places

constexpr const char* k_sharedRules = R"(
[/PUMP]
[/PUMP/HEAT]
[/PUMP/HEAT/PARAMETER:Temperature]
Type = Real
Lower Bound = 0 [K]
[/PUMP/HEAT/SOURCE]
Named = Yes
[/PUMP/HEAT/SOURCE/PARAMETER:Power]
Type = Real
Quantity = Power
[/TANK]
[/TANK/HEAT]
Same As = /PUMP/HEAT
)";

TEST(RuleBook, LetsASubtreeStandInAnotherPlaceToo)
{
    const RuleBook rules = rulesOf(k_sharedRules);

    EXPECT_TRUE(rules.isValidPath("/TANK/HEAT/SOURCE:Lamp"));
    EXPECT_FALSE(rules.isValidPath("/TANK/HEAT/SOURCE"));
    EXPECT_THAT(rules.find("/TANK/HEAT", "Temperature"), NotNull());
    EXPECT_EQ(rules.find("/TANK/HEAT/SOURCE:Lamp", "Power")->quantity, "Power");
    EXPECT_THAT(rules.parameterNames("/TANK/HEAT"), ElementsAre("Temperature"));
}

TEST(RuleBook, LetsAPlaceAddToWhatItSharesAndOverrideIt)
{
    const RuleBook rules = rulesOf(std::string(k_sharedRules) + R"(
[/TANK/HEAT/PARAMETER:Temperature]
Type = Real
Lower Bound = 250 [K]
[/TANK/HEAT/PARAMETER:Insulated]
Type = Logical
[/TANK/HEAT/SOURCE]
[/TANK/HEAT/SOURCE/PARAMETER:Colour]
Type = String
)");

    EXPECT_EQ(rules.lowerBound("/TANK/HEAT", "Temperature", nullptr), "250 [K]");
    EXPECT_EQ(rules.lowerBound("/PUMP/HEAT", "Temperature", nullptr), "0 [K]");
    EXPECT_THAT(rules.parameterNames("/TANK/HEAT"), ElementsAre("Insulated", "Temperature"));
    EXPECT_THAT(rules.parameterNames("/PUMP/HEAT"), ElementsAre("Temperature"));
    EXPECT_THAT(rules.parameterNames("/TANK/HEAT/SOURCE:Lamp"), ElementsAre("Colour", "Power"));
    // Named as where it is shared from, since its own section does not say.
    EXPECT_TRUE(rules.isValidPath("/TANK/HEAT/SOURCE:Lamp"));
}

TEST(RuleBook, LetsAPlaceSayForItselfWhetherItHasAName)
{
    const RuleBook rules = rulesOf("[/A]\nNamed = Yes\n[/B]\nSame As = /A\nNamed = No\n[/C]\nSame As = /A\n");

    EXPECT_TRUE(rules.isValidPath("/B"));
    EXPECT_FALSE(rules.isValidPath("/B:b"));
    EXPECT_TRUE(rules.isValidPath("/C:c"));
}

TEST(RuleBook, FollowsASharedSubtreeThatSharesAnother)
{
    const RuleBook rules = rulesOf(std::string(k_sharedRules) + "[/PIPE]\nSame As = /TANK\n");

    EXPECT_THAT(rules.find("/PIPE/HEAT/SOURCE:Lamp", "Power"), NotNull());
}

TEST(RuleBook, TakesTheFirstOfSeveralSharedSubtreesThatHasAParameter)
{
    const RuleBook rules = rulesOf(R"(
[/A]
[/A/PARAMETER:Size]
Type = Real
Lower Bound = 1
[/B]
[/B/PARAMETER:Size]
Type = Real
Lower Bound = 2
[/B/PARAMETER:Depth]
Type = Real
[/C]
Same As = /A, /B
)");

    EXPECT_EQ(rules.lowerBound("/C", "Size", nullptr), "1");
    EXPECT_THAT(rules.find("/C", "Depth"), NotNull());
}

TEST(RuleBook, GivesASharedParameterItsTypeUnderTheNewLastType)
{
    const RuleBook rules = rulesOf("[/A]\n[/A/PARAMETER:Size]\nType = Integer\n[/B]\nSame As = /A\n");

    EXPECT_EQ(rules.getParamType("B", "Size"), ParamType::Integer);
}

TEST(RuleBook, DoesNotLetAnObjectStandInItselfThatIsTheSameAsTheOneAboveIt)
{
    const RuleBook rules = rulesOf(R"(
[/START]
[/START/PARAMETER:Speed]
Type = Real
[/START/DYE]
[/START/FLUID]
Named = Yes
Same As = /START
)");

    EXPECT_THAT(rules.find("/START/FLUID:Water", "Speed"), NotNull());
    EXPECT_TRUE(rules.isValidPath("/START/FLUID:Water/DYE"));
    EXPECT_FALSE(rules.isValidPath("/START/FLUID:Water/FLUID:Air"));
}

TEST(RuleBook, EndsWhereTwoObjectsAreTheSameAsEachOther)
{
    const RuleBook rules = rulesOf(R"(
[/A]
Same As = /B
[/A/PARAMETER:Size]
Type = Real
[/A/INSIDE]
[/B]
Same As = /A
[/B/PARAMETER:Depth]
Type = Real
)");

    EXPECT_THAT(rules.parameterNames("/A"), ElementsAre("Depth", "Size"));
    EXPECT_THAT(rules.parameterNames("/B"), ElementsAre("Depth", "Size"));
    EXPECT_TRUE(rules.isValidPath("/B/INSIDE"));
}

// ---- Objects that take any parameter

constexpr const char* k_expressionRules = R"(
[/EXPRESSIONS]
[/EXPRESSIONS/PARAMETER]
Type = Real
Kind = Expression
Depends On = ANY
[/EXPRESSIONS/PARAMETER:Comment]
Type = String
)";

TEST(RuleBook, HasOneRuleForEveryParameterOfAnObjectThatTakesAny)
{
    const RuleBook rules = rulesOf(k_expressionRules);

    const ParameterRule* any = rules.find("/EXPRESSIONS", "Whatever a user calls it");

    ASSERT_THAT(any, NotNull());
    EXPECT_EQ(any->name, "");
    EXPECT_EQ(any->type, "Real");
    EXPECT_EQ(rules.paramKind("/EXPRESSIONS", "Whatever a user calls it", nullptr), "Expression");
    EXPECT_EQ(rules.find("/EXPRESSIONS", "Comment")->type, "String");
}

TEST(RuleBook, DoesNotCountTheNamesThatUsersInventAmongItsOwn)
{
    const RuleBook rules = rulesOf(k_expressionRules);

    EXPECT_THAT(rules.allParamNames(), ElementsAre("Comment"));
    EXPECT_FALSE(rules.isValidParamName("Whatever a user calls it"));
    EXPECT_THAT(rules.parameterNames("/EXPRESSIONS"), ElementsAre("Comment"));
}

// ---- Later documents

TEST(RuleBook, LetsALaterDocumentAddParametersAndOverrideKeys)
{
    RuleBook rules = rulesOf(k_ductRules);
    EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D/WALL", "Slip"), IsNull());

    const Diagnostics problems = addRules(rules, R"(
[/FLOW/DOMAIN/WALL/PARAMETER:Contact Angle]
Upper Bound = 170 [deg]
Lower Bound =
[/FLOW/DOMAIN/WALL/PARAMETER:Slip]
Type = Real
[/FLOW/DOMAIN/FAN]
)");

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(rules.find("/FLOW:F/DOMAIN:D/WALL", "Slip"), NotNull());
    const ParameterRule* angle = rules.find("/FLOW:F/DOMAIN:D/WALL", "Contact Angle");
    EXPECT_EQ(angle->upperBound, "170 [deg]");
    EXPECT_EQ(angle->lowerBound, "");
    EXPECT_EQ(angle->quantity, "Angle");
    EXPECT_TRUE(rules.isValidPath("/FLOW:F/DOMAIN:D/FAN"));
}

TEST(RuleBook, LetsALaterDocumentTakeBackThatAPlaceIsTheSameAsAnother)
{
    RuleBook rules = rulesOf(k_sharedRules);

    EXPECT_THAT(addRules(rules, "[/TANK/HEAT]\nSame As =\n"), IsEmpty());

    EXPECT_TRUE(rules.isValidPath("/TANK/HEAT"));
    EXPECT_THAT(rules.find("/TANK/HEAT", "Temperature"), IsNull());
}

TEST(RuleBook, SharesWhatALaterDocumentAdds)
{
    RuleBook rules = rulesOf(k_sharedRules);

    addRules(rules, "[/PUMP/HEAT/PARAMETER:Emissivity]\nType = Real\n");

    EXPECT_THAT(rules.find("/TANK/HEAT", "Emissivity"), NotNull());
}

// ---- Quantities

constexpr const char* k_dynamicRules = R"(
[/FLOW]
Named = Yes
[/FLOW/DOMAIN]
[/FLOW/DOMAIN/PARAMETER:Depth]
Type = Real
Quantity = Length
[/FLOW/DOMAIN/PARAMETER:Factor]
Type = Real
[/FLOW/DOMAIN/TRACER]
Named = Yes
[/FLOW/DOMAIN/TRACER/PARAMETER:Value]
Type = Real
Units From = /LIBRARY/TRACER:{TRACER}/PARAMETER:Units
[/FLOW/DOMAIN/TRACER/PARAMETER:Flux]
Type = Real
Units From = /LIBRARY/TRACER:{TRACER}/PARAMETER:Units
Units Times = m s^-1
)";

TEST(RuleBook, NamesTheFixedQuantityOfAParameter)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    const ModelTree model;
    std::string quantity = "left over";

    EXPECT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN", "Depth", quantity), RuleBook::k_fixedQuantity);
    EXPECT_EQ(quantity, "Length");
    EXPECT_FALSE(rules.isDynamicQuantity("/FLOW:F/DOMAIN", "Depth"));
}

TEST(RuleBook, NamesNoQuantityWhereThereIsNone)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    const ModelTree model;

    for (const char* parameter : {"Factor", "Unheard Of"})
    {
        std::string quantity = "left over";
        EXPECT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN", parameter, quantity),
                  RuleBook::k_fixedQuantity);
        EXPECT_EQ(quantity, "") << parameter;
    }
}

TEST(RuleBook, TakesTheUnitsOfADynamicQuantityFromTheObjectOfTheSameName)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye", "Units", "kg m^-3");
    model.setParameter("/LIBRARY/TRACER:Salt", "Units", "mol m^-3");
    std::string quantity;

    EXPECT_TRUE(rules.isDynamicQuantity("/FLOW:F/DOMAIN/TRACER:Dye", "Value"));
    ASSERT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity),
              RuleBook::k_dynamicQuantity);
    EXPECT_EQ(rules.dynamicUnits(quantity), "kg m^-3");
    ASSERT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Salt", "Value", quantity),
              RuleBook::k_dynamicQuantity);
    EXPECT_EQ(rules.dynamicUnits(quantity), "mol m^-3");
}

TEST(RuleBook, BorrowsTheNameOfTheLevelThatTheRuleAsksFor)
{
    const RuleBook rules = rulesOf(R"(
[/FLOW]
Named = Yes
[/FLOW/TRACER]
Named = Yes
[/FLOW/TRACER/SIDE]
Named = Yes
[/FLOW/TRACER/SIDE/PARAMETER:Value]
Type = Real
Units From = /LIBRARY/TRACER:{TRACER}/STATE:standard/OF:{FLOW}/SCALE/PARAMETER:Units
)");
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye/STATE:standard/OF:Duct/SCALE", "Units", "kg");
    std::string quantity;

    ASSERT_EQ(rules.quantityMode(&model, "/FLOW:Duct/TRACER:Dye/SIDE:Left", "Value", quantity),
              RuleBook::k_dynamicQuantity);
    EXPECT_EQ(rules.dynamicUnits(quantity), "kg");
}

TEST(RuleBook, MultipliesTheUnitsOfADynamicQuantity)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye", "Units", "kg m^-3");
    std::string quantity;

    ASSERT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Flux", quantity),
              RuleBook::k_dynamicQuantity);
    EXPECT_EQ(rules.dynamicUnits(quantity), "kg m^-3 m s^-1");
}

TEST(RuleBook, FollowsAChangeOfTheUnitsInTheModel)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye", "Units", "kg m^-3");
    std::string quantity;
    rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity);

    model.setParameter("/LIBRARY/TRACER:Dye", "Units", "m^-3");
    rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity);

    EXPECT_EQ(rules.dynamicUnits(quantity), "m^-3");
}

TEST(RuleBook, ChecksNoUnitsWhereTheModelHasNone)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye", "Colour", "red");
    std::string quantity = "left over";

    EXPECT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity),
              RuleBook::k_fixedQuantity);
    EXPECT_EQ(quantity, "");
    EXPECT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER", "Value", quantity),
              RuleBook::k_fixedQuantity);
    EXPECT_EQ(quantity, "");
    EXPECT_EQ(rules.quantityMode(nullptr, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity),
              RuleBook::k_fixedQuantity);
    EXPECT_EQ(quantity, "");
    // Dynamic all the same: units that are added later are found when the value is looked at again.
    EXPECT_TRUE(rules.isDynamicQuantity("/FLOW:F/DOMAIN/TRACER:Dye", "Value"));
}

TEST(RuleBook, ChecksNoUnitsAgainstOnesThatAreNotUnderstood)
{
    const RuleBook rules = rulesOf(k_dynamicRules);
    ModelTree model;
    model.setParameter("/LIBRARY/TRACER:Dye", "Units", "spoonfuls");
    const UnitSystem units;
    World world;
    world.units = &units;
    const WorldScope scope(world);
    std::string quantity = "left over";

    EXPECT_EQ(rules.quantityMode(&model, "/FLOW:F/DOMAIN/TRACER:Dye", "Value", quantity),
              RuleBook::k_fixedQuantity);
    EXPECT_EQ(quantity, "");
}

}    // namespace
}    // namespace qen::standalone::test
