#include "host/system/lua_binding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>
#include <iterator>
#include <lua.hpp>

#include "host/core/memory_watch.h"
#include "host/core/text_conversion.h"
#include "host/system/lua_repeatable.h"
#include "host/system/lua_vector.h"
#include "host/system/script_manager.h"
#include "host/system/write_watch.h"

// A Lua error leaves a function without running destructors. So each call has three steps: reading the values may raise
// errors and owns nothing; the call itself is plain C++ and raises none; pushing the result owns nothing again.

namespace host {
namespace {

constexpr std::size_t most_params = 16;
// In bytes. No title and no path is near it, and the engine's work on a text is seen by no limit of the script.
constexpr std::size_t longest_text = 1'000'000;

struct Value {
    int integer = 0;
    float number = 0.0f;
    float vector[4] = {};
    const char* text = nullptr;
    std::size_t length = 0;
};

// Indexed by xparam_desc::Kind.
constexpr const char* kind_texts[] = {
    "a whole number of 32 bits",   "a number", "true or false (or 1 or 0)", "a text", "{x, y, z}",
    "{x, y, z, w} or {r, g, b, a}"};

int vector_size(xparam_desc::Kind kind) { return kind == xparam_desc::VEC ? 3 : 4; }

struct Parameter {
    const RegisteredFunction& function;
    int index;
    const xparam_desc& desc() const { return *function.desc.params[static_cast<std::size_t>(index)]; }
    int place() const { return index + 1; }
};

int wrong_value(lua_State* L, const Parameter& parameter, const char* given) {
    return luaL_error(L, "%s: parameter %d (%s) must be %s, %s given", parameter.function.name.c_str(),
                      parameter.place(), parameter.function.titles[static_cast<std::size_t>(parameter.index)].c_str(),
                      kind_texts[parameter.desc().kind], given);
}

int wrong_value(lua_State* L, const Parameter& parameter) {
    const int type = lua_type(L, parameter.place());
    if (type == LUA_TSTRING)
        return wrong_value(L, parameter, lua_pushfstring(L, "\"%s\"", lua_tostring(L, parameter.place())));
    if (type == LUA_TNUMBER || type == LUA_TBOOLEAN) {
        push_shown_text(L, parameter.place());
        return wrong_value(L, parameter, lua_tostring(L, -1));
    }
    return wrong_value(L, parameter, luaL_typename(L, parameter.place()));
}

void read_int(lua_State* L, const Parameter& parameter, Value& value) {
    int exact = 0;
    const lua_Integer number =
        lua_type(L, parameter.place()) == LUA_TNUMBER ? lua_tointegerx(L, parameter.place(), &exact) : 0;
    if (!exact || number < INT32_MIN || number > INT32_MAX) wrong_value(L, parameter);
    value.integer = static_cast<int>(number);
}

void read_float(lua_State* L, const Parameter& parameter, Value& value) {
    if (lua_type(L, parameter.place()) != LUA_TNUMBER) wrong_value(L, parameter);
    value.number = static_cast<float>(lua_tonumber(L, parameter.place()));
}

void read_bool(lua_State* L, const Parameter& parameter, Value& value) {
    if (lua_isboolean(L, parameter.place())) {
        value.integer = lua_toboolean(L, parameter.place());
        return;
    }
    read_int(L, parameter, value);
    if (value.integer != 0 && value.integer != 1) wrong_value(L, parameter);
}

void read_text(lua_State* L, const Parameter& parameter, Value& value) {
    if (lua_type(L, parameter.place()) != LUA_TSTRING) wrong_value(L, parameter);
    value.text = lua_tolstring(L, parameter.place(), &value.length);
    if (value.length > longest_text) wrong_value(L, parameter, "a text of more than a million bytes");
    if (std::find(value.text, value.text + value.length, '\0') != value.text + value.length)
        wrong_value(L, parameter, "a text with a zero byte");
}

// Whichever of the three ways gives the first component must give the others too.
bool push_component(lua_State* L, int table, int way, int component) {
    if (way < 0)
        lua_rawgeti(L, table, component + 1);
    else
        lua_getfield(L, table, vector_names[way][component]);
    return lua_type(L, -1) == LUA_TNUMBER;
}

void read_vector(lua_State* L, const Parameter& parameter, Value& value) {
    const int table = parameter.place();
    if (!lua_istable(L, table)) wrong_value(L, parameter);
    int way = -1;
    for (; way < 2; ++way) {
        const bool found = push_component(L, table, way, 0);
        lua_pop(L, 1);
        if (found) break;
    }
    if (way == 2) wrong_value(L, parameter, "a table without them");
    for (int component = 0; component < vector_size(parameter.desc().kind); ++component) {
        if (!push_component(L, table, way, component))
            wrong_value(L, parameter, lua_pushfstring(L, "a table without number %d", component + 1));
        value.vector[component] = static_cast<float>(lua_tonumber(L, -1));
        lua_pop(L, 1);
    }
}

// Indexed by xparam_desc::Kind.
constexpr void (*readers[])(lua_State*, const Parameter&, Value&) = {&read_int,  &read_float,  &read_bool,
                                                                     &read_text, &read_vector, &read_vector};
static_assert(std::size(readers) == std::size(kind_texts));

void read_values(lua_State* L, const RegisteredFunction& function, Value* values) {
    const int expected = static_cast<int>(function.desc.params.size());
    const int given = lua_gettop(L);
    const char* plural = expected == 1 ? "" : "s";
    if (given < expected)
        luaL_error(L, "%s takes %d value%s, %d given; parameter %d (%s) is missing", function.name.c_str(), expected,
                   plural, given, given + 1, function.titles[static_cast<std::size_t>(given)].c_str());
    if (given > expected)
        luaL_error(L, "%s takes %d value%s, %d given", function.name.c_str(), expected, plural, given);
    luaL_checkstack(L, 8, function.name.c_str());
    for (int index = 0; index < expected; ++index) {
        const Parameter parameter{function, index};
        readers[parameter.desc().kind](L, parameter, values[index]);
    }
}

void store(xparam_desc& param, const Value& value) {
    const float* v = value.vector;
    switch (param.kind) {
        case xparam_desc::INT:
            param.set_INT(value.integer);
            break;
        case xparam_desc::FLOAT:
            param.set_FLOAT(value.number);
            break;
        case xparam_desc::BOOL:
            param.set_BOOL(value.integer);
            break;
        case xparam_desc::STR:
            param.set_STR(from_utf8({value.text, value.length}).c_str());
            break;
        case xparam_desc::VEC:
            param.set_VEC({v[0], v[1], v[2]});
            break;
        case xparam_desc::VEC4_:
            param.set_VEC4({v[0], v[1], v[2], v[3]});
            break;
    }
}

void fetch(const xparam_desc& param, Value& value, std::string& text) {
    const VEC4 v = param.kind == xparam_desc::VEC ? VEC4(param.get_VEC().x, param.get_VEC().y, param.get_VEC().z, 0.0f)
                                                  : param.get_VEC4();
    const float components[4] = {v.x, v.y, v.z, v.w};
    std::copy(std::begin(components), std::end(components), value.vector);
    value.integer = param.kind == xparam_desc::BOOL ? param.get_BOOL() : param.get_INT();
    value.number = param.get_FLOAT();
    text = to_utf8(param.get_STR());
}

// Each call has parameters of its own, since the body may run a script that calls the same function.
CMyComPtr<xparam_desc> own_copy(const CMyComPtr<xparam_desc>& param) {
    return param ? CMyComPtr<xparam_desc>(new xparam_desc(*param)) : CMyComPtr<xparam_desc>();
}

struct Outcome {
    bool failed = false;
    bool has_value = false;
    /// There is a return parameter, but nothing was written to it.
    bool is_nil = false;
    xparam_desc::Kind kind = xparam_desc::INT;
    Value value;
};

void call_body(const RegisteredFunction& function, XSystem* system, const Value* values, bool unwritten_is_nil,
               std::string& text, Outcome& outcome) try {
    xfunc_desc call = function.desc;
    call.system = system;
    call.ret_param = own_copy(call.ret_param);
    for (std::size_t index = 0; index < call.params.size(); ++index) {
        call.params[index] = own_copy(call.params[index]);
        store(*call.params[index], values[index]);
    }
    const CMyComPtr<xparam_desc> result = call.ret_param;
    const WriteWatch watch(result.get());
    const MemoryWatch memory;
    call.func(&call);
    if (memory.ran_out()) throw std::bad_alloc();
    outcome.has_value = result && (watch.written() || !unwritten_is_nil);
    outcome.is_nil = result && !outcome.has_value;
    if (!outcome.has_value) return;
    outcome.kind = result->kind;
    fetch(*result, outcome.value, text);
} catch (const std::bad_alloc&) {
    outcome.failed = !out_of_memory(function.name, text);
} catch (const std::exception& failure) {
    outcome.failed = true;
    text = function.name + ": " + failure.what();
}

int push_outcome(lua_State* L, const Outcome& outcome, const std::string& text) {
    if (outcome.failed) return luaL_error(L, "%s", text.c_str());
    // A value of its own, so that the call can stand where a value is asked for, as in tostring(f()).
    if (outcome.is_nil) lua_pushnil(L);
    if (!outcome.has_value) return outcome.is_nil ? 1 : 0;
    switch (outcome.kind) {
        case xparam_desc::INT:
            lua_pushinteger(L, outcome.value.integer);
            return 1;
        case xparam_desc::FLOAT:
            lua_pushnumber(L, static_cast<lua_Number>(outcome.value.number));
            return 1;
        case xparam_desc::BOOL:
            lua_pushboolean(L, outcome.value.integer);
            return 1;
        case xparam_desc::STR:
            lua_pushlstring(L, text.data(), text.size());
            return 1;
        case xparam_desc::VEC:
        case xparam_desc::VEC4_:
            break;
    }
    push_vector(L, outcome.value.vector, vector_size(outcome.kind));
    return 1;
}

int call_function(lua_State* L) {
    const auto& function = *static_cast<const RegisteredFunction*>(lua_touserdata(L, lua_upvalueindex(1)));
    auto* system = static_cast<XSystem*>(lua_touserdata(L, lua_upvalueindex(2)));
    // One call can take long, with a text of megabytes or a picture from the disk.
    LuaBox::of(L).check_time();
    Value values[most_params];
    read_values(L, function, values);
    Outcome outcome;
    std::string& text = LuaBox::of(L).raised;
    call_body(function, system, values, lua_toboolean(L, lua_upvalueindex(3)) != 0, text, outcome);
    return push_outcome(L, outcome, text);
}

}  // namespace

void bind_function(lua_State* L, RegisteredFunction& function, XSystem* system, bool unwritten_is_nil) {
    define_vectors(L);
    lua_pushlightuserdata(L, &function);
    lua_pushlightuserdata(L, system);
    lua_pushboolean(L, unwritten_is_nil);
    lua_pushcclosure(L, &call_function, 3);
    lua_setglobal(L, function.name.c_str());
}

}  // namespace host
