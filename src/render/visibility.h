#pragma once

#include "layout/dialog.h"
#include "layout/shape.h"

/// The same as below for a shape whose dialog is drawn.
inline bool is_drawn_in_its_dialog(const CSimpleGUIShape& shape) {
    return shape.m_in_scene && (!shape.m_actor || shape.m_actor->is_visible());
}

/// Whether a frame shows the shape. A shape without an actor counts as visible, for nothing can hide it.
inline bool is_drawn(const CSimpleGUIShape& shape) {
    if (!is_drawn_in_its_dialog(shape)) return false;
    const CSimpleGUIDialog* dialog = shape.m_parent_dialog;
    if (!dialog) return true;
    return dialog->m_in_scene && (!dialog->m_actor || dialog->m_actor->is_visible());
}
