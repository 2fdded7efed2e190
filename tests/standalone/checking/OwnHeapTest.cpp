#include "definitions/Definitions.h"
#include "locators/ModelLocators.h"
#include "model/ModelTree.h"
#include "names/PrefixClassifier.h"
#include "names/ShortNameFinder.h"
#include "physics/PhysicsAnswers.h"
#include "qcl/QclReader.h"
#include "support/HostBorder.h"
#include "world/World.h"

#include "DimExprChecker.h"
#include "VarAvailabilityChecker.h"

#include "CallbackInfo.h"
#include "ExpressionEvaluator.h"
#include "UnitDimensions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using support::blocksOutsideOfHost;
using support::WatchedHost;

/// What is allowed for a check, and once more for each name that a short text does not hold.
constexpr std::size_t k_blocks = 4;
constexpr std::size_t k_shortName = 15;    // characters

const Definitions& definitions()
{
    static const Definitions result({QENCHECK_PROJECT "/definitions"});
    return result;
}

/// An example of a case, with a checker whose calls of the host are watched.
class WatchedCase {
public:
    explicit WatchedCase(const std::string& p_example)
        : m_case(readQclFile(QENCHECK_PROJECT "/examples/" + p_example)), m_model(m_case),
          m_world(makeWorld()), m_scope(m_world), m_prefixes(m_model), m_locators(m_model),
          m_shortNames(definitions().variables()),
          m_physics(definitions().physics(), m_model, [this] { return m_model.version(); }),
          m_host({&m_model, &definitions().rules(), &definitions().rules(), &m_prefixes, &m_locators,
                  &m_shortNames, &m_physics}),
          m_availability(m_host.interfaces().model, m_host.interfaces().shortNames,
                         m_host.interfaces().physics),
          m_checker(m_host.interfaces().model, m_host.interfaces().rules,
                    m_host.interfaces().quantityModifier, &definitions().variables(),
                    m_host.interfaces().prefixInfo, &m_availability, m_host.interfaces().locatorInfo,
                    &definitions().callbacks())
    {}

    const std::vector<QclObject>& objects() const { return m_case.objects; }

    bool passes(const std::string& p_objectPath, const std::string& p_name, const std::string& p_value)
    {
        return m_checker.checkParamExpression(p_objectPath, p_name, p_value);
    }

private:
    World makeWorld()
    {
        World world;
        world.units = &definitions().units();
        world.variables = &definitions().variables();
        world.callbacks = &definitions().callbacks();
        world.rules = &definitions().rules();
        world.model = &m_model;
        return world;
    }

    QclDocument m_case;
    ModelTree m_model;
    World m_world;
    WorldScope m_scope;
    PrefixClassifier m_prefixes;
    ModelLocators m_locators;
    ShortNameFinder m_shortNames;
    PhysicsAnswers m_physics;
    WatchedHost m_host;
    VarAvailabilityChecker m_availability;
    DimExprChecker m_checker;
};

/// The references of an expression to variables: how many there are, and how many of them are long.
struct References {
    explicit References(const std::string& p_expression)
    {
        std::vector<std::string> variables;
        std::vector<CallbackInfo> calls;
        UnitDimensions dims;
        ExpressionEvaluator::getVariablesAndCallbacks(p_expression, variables, calls, dims, "");
        for (const CallbackInfo& call : calls)
            variables.push_back(call.argument);
        count = variables.size();
        longOnes = static_cast<std::size_t>(std::ranges::count_if(
            variables, [](const std::string& p_name) { return p_name.size() > k_shortName; }));
    }

    std::size_t count;
    std::size_t longOnes;
};

class OwnHeapOfPassingChecks : public testing::TestWithParam<const char*> {};

TEST_P(OwnHeapOfPassingChecks, IsFourBlocksAndFourForEachLongReference)
{
    // Given a case
    ASSERT_FALSE(definitions().hasErrors());
    WatchedCase example(GetParam());

    std::size_t passed = 0;
    std::size_t references = 0;
    for (const QclObject& object : example.objects())
        for (const QclParameter& parameter : object.parameters)
        {
            // When a value passes as an expression, and not for the first time at its place
            const std::string name(parameter.name());
            const std::string value(parameter.value());
            if (!example.passes(object.path, name, value))
                continue;
            const std::size_t before = blocksOutsideOfHost();
            const bool passes = example.passes(object.path, name, value);
            const std::size_t blocks = blocksOutsideOfHost() - before;
            ASSERT_TRUE(passes);

            // Then the library takes a few blocks, whatever the host takes
            const References of(value);
            EXPECT_LE(blocks, k_blocks * (1 + of.longOnes))
                << name << " = " << value << "\nin " << object.path;
            ++passed;
            references += of.count;
        }
    EXPECT_GT(passed, 100U);
    EXPECT_GT(references, 5U);
}

INSTANTIATE_TEST_SUITE_P(OfExample, OwnHeapOfPassingChecks,
                         testing::Values("bubble-column.qcl", "burner.qcl", "mixing-vessel.qcl", "pump.qcl"),
                         [](const auto& p_example) {
                             std::string name = p_example.param;
                             name.resize(name.find('.'));
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

}    // namespace
}    // namespace qen::standalone
