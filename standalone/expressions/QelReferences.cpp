#include "expressions/QelAnalysis.h"

#include "expressions/QelErrors.h"
#include "world/World.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qen::standalone::qel {
namespace {

constexpr std::size_t k_fewVariables = 16;    // up to here they are compared one by one

std::string_view between(const char* p_begin, const char* p_end)
{
    return {p_begin, static_cast<std::size_t>(p_end - p_begin)};
}

std::string_view trimmed(std::string_view p_text)
{
    while (!p_text.empty() && hasClass(p_text.front(), k_blank))
        p_text.remove_prefix(1);
    while (!p_text.empty() && hasClass(p_text.back(), k_blank))
        p_text.remove_suffix(1);
    return p_text;
}

char closingOf(char p_open) { return p_open == '(' ? ')' : p_open == '[' ? ']' : '}'; }

// The bracket that closes the parenthesis at a place, if nothing but single braces stands between them.
const char* closingBracketOfSimple(const char* p_open, const char* p_end)
{
    bool inBraces = false;
    for (const char* at = p_open + 1; at != p_end; ++at)
    {
        switch (*at)
        {
        case '{':
        case '}':
            if (inBraces != (*at == '}'))
                return nullptr;
            inBraces = !inBraces;
            break;
        case ')':
            return inBraces ? nullptr : at;
        case '(':
        case '[':
        case ']':
            return nullptr;
        default:
            break;
        }
    }
    return nullptr;
}

/// The name that was meant in place of another one, as a sentence of its own.
std::string suggestion(std::string_view p_name, const std::string& p_nearest)
{
    return p_nearest.empty() || p_nearest == p_name ? "" : ". Did you mean " + quoted(p_nearest) + "?";
}

std::string monitorPointPath(const std::string& p_flowPath, std::string_view p_name)
{
    return (p_flowPath + "/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:").append(p_name);
}

}

// A name and what follows it decide: "(" makes it a function, "@" a callback function, "." one of several components.
bool Analysis::reference(Operand& p_operand)
{
    const char* const begin = m_at;
    ComponentReader reader {m_at, m_end};
    Component first;
    std::size_t count = 0;
    const bool good = readReference(reader, [&](const Component& p_component) {
        if (count++ == 0)
            first = p_component;
    });
    m_at = reader.at;
    if (!good)
        return failExpected(m_at, reader.expected);
    const bool isBare = count == 1;

    const char* next = m_at;
    while (next != m_end && hasClass(*next, k_blank))
        ++next;
    if (next != m_end && (*next == '(' || *next == '@'))
    {
        if (!isBare)
            return fail(begin, m_at,
                        "the callback function " + quoted(between(begin, m_at)) +
                            " has several components; expected a single name in front of '" + *next + '\'');
        const Function* const function =
            *next == '(' && !first.hasBraces ? findFunction(first.name) : nullptr;
        if (!function)
            return callback(first, p_operand, begin);
        m_at = next;
        return functionCall(*function, p_operand, begin);
    }

    if (!isBare)
    {
        const RootPlace root = findRoot(m_names, between(begin, m_at));
        if (root.kind != Names::Root::None)
            return variable(root, p_operand, begin);
        if (m_quiet)
        {
            p_operand.constant = false;
            return true;
        }
        return fail(begin, m_at,
                    "no component of " + quoted(between(begin, m_at)) +
                        " is known; expected a variable or an additional variable" + suggestedRoot(begin));
    }

    if (const Names::Root kind = m_names.classify(first.name); kind != Names::Root::None)
        return variable({kind, first.name, {}}, p_operand, begin);

    const Constant* const constant = findConstant(first.name);
    const ModelTree::Parameter* const named = constant ? nullptr : m_names.namedExpression(first.name);
    if ((constant || named) && first.hasBraces)
        return fail(begin, m_at,
                    quoted(first.name) + " is a " + (constant ? "constant" : "named expression") +
                        " and has no components or coordinate frames; expected it without braces");
    if (constant)
    {
        p_operand.value = constant->value;
        for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
            p_operand.dims[i] = constant->dims[i];
        p_operand.plain = isPlain(p_operand.dims);
        return true;
    }
    if (named)
        return namedExpression(*named, p_operand, begin);
    if (m_quiet)
    {
        p_operand.constant = false;
        return true;
    }
    const bool nameGoesOn = next != m_at && (next - m_at > 1 || *m_at != ' ') && nameEnd(next, m_end) != next;
    return fail(
        begin, m_at,
        quoted(first.name) +
            " is not known; expected a variable, an additional variable, a constant or a named expression" +
            (nameGoesOn ? ". Words of a name are parted by one blank"
                        : suggestion(first.name, m_names.nearestValue(first.name))));
}

