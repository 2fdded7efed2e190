#include "VariablesFixture.h"

#include "DataError.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace qen {
namespace {

using support::ErrorSaying;
using support::HostReports;
using support::records;
using support::thrownBy;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* k_notAllowed =
    "Parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is not allowed to be assigned an expression value "
    "that depends on variables. It must be assigned a numeric value, or an expression that resolves to a "
    "constant value.";

class VariablesUsed : public support::VariablesTest {};

// Whether there may be any.

TEST_F(VariablesUsed, AreNotAskedAboutWhereThereAreNone)
{
    width().dependsOn({"NONE"});

    EXPECT_TRUE(check({}));

    width().dependsOn({});

    EXPECT_TRUE(check({}));
    EXPECT_THAT(records(m_checker), IsEmpty());
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "evaluator.rootVariableName", "names.", "model.",
                                "prefixes.", "shortNames.", "physics."}),
                IsEmpty());
}

TEST_F(VariablesUsed, AreNotAllowedWhereTheRulesSayNone)
{
    width().dependsOn({"NONE"});

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker), onlyError(k_notAllowed));
}

TEST_F(VariablesUsed, AreNotAllowedWhereTheRulesListNothing)
{
    width().dependsOn({});

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker), onlyError(k_notAllowed));
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(VariablesUsed, AreNotAllowedByNoneAnywhereInTheList)
{
    width().dependsOn({"ANY", "T", "NONE"});

    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker), onlyError(k_notAllowed));
}

TEST_F(VariablesUsed, AreForbiddenByExactlyTheWordNone)
{
    for (const char* word : {"None", "none", "NONE ", " NONE", "NONES", ""})
    {
        width().dependsOn({word, "T"});
        EXPECT_TRUE(check({"T"})) << '"' << word << '"';
    }
}

TEST_F(VariablesUsed, AreNotEvenSplitWhereTheyAreNotAllowed)
{
    width().dependsOn({"NONE"});

    EXPECT_FALSE(check({"no such variable"}));

    EXPECT_THAT(records(m_checker), onlyError(k_notAllowed));
    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "evaluator.rootVariableName", "names.", "model.",
                                "prefixes.", "shortNames.", "physics."}),
                ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

// Parameters of kind "Expression".

TEST_F(VariablesUsed, MayBeUsedInTheKindExpressionWhateverTheRulesList)
{
    width().isKind("Expression");
    for (const auto& list : {std::vector<std::string> {}, {"NONE"}, {"p"}})
    {
        width().dependsOn(list);
        EXPECT_TRUE(check({"T"})) << testing::PrintToString(list);
    }
    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(VariablesUsed, OfTheKindExpressionAreCheckedNeitherForPrefixesNorForAvailability)
{
    define("Nusselt", "SCALAR", "True", {{"Physical Availability", "TRANSIENT"}, {"Variable Scope", ""}});
    width().isKind("Expression").dependsOn({"p"});
    m_host.prefixes("Steam", "").failWith("There is no phase 'Steam'.");

    EXPECT_TRUE(check({"Steam.Nusselt"}));

    EXPECT_THAT(m_host.callsTo({"rules.dependencies", "prefixes.", "shortNames.", "physics."}),
                ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)"));
}

TEST_F(VariablesUsed, OfTheKindExpressionAreCheckedForEverythingElse)
{
    width().isKind("Expression").isSingleValued();

    EXPECT_FALSE(check({"vel"}));
    EXPECT_FALSE(check({{"T.curl", "T"}}));
    EXPECT_FALSE(check({{"vel{x:A}.grad{x:B}", "vel"}}));
    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(
            ErrorSaying("Non-scalar variable 'vel' referenced by parameter 'Width' in object "
                        "'/FLOW:F/DOMAIN:Duct'.\nNon-scalars are only allowed as arguments to integrated "
                        "quantity functions."),
            ErrorSaying("Invalid operator 'curl' used in expression 'T.curl', referenced by parameter "
                        "'Width' in object '/FLOW:F/DOMAIN:Duct'."),
            ErrorSaying("Two coordinate frame qualifiers are used in variable 'vel{x:A}.grad{x:B}', "
                        "referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.\nSuch a qualifier "
                        "is allowed only to appear in one of the two positions within a variable name."),
            ErrorSaying("The parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' is defined to be \"Single "
                        "Valued\" but it depends on the following field valued variables: T.")));
}

// Coordinate frames.

