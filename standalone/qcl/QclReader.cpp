#include "qcl/QclReader.h"

#include "qcl/NameIndex.h"
#include "qcl/NameSyntax.h"
#include "qcl/PlainText.h"
#include "qcl/QclProblems.h"
#include "qcl/SourceText.h"
#include "text/Blanks.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace qen::standalone {

namespace {

namespace fs = std::filesystem;

std::uint32_t toColumn(std::size_t p_offset) { return static_cast<std::uint32_t>(p_offset + 1); }

/// What tells one file from another, however it is named.
std::string identityOf(const std::string& p_path)
{
    std::error_code failure;
    const fs::path absolute = fs::absolute(p_path, failure);
    const fs::path canonical = failure ? fs::path() : fs::weakly_canonical(absolute, failure);
    return failure ? p_path : canonical.string();
}

/// A path that an include names, as seen from the file that includes it.
std::string pathFrom(const std::string& p_includingFile, std::string_view p_named)
{
    return (fs::path(p_includingFile).parent_path() / fs::path(p_named)).string();
}

bool isPlaceholderThatLaterArgumentsFill(char p_first, char p_second)
{
    return p_first == '%' && p_second >= '2' && p_second <= '5';
}

class Reader {
public:
    explicit Reader(const QclLimits& p_limits) : m_limits(p_limits)
    {
        // Lines, columns and positions are counted in 32 bits.
        m_limits.fileBytes =
            std::min<std::size_t>(m_limits.fileBytes, std::numeric_limits<std::uint32_t>::max() - 1);
    }

    QclDocument readFile(const std::string& p_path)
    {
        std::variant<std::string, ReadFailure> bytes = readBytes(p_path, m_limits.fileBytes, false);
        if (const auto* failure = std::get_if<ReadFailure>(&bytes))
        {
            m_document.files.push_back(sourceFile(p_path, {}));
            reportUnread(p_path, *failure, {}, 0);
        }
        else
            readBytesOf(p_path, std::move(std::get<std::string>(bytes)));
        return std::move(m_document);
    }

    QclDocument readText(const std::string& p_name, const std::string& p_text)
    {
        if (p_text.size() > m_limits.fileBytes)
        {
            m_document.files.push_back(sourceFile(p_name, {}));
            reportUnread(p_name, {ReadFailure::Kind::TooLarge, {}}, {}, 0);
        }
        else
            readBytesOf(p_name, p_text);
        return std::move(m_document);
    }

private:
    /// Where parameters go.
    enum class Section { None, Object, Faulty, NeededAfterInclude };

    /// A file that is being read, and how far.
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

    std::string_view line() const { return m_document.files[m_place.file].line(m_place.line); }

    bool isLastLine() const { return m_place.line >= m_document.files[m_place.file].lineStarts.size(); }

    /// The place of a stretch of the current line.
    SourcePlace placeOf(std::string_view p_stretch) const
    {
        return placeAt(static_cast<std::size_t>(p_stretch.data() - line().data()));
    }

    SourcePlace placeAt(std::size_t p_offset) const
    {
        return {m_place.file, m_place.line, toColumn(p_offset)};
    }

    void report(QclProblem p_problem, const SourcePlace& p_place, std::size_t p_length, std::string p_message)
    {
        if (m_stopped)
            return;
        if (m_document.problems.size() >= m_limits.problems)
        {
            m_stopped = true;
            p_problem = QclProblem::Problems;
            p_message = fmt::format("There are more than {} problems. Reading ends here.", m_limits.problems);
            p_length = 0;
        }
        m_document.problems.push_back({Severity::Error, std::string(kindOf(p_problem).identifier),
                                       std::move(p_message), p_place, static_cast<std::uint32_t>(p_length)});
    }

    void report(const NameFault& p_fault, std::string_view p_name)
    {
        SourcePlace place = placeOf(p_name);
        place.column += static_cast<std::uint32_t>(p_fault.offset);
        report(p_fault.problem, place, p_fault.length, p_fault.message);
    }

    void reportUnread(const std::string& p_path, const ReadFailure& p_failure, const SourcePlace& p_place,
                      std::size_t p_length)
    {
        if (p_failure.kind == ReadFailure::Kind::TooLarge)
            report(QclProblem::FileSize, p_place, p_length,
                   fmt::format("The file {} is too large. A file and all that it includes may have {} bytes.",
                               inQuotes(p_path), m_limits.fileBytes));
        else
            report(QclProblem::FileUnreadable, p_place, p_length,
                   fmt::format("The file {} cannot be read: {}.", inQuotes(p_path), p_failure.reason));
    }

