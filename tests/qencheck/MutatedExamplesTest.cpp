#include "checking/CaseChecker.h"
#include "definitions/Definitions.h"
#include "qcl/QclReader.h"
#include "world/World.h"

#include "QCLParam.h"
#include "QCLPath.h"
#include "StringUtilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {
namespace {

constexpr const char* k_wrongUnits = "cd";    // no quantity of the shipped rules is a luminous intensity

const Definitions& shippedDefinitions()
{
    static const Definitions definitions({QENCHECK_PROJECT "/definitions"});
    return definitions;
}

/// The case's text with the value of one parameter replaced: what a user would have typed instead.
QclDocument withValue(const QclDocument& p_case, std::size_t p_object, std::size_t p_parameter,
                      const std::string& p_value)
{
    std::string text;
    for (std::size_t i = 0; i < p_case.objects.size(); ++i)
    {
        const QclObject& object = p_case.objects[i];
        text += "[" + object.path + "]\n";
        for (std::size_t k = 0; k < object.parameters.size(); ++k)
        {
            const QclParameter& parameter = object.parameters[k];
            const bool replaced = i == p_object && k == p_parameter;
            text.append(parameter.name()).append(" = ");
            text.append(replaced ? std::string_view(p_value) : parameter.value()).append("\n");
        }
    }
    return readQclText("mutated.qcl", text);
}

/// A number that misses a bound by one part in a hundred thousand, in the bound's units; an integer by one.
std::string beyond(const ParameterRule& p_rule, const std::string& p_bound, double p_direction)
{
    bool isNumber = false;
    std::string number;
    std::string units;
    const double bound = static_cast<double>(StringUtilities::valueAsFloat(p_bound, isNumber, number, units));
    const bool integer = p_rule.type.compare(0, 7, "Integer") == 0;
    const double miss = integer ? 1.0 : bound == 0.0 ? 1e-6 : 1e-5 * std::fabs(bound);
    const double value = bound + p_direction * miss;

    char text[64];
    std::snprintf(text, sizeof text, "%.9g [%s]", value, units.c_str());
    return text;
}

struct Mutation {
    std::size_t object;
    std::size_t parameter;
    std::string value;
    std::string identifier;
};

std::vector<Mutation> mutationsOf(const QclDocument& p_case)
{
    const RuleBook& rules = shippedDefinitions().rules();
    std::vector<Mutation> mutations;
    for (std::size_t i = 0; i < p_case.objects.size(); ++i)
        for (std::size_t k = 0; k < p_case.objects[i].parameters.size(); ++k)
        {
            const QclObject& object = p_case.objects[i];
            const QclParameter& parameter = object.parameters[k];
            const ParameterRule* rule = rules.find(object.path, parameter.name());
            const std::string lastType = QCLPath(object.path).getLastType();
            if (!rule ||
                !QCLParam::isNumericType(rules.getParamType(lastType, std::string(parameter.name()))))
                continue;

            const bool dynamic = !rule->unitsFrom.empty();
            if (dynamic || !rule->quantity.empty())
                mutations.push_back({i, k, std::string("1 [") + k_wrongUnits + "]",
                                     dynamic ? "wrong-dynamic-units" : "wrong-units"});
            if (!rule->lowerBound.empty())
                mutations.push_back({i, k, beyond(*rule, rule->lowerBound, -1.0), "below-lower-bound"});
            if (!rule->upperBound.empty())
                mutations.push_back({i, k, beyond(*rule, rule->upperBound, 1.0), "above-upper-bound"});
        }
    return mutations;
}

class MutatedExample : public testing::TestWithParam<const char*> {};

TEST_P(MutatedExample, GivesExactlyOneRecordForEachValueThatIsMadeWrong)
{
    const QclDocument original =
        readQclFile(std::string(QENCHECK_PROJECT "/examples/") + GetParam() + ".qcl");
    ASSERT_TRUE(original.problems.empty());
    ASSERT_FALSE(shippedDefinitions().hasErrors());
    const std::vector<Mutation> mutations = mutationsOf(original);
    ASSERT_GE(mutations.size(), 140U);    // a hundred quantities and forty bounds at the least

    for (const Mutation& mutation : mutations)
    {
        const QclDocument mutated = withValue(original, mutation.object, mutation.parameter, mutation.value);
        const QclObject& object = mutated.objects[mutation.object];
        const QclParameter& parameter = object.parameters[mutation.parameter];
        SCOPED_TRACE(std::string(parameter.name()) + " = " + mutation.value + " in " +
                     std::string(object.path));

        const CaseReport report = checkCase(mutated, shippedDefinitions());

        ASSERT_EQ(report.findings.size(), 1U);
        EXPECT_EQ(report.findings[0].identifier, mutation.identifier);
        EXPECT_EQ(report.findings[0].line, parameter.placeInValue(0).line);
        EXPECT_EQ(report.findings[0].column, parameter.placeInValue(0).column);
        EXPECT_EQ(report.findings[0].length, mutation.value.size());
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, MutatedExample,
                         testing::Values("pump", "mixing-vessel", "burner", "bubble-column"));

}    // namespace
}    // namespace qen::standalone
