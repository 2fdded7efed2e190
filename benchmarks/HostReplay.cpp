#include "HostReplay.h"

#include <stdexcept>

namespace qen::benchmarks {

HostReplay::HostReplay(const CheckSetting& p_setting)
    : m_host(p_setting.interfaces()),
      m_availability(m_host.interfaces().model, m_host.interfaces().shortNames, m_host.interfaces().physics),
      m_checker(m_host.interfaces().model, m_host.interfaces().rules, m_host.interfaces().quantityModifier,
                &p_setting.variables(), m_host.interfaces().prefixInfo, &m_availability,
                m_host.interfaces().locatorInfo, &p_setting.callbacks())
{}

HostReplay::Calls HostReplay::callsOf(const Formula& p_formula)
{
    Calls calls;
    std::string text = p_formula.expression;
    calls.m_digit = changingDigit(text);
    check(p_formula, text);
    for (char digit = '1'; digit <= '9'; ++digit)
    {
        text[calls.m_digit] = digit;
        support::noteCallsIn(calls.m_calls[Calls::index(digit)]);
        check(p_formula, text);
        support::noteNoCalls();
    }

    text[calls.m_digit] = '1';
    const std::string objectPath = p_formula.objectPath;
    const std::string paramName = p_formula.paramName;
    const std::size_t before = support::blocksOutsideOfHost();
    m_checker.checkParamExpression(objectPath, paramName, text);
    calls.m_blocks = support::blocksOutsideOfHost() - before;
    return calls;
}

void HostReplay::check(const Formula& p_formula, const std::string& p_text)
{
    if (!m_checker.checkParamExpression(p_formula.objectPath, p_formula.paramName, p_text))
        throw std::runtime_error("does not pass: " + p_text);
}

}    // namespace qen::benchmarks
