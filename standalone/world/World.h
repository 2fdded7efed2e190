#pragma once

#include "StandaloneApi.h"

#include <functional>
#include <string>

namespace qen {
class ErrorMsg;
class ExprCBFuncStore;
class PreVariableDefStore;
}

namespace qen::standalone {

class KeptExpressions;
class ModelTree;
class RuleBook;
class UnitSystem;

/// What the operations that are reached without an object answer from: the evaluator, the units converter, the error
/// reporter and the assertion facility. Owns nothing; what it points to outlives its installation.
struct QEN_STANDALONE_API World {
    const UnitSystem* units = nullptr;
    const PreVariableDefStore* variables = nullptr;
    const ExprCBFuncStore* callbacks = nullptr;
    const RuleBook* rules = nullptr;
    const ModelTree* model = nullptr;
    KeptExpressions* expressions = nullptr;    ///< of that model; null where nothing is kept of them

    /// Takes what the library reports through the error reporter; where empty, a line on standard error is written.
    std::function<void(const ErrorMsg&)> onReport;

    /// Takes failed internal assertions (message, file, line); where empty, a line on standard error is written.
    std::function<void(const std::string&, const std::string&, int)> onAssertion;
};

/// The world that is installed; an empty one where none is.
QEN_STANDALONE_API const World& currentWorld();

/// Installs a world from construction to destruction; scopes nest.
class QEN_STANDALONE_API WorldScope {
public:
    explicit WorldScope(const World& p_world);
    ~WorldScope();

    WorldScope(const WorldScope&) = delete;
    WorldScope& operator=(const WorldScope&) = delete;

private:
    const World* m_outer;
};

}    // namespace qen::standalone
