#include "CallbackTest.h"

#include "DataError.h"
#include "StringUtilities.h"
#include "UnitsError.h"

#include "support/HostTextScript.h"

#include <cstdint>
#include <locale>
#include <ostream>
#include <string>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

class CallbackDefinition : public CallbackTest {};

TEST_F(CallbackDefinition, SaysWhatAFunctionYieldsAndWhere)
{
    m_store.addCBDefinition("force", {{"Result Units", "[kg m s^-2]"},
                                      {"Number of Arguments", "0"},
                                      {"CallBack Type", "Scalar"},
                                      {"Tensor Type", "VECTOR"},
                                      {"Locator Dimension", "Surface"}});

    const ExprCBFuncStore::CBDef& force = m_store.findCBDef("force");
    EXPECT_EQ(UnitsTable::baseUnits(force.resultDim), "kg m s^-2");
    EXPECT_EQ(force.numArgs, 0);
    EXPECT_FALSE(force.fieldValued);
    EXPECT_TRUE(force.vectorComponentsAllowed);
    EXPECT_EQ(force.locatorDimensions.to_string(), "01000");
}

TEST_F(CallbackDefinition, MayHaveOtherKeys)
{
    m_store.addCBDefinition("average", average({{"Long Name", "Average"}, {"result units", "m"}, {"", ""}}));

    EXPECT_EQ(m_store.getNumArgs("average"), 1);
}

// Result units.

TEST_F(CallbackDefinition, GivesTheDimensionsOfTheUnitsInBrackets)
{
    m_store.addCBDefinition("speed", average({{"Result Units", "[m s^-1]"}}));

    EXPECT_EQ(resultUnits("speed"), "m s^-1");
    EXPECT_THAT(m_host.calls(), ElementsAre("units.dimsFromUnits(m s^-1)"));
}

TEST_F(CallbackDefinition, PassesTheEmptyTextOfEmptyBracketsToTheUnits)
{
    m_store.addCBDefinition("ratio", average({{"Result Units", "[]"}}));

    EXPECT_EQ(resultUnits("ratio"), "");
    EXPECT_THAT(m_host.calls(), ElementsAre("units.dimsFromUnits()"));
}

TEST_F(CallbackDefinition, PassesBlanksInBracketsAsTheyAre)
{
    m_store.addCBDefinition("ratio", average({{"Result Units", "[  m ]"}}));

    EXPECT_THAT(m_host.calls(), ElementsAre("units.dimsFromUnits(  m )"));
}

TEST_F(CallbackDefinition, IgnoresWhatStandsAroundTheBrackets)
{
    m_store.addCBDefinition("length", average({{"Result Units", "in [m], not [s]"}}));

    EXPECT_EQ(resultUnits("length"), "m");
}

TEST_F(CallbackDefinition, TakesTheFirstBracketOfEachKind)
{
    UnitsMeaning bracketed;
    bracketed.dims[1] = 2.0F;
    m_host.units("[m", bracketed);

    m_store.addCBDefinition("area", average({{"Result Units", "[[m]]"}}));

    EXPECT_EQ(resultUnits("area"), "m^2");
    EXPECT_THAT(m_host.calls(), ElementsAre("units.dimsFromUnits([m)"));
}

TEST_F(CallbackDefinition, RefusesUnitsWithoutBrackets)
{
    for (const char* text : {"m s^-1", "", "[m s^-1", "m s^-1]", "]m s^-1[", "][m s^-1]", "[", "]", "(m)"})
        EXPECT_THAT(thrownBy<data::error>([&] {
                        m_store.addCBDefinition("speed", average({{"Result Units", text}}));
                    }),
                    Optional(IsThrownBy("addCBDefinition",
                                        "Invalid units string '" + std::string(text) +
                                            "' read in definition of callback function 'speed'.")));

    EXPECT_THAT(m_host.calls(), IsEmpty());
    EXPECT_THAT(m_store.getCBNames(), IsEmpty());
}

