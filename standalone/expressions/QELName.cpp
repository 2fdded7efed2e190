#include "QELName.h"

#include "expressions/QelSyntax.h"

namespace qen {
namespace {

using standalone::qel::ComponentReader;

QELName::Component ownedCopy(const standalone::qel::Component& p_component)
{
    return {std::string(p_component.name), std::string(p_component.selector), std::string(p_component.frame)};
}

}

bool QELName::splitVariableName(const std::string& p_text, std::vector<Component>& p_components)
{
    p_components.clear();
    ComponentReader reader {p_text.data(), p_text.data() + p_text.size()};
    const bool good =
        standalone::qel::readReference(reader, [&](const standalone::qel::Component& p_component) {
            p_components.push_back(ownedCopy(p_component));
        });
    if (good && reader.at == reader.end)
        return true;
    p_components.clear();
    return false;
}

// A text that is no written name is its own base name, so that it is looked up as it is and not found.
bool QELName::splitCallbackName(const std::string& p_name, std::string& p_text, Component& p_component)
{
    ComponentReader reader {p_name.data(), p_name.data() + p_name.size()};
    standalone::qel::Component component;
    const bool good = reader.read(component) && reader.at == reader.end;
    p_component = good ? ownedCopy(component) : Component(p_name, {}, {});
    p_text = p_component.name();
    return good;
}

}    // namespace qen
