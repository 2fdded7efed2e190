#include "physics/ObjectPattern.h"

#include "rules/RuleTree.h"

#include <algorithm>
#include <utility>

namespace qen::standalone {
namespace {

/// "{TYPE}" gives "TYPE"; none for a text of another form.
std::optional<std::string_view> typeInBraces(std::string_view p_text)
{
    if (p_text.size() < 3 || p_text.front() != '{' || p_text.back() != '}')
        return std::nullopt;
    return p_text.substr(1, p_text.size() - 2);
}

/// Whether a text that stands as it is holds a sign that stands for something else.
bool hasSign(std::string_view p_text) { return p_text.find_first_of("{}*") != std::string_view::npos; }

/// The leading part of a path up to its nearest, that is last, level of a type; empty when there is none.
std::string_view upToNearest(std::string_view p_path, std::string_view p_type)
{
    std::size_t end = 0;
    PathLevel level;
    for (std::string_view rest = p_path; takeLevel(rest, level);)
        if (level.type == p_type)
            end = p_path.size() - rest.size();
    return p_path.substr(0, end);
}

}    // namespace

std::optional<ObjectPattern> ObjectPattern::read(std::string_view p_text)
{
    ObjectPattern pattern;
    pattern.m_text = p_text;

    std::string_view rest = p_text;
    if (rest.starts_with('{'))
    {
        const std::size_t end = std::min(rest.find('}'), rest.size() - 1);
        const std::optional<std::string_view> type = typeInBraces(rest.substr(0, end + 1));
        if (!type || hasSign(*type))
            return std::nullopt;
        pattern.m_from = *type;
        pattern.m_endsWithName = true;
        rest.remove_prefix(end + 1);
    }
    else if (rest.empty())
        return std::nullopt;

    Piece piece;
    PathLevel level;
    while (!rest.empty())
    {
        if (!takeLevel(rest, level) || hasSign(level.type) || (level.hasName && level.name.empty()))
            return std::nullopt;
        pattern.m_endsWithName = level.hasName;
        piece.text.append("/");
        if (level.name == "*")
        {
            piece.text.pop_back();
            piece.then = Then::Each;
            piece.type = level.type;
            pattern.m_pieces.push_back(std::exchange(piece, {}));
            continue;
        }
        piece.text.append(level.type);
        if (!level.hasName)
            continue;
        piece.text += ':';
        if (const std::optional<std::string_view> type = typeInBraces(level.name))
        {
            if (hasSign(*type))
                return std::nullopt;
            piece.then = Then::NameOf;
            piece.type = *type;
            pattern.m_pieces.push_back(std::exchange(piece, {}));
        }
        else if (hasSign(level.name))
            return std::nullopt;
        else
            piece.text += level.name;
    }
    if (!piece.text.empty())
        pattern.m_pieces.push_back(std::move(piece));
    return pattern;
}

bool ObjectPattern::hasEach() const
{
    return std::ranges::any_of(m_pieces, [](const Piece& p_piece) { return p_piece.then == Then::Each; });
}

void ObjectPattern::addLevels(std::set<std::string, std::less<>>& p_types) const
{
    if (!m_from.empty())
        p_types.insert(m_from);
    for (const Piece& piece : m_pieces)
        if (piece.then == Then::NameOf)
            p_types.insert(piece.type);
}

bool ObjectPattern::visit(const std::string& p_objectPath, const ModelQCL& p_model,
                          const std::function<bool(const std::string& p_path)>& p_visitor) const
{
    const std::string_view begin = m_from.empty() ? std::string_view() : upToNearest(p_objectPath, m_from);
    if (begin.empty() && !m_from.empty())
        return true;
    return visitFrom(0, std::string(begin), p_objectPath, p_model, p_visitor);
}

bool ObjectPattern::visitFrom(std::size_t p_piece, std::string p_path, const std::string& p_objectPath,
                              const ModelQCL& p_model,
                              const std::function<bool(const std::string& p_path)>& p_visitor) const
{
    for (; p_piece < m_pieces.size(); ++p_piece)
    {
        const Piece& piece = m_pieces[p_piece];
        p_path += piece.text;
        if (piece.then == Then::NameOf)
        {
            const std::string_view name = lastNameOf(upToNearest(p_objectPath, piece.type));
            if (name.empty())
                return true;
            p_path += name;
        }
        else if (piece.then == Then::Each)
        {
            for (std::string& child : p_model.childPaths(p_path, piece.type))
                if (!visitFrom(p_piece + 1, std::move(child), p_objectPath, p_model, p_visitor))
                    return false;
            return true;
        }
    }
    return p_visitor(p_path);
}

std::string_view upToLevels(std::string_view p_path, const std::set<std::string, std::less<>>& p_types)
{
    std::size_t end = 0;
    PathLevel level;
    for (std::string_view rest = p_path; takeLevel(rest, level);)
        if (p_types.contains(level.type))
            end = p_path.size() - rest.size();
    return p_path.substr(0, end);
}

std::string_view lastNameOf(std::string_view p_path)
{
    const std::size_t slash = p_path.rfind('/');
    const std::size_t colon = p_path.rfind(':');
    if (colon == std::string_view::npos || (slash != std::string_view::npos && colon < slash))
        return {};
    return p_path.substr(colon + 1);
}

}    // namespace qen::standalone
