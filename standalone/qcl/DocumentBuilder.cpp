#include "qcl/DocumentBuilder.h"

#include "qcl/PlainText.h"
#include "text/Blanks.h"

#include <algorithm>
#include <bit>
#include <filesystem>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>
#include <variant>

namespace qen::standalone {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t k_everyLine = std::numeric_limits<std::uint32_t>::max();

std::string_view nameOf(const SectionParameter& p_parameter, std::string_view p_text)
{
    return {p_text.data() + p_parameter.name, p_parameter.nameLength};
}

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

/// The first line of a text, without its end, and how many bytes it takes with it.
std::pair<std::string_view, std::size_t> firstLine(std::string_view p_text)
{
    const std::size_t lineFeed = p_text.find('\n');
    const std::size_t bytes = lineFeed == std::string_view::npos ? p_text.size() : lineFeed + 1;
    std::string_view line = p_text.substr(0, lineFeed);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return {line, bytes};
}

/// A parameter of a section as one of the document.
///
/// @param p_place  Where the section begins.
/// @param p_text   The section's text.
inline QclParameter placed(const SectionParameter& p_parameter, const ParsedSection& p_section,
                           SourcePlace p_place, const char* p_text)
{
    const std::string_view name(p_text + p_parameter.name, p_parameter.nameLength);
    const SourcePlace place {p_place.file, p_place.line + p_parameter.line, p_parameter.nameColumn};
    if (p_parameter.joinedPlus1 != 0)
        return {name, *p_section.joinedValues[p_parameter.joinedPlus1 - 1], place};
    return {name, std::string_view(p_text + p_parameter.value, p_parameter.valueLength), place};
}

}    // namespace

DocumentBuilder::DocumentBuilder(const QclLimits& p_limits, SectionSource& p_sections)
    : m_limits(p_limits), m_sections(p_sections)
{
    // Lines, columns and positions are counted in 32 bits, and parameters hold the number of their file in 16.
    m_limits.fileBytes =
        std::min<std::size_t>(m_limits.fileBytes, std::numeric_limits<std::uint32_t>::max() - 1);
    m_limits.includedFiles = std::min(m_limits.includedFiles, QclParameter::k_files - 1);
}

void DocumentBuilder::expectObjects(std::size_t p_count)
{
    m_document.objects.reserve(p_count);
    m_objectIndex.reserve(p_count);
}

std::uint32_t DocumentBuilder::ObjectIndex::find(const std::vector<QclObject>& p_objects,
                                                 std::string_view p_path, std::size_t p_hash) const
{
    if (m_slots.empty())
        return k_none;
    const std::size_t mask = m_slots.size() - 1;
    const auto part = static_cast<std::uint32_t>(p_hash);
    for (std::size_t at = part & mask; m_slots[at].positionPlus1 != 0; at = (at + 1) & mask)
        if (m_slots[at].hash == part && p_objects[m_slots[at].positionPlus1 - 1].path == p_path)
            return m_slots[at].positionPlus1 - 1;
    return k_none;
}

void DocumentBuilder::ObjectIndex::reserve(std::size_t p_count)
{
    constexpr std::size_t k_fewest = 64;
    if (2 * p_count <= m_slots.size())
        return;
    const std::vector<Slot> known =
        std::exchange(m_slots, std::vector<Slot>(std::bit_ceil(std::max(k_fewest, 2 * p_count))));
    for (const Slot& slot : known)
        if (slot.positionPlus1 != 0)
            place(slot);
}

void DocumentBuilder::ObjectIndex::addNext(std::size_t p_hash)
{
    ++m_count;
    reserve(m_count);
    place({static_cast<std::uint32_t>(p_hash), m_count});
}

void DocumentBuilder::ObjectIndex::place(const Slot& p_slot)
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = p_slot.hash & mask;
    while (m_slots[at].positionPlus1 != 0)
        at = (at + 1) & mask;
    m_slots[at] = p_slot;
}

QclDocument DocumentBuilder::readFile(const std::string& p_path)
{
    std::variant<FileBytes, ReadFailure> bytes = readBytes(p_path, m_limits.fileBytes, false);
    if (const auto* failure = std::get_if<ReadFailure>(&bytes))
    {
        m_document.files.emplace_back(p_path);
        reportUnread(p_path, *failure, {}, 0);
    }
    else
        readBytesOf(p_path, std::move(std::get<FileBytes>(bytes)));
    return std::move(m_document);
}

QclDocument DocumentBuilder::readText(const std::string& p_name, const std::string& p_text)
{
    if (p_text.size() > m_limits.fileBytes)
    {
        m_document.files.emplace_back(p_name);
        reportUnread(p_name, {ReadFailure::Kind::TooLarge, {}}, {}, 0);
    }
    else
        readBytesOf(p_name, FileBytes(p_text));
    return std::move(m_document);
}

