// What belongs to no item of a project, and the tying together of the items that the engine has read one by one.

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "animation/anim_node.h"
#include "fonts/font_info.h"
#include "layout/rounding.h"
#include "layout/shape.h"
#include "module/boundary.h"
#include "module/manager.h"
#include "module/module_state.h"
#include "module/setting.h"

namespace {

constexpr const char* setting_node = "SimpleGUIEnvSetting";
constexpr const char* width_key = "m_scene_width";
constexpr const char* height_key = "m_scene_height";
constexpr int never_numbered = -1;

CRect client_size(const XSystem& system) {
    const CRect& client = system.get_client_rect();
    return {0, 0, client.Width(), client.Height()};
}

// A list by order number. Of equal numbers the one met first is kept and the others drop out: such a file was written
// by nobody's save, and drawing both on one place would hide which of them answers.
template <class Item>
struct Ordered {
    std::vector<Item*> kept;
    std::vector<Item*> dropped;
};

template <class Item, class Before>
Ordered<Item> in_order(const ItemList<Item>& list, Before before) {
    std::vector<Item*> items;
    items.reserve(list.size());
    for (Item* item : list) {
        if (item) items.push_back(item);
    }
    std::stable_sort(items.begin(), items.end(),
                     [&](const Item* a, const Item* b) { return before(a->m_order_num, b->m_order_num); });
    Ordered<Item> ordered;
    for (Item* item : items) {
        const bool taken = !ordered.kept.empty() && ordered.kept.back()->m_order_num == item->m_order_num;
        (taken ? ordered.dropped : ordered.kept).push_back(item);
    }
    return ordered;
}

// Gives the number that comes behind those of the list.
int number_shapes_of(const CSimpleGUIDialog& dialog) {
    int number = 0;
    for (auto at = dialog.m_shapes.rbegin(); at != dialog.m_shapes.rend(); ++at) {
        if (*at) (*at)->m_order_num = number++;
    }
    return number;
}

/// What a dialog lists that does not list all of its shapes.
struct ShapeList {
    int next_number = 0;
    std::unordered_set<const CSimpleGUIShape*> shapes;
};
using ShapeLists = std::unordered_map<const CSimpleGUIDialog*, ShapeList>;

}  // namespace

void CSimpleGUIManager::on_clean_project() try {
    m_gui_hidden = 1;
    s_dialog_name_count = 0;
    s_shape_name_count = 0;
    m_running = 0;
    if (m_setting && m_setting->m_font_info) m_setting->m_font_info->m_show_font_sample = false;
    m_view_rect = client_size(*m_system);
    m_scene_rect = m_view_rect;
    m_anim_nodes.clear();
    if (m_setting) m_setting->set_default();
} catch (...) {
    keep_inside(L"on_clean_project");
}

void CSimpleGUIManager::on_save_project(pack_node* node, const save_operation& operation) try {
    number_items();
    pack_node* child = node->add_child(setting_node);
    if (!m_setting || !child) return;
    m_setting->save_to_node(child, operation);
    float width = static_cast<float>(m_view_rect.Width());
    float height = static_cast<float>(m_view_rect.Height());
    child->add_property(width_key, PAK_FLOAT, &width);
    child->add_property(height_key, PAK_FLOAT, &height);
} catch (...) {
    keep_inside(L"on_save_project");
}

void CSimpleGUIManager::number_items() {
    // Dialogs are numbered from the front, shapes from the back: number 0 lies on top in both. What dropped out of a
    // list for its number comes behind the others, so that no two are written alike and nothing drops out again.
    int dialog_number = 0;
    ShapeLists lists;
    for (const auto* dialogs : {&m_dialogs, &m_unlisted_dialogs}) {
        for (CSimpleGUIDialog* dialog : *dialogs) {
            if (!dialog) continue;
            dialog->m_order_num = dialog_number++;
            const int behind = number_shapes_of(*dialog);
            if (dialog->m_has_unlisted_shapes)
                lists[dialog] = {behind, {dialog->m_shapes.begin(), dialog->m_shapes.end()}};
        }
    }
    if (lists.empty()) return;
    for (CSimpleGUIShape* shape : m_shapes) {
        const auto list = shape ? lists.find(shape->m_parent_dialog) : lists.end();
        if (list != lists.end() && !list->second.shapes.contains(shape))
            shape->m_order_num = list->second.next_number++;
    }
}

void CSimpleGUIManager::on_open_project(pack_node* node, const load_operation& operation) try {
    float width = -1.0f;
    float height = -1.0f;
    pack_node* child = node->find_child(setting_node);
    if (m_setting && child) {
        m_setting->on_parse(child, operation);
        child->get_property(width_key, PAK_FLOAT, &width);
        child->get_property(height_key, PAK_FLOAT, &height);
    }
    const bool has_size = width > 0.0f && height > 0.0f;
    m_scene_rect = has_size ? CRect(0, 0, round_half_up(width), round_half_up(height)) : m_view_rect;
} catch (...) {
    keep_inside(L"on_open_project");
}

void CSimpleGUIManager::on_project_opened() try {
    if (m_setting) m_setting->on_ready();
    adopt_shapes();
    if (!restore_order()) return;
    align_keys_of_opened_project();
    m_scene_rect = m_view_rect;
    for (CSimpleGUIDialog* dialog : m_dialogs) {
        if (dialog) dialog->m_last_rect = dialog->m_rect;
    }
} catch (...) {
    keep_inside(L"on_project_opened");
}

void CSimpleGUIManager::adopt_shapes() {
    for (CSimpleGUIShape* shape : m_shapes) {
        IActor* parent = shape && shape->m_actor ? shape->m_actor->get_parent() : nullptr;
        // A file can hang a shape under anything; only a dialog can be its frame.
        auto* dialog = dynamic_cast<CSimpleGUIDialog*>(parent ? parent->get_item() : nullptr);
        if (!dialog) continue;
        // Ahead of the parent: a dialog tells those of its list when it goes.
        dialog->m_shapes.push_back(shape);
        shape->m_parent_dialog = dialog;
        shape->update_rect();
    }
}

void CSimpleGUIManager::sort_shapes_of(CSimpleGUIDialog& dialog) {
    Ordered<CSimpleGUIShape> shapes = in_order(dialog.m_shapes, std::greater<int>());
    // A shape that drops out keeps its parent, which must then tell it when it goes.
    if (!shapes.dropped.empty()) dialog.m_has_unlisted_shapes = true;
    dialog.m_shapes.assign(std::move(shapes.kept));
}

bool CSimpleGUIManager::restore_order() {
    for (CSimpleGUIDialog* dialog : m_dialogs) {
        if (!dialog) continue;
        if (dialog->m_order_num == never_numbered) return false;
        sort_shapes_of(*dialog);
    }
    Ordered<CSimpleGUIDialog> dialogs = in_order(m_dialogs, std::less<int>());
    for (CSimpleGUIDialog* dialog : dialogs.dropped) m_unlisted_dialogs.push_back(dialog);
    m_dialogs.assign(std::move(dialogs.kept));
    return true;
}
