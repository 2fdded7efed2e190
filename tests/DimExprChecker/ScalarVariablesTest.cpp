#include "VariablesFixture.h"

#include "DataError.h"

#include <ostream>
#include <string>

namespace qen {
namespace {

using support::HostReports;
using support::records;
using support::thrownBy;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;

using TensType = PreVariableDefStore::TensType;

std::string nonScalar(const std::string& p_variable)
{
    return "Non-scalar variable '" + p_variable +
           "' referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.\nNon-scalars are only allowed "
           "as arguments to integrated quantity functions.";
}

std::string invalidComponent(const std::string& p_letters, const std::string& p_variable)
{
    return "Invalid vector or tensor component '" + p_letters + "' used in variable '" + p_variable +
           "', referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.";
}

std::string nonScalarOperator(const std::string& p_variable)
{
    return "Non-scalar operator applied to non-scalar variable in '" + p_variable +
           "', referenced by parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'.";
}

class Scalar : public support::VariablesTest {};

// The letters that select components: how many there are decides, whichever they are.

enum class Outcome { Scalar, NotScalar, TooManyLetters };

struct Selection {
    const char* title;
    const char* tensorType;
    const char* letters;
    Outcome outcome;
};

void PrintTo(const Selection& p_selection, std::ostream* p_stream)
{
    *p_stream << p_selection.tensorType << " with \"" << p_selection.letters << '"';
}

class ComponentSelection : public support::VariablesTest, public testing::WithParamInterface<Selection> {
protected:
    static TensType tensorType()
    {
        const std::string type = GetParam().tensorType;
        return type == "SCALAR" ? Store::SCALAR : type == "VECTOR" ? Store::VECTOR : Store::SYMTEN2;
    }

    /// A name with the letters behind it.
    static std::string withLetters(const std::string& p_name)
    {
        const std::string letters = GetParam().letters;
        return letters.empty() ? p_name : p_name + '{' + letters + '}';
    }

