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

    /// The number for the content of an object to which the section at hand was added: see QclObject.
    ///
    /// @param p_earlier  That for its earlier sections; 0 when this is its first one.
    virtual std::uint64_t content(std::uint64_t p_earlier) = 0;

protected:
    ~SectionSource() = default;
};

/// Puts sections together into a document: knows the files, the objects with all their sections, and the limits that
/// hold for all of it.
class DocumentBuilder {
public:
    DocumentBuilder(const QclLimits& p_limits, SectionSource& p_sections);

    /// Makes room for so many objects; there may be more or less.
    void expectObjects(std::size_t p_count);

    QclDocument readFile(const std::string& p_path);
    QclDocument readText(const std::string& p_name, const std::string& p_text);

private:
    /// A file that is being read.
    struct OpenFile {
        std::uint32_t number = 0;
        std::string identity;
    };

    struct NameOf {
        std::string_view operator()(const QclParameter& p_parameter) const { return p_parameter.name(); }
    };

    using Names = NameIndex<NameOf>;

    /// Finds the objects by their paths. The hashes come with the sections.
    class ObjectIndex {
    public:
        /// The position of an object; k_none when there is none.
        std::uint32_t find(const std::vector<QclObject>& p_objects, std::string_view p_path,
                           std::size_t p_hash) const;

        void reserve(std::size_t p_count);
        void addNext(std::size_t p_hash);

        static constexpr std::uint32_t k_none = 0xFFFFFFFF;

    private:
        struct Slot {
            std::uint32_t hash = 0;    // a part of it
            std::uint32_t positionPlus1 = 0;
        };

        void place(const Slot& p_slot);

        std::vector<Slot> m_slots;    // a power of two, at most half of them taken
        std::uint32_t m_count = 0;
    };

    void readBytesOf(const std::string& p_path, FileBytes p_bytes);
    void readSections(std::string_view p_text);

    void addSection(const ParsedSection& p_section, std::string_view p_text);
    void addToObject(std::uint32_t p_object, const ParsedSection& p_section, std::string_view p_text);
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
    ObjectIndex m_objectIndex;
    std::unordered_map<std::uint32_t, Names> m_reopenedObjects;    // those that have several sections
    std::size_t m_bytesRead = 0;
    std::size_t m_filesIncluded = 0;
    bool m_stopped = false;    // by too many problems
};

}    // namespace qen::standalone
