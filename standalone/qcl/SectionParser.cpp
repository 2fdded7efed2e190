#include "qcl/SectionParser.h"

#include "qcl/NameSyntax.h"
#include "qcl/PlainText.h"
#include "text/Blanks.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <functional>
#include <optional>
#include <utility>

namespace qen::standalone {

namespace {

constexpr std::string_view k_include = "include";

/// As much as is examined at once for what is not plain.
constexpr std::size_t k_examinedAtOnce = std::size_t {1} << 14;

std::uint32_t toNumber(std::size_t p_count) { return static_cast<std::uint32_t>(p_count); }

bool isInclude(std::string_view p_trimmed)
{
    return p_trimmed.starts_with(k_include) &&
           trimmedLeft(p_trimmed.substr(k_include.size())).starts_with('"');
}

/// Whether a value goes on in the next line behind such an end.
bool continues(std::string_view p_line) { return trimmedRight(p_line).ends_with('\\'); }

bool isPlaceholderThatLaterArgumentsFill(char p_first, char p_second)
{
    return p_first == '%' && p_second >= '2' && p_second <= '5';
}

}    // namespace

LineStart lineStartBehindBlanks(std::string_view p_text)
{
    std::size_t at = 0;
    while (at < p_text.size() && isBlank(p_text[at]) && p_text[at] != '\n')
        ++at;
    if (at == p_text.size())
        return LineStart::Other;
    if (p_text[at] == '[')
        return LineStart::Header;
    if (p_text[at] != k_include.front())
        return LineStart::Other;
    const std::string_view line = p_text.substr(at, p_text.find('\n', at) - at);
    return isInclude(line) ? LineStart::Include : LineStart::Other;
}

std::optional<LineFault> findLineFault(std::string_view p_line)
{
    const TextFault fault = findTextFault(p_line);
    if (fault.kind == TextFault::Kind::None)
        return std::nullopt;

    const unsigned byte = static_cast<unsigned char>(p_line[fault.offset]);
    if (fault.kind == TextFault::Kind::NotUtf8)
        return LineFault {QclProblem::Encoding,
                          fmt::format("The byte 0x{:02X} is not part of UTF-8 text. Expected UTF-8.", byte),
                          fault.offset};
    return LineFault {
        QclProblem::ControlCharacter,
        fmt::format("The control character 0x{:02X} stands in the text. Expected no control characters "
                    "but tabs and line ends.",
                    byte == 0xC2 ? static_cast<unsigned char>(p_line[fault.offset + 1]) : byte),
        fault.offset};
}

std::size_t sectionLength(SectionKind p_kind, std::string_view p_text)
{
    std::string_view rest = p_text;
    const auto takeLine = [&] {
        const std::size_t lineFeed = rest.find('\n');
        const std::string_view line = rest.substr(0, lineFeed);
        rest.remove_prefix(lineFeed == std::string_view::npos ? rest.size() : lineFeed + 1);
        return line;
    };

    if (p_kind == SectionKind::Headed)
        takeLine();
    while (!rest.empty() && lineStart(rest) == LineStart::Other)
    {
        const std::string_view line = trimmedLeft(takeLine());
        if (line.starts_with('#'))
            continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            continue;
        for (std::string_view value = line.substr(equals + 1); continues(value) && !rest.empty();)
            value = takeLine();
    }
    return p_text.size() - rest.size();
}

void ParsedSection::clear()
{
    parameters.clear();
    joinedValues.clear();
    problems.clear();
    bytes = lines = path = pathLength = 0;
    hasObject = endsWithFile = false;
}

void SectionParser::parse(SectionKind p_kind, std::string_view p_text, ParsedSection& p_section)
{
    p_section.clear();
    ++m_sections;
    m_section = &p_section;
    m_kind = p_kind;
    m_begin = m_next = p_text.data();
    m_end = m_begin + p_text.size();
    m_lineNumber = 0;
    // The section before mostly stood in front of this one, and more was examined than it had.
    const bool isExamined =
        m_examined.begin <= m_begin && m_begin < m_examined.end && m_examined.end <= m_end;
    if (!isExamined)
        m_examined = {m_begin, m_begin, true, false};

    for (; hasMore() && !hasTooManyProblems(); ++m_lineNumber)
    {
        if (readPredictedParameter())    // which is no header and no include
            continue;
        const bool isHeader = p_kind == SectionKind::Headed && m_lineNumber == 0;
        if (!isHeader && lineStart({m_next, m_end}) != LineStart::Other)
            break;
        takeLine();
        readLine();
    }
    p_section.bytes = toNumber(static_cast<std::size_t>(m_next - m_begin));
    p_section.lines = m_lineNumber;
    p_section.endsWithFile = p_section.endsWithFile || m_next == m_begin || m_next[-1] != '\n';
}

void SectionParser::takeLine()
{
    const auto rest = static_cast<std::size_t>(m_end - m_next);
    const char* const begin = m_next;
    const auto* const lineFeed = static_cast<const char*>(std::memchr(begin, '\n', rest));
    const char* end = lineFeed ? lineFeed : m_end;
    m_next = lineFeed ? lineFeed + 1 : m_end;
    if (end > m_examined.end)
        examine(begin, end);
    if (end != begin && end[-1] == '\r')
        --end;
    m_line = {begin, end};
}

/// Looks through the text from the beginning of a line to its end, and mostly some more.
void SectionParser::examine(const char* p_lineBegin, const char* p_lineEnd)
{
    const auto rest = static_cast<std::size_t>(m_end - p_lineBegin);
    const auto least = static_cast<std::size_t>(p_lineEnd - p_lineBegin);
    const std::size_t length = std::min(rest, std::max(least, k_examinedAtOnce));
    const TextContents contents = contentsOf({p_lineBegin, length});
    m_examined = {p_lineBegin, p_lineBegin + length, contents.isPlain, contents.hasPercent};
}

/// Reports what does not belong into a line of text; false when there is such a thing.
bool SectionParser::checkText()
{
    if (m_examined.isPlain)
        return true;
    const std::optional<LineFault> fault = findLineFault(m_line);
    if (fault)
        report(fault->problem, m_line.substr(fault->offset, 1), fault->message);
    return !fault;
}

std::uint32_t SectionParser::offsetOf(std::string_view p_stretch) const
{
    return toNumber(static_cast<std::size_t>(p_stretch.data() - m_begin));
}

std::uint32_t SectionParser::columnOf(std::string_view p_stretch) const
{
    return toNumber(static_cast<std::size_t>(p_stretch.data() - m_line.data())) + 1;
}

/// Keeps no more problems than it takes for reading to end at this section.
void SectionParser::add(SectionProblem p_problem)
{
    if (!hasTooManyProblems())
        m_section->problems.push_back(std::move(p_problem));
}

/// Reports a stretch of the current line.
void SectionParser::report(QclProblem p_problem, std::string_view p_stretch, std::string p_message)
{
    add({p_problem, m_lineNumber, columnOf(p_stretch), toNumber(p_stretch.size()), std::move(p_message), 0});
}

void SectionParser::report(const NameFault& p_fault, std::string_view p_name)
{
    add({p_fault.problem, m_lineNumber, columnOf(p_name) + toNumber(p_fault.offset), toNumber(p_fault.length),
         p_fault.message, 0});
}

void SectionParser::readLine()
{
    if (m_kind == SectionKind::Headed && m_lineNumber == 0)
    {
        readHeader(trimmed(m_line), checkText());
        return;
    }

    const bool clean = checkText();
    const std::string_view text = trimmedLeft(m_line);
    if (text.empty() || text.front() == '#')
        return;

    if (const std::size_t equals = m_line.find('='); equals != std::string_view::npos)
    {
        const std::string_view name = trimmed(m_line.substr(0, equals));
        return readParameter(name.empty() ? m_line.substr(equals, 0) : name, m_line.substr(equals + 1),
                             clean);
    }
    if (clean)
        reportUnknownLine(trimmedRight(text));
}

void SectionParser::reportUnknownLine(std::string_view p_text)
{
    if (p_text == "include" || p_text.starts_with("include ") || p_text.starts_with("include\t"))
        report(QclProblem::Include, p_text,
               fmt::format("{} names no file. Expected 'include \"file.qcl\"'.", inQuotes(p_text)));
    else
        report(QclProblem::Parameter, p_text,
               fmt::format("{} is no line of a section. Expected 'name = value', a section header "
                           "'[/TYPE:name]', 'include \"file.qcl\"' or a comment that begins with '#'.",
                           inQuotes(p_text)));
}

void SectionParser::readHeader(std::string_view p_text, bool p_clean)
{
    if (!p_clean)
        return;

    const std::size_t close = p_text.find(']');
    if (close == std::string_view::npos)
        return report(QclProblem::SectionHeader, p_text,
                      fmt::format("The section header {} is not closed. Expected a ']' behind the path.",
                                  inQuotes(p_text)));

    const std::string_view behind = trimmedLeft(p_text.substr(close + 1));
    if (!behind.empty())
        return report(
            QclProblem::SectionHeader, behind,
            fmt::format("{} stands behind the ']' of a section header. Expected the end of the line.",
                        inQuotes(behind)));

    const std::string_view inside = p_text.substr(1, close - 1);
    const std::string_view path = trimmed(inside).empty() ? inside.substr(0, 0) : trimmed(inside);
    if (const std::optional<NameFault> fault = findPathFault(path, m_limits))
        return report(*fault, path);

    m_section->hasObject = true;
    m_section->path = offsetOf(path);
    m_section->pathLength = toNumber(path.size());
    m_section->pathHash = std::hash<std::string_view> {}(path);
    m_section->pathColumn = columnOf(path);
}

/// Reads the next line at once where it is what most lines are: a parameter with the name that stood behind the latest
/// one before, and a value about which there is nothing to say. Otherwise takes nothing: the same line is then read step
/// by step, and gives the same.
bool SectionParser::readPredictedParameter()
{
    if (!m_section->hasObject || m_names.empty())
        return false;
    const std::uint32_t number = m_names[m_latestName].follower;
    KnownName& name = m_names[number];
    const auto rest = static_cast<std::size_t>(m_end - m_next);
    if (name.section == m_sections || rest <= name.text.size() ||
        std::memcmp(m_next, name.text.data(), name.text.size()) != 0)
        return false;

    const char* value = m_next + name.text.size();
    while (value != m_end && *value == ' ')
        ++value;
    if (value == m_end || *value != '=')
        return false;
    ++value;

    const auto* const lineFeed =
        static_cast<const char*>(std::memchr(value, '\n', static_cast<std::size_t>(m_end - value)));
    if (!lineFeed)
        return false;
    if (lineFeed > m_examined.end)
        examine(m_next, lineFeed);
    if (!m_examined.isPlain || m_examined.hasPercent)
        return false;

    const char* const behindEquals = value;
    const char* valueEnd = lineFeed;
    while (value != valueEnd && isBlank(*value))
        ++value;
    while (value != valueEnd && isBlank(valueEnd[-1]))
        --valueEnd;
    const auto length = static_cast<std::size_t>(valueEnd - value);
    if (length == 0)
        value = behindEquals;
    else if (valueEnd[-1] == '\\' || length > m_limits.valueBytes)
        return false;

    m_latestName = number;
    name.section = m_sections;
    name.parameter = toNumber(m_section->parameters.size());
    m_section->parameters.push_back(
        {toNumber(static_cast<std::size_t>(m_next - m_begin)), toNumber(name.text.size()),
         toNumber(static_cast<std::size_t>(value - m_begin)), toNumber(length), m_lineNumber, 1, 0});
    m_next = lineFeed + 1;
    return true;
}

/// The known name with that text, made known where it is in order; null where it is not, which is reported.
SectionParser::KnownName* SectionParser::nameInOrder(std::string_view p_name)
{
    // Names mostly follow one another as they did before.
    if (!m_names.empty())
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
        number = toNumber(m_names.size());
        m_names.emplace_back().text = p_name;
        m_nameIndex.addNext(m_names);
    }
    m_names[m_latestName].follower = number;
    m_latestName = number;
    return &m_names[number];
}

