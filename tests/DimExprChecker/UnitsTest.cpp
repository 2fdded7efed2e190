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
#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace qen {
namespace {

using support::ConverterRequests;
using support::ErrorSaying;
using support::records;
using support::ScriptedHost;
using support::thrownBy;
using support::UnitsMeaning;
using testing::ElementsAre;
using testing::IsEmpty;

using Peer = DimExprCheckerPeer;

constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

// The tolerance is read once per process; here it is the default.
[[maybe_unused]] const int g_toleranceUnset = unsetenv("QVN5_UNITS_TOL");

UnitDimensions dimension(std::size_t p_index, float p_exponent)
{
    UnitDimensions dims;
    dims[p_index] = p_exponent;
    return dims;
}

/// A duct whose pressure is a pressure.
class Units : public testing::Test {
protected:
    Units() { m_host.parameter(k_duct, "Pressure").hasQuantity("Pressure", "kg m^-1 s^-2"); }

    bool checkUnits(const std::string& p_param, const std::string& p_units)
    {
        return m_checker.checkParamNumeric(k_duct, p_param, 1.0F, p_units, true);
    }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
};

// Which units are expected.

TEST_F(Units, AreAnyWithoutAQuantity)
{
    const ConverterRequests noted;
    m_host.parameter(k_duct, "Count");

    EXPECT_TRUE(checkUnits("Count", "nonsense"));

    EXPECT_THAT(m_host.callsTo({"converter.", "units.", "modifier."}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Count)"));
}

TEST_F(Units, AreAnyWithoutAQuantityThoughDynamic)
{
    m_host.parameter(k_duct, "Count").isDynamic("kg").hasQuantity("");

    EXPECT_TRUE(checkUnits("Count", "nonsense"));

    EXPECT_THAT(m_host.callsTo({"modifier.dynamicUnits", "units."}), IsEmpty());
}

TEST_F(Units, AreLookedUpUnderstoodAndConvertedInThisOrder)
{
    EXPECT_TRUE(checkUnits("Pressure", "bar"));

    EXPECT_THAT(m_host.callsTo({"units.", "modifier.", "rules."}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Pressure)",
                            "units.getBaseUnitsFromQuant(Pressure)", "units.dimsFromUnits(bar)",
                            "units.convertUnits(bar, kg m^-1 s^-2, 0, true)",
                            "rules.lowerBound(/FLOW:F/DOMAIN:Duct, Pressure, model)",
                            "rules.upperBound(/FLOW:F/DOMAIN:Duct, Pressure, model)"));
}

TEST_F(Units, PassSilentlyWhenTheQuantityIsUnknown)
{
    m_host.parameter(k_duct, "Odd").hasQuantity("Oddity");

    EXPECT_TRUE(checkUnits("Odd", "nonsense"));

    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"units."}), ElementsAre("units.getBaseUnitsFromQuant(Oddity)"));
}

TEST_F(Units, LetOtherExceptionsOfTheQuantityPass)
{
    m_host.onCall("units.getBaseUnitsFromQuant", [] { throw std::out_of_range("beyond"); });

    EXPECT_TRUE(thrownBy<std::out_of_range>([&] { checkUnits("Pressure", "Pa"); }));
}

TEST_F(Units, OfADynamicQuantityAreTheModifiers)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg m^-3");
    m_host.quantity("Dynamic Quantity", "s");

    EXPECT_TRUE(checkUnits("Dye", "g cm^-3"));

    EXPECT_THAT(m_host.callsTo({"modifier.", "units.getBaseUnits", "units.convert"}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Dye)",
                            "modifier.dynamicUnits(Dynamic Quantity)",
                            "units.convertUnits(g cm^-3, kg m^-3, 0, true)"));
}

TEST_F(Units, AreDynamicOnlyInModeOne)
{
    m_host.dynamicQuantity("Pressure", "s");
    for (const int mode : {-1, 0, 2, 3, 256, 257})
    {
        m_host.parameter(k_duct, "Pressure").hasQuantityMode(mode);
        EXPECT_TRUE(checkUnits("Pressure", "Pa")) << mode;
    }
    m_host.parameter(k_duct, "Pressure").hasQuantityMode(1);
    EXPECT_FALSE(checkUnits("Pressure", "Pa"));
}

TEST_F(Units, AreDynamicByTheModeAndNotByTheOtherQuestion)
{
    m_host.dynamicQuantity("Pressure", "s");
    m_host.parameter(k_duct, "Pressure").isCalledDynamic(true);
    EXPECT_TRUE(checkUnits("Pressure", "Pa"));

    m_host.parameter(k_duct, "Pressure").isCalledDynamic(false).hasQuantityMode(1);
    EXPECT_TRUE(checkUnits("Pressure", "s"));

    EXPECT_THAT(m_host.callsTo({"modifier.isDynamicQuantity"}), IsEmpty());
}

