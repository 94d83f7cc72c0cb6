// The plain layout: dialogs with their controls, stored as rectangles in the view that the project was made for.

#include "layout/shape.h"
#include "legacy/controls.h"
#include "legacy/rects.h"
#include "legacy/values.h"
#include "module/boundary.h"
#include "module/manager.h"

namespace {

CRect stored_rect(CPakNode& node, const CRect& origin) {
    return legacy_rect(std::int64_t{read_legacy_int(node, "POSX")} + origin.left,
                       std::int64_t{read_legacy_int(node, "POSY")} + origin.top, read_legacy_int(node, "WIDTH"),
                       read_legacy_int(node, "HEIGHT"));
}

template <class Item>
void name_item(Item& item, const CGuid& id, const tstringW& name) {
    item.m_item_id = id;
    item.m_actor->set_name(name.c_str(), true);
    item.m_actor->set_id(id);
}

}  // namespace

void CSimpleGUIManager::create_dialog_from_old_zov(CPakNode* node) try {
    const int align = read_legacy_int(*node, "m_iAlignType");
    const int scale = align == ALIGN_SCALE ? 1 : read_legacy_int(*node, "ScaleMode");
    const CRect stored = stored_rect(*node, {});

    CSimpleGUIDialog* dialog = create_dialog();
    if (!dialog) return;
    if (!m_root_dialog) m_root_dialog = dialog;
    dialog->set_align_type(align);
    dialog->m_offsetx = read_legacy_int(*node, "m_offsetx");
    dialog->m_offsety = read_legacy_int(*node, "m_offsety");
    dialog->m_bScaleMode = scale;
    name_item(*dialog, read_legacy_guid(*node, "GUID"), node->get_name());
    // Controls are converted from the stored rectangle to the present one, so it has to stay until they are there.
    dialog->m_last_rect = stored;
    dialog->set_rect(resize_rect_according_to_root(stored, m_scene_rect, m_view_rect, align, scale), true);
    dialog->m_actor->set_visible((read_legacy_int(*node, "Flag") & 1) != 0);
    each_legacy_child_backwards(node->find("Controls"),
                                [&](CPakNode& control) { create_shape_from_old_zov(&control, dialog); });
    dialog->update_rect();
} catch (...) {
    keep_inside(L"create_dialog_from_old_zov");
}

void CSimpleGUIManager::create_shape_from_old_zov(CPakNode* node, CSimpleGUIDialog* dialog) try {
    const int align = read_legacy_int(*node, "Align");
    const int scale = read_legacy_int(*node, "ScaleMode");
    const CRect stored = stored_rect(*node, dialog->m_last_rect);

    CSimpleGUIShape* shape = create_shape(dialog);
    if (!shape) return;
    shape->set_align_type(align);
    shape->set_scale_mode(scale);
    shape->m_offsetx = read_legacy_int(*node, "offsetx");
    shape->m_offsety = read_legacy_int(*node, "offsety");
    shape->m_title = read_legacy_text(*node, "Caption", LEGACY_TEXT);
    shape->m_bk_image = read_legacy_int(*node, "BKIMAGE");
    shape->m_actor->set_visible(read_legacy_int(*node, "VISIBLE") != 0);
    name_item(*shape, read_legacy_guid(*node, "GUID"), read_legacy_text(*node, "NAME", LEGACY_NAME));
    shape->set_rect(resize_rect_according_to_root(stored, dialog->m_last_rect, dialog->m_rect, align, scale));

    const LegacyControl* kind = find_legacy_control(read_legacy_int(*node, "Type"));
    if (kind) {
        shape->m_is_static_pic = kind->is_static_pic;
        shape->m_color = kind->color;
        CMyComPtr<ITexture>* const pictures[] = {&shape->m_texture, &shape->m_texture_hover, &shape->m_texture_down};
        for (std::size_t at = 0; at < std::size(pictures); ++at) {
            CPakNode* picture = kind->pictures[at] ? node->find(kind->pictures[at]) : nullptr;
            if (picture) *pictures[at] = get_texture_from_old_zov(picture);
        }
    }
    shape->update_offsets();
} catch (...) {
    keep_inside(L"create_shape_from_old_zov");
}
