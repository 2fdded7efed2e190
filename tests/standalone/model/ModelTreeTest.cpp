#include "model/ModelTree.h"

#include "DataError.h"
#include "qcl/QclReader.h"
#include "support/AllocationCount.h"

#include <gmock/gmock.h>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

ModelTree treeOf(const std::string& p_text) { return ModelTree(readQclText("case.qcl", p_text)); }

TEST(ModelTree, IsEmptyAtFirst)
{
    const ModelTree tree;
    EXPECT_THAT(tree.roots(), IsEmpty());
    EXPECT_EQ(tree.find("/FLOW:F"), nullptr);
    EXPECT_FALSE(tree.objectExists("/FLOW:F"));
    EXPECT_EQ(tree.paramValue("/FLOW:F", "p"), "");
    EXPECT_THAT(tree.childNames("/FLOW:F", "DOMAIN"), IsEmpty());
}

TEST(ModelTree, HoldsTheObjectsOfACaseAndAllTheirAncestors)
{
    const ModelTree tree = treeOf("[/FLOW:F/DOMAIN:D/BOUNDARY:B]\nSpeed = 2 [m s^-1]\n");

    EXPECT_TRUE(tree.objectExists("/FLOW:F"));
    EXPECT_TRUE(tree.objectExists("/FLOW:F/DOMAIN:D"));
    EXPECT_TRUE(tree.objectExists("/FLOW:F/DOMAIN:D/BOUNDARY:B"));
    EXPECT_FALSE(tree.objectExists("/FLOW:F/DOMAIN"));
    EXPECT_FALSE(tree.objectExists("/FLOW:F/DOMAIN:d"));
    EXPECT_FALSE(tree.objectExists(""));

    const ModelTree::Object* boundary = tree.find("/FLOW:F/DOMAIN:D/BOUNDARY:B");
    ASSERT_NE(boundary, nullptr);
    EXPECT_EQ(boundary->type, "BOUNDARY");
    EXPECT_EQ(boundary->name, "B");
    EXPECT_EQ(boundary->parent, tree.find("/FLOW:F/DOMAIN:D"));
    EXPECT_EQ(boundary->parent->parent, tree.roots().at(0));
    EXPECT_EQ(tree.roots().at(0)->parent, nullptr);
}

TEST(ModelTree, GivesValuesAsStoredAndNothingForWhatIsNotSet)
{
    const ModelTree tree = treeOf("[/A:x]\np = 1, 2\nempty =\n");
    EXPECT_EQ(tree.paramValue("/A:x", "p"), "1, 2");
    EXPECT_EQ(tree.paramValue("/A:x", "empty"), "");
    EXPECT_EQ(tree.paramValue("/A:x", "q"), "");
    EXPECT_EQ(tree.paramValue("/A:y", "p"), "");
}

TEST(ModelTree, ListsChildrenOfATypeInTheModelsOrder)
{
    const ModelTree tree = treeOf("[/FLOW:F/DOMAIN:b]\n[/FLOW:F/SIMULATION]\n[/FLOW:F/DOMAIN:a/BOUNDARY:x]\n"
                                  "[/FLOW:F/DOMAIN:b/BOUNDARY:y]\n[/FLOW:G]\n");

    EXPECT_THAT(tree.childNames("/FLOW:F", "DOMAIN"), ElementsAre("b", "a"));
    EXPECT_THAT(tree.childPaths("/FLOW:F", "DOMAIN"), ElementsAre("/FLOW:F/DOMAIN:b", "/FLOW:F/DOMAIN:a"));
    EXPECT_THAT(tree.childNames("/FLOW:F", "SIMULATION"), ElementsAre(""));
    EXPECT_THAT(tree.childPaths("/FLOW:F", "SIMULATION"), ElementsAre("/FLOW:F/SIMULATION"));
    EXPECT_THAT(tree.childNames("/FLOW:F", "BOUNDARY"), IsEmpty());
    EXPECT_THAT(tree.childPaths("/FLOW:H", "DOMAIN"), IsEmpty());
    EXPECT_THAT(tree.childNames("", "FLOW"), ElementsAre("F", "G"));
}

