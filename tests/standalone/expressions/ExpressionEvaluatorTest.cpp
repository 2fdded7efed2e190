#include "QelWorld.h"

#include "CallbackInfo.h"
#include "ExpressionEvaluator.h"
#include "ExpressionsError.h"
#include "QELName.h"
#include "Quantity.h"
#include "UnitDimensions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class Call>
std::string errorOf(const Call& p_call)
{
    try
    {
        p_call();
    }
    catch (const expressions::error& error)
    {
        EXPECT_EQ(error.getType(), ErrorTypeError);
        return error.errorMessage();
    }
    return "no error";
}

TEST(ExpressionEvaluatorTest, FillsVariablesAndDimensionsFromTheCurrentWorld)
{
    const QelWorld world;
    const WorldScope scope(world.world);
    std::vector<std::string> variables {"left over"};
    std::vector<CallbackInfo> callbacks(1);
    UnitDimensions dims;

    ExpressionEvaluator::getVariablesAndCallbacks("r / t", variables, callbacks, dims, "Speed");

    EXPECT_THAT(variables, ElementsAre("r", "t"));
    EXPECT_THAT(callbacks, IsEmpty());
    EXPECT_EQ(world.units.baseUnits(dims), "m s^-1");
}

TEST(ExpressionEvaluatorTest, ThrowsForABadExpression)
{
    const QelWorld world;
    const WorldScope scope(world.world);

    EXPECT_EQ(
        errorOf([] {
            std::vector<std::string> variables;
            std::vector<CallbackInfo> callbacks;
            UnitDimensions dims;
            ExpressionEvaluator::getVariablesAndCallbacks("1 +", variables, callbacks, dims, "Speed");
        }),
        "ExpressionEvaluator::getVariablesAndCallbacks: Column 4: expected a number, a name, a sign or '(', "
        "but found the end of the expression.");
}

TEST(ExpressionEvaluatorTest, AnswersWithoutAWorld)
{
    const World nothing;
    const WorldScope scope(nothing);

    EXPECT_EQ(ExpressionEvaluator::evalSingleValue("2 * 3", "").getValue(), 6.0F);
    EXPECT_EQ(ExpressionEvaluator::rootVariableName("Pressure"), "");
    EXPECT_EQ(
        errorOf([] { ExpressionEvaluator::evalSingleValue("1 [m]", ""); }),
        "ExpressionEvaluator::evalSingleValue: Column 3: the units 'm' are not understood: no units are "
        "defined.");
}

TEST(EvalSingleValue, IsInBaseUnits)
{
    const QelWorld world;
    const WorldScope scope(world.world);

    const Quantity quantity = ExpressionEvaluator::evalSingleValue("250 [cm] / 2 [s]", "Speed");

    EXPECT_FLOAT_EQ(quantity.getValue(), 1.25F);
    EXPECT_EQ(quantity.getUnits(), "m s^-1");
}

TEST(EvalSingleValue, IsRefusedWhenThereIsNone)
{
    const QelWorld world;
    const WorldScope scope(world.world);
    const auto evaluate = [](const char* p_text) {
        return errorOf([=] { ExpressionEvaluator::evalSingleValue(p_text, "Speed"); });
    };

    EXPECT_EQ(evaluate("r"),
              "ExpressionEvaluator::evalSingleValue: The expression has no single value: it refers to "
              "variables or callback functions; expected a constant.");
    EXPECT_EQ(evaluate("1 / 0"),
              "ExpressionEvaluator::evalSingleValue: The value of the expression is not finite; "
              "expected a finite number.");
    EXPECT_EQ(evaluate("1e39"),
              "ExpressionEvaluator::evalSingleValue: The value of the expression is beyond single "
              "precision; expected one of at most 3.4e38 in base units.");
    EXPECT_EQ(evaluate("1e38"), "no error");
}

