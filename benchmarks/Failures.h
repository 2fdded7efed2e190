#pragma once

#include "Formulas.h"

#include "DimExprChecker.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qen::standalone {
class ModelTree;
}

namespace qen::benchmarks {

/// As the opening of the formulas, in a domain whose flow is turbulent.
inline constexpr const char* k_turbulentOpening = "/FLOW:Duct/DOMAIN:Nozzle/BOUNDARY:Side/OPENING";

/// A value that a check refuses, and one like it that passes.
struct Failure {
    const char* what;
    const char* objectPath;
    const char* paramName;
    const char* passingPath;
    const char* passing;
    const char* failing;
    const char* message;                  // with %1, %2 ...
    std::array<const char*, 4> values;    // for these; null behind the last
};

// clang-format off
inline constexpr auto k_failures = std::to_array<Failure>({
    {"wrong units of a number", k_wall, "Slip Coefficient", k_wall, "5 [m s^-1]", "5 [m]",
     "Invalid units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"m", "Slip Coefficient", k_wall, "m s^-1"}},
    {"unknown units of a number", k_wall, "Slip Coefficient", k_wall, "5 [m s^-1]", "5 [smoot s^-1]",
     "Unrecognised units ('%1') set for parameter '%2' in object '%3'.",
     {"smoot s^-1", "Slip Coefficient", k_wall, nullptr}},
    {"wrong dimension", k_inflow, "Speed", k_inflow, "2 [m s^-1] * min(1, t / 0.5 [s])",
     "2 [m s^-2] * min(1, t / 0.5 [s])",
     "Expression resolves to invalid units ('%1') in value set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"m s^-2", "Speed", k_inflow, "m s^-1"}},
    {"unknown variable", k_opening, "Relative Pressure", k_opening, "0.5 * Density * Velocity u^2",
     "0.5 * Densities * Velocity u^2",
     "Bad expression value '%1' detected in parameter '%2' in object '%3'.\nQEL error:\n%4",
     {"0.5 * Densities * Velocity u^2", "Relative Pressure", k_opening,
      "Column 7: 'Densities' is not known; expected a variable, an additional variable, a constant or a named "
      "expression. Did you mean 'Density'?"}},
    {"unavailable variable", k_opening, "Relative Pressure", k_turbulentOpening,
     "0.5 * Density * Turbulence Kinetic Energy", "0.5 * Density * Turbulence Kinetic Energy",
     "Parameter '%1' in object '%2' has been assigned an expression that references the following unavailable "
     "variables:   %3",
     {"Relative Pressure", k_opening, "Turbulence Kinetic Energy", nullptr}},
});
// clang-format on

/// Adds the turbulent domain to the model of the formulas.
void addTurbulentDomain(standalone::ModelTree& p_model);

/// What is measured of a failure: the check that fails, the one that passes, and one message and exception by
/// themselves. The message's template is filled, the host's exception thrown with it and caught in the same function.
class FailureCalls {
public:
    /// @param p_failure, p_checker  Not owned; outlive this.
    FailureCalls(const Failure& p_failure, DimExprChecker& p_checker);

    /// Whether the one check passes and the other one ends with the failure's message.
    bool endAsTheyShould() const;

    /// Says on standard error that they do not.
    void complain() const;

    bool pass() const { return m_checker.checkParam(m_passingPath, m_paramName, m_passing); }

    /// Leaves no record.
    bool fail() const
    {
        const bool passes = m_checker.checkParam(m_objectPath, m_paramName, m_failing);
        m_checker.clearErrors();
        return !passes;
    }

    /// @return The message's size, so that nothing of it can be left out.
    std::size_t throwAndCatch() const;

private:
    std::string message() const;

    const Failure& m_failure;
    DimExprChecker& m_checker;
    std::string m_objectPath;
    std::string m_paramName;
    std::string m_passingPath;
    std::string m_passing;
    std::string m_failing;
    std::vector<std::string> m_values;
};

}    // namespace qen::benchmarks
