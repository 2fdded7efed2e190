#include "world/World.h"

namespace qen::standalone {
namespace {

const World k_emptyWorld;
const World* s_current = &k_emptyWorld;

}

const World& currentWorld() { return *s_current; }

WorldScope::WorldScope(const World& p_world) : m_outer(s_current) { s_current = &p_world; }

WorldScope::~WorldScope() { s_current = m_outer; }

}    // namespace qen::standalone
