#include "lint/Lint.h"

#include "definitions/Definitions.h"
#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "lint/LintRules.h"

#include <array>

namespace qen::standalone {
namespace {

// clang-format off
constexpr std::array k_rules {
    LintRule {"lint-unknown-scope",             Severity::Error,   "a variable's scope that no check looks at", findUnknownScopes},
    LintRule {"lint-missing-scope",             Severity::Error,   "a variable for expressions without a scope", findMissingScopes},
    LintRule {"lint-missing-quantity",          Severity::Warning, "a variable for expressions without a quantity", findMissingQuantities},
    LintRule {"lint-unknown-quantity",          Severity::Error,   "a variable's quantity that the units do not have", findUnknownQuantities},
    LintRule {"lint-field-variable-text",       Severity::Error,   "a 'Field Variable' that is neither true nor false", findFieldVariableTexts},
    LintRule {"lint-missing-coordinate",        Severity::Error,   "a coordinate that is no variable", findMissingCoordinates},

    LintRule {"lint-unknown-availability",      Severity::Error,   "a physical availability that no check knows", findUnknownAvailabilities},
    LintRule {"lint-availability-blank",        Severity::Error,   "a blank behind the '!' of a physical availability", findBlanksInAvailabilities},

    LintRule {"lint-scalar-components",         Severity::Warning, "names of components of a scalar", findScalarComponents},
    LintRule {"lint-old-component-count",       Severity::Warning, "old names for some of the components", findOldComponentCounts},
    LintRule {"lint-repeated-piece",            Severity::Warning, "a word that is twice in a list", findRepeatedPieces},
    LintRule {"lint-empty-piece",               Severity::Error,   "an empty piece of a list", findEmptyPieces},

    LintRule {"lint-name-of-constant",          Severity::Error,   "a variable that hides a constant", findNamesOfConstants},
    LintRule {"lint-name-of-function",          Severity::Warning, "a variable with the name of a function of mathematics", findNamesOfFunctions},
    LintRule {"lint-reserved-name",             Severity::Error,   "a variable with a name that is reserved", findReservedNames},
    LintRule {"lint-operator-named-as-variable", Severity::Warning, "an operator with the name of a variable", findOperatorsNamedAsVariables},
    LintRule {"lint-callback-named-as-function", Severity::Warning, "a callback function with the name of a function of mathematics", findCallbacksNamedAsFunctions},
    LintRule {"lint-names-differ-by-case",      Severity::Warning, "operators or callback functions whose names differ only by case", findNamesThatDifferByCase},
    LintRule {"lint-unwritable-name",           Severity::Warning, "a name that cannot be written in an expression", findUnwritableNames},

    LintRule {"lint-unknown-operator-availability", Severity::Error, "an operator's availability that no check asks for", findUnknownOperatorAvailabilities},
    LintRule {"lint-unknown-locator-dimension", Severity::Error,   "a locator dimension that is not known", findUnknownLocatorDimensions},
    LintRule {"lint-missing-locator-dimension", Severity::Error,   "a callback function that takes no locator", findMissingLocatorDimensions},
    LintRule {"lint-callback-type",             Severity::Error,   "a 'CallBack Type' other than Field and Scalar", findCallbackTypes},
    LintRule {"lint-callback-tensor-type",      Severity::Error,   "a callback function's 'Tensor Type' other than SCALAR and VECTOR", findCallbackTensorTypes},
    LintRule {"lint-argument-count",            Severity::Error,   "a 'Number of Arguments' below 0 or with further text", findArgumentCounts},
    LintRule {"lint-result-units",              Severity::Error,   "'Result Units' with text beside the brackets", findTextsBesideResultUnits},

    LintRule {"lint-bound-units",               Severity::Error,   "a bound with units that no quantity asks for", findBoundUnits},
    LintRule {"lint-bound-without-quantity",    Severity::Warning, "a bound, but no quantity for the values", findBoundsWithoutQuantity},
    LintRule {"lint-crossed-bounds",            Severity::Error,   "a lower bound above the upper one", findCrossedBounds},
    LintRule {"lint-unknown-dependency",        Severity::Error,   "a parameter that depends on what is no variable", findUnknownDependencies},
    LintRule {"lint-unknown-units-source",      Severity::Error,   "units that come from a parameter that no rule knows", findUnknownUnitsSources},
    LintRule {"lint-unholdable-parameter",      Severity::Error,   "a parameter that no case can hold", findUnholdableParameters},
};
// clang-format on

}    // namespace

std::span<const LintRule> lintRules() { return k_rules; }

std::vector<Finding> lintDefinitions(const Definitions& p_definitions)
{
    const LintInput input(p_definitions);
    std::vector<Finding> findings;
    for (const LintRule& rule : k_rules)
    {
        LintReport report(rule, findings);
        rule.find(input, report);
    }
    sortByPlace(findings);
    return findings;
}

}    // namespace qen::standalone
