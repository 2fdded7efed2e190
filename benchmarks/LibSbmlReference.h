#pragma once

#include "Formulas.h"

#include <sbml/SBMLTypes.h>
#include <sbml/units/UnitFormulaFormatter.h>

#include <array>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace qen::benchmarks {

/// A model of libSBML that has a parameter, with units, for everything that the formulas name.
class LibSbmlReference {
public:
    LibSbmlReference()
    {
        for (const Variable& variable : k_variables)
        {
            const std::string units = std::string("u_") + variable.name;
            ::UnitDefinition& definition = *m_model.createUnitDefinition();
            definition.setId(units);
            for (std::size_t i = 0; i < k_kinds.size(); ++i)
                if (variable.exponents[i] != 0)
                {
                    ::Unit& unit = *definition.createUnit();
                    unit.initDefaults();
                    unit.setKind(k_kinds[i]);
                    unit.setExponent(variable.exponents[i]);
                }
            if (definition.getNumUnits() == 0)
            {
                ::Unit& unit = *definition.createUnit();
                unit.initDefaults();
                unit.setKind(::UNIT_KIND_DIMENSIONLESS);
            }
            ::Parameter& parameter = *m_model.createParameter();
            parameter.setId(variable.name);
            parameter.setConstant(true);
            parameter.setValue(1.0);
            parameter.setUnits(units);
        }
        m_model.populateListFormulaUnitsData();
        m_formatter = std::make_unique<::UnitFormulaFormatter>(&m_model);
    }

    LibSbmlReference(const LibSbmlReference&) = delete;
    LibSbmlReference& operator=(const LibSbmlReference&) = delete;

    /// A formula as libSBML writes it.
    static std::string textOf(const Formula& p_formula)
    {
        const std::string text = p_formula.plain;
        const std::size_t question = text.find('?');
        if (question == std::string::npos)
            return text;
        const std::size_t colon = text.find(':', question);
        return "piecewise(" + text.substr(question + 1, colon - question - 1) + "," +
               text.substr(0, question) + "," + text.substr(colon + 1) + ")";
    }

    /// Derives the units of a formula: from its text to a tree to the definition of its units.
    ///
    /// @throws std::runtime_error  The formula is bad, or has no units.
    void operator()(const std::string& p_text) { derive(p_text); }

    /// The exponents of metre, kilogram, second and kelvin in the units of a formula.
    std::array<double, 4> exponents(const std::string& p_text)
    {
        const std::unique_ptr<::UnitDefinition> units = derive(p_text);
        std::unique_ptr<::UnitDefinition> base(::UnitDefinition::convertToSI(units.get()));
        ::UnitDefinition::simplify(base.get());
        std::array<double, 4> result {};
        for (unsigned i = 0; i < base->getNumUnits(); ++i)
            for (std::size_t kind = 0; kind < k_kinds.size(); ++kind)
                if (base->getUnit(i)->getKind() == k_kinds[kind])
                    result[kind] += base->getUnit(i)->getExponentAsDouble();
        return result;
    }

private:
    struct Variable {
        const char* name;
        std::array<int, 4> exponents;    // of the kinds below
    };

    static constexpr std::array k_kinds {::UNIT_KIND_METRE, ::UNIT_KIND_KILOGRAM, ::UNIT_KIND_SECOND,
                                         ::UNIT_KIND_KELVIN};

    // clang-format off
    static constexpr std::array k_variables = std::to_array<Variable>({
        {"mps",  {1, 0, -1, 0}},  {"s",   {0, 0, 1, 0}},   {"m",    {1, 0, 0, 0}},   {"Pa",  {-1, 1, -2, 0}},
        {"K",    {0, 0, 0, 1}},   {"Wm2", {0, 1, -3, 0}},  {"kgps", {0, 1, -1, 0}},  {"ps",  {0, 0, -1, 0}},
        {"bar",  {-1, 1, -2, 0}}, {"rpm", {0, 0, -1, 0}},  {"visc", {-1, 1, -1, 0}}, {"htc", {0, 1, -3, -1}},
        {"C",    {0, 0, 0, 1}},   {"acc", {1, 0, -2, 0}},  {"t",    {0, 0, 1, 0}},   {"r",   {1, 0, 0, 0}},
        {"x",    {1, 0, 0, 0}},   {"y",   {1, 0, 0, 0}},   {"z",    {1, 0, 0, 0}},   {"g",   {1, 0, -2, 0}},
        {"Density", {-3, 1, 0, 0}}, {"Velocityu", {1, 0, -1, 0}}, {"Temperature", {0, 0, 0, 1}},
        {"TotalPressure", {-1, 1, -2, 0}},
    });
    // clang-format on

    std::unique_ptr<::UnitDefinition> derive(const std::string& p_text)
    {
        const std::unique_ptr<::ASTNode> tree(::SBML_parseL3Formula(p_text.c_str()));
        if (!tree)
            throw std::runtime_error("libSBML: " + p_text + " is bad");
        m_formatter->resetFlags();
        std::unique_ptr<::UnitDefinition> units(m_formatter->getUnitDefinition(tree.get()));
        if (!units)
            throw std::runtime_error("libSBML: " + p_text + " has no units");
        return units;
    }

    ::Model m_model {3, 2};
    std::unique_ptr<::UnitFormulaFormatter> m_formatter;
};

}    // namespace qen::benchmarks
