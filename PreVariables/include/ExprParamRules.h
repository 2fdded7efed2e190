#pragma once

#include "PreVariablesApi.h"

#include <set>
#include <string>
#include <vector>

namespace qen {

class ModelQCL;

/// What the rules say about one parameter. Implemented by the host; outlives the checker.
///
/// No exception is expected. Any passes through the checker, but one of the `expressions::error` family would become
/// a record.
class QEN_PREVARIABLES_API ExprParamRules {
public:    // in slot order, which never changes
    /// 0: the lower bound as the rules write it; empty when there is none. Messages show it unchanged.
    virtual std::string lowerBound(const std::string& p_objectPath, const std::string& p_paramName,
                                   const ModelQCL* p_model) const = 0;

    /// 1: the upper bound, likewise.
    virtual std::string upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                                   const ModelQCL* p_model) const = 0;

    /// 2: the parameter's kind. "Expression" marks a value that is itself an expression of any dimension: its units,
    /// what it may depend on, its prefixes and its availability are not checked.
    virtual std::string paramKind(const std::string& p_objectPath, const std::string& p_paramName,
                                  const ModelQCL* p_model) const = 0;

    /// 3: whether the parameter is "Single Valued".
    virtual bool isSingleValued(const std::string& p_objectPath, const std::string& p_paramName,
                                const ModelQCL* p_model) const = 0;

    /// 4: what the parameter may depend on: short variable names, and the keywords "NONE", "ANY" (as the first
    /// entry), "XYZ" and "XYZT". An empty list means the same as "NONE".
    virtual std::vector<std::string> dependencies(const std::string& p_objectPath,
                                                  const std::string& p_paramName,
                                                  const ModelQCL* p_model) const = 0;

    /// 5: the name of every parameter that the rules govern. A checker asks once.
    virtual std::set<std::string> allParamNames() const = 0;

    ExprParamRules() = default;
    ExprParamRules(const ExprParamRules&) = default;
    ExprParamRules& operator=(const ExprParamRules&) = default;

protected:
    ~ExprParamRules() = default;    // not virtual: the library never destroys a host object
};

}    // namespace qen
