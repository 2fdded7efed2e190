#include "SplitVariableName.h"

#include "host/SlotCalls.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace qen {

/// As the three texts, which is how a failed comparison shows it.
inline void PrintTo(const QELName::Component& p_component, std::ostream* p_stream)
{
    *p_stream << '{' << p_component.name() << '|' << p_component.selector() << '|' << p_component.frame()
              << '}';
}

namespace {

using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;

MATCHER_P(IsPlain, p_name, std::string(negation ? "is not" : "is") + " just \"" + p_name + '"')
{
    return arg.name() == p_name && arg.selector().empty() && arg.frame().empty();
}

class SplitName : public testing::Test {
protected:
    SplitVariableName split(const std::string& p_fullName) const
    {
        return {p_fullName, m_host.rootNameFinder()};
    }

    ScriptedHost m_host;
};

// What a name is.

TEST_F(SplitName, HoldsTheValuesThatHostsRelyOn)
{
    EXPECT_EQ(static_cast<int>(SplitVariableName::NotVariable), 0);
    EXPECT_EQ(static_cast<int>(SplitVariableName::Empty), 1);
    EXPECT_EQ(static_cast<int>(SplitVariableName::Variable), 2);
    EXPECT_EQ(static_cast<int>(SplitVariableName::AV), 3);
    EXPECT_EQ(static_cast<int>(SplitVariableName::MPExprValue), 4);
    EXPECT_EQ(sizeof(SplitVariableName::Type), 4U);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<SplitVariableName::Type>, int>));
}

