#pragma once

#include "DimExprChecker.h"
#include "DimExprCheckScheduler.h"
#include "ExprCBFuncStore.h"
#include "ExprParamRules.h"
#include "LocatorInfo.h"
#include "ModelQCL.h"
#include "ModelRules.h"
#include "PhysicsEvaluator.h"
#include "PreVariableDefStore.h"
#include "QCLUpdateInfo.h"
#include "QuantityModifier.h"
#include "ShortVarNameFinder.h"
#include "SplitVariableName.h"
#include "VarAvailabilityChecker.h"
#include "VariablePrefixInfo.h"

#include "support/CallLog.h"
#include "support/Scripts.h"
#include "support/UnitsTable.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qen::support {

/// A host whose every answer a test can set, and which notes every call. The latest one answers for the statics of
/// `host/`; texts, lists and paths work by themselves.
///
///     ScriptedHost host;
///     host.parameter("/FLOW:F/DOMAIN:Duct", "Inlet Pressure").hasQuantity("Pressure", "kg m^-1 s^-2");
///     DimExprChecker checker = host.makeChecker();
///
/// Must outlive the checkers and schedulers that it makes.
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    /// The host that answers for the statics. A test without one is at fault and ends with an exception.
    static ScriptedHost& current();

    // What the model and its rules hold.

    /// The object exists and the rules know its path and the parameter.
    ScriptedParameter& parameter(const std::string& p_objectPath, const std::string& p_paramName);

    void object(const std::string& p_objectPath);
    void removeObject(const std::string& p_objectPath);

    void rulesDoNotKnowPath(const std::string& p_objectPath) { m_unknownPaths.insert(p_objectPath); }
    void rulesDoNotKnowParameter(const std::string& p_paramName) { m_unknownParams.insert(p_paramName); }
    void rulesGovern(std::set<std::string> p_paramNames) { m_governedParams = std::move(p_paramNames); }

    // Units, beyond the real ones of UnitsTable.

    void quantity(const std::string& p_name, const std::string& p_baseUnits);
    void dynamicQuantity(const std::string& p_name, const std::string& p_expectedUnits);
    void units(const std::string& p_name, const UnitsMeaning& p_meaning) { m_units.set(p_name, p_meaning); }
    void refusesConversion(const std::string& p_from, const std::string& p_to);

    // The expression language.

    ScriptedExpression& expression(const std::string& p_text) { return m_expressions[p_text]; }
    ScriptedVariableName& variableName(const std::string& p_fullName) { return m_variableNames[p_fullName]; }
    void isNotAVariableName(const std::string& p_text) { m_notVariableNames.insert(p_text); }

    // Places, prefixes, physics.

    ScriptedLocator& locator(const std::string& p_flowName, const std::string& p_locator);
    ScriptedPrefixes& prefixes(const std::string& p_prefix1, const std::string& p_prefix2);
    ScriptedQuery& query(const std::string& p_query, const std::string& p_objectPath);

    /// A change that `processChangedParameters` has the host replay.
    void pendingChange(std::function<void(QCLUpdateHandler&)> p_change);

    // What was asked of the host, in order: "rules.lowerBound(/FLOW:F/DOMAIN:Duct, Inlet Pressure)".

    const std::vector<std::string>& calls() const { return m_log.all(); }
    std::vector<std::string> callsTo(const std::vector<std::string>& p_beginnings) const
    {
        return m_log.beginningWith(p_beginnings);
    }
    void forgetCalls() { m_log.clear(); }

    /// Has something happen at each later call whose text begins so; to throw an exception, say.
    void onCall(const std::string& p_call, CallLog::Action p_action)
    {
        m_log.onCall(p_call, std::move(p_action));
    }

    // The library's objects in this host.

    /// The catalogues that the checkers are given: real ones, without a definition unless the test adds some.
    PreVariableDefStore& varDefStore() { return m_varDefStore; }
    ExprCBFuncStore& callbackStore() { return m_callbackStore; }

    /// The availability checker that the checkers are given. It has declared its queries before anything is noted.
    VarAvailabilityChecker& availabilityChecker() { return m_availabilityChecker; }

    DimExprChecker makeChecker() const;
    VarAvailabilityChecker makeAvailabilityChecker() const;
    DimExprCheckScheduler makeScheduler(DimExprChecker& p_checker) const;
    DimExprCheckScheduler makeSchedulerWithoutUpdateInfo(DimExprChecker& p_checker) const;

    const ModelQCL* model() const;
    const ExprParamRules* rules() const;
    const QuantityModifier* quantityModifier() const;
    const ModelRules* modelRules() const;
    const LocatorInfo* locatorInfo() const;
    const VariablePrefixInfo* prefixInfo() const;
    const ShortVarNameFinder* shortNameFinder() const;
    const VariableRootNameFinder* rootNameFinder() const;
    const PhysicsEvaluator* physicsEvaluator() const;
    const QCLUpdateInfo* updateInfo() const;

private:
    friend struct ScriptedHostAnswers;    // the interfaces and statics, which read what is set here
    struct Interfaces;

    using PlaceAndName = std::pair<std::string, std::string>;

    ScriptedHost* m_outer;
    mutable CallLog m_log;
    UnitsTable m_units;
    PreVariableDefStore m_varDefStore;
    ExprCBFuncStore m_callbackStore;
    std::vector<std::string> m_objects;    // in the order in which they came
    std::map<PlaceAndName, ScriptedParameter> m_parameters;
    std::set<std::string> m_unknownPaths;
    std::set<std::string> m_unknownParams;
    std::set<std::string> m_governedParams;
    std::map<std::string, std::string> m_quantities;           // name to base units
    std::map<std::string, std::string> m_dynamicQuantities;    // name to expected units
    std::set<PlaceAndName> m_refusedConversions;               // from and to
    std::map<std::string, ScriptedExpression> m_expressions;
    std::map<std::string, ScriptedVariableName> m_variableNames;
    std::set<std::string> m_notVariableNames;
    std::map<PlaceAndName, ScriptedLocator> m_locators;    // by flow and locator
    std::map<PlaceAndName, ScriptedPrefixes> m_prefixes;
    std::map<PlaceAndName, ScriptedQuery> m_queries;    // by query and path
    std::vector<std::function<void(QCLUpdateHandler&)>> m_changes;
    std::unique_ptr<const Interfaces> m_interfaces;
    VarAvailabilityChecker m_availabilityChecker;
};

}    // namespace qen::support
