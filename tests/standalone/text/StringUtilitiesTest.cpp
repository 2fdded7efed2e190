#include "StringUtilities.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <set>
#include <string>
#include <vector>

using qen::StringUtilities;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(StringToVector, SplitsAtEverySeparatorAndTrimsThePieces)
{
    EXPECT_THAT(StringUtilities::stringToVector("a, b c ,\td\r\n", ','), ElementsAre("a", "b c", "d"));
    EXPECT_THAT(StringUtilities::stringToVector("min(1, t)", ','), ElementsAre("min(1", "t)"));
    EXPECT_THAT(StringUtilities::stringToVector("a;b,c", ';'), ElementsAre("a", "b,c"));
    EXPECT_THAT(StringUtilities::stringToVector("one", ','), ElementsAre("one"));
}

TEST(StringToVector, HasNoPiecesForAnEmptyText)
{
    EXPECT_THAT(StringUtilities::stringToVector("", ','), IsEmpty());
    EXPECT_THAT(StringUtilities::stringToVector(" \t\r\n", ','), IsEmpty());
}

TEST(StringToVector, KeepsEmptyPiecesAndRepeats)
{
    EXPECT_THAT(StringUtilities::stringToVector("a,,a", ','), ElementsAre("a", "", "a"));
    EXPECT_THAT(StringUtilities::stringToVector("a, ", ','), ElementsAre("a", ""));
    EXPECT_THAT(StringUtilities::stringToVector(",", ','), ElementsAre("", ""));
}

TEST(StringToSet, KeepsEachTrimmedPieceOnceInOrder)
{
    EXPECT_THAT(StringUtilities::stringToSet("b, a,b ,,", ','), ElementsAre("", "a", "b"));
    EXPECT_THAT(StringUtilities::stringToSet("", ','), IsEmpty());
}

TEST(SplitValue, KeepsTogetherWhatStandsInBrackets)
{
    EXPECT_THAT(StringUtilities::splitValue("min(1, t), 2 [m], Velocity{x,y}", ','),
                ElementsAre("min(1, t)", "2 [m]", "Velocity{x,y}"));
    EXPECT_THAT(StringUtilities::splitValue("f(g(1, 2), [3, {4, 5}]), 6", ','),
                ElementsAre("f(g(1, 2), [3, {4, 5}])", "6"));
}

TEST(SplitValue, TakesTheRestWhereABracketIsNotClosed)
{
    EXPECT_THAT(StringUtilities::splitValue("1, f(2, 3", ','), ElementsAre("1", "f(2, 3"));
}

TEST(SplitValue, PassesOverABracketThatWasNotOpened)
{
    EXPECT_THAT(StringUtilities::splitValue("1), 2, f(3, 4)", ','), ElementsAre("1)", "2", "f(3, 4)"));
}

TEST(SplitValue, HasNoItemsForAnEmptyTextAndKeepsEmptyItems)
{
    EXPECT_THAT(StringUtilities::splitValue("", ','), IsEmpty());
    EXPECT_THAT(StringUtilities::splitValue("  ", ','), IsEmpty());
    EXPECT_THAT(StringUtilities::splitValue("1,,2,", ','), ElementsAre("1", "", "2", ""));
}

TEST(Joining, PutsTheBareSeparatorBetweenTexts)
{
    EXPECT_EQ(StringUtilities::vectorToString({"b", "", "a"}, ','), "b,,a");
    EXPECT_EQ(StringUtilities::vectorToString({"b"}, ','), "b");
    EXPECT_EQ(StringUtilities::vectorToString({}, ','), "");
    EXPECT_EQ(StringUtilities::setToString({"b", "a", "c"}, ';'), "a;b;c");
    EXPECT_EQ(StringUtilities::setToString({}, ','), "");
    EXPECT_EQ(StringUtilities::vectorToString({"", "a"}, ','), ",a");
}

TEST(ToString, WritesTwelveWideGeneralNumbersAsCDoes)
{
    EXPECT_EQ(StringUtilities::toString(1.0, "%12g"), "           1");
    EXPECT_EQ(StringUtilities::toString(-0.5, "%12g"), "        -0.5");
    EXPECT_EQ(StringUtilities::toString(1234567.0, "%12g"), " 1.23457e+06");
    EXPECT_EQ(StringUtilities::toString(1e-5, "%12g"), "       1e-05");
    EXPECT_EQ(StringUtilities::toString(0.0, "%12g"), "           0");
}

TEST(ToString, AgreesWithTheCLibraryOnOtherFormats)
{
    for (const char* format :
         {"%g", "%-12g|", "%.3f", "%+.2e", "%012.4f", "%G", "[%8.3g]", "%.10g", "100%% %g"})
        for (const double value : {0.0, 1.0, -1.0, 0.1, 123456.789, 1e-10, 1e100, 2.5, -3.75e-5})
        {
            char expected[400];
            ASSERT_GT(std::snprintf(expected, sizeof expected, format, value), 0);
            EXPECT_EQ(StringUtilities::toString(value, format), expected) << format;
        }
}

TEST(ToLowerCase, ChangesAsciiLettersOnly)
{
    EXPECT_EQ(StringUtilities::toLowerCase("Size GROUP 1 \xC3\x84z"), "size group 1 \xC3\x84z");
    EXPECT_EQ(StringUtilities::toLowerCase(""), "");
}

TEST(RemoveWhitespace, DropsBlanksEverywhere)
{
    EXPECT_EQ(StringUtilities::removeWhitespace(" ! A\tB\r\nC\v\f "), "!ABC");
    EXPECT_EQ(StringUtilities::removeWhitespace(""), "");
}

TEST(StringToBool, IsTrueForElevenTextsOnly)
{
    for (const char* text : {"T", "True", "TRUE", "true", "Yes", "YES", "yes", "On", "ON", "on", "1"})
        EXPECT_TRUE(StringUtilities::stringToBool(text)) << text;
    for (const char* text :
         {"", "F", "False", "t", "y", "Y", "tRUE", "yEs", "oN", "0", "2", " T", "T ", "No", "Off"})
        EXPECT_FALSE(StringUtilities::stringToBool(text)) << "'" << text << "'";
}

TEST(SplitValue, SplitsAMillionItems)
{
    std::string text = "x";
    for (int count = 1; count < 1'000'000; ++count)
        text += ",x";
    EXPECT_EQ(StringUtilities::splitValue(text, ',').size(), 1'000'000U);
    EXPECT_EQ(StringUtilities::stringToVector(text, ',').size(), 1'000'000U);
}

}    // namespace
