#include "LineExcerpt.h"

#include <gtest/gtest.h>

#include <string>

namespace qencheck {
namespace {

TEST(LineExcerpt, UnderlinesTheStretchThatIsPointedAt)
{
    const LineExcerpt shown = excerpt("Speed = 2 [m]", 9, 5, 160);

    EXPECT_EQ(shown.text, "Speed = 2 [m]");
    EXPECT_EQ(shown.underline, "        ^~~~~");
}

TEST(LineExcerpt, PointsAtOneCharacterWhenTheLengthIsZero)
{
    EXPECT_EQ(excerpt("Speed =", 8, 0, 160).underline, "       ^");
}

TEST(LineExcerpt, CountsCharactersAndNotBytes)
{
    // Two letters of two bytes each stand before the place, and one within it.
    const LineExcerpt shown = excerpt("\xC3\xA4\xC3\xB6 = \xC3\xBCx", 8, 3, 160);

    EXPECT_EQ(shown.underline, "     ^~");
    EXPECT_EQ(characterColumn("\xC3\xA4\xC3\xB6 = \xC3\xBCx", 8), 6U);
}

TEST(LineExcerpt, CutsALongLineAroundThePlace)
{
    const std::string line = std::string(1000, 'a') + "WRONG" + std::string(1000, 'b');

    const LineExcerpt shown = excerpt(line, 1001, 5, 30);

    EXPECT_EQ(shown.text, "..." + std::string(10, 'a') + "WRONG" + std::string(15, 'b') + "...");
    EXPECT_EQ(shown.underline, std::string(13, ' ') + "^~~~~");
}

TEST(LineExcerpt, CutsTheEndOfALongLineWhosePlaceFits)
{
    const LineExcerpt shown = excerpt("Speed = " + std::string(100, '1'), 1, 5, 20);

    EXPECT_EQ(shown.text, "Speed = " + std::string(12, '1') + "...");
    EXPECT_EQ(shown.underline, "^~~~~");
}

TEST(LineExcerpt, UnderlinesNoFurtherThanWhatItShows)
{
    const LineExcerpt shown = excerpt("Speed = " + std::string(100, '1'), 9, 100, 20);

    EXPECT_EQ(shown.text.size(), 26U);
    EXPECT_EQ(shown.underline, std::string(9, ' ') + "^" + std::string(13, '~'));
}

TEST(LineExcerpt, ShowsNothingThatATerminalWouldActOn)
{
    EXPECT_EQ(excerpt("a\tb\x1b[31mc", 1, 1, 160).text, "a b?[31mc");
}

TEST(LineExcerpt, PointsBehindTheEndOfTheLine)
{
    EXPECT_EQ(excerpt("abc", 4, 0, 160).underline, "   ^");
    EXPECT_EQ(excerpt("abc", 99, 3, 160).underline, "   ^");
    EXPECT_EQ(excerpt("", 1, 0, 160).underline, "^");
}

}    // namespace
}    // namespace qencheck
