#include "LargeSettings.h"

#include "model/ModelTree.h"
#include "qcl/QclReader.h"

#include "PreVariableDefStore.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qen::benchmarks {
namespace {

using Parameters = std::map<std::string, std::string>;

constexpr std::array<std::string_view, 9> k_needed {"x", "y", "z", "r", "t", "density", "vel", "T", "ptot"};
static_assert(k_smallestCatalogue == k_needed.size() + 3);    // a vector is followed by its components

void addNeededVariables(PreVariableDefStore& p_store)
{
    constexpr std::string_view k_section = "/VARIABLE:";
    std::size_t found = 0;
    for (const auto& object : qen::standalone::readQclFile(QEN_DEFINITIONS_DIR "/VARIABLES.qcl").objects)
    {
        if (!object.path.starts_with(k_section))
            continue;
        const std::string name = object.path.substr(k_section.size());
        if (std::find(k_needed.begin(), k_needed.end(), name) == k_needed.end())
            continue;
        Parameters parameters;
        for (const auto& parameter : object.parameters)
            parameters.emplace(parameter.name(), parameter.value());
        p_store.addVariableDefinition(name, parameters);
        ++found;
    }
    if (found != k_needed.size())
        throw std::runtime_error("VARIABLES.qcl lacks variables that the formulas name");
}

}    // namespace

void fillCatalogue(PreVariableDefStore& p_store, std::size_t p_variables)
{
    constexpr std::array k_beginnings {"Density", "Velocity", "Temperature", "Total Pressure"};
    addNeededVariables(p_store);
    for (std::size_t i = k_smallestCatalogue; i < p_variables; ++i)
    {
        const std::string number = std::to_string(i);
        p_store.addVariableDefinition(
            "sample" + number, Parameters {{"Long Name", k_beginnings[i % 4] + (" of Sample " + number)},
                                           {"Quantity", "Length"},
                                           {"Tensor Type", "SCALAR"},
                                           {"General Availability", "QEL"},
                                           {"Variable Scope", "GLOBAL"},
                                           {"Field Variable", "Yes"}});
    }
}

void fillModel(qen::standalone::ModelTree& p_model, std::size_t p_objects)
{
    std::size_t number = 0;
    for (std::size_t objects = k_smallestModel; objects + 2 <= p_objects; objects += 2)
    {
        const std::string name = std::to_string(++number);
        if (number % 2 == 0)
            p_model.setParameter("/LIBRARY/MATERIAL:Gas " + name + "/DYNAMIC VISCOSITY", "Dynamic Viscosity",
                                 "2e-5 [Pa s]");
        else
            p_model.setParameter("/FLOW:Duct/DOMAIN:Channel/BOUNDARY:Side " + name + "/INFLOW", "Speed",
                                 "3 [m s^-1]");
    }
}

}    // namespace qen::benchmarks
