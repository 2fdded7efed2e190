#include "QelWorld.h"

#include "expressions/KeptExpressions.h"
#include "model/ReadGraph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* k_monitorPoint = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Point";

/// Counts how often one parameter is looked at.
class ReadCounter final : public ModelReader {
public:
    explicit ReadCounter(std::string p_name) : m_name(std::move(p_name)) {}

    void onObjectRead(std::string_view) override {}
    void onParameterRead(std::string_view, std::string_view p_paramName) override
    {
        count += p_paramName == m_name;
    }
    void onChildrenRead(std::string_view, std::string_view) override {}

    std::size_t count = 0;

private:
    std::string m_name;
};

/// All that an analysis says, as a text.
std::string described(const QelResult& p_result)
{
    std::string text;
    for (const std::string& variable : p_result.variables)
        text += "variable " + variable + "\n";
    for (const CallbackInfo& callback : p_result.callbacks)
        text +=
            "callback " + callback.callbackName + "@" + callback.locator + "(" + callback.argument + ")\n";
    for (const QelReference& reference : p_result.references)
        text += "reference " + std::to_string(static_cast<int>(reference.kind)) + " " + reference.name + " " +
                std::to_string(reference.range.offset) + "+" + std::to_string(reference.range.length) + "\n";
    if (p_result.error)
        return text + "error " + p_result.error->message + " " +
               std::to_string(p_result.error->range.offset) + "+" +
               std::to_string(p_result.error->range.length);
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        text += std::to_string(p_result.dims[i]) + " ";
    return text + (p_result.constantValue ? std::to_string(*p_result.constantValue) : "not constant");
}

TEST(KeptExpressions, AreReadOnceHoweverManyExpressionsReferToThem)
{
    // Given a long expression, behind another one
    test::QelWorld world;
    world.namedExpression("Part", "1");
    std::string text = "Part";
    for (int i = 1; i < 100; ++i)
        text += " + Part";
    world.namedExpression("Long", text);
    world.namedExpression("Twice", "2 * Long");
    KeptExpressions kept(world.model);
    world.world.expressions = &kept;

    // When many expressions refer to both
    ReadCounter reads("Part");
    world.model.tellReads(&reads);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(world.analyse("Twice + Long").constantValue, 300.0);
    world.model.tellReads(nullptr);

    // Then its text was read once
    EXPECT_EQ(reads.count, 100U);
}

TEST(KeptExpressions, AreReadAgainWhenTheModelChanged)
{
    test::QelWorld world;
    world.namedExpression("Part", "1");
    world.namedExpression("Whole", "2 * Part");
    KeptExpressions kept(world.model);
    world.world.expressions = &kept;
    ASSERT_EQ(world.analyse("Whole").constantValue, 2.0);

    world.namedExpression("Part", "5");

    EXPECT_EQ(world.analyse("Whole").constantValue, 10.0);
}

TEST(KeptExpressions, TellWhatTheyWereReadFrom)
{
    // Given two checks that use what one expression means, of which the second found it kept
    test::QelWorld world;
    world.namedExpression("Part", "1");
    world.namedExpression("Whole", "2 * Part");
    world.namedExpression("Other", "3");
    ReadGraph reads;
    world.model.attach(reads);
    world.model.tellReads(&reads);
    KeptExpressions kept(world.model, &reads);
    world.world.expressions = &kept;
    for (const char* name : {"first", "second"})
    {
        const ReadGraph::Scope scope(&reads, reads.node(ReadGraph::Kind::Check, "/X", name));
        EXPECT_EQ(world.analyse("Whole + average@Wall(Whole * 2)").error, std::nullopt);
    }

    // When the part changes, then both are affected; when another expression does, none is
    world.namedExpression("Part", "1 [m]");
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), SizeIs(2));
    world.namedExpression("Other", "4");
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), IsEmpty());
    world.model.tellReads(nullptr);
    world.model.detach(reads);
}

