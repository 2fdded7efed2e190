#pragma once

#include "qcl/NameIndex.h"
#include "qcl/QclDocument.h"
#include "qcl/QclProblems.h"
#include "qcl/QclReader.h"
#include "qcl/SectionParser.h"
#include "qcl/SourceText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Where the builder of a document has its sections from.
class SectionSource {
public:
    /// The section at the beginning of a text, which goes on to the end of its file. Texts stay where they are until
    /// the document is complete. What is handed back is used before the next call.
    virtual const ParsedSection& section(SectionKind p_kind, std::string_view p_text) = 0;

protected:
    ~SectionSource() = default;
};

/// Puts sections together into a document: knows the files, the objects with all their sections, and the limits that
/// hold for all of it.
class DocumentBuilder {
public:
    DocumentBuilder(const QclLimits& p_limits, SectionSource& p_sections);

    QclDocument readFile(const std::string& p_path);
    QclDocument readText(const std::string& p_name, const std::string& p_text);

private:
    /// A file that is being read.
    struct OpenFile {
        std::uint32_t number = 0;
        std::string identity;
    };

    struct PathOf {
        std::string_view operator()(const QclObject& p_object) const { return p_object.path; }
    };

    struct NameOf {
        std::string_view operator()(const QclParameter& p_parameter) const { return p_parameter.name; }
    };

    using Names = NameIndex<NameOf>;

    void readBytesOf(const std::string& p_path, std::string p_bytes);
    void readSections(std::string_view p_text);

    void addSection(const ParsedSection& p_section, std::string_view p_text);
    void addToObject(std::uint32_t p_object, const ParsedSection& p_section, std::string_view p_text);
    QclParameter placed(const SectionParameter& p_parameter, const ParsedSection& p_section,
                        std::string_view p_text) const;
    void keepJoinedValues(const ParsedSection& p_section);
    std::uint32_t addProblems(const ParsedSection& p_section, std::string_view p_text,
                              const QclObject* p_object, const std::vector<std::uint32_t>& p_earlier);
    void readIncludeLine(std::string_view p_line);
    void includeFile(std::string_view p_named);

    SourcePlace placeOf(std::string_view p_stretch) const;
    std::string lineFromHere(const SourcePlace& p_place) const;
    void report(QclProblem p_problem, const SourcePlace& p_place, std::size_t p_length,
                std::string p_message);
    void reportUnread(const std::string& p_path, const ReadFailure& p_failure, const SourcePlace& p_place,
                      std::size_t p_length);

    QclLimits m_limits;
    SectionSource& m_sections;
    QclDocument m_document;
    std::vector<OpenFile> m_open;    // the file that is being read is the last
    SourcePlace m_place;             // the first line of what is being read; its column says nothing
    std::string_view m_line;         // of an include, its text
    NameIndex<PathOf> m_objectIndex;
    std::unordered_map<std::uint32_t, Names> m_reopenedObjects;    // those that have several sections
    std::size_t m_bytesRead = 0;
    std::size_t m_filesIncluded = 0;
    bool m_stopped = false;    // by too many problems
};

}    // namespace qen::standalone
