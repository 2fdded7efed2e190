#pragma once

#include "model/ModelTree.h"
#include "physics/PhysicsBook.h"
#include "StandaloneApi.h"

#include "Observer.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qen::standalone {

/// Notifies observers when a change of a model can alter what the physics queries answer, and only then: of type 4 when
/// an object comes or goes at which a query looks, of type 7 when a setting is made, changed or taken back that a query
/// reads. What is not looked at by any query notifies nobody.
class QEN_STANDALONE_API PhysicsNotifier final : private ModelObserver {
public:
    /// Observes the model until it is destroyed. Model and book must outlive it;
    /// definitions that the book is given later are not seen.
    PhysicsNotifier(ModelTree& p_model, const PhysicsBook& p_book);
    ~PhysicsNotifier();

    PhysicsNotifier(const PhysicsNotifier&) = delete;
    PhysicsNotifier& operator=(const PhysicsNotifier&) = delete;

    /// @param p_observer  Not owned; to be detached before it is destroyed, unless this is destroyed first.
    void attach(Observer& p_observer);
    void detach(const Observer& p_observer);

private:
    void onModelChange(const ModelChange& p_change) override;

    ModelTree& m_model;
    std::set<std::string, std::less<>> m_types;                  // of objects at which queries look
    std::set<std::pair<std::string, std::string>> m_settings;    // types, and parameters of such objects
    std::vector<Observer*> m_observers;
};

}    // namespace qen::standalone