TEST(KeptExpressions, StillTellWhatTheyWereReadFromWhenALaterReadingIsGivenUp)
{
    // Given a check that uses an expression
    test::QelWorld world;
    world.namedExpression("Part", "1");
    world.namedExpression("Whole", "2 * (((1))) * Part");
    world.namedExpression("Other", "3");
    ReadGraph reads;
    world.model.attach(reads);
    world.model.tellReads(&reads);
    KeptExpressions kept(world.model, &reads);
    world.world.expressions = &kept;
    const ReadGraph::Node check = reads.node(ReadGraph::Kind::Check, "/X", "check");
    {
        const ReadGraph::Scope scope(&reads, check);
        EXPECT_EQ(world.analyse("Whole").constantValue, 2.0);
    }

    // When, after another change, somebody else meets it so deep that it is not read to its end
    world.namedExpression("Other", "4");
    {
        const ReadGraph::Scope scope(&reads, reads.node(ReadGraph::Kind::Check, "/X", "deep"));
        const std::size_t depth = QelLimits::k_depth - 2;
        EXPECT_NE(world.analyse(std::string(depth, '(') + "Whole" + std::string(depth, ')')).error,
                  std::nullopt);
    }
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), IsEmpty());

    // Then the check still depends on all of it
    world.namedExpression("Part", "2");
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), ElementsAre(check));
    world.model.tellReads(nullptr);
    world.model.detach(reads);
}

TEST(KeptExpressions, TellOfNamesThatWereSuggestedOrNotThereToBeSuggested)
{
    // Given a check that meets a misspelt name
    test::QelWorld world;
    world.namedExpression("Other", "1");
    ReadGraph reads;
    world.model.attach(reads);
    world.model.tellReads(&reads);
    KeptExpressions kept(world.model, &reads);
    world.world.expressions = &kept;
    const ReadGraph::Node check = reads.node(ReadGraph::Kind::Check, "/X", "check");
    {
        const ReadGraph::Scope scope(&reads, check);
        EXPECT_EQ(
            world.errorOf("Tip Sped"),
            "Column 1: 'Tip Sped' is not known; expected a variable, an additional variable, a constant "
            "or a named expression.");
    }

    // When another expression gets another text, then nothing changes for it; when one of nearly that name comes, it does
    world.namedExpression("Other", "2");
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), IsEmpty());
    world.namedExpression("Tip Speed", "3");
    EXPECT_THAT(reads.takeAffected(ReadGraph::Kind::Check), ElementsAre(check));
    EXPECT_EQ(
        world.errorOf("Tip Sped"),
        "Column 1: 'Tip Sped' is not known; expected a variable, an additional variable, a constant or a "
        "named expression. Did you mean 'Tip Speed'?");
    world.model.tellReads(nullptr);
    world.model.detach(reads);
}

/// Expressions made by chance, good and bad, that refer to each other, also in circles.
class RandomExpressions {
public:
    explicit RandomExpressions(unsigned p_seed) : m_random(p_seed) {}

    std::string next(unsigned p_depth = 0)
    {
        static constexpr std::array k_atoms {
            "1",           "2 [m]",
            "3 [s]",       "t",
            "x",           "Pressure",
            "Velocity u",  "Pressure.Gradient",
            "x.Bogus",     "Dye",
            "nobody",      "area@Wall()",
            "-5 [C]",      "nothing@Wall(x)",
            "pi",          "(1 [m] + 1 [s])",
            "average(x)",  "Expression Value",
            "Velocity{x}", "1 +",
        };
        switch (below(p_depth < 3 ? 9 : 5))
        {
        case 0:
        case 1:
            return k_atoms[below(k_atoms.size())];
        case 2:
        case 3:
        case 4:
            return "e" + std::to_string(below(8));
        case 5:
            return next(p_depth + 1) + " * " + next(p_depth + 1);
        case 6:
            return next(p_depth + 1) + " + " + next(p_depth + 1);
        case 7:
            return "average@Wall(" + next(p_depth + 1) + ")";
        default:
            return "probe@Point(Expression Value * " + next(p_depth + 1) + ")";
        }
    }

