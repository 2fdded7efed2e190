#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qencheck_test {
namespace {

using testing::HasSubstr;

class CleanExample : public testing::TestWithParam<const char*> {};

TEST_P(CleanExample, GivesNoRecordAndStatusZero)
{
    const std::string name = GetParam();

    const Outcome run = qencheck({"check", "examples/" + name + ".qcl"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, readFile(std::string(QENCHECK_PROJECT) + "/examples/expected/" + name + ".txt"));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("error:")));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("warning:")));
    EXPECT_THAT(run.out, HasSubstr(" checked: no problems\n"));
    EXPECT_EQ(run.error, "");
}

INSTANTIATE_TEST_SUITE_P(Shipped, CleanExample,
                         testing::Values("pump", "mixing-vessel", "burner", "bubble-column"));

class BrokenExample : public testing::TestWithParam<const char*> {};

TEST_P(BrokenExample, GivesExactlyTheExpectedReportAndStatusOne)
{
    const std::string name = GetParam();

    const Outcome run = qencheck({"check", "examples/" + name + ".qcl"});

    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, readFile(std::string(QENCHECK_PROJECT) + "/examples/expected/" + name + ".txt"));
    EXPECT_EQ(run.error, "");
}

INSTANTIATE_TEST_SUITE_P(Shipped, BrokenExample,
                         testing::Values("pump-broken", "mixing-vessel-broken", "burner-broken",
                                         "bubble-column-broken", "expression-names-broken"));

}    // namespace
}    // namespace qencheck_test
