#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace qencheck {

/// What is said of arguments that are wrong: what is wrong with them in one line, and where to read on.
std::string usageError(const CLI::App* p_command, const CLI::Error& p_error);

}    // namespace qencheck
