#pragma once

#include "DataError.h"
#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"
#include "SchedulerModel.h"
#include "SchedulerOperation.h"
#include "SchedulerWorld.h"

#include "support/Matchers.h"
#include "support/SchedulerPeer.h"
#include "support/ScriptedHost.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace qen::proof {

/// A scheduler and its plain model in one world.
class SchedulerPair {
public:
    explicit SchedulerPair(support::ScriptedHost& p_statics)
        : m_statics(p_statics), m_host(m_world),
          m_checker(&m_host, &m_host, &m_host, &p_statics.varDefStore(), p_statics.prefixInfo(),
                    &p_statics.availabilityChecker(), p_statics.locatorInfo(), &p_statics.callbackStore()),
          m_scheduler(&m_host, &m_host, &m_host, &m_checker)
    {}
    SchedulerPair(const SchedulerPair&) = delete;
    SchedulerPair& operator=(const SchedulerPair&) = delete;

    /// Lets it happen to both. Tells where they differ afterwards; empty when they agree.
    std::string perform(const Operation& p_operation)
    {
        m_statics.forgetCalls();
        m_differences.clear();
        m_threw = false;
        doBoth(p_operation);
        compareKept();
        compareRecords();
        return m_differences;
    }

    /// Whether both threw in the last operation.
    bool threw() const { return m_threw; }

    DimExprCheckScheduler& scheduler() { return m_scheduler; }
    DimExprChecker& checker() { return m_checker; }

    /// Everything that operations change.
    struct State {
        World world;
        SchedulerModel model;
        DimExprChecker checker;
        DimExprCheckScheduler scheduler;
    };

    State state() const { return {m_world, m_model, m_checker, m_scheduler}; }

    void goBackTo(const State& p_state)
    {
        m_world = p_state.world;
        m_model = p_state.model;
        m_checker = p_state.checker;
        m_scheduler = p_state.scheduler;
    }

private:
    using ParamValue = DimExprCheckScheduler::ParamValue;

    template <class OfScheduler, class OfModel>
    void both(const OfScheduler& p_ofScheduler, const OfModel& p_ofModel)
    {
        bool schedulerThrew = false;
        bool modelThrew = false;
        try
        {
            p_ofScheduler();
        }
        catch (const data::error&)
        {
            schedulerThrew = true;
        }
        try
        {
            p_ofModel();
        }
        catch (const CheckFailed&)
        {
            modelThrew = true;
        }
        m_threw = schedulerThrew && modelThrew;
        if (schedulerThrew != modelThrew)
            m_differences += schedulerThrew ? "the scheduler throws\n" : "the scheduler throws nothing\n";
    }

