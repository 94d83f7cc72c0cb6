#include "host/system/selection.h"

#include <algorithm>

namespace host {

void SelectionManager::remove_item(IActor* actor, int) {
    m_selected.remove(actor);
    if (actor && on_removed) on_removed(actor);
}

void SelectionManager::select(const std::list<IActor*>& actors) {
    m_selected.clear();
    for (IActor* actor : actors) {
        const bool known = std::find(m_selected.begin(), m_selected.end(), actor) != m_selected.end();
        if (actor && !known) m_selected.push_back(actor);
    }
}

}  // namespace host
