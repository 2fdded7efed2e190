#pragma once

#include "QENAssertImpl.h"

/// @file
/// The places at which an internal assertion can fail, one constant a place.
//
// Deliberate: file and line are part of what the host reports, so they are constants and stay as they are, wherever the
// code moves. Not __FILE__ and __LINE__. Held by TensorType.OfNoKnownKindFailsAnAssertion,
// Prefixes.InADomainWithoutANameFailAnAssertionAndAreCheckedAllTheSame and
// Prefixes.OfTwoUnknownKindsFailBothAssertionsInOrder, among others.

namespace qen {

struct InternalErrorPlace {
    const char* message;
    const char* file;
    int line;
};

inline constexpr InternalErrorPlace k_noTensorType {"Internal error: no valid tensor type found!",
                                                    "PreVariables/src/PreVariableDefStore", 1025};

inline constexpr const char* k_checkerFile = "PreVariables/src/DimExprChecker";

inline constexpr InternalErrorPlace k_noDependencies {"!dependencyList.empty()", k_checkerFile, 696};
inline constexpr InternalErrorPlace k_noDomainName {"!p_domainName.empty()", k_checkerFile, 847};
inline constexpr InternalErrorPlace k_noAVTensorType {"Invalid tensor type string in AV", k_checkerFile,
                                                      1133};
inline constexpr InternalErrorPlace k_noSecondPrefixKind {"Unexpected variable prefix type", k_checkerFile,
                                                          1690};
inline constexpr InternalErrorPlace k_noFirstPrefixKind {"Unexpected variable prefix type", k_checkerFile,
                                                         1775};

/// Tells the host. May return: the caller goes on without what it found missing.
inline void internalError(const InternalErrorPlace& p_place)
{
    QENAssertImpl::assertFail(p_place.message, p_place.file, p_place.line);
}

}    // namespace qen
