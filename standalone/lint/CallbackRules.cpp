#include "lint/LintRules.h"

#include "lint/LintInput.h"
#include "lint/LintReport.h"
#include "qcl/PlainText.h"
#include "text/Blanks.h"

#include <algorithm>
#include <fmt/format.h>
#include <sstream>

// The store of callback functions takes what it knows from a definition and passes over the rest without a word.

namespace qen::standalone {
namespace {

const std::vector<std::string> k_operatorAvailabilities {"GENERAL", "CALLBACK", "EXPRESSION VALUE"};
const std::vector<std::string> k_locatorDimensions {"Point", "Surface", "Volume"};
const std::vector<std::string> k_callbackTypes {"Field", "Scalar"};
const std::vector<std::string> k_tensorTypes {"SCALAR", "VECTOR"};

bool isOneOf(const std::vector<std::string>& p_known, std::string_view p_word)
{
    return std::ranges::find(p_known, p_word) != p_known.end();
}

/// Reports a text that is none of the known ones. One that is absent is refused when it is loaded.
void findUnknownText(const LintInput& p_input, const char* p_key, const std::vector<std::string>& p_known,
                     std::string_view p_meaning, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
    {
        const LintText text = valueOf(callback.section, p_key);
        if (callback.section.object->find(p_key) && !isOneOf(p_known, text.text))
            p_report.at(callback.section, p_key,
                        fmt::format("The '{}' {} of callback function {} counts as '{}'.{}", p_key,
                                    inQuotes(text.text), inQuotes(callback.name), p_meaning,
                                    hint(text.text, p_known)));
    }
}

}    // namespace

void findUnknownOperatorAvailabilities(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& oper : p_input.operators())
        for (const LintText& word : listOf(oper.section, "QEL Availability"))
            if (!word.text.empty() && !isOneOf(k_operatorAvailabilities, word.text))
                p_report.at(word, fmt::format("No check asks for the availability {} of operator {}.{}",
                                              inQuotes(word.text), inQuotes(oper.name),
                                              hint(word.text, k_operatorAvailabilities)));
}

void findUnknownLocatorDimensions(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
        for (const LintText& word : listOf(callback.section, "Locator Dimension"))
            if (!word.text.empty() && !isOneOf(k_locatorDimensions, word.text))
                p_report.at(word,
                            fmt::format("The locator dimension {} of callback function {} is passed over.{}",
                                        inQuotes(word.text), inQuotes(callback.name),
                                        hint(word.text, k_locatorDimensions)));
}

void findMissingLocatorDimensions(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
        if (callback.section.object->find("Locator Dimension") &&
            listOf(callback.section, "Locator Dimension").empty())
            p_report.at(callback.section, "Locator Dimension",
                        fmt::format("The callback function {} takes no locator at all.{}",
                                    inQuotes(callback.name), hint({}, k_locatorDimensions)));
}

void findCallbackTypes(const LintInput& p_input, LintReport& p_report)
{
    findUnknownText(p_input, "CallBack Type", k_callbackTypes, "Scalar", p_report);
}

void findCallbackTensorTypes(const LintInput& p_input, LintReport& p_report)
{
    findUnknownText(p_input, "Tensor Type", k_tensorTypes, "SCALAR", p_report);
}

void findArgumentCounts(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
    {
        const LintText text = valueOf(callback.section, "Number of Arguments");
        std::istringstream stream {std::string(text.text)};
        int count = 0;
        if (!(stream >> count))
            continue;    // refused when it is loaded
        if (count < 0)
            p_report.at(text, fmt::format("The callback function {} has {} arguments. Expected 0 or more.",
                                          inQuotes(callback.name), count));
        else if (stream.peek() != std::istringstream::traits_type::eof())
            p_report.at(text,
                        fmt::format("The 'Number of Arguments' {} of callback function {} counts as {}. "
                                    "Expected a number alone.",
                                    inQuotes(text.text), inQuotes(callback.name), count));
    }
}

void findTextsBesideResultUnits(const LintInput& p_input, LintReport& p_report)
{
    for (const LintDefinition& callback : p_input.callbacks())
    {
        const LintText text = valueOf(callback.section, "Result Units");
        const std::size_t open = text.text.find('[');
        const std::size_t close = text.text.find(']');
        if (open == std::string_view::npos || close == std::string_view::npos || close < open)
            continue;    // refused when it is loaded
        if (open > 0 || close + 1 < text.text.size())
            p_report.at(text, fmt::format("Of the 'Result Units' {} of callback function {} only {} counts. "
                                          "Expected units in one pair of brackets.",
                                          inQuotes(text.text), inQuotes(callback.name),
                                          inQuotes(text.text.substr(open, close - open + 1))));
    }
}

}    // namespace qen::standalone
