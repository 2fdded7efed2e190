#include "checking/CaseFollower.h"

#include "checking/CheckedCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace qen::standalone {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Definitions& shipped()
{
    static const Definitions definitions({QENCHECK_PROJECT "/definitions"});
    return definitions;
}

/// A case that is changed by replacing texts in it.
class CaseFollowerTest : public testing::Test {
protected:
    CaseReport follow(std::string p_text)
    {
        m_text = std::move(p_text);
        return m_follower.update(read());
    }

    CaseReport replace(const std::string& p_old, const std::string& p_new)
    {
        const std::size_t at = m_text.find(p_old);
        EXPECT_NE(at, std::string::npos) << p_old;
        EXPECT_EQ(m_text.find(p_old, at + 1), std::string::npos) << p_old << " stands there twice";
        m_text.replace(at, p_old.size(), p_new);
        return m_follower.update(read());
    }

    QclDocument read() const { return readQclText("case.qcl", m_text); }

    std::vector<std::string> checked() const
    {
        std::vector<std::string> names;
        for (const CheckedParameter& parameter : m_follower.checked())
            names.push_back(parameter.objectPath + " | " + parameter.paramName);
        return names;
    }

    std::string m_text;
    CaseFollower m_follower {shipped()};
};

constexpr const char* k_case = R"(
[/FLOW:Tank/SIMULATION]
Type = Transient
Duration = 4 * Fill Time

[/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Salt total]
Option = Expression
Expression Value = Salt Mass / 1 [kg]

[/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Twice]
Option = Expression
Expression Value = 2 * probe@Salt total(Expression Value)

[/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Depth]
Option = Expression
Expression Value = Level / 1 [m]

[/FLOW:Tank/DOMAIN:Basin]
Location = Basin

[/FLOW:Tank/DOMAIN:Basin/FLUID DEFINITION:Brine]
Material = Water
Morphology = Continuous Fluid

[/FLOW:Tank/DOMAIN:Basin/FLUID MODELS/ADDITIONAL VARIABLE:Salt]
Option = Transport Equation
Kinematic Diffusivity = 1e-9 [m^2 s^-1]

[/FLOW:Tank/DOMAIN:Basin/INITIALISATION/ADDITIONAL VARIABLE:Salt]
Additional Variable Value = 3 [kg m^-3]

[/LIBRARY/ADDITIONAL VARIABLE:Salt]
Units = kg m^-3
Tensor Type = SCALAR

[/LIBRARY/MATERIAL:Water]
Option = Pure Substance

[/LIBRARY/QEL/EXPRESSIONS]
Fill Time = 3 [s]
Level = 2 [m]
Salt Mass = volumeIntegral@Basin(Salt)
)";

constexpr const char* k_salt = "Units = kg m^-3\nTensor Type";

TEST_F(CaseFollowerTest, ChecksEveryParameterOfTheTextTheFirstTime)
{
    const CaseReport report = follow(k_case);

    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_EQ(report.parameters, 20U);
    EXPECT_THAT(checked(), SizeIs(20));
}

TEST_F(CaseFollowerTest, ChecksNothingWhenTheTextIsTheSame)
{
    follow(k_case);

    const CaseReport report = follow(k_case);

    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_EQ(report.parameters, 20U);
    EXPECT_THAT(checked(), IsEmpty());
}

TEST_F(CaseFollowerTest, ChecksOnlyTheUsersOfAnAdditionalVariableWhenItsUnitsChange)
{
    follow(k_case);

    const CaseReport report = replace(k_salt, "Units = mol m^-3\nTensor Type");

    // The named expression, the monitor point that uses it, the one that uses that, and what is given in these units
    EXPECT_THAT(
        checked(),
        ElementsAre("/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Salt total | Expression Value",
                    "/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Twice | Expression Value",
                    "/FLOW:Tank/DOMAIN:Basin/INITIALISATION/ADDITIONAL VARIABLE:Salt | "
                    "Additional Variable Value",
                    "/LIBRARY/ADDITIONAL VARIABLE:Salt | Units", "/LIBRARY/QEL/EXPRESSIONS | Salt Mass"));
    EXPECT_THAT(report.findings, SizeIs(1));
}

