#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace qen::standalone {

/// Finds the elements of a vector by their texts in constant time, without keeping a second copy of them. The vector
/// is handed to each operation and may move between them; what was added must keep its position and its text.
///
/// @tparam TextOf  Gives the text of an element as a string_view.
template <typename TextOf>
class NameIndex {
public:
    static constexpr std::uint32_t k_none = 0xFFFFFFFF;

    /// The position of the element with that text; k_none when there is none.
    template <typename Elements>
    std::uint32_t find(const Elements& p_elements, std::string_view p_text) const
    {
        if (m_slots.empty())
        {
            for (std::uint32_t position = 0; position < m_count; ++position)
                if (TextOf()(p_elements[position]) == p_text)
                    return position;
            return k_none;
        }

        for (std::size_t slot = firstSlot(p_text);; slot = nextSlot(slot))
        {
            const std::uint32_t position = m_slots[slot];
            if (position == k_none || TextOf()(p_elements[position]) == p_text)
                return position;
        }
    }

    /// Takes up the element behind those that are known; its text must not be known yet.
    template <typename Elements>
    void addNext(const Elements& p_elements)
    {
        ++m_count;
        if (m_count <= k_fewElements)
            return;

        if (2 * std::size_t {m_count} <= m_slots.size())
        {
            place(p_elements, m_count - 1);
            return;
        }
        m_slots.assign(4 * std::size_t {m_count}, k_none);
        for (std::uint32_t position = 0; position < m_count; ++position)
            place(p_elements, position);
    }

    /// Takes up all elements anew, after one was removed.
    template <typename Elements>
    void rebuild(const Elements& p_elements)
    {
        m_slots.clear();
        m_count = 0;
        for (std::size_t position = 0; position < p_elements.size(); ++position)
            addNext(p_elements);
    }

private:
    static constexpr std::uint32_t k_fewElements = 8;    // no more than a quick look at each of them takes

    std::size_t firstSlot(std::string_view p_text) const
    {
        return std::hash<std::string_view> {}(p_text) % m_slots.size();
    }

    std::size_t nextSlot(std::size_t p_slot) const { return p_slot + 1 == m_slots.size() ? 0 : p_slot + 1; }

    template <typename Elements>
    void place(const Elements& p_elements, std::uint32_t p_position)
    {
        std::size_t slot = firstSlot(TextOf()(p_elements[p_position]));
        while (m_slots[slot] != k_none)
            slot = nextSlot(slot);
        m_slots[slot] = p_position;
    }

    std::vector<std::uint32_t>
        m_slots;    // positions, at most half of them taken; empty while the elements are few
    std::uint32_t m_count = 0;
};

}    // namespace qen::standalone
