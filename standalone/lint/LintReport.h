#pragma once

#include "definitions/Finding.h"
#include "lint/Lint.h"
#include "lint/LintInput.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Takes the findings of one rule.
class LintReport {
public:
    LintReport(const LintRule& p_rule, std::vector<Finding>& p_findings)
        : m_rule(p_rule), m_findings(p_findings)
    {}

    /// A finding that points at a text.
    void at(const LintText& p_text, std::string p_message);

    /// A finding that points at what stands behind a key, or at the section's header where it has no such key.
    void at(const LintSection& p_section, std::string_view p_key, std::string p_message);

    /// A finding about a file as a whole; null where there is none.
    void atFile(const QclDocument* p_document, std::string p_message);

private:
    void add(const QclDocument& p_document, const SourcePlace& p_place, std::size_t p_length,
             std::string p_message);

    const LintRule& m_rule;
    std::vector<Finding>& m_findings;
};

/// What follows a message about an unknown word: " Did you mean 'X'?", or which words are expected where none is near.
std::string hint(std::string_view p_word, const std::vector<std::string>& p_known);

}    // namespace qen::standalone