    void expectOutcomeFor(const std::string& p_fullName, const char* p_root)
    {
        EXPECT_EQ(check({{p_fullName.c_str(), p_root}}), GetParam().outcome == Outcome::Scalar);
        switch (GetParam().outcome)
        {
        case Outcome::Scalar:
            EXPECT_THAT(records(m_checker), IsEmpty());
            break;
        case Outcome::NotScalar:
            EXPECT_THAT(records(m_checker), onlyError(nonScalar(p_fullName)));
            break;
        case Outcome::TooManyLetters:
            EXPECT_THAT(records(m_checker), onlyError(invalidComponent(GetParam().letters, p_fullName)));
            break;
        }
        EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
    }
};

TEST_P(ComponentSelection, ReducesAVariableOfTheCatalogue)
{
    define("flux", GetParam().tensorType, "True");

    expectOutcomeFor(withLetters("flux"), "flux");
}

TEST_P(ComponentSelection, ReducesAnAdditionalVariable)
{
    additionalVariable("Dye", GetParam().tensorType);

    expectOutcomeFor(withLetters("Dye"), "Dye");
}

TEST_P(ComponentSelection, ReducesAnOperatorOnAScalar)
{
    defineOperator("change", tensorType());

    expectOutcomeFor(withLetters("T.change"), "T");
}

INSTANTIATE_TEST_SUITE_P(
    Scalar, ComponentSelection,
    testing::Values(Selection {"OfAScalarWithNone", "SCALAR", "", Outcome::Scalar},
                    Selection {"OfAScalarWithOne", "SCALAR", "x", Outcome::TooManyLetters},
                    Selection {"OfAScalarWithTwo", "SCALAR", "xy", Outcome::TooManyLetters},
                    Selection {"OfAVectorWithNone", "VECTOR", "", Outcome::NotScalar},
                    Selection {"OfAVectorWithOne", "VECTOR", "x", Outcome::Scalar},
                    Selection {"OfAVectorWithOneThatIsNoAxis", "VECTOR", "q", Outcome::Scalar},
                    Selection {"OfAVectorWithTwo", "VECTOR", "xy", Outcome::TooManyLetters},
                    Selection {"OfAVectorWithThree", "VECTOR", "xyz", Outcome::TooManyLetters},
                    Selection {"OfASymmetricTensorWithNone", "SYMTEN2", "", Outcome::NotScalar},
                    Selection {"OfASymmetricTensorWithOne", "SYMTEN2", "x", Outcome::NotScalar},
                    Selection {"OfASymmetricTensorWithTwo", "SYMTEN2", "xy", Outcome::Scalar},
                    Selection {"OfASymmetricTensorWithTwoThatAreNoAxes", "SYMTEN2", "%q", Outcome::Scalar},
                    Selection {"OfASymmetricTensorWithThree", "SYMTEN2", "xyz", Outcome::TooManyLetters},
                    Selection {"OfASymmetricTensorWithFour", "SYMTEN2", "xyzx", Outcome::TooManyLetters}),
    [](const auto& p_info) { return p_info.param.title; });

TEST_F(Scalar, IsNothingOfAnUnknownTensorType)
{
    defineOperator("strange", static_cast<TensType>(3));
    defineOperator("stranger", static_cast<TensType>(-1));

    EXPECT_FALSE(check({{"T.strange", "T"}}));
    EXPECT_FALSE(check({{"T.stranger{x}", "T"}}));

    EXPECT_THAT(records(m_checker),
                ElementsAre(support::ErrorSaying(nonScalar("T.strange")),
                            support::ErrorSaying(invalidComponent("x", "T.stranger{x}"))));
}

TEST_F(Scalar, IsAComponentThatTheCatalogueHasAsAVariable) { EXPECT_TRUE(check({"vel 1"})); }

TEST_F(Scalar, IsJudgedByTheRootWithoutPrefixes)
{
    EXPECT_TRUE(check({{"Water.vel{x}", "vel"}}));
    EXPECT_FALSE(check({"Water.vel"}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalar("Water.vel")));
}

// Operators.

TEST_F(Scalar, IsDecidedByTheOperatorAlone)
{
    // A vector with a scalar operator passes
    EXPECT_TRUE(check({{"vel.ave", "vel"}}));
    EXPECT_TRUE(check({{"stress{x}.ave", "stress"}}));
    EXPECT_THAT(records(m_checker), IsEmpty());

    // and a scalar with a vector operator does not
    EXPECT_FALSE(check({{"T.grad", "T"}}));
    EXPECT_THAT(records(m_checker), onlyError(nonScalar("T.grad")));
}

TEST_F(Scalar, IsAComponentOfAnOperatorOnAVector)
{
    EXPECT_TRUE(check({{"vel.grad{x}", "vel"}}));
    EXPECT_TRUE(check({{"vel{y}.grad{x}", "vel"}}));
    EXPECT_TRUE(check({{"stress.grad{x}", "stress"}}));
}

TEST_F(Scalar, IsNotAVectorOperatorOnAVector)
{
    EXPECT_FALSE(check({{"vel.grad", "vel"}}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalarOperator("vel.grad")));
}

TEST_F(Scalar, IsNotAVectorOperatorOnAVectorThatIsLeftOfATensor)
{
    EXPECT_FALSE(check({{"Water.stress{x}.grad", "stress"}}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalarOperator("Water.stress{x}.grad")));
}

TEST_F(Scalar, IsNotAVectorOperatorOnAComponentOfAVector)
{
    EXPECT_FALSE(check({{"vel{x}.grad", "vel"}}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalar("vel{x}.grad")));
}

TEST_F(Scalar, IsNotAVectorOperatorOnAVectorAdditionalVariable)
{
    additionalVariable("Swirl", "VECTOR");

    EXPECT_FALSE(check({{"Swirl.grad", "Swirl"}}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalarOperator("Swirl.grad")));
}

TEST_F(Scalar, IsCheckedForTheLettersOfTheRootThenOfTheOperatorThenForTheirTypes)
{
    EXPECT_FALSE(check({{"T{x}.grad{xyz}", "T"}}));
    EXPECT_FALSE(check({{"vel.grad{xyz}", "vel"}}));
    EXPECT_FALSE(check({{"vel{xy}.grad", "vel"}}));

    EXPECT_THAT(records(m_checker),
                ElementsAre(support::ErrorSaying(invalidComponent("x", "T{x}.grad{xyz}")),
                            support::ErrorSaying(invalidComponent("xyz", "vel.grad{xyz}")),
                            support::ErrorSaying(invalidComponent("xy", "vel{xy}.grad"))));
}

TEST_F(Scalar, IsCheckedForTheLettersOfTheRootAlsoWhenTheOperatorIsUnknown)
{
    EXPECT_FALSE(check({{"T{x}.curl", "T"}}));

    EXPECT_THAT(records(m_checker), onlyError(invalidComponent("x", "T{x}.curl")));
}

TEST_F(Scalar, IsNotAskedForWhenTheOperatorIsUnknown)
{
    EXPECT_FALSE(check({{"vel.curl{xyz}", "vel"}}));

    EXPECT_THAT(records(m_checker),
                onlyError("Invalid operator 'curl' used in expression 'vel.curl{xyz}', referenced by "
                          "parameter 'Width' in object '/FLOW:F/DOMAIN:Duct'."));
}

// Additional variables.

TEST_F(Scalar, IsAnAdditionalVariableOfWhichTheLibrarySaysNothing)
{
    additionalVariable("Dye", "");

    EXPECT_TRUE(check({"Dye"}));

    EXPECT_THAT(HostReports::failedAssertions(), IsEmpty());
}

TEST_F(Scalar, IsDecidedByTheLibraryForAnAdditionalVariableThatTheCatalogueKnowsToo)
{
    additionalVariable("vel", "SCALAR");
    additionalVariable("T", "VECTOR");

    EXPECT_TRUE(check({"vel"}));
    EXPECT_FALSE(check({"T"}));

    EXPECT_THAT(records(m_checker), onlyError(nonScalar("T")));
}

TEST_F(Scalar, ComponentOfAVectorAdditionalVariableIsOne)
{
    additionalVariable("Swirl", "VECTOR");

    width().isKind("Expression");    // no prefixes are looked at

    EXPECT_TRUE(check({"Swirl X"}));

    EXPECT_THAT(m_host.callsTo({"model.paramValue"}),
                ElementsAre(
                    // it is a component of a vector
                    "model.paramValue(/LIBRARY/ADDITIONAL VARIABLE:Swirl, Tensor Type)",
                    // and what has no entry is a scalar
                    "model.paramValue(/LIBRARY/ADDITIONAL VARIABLE:Swirl X, Tensor Type)"));
    EXPECT_FALSE(check({{"Swirl X{x}", "Swirl X"}}));
    EXPECT_THAT(records(m_checker), onlyError(invalidComponent("x", "Swirl X{x}")));
}

class AVTensorType : public support::VariablesTest, public testing::WithParamInterface<const char*> {};

TEST_P(AVTensorType, ThatIsNotUnderstoodFailsAnAssertionAndTheCatalogueDecides)
{
    additionalVariable("vel", GetParam());
    additionalVariable("T", GetParam());

    // A scalar of the catalogue passes,
    EXPECT_TRUE(check({"T"}));
    EXPECT_THAT(
        HostReports::failedAssertions(),
        ElementsAre(FieldsAre("Invalid tensor type string in AV", "PreVariables/src/DimExprChecker", 1133)));
    EXPECT_THAT(records(m_checker), IsEmpty());

    // a vector does not
    EXPECT_FALSE(check({"vel"}));
    EXPECT_THAT(HostReports::failedAssertions(), testing::SizeIs(2));
    EXPECT_THAT(records(m_checker), onlyError(nonScalar("vel")));

    // without a component, and is one with it.
    EXPECT_TRUE(check({{"vel{x}", "vel"}}));
}

INSTANTIATE_TEST_SUITE_P(Scalar, AVTensorType,
                         testing::Values("TENSOR", "Scalar", "vector", "SCALAR ", " VECTOR", "SYMTEN", "0"));

TEST_F(Scalar, LetsTheCataloguesErrorPassForAnAdditionalVariableThatNobodyUnderstands)
{
    additionalVariable("Dye", "TENSOR");

    const auto thrown = thrownBy<data::notFound>([&] { check({"Dye"}); });

    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->getMessage(), "Variable 'Dye' does not exist.");
    EXPECT_THAT(
        HostReports::failedAssertions(),
        ElementsAre(FieldsAre("Invalid tensor type string in AV", "PreVariables/src/DimExprChecker", 1133)));
    EXPECT_THAT(records(m_checker), IsEmpty());
}

}    // namespace
}    // namespace qen
