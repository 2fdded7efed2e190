#include "DimExprChecker.h"
#include "PreVarExprInfo.h"
#include "PreVariableDefStore.h"

#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace qen {
namespace {

using support::ErrorSaying;
using support::IsAbout;
using support::records;
using support::ScriptedHost;
using support::WarningSaying;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_library = "/LIBRARY/QEL/EXPRESSIONS";

std::string solverClash(const std::string& p_name)
{
    return "The expression name '" + p_name +
           "' is a reserved solver variable name. It will not be possible to reference this expression.";
}

std::string postprocessorClash(const std::string& p_name)
{
    return "The expression name '" + p_name +
           "' is a reserved variable name in Posterra. It might not be possible to postprocess this case in "
           "Posterra.";
}

std::string parameterClash(const std::string& p_name)
{
    return "The expression name '" + p_name +
           "' is a QVN Command Language parameter name. This may cause difficulties when the case is run.";
}

/// A host with a vector of many names, an operator, and rules for two parameters.
class NamedExpression : public testing::Test {
protected:
    NamedExpression()
    {
        PreVariableDefStore& store = m_host.varDefStore();
        store.addVariableDefinition("VEL", {{"Tensor Type", "VECTOR"},
                                            {"Long Name", "Velocity"},
                                            {"Old Short Name", "V0"},
                                            {"Old Long Name", "Old Velocity"},
                                            {"Component Short Names", "U,V,W"},
                                            {"Component Long Names", "Velocity u,Velocity v,Velocity w"},
                                            {"Old Component Short Names", "U0,V00,W0"},
                                            {"Old Component Long Names", "Old u,Old v,Old w"}});
        store.addVariableOperatorDefinition("tave",
                                            {{"Tensor Type", "SCALAR"}, {"Long Name", "Time Average"}});
        m_host.rulesGovern({"Inlet Pressure", "Wall Speed"});
    }

    bool check(const std::string& p_name, const std::string& p_value = "1 [m]*t")
    {
        return m_checker.checkParamExpression(k_library, p_name, p_value);
    }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();
};

TEST_F(NamedExpression, WithANameOfItsOwnIsFine)
{
    EXPECT_TRUE(check("Pump Speed"));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(NamedExpression, IsAnErrorWhenItHasAnyNameOfASolverVariable)
{
    for (const char* name : {"VEL", "Velocity", "V0", "Old Velocity", "U", "Velocity w", "V00", "Old u"})
    {
        m_checker.clearErrors();
        EXPECT_FALSE(check(name)) << name;
        EXPECT_THAT(records(m_checker),
                    ElementsAre(AllOf(ErrorSaying(solverClash(name)), IsAbout(k_library, name))));
    }
    EXPECT_THAT(m_host.callsTo({"rules."}), IsEmpty());
}

TEST_F(NamedExpression, IsAnErrorWhenItHasTheNameOfAPostprocessorQuantity)
{
    for (const char* name : {"Normal X", "Area", "Z", "Element Volume Inverse"})
    {
        m_checker.clearErrors();
        EXPECT_FALSE(check(name)) << name;
        EXPECT_THAT(records(m_checker),
                    ElementsAre(AllOf(ErrorSaying(postprocessorClash(name)), IsAbout(k_library, name))));
    }
    EXPECT_THAT(m_host.callsTo({"rules."}), IsEmpty());
}

TEST_F(NamedExpression, IsAWarningWhenItHasTheNameOfAParameterOfTheRules)
{
    EXPECT_FALSE(check("Inlet Pressure"));

    EXPECT_THAT(records(m_checker), ElementsAre(AllOf(WarningSaying(parameterClash("Inlet Pressure")),
                                                      IsAbout(k_library, "Inlet Pressure"))));
}

TEST_F(NamedExpression, ThatClashesInSeveralWaysHasTheFirstOfThemAlone)
{
    m_host.varDefStore().addVariableDefinition("Area", {{"Tensor Type", "SCALAR"}});
    m_host.rulesGovern({"Area", "Velocity", "Volume"});

    EXPECT_FALSE(check("Area"));        // all three
    EXPECT_FALSE(check("Velocity"));    // variable and parameter
    EXPECT_FALSE(check("Volume"));      // postprocessor and parameter

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying(solverClash("Area")), ErrorSaying(solverClash("Velocity")),
                            ErrorSaying(postprocessorClash("Volume"))));
}

TEST_F(NamedExpression, IsComparedWithTheStoreOfTheCheckerWhateverStoreIsRegistered)
{
    const PreVariableDefStore other;
    PreVarExprInfo::instance().init(&other);
    EXPECT_FALSE(check("Velocity"));
    PreVarExprInfo::instance().init(nullptr);
    EXPECT_FALSE(check("VEL"));

    EXPECT_THAT(records(m_checker),
                ElementsAre(ErrorSaying(solverClash("Velocity")), ErrorSaying(solverClash("VEL"))));
}

