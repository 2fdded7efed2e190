#include "QCLPath.h"

#include <gtest/gtest.h>
#include <string>

using qen::QCLPath;

namespace {

TEST(QCLPath, IsEmptyWhenDefaultConstructed)
{
    const QCLPath path;
    EXPECT_TRUE(path.empty());
    EXPECT_EQ(path.size(), 0U);
    EXPECT_EQ(path.getFullPath(), "");
    EXPECT_EQ(path.getLastType(), "");
    EXPECT_EQ(path.getLastName(), "");
    EXPECT_EQ(path.getType(0), "");
    EXPECT_EQ(path.getName(0), "");
}

TEST(QCLPath, PartsLevelsIntoTypesAndNames)
{
    const QCLPath path("/FLOW:Pump/DOMAIN:Rotor 1/BOUNDARY CONDITIONS");

    ASSERT_EQ(path.size(), 3U);
    EXPECT_EQ(path.getType(0), "FLOW");
    EXPECT_EQ(path.getName(0), "Pump");
    EXPECT_EQ(path.getType(1), "DOMAIN");
    EXPECT_EQ(path.getName(1), "Rotor 1");
    EXPECT_EQ(path.getType(2), "BOUNDARY CONDITIONS");
    EXPECT_EQ(path.getName(2), "");
    EXPECT_EQ(path.getType(3), "");
    EXPECT_EQ(path.getName(3), "");
    EXPECT_EQ(path.getLastType(), "BOUNDARY CONDITIONS");
    EXPECT_EQ(path.getLastName(), "");
    EXPECT_EQ(path.getFullPath(), "/FLOW:Pump/DOMAIN:Rotor 1/BOUNDARY CONDITIONS");
}

TEST(QCLPath, TellsTypeAndNameOfTheLastLevel)
{
    const QCLPath path("/LIBRARY/ADDITIONAL VARIABLE:Dye");
    EXPECT_EQ(path.getLastType(), "ADDITIONAL VARIABLE");
    EXPECT_EQ(path.getLastName(), "Dye");
}

TEST(QCLPath, KeepsBlanksAndCaseAsWritten)
{
    const QCLPath path("/Flow : a /b");
    EXPECT_EQ(path.getType(0), "Flow ");
    EXPECT_EQ(path.getName(0), " a ");
}

TEST(QCLPath, IsEmptyForMalformedText)
{
    for (const char* text :
         {"", "FLOW", "FLOW:F", "/", "//", "/FLOW:F/", "/FLOW:F//DOMAIN:D", "//FLOW:F", "/:F",
          "/FLOW:", "/FLOW:/DOMAIN:D", "/FLOW:F:G", "/FLOW:F/:D", "/:", " /FLOW:F", "/FLOW::F"})
    {
        const QCLPath path {std::string(text)};
        EXPECT_TRUE(path.empty()) << "for '" << text << "'";
        EXPECT_EQ(path.size(), 0U) << "for '" << text << "'";
        EXPECT_EQ(path.getFullPath(), "") << "for '" << text << "'";
    }
}

TEST(QCLPath, GivesTheLeadingPartUpToTheFirstLevelOfAType)
{
    const QCLPath path("/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:W/DOMAIN:E");

    EXPECT_EQ(path.getSubPathByType("DOMAIN").getFullPath(), "/FLOW:F/DOMAIN:D");
    EXPECT_EQ(path.getSubPathByType("DOMAIN").size(), 2U);
    EXPECT_EQ(path.getSubPathByType("FLOW").getFullPath(), "/FLOW:F");
    EXPECT_EQ(path.getSubPathByType("FLUID").getLastName(), "W");
}

TEST(QCLPath, GivesNoLeadingPartForATypeThatItHasNot)
{
    const QCLPath path("/FLOW:F/DOMAIN:D");
    EXPECT_TRUE(path.getSubPathByType("BOUNDARY").empty());
    EXPECT_TRUE(path.getSubPathByType("D").empty());
    EXPECT_TRUE(path.getSubPathByType("").empty());
    EXPECT_TRUE(QCLPath().getSubPathByType("FLOW").empty());
}

TEST(QCLPath, AppendsLevels)
{
    QCLPath path;
    path.push_back("FLOW", "F");
    path.push_back("SIMULATION", "");
    EXPECT_EQ(path.getFullPath(), "/FLOW:F/SIMULATION");
    EXPECT_EQ(path.size(), 2U);
    EXPECT_EQ(path.getLastType(), "SIMULATION");
}

TEST(QCLPath, BecomesEmptyWhenALevelIsAppendedThatNoTextCouldHold)
{
    struct Level {
        const char* type;
        const char* name;
    };
    for (const Level& level : {Level {"", "x"}, Level {"", ""}, Level {"A/B", "x"}, Level {"A:B", ""},
                               Level {"A:B", "x"}, Level {"A", "x/y"}, Level {"A", "x:y"}, Level {"A", "/B"}})
    {
        QCLPath path("/FLOW:F");
        path.push_back(level.type, level.name);
        EXPECT_TRUE(path.empty()) << "for '" << level.type << "', '" << level.name << "'";
        EXPECT_EQ(path.getFullPath(), "");
    }
}

TEST(QCLPath, IsParentOfWhatLiesBelowItAtAnyDepth)
{
    const QCLPath domain("/FLOW:F/DOMAIN:D");
    EXPECT_TRUE(domain.isParent(QCLPath("/FLOW:F/DOMAIN:D/BOUNDARY:B")));
    EXPECT_TRUE(domain.isParent(QCLPath("/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:W")));
}

TEST(QCLPath, IsNoParentOfItselfItsAncestorsOrItsNeighbours)
{
    const QCLPath domain("/FLOW:F/DOMAIN:D");
    EXPECT_FALSE(domain.isParent(domain));
    EXPECT_FALSE(domain.isParent(QCLPath("/FLOW:F")));
    EXPECT_FALSE(domain.isParent(QCLPath("/FLOW:F/DOMAIN:Duct/BOUNDARY:B")));
    EXPECT_FALSE(domain.isParent(QCLPath("/FLOW:G/DOMAIN:D/BOUNDARY:B")));
    EXPECT_FALSE(domain.isParent(QCLPath()));
    EXPECT_FALSE(QCLPath("/FLOW").isParent(QCLPath("/FLOW:F/DOMAIN:D")));
}

TEST(QCLPath, IsParentOfEverythingThatHasLevelsWhenItIsEmpty)
{
    EXPECT_TRUE(QCLPath().isParent(QCLPath("/FLOW:F")));
    EXPECT_FALSE(QCLPath().isParent(QCLPath()));
}

}    // namespace
