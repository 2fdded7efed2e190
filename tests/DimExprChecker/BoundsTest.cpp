#include "DataError.h"
#include "DimExprChecker.h"
#include "UnitsError.h"

#include "DimExprChecker/DimExprErrors.h"
#include "support/CheckerPeer.h"
#include "support/ConverterRequests.h"
#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace qen {
namespace {

using support::ErrorSaying;
using support::IsAbout;
using support::records;
using support::ScriptedHost;
using support::thrownBy;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Peer = DimExprCheckerPeer;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";
constexpr float k_infinity = std::numeric_limits<float>::infinity();
constexpr float k_highest = std::numeric_limits<float>::max();
constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();

/// A duct with a width that has no quantity, so that only its bounds are checked.
class Bounds : public testing::Test {
protected:
    bool check(float p_value, const std::string& p_units = "")
    {
        return m_checker.checkParamNumeric(k_duct, "Width", p_value, p_units, true);
    }

    ScriptedHost m_host;
    support::ScriptedParameter& width() { return m_host.parameter(k_duct, "Width"); }

    DimExprChecker m_checker = m_host.makeChecker();
};

// What is asked, and when.

TEST_F(Bounds, ThatAreNotThereAllowEverything)
{
    for (const float value : {0.0F, -k_highest, k_highest, -k_infinity, k_infinity, k_nan})
        EXPECT_TRUE(check(value)) << value;

    m_host.forgetCalls();
    check(1.0F, "nonsense");
    EXPECT_THAT(m_host.callsTo({"rules.", "units.", "model."}),
                ElementsAre("rules.lowerBound(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.upperBound(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(Bounds, AreBothConvertedIntoTheUnitsOfTheValueLowerFirst)
{
    width().hasLowerBound("1 [m]").hasUpperBound("5 [cm]");

    check(2000.0F, "mm");

    EXPECT_THAT(m_host.callsTo({"rules.", "units.", "model."}),
                ElementsAre("rules.lowerBound(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "rules.upperBound(/FLOW:F/DOMAIN:Duct, Width, model)",
                            "units.convertUnits(m, mm, 1, true)", "units.convertUnits(cm, mm, 5, true)",
                            "model.paramValue(/FLOW:F/DOMAIN:Duct, Width)"));
}

TEST_F(Bounds, AskTheModelNothingForAValueInside)
{
    width().hasLowerBound("1 [m]").hasUpperBound("5 [m]");

    EXPECT_TRUE(check(2.0F, "m"));

    EXPECT_THAT(m_host.callsTo({"model."}), IsEmpty());
}

TEST_F(Bounds, AreComparedInTheUnitsOfTheValue)
{
    width().hasLowerBound("1 [m]").hasUpperBound("5 [m]");

    EXPECT_TRUE(check(1000.0F, "mm"));
    EXPECT_FALSE(check(999.0F, "mm"));
    EXPECT_TRUE(check(500.0F, "cm"));
    EXPECT_FALSE(check(501.0F, "cm"));
}

TEST_F(Bounds, WithoutUnitsAreDimensionless)
{
    width().hasUpperBound("1");

    EXPECT_TRUE(check(1.0F));
    EXPECT_FALSE(check(2.0F));
    EXPECT_THAT(m_host.callsTo({"units."}),
                ElementsAre("units.convertUnits(, , 1, true)", "units.convertUnits(, , 1, true)"));
}

// What is said.

TEST_F(Bounds, AreShownAsTheRulesGiveThemAndTheValueAsTheModelStoresIt)
{
    width().hasLowerBound(" 1.0  [ m ]").hasUpperBound("5.00 [m]").hasStoredValue("1 [mm], x");

    EXPECT_FALSE(check(1.0F, "mm"));
    EXPECT_FALSE(check(6000.0F, "mm"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(AllOf(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '1 [mm], x', "
                                      "violates its lower bound, ' 1.0  [ m ]'."),
                          IsAbout(k_duct, "Width")),
                    AllOf(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '1 [mm], x', "
                                      "violates its upper bound, '5.00 [m]'."),
                          IsAbout(k_duct, "Width"))));
}

TEST_F(Bounds, ShowAnEmptyValueWhenTheModelStoresNone)
{
    width().hasLowerBound("1");

    EXPECT_FALSE(check(0.0F));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '', "
                                        "violates its lower bound, '1'.")));
}

