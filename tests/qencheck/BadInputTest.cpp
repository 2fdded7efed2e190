#include "Qencheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* k_inflow = "[/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW]\n";    // has the parameter "Speed"

Outcome check(const std::string& p_text)
{
    const TemporaryFolder folder;
    return qencheck({"check", folder.write("case.qcl", p_text)});
}

TEST(BadInput, AnEmptyFileIsACaseWithAWarning)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("case.qcl", "");
    const Outcome run = qencheck({"check", file});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, file + ": warning: The case holds no object. [empty-case]\n" + file +
                           ": 0 parameters checked: 0 errors, 1 warning\n");
}

TEST(BadInput, AFileThatIsTooLargeCannotBeChecked)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("case.qcl", "");
    std::filesystem::resize_file(file, std::uintmax_t {65} << 20);    // takes no room on the disk

    const Outcome run = qencheck({"check", file});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("[limit-file-size]"));
}

TEST(BadInput, AFileOfWhichReadingStoppedCannotBeChecked)
{
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "stray\n";

    const Outcome run = check(text);

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("[limit-problems]"));
}

TEST(BadInput, AFolderCannotBeChecked)
{
    const Outcome run = qencheck({"check", "examples"});

    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("examples"));
}

TEST(BadInput, ABinaryFileGivesOneClearError)
{
    const Outcome run = check(std::string("\x7f"
                                          "ELF\x02\x01\x00\x00\xff\xfe",
                                          10));

    EXPECT_NE(run.status, 0);
    EXPECT_THAT(run.out, AllOf(HasSubstr("error: "), HasSubstr("case.qcl")));
}

TEST(BadInput, EverySyntaxErrorIsToldAndTheRestIsChecked)
{
    const Outcome run =
        check("stray = 1\n[no slash]\n" + std::string(k_inflow) + "no equals sign\nSpeed = 1 [K]\n");

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("case.qcl:1:"), HasSubstr("case.qcl:2:"), HasSubstr("case.qcl:4:"),
                      HasSubstr("case.qcl:5:9: error: Invalid units ('K') set for parameter 'Speed'")));
}

TEST(BadInput, UnbalancedBracketsArePointedAt)
{
    const Outcome run = check(std::string(k_inflow) + "Speed = 2 [m s^-1] * (1 + 2\n");

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("error: Bad expression value '2 [m s^-1] * (1 + 2' detected in parameter "
                                "'Speed' in object '/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'.\nQEL error:\n"),
                      HasSubstr("[bad-expression]")));
}

TEST(BadInput, UnknownUnitsAreReportedAsTheSystemSaysIt)
{
    const Outcome run = check(std::string(k_inflow) + "Speed = 2 [parsecs]\n");

    EXPECT_THAT(run.out,
                HasSubstr("case.qcl:2:9: error: Unrecognised units ('parsecs') set for parameter 'Speed' in "
                          "object '/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW'. [unrecognised-units]\n"
                          "    2 | Speed = 2 [parsecs]\n"
                          "      |         ^~~~~~~~~~~\n"));
}

TEST(BadInput, BracketsNestedAHundredThousandDeepAreAnError)
{
    const Outcome run = check(std::string(k_inflow) + "Speed = " + std::string(100000, '(') + "1" +
                              std::string(100000, ')') + "\nSpeed Factor X = 1\n");

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, AllOf(HasSubstr("[bad-expression]"), HasSubstr("[unknown-parameter]")));
}

TEST(BadInput, ALineOfAMegabyteIsRead)
{
    std::string sum = "1 [m s^-1]";
    while (sum.size() < (1U << 20))
        sum += " + 1 [m s^-1]";

    const Outcome run = check(std::string(k_inflow) + "Speed = " + sum + " + 1 [K]\n");

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, HasSubstr("case.qcl:2:"));
}

TEST(BadInput, ManySectionsAreReadInOneGo)
{
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "[/FLOW:F/DOMAIN:D" + std::to_string(i) + "/BOUNDARY:B/INFLOW]\nSpeed = 1 [m s^-1]\n";
    text += "Speed Factor X = 1\n";

    const Outcome run = check(text);

    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, AllOf(HasSubstr("100001 parameters checked: 1 error, 0 warnings"),
                               HasSubstr("[unknown-parameter]"), Not(HasSubstr("[wrong-units]"))));
}

}    // namespace
}    // namespace qencheck_test
