#pragma once

#include "ExprParamRules.h"
#include "model/ModelTree.h"
#include "ModelRules.h"
#include "qcl/QclDocument.h"
#include "QuantityModifier.h"
#include "StandaloneApi.h"

#include <functional>
#include <memory>
#include <set>
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
    std::string unitsFrom;     ///< where the units of a dynamic quantity stand; empty when it is not dynamic
    std::string unitsTimes;    ///< units by which those are multiplied; may be empty
    std::string lowerBound;
    std::string upperBound;
    std::string kind;
    bool singleValued = false;
    std::vector<std::string> dependencies;
};

/// The rules of the definition files: which objects stand under which, and their parameters. The one source behind
/// the three interfaces through which the library asks about parameters. One thread at a time.
class QEN_STANDALONE_API RuleBook final : public ModelRules, public ExprParamRules, public QuantityModifier {
public:
    RuleBook();
    ~RuleBook();
    RuleBook(RuleBook&&) noexcept;
    RuleBook& operator=(RuleBook&&) noexcept;

    /// Adds the definitions of a document; later ones add to and override earlier ones, key by key. Problems are
    /// appended. Quantities and the units of bounds are looked at where the current world has units.
    ///
    /// The form of the sections is described at the head of definitions/RULES.qcl.
    void addDefinitions(const QclDocument& p_document, Diagnostics& p_problems);

    /// The rule of a parameter of the object at a path; null when the rules know no such object or parameter there.
    /// The path's types count, its names do not. Where an object takes any parameter, the rule's name is empty. The
    /// rule lives until definitions are added.
    ///
    /// Takes a look-up per level and one for the name; none where it is the latest question again, which is kept.
    const ParameterRule* find(std::string_view p_objectPath, std::string_view p_paramName) const;

    /// The names of the parameters that an object at that path may have; for suggestions.
    std::vector<std::string> parameterNames(std::string_view p_objectPath) const;

    /// The types of the objects that may stand directly under a path (empty text: the first level); for suggestions.
    std::vector<std::string> childTypes(std::string_view p_objectPath) const;

    /// Visits every rule at the place where it is defined, with the path of types of its object.
    void visitRules(
        const std::function<void(const std::string& p_pattern, const ParameterRule& p_rule)>& p_visit) const;

    /// Whether every type of the path stands where the rules have it, and a level has a name exactly where its type
    /// needs one.
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

    /// Judged by the rules alone: whether the units can be found in a model, quantityMode says.
    bool isDynamicQuantity(const std::string& p_objectPath, const std::string& p_paramName) const override;
    static constexpr int k_fixedQuantity = 0;
    static constexpr int k_dynamicQuantity = 1;

    /// For a dynamic quantity the name is the units text that holds in the model at that moment. Where the model has
    /// none, or one that the current world's units do not understand, the answer is a fixed quantity without a name,
    /// which is not checked: the missing or bad units are to be reported at the place where they belong.
    int quantityMode(const ModelQCL* p_model, const std::string& p_objectPath, const std::string& p_paramName,
                     std::string& p_quantityName) const override;
    /// The units that quantityMode handed out as the name.
    std::string dynamicUnits(const std::string& p_quantityName) const override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
