#pragma once

#include "definitions/CatalogueDefinitions.h"
#include "qcl/QclDocument.h"
#include "rules/RuleBook.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// The definitions as the rules of the lint look at them.

namespace qen::standalone {

class Definitions;

/// A section of a definition file.
struct LintSection {
    const QclDocument* document;
    const QclObject* object;
};

/// A stretch of text in a definition file.
struct LintText {
    std::string_view text;
    LintSection section;
    SourcePlace place;
};

/// What stands behind a key; an empty text at the section's header where it does not have the key.
LintText valueOf(const LintSection& p_section, std::string_view p_key);

/// The pieces of a comma list, without the blanks around them, where they stand. A blank text has none.
std::vector<LintText> listOf(const LintSection& p_section, std::string_view p_key);

/// A variable, operator or callback function.
struct LintDefinition {
    std::string name;
    LintSection section;
    LintText shortName;             ///< as the section's header has it
    std::vector<LintText> names;    ///< every name that it can be called by, that of its components included

    std::string_view text(std::string_view p_key) const { return valueOf(section, p_key).text; }
};

/// A parameter's rule.
struct LintParameter {
    std::string pattern;    ///< types of the object's path
    const ParameterRule* rule;
    std::vector<LintSection> sections;    ///< that declare it, in the order of loading

    /// The latest section that has the key; the latest one where none has it.
    const LintSection& sectionWith(std::string_view p_key) const;
};

class LintInput {
public:
    /// The definitions must outlive the input.
    explicit LintInput(const Definitions& p_definitions);

    const Definitions& definitions() const { return m_definitions; }
    const std::vector<LintDefinition>& variables() const { return m_variables; }
    const std::vector<LintDefinition>& operators() const { return m_operators; }
    const std::vector<LintDefinition>& callbacks() const { return m_callbacks; }
    const std::vector<LintParameter>& parameters() const { return m_parameters; }

private:
    void addParameters();

    const Definitions& m_definitions;
    std::vector<LintDefinition> m_variables;
    std::vector<LintDefinition> m_operators;
    std::vector<LintDefinition> m_callbacks;
    std::vector<LintParameter> m_parameters;
};

/// Whether expressions may use the variable.
bool isForExpressions(const LintDefinition& p_variable);

/// The number of components that the tensor type of a variable or operator has; 0 for a scalar, and for a text that
/// is no tensor type.
std::size_t componentCount(const LintDefinition& p_definition);

}    // namespace qen::standalone
