#pragma once

#include "DimExprCheckScheduler.h"

#include <map>
#include <string>
#include <vector>

namespace qen {

/// Looks at what a scheduler keeps.
struct DimExprCheckSchedulerPeer {
    using ParamValue = DimExprCheckScheduler::ParamValue;

    static const std::map<std::string, std::map<std::string, ParamValue>>&
    kept(const DimExprCheckScheduler& p_scheduler)
    {
        return p_scheduler.m_deferred;
    }
};

namespace support {

/// The kept entry of a parameter; null when there is none.
inline const DimExprCheckScheduler::ParamValue* keptValue(const DimExprCheckScheduler& p_scheduler,
                                                          const std::string& p_objectPath,
                                                          const std::string& p_paramName)
{
    const auto& kept = DimExprCheckSchedulerPeer::kept(p_scheduler);
    const auto object = kept.find(p_objectPath);
    if (object == kept.end())
        return nullptr;
    const auto param = object->second.find(p_paramName);
    return param == object->second.end() ? nullptr : &param->second;
}

/// The objects that have an entry, be it empty, in order.
inline std::vector<std::string> keptObjects(const DimExprCheckScheduler& p_scheduler)
{
    std::vector<std::string> result;
    for (const auto& object : DimExprCheckSchedulerPeer::kept(p_scheduler))
        result.push_back(object.first);
    return result;
}

/// What is kept, in order, as "path|parameter".
inline std::vector<std::string> keptParams(const DimExprCheckScheduler& p_scheduler)
{
    std::vector<std::string> result;
    for (const auto& [path, params] : DimExprCheckSchedulerPeer::kept(p_scheduler))
        for (const auto& param : params)
            result.push_back(path + '|' + param.first);
    return result;
}

}    // namespace support
}    // namespace qen
