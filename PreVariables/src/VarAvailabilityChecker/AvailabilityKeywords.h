#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

/// @file
/// The availability keywords: one row each, with the kind of its check and the queries that it asks. A new keyword is a
/// new row, and nothing else.

namespace qen::availability {

enum class Kind {
    Bulk,        // one query, at the place itself
    FluidDep,    // one query at the fluid of the place, one at its domain
    AV,          // the special kinds have queries of their own
    AVOrMasFrc,
    Efficiency,
    ThermalPhaseChange,
};

struct Keyword {
    std::string_view name;
    Kind kind;
    const char* query = nullptr;         // of Bulk
    const char* fluidQuery = nullptr;    // of FluidDep, as the next
    const char* domainQuery = nullptr;
};

constexpr Keyword bulk(std::string_view p_name, const char* p_query) { return {p_name, Kind::Bulk, p_query}; }

constexpr Keyword fluidDep(std::string_view p_name, const char* p_fluidQuery, const char* p_domainQuery)
{
    return {p_name, Kind::FluidDep, nullptr, p_fluidQuery, p_domainQuery};
}

constexpr Keyword special(std::string_view p_name, Kind p_kind) { return {p_name, p_kind}; }

// clang-format off
inline constexpr std::array k_keywords {
    bulk("CAVITATION",            "anyFPcavmodel fordomain"),
    bulk("CEM",                   "isDomEM active"),
    bulk("COMPRESSIBLE",          "isCompressible"),
    bulk("ELECTRIC",              "isDomEMEFM active"),
    bulk("EULERIANPHASECHANGE",   "anyFPmasstransfer fordomain"),
    bulk("INHOMOMULTIPHASE",      "isDomMulMhomogeneous"),
    bulk("MAGNETIC",              "isDomEMMFM active"),
    bulk("MDEF",                  "anyMeshMotionInDomain"),
    bulk("JNTORRIGIDBDYCOUPLING", "anySolverCouplingOrRigidBdyCoupling"),
    bulk("MULTIPHASE",            "isMultiPhase"),
    bulk("PHASEORPARTICLE",       "domainParticlesOrMultiphase"),
    bulk("POROUS",                "isdomaintype porous"),
    bulk("RADIATION",             "anyDomIVRad allowed"),
    bulk("RFR",                   "isRFR"),
    bulk("ANYRFR",                "anyDomainbyisrfr"),
    bulk("TRANSIENT",             "isSimTypetransient"),
    bulk("TURBULENT",             "isDomTurbMTurbForQEL"),

    // The fluid's query, then the domain's.
    fluidDep("ASM",            "anyDomFluFMCompasm",
                               "anyDomFMCompasmParticleFix"),
    fluidDep("AUTOIGN",        "isDomFMFluCMAutoIgnitionModel active",
                               "isDomFMCombModAutoIgnitionModelActive FluidIndepOrSingleEulerian"),
    fluidDep("BVM",            "isDomFMFluCombModBVM",
                               "isDomFMCombModBVMActive FluidIndepOrSingleEulerian"),
    fluidDep("COMBUSTION",     "isDomFMFluCombMvalid",
                               "isDomFMCombModActive FluidIndepOrSingleEulerian"),
    fluidDep("DES",            "isDomFluFMTurbMdessst",
                               "isDomFMTurbMdessst"),
    fluidDep("ECFM",           "isDomFMFluCombModECFM",
                               "isDomFMCombModECFMActive FluidIndepOrSingleEulerian"),
    fluidDep("EDM",            "isDomFMFluCombModEDM",
                               "isDomFMCombModEDMActive FluidIndepOrSingleEulerian"),
    fluidDep("EGR",            "isDomFMFluCMResidualMaterialModel active",
                               "isDomFMCombModResidualMaterialModelActive FluidIndepOrSingleEulerian"),
    fluidDep("FRC",            "isDomFMFluCombModFRC",
                               "isDomFMCombModFRCActive FluidIndepOrSingleEulerian"),
    fluidDep("GEQN",           "isDomFMFluCombModGEqn",
                               "isDomFMCombModGEqnActive FluidIndepOrSingleEulerian"),
    fluidDep("KEPS",           "isDomFluFMTurbMPLProductionClipFactorEpsilon",
                               "isDomFMTurbMPLProductionClipFactorEpsilon"),
    fluidDep("KINETIC THEORY", "isDomFluMorpKTMon",
                               "anyDomFluMorpKTMon"),
    fluidDep("KOPS",           "isDomFluFMTurbMkomega",
                               "isDomFMTurbMkomega"),
    fluidDep("LES",            "isDomFluFMTurbMles",
                               "isDomFMTurbMles"),
    fluidDep("MASFRC",         "anyDomFluFMCompsForFluid",
                               "anyComponentsForDomain"),
    fluidDep("MULTIBAND",      "isDomFluFMTRadMSpecMmultiband",
                               "isDomGMTRadMSpecMmultiband"),
    // Deliberate: the same two queries as MASFRC. Held by
    // FluidDependentKeyword.AsksTheDomainAndThenTheFluid.
    fluidDep("MULTICOMPONENT", "anyDomFluFMCompsForFluid",
                               "anyComponentsForDomain"),
    fluidDep("MUSIG",          "isDomFluMorphPolyDispersed forfluidcast",
                               "anyPolydispersedFluidsForDom"),
    fluidDep("PARTICLE",       "isDomFluMorphparticle forfluidcast",
                               "anyDomainparticles"),
    fluidDep("PREMIXED",       "isDomFluFMCombModpremixed",
                               "isDomFMCombModPremixedActive FluidIndepOrSingleEulerian"),
    fluidDep("RSM",            "isDomFluFMTurbMrsm",
                               "isDomFMTurbMrsm"),
    fluidDep("SOOT",           "isDomFluFMSootModMagnussen",
                               "isDomFMSootModMagnussenActive FluidIndepOrSingleEulerian"),
    fluidDep("SST",            "isDomFluFMTurbMsstTFCdef",
                               "isDomFMTurbMsstTFCdef"),
    fluidDep("THERMAL",        "isDomFMFluHTMnotnone",
                               "isDomGMHTMnotnone"),
    fluidDep("ZETM",           "isDomFluFMTurbMzeroeqn",
                               "isDomFMTurbMzeroeqn"),
    fluidDep("TRANSITIONAL",   "isDomFluFMTurbMTransTurbActive",
                               "isDomFMTurbMTransTurbActive"),

    special("AV",                 Kind::AV),
    special("AVORMASFRC",         Kind::AVOrMasFrc),
    special("EFFICIENCY",         Kind::Efficiency),
    special("THERMALPHASECHANGE", Kind::ThermalPhaseChange),
};
// clang-format on

constexpr bool keywordsAreDistinct()
{
    for (std::size_t i = 0; i < k_keywords.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (k_keywords[i].name == k_keywords[j].name)
                return false;
    return true;
}

static_assert(k_keywords.size() == 47 && keywordsAreDistinct());

/// Finds the row of a keyword by its length and three of its characters. Quick, since a kept answer costs little more
/// than this search.
class KeywordIndex {
public:
    constexpr KeywordIndex()
    {
        for (std::size_t row = 0; row < k_keywords.size(); ++row)
        {
            std::size_t slot = startOf(k_keywords[row].name);
            while (m_rowBehind[slot] != 0)
                slot = next(slot);
            m_rowBehind[slot] = static_cast<unsigned char>(row + 1);
        }
    }

    /// The number of the row; none for a text that is no keyword.
    constexpr std::optional<std::size_t> find(std::string_view p_name) const
    {
        if (p_name.empty())
            return std::nullopt;
        for (std::size_t slot = startOf(p_name); m_rowBehind[slot] != 0; slot = next(slot))
            if (k_keywords[m_rowBehind[slot] - 1U].name == p_name)
                return m_rowBehind[slot] - 1U;
        return std::nullopt;
    }

private:
    static constexpr std::size_t k_slots = 256;
    static_assert(k_slots > 4 * k_keywords.size(), "most slots are free, so that a search is short");

    static constexpr std::size_t startOf(std::string_view p_name)
    {
        const auto at = [&](std::size_t p_index) -> std::size_t {
            return static_cast<unsigned char>(p_name[p_index]);
        };
        return (p_name.size() * 11 + at(0) * 3 + at(p_name.size() / 2) * 7 + at(p_name.size() - 1) * 29) %
               k_slots;
    }

    static constexpr std::size_t next(std::size_t p_slot) { return (p_slot + 1) % k_slots; }

    // 0 for a free slot, else one more than the row's number
    std::array<unsigned char, k_slots> m_rowBehind {};
};

inline constexpr KeywordIndex k_keywordIndex;

}    // namespace qen::availability
