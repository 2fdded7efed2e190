#include "locators/LocatorIndex.h"

#include <algorithm>
#include <array>
#include <optional>

namespace qen::standalone {
namespace {

struct LocatorType {
    std::string_view type;
    LocatorDimension::Value dimension;
};

constexpr std::array<LocatorType, 6> k_locatorTypes {{
    {"BOUNDARY", LocatorDimension::Surface},
    {"DOMAIN", LocatorDimension::Volume},
    {"INTERFACE", LocatorDimension::Surface},
    {"MONITOR POINT", LocatorDimension::Point},
    {"RIGID BODY", LocatorDimension::Unknown},
    {"SUBDOMAIN", LocatorDimension::Volume},
}};

std::optional<LocatorDimension::Value> dimensionOf(std::string_view p_type)
{
    const auto* const row = std::find_if(k_locatorTypes.begin(), k_locatorTypes.end(),
                                         [&](const LocatorType& p_row) { return p_row.type == p_type; });
    return row == k_locatorTypes.end() ? std::nullopt : std::optional(row->dimension);
}

}    // namespace

bool isLocatorType(std::string_view p_type) { return dimensionOf(p_type).has_value(); }

LocatorIndex::LocatorIndex(const ModelTree::Object& p_flow) { add(p_flow); }

void LocatorIndex::add(const ModelTree::Object& p_object)
{
    for (const ModelTree::Object* child : p_object.children)
    {
        const std::optional<LocatorDimension::Value> dimension = dimensionOf(child->type);
        if (dimension && !child->name.empty())
        {
            const auto [known, isNew] = m_locators.try_emplace(child->name, Locator {child, *dimension});
            if (!isNew)
                m_repetitions.push_back({known->second.object, child});
        }
        add(*child);    // as deep as a path may be
    }
}

const LocatorIndex::Locator* LocatorIndex::find(std::string_view p_name) const
{
    const auto found = m_locators.find(p_name);
    return found == m_locators.end() ? nullptr : &found->second;
}

}    // namespace qen::standalone
