#include "QelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen::standalone::test {
namespace {

struct BadCase {
    const char* name;
    std::string text;
    std::string message;
    std::size_t offset;
    std::size_t length;
};

void PrintTo(const BadCase& p_case, std::ostream* p_stream) { *p_stream << p_case.text; }

std::string caseName(const ::testing::TestParamInfo<BadCase>& p_info) { return p_info.param.name; }

class BadExpression : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadExpression, SaysWhatWhereAndWhatWasExpected)
{
    QelWorld world;
    world.additionalVariable("Dye", "");
    world.additionalVariable("Smoke", "parsec");
    world.namedExpression("Inlet Speed", "1 [m] +");
    world.namedExpression("Loop", "2 * Loop");
    world.namedExpression("First", "Second");
    world.namedExpression("Second", "1 + First");

    const QelResult result = world.analyse(GetParam().text);

    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->message, GetParam().message);
    EXPECT_EQ(result.error->range.offset, GetParam().offset);
    EXPECT_EQ(result.error->range.length, GetParam().length);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Syntax, BadExpression, ::testing::Values(
    BadCase {"Empty", "", "Column 1: expected a number, a name, a sign or '(', but found the end of the expression.", 0, 0},
    BadCase {"Blank", "  ", "Column 3: expected a number, a name, a sign or '(', but found the end of the expression.", 2, 0},
    BadCase {"NoOperand", "1 + ", "Column 5: expected a number, a name, a sign or '(', but found the end of the expression.", 4, 0},
    BadCase {"OperatorTwice", "1 + * 2", "Column 5: expected a number, a name, a sign or '(', but found '*'.", 4, 1},
    BadCase {"NotAsOperand", "2 ^ !1", "Column 5: expected a number, a name, a sign or '(', but found '!'.", 4, 1},
    BadCase {"NoOperator", "1 2", "Column 3: expected an operator or the end of the expression, but found '2'.", 2, 1},
    BadCase {"NameBehindNumber", "2 Pressure", "Column 3: expected an operator or the end of the expression, but found 'Pressure'.", 2, 8},
    BadCase {"SingleEquals", "1 = 2", "Column 3: expected an operator or the end of the expression, but found '='.", 2, 1},
    BadCase {"SingleAnd", "1 & 2", "Column 3: expected an operator or the end of the expression, but found '&'.", 2, 1},
    BadCase {"SingleOr", "1 | 2", "Column 3: expected an operator or the end of the expression, but found '|'.", 2, 1},
    BadCase {"NotBehindOperand", "1 ! 2", "Column 3: expected an operator or the end of the expression, but found '!'.", 2, 1},
    BadCase {"ParenthesisLeftOpen", "(1 + 2", "Column 7: expected an operator or ')', but found the end of the expression.", 6, 0},
    BadCase {"ParenthesisTooMany", "1 + 2)", "Column 6: expected an operator or the end of the expression, but found ')'.", 5, 1},
    BadCase {"EmptyParenthesis", "()", "Column 2: expected a number, a name, a sign or '(', but found ')'.", 1, 1},
    BadCase {"FunctionLeftOpen", "sin(1", "Column 6: expected an operator, ',' or ')', but found the end of the expression.", 5, 0},
    BadCase {"FunctionWithoutArgument", "sin()", "Column 5: expected a number, a name, a sign or '(', but found ')'.", 4, 1},
    BadCase {"ArgumentMissing", "min(1,)", "Column 7: expected a number, a name, a sign or '(', but found ')'.", 6, 1},
    BadCase {"CommaOutside", "1, 2", "Column 2: expected an operator or the end of the expression, but found ','.", 1, 1},
    BadCase {"TwoBlanksInName", "Total  Pressure", "Column 1: 'Total' is not known; expected a variable, an additional variable, a constant or a named expression. Words of a name are parted by one blank.", 0, 5},
    BadCase {"TwoBlanksBehindKnownName", "Velocity  u", "Column 11: expected an operator or the end of the expression, but found 'u'. Words of a name are parted by one blank.", 10, 1},
    BadCase {"TabInName", "Velocity\tu", "Column 10: expected an operator or the end of the expression, but found 'u'. Words of a name are parted by one blank.", 9, 1},
    BadCase {"UnitsWithoutBrackets", "2 * 0.5 s", "Column 9: expected an operator or the end of the expression, but found 's'. Units stand in brackets: '0.5 [s]'.", 8, 1},
    BadCase {"UnitsWithoutBracketsOrBlank", "(30deg)", "Column 4: expected an operator or ')', but found 'deg'. Units stand in brackets: '30 [deg]'.", 3, 3},
    BadCase {"ExponentWithoutDigits", "1e [s]", "Column 2: expected an operator or the end of the expression, but found 'e'. The exponent has no digits.", 1, 1},
    BadCase {"UnitsBehindAName", "2 * pi [rad]", "Column 8: expected an operator or the end of the expression, but found '['. Units follow a number or a bracket.", 7, 1},
    BadCase {"CommentBehindAValue", "1 [Pa] # gauge", "Column 8: expected an operator or the end of the expression, but found '#'. A comment has a line of its own.", 7, 1},
    BadCase {"UnknownUnitsWithoutBrackets", "5 sec", "Column 3: expected an operator or the end of the expression, but found 'sec'. Units stand in brackets: '5 [sec]'.", 2, 3},
    BadCase {"NameBehindUnits", "2 [m] s", "Column 7: expected an operator or the end of the expression, but found 's'.", 6, 1},
    BadCase {"TwoStars", "2 ** 3", "Column 4: expected a number, a name, a sign or '(', but found '*'. A power is written '^'.", 3, 1},
    BadCase {"ForeignSign", "2 × 3", "Column 3: expected an operator or the end of the expression, but found '×'.", 2, 2},
    BadCase {"ControlCharacter", "1 + \x01", "Column 5: expected a number, a name, a sign or '(', but found ' '.", 4, 1},
    BadCase {"BrokenUtf8", "1 + \xC3", "Column 5: expected a number, a name, a sign or '(', but found '\xC3'.", 4, 1},
    BadCase {"ColumnCountsCharacters", "Höhe über Grund + ?", "Column 19: expected a number, a name, a sign or '(', but found '?'.", 20, 1},
    BadCase {"DotWithoutName", "Water.", "Column 7: expected a name, but found the end of the expression.", 6, 0},
    BadCase {"DigitBehindDot", "Water.5", "Column 7: expected a name, but found '5'.", 6, 1},
    BadCase {"EmptyBraces", "Velocity{}", "Column 10: expected component letters or ':' and a coordinate frame, but found '}'.", 9, 1},
    BadCase {"BracesLeftOpen", "Velocity{x", "Column 11: expected '}' or ':' and a coordinate frame, but found the end of the expression.", 10, 0},
    BadCase {"NoFrame", "Velocity{x:}", "Column 12: expected the name of a coordinate frame, but found '}'.", 11, 1},
    BadCase {"FrameLeftOpen", "Velocity{:Rotor", "Column 16: expected '}', but found the end of the expression.", 15, 0},
    BadCase {"FrameWithASign", "Velocity{y:Rotor-1}", "Column 17: expected '}' or more of the name of a coordinate frame, which holds none of ( ) * / + - ^ [ ], but found '-'.", 16, 1},
    BadCase {"HugeNumber", "1e999", "Column 1: the number '1e999' is beyond double precision; expected one between 1e-307 and 1e308.", 0, 5}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Units, BadExpression, ::testing::Values(
    BadCase {"UnitsLeftOpen", "1 [m", "Column 3: the units that begin here have no end; expected ']'.", 2, 2},
    BadCase {"UnitsBehindVariable", "r [m]", "Column 3: expected an operator or the end of the expression, but found '['. Units follow a number or a bracket.", 2, 1},
    BadCase {"UnitsTwice", "1 [m] [m]", "Column 7: expected an operator or the end of the expression, but found '['.", 6, 1},
    BadCase {"UnitsBehindFunction", "sin(1) [m]", "Column 8: expected an operator or the end of the expression, but found '['.", 7, 1},
    BadCase {"UnitsBehindLength", "2 * (1 [m]) [s]", "Column 5: what the units 's' stand behind has the dimensions 'm' already; expected a dimensionless value.", 4, 11}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Dimensions, BadExpression, ::testing::Values(
    BadCase {"Sum", "2 * (r + t)", "Column 6: the operands of '+' in column 8 have the dimensions 'm' and 's'; expected equal ones.", 5, 5},
    BadCase {"Difference", "1 [m] - 1", "Column 1: the operands of '-' in column 7 have the dimensions 'm' and none; expected equal ones.", 0, 9},
    BadCase {"Less", "r < t", "Column 1: the operands of '<' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 5},
    BadCase {"LessEqual", "r <= t", "Column 1: the operands of '<=' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 6},
    BadCase {"Greater", "r > t", "Column 1: the operands of '>' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 5},
    BadCase {"GreaterEqual", "r >= t", "Column 1: the operands of '>=' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 6},
    BadCase {"Equal", "r == t", "Column 1: the operands of '==' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 6},
    BadCase {"Unequal", "r != t", "Column 1: the operands of '!=' in column 3 have the dimensions 'm' and 's'; expected equal ones.", 0, 6},
    BadCase {"And", "r && 1", "Column 1: the operands of '&&' have the dimensions 'm' and none; expected dimensionless ones.", 0, 6},
    BadCase {"Or", "1 || r", "Column 1: the operands of '||' have the dimensions none and 'm'; expected dimensionless ones.", 0, 6},
    BadCase {"Not", "!r", "Column 1: the operand of '!' has the dimensions 'm'; expected a dimensionless one.", 0, 2},
    BadCase {"Exponent", "2^r", "Column 1: the exponent behind '^' in column 2 has the dimensions 'm'; expected a dimensionless one.", 0, 3},
    BadCase {"VariableExponent", "r^(t / 1 [s])", "Column 1: the exponent behind '^' in column 2 is not constant, and its base has the dimensions 'm'; expected a constant or a dimensionless base.", 0, 13},
    BadCase {"HugeExponent", "r^1001", "Column 1: an exponent of the dimensions is beyond 1000.", 0, 6},
    BadCase {"InfiniteExponent", "r^(1/0)", "Column 1: an exponent of the dimensions is beyond 1000.", 0, 7},
    BadCase {"HugeProduct", "r^600 * r^600", "Column 1: an exponent of the dimensions is beyond 1000.", 0, 13},
    BadCase {"Sin", "1 + sin(r)", "Column 5: the argument of 'sin' has the dimensions 'm'; expected an angle or a number.", 4, 6},
    BadCase {"Cos", "cos(r)", "Column 1: the argument of 'cos' has the dimensions 'm'; expected an angle or a number.", 0, 6},
    BadCase {"Tan", "tan(r)", "Column 1: the argument of 'tan' has the dimensions 'm'; expected an angle or a number.", 0, 6},
    BadCase {"Asin", "asin(r)", "Column 1: the argument of 'asin' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Acos", "acos(r)", "Column 1: the argument of 'acos' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Atan", "atan(r)", "Column 1: the argument of 'atan' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Atan2", "atan2(r, t)", "Column 1: the arguments of 'atan2' have the dimensions 'm' and 's'; expected equal ones.", 0, 11},
    BadCase {"Sinh", "sinh(r)", "Column 1: the argument of 'sinh' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Cosh", "cosh(r)", "Column 1: the argument of 'cosh' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Tanh", "tanh(r)", "Column 1: the argument of 'tanh' has the dimensions 'm'; expected a number.", 0, 7},
    BadCase {"Exp", "exp(r)", "Column 1: the argument of 'exp' has the dimensions 'm'; expected a number.", 0, 6},
    BadCase {"Ln", "ln(r)", "Column 1: the argument of 'ln' has the dimensions 'm'; expected a number.", 0, 5},
    BadCase {"Log10", "log10(r)", "Column 1: the argument of 'log10' has the dimensions 'm'; expected a number.", 0, 8},
    BadCase {"Floor", "floor(r)", "Column 1: the argument of 'floor' has the dimensions 'm'; expected a number.", 0, 8},
    BadCase {"Round", "round(r)", "Column 1: the argument of 'round' has the dimensions 'm'; expected a number.", 0, 8},
    BadCase {"Min", "min(r, t)", "Column 8: argument 2 of 'min' has the dimensions 's', the first 'm'; expected equal ones.", 7, 1},
    BadCase {"MaxOfMany", "max(r, x, y, t)", "Column 14: argument 4 of 'max' has the dimensions 's', the first 'm'; expected equal ones.", 13, 1},
    BadCase {"Mod", "mod(r, t)", "Column 8: argument 2 of 'mod' has the dimensions 's', the first 'm'; expected equal ones.", 7, 1},
    BadCase {"IfCondition", "if(r, 1, 2)", "Column 1: the first argument of 'if' has the dimensions 'm'; expected a number.", 0, 11},
    BadCase {"IfValues", "if(1, r, t)", "Column 1: the second and third argument of 'if' have the dimensions 'm' and 's'; expected equal ones.", 0, 11},
    BadCase {"TooManyArguments", "sin(1, 2)", "Column 1: 'sin' is given 2 arguments; expected 1.", 0, 9},
    BadCase {"TooFewArguments", "min(1)", "Column 1: 'min' is given 1 argument; expected at least 2.", 0, 6},
    BadCase {"FarTooManyArguments", "atan2(1, 2, 3, 4, 5)", "Column 1: 'atan2' is given 5 arguments; expected 2.", 0, 20}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Names, BadExpression, ::testing::Values(
    BadCase {"Unknown", "1 + Foo", "Column 5: 'Foo' is not known; expected a variable, an additional variable, a constant or a named expression.", 4, 3},
    BadCase {"LetterCaseMatters", "pressure", "Column 1: 'pressure' is not known; expected a variable, an additional variable, a constant or a named expression. Did you mean 'Pressure'?", 0, 8},
    BadCase {"Misspelt", "2 * Velocty u", "Column 5: 'Velocty u' is not known; expected a variable, an additional variable, a constant or a named expression. Did you mean 'Velocity u'?", 4, 9},
    BadCase {"MisspeltConstant", "speed of ligth", "Column 1: 'speed of ligth' is not known; expected a variable, an additional variable, a constant or a named expression. Did you mean 'speed of light'?", 0, 14},
    BadCase {"MisspeltRootBehindAPrefix", "2 * Water.Presure", "Column 5: no component of 'Water.Presure' is known; expected a variable or an additional variable. Did you mean 'Pressure'?", 4, 13},
    BadCase {"NoKnownComponent", "Water.Foo{x}", "Column 1: no component of 'Water.Foo{x}' is known; expected a variable or an additional variable.", 0, 12},
    BadCase {"ConstantWithBraces", "pi{x}", "Column 1: 'pi' is a constant and has no components or coordinate frames; expected it without braces.", 0, 5},
    BadCase {"NamedExpressionWithBraces", "Loop{x}", "Column 1: 'Loop' is a named expression and has no components or coordinate frames; expected it without braces.", 0, 7},
    BadCase {"ValueOutsideArgument", "2 * Expression Value", "Column 5: 'Expression Value' is known only in the argument of a callback function; expected a variable, an additional variable, a constant or a named expression.", 4, 16},
    BadCase {"UnknownQuantity", "Sized", "Column 1: 'Sized' is a variable of the quantity 'Size', of which the units are not defined; expected a quantity of the units definitions.", 0, 5},
    BadCase {"NoUnits", "Dye", "Column 1: 'Dye' is an additional variable without units; expected the parameter 'Units' in object '/LIBRARY/ADDITIONAL VARIABLE:Dye'.", 0, 3},
    BadCase {"UnknownUnits", "Smoke", "Column 1: 'Smoke' is an additional variable whose units 'parsec' are not understood; expected units in the parameter 'Units' of object '/LIBRARY/ADDITIONAL VARIABLE:Smoke'.", 0, 5},
    BadCase {"InsideNamedExpression", "2 * Inlet Speed", "In the named expression 'Inlet Speed', column 8: expected a number, a name, a sign or '(', but found the end of the expression.", 4, 11},
    BadCase {"RefersToItself", "1 + Loop", "In the named expression 'Loop', column 5: named expressions form a cycle: 'Loop -> Loop'; expected an expression that does not refer to itself.", 4, 4},
    BadCase {"Cycle", "First", "In the named expression 'Second', column 5: named expressions form a cycle: 'First -> Second -> First'; expected an expression that does not refer to itself.", 0, 5}),
    caseName);

INSTANTIATE_TEST_SUITE_P(CallbackFunctions, BadExpression, ::testing::Values(
    BadCase {"Unknown", "2 * mean@Inlet(Pressure)", "Column 5: the function 'mean' is not known; expected a function of mathematics or a callback function.", 4, 4},
    BadCase {"Misspelt", "avrage@Inlet(Pressure)", "Column 1: the function 'avrage' is not known; expected a function of mathematics or a callback function. Did you mean 'average'?", 0, 6},
    BadCase {"MisspeltMathematics", "Sin(1)", "Column 1: the function 'Sin' is not known; expected a function of mathematics or a callback function. Did you mean 'sin'?", 0, 3},
    BadCase {"UnknownWithoutLocator", "time()", "Column 1: the function 'time' is not known; expected a function of mathematics or a callback function.", 0, 4},
    BadCase {"MathematicsAtALocator", "sin@Inlet(theta)", "Column 1: the function 'sin' is not known; expected a function of mathematics or a callback function.", 0, 3},
    BadCase {"DimensionsOfResult", "1 [m] + area@Wall()", "Column 1: the operands of '+' in column 7 have the dimensions 'm' and 'm^2'; expected equal ones.", 0, 19},
    BadCase {"SeveralComponents", "Water.force@Wall()", "Column 1: the callback function 'Water.force' has several components; expected a single name in front of '@'.", 0, 11},
    BadCase {"NoArgument", "average@Inlet", "Column 1: the callback function 'average' has no argument; expected '(' behind the locator.", 0, 13},
    BadCase {"ArgumentLeftOpen", "average@Inlet(f(1)", "Column 14: '(' in the argument of a callback function is not closed; expected ')'.", 13, 5},
    BadCase {"BracketsCross", "average@Inlet(a[1)]", "Column 18: ')' does not close the bracket before it; expected ']'.", 17, 1}),
    caseName);
// clang-format on

TEST(BadExpressionText, ReasonOfUnitsIsThatOfTheUnits)
{
    const QelWorld world;
    std::string reason;
    world.units.parse("parsec", &reason);

    EXPECT_EQ(world.errorOf("1 [parsec]"),
              "Column 3: the units 'parsec' are not understood: " + reason + ".");
}

TEST(BadExpressionText, QuotesAtMost80Characters)
{
    const QelWorld world;

    // 80 characters are quoted whole, also where they have more bytes
    EXPECT_EQ(
        world.errorOf("é" + std::string(79, 'a')),
        "Column 1: 'é" + std::string(79, 'a') +
            "' is not known; expected a variable, an additional variable, a constant or a named expression.");
    // one more is cut
    EXPECT_EQ(world.errorOf("é" + std::string(80, 'a')),
              "Column 1: 'é" + std::string(76, 'a') +
                  "...' is not known; expected a variable, an additional variable, a constant or a named "
                  "expression.");
}

TEST(BadExpressionText, ChainOfALongCycleLosesNamesInTheMiddle)
{
    QelWorld world;
    for (int i = 0; i < 50; ++i)
        world.namedExpression("Name " + std::to_string(i), "Name " + std::to_string((i + 1) % 50));

    EXPECT_EQ(
        world.errorOf("Name 0"),
        "In the named expression 'Name 49', column 1: named expressions form a cycle: 'Name 0 -> Name 1 -> "
        "Name 2 -> Name 3 -> Name 4 -> Name 5 -> ... -> Name 0'; expected an expression that does not refer "
        "to itself.");
}

}
}    // namespace qen::standalone::test
