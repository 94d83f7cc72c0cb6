#pragma once

// Pictures as a project knows them, and the road between a picture's path and what a project file says of it.

#include <string>

#include "engine/device.h"
#include "engine/texture.h"

class XSystem;

namespace host {

/// A picture file with its device side. `file_name` is a path that can be opened from the working directory.
class PictureItem final : public ITexture {
public:
    explicit PictureItem(IBaseDevice* device);

    void save_to_node(pack_node* node, const save_operation& operation) override;
    /// Reads the path and makes the device side; a missing picture is told to the operation's warnings.
    void on_parse(pack_node* node, const load_operation& operation) override;
    /// The picture of this load that says the same as the node, or null. What is loaded keeps its path: whoever wants
    /// another picture takes a new one.
    static ITexture* find_known(pack_node& node, const load_operation& operation);
    /// A null device stands for the one given to the constructor.
    void create_device_texture(IBaseDevice* device) override;
    IDeviceTexture* get_device_texture() override { return m_device_side.get(); }

private:
    IBaseDevice* m_device;
    CMyComPtr<IDeviceTexture> m_device_side;
};

/// Registers pictures as a kind of item.
void register_picture_items();

class ResourceManager final : public CResourceManager {
public:
    explicit ResourceManager(IBaseDevice* device) : m_device(device) {}
    /// The device side is tried at once.
    CMyComPtr<ITexture> load_texture_from_file(const wchar_t* path) override;

private:
    IBaseDevice* m_device;
};

/// What a project in `folder` says of the picture: relative to the folder if it lies inside, else an absolute path;
/// always with '/'. All UTF-8; an empty path stays empty.
std::string stored_picture_path(const std::string& path, const std::string& folder);
/// The way back.
std::string resolved_picture_path(const std::string& stored, const std::string& folder);
/// The folder of a file, UTF-8, without a separator at its end; empty for a plain file name.
std::string folder_of(const std::string& path);

}  // namespace host
