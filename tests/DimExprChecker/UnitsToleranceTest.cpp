/// @file
/// The tolerance is read once per process, so each of these tests decides in a process of its own.

#include "DataError.h"
#include "DimExprChecker.h"
#include "UnitsError.h"

#include "support/ScriptedHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace qen {
namespace {

using support::ScriptedHost;

constexpr const char* k_variable = "QVN5_UNITS_TOL";
constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

/// What the action answers in a fresh process.
bool inItsOwnProcess(const std::function<bool()>& p_action)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(p_action() ? 10 : 20);

    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && (WEXITSTATUS(status) == 10 || WEXITSTATUS(status) == 20))
        << "the process ended badly, with " << status;
    return WIFEXITED(status) && WEXITSTATUS(status) == 10;
}

void setVariable(const char* p_text)
{
    if (p_text)
        setenv(k_variable, p_text, 1);
    else
        unsetenv(k_variable);
}

/// Expected units that the host does not understand after all, once they could not be converted.
void checkUnitsInVain()
{
    ScriptedHost host;
    host.parameter(k_duct, "Odd").hasQuantity("Oddity", "furlong");
    EXPECT_THROW(host.makeChecker().checkParam(k_duct, "Odd", "1 [m]"), units::error);
}

/// Units of a value that the host does not understand, once the bound could not be converted into them.
void checkBoundInVain()
{
    ScriptedHost host;
    host.parameter(k_duct, "Width").hasUpperBound("2 [m]");
    EXPECT_THROW(host.makeChecker().checkParam(k_duct, "Width", "1 [furlong]"), units::error);
}

/// Whether units pass that differ from the expected ones by that much in the exponent of length.
bool unitsPass(double p_difference)
{
    ScriptedHost host;
    support::UnitsMeaning odd;
    odd.dims[1] = static_cast<float>(p_difference);
    host.units("odd", odd);
    host.refusesConversion("odd", "");
    host.parameter(k_duct, "Ratio").hasQuantity("Ratio", "");
    return host.makeChecker().checkParam(k_duct, "Ratio", "1 [odd]");
}

/// Whether a bound is still tried with a power of the angle when its exponent of length differs by that much.
bool boundIsTried(double p_difference)
{
    ScriptedHost host;
    support::UnitsMeaning odd;
    odd.dims[1] = static_cast<float>(p_difference);
    host.units("odd", odd);
    host.refusesConversion("odd", "");
    host.parameter(k_duct, "Ratio").hasUpperBound("1 [odd]");
    try
    {
        host.makeChecker().checkParam(k_duct, "Ratio", "1");
    }
    catch (const data::error&)
    {
        // Such a bound cannot be converted in the end; how often it was tried tells.
    }
    return host.callsTo({"units.convertUnits(odd"}).size() == 2;
}

struct ToleranceCase {
    const char* name;
    const char* text;    // null: unset
    double passes;
    double fails;
};

class UnitsToleranceText : public testing::TestWithParam<ToleranceCase> {};

TEST_P(UnitsToleranceText, DecidesAboutUnits)
{
    const ToleranceCase& tolerance = GetParam();

    EXPECT_TRUE(inItsOwnProcess([&] {
        setVariable(tolerance.text);
        return unitsPass(tolerance.passes);
    }));
    EXPECT_FALSE(inItsOwnProcess([&] {
        setVariable(tolerance.text);
        return unitsPass(tolerance.fails);
    }));
}

TEST_P(UnitsToleranceText, DecidesAboutBounds)
{
    const ToleranceCase& tolerance = GetParam();

    EXPECT_TRUE(inItsOwnProcess([&] {
        setVariable(tolerance.text);
        return boundIsTried(tolerance.passes);
    }));
    EXPECT_FALSE(inItsOwnProcess([&] {
        setVariable(tolerance.text);
        return boundIsTried(tolerance.fails);
    }));
}

