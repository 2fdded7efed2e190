#pragma once

#include "qcl/QclDocument.h"
#include "UnitDimensions.h"
#include "units/ExactRatio.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Looks a name up by a view of it.
struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view p_name) const { return std::hash<std::string_view> {}(p_name); }
};

/// A name, and where it was defined while the document at hand is being added.
struct Definition {
    std::string name;
    const QclObject* object = nullptr;    ///< null when the definition stems from an earlier document

    bool isFresh() const { return object != nullptr; }
};

struct PrefixDefinition : Definition {
    Ratio factor;
};

struct UnitDefinition : Definition {
    bool isBase = false;
    std::size_t dimension = 0;    ///< of a base unit
    std::string text;             ///< the units that a derived unit is made of
    Ratio factor;
    Ratio offset {0.0, 1.0};
    bool takesPrefixes = false;
    bool isBroken =
        false;    ///< a mistake in it has been reported; kept so that units made of it say no more
};

struct QuantityDefinition : Definition {
    std::string text;
};

constexpr std::size_t k_maxUnitName = 32;     // bytes
constexpr std::size_t k_maxPrefixName = 8;    // bytes
constexpr std::size_t k_maxUnits = 10000;
constexpr std::size_t k_maxPrefixes = 64;

/// The definition files as they stand, before names are looked up.
///
/// @code
/// [/BASE UNIT:kg]                   one for each dimension
/// Dimension = Mass
///
/// [/PREFIX:k]
/// Factor = 1e3                      a number above zero, or a fraction such as 1/1000
///
/// [/UNIT:g]
/// Definition = kg                   units text; may use what is defined further down
/// Factor = 1/1000                   optional: how many of the definition one unit is
/// Prefixes = Yes                    optional, Yes or No; also for base units
///
/// [/UNIT:C]
/// Definition = K
/// Offset = 273.15                   optional: what zero on the scale is, in the definition's units
///
/// [/QUANTITY:Pressure]
/// Units = kg m^-1 s^-2              empty for a quantity without dimension
/// @endcode
class UnitDefinitions {
public:
    std::vector<PrefixDefinition> prefixes;
    std::vector<UnitDefinition> units;
    std::vector<QuantityDefinition> quantities;

    /// Takes over the sections of a document; a name that is known already is defined anew. What is wrong with a
    /// section alone is reported here. Definitions point into the document until `forgetDocument`.
    void read(const QclDocument& p_document, Diagnostics& p_problems);

    void forgetDocument();

private:
    class SectionReader;
    using Index = std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>>;

    Index m_prefixIndex;
    Index m_unitIndex;
    Index m_quantityIndex;
};

/// A problem with a whole section, with the name of a parameter, or with a stretch of its value.
Diagnostic problemIn(const QclObject& p_object, std::string p_identifier, std::string p_message);
Diagnostic problemInName(const QclParameter& p_parameter, std::string p_identifier, std::string p_message);
Diagnostic problemInValue(const QclParameter& p_parameter, std::size_t p_offset, std::size_t p_length,
                          std::string p_identifier, std::string p_message);

}    // namespace qen::standalone
