#include "checking/NameFindings.h"

#include "expressions/QelExpression.h"
#include "expressions/QelNames.h"
#include "locators/LocatorIndex.h"

#include "PreVariableDefStore.h"
#include "QCLPath.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {
namespace {

// Whose names are written in expressions, as a variable or in front of one.
constexpr std::array<std::string_view, 7> k_typesOfWrittenNames {
    "ADDITIONAL VARIABLE", "COMPONENT",        "FLUID DEFINITION", "FLUID PAIR", "REACTION",
    "SIZE GROUP",          "SOLID DEFINITION",
};

bool isWrittenInExpressions(const std::string& p_type)
{
    return std::find(k_typesOfWrittenNames.begin(), k_typesOfWrittenNames.end(), p_type) !=
           k_typesOfWrittenNames.end();
}

constexpr const char* k_expectedName =
    "Expected words of letters, digits and '_', parted by single blanks, the first "
    "of which begins with a letter.";

/// What keeps the name of an object from being written where expressions mention such objects: the end of a sentence
/// that begins with it, and what is expected; an empty text for nothing.
std::string unwritable(const std::string& p_objectPath, const std::string& p_type, const std::string& p_name)
{
    if (p_name.empty())
        return {};
    if (isWrittenInExpressions(p_type))
        return isQelName(p_name) ? "" : std::string("cannot be written in an expression. ") + k_expectedName;
    if (p_type == "COORDINATE FRAME")
        return isQelFrameName(p_name) ? ""
                                      : "cannot be written in an expression. Expected a name without any of "
                                        "( ) * / + - ^ [ ] { }.";
    if (isLocatorType(p_type) && p_objectPath.starts_with("/FLOW:"))
        return isQelLocatorName(p_name)
                   ? ""
                   : "cannot be written behind '@' in an expression. Expected a name without '('.";
    return {};
}

/// What hides a named expression, where the library's own checks do not say so; an empty text for nothing.
const char* hiddenBy(const std::string& p_name, const World& p_world)
{
    qel::Names names(p_world);
    switch (names.classify(p_name))
    {
    case qel::Names::Root::AdditionalVariable:
        return "the additional variable";
    case qel::Names::Root::ExpressionValue:
        return "the value of a monitor point";
    case qel::Names::Root::Variable:    // a solver variable: told by the library
        return "";
    case qel::Names::Root::None:
        break;
    }
    return isQelConstant(p_name) ? "the constant" : "";
}

}    // namespace

std::vector<ObjectFinding> findUnwritableNames(const std::string& p_objectPath)
{
    std::vector<ObjectFinding> findings;
    const QCLPath path(p_objectPath);
    std::size_t begin = 0;    // of the level in the path's text
    for (std::size_t level = 0; level < path.size(); ++level)
    {
        const std::string type = path.getType(level);
        const std::string name = path.getName(level);
        const std::size_t length = 1 + type.size() + (name.empty() ? 0 : 1 + name.size());
        if (const std::string problem = unwritable(p_objectPath, type, name); !problem.empty())
        {
            const std::string levelPath = p_objectPath.substr(0, begin + length);
            findings.push_back({Severity::Warning,
                                "name-not-writable",
                                fmt::format("The name '{}' of the object '{}' {}", name, levelPath, problem),
                                {begin, length},
                                levelPath});
        }
        begin += length;
    }
    return findings;
}

std::optional<ObjectFinding> findHiddenName(const std::string& p_objectPath, const World& p_world)
{
    constexpr std::string_view k_additionalVariables = "/LIBRARY/ADDITIONAL VARIABLE:";
    if (!p_objectPath.starts_with(k_additionalVariables) ||
        p_objectPath.find('/', k_additionalVariables.size()) != std::string::npos)
        return std::nullopt;

    const std::string name = p_objectPath.substr(k_additionalVariables.size());
    ObjectFinding finding {Severity::Warning, {}, {}, {0, p_objectPath.size()}, p_objectPath};
    if (p_world.variables->hasVariable(name))
    {
        finding.identifier = "additional-variable-hidden";
        finding.message =
            fmt::format("The additional variable '{0}' is never reached: in an expression '{0}' "
                        "means the variable of that name.",
                        name);
        return finding;
    }
    if (isQelConstant(name))
    {
        finding.identifier = "constant-hidden";
        finding.message =
            fmt::format("The additional variable '{0}' hides the constant of that name, which no "
                        "expression reaches any more.",
                        name);
        return finding;
    }
    return std::nullopt;
}

void addNameFindings(const std::string& p_expressionName, const World& p_world, ParameterFindings& p_findings)
{
    if (!isQelName(p_expressionName))
        p_findings.push_back(
            atName(Severity::Warning, "name-not-writable",
                   fmt::format("The name of the named expression '{}' cannot be written in an expression. {}",
                               p_expressionName, k_expectedName)));

    const char* const other = hiddenBy(p_expressionName, p_world);
    if (*other)
        p_findings.push_back(atName(
            Severity::Warning, "named-expression-hidden",
            fmt::format(
                "The named expression '{0}' is never reached: in an expression '{0}' means {1} of that name.",
                p_expressionName, other)));
}

std::vector<ObjectFinding> findRepeatedLocators(const ModelTree& p_model)
{
    std::vector<ObjectFinding> findings;
    for (const ModelTree::Object* flow : p_model.rootsOf("FLOW"))
        for (const LocatorIndex index(*flow);
             const LocatorIndex::Repetition& repetition : index.repetitions())
            findings.push_back(
                {Severity::Warning,
                 "repeated-locator",
                 fmt::format("The name '{0}' of the object '{1}' is that of '{2}' already, which is what "
                             "'@{0}' means in an expression.",
                             repetition.object->name, repetition.object->path, repetition.first->path),
                 {0, repetition.object->path.size()},
                 repetition.object->path});
    return findings;
}

}    // namespace qen::standalone
