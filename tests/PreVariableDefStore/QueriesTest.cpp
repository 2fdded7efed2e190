#include "StoreTest.h"

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

using Store = PreVariableDefStore;
using Texts = std::vector<std::string>;

constexpr auto k_foreignField = static_cast<Store::VarDefField>(19);
constexpr auto k_negativeField = static_cast<Store::VarDefField>(-1);

/// A store of one vector with something in each field, and of its components.
class QueryTest : public StoreTest {
protected:
    QueryTest()
    {
        m_store.addVariableDefinition("VEL", velocity({{"Long Name", "Velocity"},
                                                       {"Old Short Name", "V0"},
                                                       {"Old Long Name", "Old Velocity"},
                                                       {"Quantity", "Speed"},
                                                       {"Old Component Short Names", "U0,V00,W0"},
                                                       {"Old Component Long Names", "Old u,Old v,Old w"},
                                                       {"Field Variable", "Yes"},
                                                       {"General Availability", "QEL,RESULTS"},
                                                       {"Physical Availability", "FLUID,!SOLID"},
                                                       {"Variable Class", "FLOW"},
                                                       {"Variable Scope", "PHASE,GLOBAL"},
                                                       {"Status", "P"},
                                                       {"Under Relaxation Factor", "0.75"},
                                                       {"User Level", "2"},
                                                       {"Output to Postprocessor", "Always"}}));
    }

    std::size_t vel() const { return m_store.variableIndex("VEL"); }
};

class FieldText : public QueryTest {};
class FieldMatching : public QueryTest {};
class VariablesMatching : public QueryTest {};
class TensorType : public QueryTest {};

// The texts of a field.

struct FieldCase {
    const char* name;
    Store::VarDefField field;
    const char* text;    // joined
    Texts texts;
};

void PrintTo(const FieldCase& p_case, std::ostream* p_stream) { *p_stream << p_case.name; }

class EachField : public QueryTest, public testing::WithParamInterface<FieldCase> {};

TEST_P(EachField, GivesItsTextsJoinedAndOneByOne)
{
    EXPECT_EQ(m_store.getVarDefData("VEL", GetParam().field), GetParam().text);
    EXPECT_EQ(m_store.getVarDefDataVec("VEL", GetParam().field), GetParam().texts);
}

TEST_P(EachField, MatchesEachOfItsTextsAndNoOther)
{
    for (const std::string& text : GetParam().texts)
    {
        EXPECT_TRUE(m_store.varMatches("VEL", GetParam().field, text)) << text;
        EXPECT_TRUE(m_store.valueMatches(vel(), GetParam().field, m_store.addValue(text))) << text;
        EXPECT_FALSE(m_store.varMatches("VEL", GetParam().field, text + " ")) << text;
    }
    for (const char* other : {"", "a text that no definition has", "vel", "SCALAR"})
        EXPECT_FALSE(m_store.varMatches("VEL", GetParam().field, other)) << other;
}

