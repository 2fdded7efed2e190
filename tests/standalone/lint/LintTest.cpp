#include "lint/Lint.h"

#include "definitions/Definitions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qen::standalone {

void PrintTo(const Finding& p_finding, std::ostream* p_stream)
{
    *p_stream << p_finding.file << ":" << p_finding.line << ":" << p_finding.column << ": "
              << p_finding.message << " [" << p_finding.identifier << "]";
}

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Field;
using testing::IsEmpty;
using testing::Truly;

namespace fs = std::filesystem;

const std::string k_clean = QEN_SOURCE_FOLDER "/tests/standalone/lint/data/clean";
const std::string k_shipped = QEN_SOURCE_FOLDER "/definitions";

/// A folder for the files of one test; gone with the object.
class DefinitionFolder {
public:
    DefinitionFolder()
    {
        m_path = (fs::temp_directory_path() / "qen-lint-XXXXXX").string();
        if (!mkdtemp(m_path.data()))
            throw std::runtime_error("cannot make a folder like " + m_path);
    }

    ~DefinitionFolder()
    {
        std::error_code error;
        fs::remove_all(m_path, error);
    }

    DefinitionFolder(const DefinitionFolder&) = delete;
    DefinitionFolder& operator=(const DefinitionFolder&) = delete;

    const std::string& path() const { return m_path; }

    void write(const std::string& p_file, const std::string& p_text) const
    {
        std::ofstream(m_path + "/" + p_file, std::ios::binary) << p_text;
    }

private:
    std::string m_path;
};

/// A text that adds to the clean definitions, and the one finding that it raises.
struct LintCase {
    const char* name;
    const char* identifier;
    Severity severity;
    const char* file;
    const char* text;
    std::uint32_t line;
    std::uint32_t column;
    const char* pointsAt;
    const char* message;
};

