#include "physics/PhysicsNotifier.h"

#include <algorithm>
#include <string_view>

namespace qen::standalone {
namespace {

/// The type of the objects that a pattern fits, such as "BOUNDARY" for "{DOMAIN}/BOUNDARY:*" and "DOMAIN" for "{DOMAIN}".
std::string typeOf(std::string_view p_pattern)
{
    std::string_view level = p_pattern.substr(p_pattern.rfind('/') + 1);
    level = level.substr(0, level.find(':'));
    if (level.starts_with('{') && level.ends_with('}'))
        level = level.substr(1, level.size() - 2);
    return std::string(level);
}

}    // namespace

PhysicsNotifier::PhysicsNotifier(ModelTree& p_model, const PhysicsBook& p_book) : m_model(p_model)
{
    p_book.visitLooks([this](const PhysicsBook::Look& p_look) {
        const std::string type = typeOf(p_look.object);
        m_types.insert(type);
        if (!p_look.parameter.empty())
            m_settings.emplace(type, p_look.parameter);
        if (!p_look.names.empty())
            m_types.insert(typeOf(p_look.names));
    });
    m_model.attach(*this);
}

PhysicsNotifier::~PhysicsNotifier() { m_model.detach(*this); }

void PhysicsNotifier::attach(Observer& p_observer) { m_observers.push_back(&p_observer); }

void PhysicsNotifier::detach(const Observer& p_observer) { std::erase(m_observers, &p_observer); }

void PhysicsNotifier::onModelChange(const ModelChange& p_change)
{
    if (p_change.kind == ModelChange::Kind::ChildrenReordered)
        return;    // no query answers by the order of objects
    const bool ofObject =
        p_change.kind == ModelChange::Kind::ObjectAdded || p_change.kind == ModelChange::Kind::ObjectDeleted;
    const bool concerns =
        ofObject ? m_types.contains(p_change.objectType)
                 : m_settings.contains({std::string(p_change.objectType), std::string(p_change.paramName)});
    if (!concerns)
        return;
    for (Observer* observer : m_observers)
        observer->update(ofObject ? NotifyModelChanged : NotifyPhysicsChanged);
}

}    // namespace qen::standalone
