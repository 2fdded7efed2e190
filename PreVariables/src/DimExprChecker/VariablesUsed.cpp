#include "DimExprChecker.h"

#include "ExprParamRules.h"
#include "Gathered.h"
#include "InternalErrors.h"
#include "MessageCatalogue.h"
#include "ModelPaths.h"
#include "PreVariableDefStore.h"
#include "SplitVariableName.h"
#include "VariableRoots.h"

#include "ModelQCL.h"
#include "QCLPath.h"
#include "QELName.h"
#include "StringUtilities.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

using TensType = PreVariableDefStore::TensType;

constexpr const char* k_noVariables = "NONE";
constexpr const char* k_general = "GENERAL";

// Deliberate: no list at all forbids variables as "NONE" does.
// Held by VariablesUsed.AreNotAllowedWhereTheRulesListNothing.
bool forbidsVariables(const std::vector<std::string>& p_dependencies)
{
    return p_dependencies.empty() || std::ranges::find(p_dependencies, k_noVariables) != p_dependencies.end();
}

/// The number of selector letters that is one too many: a scalar takes none, a vector one, a symmetric tensor two. What
/// is no known type takes none either.
std::size_t selectorLimit(TensType p_type)
{
    switch (p_type)
    {
    case PreVariableDefStore::VECTOR:
        return 2;
    case PreVariableDefStore::SYMTEN2:
        return 3;
    case PreVariableDefStore::SCALAR:
        break;
    }
    return 1;
}

/// The tensor type that is left when components are selected; none when there are too many letters. A vector with one
/// letter is a scalar, a symmetric tensor with one a vector and with two a scalar.
std::optional<TensType> selected(TensType p_type, const std::string& p_selector)
{
    const std::size_t limit = selectorLimit(p_type);
    if (p_selector.size() >= limit)
        return std::nullopt;
    if (p_selector.empty())
        return p_type;
    return limit - p_selector.size() == 1 ? PreVariableDefStore::SCALAR : PreVariableDefStore::VECTOR;
}

/// The tensor type in the library's entry of an additional variable; none when it is not understood.
//
// Deliberate: read under the root as it is written. For a component of a vector, such as "Swirl X", that is no entry,
// and the empty text makes it a scalar. Held by Scalar.ComponentOfAVectorAdditionalVariableIsOne.
std::optional<TensType> additionalVariableType(const ModelQCL& p_model, const std::string& p_rootName,
                                               const ModelPaths& p_paths)
{
    const std::string text =
        p_model.paramValue(p_paths.additionalVariable(p_rootName), modelpaths::k_tensorType);
    if (text.empty() || text == "SCALAR")
        return PreVariableDefStore::SCALAR;
    if (text == "VECTOR")
        return PreVariableDefStore::VECTOR;
    if (text == "SYMTEN2")
        return PreVariableDefStore::SYMTEN2;
    internalError(k_noAVTensorType);
    return std::nullopt;
}

bool isBoundaryOperator(const std::string& p_operator)
{
    return p_operator == "Boundcon" || p_operator == "hybrid";
}

bool isInsideBoundary(const QCLPath& p_object)
{
    return !p_object.getSubPathByType(modelpaths::k_boundary).empty();
}

/// Whether the parameter is the value, in the models of a domain, of an additional variable that exists on boundaries
/// alone: the one place outside a boundary where the boundary operators make sense.
bool isBoundaryOnlyAVValue(const ModelQCL& p_model, const QCLPath& p_object, const std::string& p_paramName,
                           const ModelPaths& p_paths)
{
    if (p_paramName != "Additional Variable Value" || p_object.size() < 4 ||
        p_object.getLastType() != modelpaths::k_additionalVariable)
        return false;

    const std::string models = p_object.getType(2);
    if (models != modelpaths::k_fluidModels && models != modelpaths::k_solidModels)
        return false;

    const std::string boundaryOnly = p_model.paramValue(p_paths.additionalVariable(p_object.getLastName()),
                                                        modelpaths::k_boundaryOnlyField);
    return !boundaryOnly.empty() && StringUtilities::stringToBool(boundaryOnly);
}

}    // namespace

void DimExprChecker::checkVariablesUsed(const std::string& p_objectPath, const std::string& p_paramName,
                                        const std::string&, bool p_singleValued, bool p_expressionKind,
                                        const std::vector<std::string>& p_variableNames)
{
    if (p_variableNames.empty())
        return;

    m_gathered->dependencies = m_rules->dependencies(p_objectPath, p_paramName, m_model);
    if (!p_expressionKind && forbidsVariables(m_gathered->dependencies))
        raise<Msg::VariablesNotAllowed>(p_paramName, p_objectPath);

    m_gathered->prefixContext = p_expressionKind ? QCLPath() : prefixContextOf(p_objectPath);
    m_gathered->splitNames.clear();
    m_gathered->splitNames.reserve(p_variableNames.size());
    m_gathered->fieldValuedNames.clear();
    for (const std::string& variableName : p_variableNames)
        checkVariable(p_objectPath, p_paramName, p_singleValued, variableName);

    if (!m_gathered->fieldValuedNames.empty())
        raise<Msg::FieldValuedVariables>(p_paramName, p_objectPath,
                                         StringUtilities::vectorToString(m_gathered->fieldValuedNames, ','));

    if (!p_expressionKind)
        checkVariableAvailability(p_objectPath, p_paramName, m_gathered->splitNames);
}

