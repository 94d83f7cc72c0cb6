#include "host/core/project_picture.h"

#include <filesystem>

#include "engine/system.h"
#include "host/core/device.h"
#include "host/core/item_store.h"
#include "host/core/native_path.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr const char* file_name_key = "file_name";
constexpr const char* kind_key = "tex_kind";
constexpr const char* option_key = "tex_option";
constexpr int usual_kind = 0;
constexpr int usual_option = 4;

fs::path from_text(const std::string& path) { return fs::path(std::u8string(path.begin(), path.end())); }

std::string to_text(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return std::string(text.begin(), text.end());
}

fs::path whole(const fs::path& path) {
    std::error_code code;
    const fs::path absolute = fs::absolute(path, code);
    return (code ? path : absolute).lexically_normal();
}

// Modules put a word in the place of a path that leads nowhere; no folder belongs in front of it.
bool is_word(const std::wstring& file_name) { return file_name.find_first_of(L"./\\") == std::wstring::npos; }

// The path that an earlier picture of that name has come to, or that `make` comes to now.
template <class Make>
const std::wstring& once(std::unordered_map<std::wstring, std::wstring>& paths, const std::wstring& name, Make make) {
    const auto known = paths.find(name);
    return known != paths.end() ? known->second : paths.emplace(name, from_utf8(make())).first->second;
}

IBaseItem* find_picture(pack_node& node, const load_operation& operation) {
    return PictureItem::find_known(node, operation);
}

IBaseItem* create_picture(XSystem* system) { return new PictureItem(system ? system->render_device : nullptr); }

}  // namespace

std::string folder_of(const std::string& path) { return to_text(from_text(path).parent_path()); }

std::string stored_picture_path(const std::string& path, const std::string& folder) {
    if (path.empty()) return {};
    const fs::path picture = whole(native_path(from_utf8(path)));
    const fs::path relative = picture.lexically_relative(whole(from_text(folder.empty() ? "." : folder)));
    const bool inside = !relative.empty() && *relative.begin() != "..";
    return to_text(inside ? relative : picture);
}

std::string resolved_picture_path(const std::string& stored, const std::string& folder) {
    if (stored.empty()) return {};
    const fs::path picture = native_path(from_utf8(stored));
    // Joined without making it absolute: a project opened by a relative path shows relative pictures.
    return picture.is_absolute() ? to_text(picture) : to_text((from_text(folder) / picture).lexically_normal());
}

PictureItem::PictureItem(IBaseDevice* device) : m_device(device) {
    m_type = ITEM_TYPE_PICTURE;
    tex_kind = usual_kind;
    tex_option = usual_option;
}

void PictureItem::save_to_node(pack_node* node, const save_operation& operation) {
    ITexture::save_to_node(node, operation);
    const bool is_path = operation.to_file && (m_device_side || !is_word(file_name));
    const auto stored = [this, &operation] {
        return stored_picture_path(to_utf8(file_name), operation.project_folder);
    };
    node->add_string_property(
        file_name_key, is_path ? once(operation.picture_paths, file_name, stored) : from_utf8(to_utf8(file_name)));
    if (tex_kind != usual_kind) node->add_property(kind_key, PAK_INT, &tex_kind);
    if (tex_option != usual_option) node->add_property(option_key, PAK_INT, &tex_option);
}

void PictureItem::on_parse(pack_node* node, const load_operation& operation) {
    ITexture::on_parse(node, operation);
    tstringW stored;
    node->get_string_property(file_name_key, stored);
    node->get_property(kind_key, PAK_INT, &tex_kind);
    node->get_property(option_key, PAK_INT, &tex_option);
    file_name = from_utf8(resolved_picture_path(to_utf8(stored), operation.project_folder));
    create_device_texture(m_device);
    if (!m_device_side && !stored.empty() && operation.warnings)
        operation.warnings->push_back(to_utf8(operation.owner_name) + ": no picture in \"" + to_utf8(file_name) +
                                      "\" (missing, or no picture)");
    // One that is missing is told for each place that it is missed in.
    if (m_device_side && m_item_id.is_empty()) {
        CMyComPtr<ITexture>& known = operation.pictures[stored];
        if (!known) known = this;
    }
}

ITexture* PictureItem::find_known(pack_node& node, const load_operation& operation) {
    tstringW text;
    // What has an identifier is itself and no other.
    if (node.get_string_property(item_id_key, text) || !node.get_string_property(file_name_key, text)) return nullptr;
    const auto known = operation.pictures.find(text);
    if (known == operation.pictures.end()) return nullptr;
    int kind = usual_kind;
    int option = usual_option;
    node.get_property(kind_key, PAK_INT, &kind);
    node.get_property(option_key, PAK_INT, &option);
    ITexture* const picture = known->second.get();
    return kind == picture->tex_kind && option == picture->tex_option ? picture : nullptr;
}

void PictureItem::create_device_texture(IBaseDevice* device) {
    auto* used = static_cast<Device*>(device ? device : m_device);
    m_device_side = used && !file_name.empty() ? used->make_texture(file_name) : CMyComPtr<IDeviceTexture>();
}

void register_picture_items() {
    register_item_creator(ITEM_TYPE_PICTURE, L"picture", &create_picture, 0, &find_picture);
}

CMyComPtr<ITexture> ResourceManager::load_texture_from_file(const wchar_t* path) {
    CMyComPtr<ITexture> texture(new PictureItem(m_device));
    texture->file_name = path ? path : L"";
    texture->create_device_texture(m_device);
    return texture;
}

}  // namespace host
