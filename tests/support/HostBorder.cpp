#include "support/HostBorder.h"

#include "ExprParamRules.h"
#include "LocatorInfo.h"
#include "ShortVarNameFinder.h"
#include "VariablePrefixInfo.h"

#include "CallbackInfo.h"
#include "ExpressionEvaluator.h"
#include "ModelQCL.h"
#include "PhysicsEvaluator.h"
#include "QCLPath.h"
#include "QELName.h"
#include "Quantity.h"
#include "QuantityModifier.h"
#include "StringUtilities.h"
#include "UnitDimensions.h"
#include "UnitsConverter.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>

namespace qen::support {
namespace {

std::size_t s_depthInHost = 0;
std::vector<HostCall>* s_noted = nullptr;

/// While one of these is there the program is in the host.
class InHost {
public:
    InHost() { ++s_depthInHost; }
    ~InHost() { --s_depthInHost; }
    InHost(const InHost&) = delete;
    InHost& operator=(const InHost&) = delete;
};

/// Notes the call that @p p_makeCall copies, if it comes from the library.
template <class MakeCall>
void note(const MakeCall& p_makeCall)
{
    if (s_noted == nullptr || s_depthInHost != 0)
        return;
    const InHost notTheLibrarys;
    s_noted->emplace_back(p_makeCall());
}

/// The operation that this program's definition hides; a member function takes its object first.
template <class Function>
Function* hidden(const char* p_mangledName)
{
    void* const address = dlsym(RTLD_NEXT, p_mangledName);
    if (address == nullptr)
    {
        std::fprintf(stderr, "The host does not define %s\n", p_mangledName);
        std::abort();
    }
    return reinterpret_cast<Function*>(address);
}

class WatchedModel final : public ModelQCL {
public:
    explicit WatchedModel(const ModelQCL& p_host) : m_host(p_host) {}

    bool objectExists(const std::string& p_objectPath) const override
    {
        note([&] { return [host = &m_host, p_objectPath] { host->objectExists(p_objectPath); }; });
        const InHost inHost;
        return m_host.objectExists(p_objectPath);
    }

    std::string paramValue(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        note([&] {
            return
                [host = &m_host, p_objectPath, p_paramName] { host->paramValue(p_objectPath, p_paramName); };
        });
        const InHost inHost;
        return m_host.paramValue(p_objectPath, p_paramName);
    }

    std::vector<std::string> childNames(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        note([&] {
            return [host = &m_host, p_objectPath, p_type] { host->childNames(p_objectPath, p_type); };
        });
        const InHost inHost;
        return m_host.childNames(p_objectPath, p_type);
    }

    std::vector<std::string> childPaths(const std::string& p_objectPath,
                                        const std::string& p_type) const override
    {
        note([&] {
            return [host = &m_host, p_objectPath, p_type] { host->childPaths(p_objectPath, p_type); };
        });
        const InHost inHost;
        return m_host.childPaths(p_objectPath, p_type);
    }

private:
    const ModelQCL& m_host;
};

class WatchedRules final : public ExprParamRules {
public:
    explicit WatchedRules(const ExprParamRules& p_host) : m_host(p_host) {}

    std::string lowerBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override
    {
        return pass(&ExprParamRules::lowerBound, p_objectPath, p_paramName, p_model);
    }

    std::string upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override
    {
        return pass(&ExprParamRules::upperBound, p_objectPath, p_paramName, p_model);
    }

    std::string paramKind(const std::string& p_objectPath, const std::string& p_paramName,
                          const ModelQCL* p_model) const override
    {
        return pass(&ExprParamRules::paramKind, p_objectPath, p_paramName, p_model);
    }

    bool isSingleValued(const std::string& p_objectPath, const std::string& p_paramName,
                        const ModelQCL* p_model) const override
    {
        return pass(&ExprParamRules::isSingleValued, p_objectPath, p_paramName, p_model);
    }

    std::vector<std::string> dependencies(const std::string& p_objectPath, const std::string& p_paramName,
                                          const ModelQCL* p_model) const override
    {
        return pass(&ExprParamRules::dependencies, p_objectPath, p_paramName, p_model);
    }

