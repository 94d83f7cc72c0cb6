#include "host/system/lua_libraries.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <lua.hpp>
#include <new>
#include <string_view>

#include "host/system/lua_box.h"
#include "host/system/lua_pattern.h"
#include "host/system/lua_repeatable.h"
#include "host/system/lua_sort.h"

namespace host {
namespace {

constexpr std::size_t longest_repeat = 16u << 20;
constexpr lua_Integer longest_move = 10'000'000;

constexpr luaL_Reg libraries[] = {{LUA_GNAME, luaopen_base},
                                  {LUA_MATHLIBNAME, luaopen_math},
                                  {LUA_STRLIBNAME, luaopen_string},
                                  {LUA_TABLIBNAME, luaopen_table},
                                  {LUA_UTF8LIBNAME, luaopen_utf8}};

// Files, byte code, and the garbage collector, which a script could switch off.
constexpr struct {
    const char* library;
    const char* function;
} removed[] = {{LUA_GNAME, "load"},           {LUA_GNAME, "loadfile"}, {LUA_GNAME, "dofile"},
               {LUA_GNAME, "loadstring"},     {LUA_GNAME, "require"},  {LUA_GNAME, "warn"},
               {LUA_GNAME, "collectgarbage"}, {LUA_STRLIBNAME, "dump"}};

// Goes on in the same call, so that the original's own errors name the function that the script called.
// Each may take long for a single instruction, so the time is looked at every time.
int call_original(lua_State* L) {
    LuaBox::of(L).check_time();
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

int guarded_rep(lua_State* L) {
    std::size_t length = 0;
    std::size_t between = 0;
    luaL_checklstring(L, 1, &length);
    const lua_Integer count = luaL_checkinteger(L, 2);
    luaL_optlstring(L, 3, "", &between);
    const std::size_t one = length + between;
    if (one == 0) {
        // Lua would count all the same.
        lua_pushliteral(L, "");
        return 1;
    }
    if (count > 0 && static_cast<std::uint64_t>(count) > longest_repeat / one)
        return luaL_error(L, "string.rep: the result would be too long");
    return call_original(L);
}

// A metatable could claim a length that a library function then counts through, unseen by the instruction limit.
void check_plain_table(lua_State* L) {
    for (const char* event : {"__len", "__index", "__newindex"})
        if (luaL_getmetafield(L, 1, event) != LUA_TNIL)
            luaL_argerror(L, 1, "a table with its own length or access can't be used here");
}

int guarded_table(lua_State* L) {
    check_plain_table(L);
    return call_original(L);
}

int guarded_sort(lua_State* L) {
    check_plain_table(L);
    return sort_table(L);
}

int guarded_move(lua_State* L) {
    const lua_Integer first = luaL_checkinteger(L, 2);
    const lua_Integer last = luaL_checkinteger(L, 3);
    const bool empty = last < first;
    if (!empty && (first <= 0 ? last >= longest_move + first : last - first >= longest_move))
        return luaL_error(L, "table.move: too many elements");
    return call_original(L);
}

// Finalizers run with the instruction limit off.
int guarded_setmetatable(lua_State* L) {
    if (lua_istable(L, 2)) {
        lua_pushliteral(L, "__gc");
        if (lua_rawget(L, 2) != LUA_TNIL) return luaL_error(L, "setmetatable: finalizers (__gc) are not available");
        lua_pop(L, 1);
    }
    return call_original(L);
}

constexpr struct {
    const char* library;
    const char* function;
    lua_CFunction guard;
} guarded[] = {
    {LUA_STRLIBNAME, "rep", &guarded_rep},       {LUA_TABLIBNAME, "insert", &guarded_table},
    {LUA_TABLIBNAME, "remove", &guarded_table},  {LUA_TABLIBNAME, "concat", &guarded_table},
    {LUA_TABLIBNAME, "sort", &guarded_sort},     {LUA_TABLIBNAME, "unpack", &guarded_table},
    {LUA_TABLIBNAME, "move", &guarded_move},     {LUA_GNAME, "setmetatable", &guarded_setmetatable},
    {LUA_STRLIBNAME, "upper", &call_original},   {LUA_STRLIBNAME, "lower", &call_original},
    {LUA_STRLIBNAME, "sub", &call_original},     {LUA_STRLIBNAME, "reverse", &call_original},
    {LUA_STRLIBNAME, "pack", &call_original},    {LUA_STRLIBNAME, "unpack", &call_original},
    {LUA_GNAME, "tonumber", &call_original},     {LUA_UTF8LIBNAME, "len", &call_original},
    {LUA_UTF8LIBNAME, "char", &call_original},   {LUA_UTF8LIBNAME, "codepoint", &call_original},
    {LUA_UTF8LIBNAME, "offset", &call_original},
};

// xpcall whose handler runs when the error is through: Lua's own calls it at the place of the error, and there, under
// an error of the instruction limit, the limit is off.
int call_then_handle(lua_State* L) {
    luaL_checkany(L, 2);
    lua_pushvalue(L, 2);
    lua_insert(L, 1);
    lua_remove(L, 3);
    const int status = lua_pcall(L, lua_gettop(L) - 2, LUA_MULTRET, 0);
    if (status != LUA_OK) {
        lua_pushvalue(L, 1);
        lua_insert(L, -2);
        (void)lua_pcall(L, 1, 1, 0);
    }
    lua_pushboolean(L, status == LUA_OK);
    lua_replace(L, 1);
    return lua_gettop(L);
}

// One line, its values by tabs.
int print_values(lua_State* L) {
    const int count = lua_gettop(L);
    luaL_Buffer line;
    luaL_buffinit(L, &line);
    for (int index = 1; index <= count; ++index) {
        if (index > 1) luaL_addchar(&line, '\t');
        push_shown_text(L, index);
        luaL_addvalue(&line);
    }
    luaL_pushresult(&line);
    std::size_t length = 0;
    const char* text = lua_tolstring(L, -1, &length);
    const LuaBox& box = LuaBox::of(L);
    try {
        if (box.on_print) box.on_print(std::string(text, length));
        return 0;
    } catch (const std::bad_alloc&) {
        // Lua knows no exceptions, so it is told outside of this one.
    }
    return luaL_error(L, "out of memory");
}

}  // namespace

void open_closed_libraries(lua_State* L) {
    for (const luaL_Reg& library : libraries) {
        luaL_requiref(L, library.name, library.func, 1);
        lua_pop(L, 1);
    }
    for (const auto& row : removed) {
        lua_getglobal(L, row.library);
        lua_pushnil(L);
        lua_setfield(L, -2, row.function);
        lua_pop(L, 1);
    }
    lua_getglobal(L, LUA_STRLIBNAME);
    set_pattern_functions(L);
    lua_pop(L, 1);
    for (const auto& row : guarded) {
        lua_getglobal(L, row.library);
        lua_getfield(L, -1, row.function);
        lua_pushcclosure(L, row.guard, 1);
        lua_setfield(L, -2, row.function);
        lua_pop(L, 1);
    }
    lua_pushcfunction(L, &print_values);
    lua_setglobal(L, "print");
    lua_pushcfunction(L, &call_then_handle);
    lua_setglobal(L, "xpcall");
    open_repeatable_functions(L);
}

}  // namespace host
