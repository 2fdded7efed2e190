#pragma once

#include "SchedulerWorld.h"

#include <cstddef>
#include <string>

namespace qen::proof {

/// Something that a user, a host or a caller does.
struct Operation {
    enum Kind {
        Change,            // the parameter is set, and the host tells of it
        ChangeToForget,    // the same, with the flag that asks to forget the parameter
        ChangeLater,       // the parameter is set; the host tells of it with the next replay
        Examine,           // the scheduler is asked to look at the parameter as it is
        SetAndExamine,     // the same, and only the scheduler's caller knows that it has been set
        DeleteParam,
        DeleteParamLater,
        DeleteObject,
        LoseObject,     // the object goes; the host tells of it with the next replay
        ChangeRules,    // other units, other bounds; with the next replay the host has the parameter forgotten
        ChangeRulesAndLook,    // the same, but with the next replay the host tells of a change
        Run,
        Replay,
        Keep,    // a caller hands over a plain value
        KeepDynamic,
        KeepNamed,
        Erase,
        StepsAlone,    // the two steps of a run on a value that is not kept
        Frames,        // notifications that do not concern the scheduler
        KindCount,
    };

    Kind kind;
    std::size_t place = 0;
    std::size_t value = 0;    // a place among values()

    std::string text() const
    {
        const Place& subject = places()[place];
        const std::string name = subject.object + '|' + subject.parameter;
        const std::string set = name + " = '" + values()[value].text + "'";
        switch (kind)
        {
        case Change:
            return "change " + set;
        case ChangeToForget:
            return "change, to be forgotten, " + set;
        case ChangeLater:
            return "change, told of later, " + set;
        case Examine:
            return "examine " + name;
        case SetAndExamine:
            return "set and examine " + set;
        case DeleteParam:
            return "delete parameter " + name;
        case DeleteParamLater:
            return "delete parameter, told of later, " + name;
        case DeleteObject:
            return "delete object " + subject.object;
        case LoseObject:
            return "delete object, told of later, " + subject.object;
        case ChangeRules:
            return "change rules, to be forgotten later, of " + name;
        case ChangeRulesAndLook:
            return "change rules, told of later, of " + name;
        case Run:
            return "run";
        case Replay:
            return "replay";
        case Keep:
            return "keep " + set;
        case KeepDynamic:
            return "keep as dynamic " + set;
        case KeepNamed:
            return "keep as named expression " + set;
        case Erase:
            return "erase " + name;
        case StepsAlone:
            return "the two steps alone with " + set;
        case Frames:
            return "frames and internal changes of " + name;
        case KindCount:
            break;
        }
        return "unknown";
    }
};

}    // namespace qen::proof
