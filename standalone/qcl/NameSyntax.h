#pragma once

#include "qcl/QclProblems.h"
#include "qcl/QclReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qen::standalone {

/// What is wrong with a name or a path, and which stretch of it to point at.
struct NameFault {
    QclProblem problem;
    std::string message;
    std::size_t offset = 0;
    std::size_t length = 0;
};

/// What is wrong with an object's path, the first such thing from the left; none when the path is in order.
std::optional<NameFault> findPathFault(std::string_view p_path, const QclLimits& p_limits);

/// What is wrong with a parameter's name.
std::optional<NameFault> findParameterNameFault(std::string_view p_name, const QclLimits& p_limits);

}    // namespace qen::standalone
