#pragma once

#include "DimExprChecker.h"
#include "PreVariableDefStore.h"

#include "support/HostReports.h"
#include "support/Matchers.h"
#include "support/ScriptedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qen::support {

/// A variable name in an expression.
struct VariableReference {
    VariableReference(const char* p_fullName) : fullName(p_fullName) {}
    VariableReference(const char* p_fullName, const char* p_root) : fullName(p_fullName), root(p_root) {}

    std::string fullName;
    std::string root;    // empty: the last component
};

/// The width of a duct, a parameter without units that may depend on anything and holds an expression. Defined are, each
/// with the scope "GLOBAL":
/// - the scalars "T" and "p", which are fields, and "tstep", which is none;
/// - the vector "vel" and the symmetric tensor "stress", which are fields;
/// - the operators "ave", a scalar, and "grad", a vector, and the scalars "Boundcon" and "hybrid".
class VariablesTest : public testing::Test {
protected:
    using Definition = std::map<std::string, std::string>;
    using Store = PreVariableDefStore;

    static constexpr const char* k_duct = "/FLOW:F/DOMAIN:Duct";

    VariablesTest()
    {
        HostReports::reset();
        define("T", "SCALAR", "True");
        define("p", "SCALAR", "True");
        define("tstep", "SCALAR", "False");
        define("vel", "VECTOR", "True");
        define("stress", "SYMTEN2", "True");
        defineOperator("ave", Store::SCALAR);
        defineOperator("grad", Store::VECTOR);
        defineOperator("Boundcon", Store::SCALAR);
        defineOperator("hybrid", Store::SCALAR);
        width();
    }

    ~VariablesTest() override { HostReports::reset(); }

    /// A variable of the catalogue, with these keys more or instead.
    void define(const std::string& p_name, const std::string& p_tensorType, const std::string& p_isField,
                Definition p_more = {})
    {
        p_more.insert(
            {{"Tensor Type", p_tensorType}, {"Field Variable", p_isField}, {"Variable Scope", "GLOBAL"}});
        if (p_tensorType != "SCALAR")
        {
            const bool isVector = p_tensorType == "VECTOR";
            p_more.insert({"Component Short Names", components(p_name, isVector ? 3 : 6)});
            p_more.insert({"Component Long Names", components(p_name + " component", isVector ? 3 : 6)});
        }
        m_host.varDefStore().addVariableDefinition(p_name, p_more);
    }

    void defineOperator(const std::string& p_name, Store::TensType p_type,
                        const std::set<std::string>& p_availability = {"GENERAL"})
    {
        m_host.varDefStore().addVariableOperator(p_name, "[ ]", p_type, p_availability, "");
    }

    /// An additional variable in the library and in the fluids of the duct.
    void additionalVariable(const std::string& p_name, const std::string& p_tensorType)
    {
        inLibrary(p_name, "Tensor Type").hasStoredValue(p_tensorType);
        m_host.object("/FLOW:F/DOMAIN:Duct/FLUID MODELS/ADDITIONAL VARIABLE:" + p_name);
    }

    /// A parameter of an additional variable's entry in the library.
    ScriptedParameter& inLibrary(const std::string& p_name, const std::string& p_paramName)
    {
        return m_host.parameter("/LIBRARY/ADDITIONAL VARIABLE:" + p_name, p_paramName);
    }

    ScriptedParameter& width() { return m_host.parameter(k_duct, "Width"); }

    /// Checks a parameter whose expression references these variables.
    bool checkAt(const std::string& p_objectPath, const std::string& p_paramName,
                 std::initializer_list<VariableReference> p_references)
    {
        std::vector<std::string> names;
        for (const VariableReference& reference : p_references)
        {
            names.push_back(reference.fullName);
            if (!reference.root.empty())
                m_host.variableName(reference.fullName).hasRoot(reference.root);
        }
        m_host.expression("its expression").references(names);
        return m_checker.checkParamExpression(p_objectPath, p_paramName, "its expression");
    }

    /// Checks the width of the duct.
    bool check(std::initializer_list<VariableReference> p_references)
    {
        return checkAt(k_duct, "Width", p_references);
    }

    /// All that is recorded, of the width of the duct, is an error that says this.
    static auto onlyError(const std::string& p_text)
    {
        return testing::ElementsAre(testing::AllOf(ErrorSaying(p_text), IsAbout(k_duct, "Width")));
    }

    ScriptedHost m_host;
    DimExprChecker m_checker = m_host.makeChecker();

private:
    static std::string components(const std::string& p_name, int p_count)
    {
        std::string names;
        for (int i = 1; i <= p_count; ++i)
            names += (i == 1 ? "" : ",") + p_name + ' ' + std::to_string(i);
        return names;
    }
};

}    // namespace qen::support
