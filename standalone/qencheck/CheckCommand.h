#pragma once

#include "ExitStatus.h"
#include "Options.h"

#include <string>
#include <vector>

namespace qencheck {

/// `qencheck check`: checks each case and reports on standard output.
ExitStatus runCheck(const std::vector<std::string>& p_caseFiles, const Options& p_options);

}    // namespace qencheck
