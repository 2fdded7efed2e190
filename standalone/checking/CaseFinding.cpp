#include "checking/CaseFinding.h"

#include <algorithm>
#include <cstddef>

namespace qen::standalone {

Finding placed(const ParameterFinding& p_finding, const QclParameter& p_parameter, const QclDocument& p_case)
{
    if (p_finding.at == ParameterFinding::At::Nothing)
    {
        Finding finding;
        finding.severity = p_finding.severity;
        finding.identifier = p_finding.identifier;
        finding.message = p_finding.message;
        return finding;
    }
    if (p_finding.at == ParameterFinding::At::Name)
        return toFinding({p_finding.severity, p_finding.identifier, p_finding.message, p_parameter.place(),
                          static_cast<std::uint32_t>(p_parameter.name().size())},
                         p_case);

    Finding finding = toFinding({p_finding.severity, p_finding.identifier, p_finding.message,
                                 p_parameter.placeInValue(p_finding.range.offset),
                                 static_cast<std::uint32_t>(p_finding.range.length)},
                                p_case);
    // A value that continues on the next line is pointed at as far as its first line goes.
    const std::size_t rest =
        finding.lineText.size() + 1 - std::min<std::size_t>(finding.column, finding.lineText.size() + 1);
    finding.length = static_cast<std::uint32_t>(std::min<std::size_t>(finding.length, rest));
    return finding;
}

Finding placed(const ObjectFinding& p_finding, const QclObject& p_object, const QclDocument& p_case)
{
    SourcePlace place = p_object.place;
    place.column += static_cast<std::uint32_t>(p_finding.range.offset);
    return toFinding({p_finding.severity, p_finding.identifier, p_finding.message, place,
                      static_cast<std::uint32_t>(p_finding.range.length)},
                     p_case);
}

}    // namespace qen::standalone
