// What scripts can ask of the 3D scene behind the dialogs, and of whoever sits before the screen.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <lua.hpp>

#include "host/system/engine.h"
#include "host/system/engine_functions.h"
#include "host/system/lua_repeatable.h"

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

int scene_paint(lua_State* L) {
    VEC3 paint;
    float* const parts[] = {&paint.x, &paint.y, &paint.z};
    for (int part = 0; part < 3; ++part) *parts[part] = std::clamp(finite_number(L, part + 1), 0.0f, 1.0f);
    engine_of(L).look.paint = paint;
    engine_of(L).request_view_update();
    return 0;
}

int scene_turn(lua_State* L) {
    const float turn = engine_of(L).look.turn_degrees + std::fmod(finite_number(L, 1), full_turn);
    engine_of(L).look.turn_degrees = std::fmod(turn, full_turn);
    engine_of(L).request_view_update();
    return 0;
}

int scene_light(lua_State* L) {
    engine_of(L).look.light = std::clamp(finite_number(L, 1), 0.0f, brightest_light);
    engine_of(L).request_view_update();
    return 0;
}

int message(lua_State* L) {
    luaL_checkany(L, 1);
    std::size_t length = 0;
    push_shown_text(L, 1);
    const char* text = lua_tolstring(L, -1, &length);
    engine_of(L).show_message({text, length});
    return 0;
}

constexpr EngineParam color[] = {{"r", "number"}, {"g", "number"}, {"b", "number"}};
constexpr EngineParam degrees[] = {{"degrees", "number"}};
constexpr EngineParam level[] = {{"level", "number"}};
constexpr EngineParam value[] = {{"value", "any"}};

constexpr EngineFunction functions[] = {
    {"scene_paint", &scene_paint, color, "", "Paints the object on the stage; red, green and blue, each 0 to 1."},
    {"scene_turn", &scene_turn, degrees, "", "Turns the object further."},
    {"scene_light", &scene_light, level, "", "How bright the light is: 1 as set up, 0 dark, 4 at most."},
    {"message", &message, value, "", "Shows a line to whoever sits before the screen."},
};

}  // namespace

std::span<const EngineFunction> scene_functions() { return functions; }

}  // namespace host