TEST_F(Units, LetAnExceptionOfTheDynamicUnitsPass)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg");
    m_host.onCall("modifier.dynamicUnits",
                  [] { throw units::error("Modifier", "units", "Unknown.", ErrorTypeError); });

    EXPECT_TRUE(thrownBy<units::error>([&] { checkUnits("Dye", "kg"); }));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(Units, AskForTheConverterOnceTheQuantityIsKnown)
{
    const ConverterRequests noted;
    checkUnits("Pressure", "Pa");
    m_host.parameter(k_duct, "Dye").isDynamic("kg");
    checkUnits("Dye", "kg");

    EXPECT_THAT(m_host.callsTo({"converter.", "modifier.", "units.getBaseUnits", "units.dims"}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Pressure)",
                            "converter.instance()", "units.getBaseUnitsFromQuant(Pressure)",
                            "units.dimsFromUnits(Pa)",
                            "modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Dye)",
                            "modifier.dynamicUnits(Dynamic Quantity)", "converter.instance()",
                            "units.dimsFromUnits(kg)"));
}

// Units that are not understood.

TEST_F(Units, ThatAreNotUnderstoodAreUnrecognised)
{
    EXPECT_FALSE(checkUnits("Pressure", "furlong"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying(
            "Unrecognised units ('furlong') set for parameter 'Pressure' in object '/FLOW:F/DOMAIN:Duct'.")));
    EXPECT_THAT(m_host.callsTo({"units.convertUnits", "rules."}), IsEmpty());
}

TEST_F(Units, ThatAreNotUnderstoodAreShownAsDimensionlessWhenEmpty)
{
    m_host.onCall("units.dimsFromUnits()",
                  [] { throw units::error("Units", "dims", "No units.", ErrorTypeError); });

    EXPECT_FALSE(checkUnits("Pressure", ""));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Unrecognised units ('dimensionless') set for parameter "
                                        "'Pressure' in object '/FLOW:F/DOMAIN:Duct'.")));
}

TEST_F(Units, OfAnExpressionThatAreNotUnderstoodAreUnrecognised)
{
    // Given a host that does not understand the base units that it names itself
    m_host.expression("x").hasDimensions("m").references({"x"});
    m_host.onCall("units.dimsFromUnits(m)",
                  [] { throw units::error("Units", "dims", "No units.", ErrorTypeError); });

    EXPECT_FALSE(m_checker.checkParamExpression(k_duct, "Pressure", "x"));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(ErrorSaying(
            "Unrecognised units ('m') set for parameter 'Pressure' in object '/FLOW:F/DOMAIN:Duct'.")));
}

TEST_F(Units, LetOtherExceptionsOfTheUnitsPass)
{
    m_host.onCall("units.dimsFromUnits(Pa)", [] { throw std::out_of_range("beyond"); });

    EXPECT_TRUE(thrownBy<std::out_of_range>([&] { checkUnits("Pressure", "Pa"); }));
}

