#include "DefinitionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qen::standalone::test {
namespace {

using ::testing::AllOf;
using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::Pointee;

/// A problem with identifier, text, and the place and length that it points at.
auto Problem(const std::string& p_identifier, std::uint32_t p_line, std::uint32_t p_column,
             std::uint32_t p_length, const std::string& p_message)
{
    return AllOf(Field("severity", &Diagnostic::severity, Severity::Error),
                 Field("identifier", &Diagnostic::identifier, p_identifier),
                 Field("place", &Diagnostic::place, SourcePlace {0, p_line, p_column}),
                 Field("length", &Diagnostic::length, p_length),
                 Field("message", &Diagnostic::message, p_message));
}

TEST(UnitDefinitions, MayUseUnitsThatAreDefinedFurtherDown)
{
    UnitSystem units;
    const Diagnostics problems =
        DefinitionText()
            .unit("psi", "lbf in^-2")
            .section("/UNIT:lbf", {{"Definition", "kg m s^-2"}, {"Factor", "4.4482216152605"}})
            .section("/UNIT:in", {{"Definition", "cm"}, {"Factor", "2.54"}})
            .mechanics()
            .section("/PREFIX:c", {{"Factor", "1/100"}})
            .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(units.convert("psi", "kg m^-1 s^-2", 1.0), Optional(DoubleEq(6894.757293168361)));
}

TEST(UnitDefinitions, OfALaterDocumentOverrideEarlierOnesAlsoInsideOtherUnits)
{
    UnitSystem units;
    DefinitionText()
        .mechanics()
        .section("/UNIT:gal", {{"Definition", "m^3"}, {"Factor", "0.003785411784"}})
        .unit("gpm", "gal s^-1")
        .section("/QUANTITY:Thickness", {{"Units", "m"}})
        .section("/QUANTITY:Flow", {{"Units", "kg s^-1"}})
        .addTo(units);

    const Diagnostics problems = DefinitionText()
                                     .section("/UNIT:gal", {{"Definition", "m^3"}, {"Factor", "0.00454609"}})
                                     .section("/QUANTITY:Flow", {{"Units", "m^3 s^-1"}})
                                     .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(units.convert("gal", "m^3", 1.0), Optional(0.00454609));
    EXPECT_THAT(units.convert("gpm", "m^3 s^-1", 1.0), Optional(0.00454609));
    EXPECT_THAT(units.quantityUnits("Flow"), Pointee(Eq("m^3 s^-1")));
    EXPECT_THAT(units.quantityUnits("Thickness"), Pointee(Eq("m")));
}

TEST(UnitDefinitions, PreferAUnitsOwnNameToOneWithAPrefix)
{
    UnitSystem units;
    const Diagnostics problems = DefinitionText()
                                     .mechanics()
                                     .section("/PREFIX:c", {{"Factor", "1/100"}})
                                     .section("/UNIT:cm", {{"Definition", "m"}, {"Factor", "7"}})
                                     .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(units.convert("cm", "m", 1.0), Optional(7.0));
}

TEST(UnitDefinitions, GivePrefixesOnlyToUnitsThatAskForThem)
{
    UnitSystem units;
    DefinitionText().mechanics().section("/PREFIX:k", {{"Factor", "1e3"}}).addTo(units);

    EXPECT_THAT(units.convert("km", "m", 2.0), Optional(2000.0));
    EXPECT_EQ(reasonAgainst(units, "ks"), "column 1: unit 'ks' is not known");
}

TEST(UnitDefinitions, MakeAnOtherNameOfAScaleAScaleToo)
{
    UnitSystem units;
    const Diagnostics problems =
        DefinitionText()
            .section("/BASE UNIT:K", {{"Dimension", "Temperature"}})
            .section("/UNIT:C", {{"Definition", "K"}, {"Offset", "273.15"}})
            .unit("celsius", "C")
            .section("/UNIT:F", {{"Definition", "C"}, {"Factor", "5/9"}, {"Offset", "-160/9"}})
            .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(units.convert("celsius", "K", 0.0), Optional(273.15));
    EXPECT_THAT(units.convert("F", "celsius", 212.0), Optional(100.0));
}

TEST(UnitDefinitions, TurnQuantitiesIntoBaseUnits)
{
    UnitSystem units;
    const Diagnostics problems = DefinitionText()
                                     .section("/QUANTITY:Pressure", {{"Units", "N m^-2"}})
                                     .section("/QUANTITY:Fraction", {{"Units", ""}})
                                     .mechanics()
                                     .unit("N", "kg m s^-2")
                                     .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_THAT(units.quantityUnits("Pressure"), Pointee(Eq("kg m^-1 s^-2")));
    EXPECT_THAT(units.quantityUnits("Fraction"), Pointee(Eq("")));
}

TEST(UnitDefinitions, ReportAnUnknownSection)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText()
            .section("/UNITS:N", {{"Definition", "kg"}})
            .section("/UNIT:N/MORE:x", {})
            .addTo(units),
        ElementsAre(
            Problem("unknown-section", 1, 2, 8,
                    "'/UNITS:N' is not a section of unit definitions; expected '/BASE UNIT:name', "
                    "'/UNIT:name', '/PREFIX:name' or '/QUANTITY:name'"),
            Problem("unknown-section", 3, 2, 14,
                    "'/UNIT:N/MORE:x' is not a section of unit definitions; expected '/BASE UNIT:name', "
                    "'/UNIT:name', '/PREFIX:name' or '/QUANTITY:name'")));
}

