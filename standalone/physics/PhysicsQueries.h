#pragma once

#include "ModelQCL.h"
#include "physics/ObjectPattern.h"
#include "qcl/Diagnostics.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qen::standalone {

struct PhysicsQuery;

/// Where a definition stands in the document that was read as the n-th, counted from 1; 0: nowhere.
struct PhysicsPlace {
    std::size_t document = 0;
    SourcePlace place;
    std::uint32_t length = 0;
};

/// A query that a condition asks.
struct AskedQuery {
    std::string name;    ///< empty for none
    PhysicsPlace place;
    const PhysicsQuery* query = nullptr;    ///< null when there is none of that name that can be asked
};

/// What must hold at a place of the model. Optional keys that no section gives are empty.
struct PhysicsCondition {
    std::string name;      ///< of its section; empty for the one in the query's own section
    PhysicsPlace place;    ///< of its latest section

    std::optional<ObjectPattern> object;
    std::string parameter;
    std::vector<std::string> is;
    std::vector<std::string> isNot;
    std::optional<bool> logical;
    std::optional<ObjectPattern> names;    ///< without the name, which the parameter's value gives
    AskedQuery query;                      ///< at each object
    AskedQuery onlyIf;                     ///< at the object at which this condition is asked
    std::optional<std::size_t> atLeast;
    std::optional<std::size_t> atMost;
    bool negate = false;

    const PhysicsQuery* asked =
        nullptr;    ///< the query of that name; null when there is none that can be asked
};

enum class PhysicsAnswer { All, Any, List };

struct PhysicsQuery {
    std::string name;
    PhysicsPlace place;    ///< of its latest section, or of that of its first condition
    PhysicsAnswer answer = PhysicsAnswer::All;
    std::vector<PhysicsCondition> conditions;    ///< in the order in which they first came
    std::set<std::string, std::less<>>
        levels;    ///< types of the levels of the asked path that its answer depends on
};

/// By name. Queries stay where they are.
using PhysicsQueries = std::map<std::string, PhysicsQuery, std::less<>>;

/// Asks queries of one model about one object.
class PhysicsEvaluation {
public:
    /// How many objects and queries one question may look at. No question of a real case comes near this.
    static constexpr std::size_t k_mostSteps = 4'000'000;

    explicit PhysicsEvaluation(const ModelQCL& p_model) : m_model(p_model) {}

    /// Whether a query holds at an object; a list does when it is not empty.
    bool holds(const PhysicsQuery& p_query, const std::string& p_objectPath);

    /// The names that a list query gives at an object, each once, in the order of its conditions and the model.
    std::vector<std::string> list(const PhysicsQuery& p_query, const std::string& p_objectPath);

    /// Whether the question was given up because it would have looked at more than it may. The answer counts for
    /// nothing then.
    bool isGivenUp() const { return m_steps > k_mostSteps; }

private:
    bool holds(const PhysicsCondition& p_condition, const std::string& p_objectPath);
    bool holdsAt(const PhysicsCondition& p_condition, const std::string& p_path);
    bool namesOneThatFits(const PhysicsCondition& p_condition, const std::string& p_path,
                          const std::string& p_value);
    bool holds(const AskedQuery& p_asked, const std::string& p_objectPath);
    bool takeStep() { return ++m_steps <= k_mostSteps; }

    const ModelQCL& m_model;
    std::size_t m_steps = 0;
};

}    // namespace qen::standalone
