#include "ExprCBFuncStore.h"

#include "DataError.h"
#include "StringUtilities.h"
#include "UnitsConverter.h"
#include "UserMsg.h"

#include <locale>
#include <sstream>
#include <stdexcept>

namespace qen {

namespace {

using Parameters = std::map<std::string, std::string>;

constexpr const char* k_resultUnits = "Result Units";
constexpr const char* k_numberOfArguments = "Number of Arguments";
constexpr const char* k_callbackType = "CallBack Type";
constexpr const char* k_tensorType = "Tensor Type";
constexpr const char* k_locatorDimension = "Locator Dimension";

struct LocatorWord {
    const char* word;
    LocatorDimension::Value dimension;
};

constexpr LocatorWord k_locatorWords[] {{"Point", LocatorDimension::Point},
                                        {"Surface", LocatorDimension::Surface},
                                        {"Volume", LocatorDimension::Volume}};

/// Throws one of the `data::error` family.
template <class Exception>
[[noreturn]] void raiseData(const char* p_function, const UserMsg& p_message)
{
    throw Exception("ExprCBFuncStore", p_function, p_message.str(), ErrorTypeError);
}

[[noreturn]] void refuse(const UserMsg& p_message) { raiseData<data::error>("addCBDefinition", p_message); }

const std::string& required(const char* p_key, const std::string& p_name, const Parameters& p_parameters)
{
    const auto found = p_parameters.find(p_key);
    if (found == p_parameters.end())
        refuse(UserMsg("Missing parameter '%1' in definition of callback function '%2'.")
                   .arg(p_key)
                   .arg(p_name));
    return found->second;
}

// Deliberate: looks for the first "]" of the whole text, so "][m]" is refused, and "[[m]]" gives the units "[m".
// Held by CallbackDefinition.TakesTheFirstBracketOfEachKind and CallbackDefinition.RefusesUnitsWithoutBrackets.
UnitDimensions readResultDim(const std::string& p_name, const Parameters& p_parameters)
{
    const std::string& text = required(k_resultUnits, p_name, p_parameters);
    const std::string::size_type open = text.find('[');
    const std::string::size_type close = text.find(']');
    if (open == std::string::npos || close == std::string::npos || open > close)
        refuse(UserMsg("Invalid units string '%1' read in definition of callback function '%2'.")
                   .arg(text)
                   .arg(p_name));
    return UnitsConverter::instance().dimsFromUnits(text.substr(open + 1, close - open - 1));
}

// Deliberate: what follows the integer is not looked at, so "2.5" is 2.
// Held by CallbackNumberOfArguments.IsTheIntegerThatItsTextBeginsWith.
std::int32_t readNumArgs(const std::string& p_name, const Parameters& p_parameters)
{
    const std::string& text = required(k_numberOfArguments, p_name, p_parameters);
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());    // a definition file means the same in every locale
    std::int32_t number = 0;
    if (!(stream >> number))
        refuse(UserMsg("Invalid value ('%1') of '%2' read in definition of callback function '%3'.")
                   .arg(text)
                   .arg(k_numberOfArguments)
                   .arg(p_name));
    return number;
}

std::bitset<5> readLocatorDimensions(const std::string& p_name, const Parameters& p_parameters)
{
    std::bitset<5> dimensions;
    for (const std::string& piece :
         StringUtilities::stringToVector(required(k_locatorDimension, p_name, p_parameters), ','))
        for (const LocatorWord& known : k_locatorWords)
            if (piece == known.word)
                dimensions.set(static_cast<std::size_t>(known.dimension));
    return dimensions;
}

}    // namespace

void ExprCBFuncStore::addCBDefinition(const std::string& p_name, const Parameters& p_parameters)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the caller's may stand in the list emptied now
    const std::string name = p_name;

    // Deliberate: at once, so that a definition that is refused empties the list too.
    // Held by CallbackNames.AreForgottenAlsoByADefinitionThatIsRefused.
    m_namesCache.clear();

    CBDef definition;    // the order of reading is the order in which faults are reported
    definition.resultDim = readResultDim(name, p_parameters);
    definition.numArgs = readNumArgs(name, p_parameters);
    definition.fieldValued = required(k_callbackType, name, p_parameters) == "Field";
    definition.vectorComponentsAllowed = required(k_tensorType, name, p_parameters) == "VECTOR";
    definition.locatorDimensions = readLocatorDimensions(name, p_parameters);

    // Deliberate: a name that is there already keeps its first definition, without a message.
    // Held by CallbackDefinition.OfANameThatIsThereAlreadyIsDiscarded.
    m_functions.emplace(name, definition);
}

const ExprCBFuncStore::CBDef& ExprCBFuncStore::findCBDef(const std::string& p_name) const
{
    const auto found = m_functions.find(p_name);
    if (found == m_functions.end())
        raiseData<data::notFound>("findCBDef", UserMsg("Function '%1' is not defined.").arg(p_name));
    return found->second;
}

std::int32_t ExprCBFuncStore::getNumArgs(const std::string& p_name) const
{
    return findCBDef(p_name).numArgs;
}

const UnitDimensions& ExprCBFuncStore::getResultDim(const std::string& p_name) const
{
    return findCBDef(p_name).resultDim;
}

bool ExprCBFuncStore::isFieldValued(const std::string& p_name) const { return findCBDef(p_name).fieldValued; }

bool ExprCBFuncStore::allowsVectorComponents(const std::string& p_name) const
{
    return findCBDef(p_name).vectorComponentsAllowed;
}

bool ExprCBFuncStore::isAllowedLocatorDimension(const std::string& p_name,
                                                LocatorDimension::Value p_dimension) const
{
    const std::bitset<5>& accepted = findCBDef(p_name).locatorDimensions;
    const auto position = static_cast<std::size_t>(p_dimension);    // a negative one becomes large

    // Deliberate: this text, brackets and all; what `bitset::test` throws differs between standard libraries.
    // Held by CallbackLocator.RefusesADimensionThatHasNoPosition.
    if (position >= accepted.size())
        throw std::out_of_range("invalid bitset<N> position");
    return accepted[position];
}

const std::vector<std::string>& ExprCBFuncStore::getCBNames() const
{
    if (m_namesCache.empty())
    {
        m_namesCache.reserve(m_functions.size());
        for (const auto& [name, definition] : m_functions)
            m_namesCache.push_back(name);
    }
    return m_namesCache;
}

}    // namespace qen
