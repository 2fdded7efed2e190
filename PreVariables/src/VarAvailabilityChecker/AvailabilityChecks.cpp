#include "AvailabilityChecks.h"

#include "ModelQCL.h"
#include "PhysicsEvaluator.h"
#include "QCLPath.h"

#include <string>

namespace qen {

namespace {

/// A query that is true or false.
class BoolQuery {
public:
    BoolQuery(const PhysicsEvaluator* p_evaluator, std::string p_query, bool p_declaredWith)
        : m_evaluator(p_evaluator), m_query(std::move(p_query))
    {
        m_evaluator->declareBool(m_query, p_declaredWith);
    }

    bool at(const std::string& p_objectPath, const ModelQCL* p_model) const
    {
        return m_evaluator->evalBool(m_query, p_objectPath, p_model);
    }

private:
    const PhysicsEvaluator* m_evaluator;
    std::string m_query;
};

/// A query for a list of which only matters whether something is in it.
class ListQuery {
public:
    ListQuery(const PhysicsEvaluator* p_evaluator, std::string p_query)
        : m_evaluator(p_evaluator), m_query(std::move(p_query))
    {
        m_evaluator->declareList(m_query, true);
    }

    bool anyAt(const std::string& p_objectPath, const ModelQCL* p_model) const
    {
        return !m_evaluator->evalList(m_query, p_objectPath, p_model).empty();
    }

private:
    const PhysicsEvaluator* m_evaluator;
    std::string m_query;
};

// The objects around a place. A place that is in none has an empty one.
QCLPath domainOf(const std::string& p_objectPath) { return QCLPath(p_objectPath).getSubPathByType("DOMAIN"); }
QCLPath fluidOf(const std::string& p_objectPath) { return QCLPath(p_objectPath).getSubPathByType("FLUID"); }

QCLPath fluidPairOf(const std::string& p_objectPath)
{
    return QCLPath(p_objectPath).getSubPathByType("FLUID PAIR");
}

/// Asks at the place itself.
class BulkCheck final : public AvailabilityCheck {
public:
    BulkCheck(const PhysicsEvaluator* p_evaluator, const char* p_query) : m_query(p_evaluator, p_query, false)
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        return m_query.at(p_objectPath, p_model);
    }

private:
    BoolQuery m_query;
};

/// Holds if it does in the domain around the place, or in the fluid around it.
class FluidDepCheck final : public AvailabilityCheck {
public:
    FluidDepCheck(const PhysicsEvaluator* p_evaluator, const char* p_domainQuery, const char* p_fluidQuery)
        : m_domainQuery(p_evaluator, p_domainQuery, true), m_fluidQuery(p_evaluator, p_fluidQuery, true)
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        // Deliberate: both are asked, the domain's first, whatever it answers; a place outside of every domain asks it
        // at the empty path. Held by FluidDependentKeyword.AsksTheDomainAndThenTheFluid.
        const bool inDomain = m_domainQuery.at(domainOf(p_objectPath).getFullPath(), p_model);
        const QCLPath fluid = fluidOf(p_objectPath);
        const bool inFluid = !fluid.empty() && m_fluidQuery.at(fluid.getFullPath(), p_model);
        return inDomain || inFluid;
    }

private:
    // In the order in which they are declared, and asked.
    BoolQuery m_domainQuery;
    BoolQuery m_fluidQuery;
};

/// Holds where there is an additional variable: in a fluid or solid of the domain, or in the fluid around the place.
class IsAVCheck final : public AvailabilityCheck {
public:
    explicit IsAVCheck(const PhysicsEvaluator* p_evaluator)
        : m_ofFluids(p_evaluator, "allDomFMAV"), m_ofSolids(p_evaluator, "allDomSMAV"),
          m_ofThisFluid(p_evaluator, "thisDomFMFluAVslist")
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        // Each is asked, whatever the others answer.
        const std::string domain = domainOf(p_objectPath).getFullPath();
        const bool ofFluids = m_ofFluids.anyAt(domain, p_model);
        const bool ofSolids = m_ofSolids.anyAt(domain, p_model);
        const QCLPath fluid = fluidOf(p_objectPath);
        const bool ofThisFluid = !fluid.empty() && m_ofThisFluid.anyAt(fluid.getFullPath(), p_model);
        return ofFluids || ofSolids || ofThisFluid;
    }