/// Adds a parameter of that name, which stands on the current line; null where that may not be, which is reported.
SectionParameter* SectionParser::addParameter(std::string_view p_name)
{
    KnownName* const name = nameInOrder(p_name);
    if (!name)
        return nullptr;

    if (m_kind == SectionKind::FileBegin)
        report(QclProblem::ParameterOutsideSection, p_name,
               fmt::format("The parameter {} belongs to no object. Expected a section header '[/TYPE:name]' "
                           "before it.",
                           inQuotes(p_name)));
    else if (m_kind == SectionKind::AfterInclude)
        report(QclProblem::SectionAfterInclude, p_name,
               fmt::format("The parameter {} stands behind an include. Expected a section header "
                           "'[/TYPE:name]' before it.",
                           inQuotes(p_name)));
    if (!m_section->hasObject)
        return nullptr;

    if (name->section == m_sections)
    {
        add({QclProblem::DuplicateParameter,
             m_lineNumber,
             columnOf(p_name),
             toNumber(p_name.size()),
             {},
             name->parameter});
        return nullptr;
    }
    name->section = m_sections;
    name->parameter = toNumber(m_section->parameters.size());

    SectionParameter& parameter = m_section->parameters.emplace_back();
    parameter.name = offsetOf(p_name);
    parameter.nameLength = toNumber(p_name.size());
    parameter.line = m_lineNumber;
    parameter.nameColumn = columnOf(p_name);
    return &parameter;
}

