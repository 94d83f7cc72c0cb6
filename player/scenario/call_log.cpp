#include "player/scenario/call_log.h"

#include "host/core/folder_sink.h"
#include "host/core/log.h"
#include "host/system/platform.h"

namespace scenario {

namespace {

// The system's table holds plain functions, so they find their log here. A process runs one scenario.
CallLog* system_log = nullptr;

void show_hand() {
    if (system_log) system_log->add({"cursor", "hand"});
}

CPoint cursor_place() { return system_log ? system_log->cursor : CPoint(); }

bool list_fonts(font_list& list) {
    if (!system_log || !system_log->fonts) return false;
    list = *system_log->fonts;
    return true;
}

void show_message(const std::wstring& text) {
    if (system_log) system_log->add({"box", value_of(text)});
}

bool copy_file(const std::wstring& from, const std::wstring& to) {
    const bool copied = host::default_platform_functions().copy_file(from, to);
    if (copied && system_log) system_log->add({"copy", value_of(from), value_of(to)});
    return copied;
}

void listen_to_engine(CallLog& log, host::Engine& engine) {
    engine.on_view_update = [&log] { log.add(Value::array({"view_update"})); };
    engine.messages().hook = [&log](const host::Message& message) {
        Value call = {"message", message.id};
        for (const message_param parameter : message.params) call.push_back(parameter);
        log.add(std::move(call));
    };
    engine.scripts().on_run = [&log](const std::wstring& owner, const std::string& event) {
        log.add_script(owner, event);
    };
    engine.selection().on_removed = [&log](IActor* actor) { log.add({"deselect", value_of(actor->get_name())}); };
}

void listen_to_scene(CallLog& log, host::Scene& scene) {
    scene.on_parent_changed = [&log](host::Actor& actor, IActor* parent) {
        Value call = {"parent", value_of(actor.get_name())};
        if (parent) call.push_back(value_of(parent->get_name()));
        log.add(std::move(call));
    };
    scene.on_delete = [&log](host::Actor& actor) { log.add({"delete", value_of(actor.get_name())}); };
}

}  // namespace

CallLog::CallLog(host::Engine& engine) {
    system_log = this;
    // Whatever was not said by the scenario is as the system has it, but for the fonts: those differ between machines.
    platform_functions functions = host::default_platform_functions();
    functions.set_hand_cursor = &show_hand;
    functions.cursor_position = &cursor_place;
    functions.list_fonts = &list_fonts;
    functions.show_message = &show_message;
    functions.copy_file = &copy_file;
    host::set_platform_functions(functions);
    host::set_folder_sink([this](const std::wstring& path) { add({"folder", value_of(path)}); });
    host::set_log_sink([this](int kind, std::wstring_view line) { add({"log", kind, value_of(std::wstring(line))}); });
    listen_to_engine(*this, engine);
    listen_to_scene(*this, engine.scene());
}

CallLog::~CallLog() {
    system_log = nullptr;
    host::set_platform_functions(host::default_platform_functions());
    host::set_log_sink({});
    host::set_folder_sink({});
}

void CallLog::add_script(const std::wstring& item, const std::string& event) {
    m_calls.push_back({"script", value_of(item), event});
}

Value CallLog::take() { return std::exchange(m_calls, Value::array()); }

}  // namespace scenario
