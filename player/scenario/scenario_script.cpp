#include "player/scenario/scenario_script.h"

#include <lua.hpp>

#include "host/system/script_function.h"

namespace scenario {

namespace {

int call_function(lua_State* L) {
    lua_rawgeti(L, LUA_REGISTRYINDEX, *static_cast<const int*>(lua_touserdata(L, 1)));
    lua_call(L, 0, 0);
    return 0;
}

CMyComPtr<IScriptFunction> make_script(Scenario& scenario, const IActor& owner, const ScriptEvent& event,
                                       const Value& value, const std::string& what) {
    if (value == false) return {};
    const int function = function_reference(value);
    if (function >= 0) return new ScenarioScript(scenario, function, owner.get_id(), event.name);
    CMyComPtr<host::LuaScript> script = new host::LuaScript(&scenario.engine.scripts());
    read_value(value, what, script->text);
    script->set_place(owner.get_id(), owner.get_name(), std::string("m_func_") + event.name);
    return script.get();
}

}  // namespace

const std::array<ScriptEvent, 8> script_events = {{
    {"left_down", &CSimpleGUIShape::m_func_left_down},
    {"left_up", &CSimpleGUIShape::m_func_left_up},
    {"right_down", &CSimpleGUIShape::m_func_right_down},
    {"right_up", &CSimpleGUIShape::m_func_right_up},
    {"middle_down", &CSimpleGUIShape::m_func_middle_down},
    {"middle_up", &CSimpleGUIShape::m_func_middle_up},
    {"mouse_in", &CSimpleGUIShape::m_func_mouse_in},
    {"mouse_out", &CSimpleGUIShape::m_func_mouse_out},
}};

ScenarioScript::ScenarioScript(Scenario& scenario, int function, const CGuid& owner, std::string event)
    : m_scenario(scenario), m_function(function), m_owner(owner), m_event(std::move(event)) {
    // A kind that nobody knows, so that no project stores it.
    m_type = 0;
}

// The function may destroy the shape and this object with it, so all is fetched first. An error can't pass through the
// module: it waits for the call of the scenario that led here.
void ScenarioScript::run() {
    Scenario& scenario = m_scenario;
    int function = m_function;
    const host::Actor* owner = scenario.engine.scene().find_any(m_owner);
    scenario.log.add_script(owner ? std::wstring(owner->get_name()) : L"", m_event);
    host::LuaError error;
    if (!scenario.lua.protect_within({}, &call_function, &function, error) && scenario.pending_error.message.empty())
        scenario.pending_error = error;
}

void set_scripts(Scenario& scenario, CSimpleGUIShape& shape, Fields scripts) {
    for (const ScriptEvent& event : script_events) {
        if (!scripts.has(event.name)) continue;
        shape.*event.member =
            make_script(scenario, *shape.m_actor, event, scripts.get(event.name), scripts.where(event.name));
    }
    scripts.finish();
}

Value scripts_of(const CSimpleGUIShape& shape) {
    Value all = Value::object();
    for (const ScriptEvent& event : script_events) {
        IScriptFunction* script = (shape.*event.member).get();
        if (!script) continue;
        const auto* lua = dynamic_cast<const host::LuaScript*>(script);
        all[event.name] = lua ? value_of(lua->text) : Value(true);
    }
    return all;
}

}  // namespace scenario
