/// @file
/// A host as small as it can be: what the library imports, for a world in which there are metres, seconds, numbers and
/// no expressions. Everything that `host/` declares without a definition is defined here, whatever of it is used.

#include "BoolFromEnvironment.h"
#include "CallbackInfo.h"
#include "ErrorReporter.h"
#include "ExpressionEvaluator.h"
#include "ExpressionsError.h"
#include "QCLParam.h"
#include "QCLPath.h"
#include "QELName.h"
#include "QENAssertImpl.h"
#include "Quantity.h"
#include "StringUtilities.h"
#include "UnitDimensions.h"
#include "UnitsConverter.h"
#include "UnitsError.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace qen {

namespace {

constexpr std::size_t k_length = 1;
constexpr std::size_t k_time = 2;

/// Splits at a separator; an empty text has no pieces.
std::vector<std::string> split(const std::string& p_text, char p_separator)
{
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start < p_text.size();)
    {
        const std::size_t end = std::min(p_text.find(p_separator, start), p_text.size());
        pieces.push_back(p_text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

/// The type and name of each level of a path such as "/FLOW:F/DOMAIN:Duct".
std::vector<std::pair<std::string, std::string>> levelsOf(const std::string& p_path)
{
    std::vector<std::pair<std::string, std::string>> levels;
    for (const std::string& level : split(p_path.empty() ? "" : p_path.substr(1), '/'))
    {
        const std::size_t colon = std::min(level.find(':'), level.size());
        levels.emplace_back(level.substr(0, colon), level.substr(std::min(colon + 1, level.size())));
    }
    return levels;
}

std::string joined(const std::vector<std::string>& p_texts, char p_separator)
{
    std::string text;
    for (const std::string& item : p_texts)
        text += (text.empty() ? "" : std::string(1, p_separator)) + item;
    return text;
}

[[noreturn]] void noExpressions(const char* p_method)
{
    throw expressions::error("ExpressionEvaluator", p_method, "This host knows no expressions.",
                             ErrorTypeError);
}

}    // namespace

bool BoolFromEnvironment::checkEnv() const
{
    const char* text = std::getenv(m_variable);
    m_state = text && StringUtilities::stringToBool(text) ? State::On : State::Off;
    return m_state == State::On;
}

ErrorReporter& ErrorReporter::instance()
{
    static ErrorReporter reporter;
    return reporter;
}

void ErrorReporter::report(const ErrorMsg& p_message) { std::cerr << p_message.getMessage() << '\n'; }

void QENAssertImpl::assertFail(const char* p_message, const char* p_file, int p_line)
{
    std::cerr << p_file << ':' << p_line << ": " << p_message << '\n';
}

void ExpressionEvaluator::getVariablesAndCallbacks(const std::string& /*p_expression*/,
                                                   std::vector<std::string>& /*p_variables*/,
                                                   std::vector<CallbackInfo>& /*p_callbacks*/,
                                                   UnitDimensions& /*p_dims*/,
                                                   const std::string& /*p_paramName*/)
{
    noExpressions("getVariablesAndCallbacks");
}

Quantity ExpressionEvaluator::evalSingleValue(const std::string& /*p_expression*/,
                                              const std::string& /*p_paramName*/)
{
    noExpressions("evalSingleValue");
}

std::string ExpressionEvaluator::rootVariableName(const std::string& p_name) { return p_name; }

bool QCLParam::isNumericType(ParamType p_type) { return static_cast<int>(p_type) == 1; }

QCLPath::QCLPath(const std::string& p_text) : m_text(p_text), m_levels(levelsOf(p_text).size()) {}

std::string QCLPath::getType(std::size_t p_level) const
{
    return p_level < m_levels ? levelsOf(m_text)[p_level].first : "";
}

std::string QCLPath::getName(std::size_t p_level) const
{
    return p_level < m_levels ? levelsOf(m_text)[p_level].second : "";
}

std::string QCLPath::getLastType() const { return empty() ? "" : getType(m_levels - 1); }

std::string QCLPath::getLastName() const { return empty() ? "" : getName(m_levels - 1); }

QCLPath QCLPath::getSubPathByType(const std::string& p_type) const
{
    QCLPath path;
    for (const auto& [type, name] : levelsOf(m_text))
    {
        path.push_back(type, name);
        if (type == p_type)
            return path;
    }
    return {};
}

void QCLPath::push_back(const std::string& p_type, const std::string& p_name)
{
    m_text += '/' + p_type + (p_name.empty() ? "" : ':' + p_name);
    ++m_levels;
}

bool QCLPath::isParent(const QCLPath& p_other) const
{
    return m_levels < p_other.m_levels && p_other.m_text.compare(0, m_text.size() + 1, m_text + '/') == 0;
}

bool QELName::splitVariableName(const std::string& p_text, std::vector<Component>& p_components)
{
    p_components.clear();
    for (const std::string& name : split(p_text, '.'))
        p_components.emplace_back(name, "", "");
    return !p_components.empty();
}

bool QELName::splitCallbackName(const std::string& p_name, std::string& p_text, Component& p_component)
{
    p_text = p_name;
    p_component = Component(p_name, "", "");
    return true;
}

float StringUtilities::valueAsFloat(const std::string& p_text, bool& p_isNumber, std::string& p_number,
                                    std::string& p_units)
{
    const std::size_t bracket = std::min(p_text.find(" ["), p_text.size());
    p_number = p_text.substr(0, bracket);
    p_units = bracket < p_text.size() ? p_text.substr(bracket + 2, p_text.size() - bracket - 3) : "";

    char* end = nullptr;
    const float value = std::strtof(p_number.c_str(), &end);
    p_isNumber = !p_number.empty() && *end == '\0' && (bracket == p_text.size() || p_text.back() == ']');
    return p_isNumber ? value : 0.0F;
}

std::vector<std::string> StringUtilities::splitValue(const std::string& p_text, char p_separator)
{
    return split(p_text, p_separator);
}

std::vector<std::string> StringUtilities::stringToVector(const std::string& p_text, char p_separator)
{
    return split(p_text, p_separator);
}

std::set<std::string> StringUtilities::stringToSet(const std::string& p_text, char p_separator)
{
    const std::vector<std::string> items = split(p_text, p_separator);
    return {items.begin(), items.end()};
}

std::string StringUtilities::setToString(const std::set<std::string>& p_texts, char p_separator)
{
    return joined({p_texts.begin(), p_texts.end()}, p_separator);
}

std::string StringUtilities::vectorToString(const std::vector<std::string>& p_texts, char p_separator)
{
    return joined(p_texts, p_separator);
}

std::string StringUtilities::toString(double p_value, const std::string& p_format)
{
    char text[64];
    std::snprintf(text, sizeof text, p_format.c_str(), p_value);
    return text;
}

std::string StringUtilities::toLowerCase(const std::string& p_text)
{
    std::string text = p_text;
    for (char& character : text)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return text;
}

std::string StringUtilities::removeWhitespace(const std::string& p_text)
{
    std::string text;
    std::copy_if(p_text.begin(), p_text.end(), std::back_inserter(text),
                 [](unsigned char p_character) { return std::isspace(p_character) == 0; });
    return text;
}

bool StringUtilities::stringToBool(const std::string& p_text)
{
    for (const char* yes : {"T", "True", "TRUE", "true", "Yes", "YES", "yes", "On", "ON", "on", "1"})
        if (p_text == yes)
            return true;
    return false;
}

UnitsConverter& UnitsConverter::instance()
{
    static UnitsConverter converter;
    return converter;
}

bool UnitsConverter::convertUnits(const std::string& p_from, const std::string& p_to, float p_value,
                                  float& p_result, bool /*p_flag*/) const
{
    if (p_from != p_to)
        return false;
    p_result = p_value;
    return true;
}

UnitDimensions UnitsConverter::dimsFromUnits(const std::string& p_units) const
{
    UnitDimensions dims;
    if (p_units == "m")
        dims[k_length] = 1.0F;
    else if (p_units == "s")
        dims[k_time] = 1.0F;
    else if (!p_units.empty())
        throw units::error("UnitsConverter", "dimsFromUnits", "Unknown units: " + p_units, ErrorTypeError);
    return dims;
}

std::string UnitsConverter::getBaseUnitName(const UnitDimensions& p_dims) const
{
    return p_dims[k_length] != 0.0F ? "m" : p_dims[k_time] != 0.0F ? "s" : "";
}

std::string UnitsConverter::getBaseUnitsFromQuant(const std::string& p_quantity) const
{
    if (p_quantity == "Length")
        return "m";
    if (p_quantity == "Time")
        return "s";
    throw units::error("UnitsConverter", "getBaseUnitsFromQuant", "Unknown quantity: " + p_quantity,
                       ErrorTypeError);
}

}    // namespace qen
