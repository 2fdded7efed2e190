#include "ShippedPhysics.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace qen::standalone::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::NotNull;

/// A path for which a pattern of PHYSICS.qcl stands, with every name "n".
std::string examplePath(std::string p_pattern)
{
    const std::map<std::string, std::string> begins {
        {"{FLOW}", "/FLOW:n"},
        {"{DOMAIN}", "/FLOW:n/DOMAIN:n"},
        {"{FLUID}", "/FLOW:n/DOMAIN:n/FLUID MODELS/FLUID:n"},
        {"{FLUID DEFINITION}", "/FLOW:n/DOMAIN:n/FLUID DEFINITION:n"},
        {"{FLUID PAIR}", "/FLOW:n/DOMAIN:n/FLUID PAIR:n"},
        {"{MATERIAL}", "/LIBRARY/MATERIAL:n"},
    };
    if (p_pattern.starts_with('{'))
    {
        const std::size_t end = p_pattern.find('}') + 1;
        const auto begin = begins.find(p_pattern.substr(0, end));
        EXPECT_TRUE(begin != begins.end()) << p_pattern << " begins at a type that this test does not know";
        if (begin != begins.end())
            p_pattern.replace(0, end, begin->second);
    }
    for (std::size_t colon = p_pattern.find(':'); colon != std::string::npos;
         colon = p_pattern.find(':', colon + 1))
        p_pattern.replace(colon + 1, std::min(p_pattern.find('/', colon), p_pattern.size()) - colon - 1, "n");
    return p_pattern;
}

TEST(ShippedPhysics, LoadsWithoutAProblem) { EXPECT_FALSE(shippedPhysics().queryNames().empty()); }

TEST(ShippedPhysics, DefinesEveryQueryThatTheAvailabilityCheckerAsks)
{
    PhysicsBook physics;
    const QclDocument document = readQclFile(QEN_SOURCE_FOLDER "/definitions/PHYSICS.qcl");
    Diagnostics problems;
    const ModelTree model;
    const NoShortNames shortNames;

    const VarAvailabilityChecker checker(&model, &shortNames, &physics);
    const std::size_t asked = physics.undefinedQueries().size();
    physics.addDefinitions(document, problems);

    EXPECT_EQ(asked, 74U);
    EXPECT_THAT(physics.undefinedQueries(), IsEmpty());
}

TEST(ShippedPhysics, LooksOnlyAtObjectsAndParametersThatTheRulesKnow)
{
    const RuleBook& rules = shippedDefinitions().rules();
    std::size_t looks = 0;

    shippedPhysics().visitLooks([&](const PhysicsBook::Look& p_look) {
        ++looks;
        const std::string path = examplePath(p_look.object);
        EXPECT_TRUE(rules.isValidPath(path)) << p_look.query << " looks at " << p_look.object;
        if (p_look.parameter.empty())
            return;
        const ParameterRule* rule = rules.find(path, p_look.parameter);
        ASSERT_THAT(rule, NotNull()) << p_look.query << " looks at '" << p_look.parameter << "' of "
                                     << p_look.object;
        EXPECT_EQ(p_look.isLogical, rule->type == "Logical") << p_look.query;
        for (const std::string& text : p_look.texts)
            EXPECT_THAT(rule->allowedTexts, Contains(text))
                << p_look.query << ", '" << p_look.parameter << "'";
        if (!p_look.names.empty())
        {
            EXPECT_TRUE(rules.isValidPath(examplePath(p_look.names) + ":n")) << p_look.query;
        }
    });
    EXPECT_GT(looks, 90U);
}

TEST(ShippedPhysics, TellsTheFluidThatConsistsOfComponents)
{
    // Given two fluids of which one is a mixture; the keywords cannot tell them apart, since the domain has components
    const ModelTree model = modelOf("[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sea]\nMaterial = Brine\n"
                                    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\nMaterial = Air\n"
                                    "[/LIBRARY/MATERIAL:Air]\nOption = Pure Substance\n"
                                    "[/LIBRARY/MATERIAL:Brine]\nOption = Variable Composition Mixture\n");
    const PhysicsBook& physics = shippedPhysics();

    EXPECT_TRUE(
        physics.evalBool("anyDomFluFMCompsForFluid", "/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:Sea", &model));
    EXPECT_FALSE(
        physics.evalBool("anyDomFluFMCompsForFluid", "/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:Air", &model));
    EXPECT_TRUE(physics.evalBool("anyComponentsForDomain", "/FLOW:F/DOMAIN:D", &model));
}

TEST(ShippedPhysics, AnswersNoEverywhereInAnEmptyModel)
{
    const ModelTree model;
    const std::set<std::string> negations {"isEulerianFluid", "isNotOfOneFluid"};

    for (const std::string& query : shippedPhysics().queryNames())
        for (const char* path : {"", "/FLOW:F/DOMAIN:D/BOUNDARY:B", "/FLOW:F/DOMAIN:D/FLUID PAIR:A and B",
                                 "/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:A"})
            EXPECT_TRUE(negations.contains(query) || !shippedPhysics().evalBool(query, path, &model))
                << query << " at '" << path << "'";
}

}    // namespace
}    // namespace qen::standalone::test
