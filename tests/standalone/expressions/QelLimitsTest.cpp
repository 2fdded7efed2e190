#include "QelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen::standalone::test {
namespace {

using ::testing::EndsWith;

constexpr const char* k_tooDeep =
    ": the expression is nested more than 200 levels deep; expected at most that many.";

std::string repeated(const std::string& p_piece, std::size_t p_count)
{
    std::string text;
    text.reserve(p_piece.size() * p_count);
    for (std::size_t i = 0; i < p_count; ++i)
        text += p_piece;
    return text;
}

TEST(Nesting, Of200IsReadAndOf201IsNot)
{
    const QelWorld world;

    EXPECT_EQ(world.errorOf(repeated("(", 200) + "1" + repeated(")", 200)), "no error");
    EXPECT_EQ(world.errorOf(repeated("(", 201) + "1" + repeated(")", 201)),
              std::string("Column 201") + k_tooDeep);
    EXPECT_EQ(world.errorOf(repeated("-", 200) + "1"), "no error");
    EXPECT_EQ(world.errorOf(repeated("-", 201) + "1"), std::string("Column 201") + k_tooDeep);
    EXPECT_EQ(world.errorOf(repeated("1^", 200) + "1"), "no error");
    EXPECT_EQ(world.errorOf(repeated("1^", 201) + "1"), std::string("Column 402") + k_tooDeep);
}

TEST(Nesting, OfManyThousandsIsAnErrorWithoutEnd)
{
    const QelWorld world;

    for (const char* piece : {"(", "-", "+", "!", "1^", "2^-", "abs(", "f(", "f@a(", "1+(", "min(1,"})
        EXPECT_THAT(world.errorOf(repeated(piece, 100'000) + "1"), ::testing::HasSubstr(";")) << piece;
    for (const char* piece : {"f(", "f@a(", "abs("})
        EXPECT_THAT(world.errorOf(repeated(piece, 100'000) + "1" + repeated(")", 100'000)),
                    EndsWith(k_tooDeep))
            << piece;
}

TEST(Nesting, EndsWithItsBrackets)
{
    const QelWorld world;

    EXPECT_EQ(world.errorOf("0" + repeated(" + (-abs(2^(1)))", 1000)), "no error");
}

TEST(NamedExpressionChain, Of200IsReadAndOf201IsNot)
{
    QelWorld world;
    for (int i = 0; i < 100'000; ++i)
        world.namedExpression("N" + std::to_string(i), "1 + N" + std::to_string(i + 1));
    world.namedExpression("N100000", "1");

    EXPECT_EQ(world.errorOf("N99801"), "no error");
    EXPECT_EQ(world.errorOf("N99800"), std::string("In the named expression 'N99999', column 5") + k_tooDeep);
    EXPECT_THAT(world.errorOf("N0"), EndsWith(k_tooDeep));
}

TEST(NamedExpressionChain, OfDoublingReferencesIsReadOnceEach)
{
    // Given 150 expressions that each refer twice to the next
    QelWorld world;
    for (int i = 0; i < 150; ++i)
        world.namedExpression("N" + std::to_string(i),
                              "N" + std::to_string(i + 1) + " + N" + std::to_string(i + 1));
    world.namedExpression("N150", "1");

    const QelResult result = world.analyse("N0");

    ASSERT_FALSE(result.error) << result.error->message;
    EXPECT_DOUBLE_EQ(*result.constantValue, 1427247692705959881058285969449495136382746624.0);    // 2^150
}

TEST(NumberOfReferences, Of10000IsReadAndOneMoreIsNot)
{
    const QelWorld world;
    const std::string most = "r" + repeated("+r", 9'999);

    EXPECT_EQ(world.errorOf(most), "no error");
    EXPECT_EQ(
        world.errorOf(most + "+r"),
        "Column 20001: the expression refers to more than 10000 variables, named expressions and callback "
        "functions; expected at most that many.");
}

TEST(Length, OfAMegabyteIsRead)
{
    const QelWorld world;

    const QelResult sum = world.analyse("1" + repeated(" + 1", 262'143));
    ASSERT_FALSE(sum.error) << sum.error->message;
    EXPECT_EQ(*sum.constantValue, 262'144.0);
    EXPECT_EQ(world.errorOf(std::string(1 << 20, ' ') + "1"), "no error");
    EXPECT_EQ(
        world.errorOf("average@Inlet(" + repeated("f(x)+", 1 << 18) + "x)"),
        "Column 25012: the expression refers to more than 10000 variables, named expressions and callback "
        "functions; expected at most that many.");
}

TEST(Length, BeyondTheLimitIsAnError)
{
    const QelWorld world;

    EXPECT_EQ(world.errorOf("1" + std::string((4 << 20) - 1, ' ')), "no error");
    EXPECT_EQ(world.errorOf("1" + std::string(4 << 20, ' ')),
              "Column 1: the expression has 4194305 bytes; expected at most 4194304.");
}

}
}    // namespace qen::standalone::test
