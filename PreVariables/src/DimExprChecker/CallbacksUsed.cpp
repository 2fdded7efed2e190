#include "DimExprChecker.h"

#include "CallbackLocators.h"
#include "ExprCBFuncStore.h"
#include "Gathered.h"
#include "LocatorInfo.h"
#include "MessageCatalogue.h"
#include "ModelPaths.h"
#include "PreVariableDefStore.h"
#include "SplitVariableName.h"
#include "VariableRoots.h"

#include "CallbackInfo.h"
#include "LocatorDimension.h"
#include "QCLPath.h"
#include "QELName.h"

#include <string>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

constexpr const char* k_probe = "probe";
constexpr const char* k_rigidBodyState = "rbstate";
constexpr const char* k_rigidBodyClass = "RBS";
constexpr const char* k_eulerAngle = "Euler Angle";

// Availability keywords, as the catalogue of operators takes them.
const std::string k_expressionValue = "EXPRESSION VALUE";
const std::string k_callback = "CALLBACK";

/// What the checks of all calls of an expression look at.
struct CallContext {
    const PreVariableDefStore& definitions;
    const ExprCBFuncStore& functions;
    const LocatorInfo& locatorInfo;
    const CallbackLocators& locators;
    const std::string& flowName;
    const std::string& objectPath;
    const std::string& paramName;
    bool fieldValuedAllowed;
};

/// The check of one call, in the order in which its steps are taken.
class CallCheck {
public:
    CallCheck(const CallContext& p_context, const CallbackInfo& p_call, const SplitVariableName& p_argument)
        : m_context(p_context), m_call(p_call), m_argument(p_argument)
    {}

    void checkArgument() const
    {
        if (m_argument.type() == SplitVariableName::NotVariable)
            refuse<Msg::ArgumentNotAVariable>(m_call.argument);

        if (m_context.definitions.isSolverInternalVariable(m_argument.root().name()))
            refuse<Msg::DisallowedArgument>(m_call.argument);

        if (m_argument.suffix().empty())
            return;

        const std::string& op = m_argument.suffix().name();
        if (!m_context.definitions.hasOperator(op))
            raise<Msg::InvalidOperator>(op, m_call.argument, m_context.paramName, m_context.objectPath);

        const std::string& keyword = m_argument.isMPExprValue() ? k_expressionValue : k_callback;
        if (!m_context.definitions.doesOperatorHaveAvailability(op, keyword))
            refuse<Msg::ArgumentOperatorUnsupported>(m_call.argument);
    }

    void checkLocator() const
    {
        if (!m_context.locatorInfo.isValidLocator(m_context.flowName, m_call.locator))
            raise<Msg::InvalidLocator>(m_call.locator, m_context.paramName, m_context.objectPath);

        if (m_context.locators.isExpressionPoint(m_call.locator))
            checkArgumentOfExpressionPoint();
        else if (m_argument.isMPExprValue())
            refuse<Msg::ExpressionValueMisplaced>();
    }

    /// The function against the dimension of the locator, and the use that is made of it.
    void checkFunction()
    {
        // Deliberate: a locator of unknown dimension is no point either.
        // Held by Callback.AtALocatorOfUnknownDimensionIsRefusedUnderTimeTransformation.
        const LocatorDimension::Value dimension =
            m_context.locatorInfo.dimension(m_context.flowName, m_call.locator);
        if (dimension != LocatorDimension::Point && m_context.locators.hasTimeTransformation())
            refuse<Msg::LocatorNotAPoint>(m_call.locator);

        std::string unused;
        QELName::splitCallbackName(m_call.callbackName, unused, m_function);
        if (dimension != LocatorDimension::Unknown &&
            !m_context.functions.isAllowedLocatorDimension(m_function.name(), dimension))
            refuse<Msg::FunctionLocatorDimension>(m_call.locator);

        if (m_context.functions.isFieldValued(m_function.name()) && !m_context.fieldValuedAllowed)
            refuse<Msg::FieldValuedFunction>();

        if (!m_function.selector().empty() && !m_context.functions.allowsVectorComponents(m_function.name()))
            raise<Msg::AxisComponentUnsupported>(m_context.paramName, m_context.objectPath,
                                                 m_call.callbackName, m_function.name());
    }

    /// The domain in which the prefixes of the argument have a meaning.
    struct PrefixDomain {
        std::string name;              ///< empty: they are not checked
        bool isLocatorsOwn = false;    ///< part of the locator's path, not that of a monitor point
    };

