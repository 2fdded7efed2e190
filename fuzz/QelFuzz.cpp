/// @file
/// Feeds the expression language. A small world stays the same: variables, operators, callback functions, additional
/// variables, named expressions, monitor points, among them a cycle of each. Expressions must never crash it, and what
/// is found lies within the text.

#include "QelWorld.h"

#include "QELName.h"

#include "expressions/QelExpression.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace qen::standalone;

constexpr const char* k_pointP = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P";
constexpr const char* k_pointQ = "/FLOW:F/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:Q";
constexpr const char* k_pointPOfG = "/FLOW:G/OUTPUT CONTROL/MONITOR OBJECTS/MONITOR POINT:P";

/// The world of the expression language's tests, with names short enough to be found by chance.
struct SmallWorld : test::QelWorld {
    SmallWorld()
    {
        namedExpression("A", "2 * r + B");
        namedExpression("B", "if(t > 1 [s], 1 [m], r)");
        namedExpression("Loop", "Pool");
        namedExpression("Pool", "Loop");
        namedExpression("Bad", "1 +");
        namedExpression("M", "average@P(Expression Value.Rate)");
        additionalVariable("D", "kg m^-3");
        additionalVariable("V", "m", "VECTOR");
        model.setParameter(k_pointP, "Expression Value", "r + A");
        model.setParameter(k_pointQ, "Expression Value", "probe@Q(Expression Value)");
        model.setParameter(k_pointPOfG, "Expression Value", "t");
    }
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
