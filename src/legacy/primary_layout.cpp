// The primary layout: stages that fill the view, with panels that hang on a point of it or are fractions of it.

#include "layout/shape.h"
#include "legacy/color.h"
#include "legacy/controls.h"
#include "legacy/names.h"
#include "legacy/panel_place.h"
#include "legacy/root_dialog.h"
#include "legacy/text_format.h"
#include "module/boundary.h"
#include "module/manager.h"

namespace {

constexpr int font_slots = 8;
// Where a key is missing, a colour is that of the old editor's brush.
constexpr int first_color = 1;

void read_place(CPakNode& panel_pos, CSimpleGUIShape& shape) {
    const PanelPlace place = read_panel_place(panel_pos);
    const CRect& frame = shape.m_parent_dialog->m_rect;
    shape.set_align_type(panel_alignment(place.align_mode));
    shape.set_rect(panel_rect(place, frame.Width(), frame.Height()));
    shape.set_scale_mode(place.locate_mode == 1 ? 1 : 0);
}

void read_look(CPakNode& panel, CSimpleGUIShape& shape) {
    shape.m_is_static_pic = is_legacy_button(read_legacy_int(panel, "panel_type")) ? 0 : 1;
    shape.m_color = decode_legacy_color(read_legacy_int(panel, "color", first_color));
    if (read_legacy_int(panel, "ENABLE_TRANSP") != 0 && read_legacy_int(panel, "TRANSP_TYPE") == 1) {
        shape.m_primary_import = true;
        shape.m_color.w = legacy_opacity(read_legacy_int(panel, "TRANS_FACTOR"));
    }
}

void read_text(CPakNode& panel, CSimpleGUIShape& shape) {
    if (CPakNode* text = panel.find("text_buf")) shape.m_title = read_legacy_text_data(*text);
    shape.m_font_color = decode_legacy_color(read_legacy_int(panel, "text_color", first_color));
    shape.m_font_org_position = legacy_text_position(read_legacy_int(panel, "text_format"));
    const int font = read_legacy_int(panel, "text_font_idx");
    if (font >= 0 && font < font_slots) shape.m_font_type = font;
}

}  // namespace

PanelPlace read_panel_place(CPakNode& panel_pos) {
    PanelPlace place;
    place.locate_mode = read_legacy_int(panel_pos, "locate_mode");
    place.align_mode = read_legacy_int(panel_pos, "align_mode");
    place.offset = read_legacy_vec3(panel_pos, "offset_in_pixel");
    const CPoint size = read_legacy_pair(panel_pos, "size_in_pixel");
    place.width = size.x;
    place.height = size.y;
    place.left = read_legacy_float(panel_pos, "percent_left");
    place.top = read_legacy_float(panel_pos, "percent_top");
    place.right = read_legacy_float(panel_pos, "percent_right");
    place.bottom = read_legacy_float(panel_pos, "percent_bottom");
    return place;
}

void CSimpleGUIManager::create_primary_dialog_from_old_zov(CPakNode* stage) try {
    CSimpleGUIDialog* dialog = create_dialog();
    if (!dialog) return;
    if (!m_root_dialog) m_root_dialog = dialog;
    dialog->set_scale_mode(1);
    const CRect& client = m_system->get_client_rect();
    dialog->set_rect({0, 0, client.Width(), client.Height()}, false);
    dialog->m_last_rect = {0, 0, m_scene_rect.Width(), m_scene_rect.Height()};
    const tstringW name = stage->get_name();
    dialog->m_actor->set_name(name.c_str(), true);
    bool is_empty = true;
    each_legacy_child(stage, [&](CPakNode& panel) {
        if (!is_legacy_panel(panel.get_name())) return;
        is_empty = false;
        create_primary_shape_from_old_zov(&panel, dialog);
    });
    // Every old project has this stage, also where its author made nothing on it.
    if (is_empty && name == LEGACY_MAIN_STAGE) delete_legacy_dialog(*this, *dialog);
} catch (...) {
    keep_inside(L"create_primary_dialog_from_old_zov");
}

void CSimpleGUIManager::create_primary_shape_from_old_zov(CPakNode* panel, CSimpleGUIDialog* dialog) try {
    CSimpleGUIShape* shape = create_shape(dialog);
    if (!shape) return;
    shape->m_item_id = read_legacy_guid(*panel, "id");
    shape->m_actor->set_id(shape->m_item_id);
    shape->m_actor->set_visible(read_legacy_int(*panel, "visible", 1) != 0);
    shape->m_actor->set_name(panel->get_name().c_str(), true);
    if (CPakNode* panel_pos = panel->find("panel_pos")) read_place(*panel_pos, *shape);
    read_look(*panel, *shape);
    read_text(*panel, *shape);
    CPakNode* picture = panel->find("texture");
    const CMyComPtr<ITexture> texture = picture ? get_texture_from_old_zov(picture) : CMyComPtr<ITexture>();
    if (texture && texture->get_device_texture()) shape->m_texture = texture;
} catch (...) {
    keep_inside(L"create_primary_shape_from_old_zov");
}
