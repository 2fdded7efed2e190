#include "StoreTest.h"

#include "UnitsError.h"

#include "support/HostTextScript.h"
#include "support/ScriptedHost.h"

#include <functional>
#include <string>
#include <utility>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

using Store = PreVariableDefStore;

/// A definition of a scalar operator, with these keys more or instead.
Definition timeAverage(Definition p_more = {})
{
    p_more.insert({{"Tensor Type", "SCALAR"}, {"Long Name", "Time Average"}});
    return p_more;
}

/// A definition of a vector operator, with these keys more or instead.
Definition gradient(Definition p_more = {})
{
    p_more.insert({{"Tensor Type", "VECTOR"},
                   {"Long Name", "Gradient"},
                   {"Component Short Names", "ddx,ddy,ddz"},
                   {"Component Long Names", "Gradient x,Gradient y,Gradient z"}});
    return p_more;
}

Definition without(const std::string& p_key, Definition p_definition)
{
    p_definition.erase(p_key);
    return p_definition;
}

class OperatorTest : public StoreTest {
protected:
    /// The text of what a definition named "op" throws.
    std::string fault(const Definition& p_definition)
    {
        const auto thrown =
            thrownBy<data::error>([&] { m_store.addVariableOperatorDefinition("op", p_definition); });
        return thrown ? thrown->getMessage() : "";
    }

    ScriptedHost m_host;
};

class OperatorDefinition : public OperatorTest {};
class OperatorAvailability : public OperatorTest {};
class OperatorModifier : public OperatorTest {};
class Operators : public OperatorTest {};

// What a definition adds.

TEST_F(OperatorDefinition, OfAScalarAddsItUnderBothNames)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());

    EXPECT_EQ(m_store.getOperatorAlias("tave"), "Time Average");
    EXPECT_EQ(m_store.getOperatorAlias("Time Average"), "tave");
    for (const char* name : {"tave", "Time Average"})
    {
        EXPECT_TRUE(m_store.hasOperator(name)) << name;
        EXPECT_EQ(m_store.getOperatorTensorType(name), Store::SCALAR) << name;
    }
}

TEST_F(OperatorDefinition, OfAVectorAddsItAndItsComponentsUnderEightNames)
{
    m_store.addVariableOperatorDefinition(
        "grad", gradient({{"Dimensions Modifier", "[m^-1]"}, {"QEL Availability", "GENERAL,POST"}}));

    const std::pair<const char*, const char*> names[] {
        {"grad", "Gradient"}, {"ddx", "Gradient x"}, {"ddy", "Gradient y"}, {"ddz", "Gradient z"}};
    for (const auto& [shortName, longName] : names)
    {
        EXPECT_EQ(m_store.getOperatorAlias(shortName), longName);
        EXPECT_EQ(m_store.getOperatorAlias(longName), shortName);
        for (const char* name : {shortName, longName})
        {
            EXPECT_EQ(m_store.getOperatorTensorType(name),
                      shortName == names[0].first ? Store::VECTOR : Store::SCALAR)
                << name;
            EXPECT_EQ(m_store.getOperatorDimensionModifier(name), "[m^-1]") << name;
            EXPECT_TRUE(m_store.doesOperatorHaveAvailability(name, "GENERAL")) << name;
            EXPECT_TRUE(m_store.doesOperatorHaveAvailability(name, "POST")) << name;
        }
    }
}

TEST_F(OperatorDefinition, OfAScalarDoesNotReadComponentNames)
{
    m_store.addVariableOperatorDefinition(
        "tave", timeAverage({{"Component Short Names", "a,b,c"}, {"Component Long Names", "d"}}));

    for (const char* name : {"a", "b", "c", "d"})
        EXPECT_FALSE(m_store.hasOperator(name)) << name;
}

TEST_F(OperatorDefinition, MayHaveOtherKeys)
{
    m_store.addVariableOperatorDefinition(
        "tave", timeAverage({{"Quantity", "No Such Quantity"}, {"dimensions modifier", "none"}, {"", ""}}));

    EXPECT_EQ(m_store.getOperatorDimensionModifier("tave"), "[ ]");
}

TEST_F(OperatorDefinition, MayHaveAnEmptyLongName)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage({{"Long Name", ""}}));

    EXPECT_EQ(m_store.getOperatorAlias("tave"), "");
    EXPECT_EQ(m_store.getOperatorAlias(""), "tave");
}

