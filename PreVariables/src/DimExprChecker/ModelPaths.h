#pragma once

#include <string>

/// @file
/// Where the checks look in the model: the one place that builds path texts and takes names out of them.

namespace qen::modelpaths {

// Level types.
inline constexpr const char* k_additionalVariable = "ADDITIONAL VARIABLE";
inline constexpr const char* k_boundary = "BOUNDARY";
inline constexpr const char* k_domain = "DOMAIN";
inline constexpr const char* k_flow = "FLOW";
inline constexpr const char* k_fluid = "FLUID";
inline constexpr const char* k_fluidDefinition = "FLUID DEFINITION";
inline constexpr const char* k_fluidModels = "FLUID MODELS";
inline constexpr const char* k_monitorPoint = "MONITOR POINT";
inline constexpr const char* k_rigidBody = "RIGID BODY";
inline constexpr const char* k_solidDefinition = "SOLID DEFINITION";
inline constexpr const char* k_solidModels = "SOLID MODELS";
inline constexpr const char* k_timeTransformation = "TIME TRANSFORMATION";

// Parameters.
inline constexpr const char* k_domainType = "Domain Type";
inline constexpr const char* k_option = "Option";

inline constexpr const char* k_physicsOptions = "/PHYSICS OPTIONS CONTROL";

/// The name of the level of that type in a path; empty when the path has none.
std::string levelName(const std::string& p_path, const char* p_type);

/// The library's entry of an additional variable.
std::string additionalVariable(const std::string& p_name);

std::string flow(const std::string& p_flowName);
std::string bladeRowModels(const std::string& p_flowName);
std::string monitorPoint(const std::string& p_flowName, const std::string& p_name);
std::string monitorStatistics(const std::string& p_flowName, const std::string& p_monitorPoint);

/// The object of that type and name below another.
std::string child(const std::string& p_path, const char* p_type, const std::string& p_name);

/// An additional variable below the models of a domain: those of its fluids or its solids.
std::string domainAV(const std::string& p_domainPath, const char* p_models, const std::string& p_name);

/// An additional variable of one fluid of a domain.
std::string fluidAV(const std::string& p_domainPath, const std::string& p_fluid, const std::string& p_name);

}    // namespace qen::modelpaths
