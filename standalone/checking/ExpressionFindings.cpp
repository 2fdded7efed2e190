#include "checking/ExpressionFindings.h"

#include "checking/ValueItems.h"
#include "expressions/QelExpression.h"
#include "expressions/QelNames.h"
#include "text/NearestName.h"

#include "DataError.h"
#include "ExprCBFuncStore.h"
#include "PreVariableDefStore.h"
#include "QCLParam.h"
#include "QCLPath.h"
#include "QELName.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

using Kind = QelReference::Kind;

constexpr const char* k_componentLetters = "xyz";

std::string counted(std::size_t p_count)
{
    return std::to_string(p_count) + (p_count == 1 ? " argument" : " arguments");
}

/// The check of one expression.
class ExpressionFindings {
public:
    /// @param p_offset  Of the expression in the value of its parameter.
    ExpressionFindings(std::size_t p_offset, const Definitions& p_definitions, const World& p_world,
                       ParameterFindings& p_findings)
        : m_offset(p_offset), m_definitions(p_definitions), m_world(p_world), m_findings(p_findings)
    {}

    void check(const std::string& p_expression, const QelResult& p_result, const std::string& p_of)
    {
        checkReferences(p_result);
        checkValue(p_expression, p_result, p_of);
    }

private:
    void checkReferences(const QelResult& p_result)
    {
        const std::vector<QelReference>& references = p_result.references;
        for (std::size_t i = 0; i < references.size(); ++i)
        {
            const QelReference& reference = references[i];
            switch (reference.kind)
            {
            case Kind::NamedExpression:
                while (i + 1 < references.size() && references[i + 1].range.offset == reference.range.offset)
                    ++i;    // what it refers to is looked at where it stands
                break;
            case Kind::Variable:
                checkComponents(reference);    // how many there may be the library says
                break;
            case Kind::Argument:
                checkComponents(reference);
                checkArgumentsLetters(reference);
                break;
            case Kind::Callback:
                checkFunction(references, i);
                break;
            case Kind::Locator:
                break;
            }
        }
    }

    /// What a named expression lacks is told where it stands.
    void checkValue(const std::string& p_expression, const QelResult& p_result, const std::string& p_of)
    {
        if (isFinite(p_result) ||
            std::ranges::any_of(p_result.references, [&](const QelReference& p_reference) {
                return p_reference.kind == Kind::NamedExpression &&
                       !isFinite(analyseExpression(p_reference.name, m_world));
            }))
            return;
        add({0, p_expression.size()}, "value-not-finite",
            "The value of " + p_of +
                (std::isnan(p_result.constantValue.value_or(0))
                     ? " is undefined, as the root of a negative number is. Expected a finite number."
                     : " is not a finite number. Expected one of at most 3.4e38 in base units."));
    }

    /// Whether the value, where it is known, is a number in single precision.
    static bool isFinite(const QelResult& p_result)
    {
        return p_result.error || !p_result.constantValue ||
               std::isfinite(static_cast<float>(*p_result.constantValue));
    }

    void checkComponents(const QelReference& p_reference)
    {
        std::vector<QELName::Component> components;
        if (!QELName::splitVariableName(p_reference.name, components))
            return;    // an argument may be any text; the library says what it should be
        for (const QELName::Component& component : components)
        {
            checkLetters(p_reference, component.selector());
            checkFrame(p_reference, component.frame());
        }
    }

    void checkLetters(const QelReference& p_reference, const std::string& p_letters)
    {
        const std::size_t bad = p_letters.find_first_not_of(k_componentLetters);
        if (bad != std::string::npos)
            add(p_reference.range, "unknown-component",
                "There is no component '" + p_letters + "', as in '" + p_reference.name +
                    "'. Expected letters out of 'x', 'y' and 'z'.");
    }

    /// Whether the variable that is the root of an argument has the component that is asked of it.
    void checkArgumentsLetters(const QelReference& p_argument)
    {
        qel::Names names(m_world);
        const qel::RootPlace place = qel::findRoot(names, p_argument.name);
        std::vector<QELName::Component> components;
        if (place.kind != qel::Names::Root::Variable ||
            !QELName::splitVariableName(p_argument.name, components))
            return;
        const auto root = std::ranges::find(components, place.root, &QELName::Component::name);
        if (root == components.end() || root->selector().empty() ||
            root->selector().find_first_not_of(k_componentLetters) != std::string::npos)
            return;
        const std::optional<PreVariableDefStore::TensType> type = tensorType(root->name());
        if (!type)
            return;

        struct Tensor {
            const char* name;
            std::size_t letters;    // of a component
            const char* expected;
        };
        static constexpr std::array k_tensors {
            // in the order of TensType
            Tensor {"a scalar", 0, "no letters"},
            Tensor {"a vector", 1, "one letter at most"},
            Tensor {"a symmetric tensor", 2, "two letters at most"},
        };
        const Tensor& tensor = k_tensors.at(static_cast<std::size_t>(*type));
        if (root->selector().size() > tensor.letters)
            add(p_argument.range, "unknown-component",
                "The variable '" + root->name() + "' is " + tensor.name + " and has no component '" +
                    root->selector() + "', as in '" + p_argument.name + "'. Expected " + tensor.expected +
                    '.');
    }

