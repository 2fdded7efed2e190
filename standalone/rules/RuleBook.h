#pragma once

#include "ExprParamRules.h"
#include "model/ModelTree.h"
#include "ModelRules.h"
#include "qcl/QclDocument.h"
#include "QuantityModifier.h"
#include "StandaloneApi.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// What the rules say about a parameter of an object.
struct QEN_STANDALONE_API ParameterRule {
    std::string name;
    std::string type;    ///< as in the rules: "Real", "Real List", "Integer", "String" ...
    std::vector<std::string> allowedTexts;    ///< empty when any text will do
    std::string quantity;                     ///< empty when it has none
    std::string unitsFrom;    ///< where a dynamic quantity comes from; empty when it is not dynamic
    std::string lowerBound;
    std::string upperBound;
    std::string kind;
    bool singleValued = false;
    std::vector<std::string> dependencies;
};

/// The rules of the definition files: which objects stand under which, and their parameters. The one source behind
/// the three interfaces through which the library asks about parameters.
class QEN_STANDALONE_API RuleBook final : public ModelRules, public ExprParamRules, public QuantityModifier {
public:
    RuleBook();
    ~RuleBook();
    RuleBook(RuleBook&&) noexcept;
    RuleBook& operator=(RuleBook&&) noexcept;

    /// Adds the definitions of a document; later ones add to and override earlier ones. Problems are appended.
    void addDefinitions(const QclDocument& p_document, Diagnostics& p_problems);

    /// The rule of a parameter of the object at a path; null when the rules know no such object or parameter there.
    const ParameterRule* find(std::string_view p_objectPath, std::string_view p_paramName) const;

    /// The names of the parameters that an object at that path may have; for suggestions.
    std::vector<std::string> parameterNames(std::string_view p_objectPath) const;

    /// The types of the objects that may stand directly under a path (empty text: the first level); for suggestions.
    std::vector<std::string> childTypes(std::string_view p_objectPath) const;

    bool isValidPath(const std::string& p_objectPath) const override;
    bool isValidParamName(const std::string& p_paramName) const override;
    ParamType getParamType(const std::string& p_lastType, const std::string& p_paramName) const override;

    std::string lowerBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override;
    std::string upperBound(const std::string& p_objectPath, const std::string& p_paramName,
                           const ModelQCL* p_model) const override;
    std::string paramKind(const std::string& p_objectPath, const std::string& p_paramName,
                          const ModelQCL* p_model) const override;
    bool isSingleValued(const std::string& p_objectPath, const std::string& p_paramName,
                        const ModelQCL* p_model) const override;
    std::vector<std::string> dependencies(const std::string& p_objectPath, const std::string& p_paramName,
                                          const ModelQCL* p_model) const override;
    std::set<std::string> allParamNames() const override;

    bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const override;
    int quantityMode(const ModelQCL* p_model, const std::string& p_objectPath, const std::string& p_paramName,
                     std::string& p_quantityName) const override;
    std::string dynamicUnits(const std::string& p_quantityName) const override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
