#pragma once

#include "PreVariablesApi.h"
#include "QCLUpdateHandler.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qen {

class DimExprChecker;
class ModelQCL;
class ModelRules;
class QCLUpdateInfo;

/// Follows the changes of a model. A changed plain number is checked at once, quietly; what cannot be judged yet is
/// kept: expressions, values of parameters whose quantity is set dynamically, named expressions, and numbers that
/// failed. `runDeferredChecks` checks all that is kept, with records, and forgets what has become clean.
///
/// The objects given at construction are not owned and must outlive the scheduler. Exceptions that the checker does
/// not catch pass through; what was handled before stays handled, and the entry at hand stays kept, with the flags of the
/// numbers whose checks returned. One thread at a time, and not from within a call that it makes of these objects.
class QEN_PREVARIABLES_API DimExprCheckScheduler : public QCLUpdateHandler {
public:
    /// One number of a value.
    struct NumericValue {
        float value = 0.0F;
        std::string units;
        bool ok = false;    ///< its last check passed
    };

    /// The kept value of one parameter.
    struct ParamValue {
        enum Mode : std::int32_t {
            Plain = 0,
            DynamicQuantity = 1,    ///< the parameter's quantity is set dynamically
            NamedExpression = 2,    ///< a parameter of an object whose last type is "EXPRESSIONS"
        };

        std::int32_t mode = Plain;
        std::vector<NumericValue> numbers;    ///< the items that are numbers, in order
        std::vector<std::string>
            expressions;    ///< the other items, in order; every item of a named expression
    };

    /// @param p_updateInfo  May be null.
    DimExprCheckScheduler(const ModelQCL* p_model, const ModelRules* p_modelRules,
                          const QCLUpdateInfo* p_updateInfo, DimExprChecker* p_checker);
    ~DimExprCheckScheduler();

    DimExprCheckScheduler(const DimExprCheckScheduler&) = default;
    DimExprCheckScheduler& operator=(const DimExprCheckScheduler&) = default;

    /// Examines one parameter now, with the value that the model holds: checks it quietly, keeps it or forgets it.
    /// A parameter that is not numeric is left alone.
    void checkParam(const std::string& p_objectPath, const std::string& p_paramName);

    /// Splits a value at its commas and appends the items to the lists of @p p_value, as its mode says.
    void processValueString(const std::string& p_valueText, ParamValue& p_value) const;

    /// Keeps a copy of the value, in place of one that is kept for that parameter.
    void addDeferredParam(const std::string& p_objectPath, const std::string& p_paramName,
                          const ParamValue& p_value);

    /// Forgets a parameter, and its object when nothing else is kept for that.
    void eraseDeferredParam(const std::string& p_objectPath, const std::string& p_paramName);

    /// Whether a value is plain, holds no expressions and all its numbers passed.
    bool canRemoveDeferredParam(const ParamValue& p_value) const;

    bool areAllOK(const std::vector<NumericValue>& p_numbers) const;

    /// Clears the checker's records and checks all that is kept; the records are then the problems of what is kept.
    void runDeferredChecks();

    /// Checks every expression, with records.
    void runDeferredExprChecks(const std::string& p_objectPath, const std::string& p_paramName,
                               const std::vector<std::string>& p_expressions);

    /// Checks the numbers in order, with records, and stops at the first that fails: later ones keep their flag.
    void runDeferredNumChecks(const std::string& p_objectPath, const std::string& p_paramName,
                              std::vector<NumericValue>& p_numbers);

    /// Has the host replay its pending changes into this scheduler; does nothing without an update record.
    void processChangedParameters();

private:
    void onParamChange(const std::string& p_objectPath, const std::string& p_paramName,
                       const std::string& p_value, bool p_flag) override;
    void onParamDeletion(const std::string& p_objectPath, const std::string& p_paramName) override;
    void onObjectDeletion(const std::string& p_objectPath) override;

    using ParamValues = std::map<std::string, ParamValue>;    // by parameter name

    void runChecksOfObject(const std::string& p_objectPath, ParamValues& p_params);

    friend struct DimExprCheckSchedulerPeer;    // tests look at what is kept

    const ModelQCL* m_model;
    const ModelRules* m_modelRules;
    const QCLUpdateInfo* m_updateInfo;
    DimExprChecker* m_checker;
    std::map<std::string, ParamValues> m_deferred;    // by object path
};

}    // namespace qen
