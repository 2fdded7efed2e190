#pragma once

#include "checking/CaseChecker.h"
#include "definitions/Definitions.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <memory>
#include <string>
#include <vector>

namespace qen::standalone {

/// A parameter of a case.
struct CheckedParameter {
    std::string objectPath;
    std::string paramName;
};

/// Checks a case again and again while it changes, and each time only what a change can alter: the parameters that
/// changed themselves, and those whose last check read something of the model that is now different. What a check reads
/// is recorded through every interface, the answers that are kept included.
///
/// Reports what checkCase reports of the same text. One thread at a time.
class QEN_STANDALONE_API CaseFollower {
public:
    /// @param p_definitions  Outlives this object.
    explicit CaseFollower(const Definitions& p_definitions);
    ~CaseFollower();

    CaseFollower(const CaseFollower&) = delete;
    CaseFollower& operator=(const CaseFollower&) = delete;

    /// Takes the case as it stands now. The first time everything is checked.
    CaseReport update(QclDocument p_case, const Progress& p_progress = {});

    /// The parameters that the last update checked, in the order of the text.
    const std::vector<CheckedParameter>& checked() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
