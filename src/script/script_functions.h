#pragma once

#include "engine/script.h"

/// The registration and the bodies of the script functions. No object of it is made. A body reads the parameters of
/// the call by position and answers through its return parameter. A name that finds no item, or a selector out of
/// range, has no effect and leaves the return parameter as it was.
class CSimpleGUIScriptFunctions {
public:
    virtual ~CSimpleGUIScriptFunctions() = default;

    /// Registers every row of the table with the engine's script manager.
    static void register_functions();

    static void gui_script_show_gui(xfunc_desc* call);
    static void gui_script_show_dialog(xfunc_desc* call);
    static void gui_script_set_wnd_size(xfunc_desc* call);
    static void gui_script_move_wnd(xfunc_desc* call);
    static void get_wnd_rect(xfunc_desc* call);
    static void set_wnd_rect(xfunc_desc* call);
    static void b_mouse_in_dialog(xfunc_desc* call);
    static void wnd_align(xfunc_desc* call);
    static void rect_inflate(xfunc_desc* call);
    static void vector_combo(xfunc_desc* call);
    static void gui_script_show_ctrl(xfunc_desc* call);
    static void gui_script_move_ctrl(xfunc_desc* call);
    static void gui_script_del_ctrl(xfunc_desc* call);
    static void gui_script_set_ctrl_layer(xfunc_desc* call);
    static void gui_script_ctrl_get_pos(xfunc_desc* call);
    static void ctrl_align_offset(xfunc_desc* call);
    static void get_ctrl_rect(xfunc_desc* call);
    static void set_ctrl_rect(xfunc_desc* call);
    static void get_ctrl_size(xfunc_desc* call);
    static void ctrl_align(xfunc_desc* call);
    static void set_ctrl_size(xfunc_desc* call);
    static void set_ctrl_title(xfunc_desc* call);
    static void set_ctrl_usable(xfunc_desc* call);
    static void set_ctrl_bkimage(xfunc_desc* call);
    static void set_ctrl_txt_align(xfunc_desc* call);
    static void set_ctrl_txt_font(xfunc_desc* call);
    static void set_ctrl_txt_color(xfunc_desc* call);
    static void set_ctrl_txt_shadow(xfunc_desc* call);
    static void set_ctrl_type(xfunc_desc* call);
    static void set_ctrl_bkcolor(xfunc_desc* call);
    static void set_ctrl_texture(xfunc_desc* call);
    static void get_ctrl_title(xfunc_desc* call);
    static void get_ctrl_usable(xfunc_desc* call);
    static void get_ctrl_bkimage(xfunc_desc* call);
    static void get_ctrl_txt_font(xfunc_desc* call);
    static void get_ctrl_txt_color(xfunc_desc* call);
    static void get_ctrl_txt_shadow(xfunc_desc* call);
    static void get_ctrl_type(xfunc_desc* call);
    static void get_ctrl_align(xfunc_desc* call);
    static void get_ctrl_txt_align(xfunc_desc* call);
    static void get_ctrl_bkcolor(xfunc_desc* call);
    static void get_ctrl_texture(xfunc_desc* call);
};