/// What was meant by the root of a reference that has none that is known. It stands behind the prefixes, and before an
/// operator.
std::string Analysis::suggestedRoot(const char* p_begin)
{
    std::vector<std::string_view> names;
    ComponentReader reader {p_begin, m_at};
    readReference(reader, [&](const Component& p_component) { names.push_back(p_component.name); });
    if (!names.empty() && m_names.operatorDims(names.back()))
        names.pop_back();
    return names.empty() ? std::string() : suggestion(names.back(), m_names.nearestValue(names.back()));
}

bool Analysis::variable(const RootPlace& p_root, Operand& p_operand, const char* p_begin)
{
    if (!countReference(p_begin))
        return false;
    p_operand.constant = false;
    if (p_root.kind == Names::Root::ExpressionValue)
    {
        if (!expressionValue(p_operand, p_begin))
            return false;
    }
    else
    {
        std::string problem;
        if (!m_names.dims(p_operand.dims, problem))
            return fail(p_begin, m_at, quoted(p_root.root) + ' ' + problem);
        p_operand.plain = isPlain(p_operand.dims);
    }

    mentionVariable(between(p_begin, m_at));
    if (p_root.suffix.empty())
        return true;
    const std::optional<UnitDimensions> dims = m_names.operatorDims(p_root.suffix);
    if (!dims)
    {
        m_dimsAreUnknown = true;
        return true;
    }
    Operand modifier;
    setDims(modifier, *dims);
    return multiplyDims(p_operand, modifier, 1.0F) ||
           failBeyondLimit(p_begin, m_at, "an exponent of the dimensions is beyond the limit");
}

bool Analysis::namedExpression(const ModelTree::Parameter& p_parameter, Operand& p_operand,
                               const char* p_begin)
{
    if (!countReference(p_begin))
        return false;
    if (m_wantReferences)
        collect(QelReference::Kind::NamedExpression, between(p_begin, m_at));
    // The value of a monitor point is known in the argument itself, not in what the argument refers to.
    const bool inArgument = std::exchange(m_inArgument, false);
    const bool read = readParameter(p_parameter, k_expressionsPath, Source::Kind::NamedExpression,
                                    p_parameter.name, p_operand, p_begin);
    m_inArgument = inArgument;
    return read;
}

// Takes what is kept of the expression that a parameter holds. Where nothing is, or does not fit this place, reads it,
// but each at most twice: quietly, and to collect its references.
bool Analysis::readParameter(const ModelTree::Parameter& p_parameter, std::string_view p_objectPath,
                             Source::Kind p_kind, std::string_view p_name, Operand& p_operand,
                             const char* p_begin)
{
    Known& known = m_known[&p_parameter];    // stays where it is
    if (known.beingRead)
        return failCycle(p_parameter, p_name, p_begin);
    if (known.judged && (known.collected || m_quiet))
    {
        mentionExpression(p_parameter, nullptr);
        p_operand = known.operand;
        return !known.failed || fail(p_begin, m_at, quoted(p_name) + " is no good expression");
    }

    Source source;
    source.text = p_parameter.value;
    source.parameter = &p_parameter;
    source.objectPath = p_objectPath;
    source.kind = p_kind;
    source.name = p_name;
    source.shown = m_source->parameter ? m_source->shown : rangeOf(p_begin, m_at);
    source.outer = m_source;
    if (const KeptExpression* const kept = keptExpression(source))
    {
        mentionExpression(p_parameter, kept);
        return take(*kept, source, p_operand);
    }
    if (m_keeps || !descend(p_begin) || !readSource(source, known))
        return false;
    m_offsetNumberEnd = nullptr;
    --m_depth;
    p_operand = known.operand;
    return true;
}

bool Analysis::readSource(Source& p_source, Known& p_known)
{
    const char* const at = std::exchange(m_at, p_source.text.data());
    const char* const end = std::exchange(m_end, p_source.text.data() + p_source.text.size());
    m_source = &p_source;
    ++m_readsPlainly;

    p_known.beingRead = true;
    p_known.operand = Operand();
    const bool read = whole(p_known.operand);
    p_known.beingRead = false;
    p_known.judged = true;
    p_known.collected = !m_quiet;
    p_known.failed = !read;

    --m_readsPlainly;
    m_source = p_source.outer;
    m_at = at;
    m_end = end;
    return read;
}