TEST(UnitDefinitions, ReportAMisspeltKeyAndTheMissingOne)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText().section("/UNIT:N", {{"Defintion", "kg"}}).addTo(units),
        ElementsAre(
            Problem("unknown-key", 2, 1, 9,
                    "'Defintion' is not a key of '/UNIT:N'; expected 'Definition', 'Factor', 'Offset' "
                    "or 'Prefixes'"),
            Problem("missing-key", 1, 2, 7, "'/UNIT:N' has no 'Definition'")));
}

TEST(UnitDefinitions, ReportAMissingKeyOfEachSection)
{
    UnitSystem units;
    EXPECT_THAT(DefinitionText()
                    .section("/BASE UNIT:kg", {})
                    .section("/PREFIX:k", {})
                    .section("/QUANTITY:Mass", {})
                    .addTo(units),
                ElementsAre(Problem("missing-key", 1, 2, 13, "'/BASE UNIT:kg' has no 'Dimension'"),
                            Problem("missing-key", 2, 2, 9, "'/PREFIX:k' has no 'Factor'"),
                            Problem("missing-key", 3, 2, 14, "'/QUANTITY:Mass' has no 'Units'")));
}

class FactorOfAUnit : public ::testing::TestWithParam<std::string> {};

TEST_P(FactorOfAUnit, IsReportedWhenItIsNoNumberAboveZero)
{
    UnitSystem units;
    const Diagnostics problems = DefinitionText()
                                     .mechanics()
                                     .section("/UNIT:x", {{"Definition", "m"}, {"Factor", GetParam()}})
                                     .addTo(units);

    EXPECT_THAT(problems,
                ElementsAre(Problem("bad-value", 10, 10, static_cast<std::uint32_t>(GetParam().size()),
                                    "'" + GetParam() +
                                        "' is not a value of 'Factor'; expected a number above zero, or a "
                                        "fraction such as '5/9'")));
    EXPECT_EQ(reasonAgainst(units, "x"), "column 1: unit 'x' is not known");
}

INSTANTIATE_TEST_SUITE_P(Table, FactorOfAUnit,
                         ::testing::Values("0", "-1", "abc", "1,5", "inf", "nan", "1e999", "1/0", "1/", "/2",
                                           "1/2/3", "2 m", "1e", "0x10", "1e301", "1e-301", "--1", "+-1"));

