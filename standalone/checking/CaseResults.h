#pragma once

#include "checking/CaseChecker.h"
#include "checking/CaseFinding.h"
#include "checking/CaseWorld.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// What was found in a case: in its parameters when each was checked last, and in what its objects are called.
class CaseResults {
public:
    explicit CaseResults(const CaseWorld& p_case) : m_case(p_case) {}

    /// Keeps what was found in a parameter, in place of what was found before.
    void set(const CaseParameter& p_parameter, ParameterFindings p_findings);
    void forget(const std::string& p_objectPath, const std::string& p_paramName);

    /// Forgets what was found in the parameters of an object.
    void forget(const std::string& p_objectPath) { m_parameters.erase(p_objectPath); }

    /// Keeps what belongs to no parameter.
    void addToCase(const ParameterFindings& p_findings, bool p_internalError);

    /// Whether the rules know an object's path. What they say is kept.
    bool isKnownPath(const std::string& p_objectPath);

    /// Everything, at its place in the text of the case. Parameters that were never set have no findings.
    CaseReport report(const QclDocument& p_text);

private:
    struct PathFindings {
        std::vector<ObjectFinding> ofRules;    ///< at most one
        std::vector<ObjectFinding> ofNames;
    };

    const PathFindings& findingsOfPath(const std::string& p_objectPath);
    static void addEmptyCase(const QclDocument& p_text, std::vector<Finding>& p_findings);
    void addPaths(const QclDocument& p_text, std::vector<Finding>& p_findings);
    void addRepeatedLocators(const QclDocument& p_text, std::vector<Finding>& p_findings);
    void addParameters(const QclDocument& p_text, std::vector<Finding>& p_findings) const;
    void addCase(std::vector<Finding>& p_findings) const;

    const CaseWorld& m_case;

    // By the paths of objects and the names of their parameters; those without findings are left out.
    std::unordered_map<std::string, std::unordered_map<std::string, ParameterFindings>> m_parameters;
    std::unordered_map<std::string, PathFindings> m_paths;
    std::size_t m_orderlyVersion =
        static_cast<std::size_t>(-1);    // of the model's objects, without findings
    std::vector<ObjectFinding> m_repeatedLocators;
    std::size_t m_locatorsVersion = 0;    // of the model's objects
    ParameterFindings m_ofCase;
    bool m_internalError = false;
};

}    // namespace qen::standalone
