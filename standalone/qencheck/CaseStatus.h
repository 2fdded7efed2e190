#pragma once

#include "ExitStatus.h"

#include "checking/CaseChecker.h"
#include "qcl/QclDocument.h"

namespace qencheck {

/// Whether a file of the case is missing, unreadable, too large or no text, or has so many problems that reading
/// stopped, so that the report cannot be whole.
bool couldNotBeRead(const qen::standalone::QclDocument& p_case);

/// What a case earns its caller.
///
/// @param p_report  What was found, the problems of the text included.
ExitStatus statusOf(const qen::standalone::QclDocument& p_case, const qen::standalone::CaseReport& p_report);

}    // namespace qencheck
