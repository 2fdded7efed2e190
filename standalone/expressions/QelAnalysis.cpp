#include "expressions/QelAnalysis.h"

#include "expressions/QelErrors.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace qen::standalone {
namespace qel {
namespace {

constexpr unsigned k_loosest = 1;

constexpr std::array<std::string_view, 12> k_infixTexts {
    "||", "&&", "==", "!=", "<", "<=", ">", ">=", "+", "-", "*", "/"};

double truth(bool p_value) { return p_value ? 1.0 : 0.0; }

// After roots, exponents that should be whole are so only to within rounding.
UnitDimensions withoutRounding(UnitDimensions p_dims)
{
    for (std::size_t i = 0; i < UnitDimensions::k_count; ++i)
        if (const float whole = std::round(p_dims[i]); std::fabs(p_dims[i] - whole) < k_dimsTolerance)
            p_dims[i] = whole;
    return p_dims;
}

}

void Analysis::run(std::string_view p_text)
{
    Source source;
    source.text = p_text;
    m_source = &source;
    m_at = p_text.data();
    m_end = m_at + p_text.size();

    Operand operand;
    if (!whole(operand))
        return;
    if (!operand.plain)
        m_result.dims = withoutRounding(operand.dims);
    if (operand.constant)
        m_result.constantValue = operand.value;
}

bool Analysis::whole(Operand& p_operand)
{
    if (m_source->text.size() > QelLimits::k_textBytes)
        return failBeyondLimit(m_at, m_at,
                               fmt::format("the expression has {} bytes; expected at most {}",
                                           m_source->text.size(), QelLimits::k_textBytes));
    if (!infix(p_operand, k_loosest))
        return false;
    return m_at == m_end || failExpected(m_at, "an operator or the end of the expression");
}

Analysis::InfixPlace Analysis::infixAhead() const
{
    const char second = m_end - m_at > 1 ? m_at[1] : '\0';
    switch (ahead())
    {
    case '+':
        return {5, 1, Infix::Add};
    case '-':
        return {5, 1, Infix::Subtract};
    case '*':
        return {6, 1, Infix::Multiply};
    case '/':
        return {6, 1, Infix::Divide};
    case '<':
        return second == '=' ? InfixPlace {4, 2, Infix::LessEqual} : InfixPlace {4, 1, Infix::Less};
    case '>':
        return second == '=' ? InfixPlace {4, 2, Infix::GreaterEqual} : InfixPlace {4, 1, Infix::Greater};
    case '=':
        return {second == '=' ? 3U : 0U, 2, Infix::Equal};
    case '!':
        return {second == '=' ? 3U : 0U, 2, Infix::Unequal};
    case '&':
        return {second == '&' ? 2U : 0U, 2, Infix::And};
    case '|':
        return {second == '|' ? 1U : 0U, 2, Infix::Or};
    default:
        return {0, 0, Infix::Or};
    }
}

bool Analysis::infix(Operand& p_left, unsigned p_precedence)
{
    skipBlanks();
    const char* const begin = m_at;
    if (!unary(p_left))
        return false;
    for (;;)
    {
        skipBlanks();
        const InfixPlace place = infixAhead();
        if (place.precedence < p_precedence)    // also where there is none
            return true;
        const char* const at = m_at;
        m_at += place.bytes;
        Operand right;
        if (!infix(right, place.precedence + 1) || !combine(place.infix, p_left, right, begin, at))
            return false;
    }
}

bool Analysis::combine(Infix p_infix, Operand& p_left, const Operand& p_right, const char* p_begin,
                       const char* p_at)
{
    const double left = p_left.value;
    const double right = p_right.value;
    p_left.constant &= p_right.constant;
    switch (p_infix)
    {
    case Infix::Multiply:
    case Infix::Divide:
        p_left.value = p_infix == Infix::Multiply ? left * right : left / right;
        if (!multiplyDims(p_left, p_right, p_infix == Infix::Multiply ? 1.0F : -1.0F))
            return failBeyondLimit(
                p_begin, m_at,
                fmt::format("an exponent of the dimensions is beyond {}", QelLimits::k_dimensionExponent));
        return true;
    case Infix::And:
    case Infix::Or:
        if (!isDimensionless(p_left) || !isDimensionless(p_right))
            return failDims(p_begin, m_at,
                            fmt::format("the operands of '{}' have the dimensions {} and {}; expected "
                                        "dimensionless ones",
                                        k_infixTexts[static_cast<std::size_t>(p_infix)], dimsText(p_left),
                                        dimsText(p_right)));
        p_left.value =
            truth(p_infix == Infix::And ? left != 0.0 && right != 0.0 : left != 0.0 || right != 0.0);
        clearDims(p_left);
        return true;
    default:
        break;
    }

    if (!agree(p_left, p_right))
        return failDims(
            p_begin, m_at,
            fmt::format("the operands of '{}' in column {} have the dimensions {} and {}; expected "
                        "equal ones",
                        k_infixTexts[static_cast<std::size_t>(p_infix)], column(p_at), dimsText(p_left),
                        dimsText(p_right)));
    switch (p_infix)
    {
    case Infix::Add:
        p_left.value = left + right;
        return true;
    case Infix::Subtract:
        p_left.value = left - right;
        return true;
    case Infix::Equal:
        p_left.value = truth(left == right);
        break;
    case Infix::Unequal:
        p_left.value = truth(left != right);
        break;
    case Infix::Less:
        p_left.value = truth(left < right);
        break;
    case Infix::LessEqual:
        p_left.value = truth(left <= right);
        break;
    case Infix::Greater:
        p_left.value = truth(left > right);
        break;
    default:
        p_left.value = truth(left >= right);
        break;
    }
    clearDims(p_left);
    return true;
}

bool Analysis::unary(Operand& p_operand)
{
    const char sign = ahead();
    if (sign == '-' || sign == '+')
        return this->sign(p_operand);
    if (sign != '!' || (m_end - m_at > 1 && m_at[1] == '='))
        return power(p_operand);

    const char* const begin = m_at;
    if (!descend(begin))
        return false;
    ++m_at;
    skipBlanks();
    if (!unary(p_operand))
        return false;
    if (!isDimensionless(p_operand))
        return failDims(begin, m_at,
                        fmt::format("the operand of '!' has the dimensions {}; expected a dimensionless one",
                                    dimsText(p_operand)));
    p_operand.value = truth(p_operand.value == 0.0);
    clearDims(p_operand);
    --m_depth;
    return true;
}

bool Analysis::sign(Operand& p_operand)
{
    const char sign = *m_at;
    if (!descend(m_at))
        return false;
    ++m_at;
    skipBlanks();
    if (!unary(p_operand))
        return false;
    --m_depth;
    if (sign == '-')
    {
        // In -5 [C] the sign belongs to the number: five degrees below zero Celsius, not minus 278.15 K.
        const bool offsetNumber = m_at == m_offsetNumberEnd;
        p_operand.value = offsetNumber ? 2.0 * m_offset - p_operand.value : -p_operand.value;
    }
    return true;
}

bool Analysis::power(Operand& p_base)
{
    const char* const begin = m_at;
    if (!primary(p_base))
        return false;
    const char* const end = m_at;
    skipBlanks();
    if (ahead() != '^')
    {
        m_at = end;
        return true;
    }
    const char* const at = m_at;
    if (!descend(at))
        return false;
    ++m_at;
    skipBlanks();
    Operand exponent;
    const bool signedExponent = ahead() == '-' || ahead() == '+';
    if (!(signedExponent ? sign(exponent) : power(exponent)))
        return false;
    --m_depth;
    return raise(p_base, exponent, begin, at);
}

bool Analysis::raise(Operand& p_base, const Operand& p_exponent, const char* p_begin, const char* p_at)
{
    if (!isDimensionless(p_exponent))
        return failDims(p_begin, m_at,
                        fmt::format("the exponent behind '^' in column {} has the dimensions {}; expected a "
                                    "dimensionless one",
                                    column(p_at), dimsText(p_exponent)));
    if (!p_base.plain)
    {
        if (p_exponent.constant)
        {
            if (!scaleDims(p_base, p_exponent.value))
                return failBeyondLimit(p_begin, m_at,
                                       fmt::format("an exponent of the dimensions is beyond {}",
                                                   QelLimits::k_dimensionExponent));
        }
        else if (isDimensionless(p_base))
            clearDims(p_base);
        else
            return failDims(
                p_begin, m_at,
                fmt::format("the exponent behind '^' in column {} is not constant, and its base has "
                            "the dimensions {}; expected a constant or a dimensionless base",
                            column(p_at), dimsText(p_base)));
    }
    p_base.constant &= p_exponent.constant;
    if (p_base.constant)
        p_base.value = std::pow(p_base.value, p_exponent.value);
    return true;
}

bool Analysis::primary(Operand& p_operand)
{
    if (m_at == m_end)
        return failExpected(m_at, "a number, a name, a sign or '('");
    const char first = *m_at;
    if (hasClass(first, k_letter) || (!isAscii(first) && foreignLetterAt(m_at, m_end) != 0))
        return reference(p_operand);
    if (hasClass(first, k_digit) || (first == '.' && m_end - m_at > 1 && hasClass(m_at[1], k_digit)))
        return number(p_operand);
    if (first == '(')
        return parenthesis(p_operand);
    return failExpected(m_at, "a number, a name, a sign or '('");
}

bool Analysis::number(Operand& p_operand)
{
    const char* const begin = m_at;
    const auto [end, fault] = std::from_chars(m_at, m_end, p_operand.value);
    if (fault != std::errc())
        return fail(begin, end,
                    "the number " + quoted({begin, static_cast<std::size_t>(end - begin)}) +
                        " is beyond double precision; expected one between 1e-307 and 1e308");
    m_at = end;
    m_numberBegin = begin;
    m_numberEnd = end;
    return units(p_operand, begin);
}

bool Analysis::parenthesis(Operand& p_operand)
{
    const char* const begin = m_at;
    if (!descend(begin))
        return false;
    ++m_at;
    if (!infix(p_operand, k_loosest))
        return false;
    if (ahead() != ')')
        return failExpected(m_at, "an operator or ')'");
    ++m_at;
    --m_depth;
    return units(p_operand, begin);
}

// The units behind a number or parenthesis that begins at a place, if there are any.
bool Analysis::units(Operand& p_operand, const char* p_begin)
{
    const char* open = m_at;
    while (open != m_end && hasClass(*open, k_blank))
        ++open;
    if (open == m_end || *open != '[')
        return true;

    const char* close = open + 1;
    while (close != m_end && *close != ']')
        ++close;
    if (close == m_end)
        return fail(open, m_end, "the units that begin here have no end; expected ']'");
    const std::string_view text(open + 1, static_cast<std::size_t>(close - open - 1));
    const std::optional<UnitValue> value = m_world.units ? m_world.units->parse(text) : std::nullopt;
    if (!value)
    {
        std::string reason;
        if (m_world.units)
            m_world.units->parse(text, &reason);
        else
            reason = "no units are defined";
        return fail(open, close + 1, "the units " + quoted(text) + " are not understood: " + reason);
    }
    m_at = close + 1;
    if (!isDimensionless(p_operand))
    {
        const std::string dims = dimsText(p_operand);
        if (!failDims(p_begin, m_at,
                      "what the units " + quoted(text) + " stand behind has the dimensions " + dims +
                          " already; expected a dimensionless value"))
            return false;
    }
    p_operand.value = p_operand.value * value->factor + value->offset;
    setDims(p_operand, value->dims);
    if (value->offset != 0.0 && *p_begin != '(')
    {
        m_offsetNumberEnd = m_at;
        m_offset = value->offset;
    }
    return true;
}

bool Analysis::functionCall(const Function& p_function, Operand& p_operand, const char* p_begin)
{
    constexpr unsigned k_kept = 3;    // more are folded into the first
    std::array<Operand, k_kept> arguments;
    unsigned count = 0;
    if (!descend(p_begin))
        return false;
    ++m_at;    // the parenthesis
    for (;;)
    {
        skipBlanks();
        const char* const begin = m_at;
        Operand& slot = arguments[count < k_kept ? count : k_kept - 1];
        if (count >= k_kept)
            slot = Operand();
        if (!infix(slot, k_loosest))
            return false;
        ++count;
        if (p_function.rule == DimsRule::Equal && count > 1)
        {
            if (!agree(arguments[0], slot) &&
                !failDims(begin, m_at,
                          fmt::format(
                              "argument {} of '{}' has the dimensions {}, the first {}; expected equal ones",
                              count, p_function.name, dimsText(slot), dimsText(arguments[0]))))
                return false;
            arguments[0].constant &= slot.constant;
            if (arguments[0].constant)
                arguments[0].value = p_function.value(arguments[0].value, slot.value, 0.0);
        }
        if (ahead() == ')')
            break;
        if (ahead() != ',')
            return failExpected(m_at, "an operator, ',' or ')'");
        ++m_at;
    }
    ++m_at;
    --m_depth;
    if (count < p_function.minArguments || count > p_function.maxArguments)
        return fail(p_begin, m_at,
                    fmt::format("'{}' is given {} argument{}; expected {}{}", p_function.name, count,
                                count == 1 ? "" : "s",
                                p_function.minArguments == p_function.maxArguments ? "" : "at least ",
                                p_function.minArguments));
    if (!judgeArguments(p_function, arguments.data(), count, p_begin))
        return false;
    p_operand = arguments[0];
    return true;
}

// Leaves the result in the first argument.
bool Analysis::judgeArguments(const Function& p_function, Operand* p_arguments, unsigned p_count,
                              const char* p_begin)
{
    Operand& first = p_arguments[0];
    const DimsRule rule = p_function.rule;
    switch (rule)
    {
    case DimsRule::AngleToNumber:
    case DimsRule::NumberToAngle:
    case DimsRule::NumberToNumber:
    case DimsRule::Choice:
        if (!isDimensionless(first) &&
            !failDims(p_begin, m_at,
                      fmt::format("the {}argument of '{}' has the dimensions {}; expected {}",
                                  p_count > 1 ? "first " : "", p_function.name, dimsText(first),
                                  rule == DimsRule::AngleToNumber ? "an angle or a number" : "a number")))
            return false;
        break;
    case DimsRule::RatioToAngle:
        if (!agree(first, p_arguments[1]) &&
            !failDims(p_begin, m_at,
                      fmt::format("the arguments of '{}' have the dimensions {} and {}; expected equal ones",
                                  p_function.name, dimsText(first), dimsText(p_arguments[1]))))
            return false;
        break;
    case DimsRule::Root:
        scaleDims(first, 0.5);
        break;
    default:
        break;
    }

    if (rule == DimsRule::Equal)
        return true;
    if (rule == DimsRule::Choice)
    {
        Operand& chosen = p_arguments[1];
        if (!agree(chosen, p_arguments[2]) &&
            !failDims(
                p_begin, m_at,
                fmt::format("the second and third argument of '{}' have the dimensions {} and {}; expected "
                            "equal ones",
                            p_function.name, dimsText(chosen), dimsText(p_arguments[2]))))
            return false;
        first.dims = chosen.dims;
        first.plain = chosen.plain;
    }
    for (unsigned i = 1; i < p_count; ++i)
        first.constant &= p_arguments[i].constant;
    if (first.constant)
        first.value = p_function.value(first.value, p_arguments[1].value, p_arguments[2].value);

    switch (rule)
    {
    case DimsRule::AngleToNumber:
    case DimsRule::NumberToNumber:
    case DimsRule::AnyToNumber:
        clearDims(first);
        break;
    case DimsRule::NumberToAngle:
    case DimsRule::RatioToAngle:
        clearDims(first);
        first.dims[UnitDimensions::k_angle] = 1.0F;
        first.plain = false;
        break;
    default:
        break;
    }
    return true;
}

}    // namespace qel

QelResult analyseExpression(std::string_view p_expression, const World& p_world, bool p_wantReferences)
{
    QelResult result;
    qel::Analysis(p_world, result, p_wantReferences).run(p_expression);
    return result;
}

}    // namespace qen::standalone
