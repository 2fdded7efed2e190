/// @file
/// The switch is read once per process, so each of these tests needs a process of its own.

#include "StoreTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* k_switch = "QEN_IGNORE_INVALID_VAR_DEFINITIONS";

class IgnoreInvalidDefinitions : public StoreTest {};

TEST_F(IgnoreInvalidDefinitions, SilencesTheWarningAndStillIgnoresTheVariable)
{
    setenv(k_switch, "1", 1);

    m_store.addVariableDefinition("TEMP", {{"Tensor Type", "scalar"}, {"Long Name", "Temperature"}});

    EXPECT_THAT(HostReports::reported(), IsEmpty());
    EXPECT_FALSE(m_store.hasVariable("TEMP"));
    EXPECT_FALSE(m_store.hasVariable("Temperature"));
    EXPECT_THAT(m_store.getAllVariableShortNames(), IsEmpty());
    EXPECT_THAT(valuesReadInto(m_store), ElementsAre("TEMP", "Temperature", "scalar"));
}

TEST_F(IgnoreInvalidDefinitions, SilencesNoOtherWarning)
{
    setenv(k_switch, "True", 1);

    m_store.addVariableDefinition("BAD", {});
    m_store.addVariableDefinition("TEMP", scalar({{"General Availability", "QEL"}}));

    EXPECT_THAT(HostReports::reported(), SizeIs(1));
    EXPECT_TRUE(m_store.hasVariable("TEMP"));
}

TEST_F(IgnoreInvalidDefinitions, IsReadWhenTheFirstInvalidDefinitionComes)
{
    // Given valid definitions, and one that is refused, before the switch is set
    m_store.addVariableDefinition("TEMP", scalar());
    m_store.addVariableDefinition("VEL", velocity());
    m_store.addVariableDefinition("PRES", scalar({{"General Availability", "QEL"}}));
    EXPECT_THROW(m_store.addVariableDefinition("TEMP", scalar()), data::duplicate);
    HostReports::reset();

    setenv(k_switch, "on", 1);
    m_store.addVariableDefinition("BAD", {});

    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

TEST_F(IgnoreInvalidDefinitions, StaysAsFirstReadForTheProcess)
{
    setenv(k_switch, "yes", 1);
    m_store.addVariableDefinition("BAD", {});

    unsetenv(k_switch);
    PreVariableDefStore another;
    another.addVariableDefinition("BAD", {});

    EXPECT_THAT(HostReports::reported(), IsEmpty());
}

TEST_F(IgnoreInvalidDefinitions, IsOffForATextThatIsNotTrue)
{
    setenv(k_switch, "off", 1);

    m_store.addVariableDefinition("BAD", {});

    EXPECT_THAT(HostReports::reported(),
                ElementsAre(IsWarning("Error in definition of variable 'BAD'.\n"
                                      "This variable has an unknown tensor type '' and will be ignored.")));
}

TEST_F(IgnoreInvalidDefinitions, IsOffForAnEmptyText)
{
    setenv(k_switch, "", 1);

    m_store.addVariableDefinition("BAD", {});

    EXPECT_THAT(HostReports::reported(), SizeIs(1));
}

TEST_F(IgnoreInvalidDefinitions, IsOffWhereItIsNotSet)
{
    m_store.addVariableDefinition("BAD", {});

    EXPECT_THAT(HostReports::reported(), SizeIs(1));
}

}    // namespace
