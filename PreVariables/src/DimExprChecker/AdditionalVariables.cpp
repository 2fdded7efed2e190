#include "DimExprChecker.h"

#include "Gathered.h"
#include "MessageCatalogue.h"
#include "ModelPaths.h"
#include "SplitVariableName.h"
#include "VariablePrefixInfo.h"
#include "VariableRoots.h"

#include "ModelQCL.h"
#include "QCLPath.h"

#include <algorithm>
#include <string>
#include <vector>

namespace qen {

using messages::Msg;
using messages::raise;

namespace {

constexpr const char* k_porous = "Porous";

}    // namespace

std::vector<std::string> DimExprChecker::findDomainAVPath(const std::string& p_domainPath,
                                                          const std::string& p_avName)
{
    const ModelPaths paths(m_gathered->pathText);
    const std::string domainType = m_model->paramValue(p_domainPath, modelpaths::k_domainType);
    const bool isPorous = domainType == k_porous;
    const std::string& models =
        isPorous || domainType == "Solid" ? modelpaths::k_solidModels : modelpaths::k_fluidModels;

    std::vector<std::string> found;
    const auto addIfDefined = [&](const std::string& p_models) {
        const std::string& path = paths.domainAV(p_domainPath, p_models, p_avName);
        if (m_model->objectExists(path))
            found.push_back(path);
    };
    addIfDefined(models);
    if (isPorous)
        addIfDefined(modelpaths::k_fluidModels);
    return found;
}

void DimExprChecker::checkAVPrefix(const std::string& p_objectPath, const std::string& p_paramName,
                                   const QCLPath& p_contextPath, const SplitVariableName& p_name,
                                   const VariablePrefixInfo::Classification& p_classification)
{
    const std::string& fullName = p_name.fullName();
    const std::string& prefix = p_name.prefix1();
    if (p_classification.prefix1 > VariablePrefixInfo::PHASE)
        raise<Msg::AVInvalidPrefix>(fullName, p_paramName, p_objectPath, prefix);

    const QCLPath domain = p_contextPath.getSubPathByType(modelpaths::k_domain);
    const std::string domainName = domain.getLastName();
    const std::string& domainPath = domain.getFullPath();
    const ModelPaths paths(m_gathered->pathText);
    const std::string avName(additionalVariableName(*m_model, p_name.root().name(), paths));
    const std::vector<std::string> definitions = findDomainAVPath(domainPath, avName);
    if (definitions.empty())
        raise<Msg::AVNotInDomain>(fullName, p_paramName, p_objectPath, domainName);

    const auto isDefinedIn = [&](const std::string& p_models) {
        return m_model->objectExists(paths.domainAV(domainPath, p_models, avName));
    };
    const auto isDefinedForFluid = [&](const std::string& p_fluid) {
        return m_model->objectExists(paths.fluidAV(domainPath, p_fluid, avName));
    };

    // Deliberate: every definition is judged, so that a porous domain whose solids and fluids define the variable
    // refuses a solid prefix when the definition of the fluids, which comes second, is fluid-dependent.
    // Held by AVPrefix.SolidPrefixIsRefusedWhereTheFluidsDefineItFluidDependently.
    for (const std::string& definition : definitions)
    {
        const bool fluidDependent =
            m_model->paramValue(definition, modelpaths::k_option) == "Fluid Dependent";
        const bool porous = m_model->paramValue(domainPath, modelpaths::k_domainType) == k_porous;
        // Deliberate: the fluids are asked for as well, though none of the rules below looks at them.
        // Held by AVPrefixQuestions.InAFluidDomainAreThese.
        m_model->childNames(domainPath, modelpaths::k_fluidDefinition);
        const std::vector<std::string> solids =
            m_model->childNames(domainPath, modelpaths::k_solidDefinition);

        if (prefix.empty())
        {
            if (fluidDependent)
            {
                const std::string fluid = modelpaths::levelName(p_objectPath, modelpaths::k_fluid);
                if (fluid.empty() || !isDefinedForFluid(fluid))
                    raise<Msg::AVNeedsFluidPrefix>(fullName, p_paramName, p_objectPath);
            }
            else if (porous && isDefinedIn(modelpaths::k_solidModels) &&
                     !isDefinedIn(modelpaths::k_fluidModels))
                raise<Msg::AVNeedsSolidPrefix>(fullName, p_paramName, p_objectPath);
        }
        else if (fluidDependent)
        {
            if (!isDefinedForFluid(prefix))
                raise<Msg::AVNotInDomain>(fullName, p_paramName, p_objectPath, domainName);
        }
        else if (porous)
        {
            // Deliberate: a prefix that names no solid passes. Held by AVPrefix.ThatNamesNoSolidPassesInAPorousDomain.
            if (std::find(solids.begin(), solids.end(), prefix) != solids.end() &&
                !isDefinedIn(modelpaths::k_solidModels))
                raise<Msg::AVNotInDomain>(fullName, p_paramName, p_objectPath, domainName);
        }
        // Deliberate: both must exist, so a prefix here is in practice always refused. Not "either".
        // Held by AVPrefix.RefusedUnlessFluidAndSolidBothExist.
        else if (!m_model->objectExists(paths.fluidModels(domainPath, prefix)) ||
                 !m_model->objectExists(paths.solidDefinition(domainPath, prefix)))
            raise<Msg::AVInvalidPrefix>(fullName, p_paramName, p_objectPath, prefix);
    }
}

}    // namespace qen