// function@locator(argument), behind the function
bool Analysis::callback(const Component& p_function, Operand& p_operand, const char* p_begin)
{
    const char* const functionEnd = m_at;
    skipBlanks();
    const char* open = m_at;
    if (*open == '@')
    {
        while (open != m_end && *open != '(')
            ++open;
        if (open == m_end)
        {
            m_at = m_end;
            return fail(p_begin, m_end,
                        "the callback function " + quoted(p_function.name) +
                            " has no argument; expected '(' behind the locator");
        }
    }
    const std::string_view locator = open == m_at ? std::string_view() : trimmed(between(m_at + 1, open));
    const char* const close = closingBracket(open);
    if (!close)
        return false;
    const std::string_view argumentText = trimmed(between(open + 1, close));
    m_at = close + 1;
    if (!countReference(p_begin))
        return false;

    const std::string_view function = between(p_begin, functionEnd);
    mentionCallback(function, locator, argumentText);

    Operand argumentOperand;
    if (!argumentText.empty() && !argument(argumentText, locator, argumentOperand))
        return false;
    p_operand.constant = false;
    const UnitDimensions* const dims = m_names.callbackDims(p_function.name);
    if (!dims)
        return m_quiet ||
               fail(p_begin, functionEnd,
                    "the function " + quoted(p_function.name) +
                        " is not known; expected a function of mathematics or a callback function" +
                        suggestion(p_function.name, m_names.nearestFunction(p_function.name)));
    setDims(p_operand, *dims);
    return multiplyDims(p_operand, argumentOperand, 1.0F) ||
           failBeyondLimit(p_begin, m_at, "an exponent of the dimensions is beyond the limit");
}

// The argument may be any text: where it is no good expression, the library says so, and it counts as dimensionless.
bool Analysis::argument(std::string_view p_argument, std::string_view p_locator, Operand& p_operand)
{
    const unsigned depth = m_depth;
    if (!descend(p_argument.data()))
        return false;
    Source* const source = m_source;
    const char* const at = std::exchange(m_at, p_argument.data());
    const char* const end = std::exchange(m_end, p_argument.data() + p_argument.size());
    const bool quiet = std::exchange(m_quiet, true);
    const bool inArgument = std::exchange(m_inArgument, true);
    const std::string_view locator = std::exchange(m_locator, p_locator);

    const bool good = infix(p_operand, 1) && m_at == m_end;
    if (m_fatal)
        return false;
    if (!good)
    {
        p_operand = Operand();
        m_result.error.reset();
    }

    m_source = source;
    m_at = at;
    m_end = end;
    m_quiet = quiet;
    m_inArgument = inArgument;
    m_locator = locator;
    m_depth = depth;
    return true;
}

// The dimensions of the locator's own expression; it is looked for in all flows, since an expression knows no flow.
bool Analysis::expressionValue(Operand& p_operand, const char* p_begin)
{
    if (!m_inArgument)
    {
        if (m_quiet)
            return true;
        return fail(p_begin, m_at,
                    quoted(k_expressionValue) +
                        " is known only in the argument of a callback function; expected a "
                        "variable, an additional variable, a constant or a named expression");
    }
    if (!m_world.model || m_locator.empty())
        return true;

    bool found = false;
    const bool inArgument = std::exchange(m_inArgument, false);
    const std::string_view locator = m_locator;
    for (const ModelTree::Object* flow : m_world.model->rootsOf("FLOW"))
    {
        const ModelTree::Object* const point = m_world.model->find(monitorPointPath(flow->path, locator));
        const ModelTree::Parameter* const value = point ? point->find(k_expressionValue) : nullptr;
        if (!value || value->value.empty())
            continue;
        Operand operand;
        const unsigned depth = m_depth;
        if (!readParameter(*value, point->path, Source::Kind::MonitorPoint, locator, operand, p_begin))
        {
            if (m_fatal)
                return false;
            m_result.error.reset();    // reported where the monitor point itself is checked
            operand = Operand();
            m_depth = depth;
        }
        if (found && !agree(p_operand, operand))
        {
            m_fatal = true;
            return fail(p_begin, m_at,
                        "the monitor points " + quoted(locator) + " of different flows have the dimensions " +
                            dimsText(p_operand) + " and " + dimsText(operand) + "; expected equal ones");
        }
        if (!found)
        {
            p_operand.dims = operand.dims;
            p_operand.plain = operand.plain;
        }
        found = true;
    }
    m_inArgument = inArgument;
    return true;
}

