#include "support/ScriptedHost.h"

#include "QCLPath.h"

#include "support/ScriptedHostAnswers.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace qen::support {

namespace {

using Answers = ScriptedHostAnswers;

ScriptedHost* g_current = nullptr;

std::string text(bool p_value) { return p_value ? "true" : "false"; }

class ScriptedModel final : public ModelQCL {
public:
    explicit ScriptedModel(const ScriptedHost& p_host) : m_host(p_host) {}

    bool objectExists(const std::string& p_objectPath) const override
    {
        Answers::note(m_host, "model.objectExists", {p_objectPath});
        return std::ranges::count(Answers::objects(m_host), p_objectPath) != 0;
    }

    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        Answers::note(m_host, "model.paramValue", {p_objectPath, p_paramName});
        return Answers::parameter(m_host, p_objectPath, p_paramName).storedValue;
    }

    std::vector<std::string> childNames(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        Answers::note(m_host, "model.childNames", {p_objectPath, p_type});
        std::vector<std::string> names;
        for (const std::string& child : children(p_objectPath, p_type))
            names.push_back(QCLPath(child).getLastName());
        return names;
    }

    std::vector<std::string> childPaths(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        Answers::note(m_host, "model.childPaths", {p_objectPath, p_type});
        return children(p_objectPath, p_type);
    }

private:
    std::vector<std::string> children(const std::string& p_objectPath, const std::string& p_type) const
    {
        std::vector<std::string> result;
        for (const std::string& object : Answers::objects(m_host))
        {
            const QCLPath path(object);
            if (QCLPath(p_objectPath).isParent(path) && path.size() == QCLPath(p_objectPath).size() + 1 &&
                path.getLastType() == p_type)
                result.push_back(object);
        }
        return result;
    }

    const ScriptedHost& m_host;
};

class ScriptedRules final : public ExprParamRules {
public:
    explicit ScriptedRules(const ScriptedHost& p_host) : m_host(p_host) {}

    std::string lowerBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override
    {
        return asked("rules.lowerBound", p_objectPath, p_paramName, p_model).lowerBound;
    }

    std::string upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override
    {
        return asked("rules.upperBound", p_objectPath, p_paramName, p_model).upperBound;
    }

    std::string paramKind(const std::string& p_objectPath, const std::string& p_paramName,
                          const ModelQCL* p_model) const override
    {
        return asked("rules.paramKind", p_objectPath, p_paramName, p_model).kind;
    }

    bool isSingleValued(const std::string& p_objectPath, const std::string& p_paramName,
                        const ModelQCL* p_model) const override
    {
        return asked("rules.isSingleValued", p_objectPath, p_paramName, p_model).singleValued;
    }

    std::vector<std::string> dependencies(const std::string& p_objectPath, const std::string& p_paramName,
                                          const ModelQCL* p_model) const override
    {
        return asked("rules.dependencies", p_objectPath, p_paramName, p_model).dependencies;
    }

    std::set<std::string> allParamNames() const override
    {
        Answers::note(m_host, "rules.allParamNames", {});
        return Answers::governedParams(m_host);
    }

private:
    ScriptedParameter asked(const std::string& p_operation, const std::string& p_objectPath,
                            const std::string& p_paramName, const ModelQCL* p_model) const
    {
        Answers::note(m_host, p_operation,
                      {p_objectPath, p_paramName, p_model == m_host.model() ? "model" : "another model"});
        return Answers::parameter(m_host, p_objectPath, p_paramName);
    }

    const ScriptedHost& m_host;
};

class ScriptedQuantityModifier final : public QuantityModifier {
public:
    explicit ScriptedQuantityModifier(const ScriptedHost& p_host) : m_host(p_host) {}

    bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        Answers::note(m_host, "modifier.isDynamicQuantity", {p_objectPath, p_paramName});
        return Answers::parameter(m_host, p_objectPath, p_paramName).calledDynamic;
    }

    int quantityMode(const ModelQCL* p_model, const std::string& p_objectPath, const std::string& p_paramName,
                     std::string& p_quantityName) const override
    {
        Answers::note(m_host, "modifier.quantityMode",
                      {p_model == m_host.model() ? "model" : "another model", p_objectPath, p_paramName});
        const ScriptedParameter parameter = Answers::parameter(m_host, p_objectPath, p_paramName);
        p_quantityName = parameter.quantity;
        return parameter.quantityMode;
    }

    std::string dynamicUnits(const std::string& p_quantityName) const override
    {
        Answers::note(m_host, "modifier.dynamicUnits", {p_quantityName});
        return Answers::valueOr(Answers::dynamicQuantities(m_host), p_quantityName);
    }

private:
    const ScriptedHost& m_host;
};

/// The type of a parameter is its place among the scripted ones, negative when it is not numeric.
class ScriptedModelRules final : public ModelRules {
public:
    explicit ScriptedModelRules(const ScriptedHost& p_host) : m_host(p_host) {}

    bool isValidPath(const std::string& p_objectPath) const override
    {
        Answers::note(m_host, "modelRules.isValidPath", {p_objectPath});
        return !Answers::unknownPaths(m_host).contains(p_objectPath);
    }

    bool isValidParamName(const std::string& p_paramName) const override
    {
        Answers::note(m_host, "modelRules.isValidParamName", {p_paramName});
        return !Answers::unknownParams(m_host).contains(p_paramName);
    }

    ParamType getParamType(const std::string& p_lastType, const std::string& p_paramName) const override
    {
        Answers::note(m_host, "modelRules.getParamType", {p_lastType, p_paramName});
        int type = 1;
        for (const auto& [place, parameter] : Answers::parameters(m_host))
        {
            if (QCLPath(place.first).getLastType() == p_lastType && place.second == p_paramName)
                return static_cast<ParamType>(parameter.numeric ? type : -type);
            ++type;
        }
        return static_cast<ParamType>(0);
    }

private:
    const ScriptedHost& m_host;
};

class ScriptedLocatorInfo final : public LocatorInfo {
public:
    explicit ScriptedLocatorInfo(const ScriptedHost& p_host) : m_host(p_host) {}

    void reserved0() const override { throw std::logic_error("slot 0 of LocatorInfo was called"); }

    bool isValidLocator(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return asked("locators.isValidLocator", p_flowName, p_locator).valid;
    }

    void reserved2() const override { throw std::logic_error("slot 2 of LocatorInfo was called"); }

    bool isModelObject(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return asked("locators.isModelObject", p_flowName, p_locator).modelObject;
    }

    LocatorDimension::Value dimension(const std::string& p_flowName,
                                      const std::string& p_locator) const override
    {
        return asked("locators.dimension", p_flowName, p_locator).dimension;
    }

    std::string objectPath(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return asked("locators.objectPath", p_flowName, p_locator).path;
    }

private:
    ScriptedLocator asked(const std::string& p_operation, const std::string& p_flowName,
                          const std::string& p_locator) const
    {
        Answers::note(m_host, p_operation, {p_flowName, p_locator});
        return Answers::valueOr(Answers::locators(m_host), std::pair(p_flowName, p_locator),
                                ScriptedLocator().isUnknown());
    }

    const ScriptedHost& m_host;
};

class ScriptedPrefixInfo final : public VariablePrefixInfo {
public:
    explicit ScriptedPrefixInfo(const ScriptedHost& p_host) : m_host(p_host) {}

    void reserved0() const override { throw std::logic_error("slot 0 of VariablePrefixInfo was called"); }
    void reserved1() const override { throw std::logic_error("slot 1 of VariablePrefixInfo was called"); }

    Classification classifyPrefixes(const QCLPath& p_contextPath, const std::string& p_prefix1,
                                    const std::string& p_prefix2, std::string& p_errorText) const override
    {
        Answers::note(m_host, "prefixes.classify", {p_contextPath.getFullPath(), p_prefix1, p_prefix2});
        const ScriptedPrefixes prefixes =
            Answers::valueOr(Answers::prefixes(m_host), std::pair(p_prefix1, p_prefix2));
        p_errorText = prefixes.errorText;
        return prefixes.classification;
    }

private:
    const ScriptedHost& m_host;
};

class ScriptedShortNames final : public ShortVarNameFinder {
public:
    explicit ScriptedShortNames(const ScriptedHost& p_host) : m_host(p_host) {}

