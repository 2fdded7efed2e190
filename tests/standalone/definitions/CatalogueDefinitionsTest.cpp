#include "definitions/CatalogueDefinitions.h"

#include "qcl/QclReader.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr const char* k_units = R"([/BASE UNIT:kg]
Dimension = Mass
[/BASE UNIT:m]
Dimension = Length
[/BASE UNIT:s]
Dimension = Time
[/QUANTITY:Frequency]
Units = s^-1
)";

/// Loads one file's text into the stores.
struct Loaded {
    explicit Loaded(const std::string& p_text) : document(readQclText("VARIABLES.qcl", p_text))
    {
        UnitSystem units;
        Diagnostics unitProblems;
        units.addDefinitions(readQclText("UNITS.qcl", k_units), unitProblems);
        World world;
        world.units = &units;
        const WorldScope scope(world);

        for (const Diagnostic& problem : document.problems)
            problems.push_back(toFinding(problem, document));
        CatalogueDefinitions definitions;
        definitions.add(document);
        definitions.load(variables, callbacks, problems);
    }

    QclDocument document;
    PreVariableDefStore variables;
    ExprCBFuncStore callbacks;
    std::vector<Finding> problems;
};

auto problemAt(std::uint32_t p_line, std::uint32_t p_column, Severity p_severity,
               const std::string& p_message)
{
    return AllOf(Field(&Finding::line, p_line), Field(&Finding::column, p_column),
                 Field(&Finding::severity, p_severity), Field(&Finding::message, p_message),
                 Field(&Finding::file, "VARIABLES.qcl"));
}

TEST(CatalogueDefinitions, OfVariablesGoIntoTheStoreInTheOrderOfTheFile)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\nLong Name = Static Pressure\n"
                        "[/VARIABLE:Density]\nTensor Type = SCALAR\n");

    EXPECT_THAT(loaded.problems, IsEmpty());
    EXPECT_THAT(loaded.variables.getAllVariableShortNames(), ElementsAre("Pressure", "Density"));
    EXPECT_TRUE(loaded.variables.hasVariable("Static Pressure"));
}

TEST(CatalogueDefinitions, OfOperatorsGoIntoTheStore)
{
    const Loaded loaded("[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\nLong Name = Time Rate\n"
                        "Dimensions Modifier = Frequency\nQEL Availability = GENERAL, CALLBACK\n");

    EXPECT_THAT(loaded.problems, IsEmpty());
    EXPECT_TRUE(loaded.variables.hasOperator("Rate"));
    EXPECT_EQ(loaded.variables.getOperatorAlias("Rate"), "Time Rate");
    EXPECT_EQ(loaded.variables.getOperatorDimensionModifier("Time Rate"), "[s^-1]");
    EXPECT_TRUE(loaded.variables.doesOperatorHaveAvailability("Rate", "CALLBACK"));
    EXPECT_FALSE(loaded.variables.hasVariable("Rate"));
}

TEST(CatalogueDefinitions, OfCallbackFunctionsGoIntoTheirStore)
{
    const Loaded loaded("[/CALLBACK FUNCTION:areaIntegral]\nResult Units = [m^2]\nNumber of Arguments = 1\n"
                        "CallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Surface, Point\n");

    EXPECT_THAT(loaded.problems, IsEmpty());
    EXPECT_THAT(loaded.callbacks.getCBNames(), ElementsAre("areaIntegral"));
    EXPECT_EQ(loaded.callbacks.getNumArgs("areaIntegral"), 1);
    EXPECT_TRUE(loaded.callbacks.isAllowedLocatorDimension("areaIntegral", LocatorDimension::Point));
}

TEST(CatalogueDefinitions, OfTheThreeKindsMayHaveTheSameName)
{
    const Loaded loaded("[/VARIABLE:force]\nTensor Type = SCALAR\n"
                        "[/VARIABLE OPERATOR:force]\nTensor Type = SCALAR\nLong Name = Forcing\n"
                        "[/CALLBACK FUNCTION:force]\nResult Units = [kg m s^-2]\nNumber of Arguments = 0\n"
                        "CallBack Type = Scalar\nTensor Type = VECTOR\nLocator Dimension = Surface\n");

    EXPECT_THAT(loaded.problems, IsEmpty());
    EXPECT_TRUE(loaded.variables.hasVariable("force"));
    EXPECT_TRUE(loaded.variables.hasOperator("force"));
    EXPECT_TRUE(loaded.callbacks.allowsVectorComponents("force"));
}

