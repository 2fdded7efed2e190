#pragma once

#include "HostApi.h"

#include <set>
#include <string>
#include <vector>

namespace qen {

/// Texts, lists and numbers as the host writes them. Defined by the host.
class QEN_HOST_API StringUtilities {
public:
    /// Reads a number, optionally followed by units in square brackets. Blanks around the number and the units do not
    /// count. Infinity, "nan" and what is beyond single precision are no numbers.
    ///
    /// @param p_isNumber  Set to whether the whole text is one number with or without units.
    /// @param p_number    Set to the number's text.
    /// @param p_units     Set to the units without brackets; empty when there are none.
    /// @return The number; 0 when the text is none.
    static float valueAsFloat(const std::string& p_text, bool& p_isNumber, std::string& p_number,
                              std::string& p_units);

    /// The items of a list value, without blanks at their ends; none for a blank text. What stands between two
    /// separators is an item even when it is empty. A separator within brackets, round, square or curly, parts nothing.
    static std::vector<std::string> splitValue(const std::string& p_text, char p_separator);

    /// The pieces between separators, in brackets or not, without blanks at their ends; none for a blank text. Empty
    /// pieces count.
    static std::vector<std::string> stringToVector(const std::string& p_text, char p_separator);
    static std::set<std::string> stringToSet(const std::string& p_text, char p_separator);

    /// Joined with the bare separator.
    static std::string setToString(const std::set<std::string>& p_texts, char p_separator);
    static std::string vectorToString(const std::vector<std::string>& p_texts, char p_separator);

    /// A number in a C format such as "%12g".
    static std::string toString(double p_value, const std::string& p_format);

    static std::string toLowerCase(const std::string& p_text);
    static std::string removeWhitespace(const std::string& p_text);

    /// True for T, True, TRUE, true, Yes, YES, yes, On, ON, on and 1; false for everything else.
    static bool stringToBool(const std::string& p_text);
};

}    // namespace qen