    std::string shortName(const std::string& p_fullName) const override
    {
        Answers::note(m_host, "shortNames.shortName", {p_fullName});
        return Answers::valueOr(Answers::variableNames(m_host), p_fullName).shortName.value_or(p_fullName);
    }

private:
    const ScriptedHost& m_host;
};

class ScriptedRootNames final : public VariableRootNameFinder {
public:
    explicit ScriptedRootNames(const ScriptedHost& p_host) : m_host(p_host) {}

    RootNameInfo findRoot(const std::string& p_fullName) const override
    {
        Answers::note(m_host, "rootNames.findRoot", {p_fullName});
        const auto name = Answers::valueOr(Answers::variableNames(m_host), p_fullName);
        return {Answers::rootOf(m_host, p_fullName), name.av, name.mpExprValue};
    }

private:
    const ScriptedHost& m_host;
};

class ScriptedPhysics final : public PhysicsEvaluator {
public:
    explicit ScriptedPhysics(const ScriptedHost& p_host) : m_host(p_host) {}

    bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                  const ModelQCL* p_model) const override
    {
        noteQuestion("physics.evalBool", p_query, p_objectPath, p_model);
        return Answers::valueOr(Answers::queries(m_host), std::pair(p_query, p_objectPath)).truth;
    }

    std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                      const ModelQCL* p_model) const override
    {
        noteQuestion("physics.evalList", p_query, p_objectPath, p_model);
        return Answers::valueOr(Answers::queries(m_host), std::pair(p_query, p_objectPath)).list;
    }

    void declareBool(const std::string& p_query, bool p_flag) const override
    {
        Answers::note(m_host, "physics.declareBool", {p_query, text(p_flag)});
    }

    void declareList(const std::string& p_query, bool p_flag) const override
    {
        Answers::note(m_host, "physics.declareList", {p_query, text(p_flag)});
    }

private:
    void noteQuestion(const std::string& p_operation, const std::string& p_query,
                      const std::string& p_objectPath, const ModelQCL* p_model) const
    {
        if (p_model == m_host.model())
            Answers::note(m_host, p_operation, {p_query, p_objectPath});
        else
            Answers::note(m_host, p_operation, {p_query, p_objectPath, "another model"});
    }

    const ScriptedHost& m_host;
};

class ScriptedUpdateInfo final : public QCLUpdateInfo {
public:
    explicit ScriptedUpdateInfo(const ScriptedHost& p_host) : m_host(p_host) {}

    void replay(QCLUpdateHandler& p_handler) const override
    {
        Answers::note(m_host, "updateInfo.replay", {});
        for (const auto& change : Answers::changes(m_host))
            change(p_handler);
    }

private:
    const ScriptedHost& m_host;
};

}    // namespace

struct ScriptedHost::Interfaces {
    explicit Interfaces(const ScriptedHost& p_host)
        : model(p_host), rules(p_host), quantityModifier(p_host), modelRules(p_host), locatorInfo(p_host),
          prefixInfo(p_host), shortNames(p_host), rootNames(p_host), physics(p_host), updateInfo(p_host)
    {}

    ScriptedModel model;
    ScriptedRules rules;
    ScriptedQuantityModifier quantityModifier;
    ScriptedModelRules modelRules;
    ScriptedLocatorInfo locatorInfo;
    ScriptedPrefixInfo prefixInfo;
    ScriptedShortNames shortNames;
    ScriptedRootNames rootNames;
    ScriptedPhysics physics;
    ScriptedUpdateInfo updateInfo;
};

ScriptedHost::ScriptedHost()
    : m_outer(g_current), m_interfaces(std::make_unique<const Interfaces>(*this)),
      m_availabilityChecker(model(), shortNameFinder(), physicsEvaluator())
{
    g_current = this;
    m_log.clear();
}

ScriptedHost::~ScriptedHost() { g_current = m_outer; }

ScriptedHost& ScriptedHost::current()
{
    if (!g_current)
        throw std::logic_error("The test asks the host without having made one.");
    return *g_current;
}

