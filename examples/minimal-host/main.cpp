/// @file
/// Checks three numbers of a world of one parameter, a length of at least zero, and says what was found.

#include "CheckMessages.h"
#include "DataError.h"
#include "DimExprChecker.h"
#include "ExprParamRules.h"
#include "ModelQCL.h"
#include "PreVariableDefStore.h"
#include "QuantityModifier.h"

#include <iostream>

namespace {

class Model final : public qen::ModelQCL {
public:
    bool objectExists(const std::string&) const override { return true; }
    std::string paramValue(const std::string&, const std::string&) const override { return "-1 [m]"; }
    std::vector<std::string> childNames(const std::string&, const std::string&) const override { return {}; }
    std::vector<std::string> childPaths(const std::string&, const std::string&) const override { return {}; }
};

class Rules final : public qen::ExprParamRules {
public:
    std::string lowerBound(const std::string&, const std::string&, const qen::ModelQCL*) const override
    {
        return "0 [m]";
    }
    std::string upperBound(const std::string&, const std::string&, const qen::ModelQCL*) const override
    {
        return "";
    }
    std::string paramKind(const std::string&, const std::string&, const qen::ModelQCL*) const override
    {
        return "";
    }
    bool isSingleValued(const std::string&, const std::string&, const qen::ModelQCL*) const override
    {
        return true;
    }
    std::vector<std::string> dependencies(const std::string&, const std::string&,
                                          const qen::ModelQCL*) const override
    {
        return {"NONE"};
    }
    std::set<std::string> allParamNames() const override { return {"Width"}; }
};

class Quantities final : public qen::QuantityModifier {
public:
    bool isDynamicQuantity(const std::string&, const std::string&) const override { return false; }
    int quantityMode(const qen::ModelQCL*, const std::string&, const std::string&,
                     std::string& p_quantityName) const override
    {
        p_quantityName = "Length";
        return 0;
    }
    std::string dynamicUnits(const std::string&) const override { return ""; }
};

}    // namespace

int main()
{
    const Model model;
    const Rules rules;
    const Quantities quantities;
    const qen::PreVariableDefStore variables;
    qen::DimExprChecker checker(&model, &rules, &quantities, &variables, nullptr, nullptr, nullptr, nullptr);

    std::cout << qen::CheckMessages::all().size() << " messages\n";
    for (const char* value : {"2 [m]", "2 [s]", "-1 [m]"})
        std::cout << value << ": " << (checker.checkParam("/DUCT:Inlet", "Width", value) ? "right" : "wrong")
                  << '\n';
    for (auto record = checker.beginExprError(); record != checker.endExprError(); ++record)
        std::cout << record->message << '\n';

    // Across the border of the library: what it throws, this program catches by its class.
    try
    {
        variables.variableData("Velocity");
    }
    catch (const qen::data::notFound& error)
    {
        std::cout << "caught: " << error.getMessage() << '\n';
    }
}