// Dimension modifier.

TEST_F(OperatorModifier, IsABlankInBracketsWhenItIsNotGiven)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());

    EXPECT_EQ(m_store.getOperatorDimensionModifier("tave"), "[ ]");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("Time Average"), "[ ]");
    EXPECT_THAT(m_host.calls(), IsEmpty());
}

TEST_F(OperatorModifier, InBracketsIsKeptAsItIsWrittenOnceTheHostHasUnderstoodIt)
{
    m_store.addVariableOperatorDefinition(
        "a", timeAverage({{"Long Name", "A"}, {"Dimensions Modifier", "[ cm^-1 ]"}}));
    m_store.addVariableOperatorDefinition("b",
                                          timeAverage({{"Long Name", "B"}, {"Dimensions Modifier", "[]"}}));
    m_store.addVariableOperatorDefinition("c",
                                          timeAverage({{"Long Name", "C"}, {"Dimensions Modifier", "[ ]"}}));

    EXPECT_EQ(m_store.getOperatorDimensionModifier("a"), "[ cm^-1 ]");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("b"), "[]");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("c"), "[ ]");
    EXPECT_THAT(m_host.calls(), ElementsAre("units.dimsFromUnits( cm^-1 )", "units.dimsFromUnits()",
                                            "units.dimsFromUnits( )"));
}

TEST_F(OperatorModifier, GivenAsAQuantityIsItsBaseUnitsInBrackets)
{
    m_host.quantity("Inverse Length", "m^-1");
    m_host.quantity("Ratio", "");

    m_store.addVariableOperatorDefinition("grad", gradient({{"Dimensions Modifier", "Inverse Length"}}));
    m_store.addVariableOperatorDefinition("tave", timeAverage({{"Dimensions Modifier", "Ratio"}}));

    EXPECT_EQ(m_store.getOperatorDimensionModifier("grad"), "[m^-1]");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("Gradient z"), "[m^-1]");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("tave"), "[]");
}

TEST_F(OperatorModifier, IsAQuantityUnlessItHasBothBracketsAtItsEnds)
{
    for (const char* text : {"[", "]", "", "m", "[m", "m]", " [m]", "[m] ", "]m["})
    {
        m_host.forgetCalls();
        const auto thrown = thrownBy<units::error>([&] {
            m_store.addVariableOperatorDefinition("op", timeAverage({{"Dimensions Modifier", text}}));
        });
        ASSERT_TRUE(thrown) << text;
        EXPECT_EQ(thrown->getMessage(), "No such quantity: '" + std::string(text) + "'.");
        EXPECT_THAT(m_host.calls(), ElementsAre("units.getBaseUnitsFromQuant(" + std::string(text) + ")"));
    }
    EXPECT_FALSE(m_store.hasOperator("op"));
    EXPECT_FALSE(m_store.hasOperator("Time Average"));
}

TEST_F(OperatorModifier, LetsTheErrorOfTheUnitsPass)
{
    const auto thrown = thrownBy<units::error>([&] {
        m_store.addVariableOperatorDefinition("op", gradient({{"Dimensions Modifier", "[knots]"}}));
    });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->errorMessage(), "UnitsConverter::dimsFromUnits: No such units: 'knots'.");
    EXPECT_FALSE(m_store.hasOperator("op"));
}

// Availability.

TEST_F(OperatorAvailability, IsGeneralWhenItIsNotGiven)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());

    for (const char* name : {"tave", "Time Average"})
    {
        EXPECT_TRUE(m_store.doesOperatorHaveAvailability(name, "GENERAL")) << name;
        for (const char* keyword : {"QEL", "POST", "general", "GENERAL ", ""})
            EXPECT_FALSE(m_store.doesOperatorHaveAvailability(name, keyword)) << keyword;
    }
}

TEST_F(OperatorAvailability, IsExactlyTheListThatIsGiven)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage({{"QEL Availability", "POST, QEL"}}));

    EXPECT_TRUE(m_store.doesOperatorHaveAvailability("tave", "POST"));
    EXPECT_TRUE(m_store.doesOperatorHaveAvailability("Time Average", "QEL"));
    EXPECT_FALSE(m_store.doesOperatorHaveAvailability("tave", "GENERAL"));
    EXPECT_FALSE(m_store.doesOperatorHaveAvailability("tave", "post"));
    EXPECT_FALSE(m_store.doesOperatorHaveAvailability("tave", "POST, QEL"));
}