    std::set<std::string> allParamNames() const override
    {
        const InHost inHost;
        return m_host.allParamNames();
    }

private:
    template <class Result>
    Result
    pass(Result (ExprParamRules::*p_operation)(const std::string&, const std::string&, const ModelQCL*) const,
         const std::string& p_objectPath, const std::string& p_paramName, const ModelQCL* p_model) const
    {
        note([&] {
            return [host = &m_host, p_operation, p_objectPath, p_paramName, p_model] {
                (host->*p_operation)(p_objectPath, p_paramName, p_model);
            };
        });
        const InHost inHost;
        return (m_host.*p_operation)(p_objectPath, p_paramName, p_model);
    }

    const ExprParamRules& m_host;
};

class WatchedQuantities final : public QuantityModifier {
public:
    explicit WatchedQuantities(const QuantityModifier& p_host) : m_host(p_host) {}

    bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const override
    {
        const InHost inHost;
        return m_host.isDynamicQuantity(p_objectPath, p_paramName);
    }

    int quantityMode(const ModelQCL* p_model, const std::string& p_objectPath, const std::string& p_paramName,
                     std::string& p_quantityName) const override
    {
        note([&] {
            return [host = &m_host, p_model, p_objectPath, p_paramName] {
                std::string quantityName;
                host->quantityMode(p_model, p_objectPath, p_paramName, quantityName);
            };
        });
        const InHost inHost;
        return m_host.quantityMode(p_model, p_objectPath, p_paramName, p_quantityName);
    }

    std::string dynamicUnits(const std::string& p_quantityName) const override
    {
        note([&] { return [host = &m_host, p_quantityName] { host->dynamicUnits(p_quantityName); }; });
        const InHost inHost;
        return m_host.dynamicUnits(p_quantityName);
    }

private:
    const QuantityModifier& m_host;
};

class WatchedPrefixes final : public VariablePrefixInfo {
public:
    explicit WatchedPrefixes(const VariablePrefixInfo& p_host) : m_host(p_host) {}

    void reserved0() const override {}
    void reserved1() const override {}

    Classification classifyPrefixes(const QCLPath& p_contextPath, const std::string& p_prefix1,
                                    const std::string& p_prefix2, std::string& p_errorText) const override
    {
        note([&] {
            return [host = &m_host, p_contextPath, p_prefix1, p_prefix2] {
                std::string errorText;
                host->classifyPrefixes(p_contextPath, p_prefix1, p_prefix2, errorText);
            };
        });
        const InHost inHost;
        return m_host.classifyPrefixes(p_contextPath, p_prefix1, p_prefix2, p_errorText);
    }

private:
    const VariablePrefixInfo& m_host;
};

class WatchedLocators final : public LocatorInfo {
public:
    explicit WatchedLocators(const LocatorInfo& p_host) : m_host(p_host) {}

    void reserved0() const override {}
    void reserved2() const override {}

    bool isValidLocator(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return pass(&LocatorInfo::isValidLocator, p_flowName, p_locator);
    }

    bool isModelObject(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return pass(&LocatorInfo::isModelObject, p_flowName, p_locator);
    }

    LocatorDimension::Value dimension(const std::string& p_flowName,
                                      const std::string& p_locator) const override
    {
        return pass(&LocatorInfo::dimension, p_flowName, p_locator);
    }

    std::string objectPath(const std::string& p_flowName, const std::string& p_locator) const override
    {
        return pass(&LocatorInfo::objectPath, p_flowName, p_locator);
    }

private:
    template <class Result>
    Result pass(Result (LocatorInfo::*p_operation)(const std::string&, const std::string&) const,
                const std::string& p_flowName, const std::string& p_locator) const
    {
        note([&] {
            return [host = &m_host, p_operation, p_flowName, p_locator] {
                (host->*p_operation)(p_flowName, p_locator);
            };
        });
        const InHost inHost;
        return (m_host.*p_operation)(p_flowName, p_locator);
    }

    const LocatorInfo& m_host;
};

class WatchedShortNames final : public ShortVarNameFinder {
public:
    explicit WatchedShortNames(const ShortVarNameFinder& p_host) : m_host(p_host) {}

    std::string shortName(const std::string& p_fullName) const override
    {
        note([&] { return [host = &m_host, p_fullName] { host->shortName(p_fullName); }; });
        const InHost inHost;
        return m_host.shortName(p_fullName);
    }

private:
    const ShortVarNameFinder& m_host;
};

class WatchedPhysics final : public PhysicsEvaluator {
public:
    explicit WatchedPhysics(const PhysicsEvaluator& p_host) : m_host(p_host) {}

