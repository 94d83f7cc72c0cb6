#include "player/scenario/scenario.h"

#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/text_conversion.h"

namespace scenario {

namespace {

constexpr int first_width = 1280;
constexpr int first_height = 720;

[[noreturn]] void no_item(const std::string& what, const char* kind, const Value& name) {
    throw Failure(what + ": there is no " + kind + " " + short_text(name));
}

}  // namespace

Scenario::Scenario(host::LuaBox& lua_, const std::string& module_path)
    : lua(lua_), engine(device, host::default_font_path()), log(engine) {
    host::use_settable_time(0.0);
    engine.scene().use_counted_ids();
    // The scene behind the GUI is no part of what the module draws.
    engine.draw_scene = {};
    std::string error;
    if (!engine.load_module(module_path, error)) throw Failure(error);
    if (!dynamic_cast<CSimpleGUIManager*>(engine.module())) throw Failure(module_path + ": not the module to drive");
    if (!engine.new_project(first_width, first_height)) throw Failure("out of memory");
    log.take();
}

Scenario::~Scenario() { engine.close(); }

CSimpleGUIManager& Scenario::manager() const { return static_cast<CSimpleGUIManager&>(*engine.module()); }

host::Actor* Scenario::find_actor(const std::string& name) const {
    const std::wstring wide = from_utf8(name);
    if (host::Actor* actor = engine.scene().find_any(std::wstring_view(wide))) return actor;
    const CGuid id(wide.c_str());
    return id.is_empty() ? nullptr : engine.scene().find_any(id);
}

CSimpleGUIDialog* Scenario::dialog_of(const IActor* actor) const {
    return actor ? dynamic_cast<CSimpleGUIDialog*>(actor->get_item()) : nullptr;
}

CSimpleGUIShape* Scenario::shape_of(const IActor* actor) const {
    return actor ? dynamic_cast<CSimpleGUIShape*>(actor->get_item()) : nullptr;
}

host::Actor& Scenario::actor_named(const Value& name, const std::string& what) const {
    std::string text;
    read_value(name, what, text);
    host::Actor* actor = find_actor(text);
    if (!actor) no_item(what, "item", name);
    return *actor;
}

CSimpleGUIDialog& Scenario::dialog_named(const Value& name, const std::string& what) const {
    CSimpleGUIDialog* dialog = dialog_of(&actor_named(name, what));
    if (!dialog) no_item(what, "dialog", name);
    return *dialog;
}

CSimpleGUIShape& Scenario::shape_named(const Value& name, const std::string& what) const {
    CSimpleGUIShape* shape = shape_of(&actor_named(name, what));
    if (!shape) no_item(what, "shape", name);
    return *shape;
}

std::list<IActor*> Scenario::actors_named(const Value& names, const std::string& what) const {
    if (!names.is_array()) throw Failure(what + " must be a list of names, " + short_text(names) + " given");
    std::list<IActor*> actors;
    for (const Value& name : names) actors.push_back(name == false ? nullptr : &actor_named(name, what));
    return actors;
}

}  // namespace scenario
