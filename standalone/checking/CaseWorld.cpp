#include "checking/CaseWorld.h"

#include <algorithm>
#include <iterator>

namespace qen::standalone {

CaseWorld::CaseWorld(const Definitions& p_definitions, ReadGraph* p_reads)
    : m_definitions(p_definitions), m_reads(p_reads), m_checkedModel(m_model, p_definitions.rules()),
      m_expressions(m_model, p_reads), m_prefixes(m_model, p_reads), m_locators(m_model, p_reads),
      m_shortNames(p_definitions.variables()),
      m_physics(
          p_definitions.physics(), m_model, [this] { return m_model.version(); }, p_reads),
      m_availability(&m_model, &m_shortNames, &m_physics), m_physicsChanges(m_model, p_definitions.physics()),
      m_endlessBefore(p_definitions.physics().endlessQueries())
{
    m_world.units = &p_definitions.units();
    m_world.variables = &p_definitions.variables();
    m_world.callbacks = &p_definitions.callbacks();
    m_world.rules = &p_definitions.rules();
    m_world.model = &m_model;
    m_world.expressions = &m_expressions;

    m_physicsChanges.attach(m_availability);
    if (m_reads)
    {
        m_model.attach(*m_reads);
        m_model.tellReads(m_reads);
    }
}

CaseWorld::~CaseWorld()
{
    if (m_reads)
        m_model.detach(*m_reads);
}

DimExprChecker CaseWorld::makeChecker() const
{
    return DimExprChecker(&m_checkedModel, &m_definitions.rules(), &m_definitions.rules(),
                          &m_definitions.variables(), &m_prefixes, &m_availability, &m_locators,
                          &m_definitions.callbacks());
}

void CaseWorld::askAnew()
{
    if (m_reads)
        m_availability.update(NotifyPhysicsChanged);
}

std::vector<std::string> CaseWorld::endlessQueries() const
{
    const std::vector<std::string> now = m_definitions.physics().endlessQueries();    // sorted
    std::vector<std::string> ofThisCase;
    std::set_difference(now.begin(), now.end(), m_endlessBefore.begin(), m_endlessBefore.end(),
                        std::back_inserter(ofThisCase));
    return ofThisCase;
}

}    // namespace qen::standalone
