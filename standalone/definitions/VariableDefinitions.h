#pragma once

#include "definitions/Finding.h"
#include "PreVariableDefStore.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace qen::standalone {

/// Feeds the sections of VARIABLES files to the store. What the store throws or reports is a finding at the section
/// that it is about.
class QEN_STANDALONE_API VariableDefinitions {
public:
    /// Takes the sections of a document; one of the same name as an earlier one replaces it. The document must stay
    /// where it is until the store is filled.
    void add(const QclDocument& p_document, std::vector<Finding>& p_problems);

    /// Hands every definition to the store, in the order in which their names first came.
    void fill(PreVariableDefStore& p_store, std::vector<Finding>& p_problems) const;

private:
    struct Definition {
        std::string name;
        const QclDocument* document;
        const QclObject* section;
    };

    std::vector<Definition> m_definitions;
    std::map<std::string, std::size_t, std::less<>> m_byName;
};

}    // namespace qen::standalone
