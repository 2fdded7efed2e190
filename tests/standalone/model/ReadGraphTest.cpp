#include "model/ReadGraph.h"

#include "model/ModelTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Kind = ReadGraph::Kind;

class ReadGraphTest : public testing::Test {
protected:
    ReadGraphTest()
    {
        m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Fluid");
        m_tree.setParameter("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "Speed", "1");
        m_tree.attach(m_reads);
        m_tree.tellReads(&m_reads);
    }

    ~ReadGraphTest() override { m_tree.detach(m_reads); }

    /// Works out a check of that name by reading.
    template <typename Read>
    void check(const std::string& p_name, const Read& p_read)
    {
        const ReadGraph::Scope scope(&m_reads, m_reads.node(Kind::Check, p_name));
        p_read();
    }

    /// The names of the checks that are affected by what changed.
    std::vector<std::string> affected()
    {
        std::vector<std::string> names;
        for (const ReadGraph::Node node : m_reads.takeAffected(Kind::Check))
            names.emplace_back(m_reads.firstName(node));
        return names;
    }

    ModelTree m_tree;
    ReadGraph m_reads;
};

TEST_F(ReadGraphTest, TellsWhoReadAParameterThatChanges)
{
    check("speed", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "Speed"); });
    check("option", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option"); });

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "Speed", "2");

    EXPECT_THAT(affected(), ElementsAre("speed"));
    EXPECT_THAT(affected(), IsEmpty());
}

TEST_F(ReadGraphTest, TellsWhoLookedForAParameterInVain)
{
    check("height", [&] { m_tree.find("/FLOW:F/DOMAIN:Duct")->find("Height"); });

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Width", "1");
    EXPECT_THAT(affected(), IsEmpty());
    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Height", "1");
    EXPECT_THAT(affected(), ElementsAre("height"));
}

TEST_F(ReadGraphTest, TellsWhoReadAParameterThatIsDeleted)
{
    check("speed", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "Speed"); });

    m_tree.deleteParameter("/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "Speed");

    EXPECT_THAT(affected(), ElementsAre("speed"));
}

TEST_F(ReadGraphTest, TellsWhoLookedForAnObjectThatComesOrGoes)
{
    check("out", [&] { m_tree.objectExists("/FLOW:F/DOMAIN:Duct/BOUNDARY:Out"); });
    check("in", [&] { m_tree.objectExists("/FLOW:F/DOMAIN:Duct/BOUNDARY:In"); });

    m_tree.addObject("/FLOW:F/DOMAIN:Duct/BOUNDARY:Out");
    EXPECT_THAT(affected(), ElementsAre("out"));
    m_tree.deleteObject("/FLOW:F/DOMAIN:Duct");
    EXPECT_THAT(affected(), UnorderedElementsAre("in", "out"));
}

TEST_F(ReadGraphTest, TellsWhoLookedAtChildrenOfTheTypeThatComes)
{
    check("boundaries", [&] { m_tree.childNames("/FLOW:F/DOMAIN:Duct", "BOUNDARY"); });
    check("subdomains", [&] { m_tree.childPaths("/FLOW:F/DOMAIN:Duct", "SUBDOMAIN"); });
    check("flows", [&] { m_tree.rootsOf("FLOW"); });

    m_tree.addObject("/FLOW:F/DOMAIN:Duct/SUBDOMAIN:Bed");
    EXPECT_THAT(affected(), ElementsAre("subdomains"));
    m_tree.addObject("/FLOW:G");
    EXPECT_THAT(affected(), ElementsAre("flows"));
}

TEST_F(ReadGraphTest, TellsWhoLookedAtChildrenWhoseOrderChanges)
{
    m_tree.addObject("/FLOW:F/DOMAIN:Duct/BOUNDARY:Out");
    m_tree.addObject("/FLOW:F/DOMAIN:Tank");
    m_tree.arrange(
        {"/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "/FLOW:F/DOMAIN:Duct/BOUNDARY:Out", "/FLOW:F/DOMAIN:Tank"});
    affected();
    check("boundaries", [&] { m_tree.childNames("/FLOW:F/DOMAIN:Duct", "BOUNDARY"); });
    check("domains", [&] { m_tree.find("/FLOW:F")->childrenOf({"DOMAIN"}); });

    m_tree.arrange(
        {"/FLOW:F/DOMAIN:Duct/BOUNDARY:Out", "/FLOW:F/DOMAIN:Duct/BOUNDARY:In", "/FLOW:F/DOMAIN:Tank"});

    EXPECT_THAT(affected(), ElementsAre("boundaries"));
}

TEST_F(ReadGraphTest, TellsWhoAskedForALocatorWhenAnObjectOfThatNameComesToTheFlow)
{
    check("out", [&] { m_reads.use(m_reads.node(Kind::Locator, "F", "Out")); });

    m_tree.addObject("/FLOW:G/DOMAIN:Out");
    EXPECT_THAT(affected(), IsEmpty());
    m_tree.addObject("/FLOW:F/DOMAIN:Duct/BOUNDARY:Out");
    EXPECT_THAT(affected(), ElementsAre("out"));
}

TEST_F(ReadGraphTest, ReachesThoseWhoUseAnAnswerThatIsKept)
{
    const ReadGraph::Node answer = m_reads.node(Kind::Physics, "isSteady", "/FLOW:F");
    check("first", [&] {
        const ReadGraph::Scope scope(&m_reads, answer);
        m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option");
    });
    check("second", [&] { m_reads.use(answer); });

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Solid");

    EXPECT_THAT(affected(), UnorderedElementsAre("first", "second"));
}

TEST_F(ReadGraphTest, CountsOnlyWhatWasReadTheLastTime)
{
    check("check", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option"); });
    check("check", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Width"); });

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Solid");
    EXPECT_THAT(affected(), IsEmpty());
    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Width", "1");
    EXPECT_THAT(affected(), ElementsAre("check"));
}

TEST_F(ReadGraphTest, KnowsNothingOfWhatIsForgotten)
{
    check("check", [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option"); });

    m_reads.forget(m_reads.node(Kind::Check, "check"));
    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Solid");

    EXPECT_THAT(affected(), IsEmpty());
}

TEST_F(ReadGraphTest, RecordsNothingDuringAPauseButWhatIsWorkedOutThen)
{
    const ReadGraph::Node answer = m_reads.node(Kind::Physics, "isSteady", "/FLOW:F");
    check("check", [&] {
        const ReadGraph::Pause pause(&m_reads);
        m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Width");
        const ReadGraph::Scope scope(&m_reads, answer);
        m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option");
    });
    check("user", [&] { m_reads.use(answer); });

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Width", "1");
    EXPECT_THAT(affected(), IsEmpty());
    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Solid");
    EXPECT_THAT(affected(), ElementsAre("user"));
}

TEST_F(ReadGraphTest, StaysRightWhenOneParameterIsReadByChecksThatAreRepeatedOften)
{
    for (int i = 0; i < 1000; ++i)
        for (const char* name : {"a", "b", "c"})
            check(name, [&] { m_tree.paramValue("/FLOW:F/DOMAIN:Duct", "Option"); });
    check("b", [] {});

    m_tree.setParameter("/FLOW:F/DOMAIN:Duct", "Option", "Solid");

    EXPECT_THAT(affected(), UnorderedElementsAre("a", "c"));
}

}    // namespace
}    // namespace qen::standalone
