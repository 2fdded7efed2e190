#pragma once

#include "DimExprErrors.h"

#include "DataError.h"
#include "ExpressionsError.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The catalogue of all texts that a user can see: one row per text. A check names the row and passes the values.
namespace qen::messages {

enum class Msg {
    AVInvalidPrefix,
    AVNeedsFluidPrefix,
    AVNeedsSolidPrefix,
    AVsNotAllowed,
    AVNotInDomain,
    AVTwoPrefixes,
    BadExpression,
    FunctionLocatorDimension,
    ExpressionValueNeedsProbe,
    FieldValuedFunction,
    BoundconOutsideBoundary,
    ArgumentNotAVariable,
    WrongDynamicUnits,
    WrongExpressionUnits,
    ArgumentNotExpressionValue,
    FieldValuedVariables,
    InvalidLocator,
    PrefixError,
    OperatorWithoutStatistics,
    InvalidOperator,
    ArgumentOperatorUnsupported,
    OperatorUnsupportedHere,
    InvalidComponent,
    WrongUnits,
    ExpressionValueMisplaced,
    ArgumentNotFieldValued,
    ArgumentNotRigidBodyState,
    NonScalarVariable,
    NonScalarOperator,
    AxisComponentUnsupported,
    VariablesNotAllowed,
    PostprocessorNameClash,
    ScopeMissing,
    PrefixMissing,
    OneOfPrefixesMissing,
    PhasePrefixNotAllowed,
    FluidPairPrefixNotAllowed,
    ParticlePrefixNotAllowed,
    MusigFluidPrefixNotAllowed,
    ComponentPrefixNotAllowed,
    ParticleComponentPrefixNotAllowed,
    ReactionPrefixNotAllowed,
    FlameletReactionPrefixNotAllowed,
    SingleStepReactionPrefixNotAllowed,
    OnlyFlameletOrSingleStepReaction,
    OnlyFlameletReaction,
    OnlySingleStepReaction,
    SizeGroupPrefixNotAllowed,
    InvalidPrefix,
    ArgumentPrefixAtLocator,
    CoordinateFrameUnsupported,
    EulerAngleWithoutComponent,
    LocatorNotRigidBody,
    DisallowedArgument,
    ParameterNameClash,
    SolverNameClash,
    LocatorNotAPoint,
    TwoCoordinateFrames,
    UnavailableVariables,
    UnrecognisedUnits,
    BelowLowerBound,
    AboveUpperBound,
    InvalidBound,
    VariableSyntax,
    RootPosition,
    Count
};

/// What a row is thrown as. InvalidBound goes to the host as a fault of its rules; the rest become records. A Name
/// cannot be split, and is not the checker's own exception.
enum class Raises { Error, Warning, Bounds, Units, DynamicQuantity, InvalidBound, Name };

struct Row {
    Msg id;
    const char* name;    // stable, for people and tools; never part of the text
    Raises raises;
    const char* text;
    std::array<const char*, 5> placeholders;    // what %1, %2 ... stand for; null behind the last
};

inline constexpr std::array<Row, static_cast<std::size_t>(Msg::Count)> k_catalogue {{
    // clang-format off
    {Msg::AVInvalidPrefix, "av-invalid-prefix", Raises::Error,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' has an invalid prefix "
     "'%4'. The prefix must be a valid phase name.",
     {"variable", "parameter", "object", "prefix"}},

    {Msg::AVNeedsFluidPrefix, "av-needs-fluid-prefix", Raises::Error,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is fluid-dependent and "
     "therefore requires a fluid prefix.",
     {"variable", "parameter", "object"}},

    {Msg::AVNeedsSolidPrefix, "av-needs-solid-prefix", Raises::Error,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is used in a porous "
     "solid domain for a solid model and therefore requires a solid prefix.",
     {"variable", "parameter", "object"}},

    {Msg::AVsNotAllowed, "avs-not-allowed", Raises::Error,
     "Parameter '%1' in object '%2' has been assigned an expression that references additional "
     "variables. This is not allowed for this parameter. The additional variables referenced are:  %3.",
     {"parameter", "object", "list of variables"}},

    {Msg::AVNotInDomain, "av-not-in-domain", Raises::Error,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' does not exist in Domain "
     "'%4'.",
     {"variable", "parameter", "object", "domain"}},

    {Msg::AVTwoPrefixes, "av-two-prefixes", Raises::Error,
     "The Additional Variable '%1' referenced by parameter '%2' in object '%3' is invalid because it "
     "has two prefixes.",
     {"variable", "parameter", "object"}},

    {Msg::BadExpression, "bad-expression", Raises::Error,
     "Bad expression value '%1' detected in parameter '%2' in object '%3'.\nQEL error:\n%4",
     {"value", "parameter", "object", "evaluator error"}},

    {Msg::FunctionLocatorDimension, "function-locator-dimension", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' is incompatible with the dimension "
     "of its associated locator '%4'.",
     {"function", "parameter", "object", "locator"}},

    {Msg::ExpressionValueNeedsProbe, "expression-value-needs-probe", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. "
     "'Expression Value' can only be used with the 'probe' function.",
     {"function", "parameter", "object", "argument"}},

    {Msg::FieldValuedFunction, "field-valued-function", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' is field valued, but the parameter "
     "is defined to be \"Single Valued\".",
     {"function", "parameter", "object"}},

    {Msg::BoundconOutsideBoundary, "boundcon-outside-boundary", Raises::Error,
     "The expression '%1' referenced by parameter '%2' in object '%3' is not valid. The Boundcon "
     "operator is only valid for a boundary.",
     {"expression", "parameter", "object"}},

    {Msg::ArgumentNotAVariable, "argument-not-a-variable", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. Only "
     "arguments that consist of a single recognised variable name are supported by the solver.",
     {"function", "parameter", "object", "argument"}},

    {Msg::WrongDynamicUnits, "wrong-dynamic-units", Raises::DynamicQuantity,
     "Invalid dynamic units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"units found", "parameter", "object", "expected units"}},

    {Msg::WrongExpressionUnits, "wrong-expression-units", Raises::Error,
     "Expression resolves to invalid units ('%1') in value set for parameter '%2' in object '%3'. "
     "Expected units: '%4'.",
     {"units found", "parameter", "object", "expected units"}},

    {Msg::ArgumentNotExpressionValue, "argument-not-expression-value", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid combination of "
     "argument and locator. If the locator is a monitor point with 'Option' set to 'Expression', then "
     "the argument must use 'Expression Value'.",
     {"function", "parameter", "object"}},

    {Msg::FieldValuedVariables, "field-valued-variables", Raises::Error,
     "The parameter '%1' in object '%2' is defined to be \"Single Valued\" but it depends on the "
     "following field valued variables: %3.",
     {"parameter", "object", "list of variables"}},

    {Msg::InvalidLocator, "invalid-locator", Raises::Error,
     "An invalid or unrecognised locator '%1' is referenced by parameter '%2' in object '%3'.",
     {"locator", "parameter", "object"}},

    {Msg::PrefixError, "prefix-error", Raises::Error,
     "Prefix error in variable '%1' referenced by parameter '%2' in object '%3'.\n%4",
     {"variable", "parameter", "object", "detail text"}},

    {Msg::OperatorWithoutStatistics, "operator-without-statistics", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid operator, '%4'. For "
     "this operator to be valid in this context, the monitor point '%5' must have the relevant monitor "
     "statistics defined.",
     {"function", "parameter", "object", "operator", "monitor point"}},

    {Msg::InvalidOperator, "invalid-operator", Raises::Error,
     "Invalid operator '%1' used in expression '%2', referenced by parameter '%3' in object '%4'.",
     {"operator", "expression", "parameter", "object"}},

    {Msg::ArgumentOperatorUnsupported, "argument-operator-unsupported", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "solver does not support the use of this operator for this variable when used as an argument for "
     "this function.",
     {"function", "parameter", "object", "argument"}},

    {Msg::OperatorUnsupportedHere, "operator-unsupported-here", Raises::Error,
     "The expression '%1' referenced by parameter '%2' in object '%3' is not valid. The solver does not "
     "support the use of the operator '%4' for this variable in this context.",
     {"expression", "parameter", "object", "operator"}},

    {Msg::InvalidComponent, "invalid-component", Raises::Error,
     "Invalid vector or tensor component '%1' used in variable '%2', referenced by parameter '%3' in "
     "object '%4'.",
     {"component", "variable", "parameter", "object"}},

    {Msg::WrongUnits, "wrong-units", Raises::Units,
     "Invalid units ('%1') set for parameter '%2' in object '%3'. Expected units: '%4'.",
     {"units given", "parameter", "object", "expected units"}},

    {Msg::ExpressionValueMisplaced, "expression-value-misplaced", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid combination of "
     "argument and locator. Arguments based on 'Expression Value' can only be used with a locator which "
     "is a monitor point with 'Option' set to 'Expression'.",
     {"function", "parameter", "object"}},

    {Msg::ArgumentNotFieldValued, "argument-not-field-valued", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "argument must be a field-valued variable.",
     {"function", "parameter", "object", "argument"}},

    {Msg::ArgumentNotRigidBodyState, "argument-not-rigid-body-state", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "argument must be a valid rigid body state variable.",
     {"function", "parameter", "object", "argument"}},

    {Msg::NonScalarVariable, "non-scalar-variable", Raises::Error,
     "Non-scalar variable '%1' referenced by parameter '%2' in object '%3'.\nNon-scalars are only "
     "allowed as arguments to integrated quantity functions.",
     {"variable", "parameter", "object"}},

    {Msg::NonScalarOperator, "non-scalar-operator", Raises::Error,
     "Non-scalar operator applied to non-scalar variable in '%1', referenced by parameter '%2' in "
     "object '%3'.",
     {"variable", "parameter", "object"}},

    {Msg::AxisComponentUnsupported, "axis-component-unsupported", Raises::Error,
     "Parameter '%1' in object '%2' references the function '%3'. The function '%4' does not support "
     "axis components.",
     {"parameter", "object", "function", "base name"}},

    {Msg::VariablesNotAllowed, "variables-not-allowed", Raises::Error,
     "Parameter '%1' in object '%2' is not allowed to be assigned an expression value that depends on "
     "variables. It must be assigned a numeric value, or an expression that resolves to a constant "
     "value.",
     {"parameter", "object"}},

    // Deliberate: reads as advice, yet is an error; only ParameterNameClash is a warning. Held by
    // MessageCatalogue.OnlyTheParameterNameClashIsAWarning.
    {Msg::PostprocessorNameClash, "postprocessor-name-clash", Raises::Error,
     "The expression name '%1' is a reserved variable name in Posterra. It might not be possible to "
     "postprocess this case in Posterra.",
     {"expression name"}},

    {Msg::ScopeMissing, "scope-missing", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not properly specified in the "
     "VARIABLES file.  It is missing a \"%4\" parameter.  Therefore its  use in this expression cannot "
     "be properly validated.",
     {"variable", "parameter", "object", "missing field"}},

    {Msg::PrefixMissing, "prefix-missing", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' does not have a required %4 prefix.",
     {"variable", "parameter", "object", "required prefix"}},

    {Msg::OneOfPrefixesMissing, "one-of-prefixes-missing", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' does not have one of the required "
     "prefixes: %4.",
     {"variable", "parameter", "object", "allowed prefixes"}},

    {Msg::PhasePrefixNotAllowed, "phase-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a phase "
     "prefix.",
     {"variable", "parameter", "object"}},

    {Msg::FluidPairPrefixNotAllowed, "fluid-pair-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a fluid pair "
     "prefix.",
     {"variable", "parameter", "object"}},

    {Msg::ParticlePrefixNotAllowed, "particle-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a particle "
     "prefix.",
     {"variable", "parameter", "object"}},

    {Msg::MusigFluidPrefixNotAllowed, "musig-fluid-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a musig "
     "fluid prefix.",
     {"variable", "parameter", "object"}},

    {Msg::ComponentPrefixNotAllowed, "component-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a component "
     "name prefix.",
     {"variable", "parameter", "object"}},

    {Msg::ParticleComponentPrefixNotAllowed, "particle-component-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a "
     "'particle.component' prefix.",
     {"variable", "parameter", "object"}},

    {Msg::ReactionPrefixNotAllowed, "reaction-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix.",
     {"variable", "parameter", "object"}},

    {Msg::FlameletReactionPrefixNotAllowed, "flamelet-reaction-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a flamelet "
     "reaction prefix.",
     {"variable", "parameter", "object"}},

    {Msg::SingleStepReactionPrefixNotAllowed, "single-step-reaction-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a single "
     "step reaction prefix.",
     {"variable", "parameter", "object"}},

    {Msg::OnlyFlameletOrSingleStepReaction, "only-flamelet-or-single-step-reaction", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a flamelet or single step reaction.",
     {"variable", "parameter", "object"}},

    {Msg::OnlyFlameletReaction, "only-flamelet-reaction", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a flamelet reaction.",
     {"variable", "parameter", "object"}},

    {Msg::OnlySingleStepReaction, "only-single-step-reaction", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a reaction "
     "prefix unless it is a single step reaction.",
     {"variable", "parameter", "object"}},

    {Msg::SizeGroupPrefixNotAllowed, "size-group-prefix-not-allowed", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' is not allowed to have a size group "
     "prefix.",
     {"variable", "parameter", "object"}},

    {Msg::InvalidPrefix, "invalid-prefix", Raises::Error,
     "The variable '%1' referenced by parameter '%2' in object '%3' has an invalid prefix.",
     {"variable", "parameter", "object"}},

    {Msg::ArgumentPrefixAtLocator, "argument-prefix-at-locator", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. The "
     "prefixed variable is not valid in the context of the locator '%5'.",
     {"function", "parameter", "object", "argument", "locator"}},

    {Msg::CoordinateFrameUnsupported, "coordinate-frame-unsupported", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' references a coordinate frame, "
     "'%4'.  This is not supported in QVN-Pre.",
     {"function", "parameter", "object", "frame"}},

    {Msg::EulerAngleWithoutComponent, "euler-angle-without-component", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid argument, '%4'. Only "
     "individual angles (`Euler Angle X', `Euler Angle Y' and `Euler Angle Z') can be used as arguments "
     ".",
     {"function", "parameter", "object", "argument"}},

    {Msg::LocatorNotRigidBody, "locator-not-rigid-body", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has an invalid locator, '%4'. The "
     "locator must only be the name of a rigid body.",
     {"function", "parameter", "object", "locator"}},

    {Msg::DisallowedArgument, "disallowed-argument", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' has a disallowed argument, '%4'. "
     "The solver does not support the use of this variable in this context.",
     {"function", "parameter", "object", "argument"}},

    {Msg::ParameterNameClash, "parameter-name-clash", Raises::Warning,
     "The expression name '%1' is a QVN Command Language parameter name. This may cause difficulties "
     "when the case is run.",
     {"expression name"}},

    {Msg::SolverNameClash, "solver-name-clash", Raises::Error,
     "The expression name '%1' is a reserved solver variable name. It will not be possible to reference "
     "this expression.",
     {"expression name"}},

    {Msg::LocatorNotAPoint, "locator-not-a-point", Raises::Error,
     "The function '%1' referenced by parameter '%2' in object '%3' and its associated locator '%4' "
     "have a disallowed dimensionality. Only point locators are supported when used with time "
     "transformation disturbances.",
     {"function", "parameter", "object", "locator"}},

    {Msg::TwoCoordinateFrames, "two-coordinate-frames", Raises::Error,
     "Two coordinate frame qualifiers are used in variable '%1', referenced by parameter '%2' in object "
     "'%3'.\nSuch a qualifier is allowed only to appear in one of the two positions within a variable "
     "name.",
     {"variable", "parameter", "object"}},

    {Msg::UnavailableVariables, "unavailable-variables", Raises::Error,
     "Parameter '%1' in object '%2' has been assigned an expression that references the following "
     "unavailable variables:   %3",
     {"parameter", "object", "list of variables"}},

    {Msg::UnrecognisedUnits, "unrecognised-units", Raises::Units,
     "Unrecognised units ('%1') set for parameter '%2' in object '%3'.",
     {"units given", "parameter", "object"}},

    {Msg::BelowLowerBound, "below-lower-bound", Raises::Bounds,
     "Value of '%1' in object '%2', '%3', violates its lower bound, '%4'.",
     {"parameter", "object", "value with units", "bound with units"}},

    {Msg::AboveUpperBound, "above-upper-bound", Raises::Bounds,
     "Value of '%1' in object '%2', '%3', violates its upper bound, '%4'.",
     {"parameter", "object", "value with units", "bound with units"}},

    {Msg::InvalidBound, "invalid-bound", Raises::InvalidBound,
     "The lower or upper bound value for parameter '%1' has been specified with invalid units.",
     {"parameter"}},

    {Msg::VariableSyntax, "variable-syntax", Raises::Name,
     "Variable '%1' does not match allowed syntax.",
     {"variable"}},

    {Msg::RootPosition, "root-position", Raises::Name,
     "The 'root' name '%1' does not appear in a valid position in variable name '%2'.\nIt must be either "
     "the penultimate or the last '.'-separated component of the full name.",
     {"root", "variable"}},
    // clang-format on
}};

constexpr bool rowsStandAtTheirOwnNumber()
{
    for (std::size_t i = 0; i < k_catalogue.size(); ++i)
        if (k_catalogue[i].id != static_cast<Msg>(i))
            return false;
    return true;
}

constexpr std::size_t placeholderCount(const Row& p_row)
{
    std::size_t count = 0;
    while (count < p_row.placeholders.size() && p_row.placeholders[count])
        ++count;
    return count;
}

/// Whether each named placeholder, and no other, occurs in the row's text.
constexpr bool namesItsPlaceholders(const Row& p_row)
{
    const std::string_view text = p_row.text;
    for (std::size_t i = 0; i < 9; ++i)
    {
        const char token[] {'%', static_cast<char>('1' + i)};
        const bool occurs = text.find(std::string_view(token, 2)) != std::string_view::npos;
        if (occurs != (i < placeholderCount(p_row)))
            return false;
    }
    return true;
}

constexpr bool allRowsNameTheirPlaceholders()
{
    for (const Row& row : k_catalogue)
        if (!namesItsPlaceholders(row))
            return false;
    return true;
}

static_assert(rowsStandAtTheirOwnNumber());
static_assert(allRowsNameTheirPlaceholders());

constexpr const Row& row(Msg p_id) { return k_catalogue[static_cast<std::size_t>(p_id)]; }

/// Units as a message shows them: the empty text is the word "dimensionless".
struct ShownUnits {
    const std::string& units;
};

/// What fills a placeholder: a text, units, or names, which are shown sorted, each once. Refers to what it is made of, so
/// that nothing is left to be destroyed in the frames that an exception passes.
class Value {
public:
    Value(std::string_view p_text) : m_text(p_text) {}
    Value(const std::string& p_text) : m_text(p_text) {}
    Value(const char* p_text) : m_text(p_text) {}
    Value(const std::vector<std::string>& p_names) : m_names(&p_names) {}
    Value(ShownUnits p_units) : m_text(p_units.units), m_isUnits(true) {}

    std::string text() const;

private:
    std::string_view m_text;
    bool m_isUnits = false;
    const std::vector<std::string>* m_names = nullptr;
};

/// The exception class of what raises.
template <Raises>
struct ProblemOf;
template <>
struct ProblemOf<Raises::Error> {
    using Type = DimExprErrors::dxerror;
};
template <>
struct ProblemOf<Raises::Warning> {
    using Type = DimExprErrors::dxwarning;
};
template <>
struct ProblemOf<Raises::Bounds> {
    using Type = DimExprErrors::bounds_error;
};
template <>
struct ProblemOf<Raises::Units> {
    using Type = DimExprErrors::units_error;
};
template <>
struct ProblemOf<Raises::DynamicQuantity> {
    using Type = DimExprErrors::dynamic_quant_error;
};
template <>
struct ProblemOf<Raises::InvalidBound> {
    using Type = data::error;
};
template <>
struct ProblemOf<Raises::Name> {
    using Type = expressions::name;
};

template <Raises What>
using Problem = typename ProblemOf<What>::Type;

/// Formats a row and tells the listener.
///
/// @return What is to be thrown.
template <Raises What>
Problem<What> problem(const Row& p_row, std::span<const Value> p_values);

/// The message function of a row. Takes one value per placeholder, in their order: a text, units or a list of names.
//
// Thrown where it is raised: each frame that an exception passes makes it dearer by a fifth.
template <Msg Id, class... Values>
[[noreturn, gnu::always_inline]] inline void raise(const Values&... p_values)
{
    static_assert(sizeof...(Values) == placeholderCount(row(Id)), "one value per placeholder");
    const std::array<Value, sizeof...(Values)> values {Value(p_values)...};
    throw problem<row(Id).raises>(row(Id), values);
}

}    // namespace qen::messages