struct BrokenDefinition {
    const char* name;
    const char* text;
    std::uint32_t line;
    std::uint32_t column;
    const char* message;
};

void PrintTo(const BrokenDefinition& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

class BrokenDefinitions : public testing::TestWithParam<BrokenDefinition> {};

TEST_P(BrokenDefinitions, AreErrorsAtTheirPlaceAndTheNextIsLoaded)
{
    const BrokenDefinition& broken = GetParam();

    const Loaded loaded(std::string(broken.text) + "[/VARIABLE:Next]\nTensor Type = SCALAR\n");

    EXPECT_THAT(loaded.problems,
                ElementsAre(problemAt(broken.line, broken.column, Severity::Error, broken.message)));
    EXPECT_TRUE(loaded.variables.hasVariable("Next"));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Variables, BrokenDefinitions, testing::Values(
    BrokenDefinition {"NameOfAnother", "[/VARIABLE:Pressure]\nTensor Type = SCALAR\n\n  [/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Pressure\n",
        6, 13, "Duplicate definition of variable 'Pressure'."},
    BrokenDefinition {"ShortNamesOfComponents", "[/VARIABLE:S]\nTensor Type = SYMTEN2\nComponent Short Names = a, b, c, d, e\nComponent Long Names = aa, bb\n",
        3, 25, "Error in 'Component Short Names' definition for variable 'S'. There are 5 short component names instead of 6."},
    BrokenDefinition {"LongNamesOfComponents", "[/VARIABLE:V]\nTensor Type = VECTOR\nComponent Short Names = a, b, c\nComponent Long Names = aa, bb\n",
        4, 24, "Error in 'Component Long Names' definition for variable 'V'. There are 2 long components names instead of 3."},
    BrokenDefinition {"MisspeltKey", "[/VARIABLE:Pressure]\nTensor Type = SCALAR\n  Long Nam = Static\n",
        3, 3, "Unknown key 'Long Nam' in the definition '/VARIABLE:Pressure'. Did you mean 'Long Name'?"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

TEST(BrokenDefinitions, ThatLackAKeyAreToldAtTheirHeaderWhateverElseTheMessageQuotes)
{
    // Given a message that names the missing key and quotes the text of another one
    const Loaded loaded("[/VARIABLE:B]\nTensor Type = SCALAR\nGeneral Availability = QEL\n"
                        "Output to Postprocessor = True\n");

    ASSERT_EQ(loaded.problems.size(), 1U);
    EXPECT_EQ(loaded.problems[0].line, 1U);
    EXPECT_THAT(loaded.problems[0].message, testing::HasSubstr("A value of \"True\" has been assumed"));
}

INSTANTIATE_TEST_SUITE_P(Operators, BrokenDefinitions, testing::Values(
    BrokenDefinition {"NoTensorType", "[/VARIABLE OPERATOR:Rate]\nLong Name = Time Rate\n",
        1, 2, "The Variable Operator named 'Rate' does not have a 'Tensor Type' parameter"},
    BrokenDefinition {"UnknownTensorType", "[/VARIABLE OPERATOR:Rate]\nLong Name = Time Rate\nTensor Type = SYMTEN2\n",
        3, 15, "The Variable Operator named 'Rate' has a 'Tensor Type' of unsupported type 'SYMTEN2'."},
    BrokenDefinition {"NoLongName", "[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\n",
        1, 2, "The Variable Operator named 'Rate' does not have a 'Long Name' parameter"},
    BrokenDefinition {"ComponentCount", "[/VARIABLE OPERATOR:Grad]\nTensor Type = VECTOR\nLong Name = Gradient\nComponent Short Names = a, b\nComponent Long Names = aa, bb, cc\n",
        4, 25, "The Variable Operator named 'Grad' has an invalid 'Component Short Names' parameter"},
    BrokenDefinition {"SameNameTwice", "[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\nLong Name = Rate\n",
        1, 2, "Variable Operator 'Rate' already exists."},
    BrokenDefinition {"KeyOfAVariable", "[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\nLong Name = Time Rate\nQuantity = Frequency\n",
        4, 1, "Unknown key 'Quantity' in the definition '/VARIABLE OPERATOR:Rate'."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(CallbackFunctions, BrokenDefinitions, testing::Values(
    BrokenDefinition {"MissingKey", "[/CALLBACK FUNCTION:area]\nResult Units = [m^2]\n",
        1, 2, "Missing parameter 'Number of Arguments' in definition of callback function 'area'."},
    BrokenDefinition {"UnitsWithoutBrackets", "[/CALLBACK FUNCTION:area]\nResult Units = m^2\n",
        2, 16, "Invalid units string 'm^2' read in definition of callback function 'area'."},
    BrokenDefinition {"NoNumber", "[/CALLBACK FUNCTION:area]\nResult Units = [m^2]\nNumber of Arguments = none\n",
        3, 23, "Invalid value ('none') of 'Number of Arguments' read in definition of callback function 'area'."},
    BrokenDefinition {"MisspeltKey", "[/CALLBACK FUNCTION:area]\nResult Units = [m^2]\nNumber of Arguments = 1\nCallback Type = Field\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Point\n",
        4, 1, "Unknown key 'Callback Type' in the definition '/CALLBACK FUNCTION:area'. Did you mean 'CallBack Type'?"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(Sections, BrokenDefinitions, testing::Values(
    BrokenDefinition {"OfNoKind", "[/VARIABEL:Pressure]\nTensor Type = SCALAR\n",
        1, 2, "'/VARIABEL:Pressure' defines nothing that is known here. Expected '/VARIABLE:name', '/VARIABLE OPERATOR:name' or '/CALLBACK FUNCTION:name'."},
    BrokenDefinition {"WithoutAName", "[/CALLBACK FUNCTION]\nTensor Type = SCALAR\n",
        1, 2, "'/CALLBACK FUNCTION' defines nothing that is known here. Expected '/VARIABLE:name', '/VARIABLE OPERATOR:name' or '/CALLBACK FUNCTION:name'."},
    BrokenDefinition {"BelowAnother", "[/VARIABLE:Pressure/VARIABLE:Gauge]\nTensor Type = SCALAR\n",
        1, 2, "'/VARIABLE:Pressure/VARIABLE:Gauge' defines nothing that is known here. Expected '/VARIABLE:name', '/VARIABLE OPERATOR:name' or '/CALLBACK FUNCTION:name'."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(BrokenDefinitions, WithUnitsThatAreNoneAreErrorsOfTheUnits)
{
    const Loaded loaded("[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\nLong Name = Time Rate\n"
                        "Dimensions Modifier = [parsec]\n"
                        "[/VARIABLE OPERATOR:Spin]\nTensor Type = SCALAR\nLong Name = Spinning\n"
                        "Dimensions Modifier = Parity\n"
                        "[/CALLBACK FUNCTION:area]\nResult Units = [acres]\nNumber of Arguments = 0\n");

    ASSERT_EQ(loaded.problems.size(), 3U);
    EXPECT_EQ(loaded.problems[0].line, 4U);
    EXPECT_THAT(loaded.problems[0].message, testing::HasSubstr("'parsec'"));
    EXPECT_EQ(loaded.problems[1].line, 8U);
    EXPECT_THAT(loaded.problems[1].message, testing::HasSubstr("'Parity'"));
    EXPECT_EQ(loaded.problems[2].line, 10U);
    EXPECT_THAT(loaded.problems[2].message, testing::HasSubstr("'acres'"));
}

TEST(BrokenDefinitions, AtTheEndOfAFileNameWhatIsMissing)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\n"
                        "[/CALLBACK FUNCTION:area]\nResult Units = [m^2]\nNumber of Arg");

    EXPECT_THAT(loaded.problems,
                ElementsAre(problemAt(5, 1, Severity::Error,
                                      "'Number of Arg' is no line of a section. Expected 'name = value', a "
                                      "section header '[/TYPE:name]', 'include \"file.qcl\"' or a comment "
                                      "that begins with '#'."),
                            problemAt(3, 2, Severity::Error,
                                      "Missing parameter 'Number of Arguments' in definition of callback "
                                      "function 'area'.")));
}

TEST(BrokenDefinitions, AreReportedInTheOrderOfTheText)
{
    const Loaded loaded("[/CALLBACK FUNCTION:area]\nResult Units = m^2\n"
                        "[/VARIABLE:P]\nTensor Type = SCALAR\nLong = Pressure\n"
                        "[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\n"
                        "[/VARIABLE:V]\nTensor Type = VECTOR\n");

    std::vector<std::uint32_t> lines;
    for (const Finding& problem : loaded.problems)
        lines.push_back(problem.line);
    EXPECT_THAT(lines, ElementsAre(2, 5, 6, 8));
}

TEST(CatalogueDefinitions, ShowWhatTheStoreReportsAtTheKeyOrTheSection)
{
    const Loaded loaded("[/VARIABLE:Pressure]\nTensor Type = SCALAR\nGeneral Availability = QEL\n"
                        "[/VARIABLE:Spin]\nTensor Type = Pseudovector\n");

    EXPECT_THAT(
        loaded.problems,
        ElementsAre(
            problemAt(1, 2, Severity::Warning,
                      "Error in definition of variable 'Pressure'.\nThis variable has QEL availability "
                      "but does not have a \"Field Variable\" parameter.\nA value of \"True\" has been "
                      "assumed but this may not be correct."),
            problemAt(5, 15, Severity::Warning,
                      "Error in definition of variable 'Spin'.\nThis variable has an unknown tensor "
                      "type 'Pseudovector' and will be ignored.")));
}

TEST(CatalogueDefinitions, OfALaterFileReplaceThoseOfAnEarlierOne)
{
    const QclDocument first =
        readQclText("a.qcl", "[/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Pressure\n"
                             "[/VARIABLE OPERATOR:P]\nTensor Type = SCALAR\nLong Name = Peak\n");
    const QclDocument second =
        readQclText("b.qcl", "[/VARIABLE:P]\nTensor Type = SCALAR\nLong Name = Static Pressure\n");
    CatalogueDefinitions definitions;
    std::vector<Finding> problems;

    definitions.add(first);
    definitions.add(second);
    PreVariableDefStore variables;
    ExprCBFuncStore callbacks;
    definitions.load(variables, callbacks, problems);

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_TRUE(variables.hasVariable("Static Pressure"));
    EXPECT_FALSE(variables.hasVariable("Pressure"));
    EXPECT_TRUE(variables.hasOperator("Peak"));    // another kind
}

TEST(CatalogueDefinitions, AreListedAsTheyCount)
{
    const QclDocument first = readQclText("a.qcl", "[/VARIABLE:P]\nLong Name = Pressure\n[/VARIABLE:Q]\n"
                                                   "Variable Scope = PHASE , GLOBAL\n[/NOTHING:R]\n");
    const QclDocument second = readQclText("b.qcl", "[/VARIABLE:P]\nLong Name = Static Pressure\n");
    CatalogueDefinitions definitions;
    definitions.add(first);
    definitions.add(second);

    const std::vector<CatalogueDefinition> all = definitions.all();

    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].name, "Q");
    EXPECT_THAT(all[0].list("Variable Scope"), ElementsAre("PHASE", "GLOBAL"));
    EXPECT_THAT(all[0].list("Physical Availability"), IsEmpty());
    EXPECT_EQ(all[1].text("Long Name"), "Static Pressure");
    EXPECT_EQ(all[1].text("Quantity"), "");
}

TEST(CatalogueDefinitions, FindPlacesOfKeysForThoseWhoJudgeThem)
{
    const QclDocument document = readQclText("a.qcl", "[/VARIABLE:P]\nQuantity  =  Presure\n");
    CatalogueDefinitions definitions;
    definitions.add(document);
    const CatalogueDefinition definition = definitions.all().at(0);

    const Finding atKey = definition.findingAt("Quantity", Severity::Warning, "some-rule", "Why.");
    EXPECT_EQ(atKey.line, 2U);
    EXPECT_EQ(atKey.column, 14U);
    EXPECT_EQ(atKey.length, 7U);
    EXPECT_EQ(atKey.lineText, "Quantity  =  Presure");
    EXPECT_EQ(atKey.identifier, "some-rule");

    const Finding atHeader = definition.findingAt("Status", Severity::Warning, "some-rule", "Why.");
    EXPECT_EQ(atHeader.line, 1U);
    EXPECT_EQ(atHeader.column, 2U);
}

}    // namespace
}    // namespace qen::standalone
