#include "PreVariableDefStore.h"

#include "DefinitionErrors.h"
#include "DefinitionTexts.h"
#include "VariableFields.h"

#include "StringUtilities.h"
#include "UnitDimensions.h"
#include "UnitsConverter.h"

namespace qen {

namespace {

using Store = PreVariableDefStore;
using Parameters = std::map<std::string, std::string>;

constexpr const char* k_function = "addVariableOperatorDefinition";

// These keys are the same as in the definitions of variables.
constexpr const char* k_longName = k_fields[Store::LONG_NAME].key;
constexpr const char* k_tensorType = k_fields[Store::TENSOR_TYPE].key;
constexpr const char* k_componentShortNames = k_fields[Store::COMPONENT_SHORT_NAMES].key;
constexpr const char* k_componentLongNames = k_fields[Store::COMPONENT_LONG_NAMES].key;
constexpr const char* k_dimensionsModifier = "Dimensions Modifier";
constexpr const char* k_qelAvailability = "QEL Availability";

constexpr std::size_t k_vectorComponents = 3;

/// Null for a key that the definition does not have; the empty text is a value.
const std::string* find(const char* p_key, const Parameters& p_parameters)
{
    const auto found = p_parameters.find(p_key);
    return found == p_parameters.end() ? nullptr : &found->second;
}

const std::string& required(const char* p_key, const std::string& p_name, const Parameters& p_parameters)
{
    const std::string* text = find(p_key, p_parameters);

    // Deliberate: no full stop at the end, here and below for a list of the wrong length.
    // Held by OperatorDefinitionWithout.ARequiredKeyIsRefused and OperatorDefinition.RefusesAListThatIsNotOfThree.
    if (!text)
        raiseData<data::error>(k_function,
                               UserMsg("The Variable Operator named '%1' does not have a '%2' parameter")
                                   .arg(p_name)
                                   .arg(p_key));
    return *text;
}

// Deliberate: a symmetric tensor is refused, although variables may be one.
// Held by OperatorDefinition.RefusesEveryOtherTensorType.
Store::TensType readTensorType(const std::string& p_name, const Parameters& p_parameters)
{
    const std::string& text = required(k_tensorType, p_name, p_parameters);
    if (text == k_scalar)
        return Store::SCALAR;
    if (text == k_vector)
        return Store::VECTOR;
    raiseData<data::error>(k_function,
                           UserMsg("The Variable Operator named '%1' has a '%2' of unsupported type '%3'.")
                               .arg(p_name)
                               .arg(k_tensorType)
                               .arg(text));
}

/// Units that stand in brackets stay as they are written, once the host has understood them.
std::string readDimensionModifier(const Parameters& p_parameters)
{
    const std::string* text = find(k_dimensionsModifier, p_parameters);
    if (!text)
        return "[ ]";

    const UnitsConverter& units = UnitsConverter::instance();
    if (text->size() >= 2 && text->front() == '[' && text->back() == ']')
    {
        units.dimsFromUnits(text->substr(1, text->size() - 2));
        return *text;
    }
    return "[" + units.getBaseUnitsFromQuant(*text) + "]";
}

std::set<std::string> readAvailability(const Parameters& p_parameters)
{
    const std::string* text = find(k_qelAvailability, p_parameters);
    return text ? StringUtilities::stringToSet(*text, ',') : std::set<std::string> {k_general};
}

std::vector<std::string> readComponentNames(const char* p_key, const std::string& p_name,
                                            const Parameters& p_parameters)
{
    std::vector<std::string> names =
        StringUtilities::stringToVector(required(p_key, p_name, p_parameters), ',');
    if (names.size() != k_vectorComponents)
        raiseData<data::error>(
            k_function,
            UserMsg("The Variable Operator named '%1' has an invalid '%2' parameter").arg(p_name).arg(p_key));
    return names;
}

}    // namespace

void PreVariableDefStore::addVariableOperatorDefinition(const std::string& p_name,
                                                        const Parameters& p_parameters)
{
    // All is read before anything is added; the order is that in which faults are reported.
    const TensType tensorType = readTensorType(p_name, p_parameters);
    const std::string modifier = readDimensionModifier(p_parameters);
    const std::set<std::string> availability = readAvailability(p_parameters);
    const std::string& longName = required(k_longName, p_name, p_parameters);
    std::vector<std::string> componentShortNames;
    std::vector<std::string> componentLongNames;
    if (tensorType == VECTOR)
    {
        componentShortNames = readComponentNames(k_componentShortNames, p_name, p_parameters);
        componentLongNames = readComponentNames(k_componentLongNames, p_name, p_parameters);
    }

    const auto addBothNames = [&](const std::string& p_short, const std::string& p_long, TensType p_type) {
        addVariableOperator(p_short, modifier, p_type, availability, p_long);
        addVariableOperator(p_long, modifier, p_type, availability, p_short);
    };
    addBothNames(p_name, longName, tensorType);
    for (std::size_t i = 0; i < componentShortNames.size(); ++i)
        addBothNames(componentShortNames[i], componentLongNames[i], SCALAR);
}

void PreVariableDefStore::addVariableOperator(const std::string& p_name,
                                              const std::string& p_dimensionModifier, TensType p_tensorType,
                                              const std::set<std::string>& p_availability,
                                              const std::string& p_alias)
{
    const Operator entry {p_dimensionModifier, p_tensorType, p_availability, p_alias};
    if (!m_operators.emplace(p_name, entry).second)
        raiseData<data::duplicate>("addVariableOperator",
                                   UserMsg("Variable Operator '%1' already exists.").arg(p_name));
}

bool PreVariableDefStore::hasOperator(const std::string& p_name) const
{
    return m_operators.find(p_name) != m_operators.end();
}

std::string PreVariableDefStore::getOperatorAlias(const std::string& p_name) const
{
    return operatorNamed(p_name, "getOperatorAlias").alias;
}

std::string PreVariableDefStore::getOperatorDimensionModifier(const std::string& p_name) const
{
    return operatorNamed(p_name, "getOperatorDimensionModifier").dimensionModifier;
}

PreVariableDefStore::TensType PreVariableDefStore::getOperatorTensorType(const std::string& p_name) const
{
    return operatorNamed(p_name, "getOperatorTensorType").tensorType;
}

bool PreVariableDefStore::doesOperatorHaveAvailability(const std::string& p_name,
                                                       const std::string& p_keyword) const
{
    return operatorNamed(p_name, "doesOperatorHaveAvailability").availability.contains(p_keyword);
}

const PreVariableDefStore::Operator& PreVariableDefStore::operatorNamed(const std::string& p_name,
                                                                        const char* p_askedBy) const
{
    const auto found = m_operators.find(p_name);
    if (found == m_operators.end())
        raiseData<data::notFound>(p_askedBy, UserMsg("Operator '%1' does not exist.").arg(p_name));
    return found->second;
}

}    // namespace qen