    /// Reads a file whose bytes are there, in place.
    void readBytesOf(const std::string& p_path, std::string p_bytes)
    {
        m_bytesRead += p_bytes.size();
        const auto number = static_cast<std::uint32_t>(m_document.files.size());
        const bool binary = isBinary(p_bytes);
        m_document.files.push_back(sourceFile(p_path, binary ? std::string() : std::move(p_bytes)));
        if (binary)
        {
            report(QclProblem::FileBinary, {number, 0, 0}, 0,
                   fmt::format("The file {} is no text: it holds zero bytes. Expected UTF-8.",
                               inQuotes(p_path)));
            return;
        }

        const SourcePlace outerPlace = std::exchange(m_place, {number, 1, 1});
        m_open.push_back({number, identityOf(p_path)});
        m_section = Section::None;
        for (; m_place.line <= m_document.files[number].lineStarts.size() && !m_stopped; ++m_place.line)
            readLine();
        m_open.pop_back();
        m_place = outerPlace;
    }

    void readLine()
    {
        const bool clean = checkText();
        const std::string_view text = trimmed(line());
        if (text.empty() || text.front() == '#')
            return;

        if (text.front() == '[')
            readHeader(text, clean);
        else if (text.starts_with("include") && trimmedLeft(text.substr(7)).starts_with('"'))
            readInclude(text, clean);
        else if (const std::size_t equals = line().find('='); equals != std::string_view::npos)
            readParameter(equals, clean);
        else if (clean)
            reportUnknownLine(text);
    }

    /// Reports what does not belong into a line of text; false when there is such a thing.
    bool checkText()
    {
        const TextFault fault = findTextFault(line());
        if (fault.kind == TextFault::Kind::None)
            return true;

        const unsigned byte = static_cast<unsigned char>(line()[fault.offset]);
        if (fault.kind == TextFault::Kind::NotUtf8)
            report(QclProblem::Encoding, placeAt(fault.offset), 1,
                   fmt::format("The byte 0x{:02X} is not part of UTF-8 text. Expected UTF-8.", byte));
        else
            report(QclProblem::ControlCharacter, placeAt(fault.offset), 1,
                   fmt::format(
                       "The control character 0x{:02X} stands in the text. Expected no control characters "
                       "but tabs and line ends.",
                       byte == 0xC2 ? static_cast<unsigned char>(line()[fault.offset + 1]) : byte));
        return false;
    }

    void reportUnknownLine(std::string_view p_text)
    {
        if (p_text == "include" || p_text.starts_with("include ") || p_text.starts_with("include\t"))
            report(QclProblem::Include, placeOf(p_text), p_text.size(),
                   fmt::format("{} names no file. Expected 'include \"file.qcl\"'.", inQuotes(p_text)));
        else
            report(QclProblem::Parameter, placeOf(p_text), p_text.size(),
                   fmt::format("{} is no line of a section. Expected 'name = value', a section header "
                               "'[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins with '#'.",
                               inQuotes(p_text)));
    }

    void readHeader(std::string_view p_text, bool p_clean)
    {
        m_section = Section::Faulty;
        if (!p_clean)
            return;

        const std::size_t close = p_text.find(']');
        if (close == std::string_view::npos)
            return report(QclProblem::SectionHeader, placeOf(p_text), p_text.size(),
                          fmt::format("The section header {} is not closed. Expected a ']' behind the path.",
                                      inQuotes(p_text)));

        const std::string_view behind = trimmedLeft(p_text.substr(close + 1));
        if (!behind.empty())
            return report(
                QclProblem::SectionHeader, placeOf(behind), behind.size(),
                fmt::format("{} stands behind the ']' of a section header. Expected the end of the line.",
                            inQuotes(behind)));

        const std::string_view inside = p_text.substr(1, close - 1);
        const std::string_view path = trimmed(inside).empty() ? inside.substr(0, 0) : trimmed(inside);
        if (const std::optional<NameFault> fault = findPathFault(path, m_limits))
            return report(*fault, path);

        m_section = Section::Object;
        m_object = m_objectIndex.find(m_document.objects, path);
        if (m_object == NameIndex<PathOf>::k_none)
        {
            m_object = static_cast<std::uint32_t>(m_document.objects.size());
            m_document.objects.push_back({std::string(path), placeOf(path), {}});
            m_objectIndex.addNext(m_document.objects);
            m_parameterIndex.emplace_back();
        }
    }