/// Reads a parameter, and the lines on which its value continues.
///
/// @param p_clean  Whether the line holds nothing that does not belong into a text.
void SectionParser::readParameter(std::string_view p_name, std::string_view p_behindEquals, bool p_clean)
{
    SectionParameter* const parameter = p_clean ? addParameter(p_name) : nullptr;

    if (continues(p_behindEquals))
        return readJoinedValue(p_behindEquals, p_clean, parameter);

    const std::string_view value = trimmed(p_behindEquals);
    SectionParameter unwanted;
    SectionParameter& read = parameter ? *parameter : unwanted;
    read.value = offsetOf(p_behindEquals);
    if (value.empty() || !p_clean)
        return;
    if (value.size() > m_limits.valueBytes)
        return reportTooLong(value);

    read.value = offsetOf(value);
    if (m_examined.hasPercent)
        if (const std::size_t at = findTooManyPlaceholders(value); at != std::string_view::npos)
            return reportPlaceholder(value, at, m_lineNumber, columnOf(value.substr(at)));
    read.valueLength = toNumber(value.size());
}

/// Reads a value from what stands behind the '=' on the current line, and the lines on which it continues.
///
/// @param p_parameter  Null where there is none to which the value belongs.
void SectionParser::readJoinedValue(std::string_view p_behindEquals, bool p_clean,
                                    SectionParameter* p_parameter)
{
    const auto joined = std::make_shared<QclJoinedValue>();
    const std::uint32_t firstLine = m_lineNumber;
    const std::uint32_t firstColumn = columnOf(p_behindEquals);
    bool good = p_clean;
    bool lineClean = p_clean;    // where it is not, that is the line's one problem
    for (std::string_view rest = p_behindEquals;;)
    {
        std::string_view stretch = trimmed(rest);
        const bool goesOn = continues(stretch);
        if (goesOn)
            stretch.remove_suffix(1);

        if (good && stretch.size() > m_limits.valueBytes - joined->text.size())
        {
            reportTooLong(stretch);
            good = false;
        }
        if (good && !stretch.empty())
        {
            joined->pieces.push_back({joined->text.size(), m_lineNumber - firstLine, columnOf(stretch)});
            joined->text += stretch;
        }

        if (!goesOn)
            break;
        if (!hasMore())
        {
            m_section->endsWithFile = true;
            if (lineClean)
                report(QclProblem::UnfinishedValue,
                       trimmedRight(m_line).substr(trimmedRight(m_line).size() - 1),
                       "The file ends inside a value: a backslash continues the value on the next line. "
                       "Expected "
                       "that line.");
            good = false;
            break;
        }
        ++m_lineNumber;
        takeLine();
        lineClean = checkText();
        good = good && lineClean;
        rest = m_line;
    }

    // Blanks at the end are no part of the value, nor are pieces that hold no more than those.
    joined->text.resize(trimmedRight(joined->text).size());
    while (!joined->pieces.empty() && joined->pieces.back().offset >= joined->text.size())
        joined->pieces.pop_back();
    if (joined->pieces.empty())
        joined->pieces.push_back({0, 0, firstColumn});

    if (good)
        if (const std::size_t at = findTooManyPlaceholders(joined->text); at != std::string_view::npos)
        {
            const SourcePlace place = QclParameter({}, *joined, {}).placeInValue(at);
            reportPlaceholder(joined->text, at, firstLine + place.line, place.column);
            good = false;
        }
    if (!good)
    {
        joined->text.clear();
        joined->pieces.resize(1);
    }
    if (!p_parameter)
        return;
    m_section->joinedValues.push_back(joined);
    p_parameter->joinedPlus1 = toNumber(m_section->joinedValues.size());
}

