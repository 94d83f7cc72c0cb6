// Making dialogs and shapes, and finding them again by name or identifier.

#include "layout/shape.h"
#include "module/boundary.h"
#include "module/manager.h"
#include "module/module_state.h"

namespace {

// Gives the item an actor with a default name, or neither.
void enter_scene(CSceneManager& scene, IBaseItem* item, IActor* parent, const wchar_t* format, int& count) {
    tstringW name;
    name.Format(format, count++);
    IActor* actor = scene.create_actor(item, parent, 1);
    try {
        actor->set_name(name.c_str(), true);
    } catch (...) {
        scene.delete_actor(actor);
        throw;
    }
}

// The first item of the list whose actor meets the condition.
template <class Item, class Condition>
Item* first_item(const ItemList<Item>& list, Condition condition) {
    for (Item* item : list) {
        if (item && item->m_actor && condition(*item->m_actor)) return item;
    }
    return nullptr;
}

template <class Item>
Item* item_named(const ItemList<Item>& list, const tstringW& name) {
    return first_item(list, [&](const IActor& actor) { return actor.get_name() == name; });
}

template <class Item>
Item* item_with_id(const ItemList<Item>& list, const CGuid& id) {
    return first_item(list, [&](const IActor& actor) { return actor.get_id() == id; });
}

}  // namespace

// Held until the engine holds them: without an actor they go, and their destructors take them out of all lists.

CSimpleGUIDialog* CSimpleGUIManager::create_dialog() try {
    const CMyComPtr<CSimpleGUIDialog> dialog(new CSimpleGUIDialog(this));
    m_dialogs.push_front(dialog.get());
    enter_scene(*m_system->m_scene_manager, dialog.get(), nullptr, L"窗口%d", s_dialog_name_count);
    return dialog.get();
} catch (...) {
    keep_inside(L"create_dialog");
    return nullptr;
}

CSimpleGUIShape* CSimpleGUIManager::create_shape(CSimpleGUIDialog* dialog) try {
    if (!dialog) dialog = get_editing_dialog();
    if (!dialog) {
        // Without any dialog there is no place for a shape; making none is the one answer that harms nobody.
        if (!m_root_dialog) return nullptr;
        dialog = m_root_dialog;
        m_editing_dialog = m_root_dialog;
    }
    const CMyComPtr<CSimpleGUIShape> shape(new CSimpleGUIShape(this));
    shape->m_parent_dialog = dialog;
    dialog->m_shapes.push_back(shape.get());
    m_shapes.push_back(shape.get());
    enter_scene(*m_system->m_scene_manager, shape.get(), dialog->m_actor, L"图片按钮%d", s_shape_name_count);
    return shape.get();
} catch (...) {
    keep_inside(L"create_shape");
    return nullptr;
}

void CSimpleGUIManager::create_root_dialog() {
    m_root_dialog = create_dialog();
    if (!m_root_dialog) return;
    const CRect& client = m_system->get_client_rect();
    m_root_dialog->set_rect({0, 0, client.Width(), client.Height()}, false);
    m_root_dialog->set_scale_mode(1);
}

void CSimpleGUIManager::set_current_edit_dialog(CSimpleGUIDialog* dialog) { m_editing_dialog = dialog; }

CSimpleGUIDialog* CSimpleGUIManager::get_editing_dialog() const { return m_editing_dialog; }

CSimpleGUIDialog* CSimpleGUIManager::get_dialog_by_name(tstringW name) const { return item_named(m_dialogs, name); }

CSimpleGUIDialog* CSimpleGUIManager::get_dialog_by_guid(CGuid id) const { return item_with_id(m_dialogs, id); }

CSimpleGUIShape* CSimpleGUIManager::get_shape_by_name(tstringW name) const { return item_named(m_shapes, name); }

CSimpleGUIShape* CSimpleGUIManager::get_shape_by_guid(CGuid id) const { return item_with_id(m_shapes, id); }
