#pragma once

#include "ModelRules.h"
#include "StandaloneApi.h"

#include <string>
#include <string_view>

namespace qen {

/// The types that the rules of the standalone host know.
enum class ParamType : int {
    Unknown = 0,    ///< the rules do not know the parameter
    Real,
    RealList,
    Integer,
    IntegerList,
    String,
    StringList,
    Logical
};

namespace standalone {

/// The type that the rules write as "Real", "Real List", "Integer", "Integer List", "String", "String List" or
/// "Logical"; Unknown for any other text.
QEN_STANDALONE_API ParamType paramTypeFromText(std::string_view p_text);

/// The texts of all types, for messages: "'Real', 'Real List' ... or 'Logical'".
QEN_STANDALONE_API const std::string& paramTypeTexts();

/// Whether values of that type are lists, their pieces parted by commas.
QEN_STANDALONE_API bool isListType(ParamType p_type);

}    // namespace standalone
}    // namespace qen
