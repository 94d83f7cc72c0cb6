#pragma once

#include "module/manager.h"

/// The first dialog of the list stands for the root dialog where that is gone; none in an empty list.
inline void settle_root_dialog(CSimpleGUIManager& manager) {
    if (manager.m_root_dialog) return;
    for (CSimpleGUIDialog* dialog : manager.m_dialogs) {
        if (!dialog) continue;
        manager.m_root_dialog = dialog;
        return;
    }
}

/// Takes a dialog out of the scene for good; if it was the root dialog, another takes its place.
inline void delete_legacy_dialog(CSimpleGUIManager& manager, CSimpleGUIDialog& dialog) {
    manager.get_system()->m_scene_manager->delete_actor(dialog.m_actor);
    settle_root_dialog(manager);
}
