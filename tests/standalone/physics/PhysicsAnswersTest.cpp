#include "physics/PhysicsAnswers.h"

#include "CountingModel.h"
#include "ShippedPhysics.h"

#include <gmock/gmock.h>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* k_queries = R"(
[/QUERY:anyInflow]
Object = {DOMAIN}/BOUNDARY:*
Parameter = Boundary Type
Is = Inflow
[/QUERY:isDisperse]
Object = {DOMAIN}/FLUID DEFINITION:{FLUID}
Parameter = Morphology
Is = Dispersed Fluid
[/QUERY:inflows]
Answer = List
Object = {DOMAIN}/BOUNDARY:*
Parameter = Boundary Type
Is = Inflow
)";

/// A domain of 1000 walls, whose model is counted.
class PhysicsAnswersTest : public testing::Test {
protected:
    PhysicsAnswersTest()
    {
        for (int i = 0; i < 1000; ++i)
            m_tree.setParameter(wall(i), "Boundary Type", "Wall");
    }

    static std::string wall(int p_number) { return "/FLOW:F/DOMAIN:D/BOUNDARY:" + std::to_string(p_number); }

    PhysicsBook m_book = physicsOf(k_queries);
    ModelTree m_tree;
    CountingModel m_model {m_tree};
    PhysicsAnswers m_answers {m_book, m_model, [this] { return m_tree.version(); }};
};

TEST_F(PhysicsAnswersTest, WorksOutAQuestionAboutADomainOnceForAllItsObjects)
{
    for (int i = 0; i < 1000; ++i)
        EXPECT_FALSE(m_answers.evalBool("anyInflow", wall(i), &m_model));

    EXPECT_EQ(m_model.questions(), 1001U);
}

TEST_F(PhysicsAnswersTest, KeepsWhatAListHolds)
{
    m_tree.setParameter(wall(7), "Boundary Type", "Inflow");

    for (int i = 0; i < 1000; ++i)
        EXPECT_THAT(m_answers.evalList("inflows", wall(i), &m_model), ElementsAre("7"));

    EXPECT_EQ(m_model.questions(), 1001U);
}

TEST_F(PhysicsAnswersTest, TellsDomainsAndFluidsApart)
{
    m_tree.setParameter("/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air", "Morphology", "Dispersed Fluid");

    EXPECT_TRUE(m_answers.evalBool("isDisperse", wall(1) + "/FLUID:Air", &m_model));
    EXPECT_FALSE(m_answers.evalBool("isDisperse", wall(1) + "/FLUID:Water", &m_model));
    EXPECT_FALSE(m_answers.evalBool("isDisperse", wall(1), &m_model));
    EXPECT_FALSE(m_answers.evalBool("isDisperse", "/FLOW:F/DOMAIN:E/BOUNDARY:B/FLUID:Air", &m_model));
    EXPECT_TRUE(m_answers.evalBool("isDisperse", wall(2) + "/FLUID:Air/WALL", &m_model));
}

TEST_F(PhysicsAnswersTest, ForgetsWhenTheModelChanges)
{
    EXPECT_FALSE(m_answers.evalBool("anyInflow", wall(1), &m_model));
    EXPECT_THAT(m_answers.evalList("inflows", wall(1), &m_model), IsEmpty());

    m_tree.setParameter(wall(7), "Boundary Type", "Inflow");

    EXPECT_TRUE(m_answers.evalBool("anyInflow", wall(1), &m_model));
    EXPECT_THAT(m_answers.evalList("inflows", wall(1), &m_model), ElementsAre("7"));
}

TEST_F(PhysicsAnswersTest, KeepsNothingAboutAnotherModel)
{
    ModelTree other;

    EXPECT_FALSE(m_answers.evalBool("anyInflow", wall(1), &other));
    other.setParameter(wall(1), "Boundary Type", "Inflow");

    EXPECT_TRUE(m_answers.evalBool("anyInflow", wall(1), &other));
    EXPECT_FALSE(m_answers.evalBool("anyInflow", wall(1), &m_model));
}

TEST_F(PhysicsAnswersTest, DeclaresToTheBook)
{
    m_answers.declareBool("isWet", true);
    m_answers.declareList("anyInflow", true);

    EXPECT_THAT(m_book.undefinedQueries(), ElementsAre("anyInflow", "isWet"));
}

TEST_F(PhysicsAnswersTest, LetsTheBookRememberWhatWasAskedInVain)
{
    EXPECT_FALSE(m_answers.evalBool("isWet", wall(1), &m_model));
    EXPECT_THAT(m_answers.evalList("allDyes", wall(1), &m_model), IsEmpty());

    EXPECT_THAT(m_book.undefinedQueries(), ElementsAre("allDyes", "isWet"));
}

}    // namespace
}    // namespace qen::standalone::test
