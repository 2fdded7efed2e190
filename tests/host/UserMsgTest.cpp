#include "UserMsg.h"

#include "support/Matchers.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace qen {
namespace {

using support::standardErrorOf;

TEST(UserMsg, FillsPlaceholdersInOrder)
{
    UserMsg message("%2 before %1");

    message << "first"
            << "second";

    EXPECT_EQ(message.str(), "second before first");
    EXPECT_EQ(std::string(message), "second before first");
}

TEST(UserMsg, FillsEveryOccurrence)
{
    UserMsg message("%1, %1%1 and '%1'");

    message.arg("x");

    EXPECT_EQ(message.str(), "x, xx and 'x'");
}

TEST(UserMsg, LeavesPlaceholdersThatNoArgumentFills)
{
    UserMsg message("%1 %2 %3");

    message.arg("x");

    EXPECT_EQ(message.str(), "x %2 %3");
}

TEST(UserMsg, FillsAPlaceholderThatAnArgumentBringsAlong)
{
    UserMsg message("%1 and %2");

    message << "<%2>"
            << "second";

    EXPECT_EQ(message.str(), "<second> and second");
}

TEST(UserMsg, FillsAPlaceholderThatOnlyAnArgumentBringsAlong)
{
    UserMsg message("%1");

    const std::string printed = standardErrorOf([&] {
        message << "<%2>"
                << "second";
    });

    EXPECT_EQ(message.str(), "<second>");
    EXPECT_EQ(printed, "");
}

TEST(UserMsg, LeavesAnArgumentThatHoldsItsOwnPlaceholder)
{
    UserMsg message("%1%1");

    message << "%1-";

    EXPECT_EQ(message.str(), "%1-%1-");
}

TEST(UserMsg, LeavesAnArgumentThatHoldsAnEarlierPlaceholder)
{
    UserMsg message("%1 %2");

    message << "first"
            << "%1";

    EXPECT_EQ(message.str(), "first %1");
}

TEST(UserMsg, FillsAPlaceholderThatFillingPutsTogether)
{
    UserMsg message("%%12");

    message << ""
            << "x";

    EXPECT_EQ(message.str(), "x");
}

TEST(UserMsg, PrintsALineForAnArgumentWithoutAPlaceholder)
{
    UserMsg message("%1 %2 %3 %4");
    message << "a"
            << "b"
            << "c"
            << "d";

    const std::string printed = standardErrorOf([&] { message << "too many"; });

    EXPECT_EQ(printed, "Warning: token %5 was not used in the message: \"too many\"\n");
    EXPECT_EQ(message.str(), "a b c d");
}

TEST(UserMsg, PrintsOneLineForEachArgumentWithoutAPlaceholderAndCountsThem)
{
    UserMsg message("%3");

    const std::string printed = standardErrorOf([&] {
        message << "a"
                << ""
                << "c";
    });

    EXPECT_EQ(printed, "Warning: token %1 was not used in the message: \"a\"\n"
                       "Warning: token %2 was not used in the message: \"\"\n");
    EXPECT_EQ(message.str(), "c");
}

TEST(UserMsg, PrintsNothingWhenEveryArgumentIsUsed)
{
    UserMsg message("%1 %2");

    EXPECT_EQ(standardErrorOf([&] {
                  message << "a"
                          << "b";
              }),
              "");
}

TEST(UserMsg, ShowsATextWithoutPlaceholdersAsItIs)
{
    EXPECT_EQ(UserMsg("dimensionless").str(), "dimensionless");
}

TEST(UserMsg, TakesANullFlag) { EXPECT_EQ(UserMsg("100 %", nullptr).str(), "100 %"); }

TEST(UserMsg, CopiesGoOnWithTheirOwnCount)
{
    UserMsg message("%1 %2");
    message << "a";

    UserMsg copy(message);
    copy << "b";
    message << "c";

    EXPECT_EQ(copy.str(), "a b");
    EXPECT_EQ(message.str(), "a c");
}

TEST(UserMsg, FillsInTimeLinearInTheResult)
{
    // Given two million places to fill; moving the rest of the text for each would take hours
    std::string text;
    for (int i = 0; i < 2'000'000; ++i)
        text += "%1";
    UserMsg message(text);

    const auto start = std::chrono::steady_clock::now();
    message.arg("abc");

    EXPECT_EQ(message.str().size(), 6'000'000U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}    // namespace
}    // namespace qen
