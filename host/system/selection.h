#pragma once

#include <functional>
#include <list>

#include "engine/scene.h"

namespace host {

class SelectionManager final : public CSelectionManager {
public:
    std::list<IActor*>* get_selection() override { return &m_selected; }
    void remove_item(IActor* actor, int) override;
    /// Null entries and repeated actors are passed over.
    void select(const std::list<IActor*>& actors);
    /// Without a word to the hook: the actor is about to be destroyed.
    void forget(IActor* actor) { m_selected.remove(actor); }

    /// Hears of each actor that remove_item takes out; may be empty.
    std::function<void(IActor*)> on_removed;

private:
    std::list<IActor*> m_selected;
};

}  // namespace host
