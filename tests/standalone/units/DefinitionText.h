#pragma once

#include "qcl/QclDocument.h"
#include "qcl/SourceText.h"
#include "units/UnitSystem.h"

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qen::standalone {

/// Shows a problem in a test's failure.
inline void PrintTo(const Diagnostic& p_problem, std::ostream* p_stream)
{
    *p_stream << p_problem.place.line << ":" << p_problem.place.column << "+" << p_problem.length << ": "
              << p_problem.message << " [" << p_problem.identifier << "]";
}

}    // namespace qen::standalone

namespace qen::standalone::test {

/// A definition document made section by section, with the places that a reader would give: each header and each
/// parameter on a line of its own, a value behind "name = ".
class DefinitionText {
public:
    using Parameters = std::initializer_list<std::pair<std::string, std::string>>;

    DefinitionText& section(const std::string& p_path, Parameters p_parameters)
    {
        QclObject object;
        object.path = p_path;
        object.place = {0, ++m_line, 2};
        for (const auto& [name, value] : p_parameters)
        {
            const std::string_view line = kept(name + " = " + value);
            object.parameters.emplace_back(line.substr(0, name.size()), line.substr(name.size() + 3),
                                           SourcePlace {0, ++m_line, 1});
        }
        m_document.objects.push_back(object);
        return *this;
    }

    DefinitionText& unit(const std::string& p_name, const std::string& p_definition)
    {
        return section("/UNIT:" + p_name, {{"Definition", p_definition}});
    }

    /// Kilogram, metre and second.
    DefinitionText& mechanics()
    {
        section("/BASE UNIT:kg", {{"Dimension", "Mass"}});
        section("/BASE UNIT:m", {{"Dimension", "Length"}, {"Prefixes", "Yes"}});
        return section("/BASE UNIT:s", {{"Dimension", "Time"}});
    }

    const QclDocument& document() const { return m_document; }

    /// Adds the document and hands back the problems.
    Diagnostics addTo(UnitSystem& p_units) const
    {
        Diagnostics problems;
        p_units.addDefinitions(m_document, problems);
        return problems;
    }

private:
    /// A view of a text that lasts as long as the document.
    std::string_view kept(const std::string& p_text)
    {
        m_document.files.emplace_back(std::string(), FileBytes(p_text));
        return m_document.files.back().text();
    }

    QclDocument m_document;
    std::uint32_t m_line = 0;
};

/// Why a units text is not understood; empty when it is.
inline std::string reasonAgainst(const UnitSystem& p_units, std::string_view p_text)
{
    std::string reason;
    p_units.parse(p_text, &reason);
    return reason;
}

}    // namespace qen::standalone::test
