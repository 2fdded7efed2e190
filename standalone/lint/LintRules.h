#pragma once

/// @file
/// The rules of the lint: a function each.

namespace qen::standalone {

class LintInput;
class LintReport;

// What a variable's definition says (VariableRules.cpp).
void findUnknownScopes(const LintInput& p_input, LintReport& p_report);
void findMissingScopes(const LintInput& p_input, LintReport& p_report);
void findMissingQuantities(const LintInput& p_input, LintReport& p_report);
void findUnknownQuantities(const LintInput& p_input, LintReport& p_report);
void findFieldVariableTexts(const LintInput& p_input, LintReport& p_report);
void findMissingCoordinates(const LintInput& p_input, LintReport& p_report);

// Physical availability (AvailabilityRules.cpp).
void findUnknownAvailabilities(const LintInput& p_input, LintReport& p_report);
void findBlanksInAvailabilities(const LintInput& p_input, LintReport& p_report);

// Lists (ListRules.cpp).
void findScalarComponents(const LintInput& p_input, LintReport& p_report);
void findOldComponentCounts(const LintInput& p_input, LintReport& p_report);
void findRepeatedPieces(const LintInput& p_input, LintReport& p_report);
void findEmptyPieces(const LintInput& p_input, LintReport& p_report);

// Names (NameRules.cpp).
void findNamesOfConstants(const LintInput& p_input, LintReport& p_report);
void findNamesOfFunctions(const LintInput& p_input, LintReport& p_report);
void findReservedNames(const LintInput& p_input, LintReport& p_report);
void findOperatorsNamedAsVariables(const LintInput& p_input, LintReport& p_report);
void findCallbacksNamedAsFunctions(const LintInput& p_input, LintReport& p_report);
void findNamesThatDifferByCase(const LintInput& p_input, LintReport& p_report);
void findUnwritableNames(const LintInput& p_input, LintReport& p_report);

// What the definition of an operator or callback function says (CallbackRules.cpp).
void findUnknownOperatorAvailabilities(const LintInput& p_input, LintReport& p_report);
void findUnknownLocatorDimensions(const LintInput& p_input, LintReport& p_report);
void findMissingLocatorDimensions(const LintInput& p_input, LintReport& p_report);
void findCallbackTypes(const LintInput& p_input, LintReport& p_report);
void findCallbackTensorTypes(const LintInput& p_input, LintReport& p_report);
void findArgumentCounts(const LintInput& p_input, LintReport& p_report);
void findTextsBesideResultUnits(const LintInput& p_input, LintReport& p_report);

// What the rule of a parameter says (ParameterRules.cpp).
void findBoundUnits(const LintInput& p_input, LintReport& p_report);
void findBoundsWithoutQuantity(const LintInput& p_input, LintReport& p_report);
void findCrossedBounds(const LintInput& p_input, LintReport& p_report);
void findUnknownDependencies(const LintInput& p_input, LintReport& p_report);
void findUnknownUnitsSources(const LintInput& p_input, LintReport& p_report);
void findUnholdableParameters(const LintInput& p_input, LintReport& p_report);

}    // namespace qen::standalone