TEST_F(OperatorAvailability, IsNothingWhenAnEmptyListIsGiven)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage({{"QEL Availability", ""}}));

    EXPECT_FALSE(m_store.doesOperatorHaveAvailability("tave", "GENERAL"));
    EXPECT_FALSE(m_store.doesOperatorHaveAvailability("tave", ""));
}

// What is refused.

using MissingCase = std::pair<const char*, Definition (*)(Definition)>;

class OperatorDefinitionWithout : public OperatorTest, public testing::WithParamInterface<MissingCase> {};

TEST_P(OperatorDefinitionWithout, ARequiredKeyIsRefused)
{
    const char* key = GetParam().first;
    const auto definition = GetParam().second;

    EXPECT_THAT(thrownBy<data::error>(
                    [&] { m_store.addVariableOperatorDefinition("op", without(key, definition({}))); }),
                Optional(IsThrownBy("addVariableOperatorDefinition",
                                    "The Variable Operator named 'op' does not have a '" + std::string(key) +
                                        "' parameter")));
    for (const char* name : {"op", "Gradient", "Time Average", "ddx", "Gradient x"})
        EXPECT_FALSE(m_store.hasOperator(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(Scalar, OperatorDefinitionWithout,
                         testing::Values(MissingCase {"Tensor Type", timeAverage},
                                         MissingCase {"Long Name", timeAverage}));
INSTANTIATE_TEST_SUITE_P(Vector, OperatorDefinitionWithout,
                         testing::Values(MissingCase {"Tensor Type", gradient},
                                         MissingCase {"Long Name", gradient},
                                         MissingCase {"Component Short Names", gradient},
                                         MissingCase {"Component Long Names", gradient}));

TEST_F(OperatorDefinition, RefusesAListThatIsNotOfThree)
{
    for (const char* key : {"Component Short Names", "Component Long Names"})
        for (const char* list : {"", "a", "a,b", "a,b,c,d"})
            EXPECT_THAT(thrownBy<data::error>([&] {
                            m_store.addVariableOperatorDefinition("op", gradient({{key, list}}));
                        }),
                        Optional(IsThrownBy("addVariableOperatorDefinition",
                                            "The Variable Operator named 'op' has an invalid '" +
                                                std::string(key) + "' parameter")))
                << list;

    for (const char* name : {"op", "Gradient", "ddx", "Gradient x", "a"})
        EXPECT_FALSE(m_store.hasOperator(name)) << name;
}

TEST_F(OperatorDefinition, RefusesEveryOtherTensorType)
{
    for (const char* type : {"SYMTEN2", "scalar", "Vector", "", " SCALAR", "TENSOR"})
        EXPECT_THAT(thrownBy<data::error>([&] {
                        m_store.addVariableOperatorDefinition("op", gradient({{"Tensor Type", type}}));
                    }),
                    Optional(IsThrownBy("addVariableOperatorDefinition",
                                        "The Variable Operator named 'op' has a 'Tensor Type' of unsupported "
                                        "type '" +
                                            std::string(type) + "'.")));
    EXPECT_FALSE(m_store.hasOperator("op"));
}

TEST_F(OperatorDefinition, ReportsItsFirstFaultInReadingOrder)
{
    // Given a definition of which nothing is right
    Definition definition {{"Dimensions Modifier", "[knots]"}};

    // Then its faults come one behind the other as each is put right
    EXPECT_EQ(fault(definition), "The Variable Operator named 'op' does not have a 'Tensor Type' parameter");
    definition["Tensor Type"] = "TENSOR";
    EXPECT_EQ(fault(definition),
              "The Variable Operator named 'op' has a 'Tensor Type' of unsupported type 'TENSOR'.");
    definition["Tensor Type"] = "VECTOR";
    EXPECT_THROW(m_store.addVariableOperatorDefinition("op", definition), units::error);
    definition["Dimensions Modifier"] = "[m]";
    EXPECT_EQ(fault(definition), "The Variable Operator named 'op' does not have a 'Long Name' parameter");
    definition["Long Name"] = "Operator";
    EXPECT_EQ(fault(definition),
              "The Variable Operator named 'op' does not have a 'Component Short Names' parameter");
    definition["Component Short Names"] = "a,b";
    EXPECT_EQ(fault(definition),
              "The Variable Operator named 'op' has an invalid 'Component Short Names' parameter");
    definition["Component Short Names"] = "a,b,c";
    EXPECT_EQ(fault(definition),
              "The Variable Operator named 'op' does not have a 'Component Long Names' parameter");
    definition["Component Long Names"] = "A,B,C,D";
    EXPECT_EQ(fault(definition),
              "The Variable Operator named 'op' has an invalid 'Component Long Names' parameter");
    EXPECT_FALSE(m_store.hasOperator("op"));

    definition["Component Long Names"] = "A,B,C";
    m_store.addVariableOperatorDefinition("op", definition);
    EXPECT_EQ(m_store.getOperatorAlias("C"), "c");
}

TEST_F(OperatorDefinition, ReadsItsAvailabilityBeforeItsLongName)
{
    support::HostTextScript texts;

    // Without a long name the availability is read, and then missed is the name
    EXPECT_EQ(fault({{"Tensor Type", "SCALAR"}, {"QEL Availability", "QEL,RESULTS"}}),
              "The Variable Operator named 'op' does not have a 'Long Name' parameter");
    EXPECT_THAT(texts.calls(), ElementsAre("stringToSet(QEL,RESULTS)"));

    // A modifier that is not understood ends the reading before that
    texts.forgetCalls();
    EXPECT_THROW(m_store.addVariableOperatorDefinition("op", {{"Tensor Type", "SCALAR"},
                                                              {"Dimensions Modifier", "[knots]"},
                                                              {"QEL Availability", "QEL"}}),
                 units::error);
    EXPECT_THAT(texts.calls(), IsEmpty());
}

// Names that are there already.

TEST_F(OperatorDefinition, OfTheSameShortNameIsADuplicateAndLeavesTheFirst)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage({{"Dimensions Modifier", "[s]"}}));

    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableOperatorDefinition(
                        "tave", timeAverage({{"Long Name", "Other"}, {"Dimensions Modifier", "[m]"}}));
                }),
                Optional(IsThrownBy("addVariableOperator", "Variable Operator 'tave' already exists.")));

    EXPECT_EQ(m_store.getOperatorAlias("tave"), "Time Average");
    EXPECT_EQ(m_store.getOperatorDimensionModifier("tave"), "[s]");
    EXPECT_FALSE(m_store.hasOperator("Other"));
}

