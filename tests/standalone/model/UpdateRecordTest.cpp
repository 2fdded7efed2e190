#include "model/UpdateRecord.h"

#include "model/ModelTree.h"
#include "qcl/QclReader.h"
#include "QCLUpdateHandler.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace qen::standalone {
namespace {

/// Writes down what it is told.
class Listener final : public QCLUpdateHandler {
public:
    std::vector<std::string> told;

    void onBeginObjectParamChanges(const std::string& p_objectPath) override
    {
        told.push_back("begin " + p_objectPath);
    }

    void onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                       const std::string& p_value, bool p_flag) override
    {
        told.push_back("set " + p_objectPath + "|" + p_paramName + "=" + p_value +
                       (p_flag ? " true" : " false"));
    }

    void onEndObjectParamChanges(const std::string& p_objectPath) override
    {
        told.push_back("end " + p_objectPath);
    }

    void onParamDeletion(const std::string& p_objectPath, const std::string& p_paramName) override
    {
        told.push_back("unset " + p_objectPath + "|" + p_paramName);
    }

    void onObjectDeletion(const std::string& p_objectPath) override
    {
        told.push_back("delete " + p_objectPath);
    }
};

std::vector<std::string> replayed(const UpdateRecord& p_record)
{
    Listener listener;
    p_record.replay(listener);
    return listener.told;
}

TEST(UpdateRecord, TellsNothingWhenNothingWasRecorded)
{
    EXPECT_TRUE(UpdateRecord().empty());
    EXPECT_THAT(replayed(UpdateRecord()), IsEmpty());
}

TEST(UpdateRecord, ReplaysEachChangeInOrder)
{
    UpdateRecord record;
    record.beginObject("/A");
    record.changeParameter("/A", "p", "1");
    record.changeParameter("/A", "q", "2", false);
    record.deleteParameter("/A", "r");
    record.endObject("/A");
    record.deleteObject("/B");

    EXPECT_EQ(record.size(), 6U);
    EXPECT_THAT(replayed(record), ElementsAre("begin /A", "set /A|p=1 true", "set /A|q=2 false", "unset /A|r",
                                              "end /A", "delete /B"));
}

TEST(UpdateRecord, ReplaysTheSameAgainUntilItIsCleared)
{
    UpdateRecord record;
    record.deleteObject("/B");
    EXPECT_THAT(replayed(record), ElementsAre("delete /B"));
    EXPECT_THAT(replayed(record), ElementsAre("delete /B"));
    record.clear();
    EXPECT_THAT(replayed(record), IsEmpty());
}

TEST(UpdateRecord, OfEverythingInAModelTellsEachParameterOnceFromTheTop)
{
    // Given a child that is named before its parent, and objects without parameters
    const ModelTree model(
        readQclText("case.qcl", "[/A:x/B:1]\np = 1\nq = 2\n[/C]\n[/A:x]\nr =\n[/A:x/B:0]\np = 3\n"));

    EXPECT_THAT(replayed(UpdateRecord::everythingIn(model)),
                ElementsAre("begin /A:x", "set /A:x|r= true", "end /A:x", "begin /A:x/B:1",
                            "set /A:x/B:1|p=1 true", "set /A:x/B:1|q=2 true", "end /A:x/B:1",
                            "begin /A:x/B:0", "set /A:x/B:0|p=3 true", "end /A:x/B:0"));
}

TEST(UpdateRecord, OfEverythingInAnEmptyModelIsEmpty)
{
    EXPECT_TRUE(UpdateRecord::everythingIn(ModelTree()).empty());
}

TEST(UpdateRecord, PassesOnWhatTheHandlerThrows)
{
    class Thrower final : public QCLUpdateHandler {
    public:
        void onObjectDeletion(const std::string& p_objectPath) override { throw std::string(p_objectPath); }
    };

    UpdateRecord record;
    record.deleteObject("/B");
    Thrower thrower;
    EXPECT_THROW(record.replay(thrower), std::string);
}

}    // namespace
}    // namespace qen::standalone