TEST_F(Units, ThatAreExpectedAndNotUnderstoodPassAsTheHostsError)
{
    m_host.parameter(k_duct, "Odd").hasQuantity("Oddity", "furlong");

    const auto thrown = thrownBy<units::error>([&] { checkUnits("Odd", "m"); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "No such units: 'furlong'.");
    EXPECT_THAT(records(m_checker), IsEmpty());
}

// Units of the wrong dimension.

TEST_F(Units, OfTheWrongDimensionAreInvalid)
{
    EXPECT_FALSE(checkUnits("Pressure", "m"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Invalid units ('m') set for parameter 'Pressure' in object "
                                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-1 s^-2'.")));
}

TEST_F(Units, OfTheWrongDimensionOfADynamicQuantityAreInvalidDynamicUnits)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg m^-3");

    EXPECT_FALSE(checkUnits("Dye", "m"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Invalid dynamic units ('m') set for parameter 'Dye' in object "
                                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-3'.")));
}

TEST_F(Units, OfTheWrongDimensionAreComparedInThisOrder)
{
    EXPECT_FALSE(checkUnits("Pressure", "m"));

    EXPECT_THAT(m_host.callsTo({"units.", "modifier.", "rules."}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Pressure)",
                            "units.getBaseUnitsFromQuant(Pressure)", "units.dimsFromUnits(m)",
                            "units.convertUnits(m, kg m^-1 s^-2, 0, true)",
                            "units.dimsFromUnits(kg m^-1 s^-2)", "units.dimsFromUnits(m)"));
}

TEST_F(Units, OfTheWrongDimensionOfADynamicQuantityAreComparedInThisOrder)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg m^-3");

    EXPECT_FALSE(checkUnits("Dye", "m"));

    EXPECT_THAT(m_host.callsTo({"units.", "modifier.", "rules."}),
                ElementsAre("modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Dye)",
                            "modifier.dynamicUnits(Dynamic Quantity)", "units.dimsFromUnits(m)",
                            "units.convertUnits(m, kg m^-3, 0, true)", "units.dimsFromUnits(kg m^-3)",
                            "units.dimsFromUnits(m)"));
}

TEST_F(Units, AreShownAsDimensionlessWhenEmptyGivenOrExpected)
{
    m_host.parameter(k_duct, "Ratio").hasQuantity("Ratio", "");
    m_host.parameter(k_duct, "Dye").isDynamic("");
    m_host.expression("x").hasDimensions("m").references({"x"});
    m_host.expression("y").references({"y"});

    checkUnits("Pressure", "");
    checkUnits("Ratio", "m");
    checkUnits("Dye", "m");
    m_checker.checkParamExpression(k_duct, "Ratio", "x");
    m_checker.checkParamExpression(k_duct, "Pressure", "y");
    m_host.parameter(k_duct, "Dye").isDynamic("kg");
    checkUnits("Dye", "");

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(
            ErrorSaying("Invalid units ('dimensionless') set for parameter 'Pressure' in object "
                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-1 s^-2'."),
            ErrorSaying("Invalid units ('m') set for parameter 'Ratio' in object '/FLOW:F/DOMAIN:Duct'. "
                        "Expected units: 'dimensionless'."),
            ErrorSaying("Invalid dynamic units ('m') set for parameter 'Dye' in object "
                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'dimensionless'."),
            ErrorSaying("Expression resolves to invalid units ('m') in value set for parameter 'Ratio' in "
                        "object '/FLOW:F/DOMAIN:Duct'. Expected units: 'dimensionless'."),
            ErrorSaying("Expression resolves to invalid units ('dimensionless') in value set for parameter "
                        "'Pressure' in object '/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-1 s^-2'."),
            ErrorSaying("Invalid dynamic units ('dimensionless') set for parameter 'Dye' in object "
                        "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg'.")));
}

TEST_F(Units, RaiseTheClassOfTheirFault)
{
    m_host.parameter(k_duct, "Dye").isDynamic("kg");

    EXPECT_TRUE(thrownBy<DimExprErrors::units_error>(
        [&] { Peer::checkParamUnits<std::string>(m_checker, k_duct, "Pressure", "furlong", false); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::units_error>(
        [&] { Peer::checkParamUnits<std::string>(m_checker, k_duct, "Pressure", "m", false); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::dynamic_quant_error>(
        [&] { Peer::checkParamUnits<std::string>(m_checker, k_duct, "Dye", "m", false); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::dxerror>(
        [&] { Peer::checkParamUnits<std::string>(m_checker, k_duct, "Pressure", "m", true); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::dxerror>(
        [&] { Peer::checkParamUnits<std::string>(m_checker, k_duct, "Dye", "m", true); }));
}

TEST_F(Units, OfDimensionsAreTheirBaseUnits)
{
    const auto thrown = thrownBy<DimExprErrors::units_error>(
        [&] { Peer::checkParamUnits(m_checker, k_duct, "Pressure", dimension(1, 2.0F), false); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Invalid units ('m^2') set for parameter 'Pressure' in object "
                                    "'/FLOW:F/DOMAIN:Duct'. Expected units: 'kg m^-1 s^-2'.");
    EXPECT_THAT(m_host.callsTo({"units.getBaseUnitName"}), ElementsAre("units.getBaseUnitName(m^2)"));
}

// Units that cannot be converted and yet pass.

TEST_F(Units, OfEqualDimensionsPassThoughTheHostRefusesToConvert)
{
    m_host.refusesConversion("bar", "kg m^-1 s^-2");

    EXPECT_TRUE(checkUnits("Pressure", "bar"));
}

TEST_F(Units, MayDifferInTheAngle)
{
    m_host.parameter(k_duct, "Spin").hasQuantity("Spin", "s^-1");
    EXPECT_TRUE(checkUnits("Spin", "rad s^-1"));
    EXPECT_TRUE(checkUnits("Spin", "rad^-2 s^-1"));
    EXPECT_TRUE(checkUnits("Pressure", "Pa degree"));

    m_host.parameter(k_duct, "Spin").hasQuantity("Spin", "rad s^-1");
    EXPECT_TRUE(checkUnits("Spin", "s^-1"));
    EXPECT_FALSE(checkUnits("Spin", "rad"));
}

TEST_F(Units, OfAnExpressionMayDifferInTheAngle)
{
    m_host.parameter(k_duct, "Spin").hasQuantity("Spin", "rad s^-1");
    m_host.expression("x").hasDimensions("s^-1").references({"x"});
    m_host.expression("y").hasDimensions("rad^-2 s^-1").references({"y"});
    m_host.expression("z").hasDimensions("rad").references({"z"});
    for (const char* name : {"x", "y", "z"})
        m_host.varDefStore().addVariableDefinition(name,
                                                   {{"Tensor Type", "SCALAR"}, {"Variable Scope", "GLOBAL"}});

    EXPECT_TRUE(m_checker.checkParamExpression(k_duct, "Spin", "x"));
    EXPECT_TRUE(m_checker.checkParamExpression(k_duct, "Spin", "y"));
    EXPECT_FALSE(m_checker.checkParamExpression(k_duct, "Spin", "z"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying("Expression resolves to invalid units ('rad') in value set for "
                                        "parameter 'Spin' in object '/FLOW:F/DOMAIN:Duct'. Expected units: "
                                        "'rad s^-1'.")));
}

struct ExponentCase {
    const char* name;
    std::size_t index;
    float difference;
    bool passes;
};

class UnitsExponent : public Units, public testing::WithParamInterface<ExponentCase> {};

TEST_P(UnitsExponent, DecidesAlone)
{
    // Given expected and given units that differ in one exponent
    m_host.units("odd", {dimension(GetParam().index, GetParam().difference), 1.0});
    m_host.parameter(k_duct, "Ratio").hasQuantity("Ratio", "");
    m_host.parameter(k_duct, "Odd").hasQuantity("Oddity", "odd");

    EXPECT_EQ(checkUnits("Ratio", "odd"), GetParam().passes);
    EXPECT_EQ(checkUnits("Odd", ""), GetParam().passes);
}

INSTANTIATE_TEST_SUITE_P(
    Differences, UnitsExponent,
    testing::Values(ExponentCase {"Mass", 0, 1.0F, false}, ExponentCase {"Length", 1, 1.0F, false},
                    ExponentCase {"Time", 2, 1.0F, false}, ExponentCase {"Temperature", 3, 1.0F, false},
                    ExponentCase {"Angle", 4, 1.0F, true}, ExponentCase {"AngleMuch", 4, -7.5F, true},
                    ExponentCase {"Amount", 5, 1.0F, false}, ExponentCase {"Current", 6, 1.0F, false},
                    ExponentCase {"LuminousIntensity", 7, 1.0F, false},
                    ExponentCase {"SolidAngle", 8, 1.0F, false}, ExponentCase {"Information", 9, 1.0F, false},
                    ExponentCase {"NegativeMass", 0, -1.0F, false},
                    ExponentCase {"JustInside", 0, std::nextafter(0.001F, 0.0F), true},
                    ExponentCase {"JustInsideBelow", 9, -std::nextafter(0.001F, 0.0F), true},
                    // As a single-precision number a thousandth is a little more than the tolerance.
                    ExponentCase {"AThousandth", 0, 0.001F, false},
                    ExponentCase {"AThousandthBelow", 9, -0.001F, false}),
    [](const auto& p_info) { return p_info.param.name; });

// The two checks of a number.

TEST_F(Units, AreCheckedBeforeBounds)
{
    m_host.parameter(k_duct, "Pressure").hasUpperBound("nonsense");

    EXPECT_FALSE(checkUnits("Pressure", "m"));
    EXPECT_THAT(m_host.callsTo({"rules."}), IsEmpty());
}

TEST_F(Units, AreCheckedWithoutARecordWhenAskedQuietly)
{
    EXPECT_FALSE(m_checker.checkParamNumeric(k_duct, "Pressure", 1.0F, "m", false));
    EXPECT_TRUE(m_checker.checkParamNumeric(k_duct, "Pressure", 1.0F, "Pa", false));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(Units, AndBoundsAreCheckedTogetherWithoutCatching)
{
    m_host.parameter(k_duct, "Pressure").hasUpperBound("1 [Pa]");

    EXPECT_TRUE(thrownBy<DimExprErrors::units_error>(
        [&] { Peer::checkParamNumericImpl(m_checker, k_duct, "Pressure", 2.0F, "m"); }));
    EXPECT_TRUE(thrownBy<DimExprErrors::bounds_error>(
        [&] { Peer::checkParamNumericImpl(m_checker, k_duct, "Pressure", 2.0F, "Pa"); }));
    Peer::checkParamNumericImpl(m_checker, k_duct, "Pressure", 1.0F, "Pa");

    EXPECT_THAT(records(m_checker), IsEmpty());
}

}    // namespace
}    // namespace qen
