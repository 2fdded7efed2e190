#include "NamePattern.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qencheck {
namespace {

struct PatternCase {
    const char* name;
    const char* pattern;
    const char* text;
    bool matches;
};

void PrintTo(const PatternCase& p_case, std::ostream* p_stream)
{
    *p_stream << "'" << p_case.pattern << "' in '" << p_case.text << "'";
}

class NamePatternCase : public testing::TestWithParam<PatternCase> {};

TEST_P(NamePatternCase, IsFoundOrNot)
{
    EXPECT_EQ(NamePattern(GetParam().pattern).matches(GetParam().text), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Plain, NamePatternCase,
                         testing::Values(PatternCase {"Nothing", "", "Pressure", true},
                                         PatternCase {"TheMiddle", "ess", "Pressure", true},
                                         PatternCase {"OtherCase", "PRESS", "total pressure", true},
                                         PatternCase {"OtherLetters", "prss", "Pressure", false},
                                         PatternCase {"LongerThanTheName", "Pressures", "Pressure", false}),
                         [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Glob, NamePatternCase,
    testing::Values(PatternCase {"StarAtTheEnd", "pre*", "Pressure", true},
                    PatternCase {"StarForNothing", "pressure*", "Pressure", true},
                    PatternCase {"StarAlone", "*", "", true},
                    PatternCase {"NotTheWholeName", "ess*", "Pressure", false},
                    PatternCase {"NotToTheEnd", "*ess", "Pressure", false},
                    PatternCase {"StarInTheMiddle", "p*e", "Pressure", true},
                    PatternCase {"StarTakesMoreThanAtFirst", "*ab*ac", "abababac", true},
                    PatternCase {"StarsInARow", "p**e", "Pressure", true},
                    PatternCase {"SeveralStarsWithoutMatch", "*a*b*c", "aabbaabb", false},
                    PatternCase {"QuestionMark", "vel ?", "vel u", true},
                    PatternCase {"QuestionMarkForNothing", "vel ?", "vel ", false},
                    PatternCase {"QuestionMarkForTwo", "vel?", "vel u", false},
                    PatternCase {"QuestionMarkForACharacterOfTwoBytes", "?m", "\xC2\xB5m", true},
                    PatternCase {"StarThenQuestionMark", "*?m", "\xC2\xB5m", true},
                    PatternCase {"TwoQuestionMarksForACharacterOfTwoBytes", "??m", "\xC2\xB5m", false}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

TEST(NamePattern, TakesNoLongerThanTheProductOfBothLengths)
{
    std::string pattern;
    for (int i = 0; i < 50; ++i)
        pattern += "*a";

    EXPECT_FALSE(NamePattern(pattern + "b").matches(std::string(5000, 'a')));
}

}    // namespace
}    // namespace qencheck
