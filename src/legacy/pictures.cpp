// Pictures of a legacy project, of both layouts.

#include "legacy/values.h"
#include "module/boundary.h"
#include "module/manager.h"

namespace {

// Shown to the author in the place of the path.
constexpr const wchar_t* no_such_file = L"文件不存在";

// Where a picture lies: where its author had it, else in the project's folder of pictures, under its whole path or
// under its name alone, whether it is there or not.
tstringW picture_path(const tstringW& stored, const tstringW& folder) {
    if (filefun::file_exist(stored.c_str())) return stored;
    std::wstring beside = folder + stored;
    if (filefun::file_exist(beside.c_str())) return beside;
    return folder + filefun::get_pure_filename(stored.c_str(), true);
}

}  // namespace

CMyComPtr<ITexture> CSimpleGUIManager::get_texture_from_old_zov(CPakNode* node) try {
    const tstringW path = picture_path(read_legacy_text(*node, "FILENAME", LEGACY_PATH), m_legacy_texture_folder);
    CMyComPtr<ITexture> texture = m_system->m_resource_manager->load_texture_from_file(path.c_str());
    if (!texture) return texture;
    texture->tex_kind = 0;
    texture->file_name = path;
    texture->tex_option = 4;
    texture->create_device_texture(m_device);
    if (!texture->get_device_texture()) texture->file_name = no_such_file;
    return texture;
} catch (...) {
    keep_inside(L"get_texture_from_old_zov");
    return {};
}