void PrintTo(const LintCase& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

/// What a finding points at, on its line.
std::string pointedAt(const Finding& p_finding)
{
    return p_finding.line == 0 ? std::string()
                               : p_finding.lineText.substr(p_finding.column - 1, p_finding.length);
}

auto isFinding(const LintCase& p_case)
{
    const std::string pointsAt = p_case.pointsAt;
    return AllOf(Field(&Finding::identifier, p_case.identifier), Field(&Finding::severity, p_case.severity),
                 Field(&Finding::file, EndsWith(std::string("/") + p_case.file)),
                 Field(&Finding::line, p_case.line), Field(&Finding::column, p_case.column),
                 Field(&Finding::message, p_case.message),
                 Truly([=](const Finding& p_finding) { return pointedAt(p_finding) == pointsAt; }));
}

class LintRaises : public testing::TestWithParam<LintCase> {};

TEST_P(LintRaises, OneFindingAtItsPlace)
{
    // Given definitions that load without a problem
    const DefinitionFolder folder;
    folder.write(GetParam().file, GetParam().text);
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    // Then the lint finds this and nothing else
    EXPECT_THAT(lintDefinitions(definitions), ElementsAre(isFinding(GetParam())));
}

constexpr Severity k_error = Severity::Error;
constexpr Severity k_warning = Severity::Warning;
constexpr const char* k_variables = "VARIABLES.qcl";
constexpr const char* k_rules = "RULES.qcl";

// clang-format off
const LintCase k_cases[] {
    // Variables
    {"ScopeThatIsMisspelt", "lint-unknown-scope", k_error, k_variables,
     "[/VARIABLE:T]\nQuantity = Length\nTensor Type = SCALAR\nGeneral Availability = QEL\nVariable Scope = PHASE, GLOBLA\nField Variable = Yes\n",
     5, 25, "GLOBLA", "No check knows the scope 'GLOBLA' of variable 'T'. Did you mean 'GLOBAL'?"},
    {"ScopeThatIsLikeNone", "lint-unknown-scope", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nVariable Scope = Everywhere\n",
     3, 18, "Everywhere", "No check knows the scope 'Everywhere' of variable 'T'. Expected 'GLOBAL', 'PHASE', 'PARTICLE', 'MUSIG FLUID', 'FLUID PAIR', 'COMPONENT', 'REACTION', 'PARTICLE COMPONENT', 'REACFLMLET', 'REACSNGL' or 'SIZE GROUP'."},
    {"NoScope", "lint-missing-scope", k_error, k_variables,
     "\n[/VARIABLE:T]\nQuantity = Length\nTensor Type = SCALAR\nGeneral Availability = RESULTS, QEL\nField Variable = Yes\n",
     2, 12, "T", "The variable 'T' may be used in expressions but has no 'Variable Scope', so that every use is refused. Expected 'GLOBAL', 'PHASE', 'PARTICLE', 'MUSIG FLUID', 'FLUID PAIR', 'COMPONENT', 'REACTION', 'PARTICLE COMPONENT', 'REACFLMLET', 'REACSNGL' or 'SIZE GROUP'."},
    {"NoQuantity", "lint-missing-quantity", k_warning, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nGeneral Availability = QEL\nVariable Scope = GLOBAL\nField Variable = Yes\n",
     1, 12, "T", "The variable 'T' may be used in expressions but has no 'Quantity', so that it counts as dimensionless. Expected a quantity of the units, one without units if that is meant."},
    {"QuantityThatIsMisspelt", "lint-unknown-quantity", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nQuantity = Presure\n",
     3, 12, "Presure", "The quantity 'Presure' of variable 'T' is not among the definitions of units. Did you mean 'Pressure'?"},
    {"QuantityThatIsLikeNone", "lint-unknown-quantity", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nQuantity = Enthalpy of Mixing\n",
     3, 12, "Enthalpy of Mixing", "The quantity 'Enthalpy of Mixing' of variable 'T' is not among the definitions of units."},
    {"FieldVariableThatIsMisspelt", "lint-field-variable-text", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nField Variable = Treu\n",
     3, 18, "Treu", "The 'Field Variable' 'Treu' of variable 'T' counts as 'No'. Did you mean 'True'?"},
    {"FieldVariableThatIsLikeNone", "lint-field-variable-text", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nField Variable = sometimes\n",
     3, 18, "sometimes", "The 'Field Variable' 'sometimes' of variable 'T' counts as 'No'. Expected 'Yes', 'No', 'True', 'False', 'On' or 'Off'."},

    {"AvailabilityThatIsMisspelt", "lint-unknown-availability", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = !MUSIG, TURBULENTT\n",
     3, 33, "TURBULENTT", "No check knows the physical availability 'TURBULENTT' of variable 'T', so that it always holds. Did you mean 'TURBULENT'?"},
    {"NegatedAvailabilityThatIsMisspelt", "lint-unknown-availability", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = !!!KINETICTHEORY\n",
     3, 25, "!!!KINETICTHEORY", "No check knows the physical availability '!!!KINETICTHEORY' of variable 'T', so that it never holds. Did you mean 'KINETIC THEORY'?"},
    {"AvailabilityThatIsLikeNone", "lint-unknown-availability", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = ! on sundays only\n",
     3, 25, "! on sundays only", "No check knows the physical availability '! on sundays only' of variable 'T', so that it never holds. Expected 'ANYRFR', 'ASM', 'AUTOIGN', 'AV', 'AVORMASFRC', 'BVM', 'CAVITATION', 'CEM', 'COMBUSTION', 'COMPRESSIBLE', 'DES', 'ECFM', 'EDM', 'EFFICIENCY', 'EGR', 'ELECTRIC', 'EULERIANPHASECHANGE', 'FRC', 'GEQN', 'INHOMOMULTIPHASE', 'JNTORRIGIDBDYCOUPLING', 'KEPS', 'KINETIC THEORY', 'KOPS', 'LES', 'MAGNETIC', 'MASFRC', 'MDEF', 'MULTIBAND', 'MULTICOMPONENT', 'MULTIPHASE', 'MUSIG', 'PARTICLE', 'PHASEORPARTICLE', 'POROUS', 'PREMIXED', 'RADIATION', 'RFR', 'RSM', 'SOOT', 'SST', 'THERMAL', 'THERMALPHASECHANGE', 'TRANSIENT', 'TRANSITIONAL', 'TURBULENT' or 'ZETM'."},
    {"SignWithoutAnAvailability", "lint-unknown-availability", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = !, LES\n",
     3, 25, "!", "No check knows the physical availability '!' of variable 'T', so that it never holds. Expected 'ANYRFR', 'ASM', 'AUTOIGN', 'AV', 'AVORMASFRC', 'BVM', 'CAVITATION', 'CEM', 'COMBUSTION', 'COMPRESSIBLE', 'DES', 'ECFM', 'EDM', 'EFFICIENCY', 'EGR', 'ELECTRIC', 'EULERIANPHASECHANGE', 'FRC', 'GEQN', 'INHOMOMULTIPHASE', 'JNTORRIGIDBDYCOUPLING', 'KEPS', 'KINETIC THEORY', 'KOPS', 'LES', 'MAGNETIC', 'MASFRC', 'MDEF', 'MULTIBAND', 'MULTICOMPONENT', 'MULTIPHASE', 'MUSIG', 'PARTICLE', 'PHASEORPARTICLE', 'POROUS', 'PREMIXED', 'RADIATION', 'RFR', 'RSM', 'SOOT', 'SST', 'THERMAL', 'THERMALPHASECHANGE', 'TRANSIENT', 'TRANSITIONAL', 'TURBULENT' or 'ZETM'."},
    {"BlankBehindASign", "lint-availability-blank", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = ! TURBULENT\n",
     3, 25, "! TURBULENT", "The physical availability '! TURBULENT' of variable 'T' has a blank behind its '!', so that it never holds. Expected '!TURBULENT'."},
    {"BlankBetweenSigns", "lint-availability-blank", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nPhysical Availability = !! !KINETIC THEORY\n",
     3, 25, "!! !KINETIC THEORY", "The physical availability '!! !KINETIC THEORY' of variable 'T' has a blank behind its '!', so that it always holds. Expected '!!!KINETIC THEORY'."},

    // Lists
    {"ComponentsOfAScalarVariable", "lint-scalar-components", k_warning, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nComponent Short Names = T x, T y, T z\n",
     3, 25, "T x, T y, T z", "The 'Component Short Names' of 'T' are not read, for it is a SCALAR. Expected none, or another 'Tensor Type'."},
    {"ComponentsOfAScalarOperator", "lint-scalar-components", k_warning, k_variables,
     "[/VARIABLE OPERATOR:rate]\nLong Name = Rate of Change\nTensor Type = SCALAR\nComponent Long Names = Rate x, Rate y, Rate z\n",
     4, 24, "Rate x, Rate y, Rate z", "The 'Component Long Names' of 'rate' are not read, for it is a SCALAR. Expected none, or another 'Tensor Type'."},
    {"TooFewOldComponents", "lint-old-component-count", k_warning, k_variables,
     "[/VARIABLE:w]\nTensor Type = VECTOR\nComponent Short Names = w1, w2, w3\nComponent Long Names = ww1, ww2, ww3\nOld Component Long Names = e, wy\n",
     5, 28, "e, wy", "The 'Old Component Long Names' of variable 'w' are not read, for there are 2 of them. Expected 3."},
    {"TooManyOldComponentsOfATensor", "lint-old-component-count", k_warning, k_variables,
     "[/VARIABLE:w]\nTensor Type = SYMTEN2\nComponent Short Names = w1, w2, w3, w4, w5, w6\nComponent Long Names = v1, v2, v3, v4, v5, v6\nOld Component Short Names = a, b, c, d, ee, f, gg\n",
     5, 29, "a, b, c, d, ee, f, gg", "The 'Old Component Short Names' of variable 'w' are not read, for there are 7 of them. Expected 6."},
    {"WordTwiceInAList", "lint-repeated-piece", k_warning, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nVariable Scope = PHASE, GLOBAL, PHASE\n",
     3, 33, "PHASE", "The 'Variable Scope' of 'T' have 'PHASE' twice."},
    {"LocatorDimensionTwice", "lint-repeated-piece", k_warning, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 0\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Point,Point\n",
     6, 27, "Point", "The 'Locator Dimension' of 'length' have 'Point' twice."},
    {"EmptyPieceOfWords", "lint-empty-piece", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nGeneral Availability = RESULTS, , PLOTS\n",
     3, 32, "", "The 'General Availability' of 'T' have an empty piece. Expected a word or name before and behind each comma."},
    {"EmptyPieceOfNames", "lint-empty-piece", k_error, k_variables,
     "[/VARIABLE:w]\nTensor Type = VECTOR\nComponent Short Names = w1, w2,\nComponent Long Names = ww1, ww2, ww3\n",
     3, 32, "", "The 'Component Short Names' of 'w' have an empty piece. Expected a word or name before and behind each comma."},

    // Names
    {"VariableNamedAsAConstant", "lint-name-of-constant", k_error, k_variables,
     "[/VARIABLE:T]\nLong Name = speed of light\nTensor Type = SCALAR\n",
     2, 13, "speed of light", "The variable 'speed of light' hides the constant of that name in every expression. Expected another name."},
    {"ComponentNamedAsAConstant", "lint-name-of-constant", k_error, k_variables,
     "[/VARIABLE:w]\nTensor Type = VECTOR\nComponent Short Names = w1, g, w3\nComponent Long Names = ww1, ww2, ww3\n",
     3, 29, "g", "The variable 'g' hides the constant of that name in every expression. Expected another name."},
    {"VariableNamedAsAFunction", "lint-name-of-function", k_warning, k_variables,
     "[/VARIABLE:step]\nTensor Type = SCALAR\n",
     1, 12, "step", "The variable 'step' has the name of a function of mathematics. Expected another name."},
    {"ReservedName", "lint-reserved-name", k_error, k_variables,
     "[/VARIABLE:T]\nTensor Type = SCALAR\nOld Long Name = Expression Value\n",
     3, 17, "Expression Value", "The variable name 'Expression Value' is reserved: it stands for the value of a monitor point. Expected another name."},
    {"CallbackNamedAsAFunction", "lint-callback-named-as-function", k_warning, k_variables,
     "[/CALLBACK FUNCTION:min]\nResult Units = []\nNumber of Arguments = 1\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Volume\n",
     1, 21, "min", "The callback function 'min' has the name of a function of mathematics, which 'min(' always means. Expected another name."},
    {"VariableNameWithASign", "lint-unwritable-name", k_warning, k_variables,
     "[/VARIABLE:T]\nLong Name = Dye-2\nQuantity = Length\nTensor Type = SCALAR\nGeneral Availability = QEL\nVariable Scope = GLOBAL\nField Variable = Yes\n",
     2, 13, "Dye-2", "The variable name 'Dye-2' cannot be written in an expression. Expected words of letters, digits and '_', parted by single blanks, the first of which begins with a letter."},
    {"ComponentNameWithADot", "lint-unwritable-name", k_warning, k_variables,
     "[/VARIABLE:w]\nQuantity = Length\nTensor Type = VECTOR\nComponent Short Names = w1, w2, w3\nComponent Long Names = ww1, ww2, w.3\nGeneral Availability = QEL\nVariable Scope = GLOBAL\nField Variable = Yes\n",
     5, 34, "w.3", "The variable name 'w.3' cannot be written in an expression. Expected words of letters, digits and '_', parted by single blanks, the first of which begins with a letter."},
    {"OperatorNameThatBeginsWithADigit", "lint-unwritable-name", k_warning, k_variables,
     "[/VARIABLE OPERATOR:rate]\nLong Name = 2nd Rate\nTensor Type = SCALAR\n",
     2, 13, "2nd Rate", "The operator name '2nd Rate' cannot be written in an expression. Expected words of letters, digits and '_', parted by single blanks, the first of which begins with a letter."},
    {"CallbackNameWithTwoBlanks", "lint-unwritable-name", k_warning, k_variables,
     "[/CALLBACK FUNCTION:mean  flow]\nResult Units = []\nNumber of Arguments = 1\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Volume\n",
     1, 21, "mean  flow", "The callback function name 'mean  flow' cannot be written in an expression. Expected words of letters, digits and '_', parted by single blanks, the first of which begins with a letter."},

    // Operators and callback functions
    {"OperatorAvailabilityThatIsMisspelt", "lint-unknown-operator-availability", k_error, k_variables,
     "[/VARIABLE OPERATOR:rate]\nLong Name = Rate\nTensor Type = SCALAR\nQEL Availability = GENERAL, CALBACK\n",
     4, 29, "CALBACK", "No check asks for the availability 'CALBACK' of operator 'rate'. Did you mean 'CALLBACK'?"},
    {"LocatorDimensionThatIsMisspelt", "lint-unknown-locator-dimension", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 0\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Point, surface\n",
     6, 28, "surface", "The locator dimension 'surface' of callback function 'length' is passed over. Did you mean 'Surface'?"},
    {"NoLocatorDimension", "lint-missing-locator-dimension", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 0\nCallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension =\n",
     6, 20, "", "The callback function 'length' takes no locator at all. Expected 'Point', 'Surface' or 'Volume'."},
    {"CallbackTypeInCapitals", "lint-callback-type", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 0\nCallBack Type = FIELD\nTensor Type = SCALAR\nLocator Dimension = Point\n",
     4, 17, "FIELD", "The 'CallBack Type' 'FIELD' of callback function 'length' counts as 'Scalar'. Did you mean 'Field'?"},
    {"CallbackTensorTypeInSmallLetters", "lint-callback-tensor-type", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 0\nCallBack Type = Field\nTensor Type = vector\nLocator Dimension = Point\n",
     5, 15, "vector", "The 'Tensor Type' 'vector' of callback function 'length' counts as 'SCALAR'. Did you mean 'VECTOR'?"},
    {"NegativeNumberOfArguments", "lint-argument-count", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = -1\nCallBack Type = Field\nTensor Type = SCALAR\nLocator Dimension = Point\n",
     3, 23, "-1", "The callback function 'length' has -1 arguments. Expected 0 or more."},
    {"TextBehindTheNumberOfArguments", "lint-argument-count", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = 1 or 2\nCallBack Type = Field\nTensor Type = SCALAR\nLocator Dimension = Point\n",
     3, 23, "1 or 2", "The 'Number of Arguments' '1 or 2' of callback function 'length' counts as 1. Expected a number alone."},
    {"TextBehindTheResultUnits", "lint-result-units", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = [m] [s^-1]\nNumber of Arguments = 1\nCallBack Type = Field\nTensor Type = SCALAR\nLocator Dimension = Point\n",
     2, 16, "[m] [s^-1]", "Of the 'Result Units' '[m] [s^-1]' of callback function 'length' only '[m]' counts. Expected units in one pair of brackets."},
    {"TextBeforeTheResultUnits", "lint-result-units", k_error, k_variables,
     "[/CALLBACK FUNCTION:length]\nResult Units = 2 [m]\nNumber of Arguments = 1\nCallBack Type = Field\nTensor Type = SCALAR\nLocator Dimension = Point\n",
     2, 16, "2 [m]", "Of the 'Result Units' '2 [m]' of callback function 'length' only '[m]' counts. Expected units in one pair of brackets."},

    // Rules of parameters
    {"BoundWithUnitsWithoutAQuantity", "lint-bound-units", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nUpper Bound = 2 [m]\n",
     3, 15, "2 [m]", "The bound '2 [m]' of parameter 'Gap' has units, but no 'Quantity' asks for values of such units. Expected a 'Quantity', or a bound without units."},
    {"BoundOfAQuantityThatTheCaseChooses", "lint-bound-units", k_error, k_rules,
     "[/FLOW/DOMAIN/ADDITIONAL VARIABLE/PARAMETER:Value]\nLower Bound = 0\n",
     2, 15, "0", "The bound '0' of parameter 'Value' cannot be compared with values of other units, and its units are those that each case chooses. Expected no bound."},
    {"LowerBoundWithoutAQuantity", "lint-bound-without-quantity", k_warning, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gaps]\nType = Integer\nUpper Bound = 9\nLower Bound = 1\n",
     4, 15, "1", "The parameter 'Gaps' has a bound and no 'Quantity', so that a value with units is told to be a fault of the bound. Expected 'Quantity = Dimensionless', or that of its values."},
    {"UpperBoundWithoutAQuantity", "lint-bound-without-quantity", k_warning, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gaps]\nType = Real\nUpper Bound = 9\n",
     3, 15, "9", "The parameter 'Gaps' has a bound and no 'Quantity', so that a value with units is told to be a fault of the bound. Expected 'Quantity = Dimensionless', or that of its values."},
    {"CrossedBoundsWithoutAQuantity", "lint-crossed-bounds", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Number of Blades]\nQuantity =\nLower Bound = 100\n",
     3, 15, "100", "The lower bound '100' of parameter 'Number of Blades' is above its upper bound '99'."},
    {"BoundsThatALaterFileCrosses", "lint-crossed-bounds", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Number of Blades]\nQuantity =\nUpper Bound = 0\n",
     26, 15, "1", "The lower bound '1' of parameter 'Number of Blades' is above its upper bound '0'."},
    {"DependencyThatIsMisspelt", "lint-unknown-dependency", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Length\nDepends On = XYZ, thetta\n",
     4, 19, "thetta", "The parameter 'Gap' is said to depend on 'thetta', which is no variable. Did you mean 'theta'?"},
    {"DependencyThatIsLikeNone", "lint-unknown-dependency", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Length\nDepends On = Humidity\n",
     4, 14, "Humidity", "The parameter 'Gap' is said to depend on 'Humidity', which is no variable. Expected the short name of a variable, or 'NONE', 'ANY', 'XYZ' or 'XYZT'."},
    {"DependencyByALongName", "lint-unknown-dependency", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Length\nDepends On = Time\n",
     4, 14, "Time", "The parameter 'Gap' is said to depend on 'Time', which is no short name. Expected 't'."},
    {"DependencyByTheLongNameOfAComponent", "lint-unknown-dependency", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Length\nDepends On = Velocity y\n",
     4, 14, "Velocity y", "The parameter 'Gap' is said to depend on 'Velocity y', which is no short name. Expected 'vel y'."},
    {"DependencyOnAnyBesideOthers", "lint-unknown-dependency", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Length\nDepends On = t, ANY\n",
     4, 17, "ANY", "The parameter 'Gap' is said to depend on 'ANY', which must stand alone."},
    {"UnitsFromAParameterThatIsMisspelt", "lint-unknown-units-source", k_error, k_rules,
     "[/FLOW/DOMAIN/ADDITIONAL VARIABLE/PARAMETER:Flux]\nType = Real\nUnits From = /LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}/PARAMETER:Unit\n",
     3, 14, "/LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}/PARAMETER:Unit", "The units of parameter 'Flux' are to be those of parameter 'Unit' in '/LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}', which no rule knows, so that they are never checked. Did you mean 'Units'?"},
    {"UnitsFromAnObjectThatNeedsAName", "lint-unknown-units-source", k_error, k_rules,
     "[/FLOW/DOMAIN/ADDITIONAL VARIABLE/PARAMETER:Flux]\nType = Real\nUnits From = /LIBRARY/ADDITIONAL VARIABLE/PARAMETER:Units\n",
     3, 14, "/LIBRARY/ADDITIONAL VARIABLE/PARAMETER:Units", "The units of parameter 'Flux' are to be those of parameter 'Units' in '/LIBRARY/ADDITIONAL VARIABLE', which no rule knows, so that they are never checked."},
    {"ParameterNameWithAnEqualsSign", "lint-unholdable-parameter", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:Gap = 0]\nType = Logical\n",
     1, 2, "/FLOW/DOMAIN/PARAMETER:Gap = 0", "No case can hold the parameter 'Gap = 0' of objects at '/FLOW/DOMAIN'. There the line 'Gap = 0 = 1' does not set a parameter of that name."},
    {"ParameterNameThatIsAComment", "lint-unholdable-parameter", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:#Gaps]\nType = Logical\n",
     1, 2, "/FLOW/DOMAIN/PARAMETER:#Gaps", "No case can hold the parameter '#Gaps' of objects at '/FLOW/DOMAIN'. There the line '#Gaps = 1' does not set a parameter of that name."},
    {"ParameterNameThatIsAnInclude", "lint-unholdable-parameter", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER:include \"Gap\"]\nType = Logical\n",
     1, 2, "/FLOW/DOMAIN/PARAMETER:include \"Gap\"", "No case can hold the parameter 'include \"Gap\"' of objects at '/FLOW/DOMAIN'. '= 1' stands behind an include. Expected the end of the line."},
    {"ParameterNameThatBeginsWithABlank", "lint-unholdable-parameter", k_error, k_rules,
     "[/FLOW/DOMAIN/PARAMETER: Gap]\nType = Logical\n",
     1, 2, "/FLOW/DOMAIN/PARAMETER: Gap", "No case can hold the parameter ' Gap' of objects at '/FLOW/DOMAIN'. There the line ' Gap = 1' does not set a parameter of that name."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Lint, LintRaises, testing::ValuesIn(k_cases),
                         [](const auto& p_info) { return std::string(p_info.param.name); });

