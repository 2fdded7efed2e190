#include "CheckMessages.h"
#include "SplitVariableName.h"

#include "Error.h"
#include "ExpressionsError.h"

#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ScriptedHost;
using support::thrownBy;
using testing::ElementsAre;
using testing::IsEmpty;

class BadName : public testing::Test {
protected:
    std::optional<expressions::name> thrownFor(const std::string& p_fullName) const
    {
        return thrownBy<expressions::name>(
            [&] { const SplitVariableName name(p_fullName, m_host.rootNameFinder()); });
    }

    ScriptedHost m_host;
};

TEST_F(BadName, WithoutTheSyntaxOfAVariableNameIsRefused)
{
    m_host.variableName("Water..Pressure").hasRoot("Pressure");
    m_host.isNotAVariableName("Water..Pressure");

    const auto thrown = thrownFor("Water..Pressure");

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable 'Water..Pressure' does not match allowed syntax.");
}

TEST_F(BadName, OfOneComponentIsRefusedWithoutTheSyntaxToo)
{
    m_host.isNotAVariableName("Total  Pressure");

    const auto thrown = thrownFor("Total  Pressure");

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable 'Total  Pressure' does not match allowed syntax.");
}

struct Misplaced {
    const char* title;
    const char* fullName;
    const char* root;
    const char* message;
};

class MisplacedRoot : public BadName, public testing::WithParamInterface<Misplaced> {};