TEST(RootVariableName, IsLastButOneThenLastThenFirstKnownFromTheRight)
{
    QelWorld world;
    world.additionalVariable("Field", "A", "VECTOR");
    const WorldScope scope(world.world);
    const auto root = [](const char* p_name) { return ExpressionEvaluator::rootVariableName(p_name); };

    EXPECT_EQ(root("Pressure"), "Pressure");
    EXPECT_EQ(root("Static Pressure"), "Static Pressure");
    EXPECT_EQ(root("Water.Pressure"), "Pressure");
    EXPECT_EQ(root("Pressure.Ave"), "Pressure");
    EXPECT_EQ(root("Water.Velocity{x}.Gradient{y}"), "Velocity");
    EXPECT_EQ(root("Pressure.Density"), "Pressure");
    EXPECT_EQ(root("Density.Pressure.A.B"), "Pressure");
    EXPECT_EQ(root("Velocity{x:A.Pressure}.B.C"), "Velocity");
    EXPECT_EQ(root("Field X"), "Field X");
    EXPECT_EQ(root("Expression Value"), "Expression Value");
    EXPECT_EQ(root("Expression Value.Ave"), "Expression Value");
    EXPECT_EQ(root("Foo"), "");
    EXPECT_EQ(root("A.B.C.D"), "");
    EXPECT_EQ(root("pi"), "");
    EXPECT_EQ(root(""), "");
    EXPECT_EQ(root("Pressure + 1"), "");
    EXPECT_EQ(root("Pressure "), "");
}

std::vector<std::string> split(const std::string& p_text)
{
    std::vector<QELName::Component> components;
    if (!QELName::splitVariableName(p_text, components))
        return {"not in syntax", std::to_string(components.size())};
    std::vector<std::string> texts;
    for (const QELName::Component& component : components)
        texts.push_back(component.name() + '|' + component.selector() + '|' + component.frame());
    return texts;
}

TEST(SplitVariableName, GivesComponentsInOrder)
{
    EXPECT_THAT(split("Pressure"), ElementsAre("Pressure||"));
    EXPECT_THAT(split("Air Mix.Velocity{x:Rotor 1}.Gradient{y}"),
                ElementsAre("Air Mix||", "Velocity|x|Rotor 1", "Gradient|y|"));
    EXPECT_THAT(split("Stress{xy}"), ElementsAre("Stress|xy|"));
    EXPECT_THAT(split("Velocity{: Rotor }"), ElementsAre("Velocity||Rotor"));
    EXPECT_THAT(split("Höhe_2"), ElementsAre("Höhe_2||"));
}

TEST(SplitVariableName, RefusesWhatIsNoName)
{
    for (const char* text : {"", " ", "2", "a  b", "a ", " a", "a.", ".a", "a..b", "a{x", "a{}", "a{x}{y}",
                             "a{x:}", "a{x y}", "a + b", "Dye-2", "a{:b{c}}", "a {x}", "a?"})
        EXPECT_THAT(split(text), ElementsAre("not in syntax", "0")) << text;
}

TEST(SplitCallbackName, GivesBaseNameAndAxis)
{
    std::string text;
    QELName::Component component;

    QELName::splitCallbackName("force{x}", text, component);
    EXPECT_EQ(component.name(), "force");
    EXPECT_EQ(component.selector(), "x");

    QELName::splitCallbackName("average", text, component);
    EXPECT_EQ(component.name(), "average");
    EXPECT_EQ(component.selector(), "");

    QELName::splitCallbackName("force{", text, component);
    EXPECT_EQ(component.name(), "force{");
    EXPECT_EQ(component.selector(), "");
}

TEST(IsQelName, KnowsWhatCanBeWritten)
{
    for (const char* name : {"a", "Total Pressure", "Normal X", "a_1", "Dye 2", "Höhe", "Ωmega", "水", "ﬁne"})
        EXPECT_TRUE(isQelName(name)) << name;
    for (const char* name : {"", "2a", "_a", "a  b", "a ", " a", "Dye-2", "a.b", "a{x}", "5 µ?", "a\tb",
                             "a×b", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "a°", "→"})
        EXPECT_FALSE(isQelName(name)) << name;
}

TEST(IsQelConstant, KnowsConstantsOnly)
{
    EXPECT_TRUE(isQelConstant("pi"));
    EXPECT_TRUE(isQelConstant("speed of light"));
    EXPECT_FALSE(isQelConstant("Pi"));
    EXPECT_FALSE(isQelConstant("sin"));
    EXPECT_FALSE(isQelConstant(""));
}

}
}    // namespace qen::standalone::test