TEST_P(EachField, MatchesAllAndOneOfTexts)
{
    const auto field = GetParam().field;
    const Texts& texts = GetParam().texts;
    EXPECT_TRUE(m_store.varMatchesAllOf("VEL", field, texts));
    EXPECT_TRUE(m_store.varMatchesOneOf("VEL", field, texts));
    EXPECT_TRUE(m_store.valueMatchesAllOf(vel(), field, texts));
    EXPECT_TRUE(m_store.valueMatchesOneOf(vel(), field, texts));

    // Interned or not, before the others or behind: one that is not there spoils "all of" and not "one of"
    for (const char* other : {"SCALAR", "a text that no definition has"})
    {
        Texts behind = texts;
        behind.push_back(other);
        Texts before {other};
        before.insert(before.end(), texts.begin(), texts.end());
        for (const Texts& more : {before, behind})
        {
            EXPECT_FALSE(m_store.varMatchesAllOf("VEL", field, more));
            EXPECT_TRUE(m_store.varMatchesOneOf("VEL", field, more));
            EXPECT_FALSE(m_store.valueMatchesAllOf(vel(), field, more));
            EXPECT_TRUE(m_store.valueMatchesOneOf(vel(), field, more));
        }
        EXPECT_FALSE(m_store.varMatchesOneOf("VEL", field, {other}));
        EXPECT_FALSE(m_store.valueMatchesOneOf(vel(), field, {other}));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, EachField,
    testing::Values(
        FieldCase {"ShortName", Store::SHORT_NAME, "VEL", {"VEL"}},
        FieldCase {"LongName", Store::LONG_NAME, "Velocity", {"Velocity"}},
        FieldCase {"OldShortName", Store::OLD_SHORT_NAME, "V0", {"V0"}},
        FieldCase {"OldLongName", Store::OLD_LONG_NAME, "Old Velocity", {"Old Velocity"}},
        FieldCase {"Quantity", Store::QUANTITY, "Speed", {"Speed"}},
        FieldCase {"TensorType", Store::TENSOR_TYPE, "VECTOR", {"VECTOR"}},
        FieldCase {"ComponentShortNames", Store::COMPONENT_SHORT_NAMES, "U,V,W", {"U", "V", "W"}},
        FieldCase {
            "OldComponentShortNames", Store::OLD_COMPONENT_SHORT_NAMES, "U0,V00,W0", {"U0", "V00", "W0"}},
        FieldCase {"ComponentLongNames",
                   Store::COMPONENT_LONG_NAMES,
                   "Velocity u,Velocity v,Velocity w",
                   {"Velocity u", "Velocity v", "Velocity w"}},
        FieldCase {"OldComponentLongNames",
                   Store::OLD_COMPONENT_LONG_NAMES,
                   "Old u,Old v,Old w",
                   {"Old u", "Old v", "Old w"}},
        FieldCase {"FieldVariable", Store::FIELD_VARIABLE, "T", {"T"}},
        FieldCase {"GeneralAvailability", Store::GENERAL_AVAILABILITY, "QEL,RESULTS", {"QEL", "RESULTS"}},
        FieldCase {"PhysicalAvailability", Store::PHYSICAL_AVAILABILITY, "FLUID,!SOLID", {"FLUID", "!SOLID"}},
        FieldCase {"VariableClass", Store::VARIABLE_CLASS, "FLOW", {"FLOW"}},
        FieldCase {"VariableScope", Store::VARIABLE_SCOPE, "PHASE,GLOBAL", {"PHASE", "GLOBAL"}},
        FieldCase {"Status", Store::STATUS, "P", {"P"}},
        FieldCase {"UnderRelaxationFactor", Store::UNDER_RELAXATION_FACTOR, "0.75", {"0.75"}},
        FieldCase {"UserLevel", Store::USER_LEVEL, "2", {"2"}},
        FieldCase {"OutputToPostprocessor", Store::OUTPUT_TO_POSTPROCESSOR, "Always", {"Always"}}),
    [](const auto& p_case) { return p_case.param.name; });

TEST_F(FieldText, IsTheSameWhicheverNameAsks)
{
    for (const char* name : {"VEL", "Velocity", "V0", "Old Velocity"})
        EXPECT_EQ(m_store.getVarDefData(name, Store::SHORT_NAME), "VEL") << name;
}

TEST_F(FieldText, OfASetStandsInTheOrderInWhichItsTextsFirstOccurredAnywhere)
{
    m_store.addVariableDefinition(
        "TEMP", scalar({{"Field Variable", "T"}, {"General Availability", "POST,RESULTS,QEL,POST"}}));

    EXPECT_EQ(m_store.getVarDefData("TEMP", Store::GENERAL_AVAILABILITY), "QEL,RESULTS,POST");
    EXPECT_THAT(m_store.getVarDefDataVec("TEMP", Store::GENERAL_AVAILABILITY),
                ElementsAre("QEL", "RESULTS", "POST"));
}

TEST_F(FieldText, OfAListStandsInItsOwnOrderWithRepeats)
{
    m_store.addVariableDefinition("POS", {{"Tensor Type", "VECTOR"},
                                          {"Component Short Names", "pz,px,py"},
                                          {"Component Long Names", "Pz,Px,Py"},
                                          {"Old Component Long Names", "W,U,W,U"}});

    EXPECT_EQ(m_store.getVarDefData("POS", Store::COMPONENT_SHORT_NAMES), "pz,px,py");
    EXPECT_EQ(m_store.getVarDefData("POS", Store::OLD_COMPONENT_LONG_NAMES), "W,U,W,U");
}

TEST_F(FieldText, OfAnEmptyValueIsOneEmptyText)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_EQ(m_store.getVarDefData("TEMP", Store::QUANTITY), "");
    EXPECT_THAT(m_store.getVarDefDataVec("TEMP", Store::QUANTITY), ElementsAre(""));
    EXPECT_TRUE(m_store.varMatches("TEMP", Store::QUANTITY, ""));
}

