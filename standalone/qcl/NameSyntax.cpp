#include "qcl/NameSyntax.h"

#include "qcl/PlainText.h"

#include <algorithm>
#include <fmt/format.h>

namespace qen::standalone {

namespace {

/// Where a text holds '%' before a digit, which a message would take for one of its placeholders.
std::size_t findPlaceholder(std::string_view p_text)
{
    for (std::size_t at = p_text.find('%'); at != std::string_view::npos; at = p_text.find('%', at + 1))
        if (at + 1 < p_text.size() && p_text[at + 1] >= '0' && p_text[at + 1] <= '9')
            return at;
    return std::string_view::npos;
}

/// What is wrong with one name or type that is not empty. What it is called begins the message.
std::optional<NameFault> findNameFault(std::string_view p_what, std::string_view p_name, QclProblem p_problem,
                                       std::string_view p_notAllowed, const QclLimits& p_limits)
{
    if (p_name.size() > p_limits.nameBytes)
        return NameFault {QclProblem::NameLength,
                          fmt::format("{} {} is {} bytes long. Expected at most {}.", p_what,
                                      inQuotes(p_name), p_name.size(), p_limits.nameBytes),
                          0, p_name.size()};

    if (const std::size_t at = p_name.find_first_of(p_notAllowed); at != std::string_view::npos)
        return NameFault {
            p_problem,
            fmt::format("{} {} holds the character '{}'. Expected a name without '/', ':', '[' and ']'.",
                        p_what, inQuotes(p_name), p_name[at]),
            at, 1};

    if (const std::size_t at = findPlaceholder(p_name); at != std::string_view::npos)
        return NameFault {p_problem,
                          fmt::format("{} {} holds '{}'. Expected a name without '%' before a digit.", p_what,
                                      inQuotes(p_name), p_name.substr(at, 2)),
                          at, 2};
    return std::nullopt;
}

/// What is wrong with the level behind a '/'; offsets count from its type.
std::optional<NameFault> findLevelFault(std::string_view p_level, const QclLimits& p_limits)
{
    const std::size_t colon = p_level.find(':');
    const std::string_view type = p_level.substr(0, colon);
    if (type.empty())
        return NameFault {QclProblem::ObjectPath,
                          "A level of the path has no type. Expected '/TYPE:name' or '/TYPE'.", 0,
                          p_level.size()};
    if (auto fault = findNameFault("The type", type, QclProblem::ObjectName, "[]", p_limits))
        return fault;
    if (colon == std::string_view::npos)
        return std::nullopt;

    const std::string_view name = p_level.substr(colon + 1);
    if (name.empty())
        return NameFault {
            QclProblem::ObjectPath,
            fmt::format("The level {} has no name behind the ':'. Expected '/TYPE:name', or '/TYPE' for "
                        "an object of which there is one.",
                        inQuotes(p_level)),
            0, p_level.size()};
    auto fault = findNameFault("The name", name, QclProblem::ObjectName, ":[]", p_limits);
    if (fault)
        fault->offset += colon + 1;
    return fault;
}

}    // namespace

std::optional<NameFault> findPathFault(std::string_view p_path, const QclLimits& p_limits)
{
    if (p_path.empty() || p_path.front() != '/')
        return NameFault {QclProblem::ObjectPath,
                          fmt::format("{} is no path of an object. Expected levels '/TYPE:name' or '/TYPE'.",
                                      inQuotes(p_path)),
                          0, p_path.size()};

    if (p_path.size() > p_limits.pathBytes)
        return NameFault {
            QclProblem::PathLength,
            fmt::format("The path is {} bytes long. Expected at most {}.", p_path.size(), p_limits.pathBytes),
            0, p_path.size()};

    const auto levels = static_cast<std::size_t>(std::ranges::count(p_path, '/'));
    if (levels > p_limits.pathLevels)
        return NameFault {
            QclProblem::PathLevels,
            fmt::format("The path has {} levels. Expected at most {}.", levels, p_limits.pathLevels), 0,
            p_path.size()};

    for (std::size_t begin = 1; begin <= p_path.size();)
    {
        const std::size_t end = std::min(p_path.find('/', begin), p_path.size());
        if (auto fault = findLevelFault(p_path.substr(begin, end - begin), p_limits))
        {
            fault->offset += begin;
            return fault;
        }
        begin = end + 1;
    }
    return std::nullopt;
}

std::optional<NameFault> findParameterNameFault(std::string_view p_name, const QclLimits& p_limits)
{
    if (p_name.empty())
        return NameFault {QclProblem::ParameterName,
                          "There is no name before the '='. Expected 'name = value'.", 0, 0};
    return findNameFault("The parameter name", p_name, QclProblem::ParameterName, "/:[]", p_limits);
}

}    // namespace qen::standalone
