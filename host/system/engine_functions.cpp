#include "host/system/engine_functions.h"

#include <lua.hpp>
#include <new>

namespace host {

std::string signature_of(const EngineFunction& function) {
    std::string text = std::string(function.name) + "(";
    for (const EngineParam& param : function.params) {
        if (&param != function.params.data()) text += ", ";
        text += param.name;
    }
    return text + ")";
}

namespace {

// Lua knows no exceptions, so one ends here, and the error begins outside of it.
int call_guarded(lua_State* L) {
    try {
        return lua_tocfunction(L, lua_upvalueindex(2))(L);
    } catch (const std::bad_alloc&) {
        lua_settop(L, 0);
    }
    return luaL_error(L, "out of memory");
}

}  // namespace

int add_engine_functions(lua_State* L) {
    for (const auto functions : {scene_functions(), animation_functions()}) {
        for (const EngineFunction& function : functions) {
            lua_pushvalue(L, 1);
            lua_pushcfunction(L, function.body);
            lua_pushcclosure(L, &call_guarded, 2);
            lua_setglobal(L, function.name);
        }
    }
    return 0;
}

}  // namespace host