TEST_F(Bounds, GiveOneRecordForAValueThatViolatesBoth)
{
    width().hasLowerBound("10").hasUpperBound("1").hasStoredValue("5");

    EXPECT_FALSE(check(5.0F));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', '5', "
                                        "violates its lower bound, '10'.")));
}

TEST_F(Bounds, AreCheckedWithoutARecordWhenAskedQuietly)
{
    width().hasLowerBound("1");

    EXPECT_FALSE(m_checker.checkParamNumeric(k_duct, "Width", 0.0F, "", false));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(Bounds, RaiseTheirOwnClass)
{
    width().hasLowerBound("1").hasUpperBound("2");

    EXPECT_TRUE(thrownBy<DimExprErrors::bounds_error>(
        [&] { Peer::checkParamBounds(m_checker, k_duct, "Width", 0.0F, ""); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::bounds_error>(
        [&] { Peer::checkParamBounds(m_checker, k_duct, "Width", 3.0F, ""); }));
}

// The edges.

struct EdgeCase {
    const char* name;
    const char* lower;
    const char* upper;
    float value;
    const char* violated;    // "lower", "upper" or "" for none
};

class BoundsEdge : public Bounds, public testing::WithParamInterface<EdgeCase> {};

TEST_P(BoundsEdge, IsDecided)
{
    const EdgeCase& edge = GetParam();
    width().hasLowerBound(edge.lower).hasUpperBound(edge.upper).hasStoredValue("stored");
    const std::string violated = edge.violated;

    EXPECT_EQ(check(edge.value), violated.empty());

    if (violated.empty())
        EXPECT_THAT(records(m_checker), IsEmpty());
    else
        EXPECT_THAT(records(m_checker),
                    ElementsAre(ErrorSaying(
                        "Value of 'Width' in object '/FLOW:F/DOMAIN:Duct', 'stored', violates "
                        "its " +
                        violated + " bound, '" + (violated == "lower" ? edge.lower : edge.upper) + "'.")));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lower, BoundsEdge, testing::Values(
    EdgeCase {"AtIt",                    "100",      "", 100.0F,                           ""},
    EdgeCase {"RelativelyJustBelow",     "100",      "", 99.99999F,                        ""},
    EdgeCase {"RelativelyTooFarBelow",   "100",      "", 99.99998F,                        "lower"},
    EdgeCase {"FarBelow",                "100",      "", 99.9F,                            "lower"},
    EdgeCase {"NegativeJustBelow",       "-100",     "", -100.00001F,                      ""},
    EdgeCase {"NegativeTooFarBelow",     "-100",     "", -100.00002F,                      "lower"},
    EdgeCase {"NegativeFarBelow",        "-100",     "", -101.0F,                          "lower"},
    EdgeCase {"OneStepBelowOne",         "1",        "", std::nextafter(1.0F, 0.0F),       ""},
    EdgeCase {"TwoStepsBelowOne",        "1",        "", 0.99999988F,                      "lower"},
    EdgeCase {"ExactlyTheSlackBelow",    "10000000", "", 9999999.0F,                       "lower"},
    EdgeCase {"ZeroItself",              "0",        "", 0.0F,                             ""},
    EdgeCase {"JustBelowZero",           "0",        "", -5e-8F,                           ""},
    EdgeCase {"TooFarBelowZero",         "0",        "", -2e-7F,                           "lower"},
    EdgeCase {"TheSlackBelowZero",       "0",        "", -1e-7F,                           "lower"},
    EdgeCase {"AStepInsideTheSlack",     "0",        "", std::nextafter(-1e-7F, 0.0F),     ""},
    EdgeCase {"JustBelowMinusZero",      "-0",       "", -5e-8F,                           ""},
    EdgeCase {"TinyBoundIsNotZero",      "1e-20",    "", 0.0F,                             "lower"},
    EdgeCase {"AboveIt",                 "100",      "", 1e30F,                            ""},
    EdgeCase {"InfiniteAboveNoUpper",    "0",        "", k_infinity,                       "upper"},
    EdgeCase {"HighestAboveNoUpper",     "0",        "", k_highest,                        ""},
    EdgeCase {"NotANumber",              "0",        "", k_nan,                            "lower"}),
    [](const auto& p_info) { return p_info.param.name; });

INSTANTIATE_TEST_SUITE_P(Upper, BoundsEdge, testing::Values(
    EdgeCase {"AtIt",                    "", "100",      100.0F,                           ""},
    EdgeCase {"RelativelyJustAbove",     "", "100",      100.00001F,                       ""},
    EdgeCase {"RelativelyTooFarAbove",   "", "100",      100.00002F,                       "upper"},
    EdgeCase {"FarAbove",                "", "100",      100.1F,                           "upper"},
    EdgeCase {"NegativeJustAbove",       "", "-100",     -99.99999F,                       ""},
    EdgeCase {"NegativeTooFarAbove",     "", "-100",     -99.99998F,                       "upper"},
    EdgeCase {"NegativeFarAbove",        "", "-100",     -99.0F,                           "upper"},
    EdgeCase {"OneStepAboveOne",         "", "1",        std::nextafter(1.0F, 2.0F),       "upper"},
    EdgeCase {"ExactlyTheSlackAbove",    "", "10000000", 10000001.0F,                      "upper"},
    EdgeCase {"ZeroItself",              "", "0",        0.0F,                             ""},
    EdgeCase {"JustAboveZero",           "", "0",        5e-8F,                            ""},
    EdgeCase {"TooFarAboveZero",         "", "0",        2e-7F,                            "upper"},
    EdgeCase {"TheSlackAboveZero",       "", "0",        1e-7F,                            "upper"},
    EdgeCase {"AStepInsideTheSlack",     "", "0",        std::nextafter(1e-7F, 0.0F),      ""},
    EdgeCase {"TinyBoundIsNotZero",      "", "-1e-20",   0.0F,                             "upper"},
    EdgeCase {"BelowIt",                 "", "100",      -1e30F,                           ""},
    EdgeCase {"InfiniteBelowNoLower",    "", "0",        -k_infinity,                      "lower"},
    EdgeCase {"LowestBelowNoLower",      "", "0",        -k_highest,                       ""},
    EdgeCase {"NotANumber",              "", "0",        k_nan,                            "lower"}),
    [](const auto& p_info) { return p_info.param.name; });
// clang-format on

// Bounds that are no numbers.

constexpr const char* k_invalidBound =
    "The lower or upper bound value for parameter 'Width' has been specified with invalid units.";

TEST_F(Bounds, ThatAreNoNumbersAreTheHostsDataError)
{
    for (const char* bound : {"wide", "1 m", "2 [m] * t", "[m]", " "})
    {
        width().hasLowerBound(bound);

        const auto thrown = thrownBy<data::error>([&] { check(1.0F, "m"); });

        ASSERT_TRUE(thrown) << bound;
        EXPECT_EQ(thrown->getClass(), "DimExprChecker");
        EXPECT_EQ(thrown->getMethod(), "extractBoundValue");
        EXPECT_EQ(static_cast<int>(thrown->getType()), 4);
        EXPECT_EQ(thrown->getMessage(), k_invalidBound);
    }
    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"units."}), IsEmpty());
}