TEST_F(FieldText, OfAnEmptySetOrListIsNoText)
{
    m_store.addVariableDefinition("TEMP", scalar());

    for (const auto field : {Store::VARIABLE_SCOPE, Store::COMPONENT_LONG_NAMES})
    {
        EXPECT_EQ(m_store.getVarDefData("TEMP", field), "");
        EXPECT_THAT(m_store.getVarDefDataVec("TEMP", field), IsEmpty());
        EXPECT_FALSE(m_store.varMatches("TEMP", field, ""));
    }
}

TEST_F(FieldText, OfAForeignFieldIsNoText)
{
    for (const auto field : {k_foreignField, k_negativeField})
    {
        EXPECT_EQ(m_store.getVarDefData("VEL", field), "");
        EXPECT_THAT(m_store.getVarDefDataVec("VEL", field), IsEmpty());
        EXPECT_THAT(m_store.getVarDefDataMulti({"VEL", "U"}, field), ElementsAre("", ""));
        EXPECT_THAT(m_store.getVarDefDataAll(field), ElementsAre("", "", "", ""));
        EXPECT_THAT(m_store.getVarsWithField(field, {"VEL", "U"}), IsEmpty());
    }
}

TEST_F(FieldText, OfSeveralVariablesComesInTheirOrder)
{
    EXPECT_THAT(m_store.getVarDefDataMulti({"W", "Velocity", "U", "W"}, Store::LONG_NAME),
                ElementsAre("Velocity w", "Velocity", "Velocity u", "Velocity w"));
    EXPECT_THAT(m_store.getVarDefDataMulti({"VEL", "U"}, Store::COMPONENT_SHORT_NAMES),
                ElementsAre("U,V,W", ""));
    EXPECT_THAT(m_store.getVarDefDataMulti({}, Store::LONG_NAME), IsEmpty());
}

TEST_F(FieldText, OfAllVariablesHasOneEntryPerRecord)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(m_store.getVarDefDataAll(Store::LONG_NAME),
                ElementsAre("Velocity", "Velocity u", "Velocity v", "Velocity w", ""));
    EXPECT_THAT(Store().getVarDefDataAll(Store::LONG_NAME), IsEmpty());
}

TEST_F(FieldText, OfAllVariablesFailsWhenOneHasNoShortName)
{
    m_store.addVariableDefinition("", scalar({{"Long Name", "Nameless"}}));

    EXPECT_THAT(thrownBy<data::notFound>([&] { m_store.getVarDefDataAll(Store::LONG_NAME); }),
                Optional(IsThrownBy("variableData", "Variable '' does not exist.")));
}

TEST_F(FieldText, TellsWhichVariablesHaveSomethingInAField)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(m_store.getVarsWithField(Store::QUANTITY, {"TEMP", "W", "Velocity", "W"}),
                ElementsAre("W", "Velocity", "W"));
    EXPECT_THAT(m_store.getVarsWithField(Store::COMPONENT_SHORT_NAMES, {"U", "VEL"}), ElementsAre("VEL"));
    EXPECT_THAT(m_store.getVarsWithField(Store::QUANTITY, {}), IsEmpty());
}

