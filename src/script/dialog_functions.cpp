// The functions of dialogs, of the whole GUI, and of plain vectors.

#include <algorithm>

#include "layout/rounding.h"
#include "module/manager.h"
#include "module/module_state.h"
#include "platform/platform.h"
#include "script/call.h"
#include "script/moved_rect.h"
#include "script/script_functions.h"

using Functions = CSimpleGUIScriptFunctions;

void Functions::gui_script_show_gui(xfunc_desc* call) {
    int& hidden = s_gui_manager->m_gui_hidden;
    switch (int_param(call, 0)) {
        case 0:
            hidden = 1;
            break;
        case 1:
            hidden = 0;
            break;
        case 2:
            hidden = hidden ? 0 : 1;
            break;
        default:
            break;
    }
}

void Functions::gui_script_show_dialog(xfunc_desc* call) {
    if (CSimpleGUIDialog* dialog = named_dialog(call)) show_by(dialog->m_actor, int_param(call, 1));
}

void Functions::gui_script_set_wnd_size(xfunc_desc* call) {
    CSimpleGUIDialog* dialog = named_dialog(call);
    if (!dialog) return;
    const CRect& client = call->system->get_client_rect();
    const bool share_of_view = int_param(call, 1) != 0;
    const float across = share_of_view ? static_cast<float>(client.Width()) : 1.0f;
    const float down = share_of_view ? static_cast<float>(client.Height()) : 1.0f;
    const VEC3 first = call->params[2]->get_VEC();
    const VEC3 second = call->params[3]->get_VEC();
    CRect rect = truncated_rect({across * first.x, down * first.y, across * second.x, down * second.y});
    if (int_param(call, 4) != 0) {
        rect = CRect(std::max<std::int32_t>(rect.left, 0), std::max<std::int32_t>(rect.top, 0),
                     std::min<std::int32_t>(rect.right, client.Width()),
                     std::min<std::int32_t>(rect.bottom, client.Height()));
    }
    dialog->set_rect(rect, false);
}

void Functions::gui_script_move_wnd(xfunc_desc* call) {
    CSimpleGUIDialog* dialog = named_dialog(call);
    if (!dialog) return;
    dialog->set_rect(moved_rect(dialog->m_rect, int_param(call, 1) != 0, int_param(call, 2), call->params[3]->get_VEC(),
                                call->params[4]->get_VEC()),
                     false);
}

void Functions::get_wnd_rect(xfunc_desc* call) {
    const CSimpleGUIDialog* dialog = named_dialog(call);
    if (dialog) call->ret_param->set_VEC4(float_edges(dialog->m_rect));
}

void Functions::set_wnd_rect(xfunc_desc* call) {
    CSimpleGUIDialog* dialog = named_dialog(call);
    if (dialog) dialog->set_rect(truncated_rect(call->params[1]->get_VEC4()), false);
}

void Functions::b_mouse_in_dialog(xfunc_desc* call) {
    const CSimpleGUIDialog* dialog = named_dialog(call);
    // The cursor's place on the screen is compared with the place in the view as it stands.
    if (dialog) call->ret_param->set_INT(contains(dialog->m_rect, platform::cursor_position()) ? 1 : 0);
}

void Functions::wnd_align(xfunc_desc* call) {
    const CSimpleGUIDialog* ruler = named_dialog(call, 0);
    CSimpleGUIDialog* moved = named_dialog(call, 2);
    if (!ruler || !moved) return;
    const CRect& r = ruler->m_rect;
    const CRect& m = moved->m_rect;
    const std::int64_t distances[][2] = {{0, std::int64_t{r.top} - m.top},
                                         {0, std::int64_t{r.bottom} - m.bottom},
                                         {std::int64_t{r.left} - m.left, 0},
                                         {std::int64_t{r.right} - m.right, 0}};
    const int mode = int_param(call, 1);
    const bool known = mode >= 0 && mode < static_cast<int>(std::size(distances));
    const std::int64_t across = known ? distances[mode][0] : 0;
    const std::int64_t down = known ? distances[mode][1] : 0;
    moved->set_rect(
        {saturated(m.left + across), saturated(m.top + down), saturated(m.right + across), saturated(m.bottom + down)},
        false);
}

void Functions::rect_inflate(xfunc_desc* call) {
    const VEC4 rect = call->params[0]->get_VEC4();
    const VEC4 margins = call->params[1]->get_VEC4();
    call->ret_param->set_VEC4({rect.x - margins.x, rect.y - margins.y, rect.z + margins.z, rect.w + margins.w});
}

void Functions::vector_combo(xfunc_desc* call) {
    call->ret_param->set_VEC(
        {call->params[0]->get_FLOAT(), call->params[1]->get_FLOAT(), call->params[2]->get_FLOAT()});
}