    /// None for a name whose definition was refused: it belongs to no variable.
    std::optional<PreVariableDefStore::TensType> tensorType(const std::string& p_variable) const
    {
        try
        {
            return m_definitions.variables().getTensorType(p_variable);
        }
        catch (const data::error&)
        {
            return std::nullopt;
        }
    }

    void checkFrame(const QelReference& p_reference, const std::string& p_frame)
    {
        if (p_frame.empty())
            return;
        const std::vector<std::string> frames = m_world.model->childNames("/LIBRARY", "COORDINATE FRAME");
        if (std::find(frames.begin(), frames.end(), p_frame) != frames.end())
            return;
        std::string message = "There is no coordinate frame '" + p_frame + "', as in '" + p_reference.name +
                              "'. Expected an object '/LIBRARY/COORDINATE FRAME:" + p_frame + "'.";
        const std::string nearest = nearestName(p_frame, frames);
        if (!nearest.empty())
            message += " Did you mean '" + nearest + "'?";
        add(p_reference.range, "unknown-coordinate-frame", std::move(message));
    }

    /// A call, from its function to its argument.
    void checkFunction(const std::vector<QelReference>& p_references, std::size_t p_function)
    {
        const QelReference& reference = p_references[p_function];
        QELName::Component function;
        std::string unused;
        QELName::splitCallbackName(reference.name, unused, function);
        if (function.selector().size() > 1)
            add(reference.range, "unknown-component",
                "The function '" + reference.name +
                    "' is given several axes. Expected one of 'x', 'y' and 'z'.");
        else
            checkLetters(reference, function.selector());
        checkFrame(reference, function.frame());

        std::size_t next = p_function + 1;
        if (next < p_references.size() && p_references[next].kind == Kind::Locator)
            ++next;
        const bool hasArgument = next < p_references.size() && p_references[next].kind == Kind::Argument;
        const std::size_t given =
            hasArgument ? StringUtilities::splitValue(p_references[next].name, ',').size() : 0;
        const std::int32_t expected = m_definitions.callbacks().getNumArgs(function.name());
        if (expected >= 0 && given != static_cast<std::size_t>(expected))
            add(reference.range, "argument-count",
                "The function '" + reference.name + "' is given " + counted(given) + ". Expected " +
                    std::to_string(expected) + ".");
    }

    void add(TextRange p_range, std::string p_identifier, std::string p_message)
    {
        m_findings.push_back(atValue(Severity::Error, {m_offset + p_range.offset, p_range.length},
                                     std::move(p_identifier), std::move(p_message)));
    }

    const std::size_t m_offset;
    const Definitions& m_definitions;
    const World& m_world;
    ParameterFindings& m_findings;
};

}    // namespace

void addExpressionFindings(const CaseParameter& p_parameter, const Definitions& p_definitions,
                           const World& p_world, ParameterFindings& p_findings)
{
    if (!QCLParam::isNumericType(p_definitions.rules().getParamType(
            QCLPath(p_parameter.objectPath).getLastType(), p_parameter.name)))
        return;
    for (const ValueItem& item : valueItems(p_parameter.value))
    {
        const QelResult result = analyseExpression(item.text, p_world, true);
        if (!result.error)    // told by the library
            ExpressionFindings(item.range.offset, p_definitions, p_world, p_findings)
                .check(item.text, result, p_parameter.described());
    }
}

void addNamedExpressionFindings(const CaseParameter& p_expression, const Definitions& p_definitions,
                                const World& p_world, ParameterFindings& p_findings)
{
    const QelResult result = analyseExpression(p_expression.value, p_world, true);
    if (result.error)
        p_findings.push_back(
            atValue(Severity::Error, result.error->range, "bad-named-expression",
                    "The named expression '" + p_expression.name + "' is bad: " + result.error->message));
    else
        ExpressionFindings(0, p_definitions, p_world, p_findings)
            .check(p_expression.value, result, "the named expression '" + p_expression.name + "'");
}

}    // namespace qen::standalone
