#include "BoolFromEnvironment.h"
#include "CallbackInfo.h"
#include "DataError.h"
#include "Error.h"
#include "ExpressionsError.h"
#include "QELName.h"
#include "Quantity.h"
#include "UnitDimensions.h"
#include "UnitsError.h"

#include "support/Matchers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <exception>
#include <sstream>
#include <string>
#include <type_traits>

namespace qen {
namespace {

// Exceptions.

template <class Derived, class Base>
constexpr bool k_is = std::is_base_of_v<Base, Derived>;

TEST(HostExceptions, FormThreeFamiliesUnderOneBase)
{
    EXPECT_TRUE((k_is<expressions::error, Error> && k_is<data::error, Error> && k_is<units::error, Error>));
    EXPECT_TRUE((k_is<expressions::name, expressions::error>));
    EXPECT_TRUE((k_is<data::notFound, data::error> && k_is<data::duplicate, data::error>));

    EXPECT_FALSE((k_is<data::error, expressions::error> || k_is<units::error, expressions::error>));
    EXPECT_FALSE((k_is<units::error, data::error> || k_is<data::duplicate, data::notFound>));
    EXPECT_FALSE((k_is<data::notFound, data::duplicate>));
}

TEST(HostExceptions, AreNoStandardExceptions) { EXPECT_FALSE((k_is<Error, std::exception>)); }

TEST(HostExceptions, TellWhereAndWhat)
{
    const data::notFound thrown("Store", "find", "No such name.", ErrorTypeError);

    EXPECT_EQ(thrown.getClass(), "Store");
    EXPECT_EQ(thrown.getMethod(), "find");
    EXPECT_EQ(thrown.getMessage(), "No such name.");
    EXPECT_EQ(static_cast<int>(thrown.getType()), 4);

    std::ostringstream stream;
    thrown.write(stream);
    EXPECT_EQ(stream.str(), "Store::find: No such name.");
    EXPECT_EQ(thrown.errorMessage(), "Store::find: No such name.");
}

TEST(HostExceptions, KeepTheirTypeAndTextWhenCopied)
{
    const units::error thrown("Units", "dims", "No units.", ErrorTypeWarning);
    units::error copy("", "", "", ErrorTypeError);

    copy = thrown;

    EXPECT_EQ(copy.getClass(), "Units");
    EXPECT_EQ(copy.getMessage(), "No units.");
    EXPECT_EQ(static_cast<int>(copy.getType()), 8);
}

TEST(HostExceptions, HoldTypesThatHaveNoName)
{
    EXPECT_EQ(static_cast<int>(Error("", "", "", static_cast<errorType>(77)).getType()), 77);
}

TEST(HostExceptions, ABadNameIsMadeFromItsContextTwice)
{
    const std::string context = "SplitVariableName";
    const expressions::name thrown(context, context, "A bad name.", ErrorTypeError);

    EXPECT_EQ(thrown.getClass(), "SplitVariableName");
    EXPECT_EQ(thrown.getMethod(), "SplitVariableName");
}

// Dimensions and quantities.

TEST(UnitDimensions, AreTenExponentsAllZeroAtFirst)
{
    const UnitDimensions dims;

    EXPECT_EQ(UnitDimensions::k_count, 10U);
    EXPECT_EQ(sizeof dims, 10 * sizeof(float));
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        EXPECT_EQ(dims[i], 0.0F) << i;
}

TEST(UnitDimensions, HaveTheAngleInTheFifthPlace) { EXPECT_EQ(UnitDimensions::k_angle, 4U); }

TEST(UnitDimensions, AreWrittenAndCopiedByValue)
{
    UnitDimensions dims;
    dims[0] = 1.0F;
    dims[9] = -2.5F;

    UnitDimensions copy = dims;
    dims[0] = 3.0F;

    EXPECT_EQ(copy[0], 1.0F);
    EXPECT_EQ(copy[9], -2.5F);
    copy = dims;
    EXPECT_EQ(copy[0], 3.0F);
}

TEST(Quantity, IsANumberWithUnits)
{
    const Quantity quantity(2.5F, "m s^-1");

    EXPECT_EQ(quantity.getValue(), 2.5F);
    EXPECT_EQ(quantity.getUnits(), "m s^-1");
}

TEST(Quantity, ThrowsWhenItHasNoSingleValue)
{
    const Quantity none;

    EXPECT_TRUE(support::thrownBy<expressions::error>([&] { (void)none.getValue(); }));
    EXPECT_EQ(none.getUnits(), "");
}

// Names and calls.

TEST(QELNameComponent, IsThreeTexts)
{
    const QELName::Component component("Velocity", "x", "Rotor Frame");

    EXPECT_EQ(component.name(), "Velocity");
    EXPECT_EQ(component.selector(), "x");
    EXPECT_EQ(component.frame(), "Rotor Frame");
}

TEST(QELNameComponent, IsEmptyWhenAllThreeAre)
{
    EXPECT_TRUE(QELName::Component().empty());
    EXPECT_TRUE(QELName::Component("", "", "").empty());
    EXPECT_FALSE(QELName::Component("a", "", "").empty());
    EXPECT_FALSE(QELName::Component("", "a", "").empty());
    EXPECT_FALSE(QELName::Component("", "", "a").empty());
}

TEST(CallbackInfo, IsNameLocatorAndArgumentInThisOrder)
{
    const CallbackInfo call {"ave", "Inlet", "Pressure"};

    EXPECT_EQ(call.callbackName, "ave");
    EXPECT_EQ(call.locator, "Inlet");
    EXPECT_EQ(call.argument, "Pressure");
}

// Switches.

class Switch : public testing::Test {
protected:
    ~Switch() override { unsetenv(k_variable); }

    static constexpr const char* k_variable = "QEN_TEST_SWITCH";
};

TEST_F(Switch, IsOffWhenItsVariableIsNotSet)
{
    unsetenv(k_variable);

    EXPECT_FALSE(BoolFromEnvironment(k_variable).isSet());
}

TEST_F(Switch, SaysWhatItsVariableSays)
{
    for (const char* on : {"T", "True", "TRUE", "true", "Yes", "YES", "yes", "On", "ON", "on", "1"})
    {
        setenv(k_variable, on, 1);
        EXPECT_TRUE(BoolFromEnvironment(k_variable).isSet()) << on;
    }
    for (const char* off : {"", "0", "F", "false", "no", "off", "t", "Y", "2", "truE", " true", "true "})
    {
        setenv(k_variable, off, 1);
        EXPECT_FALSE(BoolFromEnvironment(k_variable).isSet()) << off;
    }
}

TEST_F(Switch, IsUnknownUntilItIsFirstRead)
{
    unsetenv(k_variable);
    const BoolFromEnvironment made(k_variable);

    setenv(k_variable, "true", 1);

    EXPECT_TRUE(made.isSet());
}

TEST_F(Switch, IsKeptOnceItIsRead)
{
    unsetenv(k_variable);
    const BoolFromEnvironment off(k_variable);
    EXPECT_FALSE(off.isSet());
    setenv(k_variable, "true", 1);
    EXPECT_FALSE(off.isSet());
    EXPECT_FALSE(off.checkEnv());

    const BoolFromEnvironment on(k_variable);
    EXPECT_TRUE(on.checkEnv());
    unsetenv(k_variable);
    EXPECT_TRUE(on.isSet());
    EXPECT_TRUE(on.checkEnv());
}

}    // namespace
}    // namespace qen