private:
    ListQuery m_ofFluids;
    ListQuery m_ofSolids;
    ListQuery m_ofThisFluid;
};

/// Holds where there is an additional variable, or a mass fraction.
class IsAVOrMasFrcCheck final : public AvailabilityCheck {
public:
    explicit IsAVOrMasFrcCheck(const PhysicsEvaluator* p_evaluator)
        : m_masFrc(p_evaluator, "anyDomFMComps", "anyDomFluFMCompsForFluid"), m_av(p_evaluator)
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        return m_av.check(p_objectPath, p_model) || m_masFrc.check(p_objectPath, p_model);
    }

private:
    FluidDepCheck m_masFrc;
    IsAVCheck m_av;
};

/// Holds where heat is transferred and nothing flows into the domain.
class EfficiencyCheck final : public AvailabilityCheck {
public:
    explicit EfficiencyCheck(const PhysicsEvaluator* p_evaluator)
        : m_heatTransfer(p_evaluator, "isDomGMHTMnotnone", "isDomFMFluHTMnotnone"),
          m_inflow(p_evaluator, "anyInflowBdyForDomain", true)
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        return m_heatTransfer.check(p_objectPath, p_model) && !m_inflow.at(p_objectPath, p_model);
    }

private:
    FluidDepCheck m_heatTransfer;
    BoolQuery m_inflow;
};

/// Holds where a phase changes with heat: between the fluids of a pair, or else in a binary mixture.
class ThermalPhaseCheck final : public AvailabilityCheck {
public:
    explicit ThermalPhaseCheck(const PhysicsEvaluator* p_evaluator)
        : m_inPair(p_evaluator, "isDomFPMassTranphasechange", true),
          m_inMixture(p_evaluator, "isLibMatHomBinMixforfluidslist", true)
    {}

    bool check(const std::string& p_objectPath, const ModelQCL* p_model) const override
    {
        const QCLPath fluidPair = fluidPairOf(p_objectPath);
        if (!fluidPair.empty())
            return m_inPair.at(fluidPair.getFullPath(), p_model);
        return m_inMixture.at(p_objectPath, p_model);
    }

private:
    BoolQuery m_inPair;
    BoolQuery m_inMixture;
};

std::unique_ptr<const AvailabilityCheck> makeCheck(const availability::Keyword& p_keyword,
                                                   const PhysicsEvaluator* p_evaluator)
{
    using availability::Kind;
    switch (p_keyword.kind)
    {
    case Kind::Bulk:
        return std::make_unique<BulkCheck>(p_evaluator, p_keyword.query);
    case Kind::FluidDep:
        return std::make_unique<FluidDepCheck>(p_evaluator, p_keyword.domainQuery, p_keyword.fluidQuery);
    case Kind::AV:
        return std::make_unique<IsAVCheck>(p_evaluator);
    case Kind::AVOrMasFrc:
        return std::make_unique<IsAVOrMasFrcCheck>(p_evaluator);
    case Kind::Efficiency:
        return std::make_unique<EfficiencyCheck>(p_evaluator);
    case Kind::ThermalPhaseChange:
        break;
    }
    return std::make_unique<ThermalPhaseCheck>(p_evaluator);
}

}    // namespace

VarAvailabilityChecker::AvailabilityChecks::AvailabilityChecks(const PhysicsEvaluator* p_evaluator)
{
    for (std::size_t row = 0; row < m_checks.size(); ++row)
        m_checks[row] = makeCheck(availability::k_keywords[row], p_evaluator);
}

}    // namespace qen
