#pragma once

#include <cstddef>

namespace qen {
class PreVariableDefStore;
}

namespace qen::standalone {
class ModelTree;
}

namespace qen::benchmarks {

inline constexpr std::size_t k_smallestCatalogue = 12;    ///< the variables that the formulas name
inline constexpr std::size_t k_smallestModel = 10;        ///< the objects of their parameters

/// Fills an empty catalogue with a number of variables, the smallest at least: those that the formulas name, as they
/// ship, and others whose names begin alike.
///
/// @throws std::runtime_error  The shipped file lacks one that the formulas name.
void fillCatalogue(PreVariableDefStore& p_store, std::size_t p_variables);

/// Fills the model of the formulas up to a number of objects, or one less: with boundaries of the domain whose boundary
/// is checked and with materials, each with one object in it.
void fillModel(standalone::ModelTree& p_model, std::size_t p_objects);

}    // namespace qen::benchmarks
