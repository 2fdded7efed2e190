#include "CountingModel.h"
#include "PhysicsText.h"

#include <gmock/gmock.h>

#include <map>
#include <utility>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* k_solid = "[/QUERY:isSolid]\nObject = {DOMAIN}\nParameter = Type\nIs = Solid\n";

// ---- Which queries there are

TEST(PhysicsBook, KnowsWhatItDefines)
{
    const PhysicsBook physics =
        physicsOf(std::string(k_solid) + "[/QUERY:is hot/CONDITION:c]\nObject = {DOMAIN}\n");

    EXPECT_TRUE(physics.defines("isSolid"));
    EXPECT_TRUE(physics.defines("is hot"));
    EXPECT_FALSE(physics.defines("ishot"));
    EXPECT_FALSE(physics.defines(""));
    EXPECT_THAT(physics.queryNames(), ElementsAre("is hot", "isSolid"));
}

TEST(PhysicsBook, TakesQueryNamesExactlyWithTheirBlanks)
{
    const PhysicsBook physics = physicsOf("[/QUERY:anyFPcavmodel fordomain]\nObject = {DOMAIN}\n");
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\n");

    EXPECT_TRUE(physics.evalBool("anyFPcavmodel fordomain", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_FALSE(physics.evalBool("anyFPcavmodel  fordomain", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, NamesWhatWasDeclaredAndIsNotDefined)
{
    const PhysicsBook physics = physicsOf(k_solid);

    physics.declareBool("isWet", true);
    physics.declareBool("isSolid", false);
    physics.declareBool("isDry", false);
    physics.declareList("allDyes", true);

    EXPECT_THAT(physics.undefinedQueries(), ElementsAre("allDyes", "isDry", "isWet"));
}

TEST(PhysicsBook, IsContentOnceADeclaredQueryIsDefined)
{
    PhysicsBook physics;
    physics.declareBool("isSolid", false);

    addQueries(physics, k_solid);

    EXPECT_THAT(physics.undefinedQueries(), IsEmpty());
}

TEST(PhysicsBook, RemembersWhatWasAskedInVain)
{
    const PhysicsBook physics = physicsOf(k_solid);
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\n");

    EXPECT_FALSE(physics.evalBool("isWet", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_THAT(physics.evalList("allDyes", "/FLOW:F/DOMAIN:D", &model), IsEmpty());

    EXPECT_THAT(physics.undefinedQueries(), ElementsAre("allDyes", "isWet"));
}

TEST(PhysicsBook, HasNoListForAQueryOfAnotherKind)
{
    const PhysicsBook physics = physicsOf(k_solid);
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Solid\n");

    EXPECT_THAT(physics.evalList("isSolid", "/FLOW:F/DOMAIN:D", &model), IsEmpty());

    EXPECT_THAT(physics.undefinedQueries(), ElementsAre("isSolid"));
}

TEST(PhysicsBook, AnswersNothingWithoutAModel)
{
    const PhysicsBook physics = physicsOf("[/QUERY:q]\nObject = {DOMAIN}\nNegate = Yes\n");

    EXPECT_FALSE(physics.evalBool("q", "/FLOW:F", nullptr));
}

// ---- Later documents

TEST(PhysicsBook, TakesQueriesOfLaterDocumentsToo)
{
    PhysicsBook physics = physicsOf(k_solid);
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Solid\n");

    EXPECT_THAT(addQueries(physics, "[/QUERY:isFluid]\nQuery = isSolid\nNegate = Yes\n"), IsEmpty());

    EXPECT_FALSE(physics.evalBool("isFluid", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_TRUE(physics.evalBool("isSolid", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, LetsLaterDocumentsOverrideKeyByKey)
{
    PhysicsBook physics = physicsOf(k_solid);

    EXPECT_THAT(addQueries(physics, "[/QUERY:isSolid]\nIs = Solid, Porous\n"), IsEmpty());

    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Porous\n");
    EXPECT_TRUE(physics.evalBool("isSolid", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, LetsLaterDocumentsTakeAKeyBack)
{
    PhysicsBook physics = physicsOf(k_solid);

    EXPECT_THAT(addQueries(physics, "[/QUERY:isSolid]\nIs =\n"), IsEmpty());

    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Fluid\n");
    EXPECT_TRUE(physics.evalBool("isSolid", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, LetsLaterDocumentsTakeAConditionBack)
{
    PhysicsBook physics =
        physicsOf(std::string(k_solid) +
                  "[/QUERY:isSolid/CONDITION:located]\nObject = {DOMAIN}\nParameter = Location\n");

    EXPECT_THAT(addQueries(physics, "[/QUERY:isSolid/CONDITION:located]\nObject =\nParameter =\n"),
                IsEmpty());

    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Solid\n");
    EXPECT_TRUE(physics.evalBool("isSolid", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, LetsLaterDocumentsAddAnAlternative)
{
    PhysicsBook physics = physicsOf(k_solid);

    EXPECT_THAT(addQueries(physics, "[/QUERY:isSolid]\nAnswer = Any\n[/QUERY:isSolid/CONDITION:porous]\n"
                                    "Object = {DOMAIN}/POROSITY MODEL\n"),
                IsEmpty());

    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D/POROSITY MODEL]\n");
    EXPECT_TRUE(physics.evalBool("isSolid", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsBook, CanBeMoved)
{
    PhysicsBook first = physicsOf(k_solid);

    const PhysicsBook second = std::move(first);

    EXPECT_TRUE(second.defines("isSolid"));
}

// ---- Cost

TEST(PhysicsBook, LooksAtNoMoreThanTheAskedObject)
{
    const PhysicsBook physics = physicsOf(k_solid);
    const ModelTree tree = modelOf(manyDomains(1000));
    const CountingModel model(tree);

    physics.evalBool("isSolid", "/FLOW:F/DOMAIN:500/BOUNDARY:B", &model);

    EXPECT_EQ(model.questions(), 1U);
}

TEST(PhysicsBook, LooksAtEachOfManyObjectsOnce)
{
    const PhysicsBook physics =
        physicsOf(std::string(k_solid) +
                  "[/QUERY:anySolid]\nObject = {FLOW}/DOMAIN:*\nParameter = Type\nQuery = isSolid\n");
    const ModelTree tree = modelOf(manyDomains(1000));
    const CountingModel model(tree);

    EXPECT_FALSE(physics.evalBool("anySolid", "/FLOW:F", &model));

    EXPECT_EQ(model.questions(), 2001U);
}

TEST(PhysicsBook, StopsLookingOnceTheAnswerIsKnown)
{
    const PhysicsBook physics =
        physicsOf("[/QUERY:any]\nObject = {FLOW}/DOMAIN:*\nParameter = Type\nIs = Fluid\n");
    const ModelTree tree = modelOf(manyDomains(1000));
    const CountingModel model(tree);

    EXPECT_TRUE(physics.evalBool("any", "/FLOW:F", &model));

    EXPECT_EQ(model.questions(), 2U);
}

TEST(PhysicsBook, StopsLookingBelowEachOfEachOnceTheAnswerIsKnown)
{
    const PhysicsBook physics =
        physicsOf("[/QUERY:any]\nObject = /FLOW:*/DOMAIN:*\nParameter = Type\nIs = Fluid\n");
    const ModelTree tree = modelOf("[/FLOW:F/DOMAIN:D]\nType = Fluid\n[/FLOW:G/DOMAIN:D]\nType = Fluid\n");
    const CountingModel model(tree);

    EXPECT_TRUE(physics.evalBool("any", "", &model));

    EXPECT_EQ(model.questions(), 3U);
}

TEST(PhysicsBook, AsksTheModelNothingWhereThePathLacksALevel)
{
    const PhysicsBook physics =
        physicsOf("[/QUERY:name]\nObject = {DOMAIN}/FLUID DEFINITION:{FLUID}\n"
                  "[/QUERY:level]\nObject = {FLUID}/TURBULENCE MODEL\nParameter = Option\n");
    const ModelTree tree = modelOf("[/FLOW:F/DOMAIN:D]\n");
    const CountingModel model(tree);

    EXPECT_FALSE(physics.evalBool("name", "/FLOW:F/DOMAIN:D", &model));
    EXPECT_FALSE(physics.evalBool("level", "/FLOW:F/DOMAIN:D", &model));

    EXPECT_EQ(model.questions(), 0U);
}

TEST(PhysicsBook, GivesUpAQuestionThatMultiplies)
{
    // Given queries that each ask the next at every domain, which multiplies from level to level
    std::string text = "[/QUERY:not]\nQuery = q0\nNegate = Yes\n"
                       "[/QUERY:all]\nAnswer = List\nObject = {FLOW}/DOMAIN:*\nQuery = not\n";
    for (int i = 0; i < 8; ++i)
        text += "[/QUERY:q" + std::to_string(i) + "]\nObject = {FLOW}/DOMAIN:*\nQuery = q" +
                std::to_string(i + 1) + "\n";
    const PhysicsBook physics =
        physicsOf(text + "[/QUERY:q8]\nObject = {DOMAIN}\nParameter = Type\nIs = Solid\n");
    const ModelTree model = modelOf(manyDomains(100));

    // Then the question ends without an answer, and is remembered
    EXPECT_FALSE(physics.evalBool("q0", "/FLOW:F", &model));
    EXPECT_FALSE(physics.evalBool("not", "/FLOW:F", &model));
    EXPECT_THAT(physics.evalList("all", "/FLOW:F", &model), IsEmpty());
    EXPECT_THAT(physics.endlessQueries(), ElementsAre("all", "not", "q0"));

    // And one that looks at fewer is answered
    EXPECT_FALSE(physics.evalBool("q6", "/FLOW:F", &model));
    EXPECT_THAT(physics.endlessQueries(), ElementsAre("all", "not", "q0"));
}

}    // namespace
}    // namespace qen::standalone::test
