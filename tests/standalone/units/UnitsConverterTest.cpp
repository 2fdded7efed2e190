#include "UnitsConverter.h"
#include "ShippedUnits.h"
#include "UnitsError.h"
#include "world/World.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace qen::standalone::test {
namespace {

/// The converter in a world with the shipped units.
class Converter : public ::testing::Test {
protected:
    Converter() : m_world(worldOf(shippedUnits())), m_scope(m_world) {}

    const UnitsConverter& converter() const { return UnitsConverter::instance(); }

    /// The converted value; not a number when the conversion is not possible.
    float converted(float p_value, const std::string& p_from, const std::string& p_to) const
    {
        float result = 0.0F;
        return converter().convertUnits(p_from, p_to, p_value, result, true)
                   ? result
                   : std::numeric_limits<float>::quiet_NaN();
    }

private:
    static World worldOf(const UnitSystem& p_units)
    {
        World world;
        world.units = &p_units;
        return world;
    }

    World m_world;
    WorldScope m_scope;
};

/// Runs an operation that must throw and hands back the error.
template <class Operation>
units::error errorOf(Operation&& p_operation)
{
    try
    {
        p_operation();
    }
    catch (const units::error& error)
    {
        return error;
    }
    ADD_FAILURE() << "no error was thrown";
    return {"", "", "", ErrorTypeWarning};
}

TEST_F(Converter, RoundsOnceToSinglePrecision)
{
    EXPECT_EQ(converted(1.0F, "atm", "psi"), 14.6959487755F);
    EXPECT_EQ(converted(0.1F, "m", "mm"), 100.0F);
    EXPECT_EQ(converted(30.0F, "cm", "m"), 0.3F);
    EXPECT_EQ(converted(20.0F, "C", "K"), 293.15F);
    EXPECT_EQ(converted(32.0F, "F", "C"), 0.0F);
    EXPECT_EQ(converted(98.6F, "F", "C"), 37.0F);
}

TEST_F(Converter, IsOneObject) { EXPECT_EQ(&UnitsConverter::instance(), &UnitsConverter::instance()); }

TEST_F(Converter, LeavesTheResultAloneWhenUnitsDoNotFit)
{
    float result = 7.0F;

    EXPECT_FALSE(converter().convertUnits("m", "s", 1.0F, result, true));
    EXPECT_FALSE(converter().convertUnits("furlong", "m", 1.0F, result, true));
    EXPECT_FALSE(converter().convertUnits("m", "furlong", 1.0F, result, true));
    EXPECT_EQ(result, 7.0F);
}

TEST_F(Converter, GivesInfinityForAValueBeyondSinglePrecision)
{
    EXPECT_EQ(converted(3e38F, "m", "mm"), std::numeric_limits<float>::infinity());
}

TEST_F(Converter, GivesDimensionsInTheOrderOfTheirIndices)
{
    const UnitDimensions dims = converter().dimsFromUnits("rad kg^2 s^-0.5");

    EXPECT_EQ(dims[0], 2.0F);
    EXPECT_EQ(dims[1], 0.0F);
    EXPECT_EQ(dims[2], -0.5F);
    EXPECT_EQ(dims[UnitDimensions::k_angle], 1.0F);
}

TEST_F(Converter, SaysWhyATextIsNotUnderstood)
{
    const units::error error = errorOf([&] { converter().dimsFromUnits("kg furlong^-1"); });

    EXPECT_EQ(error.getMessage(),
              "Units 'kg furlong^-1' are not understood: column 4: unit 'furlong' is not known.");
    EXPECT_EQ(error.getClass(), "UnitsConverter");
    EXPECT_EQ(error.getMethod(), "dimsFromUnits");
    EXPECT_EQ(error.getType(), ErrorTypeError);
}

TEST_F(Converter, QuotesNoMoreThanEightyCharacters)
{
    const std::string x(200, 'x');

    const units::error error = errorOf([&] { converter().dimsFromUnits(x); });

    EXPECT_EQ(error.getMessage(), "Units '" + x.substr(0, 80) + "...' are not understood: column 1: unit '" +
                                      x.substr(0, 80) + "...' is not known.");
}

TEST_F(Converter, WritesBaseUnitsOfDimensionsAndQuantities)
{
    EXPECT_EQ(converter().getBaseUnitName(converter().dimsFromUnits("psi")), "kg m^-1 s^-2");
    EXPECT_EQ(converter().getBaseUnitName(UnitDimensions()), "");
    EXPECT_EQ(converter().getBaseUnitsFromQuant("Pressure"), "kg m^-1 s^-2");
}

TEST_F(Converter, RefusesAnUnknownQuantity)
{
    const units::error error = errorOf([&] { converter().getBaseUnitsFromQuant("Presure"); });

    EXPECT_EQ(error.getMessage(), "Quantity 'Presure' is not known.");
    EXPECT_EQ(error.getMethod(), "getBaseUnitsFromQuant");
}

TEST(ConverterWithoutUnits, SaysThatNoneAreLoaded)
{
    const World empty;
    const WorldScope scope(empty);
    const UnitsConverter& converter = UnitsConverter::instance();
    float result = 0.0F;

    EXPECT_EQ(errorOf([&] { converter.dimsFromUnits("m"); }).getMessage(), "No unit definitions are loaded.");
    EXPECT_EQ(errorOf([&] { converter.convertUnits("m", "m", 1.0F, result, true); }).getMethod(),
              "convertUnits");
    EXPECT_EQ(errorOf([&] { converter.getBaseUnitName({}); }).getMethod(), "getBaseUnitName");
    EXPECT_EQ(errorOf([&] { converter.getBaseUnitsFromQuant("Length"); }).getMessage(),
              "No unit definitions are loaded.");
}

}
}    // namespace qen::standalone::test
