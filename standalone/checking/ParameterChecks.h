#pragma once

#include "checking/CaseFinding.h"
#include "checking/CaseWorld.h"

#include <functional>
#include <vector>

namespace qen::standalone {

/// What a check of some parameters found.
struct CheckedParameters {
    std::vector<ParameterFindings> findings;    ///< of each parameter, in the order in which they were given
    ParameterFindings ofCase;                   ///< that belong to none of them
    bool internalError = false;                 ///< an internal assertion failed; the findings may not be all
};

/// A parameter that is to be checked.
struct ParameterToCheck {
    CaseParameter parameter;
    bool hasKnownPath = true;    ///< the rules know its object
    bool isTooLong = false;      ///< a list that is not to be looked at item by item
};

/// Checks parameters of a model: has the library follow them as changes, runs what it deferred, and adds what the
/// library does not look at. No exception costs another parameter its check.
///
/// @param p_onFollowed  Called for each parameter when the library has followed it.
CheckedParameters checkParameters(CaseWorld& p_case, const std::vector<ParameterToCheck>& p_parameters,
                                  const std::function<void()>& p_onFollowed);

}    // namespace qen::standalone
