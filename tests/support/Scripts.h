#pragma once

#include "CallbackInfo.h"
#include "LocatorDimension.h"
#include "Quantity.h"
#include "VariablePrefixInfo.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// What a test says about one thing of the scripted host. Each sentence returns its subject, so that they chain.
namespace qen::support {

class ScriptedHost;

/// A parameter of an object. Unless more is said: numeric, unset, no quantity, no bounds, no kind, field valued, may
/// depend on anything.
class ScriptedParameter {
public:
    using Self = ScriptedParameter;

    /// The text in the model.
    Self& hasStoredValue(std::string p_text) { return set(storedValue, std::move(p_text)); }

    /// A quantity whose name the host knows; the base units are told with `ScriptedHost::quantity`.
    Self& hasQuantity(std::string p_name) { return set(quantity, std::move(p_name)); }

    /// The same, and its base units at once.
    Self& hasQuantity(const std::string& p_name, const std::string& p_baseUnits);

    Self& hasLowerBound(std::string p_text) { return set(lowerBound, std::move(p_text)); }
    Self& hasUpperBound(std::string p_text) { return set(upperBound, std::move(p_text)); }
    Self& isKind(std::string p_kind) { return set(kind, std::move(p_kind)); }
    Self& isSingleValued() { return set(singleValued, true); }
    Self& dependsOn(std::vector<std::string> p_keywords) { return set(dependencies, std::move(p_keywords)); }

    /// Takes its quantity, "Dynamic Quantity", from elsewhere; both questions about that are answered so.
    Self& isDynamic(std::string p_expectedUnits);

    /// Only the mode that comes with the quantity's name.
    Self& hasQuantityMode(int p_mode) { return set(quantityMode, p_mode); }

    /// Only the answer to whether the quantity is dynamic.
    Self& isCalledDynamic(bool p_answer = true) { return set(calledDynamic, p_answer); }

    /// Not of a numeric type.
    Self& isText() { return set(numeric, false); }

    std::string storedValue;
    std::string quantity;
    std::string lowerBound;
    std::string upperBound;
    std::string kind;
    bool singleValued = false;
    std::vector<std::string> dependencies {"ANY"};
    int quantityMode = 0;
    bool calledDynamic = false;
    bool numeric = true;

    explicit ScriptedParameter(ScriptedHost* p_host) : m_host(p_host) {}

private:
    template <class Value>
    Self& set(Value& p_member, Value p_value)
    {
        p_member = std::move(p_value);
        return *this;
    }

    ScriptedHost* m_host;
};

/// An expression text. Unless more is said: references nothing, dimensionless, no single value.
class ScriptedExpression {
public:
    using Self = ScriptedExpression;

    Self& references(std::vector<std::string> p_variables)
    {
        variables = std::move(p_variables);
        return *this;
    }

    Self& calls(std::vector<CallbackInfo> p_callbacks)
    {
        callbacks = std::move(p_callbacks);
        return *this;
    }

    /// The dimensions of the result, as units.
    Self& hasDimensions(std::string p_units)
    {
        dimensions = std::move(p_units);
        return *this;
    }

    /// Is constant, with the dimensions of the units.
    Self& isConstant(float p_value, std::string p_units)
    {
        dimensions = p_units;
        value = Quantity(p_value, std::move(p_units));
        return *this;
    }

    /// Evaluates to a quantity that throws when it is asked for its value.
    Self& hasNoSingleValue()
    {
        value = Quantity();
        return *this;
    }

    /// Cannot be parsed.
    Self& failsWith(std::string p_text)
    {
        parseError = std::move(p_text);
        return *this;
    }

    /// Can be parsed, but not evaluated.
    Self& throwsOnEvaluation(std::string p_text)
    {
        evaluationError = std::move(p_text);
        return *this;
    }

    std::vector<std::string> variables;
    std::vector<CallbackInfo> callbacks;
    std::string dimensions;
    std::optional<Quantity> value;
    std::optional<std::string> parseError;
    std::optional<std::string> evaluationError;
};

/// A locator of a flow. Unless more is said: valid, no model object, of unknown dimension.
class ScriptedLocator {
public:
    using Self = ScriptedLocator;

    Self& isUnknown()
    {
        valid = false;
        return *this;
    }

    /// Stands for the model object at that path.
    Self& isObject(std::string p_path)
    {
        modelObject = true;
        path = std::move(p_path);
        return *this;
    }

    Self& hasDimension(LocatorDimension::Value p_dimension)
    {
        dimension = p_dimension;
        return *this;
    }

    bool valid = true;
    bool modelObject = false;
    std::string path;
    LocatorDimension::Value dimension = LocatorDimension::Unknown;
};

/// How a pair of prefixes is classified.
class ScriptedPrefixes {
public:
    void areClassifiedAs(VariablePrefixInfo::Classification p_classification)
    {
        classification = std::move(p_classification);
    }

    void failWith(std::string p_text) { errorText = std::move(p_text); }

    VariablePrefixInfo::Classification classification;
    std::string errorText;
};

/// A physics query at an object.
class ScriptedQuery {
public:
    void isTrue() { truth = true; }
    void answers(std::vector<std::string> p_list) { list = std::move(p_list); }

    bool truth = false;
    std::vector<std::string> list;
};

/// A variable name as the host sees it.
class ScriptedVariableName {
public:
    using Self = ScriptedVariableName;

    Self& hasRoot(std::string p_root)
    {
        root = std::move(p_root);
        return *this;
    }

    /// Has no part that anybody knows.
    Self& hasNoRoot() { return hasRoot(""); }

    /// Its root is an additional variable.
    Self& isAV()
    {
        av = true;
        return *this;
    }

    /// Its root is the value of a monitor point's expression.
    Self& isMPExprValue()
    {
        mpExprValue = true;
        return *this;
    }

    Self& hasShortName(std::string p_shortName)
    {
        shortName = std::move(p_shortName);
        return *this;
    }

    std::optional<std::string> root;    // the last component when nothing is said
    bool av = false;
    bool mpExprValue = false;
    std::optional<std::string> shortName;    // the full name when nothing is said
};

}    // namespace qen::support