TEST_F(OperatorDefinition, OfTheSameLongNameLeavesItsShortNameInTheCatalogue)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());

    EXPECT_THAT(
        thrownBy<data::duplicate>([&] { m_store.addVariableOperatorDefinition("mean", timeAverage()); }),
        Optional(IsThrownBy("addVariableOperator", "Variable Operator 'Time Average' already exists.")));

    EXPECT_EQ(m_store.getOperatorAlias("mean"), "Time Average");
    EXPECT_EQ(m_store.getOperatorAlias("Time Average"), "tave");
}

TEST_F(OperatorDefinition, WhoseTwoNamesAreTheSameFailsOnTheSecond)
{
    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableOperatorDefinition("tave", timeAverage({{"Long Name", "tave"}}));
                }),
                Optional(IsThrownBy("addVariableOperator", "Variable Operator 'tave' already exists.")));

    EXPECT_EQ(m_store.getOperatorAlias("tave"), "tave");
}

TEST_F(OperatorDefinition, OfAVectorKeepsTheComponentsBeforeTheOneThatClashes)
{
    EXPECT_THAT(thrownBy<data::duplicate>([&] {
                    m_store.addVariableOperatorDefinition(
                        "grad", gradient({{"Component Long Names", "Gradient x,ddx,Gradient z"}}));
                }),
                Optional(IsThrownBy("addVariableOperator", "Variable Operator 'ddx' already exists.")));

    // Names are added in pairs, short before long
    for (const char* name : {"grad", "Gradient", "ddx", "Gradient x", "ddy"})
        EXPECT_TRUE(m_store.hasOperator(name)) << name;
    for (const char* name : {"ddz", "Gradient z"})
        EXPECT_FALSE(m_store.hasOperator(name)) << name;
    EXPECT_EQ(m_store.getOperatorAlias("ddx"), "Gradient x");
}

