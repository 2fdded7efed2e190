#include "DataError.h"
#include "UnitsError.h"

#include "DimExprChecker/DimExprErrors.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace qen {
namespace {

using namespace DimExprErrors;

template <class Exception>
class CheckException : public testing::Test {};

using AllClasses = testing::Types<dxerror, dxwarning, bounds_error, units_error, dynamic_quant_error>;
TYPED_TEST_SUITE(CheckException, AllClasses);

TYPED_TEST(CheckException, HasTheMessageAndTheTypeOfAnError)
{
    const TypeParam thrown("What is wrong.");

    EXPECT_EQ(thrown.getMessage(), "What is wrong.");
    EXPECT_EQ(static_cast<int>(thrown.getType()), 4);
}

TYPED_TEST(CheckException, CopiesCarryTheMessage)
{
    const TypeParam thrown("What is wrong.");
    const TypeParam copy(thrown);

    EXPECT_EQ(copy.getMessage(), "What is wrong.");
    EXPECT_EQ(copy.getMethod(), "checkParam");
}

TYPED_TEST(CheckException, IsCaughtAsAnExpressionError)
{
    try
    {
        throw TypeParam("What is wrong.");
    }
    catch (const expressions::error& thrown)
    {
        EXPECT_EQ(thrown.getMessage(), "What is wrong.");
    }
}

TYPED_TEST(CheckException, AddsNoData) { EXPECT_EQ(sizeof(TypeParam), sizeof(expressions::error)); }

TYPED_TEST(CheckException, IsOfNoOtherHostFamily)
{
    EXPECT_FALSE((std::is_base_of_v<data::error, TypeParam>));
    EXPECT_FALSE((std::is_base_of_v<units::error, TypeParam>));
    EXPECT_FALSE((std::is_base_of_v<expressions::name, TypeParam>));
}

template <class Exception>
void expectItNamesTheEntryPoint()
{
    const Exception thrown("What is wrong.");
    EXPECT_EQ(thrown.getClass(), "DimExprChecker");
    EXPECT_EQ(thrown.getMethod(), "checkParam");
}

TEST(DimExprErrors, NameTheEntryPointWhateverCheckRaises)
{
    expectItNamesTheEntryPoint<dxerror>();
    expectItNamesTheEntryPoint<dxwarning>();
    expectItNamesTheEntryPoint<bounds_error>();
    expectItNamesTheEntryPoint<units_error>();
    expectItNamesTheEntryPoint<dynamic_quant_error>();
}

TEST(DimExprErrors, AWarningIsNoError)
{
    EXPECT_FALSE((std::is_base_of_v<dxerror, dxwarning>));
    EXPECT_FALSE((std::is_base_of_v<dxwarning, dxerror>));
}

TEST(DimExprErrors, TheSpecificErrorsAreErrorsAndNoKindOfEachOther)
{
    EXPECT_TRUE((std::is_base_of_v<dxerror, bounds_error>));
    EXPECT_TRUE((std::is_base_of_v<dxerror, units_error>));
    EXPECT_TRUE((std::is_base_of_v<dxerror, dynamic_quant_error>));

    EXPECT_FALSE((std::is_base_of_v<units_error, dynamic_quant_error>));
    EXPECT_FALSE((std::is_base_of_v<units_error, bounds_error>));
    EXPECT_FALSE((std::is_base_of_v<bounds_error, units_error>));
}

TEST(DimExprErrors, AreNotThrownByAccident)
{
    EXPECT_FALSE((std::is_convertible_v<std::string, dxerror>));
    EXPECT_FALSE((std::is_convertible_v<std::string, bounds_error>));
}

}    // namespace
}    // namespace qen