    void readInclude(std::string_view p_text, bool p_clean)
    {
        m_section = Section::NeededAfterInclude;
        if (!p_clean)
            return;

        const std::size_t open = p_text.find('"');
        const std::size_t close = p_text.find('"', open + 1);
        if (close == std::string_view::npos)
            return report(QclProblem::Include, placeOf(p_text), p_text.size(),
                          fmt::format("{} is not closed. Expected a '\"' behind the path of the file.",
                                      inQuotes(p_text)));

        const std::string_view behind = trimmedLeft(p_text.substr(close + 1));
        if (!behind.empty())
            return report(
                QclProblem::Include, placeOf(behind), behind.size(),
                fmt::format("{} stands behind an include. Expected the end of the line.", inQuotes(behind)));

        const std::string_view named = p_text.substr(open + 1, close - open - 1);
        if (named.empty())
            return report(QclProblem::Include, placeOf(p_text), p_text.size(),
                          "The include names no file. Expected its path between the quotes.");

        includeFile(named);
        m_section = Section::NeededAfterInclude;
    }

    void includeFile(std::string_view p_named)
    {
        const SourcePlace place = placeOf(p_named);
        if (p_named.size() > m_limits.pathBytes)
            return report(QclProblem::PathLength, place, p_named.size(),
                          fmt::format("The path of the included file is {} bytes long. Expected at most {}.",
                                      p_named.size(), m_limits.pathBytes));

        const std::string path = pathFrom(m_document.files[m_place.file].path, p_named);
        const std::string identity = identityOf(path);
        const auto same = std::ranges::find(m_open, identity, &OpenFile::identity);
        if (same != m_open.end())
        {
            std::string chain;
            for (auto file = same; file != m_open.end(); ++file)
                chain += m_document.files[file->number].path + " -> ";
            return report(QclProblem::IncludeCycle, place, p_named.size(),
                          "The file includes itself: " + chain + path + ".");
        }

        if (m_open.size() > m_limits.includeDepth)
            return report(QclProblem::IncludeDepth, place, p_named.size(),
                          fmt::format("The file {} is included at depth {}. Expected at most {}.",
                                      inQuotes(p_named), m_open.size(), m_limits.includeDepth));

        if (++m_filesIncluded > m_limits.includedFiles)
            return report(QclProblem::IncludedFiles, place, p_named.size(),
                          fmt::format("The file {} is one too many. Expected at most {} included files.",
                                      inQuotes(p_named), m_limits.includedFiles));

        std::variant<std::string, ReadFailure> bytes =
            readBytes(path, m_limits.fileBytes - m_bytesRead, true);
        if (const auto* failure = std::get_if<ReadFailure>(&bytes))
            return reportUnread(path, *failure, place, p_named.size());

        readBytesOf(path, std::move(std::get<std::string>(bytes)));
    }

    /// Whether a parameter of that name, which stands on the current line, may be added to the current object.
    bool checkPlaceOfParameter(std::string_view p_name)
    {
        if (const std::optional<NameFault> fault = findParameterNameFault(p_name, m_limits))
        {
            report(*fault, p_name);
            return false;
        }

        switch (m_section)
        {
        case Section::Faulty:
            return false;
        case Section::None:
            report(
                QclProblem::ParameterOutsideSection, placeOf(p_name), p_name.size(),
                fmt::format("The parameter {} belongs to no object. Expected a section header '[/TYPE:name]' "
                            "before it.",
                            inQuotes(p_name)));
            return false;
        case Section::NeededAfterInclude:
            report(QclProblem::SectionAfterInclude, placeOf(p_name), p_name.size(),
                   fmt::format("The parameter {} stands behind an include. Expected a section header "
                               "'[/TYPE:name]' before it.",
                               inQuotes(p_name)));
            return false;
        case Section::Object:
            break;
        }

        const QclObject& object = m_document.objects[m_object];
        const std::uint32_t first = m_parameterIndex[m_object].find(object.parameters, p_name);
        if (first == NameIndex<NameOf>::k_none)
            return true;

        report(QclProblem::DuplicateParameter, placeOf(p_name), p_name.size(),
               fmt::format("The parameter {} is given twice in object {}: in line {} and in line {}.",
                           inQuotes(p_name), inQuotes(object.path),
                           lineFromHere(object.parameters[first].place), m_place.line));
        return false;
    }

    /// A line's number, with its file where that is another one.
    std::string lineFromHere(const SourcePlace& p_place) const
    {
        if (p_place.file == m_place.file)
            return std::to_string(p_place.line);
        return fmt::format("{} of {}", p_place.line, inQuotes(m_document.files[p_place.file].path));
    }

