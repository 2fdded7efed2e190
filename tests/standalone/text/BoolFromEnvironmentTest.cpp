#include "BoolFromEnvironment.h"

#include <cstdlib>
#include <gtest/gtest.h>

using qen::BoolFromEnvironment;

namespace {

constexpr const char* k_variable = "QEN_TEST_SWITCH";

TEST(BoolFromEnvironment, IsOffWhenTheVariableIsNotSet)
{
    unsetenv(k_variable);
    EXPECT_FALSE(BoolFromEnvironment(k_variable).checkEnv());
}

TEST(BoolFromEnvironment, IsOnWhenTheVariableReadsAsTrue)
{
    setenv(k_variable, "Yes", 1);
    EXPECT_TRUE(BoolFromEnvironment(k_variable).checkEnv());
    EXPECT_TRUE(BoolFromEnvironment(k_variable).isSet());
}

TEST(BoolFromEnvironment, IsOffWhenTheVariableReadsAsAnythingElse)
{
    for (const char* text : {"", "0", "no", "yEs", " 1"})
    {
        setenv(k_variable, text, 1);
        EXPECT_FALSE(BoolFromEnvironment(k_variable).checkEnv()) << "for '" << text << "'";
    }
}

TEST(BoolFromEnvironment, ReadsTheVariableWhenItIsFirstAskedAndNotWhenItIsMade)
{
    unsetenv(k_variable);
    const BoolFromEnvironment flag(k_variable);
    setenv(k_variable, "on", 1);
    EXPECT_TRUE(flag.isSet());
}

TEST(BoolFromEnvironment, KeepsItsFirstAnswer)
{
    setenv(k_variable, "on", 1);
    const BoolFromEnvironment on(k_variable);
    EXPECT_TRUE(on.isSet());
    unsetenv(k_variable);
    EXPECT_TRUE(on.isSet());
    EXPECT_TRUE(on.checkEnv());

    const BoolFromEnvironment off(k_variable);
    EXPECT_FALSE(off.isSet());
    setenv(k_variable, "on", 1);
    EXPECT_FALSE(off.isSet());
    EXPECT_FALSE(off.checkEnv());
}

}    // namespace
