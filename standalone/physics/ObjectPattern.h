#pragma once

#include "ModelQCL.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Where in a model to look, seen from an object: "{DOMAIN}/FLUID MODELS/FLUID:*/TURBULENCE MODEL". It begins at the
/// nearest level of a type in the object's own path, or, beginning with '/', at the model's first level. A name may be
/// that of such a level ("FLUID:{FLUID}"), or '*' for every object of the type.
class ObjectPattern {
public:
    /// None when the text has another form.
    static std::optional<ObjectPattern> read(std::string_view p_text);

    /// As it was written.
    const std::string& text() const { return m_text; }

    /// Whether it can stand for several objects.
    bool hasEach() const;

    /// Whether it stands for an object on the path of the one from which it is seen.
    bool isOnPath() const { return m_pieces.empty(); }

    /// Adds the types of the levels of an object's path on which it depends where the pattern leads from there.
    void addLevels(std::set<std::string, std::less<>>& p_types) const;

    /// Whether the objects for which it stands have names.
    bool endsWithName() const { return m_endsWithName; }

    /// Visits the paths of the objects for which the pattern stands, in the model's order, until the visitor answers
    /// false. None when the object's path lacks a level that is asked for. An object whose path is written out is
    /// visited whether it exists or not.
    ///
    /// @return False when the visitor ended it.
    bool visit(const std::string& p_objectPath, const ModelQCL& p_model,
               const std::function<bool(const std::string& p_path)>& p_visitor) const;

private:
    enum class Then { Nothing, NameOf, Each };

    struct Piece {
        std::string text;    ///< stands as it is
        Then then = Then::Nothing;
        std::string type;    ///< whose name follows, or of which each object is meant
    };

    bool visitFrom(std::size_t p_piece, std::string p_path, const std::string& p_objectPath,
                   const ModelQCL& p_model,
                   const std::function<bool(const std::string& p_path)>& p_visitor) const;

    std::string m_text;
    std::string m_from;    // the type of level at which it begins; empty for the first level of the model
    std::vector<Piece> m_pieces;
    bool m_endsWithName = false;
};

/// The leading part of a path up to the last level of any of the types; empty when it has none.
std::string_view upToLevels(std::string_view p_path, const std::set<std::string, std::less<>>& p_types);

/// The name of the last level of a path; empty when it has none.
std::string_view lastNameOf(std::string_view p_path);

}    // namespace qen::standalone