TEST_F(Operators, MayBeAddedOneByOne)
{
    m_store.addVariableOperator("curl", "not read [at all", Store::SYMTEN2, {"A", "B"}, "Rotation");

    EXPECT_EQ(m_store.getOperatorDimensionModifier("curl"), "not read [at all");
    EXPECT_EQ(m_store.getOperatorTensorType("curl"), Store::SYMTEN2);
    EXPECT_TRUE(m_store.doesOperatorHaveAvailability("curl", "B"));
    EXPECT_EQ(m_store.getOperatorAlias("curl"), "Rotation");
    EXPECT_FALSE(m_store.hasOperator("Rotation"));
    EXPECT_THAT(thrownBy<data::duplicate>(
                    [&] { m_store.addVariableOperator("curl", "[m]", Store::SCALAR, {}, "Other"); }),
                Optional(IsThrownBy("addVariableOperator", "Variable Operator 'curl' already exists.")));
    EXPECT_EQ(m_store.getOperatorAlias("curl"), "Rotation");
}

// Queries.

using Query = std::pair<const char*, std::function<void(const Store&)>>;

class OperatorQuery : public OperatorTest, public testing::WithParamInterface<Query> {};

TEST_P(OperatorQuery, OfAnUnknownOperatorNamesItself)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(thrownBy<data::notFound>([&] { GetParam().second(m_store); }),
                Optional(IsThrownBy(GetParam().first, "Operator 'TEMP' does not exist.")));
}

INSTANTIATE_TEST_SUITE_P(
    All, OperatorQuery,
    testing::Values(
        Query {"getOperatorAlias", [](const Store& p_store) { p_store.getOperatorAlias("TEMP"); }},
        Query {"getOperatorDimensionModifier",
               [](const Store& p_store) { p_store.getOperatorDimensionModifier("TEMP"); }},
        Query {"getOperatorTensorType", [](const Store& p_store) { p_store.getOperatorTensorType("TEMP"); }},
        Query {"doesOperatorHaveAvailability",
               [](const Store& p_store) { p_store.doesOperatorHaveAvailability("TEMP", "GENERAL"); }}),
    [](const auto& p_case) { return p_case.param.first; });

TEST_F(Operators, AreComparedExactly)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());

    for (const char* name : {"Tave", "TAVE", "tave ", " tave", "tav", "time average", ""})
        EXPECT_FALSE(m_store.hasOperator(name)) << name;
}

TEST_F(Operators, AreNoVariables)
{
    // Given a store whose variables were listed
    m_store.addVariableDefinition("TEMP", scalar());
    ASSERT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
    auto record = m_store.variableData("TEMP");
    record.shortName = m_store.addValue("PRES");
    m_store.doAddVariableDefinition(record);
    const std::vector<std::string> values = valuesOf(m_store);

    // When an operator comes
    m_store.addVariableOperatorDefinition("grad", gradient());

    // Then nothing that tells of variables has changed, not even the list
    for (const char* name : {"grad", "Gradient", "ddx", "Gradient x"})
    {
        EXPECT_FALSE(m_store.hasVariable(name)) << name;
        EXPECT_THROW(m_store.variableIndex(name), data::notFound) << name;
    }
    EXPECT_EQ(valuesOf(m_store), values);
    EXPECT_THAT(m_store.getAllVariableShortNames(), ElementsAre("TEMP"));
}

TEST_F(Operators, MayHaveTheNamesOfVariables)
{
    m_store.addVariableDefinition("tave", scalar({{"Long Name", "Time Average"}}));

    m_store.addVariableOperatorDefinition("tave", timeAverage());

    EXPECT_TRUE(m_store.hasOperator("tave"));
    EXPECT_THAT(m_store.getVariableAliases("tave"), ElementsAre("tave", "Time Average"));
}

TEST_F(Operators, GoAlongWithACopyOfTheStore)
{
    m_store.addVariableOperatorDefinition("tave", timeAverage());
    Store copy = m_store;

    copy.addVariableOperatorDefinition("grad", gradient());

    EXPECT_EQ(copy.getOperatorAlias("tave"), "Time Average");
    EXPECT_FALSE(m_store.hasOperator("grad"));
}

}    // namespace
