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
#include <unordered_map>
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

    /// A parameter's name that is in order, with its latest object, and where it stands there.
    struct KnownName {
        std::string text;
        std::uint32_t follower = 0;    // the name that stood behind it the last time
        std::uint32_t object = 0xFFFFFFFF;
        std::uint32_t parameter = 0;
    };

    struct TextOf {
        std::string_view operator()(const KnownName& p_name) const { return p_name.text; }
    };

    std::string_view line() const { return m_line; }

    void goToLine(std::uint32_t p_number)
    {
        m_place.line = p_number;
        m_line = m_document.files[m_place.file].line(p_number);
    }

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
        {
            goToLine(m_place.line);
            readLine();
        }
        m_open.pop_back();
        m_place = outerPlace;
        goToLine(m_place.line);    // whose file may have moved
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
        const std::size_t parametersBefore =
            m_document.objects.empty() ? 0 : m_document.objects.back().parameters.size();
        m_object = m_objectIndex.find(m_document.objects, path);
        if (m_object == NameIndex<PathOf>::k_none)
        {
            m_object = static_cast<std::uint32_t>(m_document.objects.size());
            QclObject& object = m_document.objects.emplace_back();
            object.path = path;
            object.place = placeOf(path);
            object.parameters.reserve(parametersBefore);    // all in all no more than there are
            m_objectIndex.addNext(m_document.objects);
            m_reopened = nullptr;
            return;
        }
        const auto [reopened, isFirstTime] = m_reopenedObjects.try_emplace(m_object);
        m_reopened = &reopened->second;
        if (isFirstTime)
            m_reopened->rebuild(m_document.objects[m_object].parameters);
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

    /// The known name with that text, made known where it is in order; null where it is not, which is reported.
    KnownName* nameInOrder(std::string_view p_name)
    {
        // Names mostly follow one another as they did before.
        if (m_latestName < m_names.size())
            if (const std::uint32_t next = m_names[m_latestName].follower; m_names[next].text == p_name)
                return &m_names[m_latestName = next];

        std::uint32_t number = m_nameIndex.find(m_names, p_name);
        if (number == NameIndex<TextOf>::k_none)
        {
            if (const std::optional<NameFault> fault = findParameterNameFault(p_name, m_limits))
            {
                report(*fault, p_name);
                return nullptr;
            }
            number = static_cast<std::uint32_t>(m_names.size());
            m_names.emplace_back().text = p_name;
            m_nameIndex.addNext(m_names);
        }
        if (m_latestName < m_names.size())
            m_names[m_latestName].follower = number;
        m_latestName = number;
        return &m_names[number];
    }

    /// Where a name stands among the parameters of the current object; none where it does not.
    std::optional<std::size_t> positionInObject(const KnownName& p_name) const
    {
        if (p_name.object == m_object)
            return p_name.parameter;
        if (!m_reopened)    // all its parameters stand in this section
            return std::nullopt;
        const std::uint32_t position = m_reopened->find(m_document.objects[m_object].parameters, p_name.text);
        return position == NameIndex<NameOf>::k_none ? std::nullopt : std::optional<std::size_t>(position);
    }

    /// Adds a parameter of that name, which stands on the current line, to the current object; null, with a report,
    /// where that may not be.
    QclParameter* addParameter(std::string_view p_name)
    {
        KnownName* const name = nameInOrder(p_name);
        if (!name)
            return nullptr;

        switch (m_section)
        {
        case Section::Faulty:
            return nullptr;
        case Section::None:
            report(
                QclProblem::ParameterOutsideSection, placeOf(p_name), p_name.size(),
                fmt::format("The parameter {} belongs to no object. Expected a section header '[/TYPE:name]' "
                            "before it.",
                            inQuotes(p_name)));
            return nullptr;
        case Section::NeededAfterInclude:
            report(QclProblem::SectionAfterInclude, placeOf(p_name), p_name.size(),
                   fmt::format("The parameter {} stands behind an include. Expected a section header "
                               "'[/TYPE:name]' before it.",
                               inQuotes(p_name)));
            return nullptr;
        case Section::Object:
            break;
        }

        QclObject& object = m_document.objects[m_object];
        if (const std::optional<std::size_t> first = positionInObject(*name))
        {
            report(QclProblem::DuplicateParameter, placeOf(p_name), p_name.size(),
                   fmt::format("The parameter {} is given twice in object {}: in line {} and in line {}.",
                               inQuotes(p_name), inQuotes(object.path),
                               lineFromHere(object.parameters[*first].place), m_place.line));
            return nullptr;
        }

        name->object = m_object;
        name->parameter = static_cast<std::uint32_t>(object.parameters.size());
        QclParameter& parameter = object.parameters.emplace_back();
        parameter.name = p_name;
        parameter.place = placeOf(p_name);
        if (m_reopened)
            m_reopened->addNext(object.parameters);
        return &parameter;
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
        QclParameter* const parameter = p_clean ? addParameter(name) : nullptr;
        if (!parameter)
            m_unwanted.value.clear();

        QclParameter& read = parameter ? *parameter : m_unwanted;
        if (!readValue(line().substr(p_equals + 1), p_clean, read))
        {
            read.value.clear();
            read.pieces = {read.pieces.front()};
        }
    }

    /// Reads a value from what stands behind the '=' on the current line, and the lines on which it continues.
    ///
    /// @return False when there is something wrong with the value, which has been reported.
    bool readValue(std::string_view p_behindEquals, bool p_clean, QclParameter& p_parameter)
    {
        const SourcePlace begin = placeOf(p_behindEquals);
        m_pieces.clear();
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
                m_pieces.push_back({p_parameter.value.size(), placeOf(stretch)});
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
            goToLine(m_place.line + 1);
            lineClean = checkText();
            good = good && lineClean;
            rest = line();
        }

        finishValue(p_parameter, begin);
        return good && checkPlaceholders(p_parameter);
    }

    /// Drops blanks at the end of a value, and pieces that held no more than those.
    void finishValue(QclParameter& p_parameter, const SourcePlace& p_begin)
    {
        p_parameter.value.resize(trimmedRight(p_parameter.value).size());
        while (!m_pieces.empty() && m_pieces.back().offset >= p_parameter.value.size())
            m_pieces.pop_back();
        if (m_pieces.empty())
            m_pieces.push_back({0, p_begin});
        p_parameter.pieces = QclParameter::Pieces(m_pieces);
    }

    bool checkPlaceholders(const QclParameter& p_parameter)
    {
        const std::string& value = p_parameter.value;
        const std::size_t most = value.size() <= m_limits.shortValueBytes ? m_limits.shortValuePlaceholders
                                                                          : m_limits.longValuePlaceholders;
        std::size_t count = 0;
        for (std::size_t at = value.find('%'); at != std::string::npos; at = value.find('%', at + 1))
        {
            if (at + 1 == value.size() || !isPlaceholderThatLaterArgumentsFill(value[at], value[at + 1]) ||
                ++count <= most)
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
    std::string_view m_line;         // its text
    Section m_section = Section::None;
    std::uint32_t m_object = 0;    // the current one's position, in a section of an object
    NameIndex<PathOf> m_objectIndex;
    std::unordered_map<std::uint32_t, NameIndex<NameOf>>
        m_reopenedObjects;                      // those that have several sections
    NameIndex<NameOf>* m_reopened = nullptr;    // of the current object; null in its first section
    std::vector<KnownName> m_names;
    NameIndex<TextOf> m_nameIndex;
    std::uint32_t m_latestName = 0;
    std::vector<QclParameter::Piece> m_pieces;    // of the value that is being read
    QclParameter m_unwanted;                      // takes what belongs to no object
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
