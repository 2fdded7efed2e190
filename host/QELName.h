#pragma once

#include "HostApi.h"

#include <string>
#include <utility>
#include <vector>

namespace qen {

/// The syntax of names in the expression language. Defined by the host.
class QEN_HOST_API QELName {
public:
    /// One '.'-separated part of a name: the name itself, the component selector (the letters that pick a vector or
    /// tensor component) and the coordinate-frame qualifier.
    class QEN_HOST_API Component {
    public:
        Component() = default;

        Component(std::string p_name, std::string p_selector, std::string p_frame)
            : m_name(std::move(p_name)), m_selector(std::move(p_selector)), m_frame(std::move(p_frame))
        {}

        /// True when all three texts are empty.
        bool empty() const { return m_name.empty() && m_selector.empty() && m_frame.empty(); }

        const std::string& name() const { return m_name; }
        const std::string& selector() const { return m_selector; }
        const std::string& frame() const { return m_frame; }

    private:
        std::string m_name;
        std::string m_selector;
        std::string m_frame;
    };

    /// Splits a variable name into its components, at least one, in order.
    ///
    /// @return False when the text is not in variable-name syntax.
    static bool splitVariableName(const std::string& p_text, std::vector<Component>& p_components);

    /// Splits a callback function's written name: the component's name becomes the base name, its selector the axis
    /// component, empty when there is none. What the string is for is the host's.
    static bool splitCallbackName(const std::string& p_name, std::string& p_text, Component& p_component);
};

}    // namespace qen
