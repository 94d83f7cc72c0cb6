#pragma once

#include "layout/dialog.h"
#include "layout/shape.h"

/// Whether a frame shows the shape. A shape without an actor counts as visible, for nothing can hide it.
inline bool is_drawn(const CSimpleGUIShape& shape) {
    if (!shape.m_in_scene) return false;
    if (shape.m_actor && !shape.m_actor->is_visible()) return false;
    const CSimpleGUIDialog* dialog = shape.m_parent_dialog;
    if (!dialog) return true;
    return dialog->m_in_scene && (!dialog->m_actor || dialog->m_actor->is_visible());
}
