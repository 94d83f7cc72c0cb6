#include "host/system/engine.h"

#include <algorithm>
#include <cstdio>

#include "host/core/item_store.h"
#include "host/core/memory_watch.h"
#include "host/core/text_conversion.h"
#include "host/system/engine_functions.h"
#include "host/system/script_function.h"

namespace host {

Engine::Engine(Device& device, const std::wstring& font_path, unsigned font_size)
    : draw_scene([](Device& to, const render_context& frame, const SceneLook& how) {
          host::draw_scene(to, frame.width, frame.height, how, frame.seconds);
      }),
      m_device(device),
      m_scene(m_messages, m_selection),
      m_scripts(this),
      m_resources(&device) {
    register_picture_items();
    register_script_items();
    m_resource_manager = &m_resources;
    m_input_manager = &m_input;
    m_scene_manager = &m_scene;
    m_message_manager = &m_messages;
    m_selection_manager = &m_selection;
    m_script_manager = &m_scripts;
    m_anim_manager = &m_animations;
    render_device = &device;
    m_renderfun = &device;
    if (!font_path.empty()) {
        m_font = new IBaseFont(&device);
        m_font->create_font_from_file(font_path.c_str(), font_size);
        default_font = m_font.get();
    }
    m_scripts.set_extra_functions(&add_engine_functions, this);
    m_scripts.owner_name = [this](const CGuid& id) {
        const Actor* actor = m_scene.find_any(id);
        return actor ? std::wstring(actor->get_name()) : std::wstring();
    };
}

Engine::~Engine() { close(); }

SceneLook Engine::first_look() { return {}; }

template <class Call>
void Engine::each_module(Call call) {
    for (const auto& library : m_modules) call(library->module());
}

void Engine::request_view_update() {
    if (on_view_update) on_view_update();
}

void Engine::show_message(const std::string& text) {
    if (on_message) return on_message(text);
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fputc('\n', stdout);
}

bool Engine::load_module(const std::string& so_path, std::string& error) try {
    const MemoryWatch watch;
    auto library = ModuleLibrary::load(so_path, this, error);
    if (!library) return watch.ran_out() && out_of_memory(so_path, error);
    IBaseModule& module = library->module();
    m_modules.push_back(std::move(library));
    m_messages.add_listener(&module);
    module.init_3d_environment();
    module.on_register_xfunc();
    if (!watch.ran_out()) return true;
    close();
    return out_of_memory(so_path, error);
} catch (const std::bad_alloc&) {
    close();
    return out_of_memory(so_path, error);
}

IBaseModule* Engine::module() const { return m_modules.empty() ? nullptr : &m_modules.front()->module(); }

void Engine::resize(int width, int height) {
    m_client = {0, 0, std::max(width, 0), std::max(height, 0)};
    tell_size_changed();
}

void Engine::tell_size_changed() {
    each_module([this](IBaseModule& module) { module.on_size_changed(m_client.Width(), m_client.Height()); });
}

bool Engine::frame(double seconds) {
    const MemoryWatch watch;
    bool whole = false;
    try {
        draw_frame(seconds);
        whole = !watch.ran_out();
    } catch (const std::bad_alloc&) {
        whole = false;
    }
    if (!whole) zov_simple_log(LOG_FONT, L"a frame: out of memory", nullptr);
    return whole;
}

void Engine::draw_frame(double seconds) {
    const render_context context{std::max(m_client.Width(), 0), std::max(m_client.Height(), 0), seconds};
    const bool moving = m_animations.step();
    each_module([](IBaseModule& module) { module.frame_move(); });
    m_device.begin_frame(context.width, context.height);
    each_module([&context](IBaseModule& module) { module.before_render_in_view(context); });
    if (draw_scene) draw_scene(m_device, context, look);
    each_module([&context](IBaseModule& module) { module.render_in_view_3d(context); });
    each_module([&context](IBaseModule& module) { module.render_in_view_2d(context); });
    each_module([&context](IBaseModule& module) { module.after_render_in_view(context); });
    if (draw_overlay) draw_overlay(m_device, context);
    m_device.end_frame();
    if (moving) request_view_update();
}

bool Engine::start_run() {
    if (m_running) return true;
    const MemoryWatch watch;
    m_scripts.reset();
    m_running = true;
    // Their first moment comes ahead of the run, which takes what it finds as the state to fade from.
    m_animations.start_those_that_start_by_themselves();
    m_animations.step();
    each_module([](IBaseModule& module) { module.prepare_run(); });
    if (!watch.ran_out()) return true;
    end_run();
    zov_simple_log(LOG_FONT, L"a start of the run: out of memory", nullptr);
    return false;
}

void Engine::stop_run() {
    m_stop_pending = m_running && m_event_depth > 0;
    if (!m_stop_pending) end_run();
}

void Engine::end_run() {
    m_stop_pending = false;
    if (!m_running) return;
    m_running = false;
    m_animations.stop_all();
    each_module([](IBaseModule& module) { module.after_run(); });
}

bool Engine::mouse(InputKind kind, int x, int y, unsigned flags) {
    SInputEvent event;
    event.kind = kind;
    event.flags = flags;
    event.position = {x, y};
    return input(event);
}

bool Engine::input(const SInputEvent& event) {
    ++m_event_depth;
    const bool used = m_input.deliver(event);
    if (--m_event_depth == 0 && m_stop_pending) end_run();
    return used;
}

// Modules go last, since items must not outlive the code that made them; scripts know functions of the module.
void Engine::close() {
    end_run();
    m_animations.clear();
    m_scene.clear();
    m_scripts.forget_functions();
    each_module([this](IBaseModule& module) {
        module.on_destroy();
        m_messages.remove_listener(&module);
    });
    m_scene.forget_property_items();
    while (!m_modules.empty()) m_modules.pop_back();
}

}  // namespace host