    std::size_t below(std::size_t p_count)
    {
        return std::uniform_int_distribution<std::size_t>(0, p_count - 1)(m_random);
    }

private:
    std::mt19937 m_random;
};

TEST(KeptExpressions, ChangeNothingOfWhatAnAnalysisSays)
{
    std::size_t good = 0;
    std::size_t bad = 0;
    for (unsigned seed = 0; seed < 1500; ++seed)
    {
        // Given expressions that refer to each other
        RandomExpressions random(seed);
        test::QelWorld world;
        world.additionalVariable("Dye", "kg m^-3");
        // Mostly of those before them, so that not all form circles.
        const bool inCircles = random.below(3) == 0;
        for (int i = 0; i < 8; ++i)
        {
            std::string text = random.next();
            if (!inCircles)
                for (std::size_t at = text.find('e'); at != std::string::npos; at = text.find('e', at + 1))
                    if (at + 1 < text.size() && text[at + 1] >= static_cast<char>('0' + i) &&
                        text[at + 1] <= '9')
                        text.replace(at, 2, "x");
            world.namedExpression("e" + std::to_string(i), text);
        }
        world.model.setParameter(k_monitorPoint, "Expression Value", random.next());
        KeptExpressions kept(world.model);
        World keeping = world.world;
        keeping.expressions = &kept;

        // When expressions that refer to them are analysed one after the other
        for (int i = 0; i < 12; ++i)
        {
            const std::string text = random.next();
            const std::string expected = described(analyseExpression(text, world.world, true));
            const std::string found = described(analyseExpression(text, keeping, true));

            // Then each analysis says what it says without
            ASSERT_EQ(found, expected) << "seed " << seed << ": " << text;
            (expected.find("error ") == std::string::npos ? good : bad) += 1;
        }
    }
    EXPECT_GT(good, 1500U);
    EXPECT_GT(bad, 1500U);
}

TEST(KeptExpressions, KeepToTheLimitsOnDepthAndReferences)
{
    // Given a chain that is just too deep for some that refer to it, and an expression with many references
    test::QelWorld world;
    world.namedExpression("c0", "1");
    for (unsigned i = 1; i < QelLimits::k_depth; ++i)
        world.namedExpression("c" + std::to_string(i), "c" + std::to_string(i - 1));
    std::string many = "t";
    for (std::size_t i = 1; i < QelLimits::k_references / 2; ++i)
        many += " + t";
    world.namedExpression("Many", many);
    world.namedExpression("Half", "Many");
    KeptExpressions kept(world.model);
    World keeping = world.world;
    keeping.expressions = &kept;

    for (const std::string text :
         {"c10", "c197", "(c198)", "((c198))", "c199", "(c199)", "(((c195 + c199)))", "((((c196))))", "Half",
          "Half + Many", "Half + Half + Many", "Many + t + t", "average@Wall(Half) + Many",
          "average@Wall(Many) + Half + t", "average@Wall(c199) + c198"})
    {
        EXPECT_EQ(described(analyseExpression(text, keeping, true)),
                  described(analyseExpression(text, world.world, true)))
            << text;
    }
}

TEST(KeptExpressions, TakeTimeInProportionToAChainThatIsTooDeep)
{
    test::QelWorld world;
    world.namedExpression("c0", "1");
    for (unsigned i = 1; i < 5000; ++i)
        world.namedExpression("c" + std::to_string(i), "c" + std::to_string(i - 1));
    KeptExpressions kept(world.model);
    world.world.expressions = &kept;

    ReadCounter reads("c4990");
    world.model.tellReads(&reads);
    EXPECT_NE(world.analyse("c4999").error, std::nullopt);
    world.model.tellReads(nullptr);

    EXPECT_LE(reads.count, 2U);
}

}    // namespace
}    // namespace qen::standalone
