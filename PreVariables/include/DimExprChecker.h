#pragma once

#include "ExpressionErrors.h"
#include "PreVariablesApi.h"
#include "VariablePrefixInfo.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qen {

class ExprCBFuncStore;
class ExprParamRules;
class LocatorInfo;
class ModelQCL;
class PreVariableDefStore;
class QCLPath;
class QuantityModifier;
class SplitVariableName;
class UnitDimensions;
class VarAvailabilityChecker;
struct CallbackInfo;

/// Checks parameters of the model, one at a time: the units and bounds of numbers, and of expressions that they parse,
/// resolve to the right dimensions and reference only what exists and is available at that place. Each problem becomes
/// one record; a parameter's first problem ends its check.
///
/// The objects given at construction are neither owned nor copied and must outlive the checker. A copy carries the
/// records and caches of its original. One thread at a time, and not from within a call that a check makes of the host or
/// of a listener.
class QEN_PREVARIABLES_API DimExprChecker : public ExpressionErrors {
public:
    DimExprChecker(const ModelQCL* p_model, const ExprParamRules* p_rules,
                   const QuantityModifier* p_quantityModifier, const PreVariableDefStore* p_varDefStore,
                   const VariablePrefixInfo* p_prefixInfo,
                   const VarAvailabilityChecker* p_availabilityChecker, const LocatorInfo* p_locatorInfo,
                   const ExprCBFuncStore* p_callbackStore);

    DimExprChecker(const DimExprChecker&);
    DimExprChecker& operator=(const DimExprChecker&);
    ~DimExprChecker() override;

    /// Checks a parameter's value: as a number if the whole text is one, with or without units, else as an expression.
    ///
    /// @param p_objectPath  Path of the object, e.g. "/FLOW:F/DOMAIN:Duct". Records show it as it is given here.
    /// @param p_value       The text that the user typed.
    /// @return True when nothing is wrong. Otherwise false, with one record added.
    /// @throws qen::data::error  As `checkParamNumeric`; whatever else the host's interfaces throw passes too, unless it
    ///                           is of the `expressions::error` family. Nothing is recorded then.
    bool checkParam(const std::string& p_objectPath, const std::string& p_paramName,
                    const std::string& p_value);

    /// Checks a value that is known to be an expression. Of a named expression, that is a parameter of exactly
    /// "/LIBRARY/QEL/EXPRESSIONS", only the name is looked at.
    ///
    /// @return As `checkParam`.
    bool checkParamExpression(const std::string& p_objectPath, const std::string& p_paramName,
                              const std::string& p_value);

    /// Checks one number against the dimension and then the bounds of its parameter. Bounds are converted into the
    /// value's units; a miss of less than one part in ten million of the bound (1e-7 for a bound of zero) passes.
    ///
    /// @param p_value         The number, measured in @p p_units.
    /// @param p_units         Units text such as "m s^-1"; empty means dimensionless.
    /// @param p_recordErrors  False for a quiet check: same answer, no record.
    /// @return True when nothing is wrong. Otherwise false, with one record added unless the check is quiet.
    /// @throws qen::data::error  The rules hold a bound that is no number or cannot be converted. Nothing is recorded.
    bool checkParamNumeric(const std::string& p_objectPath, const std::string& p_paramName, float p_value,
                           const std::string& p_units, bool p_recordErrors);

    /// Whether the parameter takes its quantity from elsewhere in the model.
    bool isDynamicQuantityParam(const std::string& p_objectPath, const std::string& p_paramName) const;

    /// Removes all records. Nothing else does.
    void clearErrors();

    const_iterator beginExprError() const override;
    const_iterator endExprError() const override;

private:
    // Each check returns when nothing is wrong, and otherwise raises; the entry points above make the record.

    // The order of the steps for one expression.
    bool readExpression(const std::string& p_paramName, const std::string& p_expression,
                        UnitDimensions& p_dims);
    inline void checkParamExprImpl(const std::string& p_objectPath, const std::string& p_paramName,
                                   const std::string& p_expression);
    template <class Check>
    bool passes(const std::string& p_objectPath, const std::string& p_paramName, bool p_recordErrors,
                const Check& p_check);

    // Named expressions.
    void checkLibraryExpr(const std::string& p_exprName, const std::string& p_value);
    const std::set<std::string>& getAllParamsInRules() const;

