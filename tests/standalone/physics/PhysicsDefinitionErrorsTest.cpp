#include "PhysicsText.h"

#include <gmock/gmock.h>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

class PhysicsDefinitionError : public testing::TestWithParam<ErrorCase> {};

TEST_P(PhysicsDefinitionError, IsReportedOnceAtItsPlace)
{
    const ErrorCase& expected = GetParam();
    PhysicsBook physics;

    EXPECT_THAT(addQueries(physics, expected.text),
                ElementsAre(ErrorAt(expected.line, expected.column, expected.length, expected.identifier,
                                    expected.message)));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Physics, PhysicsDefinitionError, testing::Values(
    // Keys
    ErrorCase {"MisspeltKeyOfAQuery",
        "[/QUERY:q]\nObject = {FLOW}\n  Paramter = Type\n", 3, 3, 8, "unknown-definition-key",
        "Unknown key 'Paramter' in the physics query '/QUERY:q'. Did you mean 'Parameter'?"},
    ErrorCase {"MisspeltAnswer",
        "[/QUERY:q]\nAnswre = Any\nObject = {FLOW}\n", 2, 1, 6, "unknown-definition-key",
        "Unknown key 'Answre' in the physics query '/QUERY:q'. Did you mean 'Answer'?"},
    ErrorCase {"AnswerOfACondition",
        "[/QUERY:q/CONDITION:c]\nObject = {FLOW}\nAnswer = Any\n", 3, 1, 6, "unknown-definition-key",
        "Unknown key 'Answer' in the physics query '/QUERY:q/CONDITION:c'. Expected 'At Least', 'At Most', 'If', 'Is', "
        "'Is Not', 'Logical', 'Names', 'Negate', 'Object', 'Parameter' or 'Query'."},
    ErrorCase {"KeyLikeNoOther",
        "[/QUERY:q]\nObject = {FLOW}\nWherever = 1\n", 3, 1, 8, "unknown-definition-key",
        "Unknown key 'Wherever' in the physics query '/QUERY:q'. Expected 'Answer', 'At Least', 'At Most', 'If', 'Is', "
        "'Is Not', 'Logical', 'Names', 'Negate', 'Object', 'Parameter' or 'Query'."},
    // Paths
    ErrorCase {"SectionOfAnotherType",
        "[/QEURY:q]\nObject = {FLOW}\n", 1, 2, 8, "bad-query-path",
        "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
        "'/QUERY:isRFR/CONDITION:motion', but found '/QEURY:q'."},
    ErrorCase {"QueryWithoutName",
        "[/QUERY]\nObject = {FLOW}\n", 1, 2, 6, "bad-query-path",
        "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
        "'/QUERY:isRFR/CONDITION:motion', but found '/QUERY'."},
    ErrorCase {"SubSectionOfAnotherType",
        "[/QUERY:q/CONDITON:c]\nObject = {FLOW}\n", 1, 2, 19, "bad-query-path",
        "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
        "'/QUERY:isRFR/CONDITION:motion', but found '/QUERY:q/CONDITON:c'."},
    ErrorCase {"ConditionWithoutName",
        "[/QUERY:q/CONDITION]\nObject = {FLOW}\n", 1, 2, 18, "bad-query-path",
        "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
        "'/QUERY:isRFR/CONDITION:motion', but found '/QUERY:q/CONDITION'."},
    ErrorCase {"LevelBelowACondition",
        "[/QUERY:q/CONDITION:c/CONDITION:d]\nObject = {FLOW}\n", 1, 2, 32, "bad-query-path",
        "Expected the path of a query or of its condition, such as '/QUERY:isRFR' or "
        "'/QUERY:isRFR/CONDITION:motion', but found '/QUERY:q/CONDITION:c/CONDITION:d'."},
    // Values
    ErrorCase {"AnswerOfAnotherKind",
        "[/QUERY:q]\nAnswer = Some\nObject = {FLOW}\n", 2, 10, 4, "bad-query-value",
        "Expected 'All', 'Any' or 'List' for 'Answer', but found 'Some'."},
    ErrorCase {"ObjectThatIsNoPath",
        "[/QUERY:q]\nObject = DOMAIN\nParameter = Type\n", 2, 10, 6, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found 'DOMAIN'."},
    ErrorCase {"ObjectWithoutAType",
        "[/QUERY:q]\nObject = {}/SIMULATION\n", 2, 10, 13, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{}/SIMULATION'."},
    ErrorCase {"ObjectWithAnOpenBrace",
        "[/QUERY:q]\nObject = {DOMAIN/BOUNDARY\n", 2, 10, 16, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN/BOUNDARY'."},
    ErrorCase {"ObjectWithoutASlash",
        "[/QUERY:q]\nObject = {DOMAIN}BOUNDARY\n", 2, 10, 16, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}BOUNDARY'."},
    ErrorCase {"ObjectWithAnEmptyName",
        "[/QUERY:q]\nObject = {DOMAIN}/BOUNDARY:\n", 2, 10, 18, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}/BOUNDARY:'."},
    ErrorCase {"NameWithAnOpenBrace",
        "[/QUERY:q]\nObject = {DOMAIN}/FLUID:{FLUID\n", 2, 10, 21, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}/FLUID:{FLUID'."},
    ErrorCase {"NameThatGoesOnBehindABrace",
        "[/QUERY:q]\nObject = {DOMAIN}/FLUID:{FLUID}s\n", 2, 10, 23, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}/FLUID:{FLUID}s'."},
    ErrorCase {"PartOfANameForEach",
        "[/QUERY:q]\nObject = {DOMAIN}/FLUID:Air*\n", 2, 10, 19, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}/FLUID:Air*'."},
    ErrorCase {"EachOfATypeWithoutAName",
        "[/QUERY:q]\nObject = {DOMAIN}/*\n", 2, 10, 10, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{DOMAIN}/*'."},
    ErrorCase {"TypeInTwoBraces",
        "[/QUERY:q]\nObject = {{DOMAIN}}/FLUID\n", 2, 10, 16, "bad-query-value",
        "Expected the path of an object, such as '{DOMAIN}/FLUID MODELS/TURBULENCE MODEL' or '{DOMAIN}/BOUNDARY:*', "
        "but found '{{DOMAIN}}/FLUID'."},
    ErrorCase {"NamesThatAreNamed",
        "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Material\nNames = /LIBRARY/MATERIAL:Air\n", 4, 9, 21,
        "bad-query-value",
        "Expected the path of one type of object without a name, such as '/LIBRARY/MATERIAL' or '{FLOW}/RIGID BODY', "
        "but found '/LIBRARY/MATERIAL:Air'."},
    ErrorCase {"NamesOfEachOfSeveral",
        "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Body\nNames = /FLOW:*/RIGID BODY\n", 4, 9, 18,
        "bad-query-value",
        "Expected the path of one type of object without a name, such as '/LIBRARY/MATERIAL' or '{FLOW}/RIGID BODY', "
        "but found '/FLOW:*/RIGID BODY'."},
    ErrorCase {"EmptyPieceOfAList",
        "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Type\nIs = A,, B\n", 4, 6, 5, "bad-query-value",
        "The list in 'Is' has an empty piece."},
    ErrorCase {"LogicalNeitherYesNorNo",
        "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Heated\nLogical = On\n", 4, 11, 2, "bad-query-value",
        "Expected 'Yes' or 'No' for 'Logical', but found 'On'."},
    ErrorCase {"NegateNeitherYesNorNo",
        "[/QUERY:q]\nObject = {DOMAIN}\nNegate = yes\n", 3, 10, 3, "bad-query-value",
        "Expected 'Yes' or 'No' for 'Negate', but found 'yes'."},
    ErrorCase {"CountThatIsNoNumber",
        "[/QUERY:q]\nObject = {DOMAIN}\nAt Least = two\n", 3, 12, 3, "bad-query-value",
        "Expected a whole number from 0 to 1000000 for 'At Least', but found 'two'."},
    ErrorCase {"CountBelowNothing",
        "[/QUERY:q]\nObject = {DOMAIN}\nAt Most = -1\n", 3, 11, 2, "bad-query-value",
        "Expected a whole number from 0 to 1000000 for 'At Most', but found '-1'."},
    ErrorCase {"CountBeyondTheLimit",
        "[/QUERY:q]\nObject = {DOMAIN}\nAt Most = 1000001\n", 3, 11, 7, "bad-query-value",
        "Expected a whole number from 0 to 1000000 for 'At Most', but found '1000001'."},
    // What is missing
    ErrorCase {"QueryWithoutConditions",
        "[/QUERY:q]\nAnswer = Any\n", 1, 2, 8, "missing-query-key",
        "The query has no condition. Expected 'Object' or 'Query', here or in a section [/QUERY:q/CONDITION:...]."},
    ErrorCase {"ConditionThatLooksNowhere",
        "[/QUERY:q/CONDITION:c]\nParameter = Type\nIs = Fluid\n", 1, 2, 20, "missing-query-key",
        "The condition has neither 'Object' nor 'Query'. Expected where to look, or what to ask."},
    // What does not go together
    ErrorCase {"TextsOfNoParameter",
        "[/QUERY:q]\nObject = {DOMAIN}\nIs = Fluid\n", 3, 6, 5, "contradictory-query",
        "'Is' has no meaning without 'Parameter'."},
    ErrorCase {"LogicalOfNoParameter",
        "[/QUERY:q]\nObject = {DOMAIN}\nLogical = Yes\n", 3, 11, 3, "contradictory-query",
        "'Logical' has no meaning without 'Parameter'."},
    ErrorCase {"NamesOfNoParameter",
        "[/QUERY:q]\nObject = {DOMAIN}\nNames = /LIBRARY/MATERIAL\n", 3, 9, 17, "contradictory-query",
        "'Names' has no meaning without 'Parameter'."},
    ErrorCase {"ParameterOfNoObject",
        "[/QUERY:p]\nObject = {FLOW}\n[/QUERY:q]\nQuery = p\nParameter = Type\n", 5, 13, 4, "contradictory-query",
        "'Parameter' has no meaning without 'Object'."},
    ErrorCase {"CountOfNoObjects",
        "[/QUERY:p]\nObject = {FLOW}\n[/QUERY:q]\nQuery = p\nAt Least = 2\n", 5, 12, 1, "contradictory-query",
        "'At Least' has no meaning without 'Object'."},
    ErrorCase {"TwoTestsOfOneParameter",
        "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Type\nIs = A\nIs Not = B\n", 5, 10, 1, "contradictory-query",
        "'Is' and 'Is Not' cannot both say what the parameter is."},
    ErrorCase {"MoreThanAreAllowed",
        "[/QUERY:q]\nObject = {DOMAIN}\nAt Least = 2\nAt Most = 1\n", 4, 11, 1, "contradictory-query",
        "'At Least' is above 'At Most'."},
    ErrorCase {"ListOfNoObjects",
        "[/QUERY:p]\nObject = {FLOW}\n[/QUERY:q]\nAnswer = List\nQuery = p\n", 5, 9, 1, "contradictory-query",
        "A list is made of the names of objects, but the condition has no 'Object'."},
    ErrorCase {"ListOfObjectsWithoutNames",
        "[/QUERY:q]\nAnswer = List\nObject = {DOMAIN}/FLUID MODELS\n", 3, 10, 21, "contradictory-query",
        "A list is made of the names of objects, but these have no names."},
    ErrorCase {"ListThatIsTurnedRound",
        "[/QUERY:q]\nAnswer = List\nObject = {DOMAIN}/FLUID:*\nNegate = Yes\n", 4, 10, 3, "contradictory-query",
        "'Negate' has no meaning in a query that answers with a list."},
    ErrorCase {"ListThatCounts",
        "[/QUERY:q]\nAnswer = List\nObject = {DOMAIN}/FLUID:*\nAt Most = 2\n", 4, 11, 1, "contradictory-query",
        "'At Most' has no meaning in a query that answers with a list."},
    // Other queries
    ErrorCase {"UnknownQuery",
        "[/QUERY:isRFR]\nObject = {DOMAIN}\n[/QUERY:q]\nObject = {FLOW}/DOMAIN:*\nQuery = isRRF\n", 5, 9, 5,
        "unknown-query", "No section defines the query 'isRRF'. Did you mean 'isRFR'?"},
    ErrorCase {"UnknownQueryThatDecidesWhetherToLook",
        "[/QUERY:isRFR]\nObject = {DOMAIN}\n[/QUERY:q]\nIf = isRRF\nObject = {FLOW}\n", 4, 6, 5,
        "unknown-query", "No section defines the query 'isRRF'. Did you mean 'isRFR'?"},
    ErrorCase {"ConditionThatLooksNowhereIfAnotherHolds",
        "[/QUERY:p]\nObject = {FLOW}\n[/QUERY:q]\nIf = p\n", 3, 2, 8, "missing-query-key",
        "The condition has neither 'Object' nor 'Query'. Expected where to look, or what to ask."},
    ErrorCase {"QueryThatAsksWhetherToAskItself",
        "[/QUERY:q]\nObject = {FLOW}\nIf = q\n", 3, 6, 1, "query-cycle",
        "Queries that ask each other never come to an answer: 'q' -> 'q'."},
    ErrorCase {"UnknownQueryLikeNoOther",
        "[/QUERY:q]\nQuery = isSomethingElse\n", 2, 9, 15, "unknown-query",
        "No section defines the query 'isSomethingElse'."},
    ErrorCase {"QueryThatAsksItself",
        "[/QUERY:q]\nQuery = q\n", 2, 9, 1, "query-cycle",
        "Queries that ask each other never come to an answer: 'q' -> 'q'."},
    ErrorCase {"QueriesThatAskEachOther",
        "[/QUERY:c]\nQuery = a b\n[/QUERY:a b]\nObject = {FLOW}\n[/QUERY:a b/CONDITION:1]\nQuery = d\n"
        "[/QUERY:d]\nObject = {FLOW}\nQuery = c\n[/QUERY:e]\nQuery = c\n", 9, 9, 1, "query-cycle",
        "Queries that ask each other never come to an answer: 'a b' -> 'd' -> 'c' -> 'a b'."}),
    [](const testing::TestParamInfo<ErrorCase>& p_info) { return std::string(p_info.param.name); });
// clang-format on

TEST(PhysicsDefinitionErrors, AreReportedTogetherInTheOrderOfTheText)
{
    PhysicsBook physics;

    EXPECT_THAT(
        addQueries(physics, R"([/QUERY:a]
Query = b
Negate = Perhaps
[/QUERY:c]
Answer = List
[/QUERY:d]
Objetc = {FLOW}
)"),
        ElementsAre(
            ErrorAt(2, 9, 1, "unknown-query", "No section defines the query 'b'."),
            ErrorAt(3, 10, 7, "bad-query-value", "Expected 'Yes' or 'No' for 'Negate', but found 'Perhaps'."),
            ErrorAt(4, 2, 8, "missing-query-key",
                    "The query has no condition. Expected 'Object' or 'Query', here or in a section "
                    "[/QUERY:c/CONDITION:...]."),
            ErrorAt(7, 1, 6, "unknown-definition-key",
                    "Unknown key 'Objetc' in the physics query '/QUERY:d'. Did you mean 'Object'?")));
}

TEST(PhysicsDefinitionErrors, LimitHowDeepQueriesAskOthers)
{
    const auto chain = [](int p_length) {
        std::string text;
        for (int i = 1; i < p_length; ++i)
            text += "[/QUERY:q" + std::to_string(i) + "]\nQuery = q" + std::to_string(i + 1) + "\n";
        return text + "[/QUERY:q" + std::to_string(p_length) + "]\nObject = {FLOW}\n";
    };
    PhysicsBook fine;
    PhysicsBook tooDeep;

    EXPECT_THAT(addQueries(fine, chain(32)), IsEmpty());
    EXPECT_THAT(
        addQueries(tooDeep, chain(33)),
        ElementsAre(ErrorAt(2, 9, 2, "query-too-deep", "The query asks others more than 32 levels deep.")));
}

TEST(PhysicsDefinitionErrors, LimitTheNumberOfConditions)
{
    const auto conditions = [](int p_count) {
        std::string text;
        for (int i = 0; i < p_count; ++i)
            text += "[/QUERY:q/CONDITION:c" + std::to_string(i) + "]\nObject = {FLOW}\n";
        return text;
    };
    PhysicsBook fine;
    PhysicsBook tooMany;

    EXPECT_THAT(addQueries(fine, conditions(100)), IsEmpty());
    EXPECT_THAT(addQueries(fine, "[/QUERY:q/CONDITION:c99]\nNegate = Yes\n"), IsEmpty());
    EXPECT_THAT(addQueries(tooMany, conditions(101)),
                ElementsAre(ErrorAt(201, 2, 23, "too-many-conditions",
                                    "The query 'q' has more than 100 conditions.")));
}

TEST(PhysicsDefinitionErrors, LimitTheLengthOfAPath)
{
    PhysicsBook physics;

    EXPECT_THAT(addQueries(physics, "[/QUERY:q]\nObject = /" + std::string(2048, 'A') + "\n"),
                ElementsAre(ErrorAt(2, 10, 2049, "bad-query-value",
                                    "The path is 2049 bytes long. The limit is 2048.")));
}

TEST(PhysicsDefinitionErrors, ShowTheEndOfALongCircle)
{
    std::string text;
    for (int i = 100; i < 200; ++i)
        text +=
            "[/QUERY:q" + std::to_string(i) + "]\nQuery = q" + std::to_string(i < 199 ? i + 1 : 100) + "\n";
    PhysicsBook physics;

    const Diagnostics problems = addQueries(physics, text);

    ASSERT_FALSE(problems.empty());
    EXPECT_EQ(problems.back().message.substr(0, 70),
              "Queries that ask each other never come to an answer: ... -> 'q180' -> ");
}

TEST(PhysicsDefinitionErrors, LeaveTheRestOfTheirSectionInForce)
{
    PhysicsBook physics;
    addQueries(physics, "[/QUERY:q]\nObject = {DOMAIN}\nParameter = Type\nIs = Solid\nNegate = Perhaps\n");
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\nType = Solid\n");

    EXPECT_TRUE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsDefinitionErrors, LetQuestionsInACircleEnd)
{
    PhysicsBook physics;
    addQueries(physics, "[/QUERY:a]\nQuery = b\n[/QUERY:b]\nQuery = a\n");
    const ModelTree model = modelOf("[/FLOW:F]\n");

    EXPECT_FALSE(physics.evalBool("a", "/FLOW:F", &model));
    EXPECT_FALSE(physics.evalBool("b", "/FLOW:F", &model));
}

TEST(PhysicsDefinitionErrors, AreNotRepeatedWithEachLaterDocument)
{
    PhysicsBook physics;
    addQueries(physics,
               "[/QUERY:a]\nQuery = b\n[/QUERY:b]\nQuery = a\n[/QUERY:c]\nQuery = nowhere\n[/QUERY:d]\n");

    EXPECT_THAT(addQueries(physics, "[/QUERY:e]\nQuery = c\n"), IsEmpty());
}

TEST(PhysicsDefinitionErrors, NameTheConditionOfALaterDocumentThatClosesACircle)
{
    PhysicsBook physics = physicsOf("[/QUERY:a]\nQuery = b\n[/QUERY:b]\nObject = {FLOW}\n");

    EXPECT_THAT(
        addQueries(physics, "# more\n[/QUERY:b]\nQuery = a\n", "more.qcl"),
        ElementsAre(ErrorAt(3, 9, 1, "query-cycle",
                            "Queries that ask each other never come to an answer: 'a' -> 'b' -> 'a'.")));
}

TEST(PhysicsDefinitionErrors, TellWhenALaterDocumentTakesTheLastConditionBack)
{
    PhysicsBook physics = physicsOf("[/QUERY:q]\nObject = {DOMAIN}\n");
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D]\n");

    EXPECT_THAT(addQueries(physics, "[/QUERY:q]\nObject =\n"),
                ElementsAre(ErrorAt(1, 2, 8, "missing-query-key",
                                    "The query has no condition. Expected 'Object' or 'Query', here or in a "
                                    "section [/QUERY:q/CONDITION:...].")));
    EXPECT_FALSE(physics.evalBool("q", "/FLOW:F/DOMAIN:D", &model));
}

TEST(PhysicsDefinitionErrors, PointAtTheSectionWhenTheKeyStandsInAnEarlierDocument)
{
    PhysicsBook physics = physicsOf("[/QUERY:q]\nObject = {DOMAIN}\nParameter = Type\nIs = Solid\n");

    EXPECT_THAT(
        addQueries(physics, "[/QUERY:q]\nParameter =\n"),
        ElementsAre(ErrorAt(1, 2, 8, "contradictory-query", "'Is' has no meaning without 'Parameter'.")));
}

}    // namespace
}    // namespace qen::standalone::test
