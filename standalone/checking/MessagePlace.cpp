#include "checking/MessagePlace.h"

#include "ExpressionEvaluator.h"
#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace qen::standalone {
namespace {

using Kind = QelReference::Kind;

constexpr std::string_view k_badExpression = "bad-expression";

/// A placeholder that tells what a message is about, the kind of reference that it is found in, and whether it is a part
/// of that reference or the whole.
struct Subject {
    std::string_view placeholder;
    Kind kind;
    bool isPart = false;
};

// What tells most comes first.
constexpr std::array<Subject, 9> k_subjects {{
    {"argument", Kind::Argument},
    {"frame", Kind::Argument, true},
    {"operator", Kind::Argument, true},
    {"variable", Kind::Variable},
    {"variable", Kind::Argument},
    {"expression", Kind::Variable},
    {"expression", Kind::Argument},
    {"locator", Kind::Locator},
    {"function", Kind::Callback},
}};

/// What a placeholder was filled with; null when the message has none of that name.
const std::string* filled(const MessageLog::Raised& p_raised, std::string_view p_placeholder)
{
    const std::vector<const char*>& placeholders = p_raised.message->placeholders;
    const auto found = std::find(placeholders.begin(), placeholders.end(), p_placeholder);
    if (found == placeholders.end())
        return nullptr;
    return &p_raised.arguments[static_cast<std::size_t>(found - placeholders.begin())];
}

/// The first reference of that kind with that text. Locators and arguments count only behind the function of the
/// message.
const QelReference* find(const std::vector<QelReference>& p_references, const Subject& p_subject,
                         const std::string& p_text, const std::string* p_function)
{
    bool behindFunction = !p_function;
    for (const QelReference& reference : p_references)
    {
        if (reference.kind == Kind::Callback)
            behindFunction = !p_function || reference.name == *p_function;
        const bool hasText =
            p_subject.isPart ? reference.name.find(p_text) != std::string::npos : reference.name == p_text;
        if (reference.kind == p_subject.kind && hasText && behindFunction)
            return &reference;
    }
    return nullptr;
}

/// The first variable that a list of the message holds, by its full name or its root's.
const QelReference* findListed(const std::vector<QelReference>& p_references, const std::string& p_list,
                               const World& p_world)
{
    const WorldScope world(p_world);
    const std::vector<std::string> names = StringUtilities::stringToVector(p_list, ',');
    const auto isListed = [&](const std::string& p_name) {
        return std::find(names.begin(), names.end(), p_name) != names.end();
    };
    const auto found =
        std::find_if(p_references.begin(), p_references.end(), [&](const QelReference& p_reference) {
            return p_reference.kind == Kind::Variable &&
                   (isListed(p_reference.name) ||
                    isListed(ExpressionEvaluator::rootVariableName(p_reference.name)));
        });
    return found == p_references.end() ? nullptr : &*found;
}

const QelReference* findSubject(const MessageLog::Raised& p_raised,
                                const std::vector<QelReference>& p_references, const World& p_world)
{
    const std::string* const function = filled(p_raised, "function");
    for (const Subject& subject : k_subjects)
        if (const std::string* const text = filled(p_raised, subject.placeholder))
            if (const QelReference* const reference = find(p_references, subject, *text, function))
                return reference;

    const std::string* const list = filled(p_raised, "list of variables");
    return list ? findListed(p_references, *list, p_world) : nullptr;
}

}    // namespace

TextRange placeInExpression(const MessageLog::Raised& p_raised, std::string_view p_expression,
                            const World& p_world)
{
    const TextRange whole {0, p_expression.size()};
    const QelResult result = analyseExpression(p_expression, p_world, true);
    if (result.error)
        return p_raised.message->identifier == k_badExpression ? result.error->range : whole;
    const QelReference* const subject = findSubject(p_raised, result.references, p_world);
    return subject ? subject->range : whole;
}

}    // namespace qen::standalone
