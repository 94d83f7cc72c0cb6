#include "scratch_engine/engine.h"

#include <cmath>

ScratchEngine::ScratchEngine() : m_font(new IBaseFont(&device)) {
    registry() = {};
    m_font->create_font_from_file(L"", 16);
    default_font = m_font.get();
    m_resource_manager = this;
    m_input_manager = &input;
    m_scene_manager = &scene;
    m_message_manager = this;
    m_selection_manager = this;
    m_script_manager = this;
    render_device = &device;
    m_renderfun = &device;
    g_create_module(&m_module, this);
    m_module->init_3d_environment();
    m_module->on_register_xfunc();
    m_module->on_clean_project();
}

ScratchEngine::~ScratchEngine() {
    scene.clear();
    delete m_module;
    scene.property_items.clear();
}

void ScratchEngine::resize(int width, int height) {
    client = {0, 0, width, height};
    m_module->on_size_changed(width, height);
}

std::vector<DrawCall> ScratchEngine::frame() {
    device.calls.clear();
    m_module->render_in_view_2d(render_context{});
    return device.calls;
}

void ScratchEngine::set_seconds(double seconds) {
    registry().ticks = static_cast<unsigned long long>(std::llround(seconds * static_cast<double>(time_guard::s_freq)));
}

void ScratchEngine::tell(unsigned long id, std::list<IActor*> actors) {
    m_module->process_message(id, reinterpret_cast<message_param>(&actors), 0, 0, 0, 0, 0);
}

CMyComPtr<ITexture> ScratchEngine::load_texture_from_file(const wchar_t* path) {
    CMyComPtr<ITexture> texture(new ScratchPicture(filefun::file_exist(path)));
    texture->file_name = path;
    return texture;
}

IBaseModule::IBaseModule(XSystem* system) : m_system(system), m_device(system ? system->render_device : nullptr) {}
IBaseModule::IBaseModule(const IBaseModule&) = default;
IBaseModule& IBaseModule::operator=(const IBaseModule&) = default;
IBaseModule::~IBaseModule() = default;
void IBaseModule::process_message(unsigned long, message_param, message_param, message_param, message_param,
                                  message_param, message_param) {}
void IBaseModule::init_3d_environment() {}
void IBaseModule::on_destroy() {}
void IBaseModule::prepare_run() {}
void IBaseModule::after_run() {}
void IBaseModule::frame_move() {}
void IBaseModule::on_open_project(pack_node*, const load_operation&) {}
void IBaseModule::on_project_opened() {}
void IBaseModule::on_open_old_zov_project(CPakNode*) {}
void IBaseModule::on_save_project(pack_node*, const save_operation&) {}
void IBaseModule::on_import_old_zov_project(CPakNode*, IActor*) {}
void IBaseModule::on_import_objfile_to_project(tstringW, IActor*) {}
void IBaseModule::on_clean_project() {}
void IBaseModule::before_render_in_view(const render_context&) {}
void IBaseModule::render_in_view_3d(const render_context&) {}
void IBaseModule::render_in_view_2d(const render_context&) {}
void IBaseModule::after_render_in_view(const render_context&) {}
void IBaseModule::on_size_changed(int, int) {}
void IBaseModule::on_register_xfunc() {}
void IBaseModule::on_idle() {}
