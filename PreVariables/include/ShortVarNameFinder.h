#pragma once

#include "PreVariablesApi.h"

#include <string>

namespace qen {

/// Finds the short name of a variable. Implemented by the host; outlives the availability checker.
class QEN_PREVARIABLES_API ShortVarNameFinder {
public:    // in slot order, which never changes
    /// 0: the short name of a variable whose full name is given; prefixes and suffix are the finder's to drop.
    virtual std::string shortName(const std::string& p_fullName) const = 0;

    ShortVarNameFinder() = default;
    ShortVarNameFinder(const ShortVarNameFinder&) = default;
    ShortVarNameFinder& operator=(const ShortVarNameFinder&) = default;

protected:
    ~ShortVarNameFinder() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
