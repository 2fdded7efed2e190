#include "ShippedUnits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <string>

namespace qen::standalone::test {
namespace {

using ::testing::Eq;
using ::testing::IsEmpty;
using ::testing::Pointee;

/// A value in the units is worked out by hand from the definition of the unit.
struct KnownUnits {
    std::string text;
    std::string baseUnits;
    double factor;
    double offset = 0.0;
};

class ShippedUnit : public ::testing::TestWithParam<KnownUnits> {};

TEST_P(ShippedUnit, HasItsDimensionFactorAndZero)
{
    const std::optional<UnitValue> value = shippedUnits().parse(GetParam().text);

    ASSERT_TRUE(value.has_value()) << GetParam().text;
    EXPECT_EQ(shippedUnits().baseUnits(value->dims), GetParam().baseUnits) << GetParam().text;
    EXPECT_NEAR(value->factor, GetParam().factor, 1e-14 * GetParam().factor) << GetParam().text;
    EXPECT_NEAR(value->offset, GetParam().offset, 1e-14 * GetParam().offset) << GetParam().text;
}

constexpr double k_pi = 3.14159265358979323846;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, ShippedUnit, ::testing::Values(
    KnownUnits {"",                "",                       1.0},
    KnownUnits {"   ",             "",                       1.0},
    KnownUnits {"kg m^-1 s^-2",    "kg m^-1 s^-2",           1.0},
    KnownUnits {"s^-2 kg m^-1",    "kg m^-1 s^-2",           1.0},
    KnownUnits {"Pa",              "kg m^-1 s^-2",           1.0},
    KnownUnits {"hPa",             "kg m^-1 s^-2",           100.0},
    KnownUnits {"bar",             "kg m^-1 s^-2",           1e5},
    KnownUnits {"mbar",            "kg m^-1 s^-2",           100.0},
    KnownUnits {"atm",             "kg m^-1 s^-2",           101325.0},
    KnownUnits {"at",              "kg m^-1 s^-2",           98066.5},
    KnownUnits {"psi",             "kg m^-1 s^-2",           6894.757293168361},
    KnownUnits {"psf",             "kg m^-1 s^-2",           47.88025898033584},
    KnownUnits {"torr",            "kg m^-1 s^-2",           133.32236842105263},
    KnownUnits {"mmHg",            "kg m^-1 s^-2",           133.322387415},
    KnownUnits {"inHg",            "kg m^-1 s^-2",           3386.388640341},
    KnownUnits {"inH2O",           "kg m^-1 s^-2",           249.08891},
    KnownUnits {"kJ kg^-1",        "m^2 s^-2",               1000.0},
    KnownUnits {"J kg^-1 K^-1",    "m^2 s^-2 K^-1",          1.0},
    KnownUnits {"W m^-2 K^-1",     "kg s^-3 K^-1",           1.0},
    KnownUnits {"cal",             "kg m^2 s^-2",            4.184},
    KnownUnits {"kcal",            "kg m^2 s^-2",            4184.0},
    KnownUnits {"Btu",             "kg m^2 s^-2",            1055.05585262},
    KnownUnits {"erg",             "kg m^2 s^-2",            1e-7},
    KnownUnits {"eV",              "kg m^2 s^-2",            1.602176634e-19},
    KnownUnits {"kW hr",           "kg m^2 s^-2",            3.6e6},
    KnownUnits {"hp",              "kg m^2 s^-3",            745.6998715822702},
    KnownUnits {"PS",              "kg m^2 s^-3",            735.49875},
    KnownUnits {"m",               "m",                      1.0},
    KnownUnits {"km",              "m",                      1000.0},
    KnownUnits {"mm",              "m",                      1e-3},
    KnownUnits {"um",              "m",                      1e-6},
    KnownUnits {"micron",          "m",                      1e-6},
    KnownUnits {"\u00b5m",         "m",                      1e-6},
    KnownUnits {"angstrom",        "m",                      1e-10},
    KnownUnits {"in",              "m",                      0.0254},
    KnownUnits {"ft",              "m",                      0.3048},
    KnownUnits {"yd",              "m",                      0.9144},
    KnownUnits {"mile",            "m",                      1609.344},
    KnownUnits {"l",               "m^3",                    1e-3},
    KnownUnits {"mL",              "m^3",                    1e-6},
    KnownUnits {"gal",             "m^3",                    0.003785411784},
    KnownUnits {"cfm",             "m^3 s^-1",               0.0004719474432},
    KnownUnits {"kg",              "kg",                     1.0},
    KnownUnits {"g",               "kg",                     1e-3},
    KnownUnits {"mg",              "kg",                     1e-6},
    KnownUnits {"tonne",           "kg",                     1000.0},
    KnownUnits {"lb",              "kg",                     0.45359237},
    KnownUnits {"oz",              "kg",                     0.028349523125},
    KnownUnits {"slug",            "kg",                     14.593902937206365},
    KnownUnits {"lb ft^-3",        "kg m^-3",                16.018463373960142},
    KnownUnits {"min",             "s",                      60.0},
    KnownUnits {"hr",              "s",                      3600.0},
    KnownUnits {"day",             "s",                      86400.0},
    KnownUnits {"ms",              "s",                      1e-3},
    KnownUnits {"kHz",             "s^-1",                   1000.0},
    KnownUnits {"rad s^-1",        "s^-1 rad",               1.0},
    KnownUnits {"deg",             "rad",                    k_pi / 180.0},
    KnownUnits {"degree",          "rad",                    k_pi / 180.0},
    KnownUnits {"rev",             "rad",                    2.0 * k_pi},
    KnownUnits {"rev min^-1",      "s^-1 rad",               k_pi / 30.0},
    KnownUnits {"rpm",             "s^-1 rad",               k_pi / 30.0},
    KnownUnits {"mph",             "m s^-1",                 0.44704},
    KnownUnits {"K",               "K",                      1.0},
    KnownUnits {"R",               "K",                      5.0 / 9.0},
    KnownUnits {"C",               "K",                      1.0, 273.15},
    KnownUnits {"F",               "K",                      5.0 / 9.0, 459.67 * 5.0 / 9.0},
    KnownUnits {"degF",            "K",                      5.0 / 9.0, 459.67 * 5.0 / 9.0},
    KnownUnits {"C^1",             "K",                      1.0, 273.15},
    KnownUnits {"C^-1",            "K^-1",                   1.0},
    KnownUnits {"W m^-2 C^-1",     "kg s^-3 K^-1",           1.0},
    KnownUnits {"C m^-1",          "m^-1 K",                 1.0},
    KnownUnits {"F F^-1",          "",                       1.0},
    KnownUnits {"delta_C",         "K",                      1.0},
    KnownUnits {"delta_F",         "K",                      5.0 / 9.0},
    KnownUnits {"mol",             "mol",                    1.0},
    KnownUnits {"kmol m^-3",       "m^-3 mol",               1000.0},
    KnownUnits {"N m",             "kg m^2 s^-2",            1.0},
    KnownUnits {"dyn",             "kg m s^-2",              1e-5},
    KnownUnits {"kgf",             "kg m s^-2",              9.80665},
    KnownUnits {"lbf",             "kg m s^-2",              4.4482216152605},
    KnownUnits {"P",               "kg m^-1 s^-1",           0.1},
    KnownUnits {"cP",              "kg m^-1 s^-1",           1e-3},
    KnownUnits {"St",              "m^2 s^-1",               1e-4},
    KnownUnits {"cSt",             "m^2 s^-1",               1e-6},
    KnownUnits {"A",               "A",                      1.0},
    KnownUnits {"coulomb",         "s A",                    1.0},
    KnownUnits {"V",               "kg m^2 s^-3 A^-1",       1.0},
    KnownUnits {"kohm",            "kg m^2 s^-3 A^-2",       1000.0},
    KnownUnits {"S m^-1",          "kg^-1 m^-3 s^3 A^2",     1.0},
    KnownUnits {"ufarad",          "kg^-1 m^-2 s^4 A^2",     1e-6},
    KnownUnits {"T",               "kg s^-2 A^-1",           1.0},
    KnownUnits {"H",               "kg m^2 s^-2 A^-2",       1.0},
    KnownUnits {"Wb",              "kg m^2 s^-2 A^-1",       1.0},
    KnownUnits {"cd",              "cd",                     1.0},
    KnownUnits {"lm",              "cd sr",                  1.0},
    KnownUnits {"W m^-2 sr^-1",    "kg s^-3 sr^-1",          1.0},
    KnownUnits {"byte",            "byte",                   1.0},
    KnownUnits {"bit",             "byte",                   0.125},
    KnownUnits {"Pa s^0.5",        "kg m^-1 s^-1.5",         1.0},
    KnownUnits {"km^0.5",          "m^0.5",                  31.622776601683793},
    KnownUnits {"km^-0.5",         "m^-0.5",                 0.031622776601683793},
    KnownUnits {"%",               "",                       0.01}));
// clang-format on

struct KnownConversion {
    double value;
    std::string from;
    std::string to;
    double expected;
};

class ShippedConversion : public ::testing::TestWithParam<KnownConversion> {};

TEST_P(ShippedConversion, GivesTheKnownValue)
{
    const auto& [value, from, to, expected] = GetParam();

    const std::optional<double> result = shippedUnits().convert(from, to, value);

    ASSERT_TRUE(result.has_value()) << from << " to " << to;
    EXPECT_DOUBLE_EQ(*result, expected) << value << " " << from << " to " << to;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, ShippedConversion, ::testing::Values(
    KnownConversion {1.0,     "atm",           "psi",           14.695948775513449},
    KnownConversion {30.0,    "cm",            "m",             0.3},
    KnownConversion {0.3,     "m",             "cm",            30.0},
    KnownConversion {7.0,     "cm",            "m",             0.07},
    KnownConversion {1.0,     "mile",          "ft",            5280.0},
    KnownConversion {1.0,     "ft^2",          "in^2",          144.0},
    KnownConversion {36.0,    "km hr^-1",      "m s^-1",        10.0},
    KnownConversion {32.0,    "F",             "C",             0.0},
    KnownConversion {212.0,   "F",             "C",             100.0},
    KnownConversion {-40.0,   "C",             "F",             -40.0},
    KnownConversion {100.0,   "C",             "F",             212.0},
    KnownConversion {0.0,     "K",             "C",             -273.15},
    KnownConversion {-273.15, "C",             "K",             0.0},
    KnownConversion {-459.67, "F",             "K",             0.0},
    KnownConversion {18.0,    "delta_F",       "delta_C",       10.0},
    KnownConversion {18.0,    "W m^-1 C^-1",   "W m^-1 F^-1",   10.0},
    KnownConversion {1.0,     "Btu lb^-1 F^-1","kcalIT kg^-1 C^-1", 1.0},
    KnownConversion {60.0,    "rpm",           "rev s^-1",      1.0},
    KnownConversion {180.0,   "deg",           "rad",           k_pi},
    KnownConversion {8.0,     "bit",           "byte",          1.0}));
// clang-format on

TEST(ShippedUnits, AreReadWithoutAProblem)
{
    UnitSystem units;
    Diagnostics problems;
    units.addDefinitions(shippedUnitsFile(), problems);

    EXPECT_FALSE(shippedUnitsFile().objects.empty());
    for (const Diagnostic& problem : shippedUnitsFile().problems)
        ADD_FAILURE() << "line " << problem.place.line << ": " << problem.message;
    for (const Diagnostic& problem : problems)
        ADD_FAILURE() << "line " << problem.place.line << ": " << problem.message;
}

TEST(ShippedUnits, DoNotConvertBetweenDimensions)
{
    EXPECT_EQ(shippedUnits().convert("m", "s", 1.0), std::nullopt);
    EXPECT_EQ(shippedUnits().convert("rad s^-1", "s^-1", 1.0), std::nullopt)
        << "an angle is a dimension here";
    EXPECT_EQ(shippedUnits().convert("", "m", 1.0), std::nullopt);
}

TEST(ShippedUnits, TakeExponentsThatDifferByLessThanAMillionthAsEqual)
{
    EXPECT_THAT(shippedUnits().convert("m^0.3333333", "m^0.33333334", 2.0), ::testing::Optional(2.0));
    EXPECT_EQ(shippedUnits().convert("m^0.333333", "m^0.333336", 2.0), std::nullopt);
}

TEST(ShippedUnits, CancelAnAngleWithAnExponentThatIsPaddedWithBlanks)
{
    EXPECT_THAT(shippedUnits().convert("s^-1", "rad s^-1 rad^          -1", 3.0), ::testing::Optional(3.0));
    EXPECT_THAT(shippedUnits().convert("rad", " rad^           1", 3.0), ::testing::Optional(3.0));
}

struct KnownQuantity {
    std::string name;
    std::string baseUnits;
};

class ShippedQuantity : public ::testing::TestWithParam<KnownQuantity> {};

TEST_P(ShippedQuantity, HasItsBaseUnits)
{
    EXPECT_THAT(shippedUnits().quantityUnits(GetParam().name), Pointee(Eq(GetParam().baseUnits)))
        << GetParam().name;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, ShippedQuantity, ::testing::Values(
    KnownQuantity {"Dimensionless",                 ""},
    KnownQuantity {"Mass Fraction",                 ""},
    KnownQuantity {"Length",                        "m"},
    KnownQuantity {"Angular Velocity",              "s^-1 rad"},
    KnownQuantity {"Velocity",                      "m s^-1"},
    KnownQuantity {"Density",                       "kg m^-3"},
    KnownQuantity {"Mass Flow",                     "kg s^-1"},
    KnownQuantity {"Pressure",                      "kg m^-1 s^-2"},
    KnownQuantity {"Torque",                        "kg m^2 s^-2"},
    KnownQuantity {"Temperature",                   "K"},
    KnownQuantity {"Heat Flux",                     "kg s^-3"},
    KnownQuantity {"Heat Transfer Coefficient",     "kg s^-3 K^-1"},
    KnownQuantity {"Thermal Conductivity",          "kg m s^-3 K^-1"},
    KnownQuantity {"Specific Heat Capacity",        "m^2 s^-2 K^-1"},
    KnownQuantity {"Dynamic Viscosity",             "kg m^-1 s^-1"},
    KnownQuantity {"Surface Tension",               "kg s^-2"},
    KnownQuantity {"Turbulence Eddy Dissipation",   "m^2 s^-3"},
    KnownQuantity {"Molar Mass",                    "kg mol^-1"},
    KnownQuantity {"Radiation Intensity",           "kg s^-3 sr^-1"},
    KnownQuantity {"Electric Potential",            "kg m^2 s^-3 A^-1"},
    KnownQuantity {"Electrical Conductivity",       "kg^-1 m^-3 s^3 A^2"},
    KnownQuantity {"Magnetic Induction",            "kg s^-2 A^-1"},
    KnownQuantity {"Rotational Spring Constant",    "kg m^2 s^-2 rad^-1"}));
// clang-format on

TEST(ShippedUnits, DoNotKnowAQuantityOfAnotherSpelling)
{
    EXPECT_EQ(shippedUnits().quantityUnits("pressure"), nullptr);
    EXPECT_EQ(shippedUnits().quantityUnits(""), nullptr);
}

TEST(BaseUnits, StandInOneOrderWhateverTheDimensions)
{
    UnitDimensions dims;
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        dims[i] = 1.0F;

    EXPECT_EQ(shippedUnits().baseUnits(dims), "kg m s K rad mol A cd sr byte");
}

TEST(BaseUnits, WriteWholeExponentsAsIntegersAndOthersInFewestDigits)
{
    UnitDimensions dims;
    dims[0] = 2.0F;
    dims[1] = -0.5F;
    dims[2] = 1.0F / 3.0F;
    dims[3] = -1.0F;
    dims[5] = 1e-7F;

    EXPECT_EQ(shippedUnits().baseUnits(dims), "kg^2 m^-0.5 s^0.33333334 K^-1 mol^0.0000001");
}

TEST(BaseUnits, AreReadBackAsTheSameDimensions)
{
    std::mt19937 random(20);    // fixed, so that a failure can be repeated
    std::uniform_int_distribution<int> kind(0, 3);
    std::uniform_int_distribution<int> whole(-100, 100);
    std::uniform_real_distribution<float> any(-100.0F, 100.0F);
    std::uniform_real_distribution<float> small(-1e-3F, 1e-3F);
    for (int round = 0; round < 20000; ++round)
    {
        UnitDimensions dims;
        for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        {
            const std::array<float, 4> choices {0.0F, static_cast<float>(whole(random)), any(random),
                                                small(random)};
            dims[i] = choices[static_cast<std::size_t>(kind(random))];
        }

        const std::string text = shippedUnits().baseUnits(dims);
        const std::optional<UnitValue> value = shippedUnits().parse(text);

        ASSERT_TRUE(value.has_value()) << text;
        EXPECT_EQ(value->factor, 1.0) << text;
        for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
            ASSERT_EQ(value->dims[i], dims[i]) << text;
    }
}

}
}    // namespace qen::standalone::test
