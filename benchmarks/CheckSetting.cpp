#include "CheckSetting.h"

#include <cstdio>
#include <stdexcept>

namespace qen::benchmarks {

CheckSetting::CheckSetting(const PreVariableDefStore* p_variables)
    : m_definitions({QEN_DEFINITIONS_DIR}), m_expressions(m_model),
      m_world(makeWorld(p_variables ? *p_variables : m_definitions.variables())), m_prefixes(m_model),
      m_locators(m_model), m_shortNames(*m_world.variables),
      m_physics(m_definitions.physics(), m_model, [this] { return m_model.version(); }),
      m_availability(&m_model, &m_shortNames, &m_physics), m_checker(makeChecker(*m_world.variables))
{
    if (m_definitions.hasErrors())
        throw std::runtime_error("the definitions in " QEN_DEFINITIONS_DIR " have errors");
    // What the formulas refer to must be modelled: a gas that is heated, and time.
    m_model.setParameter("/FLOW:Duct/SIMULATION", "Type", "Transient");
    m_model.setParameter("/FLOW:Duct/DOMAIN:Channel", "Domain Type", "Fluid");
    m_model.setParameter("/FLOW:Duct/DOMAIN:Channel/FLUID DEFINITION:Gas", "Material", "Gas");
    m_model.setParameter("/FLOW:Duct/DOMAIN:Channel/FLUID MODELS/HEAT TRANSFER MODEL", "Option",
                         "Thermal Energy");
    for (const Formula& formula : k_formulas)
        m_model.setParameter(formula.objectPath, formula.paramName, formula.expression);
}

standalone::World CheckSetting::makeWorld(const PreVariableDefStore& p_variables)
{
    standalone::World world;
    world.units = &m_definitions.units();
    world.variables = &p_variables;
    world.callbacks = &m_definitions.callbacks();
    world.rules = &m_definitions.rules();
    world.model = &m_model;
    world.expressions = &m_expressions;
    return world;
}

support::HostInterfaces CheckSetting::interfaces() const
{
    return {
        &m_model,  &m_definitions.rules(), &m_definitions.rules(), &m_prefixes, &m_locators, &m_shortNames,
        &m_physics};
}

DimExprChecker CheckSetting::makeChecker(const PreVariableDefStore& p_variables) const
{
    return DimExprChecker(&m_model, &m_definitions.rules(), &m_definitions.rules(), &p_variables, &m_prefixes,
                          &m_availability, &m_locators, &m_definitions.callbacks());
}

bool CheckSetting::allPass()
{
    const auto world = install();
    bool pass = true;
    for (const Formula& formula : k_formulas)
    {
        if (passes(formula, formula.expression))
            continue;
        pass = false;
        const auto record = m_checker.endExprError() - 1;
        std::fprintf(stderr, "%s\n    %s\n", formula.expression, record->message.c_str());
    }
    m_checker.clearErrors();
    return pass;
}

}    // namespace qen::benchmarks
