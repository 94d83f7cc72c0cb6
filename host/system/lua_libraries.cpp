#include "host/system/lua_libraries.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <lua.hpp>
#include <string_view>

#include "host/system/lua_box.h"

namespace host {
namespace {

constexpr std::size_t longest_repeat = 16u << 20;
constexpr lua_Integer longest_move = 10'000'000;
// Steps that one pattern match may take at worst: a few seconds of work that no limit could interrupt.
constexpr double most_match_steps = 1e9;

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
    if (count > 0 && one > 0 && static_cast<std::uint64_t>(count) > longest_repeat / one)
        return luaL_error(L, "string.rep: the result would be too long");
    return call_original(L);
}

// A metatable could claim a length that a library function then counts through, unseen by the instruction limit.
int guarded_table(lua_State* L) {
    for (const char* event : {"__len", "__index", "__newindex"})
        if (luaL_getmetafield(L, 1, event) != LUA_TNIL)
            return luaL_argerror(L, 1, "a table with its own length or access can't be used here");
    return call_original(L);
}

int guarded_move(lua_State* L) {
    const lua_Integer first = luaL_checkinteger(L, 2);
    const lua_Integer last = luaL_checkinteger(L, 3);
    const bool empty = last < first;
    if (!empty && (first <= 0 ? last >= longest_move + first : last - first >= longest_move))
        return luaL_error(L, "table.move: too many elements");
    return call_original(L);
}

/// What there is in a pattern that makes a match long.
struct PatternWork {
    /// Items that can be tried at every length of the text.
    int repeats = 0;
    /// Items that can be there or not, which doubles the tries.
    int optionals = 0;
    /// What one try compares, in bytes of the pattern.
    double single_steps = 1;
};

// Where the item that begins at `at` ends: "%x", "%bxy", a set in brackets, or one character.
std::size_t end_of_item(std::string_view pattern, std::size_t at) {
    const bool balance = pattern.substr(at).starts_with("%b");
    if (pattern[at] == '%') return std::min(at + (balance ? 4 : 2), pattern.size());
    if (pattern[at] != '[') return at + 1;
    at += pattern.substr(at).starts_with("[^") ? 2 : 1;
    do {
        at += at < pattern.size() && pattern[at] == '%' ? 2 : 1;
    } while (at < pattern.size() && pattern[at] != ']');
    return std::min(at + 1, pattern.size());
}

// A "%b" and a capture that is to come again run through the text too.
bool is_long_item(std::string_view item) {
    return item.size() > 1 && item[0] == '%' && (item[1] == 'b' || (item[1] >= '0' && item[1] <= '9'));
}

PatternWork work_of(std::string_view pattern) {
    PatternWork work;
    for (std::size_t at = 0; at < pattern.size();) {
        const std::size_t end = end_of_item(pattern, at);
        const std::string_view item = pattern.substr(at, end - at);
        const char suffix = end < pattern.size() ? pattern[end] : '\0';
        const bool repeated = suffix == '*' || suffix == '+' || suffix == '-';
        if (repeated || is_long_item(item)) ++work.repeats;
        if (suffix == '?') ++work.optionals;
        if (item[0] == '[')
            work.single_steps += static_cast<double>(item.size() - 1);
        else if (!repeated && item.find_first_of("()^$") != 0)
            work.single_steps += static_cast<double>(item.size());
        at = end + (repeated || suffix == '?' ? 1 : 0);
    }
    return work;
}

// In how many ways so many repeats can share the text among them.
double ways_to_share(std::size_t text_length, int repeats) {
    double ways = 1.0;
    for (int i = 1; i <= repeats; ++i) ways *= (static_cast<double>(text_length) + i) / i;
    return ways;
}

// The worst that a match can come to is known ahead; once it runs, nothing can stop it. Without an anchor it can also
// start anywhere, which counts as one more repeat.
int call_with_pattern(lua_State* L, bool plain, bool anchors) {
    std::size_t text_length = 0;
    std::size_t pattern_length = 0;
    luaL_checklstring(L, 1, &text_length);
    const char* bytes = luaL_checklstring(L, 2, &pattern_length);
    const std::string_view pattern(bytes, pattern_length);
    const PatternWork work = plain ? PatternWork{0, 0, static_cast<double>(pattern_length)} : work_of(pattern);
    const int starts = anchors && pattern.starts_with('^') ? 0 : 1;
    const double tries = std::ldexp(ways_to_share(text_length, work.repeats + starts), work.optionals);
    if (tries * work.single_steps > most_match_steps)
        return luaL_error(L, "the pattern has too many repeats for so long a text");
    return call_original(L);
}

int guarded_find(lua_State* L) { return call_with_pattern(L, lua_toboolean(L, 4) != 0, true); }
int guarded_match(lua_State* L) { return call_with_pattern(L, false, true); }
// There "^" is a character like any other.
int guarded_gmatch(lua_State* L) { return call_with_pattern(L, false, false); }

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
    {LUA_STRLIBNAME, "rep", &guarded_rep},      {LUA_STRLIBNAME, "find", &guarded_find},
    {LUA_STRLIBNAME, "match", &guarded_match},  {LUA_STRLIBNAME, "gmatch", &guarded_gmatch},
    {LUA_STRLIBNAME, "gsub", &guarded_match},   {LUA_TABLIBNAME, "insert", &guarded_table},
    {LUA_TABLIBNAME, "remove", &guarded_table}, {LUA_TABLIBNAME, "concat", &guarded_table},
    {LUA_TABLIBNAME, "sort", &guarded_table},   {LUA_TABLIBNAME, "unpack", &guarded_table},
    {LUA_TABLIBNAME, "move", &guarded_move},    {LUA_GNAME, "setmetatable", &guarded_setmetatable},
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
        luaL_tolstring(L, index, nullptr);
        luaL_addvalue(&line);
    }
    luaL_pushresult(&line);
    std::size_t length = 0;
    const char* text = lua_tolstring(L, -1, &length);
    const LuaBox& box = LuaBox::of(L);
    if (box.on_print) box.on_print(std::string(text, length));
    return 0;
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
}

}  // namespace host
