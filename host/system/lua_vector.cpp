#include "host/system/lua_vector.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <lua.hpp>
#include <string_view>

#include "host/system/lua_repeatable.h"

namespace host {
namespace {

constexpr const char* vector_type = "host.vector";

// 1 to 4 for a name of a component, else 0.
int component_of(lua_State* L) {
    if (lua_type(L, 2) != LUA_TSTRING) return 0;
    const std::string_view name = lua_tostring(L, 2);
    for (const auto& names : vector_names)
        for (int component = 0; component < 4; ++component)
            if (name == names[component]) return component + 1;
    return 0;
}

int get_component(lua_State* L) {
    const int component = component_of(L);
    if (component == 0) return 0;
    lua_rawgeti(L, 1, component);
    return 1;
}

int set_component(lua_State* L) {
    const int component = component_of(L);
    lua_settop(L, 3);
    if (component == 0)
        lua_rawset(L, 1);
    else
        lua_rawseti(L, 1, component);
    return 0;
}

// Components are 32-bit floats: the shortest text that reads back as the same.
void push_component_text(lua_State* L, int component) {
    char text[32];
    const auto number = static_cast<float>(lua_tonumber(L, component));
    const bool exact =
        lua_type(L, component) == LUA_TNUMBER && static_cast<lua_Number>(number) == lua_tonumber(L, component);
    if (exact)
        lua_pushlstring(L, text, static_cast<std::size_t>(std::to_chars(text, std::end(text), number).ptr - text));
    else
        push_shown_text(L, component);
}

// "{110, 60.5, 130, 80}"
int show_vector(lua_State* L) {
    luaL_Buffer text;
    const auto count = static_cast<int>(std::min<lua_Unsigned>(lua_rawlen(L, 1), 4));
    luaL_checkstack(L, count, nullptr);
    for (int component = 1; component <= count; ++component) lua_rawgeti(L, 1, component);
    luaL_buffinit(L, &text);
    luaL_addchar(&text, '{');
    for (int component = 1; component <= count; ++component) {
        if (component > 1) luaL_addstring(&text, ", ");
        push_component_text(L, 1 + component);
        luaL_addvalue(&text);
    }
    luaL_addchar(&text, '}');
    luaL_pushresult(&text);
    return 1;
}

constexpr luaL_Reg vector_events[] = {
    {"__index", &get_component}, {"__newindex", &set_component}, {"__tostring", &show_vector}, {nullptr, nullptr}};

}  // namespace

void define_vectors(lua_State* L) {
    if (luaL_newmetatable(L, vector_type)) luaL_setfuncs(L, vector_events, 0);
    lua_pop(L, 1);
}

void push_vector(lua_State* L, const float* components, int count) {
    lua_createtable(L, count, 0);
    for (int component = 0; component < count; ++component) {
        lua_pushnumber(L, static_cast<lua_Number>(components[component]));
        lua_rawseti(L, -2, component + 1);
    }
    luaL_setmetatable(L, vector_type);
}

}  // namespace host