    bool evalBool(const std::string& p_query, const std::string& p_objectPath,
                  const ModelQCL* p_model) const override
    {
        return pass(&PhysicsEvaluator::evalBool, p_query, p_objectPath, p_model);
    }

    std::vector<std::string> evalList(const std::string& p_query, const std::string& p_objectPath,
                                      const ModelQCL* p_model) const override
    {
        return pass(&PhysicsEvaluator::evalList, p_query, p_objectPath, p_model);
    }

    void declareBool(const std::string& p_query, bool p_flag) const override
    {
        const InHost inHost;
        m_host.declareBool(p_query, p_flag);
    }

    void declareList(const std::string& p_query, bool p_flag) const override
    {
        const InHost inHost;
        m_host.declareList(p_query, p_flag);
    }

private:
    template <class Result>
    Result pass(Result (PhysicsEvaluator::*p_operation)(const std::string&, const std::string&,
                                                        const ModelQCL*) const,
                const std::string& p_query, const std::string& p_objectPath, const ModelQCL* p_model) const
    {
        note([&] {
            return [host = &m_host, p_operation, p_query, p_objectPath, p_model] {
                (host->*p_operation)(p_query, p_objectPath, p_model);
            };
        });
        const InHost inHost;
        return (m_host.*p_operation)(p_query, p_objectPath, p_model);
    }

    const PhysicsEvaluator& m_host;
};

}    // namespace

void noteCallsIn(std::vector<HostCall>& p_calls) { s_noted = &p_calls; }

void noteNoCalls() { s_noted = nullptr; }

bool isInHost() { return s_depthInHost != 0; }

struct WatchedHost::Forwarders {
    Forwarders(const HostInterfaces& p_host)
        : model(*p_host.model), rules(*p_host.rules), quantities(*p_host.quantityModifier),
          prefixes(*p_host.prefixInfo), locators(*p_host.locatorInfo), shortNames(*p_host.shortNames),
          physics(*p_host.physics)
    {}

    WatchedModel model;
    WatchedRules rules;
    WatchedQuantities quantities;
    WatchedPrefixes prefixes;
    WatchedLocators locators;
    WatchedShortNames shortNames;
    WatchedPhysics physics;
};

WatchedHost::WatchedHost(const HostInterfaces& p_host)
    : m_forwarders(std::make_unique<const Forwarders>(p_host))
{}

WatchedHost::~WatchedHost() = default;

HostInterfaces WatchedHost::interfaces() const
{
    return {&m_forwarders->model,    &m_forwarders->rules,    &m_forwarders->quantities,
            &m_forwarders->prefixes, &m_forwarders->locators, &m_forwarders->shortNames,
            &m_forwarders->physics};
}

}    // namespace qen::support

// The operations that a check calls by name. Texts and lists that the host returns were taken from the heap by the host.