// Matching.

TEST_F(FieldMatching, IsExact)
{
    for (const char* text : {"qel", "QEL ", "QE", "QEL,RESULTS", ""})
        EXPECT_FALSE(m_store.varMatches("VEL", Store::GENERAL_AVAILABILITY, text)) << text;
}

TEST_F(FieldMatching, OfATextThatNoDefinitionUsedIsFalseAndAddsNothing)
{
    const Texts before = valuesOf(m_store);

    EXPECT_FALSE(m_store.varMatches("VEL", Store::STATUS, "never"));
    EXPECT_FALSE(m_store.varMatchesAllOf("VEL", Store::STATUS, {"never"}));
    EXPECT_THAT(m_store.getVarsMatching(Store::STATUS, "never"), IsEmpty());

    EXPECT_EQ(valuesOf(m_store), before);
}

TEST_F(FieldMatching, OfNoTextsIsAllOfThemButNotOne)
{
    EXPECT_TRUE(m_store.varMatchesAllOf("VEL", Store::STATUS, {}));
    EXPECT_TRUE(m_store.valueMatchesAllOf(vel(), Store::STATUS, {}));
    EXPECT_TRUE(m_store.valueMatchesAllOf(vel(), k_foreignField, {}));
    EXPECT_FALSE(m_store.varMatchesOneOf("VEL", Store::STATUS, {}));
    EXPECT_FALSE(m_store.valueMatchesOneOf(vel(), Store::STATUS, {}));
}

TEST_F(FieldMatching, OfAForeignFieldIsFalse)
{
    for (const auto field : {k_foreignField, k_negativeField})
    {
        EXPECT_FALSE(m_store.valueMatches(vel(), field, m_store.addValue("VEL")));
        EXPECT_FALSE(m_store.varMatches("VEL", field, "VEL"));
        EXPECT_FALSE(m_store.varMatchesTrue("VEL", field));
        EXPECT_FALSE(m_store.varMatchesAllOf("VEL", field, {"VEL"}));
        EXPECT_FALSE(m_store.varMatchesOneOf("VEL", field, {"VEL"}));
        EXPECT_THAT(m_store.getVarsMatching(field, "VEL"), IsEmpty());
    }
}

TEST_F(FieldMatching, IsTrueForTheTextT)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Field Variable", "No"},
                                                  {"Status", "True"},
                                                  {"User Level", "T"},
                                                  {"Variable Class", "A,T,B"},
                                                  {"Variable Scope", "A,True,B"}}));
    m_store.addVariableDefinition("POS", {{"Tensor Type", "VECTOR"},
                                          {"Component Short Names", "R,S,T"},
                                          {"Component Long Names", "Pr,Ps,Pt"}});

    EXPECT_TRUE(m_store.varMatchesTrue("VEL", Store::FIELD_VARIABLE));
    EXPECT_FALSE(m_store.varMatchesTrue("TEMP", Store::FIELD_VARIABLE));
    EXPECT_FALSE(m_store.varMatchesTrue("TEMP", Store::STATUS));
    EXPECT_TRUE(m_store.varMatchesTrue("TEMP", Store::USER_LEVEL));
    EXPECT_TRUE(m_store.varMatchesTrue("TEMP", Store::VARIABLE_CLASS));
    EXPECT_FALSE(m_store.varMatchesTrue("TEMP", Store::VARIABLE_SCOPE));
    EXPECT_TRUE(m_store.varMatchesTrue("POS", Store::COMPONENT_SHORT_NAMES));
    EXPECT_FALSE(m_store.varMatchesTrue("POS", Store::COMPONENT_LONG_NAMES));
}

// Variables by their fields.