INSTANTIATE_TEST_SUITE_P(Texts, UnitsToleranceText,
                         testing::Values(ToleranceCase {"Unset", nullptr, 0.0009, 0.0011},
                                         ToleranceCase {"Empty", "", 0.0009, 0.0011},
                                         ToleranceCase {"LettersOnly", "abc", 0.0009, 0.0011},
                                         ToleranceCase {"BlanksOnly", "  ", 0.0009, 0.0011},
                                         ToleranceCase {"HalfAnExponent", "0.5e", 0.0009, 0.0011},
                                         ToleranceCase {"ANumberTooLarge", "1e999", 0.0009, 0.0011},
                                         ToleranceCase {"Infinity", "inf", 0.0009, 0.0011},
                                         ToleranceCase {"NotANumber", "nan", 0.0009, 0.0011},
                                         ToleranceCase {"ANumber", "0.5", 0.49, 0.51},
                                         ToleranceCase {"ANumberBeforeLetters", "0.5xyz", 0.49, 0.51},
                                         ToleranceCase {"ANumberBeforeABlank", "0.5 7", 0.49, 0.51},
                                         ToleranceCase {"ANumberBehindBlanks", "  0.5", 0.49, 0.51},
                                         ToleranceCase {"ExactlyTheNumber", "0.5", 0.5, 0.50001},
                                         ToleranceCase {"ASmallNumber", "1e-6", 0.0000009, 0.0000011},
                                         ToleranceCase {"Zero", "0", 0.0, 0.0000011}),
                         [](const auto& p_info) { return p_info.param.name; });

TEST(UnitsTolerance, IsReadWhenItIsFirstNeeded)
{
    EXPECT_TRUE(inItsOwnProcess([] {
        // Given units that pass or fail without it
        setVariable("0.1");
        ScriptedHost host;
        host.parameter(k_duct, "Width").hasQuantity("Length", "m").hasUpperBound("2 [m]");
        DimExprChecker checker = host.makeChecker();
        checker.checkParam(k_duct, "Width", "1 [mm]");
        checker.checkParam(k_duct, "Width", "3 [mm]");
        checker.checkParam(k_duct, "Width", "3 [furlong]");

        // When the variable changes before the first doubt
        setVariable("0.5");
        return unitsPass(0.49);
    }));
}

TEST(UnitsTolerance, MayBeNegativeSoThatNothingAgrees)
{
    EXPECT_FALSE(inItsOwnProcess([] {
        setVariable("-1");
        return unitsPass(0.0) || boundIsTried(0.0);
    }));
}

TEST(UnitsTolerance, IsReadBeforeTheDimensionsOfUnitsEvenWhenTheyAreNotUnderstood)
{
    for (const auto& checkInVain : {checkUnitsInVain, checkBoundInVain})
        EXPECT_TRUE(inItsOwnProcess([&] {
            setVariable("0.5");
            checkInVain();
            setVariable("0.1");
            return unitsPass(0.49) && boundIsTried(0.49);
        }));
}

TEST(UnitsTolerance, IsKeptWhenTheVariableChanges)
{
    EXPECT_FALSE(inItsOwnProcess([] {
        setVariable("0.1");
        unitsPass(1.0);
        setVariable("0.5");
        return unitsPass(0.49);
    }));
}

TEST(UnitsTolerance, IsKeptWhenTheVariableGoes)
{
    EXPECT_TRUE(inItsOwnProcess([] {
        setVariable("0.5");
        unitsPass(1.0);
        setVariable(nullptr);
        return unitsPass(0.49);
    }));
}

TEST(UnitsTolerance, StaysTheDefaultWhenTheVariableComesLater)
{
    EXPECT_FALSE(inItsOwnProcess([] {
        setVariable(nullptr);
        unitsPass(1.0);
        setVariable("0.5");
        return unitsPass(0.49) || boundIsTried(0.49);
    }));
}

TEST(UnitsTolerance, IsTheSameForUnitsAndBounds)
{
    EXPECT_TRUE(inItsOwnProcess([] {
        setVariable("0.5");
        boundIsTried(1.0);
        setVariable("0.1");
        return unitsPass(0.49) && boundIsTried(0.49);
    }));
}

TEST(UnitsTolerance, ComparesASinglePrecisionDifferenceInDouble)
{
    // Given a difference that is a thousandth in single precision, and in double a little more
    EXPECT_FALSE(inItsOwnProcess([] {
        setVariable("0.001");
        return unitsPass(static_cast<double>(0.001F));
    }));

    // Given exponents that lie further apart than the tolerance by less than single precision can tell
    EXPECT_TRUE(inItsOwnProcess([] {
        setVariable("0.5");
        ScriptedHost host;
        support::UnitsMeaning given;
        given.dims[1] = 0.5F;
        support::UnitsMeaning expected;
        expected.dims[1] = -1e-9F;
        host.units("given", given);
        host.units("expected", expected);
        host.parameter(k_duct, "Odd").hasQuantity("Oddity", "expected");
        return host.makeChecker().checkParam(k_duct, "Odd", "1 [given]");
    }));
}

}    // namespace
}    // namespace qen
