#pragma once

// What the bodies have in common: the item that a call names, and what a selector of visibility does.

#include "engine/engine_system.h"
#include "layout/dialog.h"
#include "layout/shape.h"

/// The item of that type whose name stands in a parameter of the call, or null.
inline IBaseItem* named_item(xfunc_desc* call, std::size_t param, unsigned long type) {
    return call->system->m_scene_manager->search_item_by_name(call->params[param]->get_STR(), type);
}

inline CSimpleGUIDialog* named_dialog(xfunc_desc* call, std::size_t param = 0) {
    return static_cast<CSimpleGUIDialog*>(named_item(call, param, ITEM_TYPE_DIALOG));
}

inline CSimpleGUIShape* named_shape(xfunc_desc* call) {
    return static_cast<CSimpleGUIShape*>(named_item(call, 0, ITEM_TYPE_SHAPE));
}

inline int int_param(xfunc_desc* call, std::size_t index) { return call->params[index]->get_INT(); }

/// 0 hides, 1 shows, 2 changes over; any other selector does nothing.
inline void show_by(IActor* actor, int selector) {
    if (!actor || selector < 0 || selector > 2) return;
    actor->set_visible(selector == 2 ? !actor->is_visible() : selector == 1);
}
