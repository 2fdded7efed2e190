#pragma once

/// @file
/// The texts that definitions use as values, compared exactly. Keys stand in the table of fields.

namespace qen {

inline constexpr const char* k_scalar = "SCALAR";
inline constexpr const char* k_vector = "VECTOR";
inline constexpr const char* k_symten2 = "SYMTEN2";
inline constexpr const char* k_true = "T";
inline constexpr const char* k_false = "F";
inline constexpr const char* k_qel = "QEL";
inline constexpr const char* k_general = "GENERAL";

}    // namespace qen