    void readParameter(std::size_t p_equals, bool p_clean)
    {
        const std::string_view before = trimmed(line().substr(0, p_equals));
        const std::string_view name = before.empty() ? line().substr(p_equals, 0) : before;
        const bool wanted = p_clean && checkPlaceOfParameter(name);

        QclParameter parameter;
        if (wanted)
        {
            parameter.name = name;
            parameter.place = placeOf(name);
        }
        if (!readValue(line().substr(p_equals + 1), p_clean, parameter) && wanted)
        {
            parameter.value.clear();
            parameter.pieces.resize(1);
        }
        if (!wanted)
            return;

        QclObject& object = m_document.objects[m_object];
        object.parameters.push_back(std::move(parameter));
        m_parameterIndex[m_object].addNext(object.parameters);
    }

    /// Reads a value from what stands behind the '=' on the current line, and the lines on which it continues.
    ///
    /// @return False when there is something wrong with the value, which has been reported.
    bool readValue(std::string_view p_behindEquals, bool p_clean, QclParameter& p_parameter)
    {
        const SourcePlace begin = placeOf(p_behindEquals);
        bool good = p_clean;
        bool lineClean = p_clean;    // where it is not, that is the line's one problem
        for (std::string_view rest = p_behindEquals;;)
        {
            const std::string_view blanksKept = trimmedLeft(rest);
            std::string_view stretch = trimmedRight(blanksKept);
            const bool continues = stretch.ends_with('\\');
            if (continues)
                stretch.remove_suffix(1);

            if (good && stretch.size() > m_limits.valueBytes - p_parameter.value.size())
            {
                report(QclProblem::ValueLength, placeOf(stretch), 0,
                       fmt::format("The value is too long. Expected at most {} bytes.", m_limits.valueBytes));
                good = false;
            }
            if (good && !stretch.empty())
            {
                p_parameter.pieces.push_back({p_parameter.value.size(), placeOf(stretch)});
                p_parameter.value += stretch;
            }

            if (!continues)
                break;
            if (isLastLine())
            {
                if (lineClean)
                    report(QclProblem::UnfinishedValue, placeAt(trimmedRight(line()).size() - 1), 1,
                           "The file ends inside a value: a backslash continues the value on the next line. "
                           "Expected "
                           "that line.");
                good = false;
                break;
            }
            ++m_place.line;
            lineClean = checkText();
            good = good && lineClean;
            rest = line();
        }

        trimValue(p_parameter, begin);
        return good && checkPlaceholders(p_parameter);
    }

    /// Drops blanks at the end of a value, and pieces that held no more than those.
    static void trimValue(QclParameter& p_parameter, const SourcePlace& p_begin)
    {
        p_parameter.value.resize(trimmedRight(p_parameter.value).size());
        while (!p_parameter.pieces.empty() && p_parameter.pieces.back().offset >= p_parameter.value.size())
            p_parameter.pieces.pop_back();
        if (p_parameter.pieces.empty())
            p_parameter.pieces.push_back({0, p_begin});
    }

    bool checkPlaceholders(const QclParameter& p_parameter)
    {
        const std::string& value = p_parameter.value;
        const std::size_t most = value.size() <= m_limits.shortValueBytes ? m_limits.shortValuePlaceholders
                                                                          : m_limits.longValuePlaceholders;
        std::size_t count = 0;
        for (std::size_t at = 0; at + 1 < value.size(); ++at)
        {
            if (!isPlaceholderThatLaterArgumentsFill(value[at], value[at + 1]) || ++count <= most)
                continue;
            report(
                QclProblem::Placeholders, p_parameter.placeInValue(at), 2,
                fmt::format(
                    "The value holds '{}', which messages would fill, and {} such texts before it. Expected "
                    "at most {} of '%2' to '%5' in a value of this length.",
                    value.substr(at, 2), most, most));
            return false;
        }
        return true;
    }

    QclLimits m_limits;
    QclDocument m_document;
    std::vector<OpenFile> m_open;    // the file that is being read is the last
    SourcePlace m_place;             // the line that is being read; its column says nothing
    Section m_section = Section::None;
    std::uint32_t m_object = 0;    // the current one's position, in a section of an object
    NameIndex<PathOf> m_objectIndex;
    std::vector<NameIndex<NameOf>> m_parameterIndex;    // as many as objects
    std::size_t m_bytesRead = 0;
    std::size_t m_filesIncluded = 0;
    bool m_stopped = false;    // by too many problems
};

}    // namespace

QclDocument readQclFile(const std::string& p_path, const QclLimits& p_limits)
{
    return Reader(p_limits).readFile(p_path);
}

QclDocument readQclText(const std::string& p_name, const std::string& p_text, const QclLimits& p_limits)
{
    return Reader(p_limits).readText(p_name, p_text);
}

}    // namespace qen::standalone
