#include "checking/ValueItems.h"

#include "StringUtilities.h"

#include <algorithm>

namespace qen::standalone {

std::vector<ValueItem> valueItems(const std::string& p_value)
{
    std::vector<ValueItem> items;
    std::size_t from = 0;
    for (std::string& text : StringUtilities::splitValue(p_value, ','))
    {
        // The items stand in the value in order, and only commas and blanks stand between them.
        std::size_t at = text.empty() ? p_value.find(',', from) : p_value.find(text, from);
        at = std::min(at, p_value.size());
        const std::size_t length = text.size();
        items.push_back({std::move(text), {at, length}});
        from = std::min(p_value.find(',', at + length), p_value.size() - 1) + 1;
    }
    return items;
}

}    // namespace qen::standalone
