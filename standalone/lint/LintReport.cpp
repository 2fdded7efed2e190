#include "lint/LintReport.h"

#include "text/NearestName.h"

#include <utility>

namespace qen::standalone {

void LintReport::at(const LintText& p_text, std::string p_message)
{
    add(*p_text.section.document, p_text.place, p_text.text.size(), std::move(p_message));
}

void LintReport::at(const LintSection& p_section, std::string_view p_key, std::string p_message)
{
    const QclParameter* const parameter = p_section.object->find(p_key);
    if (parameter)
        add(*p_section.document, parameter->placeInValue(0), parameter->value().size(), std::move(p_message));
    else
        add(*p_section.document, p_section.object->place, p_section.object->path.size(),
            std::move(p_message));
}

void LintReport::atFile(const QclDocument* p_document, std::string p_message)
{
    if (p_document)
        return add(*p_document, {}, 0, std::move(p_message));
    Finding finding;
    finding.severity = m_rule.severity;
    finding.identifier = m_rule.identifier;
    finding.message = std::move(p_message);
    m_findings.push_back(std::move(finding));
}

void LintReport::add(const QclDocument& p_document, const SourcePlace& p_place, std::size_t p_length,
                     std::string p_message)
{
    m_findings.push_back(toFinding({m_rule.severity, std::string(m_rule.identifier), std::move(p_message),
                                    p_place, static_cast<std::uint32_t>(p_length)},
                                   p_document));
}

std::string hint(std::string_view p_word, const std::vector<std::string>& p_known)
{
    const std::string nearest = nearestName(p_word, p_known);
    if (!nearest.empty())
        return " Did you mean '" + nearest + "'?";

    std::string text = " Expected ";
    for (std::size_t i = 0; i < p_known.size(); ++i)
    {
        if (i > 0)
            text += i + 1 == p_known.size() ? " or " : ", ";
        text.append("'").append(p_known[i]).append("'");
    }
    return text + ".";
}

}    // namespace qen::standalone
