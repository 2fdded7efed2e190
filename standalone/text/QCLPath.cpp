#include "QCLPath.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace qen {

namespace {

struct Level {
    std::string_view type;
    std::string_view name;
};

/// Takes the level that begins with the '/' at an offset, and moves the offset behind it. The level is none when it is
/// malformed.
std::optional<Level> takeLevel(std::string_view p_text, std::size_t& p_offset)
{
    if (p_offset >= p_text.size() || p_text[p_offset] != '/')
        return std::nullopt;

    const std::size_t begin = p_offset + 1;
    const std::size_t end = std::min(p_text.find('/', begin), p_text.size());
    const std::string_view level = p_text.substr(begin, end - begin);
    p_offset = end;

    const std::size_t colon = level.find(':');
    if (colon == std::string_view::npos)
        return level.empty() ? std::nullopt : std::optional<Level>(Level {level, {}});

    const Level parts {level.substr(0, colon), level.substr(colon + 1)};
    if (parts.type.empty() || parts.name.empty() || parts.name.find(':') != std::string_view::npos)
        return std::nullopt;
    return parts;
}

/// A level of a well-formed text; empty parts when there is no such level.
Level levelOf(std::string_view p_text, std::size_t p_levels, std::size_t p_level)
{
    if (p_level >= p_levels)
        return {};
    std::size_t offset = 0;
    for (std::size_t skipped = 0; skipped < p_level; ++skipped)
        offset = p_text.find('/', offset + 1);
    return takeLevel(p_text, offset).value_or(Level {});
}

Level lastLevelOf(std::string_view p_text)
{
    std::size_t offset = p_text.rfind('/');
    return takeLevel(p_text, offset).value_or(Level {});
}

}    // namespace

QCLPath::QCLPath(const std::string& p_text)
{
    std::size_t levels = 0;
    for (std::size_t offset = 0; offset < p_text.size(); ++levels)
        if (!takeLevel(p_text, offset))
            return;

    m_text = p_text;
    m_levels = levels;
}

std::string QCLPath::getType(std::size_t p_level) const
{
    return std::string(levelOf(m_text, m_levels, p_level).type);
}

std::string QCLPath::getName(std::size_t p_level) const
{
    return std::string(levelOf(m_text, m_levels, p_level).name);
}

std::string QCLPath::getLastType() const { return std::string(lastLevelOf(m_text).type); }

std::string QCLPath::getLastName() const { return std::string(lastLevelOf(m_text).name); }

QCLPath QCLPath::getSubPathByType(const std::string& p_type) const
{
    std::size_t offset = 0;
    for (std::size_t level = 1; level <= m_levels; ++level)
        if (takeLevel(m_text, offset).value_or(Level {}).type == p_type)
        {
            QCLPath leading;
            leading.m_text.assign(m_text, 0, offset);
            leading.m_levels = level;
            return leading;
        }
    return {};
}

void QCLPath::push_back(const std::string& p_type, const std::string& p_name)
{
    std::string level = "/" + p_type;
    if (!p_name.empty())
        level.append(":").append(p_name);

    // Parts that no path text could hold make the path what a malformed text makes it: empty.
    std::size_t offset = 0;
    if (p_type.find(':') != std::string::npos || !takeLevel(level, offset) || offset != level.size())
    {
        *this = QCLPath();
        return;
    }
    m_text += level;
    ++m_levels;
}

bool QCLPath::isParent(const QCLPath& p_other) const
{
    return m_levels < p_other.m_levels && p_other.m_text.starts_with(m_text) &&
           p_other.m_text[m_text.size()] == '/';
}

}    // namespace qen