struct GoodFactor {
    std::string text;
    double value;
};

class FactorText : public ::testing::TestWithParam<GoodFactor> {};

TEST_P(FactorText, IsReadAsWritten)
{
    UnitSystem units;
    const Diagnostics problems = DefinitionText()
                                     .mechanics()
                                     .section("/UNIT:x", {{"Definition", "m"}, {"Factor", GetParam().text}})
                                     .addTo(units);

    EXPECT_THAT(problems, IsEmpty());
    ASSERT_TRUE(units.parse("x").has_value());
    EXPECT_EQ(units.parse("x")->factor, GetParam().value) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Table, FactorText,
    ::testing::Values(GoodFactor {"2", 2.0}, GoodFactor {"+2", 2.0}, GoodFactor {"0.3048", 0.3048},
                      GoodFactor {".5", 0.5}, GoodFactor {"5.", 5.0}, GoodFactor {"1e3", 1000.0},
                      GoodFactor {"1E+3", 1000.0}, GoodFactor {"1e-3", 0.001}, GoodFactor {"5/9", 5.0 / 9.0},
                      GoodFactor {" 5 / 9 ", 5.0 / 9.0}, GoodFactor {"1e24", 1e24},
                      GoodFactor {"1/1e22", 1e-22}, GoodFactor {"1e-300", 1e-300},
                      GoodFactor {"1e300", 1e300}, GoodFactor {"1.602176634e-19", 1.602176634e-19},
                      GoodFactor {"3.14159265358979323846/180", 0.017453292519943295},
                      GoodFactor {"123456789012345678901234567890", 1.2345678901234568e29},
                      GoodFactor {"12345678901234567e5", 12345678901234567e5}));

TEST(UnitDefinitions, ReportOtherBadValues)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText()
            .section("/BASE UNIT:kg", {{"Dimension", "mass"}})
            .section("/UNIT:x", {{"Definition", ""}, {"Offset", "none"}, {"Prefixes", "yes"}})
            .addTo(units),
        ElementsAre(
            Problem("bad-value", 2, 13, 4,
                    "'mass' is not a value of 'Dimension'; expected 'Mass', 'Length', 'Time', "
                    "'Temperature', 'Angle', 'Amount of Substance', 'Electric Current', 'Luminous "
                    "Intensity', 'Solid Angle' or 'Information'"),
            Problem("bad-value", 5, 10, 4,
                    "'none' is not a value of 'Offset'; expected a number, such as '273.15'"),
            Problem("bad-value", 6, 12, 3, "'yes' is not a value of 'Prefixes'; expected 'Yes' or 'No'")));
}

TEST(UnitDefinitions, ReportANameThatCannotStandInAUnitsText)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText()
            .unit("2m", "")
            .unit("m s", "")
            .unit("", "")
            .unit("abcdefghijklmnopqrstuvwxyzabcdefg", "")
            .section("/PREFIX:kilomega_", {{"Factor", "1e9"}})
            .section("/QUANTITY", {{"Units", ""}})
            .addTo(units),
        ElementsAre(
            Problem("bad-name", 1, 2, 8,
                    "'2m' cannot name a unit or prefix; expected a letter, '_' or '%', then letters, "
                    "digits, '_' or '%'"),
            Problem("bad-name", 3, 2, 9,
                    "'m s' cannot name a unit or prefix; expected a letter, '_' or '%', then letters, "
                    "digits, '_' or '%'"),
            Problem("bad-name", 5, 2, 6,
                    "'' cannot name a unit or prefix; expected a letter, '_' or '%', then letters, "
                    "digits, '_' or '%'"),
            Problem("bad-name", 7, 2, 39,
                    "the name 'abcdefghijklmnopqrstuvwxyzabcdefg' has 33 bytes; at most 32 are admitted"),
            Problem("bad-name", 9, 2, 17, "the name 'kilomega_' has 9 bytes; at most 8 are admitted"),
            Problem("bad-name", 11, 2, 9, "a quantity has no name; expected '/QUANTITY:name'")));
}

