#pragma once

#include <string>
#include <string_view>

/// @file
/// Where the checks look in the model: the one place that builds path texts and takes names out of them.

namespace qen {

namespace modelpaths {

// Texts, as the model takes them: one that is built anew for each question would be taken from the heap each time.

// Level types.
inline const std::string k_additionalVariable = "ADDITIONAL VARIABLE";
inline const std::string k_boundary = "BOUNDARY";
inline const std::string k_domain = "DOMAIN";
inline const std::string k_flow = "FLOW";
inline const std::string k_fluid = "FLUID";
inline const std::string k_fluidDefinition = "FLUID DEFINITION";
inline const std::string k_fluidModels = "FLUID MODELS";
inline const std::string k_monitorPoint = "MONITOR POINT";
inline const std::string k_rigidBody = "RIGID BODY";
inline const std::string k_solidDefinition = "SOLID DEFINITION";
inline const std::string k_solidModels = "SOLID MODELS";
inline const std::string k_timeTransformation = "TIME TRANSFORMATION";

// Parameters.
inline const std::string k_boundaryOnlyField = "Boundary Only Field";
inline const std::string k_constantPhysicsControl = "Constant Physics Control";
inline const std::string k_domainName = "Domain Name";
inline const std::string k_domainType = "Domain Type";
inline const std::string k_option = "Option";
inline const std::string k_statisticsList = "Statistics List";
inline const std::string k_tensorType = "Tensor Type";

inline const std::string k_physicsOptions = "/PHYSICS OPTIONS CONTROL";

/// The name of the level of that type in a path; empty when the path has none.
std::string levelName(const std::string& p_path, const std::string& p_type);

}    // namespace modelpaths

/// Builds the paths of objects, each in place of the one before: what an operation returns holds until the next, and no
/// argument may be part of it.
class ModelPaths {
public:
    /// @param p_text  Where the paths are built; outlives this. Its memory is used again.
    explicit ModelPaths(std::string& p_text) : m_text(p_text) {}

    /// The library's entry of an additional variable.
    const std::string& additionalVariable(std::string_view p_name) const;

    const std::string& flow(std::string_view p_flowName) const;
    const std::string& bladeRowModels(std::string_view p_flowName) const;
    const std::string& monitorPoint(std::string_view p_flowName, std::string_view p_name) const;
    const std::string& monitorStatistics(std::string_view p_flowName, std::string_view p_monitorPoint) const;

    /// Below a monitor point: how it is placed.
    const std::string& monitorLocation(std::string_view p_monitorPointPath) const;

    const std::string& domainMotion(std::string_view p_domainPath) const;

    /// The models that a domain has for one of its fluids.
    const std::string& fluidModels(std::string_view p_domainPath, std::string_view p_fluid) const;

    const std::string& solidDefinition(std::string_view p_domainPath, std::string_view p_solid) const;

    /// An additional variable below the models of a domain: those of its fluids or its solids.
    const std::string& domainAV(std::string_view p_domainPath, std::string_view p_models,
                                std::string_view p_name) const;

    /// An additional variable of one fluid of a domain.
    const std::string& fluidAV(std::string_view p_domainPath, std::string_view p_fluid,
                               std::string_view p_name) const;

private:
    std::string& m_text;
};

}    // namespace qen