TEST_F(CallbackDefinition, LetsTheErrorOfTheUnitsPass)
{
    const auto thrown = thrownBy<units::error>([&] {
        m_store.addCBDefinition("speed",
                                averageWithout("Number of Arguments", {{"Result Units", "[knots]"}}));
    });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->errorMessage(), "UnitsConverter::dimsFromUnits: No such units: 'knots'.");
    EXPECT_THAT(m_store.getCBNames(), IsEmpty());
}

// Number of arguments.

struct NumberCase {
    const char* name;
    const char* text;
    std::int32_t number;
};

void PrintTo(const NumberCase& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

class CallbackNumberOfArguments : public CallbackTest, public testing::WithParamInterface<NumberCase> {};

TEST_P(CallbackNumberOfArguments, IsTheIntegerThatItsTextBeginsWith)
{
    m_store.addCBDefinition("average", average({{"Number of Arguments", GetParam().text}}));

    EXPECT_EQ(m_store.getNumArgs("average"), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    All, CallbackNumberOfArguments,
    testing::Values(NumberCase {"Plain", "2", 2}, NumberCase {"Zero", "0", 0},
                    NumberCase {"Negative", "-1", -1}, NumberCase {"WithSign", "+3", 3},
                    NumberCase {"BlanksBefore", " \t 2", 2}, NumberCase {"WordsBehind", "2 or more", 2},
                    NumberCase {"LetterBehind", "2x", 2}, NumberCase {"Fraction", "2.5", 2},
                    NumberCase {"Exponent", "1e3", 1}, NumberCase {"LeadingZeroIsNotOctal", "010", 10},
                    NumberCase {"HexadecimalIsItsZero", "0x10", 0}, NumberCase {"List", "1,000", 1},
                    NumberCase {"Largest", "2147483647", 2147483647},
                    NumberCase {"Smallest", "-2147483648", -2147483647 - 1}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(CallbackDefinition, RefusesATextThatDoesNotBeginWithAnInteger)
{
    for (const char* text : {"", " ", "two", "-", ".5", "- 1", "2147483648", "-2147483649"})
        EXPECT_THAT(thrownBy<data::error>([&] {
                        m_store.addCBDefinition("average", average({{"Number of Arguments", text}}));
                    }),
                    Optional(IsThrownBy("addCBDefinition",
                                        "Invalid value ('" + std::string(text) +
                                            "') of 'Number of Arguments' read in definition of callback "
                                            "function 'average'.")));
    EXPECT_THAT(m_store.getCBNames(), IsEmpty());
}

TEST_F(CallbackDefinition, ReadsTheNumberOfArgumentsAlikeInEveryLocale)
{
    struct DottedThousands : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DottedThousands));

    m_store.addCBDefinition("average", average({{"Number of Arguments", "2.5"}}));
    m_store.addCBDefinition("sum", average({{"Number of Arguments", "1.000"}}));
    std::locale::global(before);

    EXPECT_EQ(m_store.getNumArgs("average"), 2);
    EXPECT_EQ(m_store.getNumArgs("sum"), 1);
}

// Kind and tensor type.

TEST_F(CallbackDefinition, IsFieldValuedOnlyWhenItSaysExactlyField)
{
    m_store.addCBDefinition("gradient", average({{"CallBack Type", "Field"}}));
    EXPECT_TRUE(m_store.isFieldValued("gradient"));

    for (const char* text : {"Scalar", "field", "FIELD", "Field ", "", "Any Other Text"})
    {
        m_store.addCBDefinition(std::string("not ") + text, average({{"CallBack Type", text}}));
        EXPECT_FALSE(m_store.isFieldValued(std::string("not ") + text)) << text;
    }
}

TEST_F(CallbackDefinition, AllowsComponentsOnlyWhenItSaysExactlyVector)
{
    m_store.addCBDefinition("force", average({{"Tensor Type", "VECTOR"}}));
    EXPECT_TRUE(m_store.allowsVectorComponents("force"));

    for (const char* text : {"SCALAR", "vector", "Vector", " VECTOR", "SYMTEN2", ""})
    {
        m_store.addCBDefinition(std::string("not ") + text, average({{"Tensor Type", text}}));
        EXPECT_FALSE(m_store.allowsVectorComponents(std::string("not ") + text)) << text;
    }
}

// Locator dimensions.

struct LocatorCase {
    const char* name;
    const char* text;
    const char* accepted;    // bits 4 to 0
};

void PrintTo(const LocatorCase& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

class CallbackLocatorList : public CallbackTest, public testing::WithParamInterface<LocatorCase> {};

TEST_P(CallbackLocatorList, SetsTheBitsOfTheWordsItKnows)
{
    m_store.addCBDefinition("average", average({{"Locator Dimension", GetParam().text}}));

    EXPECT_EQ(m_store.findCBDef("average").locatorDimensions.to_string(), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(
    All, CallbackLocatorList,
    testing::Values(LocatorCase {"Point", "Point", "00010"}, LocatorCase {"Surface", "Surface", "01000"},
                    LocatorCase {"Volume", "Volume", "10000"},
                    LocatorCase {"AllThree", "Point,Surface,Volume", "11010"},
                    LocatorCase {"InAnyOrder", "Volume,Point", "10010"},
                    LocatorCase {"TwiceTheSame", "Point,Point", "00010"}, LocatorCase {"Empty", "", "00000"},
                    LocatorCase {"Line", "Line", "00000"}, LocatorCase {"Number", "3", "00000"},
                    LocatorCase {"LowerCase", "point,VOLUME", "00000"},
                    LocatorCase {"UnknownAmongKnown", "Line,Surface,,Face", "01000"},
                    LocatorCase {"WordsInOnePiece", "Point Volume", "00000"}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(CallbackDefinition, MatchesAPieceBehindABlankOnlyBecauseTheHostTrimsIt)
{
    ASSERT_THAT(StringUtilities::stringToVector("Point, Volume", ','), ElementsAre("Point", "Volume"));

    m_store.addCBDefinition("probe", average({{"Locator Dimension", "Point, Volume"}}));

    EXPECT_EQ(m_store.findCBDef("probe").locatorDimensions.to_string(), "10010");
}

TEST_F(CallbackDefinition, DoesNotTrimThePiecesItself)
{
    support::HostTextScript texts;
    texts.splitsWithoutTrimming();

    m_store.addCBDefinition("probe", average({{"Locator Dimension", "Point, Volume"}}));

    EXPECT_EQ(m_store.findCBDef("probe").locatorDimensions.to_string(), "00010");
}

// What is missing.

class CallbackDefinitionWithout : public CallbackTest, public testing::WithParamInterface<const char*> {};

TEST_P(CallbackDefinitionWithout, ARequiredKeyIsRefused)
{
    const std::string key = GetParam();

    EXPECT_THAT(
        thrownBy<data::error>([&] { m_store.addCBDefinition("average", averageWithout(key)); }),
        Optional(IsThrownBy("addCBDefinition", "Missing parameter '" + key +
                                                   "' in definition of callback function 'average'.")));
    EXPECT_THAT(m_store.getCBNames(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, CallbackDefinitionWithout,
                         testing::Values("Result Units", "Number of Arguments", "CallBack Type",
                                         "Tensor Type", "Locator Dimension"),
                         [](const auto& p_case) { return StringUtilities::removeWhitespace(p_case.param); });

TEST_F(CallbackDefinition, SpellsItsTypeWithACapitalB)
{
    EXPECT_THAT(
        thrownBy<data::error>([&] {
            m_store.addCBDefinition("average", averageWithout("CallBack Type", {{"Callback Type", "Field"}}));
        }),
        Optional(IsThrownBy("addCBDefinition",
                            "Missing parameter 'CallBack Type' in definition of callback function "
                            "'average'.")));
}

TEST_F(CallbackDefinition, ReportsItsFirstFaultInReadingOrder)
{
    // Given a definition of which nothing is right
    Definition definition;
    const auto fault = [&] {
        const auto thrown = thrownBy<data::error>([&] { m_store.addCBDefinition("f", definition); });
        return thrown ? thrown->getMessage() : "";
    };

    // Then its faults come one behind the other as each is put right
    EXPECT_EQ(fault(), "Missing parameter 'Result Units' in definition of callback function 'f'.");
    definition["Result Units"] = "m";
    EXPECT_EQ(fault(), "Invalid units string 'm' read in definition of callback function 'f'.");
    definition["Result Units"] = "[m]";
    EXPECT_EQ(fault(), "Missing parameter 'Number of Arguments' in definition of callback function 'f'.");
    definition["Number of Arguments"] = "one";
    EXPECT_EQ(fault(),
              "Invalid value ('one') of 'Number of Arguments' read in definition of callback function 'f'.");
    definition["Number of Arguments"] = "1";
    EXPECT_EQ(fault(), "Missing parameter 'CallBack Type' in definition of callback function 'f'.");
    definition["CallBack Type"] = "Scalar";
    EXPECT_EQ(fault(), "Missing parameter 'Tensor Type' in definition of callback function 'f'.");
    definition["Tensor Type"] = "SCALAR";
    EXPECT_EQ(fault(), "Missing parameter 'Locator Dimension' in definition of callback function 'f'.");
    definition["Locator Dimension"] = "Point";
    m_store.addCBDefinition("f", definition);
    EXPECT_THAT(m_store.getCBNames(), ElementsAre("f"));
}

TEST_F(CallbackDefinition, OfANameThatIsThereAlreadyIsDiscarded)
{
    m_store.addCBDefinition("probe", average({{"Result Units", "[m]"}, {"Locator Dimension", "Point"}}));

    m_store.addCBDefinition("probe", average({{"Result Units", "[s]"},
                                              {"Number of Arguments", "7"},
                                              {"CallBack Type", "Field"},
                                              {"Tensor Type", "VECTOR"},
                                              {"Locator Dimension", "Volume"}}));

    EXPECT_THAT(m_store.getCBNames(), ElementsAre("probe"));
    EXPECT_EQ(resultUnits("probe"), "m");
    EXPECT_EQ(m_store.getNumArgs("probe"), 1);
    EXPECT_FALSE(m_store.isFieldValued("probe"));
    EXPECT_FALSE(m_store.allowsVectorComponents("probe"));
    EXPECT_EQ(m_store.findCBDef("probe").locatorDimensions.to_string(), "00010");
}

TEST_F(CallbackDefinition, IsReadAlsoWhenItsNameIsThereAlready)
{
    m_store.addCBDefinition("probe", average());

    EXPECT_THAT(thrownBy<data::error>([&] { m_store.addCBDefinition("probe", {}); }),
                Optional(IsThrownBy("addCBDefinition", "Missing parameter 'Result Units' in definition of "
                                                       "callback function 'probe'.")));
}

TEST_F(CallbackDefinition, MayHaveAnyName)
{
    for (const char* name : {"", " ", "Probe", "probe", "two words", "%2"})
    {
        m_store.addCBDefinition(name, average());
        EXPECT_EQ(m_store.getNumArgs(name), 1) << name;
    }
}

TEST_F(CallbackDefinition, MayBeGivenANameOfTheListThatItEmpties)
{
    m_store.addCBDefinition("a name that is too long to be kept within the text object", average());

    m_store.addCBDefinition(m_store.getCBNames().front(), average());

    EXPECT_THAT(m_store.getCBNames(),
                ElementsAre("a name that is too long to be kept within the text object"));
}

}    // namespace
