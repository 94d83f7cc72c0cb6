#include "host/system/lua_repeatable.h"

#include <cmath>
#include <lua.hpp>
#include <string_view>

#include "host/system/lua_box.h"

namespace host {
namespace {

// Lua's own order among texts is another in every process. What is set to nil under a walk is passed over, as Lua does
// it; what is added is not met. `next` keeps the order of a table from its first key on, so that a walk sorts once.
constexpr const char* sorted_walks = R"lua(
local next, type, rawget, sort, error, ipairs = next, type, rawget, table.sort, error, ipairs
local getmetatable, setmetatable = getmetatable, setmetatable
local ranks = {number = 1, string = 2}
local function before(a, b)
    local rank_a, rank_b = ranks[type(a)] or 3, ranks[type(b)] or 3
    if rank_a ~= rank_b then return rank_a < rank_b end
    return rank_a < 3 and a < b
end
local function sorted_keys(t)
    local keys, count = {}, 0
    for key in next, t do
        count = count + 1
        keys[count] = key
    end
    sort(keys, before)
    return keys, count
end
local function check_table(t, name)
    if type(t) ~= "table" then
        error("bad argument #1 to '" .. name .. "' (table expected, got " .. type(t) .. ")", 3)
    end
end
local function sorted_pairs(t)
    local meta = getmetatable(t)
    if type(meta) == "table" and rawget(meta, "__pairs") then return meta.__pairs(t) end
    check_table(t, "pairs")
    local keys, count = sorted_keys(t)
    local at = 0
    return function()
        while at < count do
            at = at + 1
            local value = rawget(t, keys[at])
            if value ~= nil then return keys[at], value end
        end
    end, t, nil
end
local orders = setmetatable({}, {__mode = "k"})
local function order_of(t)
    local order = {keys = sorted_keys(t), places = {}}
    for place, key in ipairs(order.keys) do order.places[key] = place end
    orders[t] = order
    return order
end
local function sorted_next(t, key)
    check_table(t, "next")
    if key == nil and next(t) == nil then return nil end
    local order = key ~= nil and orders[t] or order_of(t)
    if key ~= nil and not order.places[key] then order = order_of(t) end
    local place = key == nil and 0 or order.places[key] or error("invalid key to 'next'", 2)
    while true do
        place = place + 1
        local following = order.keys[place]
        if following == nil then return nil end
        local value = rawget(t, following)
        if value ~= nil then return following, value end
    end
end
return sorted_pairs, sorted_next
)lua";

// math.randomseed, which would take its own numbers from the clock and from addresses where none are given.
int seed(lua_State* L) {
    if (lua_gettop(L) == 0) lua_pushinteger(L, 1);
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_insert(L, 1);
    lua_call(L, lua_gettop(L) - 1, 0);
    return 0;
}

int show_as_text(lua_State* L) {
    luaL_checkany(L, 1);
    push_shown_text(L, 1);
    return 1;
}

// Quoting a text takes so much longer than any other form of it that no limit would reach it in time.
constexpr std::size_t longest_quote = 1u << 20;

// That some of the conversions are of this kind.
bool has_conversion(std::string_view format, char kind) {
    for (std::size_t at = format.find('%'); at != std::string_view::npos; at = format.find('%', at + 1)) {
        at = format.find_first_not_of("-+ #0123456789.", at + 1);
        if (at == std::string_view::npos) break;
        if (format[at] == kind) return true;
    }
    return false;
}

// Upvalue: the original.
int format_without_addresses(lua_State* L) {
    LuaBox::of(L).check_time();
    // With its length, for Lua formats on behind a zero byte.
    std::size_t length = 0;
    const char* text = luaL_checklstring(L, 1, &length);
    const std::string_view format(text, length);
    if (has_conversion(format, 'p')) return luaL_error(L, "string.format: %%p is not available");
    const bool quotes = has_conversion(format, 'q');
    for (int index = 2; index <= lua_gettop(L); ++index) {
        if (quotes && lua_type(L, index) == LUA_TSTRING && lua_rawlen(L, index) > longest_quote)
            return luaL_argerror(L, index, "a text too long to be quoted");
        if (!lua_istable(L, index) && !lua_isfunction(L, index)) continue;
        push_shown_text(L, index);
        lua_replace(L, index);
    }
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

}  // namespace

void push_shown_text(lua_State* L, int index) {
    if (lua_type(L, index) == LUA_TNUMBER && std::isnan(lua_tonumber(L, index))) {
        // The sign of what is no number says nothing, and differs between machines.
        lua_pushliteral(L, "nan");
        return;
    }
    const int type = lua_type(L, index);
    const bool has_address = type == LUA_TTABLE || type == LUA_TFUNCTION || type == LUA_TUSERDATA;
    const bool speaks = luaL_getmetafield(L, index, "__tostring") != LUA_TNIL;
    if (speaks) lua_pop(L, 1);
    if (has_address && !speaks) {
        lua_pushstring(L, luaL_typename(L, index));
        return;
    }
    luaL_tolstring(L, index, nullptr);
}

void open_repeatable_functions(lua_State* L) {
    if (luaL_loadstring(L, sorted_walks) != LUA_OK) lua_error(L);
    lua_call(L, 0, 2);
    lua_setglobal(L, "next");
    lua_setglobal(L, "pairs");
    lua_pushcfunction(L, &show_as_text);
    lua_setglobal(L, "tostring");
    lua_getglobal(L, LUA_STRLIBNAME);
    lua_getfield(L, -1, "format");
    lua_pushcclosure(L, &format_without_addresses, 1);
    lua_setfield(L, -2, "format");
    lua_pop(L, 1);
}

int seed_with_constant(lua_State* L) {
    lua_settop(L, 0);
    lua_getglobal(L, LUA_MATHLIBNAME);
    lua_getfield(L, 1, "randomseed");
    lua_pushcclosure(L, &seed, 1);
    lua_pushvalue(L, -1);
    lua_setfield(L, 1, "randomseed");
    lua_call(L, 0, 0);
    return 0;
}

}  // namespace host
