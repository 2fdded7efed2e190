#include "VariablesFixture.h"

#include <ostream>
#include <string>

namespace qen {
namespace {

using support::ErrorSaying;
using support::IsAbout;
using support::records;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;

class Suffix : public support::VariablesTest {};

TEST_F(Suffix, MayBeAnOperatorOfTheCatalogue)
{
    EXPECT_TRUE(check({{"T.ave", "T"}}));
    EXPECT_TRUE(check({{"Water.T.ave", "T"}}));
}

TEST_F(Suffix, MayBeTheLongNameOfAnOperator)
{
    m_host.varDefStore().addVariableOperatorDefinition(
        "rms", {{"Tensor Type", "SCALAR"}, {"Long Name", "Root Mean"}});

    EXPECT_TRUE(check({{"T.rms", "T"}}));
    EXPECT_TRUE(check({{"T.Root Mean", "T"}}));
}

TEST_F(Suffix, MustBeAnOperatorOfTheCatalogue)
{
    EXPECT_FALSE(check({{"Water.T.curl", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Invalid operator 'curl' used in expression 'Water.T.curl', referenced by "
                          "parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'."));
}

TEST_F(Suffix, IsShownWithoutItsLettersWhenItIsUnknown)
{
    EXPECT_FALSE(check({{"T.curl{x:Rotor}", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Invalid operator 'curl' used in expression 'T.curl{x:Rotor}', referenced by "
                          "parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'."));
}

TEST_F(Suffix, IsComparedExactly)
{
    EXPECT_FALSE(check({{"T.Ave", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Invalid operator 'Ave' used in expression 'T.Ave', referenced by parameter "
                          "'Width' in object '/FLOW:F/DOMAIN:Duct'."));
}

// What the solver supports.

TEST_F(Suffix, MustBeSupportedByTheSolverInGeneral)
{
    defineOperator("trnav", Store::SCALAR, {"CALLBACK", "POST"});

    EXPECT_FALSE(check({{"Water.T.trnav", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("The expression 'Water.T.trnav' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct' is not valid. The solver does not support the use of the "
                          "operator 'trnav' for this variable in this context."));
}

TEST_F(Suffix, IsSupportedByExactlyTheWordGeneral)
{
    defineOperator("lower", Store::SCALAR, {"General"});
    defineOperator("none", Store::SCALAR, {});
    defineOperator("both", Store::SCALAR, {"CALLBACK", "GENERAL"});

    EXPECT_FALSE(check({{"T.lower", "T"}}));
    EXPECT_FALSE(check({{"T.none", "T"}}));
    EXPECT_TRUE(check({{"T.both", "T"}}));
}

// The operators of boundaries.

TEST_F(Suffix, BoundconIsOnlyValidForABoundary)
{
    EXPECT_FALSE(check({{"Water.T.Boundcon", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("The expression 'Water.T.Boundcon' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct' is not valid. The Boundcon operator is only valid for a "
                          "boundary."));
}

TEST_F(Suffix, HybridIsToldAsBoundcon)
{
    EXPECT_FALSE(check({{"T.hybrid", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("The expression 'T.hybrid' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct' is not valid. The Boundcon operator is only valid for a "
                          "boundary."));
}

TEST_F(Suffix, BoundconOutsideABoundaryIsToldBeforeWhatTheSolverSupports)
{
    m_host.varDefStore() = PreVariableDefStore();
    define("T", "SCALAR", "True");
    defineOperator("Boundcon", Store::SCALAR, {"CALLBACK"});

    EXPECT_FALSE(check({{"T.Boundcon", "T"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("The expression 'T.Boundcon' referenced by parameter 'Width' in object "
                          "'/FLOW:F/DOMAIN:Duct' is not valid. The Boundcon operator is only valid for a "
                          "boundary."));
}

TEST_F(Suffix, BoundconMustBeSupportedByTheSolverOnABoundaryToo)
{
    m_host.varDefStore() = PreVariableDefStore();
    define("T", "SCALAR", "True");
    defineOperator("Boundcon", Store::SCALAR, {"CALLBACK"});
    defineOperator("hybrid", Store::SCALAR, {});

    EXPECT_FALSE(checkAt("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed", {{"T.Boundcon", "T"}}));
    EXPECT_FALSE(checkAt("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed", {{"T.hybrid", "T"}}));

    EXPECT_THAT(
        records(m_checker),
        ElementsAre(
            AllOf(ErrorSaying("The expression 'T.Boundcon' referenced by parameter 'Speed' in object "
                              "'/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet' is not valid. The solver does not "
                              "support the use of the operator 'Boundcon' for this variable in this "
                              "context."),
                  IsAbout("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed")),
            AllOf(ErrorSaying("The expression 'T.hybrid' referenced by parameter 'Speed' in object "
                              "'/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet' is not valid. The solver does not "
                              "support the use of the operator 'hybrid' for this variable in this "
                              "context."),
                  IsAbout("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet", "Speed"))));
}

TEST_F(Suffix, OtherOperatorsAreValidEverywhere)
{
    defineOperator("boundcon", Store::SCALAR);
    defineOperator("Hybrid", Store::SCALAR);

    EXPECT_TRUE(check({{"T.boundcon", "T"}}));
    EXPECT_TRUE(check({{"T.Hybrid", "T"}}));
}

class InsideABoundary : public support::VariablesTest, public testing::WithParamInterface<const char*> {};

TEST_P(InsideABoundary, BoundconAndHybridAreValid)
{
    EXPECT_TRUE(checkAt(GetParam(), "Speed", {{"T.Boundcon", "T"}}));
    EXPECT_TRUE(checkAt(GetParam(), "Speed", {{"T.hybrid", "T"}}));

    EXPECT_THAT(records(m_checker), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Suffix, InsideABoundary,
                         testing::Values("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet",
                                         "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/BOUNDARY CONDITIONS/HEAT",
                                         "/FLOW:F/BOUNDARY:Inlet", "/BOUNDARY"));

// The value of an additional variable that exists on boundaries alone.

struct AVValue {
    const char* title;
    const char* objectPath;
    const char* paramName;
    bool boundaryOperatorsAreValid;
};

void PrintTo(const AVValue& p_value, std::ostream* p_stream)
{
    *p_stream << p_value.paramName << " of " << p_value.objectPath;
}

class BoundaryOnlyAVValue : public support::VariablesTest, public testing::WithParamInterface<AVValue> {};

TEST_P(BoundaryOnlyAVValue, MayUseBoundaryOperatorsInTheModelsOfADomain)
{
    inLibrary("Dye", "Boundary Only Field").hasStoredValue("True");
    inLibrary("Smoke", "Boundary Only Field").hasStoredValue("False");
    const std::string path = GetParam().objectPath;
    const std::string param = GetParam().paramName;

    for (const char* const name : {"T.Boundcon", "T.hybrid"})
    {
        m_checker.clearErrors();
        EXPECT_EQ(checkAt(path, param, {{name, "T"}}), GetParam().boundaryOperatorsAreValid) << name;

        if (GetParam().boundaryOperatorsAreValid)
            EXPECT_THAT(records(m_checker), IsEmpty());
        else
            EXPECT_THAT(
                records(m_checker),
                ElementsAre(AllOf(ErrorSaying("The expression '" + std::string(name) +
                                              "' referenced by parameter '" + param + "' in object '" + path +
                                              "' is not valid. The Boundcon operator is only valid "
                                              "for a boundary."),
                                  IsAbout(path, param))));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Suffix, BoundaryOnlyAVValue,
    testing::Values(
        AVValue {"OfTheFluids", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", true},
        AVValue {"OfTheSolids", "/FLOW:F/DOMAIN:Duct/SOLID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", true},
        AVValue {"OfOneFluid", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/FLUID:Water/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", true},
        AVValue {"OfModelsInSomethingElse", "/FLOW:F/SET:S/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", true},
        AVValue {"ButNotAnother", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke",
                 "Additional Variable Value", false},
        AVValue {"ButNotOneThatTheLibraryLacks", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Ash",
                 "Additional Variable Value", false},
        AVValue {"ButNoOtherParameter", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional variable value", false},
        AVValue {"ButNoObjectBelowIt", "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye/MORE:Dye",
                 "Additional Variable Value", false},
        AVValue {"ButNoOtherModels", "/FLOW:F/DOMAIN:Duct/MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", false},
        AVValue {"ButNoModelsOneLevelHigher", "/FLOW:F/FLUID MODELS/SET:S/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", false},
        AVValue {"ButNoModelsOneLevelLower", "/FLOW:F/DOMAIN:Duct/SET:S/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", false},
        AVValue {"ButNotInThreeLevels", "/FLOW:F/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                 "Additional Variable Value", false}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(Suffix, BoundconIsValidForABoundaryOnlyFieldByAnythingThatReadsAsTrue)
{
    const char* const object = "/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye";
    for (const char* value : {"True", "Yes", "on", "1", "T"})
    {
        inLibrary("Dye", "Boundary Only Field").hasStoredValue(value);
        EXPECT_TRUE(checkAt(object, "Additional Variable Value", {{"T.Boundcon", "T"}})) << value;
    }
    for (const char* value : {"", "False", "No", "0", "perhaps"})
    {
        inLibrary("Dye", "Boundary Only Field").hasStoredValue(value);
        EXPECT_FALSE(checkAt(object, "Additional Variable Value", {{"T.Boundcon", "T"}})) << value;
    }
}

TEST_F(Suffix, BoundconIsJudgedByTheAdditionalVariableOfTheObjectNotByThatOfTheExpression)
{
    // Given one that exists on boundaries alone, and one that does not
    additionalVariable("Dye", "SCALAR");
    additionalVariable("Smoke", "SCALAR");
    inLibrary("Dye", "Boundary Only Field").hasStoredValue("True");

    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                        "Additional Variable Value", {{"Smoke.Boundcon", "Smoke"}}));
    EXPECT_FALSE(checkAt("/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Smoke",
                         "Additional Variable Value", {{"Dye.Boundcon", "Dye"}}));
}

TEST_F(Suffix, BoundconAsksTheLibraryOnlyOutsideABoundary)
{
    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Duct/FLUID MODELS/BOUNDARY:Inlet/ADDITIONAL VARIABLE:Dye",
                        "Additional Variable Value", {{"T.Boundcon", "T"}}));
    EXPECT_TRUE(checkAt("/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:Dye",
                        "Additional Variable Value", {{"T.ave", "T"}}));

    EXPECT_THAT(m_host.callsTo({"model.paramValue"}), IsEmpty());
}

}    // namespace
}    // namespace qen
