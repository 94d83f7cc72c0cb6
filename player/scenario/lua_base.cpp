#include "player/scenario/lua_base.h"

#include <cstddef>
#include <lua.hpp>

namespace scenario {

namespace {

// load(text, name, mode, environment) as Lua has it, but for texts alone: byte code could break out of any box.
int load_text(lua_State* L) {
    constexpr int environment = 4;
    std::size_t length = 0;
    const char* text = luaL_checklstring(L, 1, &length);
    const bool has_environment = !lua_isnone(L, environment);
    if (luaL_loadbufferx(L, text, length, luaL_optstring(L, 2, text), "t") != LUA_OK) {
        lua_pushnil(L);
        lua_insert(L, -2);
        return 2;
    }
    if (has_environment) {
        lua_pushvalue(L, environment);
        if (!lua_setupvalue(L, -2, 1)) lua_pop(L, 1);
    }
    return 1;
}

int collect_garbage(lua_State* L) {
    lua_gc(L, LUA_GCCOLLECT);
    lua_pushinteger(L, 0);
    return 1;
}

}  // namespace

void open_base_functions(lua_State* L) {
    lua_pushcfunction(L, &load_text);
    lua_setglobal(L, "load");
    lua_pushcfunction(L, &collect_garbage);
    lua_setglobal(L, "collectgarbage");
}

}  // namespace scenario
