#include "checking/CaseResults.h"

#include "checking/ModelFindings.h"
#include "checking/NameFindings.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace qen::standalone {
namespace {

/// Whether a finding is about a value that is empty.
bool isOfNoValue(const ParameterFinding& p_finding)
{
    return p_finding.identifier == "missing-value" || p_finding.identifier == "bad-named-expression";
}

/// Which values the reader refused, so that there are none although the text has some.
class RefusedValues {
public:
    explicit RefusedValues(const QclDocument& p_text) : m_text(p_text)
    {
        for (const Diagnostic& problem : p_text.problems)
            m_problems.push_back(problem.place);
        std::ranges::sort(m_problems);
    }

    /// Whether a problem stands on a line of the parameter, or on one on which its value continues.
    bool include(const QclParameter& p_parameter) const
    {
        const SourceFile& file = m_text.files[p_parameter.place().file];
        SourcePlace end = p_parameter.place();
        while (continues(file.line(end.line)))
            ++end.line;
        const SourcePlace begin {p_parameter.place().file, p_parameter.place().line, 0};
        const auto first = std::ranges::lower_bound(m_problems, begin);
        return first != m_problems.end() && first->file == end.file && first->line <= end.line;
    }

private:
    static bool continues(std::string_view p_line)
    {
        const std::size_t last = p_line.find_last_not_of(" \t");
        return last != std::string_view::npos && p_line[last] == '\\';
    }

    const QclDocument& m_text;
    std::vector<SourcePlace> m_problems;
};

}    // namespace

void CaseResults::set(const CaseParameter& p_parameter, ParameterFindings p_findings)
{
    if (p_findings.empty())
        forget(p_parameter.objectPath, p_parameter.name);
    else
        m_parameters[p_parameter.objectPath][p_parameter.name] = std::move(p_findings);
}

void CaseResults::forget(const std::string& p_objectPath, const std::string& p_paramName)
{
    const auto object = m_parameters.find(p_objectPath);
    if (object == m_parameters.end())
        return;
    object->second.erase(p_paramName);
    if (object->second.empty())
        m_parameters.erase(object);
}

void CaseResults::addToCase(const ParameterFindings& p_findings, bool p_internalError)
{
    m_ofCase.insert(m_ofCase.end(), p_findings.begin(), p_findings.end());
    m_internalError = m_internalError || p_internalError;
}

bool CaseResults::isKnownPath(const std::string& p_objectPath)
{
    return findingsOfPath(p_objectPath).ofRules.empty();
}

CaseReport CaseResults::report(const QclDocument& p_text)
{
    CaseReport report;
    report.internalError = m_internalError;
    for (const QclObject& object : p_text.objects)
        report.parameters += object.parameters.size();

    addEmptyCase(p_text, report.findings);
    addPaths(p_text, report.findings);
    addRepeatedLocators(p_text, report.findings);
    addParameters(p_text, report.findings);
    addCase(report.findings);
    sortByPlace(report.findings);
    return report;
}

const CaseResults::PathFindings& CaseResults::findingsOfPath(const std::string& p_objectPath)
{
    const auto [known, isNew] = m_paths.try_emplace(p_objectPath);
    if (isNew)
    {
        if (std::optional<ObjectFinding> unknown =
                findUnknownLevel(p_objectPath, m_case.definitions().rules()))
            known->second.ofRules.push_back(std::move(*unknown));
        known->second.ofNames = findUnwritableNames(p_objectPath);
        if (std::optional<ObjectFinding> hidden = findHiddenName(p_objectPath, m_case.world()))
            known->second.ofNames.push_back(std::move(*hidden));
    }
    return known->second;
}

/// That there is nothing to check; where the text has problems, they say why.
void CaseResults::addEmptyCase(const QclDocument& p_text, std::vector<Finding>& p_findings)
{
    if (!p_text.objects.empty() || !p_text.problems.empty() || p_text.files.empty())
        return;
    Finding finding;
    finding.severity = Severity::Warning;
    finding.identifier = "empty-case";
    finding.message = "The case holds no object.";
    finding.file = p_text.files.front().path;
    p_findings.push_back(std::move(finding));
}

/// What is wrong with the levels of paths, each where it comes first.
void CaseResults::addPaths(const QclDocument& p_text, std::vector<Finding>& p_findings)
{
    // As long as the model has the same objects, their paths are those that were in order.
    if (m_orderlyVersion == m_case.model().objectsVersion())
        return;
    const std::size_t before = p_findings.size();

    std::unordered_set<std::string_view> toldByRules;
    std::set<std::pair<std::string_view, std::string_view>> toldByNames;
    for (const QclObject& object : p_text.objects)
    {
        const PathFindings& found = findingsOfPath(object.path);
        for (const ObjectFinding& finding : found.ofRules)
            if (toldByRules.insert(finding.subject).second)
                p_findings.push_back(placed(finding, object, p_text));
        for (const ObjectFinding& finding : found.ofNames)
            if (toldByNames.insert({finding.subject, finding.identifier}).second)
                p_findings.push_back(placed(finding, object, p_text));
    }
    if (p_findings.size() == before)
        m_orderlyVersion = m_case.model().objectsVersion();
}

void CaseResults::addRepeatedLocators(const QclDocument& p_text, std::vector<Finding>& p_findings)
{
    if (m_locatorsVersion != m_case.model().objectsVersion())
    {
        m_repeatedLocators = findRepeatedLocators(m_case.model());
        m_locatorsVersion = m_case.model().objectsVersion();
    }
    if (m_repeatedLocators.empty())
        return;

    std::unordered_map<std::string_view, const QclObject*> objects;
    for (const QclObject& object : p_text.objects)
        objects.emplace(object.path, &object);
    for (const ObjectFinding& finding : m_repeatedLocators)
        if (const auto object = objects.find(finding.subject); object != objects.end())
            p_findings.push_back(placed(finding, *object->second, p_text));
    // else it is named only as the ancestor of another
}

void CaseResults::addParameters(const QclDocument& p_text, std::vector<Finding>& p_findings) const
{
    if (m_parameters.empty())
        return;
    const RefusedValues refused(p_text);
    for (const QclObject& object : p_text.objects)
    {
        const auto results = m_parameters.find(object.path);
        if (results == m_parameters.end())
            continue;
        for (const QclParameter& parameter : object.parameters)
            if (const auto found = results->second.find(std::string(parameter.name()));
                found != results->second.end())
                for (const ParameterFinding& finding : found->second)
                    if (!isOfNoValue(finding) || !refused.include(parameter))
                        p_findings.push_back(placed(finding, parameter, p_text));
    }
}

void CaseResults::addCase(std::vector<Finding>& p_findings) const
{
    for (const ParameterFinding& finding : m_ofCase)
        p_findings.push_back(placed(finding, {}, {}));
    for (const std::string& query : m_case.endlessQueries())
        p_findings.push_back(placed({Severity::Error,
                                     "endless-query",
                                     "The physics query '" + query +
                                         "' was given up and counts as false: it would look at millions of "
                                         "objects. Expected one that looks at fewer.",
                                     ParameterFinding::At::Nothing,
                                     {}},
                                    {}, {}));
}

}    // namespace qen::standalone