// The bracket that closes the parenthesis at a place. The pairs within it are kept, so that none is looked for twice.
const char* Analysis::closingBracket(const char* p_open)
{
    auto& pairs = m_source->brackets;
    if (m_source->pairedUpTo && p_open < m_source->pairedUpTo)
    {
        const auto pair =
            std::ranges::lower_bound(pairs, p_open, {}, &std::pair<const char*, const char*>::first);
        return pair->second;
    }

    if (const char* const close = closingBracketOfSimple(p_open, m_end))
        return close;

    pairs.clear();
    std::vector<std::pair<char, std::size_t>> open;    // what closes it, and its pair
    const auto enter = [&](const char* p_at) {
        open.emplace_back(closingOf(*p_at), pairs.size());
        pairs.emplace_back(p_at, nullptr);
    };
    enter(p_open);
    for (const char* at = p_open + 1; at != m_end; ++at)
    {
        switch (*at)
        {
        case '(':
        case '[':
        case '{':
            enter(at);
            break;
        case ')':
        case ']':
        case '}':
            if (*at != open.back().first)
            {
                fail(at, at + 1,
                     std::string("'") + *at + "' does not close the bracket before it; expected '" +
                         open.back().first + '\'');
                return nullptr;
            }
            pairs[open.back().second].second = at;
            open.pop_back();
            if (open.empty())
            {
                m_source->pairedUpTo = at;
                return at;
            }
            break;
        default:
            break;
        }
    }
    const char* const unclosed = pairs[open.back().second].first;
    fail(unclosed, m_end,
         std::string("'") + *unclosed + "' in the argument of a callback function is not closed; expected '" +
             open.back().first + '\'');
    return nullptr;
}

bool Analysis::countReference(const char* p_begin)
{
    if (m_keeps)
        ++m_keeps->ownReferences;
    return ++m_references <= QelLimits::k_references ||
           failBeyondLimit(
               p_begin, m_at,
               "the expression refers to more than " + std::to_string(QelLimits::k_references) +
                   " variables, named expressions and callback functions; expected at most that many");
}

void Analysis::mentionVariable(std::string_view p_text)
{
    if (m_quiet)
        return;
    if (m_keeps)
    {
        m_keeps->mentions.push_back({KeptExpression::Mention::Kind::Variable, p_text, {}, {}});
        return;
    }
    collectVariable(p_text);
    if (m_wantReferences)
        collect(QelReference::Kind::Variable, p_text);
}

void Analysis::mentionCallback(std::string_view p_function, std::string_view p_locator,
                               std::string_view p_argument)
{
    if (m_quiet)
        return;
    if (m_keeps)
    {
        m_keeps->mentions.push_back(
            {KeptExpression::Mention::Kind::Callback, p_function, p_locator, p_argument});
        return;
    }
    m_result.callbacks.push_back({std::string(p_function), std::string(p_locator), std::string(p_argument)});
    if (!m_wantReferences)
        return;
    collect(QelReference::Kind::Callback, p_function);
    if (!p_locator.empty())
        collect(QelReference::Kind::Locator, p_locator);
    if (!p_argument.empty())
        collect(QelReference::Kind::Argument, p_argument);
}

void Analysis::mentionExpression(const ModelTree::Parameter& p_parameter, const KeptExpression* p_kept)
{
    if (m_keeps)
        m_keeps->mentions.push_back(
            {KeptExpression::Mention::Kind::Expression, {}, {}, {}, &p_parameter, p_kept, m_quiet});
}

void Analysis::collectVariable(std::string_view p_name)
{
    std::vector<std::string>& variables = m_result.variables;
    if (variables.size() < k_fewVariables)
    {
        if (std::ranges::find(variables, p_name) != variables.end())
            return;
        if (variables.empty())
            variables.reserve(4);
    }
    else
    {
        if (m_seen.empty())
            m_seen.insert(variables.begin(), variables.end());
        if (!m_seen.emplace(p_name).second)
            return;
    }
    variables.emplace_back(p_name);
}

void Analysis::collect(QelReference::Kind p_kind, std::string_view p_text)
{
    if (m_quiet)
        return;
    const TextRange range =
        m_source->parameter ? m_source->shown : rangeOf(p_text.data(), p_text.data() + p_text.size());
    m_result.references.push_back({p_kind, std::string(p_text), range});
}

}    // namespace qen::standalone::qel
