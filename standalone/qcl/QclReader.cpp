#include "qcl/QclReader.h"

#include "qcl/DocumentBuilder.h"
#include "qcl/SectionParser.h"

#include <cstdint>
#include <string_view>

namespace qen::standalone {

namespace {

/// Reads each section anew.
class FreshSections final : public SectionSource {
public:
    explicit FreshSections(const QclLimits& p_limits) : m_parser(p_limits) {}

    const ParsedSection& section(SectionKind p_kind, std::string_view p_text) override
    {
        m_parser.parse(p_kind, p_text, m_section);
        return m_section;
    }

    std::uint64_t content(std::uint64_t) override { return 0; }

private:
    SectionParser m_parser;
    ParsedSection m_section;
};

}    // namespace

QclDocument readQclFile(const std::string& p_path, const QclLimits& p_limits)
{
    FreshSections sections(p_limits);
    return DocumentBuilder(p_limits, sections).readFile(p_path);
}

QclDocument readQclText(const std::string& p_name, const std::string& p_text, const QclLimits& p_limits)
{
    FreshSections sections(p_limits);
    return DocumentBuilder(p_limits, sections).readText(p_name, p_text);
}

}    // namespace qen::standalone
