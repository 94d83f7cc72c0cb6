// Making dialogs and shapes, and finding them again by name or identifier.

#include "layout/shape.h"
#include "module/manager.h"
#include "module/module_state.h"

namespace {

void give_default_name(IActor* actor, const wchar_t* format, int& count) {
    tstringW name;
    name.Format(format, count++);
    actor->set_name(name.c_str(), true);
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

CSimpleGUIDialog* CSimpleGUIManager::create_dialog() {
    auto* dialog = new CSimpleGUIDialog(this);
    m_dialogs.push_front(dialog);
    IActor* actor = m_system->m_scene_manager->create_actor(dialog, nullptr, 1);
    give_default_name(actor, L"窗口%d", s_dialog_name_count);
    return dialog;
}

CSimpleGUIShape* CSimpleGUIManager::create_shape(CSimpleGUIDialog* dialog) {
    if (!dialog) dialog = get_editing_dialog();
    if (!dialog) {
        // Without any dialog there is no place for a shape; making none is the one answer that harms nobody.
        if (!m_root_dialog) return nullptr;
        dialog = m_root_dialog;
        m_editing_dialog = m_root_dialog;
    }
    auto* shape = new CSimpleGUIShape(this);
    shape->m_parent_dialog = dialog;
    dialog->m_shapes.push_back(shape);
    m_shapes.push_back(shape);
    IActor* actor = m_system->m_scene_manager->create_actor(shape, dialog->m_actor, 1);
    give_default_name(actor, L"图片按钮%d", s_shape_name_count);
    return shape;
}

void CSimpleGUIManager::create_root_dialog() {
    m_root_dialog = create_dialog();
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
