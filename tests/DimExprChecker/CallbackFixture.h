#pragma once

#include "CallbackInfo.h"
#include "DimExprChecker.h"
#include "LocatorDimension.h"

#include "support/HostReports.h"
#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qen::support {

using Definition = std::map<std::string, std::string>;

/// A flow with one domain, a duct, in which expressions are checked; and what expressions can be made of.
///
/// Variables, all of scope "GLOBAL": the eight coordinates, the fields "Temperature" and "Velocity" (a vector), "Time
/// Step", which is no field, and "Position X" of a rigid body.
///
/// Operators: "tave" ("Time Average") for any argument, "cbop" ("Callback Operator") for arguments but not for the value
/// of an expression, "evop" ("Value Operator") for that alone, and "genop" ("General Operator") for no argument.
///
/// Functions: "average" (surface or volume), "force" (surface, with components), "trace" (anywhere, field valued),
/// "probe" and "rbstate" (point, with components).
///
/// Locators: the boundary "Inlet" of the duct, "Plane" and "Box", which are no objects, the monitor point "P1", and the
/// rigid body "Rotor", of unknown dimension.
struct Duct {
    static constexpr const char* k_path = "/FLOW:F/DOMAIN:Duct";
    static constexpr const char* k_param = "Speed";
    static constexpr const char* k_point = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P1";

    enum class Coordinates { Defined, Undefined };

