#include "PrefixTest.h"

#include <string>

namespace qen::standalone::test {
namespace {

class PrefixError : public PrefixTest {};

TEST_F(PrefixError, NamesThePhasesForAPrefixThatIsNothing)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Tank", "Watr"),
              "'Watr' names nothing in domain 'Tank'; expected 'Water', 'Gas', 'Bubbles', 'Grit' or 'Water "
              "Gas', or a "
              "component, reaction or size group of one of these.");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/INFLOW", "Gas"),
              "'Gas' names nothing in domain 'Duct'; expected 'Water', or a component, reaction or size "
              "group of one of "
              "these.");
}

TEST_F(PrefixError, ComparesNamesExactly)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Block", "steel"),
              "'steel' names nothing in domain 'Block'; expected 'Steel', or a component, reaction or size "
              "group of one "
              "of these.");
}

TEST_F(PrefixError, DoesNotTakeAReactionThatNoMaterialOfTheDomainHas)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct", "Nobodys Reaction"),
              "'Nobodys Reaction' names nothing in domain 'Duct'; expected 'Water', or a component, reaction "
              "or size "
              "group of one of these.");
}

TEST_F(PrefixError, ExpectsNoPrefixInADomainWithoutFluids)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Void", "Water"),
              "'Water' names nothing in domain 'Void', which has no fluid and no solid; expected no prefix.");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Void", "Water", "Salt"),
              "'Water' names nothing in domain 'Void', which has no fluid and no solid; expected no prefix.");
}

TEST_F(PrefixError, ExpectsNoPrefixOutsideOfDomains)
{
    EXPECT_EQ(errorFor("/FLOW:F/SIMULATION", "Water"),
              "'Water' names nothing, since '/FLOW:F/SIMULATION' is in no domain; expected no prefix.");
    EXPECT_EQ(errorFor("", "", "Salt"),
              "'Salt' names nothing, since '' is in no domain; expected no prefix.");
}

TEST_F(PrefixError, ExpectsADomainOfTheModel)
{
    EXPECT_EQ(
        errorFor("/FLOW:F/DOMAIN:Nowhere", "Water", "Salt"),
        "'Water' names nothing, since the model has no domain 'Nowhere'; expected a domain that it has.");
}

TEST_F(PrefixError, NamesThePhasesWhenTheFirstOfTwoIsNone)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Bed", "Watr", "Salt"),
              "'Watr' is no fluid, solid or fluid pair of domain 'Bed'; expected 'Water' or 'Steel' as the "
              "first of two "
              "prefixes.");
    // a component in the first place is none either
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct", "Salt", "Water"),
              "'Salt' is no fluid, solid or fluid pair of domain 'Duct'; expected 'Water' as the first of "
              "two prefixes.");
}

TEST_F(PrefixError, NamesWhatIsInThePhaseWhenTheSecondOfTwoIsNotThere)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Tank", "Water", "CH4"),
              "'CH4' is no component, reaction or size group of fluid 'Water'; expected 'Salt' or 'H2O'.");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Tank", "Grit", "Salt"),
              "'Salt' is no component, reaction or size group of particle 'Grit'; expected 'Ash' or 'Char'.");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Tank", "Bubbles", "Medium"),
              "'Medium' is no component, reaction or size group of polydispersed fluid 'Bubbles'; expected "
              "'Small' or "
              "'Large'.");
}

TEST_F(PrefixError, ExpectsNoSecondPrefixWhereNothingIsInThePhase)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Block", "Steel", "Iron"),
              "'Iron' is no component, reaction or size group of solid 'Steel'; expected no second prefix.");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Tank", "Water Gas", "Salt"),
              "'Salt' is no component, reaction or size group of fluid pair 'Water Gas'; expected no second "
              "prefix.");
}

TEST_F(PrefixError, ExpectsNoSecondPrefixForAMaterialThatTheLibraryLacksOrThatIsNotSet)
{
    m_model.setParameter("/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Water", "Material", "Lost");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct", "Water", "Salt"),
              "'Salt' is no component, reaction or size group of fluid 'Water'; expected no second prefix.");

    m_model.deleteParameter("/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Water", "Material");
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct", "Water", "Salt"),
              "'Salt' is no component, reaction or size group of fluid 'Water'; expected no second prefix.");
}

TEST_F(PrefixError, ShowsTheFirstFiveOfManyNames)
{
    EXPECT_EQ(
        errorFor("/FLOW:F/DOMAIN:Burner", "Gas", "Coal"),
        "'Coal' is no component, reaction or size group of fluid 'Gas'; expected 'CH4', 'O2', 'N2', 'Methane "
        "Burning', 'Ignition Steps' or one of 4 more.");
}

TEST_F(PrefixError, QuotesEightyCharactersOfALongName)
{
    EXPECT_EQ(errorFor("/FLOW:F/DOMAIN:Duct", std::string(81, 'a')),
              "'" + std::string(80, 'a') +
                  "...' names nothing in domain 'Duct'; expected 'Water', or a component, reaction or size "
                  "group of one "
                  "of these.");
}

TEST_F(PrefixError, IsForgottenByTheNextAnswer)
{
    errorFor("/FLOW:F/DOMAIN:Duct", "Gas");

    classify("/FLOW:F/DOMAIN:Duct", "Water");

    EXPECT_EQ(m_errorText, "");
}

}    // namespace
}    // namespace qen::standalone::test
