#pragma once

#include "qcl/QclDocument.h"
#include "StandaloneApi.h"
#include "UnitDimensions.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// What a units text means: a value v in it is v * factor + offset in base units.
struct QEN_STANDALONE_API UnitValue {
    UnitDimensions dims;
    double factor = 1.0;
    double offset = 0.0;    ///< other than 0 only for an offset temperature that stands alone
};

/// One unit as the definitions have it; what it means, `UnitSystem::parse` says.
struct QEN_STANDALONE_API UnitEntry {
    std::string name;
    bool isBase = false;
    std::string definition;    ///< the units of which it is made; empty for a base unit
    double factor = 1.0;       ///< how many of the definition one unit is
    double offset = 0.0;       ///< where the scale's zero lies on the definition's scale
    bool takesPrefixes = false;
};

struct QEN_STANDALONE_API PrefixEntry {
    std::string name;
    double factor = 1.0;
};

/// The units and quantities of the definition files.
class QEN_STANDALONE_API UnitSystem {
public:
    UnitSystem();
    ~UnitSystem();
    UnitSystem(UnitSystem&&) noexcept;
    UnitSystem& operator=(UnitSystem&&) noexcept;

    /// Adds the definitions of a document; later ones override earlier ones of the same name. Problems are appended.
    void addDefinitions(const QclDocument& p_document, Diagnostics& p_problems);

    /// What a units text means; none when it is not understood. Linear in the text, allocates nothing.
    ///
    /// @param p_error  Where given, set to why the text is not understood.
    std::optional<UnitValue> parse(std::string_view p_units, std::string* p_error = nullptr) const;

    /// Converts in double precision; none when one text is not understood or their dimensions differ.
    std::optional<double> convert(std::string_view p_from, std::string_view p_to, double p_value) const;

    /// The base units of the dimensions in one canonical order, such as "kg m^-1 s^-2"; empty for dimensionless.
    std::string baseUnits(const UnitDimensions& p_dims) const;

    /// The base units of a quantity; null when the quantity is not known.
    const std::string* quantityUnits(std::string_view p_quantity) const;

    // What is defined, each in the order of the texts. What is wrong and what it takes along is left out.

    std::vector<UnitEntry> allUnits() const;    ///< without those that a prefix makes
    std::vector<PrefixEntry> allPrefixes() const;
    std::vector<std::string> allQuantities() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