ScriptedParameter& ScriptedHost::parameter(const std::string& p_objectPath, const std::string& p_paramName)
{
    object(p_objectPath);
    return m_parameters.try_emplace({p_objectPath, p_paramName}, this).first->second;
}

void ScriptedHost::object(const std::string& p_objectPath)
{
    if (std::ranges::count(m_objects, p_objectPath) == 0)
        m_objects.push_back(p_objectPath);
}

void ScriptedHost::removeObject(const std::string& p_objectPath)
{
    std::erase(m_objects, p_objectPath);
    std::erase_if(m_parameters, [&](const auto& p_entry) { return p_entry.first.first == p_objectPath; });
}

void ScriptedHost::quantity(const std::string& p_name, const std::string& p_baseUnits)
{
    m_quantities[p_name] = p_baseUnits;
}

void ScriptedHost::dynamicQuantity(const std::string& p_name, const std::string& p_expectedUnits)
{
    m_dynamicQuantities[p_name] = p_expectedUnits;
}

void ScriptedHost::refusesConversion(const std::string& p_from, const std::string& p_to)
{
    m_refusedConversions.emplace(p_from, p_to);
}

ScriptedLocator& ScriptedHost::locator(const std::string& p_flowName, const std::string& p_locator)
{
    return m_locators[{p_flowName, p_locator}];
}

ScriptedPrefixes& ScriptedHost::prefixes(const std::string& p_prefix1, const std::string& p_prefix2)
{
    return m_prefixes[{p_prefix1, p_prefix2}];
}

ScriptedQuery& ScriptedHost::query(const std::string& p_query, const std::string& p_objectPath)
{
    return m_queries[{p_query, p_objectPath}];
}

void ScriptedHost::pendingChange(std::function<void(QCLUpdateHandler&)> p_change)
{
    m_changes.push_back(std::move(p_change));
}

DimExprChecker ScriptedHost::makeChecker() const
{
    return {model(),        rules(),         quantityModifier(),
            &m_varDefStore, prefixInfo(),    &m_availabilityChecker,
            locatorInfo(),  &m_callbackStore};
}

VarAvailabilityChecker ScriptedHost::makeAvailabilityChecker() const
{
    return {model(), shortNameFinder(), physicsEvaluator()};
}

DimExprCheckScheduler ScriptedHost::makeScheduler(DimExprChecker& p_checker) const
{
    return {model(), modelRules(), updateInfo(), &p_checker};
}

DimExprCheckScheduler ScriptedHost::makeSchedulerWithoutUpdateInfo(DimExprChecker& p_checker) const
{
    return {model(), modelRules(), nullptr, &p_checker};
}

const ModelQCL* ScriptedHost::model() const { return &m_interfaces->model; }
const ExprParamRules* ScriptedHost::rules() const { return &m_interfaces->rules; }
const QuantityModifier* ScriptedHost::quantityModifier() const { return &m_interfaces->quantityModifier; }
const ModelRules* ScriptedHost::modelRules() const { return &m_interfaces->modelRules; }
const LocatorInfo* ScriptedHost::locatorInfo() const { return &m_interfaces->locatorInfo; }
const VariablePrefixInfo* ScriptedHost::prefixInfo() const { return &m_interfaces->prefixInfo; }
const ShortVarNameFinder* ScriptedHost::shortNameFinder() const { return &m_interfaces->shortNames; }
const VariableRootNameFinder* ScriptedHost::rootNameFinder() const { return &m_interfaces->rootNames; }
const PhysicsEvaluator* ScriptedHost::physicsEvaluator() const { return &m_interfaces->physics; }
const QCLUpdateInfo* ScriptedHost::updateInfo() const { return &m_interfaces->updateInfo; }

ScriptedParameter& ScriptedParameter::hasQuantity(const std::string& p_name, const std::string& p_baseUnits)
{
    m_host->quantity(p_name, p_baseUnits);
    return hasQuantity(p_name);
}

ScriptedParameter& ScriptedParameter::isDynamic(std::string p_expectedUnits)
{
    m_host->dynamicQuantity("Dynamic Quantity", p_expectedUnits);
    return hasQuantity("Dynamic Quantity").hasQuantityMode(1).isCalledDynamic();
}

}    // namespace qen::support