TEST_F(NamedExpression, IsComparedAlsoWhenItIsCheckedAsAParameterWhateverItsTextIs)
{
    EXPECT_FALSE(m_checker.checkParam(k_library, "Velocity", "((("));

    EXPECT_THAT(records(m_checker),
                ElementsAre(AllOf(ErrorSaying(solverClash("Velocity")), IsAbout(k_library, "Velocity"))));
}

TEST_F(NamedExpression, IsComparedExactly)
{
    for (const char* name :
         {"normal x", "velocity", "VELOCITY", "Velocity ", "inlet pressure", "Inlet Pressures", ""})
        EXPECT_TRUE(check(name)) << name;

    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(NamedExpression, MayHaveTheNameOfAnOperator)
{
    EXPECT_TRUE(check("tave"));
    EXPECT_TRUE(check("Time Average"));
}

TEST_F(NamedExpression, MayHaveTheNameThatTheSolverReserves) { EXPECT_TRUE(check("Expression Value")); }

TEST_F(NamedExpression, MayBeAnyText)
{
    for (const char* value : {"", "(((", "1 [nonsense", "VEL", "\n", "%1"})
    {
        EXPECT_TRUE(check("Pump Speed", value)) << value;
        m_checker.clearErrors();
        EXPECT_FALSE(check("Velocity", value)) << value;
        EXPECT_THAT(records(m_checker), ElementsAre(ErrorSaying(solverClash("Velocity"))));
    }
    EXPECT_THAT(m_host.callsTo({"evaluator.", "units.", "modifier.", "model."}), IsEmpty());
}

TEST_F(NamedExpression, AsksTheRulesOnce)
{
    EXPECT_TRUE(check("Pump Speed"));
    m_host.rulesGovern({"Pump Speed"});
    EXPECT_TRUE(check("Pump Speed"));
    EXPECT_FALSE(check("Wall Speed"));

    EXPECT_THAT(m_host.callsTo({"rules."}), ElementsAre("rules.allParamNames()"));
}

TEST_F(NamedExpression, AsksTheRulesOnceAlsoWhenTheyGovernNothing)
{
    m_host.rulesGovern({});

    EXPECT_TRUE(check("Wall Speed"));
    m_host.rulesGovern({"Wall Speed"});
    EXPECT_TRUE(check("Wall Speed"));

    EXPECT_THAT(m_host.callsTo({"rules."}), ElementsAre("rules.allParamNames()"));
}

TEST_F(NamedExpression, AsksTheRulesAgainWhenTheyCouldNotAnswer)
{
    bool fails = true;
    m_host.onCall("rules.allParamNames", [&] {
        if (fails)
            throw std::runtime_error("no rules yet");
    });
    EXPECT_THROW(check("Wall Speed"), std::runtime_error);
    fails = false;

    EXPECT_FALSE(check("Wall Speed"));

    EXPECT_THAT(records(m_checker), ElementsAre(WarningSaying(parameterClash("Wall Speed"))));
}

TEST_F(NamedExpression, OfACopyMadeLaterIsComparedWithTheSameNames)
{
    EXPECT_TRUE(check("Pump Speed"));
    DimExprChecker copy(m_checker);
    DimExprChecker assigned = m_host.makeChecker();
    assigned = m_checker;
    m_host.rulesGovern({"Pump Speed"});

    for (DimExprChecker* checker : {&copy, &assigned})
    {
        EXPECT_TRUE(checker->checkParamExpression(k_library, "Pump Speed", "1"));
        EXPECT_FALSE(checker->checkParamExpression(k_library, "Wall Speed", "1"));
    }
    EXPECT_THAT(m_host.callsTo({"rules."}), ElementsAre("rules.allParamNames()"));
}

TEST_F(NamedExpression, OfACopyMadeBeforeAsksForItself)
{
    DimExprChecker copy(m_checker);
    EXPECT_TRUE(check("Pump Speed"));
    m_host.rulesGovern({"Pump Speed"});

    EXPECT_FALSE(copy.checkParamExpression(k_library, "Pump Speed", "1"));
    EXPECT_TRUE(check("Pump Speed"));

    EXPECT_THAT(records(copy), ElementsAre(WarningSaying(parameterClash("Pump Speed"))));
    EXPECT_THAT(m_host.callsTo({"rules."}), ElementsAre("rules.allParamNames()", "rules.allParamNames()"));
}

TEST_F(NamedExpression, KeepsTheNamesWhenTheRecordsAreCleared)
{
    EXPECT_FALSE(check("Wall Speed"));
    m_checker.clearErrors();

    EXPECT_FALSE(check("Wall Speed"));

    EXPECT_THAT(m_host.callsTo({"rules."}), ElementsAre("rules.allParamNames()"));
    EXPECT_THAT(records(m_checker), ElementsAre(WarningSaying(parameterClash("Wall Speed"))));
}

}    // namespace
}    // namespace qen