TEST(ModelTree, SetsParametersInPlaceOrBehindTheOthers)
{
    ModelTree tree;
    tree.setParameter("/A:x/B", "p", "1");
    tree.setParameter("/A:x/B", "q", "2");
    tree.setParameter("/A:x/B", "p", "3");

    const ModelTree::Object* object = tree.find("/A:x/B");
    ASSERT_NE(object, nullptr);
    ASSERT_EQ(object->parameters.size(), 2U);
    EXPECT_EQ(object->parameters[0].name, "p");
    EXPECT_EQ(object->parameters[0].value, "3");
    EXPECT_EQ(object->find("q")->value, "2");
    EXPECT_TRUE(tree.objectExists("/A:x"));
}

TEST(ModelTree, RefusesAMalformedPathAndMakesNothing)
{
    ModelTree tree;
    for (const char* path : {"", "A", "/", "/A//B", "/A:", "/A:x/"})
        EXPECT_THROW(tree.setParameter(path, "p", "1"), data::error) << path;
    EXPECT_THAT(tree.roots(), IsEmpty());
    EXPECT_EQ(tree.version(), 0U);
}

TEST(ModelTree, DeletesParameters)
{
    ModelTree tree;
    for (int number = 0; number < 20; ++number)
        tree.setParameter("/A", std::to_string(number), "v" + std::to_string(number));

    tree.deleteParameter("/A", "3");
    tree.deleteParameter("/A", "none");
    tree.deleteParameter("/none", "4");

    EXPECT_EQ(tree.paramValue("/A", "3"), "");
    for (int number = 4; number < 20; ++number)
        EXPECT_EQ(tree.paramValue("/A", std::to_string(number)), "v" + std::to_string(number));
    EXPECT_EQ(tree.find("/A")->parameters.size(), 19U);

    tree.setParameter("/A", "3", "again");
    EXPECT_EQ(tree.paramValue("/A", "3"), "again");
}

TEST(ModelTree, DeletesAnObjectWithAllBelowItAndNothingElse)
{
    ModelTree tree = treeOf("[/A:x/B:1/C:deep]\np = 1\n[/A:x/B:2]\n[/A:y/B:1]\n");

    tree.deleteObject("/A:x/B:1");
    EXPECT_FALSE(tree.objectExists("/A:x/B:1"));
    EXPECT_FALSE(tree.objectExists("/A:x/B:1/C:deep"));
    EXPECT_THAT(tree.childNames("/A:x", "B"), ElementsAre("2"));
    EXPECT_TRUE(tree.objectExists("/A:y/B:1"));

    tree.deleteObject("/A:x");
    EXPECT_THAT(tree.childNames("", "A"), ElementsAre("y"));
    tree.deleteObject("/no/such");

    tree.setParameter("/A:x/B:1", "p", "2");
    EXPECT_EQ(tree.paramValue("/A:x/B:1", "p"), "2");
    EXPECT_THAT(tree.childNames("", "A"), ElementsAre("y", "x"));
}

TEST(ModelTree, GrowsItsVersionWithEachChangeAndOnlyThen)
{
    ModelTree tree;
    std::size_t before = tree.version();
    const auto changed = [&] { return tree.version() != std::exchange(before, tree.version()); };

    tree.setParameter("/A/B", "p", "1");
    EXPECT_TRUE(changed());
    tree.setParameter("/A/B", "p", "2");
    EXPECT_TRUE(changed());
    tree.deleteParameter("/A/B", "q");
    tree.deleteObject("/C");
    tree.addObject("/A");
    EXPECT_FALSE(changed());
    tree.deleteParameter("/A/B", "p");
    EXPECT_TRUE(changed());
    tree.addObject("/C");
    EXPECT_TRUE(changed());
    tree.deleteObject("/A");
    EXPECT_TRUE(changed());
}

