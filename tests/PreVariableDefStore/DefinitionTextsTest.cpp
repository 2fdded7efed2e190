#include "StoreTest.h"

#include "support/HostTextScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace qen;
using namespace qen::support;
using testing::ElementsAre;

namespace {

/// What the host's texts are asked while definitions are read.
class DefinitionTexts : public StoreTest {
protected:
    static Definition withKeywords(Definition p_definition)
    {
        p_definition.insert({{"General Availability", "RESULTS,QEL"},
                             {"Physical Availability", "THERMAL"},
                             {"Variable Class", "SOLUTION"},
                             {"Variable Scope", "DOMAIN,FLUID"},
                             {"Field Variable", "F"}});
        return p_definition;
    }

    HostTextScript m_texts;
};

// Lists.

TEST_F(DefinitionTexts, OfAScalarAreFourListsAndASwitch)
{
    m_store.addVariableDefinition("TEMP", withKeywords(scalar({{"Component Short Names", "U,V,W"}})));

    EXPECT_THAT(m_texts.calls(),
                ElementsAre("stringToVector(RESULTS,QEL)", "stringToVector(THERMAL)",
                            "stringToVector(SOLUTION)", "stringToVector(DOMAIN,FLUID)", "stringToBool(F)"));
}

TEST_F(DefinitionTexts, OfAScalarWithoutKeywordsAreFourEmptyListsAndAnEmptySwitch)
{
    m_store.addVariableDefinition("TEMP", scalar());

    EXPECT_THAT(m_texts.calls(), ElementsAre("stringToVector()", "stringToVector()", "stringToVector()",
                                             "stringToVector()", "stringToBool()"));
}

TEST_F(DefinitionTexts, OfAVectorAreEightListsAndASwitch)
{
    m_store.addVariableDefinition(
        "VEL", withKeywords(velocity({{"Old Component Short Names", "u,v,w"},
                                      {"Old Component Long Names", "Old u,Old v,Old w"}})));

    EXPECT_THAT(m_texts.calls(), ElementsAre("stringToVector(RESULTS,QEL)", "stringToVector(THERMAL)",
                                             "stringToVector(SOLUTION)", "stringToVector(DOMAIN,FLUID)",
                                             "stringToVector(U,V,W)", "stringToVector(u,v,w)",
                                             "stringToVector(Velocity u,Velocity v,Velocity w)",
                                             "stringToVector(Old u,Old v,Old w)", "stringToBool(F)"));
}

TEST_F(DefinitionTexts, AreKeptAsTheHostSplitsThemEachTime)
{
    m_store.addVariableDefinition("TEMP", scalar({{"Variable Scope", "PHASE, GLOBAL, PHASE"}}));
    m_texts.splitsWithoutTrimming();
    m_store.addVariableDefinition("PRES", scalar({{"Variable Scope", "PHASE, GLOBAL, PHASE"}}));
    m_store.addVariableDefinition("DENS", scalar({{"Variable Scope", "PHASE, GLOBAL, PHASE"}}));

    const auto scope = [&](const char* p_name) {
        return m_store.getVarDefDataVec(p_name, PreVariableDefStore::VARIABLE_SCOPE);
    };
    EXPECT_THAT(scope("TEMP"), ElementsAre("PHASE", "GLOBAL"));
    EXPECT_THAT(scope("PRES"), ElementsAre("PHASE", " GLOBAL", " PHASE"));
    EXPECT_THAT(scope("DENS"), ElementsAre("PHASE", " GLOBAL", " PHASE"));
}

TEST_F(DefinitionTexts, OfASecondDefinitionAreReadAgainThoughTheyAreTheSame)
{
    m_store.addVariableDefinition("TEMP", withKeywords(scalar()));
    m_texts.forgetCalls();

    m_store.addVariableDefinition("PRES", withKeywords(scalar()));

    EXPECT_THAT(m_texts.calls(),
                ElementsAre("stringToVector(RESULTS,QEL)", "stringToVector(THERMAL)",
                            "stringToVector(SOLUTION)", "stringToVector(DOMAIN,FLUID)", "stringToBool(F)"));
}

TEST_F(DefinitionTexts, OfAnIgnoredVariableAreNotRead)
{
    m_store.addVariableDefinition("TEMP", withKeywords({{"Tensor Type", "TENSOR"}}));

    EXPECT_THAT(m_texts.calls(), ElementsAre("report(8)"));
}

// The switch of a field variable.

TEST_F(DefinitionTexts, OfAMissingSwitchAreAssumedAfterTheWarningAndReadOnce)
{
    m_store.addVariableDefinition("TEMP", scalar({{"General Availability", "QEL"}}));

    EXPECT_THAT(m_texts.calls(), ElementsAre("stringToVector(QEL)", "stringToVector()", "stringToVector()",
                                             "stringToVector()", "report(8)", "stringToBool(T)"));
}

TEST_F(DefinitionTexts, OfASwitchMeanWhatTheHostSaysEvenTheAssumedOne)
{
    m_texts.readsSwitchesAs(false);
    m_store.addVariableDefinition("A", scalar({{"Field Variable", "T"}}));
    m_store.addVariableDefinition("B", scalar({{"General Availability", "QEL"}}));
    m_texts.readsSwitchesAs(true);
    m_store.addVariableDefinition("C", scalar({{"Field Variable", "F"}}));
    m_store.addVariableDefinition("D", scalar());

    EXPECT_EQ(text(m_store.variableData("A").fieldVariable), "F");
    EXPECT_EQ(text(m_store.variableData("B").fieldVariable), "F");
    EXPECT_EQ(text(m_store.variableData("C").fieldVariable), "T");
    EXPECT_EQ(text(m_store.variableData("D").fieldVariable), "T");
}

}    // namespace
