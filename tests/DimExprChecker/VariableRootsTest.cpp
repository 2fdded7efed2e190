#include "VariablesFixture.h"

#include "DimExprChecker/VariableRoots.h"

#include <ostream>
#include <string>

namespace qen {
namespace {

using support::records;
using testing::ElementsAre;
using testing::IsEmpty;

class Root : public testing::Test {
protected:
    VariableRootNameFinder::RootNameInfo find(const std::string& p_fullName)
    {
        const DimExprVarRootFinder finder(m_host.model(), ModelPaths(m_pathText));
        m_host.forgetCalls();
        return finder.findRoot(p_fullName);
    }

    std::string lookUp(const std::string& p_rootName)
    {
        m_host.forgetCalls();
        return std::string(additionalVariableName(*m_host.model(), p_rootName, ModelPaths(m_pathText)));
    }

    support::ScriptedHost m_host;
    std::string m_pathText;
};

class AVName : public Root {};

// The root of a full name.

TEST_F(Root, IsWhatTheHostSays)
{
    m_host.variableName("Water.Temperature.Gradient").hasRoot("Temperature");

    const auto root = find("Water.Temperature.Gradient");

    EXPECT_EQ(root.rootName, "Temperature");
    EXPECT_FALSE(root.isAV);
    EXPECT_FALSE(root.isMPExprValue);
}

TEST_F(Root, ThatTheHostDoesNotKnowIsNoneAndTheModelIsNotAsked)
{
    m_host.variableName("a + b").hasNoRoot();
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:");

    const auto root = find("a + b");

    EXPECT_EQ(root.rootName, "");
    EXPECT_FALSE(root.isAV);
    EXPECT_FALSE(root.isMPExprValue);
    EXPECT_THAT(m_host.calls(), ElementsAre("evaluator.rootVariableName(a + b)"));
}

TEST_F(Root, IsAnAdditionalVariableWhenTheLibraryHasIt)
{
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Dye");

    const auto root = find("Water.Dye");

    EXPECT_EQ(root.rootName, "Dye");
    EXPECT_TRUE(root.isAV);
    EXPECT_FALSE(root.isMPExprValue);
    EXPECT_THAT(m_host.calls(), ElementsAre("evaluator.rootVariableName(Water.Dye)",
                                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Dye)"));
}

TEST_F(Root, IsAnAdditionalVariableWhenItIsAComponentOfAVectorOne)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type").hasStoredValue("VECTOR");

    const auto root = find("Water.Swirl X");

    EXPECT_EQ(root.rootName, "Swirl X");
    EXPECT_TRUE(root.isAV);
}

TEST_F(Root, IsNoAdditionalVariableBecauseOfAnotherPartOfTheName)
{
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Water");

    EXPECT_FALSE(find("Water.Temperature").isAV);
}

TEST_F(Root, IsTheValueOfAMonitorPointsExpressionByItsNameAlone)
{
    m_host.variableName("Water.Expression Value.Average").hasRoot("Expression Value");

    EXPECT_TRUE(find("Expression Value").isMPExprValue);
    EXPECT_TRUE(find("Water.Expression Value.Average").isMPExprValue);
    EXPECT_FALSE(find("Expression value").isMPExprValue);
    EXPECT_FALSE(find("Expression Values").isMPExprValue);
    EXPECT_FALSE(find("Expression Value.Average").isMPExprValue);
}

TEST_F(Root, MayBeAnAdditionalVariableThatIsNamedAsTheValueOfAnExpression)
{
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Expression Value");

    const auto root = find("Expression Value");

    EXPECT_TRUE(root.isAV);
    EXPECT_TRUE(root.isMPExprValue);
}

// The additional variable that a root stands for.

TEST_F(AVName, IsTheRootWhenTheLibraryHasIt)
{
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Dye");

    EXPECT_EQ(lookUp("Dye"), "Dye");
    EXPECT_THAT(m_host.calls(), ElementsAre("model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Dye)"));
}

TEST_F(AVName, IsEmptyForAnyOtherName)
{
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Dye");

    for (const char* name : {"", "dye", "Dy", "Dyes", "Dye ", " Dye"})
        EXPECT_EQ(lookUp(name), "") << '"' << name << '"';
}

struct Component {
    const char* title;
    const char* rootName;
    bool isOfSwirl;
};

void PrintTo(const Component& p_component, std::ostream* p_stream)
{
    *p_stream << '"' << p_component.rootName << '"';
}

class AVComponent : public AVName, public testing::WithParamInterface<Component> {};

TEST_P(AVComponent, IsOfAVectorBehindOneBlank)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type").hasStoredValue("VECTOR");

