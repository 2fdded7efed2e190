/// @file
/// What the full passing check of an expression costs in multiples of what fparser needs to parse the same formula.

#include "CheckAgainst.h"
#include "FparserReference.h"

int main() { return qen::benchmarks::checkAgainst<qen::benchmarks::FparserReference>("fparser", 5.0, 200); }
