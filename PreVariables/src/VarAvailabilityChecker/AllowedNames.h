#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qen {

/// The variables that a parameter may depend on, by short name. Must not outlive the list that it is made of.
class AllowedNames {
public:
    // Deliberate: only one shorthand stands for others. Where both are listed it is "XYZT", and "XYZ" stays a name like
    // any other. Held by GeneralAvailability.TakesXyzForANameBesideXyzt.
    explicit AllowedNames(const std::vector<std::string>& p_list) : m_names(p_list.begin(), p_list.end())
    {
        std::ranges::sort(m_names);
        if (remove("XYZT"))
            m_coordinates = k_coordinatesAndTime;
        else if (remove("XYZ"))
            m_coordinates = std::span(k_coordinatesAndTime).first(k_coordinatesAndTime.size() - 1);
    }

    bool contains(std::string_view p_shortName) const
    {
        return std::ranges::binary_search(m_names, p_shortName) ||
               std::ranges::find(m_coordinates, p_shortName) != m_coordinates.end();
    }

private:
    /// @return Whether it was there.
    bool remove(std::string_view p_name)
    {
        const auto [first, last] = std::equal_range(m_names.begin(), m_names.end(), p_name);
        const bool found = first != last;
        m_names.erase(first, last);
        return found;
    }

    /// What "XYZT" stands for; "XYZ" stands for all but the last.
    static constexpr std::array<std::string_view, 17> k_coordinatesAndTime {"x",
                                                                            "y",
                                                                            "z",
                                                                            "r",
                                                                            "theta",
                                                                            "aaxis",
                                                                            "raxis",
                                                                            "taxis",
                                                                            "subdomain",
                                                                            "xGlobal",
                                                                            "yGlobal",
                                                                            "zGlobal",
                                                                            "initcartcrd",
                                                                            "initcartcrd x",
                                                                            "initcartcrd y",
                                                                            "initcartcrd z",
                                                                            "t"};

    std::vector<std::string_view> m_names;    // sorted
    std::span<const std::string_view> m_coordinates;
};

}    // namespace qen