TEST_P(MisplacedRoot, IsRefused)
{
    m_host.variableName(GetParam().fullName).hasRoot(GetParam().root);

    const auto thrown = thrownFor(GetParam().fullName);

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    BadName, MisplacedRoot,
    testing::Values(
        Misplaced {
            "NotAmongTheComponents", "A.B.C", "X",
            "The 'root' name 'X' does not appear in a valid position in variable name 'A.B.C'.\nIt must "
            "be either the penultimate or the last '.'-separated component of the full name."},
        Misplaced {
            "FirstOfThree", "Pressure.A.B", "Pressure",
            "The 'root' name 'Pressure' does not appear in a valid position in variable name "
            "'Pressure.A.B'.\nIt must be either the penultimate or the last '.'-separated component of "
            "the full name."},
        Misplaced {
            "SecondOfFour", "A.Pressure.B.C", "Pressure",
            "The 'root' name 'Pressure' does not appear in a valid position in variable name "
            "'A.Pressure.B.C'.\nIt must be either the penultimate or the last '.'-separated component of "
            "the full name."},
        Misplaced {
            "ThirdOfFive", "A.B.Pressure.C.D", "Pressure",
            "The 'root' name 'Pressure' does not appear in a valid position in variable name "
            "'A.B.Pressure.C.D'.\nIt must be either the penultimate or the last '.'-separated component of "
            "the full name."},
        Misplaced {
            "NeitherOfTwo", "A.B", "X",
            "The 'root' name 'X' does not appear in a valid position in variable name 'A.B'.\nIt must be "
            "either the penultimate or the last '.'-separated component of the full name."},
        Misplaced {
            "OfAnotherCase", "Water.pressure", "Pressure",
            "The 'root' name 'Pressure' does not appear in a valid position in variable name "
            "'Water.pressure'.\nIt must be either the penultimate or the last '.'-separated component of "
            "the full name."}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(BadName, IsToldAsANameErrorOfTheSplitter)
{
    m_host.isNotAVariableName("A.B");

    const auto syntax = thrownFor("A.B");
    m_host.variableName("A.B.C").hasRoot("X");
    const auto position = thrownFor("A.B.C");

    for (const auto& thrown : {syntax, position})
    {
        ASSERT_TRUE(thrown);
        EXPECT_EQ(thrown->getClass(), "SplitVariableName");
        EXPECT_EQ(thrown->getMethod(), "SplitVariableName");
        EXPECT_EQ(static_cast<int>(thrown->getType()), 4);
    }
}

TEST_F(BadName, IsCaughtAsAnErrorOfExpressionsAndAsTheHostsError)
{
    m_host.isNotAVariableName("A.B");

    EXPECT_THROW(SplitVariableName("A.B", m_host.rootNameFinder()), expressions::error);
    EXPECT_THROW(SplitVariableName("A.B", m_host.rootNameFinder()), Error);
}

class Listener final : public CheckMessageListener {
public:
    void onMessage(const CheckMessage& p_message, const std::vector<std::string>& p_arguments,
                   const std::string& p_text) override
    {
        identifiers.emplace_back(p_message.identifier);
        arguments.push_back(p_arguments);
        texts.push_back(p_text);
    }

    std::vector<std::string> identifiers;
    std::vector<std::vector<std::string>> arguments;
    std::vector<std::string> texts;
};

TEST_F(BadName, IsToldToTheListenerOfMessages)
{
    m_host.isNotAVariableName("A.B");
    m_host.variableName("A.B.C").hasRoot("X");
    Listener listener;
    const ScopedCheckMessageListener listening(&listener);

    const auto syntax = thrownFor("A.B");
    const auto position = thrownFor("A.B.C");

    ASSERT_TRUE(syntax && position);
    EXPECT_THAT(listener.identifiers, ElementsAre("variable-syntax", "root-position"));
    EXPECT_THAT(listener.arguments, ElementsAre(ElementsAre("A.B"), ElementsAre("X", "A.B.C")));
    EXPECT_THAT(listener.texts, ElementsAre(syntax->getMessage(), position->getMessage()));
}

// Whatever a user types.

std::string joined(const std::string& p_component, std::size_t p_count)
{
    std::string name = p_component;
    for (std::size_t i = 1; i < p_count; ++i)
        name += '.' + p_component;
    return name;
}

TEST_F(BadName, MayHaveTenThousandComponents)
{
    const std::string fullName = joined("A", 9998) + ".Pressure.Gradient";
    m_host.variableName(fullName).hasRoot("Pressure");

    const SplitVariableName name(fullName, m_host.rootNameFinder());

    EXPECT_EQ(name.type(), SplitVariableName::Variable);
    EXPECT_EQ(name.prefix1(), "");
    EXPECT_EQ(name.prefix2(), "");
    EXPECT_EQ(name.root().name(), "Pressure");
    EXPECT_EQ(name.suffix().name(), "Gradient");
}

TEST_F(BadName, OfTenThousandComponentsIsRefusedAsAnyOther)
{
    const std::string fullName = joined("A", 10000);
    m_host.variableName(fullName).hasRoot("Pressure");

    const auto thrown = thrownFor(fullName);

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(),
              "The 'root' name 'Pressure' does not appear in a valid position in variable name '" + fullName +
                  "'.\nIt must be either the penultimate or the last '.'-separated component "
                  "of the full name.");
}

TEST_F(BadName, WithEmptyComponentsIsSplitAsTheHostSplitsIt)
{
    m_host.variableName("..Pressure.").hasRoot("Pressure");

    const SplitVariableName name("..Pressure.", m_host.rootNameFinder());

    EXPECT_EQ(name.type(), SplitVariableName::Variable);
    EXPECT_EQ(name.prefix1(), "");
    EXPECT_EQ(name.prefix2(), "");
    EXPECT_EQ(name.root().name(), "Pressure");
    EXPECT_TRUE(name.suffix().empty());
}

TEST_F(BadName, KeepsWhatStandsBehindANullCharacter)
{
    const std::string fullName("Water\0x.Pressure", 16);
    m_host.variableName(fullName).hasRoot("Pressure");

    const SplitVariableName name(fullName, m_host.rootNameFinder());

    EXPECT_EQ(name.fullName(), fullName);
    EXPECT_EQ(name.prefix1(), std::string("Water\0x", 7));
    EXPECT_EQ(name.root().name(), "Pressure");
}

TEST_F(BadName, MayHoldAnOperatorBehindANullCharacter)
{
    const SplitVariableName name(std::string("a\0+b", 4), m_host.rootNameFinder());

    EXPECT_EQ(name.type(), SplitVariableName::NotVariable);
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(BadName, KeepsBytesThatAreNoUtf8)
{
    const std::string fullName = "\xC3\x28\xFF.\x80\xFE";
    // 0x28 is an opening bracket: the text is judged by its bytes
    EXPECT_EQ(SplitVariableName(fullName, m_host.rootNameFinder()).type(), SplitVariableName::NotVariable);

    const std::string withoutBracket = "\xC3\xFF.\x80\xFE";
    m_host.variableName(withoutBracket).hasRoot("\x80\xFE");
    const SplitVariableName name(withoutBracket, m_host.rootNameFinder());

    EXPECT_EQ(name.prefix1(), "\xC3\xFF");
    EXPECT_EQ(name.root().name(), "\x80\xFE");
}

TEST_F(BadName, MayHoldPlaceholdersOfTheMessage)
{
    m_host.isNotAVariableName("%1.%2");
    m_host.variableName("%1.%2").hasRoot("%2");

    const auto thrown = thrownFor("%1.%2");

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable '%1.%2' does not match allowed syntax.");
}

}    // namespace
}    // namespace qen