    explicit Duct(Coordinates p_coordinates = Coordinates::Defined)
    {
        HostReports::reset();
        if (p_coordinates == Coordinates::Defined)
            for (const char* name : {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"})
                define(name, {{"Field Variable", "T"}});
        define("Temperature", {{"Field Variable", "T"}, {"Variable Scope", "GLOBAL"}});
        define("Velocity", {{"Tensor Type", "VECTOR"},
                            {"Field Variable", "T"},
                            {"Variable Scope", "GLOBAL"},
                            {"Component Short Names", "U,V,W"},
                            {"Component Long Names", "Velocity u,Velocity v,Velocity w"}});
        define("Time Step", {{"Variable Scope", "GLOBAL"}});
        define("Position X", {{"Variable Class", "RBS"}, {"Variable Scope", "GLOBAL"}});

        defineOperator("tave", "Time Average", "GENERAL,CALLBACK,EXPRESSION VALUE");
        defineOperator("cbop", "Callback Operator", "CALLBACK");
        defineOperator("evop", "Value Operator", "EXPRESSION VALUE");
        defineOperator("genop", "General Operator", "GENERAL");

        defineFunction("average", {{"Locator Dimension", "Surface,Volume"}});
        defineFunction("force", {{"Tensor Type", "VECTOR"}, {"Locator Dimension", "Surface"}});
        defineFunction("trace", {{"CallBack Type", "Field"}, {"Locator Dimension", "Point,Surface,Volume"}});
        defineFunction("probe", {{"Tensor Type", "VECTOR"}, {"Locator Dimension", "Point"}});
        defineFunction("rbstate", {{"Tensor Type", "VECTOR"}, {"Locator Dimension", "Point"}});

        host.object("/FLOW:F");
        host.parameter(k_path, k_param);
        host.locator("F", "Inlet")
            .isObject("/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet")
            .hasDimension(LocatorDimension::Surface);
        host.locator("F", "Plane").hasDimension(LocatorDimension::Surface);
        host.locator("F", "Box").hasDimension(LocatorDimension::Volume);
        addMonitorPoint("P1");
        host.object("/FLOW:F/RIGID BODY:Rotor");
        host.locator("F", "Rotor");
        host.forgetCalls();
    }

    ~Duct() { HostReports::reset(); }
    Duct(const Duct&) = delete;
    Duct& operator=(const Duct&) = delete;

    // What there is.

    /// A scalar unless the keys say otherwise.
    void define(const std::string& p_name, Definition p_keys)
    {
        p_keys.insert({"Tensor Type", "SCALAR"});
        host.varDefStore().addVariableDefinition(p_name, p_keys);
    }

    void defineOperator(const std::string& p_short, const std::string& p_long,
                        const std::string& p_availability)
    {
        host.varDefStore().addVariableOperatorDefinition(
            p_short,
            {{"Tensor Type", "SCALAR"}, {"Long Name", p_long}, {"QEL Availability", p_availability}});
    }

    void defineFunction(const std::string& p_name, Definition p_keys)
    {
        p_keys.insert({{"Result Units", "[]"},
                       {"Number of Arguments", "1"},
                       {"CallBack Type", "Scalar"},
                       {"Tensor Type", "SCALAR"}});
        host.callbackStore().addCBDefinition(p_name, p_keys);
    }

    /// The vector of the angles of a rigid body, and its components; a state of one unless the class says otherwise.
    void defineEulerAngles(const std::string& p_class = "RBS")
    {
        define("Euler Angle", {{"Tensor Type", "VECTOR"},
                               {"Variable Class", p_class},
                               {"Variable Scope", "GLOBAL"},
                               {"Component Short Names", "Euler Angle X,Euler Angle Y,Euler Angle Z"},
                               {"Component Long Names", "Long Angle X,Long Angle Y,Long Angle Z"}});
    }

    void set(const std::string& p_objectPath, const std::string& p_param, const std::string& p_value)
    {
        host.parameter(p_objectPath, p_param).hasStoredValue(p_value);
    }

    /// The path of a monitor point, which is a point locator too. Without a domain of its own.
    std::string addMonitorPoint(const std::string& p_name)
    {
        std::string path = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:" + p_name;
        host.object(path);
        host.locator("F", p_name).isObject(path).hasDimension(LocatorDimension::Point);
        return path;
    }

    /// A monitor point whose value is an expression, with statistics unless they are empty.
    std::string addExpressionPoint(const std::string& p_name, const std::string& p_statistics = "")
    {
        std::string path = addMonitorPoint(p_name);
        set(path, "Option", "Expression");
        if (!p_statistics.empty())
            set(path + "/MONITOR STATISTICS", "Statistics List", p_statistics);
        return path;
    }

    void useTimeTransformation()
    {
        host.object("/FLOW:F/TRANSIENT BLADE ROW MODELS/TIME TRANSFORMATION:Wake");
    }

    /// A name in which the root is not the last part, or not all of it.
    std::string named(const std::string& p_fullName, const std::string& p_root)
    {
        host.variableName(p_fullName).hasRoot(p_root);
        return p_fullName;
    }

    // What is checked.

    /// An expression that makes these calls and references nothing else.
    bool checkCalls(const std::vector<CallbackInfo>& p_calls)
    {
        host.expression("calls").calls(p_calls);
        return checker.checkParamExpression(objectPath, k_param, "calls");
    }

    bool checkCall(const CallbackInfo& p_call) { return checkCalls({p_call}); }

    /// An expression that references one variable and calls nothing.
    bool checkVariable(const std::string& p_fullName)
    {
        host.expression("variable").references({p_fullName});
        return checker.checkParamExpression(objectPath, k_param, "variable");
    }

    // What came of it.

    std::vector<ExpressionErrors::ExprError> found() const { return records(checker); }

    /// The host calls behind the last that begins so, in order.
    std::vector<std::string> callsBehind(const std::string& p_call) const { return callsSince(p_call, 1); }

    /// The host calls from the last that begins so, in order.
    std::vector<std::string> callsFrom(const std::string& p_call) const { return callsSince(p_call, 0); }

    /// The host calls that the check of callback functions makes.
    std::vector<std::string> callbackCalls() const { return callsBehind("rules.isSingleValued("); }

    ScriptedHost host;
    DimExprChecker checker = host.makeChecker();
    std::string objectPath = k_path;

private:
    std::vector<std::string> callsSince(const std::string& p_call, std::ptrdiff_t p_skipped) const
    {
        const std::vector<std::string>& calls = host.calls();
        const auto last = std::find_if(calls.rbegin(), calls.rend(),
                                       [&](const std::string& p_made) { return p_made.starts_with(p_call); });
        if (last == calls.rend())
            return {"nothing was asked of " + p_call};
        return {std::prev(last.base()) + p_skipped, calls.end()};
    }
};

/// An error for the parameter that is checked in the duct.
MATCHER_P(DuctError, p_text, std::string("is an error for 'Speed' of the duct saying \"") + p_text + '"')
{
    return arg.level == ExpressionErrors::Error && arg.object == Duct::k_path &&
           arg.parameter == Duct::k_param && arg.message == p_text;
}

}    // namespace qen::support
