#pragma once

#include "HostApi.h"

#include <cstddef>
#include <string>

namespace qen {

/// A path of a model object, such as "/FLOW:Pump/DOMAIN:Rotor/BOUNDARY:Inlet/INFLOW": levels of a type and a name,
/// counted from 0; a level of which there is one object has an empty name. Defined by the host.
class QEN_HOST_API QCLPath {
public:
    QCLPath() = default;

    /// A malformed text gives an empty path. Not explicit: a path's text stands for the path.
    QCLPath(const std::string& p_text);

    /// The number of levels.
    std::size_t size() const { return m_levels; }

    bool empty() const { return m_levels == 0; }

    /// The type of a level; empty when there is no such level.
    std::string getType(std::size_t p_level) const;

    /// The name of a level; empty when there is no such level or it has no name.
    std::string getName(std::size_t p_level) const;

    std::string getLastType() const;
    std::string getLastName() const;

    /// The path as text.
    const std::string& getFullPath() const { return m_text; }

    /// The leading part up to and with the first level of that type; empty when there is none.
    QCLPath getSubPathByType(const std::string& p_type) const;

    /// Appends a level.
    void push_back(const std::string& p_type, const std::string& p_name);

    /// Whether this path is an ancestor of the other: shorter, and equal to its leading part.
    bool isParent(const QCLPath& p_other) const;

private:
    std::string m_text;          // "/TYPE:name/TYPE/...", empty when there are no levels
    std::size_t m_levels = 0;    // how many there are in the text
};

}    // namespace qen
