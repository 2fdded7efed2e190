#include "expressions/QelAnalysis.h"

#include "expressions/QelErrors.h"
#include "units/UnitSystem.h"
#include "world/World.h"

/// @file
/// The errors of an analysis. None of this runs while an expression is good.

namespace qen::standalone::qel {
namespace {

constexpr std::string_view k_arrow = " -> ";
constexpr std::string_view k_left = "...";

// "A -> B -> A". A longer chain than errors quote loses names before its last one.
std::string chainText(const std::vector<std::string_view>& p_names)
{
    std::string whole;
    std::string shortened;
    const std::string last(p_names.back());
    for (const std::string_view name : p_names)
    {
        if (!whole.empty())
            whole += k_arrow;
        whole += name;
        std::string cut = whole;
        cut.append(k_arrow).append(k_left).append(k_arrow).append(last);
        if (characters(cut) <= QelLimits::k_quotedCharacters)
            shortened = cut;
        if (characters(whole) > 2 * QelLimits::k_quotedCharacters)
            break;
    }
    if (characters(whole) <= QelLimits::k_quotedCharacters || shortened.empty())
        return quoted(whole);
    return quoted(shortened);
}

}

bool Analysis::fail(const char* p_begin, const char* p_end, const std::string& p_message)
{
    if (!m_quiet || m_fatal)
        m_result.error = errorAt(p_begin, p_end, p_message);
    return false;
}

bool Analysis::failBeyondLimit(const char* p_begin, const char* p_end, const std::string& p_message)
{
    m_fatal = true;
    return fail(p_begin, p_end, p_message);
}

// An unknown operator is left to the checks of variables. What its dimensions lead to is none of the user's errors.
bool Analysis::failDims(const char* p_begin, const char* p_end, const std::string& p_message)
{
    m_hasWrongDims = true;
    return m_dimsAreUnknown || fail(p_begin, p_end, p_message);
}

bool Analysis::failExpected(const char* p_at, std::string_view p_expected)
{
    const std::string_view rest(p_at, static_cast<std::size_t>(m_end - p_at));
    if (m_quiet && !m_fatal)
        return false;
    return fail(p_at, p_at + tokenBytes(rest),
                "expected " + std::string(p_expected) + ", but found " + quotedToken(rest) +
                    likelySlip(p_at));
}

/// What was most likely meant where something else was expected, as a sentence of its own; empty for nothing.
std::string Analysis::likelySlip(const char* p_at) const
{
    const char* const begin = m_source->text.data();
    if (p_at != m_end && *p_at == '*' && p_at != begin && p_at[-1] == '*')
        return ". A power is written '^'";
    if (p_at != m_end && *p_at == '#')
        return ". A comment has a line of its own";

    const char* const nameEnds = nameEnd(p_at, m_end);
    const char* before = p_at;
    while (before != begin && hasClass(before[-1], k_blank))
        --before;
    if (p_at != m_end && *p_at == '[' && before != begin && hasClass(before[-1], k_nameChar))
        return ". Units follow a number or a bracket";
    if (nameEnds == p_at || before == begin)
        return {};
    const std::string_view name(p_at, static_cast<std::size_t>(nameEnds - p_at));
    if (before == m_numberEnd)
    {
        const bool isUnits = m_world.units && m_world.units->parse(name);
        if (!isUnits && Names(m_world).classify(name) != Names::Root::None)
            return {};
        if (before == p_at && (name == "e" || name == "E"))
            return ". The exponent has no digits";
        std::string example(m_numberBegin, m_numberEnd);
        return ". Units stand in brackets: " + quoted(example.append(" [").append(name).append("]"));
    }
    const bool isOneBlank = p_at - before == 1 && *before == ' ';
    return before != p_at && !isOneBlank && hasClass(before[-1], k_nameChar)
               ? ". Words of a name are parted by one blank"
               : "";
}

bool Analysis::failCycle(const ModelTree::Parameter& p_parameter, std::string_view p_name,
                         const char* p_begin)
{
    bool throughMonitorPoint = false;
    std::vector<std::string_view> names {p_name};
    for (const Source* source = m_source; source; source = source->outer)
    {
        throughMonitorPoint |= source->kind == Source::Kind::MonitorPoint;
        names.insert(names.begin(), source->name);
        if (source->parameter == &p_parameter)
            break;
    }
    m_fatal |= throughMonitorPoint;
    return fail(p_begin, m_at,
                (throughMonitorPoint ? "the expressions of monitor points form a cycle: "
                                     : "named expressions form a cycle: ") +
                    chainText(names) + "; expected an expression that does not refer to itself");
}

QelError Analysis::errorAt(const char* p_begin, const char* p_end, const std::string& p_message) const
{
    std::string place;
    // NOLINTNEXTLINE(clang-analyzer-core.NullDereference): run() sets it before it reads
    switch (m_source->kind)
    {
    case Source::Kind::Given:
        place = "Column ";
        break;
    case Source::Kind::NamedExpression:
        place = "In the named expression " + quoted(m_source->name) + ", column ";
        break;
    case Source::Kind::MonitorPoint:
        place = "In the expression of the monitor point " + quoted(m_source->name) + ", column ";
        break;
    }
    return {place + column(p_begin) + ": " + p_message + (p_message.ends_with('?') ? "" : "."),
            rangeOf(p_begin, p_end)};
}

TextRange Analysis::rangeOf(const char* p_begin, const char* p_end) const
{
    if (m_source->parameter)
        return m_source->shown;
    return {static_cast<std::size_t>(p_begin - m_source->text.data()),
            static_cast<std::size_t>(p_end - p_begin)};
}

// Counted in characters from 1.
std::string Analysis::column(const char* p_at) const
{
    if (m_quiet && !m_fatal)
        return {};
    const std::string_view before(m_source->text.data(),
                                  static_cast<std::size_t>(p_at - m_source->text.data()));
    return std::to_string(characters(before) + 1);
}

std::string Analysis::dimsText(const Operand& p_operand) const
{
    const std::string units = m_world.units ? m_world.units->baseUnits(p_operand.dims) : std::string();
    return units.empty() ? "none" : quoted(units);
}

std::string Analysis::depthProblem()
{
    return "the expression is nested more than " + std::to_string(QelLimits::k_depth) +
           " levels deep; expected at most that many";
}

}    // namespace qen::standalone::qel
