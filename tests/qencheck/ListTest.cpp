#include "ListFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace qencheck_test {
namespace {

using testing::AllOf;
using testing::ElementsAreArray;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The texts in the first column of a table, its heading aside.
std::vector<std::string> firstColumn(const std::string& p_table)
{
    std::vector<std::string> texts;
    std::istringstream lines(p_table);
    for (std::string line; std::getline(lines, line);)
        texts.push_back(line.substr(0, line.find("  ")));
    if (!texts.empty())
        texts.erase(texts.begin());
    return texts;
}

TEST_F(List, ShowsVariablesWithTheirUnitsAndWhereTheyAreAvailable)
{
    const Outcome run = list({"variables"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Name  Long Name    Units         Quantity       Type    Scope            Used In    "
                       "   Needs                  Components           Old Names\n"
                       "vel   Velocity     m s^-1        Velocity       VECTOR  PHASE, PARTICLE  QEL, RESULT"
                       "S                         vel u, vel v, vel w  veloc\n"
                       "p     Pressure     kg m^-1 s^-2  Pressure       SCALAR  GLOBAL           QEL        "
                       "   TRANSIENT\n"
                       "gap   Gap at Wall  m             Length         VECTOR  GLOBAL           RESULTS    "
                       "   TURBULENT, !TRANSIENT  gx, gy, gz\n"
                       "höhe  Höhe         -             Dimensionless  SCALAR  GLOBAL, PHASE    QEL\n");
    EXPECT_EQ(run.error, "4 variables\n");
}

TEST_F(List, ShowsOperators)
{
    const Outcome run = list({"operators"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Name  Long Name     Type    Dimension Modifier  Availability         Components\n"
                       "grad  Gradient      VECTOR  [m^-1]              GENERAL              grad x, grad y,"
                       " grad z\n"
                       "ave   Time Average  SCALAR  [ ]                 GENERAL, STATISTICS\n");
    EXPECT_EQ(run.error, "2 operators\n");
}

TEST_F(List, ShowsCallbacks)
{
    const Outcome run = list({"callbacks"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Name     Arguments  Result  Result Units  Components  Locators\n"
                       "average  1          Single  -             No          Surface, Volume\n"
                       "force    0          Field   kg m s^-2     Yes         Surface\n");
    EXPECT_EQ(run.error, "2 callbacks\n");
}

TEST_F(List, ShowsParametersWithTheirBoundsAndTexts)
{
    const Outcome run = list({"parameters"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Object          Parameter    Type    Units   Quantity                               "
                       "             At Least    At Most       Depends On  Allowed\n"
                       "/FLOW/INLET     Dye          Real            units of /LIBRARY/DYE/PARAMETER:Units t"
                       "imes m s^-1\n"
                       "/FLOW/INLET     Flow Regime  String                                                 "
                       "                                                   Subsonic, Supersonic\n"
                       "/FLOW/INLET     Speed        Real    m s^-1  Velocity                               "
                       "             0 [m s^-1]  340 [m s^-1]  XYZT\n"
                       "/LIBRARY/DYE    Units        String\n"
                       "/LIBRARY/NOTES  (any other)  String\n");
    EXPECT_EQ(run.error, "5 parameters\n");
}

TEST_F(List, ShowsUnitsThenPrefixesThenQuantitiesWithTheUnitsThatMeasureThem)
{
    const Outcome run = list({"units"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Kind       Name           Size              Base Units    Prefixes  "
                       "Made Of or Measured In\n"
                       "base unit  kg             1                 kg\n"
                       "base unit  m              1                 m             Yes\n"
                       "base unit  s              1                 s\n"
                       "base unit  K              1                 K\n"
                       "unit       Å              1e-10             m                       1e-10 m\n"
                       "unit       Pa             1                 kg m^-1 s^-2  Yes       kg m^-1 s^-2\n"
                       "unit       psi            6894.75729316836  kg m^-1 s^-2            "
                       "6894.75729316836 Pa\n"
                       "unit       C              1                 K                       "
                       "K, zero at 273.15\n"
                       "prefix     k              1000\n"
                       "prefix     y              1e-24\n"
                       "quantity   Dimensionless                    -\n"
                       "quantity   Length                           m                       m, Å\n"
                       "quantity   Pressure                         kg m^-1 s^-2            Pa, psi\n"
                       "quantity   Velocity                         m s^-1\n");
    EXPECT_EQ(run.error, "14 units\n");
}

TEST_F(List, LeavesOutColumnsInWhichNothingStands)
{
    EXPECT_EQ(list({"variables", "höhe"}).out,
              "Name  Long Name  Units  Quantity       Type    Scope          Used In\n"
              "höhe  Höhe       -      Dimensionless  SCALAR  GLOBAL, PHASE  QEL\n");
}

TEST_F(List, MakesTheHeadingsBoldWhereThereAreColours)
{
    EXPECT_THAT(list({"callbacks", "--color", "always"}).out,
                StartsWith("\x1b[1mName     Arguments  Result  Result Units  Components  Locators\x1b[0m\n"
                           "average  1 "));
    EXPECT_THAT(list({"callbacks", "--color", "auto"}).out, Not(HasSubstr("\x1b[")));
}

struct Search {
    const char* name;
    std::vector<std::string> arguments;
    std::vector<std::string> found;    ///< first column
    const char* count;
};

void PrintTo(const Search& p_search, std::ostream* p_stream) { *p_stream << p_search.name; }

class ListSearch : public List, public testing::WithParamInterface<Search> {};

TEST_P(ListSearch, ShowsWhatIsAskedFor)
{
    const Outcome run = list(GetParam().arguments);

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(firstColumn(run.out), ElementsAreArray(GetParam().found));
    EXPECT_EQ(run.error, std::string(GetParam().count) + "\n");
}

const std::string k_vel = "vel";
const std::string k_gap = "gap";

INSTANTIATE_TEST_SUITE_P(
    Patterns, ListSearch,
    testing::Values(
        Search {"PartOfAShortName", {"variables", "ga"}, {k_gap}, "1 of 4 variables"},
        Search {"SmallForCapitalLetters", {"variables", "PRESS"}, {"p"}, "1 of 4 variables"},
        Search {"SeveralWords", {"variables", "at wall"}, {k_gap}, "1 of 4 variables"},
        Search {"AnOldName", {"variables", "veloc"}, {k_vel}, "1 of 4 variables"},
        Search {"TheShortNameOfAComponent", {"variables", "gy"}, {k_gap}, "1 of 4 variables"},
        Search {"TheLongNameOfAComponent", {"variables", "Gap Z"}, {k_gap}, "1 of 4 variables"},
        Search {"TheOldNameOfAComponent", {"variables", "veloc w"}, {k_vel}, "1 of 4 variables"},
        Search {"AQuantity", {"variables", "length"}, {k_gap}, "1 of 4 variables"},
        Search {"AGlobFitsTheWholeName", {"variables", "P*"}, {"p"}, "1 of 4 variables"},
        Search {"AQuestionMarkIsOneCharacter", {"variables", "h?he"}, {"höhe"}, "1 of 4 variables"},
        Search {"NothingButAStar", {"variables", "*"}, {k_vel, "p", k_gap, "höhe"}, "4 variables"},
        Search {"AComponentOfAnOperator", {"operators", "grad x"}, {"grad"}, "1 of 2 operators"},
        Search {"AnOperatorsLongName", {"operators", "average"}, {"ave"}, "1 of 2 operators"},
        Search {"ACallback", {"callbacks", "for"}, {"force"}, "1 of 2 callbacks"},
        Search {"AParameter", {"parameters", "speed"}, {"/FLOW/INLET"}, "1 of 5 parameters"},
        Search {"TheObjectOfParameters",
                {"parameters", "/library/*"},
                {"/LIBRARY/DYE", "/LIBRARY/NOTES"},
                "2 of 5 parameters"},
        Search {"TheQuantityOfAParameter", {"parameters", "velo"}, {"/FLOW/INLET"}, "1 of 5 parameters"},
        Search {"AUnit", {"units", "psi"}, {"unit"}, "1 of 14 units"},
        Search {"AUnitsQuantity", {"units", "pressure"}, {"quantity"}, "1 of 14 units"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Filters, ListSearch,
    testing::Values(
        Search {"Availability", {"variables", "--availability", "transient"}, {"p"}, "1 of 4 variables"},
        Search {"NegatedAvailability",
                {"variables", "--availability", "!Transient"},
                {k_gap},
                "1 of 4 variables"},
        Search {"NegatedAvailabilityBehindAnEqualsSign",
                {"variables", "--availability=!TRANSIENT"},
                {k_gap},
                "1 of 4 variables"},
        Search {"AllOfSeveralAvailabilities",
                {"variables", "--availability", "TURBULENT", "--availability", "!TRANSIENT"},
                {k_gap},
                "1 of 4 variables"},
        Search {"Scope", {"variables", "--scope", "phase"}, {k_vel, "höhe"}, "2 of 4 variables"},
        Search {"AllOfSeveralScopes",
                {"variables", "--scope", "PHASE", "--scope", "GLOBAL"},
                {"höhe"},
                "1 of 4 variables"},
        Search {"ScopeAndPatternBehindTheOption",
                {"variables", "--scope", "PHASE", "velocity"},
                {k_vel},
                "1 of 4 variables"},
        Search {"AvailabilityOfOperators",
                {"operators", "--availability", "statistics"},
                {"ave"},
                "1 of 2 operators"},
        Search {"AvailabilityThatOperatorsHaveByDefault",
                {"operators", "--availability", "GENERAL"},
                {"grad", "ave"},
                "2 operators"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

struct Message {
    const char* name;
    std::vector<std::string> arguments;
    const char* text;    ///< on standard error
};

void PrintTo(const Message& p_message, std::ostream* p_stream) { *p_stream << p_message.name; }

class ListWithoutMatch : public List, public testing::WithParamInterface<Message> {};

TEST_P(ListWithoutMatch, SaysSoAndEndsWithStatusZero)
{
    const Outcome run = list(GetParam().arguments);

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.error, std::string(GetParam().text) + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, ListWithoutMatch,
    testing::Values(
        Message {"NothingNear", {"variables", "xyzzy"}, "No variables match 'xyzzy'."},
        Message {"ANameIsNear",
                 {"variables", "presure"},
                 "No variables match 'presure'. Did you mean 'Pressure'?"},
        Message {
            "AWordOfANameIsNear", {"variables", "walls"}, "No variables match 'walls'. Did you mean 'Wall'?"},
        Message {"AGlobHasNothingNear", {"variables", "presure*"}, "No variables match 'presure*'."},
        Message {"AUnitWithAPrefix",
                 {"units", "kPa"},
                 "No units match 'kPa'. It is understood as units: 1000 kg m^-1 s^-2."},
        Message {"AControlCharacterIsNotShown", {"callbacks", "\x1b[1m"}, "No callbacks match '?[1m'."},
        Message {"AnotherSubcommandsName", {"variables", "check"}, "No variables match 'check'."},
        Message {"AFilterThatExcludesThePatternsMatches",
                 {"variables", "velocity", "--scope", "GLOBAL"},
                 "No variables match all that is asked for."},
        Message {"FiltersThatExcludeEachOther",
                 {"variables", "--availability", "TRANSIENT", "--availability", "!TRANSIENT"},
                 "No variables match all that is asked for."}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

class ListMisused : public List, public testing::WithParamInterface<Message> {};

TEST_P(ListMisused, EndsWithStatusTwoAndSaysWhatWasExpected)
{
    const Outcome run = list(GetParam().arguments);

    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.error, StartsWith(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, ListMisused,
    testing::Values(
        Message {"UnknownScope",
                 {"variables", "--scope", "PHSE"},
                 "qencheck: list variables: there is no scope 'PHSE'. Did you mean 'PHASE'? Known: GLOBAL, "
                 "PARTICLE, PHASE\n"},
        Message {"UnknownAvailability",
                 {"variables", "--availability", "zzz"},
                 "qencheck: list variables: there is no availability 'zzz'. Known: !TRANSIENT, TRANSIENT, "
                 "TURBULENT\n"},
        Message {"NegatedAvailabilityThatNoneHas",
                 {"variables", "--availability", "!TURBULENT"},
                 "qencheck: list variables: there is no availability '!TURBULENT'. Did you mean "
                 "'TURBULENT'? Known: !TRANSIENT, TRANSIENT, TURBULENT\n"},
        Message {"AvailabilityThatOnlyVariablesHave",
                 {"operators", "--availability", "TURBULENT"},
                 "qencheck: list operators: there is no availability 'TURBULENT'. Known: GENERAL, "
                 "STATISTICS\n"},
        Message {"ScopeOfOperators",
                 {"operators", "--scope", "PHASE"},
                 "qencheck: list operators: --scope is for variables only\n"},
        Message {"ScopeOfUnits",
                 {"units", "--scope", "PHASE"},
                 "qencheck: list units: --scope is for variables only\n"},
        Message {"AvailabilityOfCallbacks",
                 {"callbacks", "--availability", "GENERAL"},
                 "qencheck: list callbacks: --availability is for variables and operators only\n"},
        Message {"AvailabilityOfParameters",
                 {"parameters", "--availability", "GENERAL"},
                 "qencheck: list parameters: --availability is for variables and operators only\n"},
        Message {
            "UnknownKind",
            {"variable"},
            "qencheck: list: KIND: there is no kind 'variable'; expected variables, operators, callbacks, "
            "parameters, units. Did you mean 'variables'?\nSee 'qencheck list --help'.\n"},
        Message {"UnknownFormat",
                 {"variables", "--format", "xml"},
                 "qencheck: list: --format: xml not in {text,json}\n"},
        Message {"NoKind", {}, "qencheck: list: KIND is required\n"},
        Message {"TwoPatterns",
                 {"variables", "at", "wall"},
                 "qencheck: list: The following argument was not expected: wall\n"}),
    [](const auto& p_info) { return std::string(p_info.param.name); });

TEST_F(List, ShowsExamplesWithItsHelp)
{
    const Outcome run = qencheck({"list", "--help"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, AllOf(HasSubstr("Examples:\n  qencheck list variables turbulence\n"),
                               HasSubstr("With '*' (any characters) or '?' (one character) it must fit a\n"
                                         "whole name"),
                               HasSubstr("Exit status: 0, also when nothing matches; 2 could not list.")));
}

TEST_F(List, SaysWhenTheDefinitionsHoldNothingOfTheKind)
{
    m_folder.write("VARIABLES.qcl", "");

    const Outcome run = list({"operators"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "The definitions hold no operators.\n");
}

TEST_F(List, ShowsNothingWhenTheDefinitionsHoldErrors)
{
    m_folder.write("VARIABLES.qcl", "[/VARIABLE:A]\nTensor Typ = SCALAR\n");

    const Outcome run = list({"units", "--format", "json"});

    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.error, AllOf(HasSubstr("/VARIABLES.qcl:2:1: error: Unknown key 'Tensor Typ' in the "
                                           "definition '/VARIABLE:A'. Did you mean 'Tensor Type'? "
                                           "[unknown-definition-key]\n"),
                                 EndsWith("The definitions hold errors: nothing was listed.\n")));
}

TEST_F(List, WarnsOfAVariableThatIsIgnoredAndLeavesItOut)
{
    m_folder.write("VARIABLES.qcl",
                   "[/VARIABLE:A]\nTensor Type = scalar\n[/VARIABLE:B]\nTensor Type = SCALAR\n");

    const Outcome run = list({"variables"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Name  Type\nB     SCALAR\n");
    EXPECT_THAT(run.error, AllOf(HasSubstr("/VARIABLES.qcl:2:15: warning: Error in definition of variable "
                                           "'A'.\n"),
                                 EndsWith("\n1 variable\n")));
}

TEST_F(List, ShowsOnlyTheLatestDefinitionOfAName)
{
    const TemporaryFolder later;
    later.write("VARIABLES.qcl", "[/VARIABLE:p]\nTensor Type = SCALAR\nLong Name = Gauge Pressure\n");

    const Outcome run = list({"variables", "p", "--scope", "GLOBAL"});
    const Outcome with = qencheck(
        {"list", "variables", "*pressure", "--definitions", m_folder.path(), "--definitions", later.path()});

    EXPECT_THAT(run.out, HasSubstr("\np "));
    EXPECT_EQ(with.out, "Name  Long Name       Type\np     Gauge Pressure  SCALAR\n");
    EXPECT_EQ(with.error, "1 of 4 variables\n");
}

TEST_F(List, SaysWhenTheListCannotBeWritten)
{
    const std::string command = std::string("'") + QENCHECK_COMMAND + "' list units --definitions '" +
                                m_folder.path() + "' > /dev/full 2> '" + m_folder.path() + "/error'";

    const int status = std::system(command.c_str());

    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(readFile(m_folder.path() + "/error"), "qencheck: the list could not be written\n");
}

TEST(ListOfTheShippedDefinitions, AnswersWhichVariablesThereAreForTurbulence)
{
    const Outcome run = qencheck({"list", "variables", "turbulence"});

    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                AllOf(StartsWith("Name "), HasSubstr("\nke  "), HasSubstr("  Turbulence Kinetic Energy  "),
                      HasSubstr("  m^2 s^-2  "), Not(HasSubstr("\nvel  "))));
}

class ListOfTheShippedDefinitionsOf : public testing::TestWithParam<const char*> {};

TEST_P(ListOfTheShippedDefinitionsOf, EndsWithStatusZero)
{
    EXPECT_EQ(qencheck({"list", GetParam()}).status, 0);
    EXPECT_THAT(qencheck({"list", GetParam(), "--format", "json"}).out,
                AllOf(StartsWith("["), EndsWith("]\n")));
}

INSTANTIATE_TEST_SUITE_P(Kinds, ListOfTheShippedDefinitionsOf,
                         testing::Values("variables", "operators", "callbacks", "parameters", "units"));

}    // namespace
}    // namespace qencheck_test
