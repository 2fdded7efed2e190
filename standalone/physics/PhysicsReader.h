#pragma once

#include "physics/PhysicsQueries.h"
#include "qcl/QclDocument.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Reads the sections of one document of physics queries. What a section says wrong is reported at its place and left
/// out; the rest of the section counts.
class PhysicsReader {
public:
    /// @param p_number  Of the document, from 1, in the order of loading.
    PhysicsReader(const QclDocument& p_document, std::size_t p_number, PhysicsQueries& p_queries,
                  Diagnostics& p_problems);

    void read();

private:
    struct Section {
        const QclObject* text;
        PhysicsQuery* query;
        std::size_t condition;    // position among the query's conditions
    };

    void readQuery(const QclObject& p_text);
    void readKey(const QclParameter& p_key, const QclObject& p_text, PhysicsCondition& p_condition);
    void readAnswer(const QclParameter& p_key, PhysicsQuery& p_query);
    void readObject(const QclParameter& p_key, std::optional<ObjectPattern>& p_pattern);
    void readAsked(const QclParameter& p_key, AskedQuery& p_asked) const;
    void readNames(const QclParameter& p_key, std::optional<ObjectPattern>& p_pattern);
    void readTexts(const QclParameter& p_key, std::vector<std::string>& p_texts);
    void readCount(const QclParameter& p_key, std::optional<std::size_t>& p_count);
    std::optional<bool> readYesNo(const QclParameter& p_key, std::optional<bool> p_otherwise);

    void checkCondition(const Section& p_section);
    void checkConditionOfList(const Section& p_section, const PhysicsCondition& p_condition);
    void checkAsked(const AskedQuery& p_asked);

    bool isOfThisDocument(const PhysicsPlace& p_place) const { return p_place.document == m_number; }
    PhysicsPlace placeOf(const QclObject& p_text) const;
    std::vector<std::string> queryNames() const;

    void report(const PhysicsPlace& p_place, const char* p_identifier, std::string p_message);
    void atKey(const Section& p_section, std::string_view p_key, const char* p_identifier,
               std::string p_message);
    void atValue(const QclParameter& p_key, const char* p_identifier, std::string p_message);
    void unknownKey(const QclParameter& p_key, const QclObject& p_text, bool p_isOfQuery);

    const QclDocument& m_document;
    std::size_t m_number;
    PhysicsQueries& m_queries;
    Diagnostics& m_problems;
    std::vector<Section> m_sections;    // that hold keys of conditions
    std::size_t m_suggestions = 0;
    std::set<const PhysicsQuery*> m_withBadKeys;    // which may be the ones that are missed
};

}    // namespace qen::standalone
