#pragma once

#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"

#include "expressions/QelExpression.h"
#include "model/ModelTree.h"
#include "qcl/QclReader.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <map>
#include <string>
#include <string_view>

namespace qen::standalone::test {

/// A small world that stays as it is whatever is shipped: a few units, variables, operators, callback functions and
/// additional variables.
class QelWorld {
public:
    QelWorld()
    {
        Diagnostics problems;
        const QclDocument document = readQclText("units.qcl", k_units);
        units.addDefinitions(document, problems);

        variable("Pressure", "Pressure", {{"Long Name", "Static Pressure"}});
        variable("Total Pressure", "Pressure");
        variable("Temperature", "Temperature");
        variable("Density", "Density");
        variable("Velocity", "Velocity",
                 {{"Tensor Type", "VECTOR"},
                  {"Component Short Names", "u, v, w"},
                  {"Component Long Names", "Velocity u, Velocity v, Velocity w"}});
        variable("t", "Time");
        variable("r", "Length");
        variable("x", "Length");
        variable("y", "Length");
        variable("theta", "Angle");
        variable("omega", "Angular Velocity");
        variable("Normal X", "");
        variable("Höhe über Grund", "Length");
        variable("Sized", "Size");

        world.units = &units;
        world.variables = &variables;
        world.callbacks = &callbacks;
        world.model = &model;
        addFunctions();
    }

    void addFunctions()
    {
        // Their units are read through the world that is installed.
        const WorldScope scope(world);
        variables.addVariableOperatorDefinition("Gradient",
                                                {{"Tensor Type", "VECTOR"},
                                                 {"Long Name", "grad"},
                                                 {"Dimensions Modifier", "[m^-1]"},
                                                 {"Component Short Names", "gx, gy, gz"},
                                                 {"Component Long Names", "grad x, grad y, grad z"}});
        variables.addVariableOperatorDefinition("Mean",
                                                {{"Tensor Type", "SCALAR"}, {"Long Name", "Time Mean"}});
        variables.addVariableOperatorDefinition(
            "Rate",
            {{"Tensor Type", "SCALAR"}, {"Long Name", "Time Rate"}, {"Dimensions Modifier", "[s^-1]"}});
        callback("average", "[]");
        callback("probe", "[]");
        callback("sum", "[]");
        callback("count", "[]");
        callback("rbstate", "[]");
        callback("area", "[m^2]");
        callback("areaIntegral", "[m^2]");
        callback("force", "[kg m s^-2]");
    }

    void callback(const std::string& p_name, const std::string& p_resultUnits)
    {
        callbacks.addCBDefinition(p_name, {{"Result Units", p_resultUnits},
                                           {"Number of Arguments", "1"},
                                           {"CallBack Type", "Scalar"},
                                           {"Tensor Type", "SCALAR"},
                                           {"Locator Dimension", "Surface"}});
    }

    void variable(const std::string& p_name, const std::string& p_quantity,
                  std::map<std::string, std::string> p_more = {})
    {
        p_more.emplace("Tensor Type", "SCALAR");
        p_more.emplace("Quantity", p_quantity);
        variables.addVariableDefinition(p_name, p_more);
    }

    void additionalVariable(const std::string& p_name, const std::string& p_units,
                            const std::string& p_tensorType = "SCALAR")
    {
        const std::string path = "/LIBRARY/ADDITIONAL VARIABLE:" + p_name;
        model.setParameter(path, "Units", p_units);
        model.setParameter(path, "Tensor Type", p_tensorType);
    }

    void namedExpression(const std::string& p_name, const std::string& p_text)
    {
        model.setParameter("/LIBRARY/QEL/EXPRESSIONS", p_name, p_text);
    }

    QelResult analyse(std::string_view p_text, bool p_wantReferences = false) const
    {
        return analyseExpression(p_text, world, p_wantReferences);
    }

    /// The message of the error; a text that says so when there is none.
    std::string errorOf(std::string_view p_text) const
    {
        const QelResult result = analyse(p_text);
        return result.error ? result.error->message : "no error";
    }

    UnitSystem units;
    PreVariableDefStore variables;
    ExprCBFuncStore callbacks;
    ModelTree model;
    World world;

private:
    static constexpr const char* k_units = R"([/BASE UNIT:kg]
Dimension = Mass
[/BASE UNIT:m]
Dimension = Length
[/BASE UNIT:s]
Dimension = Time
[/BASE UNIT:K]
Dimension = Temperature
[/BASE UNIT:rad]
Dimension = Angle
[/BASE UNIT:mol]
Dimension = Amount of Substance
[/BASE UNIT:A]
Dimension = Electric Current
[/BASE UNIT:cd]
Dimension = Luminous Intensity
[/BASE UNIT:sr]
Dimension = Solid Angle
[/BASE UNIT:byte]
Dimension = Information
[/UNIT:cm]
Definition = m
Factor = 0.01
[/UNIT:Pa]
Definition = kg m^-1 s^-2
[/UNIT:C]
Definition = K
Factor = 1
Offset = 273.15
[/UNIT:deg]
Definition = rad
Factor = 0.017453292519943295
[/QUANTITY:Pressure]
Units = kg m^-1 s^-2
[/QUANTITY:Temperature]
Units = K
[/QUANTITY:Density]
Units = kg m^-3
[/QUANTITY:Velocity]
Units = m s^-1
[/QUANTITY:Time]
Units = s
[/QUANTITY:Length]
Units = m
[/QUANTITY:Angle]
Units = rad
[/QUANTITY:Angular Velocity]
Units = rad s^-1
)";
};

}    // namespace qen::standalone::test
