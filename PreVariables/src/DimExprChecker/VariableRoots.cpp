#include "VariableRoots.h"

#include "ExpressionEvaluator.h"
#include "ModelQCL.h"

#include <cstddef>
#include <string_view>

namespace qen {
namespace {

constexpr const char* k_expressionValue = "Expression Value";
constexpr std::string_view k_vectorComponents = "XYZxyz";
constexpr std::size_t k_componentSuffix = 2;    // a blank and the component's letter

bool endsInVectorComponent(std::string_view p_name)
{
    return p_name.size() > k_componentSuffix && p_name[p_name.size() - k_componentSuffix] == ' ' &&
           k_vectorComponents.find(p_name.back()) != std::string_view::npos;
}

}    // namespace

VariableRootNameFinder::RootNameInfo DimExprVarRootFinder::findRoot(const std::string& p_fullName) const
{
    RootNameInfo root;
    root.rootName = ExpressionEvaluator::rootVariableName(p_fullName);
    root.isAV = !root.rootName.empty() && !additionalVariableName(*m_model, root.rootName, m_paths).empty();
    root.isMPExprValue = root.rootName == k_expressionValue;
    return root;
}

std::string_view additionalVariableName(const ModelQCL& p_model, std::string_view p_rootName,
                                        const ModelPaths& p_paths)
{
    if (p_model.objectExists(p_paths.additionalVariable(p_rootName)))
        return p_rootName;

    if (!endsInVectorComponent(p_rootName))
        return {};

    const std::string_view vector = p_rootName.substr(0, p_rootName.size() - k_componentSuffix);
    const std::string& vectorPath = p_paths.additionalVariable(vector);
    const bool isVector = p_model.objectExists(vectorPath) &&
                          p_model.paramValue(vectorPath, modelpaths::k_tensorType) == "VECTOR";
    return isVector ? vector : std::string_view();
}

}    // namespace qen
