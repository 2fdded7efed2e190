#pragma once

#include "PreVariablesApi.h"

#include "Observer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace qen {

class ModelQCL;
class PhysicsEvaluator;
class PreVariableDefStore;
class ShortVarNameFinder;
class SplitVariableName;

/// Says whether a variable may be used. Two questions: whether a parameter may depend on it at all (general
/// availability), and whether the physics at a place of the model provides it (physical availability).
///
/// What the physics says is kept for each place and keyword until the model notifies of a change that can alter it. It
/// is the host that attaches the checker to its model as an observer. One thread at a time.
///
/// The objects given at construction are neither owned nor copied and must outlive the checker. A copy has the kept
/// answers of its original, and declares no query again.
class QEN_PREVARIABLES_API VarAvailabilityChecker : public Observer {
public:
    /// Declares to the evaluator every query that it will be asked.
    VarAvailabilityChecker(const ModelQCL* p_model, const ShortVarNameFinder* p_shortNames,
                           const PhysicsEvaluator* p_evaluator);

    VarAvailabilityChecker(const VarAvailabilityChecker&);
    VarAvailabilityChecker& operator=(const VarAvailabilityChecker&);
    ~VarAvailabilityChecker() override;

    /// Forgets what the physics said when the notification is 4 or 7. Other notifications change nothing.
    void update(NotifyType p_type) override;

    /// Whether a parameter may depend on a variable.
    ///
    /// @param p_name     The variable's full name; judged by its short name.
    /// @param p_allowed  Short names. "XYZ" stands for the 16 coordinates and "XYZT" for these and "t"; where both are
    ///                   there, only "XYZT" stands for others. "ANY" at the beginning allows every variable; an empty
    ///                   list allows none.
    bool isGenerallyAvailable(const std::string& p_name, const std::vector<std::string>& p_allowed) const;

    /// Whether a parameter may depend on each of the variables; true when there are none.
    ///
    /// @param p_allowed      As for one variable.
    /// @param p_unavailable  Set to the names that are not available: as they are given, in their order, repeats kept.
    ///                       Empty after all if no variable is allowed, although the answer is false.
    bool areGenerallyAvailable(const std::vector<std::string>& p_names,
                               const std::vector<std::string>& p_allowed,
                               std::vector<std::string>& p_unavailable) const;

    /// Whether every keyword holds at a place. They are judged in their order, up to the first that does not.
    ///
    /// @param p_name        Not consulted: a variable is judged by its keywords.
    /// @param p_keys        Such as "TURBULENT"; '!' before one asks for its opposite. An unknown one holds everywhere,
    ///                      so that its opposite holds nowhere.
    /// @param p_objectPath  For instance "/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet".
    bool isPhysicallyAvailable(const SplitVariableName& p_name, const std::vector<std::string>& p_keys,
                               const std::string& p_objectPath) const;

    /// Whether every keyword of the variable's definition holds at a place, in the definition's order.
    ///
    /// @throws data::notFound  No variable has the name of the root, or its record is not there yet.
    bool isAvailableAsDefined(const SplitVariableName& p_name, const PreVariableDefStore& p_definitions,
                              const std::string& p_objectPath) const;

    /// All keywords that are known, in ascending order.
    std::vector<std::string> supportedPhysAvailChecks() const;

private:
    class AvailabilityChecks;

    /// What the physics said at one place: a bit for each row of the keyword table.
    struct PlaceAnswers {
        std::uint64_t known = 0;
        std::uint64_t holds = 0;    // of those that are known
    };

    bool doCheck(const std::string& p_key, const std::string& p_objectPath) const;
    void clearCache();

    friend struct VarAvailabilityCheckerPeer;    // tests look at single checks and at the cache

    const ModelQCL* m_model;
    std::shared_ptr<const AvailabilityChecks> m_checks;    // shared with all copies
    mutable std::unordered_map<std::string, PlaceAnswers> m_cache;
    const ShortVarNameFinder* m_shortNames;
};

}    // namespace qen
