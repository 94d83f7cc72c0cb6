#include "player/scenario/lua_values.h"

#include <lua.hpp>

namespace scenario {

namespace {

// Deeper than any project tree; a table that holds itself ends here.
constexpr int deepest = 150;

Value to_value_at_depth(lua_State* L, int index, int depth);

std::string key_text(lua_State* L, int index) {
    if (lua_type(L, index) == LUA_TSTRING) {
        std::size_t length = 0;
        const char* text = lua_tolstring(L, index, &length);
        return {text, length};
    }
    if (lua_isinteger(L, index)) return std::to_string(lua_tointeger(L, index));
    if (lua_type(L, index) == LUA_TNUMBER) return json_text(lua_tonumber(L, index));
    throw Failure(std::string("a table with a ") + luaL_typename(L, index) +
                  " as a key can't be handed over: keys are texts or numbers");
}

// Lua keeps no order among keys, so a table is a list if its keys are exactly 1 to their count.
Value table_value(lua_State* L, int index, int depth) {
    if (depth > deepest) throw Failure("a table is nested too deeply, or in itself");
    if (!lua_checkstack(L, 6)) throw Failure("out of Lua stack");
    const auto length = static_cast<lua_Integer>(lua_rawlen(L, index));
    lua_Integer count = 0;
    for (lua_pushnil(L); lua_next(L, index) != 0; lua_pop(L, 1)) ++count;
    Value table = Value::array();
    if (count == length) {
        for (lua_Integer at = 1; at <= length; ++at) {
            lua_rawgeti(L, index, at);
            table.push_back(to_value_at_depth(L, lua_gettop(L), depth + 1));
            lua_pop(L, 1);
        }
        return table;
    }
    table = Value::object();
    for (lua_pushnil(L); lua_next(L, index) != 0; lua_pop(L, 1))
        table[key_text(L, lua_gettop(L) - 1)] = to_value_at_depth(L, lua_gettop(L), depth + 1);
    return table;
}

Value to_value_at_depth(lua_State* L, int index, int depth) {
    switch (lua_type(L, index)) {
        case LUA_TNONE:
        case LUA_TNIL:
            return {};
        case LUA_TBOOLEAN:
            return lua_toboolean(L, index) != 0;
        case LUA_TNUMBER:
            if (lua_isinteger(L, index)) return static_cast<std::int64_t>(lua_tointeger(L, index));
            return static_cast<double>(lua_tonumber(L, index));
        case LUA_TSTRING:
            return key_text(L, index);
        case LUA_TTABLE:
            return table_value(L, index, depth);
        case LUA_TFUNCTION:
            lua_pushvalue(L, index);
            return function_value(luaL_ref(L, LUA_REGISTRYINDEX));
        default:
            throw Failure(std::string("a ") + luaL_typename(L, index) + " can't be handed over");
    }
}

}  // namespace

Value to_value(lua_State* L, int index) { return to_value_at_depth(L, lua_absindex(L, index), 0); }

std::vector<Value> to_values(lua_State* L, int first, int last) {
    std::vector<Value> values;
    for (int index = first; index <= last; ++index) values.push_back(to_value(L, index));
    return values;
}

void push_value(lua_State* L, const Value& value) {
    luaL_checkstack(L, 4, "value");
    if (value.is_boolean()) {
        lua_pushboolean(L, value.get<bool>());
    } else if (value.is_number_integer()) {
        lua_pushinteger(L, value.get<lua_Integer>());
    } else if (value.is_number_float()) {
        lua_pushnumber(L, value.get<double>());
    } else if (value.is_string()) {
        const auto& text = value.get_ref<const std::string&>();
        lua_pushlstring(L, text.data(), text.size());
    } else if (value.is_array()) {
        lua_createtable(L, static_cast<int>(value.size()), 0);
        lua_Integer place = 0;
        for (const Value& member : value) {
            push_value(L, member);
            lua_rawseti(L, -2, ++place);
        }
    } else if (value.is_object()) {
        lua_createtable(L, 0, static_cast<int>(value.size()));
        for (const auto& entry : value.items()) {
            lua_pushlstring(L, entry.key().data(), entry.key().size());
            push_value(L, entry.value());
            lua_rawset(L, -3);
        }
    } else {
        lua_pushnil(L);
    }
}

}  // namespace scenario
