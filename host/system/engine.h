#pragma once

// The root of the reference engine: owns every service, loads the module, opens and saves projects, and makes frames.
// A program (player, scenario, test) holds one Engine and a device that outlives it.

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/engine_system.h"
#include "host/core/device.h"
#include "host/core/project_document.h"
#include "host/core/project_picture.h"
#include "host/core/scene_view.h"
#include "host/system/animations.h"
#include "host/system/input.h"
#include "host/system/messages.h"
#include "host/system/module_library.h"
#include "host/system/scene.h"
#include "host/system/script_manager.h"
#include "host/system/selection.h"

/// The frame in work.
struct render_context {
    /// Of the view, in pixels.
    int width = 0;
    int height = 0;
    /// Moment of the 3D scene.
    double seconds = 0.0;
};

namespace host {

class LegacyProject;

class Engine final : public XSystem {
public:
    /// The device must outlive the engine. `font_path` is the default font's file; empty for none. `font_size` in
    /// pixels.
    Engine(Device& device, const std::wstring& font_path, unsigned font_size = 18);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine();

    const CRect& get_client_rect() const override { return m_client; }
    void request_view_update() override;
    /// A line of text for whoever sits before the screen, UTF-8.
    void show_message(const std::string& text);

    /// Loads the library and brings its module up to init_3d_environment and on_register_xfunc. False: `error` set;
    /// where memory ran out amid that, the engine is closed.
    bool load_module(const std::string& so_path, std::string& error);
    /// The first loaded module, or null.
    IBaseModule* module() const;

    /// The default font from the next new_project on.
    void set_default_font(const CMyComPtr<IBaseFont>& font) { m_next_font = font; }
    /// An empty project in a view of that size. False where memory ran out, which may leave it with fonts of the
    /// former.
    bool new_project(int width, int height);
    /// False: `error` is one line, and the open project is as it was. Where memory ran out amid the opening it is as a
    /// save would bring it back, or empty if there is no memory for that, as the error then says. What is missing
    /// without being an error (pictures) stands in warnings() afterwards.
    bool open_project(const std::string& path, std::string& error);
    /// The same from a document; `path` only names its file and the folder of its pictures, and may be empty.
    bool open_document(const ProjectDocument& document, const std::string& path, std::string& error);
    /// A project of the legacy format, in the present view, in the place of the open one. False as above; the project
    /// has no file of its own until it is saved, but belongs to the folder of the old one.
    bool import_project(const std::string& path, std::string& error);
    /// The same from a tree, which is only read.
    bool import_tree(LegacyProject& legacy, std::string& error);
    /// The project then belongs to that file. False: the old file stands, `error` says why.
    bool save_project(const std::string& path, std::string& error);
    /// What save_project would write; `path` as in open_document. Throws std::bad_alloc where that is too much.
    ProjectDocument document(const std::string& path = {});
    /// The same, part by part.
    void save_parts(const std::string& path, ProjectParts& out);
    const std::vector<std::string>& warnings() const { return m_warnings; }

    /// From now on project_file_path is this, whatever is opened or saved: for a caller that plays another engine.
    void fix_project_path(const tstringW& path);

    /// The view takes this size and the modules are told. Negative sizes count as 0.
    void resize(int width, int height);
    /// The same in two steps, for those who want one of them alone.
    void set_client_rect(const CRect& rect) { m_client = rect; }
    void tell_size_changed();
    /// One frame, with the animations at the clock's present; `seconds` is the moment of the 3D scene. False where
    /// memory ran out, with a line in the log: a part of the picture is missing.
    bool frame(double seconds);

    /// False where memory ran out, and the project does not run.
    bool start_run();
    /// Inside an event the end waits until the event is through, since the tool that hears it would be destroyed.
    void stop_run();
    /// The same at once, whatever is on its way: for a caller that knows its modules to bear it.
    void end_run();
    bool is_running() const { return m_running; }
    /// In view pixels. True if a listener used the event.
    bool mouse(InputKind kind, int x, int y, unsigned flags = 0);
    bool input(const SInputEvent& event);

    /// The end: the run stopped, the scene cleared, modules destroyed, libraries unloaded. The destructor calls it.
    void close();

    Device& device() { return m_device; }
    Scene& scene() { return m_scene; }
    const Scene& scene() const { return m_scene; }
    MessageManager& messages() { return m_messages; }
    SelectionManager& selection() { return m_selection; }
    InputManager& input_chain() { return m_input; }
    ScriptManager& scripts() { return m_scripts; }
    /// Those that start by themselves play from start_run to stop_run; each frame shows all that play.
    Animations& animations() { return m_animations; }
    /// How the 3D scene looks; scripts change it.
    SceneLook look;
    /// The look that a new project begins with.
    static SceneLook first_look();

    /// Draws the 3D content between begin_frame and the modules: the showroom unless exchanged; may be empty.
    std::function<void(Device&, const render_context&, const SceneLook&)> draw_scene;
    /// Draws over everything else, behind the modules; may be empty.
    std::function<void(Device&, const render_context&)> draw_overlay;
    /// Hears request_view_update; may be empty.
    std::function<void()> on_view_update;
    /// Gets the text of the script function `message`, UTF-8. Empty: standard output.
    std::function<void(const std::string&)> on_message;

private:
    template <class Call>
    void each_module(Call call);
    void set_project_path(const std::string& path);
    bool can_open(const std::string& path, std::string& error) const;
    static bool check_kinds(const ProjectDocument& document, const std::string& path, std::string& error);
    void clean_project();
    template <class Fill>
    bool make_project(const std::string& path, Fill fill);
    template <class Fill>
    bool replace_project(const std::string& path, std::string& error, Fill fill);
    void draw_frame(double seconds);
    void fill(const ProjectDocument& document, const std::string& path);
    void create_item(const ProjectItem& stored, load_operation& operation);
    void create_animation(const ProjectAnimation& stored, load_operation& operation);
    /// A save in work: where it goes, and what is in it so far.
    struct Saving;
    void save_modules(const Saving& saving);
    void save_item(const Actor& actor, Saving& saving);
    void save_items(Saving& saving);
    void save_animations(const Saving& saving);

    Device& m_device;
    CRect m_client;
    MessageManager m_messages;
    SelectionManager m_selection;
    Scene m_scene;
    InputManager m_input;
    ScriptManager m_scripts;
    Animations m_animations;
    ResourceManager m_resources;
    CMyComPtr<IBaseFont> m_font;
    /// Waits for new_project; null while none waits.
    CMyComPtr<IBaseFont> m_next_font;
    std::vector<std::unique_ptr<ModuleLibrary>> m_modules;
    std::vector<std::string> m_warnings;
    int m_event_depth = 0;
    bool m_running = false;
    bool m_stop_pending = false;
    bool m_path_is_fixed = false;
};

}  // namespace host
