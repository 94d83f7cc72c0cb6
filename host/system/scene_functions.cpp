#include "host/system/scene_functions.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <lua.hpp>

#include "host/system/engine.h"

namespace host {
namespace {

constexpr float brightest_light = 4.0f;
constexpr float full_turn = 360.0f;

Engine& engine_of(lua_State* L) { return *static_cast<Engine*>(lua_touserdata(L, lua_upvalueindex(1))); }

float finite_number(lua_State* L, int index) {
    const lua_Number number = luaL_checknumber(L, index);
    if (!std::isfinite(number)) luaL_argerror(L, index, "must be a finite number");
    return static_cast<float>(number);
}

// scene_paint(r, g, b): colour of the object on the stage, each 0 to 1.
int scene_paint(lua_State* L) {
    VEC3 paint;
    float* const parts[] = {&paint.x, &paint.y, &paint.z};
    for (int part = 0; part < 3; ++part) *parts[part] = std::clamp(finite_number(L, part + 1), 0.0f, 1.0f);
    engine_of(L).look.paint = paint;
    engine_of(L).request_view_update();
    return 0;
}

// scene_turn(degrees): turns the object further.
int scene_turn(lua_State* L) {
    const float turn = engine_of(L).look.turn_degrees + std::fmod(finite_number(L, 1), full_turn);
    engine_of(L).look.turn_degrees = std::fmod(turn, full_turn);
    engine_of(L).request_view_update();
    return 0;
}

// scene_light(level): 1 as set up, 0 dark.
int scene_light(lua_State* L) {
    engine_of(L).look.light = std::clamp(finite_number(L, 1), 0.0f, brightest_light);
    engine_of(L).request_view_update();
    return 0;
}

// message(value): a line for whoever sits before the screen.
int message(lua_State* L) {
    luaL_checkany(L, 1);
    std::size_t length = 0;
    const char* text = luaL_tolstring(L, 1, &length);
    engine_of(L).show_message({text, length});
    return 0;
}

constexpr luaL_Reg functions[] = {
    {"scene_paint", &scene_paint}, {"scene_turn", &scene_turn}, {"scene_light", &scene_light}, {"message", &message}};

}  // namespace

int add_scene_functions(lua_State* L) {
    for (const luaL_Reg& function : functions) {
        lua_pushvalue(L, 1);
        lua_pushcclosure(L, function.func, 1);
        lua_setglobal(L, function.name);
    }
    return 0;
}

}  // namespace host
