#pragma once

#include "definitions/Finding.h"
#include "StandaloneApi.h"

#include <span>
#include <string_view>
#include <vector>

namespace qen::standalone {

class Definitions;
class LintInput;
class LintReport;

/// One thing that the lint looks for.
struct LintRule {
    std::string_view identifier;    ///< stable, of every finding of the rule
    Severity severity;              ///< an error where checks would give wrong answers
    std::string_view looksFor;      ///< for people, as the end of a sentence
    void (*find)(const LintInput& p_input, LintReport& p_report);
};

/// Every rule, in the order in which they are applied.
QEN_STANDALONE_API std::span<const LintRule> lintRules();

/// Looks at definitions for what loads but is not meant: words that no check knows, names that clash or cannot be
/// written, rules that no case can meet. What loading has reported already is not reported again, so the two together
/// are the whole.
///
/// Linear in the definitions, suggestions for misspelt words aside. Definitions that hold errors may be looked at, too.
///
/// @return The findings of one file in the order of its lines.
QEN_STANDALONE_API std::vector<Finding> lintDefinitions(const Definitions& p_definitions);

}    // namespace qen::standalone
