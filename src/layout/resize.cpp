// The whole layout follows the view.

#include <optional>

#include "animation/node_index.h"
#include "module/boundary.h"
#include "module/manager.h"

void CSimpleGUIManager::on_size_changed(int, int) try {
    // Each dialog looks for the nodes of its shapes; one index serves them all. Without the memory for it the keys stay
    // behind until the view changes again, but what is seen does not.
    std::optional<NodeIndexInUse> index;
    try {
        index.emplace(*this);
    } catch (...) {
        keep_inside(L"on_size_changed: the keys");
    }
    for (auto at = m_dialogs.rbegin(); at != m_dialogs.rend(); ++at) {
        if (*at) (*at)->update_rect();
    }
    m_scene_rect = m_view_rect;
    const CRect& client = m_system->get_client_rect();
    m_view_rect = {0, 0, client.Width(), client.Height()};
    rescale_keys_of_dialogs();
} catch (...) {
    keep_inside(L"on_size_changed");
}
