#pragma once

#include <array>

/// What the catalogue is to hold, written out in full: a test never asks the catalogue for a text.
namespace qen::expected {

/// The class of the exception that a message is thrown as.
enum class Thrown { Error, Warning, Bounds, Units, DynamicQuantity, DataError, Name };

struct Message {
    const char* identifier;
    Thrown thrown;
    int placeholders;
    int parameterAt;    // which placeholder is the parameter's name; 0 for none
    int objectAt;       // which is the object's path
    const char* text;
};

inline constexpr std::array k_messages {std::to_array<Message>({
    // clang-format off
    {"av-invalid-prefix", Thrown::Error, 4, 2, 3,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' has an invalid prefix "
     "'%4'. The prefix must be a valid phase name."},
    {"av-needs-fluid-prefix", Thrown::Error, 3, 2, 3,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is fluid-dependent and "
     "therefore requires a fluid prefix."},
    {"av-needs-solid-prefix", Thrown::Error, 3, 2, 3,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is used in a porous solid "
     "domain for a solid model and therefore requires a solid prefix."},
    {"avs-not-allowed", Thrown::Error, 3, 1, 2,
     "Parameter '%1' in object '%2' has been assigned an expression that references additional variables. "
     "This is not allowed for this parameter. The additional variables referenced are:  %3."},
    {"av-not-in-domain", Thrown::Error, 4, 2, 3,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' does not exist in Domain "
     "'%4'."},
    {"av-two-prefixes", Thrown::Error, 3, 2, 3,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is invalid because it has "
     "two prefixes."},
    {"bad-expression", Thrown::Error, 4, 2, 3,
     "Bad expression value '%1' detected in parameter '%2' in object '%3'.\nQEL error:\n%4"},
    {"function-locator-dimension", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' is incompatible with the dimension of "
     "its associated locator '%4'."},
    {"expression-value-needs-probe", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. "
     "'Expression Value' can only be used with the 'probe' function."},
    {"field-valued-function", Thrown::Error, 3, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' is field valued, but the parameter is "
     "defined to be \"Single Valued\"."},
    {"boundcon-outside-boundary", Thrown::Error, 3, 2, 3,
     "The expression '%1' referenced by parameter '%2' in object '%3' is not valid. The Boundcon operator "
     "is only valid for a boundary."},
    {"argument-not-a-variable", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. Only "
     "arguments that consist of a single recognised variable name are supported by the solver."},
    {"wrong-dynamic-units", Thrown::DynamicQuantity, 4, 2, 3,
     "Invalid dynamic units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'."},
    {"wrong-expression-units", Thrown::Error, 4, 2, 3,
     "Expression resolves to invalid units ('%1') in value set for parameter '%2' in object '%3'. "
     "Expected units: '%4'."},
    {"argument-not-expression-value", Thrown::Error, 3, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid combination of "
     "argument and locator. If the locator is a monitor point with 'Option' set to 'Expression', then the "
     "argument must use 'Expression Value'."},
    {"field-valued-variables", Thrown::Error, 3, 1, 2,
     "The parameter '%1' in object '%2' is defined to be \"Single Valued\" but it depends on the "
     "following field valued variables: %3."},
    {"invalid-locator", Thrown::Error, 3, 2, 3,
     "An invalid or unrecognised locator '%1' is referenced by parameter '%2' in object '%3'."},
    {"prefix-error", Thrown::Error, 4, 2, 3,
     "Prefix error in variable '%1' referenced by parameter '%2' in object '%3'.\n%4"},
    {"operator-without-statistics", Thrown::Error, 5, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid operator, '%4'. For "
     "this operator to be valid in this context, the monitor point '%5' must have the relevant monitor "
     "statistics defined."},
    {"invalid-operator", Thrown::Error, 4, 3, 4,
     "Invalid operator '%1' used in expression '%2', referenced by parameter '%3' in object '%4'."},
    {"argument-operator-unsupported", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "solver does not support the use of this operator for this variable when used as an argument for "
     "this function."},
    {"operator-unsupported-here", Thrown::Error, 4, 2, 3,
     "The expression '%1' referenced by parameter '%2' in object '%3' is not valid. The solver does not "
     "support the use of the operator '%4' for this variable in this context."},
    {"invalid-component", Thrown::Error, 4, 3, 4,
     "Invalid vector or tensor component '%1' used in variable '%2', referenced by parameter '%3' in "
     "object '%4'."},
    {"wrong-units", Thrown::Units, 4, 2, 3,
     "Invalid units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'."},
    {"expression-value-misplaced", Thrown::Error, 3, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid combination of "
     "argument and locator. Arguments based on 'Expression Value' can only be used with a locator which "
     "is a monitor point with 'Option' set to 'Expression'."},
    {"argument-not-field-valued", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "argument must be a field-valued variable."},
    {"argument-not-rigid-body-state", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "argument must be a valid rigid body state variable."},
    {"non-scalar-variable", Thrown::Error, 3, 2, 3,
     "Non-scalar variable '%1' referenced by parameter '%2' in object '%3'.\nNon-scalars are only allowed "
     "as arguments to integrated quantity functions."},
    {"non-scalar-operator", Thrown::Error, 3, 2, 3,
     "Non-scalar operator applied to non-scalar variable in '%1', referenced by parameter '%2' in object "
     "'%3'."},
    {"axis-component-unsupported", Thrown::Error, 4, 1, 2,
     "Parameter '%1' in object '%2' references the function '%3'. The function '%4' does not support axis "
     "components."},
    {"variables-not-allowed", Thrown::Error, 2, 1, 2,
     "Parameter '%1' in object '%2' is not allowed to be assigned an expression value that depends on "
     "variables. It must be assigned a numeric value, or an expression that resolves to a constant value."},
    {"postprocessor-name-clash", Thrown::Error, 1, 0, 0,
     "The expression name '%1' is a reserved variable name in Posterra. It might not be possible to "
     "postprocess this case in Posterra."},
    {"argument-prefix-at-locator", Thrown::Error, 5, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "prefixed variable is not valid in the context of the locator '%5'."},
    {"coordinate-frame-unsupported", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' references a coordinate frame, '%4'.  "
     "This is not supported in QVN-Pre."},
    {"euler-angle-without-component", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. Only "
     "individual angles (`Euler Angle X', `Euler Angle Y' and `Euler Angle Z') can be used as arguments ."},
    {"locator-not-rigid-body", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid locator, '%4'. The "
     "locator must only be the name of a rigid body."},
    {"disallowed-argument", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' has a disallowed argument, '%4'. The "
     "solver does not support the use of this variable in this context."},
    {"parameter-name-clash", Thrown::Warning, 1, 0, 0,
     "The expression name '%1' is a QVN Command Language parameter name. This may cause difficulties when "
     "the case is run."},
    {"solver-name-clash", Thrown::Error, 1, 0, 0,
     "The expression name '%1' is a reserved solver variable name. It will not be possible to reference "
     "this expression."},
    {"locator-not-a-point", Thrown::Error, 4, 2, 3,
     "The function '%1' referenced by parameter '%2' in object '%3' and its associated locator '%4' have "
     "a disallowed dimensionality. Only point locators are supported when used with time transformation "
     "disturbances."},
    {"two-coordinate-frames", Thrown::Error, 3, 2, 3,
     "Two coordinate frame qualifiers are used in variable '%1', referenced by parameter '%2' in object "
     "'%3'.\nSuch a qualifier is allowed only to appear in one of the two positions within a variable "
     "name."},
    {"unavailable-variables", Thrown::Error, 3, 1, 2,
     "Parameter '%1' in object '%2' has been assigned an expression that references the following "
     "unavailable variables:   %3"},
    {"unrecognised-units", Thrown::Units, 3, 2, 3,
     "Unrecognised units ('%1') set for parameter '%2' in object '%3'."},
    {"scope-missing", Thrown::Error, 4, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not properly specified in the "
     "VARIABLES file.  It is missing a \"%4\" parameter.  Therefore its  use in this expression cannot be "
     "properly validated."},
    {"prefix-missing", Thrown::Error, 4, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' does not have a required %4 prefix."},
    {"one-of-prefixes-missing", Thrown::Error, 4, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' does not have one of the required "
     "prefixes: %4."},
    {"phase-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a phase prefix."},
    {"fluid-pair-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a fluid pair "
     "prefix."},
    {"particle-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a particle "
     "prefix."},
    {"musig-fluid-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a musig fluid "
     "prefix."},
    {"component-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a component "
     "name prefix."},
    {"particle-component-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a "
     "'particle.component' prefix."},
    {"reaction-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix."},
    {"flamelet-reaction-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a flamelet "
     "reaction prefix."},
    {"single-step-reaction-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a single step "
     "reaction prefix."},
    {"only-flamelet-or-single-step-reaction", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a flamelet or single step reaction."},
    {"only-flamelet-reaction", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a flamelet reaction."},
    {"only-single-step-reaction", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a single step reaction."},
    {"size-group-prefix-not-allowed", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a size group "
     "prefix."},
    {"invalid-prefix", Thrown::Error, 3, 2, 3,
     "The variable '%1' referenced by parameter '%2' in object '%3' has an invalid prefix."},
    {"below-lower-bound", Thrown::Bounds, 4, 1, 2,
     "Value of '%1' in object '%2', '%3', violates its lower bound, '%4'."},
    {"above-upper-bound", Thrown::Bounds, 4, 1, 2,
     "Value of '%1' in object '%2', '%3', violates its upper bound, '%4'."},
    {"invalid-bound", Thrown::DataError, 1, 1, 0,
     "The lower or upper bound value for parameter '%1' has been specified with invalid units."},
    {"variable-syntax", Thrown::Name, 1, 0, 0,
     "Variable '%1' does not match allowed syntax."},
    {"root-position", Thrown::Name, 2, 0, 0,
     "The 'root' name '%1' does not appear in a valid position in variable name '%2'.\nIt must be either the "
     "penultimate or the last '.'-separated component of the full name."},
    // clang-format on
})};

}    // namespace qen::expected
