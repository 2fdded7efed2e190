#pragma once

#include "DimExprChecker.h"
#include "SplitVariableName.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qen {

/// Runs single steps of a checker, which raise what the entry points would record, and looks at its caches.
struct DimExprCheckerPeer {
    static void checkParamNumericImpl(DimExprChecker& p_checker, const std::string& p_objectPath,
                                      const std::string& p_paramName, float p_value,
                                      const std::string& p_units)
    {
        p_checker.checkParamNumericImpl(p_objectPath, p_paramName, p_value, p_units);
    }

    /// @tparam Units  A units text or UnitDimensions.
    template <class Units>
    static void checkParamUnits(DimExprChecker& p_checker, const std::string& p_objectPath,
                                const std::string& p_paramName, const Units& p_units, bool p_fromExpression)
    {
        p_checker.checkParamUnits(p_objectPath, p_paramName, p_units, p_fromExpression);
    }

    static void checkParamBounds(DimExprChecker& p_checker, const std::string& p_objectPath,
                                 const std::string& p_paramName, float p_value, const std::string& p_units)
    {
        p_checker.checkParamBounds(p_objectPath, p_paramName, p_value, p_units);
    }

    static float extractBoundValue(DimExprChecker& p_checker, const std::string& p_paramName,
                                   const std::string& p_boundText, const std::string& p_units)
    {
        return p_checker.extractBoundValue(p_paramName, p_boundText, p_units);
    }

    static bool splitBoundString(DimExprChecker& p_checker, const std::string& p_boundText, float& p_value,
                                 std::string& p_units)
    {
        return p_checker.splitBoundString(p_boundText, p_value, p_units);
    }

    static void checkVariableAvailability(DimExprChecker& p_checker, const std::string& p_objectPath,
                                          const std::string& p_paramName,
                                          const std::vector<SplitVariableName>& p_splitNames)
    {
        p_checker.checkVariableAvailability(p_objectPath, p_paramName, p_splitNames);
    }

    static void checkVariablePrefixes(DimExprChecker& p_checker, const std::string& p_objectPath,
                                      const std::string& p_paramName, const SplitVariableName& p_name)
    {
        p_checker.checkVariablePrefixes(p_objectPath, p_paramName, p_name);
    }

    static void checkVariablePrefixes(DimExprChecker& p_checker, const std::string& p_objectPath,
                                      const std::string& p_paramName, const std::string& p_domainName,
                                      const SplitVariableName& p_name, bool p_useObjectContext)
    {
        p_checker.checkVariablePrefixes(p_objectPath, p_paramName, p_domainName, p_name, p_useObjectContext);
    }

    static std::map<std::string, std::pair<float, std::string>>& boundCache(DimExprChecker& p_checker)
    {
        return p_checker.m_boundCache;
    }
};

}    // namespace qen