namespace qen {

using support::hidden;
using support::InHost;
using support::note;

QCLPath::QCLPath(const std::string& p_text)
{
    static const auto host = hidden<void(QCLPath*, const std::string&)>(
        "_ZN3qen7QCLPathC1ERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [p_text] { const QCLPath path(p_text); }; });
    const InHost inHost;
    host(this, p_text);    // in place of the empty text above, which holds nothing
}

std::string QCLPath::getType(std::size_t p_level) const
{
    static const auto host =
        hidden<std::string(const QCLPath*, std::size_t)>("_ZNK3qen7QCLPath7getTypeB5cxx11Em");
    note([&] { return [path = *this, p_level] { path.getType(p_level); }; });
    const InHost inHost;
    return host(this, p_level);
}

std::string QCLPath::getName(std::size_t p_level) const
{
    static const auto host =
        hidden<std::string(const QCLPath*, std::size_t)>("_ZNK3qen7QCLPath7getNameB5cxx11Em");
    note([&] { return [path = *this, p_level] { path.getName(p_level); }; });
    const InHost inHost;
    return host(this, p_level);
}

std::string QCLPath::getLastType() const
{
    static const auto host = hidden<std::string(const QCLPath*)>("_ZNK3qen7QCLPath11getLastTypeB5cxx11Ev");
    note([&] { return [path = *this] { path.getLastType(); }; });
    const InHost inHost;
    return host(this);
}

std::string QCLPath::getLastName() const
{
    static const auto host = hidden<std::string(const QCLPath*)>("_ZNK3qen7QCLPath11getLastNameB5cxx11Ev");
    note([&] { return [path = *this] { path.getLastName(); }; });
    const InHost inHost;
    return host(this);
}

QCLPath QCLPath::getSubPathByType(const std::string& p_type) const
{
    static const auto host = hidden<QCLPath(const QCLPath*, const std::string&)>(
        "_ZNK3qen7QCLPath16getSubPathByTypeERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [path = *this, p_type] { path.getSubPathByType(p_type); }; });
    const InHost inHost;
    return host(this, p_type);
}

void QCLPath::push_back(const std::string& p_type, const std::string& p_name)
{
    static const auto host = hidden<void(QCLPath*, const std::string&, const std::string&)>(
        "_ZN3qen7QCLPath9push_backERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEES8_");
    note([&] {
        return [path = *this, p_type, p_name] {
            QCLPath copy = path;
            copy.push_back(p_type, p_name);
        };
    });
    const InHost inHost;
    host(this, p_type, p_name);
}

bool QCLPath::isParent(const QCLPath& p_other) const
{
    static const auto host = hidden<bool(const QCLPath*, const QCLPath&)>("_ZNK3qen7QCLPath8isParentERKS0_");
    note([&] { return [path = *this, p_other] { path.isParent(p_other); }; });
    const InHost inHost;
    return host(this, p_other);
}

bool QELName::splitVariableName(const std::string& p_text, std::vector<Component>& p_components)
{
    static const auto host = hidden<bool(const std::string&, std::vector<Component>&)>(
        "_ZN3qen7QELName17splitVariableNameERKNSt7__cxx1112basic_stringIcSt11char_"
        "traitsIcESaIcEEERSt6vectorINS0_"
        "9ComponentESaISA_EE");
    note([&] {
        return [p_text] {
            std::vector<Component> components;
            splitVariableName(p_text, components);
        };
    });
    const InHost inHost;
    return host(p_text, p_components);
}

bool QELName::splitCallbackName(const std::string& p_name, std::string& p_text, Component& p_component)
{
    static const auto host = hidden<bool(const std::string&, std::string&, Component&)>(
        "_ZN3qen7QELName17splitCallbackNameERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEERS6_RNS0_"
        "9ComponentE");
    note([&] {
        return [p_name] {
            std::string text;
            Component component;
            splitCallbackName(p_name, text, component);
        };
    });
    const InHost inHost;
    return host(p_name, p_text, p_component);
}

void ExpressionEvaluator::getVariablesAndCallbacks(const std::string& p_expression,
                                                   std::vector<std::string>& p_variables,
                                                   std::vector<CallbackInfo>& p_callbacks,
                                                   UnitDimensions& p_dims, const std::string& p_paramName)
{
    static const auto host = hidden<void(const std::string&, std::vector<std::string>&,
                                         std::vector<CallbackInfo>&, UnitDimensions&, const std::string&)>(
        "_ZN3qen19ExpressionEvaluator24getVariablesAndCallbacksERKNSt7__cxx1112basic_stringIcSt11char_"
        "traitsIcESaIcEEERSt6vectorIS6_SaIS6_EERS9_INS_12CallbackInfoESaISD_EERNS_14UnitDimensionsES8_");
    note([&] {
        return [p_expression, p_paramName] {
            std::vector<std::string> variables;
            std::vector<CallbackInfo> callbacks;
            UnitDimensions dims;
            getVariablesAndCallbacks(p_expression, variables, callbacks, dims, p_paramName);
        };
    });
    const InHost inHost;
    host(p_expression, p_variables, p_callbacks, p_dims, p_paramName);
}

Quantity ExpressionEvaluator::evalSingleValue(const std::string& p_expression, const std::string& p_paramName)
{
    static const auto host = hidden<Quantity(const std::string&, const std::string&)>(
        "_ZN3qen19ExpressionEvaluator15evalSingleValueERKNSt7__cxx1112basic_stringIcSt11char_"
        "traitsIcESaIcEEES8_");
    note([&] { return [p_expression, p_paramName] { evalSingleValue(p_expression, p_paramName); }; });
    const InHost inHost;
    return host(p_expression, p_paramName);
}

std::string ExpressionEvaluator::rootVariableName(const std::string& p_name)
{
    static const auto host =
        hidden<std::string(const std::string&)>("_ZN3qen19ExpressionEvaluator16rootVariableNameERKNSt7__"
                                                "cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [p_name] { rootVariableName(p_name); }; });
    const InHost inHost;
    return host(p_name);
}

bool UnitsConverter::convertUnits(const std::string& p_from, const std::string& p_to, float p_value,
                                  float& p_result, bool p_flag) const
{
    static const auto host =
        hidden<bool(const UnitsConverter*, const std::string&, const std::string&, float, float&, bool)>(
            "_ZNK3qen14UnitsConverter12convertUnitsERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEES8_"
            "fRfb");
    note([&] {
        return [p_from, p_to, p_value, p_flag] {
            float result = 0.0F;
            instance().convertUnits(p_from, p_to, p_value, result, p_flag);
        };
    });
    const InHost inHost;
    return host(this, p_from, p_to, p_value, p_result, p_flag);
}

UnitDimensions UnitsConverter::dimsFromUnits(const std::string& p_units) const
{
    static const auto host = hidden<UnitDimensions(const UnitsConverter*, const std::string&)>(
        "_ZNK3qen14UnitsConverter13dimsFromUnitsERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [p_units] { instance().dimsFromUnits(p_units); }; });
    const InHost inHost;
    return host(this, p_units);
}

std::string UnitsConverter::getBaseUnitName(const UnitDimensions& p_dims) const
{
    static const auto host = hidden<std::string(const UnitsConverter*, const UnitDimensions&)>(
        "_ZNK3qen14UnitsConverter15getBaseUnitNameB5cxx11ERKNS_14UnitDimensionsE");
    note([&] { return [p_dims] { instance().getBaseUnitName(p_dims); }; });
    const InHost inHost;
    return host(this, p_dims);
}

std::string UnitsConverter::getBaseUnitsFromQuant(const std::string& p_quantity) const
{
    static const auto host = hidden<std::string(const UnitsConverter*, const std::string&)>(
        "_ZNK3qen14UnitsConverter21getBaseUnitsFromQuantERKNSt7__cxx1112basic_stringIcSt11char_"
        "traitsIcESaIcEEE");
    note([&] { return [p_quantity] { instance().getBaseUnitsFromQuant(p_quantity); }; });
    const InHost inHost;
    return host(this, p_quantity);
}

float StringUtilities::valueAsFloat(const std::string& p_text, bool& p_isNumber, std::string& p_number,
                                    std::string& p_units)
{
    static const auto host = hidden<float(const std::string&, bool&, std::string&, std::string&)>(
        "_ZN3qen15StringUtilities12valueAsFloatERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEERbRS6_"
        "SA_");
    note([&] {
        return [p_text] {
            bool isNumber = false;
            std::string number;
            std::string units;
            valueAsFloat(p_text, isNumber, number, units);
        };
    });
    const InHost inHost;
    return host(p_text, p_isNumber, p_number, p_units);
}

std::set<std::string> StringUtilities::stringToSet(const std::string& p_text, char p_separator)
{
    static const auto host = hidden<std::set<std::string>(const std::string&, char)>(
        "_ZN3qen15StringUtilities11stringToSetERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEEc");
    note([&] { return [p_text, p_separator] { stringToSet(p_text, p_separator); }; });
    const InHost inHost;
    return host(p_text, p_separator);
}

bool StringUtilities::stringToBool(const std::string& p_text)
{
    static const auto host = hidden<bool(const std::string&)>(
        "_ZN3qen15StringUtilities12stringToBoolERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [p_text] { stringToBool(p_text); }; });
    const InHost inHost;
    return host(p_text);
}

std::string StringUtilities::toString(double p_value, const std::string& p_format)
{
    static const auto host = hidden<std::string(double, const std::string&)>(
        "_ZN3qen15StringUtilities8toStringEdRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    note([&] { return [p_value, p_format] { toString(p_value, p_format); }; });
    const InHost inHost;
    return host(p_value, p_format);
}

}    // namespace qen
