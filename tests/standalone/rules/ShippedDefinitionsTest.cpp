#include "definitions/CatalogueDefinitions.h"
#include "definitions/Definitions.h"
#include "qcl/QclReader.h"
#include "rules/ParamTypes.h"

#include "ExprCBFuncStore.h"
#include "LocatorDimension.h"
#include "PreVariableDefStore.h"
#include "QCLParam.h"
#include "QCLPath.h"
#include "StringUtilities.h"
#include "UnitDimensions.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace qen::standalone::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::NotNull;

const std::string k_definitions = QEN_SOURCE_FOLDER "/definitions";
const std::string k_examples = QEN_SOURCE_FOLDER "/examples/";
const std::string k_expressions = "/LIBRARY/QEL/EXPRESSIONS";

const Definitions& shipped()
{
    static const Definitions k_shipped({k_definitions});
    return k_shipped;
}

// ---- The definitions

TEST(ShippedDefinitions, LoadWithoutAProblem)
{
    for (const Finding& problem : shipped().problems())
        ADD_FAILURE() << problem.file << ":" << problem.line << ": " << problem.message;
}

TEST(ShippedRules, CoverAGeneralPurposeCode)
{
    std::size_t count = 0;
    std::size_t bounded = 0;
    shipped().rules().visitRules([&](const std::string&, const ParameterRule& p_rule) {
        ++count;
        bounded += !p_rule.lowerBound.empty() || !p_rule.upperBound.empty();
    });

    EXPECT_THAT(count, Ge(300U));
    EXPECT_THAT(bounded, Ge(100U));
}

TEST(ShippedRules, NameOnlyKnownQuantities)
{
    shipped().rules().visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        if (!p_rule.quantity.empty())
        {
            EXPECT_THAT(shipped().units().quantityUnits(p_rule.quantity), NotNull())
                << p_pattern << " " << p_rule.name << ": " << p_rule.quantity;
        }
    });
}

TEST(ShippedRules, HaveBoundsThatConvertToTheirQuantity)
{
    shipped().rules().visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        const std::string* expected = shipped().units().quantityUnits(p_rule.quantity);
        for (const std::string& bound : {p_rule.lowerBound, p_rule.upperBound})
        {
            if (bound.empty())
                continue;
            bool isNumber = false;
            std::string number;
            std::string units;
            const float value = StringUtilities::valueAsFloat(bound, isNumber, number, units);
            ASSERT_TRUE(isNumber) << p_pattern << " " << p_rule.name << ": " << bound;
            EXPECT_TRUE(
                shipped().units().convert(units, expected ? *expected : "", static_cast<double>(value)))
                << p_pattern << " " << p_rule.name << ": " << bound;
        }
    });
}

TEST(ShippedRules, DependOnlyOnKnownVariables)
{
    const std::set<std::string> keywords {"NONE", "ANY", "XYZ", "XYZT"};
    shipped().rules().visitRules([&](const std::string& p_pattern, const ParameterRule& p_rule) {
        for (const std::string& name : p_rule.dependencies)
            EXPECT_TRUE(keywords.count(name) || shipped().variables().hasVariable(name))
                << p_pattern << " " << p_rule.name << ": " << name;
        const bool hasAny = std::ranges::find(p_rule.dependencies, "ANY") != p_rule.dependencies.end();
        EXPECT_TRUE(!hasAny || p_rule.dependencies.size() == 1)
            << p_pattern << " " << p_rule.name << ": ANY stands alone";
    });
}

TEST(ShippedRules, LetUsersNameTheirExpressions)
{
    const RuleBook& rules = shipped().rules();

    EXPECT_TRUE(rules.isValidPath(k_expressions));
    EXPECT_EQ(rules.paramKind(k_expressions, "Shaft Speed", nullptr), "Expression");
}

struct PlaceCase {
    const char* path;
    const char* parameter;
};

class ShippedRulesPlace : public testing::TestWithParam<PlaceCase> {};

