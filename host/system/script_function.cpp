#include "host/system/script_function.h"

#include "engine/system.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

constexpr const char* text_key = "script";
constexpr std::string_view event_prefix = "m_func_";

IBaseItem* create_script(XSystem* system) {
    return new LuaScript(system ? static_cast<ScriptManager*>(system->m_script_manager) : nullptr);
}

}  // namespace

LuaScript::LuaScript(ScriptManager* manager) : m_manager(manager) { m_type = ITEM_TYPE_SCRIPT; }

void LuaScript::save_to_node(pack_node* node, const save_operation& operation) {
    IScriptFunction::save_to_node(node, operation);
    node->add_string_property(text_key, text);
}

void LuaScript::on_parse(pack_node* node, const load_operation& operation) {
    IScriptFunction::on_parse(node, operation);
    node->get_string_property(text_key, text);
}

void LuaScript::set_place(const CGuid& owner_id, const tstringW& owner_name, const std::string& key) {
    const bool prefixed = std::string_view(key).starts_with(event_prefix);
    m_place = {owner_id, owner_name, prefixed ? key.substr(event_prefix.size()) : key};
}

// Everything is copied first: the script may destroy the shape that holds it, and this object with it.
void LuaScript::run() {
    if (!m_manager || text.empty()) return;
    const ScriptPlace place = m_place;
    const std::string lua = to_utf8(text);
    m_manager->run(lua, place);
}

void register_script_items() { register_item_creator(ITEM_TYPE_SCRIPT, L"script", &create_script, 0); }

}  // namespace host
