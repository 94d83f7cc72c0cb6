#pragma once

struct lua_State;

namespace host {

/// Adds what scripts can ask of this engine: scene_paint, scene_turn, scene_light and message. The argument is the
/// Engine, which must outlive the state. For ScriptManager::set_extra_functions.
int add_scene_functions(lua_State* state);

}  // namespace host
