/// @file
/// The scheduler beside a plain model of it, over many sequences of operations. After each operation both keep the same
/// and the records are the same. QEN_SCHEDULER_SEQUENCES=all runs every sequence of up to 5 of the 12 short operations
/// and 200,000 random ones; without it 2,000 sequences are run.

#include "SchedulerOperation.h"
#include "SchedulerPair.h"
#include "SchedulerWorld.h"

#include "support/Matchers.h"
#include "support/SchedulerPeer.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qen::proof {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;

using Operations = std::vector<Operation>;

/// The place of a value among values().
std::size_t valueOf(std::string_view p_text)
{
    const auto found = std::ranges::find(values(), p_text, &Value::text);
    if (found == values().end())
        throw std::logic_error("There is no value '" + std::string(p_text) + "'.");
    return static_cast<std::size_t>(found - values().begin());
}

/// Every kind of value and of notification, with a number that is good, bad or neither as the rules change.
const std::vector<Operation>& shortOperations()
{
    static const std::vector<Operation> k_operations {
        {Operation::Change, DuctWidth, valueOf("4 [m]")},
        {Operation::Change, DuctWidth, valueOf("2 [m]")},
        {Operation::Change, DuctWidth, valueOf("2 [m], x, 4 [m], y +, 2 [s]")},
        {Operation::Change, DuctWidth, valueOf("")},
        {Operation::Change, DuctLoad, valueOf("2 [m]")},
        {Operation::Change, LibraryWidth, valueOf("2 [m], x")},
        {Operation::DeleteParam, DuctWidth},
        {Operation::LoseObject, DuctWidth},
        {Operation::ChangeRules, DuctWidth},
        {Operation::SetAndExamine, DuctWidth, valueOf("(4 [m])")},
        {Operation::Run},
        {Operation::Replay},
    };
    return k_operations;
}

Operations randomOperations(std::uint64_t p_seed)
{
    std::mt19937_64 random(p_seed);
    const auto below = [&](std::size_t p_end) { return static_cast<std::size_t>(random() % p_end); };

    Operations result(1 + below(60));
    // Few places in a sequence, so that its operations meet.
    const std::array<std::size_t, 3> few {below(PlaceCount), below(PlaceCount), below(PlaceCount)};
    for (Operation& operation : result)
    {
        operation.kind = static_cast<Operation::Kind>(below(Operation::KindCount));
        if (below(6) == 0)
            operation.kind = Operation::Run;
        operation.place = below(4) == 0 ? below(PlaceCount) : few[below(few.size())];
        operation.value = below(values().size());
    }
    return result;
}

/// Where the first difference arises; empty when there is none.
std::string firstDifference(support::ScriptedHost& p_statics, const Operations& p_operations)
{
    SchedulerPair pair(p_statics);
    for (std::size_t step = 0; step < p_operations.size(); ++step)
    {
        const std::string difference = pair.perform(p_operations[step]);
        if (!difference.empty())
            return "after operation " + std::to_string(step + 1) + " " + difference;
    }
    return "";
}

/// Leaves out operations, many at first, as long as the rest still fails.
template <class Fails>
Operations shortened(Operations p_operations, const Fails& p_fails)
{
    for (std::size_t length = p_operations.size(); length > 0;)
    {
        bool leftOut = false;
        for (std::size_t start = 0; start + length <= p_operations.size();)
        {
            Operations rest = p_operations;
            const auto first = rest.begin() + static_cast<std::ptrdiff_t>(start);
            rest.erase(first, first + static_cast<std::ptrdiff_t>(length));
            if (p_fails(rest))
            {
                p_operations = std::move(rest);
                leftOut = true;
            }
            else
                ++start;
        }
        if (!leftOut || length > 1)
            length /= 2;
    }
    return p_operations;
}

/// The shortest failing part of a sequence, and what differs.
std::string report(support::ScriptedHost& p_statics, const Operations& p_operations,
                   const std::string& p_difference)
{
    const Operations shortest = shortened(
        p_operations, [&](const Operations& p_rest) { return !firstDifference(p_statics, p_rest).empty(); });
    std::string result = "Of " + std::to_string(p_operations.size()) + " operations these suffice:\n";
    for (std::size_t step = 0; step < shortest.size(); ++step)
        result += "  " + std::to_string(step + 1) + ". " + shortest[step].text() + '\n';

    // A difference that comes from going back to a state does not come from the operations alone.
    const std::string difference = firstDifference(p_statics, shortest);
    return result + (difference.empty() ? "when a state has been copied " + p_difference : difference);
}

class SchedulerProof : public testing::Test {
protected:
    SchedulerProof() { scriptExpressions(m_statics); }

    static bool runsAll()
    {
        const char* const wanted = std::getenv("QEN_SCHEDULER_SEQUENCES");
        if (wanted && std::string_view(wanted) != "all")
            throw std::invalid_argument("QEN_SCHEDULER_SEQUENCES is '" + std::string(wanted) +
                                        "'; it can be \"all\" or not set.");
        return wanted;
    }

    /// All sequences that begin with those made so far. Counts them; stops at the first that fails.
    void goOn(SchedulerPair& p_pair, Operations& p_made, std::size_t p_longest)
    {
        if (p_made.size() == p_longest)
            return;
        const SchedulerPair::State before = p_pair.state();
        for (const Operation& operation : shortOperations())
        {
            p_made.push_back(operation);
            ++m_sequences;
            const std::string difference = p_pair.perform(operation);
            if (!difference.empty())
            {
                FAIL() << report(m_statics, p_made, difference);
            }
            goOn(p_pair, p_made, p_longest);
            if (HasFatalFailure())
                return;
            p_made.pop_back();
            p_pair.goBackTo(before);
        }
    }

