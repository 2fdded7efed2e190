#include "VariableRoots.h"

#include "ModelPaths.h"

#include "ExpressionEvaluator.h"
#include "ModelQCL.h"

#include <cstddef>
#include <string_view>

namespace qen {
namespace {

constexpr const char* k_expressionValue = "Expression Value";
constexpr std::string_view k_vectorComponents = "XYZxyz";
constexpr std::size_t k_componentSuffix = 2;    // a blank and the component's letter

bool endsInVectorComponent(const std::string& p_name)
{
    return p_name.size() > k_componentSuffix && p_name[p_name.size() - k_componentSuffix] == ' ' &&
           k_vectorComponents.find(p_name.back()) != std::string_view::npos;
}

}    // namespace

VariableRootNameFinder::RootNameInfo DimExprVarRootFinder::findRoot(const std::string& p_fullName) const
{
    RootNameInfo root;
    root.rootName = ExpressionEvaluator::rootVariableName(p_fullName);
    root.isAV = !root.rootName.empty() && !additionalVariableName(*m_model, root.rootName).empty();
    root.isMPExprValue = root.rootName == k_expressionValue;
    return root;
}

std::string additionalVariableName(const ModelQCL& p_model, const std::string& p_rootName)
{
    if (p_model.objectExists(modelpaths::additionalVariable(p_rootName)))
        return p_rootName;

    if (!endsInVectorComponent(p_rootName))
        return {};

    const std::string vector = p_rootName.substr(0, p_rootName.size() - k_componentSuffix);
    const std::string vectorPath = modelpaths::additionalVariable(vector);
    const bool isVector =
        p_model.objectExists(vectorPath) && p_model.paramValue(vectorPath, "Tensor Type") == "VECTOR";
    return isVector ? vector : std::string();
}

}    // namespace qen
