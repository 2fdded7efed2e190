#pragma once

#include "support/ScriptedHost.h"

#include <string>
#include <vector>

namespace qen::support {

/// How the interfaces and statics of the host read the script.
struct ScriptedHostAnswers {
    static void note(const ScriptedHost& p_host, const std::string& p_operation,
                     const std::vector<std::string>& p_arguments)
    {
        p_host.m_log.note(p_operation, p_arguments);
    }

    /// What is set for a key; a default when nothing is.
    template <class Map, class Key>
    static typename Map::mapped_type valueOr(const Map& p_map, const Key& p_key,
                                             typename Map::mapped_type p_default = {})
    {
        const auto found = p_map.find(p_key);
        return found == p_map.end() ? p_default : found->second;
    }

    static ScriptedParameter parameter(const ScriptedHost& p_host, const std::string& p_objectPath,
                                       const std::string& p_paramName)
    {
        return valueOr(p_host.m_parameters, std::pair(p_objectPath, p_paramName), ScriptedParameter(nullptr));
    }

    static const auto& parameters(const ScriptedHost& p_host) { return p_host.m_parameters; }
    static const auto& objects(const ScriptedHost& p_host) { return p_host.m_objects; }
    static const auto& unknownPaths(const ScriptedHost& p_host) { return p_host.m_unknownPaths; }
    static const auto& unknownParams(const ScriptedHost& p_host) { return p_host.m_unknownParams; }
    static const auto& governedParams(const ScriptedHost& p_host) { return p_host.m_governedParams; }
    static const auto& quantities(const ScriptedHost& p_host) { return p_host.m_quantities; }
    static const auto& dynamicQuantities(const ScriptedHost& p_host) { return p_host.m_dynamicQuantities; }
    static const auto& refusedConversions(const ScriptedHost& p_host) { return p_host.m_refusedConversions; }
    static const auto& units(const ScriptedHost& p_host) { return p_host.m_units; }
    static const auto& expressions(const ScriptedHost& p_host) { return p_host.m_expressions; }
    static const auto& variableNames(const ScriptedHost& p_host) { return p_host.m_variableNames; }

    /// The root of a full name: the last component unless the test says otherwise.
    static std::string rootOf(const ScriptedHost& p_host, const std::string& p_fullName)
    {
        return valueOr(p_host.m_variableNames, p_fullName)
            .root.value_or(p_fullName.substr(p_fullName.rfind('.') + 1));
    }

    static const auto& notVariableNames(const ScriptedHost& p_host) { return p_host.m_notVariableNames; }
    static const auto& locators(const ScriptedHost& p_host) { return p_host.m_locators; }
    static const auto& prefixes(const ScriptedHost& p_host) { return p_host.m_prefixes; }
    static const auto& queries(const ScriptedHost& p_host) { return p_host.m_queries; }
    static const auto& changes(const ScriptedHost& p_host) { return p_host.m_changes; }
};

}    // namespace qen::support
