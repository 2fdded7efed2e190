#include "Table.h"

#include <gtest/gtest.h>

namespace qencheck {
namespace {

TEST(Table, MakesColumnsAsWideAsTheirWidestTextAndEndsNoLineWithBlanks)
{
    Table table({{"Name"}, {"Units"}, {"Scope"}});
    table.addRow({"velocity", "m s^-1", ""});
    table.addRow({"p", "Pa", "GLOBAL"});

    EXPECT_EQ(table.text(Colour::Off), "Name      Units   Scope\n"
                                       "velocity  m s^-1\n"
                                       "p         Pa      GLOBAL\n");
}

TEST(Table, CountsCharactersAndNotBytes)
{
    Table table({{"Größe"}, {"Unit"}});
    table.addRow({"Å", "m"});
    table.addRow({"länge", "µm"});

    EXPECT_EQ(table.text(Colour::Off), "Größe  Unit\n"
                                       "Å      m\n"
                                       "länge  µm\n");
}

TEST(Table, LetsALongTextPushTheRestOfItsRowUntilThereIsRoomAgain)
{
    Table table({{"A", 3}, {"B"}, {"C"}});
    table.addRow({"abc", "middle", "x"});
    table.addRow({"abcdef", "mid", "y"});
    table.addRow({"abcdefghijklmno", "mid", "z"});

    EXPECT_EQ(table.text(Colour::Off), "A    B       C\n"
                                       "abc  middle  x\n"
                                       "abcdef  mid  y\n"
                                       "abcdefghijklmno  mid  z\n");
}

TEST(Table, IsAsWideAsItsHeadingsAtTheLeast)
{
    Table table({{"Heading", 3}, {"B"}});
    table.addRow({"a", "b"});

    EXPECT_EQ(table.text(Colour::Off), "Heading  B\n"
                                       "a        b\n");
}

TEST(Table, LeavesOutAColumnInWhichNothingStands)
{
    Table table({{"Empty"}, {"A"}, {"Empty as well"}, {"B"}});
    table.addRow({"", "a", "", ""});
    table.addRow({"", "", "", "b"});

    EXPECT_EQ(table.text(Colour::Off), "A  B\n"
                                       "a\n"
                                       "   b\n");
}

TEST(Table, ShowsATabAsOneBlank)
{
    Table table({{"A"}, {"B"}});
    table.addRow({"a\tb", "c"});

    EXPECT_EQ(table.text(Colour::Off), "A    B\n"
                                       "a b  c\n");
}

TEST(Table, MakesItsHeadingsBoldWhereThereAreColours)
{
    Table table({{"A"}});
    table.addRow({"a"});

    EXPECT_EQ(table.text(Colour::On), "\x1b[1mA\x1b[0m\na\n");
}

}    // namespace
}    // namespace qencheck
