#include "ReportDifference.h"

#include "qcl/Diagnostics.h"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace qencheck {

using qen::standalone::Finding;
using qen::standalone::QclDocument;
using qen::standalone::QclObject;
using qen::standalone::QclParameter;
using qen::standalone::SourcePlace;

namespace {

/// The lines that findings are on, in order, each with what stands there.
class Lines {
public:
    explicit Lines(const std::vector<Finding>& p_findings)
    {
        m_lines.reserve(p_findings.size());
        for (const Finding& finding : p_findings)
            m_lines.push_back({finding.fileOrder, finding.line, nullptr, nullptr});
        std::sort(m_lines.begin(), m_lines.end());
        m_lines.erase(std::unique(m_lines.begin(), m_lines.end()), m_lines.end());
    }

    bool empty() const { return m_lines.empty(); }

    /// Says what stands on some lines that follow one another.
    void note(const SourcePlace& p_first, std::uint32_t p_last, const QclObject& p_object,
              const QclParameter* p_parameter)
    {
        for (auto line = from(p_first.file, p_first.line);
             line != m_lines.end() && line->file == p_first.file && line->number <= p_last; ++line)
        {
            line->object = &p_object;
            line->parameter = p_parameter;
        }
    }

    std::string subjectOf(const Finding& p_finding)
    {
        const auto line = from(p_finding.fileOrder, p_finding.line);
        if (!line->object)
            return p_finding.lineText;
        std::string subject = line->object->path;
        // A line end stands neither in a path nor in a name.
        return line->parameter ? subject.append("\n").append(line->parameter->name()) : subject;
    }

private:
    struct Line {
        std::size_t file;
        std::uint32_t number;
        const QclObject* object;
        const QclParameter* parameter;

        friend bool operator<(const Line& p_a, const Line& p_b)
        {
            return std::tie(p_a.file, p_a.number) < std::tie(p_b.file, p_b.number);
        }
        friend bool operator==(const Line& p_a, const Line& p_b)
        {
            return p_a.file == p_b.file && p_a.number == p_b.number;
        }
    };

    /// The first line that is not before that one.
    std::vector<Line>::iterator from(std::size_t p_file, std::uint32_t p_number)
    {
        return std::lower_bound(m_lines.begin(), m_lines.end(), Line {p_file, p_number, nullptr, nullptr});
    }

    std::vector<Line> m_lines;
};

/// What makes two findings the same.
struct Key {
    const ReportedFinding* reported;

    friend bool operator==(const Key& p_a, const Key& p_b)
    {
        const Finding& a = p_a.reported->finding;
        const Finding& b = p_b.reported->finding;
        return a.severity == b.severity && a.identifier == b.identifier && a.message == b.message &&
               p_a.reported->subject == p_b.reported->subject;
    }
};

struct KeyHash {
    std::size_t operator()(const Key& p_key) const
    {
        const std::hash<std::string_view> hash;
        return hash(p_key.reported->finding.message) * 31 + hash(p_key.reported->subject);
    }
};

}    // namespace

std::vector<ReportedFinding> withSubjects(std::vector<Finding> p_findings, const QclDocument& p_document)
{
    Lines lines(p_findings);
    if (!lines.empty())
        for (const QclObject& object : p_document.objects)
        {
            lines.note(object.place, object.place.line, object, nullptr);
            for (const QclParameter& parameter : object.parameters)
                lines.note(parameter.place(), parameter.placeInValue(parameter.value().size()).line, object,
                           &parameter);
        }

    std::vector<ReportedFinding> reported;
    reported.reserve(p_findings.size());
    for (Finding& finding : p_findings)
    {
        std::string subject = lines.subjectOf(finding);
        reported.push_back({std::move(finding), std::move(subject)});
    }
    return reported;
}

std::vector<ReportedFinding> withLinesAsSubjects(std::vector<Finding> p_findings)
{
    return withSubjects(std::move(p_findings), {});
}

ReportDifference difference(const std::vector<ReportedFinding>& p_before,
                            const std::vector<ReportedFinding>& p_now)
{
    std::unordered_map<Key, std::size_t, KeyHash> left;
    for (const ReportedFinding& finding : p_before)
        ++left[{&finding}];

    ReportDifference result;
    for (const ReportedFinding& finding : p_now)
    {
        const auto same = left.find({&finding});
        const bool stands = same != left.end() && same->second > 0;
        if (stands)
            --same->second;
        result.isNew.push_back(!stands);
        result.appeared += !stands;
    }

    for (std::size_t number = p_before.size(); number-- > 0;)
        if (std::size_t& count = left[{&p_before[number]}]; count > 0)
        {
            --count;
            result.gone.push_back(number);
        }
    std::reverse(result.gone.begin(), result.gone.end());
    return result;
}

}    // namespace qencheck
