#include "KeywordCases.h"
#include "ShippedPhysics.h"

#include "checking/CaseChecker.h"
#include "physics/PhysicsAnswers.h"
#include "SplitVariableName.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace qen::standalone::test {
namespace {

using ::testing::ElementsAre;

std::vector<KeywordCase> allCases()
{
    std::vector<KeywordCase> cases = domainKeywordCases();
    std::ranges::copy(fluidKeywordCases(), std::back_inserter(cases));
    return cases;
}

std::string testName(const KeywordCase& p_case, std::size_t p_index)
{
    std::string name = p_case.keyword;
    std::erase_if(name, [](char p_letter) { return !std::isalnum(static_cast<unsigned char>(p_letter)); });
    switch (p_case.setting)
    {
    case Setting::On:
        name += "_IsOn";
        break;
    case Setting::Off:
        name += "_IsOff";
        break;
    case Setting::Elsewhere:
        name += "_IsOnlyElsewhere";
        break;
    }
    return name + "_" + std::to_string(p_index);
}

class AvailabilityKeyword : public testing::TestWithParam<KeywordCase> {};

TEST_P(AvailabilityKeyword, HoldsWhereItsPhysicsIsSwitchedOn)
{
    // Given a case that makes a setting
    const ModelTree model = modelOf(GetParam().text);
    const NoShortNames shortNames;
    const VarAvailabilityChecker checker(&model, &shortNames, &shippedPhysics());
    const SplitVariableName anyVariable("", nullptr);

    // Then its physics is available where it was made, and nowhere else
    const bool isOn = GetParam().setting == Setting::On;
    const std::string keyword = GetParam().keyword;
    EXPECT_EQ(checker.isPhysicallyAvailable(anyVariable, {keyword}, GetParam().at), isOn);
    EXPECT_EQ(checker.isPhysicallyAvailable(anyVariable, {"!" + keyword}, GetParam().at), !isOn);
}

TEST_P(AvailabilityKeyword, HoldsAlikeWhereAnswersAreKept)
{
    // Given answers that were first asked for at other places of the domain and its fluids
    const ModelTree model = modelOf(GetParam().text);
    const NoShortNames shortNames;
    const PhysicsAnswers answers(shippedPhysics(), model, [&] { return model.version(); });
    const VarAvailabilityChecker checker(&model, &shortNames, &answers);
    const VarAvailabilityChecker afresh(&model, &shortNames, &shippedPhysics());
    const SplitVariableName anyVariable("", nullptr);

    // Then they are those that the queries give afresh
    for (const char* path : {"/FLOW:F/DOMAIN:D", "/FLOW:F/DOMAIN:D/SUBDOMAIN:S/SOURCES/FLUID:Air",
                             "/FLOW:F/DOMAIN:D/INITIALISATION/FLUID:Water", "/FLOW:F/DOMAIN:E/BOUNDARY:B",
                             "/FLOW:F/DOMAIN:D/FLUID PAIR:Air and Water", GetParam().at})
        EXPECT_EQ(checker.isPhysicallyAvailable(anyVariable, {GetParam().keyword}, path),
                  afresh.isPhysicallyAvailable(anyVariable, {GetParam().keyword}, path))
            << path;
}

TEST_P(AvailabilityKeyword, IsShownByACaseThatTheRulesKnow)
{
    const CaseReport report = checkCase(readQclText("case.qcl", GetParam().text), shippedDefinitions());

    for (const Finding& finding : report.findings)
        ADD_FAILURE() << finding.line << ": " << finding.message;
}

INSTANTIATE_TEST_SUITE_P(Physics, AvailabilityKeyword, testing::ValuesIn(allCases()),
                         [](const testing::TestParamInfo<KeywordCase>& p_info) {
                             return testName(p_info.param, p_info.index);
                         });

TEST(AvailabilityKeywords, AreEachShownOnOffAndElsewhere)
{
    const ModelTree model;
    const NoShortNames shortNames;
    const VarAvailabilityChecker checker(&model, &shortNames, &shippedPhysics());
    std::map<std::string, std::set<Setting>> shown;
    for (const KeywordCase& keywordCase : allCases())
        shown[keywordCase.keyword].insert(keywordCase.setting);

    EXPECT_EQ(checker.supportedPhysAvailChecks().size(), 47U);
    for (const std::string& keyword : checker.supportedPhysAvailChecks())
        EXPECT_THAT(shown[keyword], ElementsAre(Setting::On, Setting::Off, Setting::Elsewhere)) << keyword;
    EXPECT_EQ(shown.size(), 47U);
}

TEST(AvailabilityKeywords, AskOnlyWhatIsDefined)
{
    PhysicsBook physics;
    const QclDocument document = readQclFile(QEN_SOURCE_FOLDER "/definitions/PHYSICS.qcl");
    Diagnostics problems;
    physics.addDefinitions(document, problems);
    const ModelTree model;
    const NoShortNames shortNames;
    const VarAvailabilityChecker checker(&model, &shortNames, &physics);
    const SplitVariableName anyVariable("", nullptr);

    for (const std::string& keyword : checker.supportedPhysAvailChecks())
        for (const char* path : {"", "/FLOW:F", "/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:Water",
                                 "/FLOW:F/DOMAIN:D/FLUID PAIR:A and B"})
            EXPECT_FALSE(checker.isPhysicallyAvailable(anyVariable, {keyword}, path))
                << keyword << " " << path;

    EXPECT_THAT(physics.undefinedQueries(), testing::IsEmpty());
    EXPECT_THAT(physics.endlessQueries(), testing::IsEmpty());
}

}    // namespace
}    // namespace qen::standalone::test
