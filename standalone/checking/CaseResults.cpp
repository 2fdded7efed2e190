#include "checking/CaseResults.h"

#include "checking/ModelFindings.h"
#include "checking/NameFindings.h"

#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace qen::standalone {

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
    }
    return known->second;
}

/// What is wrong with the levels of paths, each where it comes first.
void CaseResults::addPaths(const QclDocument& p_text, std::vector<Finding>& p_findings)
{
    std::unordered_set<std::string_view> toldByRules;
    std::unordered_set<std::string_view> toldByNames;
    for (const QclObject& object : p_text.objects)
    {
        const PathFindings& found = findingsOfPath(object.path);
        for (const ObjectFinding& finding : found.ofRules)
            if (toldByRules.insert(finding.subject).second)
                p_findings.push_back(placed(finding, object, p_text));
        for (const ObjectFinding& finding : found.ofNames)
            if (toldByNames.insert(finding.subject).second)
                p_findings.push_back(placed(finding, object, p_text));
    }
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
    for (const QclObject& object : p_text.objects)
    {
        const auto results = m_parameters.find(object.path);
        if (results == m_parameters.end())
            continue;
        for (const QclParameter& parameter : object.parameters)
            if (const auto found = results->second.find(std::string(parameter.name));
                found != results->second.end())
                for (const ParameterFinding& finding : found->second)
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
