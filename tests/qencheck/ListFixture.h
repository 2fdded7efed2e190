#pragma once

#include "Qencheck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qencheck_test {

inline constexpr const char* k_units = R"([/BASE UNIT:kg]
Dimension = Mass
[/BASE UNIT:m]
Dimension = Length
Prefixes = Yes
[/BASE UNIT:s]
Dimension = Time
[/BASE UNIT:K]
Dimension = Temperature
[/UNIT:Å]
Definition = m
Factor = 1e-10
[/UNIT:Pa]
Definition = kg m^-1 s^-2
Prefixes = Yes
[/UNIT:psi]
Definition = Pa
Factor = 6894.757293168361
[/UNIT:C]
Definition = K
Offset = 273.15
[/PREFIX:k]
Factor = 1e3
[/PREFIX:y]
Factor = 1/1e24
[/QUANTITY:Dimensionless]
Units =
[/QUANTITY:Length]
Units = m
[/QUANTITY:Pressure]
Units = kg m^-1 s^-2
[/QUANTITY:Velocity]
Units = m s^-1
)";

inline constexpr const char* k_rules = R"([/FLOW]
Named = Yes
[/FLOW/INLET]
[/FLOW/INLET/PARAMETER:Speed]
Type = Real
Quantity = Velocity
Lower Bound = 0 [m s^-1]
Upper Bound = 340 [m s^-1]
Depends On = XYZT
Single Valued = Yes
[/FLOW/INLET/PARAMETER:Flow Regime]
Type = String
Allowed = Subsonic, Supersonic
[/FLOW/INLET/PARAMETER:Dye]
Type = Real
Units From = /LIBRARY/DYE/PARAMETER:Units
Units Times = m s^-1
[/LIBRARY]
[/LIBRARY/DYE]
[/LIBRARY/DYE/PARAMETER:Units]
Type = String
[/LIBRARY/NOTES]
[/LIBRARY/NOTES/PARAMETER]
Type = String
)";

inline constexpr const char* k_variables = R"([/VARIABLE:vel]
Long Name = Velocity
Old Short Name = veloc
Old Component Short Names = veloc u, veloc v, veloc w
Quantity = Velocity
Tensor Type = VECTOR
Component Short Names = vel u, vel v, vel w
Component Long Names = Velocity u, Velocity v, Velocity w
General Availability = QEL, RESULTS
Variable Scope = PHASE, PARTICLE
Field Variable = Yes
Status = Solved
[/VARIABLE:p]
Long Name = Pressure
Quantity = Pressure
Tensor Type = SCALAR
General Availability = QEL
Physical Availability = TRANSIENT
Variable Scope = GLOBAL
Field Variable = Yes
[/VARIABLE:gap]
Long Name = Gap at Wall
Quantity = Length
Tensor Type = VECTOR
Component Short Names = gx, gy, gz
Component Long Names = Gap X, Gap Y, Gap Z
General Availability = RESULTS
Physical Availability = TURBULENT, !TRANSIENT
Variable Scope = GLOBAL
[/VARIABLE:höhe]
Long Name = Höhe
Quantity = Dimensionless
Tensor Type = SCALAR
General Availability = QEL
Variable Scope = GLOBAL, PHASE
Field Variable = No
[/VARIABLE OPERATOR:grad]
Long Name = Gradient
Tensor Type = VECTOR
Component Short Names = grad x, grad y, grad z
Component Long Names = Gradient X, Gradient Y, Gradient Z
Dimensions Modifier = [m^-1]
[/VARIABLE OPERATOR:ave]
Long Name = Time Average
Tensor Type = SCALAR
QEL Availability = GENERAL, STATISTICS
[/CALLBACK FUNCTION:average]
Result Units = [ ]
Number of Arguments = 1
CallBack Type = Scalar
Tensor Type = SCALAR
Locator Dimension = Surface, Volume
[/CALLBACK FUNCTION:force]
Result Units = [ kg m s^-2 ]
Number of Arguments = 0
CallBack Type = Field
Tensor Type = VECTOR
Locator Dimension = Surface
)";

/// A few definitions of each kind, and the command that lists them.
class List : public testing::Test {
protected:
    List()
    {
        m_folder.write("UNITS.qcl", k_units);
        m_folder.write("RULES.qcl", k_rules);
        m_folder.write("PHYSICS.qcl", readFile(QENCHECK_PROJECT "/definitions/PHYSICS.qcl"));
        m_folder.write("VARIABLES.qcl", k_variables);
    }

    Outcome list(std::vector<std::string> p_arguments) const
    {
        p_arguments.insert(p_arguments.begin(), "list");
        p_arguments.insert(p_arguments.end(), {"--definitions", m_folder.path()});
        return qencheck(p_arguments);
    }

    TemporaryFolder m_folder;
};

}    // namespace qencheck_test
