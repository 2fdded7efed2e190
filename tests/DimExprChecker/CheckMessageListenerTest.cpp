#include "CheckMessages.h"
#include "DataError.h"

#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace qen {
namespace {

using support::ErrorSaying;
using support::records;
using support::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

struct Told {
    std::string identifier;
    std::vector<std::string> arguments;
    std::string text;
};

class Listener final : public CheckMessageListener {
public:
    void onMessage(const CheckMessage& p_message, const std::vector<std::string>& p_arguments,
                   const std::string& p_text) override
    {
        told.push_back({p_message.identifier, p_arguments, p_text});
    }

    std::vector<Told> told;
};

/// A duct whose inlet pressure is a pressure from 0 to 10 bar.
class CheckMessageListening : public testing::Test {
protected:
    CheckMessageListening()
    {
        m_host.parameter(k_duct, "Inlet Pressure")
            .hasQuantity("Pressure", "kg m^-1 s^-2")
            .hasLowerBound("0 [Pa]")
            .hasUpperBound("10 [bar]");
    }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
    Listener m_listener;
};

TEST_F(CheckMessageListening, TellsIdentifierArgumentsAndTheTextOfTheRecord)
{
    const ScopedCheckMessageListener listening(&m_listener);

    m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]");

    ASSERT_THAT(m_listener.told, SizeIs(1));
    EXPECT_EQ(m_listener.told[0].identifier, "wrong-units");
    EXPECT_THAT(m_listener.told[0].arguments,
                ElementsAre("m", "Inlet Pressure", "/FLOW:F/DOMAIN:Duct", "kg m^-1 s^-2"));
    EXPECT_EQ(m_listener.told[0].text, "Invalid units ('m') set for parameter 'Inlet Pressure' in object "
                                       "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-1 s^-2'.");
    EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(m_listener.told[0].text)));
}

TEST_F(CheckMessageListening, TellsArgumentsAsTheUserSeesThem)
{
    const ScopedCheckMessageListener listening(&m_listener);

    m_checker.checkParam(k_duct, "Inlet Pressure", "1");

    ASSERT_THAT(m_listener.told, SizeIs(1));
    EXPECT_THAT(m_listener.told[0].arguments,
                ElementsAre("dimensionless", "Inlet Pressure", "/FLOW:F/DOMAIN:Duct", "kg m^-1 s^-2"));
}

TEST_F(CheckMessageListening, TellsBeforeTheRecordIsMade)
{
    // Given a listener that looks at the records when it is told
    struct Reader final : CheckMessageListener {
        explicit Reader(const DimExprChecker& p_checker) : checker(p_checker) {}
        void onMessage(const CheckMessage&, const std::vector<std::string>&, const std::string&) override
        {
            recordsThen = records(checker).size();
        }
        const DimExprChecker& checker;
        std::size_t recordsThen = 99;
    } reader(m_checker);
    const ScopedCheckMessageListener listening(&reader);

    m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]");

    EXPECT_EQ(reader.recordsThen, 0U);
    EXPECT_THAT(records(m_checker), SizeIs(1));
}

TEST_F(CheckMessageListening, TellsOfQuietChecksToo)
{
    const ScopedCheckMessageListener listening(&m_listener);

    EXPECT_FALSE(m_checker.checkParamNumeric(k_duct, "Inlet Pressure", 1.0F, "m", false));

    ASSERT_THAT(m_listener.told, SizeIs(1));
    EXPECT_EQ(m_listener.told[0].identifier, "wrong-units");
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(CheckMessageListening, TellsOfABoundThatIsNoNumberAlthoughItBecomesNoRecord)
{
    m_host.parameter(k_duct, "Inlet Pressure").hasLowerBound("low");
    const ScopedCheckMessageListener listening(&m_listener);

    EXPECT_THROW(m_checker.checkParam(k_duct, "Inlet Pressure", "1 [Pa]"), data::error);

    ASSERT_THAT(m_listener.told, SizeIs(1));
    EXPECT_EQ(m_listener.told[0].identifier, "invalid-bound");
    EXPECT_THAT(m_listener.told[0].arguments, ElementsAre("Inlet Pressure"));
}

TEST_F(CheckMessageListening, TellsNothingWhenNothingIsWrong)
{
    const ScopedCheckMessageListener listening(&m_listener);

    EXPECT_TRUE(m_checker.checkParam(k_duct, "Inlet Pressure", "1 [bar]"));

    EXPECT_THAT(m_listener.told, IsEmpty());
}

TEST_F(CheckMessageListening, EndsWithItsScope)
{
    {
        const ScopedCheckMessageListener listening(&m_listener);
    }

    m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]");

    EXPECT_THAT(m_listener.told, IsEmpty());
    EXPECT_THAT(records(m_checker), SizeIs(1));
}

TEST_F(CheckMessageListening, OnlyTheInnermostIsTold)
{
    Listener inner;
    const ScopedCheckMessageListener listening(&m_listener);
    {
        const ScopedCheckMessageListener listeningInside(&inner);
        m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]");
    }
    m_checker.checkParam(k_duct, "Inlet Pressure", "2 [s]");

    ASSERT_THAT(inner.told, SizeIs(1));
    EXPECT_EQ(inner.told[0].arguments[0], "m");
    ASSERT_THAT(m_listener.told, SizeIs(1));
    EXPECT_EQ(m_listener.told[0].arguments[0], "s");
}

TEST_F(CheckMessageListening, NullSilencesTheOuterListener)
{
    const ScopedCheckMessageListener listening(&m_listener);
    {
        const ScopedCheckMessageListener silence(nullptr);
        m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]");
    }

    EXPECT_THAT(m_listener.told, IsEmpty());
    EXPECT_THAT(records(m_checker), SizeIs(1));
}

TEST_F(CheckMessageListening, IsOfOneThread)
{
    const ScopedCheckMessageListener listening(&m_listener);

    std::thread([&] { m_checker.checkParam(k_duct, "Inlet Pressure", "1 [m]"); }).join();

    EXPECT_THAT(m_listener.told, IsEmpty());
    EXPECT_THAT(records(m_checker), SizeIs(1));
}

}    // namespace
}    // namespace qen
