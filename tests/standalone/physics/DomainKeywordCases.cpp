#include "KeywordCases.h"

namespace qen::standalone::test {
namespace {

using enum Setting;

constexpr const char* k_wall = "/FLOW:F/DOMAIN:D/BOUNDARY:B";
constexpr const char* k_water = "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water";
constexpr const char* k_pair = "/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water";

}    // namespace

std::vector<KeywordCase> domainKeywordCases()
{
    return {
        // ---- The simulation and the domain's motion
        {"TRANSIENT", On, k_wall, "[/FLOW:F/SIMULATION]\nType = Transient\n"},
        {"TRANSIENT", Off, k_wall, "[/FLOW:F/SIMULATION]\nType = Steady\n"},
        {"TRANSIENT", Off, k_wall, "[/FLOW:F/SIMULATION]\nDuration = 1 [s]\n"},
        {"TRANSIENT", Elsewhere, k_wall, "[/FLOW:G/SIMULATION]\nType = Transient\n"},

        {"RFR", On, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},
        {"RFR", Off, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Stationary\n"},
        {"RFR", Elsewhere, k_wall, "[/FLOW:F/DOMAIN:E/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},

        {"ANYRFR", On, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},
        {"ANYRFR", On, k_wall, "[/FLOW:F/DOMAIN:E/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},
        {"ANYRFR", Off, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Moving Mesh\n"},
        {"ANYRFR", Elsewhere, k_wall, "[/FLOW:G/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},

        {"MDEF", On, k_wall,
         "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/MESH DEFORMATION]\nOption = Regions of Motion Specified\n"},
        {"MDEF", On, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Moving Mesh\n"},
        {"MDEF", On, k_wall,
         "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rigid Body Solution\n"},
        {"MDEF", Off, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/MESH DEFORMATION]\nOption = None\n"},
        {"MDEF", Off, k_wall, "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},
        {"MDEF", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/DOMAIN MODELS/MESH DEFORMATION]\nOption = Regions of Motion Specified\n"},

        {"JNTORRIGIDBDYCOUPLING", On, k_wall,
         "[/FLOW:F/DOMAIN:D/BOUNDARY:Hull/MESH MOTION]\nOption = Rigid Body Solution\nRigid Body = Ship\n"
         "[/FLOW:F/RIGID BODY:Ship]\nMass = 1 [kg]\n"},
        {"JNTORRIGIDBDYCOUPLING", On, k_wall,
         "[/FLOW:F/DOMAIN:D/BOUNDARY:Flap/MESH MOTION]\nOption = External Solver Coupling\n"},
        {"JNTORRIGIDBDYCOUPLING", On, k_wall,
         "[/FLOW:F/DOMAIN:D/SUBDOMAIN:S/MESH MOTION]\nOption = Rigid Body Solution\n"},
        {"JNTORRIGIDBDYCOUPLING", On, k_wall,
         "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rigid Body Solution\n"},
        {"JNTORRIGIDBDYCOUPLING", On, k_wall,
         "[/FLOW:F/DOMAIN:D/SUBDOMAIN:S/MESH MOTION]\nOption = External Solver Coupling\n"},
        {"JNTORRIGIDBDYCOUPLING", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/DOMAIN MODELS/DOMAIN MOTION]\nOption = Rotating\n"},
        {"JNTORRIGIDBDYCOUPLING", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/BOUNDARY:Hull/MESH MOTION]\nOption = Specified Displacement\n"},
        {"JNTORRIGIDBDYCOUPLING", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/BOUNDARY:Hull/MESH MOTION]\nOption = Rigid Body Solution\n"},

        {"POROUS", On, k_wall, "[/FLOW:F/DOMAIN:D]\nDomain Type = Porous\n"},
        {"POROUS", Off, k_wall, "[/FLOW:F/DOMAIN:D]\nDomain Type = Fluid\n"},
        {"POROUS", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:D]\nDomain Type = Solid\n[/FLOW:F/DOMAIN:E]\nDomain Type = Porous\n"},

        // ---- Electromagnetic fields
        {"ELECTRIC", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric "
         "Potential\n"},
        {"ELECTRIC", On, k_wall,
         "[/FLOW:F/DOMAIN:D/SOLID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric "
         "Potential\n"},
        {"ELECTRIC", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = None\n"
         "Magnetic Field Model = Magnetic Vector Potential\n"},
        {"ELECTRIC", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/SOLID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = None\n"},
        {"ELECTRIC", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric "
         "Potential\n"},

        {"MAGNETIC", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\n"
         "Magnetic Field Model = Magnetic Vector Potential\n"},
        {"MAGNETIC", On, k_wall,
         "[/FLOW:F/DOMAIN:D/SOLID MODELS/ELECTROMAGNETIC MODEL]\n"
         "Magnetic Field Model = Magnetic Vector Potential\n"},
        {"MAGNETIC", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric Potential\n"
         "Magnetic Field Model = None\n"},
        {"MAGNETIC", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/SOLID MODELS/ELECTROMAGNETIC MODEL]\nMagnetic Field Model = None\n"},
        {"MAGNETIC", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID MODELS/ELECTROMAGNETIC MODEL]\n"
         "Magnetic Field Model = Magnetic Vector Potential\n"},

        {"CEM", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric "
         "Potential\n"},
        {"CEM", On, k_wall,
         "[/FLOW:F/DOMAIN:D/SOLID MODELS/ELECTROMAGNETIC MODEL]\n"
         "Magnetic Field Model = Magnetic Vector Potential\n"},
        {"CEM", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = None\n"
         "Magnetic Field Model = None\n"},
        {"CEM", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID MODELS/ELECTROMAGNETIC MODEL]\nElectric Field Model = Electric "
         "Potential\n"},

        // ---- Which fluids there are
        {"MULTIPHASE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\nMorphology = Dispersed Fluid\n"},
        {"MULTIPHASE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\n"},
        {"MULTIPHASE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sand]\nMorphology = Particle Transport\n"},
        {"MULTIPHASE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Air]\nMorphology = Dispersed Fluid\n"},

        {"INHOMOMULTIPHASE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\n"
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/MULTIPHASE]\nHomogeneous Model = No\n"},
        {"INHOMOMULTIPHASE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\n"},
        {"INHOMOMULTIPHASE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\n"
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/MULTIPHASE]\nHomogeneous Model = Yes\n"},
        {"INHOMOMULTIPHASE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n"
         "[/FLOW:F/DOMAIN:D/FLUID MODELS/MULTIPHASE]\nHomogeneous Model = No\n"},
        {"INHOMOMULTIPHASE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n"
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Air]\n"
         "[/FLOW:F/DOMAIN:E/FLUID MODELS/MULTIPHASE]\nHomogeneous Model = No\n"},

        {"PHASEORPARTICLE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\n[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\n"},
        {"PHASEORPARTICLE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sand]\nMorphology = Particle Transport\n"},
        {"PHASEORPARTICLE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"},
        {"PHASEORPARTICLE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Sand]\nMorphology = Particle Transport\n"},

        {"PARTICLE", On, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Particle Transport\n"},
        {"PARTICLE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sand]\nMorphology = Particle Transport\n"},
        {"PARTICLE", Off, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Dispersed Fluid\n"},
        {"PARTICLE", Elsewhere, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Water]\nMorphology = Particle Transport\n"},

        {"MUSIG", On, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Polydispersed Fluid\n"
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water/SIZE GROUP:Fine]\nDiameter = 1 [mm]\n"},
        {"MUSIG", On, k_wall, "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\nMorphology = Polydispersed Fluid\n"},
        {"MUSIG", Off, k_water, "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Dispersed Fluid\n"},
        {"MUSIG", Elsewhere, k_water,
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Water]\nMorphology = Polydispersed Fluid\n"},

        {"KINETIC THEORY", On, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Dispersed Solid\n"
         "Granular Temperature Model = Transport Equation\n"},
        {"KINETIC THEORY", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sand]\nMorphology = Dispersed Solid\n"
         "Granular Temperature Model = Algebraic Equilibrium\n"},
        {"KINETIC THEORY", Off, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Dispersed Solid\n"
         "Granular Temperature Model = None\n"},
        {"KINETIC THEORY", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Dispersed Fluid\n"
         "Granular Temperature Model = Transport Equation\n"},
        {"KINETIC THEORY", Elsewhere, k_water,
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Water]\nMorphology = Dispersed Solid\n"
         "Granular Temperature Model = Transport Equation\n"},

        // ---- What passes between fluids
        {"CAVITATION", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Cavitation\n"},
        {"CAVITATION", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Phase Change\n"},
        {"CAVITATION", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Cavitation\n"},

        {"EULERIANPHASECHANGE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Specified Mass Transfer\n"},
        {"EULERIANPHASECHANGE", On, k_pair,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Cavitation\n"},
        {"EULERIANPHASECHANGE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = None\n"},
        {"EULERIANPHASECHANGE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Phase Change\n"},

        {"THERMALPHASECHANGE", On, k_pair,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Phase Change\n"},
        {"THERMALPHASECHANGE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Wet Steam]\nMaterial = Steam\n"
         "[/LIBRARY/MATERIAL:Steam]\nOption = Homogeneous Binary Mixture\n"},
        {"THERMALPHASECHANGE", Off, k_pair,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Vapour and Water/MASS TRANSFER]\nOption = Cavitation\n"},
        {"THERMALPHASECHANGE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Wet Steam]\nMaterial = Steam\n"
         "[/LIBRARY/MATERIAL:Steam]\nOption = Pure Substance\n"},
        {"THERMALPHASECHANGE", Elsewhere, k_pair,
         "[/FLOW:F/DOMAIN:D/FLUID PAIR:Air and Water/MASS TRANSFER]\nOption = Phase Change\n"},
        {"THERMALPHASECHANGE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Wet Steam]\nMaterial = Steam\n"
         "[/LIBRARY/MATERIAL:Steam]\nOption = Homogeneous Binary Mixture\n"},

        // ---- Materials
        {"COMPRESSIBLE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Gas]\nMaterial = Air\n"
         "[/LIBRARY/MATERIAL:Air/EQUATION OF STATE]\nOption = Ideal Gas\n"},
        {"COMPRESSIBLE", On, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMaterial = Sea\n"
         "[/LIBRARY/MATERIAL:Sea/EQUATION OF STATE]\nOption = Compressible Liquid\n"},
        {"COMPRESSIBLE", On, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Gas]\nMaterial = Fuel and Air\n"
         "[/LIBRARY/MATERIAL:Fuel and Air]\nComponents = Fuel, Air\n"
         "[/LIBRARY/MATERIAL:Air/EQUATION OF STATE]\nOption = Real Gas\n"},
        {"COMPRESSIBLE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Gas]\nMaterial = Air\n"
         "[/LIBRARY/MATERIAL:Air/EQUATION OF STATE]\nOption = Value\nDensity = 1.2 [kg m^-3]\n"},
        {"COMPRESSIBLE", Off, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMaterial = Sea\n"
         "[/LIBRARY/MATERIAL:Sea/EQUATION OF STATE]\nOption = Value\nDensity = 1025 [kg m^-3]\n"},
        {"COMPRESSIBLE", Off, k_wall,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMaterial = Brine\n"
         "[/LIBRARY/MATERIAL:Brine]\nComponents = Salt, Lake\n"
         "[/LIBRARY/MATERIAL:Lake/EQUATION OF STATE]\nOption = Value\nDensity = 998 [kg m^-3]\n"},
        {"COMPRESSIBLE", Elsewhere, k_wall,
         "[/FLOW:F/DOMAIN:E/FLUID DEFINITION:Gas]\nMaterial = Air\n"
         "[/LIBRARY/MATERIAL:Air/EQUATION OF STATE]\nOption = Ideal Gas\n"},
        {"COMPRESSIBLE", Elsewhere, k_water,
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMaterial = Lake\n"
         "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Gas]\nMaterial = Air\n"
         "[/LIBRARY/MATERIAL:Air/EQUATION OF STATE]\nOption = Ideal Gas\n"},
    };
}

}    // namespace qen::standalone::test
