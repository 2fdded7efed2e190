#include "PreVariableDefStore.h"

#include "StringUtilities.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qen {

namespace {

using Store = PreVariableDefStore;

constexpr std::array<std::string_view, 23> k_postVariables {
    // sorted
    "Area",
    "Connectivity Number",
    "Edge Length Ratio",
    "Element Volume Inverse",
    "Element Volume Ratio",
    "Force",
    "Force X",
    "Force Y",
    "Force Z",
    "Heat Flux",
    "Length",
    "Mass Flow",
    "Maximum Edge Length",
    "Maximum Face Angle",
    "Minimum Face Angle",
    "Normal",
    "Normal X",
    "Normal Y",
    "Normal Z",
    "Volume",
    "X",
    "Y",
    "Z",
};
static_assert(std::ranges::is_sorted(k_postVariables));

constexpr std::string_view k_reservedName = "Expression Value";

constexpr std::array k_coordinates {"x", "y", "z", "r", "theta", "raxis", "taxis", "aaxis"};

/// Whether two ascending sequences have an element in common.
bool haveOneInCommon(const Store::SharedValueSet& p_left, const Store::ValueList& p_right)
{
    auto left = p_left.begin();
    auto right = p_right.begin();
    while (left != p_left.end() && right != p_right.end())
    {
        if (*left == *right)
            return true;
        if (*left < *right)
            ++left;
        else
            ++right;
    }
    return false;
}

// Deliberate: blanks go from a negated keyword only; a plain one stays as it is written.
// Held by PhysicalAvailabilities.KeepTheBlanksOfAPlainKeyword.
std::string withoutNegation(const std::string& p_keyword)
{
    if (p_keyword.empty() || p_keyword.front() != '!')
        return p_keyword;
    return StringUtilities::removeWhitespace(p_keyword.substr(1));
}

}    // namespace

bool PreVariableDefStore::isPostVariable(const std::string& p_name)
{
    return std::ranges::binary_search(k_postVariables, std::string_view(p_name));
}

bool PreVariableDefStore::isSolverReservedName(const std::string& p_name) { return p_name == k_reservedName; }

bool PreVariableDefStore::isSolverInternalVariable(const std::string& p_name) const
{
    if (m_solverInternalNames.empty())
    {
        // Built aside: a coordinate that is not defined leaves the store's own set empty.
        std::set<std::string> names;
        for (const char* coordinate : k_coordinates)
        {
            // Deliberate: the name by which the coordinate was found, not its short name, which may be another.
            // Held by SolverInternalVariable.IsNotTheShortNameOfAVariableThatHasACoordinateAsItsLongName.
            const VarDefData& record = variableData(coordinate);
            names.insert({fieldValue(record.longName), fieldValue(record.oldLongName),
                          fieldValue(record.oldShortName), coordinate});
        }
        names.erase("");
        m_solverInternalNames.swap(names);
    }
    return m_solverInternalNames.contains(p_name);
}

std::set<std::string>
PreVariableDefStore::referencedPhysicalAvailabilities(const std::string& p_generalKeyword) const
{
    return referencedPhysicalAvailabilities(std::vector<std::string> {p_generalKeyword});
}

std::set<std::string>
PreVariableDefStore::referencedPhysicalAvailabilities(const std::vector<std::string>& p_generalKeywords) const
{
    ValueList asked;
    for (const std::string& keyword : p_generalKeywords)
        if (const std::optional<ValueIndex> value = findValue(keyword))
            asked.push_back(*value);
    std::sort(asked.begin(), asked.end());

    ValueSet found;
    for (const VarDefData& record : m_records)
        if (haveOneInCommon(record.generalAvailability, asked))
            found.insert(record.physicalAvailability.begin(), record.physicalAvailability.end());

    std::set<std::string> keywords;
    for (const ValueIndex value : found)
        keywords.insert(withoutNegation(fieldValue(value)));
    return keywords;
}

}    // namespace qen
