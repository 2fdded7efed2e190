#include "rules/ParamTypes.h"

#include "QCLParam.h"

#include <array>
#include <cstddef>

namespace qen::standalone {
namespace {

struct TypeRow {
    ParamType type;
    const char* text;
    bool isNumeric;
    bool isList;
};

// clang-format off
constexpr std::array k_types {
    TypeRow {ParamType::Real,        "Real",         true,  false},
    TypeRow {ParamType::RealList,    "Real List",    true,  true},
    TypeRow {ParamType::Integer,     "Integer",      true,  false},
    TypeRow {ParamType::IntegerList, "Integer List", true,  true},
    TypeRow {ParamType::String,      "String",       false, false},
    TypeRow {ParamType::StringList,  "String List",  false, true},
    TypeRow {ParamType::Logical,     "Logical",      false, false},
};
// clang-format on

const TypeRow* rowOf(ParamType p_type)
{
    for (const TypeRow& row : k_types)
        if (row.type == p_type)
            return &row;
    return nullptr;
}

std::string joinTypeTexts()
{
    std::string joined;
    for (std::size_t i = 0; i < k_types.size(); ++i)
    {
        if (i > 0)
            joined += i + 1 == k_types.size() ? " or " : ", ";
        joined.append("'").append(k_types[i].text).append("'");
    }
    return joined;
}

}    // namespace

ParamType paramTypeFromText(std::string_view p_text)
{
    for (const TypeRow& row : k_types)
        if (row.text == p_text)
            return row.type;
    return ParamType::Unknown;
}

const std::string& paramTypeTexts()
{
    static const std::string k_texts = joinTypeTexts();
    return k_texts;
}

bool isListType(ParamType p_type)
{
    const TypeRow* row = rowOf(p_type);
    return row && row->isList;
}

}    // namespace qen::standalone

namespace qen {

bool QCLParam::isNumericType(ParamType p_type)
{
    const standalone::TypeRow* row = standalone::rowOf(p_type);
    return row && row->isNumeric;
}

}    // namespace qen
