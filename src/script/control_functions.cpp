// The functions of controls that act: show, move, size, re-layer, delete, and the fields that scripts write.

#include "layout/anchors.h"
#include "layout/rounding.h"
#include "module/manager.h"
#include "module/module_state.h"
#include "script/call.h"
#include "script/moved_rect.h"
#include "script/script_functions.h"

using Functions = CSimpleGUIScriptFunctions;

namespace {

// Writes one field of the named shape, unless the value lies outside what the field can mean.
template <class Field, class Value>
void set_field(xfunc_desc* call, Field CSimpleGUIShape::*field, Value value) {
    if (CSimpleGUIShape* shape = named_shape(call)) shape->*field = static_cast<Field>(value);
}

template <class Field>
void set_in_range(xfunc_desc* call, Field CSimpleGUIShape::*field, int most) {
    const int value = int_param(call, 1);
    if (value >= 0 && value <= most) set_field(call, field, value);
}

// A wanted side of a size vector, in pixels. What is not above 0 counts as 0.
std::int32_t wanted_side(float side) { return side > 0.0f ? trunc_to_int(side) : 0; }

}  // namespace

void Functions::gui_script_show_ctrl(xfunc_desc* call) {
    if (CSimpleGUIShape* shape = named_shape(call)) show_by(shape->m_actor, int_param(call, 1));
}

void Functions::gui_script_move_ctrl(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    shape->set_rect(moved_rect(shape->m_rect, int_param(call, 1) != 0, int_param(call, 2), call->params[3]->get_VEC(),
                               call->params[4]->get_VEC()));
}

void Functions::gui_script_del_ctrl(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    IActor* actor = shape ? shape->m_actor : nullptr;
    constexpr int may_be_deleted = 1;
    if (!actor || !(actor->get_flag() & may_be_deleted)) return;
    s_gui_system->m_selection_manager->remove_item(actor, 1);
    actor->set_parent(nullptr);
}

void Functions::gui_script_set_ctrl_layer(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    if (!shape || !shape->m_parent_dialog) return;
    ItemList<CSimpleGUIShape>& shapes = shape->m_parent_dialog->m_shapes;
    shapes.remove(shape);
    if (int_param(call, 1) == 0) {
        shapes.push_front(shape);
    } else {
        shapes.push_back(shape);
    }
}

void Functions::ctrl_align_offset(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    if (!shape || !shape->m_parent_dialog) return;
    const CRect& frame = shape->m_parent_dialog->m_rect;
    const std::int64_t left = std::int64_t{frame.left} + int_param(call, 1);
    const std::int64_t top = std::int64_t{frame.top} + int_param(call, 2);
    const CRect& rect = shape->m_rect;
    shape->set_rect({saturated(left), saturated(top), saturated(left + rect.right - rect.left),
                     saturated(top + rect.bottom - rect.top)});
}

void Functions::set_ctrl_rect(xfunc_desc* call) {
    if (CSimpleGUIShape* shape = named_shape(call)) shape->set_rect(truncated_rect(call->params[1]->get_VEC4()));
}

void Functions::ctrl_align(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    const int align = int_param(call, 1);
    // A script never gives an element an alignment without an anchor.
    if (!shape || !(has_anchor(align) || align == ALIGN_SCALE)) return;
    shape->m_bScaleMode = align == ALIGN_SCALE ? 1 : 0;
    if (align != ALIGN_SCALE) shape->set_align_type(align);
    shape->set_rect(CRect(shape->m_rect));
}

void Functions::set_ctrl_size(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    const int base = int_param(call, 1);
    if (!shape || !has_anchor(base)) return;
    // Of a size vector x is the height and y the width.
    const VEC3 size = call->params[2]->get_VEC();
    shape->set_rect(resized_about(shape->m_rect, base, wanted_side(size.y), wanted_side(size.x)));
}

void Functions::set_ctrl_title(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    tstringW title = call->params[1]->get_STR();
    title.Replace(L"\\n", L"\n");
    shape->m_title = title;
}

void Functions::set_ctrl_usable(xfunc_desc* call) {
    set_field(call, &CSimpleGUIShape::m_is_usable, call->params[1]->get_BOOL());
}

void Functions::set_ctrl_bkimage(xfunc_desc* call) {
    set_field(call, &CSimpleGUIShape::m_bk_image, call->params[1]->get_BOOL());
}

void Functions::set_ctrl_txt_align(xfunc_desc* call) {
    set_in_range(call, &CSimpleGUIShape::m_font_org_position, FONT_RIGHT_BOTTOM);
}

void Functions::set_ctrl_txt_font(xfunc_desc* call) { set_in_range(call, &CSimpleGUIShape::m_font_type, 7); }

void Functions::set_ctrl_txt_color(xfunc_desc* call) {
    set_field(call, &CSimpleGUIShape::m_font_color, call->params[1]->get_VEC4());
}

void Functions::set_ctrl_txt_shadow(xfunc_desc* call) {
    set_field(call, &CSimpleGUIShape::m_font_shadow, call->params[1]->get_BOOL());
}

void Functions::set_ctrl_type(xfunc_desc* call) { set_in_range(call, &CSimpleGUIShape::m_is_static_pic, 1); }

void Functions::set_ctrl_bkcolor(xfunc_desc* call) {
    set_field(call, &CSimpleGUIShape::m_color, call->params[1]->get_VEC4());
}
