#pragma once

#include "qcl/QclDocument.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace qen::standalone {

/// Finds the places of a case's parameters. The document must stay where it is.
class CaseIndex {
public:
    explicit CaseIndex(const QclDocument& p_case)
    {
        for (const QclObject& object : p_case.objects)
            for (const QclParameter& parameter : object.parameters)
                m_parameters.emplace(key(object.path, parameter.name), &parameter);
    }

    /// The parameter as the case's text has it; null when it does not.
    const QclParameter* find(std::string_view p_objectPath, std::string_view p_paramName) const
    {
        const auto found = m_parameters.find(key(p_objectPath, p_paramName));
        return found == m_parameters.end() ? nullptr : found->second;
    }

    std::size_t size() const { return m_parameters.size(); }

private:
    // A line end stands neither in a path nor in a name.
    static std::string key(std::string_view p_objectPath, std::string_view p_paramName)
    {
        return std::string(p_objectPath).append("\n").append(p_paramName);
    }

    std::unordered_map<std::string, const QclParameter*> m_parameters;
};

}    // namespace qen::standalone
