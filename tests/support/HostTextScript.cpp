#include "support/HostTextScript.h"

namespace qen::support {

namespace {

HostTextScript* g_script = nullptr;

}    // namespace

HostTextScript::HostTextScript() { g_script = this; }

HostTextScript::~HostTextScript() { g_script = nullptr; }

void HostTextScript::note(const char* p_operation, const std::string& p_argument)
{
    if (g_script)
        g_script->m_log.note(p_operation, {p_argument});
}

bool HostTextScript::trims() { return !g_script || g_script->m_trims; }

std::optional<bool> HostTextScript::switchAnswer()
{
    return g_script ? g_script->m_switchAnswer : std::nullopt;
}

}    // namespace qen::support