TEST_F(VariablesMatching, AVectorAreVectorsInTheirOrderWithoutTheirComponents)
{
    m_store.addVariableDefinition("TEMP", scalar());
    m_store.addVariableDefinition("POS", {{"Tensor Type", "VECTOR"},
                                          {"Component Short Names", "Px,Py,Pz"},
                                          {"Component Long Names", "Pos x,Pos y,Pos z"}});
    m_store.addVariableDefinition("STRESS", stress());

    EXPECT_THAT(m_store.getVarsMatching(Store::TENSOR_TYPE, "VECTOR"), ElementsAre("VEL", "POS"));
    EXPECT_THAT(m_store.getVarsMatching(Store::TENSOR_TYPE, "SYMTEN2"), ElementsAre("STRESS"));
}

TEST_F(VariablesMatching, AValueOfASetIncludeTheComponents)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Variable Scope", "GLOBAL"}}));

    EXPECT_THAT(m_store.getVarsMatching(Store::VARIABLE_SCOPE, "GLOBAL"),
                ElementsAre("VEL", "U", "V", "W", "TEMP"));
    EXPECT_THAT(m_store.getVarsMatchingAllOf(Store::VARIABLE_SCOPE, {"GLOBAL", "PHASE"}),
                ElementsAre("VEL", "U", "V", "W"));
    EXPECT_THAT(m_store.getVarsMatchingAllOf(Store::VARIABLE_SCOPE, {"GLOBAL", "never"}), IsEmpty());
}

TEST_F(VariablesMatching, OneOfSeveralTextsAreListedOnce)
{
    EXPECT_THAT(m_store.getVarsMatchingOneOf(Store::SHORT_NAME, {"W", "never", "U"}), ElementsAre("U", "W"));
    EXPECT_THAT(m_store.getVarsMatchingOneOf(Store::VARIABLE_SCOPE, {"PHASE", "GLOBAL"}),
                ElementsAre("VEL", "U", "V", "W"));
    EXPECT_THAT(m_store.getVarsMatchingOneOf(Store::VARIABLE_SCOPE, {"never"}), IsEmpty());
}

TEST_F(VariablesMatching, AllOfNoTextsAreNone)
{
    EXPECT_THAT(m_store.getVarsMatchingAllOf(Store::STATUS, {}), IsEmpty());
    EXPECT_THAT(m_store.getVarsMatchingOneOf(Store::STATUS, {}), IsEmpty());
}

TEST_F(VariablesMatching, TheEmptyTextAreThoseWithoutAValue)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(m_store.getVarsMatching(Store::QUANTITY, ""), ElementsAre("TEMP"));
    EXPECT_THAT(m_store.getVarsMatching(Store::VARIABLE_SCOPE, ""), IsEmpty());
}

// Tensor type.