    void doBoth(const Operation& p_operation)
    {
        const std::size_t at = p_operation.place;
        const std::string& object = places()[at].object;
        const std::string& param = places()[at].parameter;
        QCLUpdateHandler& handler = m_scheduler;

        switch (p_operation.kind)
        {
        case Operation::Change:
            m_world.set(at, p_operation.value);
            both([&] { handler.onParamChange(object, param, "of no account", true); },
                 [&] { m_model.examine(m_world, at); });
            break;
        case Operation::ChangeToForget:
            m_world.set(at, p_operation.value);
            both([&] { handler.onParamChange(object, param, "of no account", false); },
                 [&] { m_model.forget(at); });
            break;
        case Operation::ChangeLater:
            m_world.set(at, p_operation.value);
            m_world.pending.push_back({PendingChange::Changed, at});
            break;
        case Operation::SetAndExamine:
            m_world.set(at, p_operation.value);
            [[fallthrough]];
        case Operation::Examine:
            both([&] { m_scheduler.checkParam(object, param); }, [&] { m_model.examine(m_world, at); });
            break;
        case Operation::DeleteParam:
            m_world.unset(at);
            both([&] { handler.onParamDeletion(object, param); }, [&] { m_model.paramDeleted(at); });
            break;
        case Operation::DeleteParamLater:
            m_world.unset(at);
            m_world.pending.push_back({PendingChange::ParamDeleted, at});
            break;
        case Operation::DeleteObject:
            m_world.removeObject(at);
            both([&] { handler.onObjectDeletion(object); }, [&] { m_model.objectDeleted(at); });
            break;
        case Operation::LoseObject:
            m_world.removeObject(at);
            m_world.pending.push_back({PendingChange::ObjectDeleted, at});
            break;
        case Operation::ChangeRules:
            m_world.changeRules(at);
            m_world.pending.push_back({PendingChange::Forgotten, at});
            break;
        case Operation::ChangeRulesAndLook:
            m_world.changeRules(at);
            m_world.pending.push_back({PendingChange::Changed, at});
            break;
        case Operation::Run:
            both([&] { m_scheduler.runDeferredChecks(); }, [&] { m_model.run(m_world); });
            break;
        case Operation::Replay:
            both([&] { m_scheduler.processChangedParameters(); }, [&] { replayInModel(); });
            m_world.pending.clear();
            break;
        case Operation::Keep:
            keep(p_operation, ParamValue::Plain);
            break;
        case Operation::KeepDynamic:
            keep(p_operation, ParamValue::DynamicQuantity);
            break;
        case Operation::KeepNamed:
            keep(p_operation, ParamValue::NamedExpression);
            break;
        case Operation::Erase:
            both([&] { m_scheduler.eraseDeferredParam(object, param); }, [&] { m_model.forget(at); });
            break;
        case Operation::StepsAlone:
            doStepsAlone(p_operation);
            break;
        case Operation::Frames:
            handler.onBeginObjectParamChanges(object);
            handler.onInternalParamChange(object, param, "4 [m]", true);
            handler.onInternalParamChange(object, param, "4 [m]", false);
            handler.onInternalParamDeletion(object, param);
            handler.onEndObjectParamChanges(object);
            break;
        case Operation::KindCount:
            break;
        }
    }

    void replayInModel()
    {
        for (const PendingChange& change : m_world.pending)
            switch (change.kind)
            {
            case PendingChange::Changed:
                m_model.examine(m_world, change.place);
                break;
            case PendingChange::Forgotten:
                m_model.forget(change.place);
                break;
            case PendingChange::ParamDeleted:
                m_model.paramDeleted(change.place);
                break;
            case PendingChange::ObjectDeleted:
                m_model.objectDeleted(change.place);
                break;
            }
    }

    ParamValue split(const Operation& p_operation, ParamValue::Mode p_mode) const
    {
        ParamValue result;
        result.mode = p_mode;
        m_scheduler.processValueString(values()[p_operation.value].text, result);
        return result;
    }

    void keep(const Operation& p_operation, ParamValue::Mode p_mode)
    {
        const Place& place = places()[p_operation.place];
        m_scheduler.addDeferredParam(place.object, place.parameter, split(p_operation, p_mode));
        m_model.keep(p_operation.place,
                     SchedulerModel::split(p_operation.place, p_mode, values()[p_operation.value]));
    }

    void doStepsAlone(const Operation& p_operation)
    {
        const Place& place = places()[p_operation.place];
        ParamValue value = split(p_operation, ParamValue::Plain);
        auto expected =
            SchedulerModel::split(p_operation.place, ParamValue::Plain, values()[p_operation.value]);
        both(
            [&] {
                m_scheduler.runDeferredNumChecks(place.object, place.parameter, value.numbers);
                m_scheduler.runDeferredExprChecks(place.object, place.parameter, value.expressions);
            },
            [&] {
                m_model.checkNumbers(m_world, expected);
                m_model.checkExpressions(m_world, expected);
            });
        if (!same(value, expected))
            m_differences += "the value of the steps becomes " + text(value) + "\n";
        if (m_scheduler.canRemoveDeferredParam(value) != expected.isSettled())
            m_differences += "the value of the steps is settled only for one of the two\n";
    }

