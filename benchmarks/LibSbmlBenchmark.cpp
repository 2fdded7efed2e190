/// @file
/// What the full passing check of an expression costs in multiples of what libSBML needs to derive the units of the same
/// formula: from its text to a tree to the definition of its units. The parameters with their units are made before.

#include "CheckAgainst.h"
#include "LibSbmlReference.h"

int main() { return qen::benchmarks::checkAgainst<qen::benchmarks::LibSbmlReference>("libSBML", 0.05, 20); }
