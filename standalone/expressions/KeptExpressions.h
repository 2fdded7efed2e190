#pragma once

#include "model/ModelTree.h"
#include "model/ReadGraph.h"
#include "StandaloneApi.h"
#include "text/NearestName.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qen::standalone {

namespace qel {
class Analysis;
class Names;
struct KeptExpression;
}

/// What the named expressions of a model, and the expressions of its monitor points, mean. Each is read once, however
/// many expressions refer to it, and that is kept for as long as the model stays as it is. It changes nothing of what
/// an analysis says.
///
/// Serves worlds that hold the model and do not change otherwise. One thread at a time.
class QEN_STANDALONE_API KeptExpressions {
public:
    /// @param p_model  Not owned; outlives this.
    /// @param p_reads  Is told which expressions something is worked out from; null for nobody.
    explicit KeptExpressions(const ModelTree& p_model, ReadGraph* p_reads = nullptr);
    ~KeptExpressions();

    KeptExpressions(const KeptExpressions&) = delete;
    KeptExpressions& operator=(const KeptExpressions&) = delete;

private:
    friend class qel::Analysis;
    friend class qel::Names;

    enum class State : std::uint8_t {
        Unread,
        BeingRead,
        Kept,
        Refused,    ///< it forms a cycle, or refers to one: what it means depends on where one comes from
    };

    struct Slot {
        State state = State::Unread;
        std::unique_ptr<qel::KeptExpression> expression;
    };

    /// An expression as a part of the argument of a callback function, where errors do not count, or anywhere else.
    struct Slots {
        Slot inArgument;
        Slot elsewhere;
    };

    /// The slot of a parameter; forgets what was kept of an earlier state of the model.
    Slot& slot(const ModelTree::Parameter& p_parameter, bool p_inArgument);

    ReadGraph::Node nodeOf(std::string_view p_objectPath, std::string_view p_paramName,
                           bool p_inArgument) const;

    const ModelTree& m_model;
    ReadGraph* m_reads;
    std::unordered_map<const ModelTree::Parameter*, Slots> m_slots;    // of the version below
    std::size_t m_version = 0;

    KnownNames m_variableNames;    // all of them, sorted, once a misspelt one was met
};

}    // namespace qen::standalone
