#include "PreVarExprInfo.h"

#include "PreVariableDefStore.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <type_traits>

// Each of these tests is a process of its own: the object is one per process.

namespace qen {

/// Looks at the object without asking for it.
struct PreVarExprInfoPeer {
    static const PreVarExprInfo* instance() { return PreVarExprInfo::m_instance; }
};

namespace {

static_assert(!std::is_default_constructible_v<PreVarExprInfo>);
static_assert(!std::is_copy_constructible_v<PreVarExprInfo>);
static_assert(!std::is_copy_assignable_v<PreVarExprInfo>);
static_assert(!std::is_destructible_v<PreVarExprInfo>);

TEST(PreVarExprInfo, HasNoStoreAtFirst) { EXPECT_EQ(PreVarExprInfo::instance().getVarDefStore(), nullptr); }

TEST(PreVarExprInfo, IsMadeWhenItIsFirstAskedFor)
{
    EXPECT_EQ(PreVarExprInfoPeer::instance(), nullptr);

    const PreVarExprInfo& info = PreVarExprInfo::instance();

    EXPECT_EQ(PreVarExprInfoPeer::instance(), &info);
}

TEST(PreVarExprInfo, GivesTheStoreThatItWasGivenLast)
{
    const PreVariableDefStore first;
    const PreVariableDefStore second;

    PreVarExprInfo::instance().init(&first);
    EXPECT_EQ(PreVarExprInfo::instance().getVarDefStore(), &first);
    PreVarExprInfo::instance().init(&second);
    EXPECT_EQ(PreVarExprInfo::instance().getVarDefStore(), &second);
    PreVarExprInfo::instance().init(nullptr);
    EXPECT_EQ(PreVarExprInfo::instance().getVarDefStore(), nullptr);
}

TEST(PreVarExprInfo, IsTheSameObjectForAll)
{
    EXPECT_EQ(&PreVarExprInfo::instance(), &PreVarExprInfo::instance());
}

TEST(PreVarExprInfo, LeavesTheStoreToItsOwner)
{
    {
        const PreVariableDefStore store;
        PreVarExprInfo::instance().init(&store);
    }
    // Destroyed by its owner alone: a second time would end the process
    EXPECT_NE(PreVarExprInfo::instance().getVarDefStore(), nullptr);
}

const PreVariableDefStore& lastStore()
{
    static const PreVariableDefStore store;
    return store;
}

TEST(PreVarExprInfo, AnswersUntilTheVeryEndOfTheProcess)
{
    EXPECT_EXIT(
        {
            // Registered before the object is first asked for, so it runs after whatever the object registers
            std::atexit([] {
                const bool answers = PreVarExprInfo::instance().getVarDefStore() == &lastStore();
                std::fputs(answers ? "still there" : "gone", stderr);
            });
            PreVarExprInfo::instance().init(&lastStore());
            std::exit(0);
        },
        testing::ExitedWithCode(0), "still there");
}

}    // namespace
}    // namespace qen