    /// Refuses a prefix where the locator is a monitor point and the argument its value.
    PrefixDomain prefixDomain() const
    {
        if (!m_context.locatorInfo.isModelObject(m_context.flowName, m_call.locator))
            return {};

        const QCLPath object(m_context.locatorInfo.objectPath(m_context.flowName, m_call.locator));
        const QCLPath domain = object.getSubPathByType(modelpaths::k_domain);
        if (!domain.empty())
            return {domain.getLastName(), true};
        if (object.empty() || object.getLastType() != modelpaths::k_monitorPoint)
            return {};

        if (m_argument.isMPExprValue() && !m_argument.prefix1().empty())
            refuse<Msg::ArgumentPrefixAtLocator>(m_call.argument, m_call.locator);
        return {m_context.locators.domainOfMonitorPoint(object), false};
    }

    /// What kind of variable the function takes. Behind `checkFunction`.
    void checkArgumentKind() const
    {
        if (m_function.name() == k_rigidBodyState)
            checkRigidBodyState();
        else if (!m_argument.isAV() && !m_argument.isMPExprValue() &&
                 !m_context.definitions.varMatchesTrue(m_argument.root().name(),
                                                       PreVariableDefStore::FIELD_VARIABLE))
            refuse<Msg::ArgumentNotFieldValued>(m_call.argument);

        if (m_argument.isMPExprValue() && m_function.name() != k_probe)
            refuse<Msg::ExpressionValueNeedsProbe>(m_call.argument);
    }

private:
    void checkArgumentOfExpressionPoint() const
    {
        if (!m_argument.isMPExprValue())
            refuse<Msg::ArgumentNotExpressionValue>();

        const std::string& op = m_argument.suffix().name();
        if (!m_argument.suffix().empty() &&
            !m_context.locators.hasStatistics(m_call.locator, op, m_context.definitions))
            refuse<Msg::OperatorWithoutStatistics>(op, m_call.locator);
    }

    void checkRigidBodyState() const
    {
        if (!m_call.locator.empty() && !m_context.locators.isRigidBody(m_call.locator))
            refuse<Msg::LocatorNotRigidBody>(m_call.locator);

        const QELName::Component& root = m_argument.root();
        if (!root.frame().empty())
            refuse<Msg::CoordinateFrameUnsupported>(root.frame());

        if (!m_context.definitions.varMatches(root.name(), PreVariableDefStore::VARIABLE_CLASS,
                                              k_rigidBodyClass))
            refuse<Msg::ArgumentNotRigidBodyState>(m_call.argument);

        if (root.name() == k_eulerAngle && root.selector().empty())
            refuse<Msg::EulerAngleWithoutComponent>(m_call.argument);
    }

    /// Most texts begin with the function, the parameter and the object.
    template <Msg Id, class... Values>
    [[noreturn, gnu::always_inline]] void refuse(const Values&... p_values) const
    {
        raise<Id>(m_call.callbackName, m_context.paramName, m_context.objectPath, p_values...);
    }

    const CallContext& m_context;
    const CallbackInfo& m_call;
    const SplitVariableName& m_argument;
    QELName::Component m_function;    // base name and axis component
};

}    // namespace

void DimExprChecker::checkCallbacksUsed(const std::string& p_objectPath, const std::string& p_paramName,
                                        bool p_fieldValuedAllowed,
                                        const std::vector<CallbackInfo>& p_callbacks)
{
    // Deliberate: outside a flow no call is looked at. Held by Callback.OutsideAFlowIsNotLookedAt.
    const std::string flowName = modelpaths::levelName(p_objectPath, modelpaths::k_flow);
    if (flowName.empty())
        return;
    if (p_callbacks.empty())
        return;

    const ModelPaths paths(m_gathered->pathText);
    const CallbackLocators locators(*m_model, flowName, paths);
    const CallContext context {*m_varDefStore, *m_callbackStore, *m_locatorInfo, locators,
                               flowName,       p_objectPath,     p_paramName,    p_fieldValuedAllowed};
    for (const CallbackInfo& call : p_callbacks)
    {
        const DimExprVarRootFinder rootFinder(m_model, paths);
        const SplitVariableName argument(call.argument, &rootFinder);
        CallCheck check(context, call, argument);

        check.checkArgument();
        check.checkLocator();
        check.checkFunction();
        if (argument.type() == SplitVariableName::Empty)
            continue;

        const CallCheck::PrefixDomain domain = check.prefixDomain();
        if (!domain.name.empty() && !argument.isMPExprValue())
            checkVariablePrefixes(p_objectPath, p_paramName, domain.name, argument, domain.isLocatorsOwn);

        check.checkArgumentKind();
    }
}

}    // namespace qen
