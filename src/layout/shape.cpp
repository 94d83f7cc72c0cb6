#include "layout/shape.h"

#include "layout/element.h"
#include "layout/seconds.h"
#include "layout/shape_fields.h"
#include "layout/shape_watch.h"
#include "layout/text_anchor.h"
#include "module/boundary.h"
#include "module/manager.h"

std::uint64_t CSimpleGUIShape::s_noted_writes = 0;

CSimpleGUIShape::CSimpleGUIShape(CSimpleGUIManager* manager) : m_manager(manager), m_mode_time(present_seconds()) {
    m_type = ITEM_TYPE_SHAPE;
}

CSimpleGUIShape::CSimpleGUIShape(const CSimpleGUIShape&) = default;
CSimpleGUIShape& CSimpleGUIShape::operator=(const CSimpleGUIShape&) = default;

CSimpleGUIShape::~CSimpleGUIShape() {
    ShapeWatch::forget(this);
    if (m_manager) m_manager->m_shapes.remove(this);
    if (m_parent_dialog) m_parent_dialog->m_shapes.remove(this);
}

void CSimpleGUIShape::save_to_node(pack_node* node, const save_operation& operation) try {
    if (!m_in_scene) return;
    if (m_parent_dialog && !m_parent_dialog->m_in_scene) return;
    IBaseItem::save_to_node(node, operation);
    save_shape_fields(*this, node, operation);
} catch (...) {
    keep_inside(L"shape: save_to_node");
}

void CSimpleGUIShape::on_parse(pack_node* node, const load_operation& operation) try {
    IBaseItem::on_parse(node, operation);
    read_shape_fields(*this, node, operation);
} catch (...) {
    keep_inside(L"shape: on_parse");
}

void CSimpleGUIShape::on_ready() try {
    IBaseItem::on_ready();
    m_manager->m_shapes.push_back(this);
} catch (...) {
    keep_inside(L"shape: on_ready");
}

const CRect& CSimpleGUIShape::get_rect() const { return m_rect; }

void CSimpleGUIShape::update_offsets() {
    if (!m_parent_dialog) return;
    Placement placement = placement_of(*this);
    update_placement(placement, m_parent_dialog->m_rect, m_rect);
    store_placement(*this, placement);
}

void CSimpleGUIShape::update_rect() {
    if (!m_parent_dialog) return;
    m_rect = rect_from_placement(placement_of(*this), m_parent_dialog->m_rect, m_rect);
}

void CSimpleGUIShape::update_fontpos() {
    if (!m_parent_dialog) return;
    CPoint anchor;
    if (!text_anchor(m_rect, m_font_org_position, anchor)) return;
    const CRect& frame = m_parent_dialog->m_rect;
    m_font_pos_x = saturated(std::int64_t{anchor.x} - frame.left);
    m_font_pos_y = saturated(std::int64_t{anchor.y} - frame.top);
}

void CSimpleGUIShape::set_rect(const CRect& rect) {
    m_rect = rect;
    update_offsets();
}

void CSimpleGUIShape::set_align_type(int align) {
    m_iAlignType = align;
    update_offsets();
}

void CSimpleGUIShape::set_scale_mode(int scale) {
    m_bScaleMode = scale;
    update_offsets();
}

void CSimpleGUIShape::set_texture_mode(int mode) {
    if (mode == m_texture_mode) return;
    for (int index = MODE_NORMAL; index <= MODE_DOWN; ++index) m_fade_start[index] = m_fade_now[index];
    m_texture_mode = mode;
    if (m_parent_dialog) m_mode_time = present_seconds();
}

void CSimpleGUIShape::change_parent_dialog(CSimpleGUIDialog* dialog) try {
    if (dialog == m_parent_dialog) return;
    CSimpleGUIDialog* const former = m_parent_dialog;
    dialog->m_shapes.push_back(this);
    if (former) former->m_shapes.remove(this);
    m_parent_dialog = dialog;
    try {
        if (m_actor) m_actor->set_parent(dialog->m_actor);
    } catch (...) {
        // Where the actor stays the shape stays too, on top. The place that it has left is still there.
        dialog->m_shapes.remove(this);
        m_parent_dialog = former;
        if (former) former->m_shapes.push_back(this);
        throw;
    }
    update_offsets();
    m_manager->get_system()->m_message_manager->send_msg(MSG_ACTOR_TREE_CHANGED, 0, 0, 0, 0, 0, 0);
} catch (...) {
    keep_inside(L"shape: change_parent_dialog");
}
