// The functions of a control's pictures.

#include "module/module_state.h"
#include "script/call.h"
#include "script/script_functions.h"

using Functions = CSimpleGUIScriptFunctions;

namespace {

constexpr const wchar_t* no_such_file = L"文件不存在";

// The pictures by the number that scripts use.
constexpr CMyComPtr<ITexture> CSimpleGUIShape::*slots[] = {
    &CSimpleGUIShape::m_texture, &CSimpleGUIShape::m_texture_hover, &CSimpleGUIShape::m_texture_down};

bool is_slot(int slot) { return slot >= 0 && slot < static_cast<int>(std::size(slots)); }

// Where a picture lies: where the script says, else beside the project, else among the engine's resources, whether it
// is there or not.
tstringW picture_path(const tstringW& path) {
    if (filefun::file_exist(path.c_str())) return path;
    const std::wstring file = filefun::get_pure_filename(path.c_str(), true);
    const wchar_t* project = s_gui_system->project_file_path.c_str();
    const std::wstring beside =
        filefun::get_file_path(project) + filefun::get_pure_filename(project, false) + L"_textures\\" + file;
    return filefun::file_exist(beside.c_str()) ? beside : s_gui_system->resource_directory + file;
}

bool has_no_picture(const CSimpleGUIShape& shape) {
    return !shape.m_texture && !shape.m_texture_hover && !shape.m_texture_down;
}

}  // namespace

void Functions::set_ctrl_texture(xfunc_desc* call) {
    CSimpleGUIShape* shape = named_shape(call);
    if (!shape) return;
    const tstringW path = picture_path(call->params[2]->get_STR());
    CMyComPtr<ITexture> texture = s_gui_system->m_resource_manager->load_texture_from_file(path.c_str());
    texture->tex_kind = 0;
    texture->file_name = path;
    texture->tex_option = 4;
    texture->create_device_texture(s_gui_system->render_device);

    const IDeviceTexture* picture = texture->get_device_texture();
    if (!picture) {
        texture->file_name = no_such_file;
    } else if (has_no_picture(*shape) && shape->m_color == VEC4(1.0f, 1.0f, 1.0f, 0.2f)) {
        // The first picture of a new shape is to be seen as it is, not through the shape's first colour.
        shape->m_color = {1.0f, 1.0f, 1.0f, 1.0f};
    }
    const int slot = int_param(call, 1);
    if (is_slot(slot)) shape->*slots[slot] = texture;
    // Of a size vector x is the height and y the width.
    call->ret_param->set_VEC(picture
                                 ? VEC3(static_cast<float>(picture->height), static_cast<float>(picture->width), 0.0f)
                                 : VEC3(static_cast<float>(shape->get_rect().Height()),
                                        static_cast<float>(shape->get_rect().Width()), 0.0f));
}

void Functions::get_ctrl_texture(xfunc_desc* call) {
    const CSimpleGUIShape* shape = named_shape(call);
    const int slot = int_param(call, 1);
    if (!shape || !is_slot(slot) || !(shape->*slots[slot])) return;
    tstringW path = (shape->*slots[slot])->file_name;
    path.Replace(L"\\", L"\\\\");
    call->ret_param->set_STR(path.c_str());
}
