#pragma once

#include "qcl/QclDocument.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qen::standalone {

/// Which lists of a case go beyond what all of them together may cost: see CaseLimits.
class ListBudget {
public:
    /// A parameter by its object's path and its name.
    using Names = std::set<std::pair<std::string, std::string>>;

    /// Takes the lists of an object in place of those that it had.
    void take(const QclObject& p_object);
    void forget(const std::string& p_objectPath);

    /// The lists that are too much, those of the case being taken in its order.
    Names beyond(const QclDocument& p_case) const;

private:
    struct List {
        std::string name;
        std::size_t bytes;    ///< its items times the bytes of its value
    };

    std::unordered_map<std::string, std::vector<List>> m_lists;    // by the object's path
    std::size_t m_bytes = 0;                                       // of all
};

}    // namespace qen::standalone