TEST(UnitDefinitions, ReportAnUnknownUnitWhereItStandsAndNotThoseThatBuildOnIt)
{
    UnitSystem units;
    const Diagnostics problems =
        DefinitionText().mechanics().unit("N", "kg  metre s^-2").unit("Pa", "N m^-2").addTo(units);

    EXPECT_THAT(problems, ElementsAre(Problem(
                              "unknown-unit", 9, 18, 5,
                              "definition 'kg  metre s^-2' of unit 'N' is not understood: column 5: unit "
                              "'metre' is not known")));
    EXPECT_EQ(reasonAgainst(units, "Pa"), "column 1: unit 'Pa' is not known");
}

TEST(UnitDefinitions, ReportADefinitionThatIsNoUnitsText)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText().mechanics().unit("v", "m/s").unit("huge", "m^60 m^60").addTo(units),
        ElementsAre(
            Problem("bad-units", 9, 15, 1,
                    "definition 'm/s' of unit 'v' is not understood: column 2: '/' is not read; a divisor "
                    "is written with a negative exponent, such as 's^-1'"),
            Problem("bad-units", 11, 14, 9,
                    "definition 'm^60 m^60' of unit 'huge' is not understood: column 1: the units multiply "
                    "to a dimension with an exponent beyond 100")));
}

TEST(UnitDefinitions, PointIntoTheLineThatAContinuedValueStandsOn)
{
    // Given a definition that goes on in the next line
    QclDocument document = DefinitionText().mechanics().unit("N", "kg mm s^-2").document();
    const QclJoinedValue joined {"kg mm s^-2", {{0, 0, 14}, {3, 1, 5}}};
    QclParameter& definition = document.objects.back().parameters[0];
    definition = QclParameter(definition.name(), joined, definition.place());

    UnitSystem units;
    Diagnostics problems;
    units.addDefinitions(document, problems);

    EXPECT_THAT(problems, ElementsAre(Problem(
                              "unknown-unit", 10, 5, 2,
                              "definition 'kg mm s^-2' of unit 'N' is not understood: column 4: unit 'mm' "
                              "is not known")));
}

TEST(UnitDefinitions, ReportACycleOnceWithItsChain)
{
    UnitSystem units;
    const Diagnostics problems = DefinitionText()
                                     .mechanics()
                                     .unit("a", "m b")
                                     .unit("b", "s c")
                                     .unit("c", "kg a^2")
                                     .unit("d", "a")
                                     .addTo(units);

    EXPECT_THAT(problems, ElementsAre(Problem("cyclic-unit", 13, 17, 1,
                                              "unit 'c' is defined by itself: a -> b -> c -> a")));
    EXPECT_EQ(reasonAgainst(units, "d"), "column 1: unit 'd' is not known");
}

TEST(UnitDefinitions, ReportAUnitThatIsItself)
{
    UnitSystem units;
    EXPECT_THAT(DefinitionText().unit("a", "a").addTo(units),
                ElementsAre(Problem("cyclic-unit", 2, 14, 1, "unit 'a' is defined by itself: a -> a")));
}

TEST(UnitDefinitions, ReportACycleAtTheDocumentThatClosesIt)
{
    UnitSystem units;
    DefinitionText().mechanics().unit("a", "m").unit("b", "a").addTo(units);

    EXPECT_THAT(DefinitionText().unit("a", "b").addTo(units),
                ElementsAre(Problem("cyclic-unit", 2, 14, 1, "unit 'a' is defined by itself: a -> b -> a")));
}

