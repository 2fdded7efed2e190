#include "checking/ValueItems.h"

#include <gtest/gtest.h>

#include <string>

namespace qen::standalone {
namespace {

std::string places(const std::string& p_value)
{
    std::string text;
    for (const ValueItem& item : valueItems(p_value))
        text += "'" + item.text + "'@" + std::to_string(item.range.offset) + "+" +
                std::to_string(item.range.length) + " ";
    return text;
}

TEST(ValueItems, OfAPlainValueAreTheValue) { EXPECT_EQ(places("1 [m]"), "'1 [m]'@0+5 "); }

TEST(ValueItems, OfAListStandBetweenItsCommas)
{
    EXPECT_EQ(places("1 [m],  2 [m] , 3"), "'1 [m]'@0+5 '2 [m]'@8+5 '3'@16+1 ");
}

TEST(ValueItems, KeepWhatStandsInBracketsTogether)
{
    EXPECT_EQ(places("min(1, 2), 1"), "'min(1, 2)'@0+9 '1'@11+1 ");
}

TEST(ValueItems, ThatAreAlikeHaveTheirOwnPlaces)
{
    EXPECT_EQ(places("1, 1, 11"), "'1'@0+1 '1'@3+1 '11'@6+2 ");
}

TEST(ValueItems, MayBeEmptyBetweenCommas) { EXPECT_EQ(places("1,, 2"), "'1'@0+1 ''@2+0 '2'@4+1 "); }

TEST(ValueItems, OfAnEmptyValueAreNone) { EXPECT_EQ(places(""), ""); }

}    // namespace
}    // namespace qen::standalone
