#pragma once

#include "StandaloneApi.h"
#include "VariablePrefixInfo.h"

#include <memory>
#include <string>

namespace qen::standalone {

class ModelTree;
class ReadGraph;

/// Says what the prefixes of a variable name in the domain in which the variable is used.
///
/// A first prefix names a fluid, a solid or a pair of fluids, or else what is in one of the fluids or solids, which is
/// also what a second prefix names: a component or reaction of its material, or a size group. A fluid of the morphology
/// "Particle Transport" is a particle, one of "Polydispersed Fluid" a MUSIG fluid.
///
/// Follows the changes of its model. One thread at a time.
class QEN_STANDALONE_API PrefixClassifier final : public VariablePrefixInfo {
public:
    /// @param p_model  Must outlive this object.
    /// @param p_reads  Is told from which domains and materials something is worked out; null for nobody.
    explicit PrefixClassifier(const ModelTree& p_model, ReadGraph* p_reads = nullptr);
    ~PrefixClassifier();

    PrefixClassifier(const PrefixClassifier&) = delete;
    PrefixClassifier& operator=(const PrefixClassifier&) = delete;

    /// Without a prefix that names a phase, `prefix1` is GLOBAL_OR_PHASE where only one phase can be meant: within an
    /// object of type "FLUID", and in a domain with just one fluid or solid, particles that are tracked apart.
    Classification classifyPrefixes(const QCLPath& p_contextPath, const std::string& p_prefix1,
                                    const std::string& p_prefix2, std::string& p_errorText) const override;

private:
    struct Known;

    Known& known() const;

    const ModelTree& m_model;
    ReadGraph* m_reads;
    mutable std::unique_ptr<Known> m_known;    // of the model as it was when last asked about
};

}    // namespace qen::standalone