TEST(UnitDefinitions, FollowALongChainWithoutRunningOutOfStack)
{
    UnitSystem units;
    DefinitionText text;
    text.mechanics();
    for (int i = 9000; i > 0; --i)
        text.unit("u" + std::to_string(i), "u" + std::to_string(i - 1));
    text.unit("u0", "m");

    EXPECT_THAT(text.addTo(units), IsEmpty());
    EXPECT_THAT(units.convert("u9000", "m", 2.0), Optional(2.0));
}

TEST(UnitDefinitions, ShortenTheChainOfALongCycle)
{
    UnitSystem units;
    DefinitionText text;
    for (int i = 0; i < 100; ++i)
        text.unit("u" + std::to_string(i), "u" + std::to_string((i + 1) % 100));

    const Diagnostics problems = text.addTo(units);

    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].message,
              "unit 'u99' is defined by itself: u0 -> u1 -> u2 -> u3 -> u4 -> u5 -> u6 -> u7 -> ...");
}

TEST(UnitDefinitions, ReportASecondBaseUnitOfADimension)
{
    UnitSystem units;
    EXPECT_THAT(DefinitionText().mechanics().section("/BASE UNIT:g", {{"Dimension", "Mass"}}).addTo(units),
                ElementsAre(Problem("duplicate-base-unit", 8, 2, 12,
                                    "the base unit of 'Mass' is 'kg' already; define 'g' as a /UNIT")));
    EXPECT_THAT(units.convert("kg", "kg", 1.0), Optional(1.0));
}

TEST(UnitDefinitions, ReportABaseUnitThatIsDefinedAnew)
{
    UnitSystem units;
    DefinitionText().mechanics().addTo(units);

    EXPECT_THAT(DefinitionText().unit("kg", "m").addTo(units),
                ElementsAre(Problem("duplicate-base-unit", 1, 2, 8,
                                    "'kg' is the base unit of 'Mass' and cannot be defined anew")));
    EXPECT_THAT(
        DefinitionText().section("/BASE UNIT:kg", {{"Dimension", "Mass"}, {"Prefixes", "Yes"}}).addTo(units),
        IsEmpty());
}

TEST(UnitDefinitions, ReportANameThatTwoPrefixesMake)
{
    UnitSystem units;
    EXPECT_THAT(DefinitionText()
                    .mechanics()
                    .section("/PREFIX:d", {{"Factor", "0.1"}})
                    .section("/PREFIX:da", {{"Factor", "10"}})
                    .section("/UNIT:am", {{"Definition", "m"}, {"Prefixes", "Yes"}})
                    .addTo(units),
                ElementsAre(Problem(
                    "ambiguous-unit", 12, 2, 8,
                    "'dam' can be read with a prefix before 'am' and before 'm'; define it as a /UNIT of "
                    "its own")));
}

TEST(UnitDefinitions, ReportPrefixesOfAScaleWithAZeroOfItsOwn)
{
    UnitSystem units;
    EXPECT_THAT(DefinitionText()
                    .section("/BASE UNIT:K", {{"Dimension", "Temperature"}})
                    .section("/UNIT:C", {{"Definition", "K"}, {"Offset", "273.15"}, {"Prefixes", "Yes"}})
                    .addTo(units),
                ElementsAre(Problem("bad-value", 4, 14, 1,
                                    "unit 'C' is a scale with a zero of its own and cannot take prefixes")));
}

TEST(UnitDefinitions, ReportQuantitiesThatAreNotInBaseUnits)
{
    UnitSystem units;
    EXPECT_THAT(
        DefinitionText()
            .mechanics()
            .section("/UNIT:ft", {{"Definition", "m"}, {"Factor", "0.3048"}})
            .section("/QUANTITY:Length", {{"Units", "ft"}})
            .section("/QUANTITY:Speed", {{"Units", "m sec^-1"}})
            .addTo(units),
        ElementsAre(
            Problem("bad-units", 12, 9, 2,
                    "units 'ft' of quantity 'Length' are not base units; expected units of size one, such "
                    "as 'm'"),
            Problem("unknown-unit", 14, 11, 3,
                    "units 'm sec^-1' of quantity 'Speed' are not understood: column 3: unit 'sec' is not "
                    "known")));
    EXPECT_EQ(units.quantityUnits("Length"), nullptr);
}

