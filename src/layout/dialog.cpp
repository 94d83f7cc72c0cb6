#include "layout/dialog.h"

#include "layout/approach.h"
#include "layout/element.h"
#include "layout/shape.h"
#include "module/boundary.h"
#include "module/manager.h"

namespace {

using D = CSimpleGUIDialog;

// The persisted fields of a dialog, in file order. Saving and reading both walk this table.
constexpr PersistedField<D> dialog_fields[] = {
    {"m_iAlignType", PAK_INT, address_of<&D::m_iAlignType, D>},
    {"m_offsetx", PAK_INT, address_of<&D::m_offsetx, D>},
    {"m_offsety", PAK_INT, address_of<&D::m_offsety, D>},
    {"m_bScaleMode", PAK_BOOL, address_of<&D::m_bScaleMode, D>},
    {"m_left_scaleMode", PAK_FLOAT, address_of<&D::m_left_scaleMode, D>},
    {"m_right_scaleMode", PAK_FLOAT, address_of<&D::m_right_scaleMode, D>},
    {"m_top_scaleMode", PAK_FLOAT, address_of<&D::m_top_scaleMode, D>},
    {"m_bottom_scaleMode", PAK_FLOAT, address_of<&D::m_bottom_scaleMode, D>},
    {"m_rect", PAK_RECT, address_of<&D::m_rect, D>},
    {"m_order_num", PAK_INT, address_of<&D::m_order_num, D>},
};

// The view has its origin at 0, 0 whatever its rectangle in the host window says.
CRect view_frame(const XSystem& system) {
    const CRect& client = system.get_client_rect();
    return {0, 0, client.Width(), client.Height()};
}

}  // namespace

CSimpleGUIDialog::CSimpleGUIDialog(CSimpleGUIManager* manager) : m_manager(manager), m_system(manager->get_system()) {
    m_type = ITEM_TYPE_DIALOG;
}

CSimpleGUIDialog::CSimpleGUIDialog(const CSimpleGUIDialog&) = default;
CSimpleGUIDialog& CSimpleGUIDialog::operator=(const CSimpleGUIDialog&) = default;

CSimpleGUIDialog::~CSimpleGUIDialog() {
    for (CSimpleGUIShape* shape : m_has_unlisted_shapes ? m_manager->m_shapes : m_shapes) {
        if (shape && shape->m_parent_dialog == this) shape->m_parent_dialog = nullptr;
    }
    m_manager->forget_dialog(this);
}

void CSimpleGUIDialog::save_to_node(pack_node* node, const save_operation& operation) try {
    if (!m_in_scene) return;
    IBaseItem::save_to_node(node, operation);
    save_fields(*this, node, dialog_fields);
} catch (...) {
    keep_inside(L"dialog: save_to_node");
}

void CSimpleGUIDialog::on_parse(pack_node* node, const load_operation& operation) try {
    IBaseItem::on_parse(node, operation);
    read_fields(*this, node, dialog_fields);
} catch (...) {
    keep_inside(L"dialog: on_parse");
}

void CSimpleGUIDialog::on_ready() try {
    IBaseItem::on_ready();
    m_last_rect = m_rect;
    update_rect();
    m_manager->m_dialogs.push_back(this);
} catch (...) {
    keep_inside(L"dialog: on_ready");
}

const CRect& CSimpleGUIDialog::get_rect() const { return m_rect; }

void CSimpleGUIDialog::update_offsets() {
    Placement placement = placement_of(*this);
    update_placement(placement, view_frame(*m_system), m_rect);
    store_placement(*this, placement);
}

void CSimpleGUIDialog::update_rect() {
    m_rect = rect_from_placement(placement_of(*this), view_frame(*m_system), m_rect);
    try {
        resize_shape_animnode_key();
        m_last_rect = m_rect;
    } catch (...) {
        // The next adjustment of the keys sees the whole difference; the shapes need no memory to go along.
        keep_inside(L"dialog: update_rect");
    }
    update_child_poses();
}

void CSimpleGUIDialog::set_align_type(int align) {
    m_iAlignType = align;
    update_offsets();
}

void CSimpleGUIDialog::set_scale_mode(int scale) {
    m_bScaleMode = scale;
    update_offsets();
}

void CSimpleGUIDialog::set_rect(const CRect& rect, bool keep_keys) try {
    m_rect = rect;
    update_offsets();
    update_child_poses();
    if (keep_keys) return;
    resize_shape_animnode_key();
    m_last_rect = m_rect;
} catch (...) {
    keep_inside(L"dialog: set_rect");
}

void CSimpleGUIDialog::update_child_poses() {
    Approach approach(
        m_shapes.rbegin(), m_shapes.rend(),
        [](const CSimpleGUIShape& shape) {
            fetch(&shape.m_parent_dialog);
            fetch(&shape.m_rect);
            fetch(&shape.m_iAlignType);
        },
        [](const CSimpleGUIShape&) {});
    for (auto at = m_shapes.rbegin(); at != m_shapes.rend(); ++at) {
        approach.next();
        if (*at) (*at)->update_rect();
    }
}
