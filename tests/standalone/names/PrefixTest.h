#pragma once

#include "QCLPath.h"

#include "model/ModelTree.h"
#include "names/PrefixClassifier.h"
#include "qcl/QclReader.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace qen {

inline void PrintTo(const VariablePrefixInfo::Classification& p_classification, std::ostream* p_stream)
{
    *p_stream << p_classification.prefix1 << " '" << p_classification.prefix1Name << "', "
              << p_classification.prefix2 << " '" << p_classification.prefix2Name << '\'';
}

namespace standalone::test {

inline ModelTree modelOf(const std::string& p_text)
{
    const QclDocument document = readQclText("case.qcl", p_text);
    for (const Diagnostic& problem : document.problems)
        ADD_FAILURE() << problem.place.line << ": " << problem.message;
    return ModelTree(document);
}

/// A tank in which nearly everything happens, and simpler domains.
inline constexpr const char* k_case = R"(
[/FLOW:F/DOMAIN:Tank]
Domain Type = Fluid
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Water]
Material = Brine
Morphology = Continuous Fluid
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Gas]
Material = Fuel and Air
Morphology = Dispersed Fluid
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Bubbles]
Material = Air
Morphology = Polydispersed Fluid
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Bubbles/SIZE GROUP:Small]
Diameter = 1 [mm]
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Bubbles/SIZE GROUP:Large]
Diameter = 5 [mm]
[/FLOW:F/DOMAIN:Tank/FLUID DEFINITION:Grit]
Material = Coal
Morphology = Particle Transport
[/FLOW:F/DOMAIN:Tank/FLUID PAIR:Water Gas]
[/FLOW:F/DOMAIN:Tank/BOUNDARY:Wall/FLUID:Gas/WALL]

[/FLOW:F/DOMAIN:Duct]
Domain Type = Fluid
[/FLOW:F/DOMAIN:Duct/FLUID DEFINITION:Water]
Material = Brine
[/FLOW:F/DOMAIN:Duct/BOUNDARY:Inlet/INFLOW]

[/FLOW:F/DOMAIN:Block]
Domain Type = Solid
[/FLOW:F/DOMAIN:Block/SOLID DEFINITION:Steel]
Material = Steel

[/FLOW:F/DOMAIN:Bed]
Domain Type = Porous
[/FLOW:F/DOMAIN:Bed/FLUID DEFINITION:Water]
Material = Brine
[/FLOW:F/DOMAIN:Bed/SOLID DEFINITION:Steel]
Material = Steel

[/FLOW:F/DOMAIN:Burner]
Domain Type = Fluid
[/FLOW:F/DOMAIN:Burner/FLUID DEFINITION:Gas]
Material = Fuel and Air
Morphology = Continuous Fluid
[/FLOW:F/DOMAIN:Burner/FLUID DEFINITION:Grit]
Material = Coal
Morphology = Particle Transport

[/FLOW:F/DOMAIN:Void]
Domain Type = Fluid

[/LIBRARY/MATERIAL:Brine]
Option = Variable Composition Mixture
Components = Salt, H2O
[/LIBRARY/MATERIAL:Fuel and Air]
Option = Reacting Mixture
Components = CH4, O2, N2
Reactions = Methane Burning, Ignition Steps, Flame Sheet, Soot Burnout
[/LIBRARY/MATERIAL:Coal]
Option = Fixed Composition Mixture
[/LIBRARY/MATERIAL:Coal/COMPONENT:Ash]
Mass Fraction = 0.1
[/LIBRARY/MATERIAL:Coal/COMPONENT:Char]
Mass Fraction = 0.9
[/LIBRARY/MATERIAL:Air]
Option = Pure Substance
[/LIBRARY/MATERIAL:Steel]
Option = Pure Substance

[/LIBRARY/REACTION:Methane Burning]
Option = Single Step
[/LIBRARY/REACTION:Ignition Steps]
Option = Multiple Step
Reactions = First Step, Second Step, Ignition Steps
[/LIBRARY/REACTION:First Step]
Option = Single Step
[/LIBRARY/REACTION:Flame Sheet]
Option = Flamelet
[/LIBRARY/REACTION:Nobodys Reaction]
Option = Single Step
)";

class PrefixTest : public testing::Test {
protected:
    VariablePrefixInfo::Classification classify(const std::string& p_contextPath,
                                                const std::string& p_prefix1 = "",
                                                const std::string& p_prefix2 = "")
    {
        m_errorText = "left over";
        return m_classifier.classifyPrefixes(QCLPath(p_contextPath), p_prefix1, p_prefix2, m_errorText);
    }

    /// Why the prefixes cannot be classified.
    std::string errorFor(const std::string& p_contextPath, const std::string& p_prefix1,
                         const std::string& p_prefix2 = "")
    {
        EXPECT_TRUE(classify(p_contextPath, p_prefix1, p_prefix2) == VariablePrefixInfo::Classification());
        return m_errorText;
    }

    ModelTree m_model = modelOf(k_case);
    PrefixClassifier m_classifier {m_model};
    std::string m_errorText;
};

}    // namespace standalone::test
}    // namespace qen
