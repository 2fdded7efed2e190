#pragma once

#include "definitions/Finding.h"
#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// The kinds of sections that a VARIABLES file holds.
enum class DefinitionKind : std::uint8_t { Variable, Operator, CallbackFunction, Count };

/// How a definition of one kind is written.
struct DefinitionForm {
    DefinitionKind kind;
    std::string_view type;                     ///< of its section: "/type:name"
    std::span<const std::string_view> keys;    ///< that the section may hold, in ascending order
};

QEN_STANDALONE_API const DefinitionForm& formOf(DefinitionKind p_kind);

/// One definition, as the text has it. Points into its document.
struct QEN_STANDALONE_API CatalogueDefinition {
    DefinitionKind kind;
    std::string name;
    const QclDocument* document;
    const QclObject* section;

    /// What stands behind a key; empty where the section does not have it.
    std::string_view text(std::string_view p_key) const;

    /// The pieces of what stands behind a key, without the blanks around them.
    std::vector<std::string> list(std::string_view p_key) const;

    /// A finding at the section's header.
    Finding finding(Severity p_severity, std::string p_identifier, std::string p_message) const;

    /// A finding at what stands behind a key; at the section's header where it does not have the key.
    Finding findingAt(std::string_view p_key, Severity p_severity, std::string p_identifier,
                      std::string p_message) const;
};

/// The sections of VARIABLES files: variables, variable operators and callback functions.
class QEN_STANDALONE_API CatalogueDefinitions {
public:
    /// Takes the sections of a document, which must stay where it is. A definition of the same kind and name as one of
    /// an earlier document replaces it.
    void add(const QclDocument& p_document);

    /// Hands every definition that counts to its store, in the order of the text. What a section holds that no
    /// definition has, and what the stores throw or report, is a finding at its place; loading goes on after it.
    void load(PreVariableDefStore& p_variables, ExprCBFuncStore& p_callbacks,
              std::vector<Finding>& p_problems) const;

    /// The definitions that count, in the order of the text.
    std::vector<CatalogueDefinition> all() const;

private:
    struct Section {
        CatalogueDefinition definition;    // without a meaning where the kind is none
        bool isReplaced = false;
    };

    std::vector<Section> m_sections;
    std::unordered_map<std::string_view, std::size_t>
        m_byPath;    // of the sections; empty while there is one document
};

}    // namespace qen::standalone
