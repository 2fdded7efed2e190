#pragma once

#include "ModelPaths.h"

#include <string>

namespace qen {

class ModelQCL;
class PreVariableDefStore;
class QCLPath;

/// What the model says about the locators of one flow.
class CallbackLocators {
public:
    /// The model is not owned and outlives this; the name must stay as well.
    CallbackLocators(const ModelQCL& p_model, const std::string& p_flowName, const ModelPaths& p_paths)
        : m_model(p_model), m_flowName(p_flowName), m_paths(p_paths)
    {}

    /// Whether the locator is a monitor point whose value is an expression.
    bool isExpressionPoint(const std::string& p_locator) const;

    /// Whether the statistics of a monitor point hold the operator, by either of its names.
    bool hasStatistics(const std::string& p_monitorPoint, const std::string& p_operator,
                       const PreVariableDefStore& p_operators) const;

    /// Whether a time transformation disturbs the flow.
    bool hasTimeTransformation() const;

    /// Whether the locator is a rigid body, or a domain that moves as one.
    bool isRigidBody(const std::string& p_locator) const;

    /// The name of the domain in which a monitor point lies; empty when it cannot be told.
    std::string domainOfMonitorPoint(const QCLPath& p_monitorPoint) const;

private:
    const ModelQCL& m_model;
    const std::string& m_flowName;
    ModelPaths m_paths;
};

}    // namespace qen
