#include "Failures.h"

#include "ExpressionsError.h"
#include "UserMsg.h"

#include "model/ModelTree.h"

#include <cstdio>

namespace qen::benchmarks {

void addTurbulentDomain(standalone::ModelTree& p_model)
{
    const std::string domain = "/FLOW:Duct/DOMAIN:Nozzle";
    p_model.setParameter(domain, "Domain Type", "Fluid");
    p_model.setParameter(domain + "/FLUID DEFINITION:Gas", "Material", "Gas");
    p_model.setParameter(domain + "/FLUID MODELS/HEAT TRANSFER MODEL", "Option", "Thermal Energy");
    p_model.setParameter(domain + "/FLUID MODELS/TURBULENCE MODEL", "Option", "k epsilon");
    p_model.setParameter(k_turbulentOpening, "Relative Pressure", "1 [Pa]");
}

FailureCalls::FailureCalls(const Failure& p_failure, DimExprChecker& p_checker)
    : m_failure(p_failure), m_checker(p_checker), m_objectPath(p_failure.objectPath),
      m_paramName(p_failure.paramName), m_passingPath(p_failure.passingPath), m_passing(p_failure.passing),
      m_failing(p_failure.failing)
{
    for (const char* const value : p_failure.values)
        if (value)
            m_values.emplace_back(value);
}

bool FailureCalls::endAsTheyShould() const
{
    m_checker.clearErrors();
    const bool asTheyShould = pass() && !m_checker.checkParam(m_objectPath, m_paramName, m_failing) &&
                              m_checker.beginExprError()->message == message();
    m_checker.clearErrors();
    return asTheyShould;
}

void FailureCalls::complain() const
{
    std::fprintf(stderr, "The check of %s or of %s does not end as it should\n", m_failure.passing,
                 m_failure.failing);
}

std::size_t FailureCalls::throwAndCatch() const
{
    try
    {
        throw expressions::error("DimExprChecker", "checkParam", message(), ErrorTypeError);
    }
    catch (const expressions::error& error)
    {
        return error.getMessage().size();
    }
}

std::string FailureCalls::message() const
{
    UserMsg message(m_failure.message);
    for (const std::string& value : m_values)
        message.arg(value);
    return message;
}

}    // namespace qen::benchmarks
