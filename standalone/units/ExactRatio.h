#pragma once

#include <optional>
#include <string_view>

namespace qen::standalone {

/// A number kept as a fraction, so that decimals such as 0.3048 lose nothing until the one division at the end.
struct Ratio {
    double numerator = 1.0;
    double denominator = 1.0;

    double value() const { return numerator / denominator; }
};

/// Reads "0.3048", "1e-3" or "5/9". None when the text is anything else or beyond double precision.
std::optional<Ratio> readRatio(std::string_view p_text);

Ratio sum(Ratio p_one, Ratio p_other);
Ratio quotient(Ratio p_one, Ratio p_other);

/// The same fraction in lowest terms, where both sides are whole numbers; else unchanged.
Ratio reduced(Ratio p_ratio);

}    // namespace qen::standalone
