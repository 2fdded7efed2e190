/// @file
/// What it costs to analyse an expression, in multiples of what muParser needs to parse and evaluate the same formula
/// once. Prints one line per formula and the mean of the ratios. Ends with status 1 only when a formula is refused.

#include "Formulas.h"
#include "Measure.h"
#include "MuParserReference.h"

#include "PreVariableDefStore.h"

#include "expressions/QelExpression.h"
#include "model/ModelTree.h"
#include "qcl/QclReader.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace {

using namespace qen::benchmarks;
using namespace qen::standalone;

class Catalogue {
public:
    Catalogue()
    {
        Diagnostics problems;
        units.addDefinitions(readQclFile(QEN_DEFINITIONS_DIR "/UNITS.qcl"), problems);
        for (const QclObject& object : readQclFile(QEN_DEFINITIONS_DIR "/VARIABLES.qcl").objects)
        {
            constexpr std::string_view k_type = "/VARIABLE:";
            if (!object.path.starts_with(k_type))
                continue;
            std::map<std::string, std::string> parameters;
            for (const QclParameter& parameter : object.parameters)
                parameters.emplace(parameter.name(), parameter.value());
            variables.addVariableDefinition(object.path.substr(k_type.size()), parameters);
        }
        world.units = &units;
        world.variables = &variables;
        world.model = &model;
    }

    UnitSystem units;
    qen::PreVariableDefStore variables;
    ModelTree model;
    World world;
};

}    // namespace

int main()
{
    const Catalogue catalogue;
    MuParserReference reference;
    double checksum = 0.0;
    const auto analyse = [&](const std::string& p_text) {
        const QelResult result = analyseExpression(p_text, catalogue.world);
        checksum += static_cast<double>(result.variables.size() + (result.constantValue ? 1U : 0U));
    };
    const auto evaluate = [&](const std::string& p_text) {
        checksum += std::isfinite(reference(p_text)) ? 1.0 : 0.0;
    };

    for (const Formula& formula : k_formulas)
    {
        const QelResult result = analyseExpression(formula.expression, catalogue.world);
        if (!result.error)
            continue;
        std::fprintf(stderr, "%s\n    %s\n", formula.expression, result.error->message.c_str());
        return EXIT_FAILURE;
    }

    double sumOfRatios = 0.0;
    std::printf("%10s %10s %7s\n", "qel [ns]", "mu [ns]", "ratio");
    for (const Formula& formula : k_formulas)
    {
        const FormulaTimer::Times times = FormulaTimer::measure(formula, analyse, evaluate);
        sumOfRatios += times.ratio();
        std::printf("%10.0f %10.0f %7.3f  %s\n", times.ours, times.theirs, times.ratio(), formula.expression);
    }
    std::printf("mean ratio %.3f (checksum %.0f)\n", sumOfRatios / static_cast<double>(k_formulas.size()),
                checksum);
    return EXIT_SUCCESS;
}