    EXPECT_EQ(lookUp(GetParam().rootName), GetParam().isOfSwirl ? "Swirl" : "");
}

INSTANTIATE_TEST_SUITE_P(
    AVName, AVComponent,
    testing::Values(Component {"UpperX", "Swirl X", true}, Component {"UpperY", "Swirl Y", true},
                    Component {"UpperZ", "Swirl Z", true}, Component {"LowerX", "Swirl x", true},
                    Component {"LowerY", "Swirl y", true}, Component {"LowerZ", "Swirl z", true},
                    Component {"AnotherLetter", "Swirl W", false},
                    Component {"AnotherLowerLetter", "Swirl a", false},
                    Component {"ADigit", "Swirl 1", false}, Component {"TwoLetters", "Swirl XY", false},
                    Component {"NoBlank", "SwirlX", false}, Component {"TwoBlanks", "Swirl  X", false},
                    Component {"ATab", "Swirl\tX", false}, Component {"ADot", "Swirl.X", false},
                    Component {"ABlankBehind", "Swirl X ", false},
                    Component {"AnotherVector", "Twirl X", false}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(AVName, IsThatOfAVectorWithANameOfOneCharacter)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:B", "Tensor Type").hasStoredValue("VECTOR");

    EXPECT_EQ(lookUp("B X"), "B");
}

TEST_F(AVName, IsNeverThatOfAVectorWithoutAName)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:", "Tensor Type").hasStoredValue("VECTOR");

    EXPECT_EQ(lookUp(" X"), "");
    EXPECT_THAT(m_host.calls(), ElementsAre("model.objectExists(/LIBRARY/ADDITIONAL VARIABLE: X)"));
}

TEST_F(AVName, IsThatOfAComponentOnlyWhenTheBaseIsExactlyAVector)
{
    for (const char* type : {"", "SCALAR", "SYMTEN2", "Vector", "VECTOR ", "VECTORS"})
    {
        m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type").hasStoredValue(type);
        EXPECT_EQ(lookUp("Swirl X"), "") << '"' << type << '"';
    }
}

TEST_F(AVName, IsTheFullNameWhenTheLibraryHasAnObjectOfIt)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type").hasStoredValue("VECTOR");
    m_host.object("/LIBRARY/ADDITIONAL VARIABLE:Swirl X");

    EXPECT_EQ(lookUp("Swirl X"), "Swirl X");
    EXPECT_EQ(lookUp("Swirl Y"), "Swirl");
}

TEST_F(AVName, IsAskedForInTheOrderOfTheNameItsBaseAndTheType)
{
    m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:Swirl", "Tensor Type").hasStoredValue("VECTOR");

    lookUp("Swirl X");

    EXPECT_THAT(m_host.calls(), ElementsAre("model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Swirl X)",
                                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Swirl)",
                                            "model.paramValue(/LIBRARY/ADDITIONAL VARIABLE:Swirl, Tensor "
                                            "Type)"));
}

TEST_F(AVName, IsNotSoughtFurtherWhenTheBaseDoesNotExist)
{
    lookUp("Swirl X");

    EXPECT_THAT(m_host.calls(), ElementsAre("model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Swirl X)",
                                            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Swirl)"));
}

// In an expression.

class VectorAVInAnExpression : public support::VariablesTest {};

TEST_F(VectorAVInAnExpression, MayBeReferencedByItsComponents)
{
    additionalVariable("Swirl", "VECTOR");

    for (const char* name : {"Swirl X", "Swirl Y", "Swirl Z", "Swirl x", "Swirl y", "Swirl z"})
        EXPECT_TRUE(check({name})) << name;
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(VectorAVInAnExpression, LetsOtherLettersBeVariablesOfTheCatalogue)
{
    additionalVariable("Swirl", "VECTOR");
    define("Swirl W", "SCALAR", "False");
    width().isSingleValued();

    EXPECT_TRUE(check({"Swirl W"}));
    EXPECT_FALSE(check({"Swirl X"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                          "Valued\" but it depends on the following field valued variables: Swirl X."));
}

}    // namespace
}    // namespace qen
