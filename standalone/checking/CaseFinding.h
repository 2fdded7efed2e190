#pragma once

#include "definitions/Finding.h"
#include "expressions/QelExpression.h"
#include "qcl/QclDocument.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// @file
/// What was found in a case, by what it is about. Where that stands in the text is said when a report is made, so that
/// a finding stays true while the text around it moves.

namespace qen::standalone {

/// A parameter as a case has it.
struct CaseParameter {
    std::string objectPath;
    std::string name;
    std::string value;

    /// How messages speak of it.
    std::string described() const { return "parameter '" + name + "' in object '" + objectPath + "'"; }
};

/// A finding about a parameter.
struct ParameterFinding {
    enum class At : std::uint8_t {
        Nothing,    ///< the case as a whole
        Name,
        Value,
    };

    Severity severity = Severity::Error;
    std::string identifier;
    std::string message;
    At at = At::Name;
    TextRange range {};    ///< in the value
};

using ParameterFindings = std::vector<ParameterFinding>;

inline ParameterFinding atName(Severity p_severity, std::string p_identifier, std::string p_message)
{
    return {p_severity, std::move(p_identifier), std::move(p_message), ParameterFinding::At::Name, {}};
}

inline ParameterFinding atValue(Severity p_severity, TextRange p_range, std::string p_identifier,
                                std::string p_message)
{
    return {p_severity, std::move(p_identifier), std::move(p_message), ParameterFinding::At::Value, p_range};
}

/// A finding about a stretch of an object's path.
struct ObjectFinding {
    Severity severity = Severity::Error;
    std::string identifier;
    std::string message;
    TextRange range {};     ///< in the path
    std::string subject;    ///< path of the object that it is about; told of where that is named first
};

/// The finding at the place where a parameter stands.
Finding placed(const ParameterFinding& p_finding, const QclParameter& p_parameter, const QclDocument& p_case);

/// The finding at the place where an object is named first.
Finding placed(const ObjectFinding& p_finding, const QclObject& p_object, const QclDocument& p_case);

}    // namespace qen::standalone
