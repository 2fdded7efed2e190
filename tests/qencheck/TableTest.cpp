#include "Table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qencheck {
namespace {

TEST(Table, MakesColumnsAsWideAsTheirWidestTextAndEndsNoLineWithBlanks)
{
    Table table(std::vector<std::string> {"Name", "Units", "Scope"});
    table.addRow({"velocity", "m s^-1", ""});
    table.addRow({"p", "Pa", "GLOBAL"});

    EXPECT_EQ(table.text(Colour::Off), "Name      Units   Scope\n"
                                       "velocity  m s^-1\n"
                                       "p         Pa      GLOBAL\n");
}

TEST(Table, CountsCharactersAndNotBytes)
{
    Table table(std::vector<std::string> {"Größe", "Unit"});
    table.addRow({"Å", "m"});
    table.addRow({"länge", "µm"});

    EXPECT_EQ(table.text(Colour::Off), "Größe  Unit\n"
                                       "Å      m\n"
                                       "länge  µm\n");
}

TEST(Table, IsAsWideAsItsHeadingsAtTheLeast)
{
    Table table(std::vector<std::string> {"Heading", "B"});
    table.addRow({"a", "b"});

    EXPECT_EQ(table.text(Colour::Off), "Heading  B\n"
                                       "a        b\n");
}

TEST(Table, LeavesOutAColumnInWhichNothingStands)
{
    Table table(std::vector<std::string> {"Empty", "A", "Empty as well", "B"});
    table.addRow({"", "a", "", ""});
    table.addRow({"", "", "", "b"});

    EXPECT_EQ(table.text(Colour::Off), "A  B\n"
                                       "a\n"
                                       "   b\n");
}

TEST(Table, ShowsATabAsOneBlank)
{
    Table table(std::vector<std::string> {"A", "B"});
    table.addRow({"a\tb", "c"});

    EXPECT_EQ(table.text(Colour::Off), "A    B\n"
                                       "a b  c\n");
}

TEST(Table, MakesItsHeadingsBoldWhereThereAreColours)
{
    Table table(std::vector<std::string> {"A"});
    table.addRow({"a"});

    EXPECT_EQ(table.text(Colour::On), "\x1b[1mA\x1b[0m\na\n");
}

}    // namespace
}    // namespace qencheck