/// What adds to the clean definitions and is nothing to report.
struct CleanCase {
    const char* name;
    const char* file;
    const char* text;
};

void PrintTo(const CleanCase& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

class LintPasses : public testing::TestWithParam<CleanCase> {};

TEST_P(LintPasses, WhatIsMeant)
{
    const DefinitionFolder folder;
    folder.write(GetParam().file, GetParam().text);
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    EXPECT_THAT(lintDefinitions(definitions), IsEmpty());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lint, LintPasses, testing::Values(
    CleanCase {"NamesOfThePostProcessor", k_variables, "[/VARIABLE:Area]\nTensor Type = SCALAR\n"},
    CleanCase {"VariablesThatDifferByCase", k_variables, "[/VARIABLE:P]\nTensor Type = SCALAR\n[/VARIABLE:X]\nTensor Type = SCALAR\n"},
    CleanCase {"ShortAndLongNameThatAreTheSame", k_variables, "[/VARIABLE:T]\nLong Name = T\nTensor Type = SCALAR\n"},
    CleanCase {"EveryScope", k_variables, "[/VARIABLE:T]\nTensor Type = SCALAR\nVariable Scope = GLOBAL, PHASE, PARTICLE, MUSIG FLUID, FLUID PAIR, COMPONENT, PARTICLE COMPONENT, REACTION, REACFLMLET, REACSNGL, SIZE GROUP\n"},
    CleanCase {"FieldVariableThatIsOff", k_variables, "[/VARIABLE:T]\nTensor Type = SCALAR\nField Variable = OFF\n"},
    CleanCase {"GeneralAvailabilityOfAnyWord", k_variables, "[/VARIABLE:T]\nTensor Type = SCALAR\nGeneral Availability = PLOTTER\n"},
    CleanCase {"ForeignLetters", k_variables, "[/VARIABLE:T]\nLong Name = Größe 2\nQuantity = Length\nTensor Type = SCALAR\nGeneral Availability = QEL\nVariable Scope = GLOBAL\nField Variable = No\n"},
    CleanCase {"NumberOfArgumentsWithASign", k_variables, "[/CALLBACK FUNCTION:length]\nResult Units = [m]\nNumber of Arguments = +1\nCallBack Type = Field\nTensor Type = SCALAR\nLocator Dimension = Point\n"},
    CleanCase {"DefinitionThatReplacesAnother", k_variables, "[/VARIABLE:p]\nTensor Type = SCALAR\n"},
    CleanCase {"BoundsThatAreEqual", k_rules, "[/FLOW/DOMAIN/PARAMETER:Number of Blades]\nLower Bound = 99\n"},
    CleanCase {"BoundThatIsTakenBack", k_rules, "[/FLOW/DOMAIN/PARAMETER:Reference Pressure]\nQuantity =\nLower Bound =\nUpper Bound =\n"},
    CleanCase {"ParameterNameThatBeginsLikeAnInclude", k_rules, "[/FLOW/DOMAIN/PARAMETER:include Gaps]\nType = Logical\n"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(Lint, FindsNothingInCleanDefinitions)
{
    const Definitions definitions({k_clean});

    ASSERT_THAT(definitions.problems(), IsEmpty());
    EXPECT_THAT(lintDefinitions(definitions), IsEmpty());
}

TEST(Lint, FindsNothingInTheDefinitionsThatAreShipped)
{
    const Definitions definitions({k_shipped});

    EXPECT_THAT(definitions.problems(), IsEmpty());
    EXPECT_THAT(lintDefinitions(definitions), IsEmpty());
}

TEST(Lint, FindsCoordinatesThatAreNoVariables)
{
    // Given the clean definitions with two coordinates by other names
    const DefinitionFolder folder;
    fs::copy(k_clean, folder.path());
    std::stringstream text;
    text << std::ifstream(k_clean + "/VARIABLES.qcl").rdbuf();
    std::string variables = text.str();
    variables.replace(variables.find("[/VARIABLE:theta]"), 17, "[/VARIABLE:phi]");
    variables.replace(variables.find("[/VARIABLE:aaxis]"), 17, "[/VARIABLE:zaxis]");
    folder.write("VARIABLES.qcl", variables);
    const Definitions definitions({folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    // Then each is a finding about the file
    const auto missing = [](const char* p_message) {
        return isFinding({"", "lint-missing-coordinate", k_error, "VARIABLES.qcl", "", 0, 0, "", p_message});
    };
    EXPECT_THAT(lintDefinitions(definitions),
                ElementsAre(missing("No variable is named 'theta'. The checks of callback functions need "
                                    "this coordinate."),
                            missing("No variable is named 'aaxis'. The checks of callback functions need "
                                    "this coordinate.")));
}

TEST(Lint, FindsAllCoordinatesMissingWhereThereAreNoVariables)
{
    const DefinitionFolder folder;
    fs::copy(k_clean, folder.path());
    folder.write("VARIABLES.qcl", "");
    folder.write("RULES.qcl", "[/FLOW]\nNamed = Yes\n");

    const std::vector<Finding> findings = lintDefinitions(Definitions({folder.path()}));

    ASSERT_EQ(findings.size(), 8U);
    EXPECT_EQ(findings.front().message,
              "No variable is named 'x'. The checks of callback functions need this coordinate.");
    EXPECT_EQ(findings.front().file, "");
}

TEST(Lint, TakesACoordinateByAnyNameOfAVariable)
{
    const DefinitionFolder folder;
    fs::copy(k_clean, folder.path());
    std::stringstream text;
    text << std::ifstream(k_clean + "/VARIABLES.qcl").rdbuf();
    std::string variables = text.str();
    variables.replace(variables.find("[/VARIABLE:theta]"), 17, "[/VARIABLE:phi]\nOld Short Name = theta");
    folder.write("VARIABLES.qcl", variables);

    EXPECT_THAT(lintDefinitions(Definitions({folder.path()})), IsEmpty());
}

TEST(Lint, FindsEachEmptyPieceAndTakesThemForNoWordThatIsTwice)
{
    const DefinitionFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:T]\nTensor Type = SCALAR\nVariable Class = A,,,B\n");

    const auto emptyAt = [](std::uint32_t p_column) {
        return isFinding(
            {"", "lint-empty-piece", k_error, "VARIABLES.qcl", "", 3, p_column, "",
             "The 'Variable Class' of 'T' have an empty piece. Expected a word or name before and "
             "behind each comma."});
    };
    EXPECT_THAT(lintDefinitions(Definitions({k_clean, folder.path()})),
                ElementsAre(emptyAt(20), emptyAt(21)));
}

TEST(Lint, GivesFindingsInTheOrderOfLinesWhateverTheirRule)
{
    const DefinitionFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:step]\nTensor Type = SCALAR\n"
                                  "[/VARIABLE:T]\nTensor Type = SCALAR\nVariable Scope = PHASES\n"
                                  "[/VARIABLE:floor]\nTensor Type = SCALAR\nVariable Scope = GLOBALS\n");

    std::vector<std::uint32_t> lines;
    for (const Finding& finding : lintDefinitions(Definitions({k_clean, folder.path()})))
        lines.push_back(finding.line);
    EXPECT_THAT(lines, ElementsAre(1U, 5U, 6U, 8U));
}

// The message of these names the place of another definition, which stands in a folder of the test.

TEST(Lint, FindsAnOperatorNamedAsAVariable)
{
    const DefinitionFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE OPERATOR:rate]\nTensor Type = SCALAR\nLong Name = Slope\n"
                                  "[/VARIABLE:slope]\nLong Name = Slope\nTensor Type = SCALAR\n");
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    const std::string message = "The operator 'Slope' has the name of the variable at " + folder.path() +
                                "/VARIABLES.qcl:5, so that 'A.Slope' can be read in two ways. Expected "
                                "another name.";
    EXPECT_THAT(lintDefinitions(definitions),
                ElementsAre(isFinding({"", "lint-operator-named-as-variable", k_warning, "VARIABLES.qcl", "",
                                       3, 13, "Slope", message.c_str()})));
}

TEST(Lint, FindsOperatorsAndCallbackFunctionsThatDifferByCase)
{
    const DefinitionFolder folder;
    folder.write("VARIABLES.qcl",
                 "[/VARIABLE OPERATOR:rate]\nTensor Type = SCALAR\nLong Name = Slope\n"
                 "[/VARIABLE OPERATOR:Rate]\nTensor Type = SCALAR\nLong Name = Tilt\n"
                 "[/CALLBACK FUNCTION:AreaInt]\nResult Units = [m^2]\nNumber of Arguments = 1\n"
                 "CallBack Type = Scalar\nTensor Type = SCALAR\nLocator Dimension = Surface\n");
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    const std::string oper =
        "The operator 'Rate' differs only by case from 'rate' at " + folder.path() + "/VARIABLES.qcl:1.";
    const std::string callback = "The callback function 'AreaInt' differs only by case from 'areaInt' at " +
                                 k_clean + "/VARIABLES.qcl:114.";
    EXPECT_THAT(lintDefinitions(definitions),
                ElementsAre(isFinding({"", "lint-names-differ-by-case", k_warning, "VARIABLES.qcl", "", 4, 21,
                                       "Rate", oper.c_str()}),
                            isFinding({"", "lint-names-differ-by-case", k_warning, "VARIABLES.qcl", "", 7, 21,
                                       "AreaInt", callback.c_str()})));
}

TEST(Lint, FindsParametersOfObjectsWhosePathIsTooLongInACase)
{
    // Given a rule whose path just fits the file of rules, but not with the names that a case must add
    std::string pattern = "/FLOW";
    std::string text;
    for (char type = 'A'; type < 'H'; ++type)
    {
        pattern += "/" + std::string(256, type);
        text += "[" + pattern + "]\nNamed = Yes\n";
    }
    pattern += "/" + std::string(229, 'H');
    text += "[" + pattern + "]\n[" + pattern + "/PARAMETER:Gap]\nType = Logical\n";
    const DefinitionFolder folder;
    folder.write("RULES.qcl", text);
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_THAT(definitions.problems(), IsEmpty());

    // Then the reader of cases says why
    const std::string header = pattern + "/PARAMETER:Gap";
    const std::string message = "No case can hold the parameter 'Gap' of objects at '/FLOW/" +
                                std::string(74, 'A') +
                                "...'. The path is 2050 bytes long. Expected at most 2048.";
    EXPECT_THAT(lintDefinitions(definitions),
                ElementsAre(isFinding({"", "lint-unholdable-parameter", k_error, "RULES.qcl", "", 16, 2,
                                       header.c_str(), message.c_str()})));
}

TEST(Lint, LooksAtDefinitionsThatHoldErrorsAndDoesNotRepeatThem)
{
    // Given a name that is there twice, a bound that does not convert and a misspelt quantity of a rule
    const DefinitionFolder folder;
    folder.write("VARIABLES.qcl", "[/VARIABLE:press]\nLong Name = Pressure\nTensor Type = SCALAR\n"
                                  "Field Variable = Treu\n"
                                  "[/CALLBACK FUNCTION:length]\nResult Units = m\n");
    folder.write("RULES.qcl", "[/FLOW/DOMAIN/PARAMETER:Reference Pressure]\nLower Bound = 0 [m]\n"
                              "[/FLOW/DOMAIN/PARAMETER:Gap]\nType = Real\nQuantity = Lenght\n");
    const Definitions definitions({k_clean, folder.path()});
    ASSERT_EQ(definitions.problems().size(), 4U);

    // Then only what loading does not say is found
    EXPECT_THAT(
        lintDefinitions(definitions),
        ElementsAre(isFinding({"", "lint-field-variable-text", k_error, "VARIABLES.qcl", "", 4, 18, "Treu",
                               "The 'Field Variable' 'Treu' of variable 'press' counts as 'No'. Did "
                               "you mean 'True'?"})));
}

TEST(LintRules, HaveStableIdentifiersOfTheirOwn)
{
    std::set<std::string_view> identifiers;
    for (const LintRule& rule : lintRules())
    {
        EXPECT_TRUE(rule.identifier.starts_with("lint-")) << rule.identifier;
        EXPECT_FALSE(rule.looksFor.empty()) << rule.identifier;
        EXPECT_TRUE(identifiers.insert(rule.identifier).second) << rule.identifier;
    }
}

TEST(LintRules, AreEachRaisedByATest)
{
    // Those with a test of their own
    std::set<std::string_view> raised {"lint-missing-coordinate", "lint-operator-named-as-variable",
                                       "lint-names-differ-by-case"};
    for (const LintCase& lintCase : k_cases)
        raised.insert(lintCase.identifier);

    for (const LintRule& rule : lintRules())
        EXPECT_TRUE(raised.contains(rule.identifier)) << rule.identifier;
}

}    // namespace
}    // namespace qen::standalone
