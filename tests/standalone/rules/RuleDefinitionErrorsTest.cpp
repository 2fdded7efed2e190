#include "rules/RuleBook.h"

#include "RulesText.h"

#include "units/UnitSystem.h"
#include "world/World.h"

#include <gmock/gmock.h>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::NotNull;
using ::testing::SizeIs;

/// Matches a definition error with everything that a report shows of it.
MATCHER_P5(ErrorAt, p_line, p_column, p_length, p_identifier, p_message, "")
{
    *result_listener << arg.place.line << ":" << arg.place.column << " (" << arg.length << ") ["
                     << arg.identifier << "] " << arg.message;
    return arg.severity == Severity::Error && arg.place.line == static_cast<std::uint32_t>(p_line) &&
           arg.place.column == static_cast<std::uint32_t>(p_column) &&
           arg.length == static_cast<std::uint32_t>(p_length) && arg.identifier == p_identifier &&
           arg.message == p_message;
}

struct ErrorCase {
    const char* name;
    const char* text;
    int line;
    int column;
    int length;
    const char* identifier;
    const char* message;
};

class RuleDefinitionError : public testing::TestWithParam<ErrorCase> {};

TEST_P(RuleDefinitionError, IsReportedOnceAtItsPlace)
{
    const ErrorCase& expected = GetParam();
    RuleBook rules;

    EXPECT_THAT(addRules(rules, expected.text),
                ElementsAre(ErrorAt(expected.line, expected.column, expected.length, expected.identifier,
                                    expected.message)));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rules, RuleDefinitionError, testing::Values(
    ErrorCase {"MisspeltKeyOfAParameter",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\n  Quantiy = Length\n", 4, 3, 7, "unknown-definition-key",
        "Unknown key 'Quantiy' in the rule '/A/PARAMETER:P'. Did you mean 'Quantity'?"},
    ErrorCase {"MisspeltKeyOfAnObject",
        "[/A]\nNaemd = Yes\n", 2, 1, 5, "unknown-definition-key",
        "Unknown key 'Naemd' in the rule '/A'. Did you mean 'Named'?"},
    ErrorCase {"KeyOfAParameterInAnObject",
        "[/A]\nUpper Bound = 1\n", 2, 1, 11, "unknown-definition-key",
        "Unknown key 'Upper Bound' in the rule '/A'. Expected 'Named' or 'Same As'."},
    ErrorCase {"UnknownType",
        "[/A]\n[/A/PARAMETER:P]\nType = Float\n", 3, 8, 5, "unknown-parameter-type",
        "Unknown parameter type 'Float'. Expected 'Real', 'Real List', 'Integer', 'Integer List', 'String', "
        "'String List' or 'Logical'."},
    ErrorCase {"NoType",
        "[/A]\n[/A/PARAMETER:P]\nQuantity = Length\n", 2, 2, 14, "missing-rule-key",
        "The rule has no 'Type'. Expected 'Real', 'Real List', 'Integer', 'Integer List', 'String', "
        "'String List' or 'Logical'."},
    ErrorCase {"TwoTypesUnderOneLastType",
        "[/A]\n[/A/X]\n[/A/X/PARAMETER:P]\nType = Real\n[/B]\n[/B/X]\n[/B/X/PARAMETER:P]\nType = String\n",
        7, 2, 16, "conflicting-parameter-type",
        "The parameter 'P' of objects of type 'X' is 'String' here but 'Real' at rules.qcl:3. It needs the same "
        "type wherever such an object stands."},
    ErrorCase {"TwoTypesBroughtTogetherBySharing",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\n[/X]\n[/X/B]\n[/X/B/PARAMETER:P]\nType = Integer\n"
        "[/B]\nSame As = /A\n",
        6, 2, 16, "conflicting-parameter-type",
        "The parameter 'P' of objects of type 'B' is 'Integer' here but 'Real' at rules.qcl:2. It needs the same "
        "type wherever such an object stands."},
    ErrorCase {"BoundWithoutNumber",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nLower Bound = zero\n", 4, 15, 4, "bad-rule-value",
        "The bound 'zero' is not a number with or without units, such as '0 [m]' or '1'."},
    ErrorCase {"BoundThatIsAnExpression",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nUpper Bound = 2 * 3 [m]\n", 4, 15, 9, "bad-rule-value",
        "The bound '2 * 3 [m]' is not a number with or without units, such as '0 [m]' or '1'."},
    ErrorCase {"UnknownKind",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nKind = expression\n", 4, 8, 10, "bad-rule-value",
        "Unknown kind 'expression'. Expected 'Expression' or nothing."},
    ErrorCase {"NeitherYesNorNo",
        "[/A]\nNamed = True\n", 2, 9, 4, "bad-rule-value", "Expected 'Yes' or 'No' for 'Named', but found 'True'."},
    ErrorCase {"SingleValuedNeitherYesNorNo",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nSingle Valued = 1\n", 4, 17, 1, "bad-rule-value",
        "Expected 'Yes' or 'No' for 'Single Valued', but found '1'."},
    ErrorCase {"EmptyPieceOfAList",
        "[/A]\n[/A/PARAMETER:P]\nType = String\nAllowed = Yes,, No\n", 4, 11, 8, "bad-rule-value",
        "The list in 'Allowed' has an empty piece."},
    ErrorCase {"PieceOfAListTwice",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nDepends On = t, x, t\n", 4, 14, 7, "bad-rule-value",
        "The list in 'Depends On' has the piece 't' twice."},
    ErrorCase {"TextThatIsNoPlaceOfUnits",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nUnits From = /B/Units\n", 4, 14, 8, "bad-rule-value",
        "Expected the path of a parameter, such as '/LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}/"
        "PARAMETER:Units', but found '/B/Units'."},
    ErrorCase {"UnitsFromAParameterOfNoObject",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nUnits From = /PARAMETER:Units\n", 4, 14, 16, "bad-rule-value",
        "Expected the path of a parameter, such as '/LIBRARY/ADDITIONAL VARIABLE:{ADDITIONAL VARIABLE}/"
        "PARAMETER:Units', but found '/PARAMETER:Units'."},
    ErrorCase {"UnitsFromALevelThatThePathDoesNotHave",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nUnits From = /L:{B}/PARAMETER:Units\n", 4, 14, 22, "bad-rule-value",
        "The name of a level of type 'B' is asked for, but the path '/A' has no such level."},
    ErrorCase {"NameInARulesPath",
        "[/A]\n[/A:b/C]\n", 2, 2, 6, "bad-rule-path",
        "The path of a rule is made of types, but '/A:b/C' names an object 'b' of type 'A'. Write the type alone, "
        "and 'Named = Yes' in its own section."},
    ErrorCase {"ParameterAboveAnObject",
        "[/A]\n[/A/PARAMETER:P/B]\n", 2, 2, 16, "bad-rule-path",
        "A parameter's level must be the last one of the path '/A/PARAMETER:P/B'."},
    ErrorCase {"ParameterOfNoObject",
        "[/PARAMETER:P]\nType = Real\n", 1, 2, 12, "bad-rule-path",
        "Expected the path of an object or of its parameter, such as '/FLOW/DOMAIN' or "
        "'/FLOW/DOMAIN/PARAMETER:Location', but found '/PARAMETER:P'."},
    ErrorCase {"ParameterOfAMisspeltObject",
        "[/FLOW]\n[/FLOW/DOMAIN]\n[/FLOW/DOMIAN/PARAMETER:P]\nType = Real\n", 3, 2, 24, "undeclared-rule-object",
        "No section declares the object '/FLOW/DOMIAN'. Is it misspelt? Otherwise begin a section [/FLOW/DOMIAN]."},
    ErrorCase {"ObjectUnderAMisspeltOne",
        "[/FLOW]\n[/FLWO/DOMAIN]\n", 2, 2, 12, "undeclared-rule-object",
        "No section declares the object '/FLWO'. Is it misspelt? Otherwise begin a section [/FLWO]."},
    ErrorCase {"SameAsNothing",
        "[/A]\nSame As = /B\n", 2, 11, 2, "unknown-same-as",
        "No section declares the object '/B', with which '/A' is to be the same."},
    ErrorCase {"SameAsNothingBehindOthers",
        "[/A]\n[/B]\nSame As = /A, /AB\n", 3, 15, 3, "unknown-same-as",
        "No section declares the object '/AB', with which '/B' is to be the same."},
    ErrorCase {"SameAsItself",
        "[/A]\nSame As = /A\n", 2, 11, 2, "unknown-same-as", "The object '/A' cannot be the same as itself."},
    ErrorCase {"QuantityOfAText",
        "[/A]\n[/A/PARAMETER:P]\nType = String\nQuantity = Length\n", 4, 12, 6, "contradictory-rule",
        "'Quantity' has no meaning for a parameter of type 'String'."},
    ErrorCase {"BoundOfALogical",
        "[/A]\n[/A/PARAMETER:P]\nType = Logical\nUpper Bound = 1\n", 4, 15, 1, "contradictory-rule",
        "'Upper Bound' has no meaning for a parameter of type 'Logical'."},
    ErrorCase {"DependencyOfAText",
        "[/A]\n[/A/PARAMETER:P]\nType = String List\nDepends On = t\n", 4, 14, 1, "contradictory-rule",
        "'Depends On' has no meaning for a parameter of type 'String List'."},
    ErrorCase {"AllowedTextsOfANumber",
        "[/A]\n[/A/PARAMETER:P]\nType = Integer\nAllowed = 1, 2\n", 4, 11, 4, "contradictory-rule",
        "'Allowed' has no meaning for a parameter of type 'Integer'."},
    ErrorCase {"TwoSourcesOfUnits",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nQuantity = Length\nUnits From = /L/PARAMETER:Units\n",
        5, 14, 18, "contradictory-rule", "'Units From' and 'Quantity' cannot both say what the units are."},
    ErrorCase {"FactorOfNoUnits",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nUnits Times = m\n", 4, 15, 1, "contradictory-rule",
        "'Units Times' has no meaning without 'Units From'."},
    ErrorCase {"ExpressionWithAQuantity",
        "[/A]\n[/A/PARAMETER:P]\nType = Real\nKind = Expression\nQuantity = Length\n", 4, 8, 10,
        "contradictory-rule", "'Kind' is 'Expression', whose units are not checked, yet there is a quantity."}),
    [](const testing::TestParamInfo<ErrorCase>& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(RuleDefinitionErrors, AreReportedTogetherInTheOrderOfTheText)
{
    RuleBook rules;

    const Diagnostics problems = addRules(rules, R"([/A]
Same As = /NOWHERE
[/A/PARAMETER:P]
Typ = Real
[/A/PARAMETER:Q]
Type = Real
Lower Bound = low
)");

    EXPECT_THAT(
        problems,
        ElementsAre(
            ErrorAt(2, 11, 8, "unknown-same-as",
                    "No section declares the object '/NOWHERE', with which '/A' is to be the same."),
            ErrorAt(3, 2, 14, "missing-rule-key",
                    "The rule has no 'Type'. Expected 'Real', 'Real List', 'Integer', 'Integer List', "
                    "'String', 'String List' or 'Logical'."),
            ErrorAt(4, 1, 3, "unknown-definition-key",
                    "Unknown key 'Typ' in the rule '/A/PARAMETER:P'. Did you mean 'Type'?"),
            ErrorAt(7, 15, 3, "bad-rule-value",
                    "The bound 'low' is not a number with or without units, such as '0 [m]' or '1'.")));
}

TEST(RuleDefinitionErrors, LeaveTheRestOfTheirSectionInForce)
{
    RuleBook rules;

    addRules(rules, "[/A]\n[/A/PARAMETER:P]\nType = Real\nLower Bound = low\nUpper Bound = 5\n");

    ASSERT_THAT(rules.find("/A", "P"), NotNull());
    EXPECT_EQ(rules.find("/A", "P")->lowerBound, "");
    EXPECT_EQ(rules.find("/A", "P")->upperBound, "5");
}

TEST(RuleDefinitionErrors, NameTheEarlierDocumentOfAConflictingType)
{
    RuleBook rules = rulesOf("[/A]\n[/A/X]\n[/A/X/PARAMETER:P]\nType = Real\n");

    EXPECT_THAT(addRules(rules,
                         "[/A/PARAMETER:Q]\nType = Real\n[/B]\n[/B/X]\n[/B/X/PARAMETER:P]\nType = String\n",
                         "more.qcl"),
                ElementsAre(ErrorAt(5, 2, 16, "conflicting-parameter-type",
                                    "The parameter 'P' of objects of type 'X' is 'String' here but 'Real' at "
                                    "rules.qcl:3. It needs the same type wherever such an object stands.")));
}

TEST(RuleDefinitionErrors, ReportAConflictOnceHoweverManyPlacesShareIt)
{
    RuleBook rules;

    EXPECT_THAT(addRules(rules,
                         "[/A]\n[/A/X]\n[/A/X/PARAMETER:P]\nType = Real\n[/B]\n[/B/X]\n[/B/X/PARAMETER:P]\n"
                         "Type = String\n[/C]\nSame As = /B\n[/C/X]\n"),
                SizeIs(1));
}

TEST(RuleDefinitionErrors, AreNotRepeatedWithEachLaterDocument)
{
    RuleBook rules;
    addRules(rules, "[/A]\n[/A/X]\n[/A/X/PARAMETER:P]\nType = Real\n[/B]\n[/B/X]\n[/B/X/PARAMETER:P]\n"
                    "Type = String\n[/C]\nSame As = /NOWHERE\n");

    EXPECT_THAT(addRules(rules, "[/D]\n"), IsEmpty());
}

TEST(RuleDefinitionErrors, PointAtTheFirstLineOfAValueThatGoesOn)
{
    RuleBook rules;

    EXPECT_THAT(
        addRules(rules, "[/A]\n[/A/PARAMETER:P]\nType = String\nAllowed = One, Two, \\\n    , Three\n"),
        ElementsAre(testing::AllOf(testing::Field(&Diagnostic::identifier, "bad-rule-value"),
                                   testing::Field(&Diagnostic::place, testing::Eq(SourcePlace {0, 4, 11})),
                                   testing::Field(&Diagnostic::length, testing::Le(11U)))));
}

// ---- Quantities and bounds, where the world has units

class RuleUnits : public testing::Test {
protected:
    RuleUnits()
    {
        const QclDocument document = readQclText("units.qcl", R"(
[/BASE UNIT:m]
Dimension = Length
[/BASE UNIT:s]
Dimension = Time
[/UNIT:cm]
Definition = m
Factor = 0.01
[/QUANTITY:Length]
Units = m
)");
        Diagnostics problems;
        m_units.addDefinitions(document, problems);
        EXPECT_THAT(problems, IsEmpty());
        m_world.units = &m_units;
    }

    Diagnostics add(const std::string& p_keys)
    {
        const WorldScope scope(m_world);
        return addRules(m_rules, "[/A]\n[/A/PARAMETER:P]\nType = Real\n" + p_keys);
    }

    UnitSystem m_units;
    World m_world;
    RuleBook m_rules;
};

TEST_F(RuleUnits, AreFineWhenBoundsFitTheQuantity)
{
    EXPECT_THAT(add("Quantity = Length\nLower Bound = 1 [cm]\nUpper Bound = 1 [m]\n"), IsEmpty());
}

TEST_F(RuleUnits, MustBeThoseOfAKnownQuantity)
{
    EXPECT_THAT(add("Quantity = Lenght\nLower Bound = 1 [m]\n"),
                ElementsAre(ErrorAt(4, 12, 6, "unknown-quantity",
                                    "The quantity 'Lenght' is not among the definitions of units.")));
}

TEST_F(RuleUnits, OfABoundMustFitTheQuantity)
{
    EXPECT_THAT(add("Quantity = Length\nLower Bound = 1 [s]\nUpper Bound = 1\n"),
                ElementsAre(ErrorAt(5, 15, 5, "bad-rule-value",
                                    "The bound '1 [s]' cannot be converted to the units 'm' of the quantity "
                                    "'Length'."),
                            ErrorAt(6, 15, 1, "bad-rule-value",
                                    "The bound '1' cannot be converted to the units 'm' of the quantity "
                                    "'Length'.")));
}

TEST_F(RuleUnits, AreComparedWhenTheBoundsAre)
{
    EXPECT_THAT(add("Quantity = Length\nLower Bound = 1 [m]\nUpper Bound = 99 [cm]\n"),
                ElementsAre(ErrorAt(5, 15, 5, "contradictory-rule",
                                    "The lower bound '1 [m]' is above the upper bound '99 [cm]'.")));
}

TEST_F(RuleUnits, ThatMultiplyMustBeUnderstood)
{
    const Diagnostics problems = add("Units From = /L/PARAMETER:Units\nUnits Times = furlong\n");

    ASSERT_THAT(problems, SizeIs(1));
    EXPECT_EQ(problems[0].identifier, "bad-rule-value");
    EXPECT_THAT(problems[0].message, testing::StartsWith("The units 'furlong' are not understood: "));
    EXPECT_EQ(problems[0].place, (SourcePlace {0, 5, 15}));
}

TEST_F(RuleUnits, AreLookedAtAgainWhenALaterDocumentOverridesAKey)
{
    ASSERT_THAT(add("Quantity = Length\nUpper Bound = 1 [m]\n"), IsEmpty());
    const WorldScope scope(m_world);

    EXPECT_THAT(addRules(m_rules, "[/A/PARAMETER:P]\nLower Bound = 2 [m]\n"),
                ElementsAre(ErrorAt(2, 15, 5, "contradictory-rule",
                                    "The lower bound '2 [m]' is above the upper bound '1 [m]'.")));
}

}    // namespace
}    // namespace qen::standalone::test
