#pragma once

#include "qcl/NameIndex.h"
#include "qcl/NameSyntax.h"
#include "qcl/QclDocument.h"
#include "qcl/QclProblems.h"
#include "qcl/QclReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// What a line begins, by its first characters.
enum class LineStart { Header, Include, Other };

/// The same as lineStart(), where the line does not begin with a header at once.
LineStart lineStartBehindBlanks(std::string_view p_text);

/// What the line at the beginning of a text begins.
inline LineStart lineStart(std::string_view p_text)
{
    return p_text.starts_with('[') ? LineStart::Header : lineStartBehindBlanks(p_text);
}

/// What does not belong into a line of text.
struct LineFault {
    QclProblem problem;
    std::string message;
    std::size_t offset = 0;    // of the byte at fault
};

/// The first thing on a line that does not belong into a text; none where there is no such thing.
std::optional<LineFault> findLineFault(std::string_view p_line);

/// What stands before a stretch of a file that goes as far as the next header or include.
enum class SectionKind : std::uint8_t { Headed, FileBegin, AfterInclude };

/// One `name = value` of a section, by offsets in the section's text. Lines count from 0, columns from 1.
struct SectionParameter {
    std::uint32_t name = 0;
    std::uint32_t nameLength = 0;
    std::uint32_t value = 0;    // without a meaning for a joined value
    std::uint32_t valueLength = 0;
    std::uint32_t line = 0;
    std::uint32_t nameColumn = 0;
    std::uint32_t joinedPlus1 =
        0;    // position among the joined values plus 1; 0 for a value that does not continue
};

/// A problem in a section, with its place there.
struct SectionProblem {
    QclProblem problem = QclProblem::Count;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    std::uint32_t length = 0;
    std::string message;    // that of a parameter given twice names lines, and is made where they are known
    std::uint32_t first = 0;    // of a parameter given twice: the position of the one that counts
};

/// What one section says. It depends on nothing but the section's text and the limits.
struct ParsedSection {
    std::vector<SectionParameter> parameters;    // with different names
    std::vector<std::shared_ptr<const QclJoinedValue>> joinedValues;
    std::vector<SectionProblem> problems;    // in the order of the text
    std::uint32_t bytes = 0;                 // of the section's text
    std::uint32_t lines = 0;
    std::uint32_t path = 0;    // of its object, in the first line
    std::uint32_t pathLength = 0;
    std::uint32_t pathColumn = 0;
    std::size_t pathHash = 0;
    bool hasObject = false;       // otherwise its parameters belong to none, and are not there
    bool endsWithFile = false;    // if anything stood behind it, it would go on

    void clear();
};

/// The length of the section at the beginning of a text, as parse() finds it.
std::size_t sectionLength(SectionKind p_kind, std::string_view p_text);

/// Reads sections, one after the other. The texts must stay until the last has been read: names mostly are those that
/// another section has, and such a name is not examined again.
class SectionParser {
public:
    explicit SectionParser(const QclLimits& p_limits) : m_limits(p_limits)
    {
        m_limits.nameBytes = std::min(m_limits.nameBytes, QclParameter::k_nameBytes);
    }

    /// Reads a section from the beginning of a text as far as the next header or include, or to the end.
    void parse(SectionKind p_kind, std::string_view p_text, ParsedSection& p_section);

private:
    /// A parameter's name that is in order, and where it stood the last time.
    struct KnownName {
        std::string_view text;
        std::uint32_t follower = 0;     // the name that stood behind it the last time
        std::uint32_t section = 0;      // the number of the section
        std::uint32_t parameter = 0;    // its position there
    };

    struct TextOf {
        std::string_view operator()(const KnownName& p_name) const { return p_name.text; }
    };

    /// A stretch of the text that was looked through for what is not plain.
    struct Examined {
        const char* begin = nullptr;
        const char* end = nullptr;
        bool isPlain = false;       // ASCII, and no control characters but tabs and line feeds
        bool hasPercent = false;    // a '%' somewhere
    };

    bool hasMore() const { return m_next != m_end; }
    bool hasTooManyProblems() const { return m_section->problems.size() > m_limits.problems; }
    void takeLine();
    void examine(const char* p_lineBegin, const char* p_lineEnd);
    bool checkText();

    std::uint32_t offsetOf(std::string_view p_stretch) const;
    std::uint32_t columnOf(std::string_view p_stretch) const;
    void add(SectionProblem p_problem);
    void report(QclProblem p_problem, std::string_view p_stretch, std::string p_message);
    void report(const NameFault& p_fault, std::string_view p_name);
    void reportUnknownLine(std::string_view p_text);
    void reportTooLong(std::string_view p_stretch);
    void reportPlaceholder(std::string_view p_value, std::size_t p_at, std::uint32_t p_line,
                           std::uint32_t p_column);

    void readLine();
    void readHeader(std::string_view p_text, bool p_clean);
    bool readPredictedParameter();
    KnownName* nameInOrder(std::string_view p_name);
    SectionParameter* addParameter(std::string_view p_name);
    void readParameter(std::string_view p_name, std::string_view p_behindEquals, bool p_clean);
    void readJoinedValue(std::string_view p_behindEquals, bool p_clean, SectionParameter* p_parameter);
    std::size_t mostPlaceholders(std::string_view p_value) const;
    std::size_t findTooManyPlaceholders(std::string_view p_value) const;

    QclLimits m_limits;
    std::vector<KnownName> m_names;
    NameIndex<TextOf> m_nameIndex;
    std::uint32_t m_latestName = 0;
    std::uint32_t m_sections = 0;    // read so far, with the current one

    // Of the section that is being read.
    ParsedSection* m_section = nullptr;
    SectionKind m_kind = SectionKind::Headed;
    const char* m_begin = nullptr;
    const char* m_next = nullptr;    // the line behind the current one
    const char* m_end = nullptr;
    std::string_view m_line;    // the current one, without its end
    std::uint32_t m_lineNumber = 0;
    Examined m_examined;
};

}    // namespace qen::standalone