TEST_P(ShippedRulesPlace, IsOneThatTheChecksLookAt)
{
    EXPECT_TRUE(shipped().rules().isValidPath(GetParam().path)) << GetParam().path;
    EXPECT_THAT(shipped().rules().find(GetParam().path, GetParam().parameter), NotNull())
        << GetParam().path << " " << GetParam().parameter;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(ShippedRules, ShippedRulesPlace, testing::Values(
    PlaceCase {"/FLOW:F/DOMAIN:D", "Domain Type"},
    PlaceCase {"/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water", "Material"},
    PlaceCase {"/FLOW:F/DOMAIN:D/SOLID DEFINITION:Steel", "Material"},
    PlaceCase {"/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION", "Option"},
    PlaceCase {"/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Dye", "Option"},
    PlaceCase {"/FLOW:F/DOMAIN:D/FLUID MODELS/ADDITIONAL VARIABLE:Dye", "Additional Variable Value"},
    PlaceCase {"/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:Water/ADDITIONAL VARIABLE:Dye", "Additional Variable Value"},
    PlaceCase {"/FLOW:F/DOMAIN:D/SOLID MODELS/ADDITIONAL VARIABLE:Dye", "Additional Variable Value"},
    PlaceCase {"/FLOW:F/DOMAIN:D/BOUNDARY:In", "Boundary Type"},
    PlaceCase {"/FLOW:F/DOMAIN:D/FLUID PAIR:Air and Water", "Surface Tension Coefficient"},
    PlaceCase {"/FLOW:F/DOMAIN:D/SUBDOMAIN:Fan", "Location"},
    PlaceCase {"/FLOW:F/INTERFACE:I", "Interface Type"},
    PlaceCase {"/FLOW:F/RIGID BODY:Flap", "Mass"},
    PlaceCase {"/FLOW:F/TRANSIENT BLADE ROW MODELS/TIME TRANSFORMATION:T", "Passages Side 1"},
    PlaceCase {"/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P", "Option"},
    PlaceCase {"/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P", "Expression Value"},
    PlaceCase {"/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P", "Domain Name"},
    PlaceCase {"/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P/MONITOR LOCATION CONTROL", "Domain Name"},
    PlaceCase {"/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P/MONITOR STATISTICS", "Statistics List"},
    PlaceCase {"/PHYSICS OPTIONS CONTROL", "Constant Physics Control"},
    PlaceCase {"/LIBRARY/ADDITIONAL VARIABLE:Dye", "Units"},
    PlaceCase {"/LIBRARY/ADDITIONAL VARIABLE:Dye", "Tensor Type"},
    PlaceCase {"/LIBRARY/ADDITIONAL VARIABLE:Dye", "Boundary Only Field"}));
// clang-format on

TEST(ShippedRules, NameTheKindsOfDomain)
{
    EXPECT_THAT(shipped().rules().find("/FLOW:F/DOMAIN:D", "Domain Type")->allowedTexts,
                ElementsAre("Fluid", "Solid", "Porous"));
}

TEST(ShippedVariables, HoldTheCoordinatesAndTime)
{
    // Given the names that "XYZ" and "XYZT" stand for
    for (const char* name :
         {"x", "y", "z", "r", "theta", "aaxis", "raxis", "taxis", "subdomain", "xGlobal", "yGlobal",
          "zGlobal", "initcartcrd", "initcartcrd x", "initcartcrd y", "initcartcrd z", "t"})
        EXPECT_TRUE(shipped().variables().hasVariable(name)) << name;
    EXPECT_THAT(shipped().variables().getAllVariableShortNames().size(), Ge(170U));
}

TEST(ShippedVariables, HaveAKnownQuantityAndWhatAnExpressionNeeds)
{
    for (const CatalogueDefinition& definition : shipped().catalogue().all())
    {
        if (definition.kind != DefinitionKind::Variable)
            continue;
        for (const char* key : {"Long Name", "Quantity", "Tensor Type", "General Availability",
                                "Variable Scope", "Field Variable"})
            EXPECT_FALSE(definition.text(key).empty()) << definition.name << " has no " << key;
        EXPECT_THAT(shipped().units().quantityUnits(std::string(definition.text("Quantity"))), NotNull())
            << definition.name << ": " << definition.text("Quantity");
    }
}

TEST(ShippedVariables, HoldTheStateOfARigidBodyAsNoFields)
{
    const PreVariableDefStore& variables = shipped().variables();
    const auto state = variables.getVarsMatching(PreVariableDefStore::VARIABLE_CLASS, "RBS");

    EXPECT_THAT(state, IsSupersetOf({"Euler Angle", "Euler Angle X", "Euler Angle Y", "Euler Angle Z"}));
    EXPECT_EQ(variables.getTensorType("Euler Angle"), PreVariableDefStore::VECTOR);
    for (const std::string& name : state)
        EXPECT_FALSE(variables.varMatchesTrue(name, PreVariableDefStore::FIELD_VARIABLE)) << name;
}

TEST(ShippedOperators, HoldThoseOfBoundariesUnderTheirFixedNames)
{
    for (const char* name : {"Boundcon", "hybrid"})
    {
        ASSERT_TRUE(shipped().variables().hasOperator(name)) << name;
        EXPECT_TRUE(shipped().variables().doesOperatorHaveAvailability(name, "GENERAL")) << name;
    }
}

TEST(ShippedOperators, HoldStatisticsOfWhatAMonitorPointShows)
{
    for (const char* name :
         {"Arithmetic Average", "Standard Deviation", "Root Mean Square", "Minimum", "Maximum"})
    {
        ASSERT_TRUE(shipped().variables().hasOperator(name)) << name;
        EXPECT_TRUE(shipped().variables().doesOperatorHaveAvailability(name, "EXPRESSION VALUE")) << name;
    }
}

TEST(ShippedFunctions, ReachPlacesOfEveryDimension)
{
    const ExprCBFuncStore& functions = shipped().callbacks();

    EXPECT_THAT(functions.getCBNames().size(), Ge(32U));
    EXPECT_TRUE(functions.isAllowedLocatorDimension("probe", LocatorDimension::Point));
    EXPECT_TRUE(functions.isAllowedLocatorDimension("massFlow", LocatorDimension::Surface));
    EXPECT_TRUE(functions.isAllowedLocatorDimension("volumeIntegral", LocatorDimension::Volume));
    EXPECT_TRUE(functions.allowsVectorComponents("force"));
    EXPECT_TRUE(functions.isFieldValued("inside"));
}

// ---- The examples

struct ExampleCase {
    const char* name;
    const char* file;
};

class Example : public testing::TestWithParam<ExampleCase> {
protected:
    QclDocument m_case = readQclFile(k_examples + GetParam().file);
};

TEST_P(Example, UsesOnlyWhatTheRulesKnow)
{
    EXPECT_THAT(m_case.problems, IsEmpty());
    for (const QclObject& object : m_case.objects)
    {
        EXPECT_TRUE(shipped().rules().isValidPath(object.path)) << object.path;
        for (const QclParameter& parameter : object.parameters)
        {
            const ParameterRule* rule = shipped().rules().find(object.path, parameter.name());
            ASSERT_THAT(rule, NotNull()) << object.path << " " << parameter.name();
            if (rule->allowedTexts.empty())
                continue;
            for (const std::string& piece : StringUtilities::splitValue(std::string(parameter.value()), ','))
                EXPECT_THAT(rule->allowedTexts, Contains(piece)) << object.path << " " << parameter.name();
        }
    }
}

TEST_P(Example, IsLargeEnoughToBeRealistic)
{
    std::size_t parameters = 0;
    std::size_t withQuantity = 0;
    std::size_t withBounds = 0;
    for (const QclObject& object : m_case.objects)
        for (const QclParameter& parameter : object.parameters)
        {
            ++parameters;
            const ParameterRule* rule = shipped().rules().find(object.path, parameter.name());
            if (!rule || (rule->quantity.empty() && rule->unitsFrom.empty()))
                continue;
            ++withQuantity;
            withBounds += !rule->lowerBound.empty() || !rule->upperBound.empty();
        }

    EXPECT_THAT(parameters, Ge(150U));
    EXPECT_THAT(withQuantity, Ge(100U));
    EXPECT_THAT(withBounds, Ge(40U));
    RecordProperty("parameters", static_cast<int>(parameters));
    RecordProperty("withQuantity", static_cast<int>(withQuantity));
    RecordProperty("withBounds", static_cast<int>(withBounds));
}

TEST_P(Example, GivesItsExpressionsNamesOfTheirOwn)
{
    const std::set<std::string> ruled = shipped().rules().allParamNames();
    for (const QclObject& object : m_case.objects)
        if (object.path == k_expressions)
            for (const QclParameter& parameter : object.parameters)
            {
                const std::string name(parameter.name());
                EXPECT_EQ(ruled.count(name), 0U) << name;
                EXPECT_FALSE(shipped().variables().hasVariable(name)) << name;
            }
}

INSTANTIATE_TEST_SUITE_P(
    Examples, Example,
    testing::Values(ExampleCase {"Pump", "pump.qcl"}, ExampleCase {"MixingVessel", "mixing-vessel.qcl"},
                    ExampleCase {"Burner", "burner.qcl"}, ExampleCase {"BubbleColumn", "bubble-column.qcl"}),
    [](const testing::TestParamInfo<ExampleCase>& p_info) { return std::string(p_info.param.name); });

}    // namespace
}    // namespace qen::standalone::test