/// Reads a file whose bytes are there, in place.
void DocumentBuilder::readBytesOf(const std::string& p_path, FileBytes p_bytes)
{
    m_bytesRead += p_bytes.view().size();
    const auto number = static_cast<std::uint32_t>(m_document.files.size());
    if (isBinary(p_bytes.view()))
    {
        m_document.files.emplace_back(p_path);
        report(QclProblem::FileBinary, {number, 0, 0}, 0,
               fmt::format("The file {} is no text: it holds zero bytes. Expected UTF-8.", inQuotes(p_path)));
        return;
    }

    m_document.files.emplace_back(p_path, withoutByteOrderMark(std::move(p_bytes)));
    const std::string_view outerLine = m_line;
    const SourcePlace outerPlace = std::exchange(m_place, {number, 1, 1});
    m_open.push_back({number, identityOf(p_path)});
    readSections(m_document.files.back().text());
    m_open.pop_back();
    m_place = outerPlace;
    m_line = outerLine;
}

void DocumentBuilder::readSections(std::string_view p_text)
{
    SectionKind kind = SectionKind::FileBegin;
    while (!p_text.empty() && !m_stopped)
    {
        const LineStart start = lineStart(p_text);
        if (start == LineStart::Include)
        {
            const auto [line, bytes] = firstLine(p_text);
            readIncludeLine(line);
            ++m_place.line;
            p_text.remove_prefix(bytes);
            kind = SectionKind::AfterInclude;
            continue;
        }
        if (start == LineStart::Header)
            kind = SectionKind::Headed;
        const ParsedSection& section = m_sections.section(kind, p_text);
        addSection(section, p_text);
        m_place.line += section.lines;
        p_text.remove_prefix(section.bytes);
    }
}

/// Adds what a section says that stands at the beginning of a text.
void DocumentBuilder::addSection(const ParsedSection& p_section, std::string_view p_text)
{
    if (!p_section.hasObject)
    {
        addProblems(p_section, p_text, nullptr, {});
        return;
    }

    const std::string_view path = p_text.substr(p_section.path, p_section.pathLength);
    const std::uint32_t known = m_objectIndex.find(m_document.objects, path, p_section.pathHash);
    if (known != ObjectIndex::k_none)
        return addToObject(known, p_section, p_text);

    QclObject& object = m_document.objects.emplace_back();
    object.path = std::string(path);
    object.place = {m_place.file, m_place.line, p_section.pathColumn};
    m_objectIndex.addNext(p_section.pathHash);

    const std::uint32_t lastLine =
        p_section.problems.empty() ? k_everyLine : addProblems(p_section, p_text, &object, {});
    const std::size_t count = lastLine == k_everyLine
                                  ? p_section.parameters.size()
                                  : static_cast<std::size_t>(std::ranges::count_if(
                                        p_section.parameters, [&](const SectionParameter& p_parameter) {
                                            return p_parameter.line <= lastLine;
                                        }));
    object.parameters.resize(count);
    const SectionParameter* from = p_section.parameters.data();
    const SourcePlace place = m_place;
    for (QclParameter& parameter : object.parameters)
        parameter = placed(*from++, p_section, place, p_text.data());
    keepJoinedValues(p_section);
    object.content = m_stopped ? 0 : m_sections.content(0);
}

/// Adds a section to an object that has an earlier one.
void DocumentBuilder::addToObject(std::uint32_t p_object, const ParsedSection& p_section,
                                  std::string_view p_text)
{
    QclObject& object = m_document.objects[p_object];
    const auto [reopened, isFirstTime] = m_reopenedObjects.try_emplace(p_object);
    Names& names = reopened->second;
    if (isFirstTime)
        names.rebuild(object.parameters);

    std::vector<std::uint32_t> earlier;
    earlier.reserve(p_section.parameters.size());
    for (const SectionParameter& parameter : p_section.parameters)
        earlier.push_back(names.find(object.parameters, nameOf(parameter, p_text)));

    const std::uint32_t lastLine = addProblems(p_section, p_text, &object, earlier);
    for (std::size_t number = 0; number < earlier.size(); ++number)
    {
        const SectionParameter& parameter = p_section.parameters[number];
        if (earlier[number] != Names::k_none || parameter.line > lastLine)
            continue;
        object.parameters.push_back(placed(parameter, p_section, m_place, p_text.data()));
        names.addNext(object.parameters);
    }
    keepJoinedValues(p_section);
    object.content = m_stopped ? 0 : m_sections.content(object.content);
}

void DocumentBuilder::keepJoinedValues(const ParsedSection& p_section)
{
    if (p_section.joinedValues.empty())
        return;
    m_document.joinedValues.insert(m_document.joinedValues.end(), p_section.joinedValues.begin(),
                                   p_section.joinedValues.end());
}