TEST_F(SplitName, IsEmptyForAnEmptyNameWithoutAskingAnybody)
{
    const SplitVariableName name = split("");

    EXPECT_EQ(name.type(), SplitVariableName::Empty);
    EXPECT_EQ(name.fullName(), "");
    EXPECT_TRUE(name.root().empty());
    EXPECT_TRUE(name.suffix().empty());
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

struct NoName {
    const char* title;
    const char* text;
};

class TextWithAnOperatorOrBracket : public testing::TestWithParam<NoName> {
protected:
    ScriptedHost m_host;
};

TEST_P(TextWithAnOperatorOrBracket, IsNoVariableWithoutAskingAnybody)
{
    const SplitVariableName name(GetParam().text, m_host.rootNameFinder());

    EXPECT_EQ(name.type(), SplitVariableName::NotVariable);
    EXPECT_EQ(name.fullName(), GetParam().text);
    EXPECT_EQ(name.prefix1(), "");
    EXPECT_EQ(name.prefix2(), "");
    EXPECT_TRUE(name.root().empty());
    EXPECT_TRUE(name.suffix().empty());
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_P(TextWithAnOperatorOrBracket, NeedsNoFinder)
{
    const SplitVariableName name(GetParam().text, nullptr);

    EXPECT_EQ(name.type(), SplitVariableName::NotVariable);
    EXPECT_EQ(name.fullName(), GetParam().text);
    EXPECT_TRUE(name.root().empty());
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Each, TextWithAnOperatorOrBracket,
    testing::Values(NoName {"RoundOpen", "f(x"}, NoName {"RoundClosed", "x)"}, NoName {"Call", "f(x)"},
                    NoName {"Times", "a*b"}, NoName {"Over", "a/b"}, NoName {"Plus", "a+b"},
                    NoName {"Minus", "a-b"}, NoName {"Power", "x^2"}, NoName {"SquareOpen", "v[1"},
                    NoName {"SquareClosed", "1]"}, NoName {"Subscript", "v[1]"}, NoName {"OnlyOne", "+"},
                    NoName {"InAPrefix", "Water+.Velocity"}, NoName {"InASuffix", "Velocity.Gradient^"}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(SplitName, AsksTheFinderAboutNamesWithAnyOtherCharacter)
{
    split("Pressure {x:Frame}<>=!&|,;%'\"");

    EXPECT_THAT(m_host.callsTo({"rootNames."}),
                ElementsAre("rootNames.findRoot(Pressure {x:Frame}<>=!&|,;%'\")"));
}

TEST_F(SplitName, AsksTheFinderBeforeTheSyntax)
{
    split("Water.Pressure");

    EXPECT_THAT(m_host.calls(),
                ElementsAre("rootNames.findRoot(Water.Pressure)", "names.splitVariableName(Water.Pressure)"));
}

TEST_F(SplitName, IsNoVariableWhenTheFinderKnowsNoRootWhateverItsSyntax)
{
    m_host.variableName("Water.Nonsense").hasNoRoot().isAV().isMPExprValue();
    m_host.isNotAVariableName("Water.Nonsense");

    const SplitVariableName name = split("Water.Nonsense");

    EXPECT_EQ(name.type(), SplitVariableName::NotVariable);
    EXPECT_FALSE(name.isAV());
    EXPECT_FALSE(name.isMPExprValue());
    EXPECT_EQ(name.fullName(), "Water.Nonsense");
    EXPECT_EQ(name.prefix1(), "");
    EXPECT_TRUE(name.root().empty());
    EXPECT_THAT(m_host.calls(), ElementsAre("rootNames.findRoot(Water.Nonsense)"));
}

TEST_F(SplitName, IsAVariable)
{
    const SplitVariableName name = split("Pressure");

    EXPECT_EQ(name.type(), SplitVariableName::Variable);
    EXPECT_FALSE(name.isAV());
    EXPECT_FALSE(name.isMPExprValue());
    EXPECT_EQ(name.fullName(), "Pressure");
    EXPECT_THAT(name.root(), IsPlain("Pressure"));
    EXPECT_EQ(name.prefix1(), "");
    EXPECT_EQ(name.prefix2(), "");
    EXPECT_TRUE(name.suffix().empty());
}

TEST_F(SplitName, IsAnAdditionalVariable)
{
    m_host.variableName("Dye").isAV();

    const SplitVariableName name = split("Dye");

    EXPECT_EQ(name.type(), SplitVariableName::AV);
    EXPECT_TRUE(name.isAV());
    EXPECT_FALSE(name.isMPExprValue());
    EXPECT_THAT(name.root(), IsPlain("Dye"));
}

TEST_F(SplitName, IsAnExpressionValue)
{
    m_host.variableName("Expression Value").isMPExprValue();

    const SplitVariableName name = split("Expression Value");

    EXPECT_EQ(name.type(), SplitVariableName::MPExprValue);
    EXPECT_FALSE(name.isAV());
    EXPECT_TRUE(name.isMPExprValue());
    EXPECT_THAT(name.root(), IsPlain("Expression Value"));
}

TEST_F(SplitName, IsAnAdditionalVariableRatherThanAnExpressionValue)
{
    m_host.variableName("Expression Value").isAV().isMPExprValue();

    const SplitVariableName name = split("Expression Value");

    EXPECT_EQ(name.type(), SplitVariableName::AV);
    EXPECT_TRUE(name.isAV());
    EXPECT_FALSE(name.isMPExprValue());
}

// Its parts.

struct Parts {
    const char* title;
    const char* fullName;
    const char* root;    // as the finder reports it
    const char* prefix1;
    const char* prefix2;
    const char* foundRoot;
    const char* suffix;    // empty for none
};

class PartsOfAName : public testing::TestWithParam<Parts> {
protected:
    ScriptedHost m_host;
};

TEST_P(PartsOfAName, AreThese)
{
    m_host.variableName(GetParam().fullName).hasRoot(GetParam().root);

    const SplitVariableName name(GetParam().fullName, m_host.rootNameFinder());

    EXPECT_EQ(name.type(), SplitVariableName::Variable);
    EXPECT_EQ(name.fullName(), GetParam().fullName);
    EXPECT_EQ(name.prefix1(), GetParam().prefix1);
    EXPECT_EQ(name.prefix2(), GetParam().prefix2);
    EXPECT_THAT(name.root(), IsPlain(GetParam().foundRoot));
    EXPECT_THAT(name.suffix(), IsPlain(GetParam().suffix));
    EXPECT_EQ(name.suffix().empty(), std::string(GetParam().suffix).empty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(SplitVariableName, PartsOfAName, testing::Values(
    //    title                                      name           root  prefixes    root  suffix
    Parts {"RootAlone",                              "R",           "R",  "", "",     "R",  ""},
    // One component is the root, whatever the finder calls it.
    Parts {"RootAloneOfAnotherName",                 "Long",        "R",  "", "",     "Long", ""},
    Parts {"PrefixAndRoot",                          "P.R",         "R",  "P", "",    "R",  ""},
    Parts {"RootAndSuffix",                          "R.S",         "R",  "", "",     "R",  "S"},
    Parts {"TwoPrefixesAndRoot",                     "P1.P2.R",     "R",  "P1", "P2", "R",  ""},
    Parts {"PrefixRootAndSuffix",                    "P1.R.S",      "R",  "P1", "",   "R",  "S"},
    Parts {"TwoPrefixesRootAndSuffix",               "P1.P2.R.S",   "R",  "P1", "P2", "R",  "S"},
    Parts {"ThirdOfFourIsDroppedWhenRootIsLast",     "P1.P2.X.R",   "R",  "P1", "P2", "R",  ""},
    Parts {"FiveHaveNoPrefixesWithRootLast",         "A.B.C.D.R",   "R",  "", "",     "R",  ""},
    Parts {"FiveHaveNoPrefixesWithSuffix",           "A.B.C.R.S",   "R",  "", "",     "R",  "S"},
    Parts {"SixHaveNoPrefixesEither",                "A.B.C.D.R.S", "R",  "", "",     "R",  "S"},
    // The last but one comes first.
    Parts {"RootTwiceIsRootAndSuffix",               "R.R",         "R",  "", "",     "R",  "R"},
    Parts {"RootTwiceBehindPrefix",                  "P.R.R",       "R",  "P", "",    "R",  "R"},
    Parts {"RootThrice",                             "R.R.R",       "R",  "R", "",    "R",  "R"},
    Parts {"RootAsPrefixOfItself",                   "R.P.R",       "R",  "R", "P",   "R",  ""},
    Parts {"BlanksBelongToNames",                    "Oil Drops.Total Pressure.Time Average", "Total Pressure",
                                                     "Oil Drops", "", "Total Pressure", "Time Average"}),
    [](const auto& p_info) { return p_info.param.title; });
// clang-format on

TEST_F(SplitName, KeepsSelectorsAndFramesOfRootAndSuffix)
{
    m_host.variableName("Water.Velocity{x:Rotor}.Gradient{y:Stator}").hasRoot("Velocity");

    const SplitVariableName name = split("Water.Velocity{x:Rotor}.Gradient{y:Stator}");

    EXPECT_EQ(name.root().name(), "Velocity");
    EXPECT_EQ(name.root().selector(), "x");
    EXPECT_EQ(name.root().frame(), "Rotor");
    EXPECT_EQ(name.suffix().name(), "Gradient");
    EXPECT_EQ(name.suffix().selector(), "y");
    EXPECT_EQ(name.suffix().frame(), "Stator");
}

TEST_F(SplitName, DropsSelectorsAndFramesOfPrefixes)
{
    m_host.variableName("Water{x:A}.Salt{y:B}.Velocity").hasRoot("Velocity");

    const SplitVariableName name = split("Water{x:A}.Salt{y:B}.Velocity");

    EXPECT_EQ(name.prefix1(), "Water");
    EXPECT_EQ(name.prefix2(), "Salt");
}

// Copies.

TEST_F(SplitName, IsCopiedWithAllItsParts)
{
    m_host.variableName("P1.P2.Dye.Gradient").hasRoot("Dye").isAV();
    const SplitVariableName original = split("P1.P2.Dye.Gradient");

    const SplitVariableName copy(original);
    SplitVariableName assigned = split("Pressure");
    assigned = original;

    for (const SplitVariableName* name : {&copy, static_cast<const SplitVariableName*>(&assigned)})
    {
        EXPECT_EQ(name->fullName(), "P1.P2.Dye.Gradient");
        EXPECT_EQ(name->type(), SplitVariableName::AV);
        EXPECT_EQ(name->prefix1(), "P1");
        EXPECT_EQ(name->prefix2(), "P2");
        EXPECT_THAT(name->root(), IsPlain("Dye"));
        EXPECT_THAT(name->suffix(), IsPlain("Gradient"));
    }
}

// The finder.

TEST_F(SplitName, ReachesTheFinderByNumber)
{
    if (!slots::k_known)
        GTEST_SKIP() << "The numbers are those of 64-bit x86.";
    using RootNameInfo = VariableRootNameFinder::RootNameInfo;
    const auto findRoot =
        slots::operationIn<RootNameInfo (VariableRootNameFinder::*)(const std::string&) const>(0);

    EXPECT_EQ(slots::slotOf(&VariableRootNameFinder::findRoot), 0);
    EXPECT_EQ((m_host.rootNameFinder()->*findRoot)("Water.Pressure").rootName, "Pressure");
}

TEST_F(SplitName, FinderIsACopyableInterfaceThatIsNotDestroyedThroughIt)
{
    EXPECT_TRUE(std::is_abstract_v<VariableRootNameFinder>);
    EXPECT_TRUE(std::is_copy_assignable_v<VariableRootNameFinder>);
    EXPECT_FALSE(std::is_destructible_v<VariableRootNameFinder>);
    EXPECT_FALSE(std::has_virtual_destructor_v<VariableRootNameFinder>);
}

}    // namespace
}    // namespace qen
