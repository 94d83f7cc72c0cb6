// What scripts can ask of the animations of a project.

#include <cmath>
#include <cstdlib>
#include <lua.hpp>

#include "host/core/text_conversion.h"
#include "host/system/engine.h"
#include "host/system/engine_functions.h"

namespace host {
namespace {

Engine& engine_of(lua_State* L) { return *static_cast<Engine*>(lua_touserdata(L, lua_upvalueindex(1))); }

// The animation that the first argument names. A name that none has is a slip of the pen, so it ends the script.
Animation& named(lua_State* L) {
    std::size_t length = 0;
    const char* name = luaL_checklstring(L, 1, &length);
    Animation* found = engine_of(L).animations().find(from_utf8({name, length}));
    if (found) return *found;
    luaL_argerror(L, 1, lua_pushfstring(L, "there is no animation \"%s\"", name));
    // The line above does not return.
    std::abort();
}

template <void (Animation::*Call)()>
int call(lua_State* L) {
    (named(L).*Call)();
    engine_of(L).request_view_update();
    return 0;
}

int animation_seek(lua_State* L) {
    Animation& animation = named(L);
    const lua_Number seconds = luaL_checknumber(L, 2);
    if (std::isnan(seconds)) luaL_argerror(L, 2, "must be a number of seconds");
    animation.seek(seconds);
    engine_of(L).request_view_update();
    return 0;
}

// In the order of PlayState.
constexpr const char* states[] = {"stopped", "playing", "paused"};

int animation_state(lua_State* L) {
    const Animation& animation = named(L);
    lua_pushstring(L, states[static_cast<int>(animation.state())]);
    lua_pushnumber(L, animation.moment());
    return 2;
}

constexpr EngineParam by_name[] = {{"name", "string"}};
constexpr EngineParam by_name_and_moment[] = {{"name", "string"}, {"seconds", "number"}};

constexpr EngineFunction functions[] = {
    {"animation_start", &call<&Animation::start>, by_name, "",
     "Plays from the beginning; goes on where it was paused."},
    {"animation_pause", &call<&Animation::pause>, by_name, "", "Stands still until it is started again."},
    {"animation_stop", &call<&Animation::stop>, by_name, "", "Stands still; the next start is from the beginning."},
    {"animation_reverse", &call<&Animation::reverse>, by_name, "",
     "Turns round and plays from where it stands; at its beginning it plays to the end, at its end to the beginning."},
    {"animation_seek", &animation_seek, by_name_and_moment, "",
     "Goes to that moment, which shows at once. What plays goes on from there; what does not is paused there."},
    {"animation_state", &animation_state, by_name, "string, number",
     "Gives \"stopped\", \"playing\" or \"paused\", and the moment in seconds."},
};

}  // namespace

std::span<const EngineFunction> animation_functions() { return functions; }

}  // namespace host
