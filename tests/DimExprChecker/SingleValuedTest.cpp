#include "VariablesFixture.h"

namespace qen {
namespace {

using support::records;
using testing::ElementsAre;

class SingleValuedParameter : public support::VariablesTest {};

TEST_F(SingleValuedParameter, MayDependOnVariablesThatAreNoFields)
{
    width().isSingleValued();

    EXPECT_TRUE(check({"tstep"}));
    EXPECT_TRUE(check({{"Water.tstep.ave", "tstep"}}));
}

TEST_F(SingleValuedParameter, IsTheOnlyOneThatMayNotDependOnFields) { EXPECT_TRUE(check({"T", "p"})); }

TEST_F(SingleValuedParameter, MayNotDependOnAField)
{
    width().isSingleValued();

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                          "Valued\" but it depends on the following field valued variables: T."));
}

TEST_F(SingleValuedParameter, IsToldAllItsFieldsByTheirFullNamesInTheOrderOfTheExpression)
{
    width().isSingleValued();

    EXPECT_FALSE(check({{"Water.p.ave", "p"}, "tstep", {"vel{x}", "vel"}, "Air.T", "T", "T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                          "Valued\" but it depends on the following field valued variables: "
                          "Water.p.ave,vel{x},Air.T,T,T."));
}

TEST_F(SingleValuedParameter, IsToldItsFieldsOnlyWhenAllVariablesHavePassedTheirOwnChecks)
{
    width().isSingleValued();

    EXPECT_FALSE(check({"T", "p", "vel"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Non-scalar variable 'vel' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct'.\nNon-scalars are only allowed as arguments to integrated "
                          "quantity functions."));
}

TEST_F(SingleValuedParameter, IsToldItsFieldsOnlyWhenAllPrefixesHavePassed)
{
    width().isSingleValued();
    m_host.prefixes("Steam", "").failWith("There is no phase 'Steam'.");

    EXPECT_FALSE(check({"T", "Steam.p"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Prefix error in variable 'Steam.p' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct'.\nThere is no phase 'Steam'."));
    EXPECT_THAT(m_host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct, , )",
                            "prefixes.classify(/FLOW:F/DOMAIN:Duct, Steam, )"));
}

TEST_F(SingleValuedParameter, IsToldItsFieldsBeforeTheyAreCheckedForAvailability)
{
    width().isSingleValued().dependsOn({"p"});

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                          "Valued\" but it depends on the following field valued variables: T."));
    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "shortNames."}),
                ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(SingleValuedParameter, TakesEveryAdditionalVariableForAField)
{
    // Given two that the catalogue knows nothing of, or says to be no field
    additionalVariable("Dye", "SCALAR");
    additionalVariable("Smoke", "SCALAR");
    define("Smoke", "SCALAR", "False");
    width().isSingleValued();

    EXPECT_FALSE(check({"Dye", "Smoke"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                          "Valued\" but it depends on the following field valued variables: Dye,Smoke."));
}

}    // namespace
}    // namespace qen
