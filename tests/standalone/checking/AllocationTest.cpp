#include "checking/CheckedCase.h"
#include "model/ModelTree.h"
#include "support/AllocationCount.h"
#include "world/World.h"

#include "DimExprChecker.h"

#include <gtest/gtest.h>

namespace qen::standalone {
namespace {

TEST(PassingCheckOfANumber, AllocatesNothing)
{
    // Given a bounded parameter whose bounds were read before
    const Definitions definitions({QENCHECK_PROJECT "/definitions"});
    ASSERT_FALSE(definitions.hasErrors());
    const std::string path = "/FLOW:F/DOMAIN:D/BOUNDARY:B/INFLOW";
    const std::string name = "Mass Flow Rate";
    const std::string units = "kg min^-1";
    ModelTree model;
    model.setParameter(path, name, "20 [kg min^-1]");
    World world;
    world.units = &definitions.units();
    world.variables = &definitions.variables();
    world.rules = &definitions.rules();
    world.model = &model;
    const WorldScope scope(world);
    DimExprChecker checker(&model, &definitions.rules(), &definitions.rules(), &definitions.variables(),
                           nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(checker.checkParamNumeric(path, name, 20.0F, units, true));
    ASSERT_FALSE(checker.checkParamNumeric(path, name, -20.0F, units, true));

    // When a number passes, with or without records
    const std::size_t before = support::allocationCount();
    const bool recorded = checker.checkParamNumeric(path, name, 30.0F, units, true);
    const bool quiet = checker.checkParamNumeric(path, name, 40.0F, units, false);
    const std::size_t after = support::allocationCount();

    // Then nothing was taken from the heap, by the library or by this host
    EXPECT_TRUE(recorded);
    EXPECT_TRUE(quiet);
    EXPECT_EQ(after - before, 0U);
}

}    // namespace
}    // namespace qen::standalone