    support::ScriptedHost m_statics;
    std::size_t m_sequences = 0;
};

TEST_F(SchedulerProof, KeepsAndRecordsAsThePlainModelOverAllShortSequences)
{
    const std::size_t longest = runsAll() ? 5 : 2;
    SchedulerPair pair(m_statics);
    Operations made;

    goOn(pair, made, longest);

    if (HasFatalFailure())
        return;
    EXPECT_EQ(m_sequences, longest == 5 ? 271'452U : 156U);
}

TEST_F(SchedulerProof, KeepsAndRecordsAsThePlainModelOverRandomSequences)
{
    const std::uint64_t sequences = runsAll() ? 200'000 : 1'844;
    for (std::uint64_t seed = 1; seed <= sequences; ++seed)
    {
        const Operations operations = randomOperations(seed);
        const std::string difference = firstDifference(m_statics, operations);
        if (!difference.empty())
        {
            FAIL() << "The sequence of seed " << seed << ". " << report(m_statics, operations, difference);
        }
    }
}

// The proof itself.

TEST_F(SchedulerProof, SeesAnEntryThatIsMissing)
{
    SchedulerPair pair(m_statics);
    ASSERT_THAT(pair.perform({Operation::Change, DuctWidth, valueOf("4 [m]")}), IsEmpty());

    pair.scheduler().eraseDeferredParam("/FLOW:F/DOMAIN:Duct", "Width");

    EXPECT_EQ(pair.perform({Operation::Frames}),
              "the scheduler keeps\n"
              "    nothing\n"
              "but should keep\n"
              "    /FLOW:F/DOMAIN:Duct|Width: mode 0, 4.000000 [m] not passed\n");
}

TEST_F(SchedulerProof, SeesARecordThatShouldNotBeThere)
{
    SchedulerPair pair(m_statics);
    ASSERT_THAT(pair.perform({Operation::Change, DuctWidth, valueOf("2 [s]")}), IsEmpty());

    pair.checker().checkParam("/FLOW:F/DOMAIN:Duct", "Width", "2 [s]");

    EXPECT_EQ(
        pair.perform({Operation::Frames}),
        "the records are\n"
        "    error for 'Width' of '/FLOW:F/DOMAIN:Duct': \"Invalid units ('s') set for parameter 'Width' in "
        "object '/FLOW:F/DOMAIN:Duct'. Expected units: 'm'.\"\n"
        "but should be\n"
        "    none\n");
}

TEST_F(SchedulerProof, GoesBackToAStateWithAllThatBelongsToIt)
{
    SchedulerPair pair(m_statics);
    const SchedulerPair::State before = pair.state();
    for (const Operation& operation : shortOperations())
        ASSERT_THAT(pair.perform(operation), IsEmpty());

    pair.goBackTo(before);

    EXPECT_THAT(support::keptObjects(pair.scheduler()), IsEmpty());
    EXPECT_THAT(pair.perform({Operation::Run}), IsEmpty());
}

TEST_F(SchedulerProof, ComesAcrossEveryModeAndOutcome)
{
    bool bareObject = false;
    std::array<bool, 3> modes {};
    std::array<bool, 2> levels {};
    std::array<bool, Operation::KindCount> throwing {};
    for (std::uint64_t seed = 1; seed <= 400; ++seed)
    {
        SchedulerPair pair(m_statics);
        for (const Operation& operation : randomOperations(seed))
        {
            pair.perform(operation);
            throwing.at(operation.kind) = throwing.at(operation.kind) || pair.threw();
            for (const auto& [object, params] : DimExprCheckSchedulerPeer::kept(pair.scheduler()))
            {
                bareObject = bareObject || params.empty();
                for (const auto& [param, value] : params)
                    modes.at(static_cast<std::size_t>(value.mode)) = true;
            }
            for (const Record& record : support::records(pair.checker()))
                levels.at(record.level) = true;
        }
    }
    EXPECT_TRUE(bareObject);
    EXPECT_THAT(modes, Each(true));
    EXPECT_THAT(levels, Each(true));
    for (const auto kind : {Operation::Change, Operation::Examine, Operation::SetAndExamine, Operation::Run,
                            Operation::Replay, Operation::StepsAlone})
        EXPECT_TRUE(throwing.at(kind)) << kind;
}

TEST_F(SchedulerProof, ShortensAFailingSequenceToWhatItNeeds)
{
    // Given a sequence that fails whenever a run follows a deletion
    const auto fails = [](const Operations& p_operations) {
        const auto deletion = std::ranges::find(p_operations, Operation::DeleteParam, &Operation::kind);
        return std::find_if(deletion, p_operations.end(), [](const Operation& p_operation) {
                   return p_operation.kind == Operation::Run;
               }) != p_operations.end();
    };
    Operations operations = randomOperations(1);
    operations.push_back({Operation::DeleteParam, LibraryOwn});
    operations.push_back({Operation::Frames});
    operations.push_back({Operation::Run});

    const Operations shortest = shortened(operations, fails);

    ASSERT_EQ(shortest.size(), 2U);
    EXPECT_THAT(shortest[0].text(), HasSubstr("delete parameter "));
    EXPECT_EQ(shortest[1].text(), "run");
}

}    // namespace
}    // namespace qen::proof