TEST_F(VariablesUsed, MayHaveACoordinateFrameInOnePlace)
{
    EXPECT_TRUE(check({{"vel{x:Rotor}", "vel"}}));
    EXPECT_TRUE(check({{"vel{x:Rotor}.grad{y}", "vel"}}));
    EXPECT_TRUE(check({{"vel{x}.grad{y:Rotor}", "vel"}}));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(VariablesUsed, MayNotHaveACoordinateFrameInBothPlaces)
{
    EXPECT_FALSE(check({{"vel{x:Rotor}.grad{y:Rotor}", "vel"}}));

    EXPECT_THAT(
        records(m_checker),
        onlyError("Two coordinate frame qualifiers are used in variable 'vel{x:Rotor}.grad{y:Rotor}', "
                  "referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.\nSuch a qualifier is "
                  "allowed only to appear in one of the two positions within a variable name."));
}

// The order of the checks of one name, and of the names.

TEST_F(VariablesUsed, AreCheckedToBeScalarBeforeTheirCoordinateFrames)
{
    EXPECT_FALSE(check({{"vel{x:A}.grad{:B}", "vel"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Non-scalar variable 'vel{x:A}.grad{:B}' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct'.\nNon-scalars are only allowed as arguments to integrated "
                          "quantity functions."));
}

TEST_F(VariablesUsed, AreCheckedForCoordinateFramesBeforeTheirOperator)
{
    EXPECT_FALSE(check({{"vel{x:A}.curl{x:B}", "vel"}}));

    EXPECT_THAT(
        records(m_checker),
        onlyError("Two coordinate frame qualifiers are used in variable 'vel{x:A}.curl{x:B}', referenced by "
                  "parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.\nSuch a qualifier is allowed only to "
                  "appear in one of the two positions within a variable name."));
}

TEST_F(VariablesUsed, AreCheckedForTheirOperatorBeforeTheirPrefixes)
{
    m_host.prefixes("Steam", "").failWith("There is no phase 'Steam'.");

    EXPECT_FALSE(check({{"Steam.T.curl", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Invalid operator 'curl' used in expression 'Steam.T.curl', referenced by "
                          "parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'."));
    EXPECT_THAT(m_host.callsTo({"prefixes."}), IsEmpty());
}

TEST_F(VariablesUsed, AreCheckedForTheirPrefixesBeforeTheirAvailability)
{
    width().dependsOn({"p"});
    m_host.prefixes("Steam", "").failWith("There is no phase 'Steam'.");

    EXPECT_FALSE(check({"Steam.T"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Prefix error in variable 'Steam.T' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct'.\nThere is no phase 'Steam'."));
    EXPECT_THAT(m_host.callsTo({"shortNames.", "physics."}), IsEmpty());
}

TEST_F(VariablesUsed, AreCheckedOneAfterTheOtherUpToTheFirstFailure)
{
    m_host.prefixes("Steam", "").failWith("There is no phase 'Steam'.");

    EXPECT_FALSE(check({"p", "Steam.T", "vel"}));

    EXPECT_THAT(records(m_checker),
                onlyError("Prefix error in variable 'Steam.T' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct'.\nThere is no phase 'Steam'."));
    EXPECT_THAT(m_host.callsTo({"evaluator.rootVariableName", "prefixes."}),
                ElementsAre("evaluator.rootVariableName(p)", "prefixes.classify(/FLOW:F/DOMAIN:Duct, , )",
                            "evaluator.rootVariableName(Steam.T)",
                            "prefixes.classify(/FLOW:F/DOMAIN:Duct, Steam, )"));
}

TEST_F(VariablesUsed, AskTheHostInTheOrderOfTheSteps)
{
    define("Nusselt", "SCALAR", "True", {{"Physical Availability", "TRANSIENT"}});
    m_host.query("isSimTypetransient", k_duct).isTrue();
    width().dependsOn({"tstep", "Nusselt"});
    m_host.forgetCalls();

    EXPECT_TRUE(check({"tstep", {"Water.Nusselt.ave", "Nusselt"}}));

    EXPECT_THAT(
        m_host.calls(),
        ElementsAre(
            "evaluator.getVariablesAndCallbacks(its expression, Width)",
            "rules.paramKind(/FLOW:F/DOMAIN:Duct, Width, model)", "units.getBaseUnitName()",
            "modifier.quantityMode(model, /FLOW:F/DOMAIN:Duct, Width)",
            "rules.isSingleValued(/FLOW:F/DOMAIN:Duct, Width, model)",
            // may there be variables
            "rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)",
            // each by itself
            "evaluator.rootVariableName(tstep)", "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:tstep)",
            "names.splitVariableName(tstep)", "prefixes.classify(/FLOW:F/DOMAIN:Duct, , )",
            "evaluator.rootVariableName(Water.Nusselt.ave)",
            "model.objectExists(/LIBRARY/ADDITIONAL VARIABLE:Nusselt)",
            "names.splitVariableName(Water.Nusselt.ave)", "prefixes.classify(/FLOW:F/DOMAIN:Duct, Water, )",
            // are they available
            "rules.dependencies(/FLOW:F/DOMAIN:Duct, Width, model)", "shortNames.shortName(tstep)",
            "shortNames.shortName(Nusselt)", "physics.evalBool(isSimTypetransient, /FLOW:F/DOMAIN:Duct)"));
}

TEST_F(VariablesUsed, AskAboutAnAdditionalVariableInTheOrderOfTheSteps)
{
    additionalVariable("Dye", "SCALAR");
    inLibrary("Dye", "Boundary Only Field").hasStoredValue("True");
    const char* const object = "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye";
    m_host.forgetCalls();

    EXPECT_TRUE(checkAt(object, "Additional Variable Value", {{"Dye.hybrid", "Dye"}}));

    EXPECT_THAT(
        m_host.callsTo({"rules.dependencies", "evaluator.rootVariableName", "names.", "model.paramValue(/LIB",
                        "prefixes."}),
        ElementsAre("rules.dependencies(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye, Additional "
                    "Variable Value, model)",
                    "evaluator.rootVariableName(Dye.hybrid)", "names.splitVariableName(Dye.hybrid)",
                    "model.paramValue(/LIBRARY/ADDITIONAL VARIABLE:Dye, Tensor Type)",
                    "model.paramValue(/LIBRARY/ADDITIONAL VARIABLE:Dye, Boundary Only Field)",
                    "prefixes.classify(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye, , )",
                    "rules.dependencies(/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye, Additional "
                    "Variable Value, model)"));
}

TEST_F(VariablesUsed, AreCheckedAfterTheCallbackFunctions)
{
    m_host.expression("its expression").calls({{"f", "P", "a + b"}});

    EXPECT_FALSE(check({"vel"}));

    EXPECT_THAT(records(m_checker),
                onlyError("The function 'f' referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct' "
                          "has an invalid argument, 'a + b'. Only arguments that consist of a single "
                          "recognised variable name are supported by the solver."));
    EXPECT_THAT(m_host.callsTo({"rules.dependencies"}), IsEmpty());
}

TEST_F(VariablesUsed, AreEachSplitAnewAlsoWhenANameIsRepeated)
{
    EXPECT_TRUE(check({"T", "T"}));

    EXPECT_THAT(m_host.callsTo({"evaluator.rootVariableName", "names."}),
                ElementsAre("evaluator.rootVariableName(T)", "names.splitVariableName(T)",
                            "evaluator.rootVariableName(T)", "names.splitVariableName(T)"));
}

// Prefixes.

TEST_F(VariablesUsed, AreNotCheckedForPrefixesOutsideADomain)
{
    define("ownerless", "SCALAR", "True", {{"Variable Scope", ""}});

    for (const char* place : {"/FLOW:F", "/FLOW:F/OUTPUT CONTROL", "/FLOW:F/DOMAIN", "/FLOW:F/DOMAIN/SUB:S"})
        EXPECT_TRUE(checkAt(place, "Width", {"Steam.ownerless"})) << place;

    EXPECT_THAT(m_host.callsTo({"prefixes."}), IsEmpty());
}

TEST_F(VariablesUsed, AreCheckedForPrefixesInTheContextOfTheirObject)
{
    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed", {"Steam.T"}));

    EXPECT_THAT(m_host.callsTo({"prefixes."}),
                ElementsAre("prefixes.classify(/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet, Steam, )"));
}

// Names that are none.

TEST_F(VariablesUsed, LetTheCataloguesErrorPassWhenOneIsInNoCatalogue)
{
    const auto thrown = thrownBy<data::notFound>([&] { check({"Nusselt"}); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable 'Nusselt' does not exist.");
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(VariablesUsed, LetTheCataloguesErrorPassWhenOneHasNoRoot)
{
    m_host.variableName("T + p").hasNoRoot();

    const auto thrown = thrownBy<data::notFound>([&] { check({"T + p"}); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable '' does not exist.");
}

TEST_F(VariablesUsed, RecordsANameThatIsNotInTheSyntaxOfNames)
{
    m_host.isNotAVariableName("Water..T");

    EXPECT_FALSE(check({{"Water..T", "T"}}));

    EXPECT_THAT(records(m_checker), onlyError("Variable 'Water..T' does not match allowed syntax."));
}

TEST_F(VariablesUsed, RecordsANameWhoseRootIsInNoPlaceForOne)
{
    EXPECT_FALSE(check({{"T.ave.ave", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("The 'root' name 'T' does not appear in a valid position in variable name "
                          "'T.ave.ave'.\nIt must be either the penultimate or the last '.'-separated "
                          "component of the full name."));
}

// What a check gathered is nothing to the next one, however the check ended.

TEST_F(VariablesUsed, AreForgottenWhenTheHostBreaksTheCheck)
{
    // Given a check that breaks when it has gathered fields that a single-valued parameter may not have
    width().isSingleValued();
    int asked = 0;
    m_host.onCall("prefixes.classify", [&] {
        if (++asked == 2)
            throw std::runtime_error("broken");
    });
    EXPECT_THROW(check({"T", "p"}), std::runtime_error);
    ASSERT_EQ(asked, 2);

    // When the next one, and one of a copy, reference none
    DimExprChecker copy = m_checker;
    EXPECT_TRUE(check({"tstep"}));
    m_checker = copy;
    EXPECT_TRUE(check({"tstep"}));

    // Then there is nothing to tell
    EXPECT_THAT(records(m_checker), IsEmpty());
}

TEST_F(VariablesUsed, AreForgottenWhenTheyWereRefused)
{
    width().isSingleValued();
    EXPECT_FALSE(check({"T", "p"}));
    EXPECT_FALSE(check({"vel"}));
    m_checker.clearErrors();

    EXPECT_TRUE(check({"tstep"}));
    EXPECT_TRUE(check({}));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

}    // namespace
}    // namespace qen