    // Units and bounds.
    enum class UnitsFault : std::uint8_t;
    UnitsFault unitsFault(const std::string& p_objectPath, const std::string& p_paramName,
                          const std::string& p_units, bool p_fromExpression);
    inline void checkUnits(const std::string& p_objectPath, const std::string& p_paramName,
                           const std::string& p_units, bool p_fromExpression);
    void checkParamNumericImpl(const std::string& p_objectPath, const std::string& p_paramName, float p_value,
                               const std::string& p_units);
    void checkParamUnits(const std::string& p_objectPath, const std::string& p_paramName,
                         const std::string& p_units, bool p_fromExpression);
    void checkParamUnits(const std::string& p_objectPath, const std::string& p_paramName,
                         const UnitDimensions& p_dims, bool p_fromExpression);
    void checkParamBounds(const std::string& p_objectPath, const std::string& p_paramName, float p_value,
                          const std::string& p_units);
    float extractBoundValue(const std::string& p_paramName, const std::string& p_boundText,
                            const std::string& p_units);
    bool splitBoundString(const std::string& p_boundText, float& p_value, std::string& p_units);

    // The variables that an expression references.
    void checkVariablesUsed(const std::string& p_objectPath, const std::string& p_paramName,
                            const std::string& p_paramValue, bool p_singleValued, bool p_expressionKind,
                            const std::vector<std::string>& p_variableNames);
    void checkVariable(const std::string& p_objectPath, const std::string& p_paramName, bool p_singleValued,
                       const std::string& p_variableName);
    void checkIsScalarVariable(const std::string& p_objectPath, const std::string& p_paramName,
                               const SplitVariableName& p_name);
    void checkValidCoordUsage(const std::string& p_objectPath, const std::string& p_paramName,
                              const SplitVariableName& p_name);
    void checkSuffixes(const std::string& p_objectPath, const std::string& p_paramName,
                       const SplitVariableName& p_name);

    // The callback functions that it calls.
    void checkCallbacksUsed(const std::string& p_objectPath, const std::string& p_paramName,
                            bool p_fieldValuedAllowed, const std::vector<CallbackInfo>& p_callbacks);

    // Prefixes and additional variables.
    static QCLPath prefixContextOf(const std::string& p_objectPath);
    void checkVariablePrefixes(const std::string& p_objectPath, const std::string& p_paramName,
                               const SplitVariableName& p_name);
    void checkVariablePrefixes(const std::string& p_objectPath, const std::string& p_paramName,
                               const std::string& p_domainName, const SplitVariableName& p_name,
                               bool p_useObjectContext);
    void checkPrefixesAt(const QCLPath& p_contextPath, const std::string& p_objectPath,
                         const std::string& p_paramName, const SplitVariableName& p_name);
    void checkAVPrefix(const std::string& p_objectPath, const std::string& p_paramName,
                       const QCLPath& p_contextPath, const SplitVariableName& p_name,
                       const VariablePrefixInfo::Classification& p_classification);
    std::vector<std::string> findDomainAVPath(const std::string& p_domainPath, const std::string& p_avName);

    // What the physics provides.
    void checkVariableAvailability(const std::string& p_objectPath, const std::string& p_paramName,
                                   const std::vector<SplitVariableName>& p_splitNames);

    friend struct DimExprCheckerPeer;    // tests look at single steps and at the caches

    // What one check gathers, in memory that is kept for the next. A copy of the checker gathers for itself.
    struct Gathered;
    class GatheredMemory {
    public:
        GatheredMemory();
        GatheredMemory(const GatheredMemory&);
        GatheredMemory& operator=(const GatheredMemory&);
        ~GatheredMemory();

        Gathered* operator->() const { return m_own.get(); }

    private:
        std::unique_ptr<Gathered> m_own;    // never null
    };

    const ModelQCL* m_model;
    const ExprParamRules* m_rules;
    const QuantityModifier* m_quantityModifier;
    const PreVariableDefStore* m_varDefStore;
    const VariablePrefixInfo* m_prefixInfo;
    const VarAvailabilityChecker* m_availabilityChecker;
    const LocatorInfo* m_locatorInfo;
    const ExprCBFuncStore* m_callbackStore;
    std::vector<ExprError> m_errors;
    std::map<std::string, std::pair<float, std::string>> m_boundCache;    // bound text to value and units
    mutable std::set<std::string> m_ruleParamNames;                       // filled on first use
    mutable bool m_ruleNamesCached = false;
    GatheredMemory m_gathered;
};

}    // namespace qen