    // Comparing.

    static bool same(const ParamValue& p_value, const SchedulerModel::Kept& p_expected)
    {
        return p_value.mode == p_expected.mode &&
               std::ranges::equal(p_value.numbers, p_expected.numbers,
                                  [](const auto& p_one, const auto& p_other) {
                                      return p_one.value == p_other.value && p_one.units == p_other.units &&
                                             p_one.ok == p_other.ok;
                                  }) &&
               std::ranges::equal(p_value.expressions, p_expected.expressions, {}, {}, &Item::text);
    }

    void compareKept()
    {
        auto expected = m_model.kept.begin();
        auto expectedBare = m_model.bareObjects.begin();
        bool agrees = true;
        for (const auto& [object, params] : DimExprCheckSchedulerPeer::kept(m_scheduler))
        {
            if (params.empty())
                agrees = agrees && expectedBare != m_model.bareObjects.end() && *expectedBare++ == object;
            for (const auto& [param, value] : params)
            {
                agrees = agrees && expected != m_model.kept.end() && expected->first.first == object &&
                         expected->first.second == param && same(value, expected->second);
                if (agrees)
                    ++expected;
            }
        }
        if (!agrees || expected != m_model.kept.end() || expectedBare != m_model.bareObjects.end())
            m_differences +=
                "the scheduler keeps\n" + keptByScheduler() + "but should keep\n" + keptByModel();
    }

    void compareRecords()
    {
        const bool agree =
            std::equal(m_checker.beginExprError(), m_checker.endExprError(), m_model.records.begin(),
                       m_model.records.end(), [](const Record& p_one, const Record& p_other) {
                           return p_one.object == p_other.object && p_one.parameter == p_other.parameter &&
                                  p_one.message == p_other.message && p_one.level == p_other.level;
                       });
        if (!agree)
            m_differences += "the records are\n" +
                             text(std::vector<Record>(m_checker.beginExprError(), m_checker.endExprError())) +
                             "but should be\n" + text(m_model.records);
    }

    // Telling.

    template <class Kept>
    static std::string text(const Kept& p_kept)
    {
        std::string result = "mode " + std::to_string(p_kept.mode);
        for (const auto& number : p_kept.numbers)
            result += ", " + std::to_string(number.value) + " [" + number.units +
                      (number.ok ? "] passed" : "] not passed");
        for (const auto& expression : p_kept.expressions)
            result += ", '" + expressionText(expression) + "'";
        return result;
    }

    static std::string expressionText(const std::string& p_text) { return p_text; }
    static std::string expressionText(const Item& p_item) { return p_item.text; }

    static std::string text(const std::vector<Record>& p_records)
    {
        std::string result;
        for (const Record& record : p_records)
            result += "    " + testing::PrintToString(record) + '\n';
        return result.empty() ? "    none\n" : result;
    }

    std::string keptByScheduler() const
    {
        std::string result;
        for (const auto& [object, params] : DimExprCheckSchedulerPeer::kept(m_scheduler))
        {
            if (params.empty())
                result += "    " + object + ", bare\n";
            for (const auto& [param, value] : params)
                result += "    " + object + '|' + param + ": " + text(value) + '\n';
        }
        return result.empty() ? "    nothing\n" : result;
    }

    std::string keptByModel() const
    {
        std::string result;
        for (const auto& [key, value] : m_model.kept)
            result += "    " + key.first + '|' + key.second + ": " + text(value) + '\n';
        for (const std::string& object : m_model.bareObjects)
            result += "    " + object + ", bare\n";
        return result.empty() ? "    nothing\n" : result;
    }

    support::ScriptedHost& m_statics;
    World m_world;
    WorldHost m_host;
    DimExprChecker m_checker;
    DimExprCheckScheduler m_scheduler;
    SchedulerModel m_model;
    std::string m_differences;
    bool m_threw = false;
};

}    // namespace qen::proof