TEST(ModelTree, LeavesObjectsWhereTheyAreWhileOthersComeAndGo)
{
    ModelTree tree;
    const ModelTree::Object* object = &tree.addObject("/A:first");
    for (int number = 0; number < 10'000; ++number)
        tree.addObject("/A:" + std::to_string(number));
    tree.deleteObject("/A:5");
    EXPECT_EQ(tree.find("/A:first"), object);

    const ModelTree moved = std::move(tree);
    EXPECT_EQ(moved.find("/A:first"), object);
    EXPECT_EQ(object->path, "/A:first");
}

TEST(ModelTree, FindsObjectsAndParametersWithoutAllocating)
{
    ModelTree tree;
    for (int number = 0; number < 1000; ++number)
        tree.setParameter("/A:a name that is too long for a short string " + std::to_string(number % 30),
                          "a parameter with a name that is too long as well " + std::to_string(number), "1");

    const std::size_t before = support::allocationCount();
    const ModelTree::Object* object = tree.find("/A:a name that is too long for a short string 7");
    const ModelTree::Parameter* parameter =
        object->find("a parameter with a name that is too long as well 37");
    const ModelTree::Object* missing = tree.find("/A:a name that is too long for a short string 77");
    const std::size_t after = support::allocationCount();

    EXPECT_EQ(after, before);
    ASSERT_NE(parameter, nullptr);
    EXPECT_EQ(parameter->value, "1");
    EXPECT_EQ(missing, nullptr);
}

TEST(ModelTree, HoldsAHundredThousandObjectsAndParameters)
{
    ModelTree tree;
    for (int number = 0; number < 100'000; ++number)
    {
        tree.setParameter("/FLOW:F/DOMAIN:" + std::to_string(number), "p", "1");
        tree.setParameter("/LIBRARY/EXPRESSIONS", "e" + std::to_string(number), "2");
    }
    EXPECT_EQ(tree.childNames("/FLOW:F", "DOMAIN").size(), 100'000U);
    EXPECT_EQ(tree.paramValue("/LIBRARY/EXPRESSIONS", "e99999"), "2");
}

TEST(ModelTree, DeletesAPathOfAnyDepth)
{
    ModelTree tree;
    std::string path;
    for (int level = 0; level < 3000; ++level)
        path += "/A";
    tree.setParameter(path, "p", "1");
    tree.deleteObject("/A");
    EXPECT_THAT(tree.roots(), IsEmpty());
    EXPECT_FALSE(tree.objectExists(path));
}

class Changes final : public ModelObserver {
public:
    void onModelChange(const ModelChange& p_change) override
    {
        constexpr const char* k_kinds[] {"added", "deleted", "reordered", "set", "unset"};
        std::string text = k_kinds[static_cast<std::size_t>(p_change.kind)];
        text.append(" ").append(p_change.objectPath);
        if (!p_change.paramName.empty())
            text.append(" ").append(p_change.paramName);
        told.push_back(text);
    }

    std::vector<std::string> told;
};

TEST(ModelTree, TellsObserversOfEachChangeUntilTheyAreDetached)
{
    ModelTree tree;
    Changes changes;
    tree.attach(changes);

    tree.setParameter("/A:a/B:b", "p", "1");
    tree.setParameter("/A:a/B:b", "p", "1");
    tree.deleteParameter("/A:a/B:b", "p");
    tree.deleteObject("/A:a");
    tree.detach(changes);
    tree.addObject("/A:c");

    EXPECT_THAT(changes.told, ElementsAre("added /A:a", "added /A:a/B:b", "set /A:a/B:b p",
                                          "unset /A:a/B:b p", "deleted /A:a", "deleted /A:a/B:b"));
}

TEST(ModelTree, PutsObjectsIntoTheOrderInWhichTheyAreNamed)
{
    ModelTree tree;
    for (const char* path : {"/A:a/B:1", "/A:a/B:2", "/A:a/B:3", "/A:b", "/A:c"})
        tree.addObject(path);

    tree.arrange({"/A:c", "/A:a/B:3", "/A:a/B:1"});

    EXPECT_THAT(tree.childNames("", "A"), ElementsAre("c", "a", "b"));
    EXPECT_THAT(tree.childNames("/A:a", "B"), ElementsAre("3", "1", "2"));
}

TEST(ModelTree, TellsOfANewOrderOnlyWhereObjectsThatHadOneChangeIt)
{
    ModelTree tree;
    for (const char* path : {"/A:a/B:1", "/A:a/B:3"})
        tree.addObject(path);
    tree.arrange({"/A:a/B:1", "/A:a/B:3"});
    tree.addObject("/A:a/B:2");
    Changes changes;
    tree.attach(changes);

    tree.arrange({"/A:a/B:1", "/A:a/B:2", "/A:a/B:3"});
    EXPECT_THAT(changes.told, IsEmpty());
    tree.arrange({"/A:a/B:1", "/A:a/B:3", "/A:a/B:2"});
    EXPECT_THAT(changes.told, ElementsAre("reordered /A:a"));
    EXPECT_THAT(tree.childNames("/A:a", "B"), ElementsAre("1", "3", "2"));
}

}    // namespace
}    // namespace qen::standalone
