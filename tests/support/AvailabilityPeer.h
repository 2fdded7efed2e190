#pragma once

#include "VarAvailabilityChecker.h"

#include <string>

namespace qen {

struct VarAvailabilityCheckerPeer {
    static bool doCheck(const VarAvailabilityChecker& p_checker, const std::string& p_key,
                        const std::string& p_objectPath)
    {
        return p_checker.doCheck(p_key, p_objectPath);
    }

    static void clearCache(VarAvailabilityChecker& p_checker) { p_checker.clearCache(); }
};

}    // namespace qen
