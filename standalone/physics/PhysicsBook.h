#pragma once

#include "PhysicsEvaluator.h"
#include "qcl/QclDocument.h"
#include "StandaloneApi.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// The physics queries of the definition files: named questions about the physics at a place of a model, each decided
/// by the settings of the case. Looks at a model through ModelQCL alone, so that it serves every model.
///
/// What was declared and what was asked in vain is recorded in operations that are const; one book is therefore used
/// by one thread at a time.
class QEN_STANDALONE_API PhysicsBook final : public PhysicsEvaluator {
public:
    PhysicsBook();
    ~PhysicsBook();
    PhysicsBook(PhysicsBook&&) noexcept;
    PhysicsBook& operator=(PhysicsBook&&) noexcept;

    /// Adds the queries of a document; later ones add to and override earlier ones, key by key. Problems are appended.
    ///
    /// The form of the sections is described at the head of definitions/PHYSICS.qcl.
    void addDefinitions(const QclDocument& p_document, Diagnostics& p_problems);

    /// Whether a section defines the query.
    bool defines(std::string_view p_query) const;

    /// The names of all queries, sorted; for suggestions.
    std::vector<std::string> queryNames() const;

    /// The queries that were declared or asked and have no definition, or none of the kind that was expected (a list),
    /// sorted. Each is a mistake of the definitions.
    std::vector<std::string> undefinedQueries() const;

    /// The queries that were given up, sorted: asked at some object, they would have looked at millions of others.
    /// Each is a mistake of the definitions.
    std::vector<std::string> endlessQueries() const;

    /// What a condition looks at.
    struct Look {
        std::string query;
        std::string object;                ///< as in the definitions: "{DOMAIN}/BOUNDARY:*"
        std::string parameter;             ///< empty when it looks at the object alone
        std::vector<std::string> texts;    ///< with which the parameter is compared; empty for none
        bool isLogical = false;            ///< whether the parameter is read as a logical one
        std::string names;                 ///< type of object that the parameter names; empty for none
    };

    /// Visits what the conditions of all queries look at, in the order of the queries' names.
    void visitLooks(const std::function<void(const Look& p_look)>& p_visit) const;

    /// The leading part of an asked path on which the query's answer depends: asked there, it answers the same. The
    /// path itself for a query that is not defined.
    std::string_view decidingPath(std::string_view p_query, std::string_view p_objectPath) const;

    /// False for a query that is not defined, which is recorded. A list holds when it is not empty. Costs as much as
    /// the model has objects among which the query's conditions look; a question that would look at more than
    /// 4,000,000 of them, counted as often as it looks, is given up and false.
    bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                  const ModelQCL* p_model) const override;

    /// Empty for a query that is not defined as a list, which is recorded. Given up like evalBool.
    std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                      const ModelQCL* p_model) const override;

    void declareBool(const std::string& p_query, bool p_flag) const override;
    void declareList(const std::string& p_query, bool p_flag) const override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