void SectionParser::reportTooLong(std::string_view p_stretch)
{
    report(QclProblem::ValueLength, p_stretch.substr(0, 0),
           fmt::format("The value is too long. Expected at most {} bytes.", m_limits.valueBytes));
}

std::size_t SectionParser::mostPlaceholders(std::string_view p_value) const
{
    return p_value.size() <= m_limits.shortValueBytes ? m_limits.shortValuePlaceholders
                                                      : m_limits.longValuePlaceholders;
}

/// Where a value holds the first placeholder that is one too many.
std::size_t SectionParser::findTooManyPlaceholders(std::string_view p_value) const
{
    const std::size_t most = mostPlaceholders(p_value);
    std::size_t count = 0;
    for (std::size_t at = p_value.find('%'); at != std::string_view::npos; at = p_value.find('%', at + 1))
        if (at + 1 < p_value.size() && isPlaceholderThatLaterArgumentsFill(p_value[at], p_value[at + 1]) &&
            ++count > most)
            return at;
    return std::string_view::npos;
}

void SectionParser::reportPlaceholder(std::string_view p_value, std::size_t p_at, std::uint32_t p_line,
                                      std::uint32_t p_column)
{
    const std::size_t most = mostPlaceholders(p_value);
    add({QclProblem::Placeholders, p_line, p_column, 2,
         fmt::format("The value holds '{}', which messages would fill, and {} such texts before it. Expected "
                     "at most {} of '%2' to '%5' in a value of this length.",
                     p_value.substr(p_at, 2), most, most),
         0});
}

}    // namespace qen::standalone