TEST_F(Bounds, ThatAreNoNumbersPassThroughAQuietCheckToo)
{
    width().hasUpperBound("wide");

    EXPECT_TRUE(
        thrownBy<data::error>([&] { m_checker.checkParamNumeric(k_duct, "Width", 1.0F, "m", false); }));
}

TEST_F(Bounds, AMalformedUpperBoundHidesAViolatedLowerOne)
{
    width().hasLowerBound("1").hasUpperBound("wide");

    EXPECT_TRUE(thrownBy<data::error>([&] { check(0.0F); }));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(Bounds, AMalformedLowerBoundIsMetFirst)
{
    width().hasLowerBound("narrow").hasUpperBound("1");

    EXPECT_TRUE(thrownBy<data::error>([&] { check(0.0F); }));

    EXPECT_THAT(m_host.callsTo({"units."}), IsEmpty());
}

// Bounds whose units differ by an angle.

TEST_F(Bounds, ThatLackTheAngleOfTheValueAreConvertedWithoutIt)
{
    width().hasUpperBound("2 [m s^-1]");

    EXPECT_TRUE(check(2.0F, "m s^-1 rad"));

    EXPECT_THAT(m_host.callsTo({"units."}),
                ElementsAre("units.convertUnits(m s^-1, m s^-1 rad, 2, true)",
                            "units.dimsFromUnits(m s^-1 rad)", "units.dimsFromUnits(m s^-1)",
                            "units.convertUnits(m s^-1, m s^-1 rad rad^          -1, 2, true)"));
    EXPECT_FALSE(check(2.1F, "m s^-1 rad"));
}

TEST_F(Bounds, WithAnAngleThatTheValueLacksAreConvertedWithIt)
{
    width().hasUpperBound("180 [degree s^-1]");

    EXPECT_TRUE(check(3.14F, "s^-1"));
    EXPECT_THAT(m_host.callsTo({"units.convert"}),
                ElementsAre("units.convertUnits(degree s^-1, s^-1, 180, true)",
                            "units.convertUnits(degree s^-1, s^-1 rad^           1, 180, true)"));

    EXPECT_FALSE(check(3.15F, "s^-1"));
}

TEST_F(Bounds, MayDifferByAnyPowerOfTheAngle)
{
    width().hasUpperBound("2 [rad^0.5]");
    EXPECT_TRUE(check(2.0F, "rad^3"));

    EXPECT_THAT(m_host.callsTo({"units.convert"}),
                ElementsAre("units.convertUnits(rad^0.5, rad^3, 2, true)",
                            "units.convertUnits(rad^0.5, rad^3 rad^        -2.5, 2, true)"));
}

TEST_F(Bounds, ThatDifferInMoreThanTheAngleAreTheHostsDataError)
{
    width().hasUpperBound("2 [m]");

    const auto thrown = thrownBy<data::error>([&] { check(1.0F, "s rad"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), k_invalidBound);
    EXPECT_THAT(m_host.callsTo({"units.convert"}), ElementsAre("units.convertUnits(m, s rad, 2, true)"));
}

TEST_F(Bounds, ThatCannotBeConvertedEvenWithTheAngleAreTheHostsDataError)
{
    width().hasUpperBound("2 [m]");
    m_host.refusesConversion("m", "m rad");
    m_host.refusesConversion("m", "m rad rad^          -1");

    const auto thrown = thrownBy<data::error>([&] { check(1.0F, "m rad"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMethod(), "extractBoundValue");
    EXPECT_EQ(thrown->getMessage(), k_invalidBound);
}

TEST_F(Bounds, OfEqualUnitsAreTriedWithAZeroPowerOfTheAngle)
{
    width().hasUpperBound("2 [m]");
    m_host.refusesConversion("m", "mm");

    EXPECT_TRUE(check(1999.0F, "mm"));

    EXPECT_THAT(m_host.callsTo({"units.convert"}),
                ElementsAre("units.convertUnits(m, mm, 2, true)",
                            "units.convertUnits(m, mm rad^           0, 2, true)"));
}

TEST_F(Bounds, WithUnitsThatAreNotUnderstoodPassAsTheHostsUnitsError)
{
    width().hasUpperBound("2 [furlong]");

    const auto thrown = thrownBy<units::error>([&] { check(1.0F, "m"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "No such units: 'furlong'.");
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(Bounds, OfAValueWithUnitsThatAreNotUnderstoodPassAsTheHostsUnitsError)
{
    width().hasUpperBound("2 [stone]");

    const auto thrown = thrownBy<units::error>([&] { check(1.0F, "furlong"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "No such units: 'furlong'.");
    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"units."}),
                ElementsAre("units.convertUnits(stone, furlong, 2, true)", "units.dimsFromUnits(furlong)"));
}

TEST_F(Bounds, AskForTheConverterOnlyWhenTheyAreNumbers)
{
    const support::ConverterRequests noted;
    EXPECT_TRUE(thrownBy<data::error>([&] { Peer::extractBoundValue(m_checker, "Width", "wide", "m"); }));
    EXPECT_THAT(m_host.callsTo({"converter."}), IsEmpty());

    Peer::extractBoundValue(m_checker, "Width", "5 [m]", "m");
    EXPECT_THAT(m_host.callsTo({"converter.", "units."}),
                ElementsAre("converter.instance()", "units.convertUnits(m, m, 5, true)"));
}

TEST_F(Bounds, NearlyOfTheDimensionOfTheValueAreHeldAgainstTheTolerance)
{
    // Given a bound whose length exponent is off by a little, or by too much
    width().hasUpperBound("2 [m^1.0009]");
    EXPECT_TRUE(thrownBy<data::error>([&] { check(1.0F, "m"); }));
    EXPECT_THAT(m_host.callsTo({"units.convert"}),
                ElementsAre("units.convertUnits(m^1.0009, m, 2, true)",
                            "units.convertUnits(m^1.0009, m rad^           0, 2, true)"));

    m_host.forgetCalls();
    width().hasUpperBound("2 [m^1.0012]");
    EXPECT_TRUE(thrownBy<data::error>([&] { check(1.0F, "m"); }));
    EXPECT_THAT(m_host.callsTo({"units.convert"}), ElementsAre("units.convertUnits(m^1.0012, m, 2, true)"));
}

// The cache of bound texts.

TEST_F(Bounds, AreSplitIntoNumberAndUnits)
{
    float value = 0.0F;
    std::string units;

    EXPECT_TRUE(Peer::splitBoundString(m_checker, "2.5 [m s^-1]", value, units));

    EXPECT_EQ(value, 2.5F);
    EXPECT_EQ(units, "m s^-1");
}

TEST_F(Bounds, AreKeptUnderTheirTextOnceTheyAreSplit)
{
    width().hasLowerBound("1 [m]").hasUpperBound("5 [m]");
    check(2.0F, "m");
    check(3000.0F, "mm");

    EXPECT_THAT(Peer::boundCache(m_checker),
                ElementsAre(Pair("1 [m]", Pair(1.0F, "m")), Pair("5 [m]", Pair(5.0F, "m"))));
}

TEST_F(Bounds, AreReadFromWhatIsKept)
{
    width().hasUpperBound("5 [m]");
    Peer::boundCache(m_checker)["5 [m]"] = {7.0F, "mm"};

    EXPECT_TRUE(check(6.0F, "mm"));
    EXPECT_FALSE(check(8.0F, "mm"));
}

TEST_F(Bounds, AreKeptByTextWhateverTheParameter)
{
    width().hasUpperBound("5 [m]");
    m_host.parameter(k_duct, "Height").hasUpperBound("5 [m]");

    check(1.0F, "m");
    m_checker.checkParamNumeric(k_duct, "Height", 1.0F, "m", true);

    EXPECT_THAT(Peer::boundCache(m_checker), ElementsAre(Pair("5 [m]", Pair(5.0F, "m"))));
}

TEST_F(Bounds, ThatAreNoNumbersAreNotKept)
{
    float value = 7.0F;
    std::string units;

    EXPECT_FALSE(Peer::splitBoundString(m_checker, "wide", value, units));

    EXPECT_EQ(value, 0.0F) << "what the host reads is handed on, even from a text that is no number";
    EXPECT_THAT(Peer::boundCache(m_checker), IsEmpty());
}

TEST_F(Bounds, ThatCannotBeConvertedAreKeptAllTheSame)
{
    width().hasUpperBound("2 [m]");

    EXPECT_TRUE(thrownBy<data::error>([&] { check(1.0F, "s"); }));

    EXPECT_THAT(Peer::boundCache(m_checker), ElementsAre(Pair("2 [m]", Pair(2.0F, "m"))));
}

TEST_F(Bounds, AreCopiedWithTheirCheckerAndStayWhenRecordsAreCleared)
{
    width().hasUpperBound("5 [m]");
    check(6.0F, "m");
    m_checker.clearErrors();

    DimExprChecker copy(m_checker);
    DimExprChecker assigned = m_host.makeChecker();
    assigned = m_checker;

    EXPECT_THAT(Peer::boundCache(m_checker), ElementsAre(Pair("5 [m]", Pair(5.0F, "m"))));
    EXPECT_THAT(Peer::boundCache(copy), ElementsAre(Pair("5 [m]", Pair(5.0F, "m"))));
    EXPECT_THAT(Peer::boundCache(assigned), ElementsAre(Pair("5 [m]", Pair(5.0F, "m"))));
}

TEST_F(Bounds, AreExtractedInTheUnitsAskedFor)
{
    EXPECT_EQ(Peer::extractBoundValue(m_checker, "Width", "5 [m]", "mm"), 5000.0F);
}

}    // namespace
}    // namespace qen