TEST_F(TensorType, IsThatOfTheDefinition)
{
    m_store.addVariableDefinition("STRESS", stress());

    EXPECT_EQ(m_store.getTensorType("Velocity"), Store::VECTOR);
    EXPECT_EQ(m_store.getTensorType("Velocity u"), Store::SCALAR);
    EXPECT_EQ(m_store.getTensorType("STRESS"), Store::SYMTEN2);
    EXPECT_EQ(m_store.getTensorType("Sxz"), Store::SCALAR);
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(TensorType, OfNoKnownKindFailsAnAssertion)
{
    // Given a finished record such as no definition makes
    auto record = m_store.variableData("VEL");
    record.shortName = m_store.addValue("ODD");
    record.longName = record.oldShortName = record.oldLongName = m_store.addValue("");
    record.tensorType = m_store.addValue("TENSOR");
    m_store.doAddVariableDefinition(record);

    // When its type is asked for in a host whose assertions return
    EXPECT_EQ(m_store.getTensorType("ODD"), Store::SCALAR);

    // Then the host was told the place that it always is
    ASSERT_EQ(HostReports::failedAssertions().size(), 1U);
    const FailedAssertion& failed = HostReports::failedAssertions().front();
    EXPECT_EQ(failed.message, "Internal error: no valid tensor type found!");
    EXPECT_EQ(failed.file, "PreVariables/src/PreVariableDefStore");
    EXPECT_EQ(failed.line, 1025);
}

// Names that are not there.

using Query = std::pair<const char*, std::function<void(const Store&, const std::string&)>>;

const Query k_queriesByName[] {
    {"getVarDefData",
     [](const Store& p_store, const std::string& p_name) { p_store.getVarDefData(p_name, Store::STATUS); }},
    {"getVarDefDataOfAForeignField",
     [](const Store& p_store, const std::string& p_name) { p_store.getVarDefData(p_name, k_foreignField); }},
    {"getVarDefDataVec", [](const Store& p_store,
                            const std::string& p_name) { p_store.getVarDefDataVec(p_name, Store::STATUS); }},
    {"getVarDefDataVecOfAForeignField",
     [](const Store& p_store, const std::string& p_name) {
         p_store.getVarDefDataVec(p_name, k_foreignField);
     }},
    {"getVarDefDataMulti",
     [](const Store& p_store, const std::string& p_name) {
         p_store.getVarDefDataMulti({"VEL", p_name, "neither"}, Store::STATUS);
     }},
    {"getVarsWithField",
     [](const Store& p_store, const std::string& p_name) {
         p_store.getVarsWithField(k_foreignField, {"VEL", p_name, "neither"});
     }},
    {"getTensorType", [](const Store& p_store, const std::string& p_name) { p_store.getTensorType(p_name); }},
    {"varMatches",
     [](const Store& p_store, const std::string& p_name) { p_store.varMatches(p_name, Store::STATUS, "P"); }},
    {"varMatchesOfATextThatNoDefinitionUsed",
     [](const Store& p_store, const std::string& p_name) {
         p_store.varMatches(p_name, Store::STATUS, "never");
     }},
    {"varMatchesTrue",
     [](const Store& p_store, const std::string& p_name) { p_store.varMatchesTrue(p_name, Store::STATUS); }},
    {"varMatchesTrueOfAForeignField",
     [](const Store& p_store, const std::string& p_name) { p_store.varMatchesTrue(p_name, k_foreignField); }},
    {"varMatchesAllOfNothing",
     [](const Store& p_store, const std::string& p_name) {
         p_store.varMatchesAllOf(p_name, Store::STATUS, {});
     }},
    {"varMatchesOneOfNothing",
     [](const Store& p_store, const std::string& p_name) {
         p_store.varMatchesOneOf(p_name, Store::STATUS, {});
     }},
};

class QueryByName : public QueryTest, public testing::WithParamInterface<Query> {};

TEST_P(QueryByName, OfAnUnknownVariableIsNotFound)
{
    EXPECT_THAT(thrownBy<data::notFound>([&] { GetParam().second(m_store, "NoSuchVar"); }),
                Optional(IsThrownBy("variableData", "Variable 'NoSuchVar' does not exist.")));
}

TEST_P(QueryByName, OfARecordThatIsNotThereYetIsNotFound)
{
    // Given a name that a refused definition left behind
    EXPECT_THROW(m_store.addVariableDefinition("LEFT", scalar({{"Long Name", "Velocity"}})), data::duplicate);
    ASSERT_TRUE(m_store.hasVariable("LEFT"));

    EXPECT_THAT(thrownBy<data::notFound>([&] { GetParam().second(m_store, "LEFT"); }),
                Optional(IsThrownBy("variableData", "Variable 'LEFT' does not exist.")));
}

TEST_P(QueryByName, OfARecordThatCameLaterIsAnswered)
{
    EXPECT_THROW(m_store.addVariableDefinition("LEFT", scalar({{"Long Name", "Velocity"}})), data::duplicate);
    m_store.addVariableDefinition("neither", scalar());

    EXPECT_NO_THROW(GetParam().second(m_store, "LEFT"));
}

INSTANTIATE_TEST_SUITE_P(All, QueryByName, testing::ValuesIn(k_queriesByName),
                         [](const auto& p_case) { return p_case.param.first; });

}    // namespace
