// The functions that tell a script what a control is like. None of them changes anything.

#include "layout/anchors.h"
#include "script/call.h"
#include "script/moved_rect.h"
#include "script/script_functions.h"

using Functions = CSimpleGUIScriptFunctions;

namespace {

// Answers with one field of the named shape.
template <class Field>
void answer(xfunc_desc* call, Field CSimpleGUIShape::*field) {
    const CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    if constexpr (std::is_same_v<Field, VEC4>) {
        call->ret_param->set_VEC4(shape->*field);
    } else {
        call->ret_param->set_INT(static_cast<int>(shape->*field));
    }
}

}  // namespace

void Functions::gui_script_ctrl_get_pos(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    const bool in_dialog = int_param(call, 2) != 0;
    if (!shape || (in_dialog && !shape->m_parent_dialog)) return;
    const CRect& rect = shape->m_rect;
    VEC3 position(static_cast<float>(rect.left), static_cast<float>(rect.top), 0.0f);
    // How much of the size lies between the left top corner and the sample point.
    const int sample = int_param(call, 1);
    const float part = sample == 1 ? 0.5f : sample == 2 ? 1.0f : 0.0f;
    position.x += static_cast<float>(rect.Width()) * part;
    position.y += static_cast<float>(rect.Height()) * part;
    if (in_dialog) {
        position.x -= static_cast<float>(shape->m_parent_dialog->m_rect.left);
        position.y -= static_cast<float>(shape->m_parent_dialog->m_rect.top);
    }
    call->ret_param->set_VEC(position);
}

void Functions::get_ctrl_rect(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    if (shape) call->ret_param->set_VEC4(float_edges(shape->m_rect));
}

void Functions::get_ctrl_size(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    // Of a size vector x is the height and y the width.
    call->ret_param->set_VEC(
        {static_cast<float>(shape->get_rect().Height()), static_cast<float>(shape->get_rect().Width()), 0.0f});
}

void Functions::get_ctrl_title(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    tstringW title = shape->m_title;
    title.Replace(L"\n", L"\\n");
    call->ret_param->set_STR(title.c_str());
}

void Functions::get_ctrl_usable(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_is_usable); }
void Functions::get_ctrl_bkimage(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_bk_image); }
void Functions::get_ctrl_txt_font(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_font_type); }
void Functions::get_ctrl_txt_color(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_font_color); }
void Functions::get_ctrl_txt_shadow(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_font_shadow); }
void Functions::get_ctrl_type(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_is_static_pic); }
void Functions::get_ctrl_txt_align(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_font_org_position); }
void Functions::get_ctrl_bkcolor(xfunc_desc* call) { answer(call, &CSimpleGUIShape::m_color); }

void Functions::get_ctrl_align(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    if (shape) call->ret_param->set_INT(shape->m_bScaleMode ? ALIGN_SCALE : shape->m_iAlignType);
}
