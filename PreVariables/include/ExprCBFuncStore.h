#pragma once

#include "PreVariablesApi.h"

#include "LocatorDimension.h"
#include "UnitDimensions.h"

#include <bitset>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qen {

/// The catalogue of the callback functions of the expression language, such as averages and integrals over a locator:
/// what a function yields, and where it may be asked for.
///
/// Filled once by the host, one definition object at a time, and read thereafter. Names compare exactly. A copy is
/// deep. One thread at a time.
class QEN_PREVARIABLES_API ExprCBFuncStore {
public:
    /// One callback function.
    struct QEN_PREVARIABLES_API CBDef {
        UnitDimensions resultDim;
        std::int32_t numArgs = 0;
        bool fieldValued = false;                ///< yields a field rather than a single value
        bool vectorComponentsAllowed = false;    ///< as in "force{x}"
        std::bitset<5> locatorDimensions;        ///< by `LocatorDimension::Value`
    };

    /// Adds one callback function. Of functions with the same name the first stays, silently.
    ///
    /// @param p_parameters  The definition's keys and texts, all required: "Result Units", in square brackets;
    ///                      "Number of Arguments"; "CallBack Type", where "Field" means field valued; "Tensor Type",
    ///                      where "VECTOR" allows components; "Locator Dimension", a list of "Point", "Surface" and
    ///                      "Volume", of which other pieces are ignored. Unknown keys are ignored.
    /// @throws data::error   A key is missing, the units are not in brackets, or the number is none. Nothing is added.
    /// @throws units::error  The host does not understand the units. Nothing is added.
    void addCBDefinition(const std::string& p_name, const std::map<std::string, std::string>& p_parameters);

    /// The definition of a function. It stays where it is for the life of the store.
    ///
    /// @throws data::notFound  No function has that name.
    const CBDef& findCBDef(const std::string& p_name) const;

    // Single fields of the definition.

    /// @throws data::notFound  No function has that name.
    std::int32_t getNumArgs(const std::string& p_name) const;

    /// @throws data::notFound  No function has that name.
    const UnitDimensions& getResultDim(const std::string& p_name) const;

    /// @throws data::notFound  No function has that name.
    bool isFieldValued(const std::string& p_name) const;

    /// @throws data::notFound  No function has that name.
    bool allowsVectorComponents(const std::string& p_name) const;

    /// Whether the function accepts a locator of that dimension. None accepts an unknown one.
    ///
    /// @throws data::notFound     No function has that name.
    /// @throws std::out_of_range  The dimension is below 0 or above 4.
    bool isAllowedLocatorDimension(const std::string& p_name, LocatorDimension::Value p_dimension) const;

    /// The names of all functions in ascending byte order. The list is emptied by the next definition, be it added or
    /// refused, and made anew by the next call.
    const std::vector<std::string>& getCBNames() const;

private:
    std::map<std::string, CBDef> m_functions;
    mutable std::vector<std::string> m_namesCache;    // empty until asked for
};

}    // namespace qen