/// What can be told of a variable by itself. Gathers what is told of all of them together.
void DimExprChecker::checkVariable(const std::string& p_objectPath, const std::string& p_paramName,
                                   bool p_singleValued, const std::string& p_variableName)
{
    const DimExprVarRootFinder rootFinder(m_model, ModelPaths(m_gathered->pathText));
    const SplitVariableName& name = m_gathered->splitNames.emplace_back(p_variableName, &rootFinder);

    checkIsScalarVariable(p_objectPath, p_paramName, name);
    checkValidCoordUsage(p_objectPath, p_paramName, name);
    checkSuffixes(p_objectPath, p_paramName, name);

    if (p_singleValued && (name.isAV() || m_varDefStore->varMatchesTrue(name.root().name(),
                                                                        PreVariableDefStore::FIELD_VARIABLE)))
        m_gathered->fieldValuedNames.push_back(p_variableName);

    if (!m_gathered->prefixContext.empty())
        checkPrefixesAt(m_gathered->prefixContext, p_objectPath, p_paramName, name);

    if (name.isAV())
        m_gathered->splitNames.pop_back();
}

void DimExprChecker::checkIsScalarVariable(const std::string& p_objectPath, const std::string& p_paramName,
                                           const SplitVariableName& p_name)
{
    const auto reduced = [&](TensType p_type, const QELName::Component& p_component) {
        const std::optional<TensType> left = selected(p_type, p_component.selector());
        if (!left)
            raise<Msg::InvalidComponent>(p_component.selector(), p_name.fullName(), p_paramName,
                                         p_objectPath);
        return *left;
    };

    const std::string& rootName = p_name.root().name();
    std::optional<TensType> rootType;
    if (p_name.isAV())
        rootType = additionalVariableType(*m_model, rootName, ModelPaths(m_gathered->pathText));
    if (!rootType)
        rootType = m_varDefStore->getTensorType(rootName);
    const TensType variable = reduced(*rootType, p_name.root());

    if (p_name.suffix().empty())
    {
        if (variable != PreVariableDefStore::SCALAR)
            raise<Msg::NonScalarVariable>(p_name.fullName(), p_paramName, p_objectPath);
        return;
    }

    // What an unknown operator makes of its variable is not known. That it is unknown is told with the suffixes.
    const std::string& op = p_name.suffix().name();
    if (!m_varDefStore->hasOperator(op))
        return;

    // Deliberate: with an operator, its type alone decides: a vector with a scalar operator passes, a scalar with a
    // vector operator does not. Held by Scalar.IsDecidedByTheOperatorAlone.
    const TensType result = reduced(m_varDefStore->getOperatorTensorType(op), p_name.suffix());
    if (variable != PreVariableDefStore::SCALAR && result != PreVariableDefStore::SCALAR)
        raise<Msg::NonScalarOperator>(p_name.fullName(), p_paramName, p_objectPath);

    if (result != PreVariableDefStore::SCALAR)
        raise<Msg::NonScalarVariable>(p_name.fullName(), p_paramName, p_objectPath);
}

void DimExprChecker::checkValidCoordUsage(const std::string& p_objectPath, const std::string& p_paramName,
                                          const SplitVariableName& p_name)
{
    if (!p_name.root().frame().empty() && !p_name.suffix().frame().empty())
        raise<Msg::TwoCoordinateFrames>(p_name.fullName(), p_paramName, p_objectPath);
}

void DimExprChecker::checkSuffixes(const std::string& p_objectPath, const std::string& p_paramName,
                                   const SplitVariableName& p_name)
{
    if (p_name.suffix().empty())
        return;

    const std::string& op = p_name.suffix().name();
    if (!m_varDefStore->hasOperator(op))
        raise<Msg::InvalidOperator>(op, p_name.fullName(), p_paramName, p_objectPath);

    // Deliberate: the text names Boundcon also where the operator is hybrid. Held by Suffix.HybridIsToldAsBoundcon.
    if (isBoundaryOperator(op))
    {
        const QCLPath object(p_objectPath);
        if (!isInsideBoundary(object) &&
            !isBoundaryOnlyAVValue(*m_model, object, p_paramName, ModelPaths(m_gathered->pathText)))
            raise<Msg::BoundconOutsideBoundary>(p_name.fullName(), p_paramName, p_objectPath);
    }

    if (!m_varDefStore->doesOperatorHaveAvailability(op, k_general))
        raise<Msg::OperatorUnsupportedHere>(p_name.fullName(), p_paramName, p_objectPath, op);
}

}    // namespace qen