TEST_F(CaseFollowerTest, ChecksOnlyTheUsersOfANamedExpressionWhenItChanges)
{
    follow(k_case);

    const CaseReport report = replace("Level = 2 [m]", "Level = 2 [K]");

    EXPECT_THAT(
        checked(),
        ElementsAre("/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Depth | Expression Value",
                    "/LIBRARY/QEL/EXPRESSIONS | Level"));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(CaseFollowerTest, ChecksTheUsersOfANameThatIsGivenOnlyNow)
{
    follow(k_case);
    EXPECT_THAT(replace("Duration = 4 * Fill Time", "Duration = 4 * Empty Time").findings, SizeIs(1));

    const CaseReport report = replace("Fill Time = 3 [s]", "Fill Time = 3 [s]\nEmpty Time = 2 [s]");

    EXPECT_THAT(checked(),
                ElementsAre("/FLOW:Tank/SIMULATION | Duration", "/LIBRARY/QEL/EXPRESSIONS | Empty Time"));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(CaseFollowerTest, ChecksTheUsersOfANameThatGoesAway)
{
    follow(k_case);

    const CaseReport report = replace("Fill Time = 3 [s]\n", "");

    EXPECT_THAT(checked(), ElementsAre("/FLOW:Tank/SIMULATION | Duration"));
    EXPECT_THAT(report.findings, SizeIs(1));
    EXPECT_EQ(report.parameters, 19U);
}

TEST_F(CaseFollowerTest, ChecksWhatAsksForALocatorWhenThatIsRenamed)
{
    follow(k_case);

    const CaseReport report = replace("MONITOR POINT:Salt total]", "MONITOR POINT:Salt in all]");

    EXPECT_THAT(
        checked(),
        ElementsAre("/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Salt in all | Option",
                    "/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Salt in all | Expression Value",
                    "/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Twice | Expression Value"));
    EXPECT_THAT(report.findings, SizeIs(1));
}

TEST_F(CaseFollowerTest, ChecksWhatThePhysicsDecidesWhenASettingChanges)
{
    follow(k_case);
    EXPECT_THAT(replace("1e-9 [m^2 s^-1]", "1e-9 [s] * Turbulence Kinetic Energy").findings, SizeIs(1));

    const CaseReport report =
        replace("[/FLOW:Tank/DOMAIN:Basin/INITIALISATION",
                "[/FLOW:Tank/DOMAIN:Basin/FLUID MODELS/TURBULENCE MODEL]\nOption = k epsilon\n"
                "[/FLOW:Tank/DOMAIN:Basin/INITIALISATION");

    EXPECT_THAT(
        checked(),
        ElementsAre("/FLOW:Tank/DOMAIN:Basin/FLUID MODELS/ADDITIONAL VARIABLE:Salt | Kinematic Diffusivity",
                    "/FLOW:Tank/DOMAIN:Basin/FLUID MODELS/TURBULENCE MODEL | Option"));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(CaseFollowerTest, ChecksWhatAsksForALocatorWhenThatComes)
{
    follow(k_case);
    EXPECT_THAT(replace("Level / 1 [m]", "volume@Pool() / 1 [m^3]").findings, SizeIs(1));

    const CaseReport report = replace("[/FLOW:Tank/DOMAIN:Basin/INITIALISATION",
                                      "[/FLOW:Tank/DOMAIN:Basin/SUBDOMAIN:Pool]\nLocation = Pool\n"
                                      "[/FLOW:Tank/DOMAIN:Basin/INITIALISATION");

    EXPECT_THAT(
        checked(),
        ElementsAre("/FLOW:Tank/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Depth | Expression Value",
                    "/FLOW:Tank/DOMAIN:Basin/SUBDOMAIN:Pool | Location"));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(CaseFollowerTest, KnowsTheOrderOfObjectsInTheText)
{
    const std::string subdomain = "[/FLOW:Tank/DOMAIN:Basin/SUBDOMAIN:Pool]\nLocation = A\n";
    const std::string boundary = "[/FLOW:Tank/DOMAIN:Basin/BOUNDARY:Pool]\nLocation = B\n";
    const std::string before = k_case;
    const auto repeated = [](const CaseReport& p_report) {
        return p_report.findings.size() == 1 ? p_report.findings.front().lineText : "";
    };

    // The second of the two has the name of the first.
    EXPECT_EQ(repeated(follow(before + subdomain + boundary)), "[/FLOW:Tank/DOMAIN:Basin/BOUNDARY:Pool]");
    EXPECT_EQ(repeated(follow(before + boundary + subdomain)), "[/FLOW:Tank/DOMAIN:Basin/SUBDOMAIN:Pool]");
}

TEST_F(CaseFollowerTest, ChecksNothingWhenLinesMoveButShowsFindingsWhereTheyStandNow)
{
    follow(k_case);
    const CaseReport before = replace("Fill Time = 3 [s]\n", "Fill Time = 3 [m]\n");
    ASSERT_THAT(before.findings, SizeIs(1));
    EXPECT_EQ(before.findings.front().line, 4U);

    const CaseReport report = replace("[/FLOW:Tank/SIMULATION]", "# two\n# lines\n[/FLOW:Tank/SIMULATION]");

    EXPECT_THAT(checked(), IsEmpty());
    ASSERT_THAT(report.findings, SizeIs(1));
    EXPECT_EQ(report.findings.front().line, 6U);
}

TEST_F(CaseFollowerTest, ForgetsWhatWasFoundInWhatIsDeleted)
{
    follow(k_case);
    EXPECT_THAT(replace("Duration = 4 * Fill Time", "Duration = 4 [K]").findings, SizeIs(1));

    EXPECT_THAT(replace("Duration = 4 [K]\n", "").findings, IsEmpty());
    EXPECT_THAT(replace("Type = Transient\n", "Type = Transient\nDuration = 4 [s]\n").findings, IsEmpty());
}

TEST_F(CaseFollowerTest, ForgetsTheParametersOfASectionThatGoesWhileObjectsBelowItStay)
{
    follow(k_case);
    EXPECT_THAT(replace("Location = Basin", "Location = Basin\nReference Pressure = 1 [K]").findings,
                SizeIs(1));

    const CaseReport report =
        replace("[/FLOW:Tank/DOMAIN:Basin]\nLocation = Basin\nReference Pressure = 1 [K]\n", "");

    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_EQ(report.parameters, 19U);
}

}    // namespace
}    // namespace qen::standalone
