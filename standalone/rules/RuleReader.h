#pragma once

#include "qcl/QclDocument.h"
#include "rules/RuleTree.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Reads the sections of one document of rules into the declared objects. What a section says wrong is reported at its
/// place and left out; the rest of the section counts.
class RuleReader {
public:
    /// @param p_number  Of the document, from 1, in the order of loading.
    RuleReader(const QclDocument& p_document, std::size_t p_number, RuleTree& p_tree,
               Diagnostics& p_problems);

    void read();

private:
    struct Section {
        const QclObject* text;
        DeclaredObject* object;                  // that it declares, or that holds the parameter
        std::optional<std::string> paramName;    // empty text: the rule of any other parameter
    };

    std::optional<Section> open(const QclObject& p_text);
    void readObject(const Section& p_section);
    void readParameter(const Section& p_section);

    void readSameAs(const QclParameter& p_key, DeclaredObject& p_object);
    void readType(const QclParameter& p_key, DeclaredParameter& p_parameter);
    void readBound(const QclParameter& p_key, std::string& p_bound);
    void readUnitsFrom(const QclParameter& p_key, const Section& p_section, DeclaredParameter& p_parameter);
    void readList(const QclParameter& p_key, std::vector<std::string>& p_texts);
    bool readYesNo(const QclParameter& p_key, bool p_otherwise);

    void checkAncestors(const Section& p_section);
    void checkSameAs(const DeclaredObject& p_object);
    void checkRule(const Section& p_section, const DeclaredParameter& p_parameter);
    void checkUnits(const Section& p_section, const ParameterRule& p_rule);

    void atSection(const Section& p_section, const char* p_identifier, std::string p_message);
    void atSection(const QclObject& p_text, const char* p_identifier, std::string p_message);
    void atKey(const Section& p_section, std::string_view p_key, const char* p_identifier,
               std::string p_message);
    void atValue(const QclParameter& p_key, const char* p_identifier, std::string p_message);
    void unknownKey(const QclParameter& p_key, const Section& p_section,
                    const std::vector<std::string>& p_known);
    DeclarationPlace placeOf(const QclObject& p_text) const;

    const QclDocument& m_document;
    std::size_t m_number;
    RuleTree& m_tree;
    Diagnostics& m_problems;
};

}    // namespace qen::standalone