/// Reports the problems of a section, in the order of the text.
///
/// @param p_object   To which the section belongs; null for none.
/// @param p_earlier  For each of the section's parameters, which of the object's earlier ones has its name; empty where
///                   the object has no earlier ones.
/// @return The last line of the section that is read: reading may end at a problem.
std::uint32_t DocumentBuilder::addProblems(const ParsedSection& p_section, std::string_view p_text,
                                           const QclObject* p_object,
                                           const std::vector<std::uint32_t>& p_earlier)
{
    const std::vector<SectionParameter>& parameters = p_section.parameters;
    const std::string_view objectPath = p_object ? std::string_view(p_object->path) : std::string_view();
    const auto placeOfFirst = [&](std::uint32_t p_parameter) {
        if (p_object && !p_earlier.empty() && p_earlier[p_parameter] != Names::k_none)
            return p_object->parameters[p_earlier[p_parameter]].place();
        return SourcePlace {m_place.file, m_place.line + parameters[p_parameter].line, 0};
    };
    const auto reportTwice = [&](std::uint32_t p_first, std::uint32_t p_line, std::uint32_t p_column) {
        const std::string_view name = nameOf(parameters[p_first], p_text);
        report(QclProblem::DuplicateParameter, {m_place.file, m_place.line + p_line, p_column}, name.size(),
               fmt::format("The parameter {} is given twice in object {}: in line {} and in line {}.",
                           inQuotes(name), inQuotes(objectPath), lineFromHere(placeOfFirst(p_first)),
                           m_place.line + p_line));
        return p_line;
    };

    auto problem = p_section.problems.begin();
    std::uint32_t twice = 0;    // the next parameter that may stand in an earlier section
    const auto goToNextTwice = [&] {
        while (twice < p_earlier.size() && p_earlier[twice] == Names::k_none)
            ++twice;
        return twice < p_earlier.size();
    };
    while (goToNextTwice() || problem != p_section.problems.end())
    {
        std::uint32_t line = 0;
        if (twice < p_earlier.size() && (problem == p_section.problems.end() ||
                                         std::tie(parameters[twice].line, parameters[twice].nameColumn) <
                                             std::tie(problem->line, problem->column)))
        {
            line = reportTwice(twice, parameters[twice].line, parameters[twice].nameColumn);
            ++twice;
        }
        else
        {
            if (problem->problem == QclProblem::DuplicateParameter)
                line = reportTwice(problem->first, problem->line, problem->column);
            else
                report(problem->problem,
                       {m_place.file, m_place.line + (line = problem->line), problem->column},
                       problem->length, problem->message);
            ++problem;
        }
        if (m_stopped)
            return line;
    }
    return k_everyLine;
}

/// Reads the line of an include, and what it includes.
void DocumentBuilder::readIncludeLine(std::string_view p_line)
{
    m_line = p_line;
    if (const std::optional<LineFault> fault = findLineFault(p_line))
        return report(fault->problem, placeOf(p_line.substr(fault->offset)), 1, fault->message);

    const std::string_view text = trimmed(p_line);
    const std::size_t open = text.find('"');
    const std::size_t close = text.find('"', open + 1);
    if (close == std::string_view::npos)
        return report(
            QclProblem::Include, placeOf(text), text.size(),
            fmt::format("{} is not closed. Expected a '\"' behind the path of the file.", inQuotes(text)));

    const std::string_view behind = trimmedLeft(text.substr(close + 1));
    if (!behind.empty())
        return report(
            QclProblem::Include, placeOf(behind), behind.size(),
            fmt::format("{} stands behind an include. Expected the end of the line.", inQuotes(behind)));

    const std::string_view named = text.substr(open + 1, close - open - 1);
    if (named.empty())
        return report(QclProblem::Include, placeOf(text), text.size(),
                      "The include names no file. Expected its path between the quotes.");

    includeFile(named);
}

void DocumentBuilder::includeFile(std::string_view p_named)
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

    std::variant<FileBytes, ReadFailure> bytes = readBytes(path, m_limits.fileBytes - m_bytesRead, true);
    if (const auto* failure = std::get_if<ReadFailure>(&bytes))
        return reportUnread(path, *failure, place, p_named.size());

    readBytesOf(path, std::move(std::get<FileBytes>(bytes)));
}

/// The place of a stretch of the current line.
SourcePlace DocumentBuilder::placeOf(std::string_view p_stretch) const
{
    return {m_place.file, m_place.line, static_cast<std::uint32_t>(p_stretch.data() - m_line.data() + 1)};
}

/// A line's number, with its file where that is another one.
std::string DocumentBuilder::lineFromHere(const SourcePlace& p_place) const
{
    if (p_place.file == m_place.file)
        return std::to_string(p_place.line);
    return fmt::format("{} of {}", p_place.line, inQuotes(m_document.files[p_place.file].path));
}

void DocumentBuilder::report(QclProblem p_problem, const SourcePlace& p_place, std::size_t p_length,
                             std::string p_message)
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

void DocumentBuilder::reportUnread(const std::string& p_path, const ReadFailure& p_failure,
                                   const SourcePlace& p_place, std::size_t p_length)
{
    if (p_failure.kind == ReadFailure::Kind::TooLarge)
        report(QclProblem::FileSize, p_place, p_length,
               fmt::format("The file {} is too large. A file and all that it includes may have {} bytes.",
                           inQuotes(p_path), m_limits.fileBytes));
    else
        report(QclProblem::FileUnreadable, p_place, p_length,
               fmt::format("The file {} cannot be read: {}.", inQuotes(p_path), p_failure.reason));
}

}    // namespace qen::standalone
