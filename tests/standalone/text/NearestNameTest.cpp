#include "text/NearestName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

TEST(NearestName, FindsANameWithALetterTooManyTooFewOrSwapped)
{
    EXPECT_EQ(nearestName("Presure", {"Pressure", "Speed"}), "Pressure");
    EXPECT_EQ(nearestName("Presssure", {"Pressure", "Speed"}), "Pressure");
    EXPECT_EQ(nearestName("Pressrue", {"Pressure", "Speed"}), "Pressure");
}

TEST(NearestName, TakesTheClosestOfSeveral)
{
    EXPECT_EQ(nearestName("Lower Bond", {"Lower Bounds", "Lower Bound", "Upper Bound"}), "Lower Bound");
}

TEST(NearestName, TakesNoNoticeOfCase)
{
    EXPECT_EQ(nearestName("BOUNDARY", {"Boundary", "BOUND"}), "Boundary");
}

TEST(NearestName, TakesTheFirstOfTwoThatAreAsNear)
{
    EXPECT_EQ(nearestName("Speet", {"Speed", "Speer"}), "Speed");
    EXPECT_EQ(nearestName("Speet", {"Speer", "Speed"}), "Speer");
    EXPECT_EQ(nearestName("Speed", {"Speeds", "Spee"}), "Speeds");
    EXPECT_EQ(nearestName("Speed", {"Spee", "Speeds"}), "Spee");
}

TEST(NearestName, CountsASwapOfNeighboursAsOneEdit)
{
    EXPECT_EQ(nearestName("abdc", {"abd", "abcd"}), "abd");    // one edit each
    EXPECT_EQ(nearestName("abdc", {"abcd", "ab"}), "abcd");
}

TEST(NearestName, HasNoMoreThanAThirdOfTheLettersWrong)
{
    EXPECT_EQ(nearestName("Density", {"Dansaty"}), "Dansaty");
    EXPECT_EQ(nearestName("Density", {"Dansato"}), "");
    EXPECT_EQ(nearestName("Density", {"Densityyyy"}), "");
}

/// The distance by its definition, in a table.
std::size_t editsBetween(const std::string& p_a, const std::string& p_b)
{
    std::vector<std::vector<std::size_t>> table(p_a.size() + 1, std::vector<std::size_t>(p_b.size() + 1));
    for (std::size_t i = 0; i <= p_a.size(); ++i)
        for (std::size_t j = 0; j <= p_b.size(); ++j)
        {
            std::size_t& edits = table[i][j];
            if (i == 0 || j == 0)
            {
                edits = i + j;
                continue;
            }
            edits = std::min({table[i - 1][j] + 1, table[i][j - 1] + 1,
                              table[i - 1][j - 1] + (p_a[i - 1] == p_b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && p_a[i - 1] == p_b[j - 2] && p_a[i - 2] == p_b[j - 1])
                edits = std::min(edits, table[i - 2][j - 2] + 1);
        }
    return table.back().back();
}

TEST(NearestName, IsThatOfTheDefinitionForRandomNames)
{
    std::mt19937 random(20);
    const auto upTo = [&](std::size_t p_most) { return random() % (p_most + 1); };
    const auto name = [&] {
        std::string text(upTo(12), 'a');
        for (char& letter : text)
            letter = static_cast<char>('a' + upTo(3));
        return text;
    };

    std::size_t found = 0;
    for (int round = 0; round < 20000; ++round)
    {
        std::vector<std::string> known(upTo(8));
        std::ranges::generate(known, name);
        const std::string wrong = name();

        // The first of those with the fewest edits, where these are at most a third of the letters, but not all
        std::string nearest;
        std::size_t most = std::min(std::max<std::size_t>(1, wrong.size() / 3) + 1, wrong.size());
        for (const std::string& one : known)
            if (const std::size_t edits = editsBetween(wrong, one); edits < most)
            {
                most = edits;
                nearest = one;
            }

        EXPECT_EQ(nearestName(wrong, known), nearest) << wrong;
        found += nearest.empty() ? 0U : 1U;
    }
    EXPECT_GT(found, 800U);
}

std::string nearestOf(const KnownNames& p_known, const std::string& p_misspelt)
{
    NameSearch search(p_misspelt);
    p_known.compareIn(search);
    return std::string(search.nearest());
}

TEST(KnownNames, AnswerFromACopyWhenTheFirstIsGone)
{
    KnownNames copy;
    {
        const KnownNames first({"Pressure", "Speed"});
        copy = first;
    }

    EXPECT_EQ(nearestOf(copy, "Spead"), "Speed");
    EXPECT_EQ(nearestOf(copy, "presure"), "Pressure");
    EXPECT_FALSE(copy.empty());
    EXPECT_TRUE(KnownNames().empty());
    EXPECT_EQ(nearestOf(KnownNames(), "Speed"), "");
}

TEST(KnownNames, AnswerAsAComparisonOneByOneDoes)
{
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t p_most) { return random() % (p_most + 1); };
    const auto name = [&] {
        std::string text(upTo(14), 'a');
        for (char& letter : text)
            letter = "aAb1"[upTo(3)];
        return text;
    };

    std::size_t found = 0;
    for (int round = 0; round < 6000; ++round)
    {
        std::vector<std::string> known(upTo(40));
        std::ranges::generate(known, name);
        const std::string misspelt = name();

        const std::string nearest = nearestName(misspelt, known);
        EXPECT_EQ(nearestOf(KnownNames(known), misspelt), nearest) << misspelt;
        found += nearest.empty() ? 0U : 1U;
    }
    EXPECT_GT(found, 800U);
}

TEST(NameSearch, PrefersWhatWasComparedBeforeOfTwoThatAreAsNear)
{
    NameSearch search("Speet");
    const KnownNames first({"Speed"});
    const KnownNames last({"Speet"});
    first.compareIn(search);
    search.compare("Speer");
    EXPECT_EQ(search.nearest(), "Speed");

    search.compare("speet");
    last.compareIn(search);
    EXPECT_EQ(search.nearest(), "speet");
}

TEST(NearestName, IsEmptyWhenNothingIsClose)
{
    EXPECT_EQ(nearestName("Viscosity", {"Speed", "Temperature"}), "");
    EXPECT_EQ(nearestName("Speed", {}), "");
}

TEST(NearestName, IsEmptyWhenNothingIsShared)
{
    EXPECT_EQ(nearestName("x", {"y", "xy"}), "");
    EXPECT_EQ(nearestName("x", {"y", "X"}), "X");
    EXPECT_EQ(nearestName("ab", {"cd", "ad"}), "ad");
    EXPECT_EQ(nearestName("", {"a", ""}), "");
}

TEST(NearestName, IsNotLookedForBeyond64Bytes)
{
    const std::string longName(100000, 'a');
    const std::string longest(64, 'a');

    EXPECT_EQ(nearestName(longName, {longName}), "");
    EXPECT_EQ(nearestName(longest + 'a', {longest}), "");
    EXPECT_EQ(nearestName(longest, {longest + 'a', longest}), longest);
    EXPECT_EQ(nearestName(longest, {longest + 'b'}), longest + 'b');
    EXPECT_EQ(nearestName("Speed", {longName, "Sped"}), "Sped");
    EXPECT_EQ(nearestOf(KnownNames({longName, longest + 'b'}), longest), longest + 'b');
    EXPECT_EQ(nearestOf(KnownNames({longName, longest}), longest + 'b'), "");
}

}    // namespace
}    // namespace qen::standalone
