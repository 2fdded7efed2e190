#include "KeywordCases.h"

namespace qen::standalone::test {
namespace {

using enum Setting;

constexpr const char* k_wall = "/FLOW:F/DOMAIN:D/BOUNDARY:B";
constexpr const char* k_water = "/FLOW:F/DOMAIN:D/BOUNDARY:B/FLUID:Water";
constexpr const char* k_dye = "[/LIBRARY/ADDITIONAL VARIABLE:Dye]\nUnits = kg m^-3\n";

constexpr const char* k_twoFluids =
    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Air]\nMorphology = Dispersed Fluid\n";
constexpr const char* k_particles =
    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMorphology = Continuous Fluid\n"
    "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Sand]\nMorphology = Particle Transport\n";

using Cases = std::vector<KeywordCase>;

/// Keys of a model of all fluids, of one, and of those of another domain.
std::string allFluids(const std::string& p_model, const std::string& p_keys)
{
    return "[/FLOW:F/DOMAIN:D/FLUID MODELS/" + p_model + "]\n" + p_keys;
}

std::string fluid(const std::string& p_fluid, const std::string& p_model, const std::string& p_keys)
{
    return "[/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:" + p_fluid + "/" + p_model + "]\n" + p_keys;
}

std::string otherDomain(const std::string& p_model, const std::string& p_keys)
{
    return "[/FLOW:F/DOMAIN:E/FLUID MODELS/" + p_model + "]\n" + p_keys;
}

/// The cases of a keyword about a model that all fluids share or each has for itself.
void addModel(Cases& p_cases, const char* p_keyword, const char* p_model, const std::string& p_on,
              const std::string& p_off)
{
    p_cases.push_back({p_keyword, On, k_wall, allFluids(p_model, p_on)});
    p_cases.push_back({p_keyword, On, k_water, allFluids(p_model, p_on)});
    p_cases.push_back(
        {p_keyword, On, k_water, k_twoFluids + fluid("Water", p_model, p_on) + fluid("Air", p_model, p_off)});
    p_cases.push_back({p_keyword, Off, k_wall, allFluids(p_model, p_off)});
    p_cases.push_back({p_keyword, Off, k_water, fluid("Water", p_model, p_off)});
    p_cases.push_back({p_keyword, Elsewhere, k_wall, otherDomain(p_model, p_on)});
    p_cases.push_back(
        {p_keyword, Elsewhere, k_water, otherDomain("FLUID:Water/" + std::string(p_model), p_on)});
}

/// And where the model of another fluid of the domain is none of its own.
void addOtherFluid(Cases& p_cases, const char* p_keyword, const char* p_model, const std::string& p_on,
                   const std::string& p_off)
{
    p_cases.push_back({p_keyword, Elsewhere, k_water,
                       k_twoFluids + fluid("Water", p_model, p_off) + fluid("Air", p_model, p_on)});
}

/// And where it is said of all fluids that the model depends on the fluid.
void addFluidDependent(Cases& p_cases, const char* p_keyword, const char* p_model, const std::string& p_on,
                       const std::string& p_off)
{
    const std::string dependent = k_twoFluids + allFluids(p_model, "Option = Fluid Dependent\n");
    p_cases.push_back(
        {p_keyword, On, k_water, dependent + fluid("Water", p_model, p_on) + fluid("Air", p_model, p_off)});
    p_cases.push_back({p_keyword, Elsewhere, k_water,
                       dependent + fluid("Water", p_model, p_off) + fluid("Air", p_model, p_on)});

    // To say so chooses no model, whatever else is set
    const std::string noChoice = "Option = Fluid Dependent" + p_on.substr(p_on.find('\n'));
    p_cases.push_back({p_keyword, Off, k_wall, allFluids(p_model, noChoice)});
    p_cases.push_back({p_keyword, Off, k_wall, fluid("Water", p_model, noChoice)});
    p_cases.push_back({p_keyword, Off, k_water, fluid("Water", p_model, noChoice)});
}

void addTurbulence(Cases& p_cases, const char* p_keyword, const char* p_on, const char* p_off = "Laminar")
{
    const std::string on = std::string("Option = ") + p_on + "\n";
    const std::string off = std::string("Option = ") + p_off + "\n";
    addModel(p_cases, p_keyword, "TURBULENCE MODEL", on, off);
    addOtherFluid(p_cases, p_keyword, "TURBULENCE MODEL", on, off);
    addFluidDependent(p_cases, p_keyword, "TURBULENCE MODEL", on, off);
}

/// A model that the only fluid beside particles may have among its own.
void addFlame(Cases& p_cases, const char* p_keyword, const char* p_model, const std::string& p_on,
              const std::string& p_off)
{
    addModel(p_cases, p_keyword, p_model, p_on, p_off);
    addOtherFluid(p_cases, p_keyword, p_model, p_on, p_off);
    p_cases.push_back({p_keyword, On, k_wall, k_particles + fluid("Water", p_model, p_on)});
    p_cases.push_back({p_keyword, Off, k_wall, k_particles + fluid("Water", p_model, p_off)});
    p_cases.push_back({p_keyword, Off, k_wall, k_twoFluids + fluid("Water", p_model, p_on)});
}

void addCombustion(Cases& p_cases, const char* p_keyword, const char* p_on, const char* p_off)
{
    const std::string on = std::string("Option = ") + p_on + "\n";
    const std::string off = std::string("Option = ") + p_off + "\n";
    addFlame(p_cases, p_keyword, "COMBUSTION MODEL", on, off);
    addFluidDependent(p_cases, p_keyword, "COMBUSTION MODEL", on, off);
}

/// Keywords that hold where a fluid consists of components.
void addComponents(Cases& p_cases, const char* p_keyword)
{
    const std::string salt = "Option = Transport Equation\n";
    const std::string brine = "[/FLOW:F/DOMAIN:D/FLUID DEFINITION:Water]\nMaterial = Brine\n";
    p_cases.push_back({p_keyword, On, k_wall, allFluids("COMPONENT:Salt", salt)});
    p_cases.push_back({p_keyword, On, k_wall, fluid("Water", "COMPONENT:Salt", salt)});
    p_cases.push_back({p_keyword, On, k_water, fluid("Water", "COMPONENT:Salt", salt)});
    p_cases.push_back({p_keyword, On, k_water,
                       brine + "[/LIBRARY/MATERIAL:Brine]\nOption = Variable Composition Mixture\n"});
    p_cases.push_back(
        {p_keyword, On, k_wall,
         brine + "[/LIBRARY/MATERIAL:Brine]\nOption = Reacting Mixture\nComponents = Salt, Water\n"});
    p_cases.push_back(
        {p_keyword, Off, k_water, brine + "[/LIBRARY/MATERIAL:Brine]\nOption = Fixed Composition Mixture\n"});
    p_cases.push_back(
        {p_keyword, Off, k_wall, "[/FLOW:F/DOMAIN:D/FLUID MODELS/FLUID:Water/FLUID BUOYANCY]\n"});
    p_cases.push_back({p_keyword, Elsewhere, k_wall, otherDomain("COMPONENT:Salt", salt)});
    p_cases.push_back({p_keyword, Elsewhere, k_water, otherDomain("FLUID:Water/COMPONENT:Salt", salt)});
}

void addAdditionalVariables(Cases& p_cases, const char* p_keyword)
{
    const std::string dye = "Option = Transport Equation\n";
    p_cases.push_back({p_keyword, On, k_wall, k_dye + allFluids("ADDITIONAL VARIABLE:Dye", dye)});
    p_cases.push_back({p_keyword, On, k_water, k_dye + allFluids("ADDITIONAL VARIABLE:Dye", dye)});
    p_cases.push_back(
        {p_keyword, On, k_wall,
         k_dye + std::string("[/FLOW:F/DOMAIN:D/SOLID MODELS/ADDITIONAL VARIABLE:Dye]\n") + dye});
    p_cases.push_back({p_keyword, On, k_water, k_dye + fluid("Water", "ADDITIONAL VARIABLE:Dye", dye)});
    p_cases.push_back({p_keyword, Off, k_wall, k_dye});
    p_cases.push_back({p_keyword, Elsewhere, k_wall, k_dye + otherDomain("ADDITIONAL VARIABLE:Dye", dye)});
    p_cases.push_back({p_keyword, Elsewhere, k_water, k_dye + fluid("Air", "ADDITIONAL VARIABLE:Dye", dye)});
}

void addTurbulenceModels(Cases& p_cases)
{
    addTurbulence(p_cases, "TURBULENT", "SST");
    addTurbulence(p_cases, "TURBULENT", "Zero Equation");
    // What depends on the fluid holds outside them where any of them is turbulent
    p_cases.push_back({"TURBULENT", Off, k_wall, fluid("Air", "TURBULENCE MODEL", "Option = Laminar\n")});
    p_cases.push_back({"TURBULENT", On, k_wall, fluid("Air", "TURBULENCE MODEL", "Option = LES\n")});

    addTurbulence(p_cases, "ZETM", "Zero Equation", "SST");
    addTurbulence(p_cases, "KEPS", "k epsilon", "k omega");
    addTurbulence(p_cases, "KEPS", "RNG k epsilon", "Reynolds Stress");
    addTurbulence(p_cases, "KOPS", "k omega", "k epsilon");
    addTurbulence(p_cases, "SST", "SST", "k omega");
    addTurbulence(p_cases, "RSM", "Reynolds Stress", "SST");
    addTurbulence(p_cases, "LES", "LES", "Detached Eddy");
    addTurbulence(p_cases, "DES", "Detached Eddy", "LES");
    addTurbulence(p_cases, "TRANSITIONAL", "k omega\nTransition = Gamma Theta",
                  "SST\nTransition = Fully Turbulent");
    addTurbulence(p_cases, "TRANSITIONAL", "Detached Eddy\nTransition = Specified Intermittency");
    addTurbulence(p_cases, "TRANSITIONAL", "SST\nTransition = Intermittency",
                  "LES\nTransition = Intermittency");
}

void addHeat(Cases& p_cases)
{
    const std::string on = "Option = Thermal Energy\n";
    const std::string off = "Option = None\n";
    addModel(p_cases, "THERMAL", "HEAT TRANSFER MODEL", on, off);
    addOtherFluid(p_cases, "THERMAL", "HEAT TRANSFER MODEL", on, off);
    addModel(p_cases, "THERMAL", "HEAT TRANSFER MODEL", "Option = Isothermal\n", off);
    p_cases.push_back(
        {"THERMAL", Off, k_wall, "[/FLOW:F/DOMAIN:D/SOLID MODELS/HEAT TRANSFER MODEL]\nOption = None\n"});
    p_cases.push_back(
        {"THERMAL", Off, k_wall, allFluids("HEAT TRANSFER MODEL", "Option = Fluid Dependent\n")});
    p_cases.push_back(
        {"THERMAL", Off, k_water, fluid("Water", "HEAT TRANSFER MODEL", "Option = Fluid Dependent\n")});
    p_cases.push_back({"THERMAL", Off, k_wall,
                       allFluids("HEAT TRANSFER MODEL", off) + fluid("Air", "HEAT TRANSFER MODEL", on)});
    p_cases.push_back({"THERMAL", On, k_wall,
                       "[/FLOW:F/DOMAIN:D/SOLID MODELS/HEAT TRANSFER MODEL]\nOption = Thermal Energy\n"});
    // Where it depends on the fluid, any fluid that is heated makes the domain so: what stands outside the fluids, or
    // between two of them, may refer to each by a prefix
    p_cases.push_back({"THERMAL", On, k_wall,
                       allFluids("HEAT TRANSFER MODEL", "Option = Fluid Dependent\n") +
                           fluid("Air", "HEAT TRANSFER MODEL", on)});
    p_cases.push_back({"THERMAL", Off, k_wall,
                       allFluids("HEAT TRANSFER MODEL", "Option = Fluid Dependent\n") +
                           fluid("Air", "HEAT TRANSFER MODEL", off)});

    // An efficiency needs heat transfer, and no boundary through which fluid enters
    const std::string wall = "[/FLOW:F/DOMAIN:D/BOUNDARY:In]\nBoundary Type = Wall\n";
    const std::string outflow = "[/FLOW:F/DOMAIN:D/BOUNDARY:Out]\nBoundary Type = Outflow\n";
    const std::string inflow = "[/FLOW:F/DOMAIN:D/BOUNDARY:In]\nBoundary Type = Inflow\n";
    const std::string opening = "[/FLOW:F/DOMAIN:D/BOUNDARY:In]\nBoundary Type = Opening\n";
    const std::string elsewhere = "[/FLOW:F/DOMAIN:E/BOUNDARY:In]\nBoundary Type = Inflow\n";
    p_cases.push_back({"EFFICIENCY", On, k_wall, allFluids("HEAT TRANSFER MODEL", on) + wall + outflow});
    p_cases.push_back({"EFFICIENCY", On, k_wall, allFluids("HEAT TRANSFER MODEL", on) + elsewhere});
    p_cases.push_back({"EFFICIENCY", On, k_water, fluid("Water", "HEAT TRANSFER MODEL", on)});
    p_cases.push_back({"EFFICIENCY", Off, k_wall, allFluids("HEAT TRANSFER MODEL", on) + inflow});
    p_cases.push_back({"EFFICIENCY", Off, k_wall, allFluids("HEAT TRANSFER MODEL", on) + opening});
    p_cases.push_back({"EFFICIENCY", Off, k_wall, allFluids("HEAT TRANSFER MODEL", off) + wall});
    p_cases.push_back({"EFFICIENCY", Elsewhere, k_wall, otherDomain("HEAT TRANSFER MODEL", on)});
    p_cases.push_back({"EFFICIENCY", Elsewhere, k_water, fluid("Air", "HEAT TRANSFER MODEL", on)});
}

void addRadiation(Cases& p_cases)
{
    const std::string off = "Option = None\n";
    addModel(p_cases, "RADIATION", "THERMAL RADIATION MODEL", "Option = P1\n", off);
    addModel(p_cases, "RADIATION", "THERMAL RADIATION MODEL", "Option = Rosseland\n", off);
    addOtherFluid(p_cases, "RADIATION", "THERMAL RADIATION MODEL", "Option = Discrete Transfer\n", off);
    addFluidDependent(p_cases, "RADIATION", "THERMAL RADIATION MODEL", "Option = P1\n", off);
    p_cases.push_back({"RADIATION", Off, k_wall, fluid("Air", "THERMAL RADIATION MODEL", off)});
    p_cases.push_back({"RADIATION", On, k_wall, fluid("Air", "THERMAL RADIATION MODEL", "Option = P1\n")});
    p_cases.push_back({"RADIATION", On, k_wall,
                       "[/FLOW:F/DOMAIN:D/SOLID MODELS/THERMAL RADIATION MODEL]\nOption = Monte Carlo\n"});

    const std::string solids = "[/FLOW:F/DOMAIN:D/SOLID MODELS/THERMAL RADIATION MODEL]\n";
    p_cases.push_back({"RADIATION", Off, k_wall, solids + off});
    p_cases.push_back({"RADIATION", Off, k_wall, solids + "Option = Fluid Dependent\n"});

    const std::string bands = "Option = Monte Carlo\nSpectral Model = Multiband\n";
    for (const char* without :
         {"Option = Monte Carlo\nSpectral Model = Gray\n", "Option = None\nSpectral Model = Multiband\n"})
    {
        addModel(p_cases, "MULTIBAND", "THERMAL RADIATION MODEL", bands, without);
        addOtherFluid(p_cases, "MULTIBAND", "THERMAL RADIATION MODEL", bands, without);
        addFluidDependent(p_cases, "MULTIBAND", "THERMAL RADIATION MODEL", bands, without);
    }
    p_cases.push_back({"MULTIBAND", On, k_wall, solids + bands});
    for (const char* without :
         {"Option = Monte Carlo\nSpectral Model = Gray\n", "Option = None\nSpectral Model = Multiband\n",
          "Option = Fluid Dependent\nSpectral Model = Multiband\n", "Spectral Model = Multiband\n"})
        p_cases.push_back({"MULTIBAND", Off, k_wall, solids + without});
}

void addCombustionModels(Cases& p_cases)
{
    addCombustion(p_cases, "COMBUSTION", "Eddy Dissipation", "None");
    addCombustion(p_cases, "COMBUSTION", "Laminar Flamelet", "None");
    addCombustion(p_cases, "EDM", "Eddy Dissipation", "Finite Rate");
    addCombustion(p_cases, "EDM", "Finite Rate and Eddy Dissipation", "None");
    addCombustion(p_cases, "FRC", "Finite Rate", "Eddy Dissipation");
    addCombustion(p_cases, "FRC", "Finite Rate and Eddy Dissipation", "None");
    addCombustion(p_cases, "PREMIXED", "Premixed", "Finite Rate");
    addCombustion(p_cases, "PREMIXED", "G Equation", "Laminar Flamelet");
    addCombustion(p_cases, "PREMIXED", "Burning Velocity", "Eddy Dissipation");
    addCombustion(p_cases, "PREMIXED", "Extended Coherent Flame", "None");
    addCombustion(p_cases, "BVM", "Burning Velocity", "Extended Coherent Flame");
    addCombustion(p_cases, "ECFM", "Extended Coherent Flame", "Burning Velocity");
    addCombustion(p_cases, "GEQN", "G Equation", "Premixed");
    addCombustion(p_cases, "AUTOIGN", "Premixed\nAutoignition Model = Knock",
                  "Premixed\nAutoignition Model = None");
    addCombustion(p_cases, "AUTOIGN", "Finite Rate\nAutoignition Model = Ignition Delay",
                  "None\nAutoignition Model = Ignition Delay");
    addCombustion(p_cases, "EGR", "Premixed\nResidual Material Model = Equilibrium",
                  "Premixed\nResidual Material Model = None");
    addCombustion(p_cases, "EGR", "Premixed\nResidual Material Model = Reinitialised",
                  "None\nResidual Material Model = Equilibrium");
    addFlame(p_cases, "SOOT", "SOOT MODEL", "Option = Magnussen\n", "Option = None\n");
    addFluidDependent(p_cases, "SOOT", "SOOT MODEL", "Option = Magnussen\n", "Option = None\n");
}

}    // namespace

std::vector<KeywordCase> fluidKeywordCases()
{
    Cases cases;
    addTurbulenceModels(cases);
    addHeat(cases);
    addRadiation(cases);
    addCombustionModels(cases);

    addComponents(cases, "MASFRC");
    addComponents(cases, "MULTICOMPONENT");
    addFlame(cases, "ASM", "COMPONENT:Salt", "Option = Algebraic Slip\n", "Option = Transport Equation\n");

    addAdditionalVariables(cases, "AV");
    addAdditionalVariables(cases, "AVORMASFRC");
    const std::string salt = "Option = Transport Equation\n";
    cases.push_back({"AVORMASFRC", On, k_wall, allFluids("COMPONENT:Salt", salt)});
    cases.push_back({"AVORMASFRC", On, k_water, fluid("Water", "COMPONENT:Salt", salt)});
    cases.push_back({"AVORMASFRC", Off, k_wall, fluid("Water", "COMPONENT:Salt", salt)});
    cases.push_back({"AVORMASFRC", Elsewhere, k_water, fluid("Air", "COMPONENT:Salt", salt)});
    return cases;
}

}    // namespace qen::standalone::test
