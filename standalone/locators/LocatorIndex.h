#pragma once

#include "LocatorDimension.h"
#include "model/ModelTree.h"
#include "StandaloneApi.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace qen::standalone {

/// Whether an object of that type is a locator where it stands in a flow.
QEN_STANDALONE_API bool isLocatorType(std::string_view p_type);

/// The locators of one flow: the objects at which a callback function can be evaluated, by their names.
class QEN_STANDALONE_API LocatorIndex {
public:
    struct Locator {
        const ModelTree::Object* object = nullptr;
        LocatorDimension::Value dimension = LocatorDimension::Unknown;
    };

    /// A locator whose name another one had before.
    struct Repetition {
        const ModelTree::Object* first;
        const ModelTree::Object* object;
    };

    /// Boundaries, interfaces, domains, subdomains, monitor points and rigid bodies below the flow. Holds as long as
    /// the model stays as it is.
    explicit LocatorIndex(const ModelTree::Object& p_flow);

    /// The locator of that name; of several the first in the model's order. Null when there is none.
    const Locator* find(std::string_view p_name) const;

    const std::vector<Repetition>& repetitions() const { return m_repetitions; }

private:
    void add(const ModelTree::Object& p_object);

    std::unordered_map<std::string_view, Locator> m_locators;
    std::vector<Repetition> m_repetitions;
};

}    // namespace qen::standalone
