#include "scene/show.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/project_operations.h"

namespace bench {

namespace fs = std::filesystem;

Show::Show(host::Device& screen) : engine(screen, host::default_font_path()) {
    host::use_settable_time(0);
    engine.draw_scene = {};
    std::string error;
    if (!engine.load_module(MODULE_PATH, error)) throw std::runtime_error(error);
    engine.new_project(crowd_width, crowd_height);
}

Show::Show(const Crowd& crowd, const std::string& path) : Show() {
    std::string error;
    if (!engine.open_document(crowd_document(crowd), path, error)) throw std::runtime_error(error);
}

void Show::animate(const std::vector<CGuid>& items) {
    host::Animation* animation = engine.animations().create_animation(L"crowd");
    anim_info info;
    info.length = keys_in_track * seconds_between_keys;
    animation->set_anim_info(info);
    animation->starts_by_itself = true;
    host::ProjectNode keys = crowd_keys();
    const load_operation operation{};
    for (const CGuid& item : items) {
        const CMyComPtr<CAnimNodeBase> node(
            AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, item));
        if (!node) throw std::runtime_error("the module makes no animation nodes");
        animation->add_anim_node(node.get());
        node->on_parse(&keys, operation);
        node->on_ready();
    }
}

ScratchFolder::ScratchFolder() {
    const fs::path memory = "/dev/shm";
    std::string name = ((fs::exists(memory) ? memory : fs::temp_directory_path()) / "simple_gui_XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no folder for files: " + name);
    m_path = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code failure;
    fs::remove_all(m_path, failure);
}

void write_crowd(const Crowd& crowd, const std::string& path) {
    std::string error;
    Show show(crowd, path);
    if (!write_crowd_pictures(path, error) || !show.engine.save_project(path, error)) throw std::runtime_error(error);
}

}  // namespace bench
