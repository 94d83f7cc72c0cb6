#include "player/scenario/host_table.h"

#include <lua.hpp>

#include "player/scenario/calls.h"
#include "player/scenario/lua_base.h"
#include "player/scenario/lua_values.h"

namespace scenario {

namespace {

// Errors of a function that the module called know their line, but for those of memory: they get that of the call.
void throw_pending(Scenario& scenario) {
    if (scenario.pending_error.message.empty()) return;
    const host::LuaError error = std::exchange(scenario.pending_error, {});
    if (error.line == 0) throw Failure(error.message);
    throw Failure("script:" + std::to_string(error.line) + ": " + error.message);
}

/// Null on success, else the message, which stands in the box until the next error.
const char* call_or_message(lua_State* L, Scenario& scenario, const HostFunction& function, int& results) try {
    const Arguments arguments(std::string("host.") + function.name, to_values(L, 1, lua_gettop(L)));
    const Results given = function.call(scenario, arguments);
    throw_pending(scenario);
    for (const Value& value : given.values) push_value(L, value);
    results = static_cast<int>(given.values.size());
    return nullptr;
} catch (const std::exception& failure) {
    scenario.lua.raised = failure.what();
    return scenario.lua.raised.c_str();
}

// The error is raised outside of every C++ object's life, for Lua leaves without running destructors.
int call(lua_State* L) {
    auto& scenario = *static_cast<Scenario*>(lua_touserdata(L, lua_upvalueindex(1)));
    const auto& function = *static_cast<const HostFunction*>(lua_touserdata(L, lua_upvalueindex(2)));
    int results = 0;
    const char* message = call_or_message(L, scenario, function, results);
    if (!message) return results;
    if (std::string_view(message).starts_with("script:")) {
        lua_pushstring(L, message);
        return lua_error(L);
    }
    return luaL_error(L, "%s", message);
}

void push_function(lua_State* L, Scenario& scenario, const HostFunction& function) {
    lua_pushlightuserdata(L, &scenario);
    lua_pushlightuserdata(L, const_cast<HostFunction*>(&function));
    lua_pushcclosure(L, &call, 2);
}

void push_table(lua_State* L, Scenario& scenario) {
    lua_newtable(L);
    for (const auto& subject : {project_calls(), item_calls(), state_calls(), frame_calls(), animation_calls(),
                                font_calls(), arithmetic_calls(), comparing_calls()}) {
        for (const HostFunction& function : subject) {
            push_function(L, scenario, function);
            lua_setfield(L, -2, function.name);
        }
    }
}

struct Binding {
    Scenario& scenario;
    const std::vector<std::string>& arguments;
};

int bind(lua_State* L) {
    const auto& binding = *static_cast<const Binding*>(lua_touserdata(L, 1));
    push_table(L, binding.scenario);
    // Used in nearly every line, so it is a global.
    lua_getfield(L, -1, "expect");
    lua_setglobal(L, "expect");
    lua_pushnil(L);
    lua_setfield(L, -2, "expect");
    lua_setglobal(L, "host");
    open_base_functions(L);
    push_value(L, Value(binding.arguments));
    lua_setglobal(L, "ARGS");
    return 0;
}

}  // namespace

void bind_host(Scenario& scenario, const std::vector<std::string>& arguments) {
    Binding binding{scenario, arguments};
    host::LuaError error;
    if (!scenario.lua.protect(&bind, &binding, error)) throw Failure(error.message);
    std::string bind_error;
    if (!scenario.engine.scripts().bind_functions(scenario.lua, true, bind_error)) throw Failure(bind_error);
}

}  // namespace scenario
