/// @file
/// Feeds the expression language. A small world stays the same: variables, additional variables, named expressions,
/// monitor points, among them a cycle of each. Expressions must never crash it, and what is found lies within the text.

#include "PreVariableDefStore.h"
#include "QELName.h"

#include "expressions/QelExpression.h"
#include "model/ModelTree.h"
#include "qcl/QclReader.h"
#include "units/UnitSystem.h"
#include "world/World.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace qen::standalone;

constexpr const char* k_units = R"([/BASE UNIT:kg]
Dimension = Mass
[/BASE UNIT:m]
Dimension = Length
[/BASE UNIT:s]
Dimension = Time
[/BASE UNIT:K]
Dimension = Temperature
[/BASE UNIT:rad]
Dimension = Angle
[/UNIT:C]
Definition = K
Offset = 273.15
[/QUANTITY:Length]
Units = m
[/QUANTITY:Time]
Units = s
)";

constexpr const char* k_model = R"([/LIBRARY/QEL/EXPRESSIONS]
A = 2 * r + B
B = if(t > 1 [s], 1 [m], r)
Loop = Pool
Pool = Loop
Bad = 1 +
M = mean@P(Expression Value)
[/LIBRARY/ADDITIONAL VARIABLE:D]
Units = kg m^-3
[/LIBRARY/ADDITIONAL VARIABLE:V]
Units = m
Tensor Type = VECTOR
[/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P]
Expression Value = r + A
[/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Q]
Expression Value = probe@Q(Expression Value)
[/FLOW:G/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P]
Expression Value = t
)";

struct SmallWorld {
    SmallWorld() : model(readQclText("model.qcl", k_model))
    {
        Diagnostics problems;
        units.addDefinitions(readQclText("units.qcl", k_units), problems);
        variables.addVariableDefinition("r", {{"Quantity", "Length"}, {"Tensor Type", "SCALAR"}});
        variables.addVariableDefinition("t", {{"Quantity", "Time"}, {"Tensor Type", "SCALAR"}});
        variables.addVariableDefinition("Dye Mass", {{"Quantity", "None"}, {"Tensor Type", "SCALAR"}});
        world.units = &units;
        world.variables = &variables;
        world.model = &model;
    }

    UnitSystem units;
    qen::PreVariableDefStore variables;
    ModelTree model;
    World world;
};

void require(bool p_holds)
{
    if (!p_holds)
        std::abort();
}

bool lieWithin(const TextRange& p_range, std::string_view p_text)
{
    return p_range.offset <= p_text.size() && p_range.length <= p_text.size() - p_range.offset;
}

}    // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* p_data, std::size_t p_size)
{
    static const SmallWorld s_small;
    // A copy of its own, so that reading beyond its end is found.
    const std::vector<char> copy(p_data, p_data + p_size);
    const std::string_view text(copy.data(), copy.size());

    const QelResult result = analyseExpression(text, s_small.world, true);
    if (result.error)
    {
        require(!result.error->message.empty());
        require(result.error->message.size() < 2000);
        require(lieWithin(result.error->range, text));
    }
    for (const QelReference& reference : result.references)
        require(lieWithin(reference.range, text));

    // What is collected as a variable is in the syntax of names.
    std::vector<qen::QELName::Component> components;
    for (const std::string& variable : result.variables)
        require(qen::QELName::splitVariableName(variable, components) && !components.empty());
    return 0;
}