TEST(UnitDefinitions, AreLimitedInNumber)
{
    UnitSystem units;
    DefinitionText text;
    for (int i = 0; i <= 10000; ++i)
        text.unit("u" + std::to_string(i), "");
    for (int i = 0; i <= 64; ++i)
        text.section("/PREFIX:p" + std::to_string(i) + "_", {{"Factor", "2"}});

    EXPECT_THAT(text.addTo(units),
                ElementsAre(Problem("too-many-units", 20001, 2, 12, "more than 10000 units are defined"),
                            Problem("too-many-prefixes", 20131, 2, 12, "more than 64 prefixes are defined")));
}

/// What is listed of one unit.
auto Unit(const std::string& p_name, bool p_isBase, const std::string& p_definition, double p_factor,
          double p_offset, bool p_takesPrefixes)
{
    return AllOf(Field("name", &UnitEntry::name, p_name), Field("isBase", &UnitEntry::isBase, p_isBase),
                 Field("definition", &UnitEntry::definition, p_definition),
                 Field("factor", &UnitEntry::factor, p_factor), Field("offset", &UnitEntry::offset, p_offset),
                 Field("takesPrefixes", &UnitEntry::takesPrefixes, p_takesPrefixes));
}

TEST(UnitDefinitions, AreListedInTheirOrderAndAsTheLatestDocumentHasThem)
{
    UnitSystem units;
    DefinitionText()
        .section("/BASE UNIT:K", {{"Dimension", "Temperature"}, {"Prefixes", "Yes"}})
        .section("/PREFIX:k", {{"Factor", "1e3"}})
        .section("/UNIT:F", {{"Definition", "R"}, {"Offset", "459.67"}})
        .section("/UNIT:R", {{"Definition", "K"}, {"Factor", "1/2"}})
        .section("/QUANTITY:Temperature", {{"Units", "K"}})
        .section("/QUANTITY:Cooling", {{"Units", "K^-1"}})
        .addTo(units);
    DefinitionText()
        .section("/UNIT:R", {{"Definition", "K"}, {"Factor", "5/9"}})
        .section("/PREFIX:m", {{"Factor", "1/1000"}})
        .addTo(units);

    EXPECT_THAT(units.allUnits(),
                ElementsAre(Unit("K", true, "", 1.0, 0.0, true), Unit("F", false, "R", 1.0, 459.67, false),
                            Unit("R", false, "K", 5.0 / 9.0, 0.0, false)));
    EXPECT_THAT(units.allPrefixes(),
                ElementsAre(AllOf(Field(&PrefixEntry::name, "k"), Field(&PrefixEntry::factor, 1000.0)),
                            AllOf(Field(&PrefixEntry::name, "m"), Field(&PrefixEntry::factor, 0.001))));
    EXPECT_THAT(units.allQuantities(), ElementsAre("Temperature", "Cooling"));
}

TEST(UnitDefinitions, AreNotListedWhenTheyAreWrongOrMadeOfWhatIsWrong)
{
    UnitSystem units;
    DefinitionText()
        .section("/BASE UNIT:m", {{"Dimension", "Length"}})
        .section("/UNIT:ft", {{"Definition", "m"}, {"Factor", "-1"}})
        .unit("acre", "ft^2")
        .unit("stride", "pace")
        .section("/QUANTITY:Height", {{"Units", "pace"}})
        .addTo(units);

    EXPECT_THAT(units.allUnits(), ElementsAre(Field(&UnitEntry::name, "m")));
    EXPECT_THAT(units.allQuantities(), IsEmpty());
}

}
}    // namespace qen::standalone::test
