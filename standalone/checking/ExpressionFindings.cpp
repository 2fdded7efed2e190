#include "checking/ExpressionFindings.h"

#include "checking/ValueItems.h"
#include "expressions/QelExpression.h"
#include "text/NearestName.h"

#include "ExprCBFuncStore.h"
#include "QCLParam.h"
#include "QCLPath.h"
#include "QELName.h"
#include "StringUtilities.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace qen::standalone {
namespace {

using Kind = QelReference::Kind;

constexpr std::string_view k_expressionLibrary = "/LIBRARY/QEL/EXPRESSIONS";
constexpr const char* k_componentLetters = "xyz";

std::string counted(std::size_t p_count)
{
    return std::to_string(p_count) + (p_count == 1 ? " argument" : " arguments");
}

/// One expression of the case and where it stands.
struct Expression {
    const QclParameter& parameter;
    const ValueItem& item;
};

class ExpressionFindings {
public:
    ExpressionFindings(const QclDocument& p_case, const Definitions& p_definitions, const World& p_world,
                       std::vector<Finding>& p_findings)
        : m_case(p_case), m_definitions(p_definitions), m_world(p_world),
          m_frames(p_world.model->childNames("/LIBRARY", "COORDINATE FRAME")), m_findings(p_findings)
    {}

    void checkParameter(const QclObject& p_object, const QclParameter& p_parameter)
    {
        if (p_object.path == k_expressionLibrary)
        {
            const ValueItem whole {p_parameter.value, {0, p_parameter.value.size()}};
            checkNamedExpression({p_parameter, whole});
            return;
        }
        if (!QCLParam::isNumericType(
                m_definitions.rules().getParamType(QCLPath(p_object.path).getLastType(), p_parameter.name)))
            return;
        for (const ValueItem& item : valueItems(p_parameter.value))
            checkReferences({p_parameter, item}, analyseExpression(item.text, m_world, true));
    }

private:
    void checkNamedExpression(const Expression& p_expression)
    {
        const QelResult result = analyseExpression(p_expression.item.text, m_world, true);
        if (result.error)
            add(p_expression, result.error->range, "bad-named-expression",
                "The named expression '" + p_expression.parameter.name +
                    "' is bad: " + result.error->message);
        else
            checkReferences(p_expression, result);
    }

    void checkReferences(const Expression& p_expression, const QelResult& p_result)
    {
        if (p_result.error)
            return;    // told by the library

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
            case Kind::Argument:
                checkComponents(p_expression, reference);
                break;
            case Kind::Callback:
                checkFunction(p_expression, references, i);
                break;
            case Kind::Locator:
                break;
            }
        }
    }

    void checkComponents(const Expression& p_expression, const QelReference& p_reference)
    {
        std::vector<QELName::Component> components;
        if (!QELName::splitVariableName(p_reference.name, components))
            return;    // an argument may be any text; the library says what it should be
        for (const QELName::Component& component : components)
        {
            checkLetters(p_expression, p_reference, component.selector());
            checkFrame(p_expression, p_reference, component.frame());
        }
    }

    void checkLetters(const Expression& p_expression, const QelReference& p_reference,
                      const std::string& p_letters)
    {
        const std::size_t bad = p_letters.find_first_not_of(k_componentLetters);
        if (bad != std::string::npos)
            add(p_expression, p_reference.range, "unknown-component",
                "There is no component '" + p_letters + "', as in '" + p_reference.name +
                    "'. Expected letters out of 'x', 'y' and 'z'.");
    }

    void checkFrame(const Expression& p_expression, const QelReference& p_reference,
                    const std::string& p_frame)
    {
        if (p_frame.empty() || std::find(m_frames.begin(), m_frames.end(), p_frame) != m_frames.end())
            return;
        std::string message = "There is no coordinate frame '" + p_frame + "', as in '" + p_reference.name +
                              "'. Expected an object '/LIBRARY/COORDINATE FRAME:" + p_frame + "'.";
        const std::string nearest = nearestName(p_frame, m_frames);
        if (!nearest.empty())
            message += " Did you mean '" + nearest + "'?";
        add(p_expression, p_reference.range, "unknown-coordinate-frame", std::move(message));
    }

    /// A call, from its function to its argument.
    void checkFunction(const Expression& p_expression, const std::vector<QelReference>& p_references,
                       std::size_t p_function)
    {
        const QelReference& reference = p_references[p_function];
        QELName::Component function;
        std::string unused;
        QELName::splitCallbackName(reference.name, unused, function);
        if (function.selector().size() > 1)
            add(p_expression, reference.range, "unknown-component",
                "The function '" + reference.name +
                    "' is given several axes. Expected one of 'x', 'y' and 'z'.");
        else
            checkLetters(p_expression, reference, function.selector());

        std::size_t next = p_function + 1;
        if (next < p_references.size() && p_references[next].kind == Kind::Locator)
            ++next;
        const bool hasArgument = next < p_references.size() && p_references[next].kind == Kind::Argument;
        const std::size_t given =
            hasArgument ? StringUtilities::splitValue(p_references[next].name, ',').size() : 0;
        const std::int32_t expected = m_definitions.callbacks().getNumArgs(function.name());
        if (expected >= 0 && given != static_cast<std::size_t>(expected))
            add(p_expression, reference.range, "argument-count",
                "The function '" + reference.name + "' is given " + counted(given) + ". Expected " +
                    std::to_string(expected) + ".");
    }

    void add(const Expression& p_expression, TextRange p_range, std::string p_identifier,
             std::string p_message)
    {
        m_findings.push_back(
            toFinding({Severity::Error, std::move(p_identifier), std::move(p_message),
                       p_expression.parameter.placeInValue(p_expression.item.range.offset + p_range.offset),
                       static_cast<std::uint32_t>(p_range.length)},
                      m_case));
    }

    const QclDocument& m_case;
    const Definitions& m_definitions;
    const World& m_world;
    const std::vector<std::string> m_frames;
    std::vector<Finding>& m_findings;
};

}    // namespace

void addExpressionFindings(
    const QclDocument& p_case, const Definitions& p_definitions, const World& p_world,
    const std::function<bool(const std::string& p_objectPath, const std::string& p_paramName)>& p_isAtFault,
    std::vector<Finding>& p_findings)
{
    ExpressionFindings findings(p_case, p_definitions, p_world, p_findings);
    for (const QclObject& object : p_case.objects)
        for (const QclParameter& parameter : object.parameters)
            if (object.path == k_expressionLibrary || !p_isAtFault(object.path, parameter.name))
                findings.checkParameter(object, parameter);
}

}    // namespace qen::standalone
